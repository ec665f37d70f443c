#include "plot/plotrenderer.h"

#include "plot/plotboxes.h"

PlotRenderer::PlotRenderer(const PlotBoxes& boxes)
    : m_boxes(boxes)
{
    setDiscardFlag(DiscardBackground);
}

void PlotRenderer::renderCanvas(
    const QwtPlot* plot, QPainter* painter, const QRectF& canvasRect, const QwtScaleMap* maps) const
{
    QwtPlotRenderer::renderCanvas(plot, painter, canvasRect, maps);
    m_boxes.draw(painter, canvasRect);
}
