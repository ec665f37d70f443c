#include "plot/plotform.h"

#include "plot/core/loglimits.h"
#include "plot/multiaxisplot.h"
#include "plot/plotslot.h"

#include <QAction>
#include <QBrush>
#include <qwt_plot_marker.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Above the grid and below the curves.
constexpr double stripZ = 15.0;

} // namespace

void PlotForm::buildStrip()
{
    m_strip = std::make_unique<QwtPlotIntervalCurve>();
    m_strip->setStyle(QwtPlotIntervalCurve::Tube);
    m_strip->setPen(QPen(Qt::NoPen));
    m_strip->setBrush(QBrush(Qt::darkBlue, Qt::Dense5Pattern));
    m_strip->setItemAttribute(QwtPlotItem::Legend, false);
    // The strip reaches beyond the curves, and no scale shall follow it there.
    m_strip->setItemAttribute(QwtPlotItem::AutoScale, false);
    m_strip->setZ(stripZ);
    m_strip->setVisible(false);
    m_plot->attach(m_strip.get(), currentAxis);
}

void PlotForm::setOtmetMode()
{
    m_boundsAction->setChecked(true);
    m_markerAction->setChecked(false);
    m_zoomAction->setChecked(false);
    m_pressed = false;
    m_plot->setZoomEnabled(false);
}

/// Another mode takes the mouse away from a stretch that has one boundary only.
void PlotForm::leaveSelectionMode()
{
    if (clickCount == 0)
        return;
    clearSelection();
    clearMarkers();
    replot();
}

void PlotForm::dropMarkers()
{
    if (!m_boundsAction->isChecked() || (clickCount == 0 && selectionState == 0))
        clearMarkers();
}

void PlotForm::clearSelection()
{
    clickCount = 0;
    selectionState = 0;
    selectionDragging = false;
    m_strip->setVisible(false);
}

/// Y of the visible curves on the current axis; the axis itself where they tell no range.
QwtInterval PlotForm::visibleRange() const
{
    const bool logarithmic = m_plot->axisScaleType(currentAxis) == MultiAxisPlot::Scale::Log10;
    QwtInterval range;
    for (int i = 0; i < curveCount; ++i) {
        const Slot& slot = *m_slots[size_t(i)];
        if (slot.visible && slot.axis == currentAxis)
            range = range | slot.curve.yRange(logarithmic);
    }
    return range.isValid() && range.width() > 0.0 ? range : m_plot->axisInterval(currentAxis);
}

void PlotForm::markBoundary(const QPointF& value)
{
    selectionState = 0;
    ++clickCount;
    if (clickCount < 2) {
        clearMarkers();
        clickCount = 1;
        selectionX1 = selectionX2 = value.x();
        m_x1->setXValue(value.x());
        m_x1->setVisible(true);
        m_strip->setVisible(false);
        const QwtInterval range = visibleRange();
        setSelectionRect(
            value.x(), value.x(), range.minValue() - range.width(), range.maxValue() + range.width());
        selectionDragging = true;
        setStatusText(markerTexts().boundary(1, value.x()));
    } else {
        clickCount = 0;
        selectionState = 2;
        selectionDragging = false;
        selectionX2 = value.x();
        m_x2->setXValue(value.x());
        m_x2->setVisible(true);
        m_y2->setVisible(false);
        setSelectionXmax(value.x());
        m_strip->setVisible(true);
        setStatusText(markerTexts().boundary(2, value.x()));
    }
    replot();
}

void PlotForm::dragBoundary(const QPointF& value)
{
    placeMarker(value, *m_x2, *m_y2);
    setSelectionXmax(value.x());
    m_strip->setVisible(true);
    setStatusText(markerTexts().dragged(value.x(), value.y()));
    replot();
}

void PlotForm::setSelectionRect(double xMin, double xMax, double yMin, double yMax)
{
    m_stripX = QwtInterval(xMin, xMax);
    m_stripY = QwtInterval(yMin, yMax);
    drawStrip();
}

void PlotForm::setSelectionXmin(double value)
{
    m_stripX.setMinValue(value);
    drawStrip();
}

void PlotForm::setSelectionXmax(double value)
{
    m_stripX.setMaxValue(value);
    drawStrip();
}

void PlotForm::setSelectionYmin(double value)
{
    m_stripY.setMinValue(value);
    drawStrip();
}

void PlotForm::setSelectionYmax(double value)
{
    m_stripY.setMaxValue(value);
    drawStrip();
}

void PlotForm::drawStrip()
{
    const auto [left, right] = std::minmax({m_stripX.minValue(), m_stripX.maxValue()});
    const auto [bottom, high] = std::minmax({m_stripY.minValue(), m_stripY.maxValue()});
    const bool logarithmic = m_plot->axisScaleType(currentAxis) == MultiAxisPlot::Scale::Log10;
    const double low = logarithmic ? std::max(bottom, logLow) : bottom;
    QVector<QwtIntervalSample> edges;
    if (std::isfinite(right - left) && std::isfinite(high - low) && low < high)
        edges << QwtIntervalSample(left, low, high) << QwtIntervalSample(right, low, high);
    m_strip->setSamples(edges);
}

void PlotForm::saveNewRec()
{
    if (selectionState != 2 || curveCount < 1)
        return;
    if (selectionX1 > selectionX2)
        std::swap(selectionX1, selectionX2);
    for (int i = 0; i < curveCount; ++i) {
        if (m_slots[size_t(i)]->visible)
            emit forRecByIND(i, selectionX1, selectionX2);
    }
}
