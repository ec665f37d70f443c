#include "plot/multiaxisplot.h"

#include "plot/axiszoomer.h"

#include <qwt_scale_engine.h>

#include <algorithm>
#include <cmath>

namespace {

/// A range must keep enough digits for a scale to be divided.
bool wideEnough(double min, double max)
{
    return std::isfinite(min) && std::isfinite(max)
        && max - min > 1e-11 * std::max(std::fabs(min), std::fabs(max));
}

} // namespace

void MultiAxisPlot::setZoomEnabled(bool on)
{
    m_zoom = on;
    for (int axis = 0; axis < yAxisCount; ++axis)
        m_zoomers[size_t(axis)]->setEnabled(on && axis == m_current);
}

void MultiAxisPlot::zoomTo(int axis, const QRectF& area)
{
    if (isYAxis(axis))
        m_zoomers[size_t(axis)]->zoom(area);
}

void MultiAxisPlot::zoomBack(int axis)
{
    if (isYAxis(axis))
        m_zoomers[size_t(axis)]->zoom(-1);
}

void MultiAxisPlot::moveZoom(int axis, const QRectF& area)
{
    if (isYAxis(axis))
        m_zoomers[size_t(axis)]->replace(area);
}

void MultiAxisPlot::zoomHome()
{
    for (int axis = 0; axis < yAxisCount; ++axis)
        zoomHome(axis);
}

void MultiAxisPlot::zoomHome(int axis)
{
    if (zoomDepth(axis) > 0)
        m_zoomers[size_t(axis)]->zoom(0);
}

QwtInterval MultiAxisPlot::homeInterval(int axis) const
{
    const bool moved = isYAxis(axis) ? zoomDepth(axis) > 0 : zoomed() != nullptr;
    const Range& range = moved ? axisAt(axis).home : axisAt(axis).range;
    return {range.min, range.max};
}

/// The first axis that is zoomed; null for none.
const AxisZoomer* MultiAxisPlot::zoomed() const
{
    const auto found = std::find_if(
        m_zoomers.begin(), m_zoomers.end(), [](const AxisZoomer* zoomer) { return zoomer->depth() > 0; });
    return found == m_zoomers.end() ? nullptr : *found;
}

int MultiAxisPlot::zoomDepth(int axis) const
{
    return isYAxis(axis) ? m_zoomers[size_t(axis)]->depth() : 0;
}

void MultiAxisPlot::resetZoom()
{
    for (AxisZoomer* zoomer : m_zoomers)
        zoomer->clearStack();
}

bool MultiAxisPlot::acceptsZoom(int axis, const QRectF& area) const
{
    const bool xFits = axisAt(bottomAxis).scale != Scale::Log10 || area.left() > 0.0;
    const bool yFits = axisAt(axis).scale != Scale::Log10 || area.top() > 0.0;
    return xFits && yFits && wideEnough(area.left(), area.right()) && wideEnough(area.top(), area.bottom());
}

void MultiAxisPlot::aboutToZoom(int axis)
{
    axisAt(axis).home = axisAt(axis).range;
    if (!zoomed())
        axisAt(bottomAxis).home = axisAt(bottomAxis).range;
}

void MultiAxisPlot::applyZoom(int axis, const QRectF& area)
{
    setAxisScale(bottomAxis, area.left(), area.right());
    setAxisScale(axis, area.top(), area.bottom());
    replot();
}

void MultiAxisPlot::applyHome(int axis)
{
    const auto restore = [this](int number, const Range& home) {
        setAxisScale(number, home.min, home.max);
        setAxisAutoScale(number, home.automatic);
    };
    restore(axis, axisAt(axis).home);
    // The bottom axis is shared: it stays with another axis that is still zoomed.
    if (const AxisZoomer* other = zoomed())
        setAxisScale(bottomAxis, other->zoomRect().left(), other->zoomRect().right());
    else
        restore(bottomAxis, axisAt(bottomAxis).home);
    replot();
}
