#include "plot/plotform.h"

#include "plot/multiaxisplot.h"
#include "plot/plotboxes.h"
#include "plot/plotslot.h"

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_marker.h>

#include <algorithm>

namespace {

/// Width of the columns, in pixels, in which the boxes see a curve.
constexpr double obstacleColumn = 4.0;

} // namespace

QwtPlotCurve* PlotForm::curve(int index) const
{
    return index >= 0 && index < curveLimit ? &m_slots[size_t(index)]->curve : nullptr;
}

QwtPlotIntervalCurve* PlotForm::bars(int index) const
{
    return index >= 0 && index < curveLimit ? &m_slots[size_t(index)]->bars : nullptr;
}

bool PlotForm::curveVisible(int index) const
{
    return index >= 0 && index < curveLimit && m_slots[size_t(index)]->visible;
}

QwtPlotCurve* PlotForm::averageCurve(int index) const
{
    return known(index) ? m_slots[size_t(index)]->average.get() : nullptr;
}

QwtPlotCurve* PlotForm::trendCurve(int index) const
{
    return known(index) ? m_slots[size_t(index)]->trend.get() : nullptr;
}

QString PlotForm::curveText(int index) const
{
    return known(index) ? m_slots[size_t(index)]->text : QString();
}

void PlotForm::setCurveTitle(int index, const QString& title)
{
    if (index < 0 || index >= curveLimit)
        return;
    Slot& slot = *m_slots[size_t(index)];
    const auto plain = [](const QString& text) { return QwtText(text, QwtText::PlainText); };
    slot.curve.setTitle(plain(title));
    slot.bars.setTitle(plain(title));
    if (slot.average)
        slot.average->setTitle(plain(tr("Среднее") + " (" + title + ")"));
    if (slot.trend)
        slot.trend->setTitle(plain(tr("Тренд") + " (" + title + ")"));
    syncLegend();
}

void PlotForm::attachCurve(int index, unsigned short axis)
{
    Slot& slot = *m_slots[size_t(index)];
    slot.axis = axis;
    slot.curve.setLegendAttribute(QwtPlotCurve::LegendShowLine);
    slot.curve.setLegendAttribute(QwtPlotCurve::LegendShowSymbol);
    slot.curve.setPaintAttribute(QwtPlotCurve::ClipPolygons);
    slot.curve.setPaintAttribute(QwtPlotCurve::FilterPoints);
    m_plot->attach(&slot.curve, axis);
    m_plot->attach(&slot.bars, axis);
    listAxis(axis);
}

void PlotForm::detachCurve(int index)
{
    if (index < 0 || index >= curveLimit)
        return;
    Slot& slot = *m_slots[size_t(index)];
    slot.curve.detach();
    slot.bars.detach();
    for (QwtPlotCurve* line : {slot.average.get(), slot.trend.get()}) {
        if (line)
            line->detach();
    }
}

void PlotForm::syncLegend()
{
    const auto* legend = qobject_cast<QwtLegend*>(m_plot->legend());
    for (QwtPlotItem* item : m_plot->itemList()) {
        for (QWidget* entry : legend->legendWidgets(m_plot->itemToInfo(item))) {
            auto* label = qobject_cast<QwtLegendLabel*>(entry);
            const QSignalBlocker quiet(label);
            if (label)
                label->setChecked(item->isVisible());
        }
    }
}

void PlotForm::showCurve(QwtPlotItem* item, bool on)
{
    if (!item)
        return;
    item->setVisible(on);
    for (const auto& slot : m_slots) {
        if (item != &slot->curve && item != &slot->bars)
            continue;
        slot->visible = on;
        slot->curve.setVisible(on);
        slot->bars.setVisible(on);
    }
    syncLegend();
    replot();
}

QVector<QPolygonF> PlotForm::visibleLines() const
{
    QVector<QPolygonF> lines;
    const QwtScaleMap xMap = m_plot->axisMap(MultiAxisPlot::bottomAxis);
    for (int i = 0; i < curveCount; ++i) {
        const Slot& slot = *m_slots[size_t(i)];
        if (!slot.visible)
            continue;
        const QwtScaleMap yMap = m_plot->axisMap(slot.axis);
        lines << slot.curve.outlines(xMap, yMap, obstacleColumn);
        for (size_t k = 0; k < slot.bars.dataSize(); ++k) {
            const QwtIntervalSample bar = slot.bars.sample(k);
            const double x = xMap.transform(bar.value);
            const double high = yMap.transform(bar.interval.maxValue());
            const double low = yMap.transform(bar.interval.minValue());
            lines << QPolygonF(QVector<QPointF>{{x, high}, {x, low}});
        }
    }
    return lines;
}

/// Where the names of the visible markers stand.
QVector<QRectF> PlotForm::markerNames() const
{
    const QSizeF size(24.0, 18.0);
    QVector<QRectF> names;
    const QRectF canvas = m_plot->canvas()->contentsRect();
    for (const QwtPlotMarker* marker : {m_x1.get(), m_x2.get()}) {
        const double x = m_plot->transform(MultiAxisPlot::bottomAxis, marker->xValue());
        if (marker->isVisible())
            names << QRectF(QPointF(x, canvas.top()), size);
    }
    for (const QwtPlotMarker* marker : {m_y1.get(), m_y2.get()}) {
        const double y = m_plot->transform(currentAxis, marker->yValue());
        if (marker->isVisible())
            names << QRectF(QPointF(canvas.right() - size.width(), y - size.height()), size);
    }
    return names;
}
