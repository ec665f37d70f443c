#include "plot/axiszoomer.h"

#include "plot/multiaxisplot.h"

#include <algorithm>

namespace {

/// A drag shorter than this is a click with an unsteady hand, in pixels.
constexpr int unsteady = 6;

} // namespace

AxisZoomer::AxisZoomer(MultiAxisPlot* plot, int axis)
    : QwtPlotZoomer(plot->canvas(), false)
    , m_plot(plot)
    , m_axis(axis)
{
    setMaxStackDepth(-1);
    setTrackerMode(AlwaysOff);
    setRubberBandPen(QPen(QColor(0, 100, 255), 2.0));
    setMousePattern(MouseSelect3, Qt::RightButton);
    setMousePattern(MouseSelect2, Qt::RightButton, Qt::ControlModifier);
    setKeyPattern(KeyUndo, Qt::Key_Backspace);
    setEnabled(false);
}

void AxisZoomer::zoom(const QRectF& area)
{
    if (!m_plot->acceptsZoom(m_axis, area.normalized()))
        return;
    if (zoomRectIndex() == 0)
        m_plot->aboutToZoom(m_axis);
    QwtPlotZoomer::zoom(area);
}

void AxisZoomer::zoom(int offset)
{
    QwtPlotZoomer::zoom(offset);
}

void AxisZoomer::replace(const QRectF& area)
{
    if (depth() == 0) {
        zoom(area);
        return;
    }
    if (!m_plot->acceptsZoom(m_axis, area.normalized()))
        return;
    QStack<QRectF> stack = zoomStack();
    stack.resize(depth() + 1);
    stack.last() = area.normalized();
    setZoomStack(stack, depth());
}

bool AxisZoomer::accept(QPolygon& points) const
{
    const QRect area = points.boundingRect();
    return std::max(area.width(), area.height()) >= unsteady && QwtPlotZoomer::accept(points);
}

void AxisZoomer::clearStack()
{
    // One entry is the least the library keeps; what it holds is never applied, since depth 0 means the home
    // range.
    QStack<QRectF> bottom;
    bottom.push(QRectF(0.0, 0.0, -1.0, -1.0));
    m_clearing = true;
    setZoomStack(bottom, 0);
    m_clearing = false;
}

void AxisZoomer::rescale()
{
    if (m_clearing)
        return;
    if (depth() == 0)
        m_plot->applyHome(m_axis);
    else
        m_plot->applyZoom(m_axis, zoomRect());
}
