#pragma once

#include <qwt_plot_renderer.h>

class PlotBoxes;

/// Renders a graph with its text boxes on a white ground.
class PlotRenderer : public QwtPlotRenderer {
    Q_OBJECT
public:
    explicit PlotRenderer(const PlotBoxes& boxes);

    void renderCanvas(const QwtPlot* plot, QPainter* painter, const QRectF& canvasRect,
        const QwtScaleMap* maps) const override;

private:
    const PlotBoxes& m_boxes;
};
