#include "plot/avarform.h"

#include "base/language.h"
#include "plot/core/errorbars.h"
#include "plot/core/valuetable.h"
#include "plot/multiaxisplot.h"
#include "plot/plotboxes.h"
#include "prompt/guard.h"

#include <QAction>
#include <QMenu>
#include <qwt_plot_curve.h>
#include <qwt_plot_intervalcurve.h>
#include <qwt_text_label.h>

#include <algorithm>
#include <limits>

namespace {

/// Channels from here on stand for combinations of records and take a slot even without points.
constexpr unsigned short firstCrossChannel = 256;
constexpr int spectrumKind = 2;
constexpr int stabilityKind = 3;

} // namespace

AvarForm::AvarForm(int* number, QWidget* parent, int kind)
    : PlotForm(number, parent)
{
    plotKind = kind;
    sqrt2Action = processMenu()->addAction(QString());
    sqrt2Action->setCheckable(true);
    connect(sqrt2Action, &QAction::triggered, this, &AvarForm::setSqrt2);
    connect(this, &PlotForm::forRecByIND, this, &AvarForm::giveforRec);
    connect(plot(), &MultiAxisPlot::legendChecked, this, &AvarForm::showAVAR);
    AvarForm::retranslate();
}

void AvarForm::setLogLog()
{
    plot()->setAxisScaleType(MultiAxisPlot::bottomAxis, MultiAxisPlot::Scale::Log10);
    for (int axis = 0; axis < MultiAxisPlot::yAxisCount; ++axis)
        plot()->setAxisScaleType(axis, MultiAxisPlot::Scale::Log10);
}

void AvarForm::setStability(Statistic statistic)
{
    plotKind = stabilityKind;
    avarType = avarTypeOf(statistic);
    setLogLog();
    setAxisTitleSource(MultiAxisPlot::bottomAxis, [] { return tr("Интервал времени измерения, с"); });
    for (int axis = 0; axis < MultiAxisPlot::yAxisCount; ++axis)
        setAxisTitleSource(axis, [this, axis] {
            const QString title = statisticAxisTitle(statisticOfAvarType(avarType), language::isEnglish());
            return axis == 0 ? title : title + QStringLiteral(". ") + GetAxisName(axis);
        });
}

void AvarForm::setSpectrum(bool ofFrequency)
{
    plotKind = spectrumKind;
    setProperty("helpPage", QStringLiteral("spectrum-graph"));
    plot()->setAxisScaleType(MultiAxisPlot::bottomAxis, MultiAxisPlot::Scale::Log10);
    setAxisTitleSource(MultiAxisPlot::bottomAxis, [] { return tr("Частота, мГц"); });
    for (int axis = 0; axis < MultiAxisPlot::yAxisCount; ++axis)
        setAxisTitleSource(
            axis, [ofFrequency] { return ofFrequency ? tr("Спектр частоты, дБн") : tr("Спектр фазы, дБн"); });
}

bool AvarForm::takeSlot(unsigned short channel, long n, const double* x, const double* y)
{
    if (curveCount >= curveLimit) {
        // There is no further slot to show; the channel alone is kept.
        if (channel >= firstCrossChannel)
            channels << channel;
        return false;
    }
    if (n > std::numeric_limits<int>::max() || (n > 0 && (!x || !y)))
        return false;
    return n >= 1 || channel >= firstCrossChannel;
}

void AvarForm::fill(Data& data, long n, const double* x, const double* y)
{
    data = Data();
    curve(curveCount)->setSamples(QVector<QPointF>());
    const size_t count = n > 0 ? size_t(n) : 0;
    Data fresh;
    fresh.xData.assign(x, x + count);
    fresh.yData.assign(y, y + count);
    fresh.ySqrt2Data.resize(count);
    std::transform(y, y + count, fresh.ySqrt2Data.begin(), [](double value) { return value / sqrt2; });
    data = std::move(fresh);
}

void AvarForm::addBars(const Data& data)
{
    QVector<QwtIntervalSample> plain;
    QVector<QwtIntervalSample> divided;
    const double span =
        data.start.isValid() && data.stop.isValid() ? double(data.start.secsTo(data.stop)) : 0.0;
    for (size_t i = 0; plotKind == stabilityKind && i < data.xData.size(); ++i) {
        const ErrorBar bar = errorBar(data.xData[i], data.yData[i], span);
        plain << QwtIntervalSample(data.xData[i], bar.low, bar.high);
        const ErrorBar small = errorBar(data.xData[i], data.ySqrt2Data[i], span);
        divided << QwtIntervalSample(data.xData[i], small.low, small.high);
    }
    m_bars << plain;
    m_barsSqrt2 << divided;
}

