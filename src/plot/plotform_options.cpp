#include "plot/plotform.h"

#include "plot/core/curvelines.h"
#include "plot/core/curvetexts.h"
#include "plot/grafoptions.h"
#include "plot/multiaxisplot.h"
#include "plot/plotboxes.h"
#include "plot/plotslot.h"
#include "plot/shiftedsamples.h"
#include "prompt/guard.h"

#include <qwt_interval_symbol.h>
#include <qwt_plot_grid.h>
#include <qwt_symbol.h>
#include <qwt_text_label.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

/// The points of a curve as it is shown.
void readPoints(const QwtPlotCurve& curve, std::vector<double>& x, std::vector<double>& y)
{
    x.reserve(curve.dataSize());
    y.reserve(curve.dataSize());
    for (size_t i = 0; i < curve.dataSize(); ++i) {
        const QPointF point = curve.sample(int(i));
        x.push_back(point.x());
        y.push_back(point.y());
    }
}

QwtSymbol* newSymbol(const CurveOptions& look)
{
    if (!look.showMarker)
        return nullptr;
    return new QwtSymbol(static_cast<QwtSymbol::Style>(look.markerStyle), QBrush(look.color),
        QPen(look.color), QSize(look.markerSize, look.markerSize));
}

} // namespace

void PlotForm::openProperty()
{
    std::array<QwtPlotCurve*, curveLimit> list{};
    for (int i = 0; i < curveCount; ++i)
        list[size_t(i)] = curve(i);
    QList<unsigned short> axes;
    for (const int axis : qAsConst(m_usedAxes))
        axes << static_cast<unsigned short>(axis);
    offerBounds();
    options->setPossible(hasTimeAxis(), plotKind < 2, plotKind == 1);
    options->myShow_new(list.data(), curveCount, std::max(0, options->selectedCurve), &axes, axisLimits(),
        m_usedAxes.indexOf(currentAxis));
}

QVector<AxisLimits> PlotForm::axisLimits() const
{
    QVector<AxisLimits> limits;
    for (int i = 0; i < m_usedAxes.size(); ++i) {
        const QwtInterval range = m_plot->axisInterval(m_usedAxes[i]);
        const QString name = tr("Ось #") + QString::number(i + 1) + ": " + m_plot->axisTitle(m_usedAxes[i]);
        limits << AxisLimits{name, range.minValue(), range.maxValue()};
    }
    return limits;
}

/// Draws the straight line that stands for an average or a trend.
void PlotForm::putLine(
    int index, std::unique_ptr<QwtPlotCurve>& line, const CurveLine& shape, Qt::PenStyle style)
{
    const Slot& slot = *m_slots[size_t(index)];
    if (!line)
        line = std::make_unique<SafeCurve>();
    line->setSamples(QVector<QPointF>{shape.from, shape.to});
    const QColor color = slot.pen.color();
    const QColor complement(255 - color.red(), 255 - color.green(), 255 - color.blue());
    line->setPen(complement, slot.curve.pen().widthF() + 1.0, style);
    line->setLegendAttribute(QwtPlotCurve::LegendShowLine);
    line->setLegendIconSize(slot.curve.legendIconSize());
    m_plot->attach(line.get(), slot.axis);
    setCurveTitle(index, slot.curve.title().text());
}

bool PlotForm::drawTrend(int index)
{
    bool drawn = false;
    runGuarded("PlotForm showTrend", [&] {
        Slot& slot = *m_slots[size_t(index)];
        std::vector<double> x;
        std::vector<double> y;
        readPoints(slot.curve, x, y);
        const CurveLine line = trendLine(std::move(x), std::move(y), interval);
        if (!line.valid)
            return;
        slot.text = curvetext::withTrend(slot.text, line.number);
        putLine(index, slot.trend, line, Qt::DashLine);
        drawn = true;
    });
    return drawn;
}

bool PlotForm::drawAverage(int index)
{
    bool drawn = false;
    runGuarded("PlotForm showAver", [&] {
        Slot& slot = *m_slots[size_t(index)];
        std::vector<double> x;
        std::vector<double> y;
        readPoints(slot.curve, x, y);
        const CurveLine line = averageLine(x, std::move(y));
        if (!line.valid)
            return;
        // The line lies where the curve is shown, the number is that of the samples as given.
        const auto* shifted = dynamic_cast<const ShiftedSamples*>(slot.curve.data());
        slot.text = curvetext::withAverage(slot.text, shifted ? shifted->shift() : line.number);
        putLine(index, slot.average, line, Qt::DashDotDotLine);
        drawn = true;
    });
    return drawn;
}

void PlotForm::showTrend(int index)
{
    if (known(index) && drawTrend(index))
        replot();
}

