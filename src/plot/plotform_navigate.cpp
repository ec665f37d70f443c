#include "plot/plotform.h"

#include "plot/core/axisrange.h"
#include "plot/multiaxisplot.h"
#include "plot/plotslot.h"

#include <QAction>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>

#include <cmath>

namespace {

/// One notch of the wheel shows so much of what was shown.
constexpr double notchFactor = 0.8;
/// Eighths of a degree to a notch.
constexpr double notchAngle = 120.0;
/// Notches that follow one another within this time, ms, are one step of zooming.
constexpr int wheelPause = 700;
/// A point further from the mouse than this, in pixels, is not read out.
constexpr double hoverReach = 25.0;
/// Pause between two readings, ms: moves of the mouse come faster than a large graph can be searched.
constexpr int hoverPause = 30;

AxisRange rangeOf(const QwtInterval& interval)
{
    return {interval.minValue(), interval.maxValue()};
}

/// Equal but for rounding.
bool same(const AxisRange& a, const AxisRange& b)
{
    const double tolerance = 1e-9 * (b.max - b.min);
    return std::fabs(a.min - b.min) <= tolerance && std::fabs(a.max - b.max) <= tolerance;
}

QRectF areaOf(const AxisRange& x, const AxisRange& y)
{
    return QRectF(x.min, y.min, x.max - x.min, y.max - y.min);
}

} // namespace

void PlotForm::buildNavigation()
{
    m_hoverTimer = new QTimer(this);
    m_hoverTimer->setSingleShot(true);
    m_hoverTimer->setInterval(hoverPause);
    connect(m_hoverTimer, &QTimer::timeout, this, &PlotForm::readHover);
    // Moves without a button reach the window only when everything below follows the mouse, too.
    for (QWidget* widget : {static_cast<QWidget*>(this), static_cast<QWidget*>(m_plot), m_plot->canvas()})
        widget->setMouseTracking(true);
    m_plot->canvas()->installEventFilter(this);
}

void PlotForm::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (m_panning && event->buttons() & Qt::MiddleButton) {
        pan(event->pos());
        return;
    }
    QPointF value;
    if (selectionDragging && m_boundsAction->isChecked()) {
        if (canvasValue(event->pos(), &value))
            dragBoundary(value);
        return;
    }
    m_hoverPos = event->pos();
    if (!m_hoverTimer->isActive())
        m_hoverTimer->start();
}

void PlotForm::mouseDoubleClickEvent(QMouseEvent* event)
{
    QPointF value;
    if (event->button() == Qt::LeftButton && !m_boundsAction->isChecked()
        && canvasValue(event->pos(), &value)) {
        event->accept();
        if (m_markerAction->isChecked())
            clearMarkers();
        showWhole();
        return;
    }
    mousePressEvent(event);
}

void PlotForm::wheelEvent(QWheelEvent* event)
{
    event->accept();
    const QPoint turn = event->angleDelta();
    const QPoint pos = event->position().toPoint();
    QPointF value;
    // Holding Alt turns the wheel sideways on some systems.
    const int angle = turn.y() ? turn.y() : turn.x();
    if (angle && canvasValue(pos, &value))
        zoomAbout(pos, std::pow(notchFactor, angle / notchAngle), event->modifiers() & Qt::ControlModifier);
}

void PlotForm::zoomAbout(const QPoint& pos, double factor, bool vertical)
{
    const int axis = vertical ? int(currentAxis) : MultiAxisPlot::bottomAxis;
    const QwtScaleMap map = m_plot->axisMap(axis);
    const QPoint pixel = m_plot->canvas()->mapFrom(this, pos);
    const double place = vertical ? pixel.y() : pixel.x();
    const double anchor = (place - map.p1()) / (map.p2() - map.p1());
    AxisRange x = rangeOf(m_plot->axisInterval(MultiAxisPlot::bottomAxis));
    AxisRange y = rangeOf(m_plot->axisInterval(currentAxis));
    AxisRange& range = vertical ? y : x;
    const AxisRange before = range;
    const AxisRange whole = rangeOf(m_plot->homeInterval(axis));
    range = scaledRange(before, anchor, factor, m_plot->axisScaleType(axis) == MultiAxisPlot::Scale::Log10);
    if (factor > 1.0)
        range = withinWhole(range, before, whole);
    if (same(range, before))
        return;
    const bool isWhole = same(x, rangeOf(m_plot->homeInterval(MultiAxisPlot::bottomAxis)))
        && same(y, rangeOf(m_plot->homeInterval(currentAxis)));
    const bool goesOn = m_wheelClock.isValid() && !m_wheelClock.hasExpired(wheelPause);
    if (isWhole)
        m_plot->zoomHome(currentAxis);
    else if (goesOn)
        m_plot->moveZoom(currentAxis, areaOf(x, y));
    else
        m_plot->zoomTo(currentAxis, areaOf(x, y));
    m_wheelClock.start();
    replot();
}

void PlotForm::pan(const QPoint& pos)
{
    const QPoint step = pos - m_panPos;
    if (step.isNull())
        return;
    const auto moved = [this](int axis, int pixels) {
        const QwtScaleMap map = m_plot->axisMap(axis);
        return movedRange(rangeOf(m_plot->axisInterval(axis)), -pixels / (map.p2() - map.p1()),
            m_plot->axisScaleType(axis) == MultiAxisPlot::Scale::Log10);
    };
    const QRectF area = areaOf(moved(MultiAxisPlot::bottomAxis, step.x()), moved(currentAxis, step.y()));
    if (m_panBegun)
        m_plot->moveZoom(currentAxis, area);
    else
        m_plot->zoomTo(currentAxis, area);
    m_panBegun = true;
    m_panPos = pos;
    replot();
}

void PlotForm::showWhole()
{
    m_wheelClock.invalidate();
    m_plot->zoomHome();
    replot();
}

void PlotForm::undoZoom()
{
    m_wheelClock.invalidate();
    int axis = currentAxis;
    // The bottom axis may still be zoomed by an axis that was the current one before.
    for (int other = 0; m_plot->zoomDepth(axis) == 0 && other < MultiAxisPlot::yAxisCount; ++other)
        axis = m_plot->zoomDepth(other) > 0 ? other : axis;
    m_plot->zoomBack(axis);
    replot();
}

void PlotForm::readHover()
{
    QPointF value;
    QString text;
    double nearest = hoverReach;
    const QPointF pixel = m_plot->canvas()->mapFrom(this, m_hoverPos);
    if (!canvasValue(m_hoverPos, &value)) {
        setHover(QString());
        return;
    }
    const QwtScaleMap xMap = m_plot->axisMap(MultiAxisPlot::bottomAxis);
    for (int i = 0; i < curveCount; ++i) {
        const Slot& slot = *m_slots[size_t(i)];
        double distance = nearest;
        const int found =
            slot.visible ? slot.curve.pointNear(pixel, xMap, m_plot->axisMap(slot.axis), &distance) : -1;
        if (found < 0)
            continue;
        nearest = distance;
        const QPointF point = slot.curve.sample(found);
        text = markerTexts().point(slot.curve.title().text(), point.x(), point.y());
    }
    setHover(text);
}

void PlotForm::setHover(const QString& text)
{
    m_hoverTimer->stop();
    if (text == m_hover)
        return;
    m_hover = text;
    elideStatus();
}
