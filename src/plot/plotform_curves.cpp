#include "plot/plotform.h"

#include "plot/multiaxisplot.h"
#include "plot/plotboxes.h"
#include "plot/plotslot.h"
#include "prompt/guard.h"
#include "stats/fits.h"
#include "stats/plainstats.h"

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_marker.h>

#include <algorithm>
#include <vector>

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
        QPolygonF line;
        for (size_t k = 0; k < slot.curve.dataSize(); ++k) {
            const QPointF point = slot.curve.sample(int(k));
            line << QPointF(xMap.transform(point.x()), yMap.transform(point.y()));
        }
        lines << line;
        for (size_t k = 0; k < slot.bars.dataSize(); ++k) {
            const QwtIntervalSample bar = slot.bars.sample(k);
            const double x = xMap.transform(bar.value);
            const double high = yMap.transform(bar.interval.maxValue());
            const double low = yMap.transform(bar.interval.minValue());
            lines << QPolygonF(QVector<QPointF>{{x, high}, {x, low}});
        }
    }
    return lines + markerLabels();
}

/// Outlines of the names of the visible markers.
QVector<QPolygonF> PlotForm::markerLabels() const
{
    const QSizeF size(24.0, 18.0);
    QVector<QPolygonF> labels;
    const QRectF canvas = m_plot->canvas()->contentsRect();
    for (const QwtPlotMarker* marker : {m_x1.get(), m_x2.get()}) {
        const double x = m_plot->transform(MultiAxisPlot::bottomAxis, marker->xValue());
        if (marker->isVisible())
            labels << QPolygonF(QRectF(QPointF(x, canvas.top()), size));
    }
    for (const QwtPlotMarker* marker : {m_y1.get(), m_y2.get()}) {
        const double y = m_plot->transform(currentAxis, marker->yValue());
        if (marker->isVisible())
            labels << QPolygonF(QRectF(QPointF(canvas.right() - size.width(), y - size.height()), size));
    }
    return labels;
}

/// Draws the straight line that stands for an average or a trend, from the first to the last of `points`.
void PlotForm::putLine(
    int index, std::unique_ptr<QwtPlotCurve>& line, double y0, double y1, long points, Qt::PenStyle style)
{
    Slot& slot = *m_slots[size_t(index)];
    if (!line)
        line = std::make_unique<SafeCurve>();
    const double xs[] = {slot.curve.sample(0).x(), slot.curve.sample(int(points) - 1).x()};
    const double ys[] = {y0, y1};
    line->setSamples(xs, ys, 2);
    const QColor color = slot.pen.color();
    const QColor complement(255 - color.red(), 255 - color.green(), 255 - color.blue());
    line->setPen(complement, slot.curve.pen().widthF() + 1.0, style);
    line->setLegendAttribute(QwtPlotCurve::LegendShowLine);
    line->setLegendIconSize(slot.curve.legendIconSize());
    m_plot->attach(line.get(), slot.axis);
    setCurveTitle(index, slot.curve.title().text());
    replot();
}

void PlotForm::showTrend(int index)
{
    if (!known(index) || m_slots[size_t(index)]->curve.dataSize() < 2)
        return;
    Slot& slot = *m_slots[size_t(index)];
    runGuarded("PlotForm showTrend", [&] {
        std::vector<double> xs;
        std::vector<double> ys;
        double steps = 0.0;
        long stepCount = 0;
        for (int i = 0; i < int(slot.curve.dataSize()); ++i) {
            const QPointF point = slot.curve.sample(i);
            if (i >= 2 && point.x() == xs[size_t(i) - 2])
                break;
            if (i >= 2 && point.x() > xs[size_t(i) - 1]) {
                steps += point.x() - xs[size_t(i) - 1];
                ++stepCount;
            }
            xs.push_back(point.x());
            ys.push_back(point.y());
        }
        const long n = long(xs.size());
        // Two points leave the slope unwritten: the line then lies at zero.
        double slope = 0.0;
        const double intercept = Trend(n, xs.data(), ys.data(), &slope);
        const double step = stepCount ? steps / double(stepCount) : 0.0;
        putLine(index, slot.trend, intercept, intercept + (xs.back() - xs.front()) * slope, n, Qt::DashLine);
        const double perStep = (step > 0.0 ? step : interval) * slope;
        slot.text = slot.text.left(11) + QString::number(perStep, 'e', 2).leftJustified(10, ' ', true);
    });
}

void PlotForm::showAver(int index)
{
    if (!known(index) || m_slots[size_t(index)]->curve.dataSize() <= 3)
        return;
    Slot& slot = *m_slots[size_t(index)];
    runGuarded("PlotForm showAver", [&] {
        std::vector<double> ys;
        // Most graphs begin at X = 0, so the first two points are taken whatever their X.
        for (int i = 0; i < int(slot.curve.dataSize()); ++i) {
            const QPointF point = slot.curve.sample(i);
            if (i >= 2 && (point.x() == slot.curve.sample(i - 2).x() || point.x() == 0.0))
                break;
            ys.push_back(point.y());
        }
        const double mean = aver(long(ys.size()), ys.data());
        putLine(index, slot.average, mean, mean, long(slot.curve.dataSize()), Qt::DashDotDotLine);
        slot.text = QString::number(mean, 'e', 2).leftJustified(10, ' ', true) + slot.text.mid(10);
    });
}