void PlotForm::showAver(int index)
{
    if (known(index) && drawAverage(index))
        replot();
}

/// Shows the curve less its mean, or as it was given. Samples given anew are as given.
void PlotForm::subtractMean(int index, bool on)
{
    QwtPlotCurve& curve = m_slots[size_t(index)]->curve;
    if (dynamic_cast<ShiftedSamples*>(curve.data())) {
        const std::unique_ptr<ShiftedSamples> shifted(static_cast<ShiftedSamples*>(curve.swapData(nullptr)));
        curve.setData(shifted->release());
    }
    if (!on)
        return;
    runGuarded("PlotForm subtractMean", [&] {
        std::vector<double> x;
        std::vector<double> y;
        readPoints(curve, x, y);
        const double mean = shownMean(x, y);
        if (!std::isfinite(mean))
            return;
        auto shifted = std::make_unique<ShiftedSamples>(mean);
        shifted->hold(curve.swapData(nullptr));
        curve.setData(shifted.release());
    });
}

void PlotForm::renewSubtraction(int index)
{
    if (known(index) && options->curves[size_t(index)].applied)
        subtractMean(index, options->curves[size_t(index)].subtractAverage);
}

void PlotForm::applyOptions(int index)
{
    Slot& slot = *m_slots[size_t(index)];
    const CurveOptions look = options->curves[size_t(index)];
    slot.pen = QPen(look.color, look.lineWidth + 1.0);
    slot.curve.setPen(slot.pen);
    auto* bar = new QwtIntervalSymbol(*slot.bars.symbol());
    bar->setPen(slot.pen);
    slot.bars.setSymbol(bar);
    slot.curve.setLegendAttribute(QwtPlotCurve::LegendShowLine);
    slot.curve.setStyle(look.showLine ? QwtPlotCurve::Lines : QwtPlotCurve::NoCurve);
    const QSize icon = slot.curve.legendIconSize();
    slot.curve.setSymbol(newSymbol(look));
    // A new symbol would shrink the sample in the legend to its own size.
    slot.curve.setLegendIconSize(icon);
    setCurveTitle(index, look.title);
    subtractMean(index, look.subtractAverage);
    if (!look.showAverage || !drawAverage(index)) {
        if (slot.average)
            slot.average->detach();
        slot.text = curvetext::withoutAverage(slot.text);
    }
    if (!look.showTrend || !drawTrend(index)) {
        if (slot.trend)
            slot.trend->detach();
        slot.text = curvetext::withoutTrend(slot.text);
    }
}

void PlotForm::takeApply()
{
    const int index = options->selectedCurve;
    if (!known(index))
        return;
    applyOptions(index);
    m_grid->setVisible(options->showGrid);
    m_plot->replot();
    showTextBox(false);
}

void PlotForm::takeApply2()
{
    for (int i = 0; i < curveCount; ++i) {
        if (options->curves[size_t(i)].applied)
            applyOptions(i);
    }
    m_grid->setVisible(options->showGrid);
    m_plot->replot();
    showTextBox(true);
}

bool PlotForm::hasCurveTexts() const
{
    return std::any_of(m_slots.begin(), m_slots.begin() + curveCount,
        [](const auto& slot) { return !slot->text.trimmed().isEmpty(); });
}

void PlotForm::showTextBox(bool plainHeads)
{
    m_plainHeads = plainHeads;
    QVector<CurveTextRow> rows;
    for (int i = 0; i < curveCount; ++i)
        rows << CurveTextRow{m_slots[size_t(i)]->curve.title().text(), m_slots[size_t(i)]->text};
    // Applied to all curves at once, the box has English heads in every language.
    const QString table = curveTextTable(rows, plainHeads ? QStringLiteral("Aver") : tr("Средн."),
        plainHeads ? QStringLiteral("Trend") : tr("Тренд"));
    if (table.isEmpty())
        leaveTextBox();
    else
        m_boxes->show(PlotBoxes::TopRight, QwtText(table, QwtText::RichText));
}

void PlotForm::leaveTextBox()
{
    m_boxes->hide(PlotBoxes::TopRight);
}

/// Takes a curve off the graph with its lines; the legend can bring it back.
void PlotForm::removeCurve(int index)
{
    if (!known(index))
        return;
    Slot& slot = *m_slots[size_t(index)];
    for (QwtPlotCurve* line : {slot.average.get(), slot.trend.get()}) {
        if (line)
            line->detach();
    }
    slot.text = curvetext::blank();
    CurveOptions& look = options->curves[size_t(index)];
    look.showAverage = look.showTrend = look.showAdev = false;
    emit m_plot->legendChecked(&slot.curve, false);
    m_plot->replot();
    showTextBox(m_plainHeads);
}
