#pragma once

#include <qwt_plot_zoomer.h>

class MultiAxisPlot;

/// The zoom stack of one Y axis. Its rubber band works on the axis next to the canvas, so it is enabled only
/// while its own axis is the current one.
class AxisZoomer : public QwtPlotZoomer {
public:
    AxisZoomer(MultiAxisPlot* plot, int axis);

    void zoom(const QRectF& area) override;
    void zoom(int offset) override;
    /// Puts an area in place of the last step, or makes it the first one.
    void replace(const QRectF& area);
    int depth() const { return int(zoomRectIndex()); }
    /// Forgets all steps; the range that is shown stays.
    void clearStack();

protected:
    void rescale() override;
    bool accept(QPolygon& points) const override;
    /// Invalid, so that nothing is widened: the library measures in values, which is wrong on a logarithmic
    /// axis.
    QSizeF minZoomSize() const override { return {}; }

private:
    MultiAxisPlot* m_plot;
    int m_axis;
    bool m_clearing = false;
};