void AvarForm::finishSlot(unsigned short channel, unsigned short axis)
{
    const int index = curveCount;
    addBars(m_data[size_t(index)]);
    channels << channel;
    ++curveCount;
    useForm(index);
    const QRectF bounds = curve(index)->boundingRect();
    yMin = bounds.top();
    yMax = bounds.bottom();
    attachCurve(index, axis);
    showCurve(curve(index), true);
    showAVAR(curve(index), true);
}

void AvarForm::addData(unsigned short channel, long n, double* x, double* y, unsigned short axis,
    QDateTime start, QDateTime stop)
{
    if (!takeSlot(channel, n, x, y))
        return;
    Data& data = m_data[size_t(curveCount)];
    fill(data, n, x, y);
    data.start = start;
    data.stop = stop;
    finishSlot(channel, axis);
}

void AvarForm::addData(unsigned short channel, long n, double* x, double* y)
{
    runGuarded("AvarForm addData", [&] { addData(channel, n, x, y, 0, QDateTime(), QDateTime()); });
}

void AvarForm::useForm(int index)
{
    const Data& data = m_data[size_t(index)];
    const bool divided = sqrt2Action->isChecked();
    const std::vector<double>& values = divided ? data.ySqrt2Data : data.yData;
    curve(index)->setRawSamples(data.xData.data(), values.data(), int(data.xData.size()));
    renewSubtraction(index);
    bars(index)->setSamples(divided ? m_barsSqrt2.value(index) : m_bars.value(index));
}

void AvarForm::setSqrt2()
{
    for (int i = 0; i < curveCount; ++i) {
        useForm(i);
        if (!curveVisible(i))
            continue;
        showCurve(curve(i), true);
        showAVAR(curve(i), true);
    }
}

int AvarForm::shownCurve() const
{
    for (int i = curveCount - 1; i >= 0; --i) {
        if (curveVisible(i))
            return i;
    }
    return -1;
}

QString AvarForm::recordTitle(int index) const
{
    const Data& data = m_data[size_t(index)];
    const QString name = curve(index)->title().text();
    if (!data.start.isValid() || !data.stop.isValid())
        return name;
    const QString form = QStringLiteral("dd.MM.yy hh:mm:ss");
    return name + " (" + data.start.toString(form) + ")  - (" + data.stop.toString(form) + ")";
}

void AvarForm::showAVAR(QwtPlotItem*, bool)
{
    visibleCount = 0;
    for (int i = 0; i < curveCount; ++i)
        visibleCount += curveVisible(i) ? 1 : 0;
    if (windowNumberIs(1) || plotKind != stabilityKind)
        return;
    const int index = shownCurve();
    if (visibleCount != 1 || index < 0) {
        if (!hasCurveTexts())
            PlotForm::leaveTextBox();
        setPlotTitle(QString());
        return;
    }
    setPlotTitle(recordTitle(index));
    showTable(index, false);
}

void AvarForm::showTable(int index, bool live)
{
    // Averages and trends, when asked for, keep the box.
    if (hasCurveTexts())
        return;
    const bool english = language::isEnglish();
    const Data& data = m_data[size_t(index)];
    const QString html = stabilityTable(data.xData.data(), data.yData.data(), long(data.xData.size()),
        statisticHead(statisticOfAvarType(avarType), english), sqrt2Action->isChecked(), english, live);
    boxes()->show(PlotBoxes::TopRight, QwtText(html, QwtText::RichText));
}

void AvarForm::leaveTextBox()
{
    PlotForm::leaveTextBox();
    showAVAR(nullptr, true);
}

void AvarForm::setCurveTitle(int index, const QString& title)
{
    PlotForm::setCurveTitle(index, title);
    if (index < curveCount)
        showAVAR(curve(index), true);
}

void AvarForm::giveforRec(int index, double x1, double x2)
{
    if (index >= 0 && index < channels.size())
        emit forRec(channels[index], x1, x2);
}

void AvarForm::retranslate()
{
    PlotForm::retranslate();
    sqrt2Action->setText(tr("Делить на корень из 2"));
    sqrt2Action->setToolTip(tr("Показать значения одного из двух одинаковых генераторов"));
    showAVAR(nullptr, true);
}
