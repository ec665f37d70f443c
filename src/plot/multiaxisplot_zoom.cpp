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
    const bool xFits = axisAt(bottomAxis).scale == Scale::Linear || area.left() > 0.0;
    const bool yFits = axisAt(axis).scale == Scale::Linear || area.top() > 0.0;
    return xFits && yFits && wideEnough(area.left(), area.right()) && wideEnough(area.top(), area.bottom());
}

void MultiAxisPlot::aboutToZoom(int axis)
{
    axisAt(axis).home = axisAt(axis).range;
    const bool first = std::all_of(
        m_zoomers.begin(), m_zoomers.end(), [](const AxisZoomer* zoomer) { return zoomer->depth() == 0; });
    if (first)
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
    const auto zoomed = std::find_if(
        m_zoomers.begin(), m_zoomers.end(), [](const AxisZoomer* zoomer) { return zoomer->depth() > 0; });
    if (zoomed != m_zoomers.end())
        setAxisScale(bottomAxis, (*zoomed)->zoomRect().left(), (*zoomed)->zoomRect().right());
    else
        restore(bottomAxis, axisAt(bottomAxis).home);
    replot();
}
