#include "plot/seriesgraph.h"

#include "plot/avarform.h"
#include "plot/clockscaledraw.h"
#include "plot/grafoptions.h"
#include "plot/multiaxisplot.h"
#include "plot/plotzoomdt.h"
#include "plot/stabilitygraph.h"

#include <QCoreApplication>
#include <QIcon>

namespace {

class SeriesGraph {
    Q_DECLARE_TR_FUNCTIONS(SeriesGraph)

public:
    static QString base(bool frequency, bool cross)
    {
        const QString base = frequency ? tr("Разность частот. ") : tr("Разность фаз. ");
        return cross ? base + tr("Кросс-обработка. ") : base;
    }

    static QString interval(double seconds) { return tr("Интервал измерения %1 с").arg(seconds, 0, 'g', 6); }

    static QString kind(const SeriesScope& scope)
    {
        switch (scope.kind) {
        case SeriesKind::Hour:
            return tr("Часовые графики") + (scope.frequency ? tr(". Интервал измерения 1 час") : QString());
        case SeriesKind::Day:
            return tr("Суточные графики")
                + (scope.frequency ? tr(". Интервал измерения 1 сутки") : QString());
        case SeriesKind::MinMax:
            break;
        }
        return scope.frequency ? interval(scope.interval) + QStringLiteral(". ") + tr("Мин/Макс")
                               : tr("Мин/Макс");
    }

    static QString timeAxis(SeriesKind kind)
    {
        switch (kind) {
        case SeriesKind::Hour:
            return tr("Время, ч");
        case SeriesKind::Day:
            return tr("Время, сут.");
        case SeriesKind::MinMax:
            break;
        }
        return tr("Время, с");
    }
};

constexpr int clockDays = 3; // from here on the axis shows dates

void setTimeAxis(AvarForm& form, const SeriesScope& scope)
{
    form.setAxisTitleSource(
        MultiAxisPlot::bottomAxis, [kind = scope.kind] { return SeriesGraph::timeAxis(kind); });
    form.isHourPlot = scope.kind == SeriesKind::Hour;
    form.isDayPlot = scope.kind == SeriesKind::Day;
    form.xAxisKind = 1;
    form.startTime = scope.start;
    form.interval = scope.frequency ? scope.interval : 1.0;
    if (scope.kind == SeriesKind::Hour) {
        // Hours are counted from a whole one.
        form.startTime.setTime(QTime(scope.start.time().hour(), 0));
        form.interval = 3600.0;
    } else if (scope.kind == SeriesKind::Day) {
        form.interval = 86400.0;
    }
    if (scope.kind != SeriesKind::MinMax) {
        form.plot()->setAxisScaleType(MultiAxisPlot::bottomAxis, MultiAxisPlot::Scale::Whole);
        return;
    }
    const bool clock = scope.start.date().daysTo(scope.stop.date()) + 1 < clockDays;
    form.plot()->setAxisScaleType(MultiAxisPlot::bottomAxis,
        clock ? MultiAxisPlot::Scale::Time : MultiAxisPlot::Scale::Dates,
        scope.start.time().msecsSinceStartOfDay() / 1000.0);
    if (clock)
        form.plot()->setBottomScaleDraw(new ClockScaleDraw(scope.start.time()));
    else
        form.plot()->setBottomScaleDraw(new CalendarScaleDraw(scope.start));
}

void setBounds(AvarForm& form, const QDateTime& start, const QDateTime& stop)
{
    const QString dates = QStringLiteral("dd.MM.yyyy");
    form.setPlotTitle(start.toString(dates) + QStringLiteral(" - ") + stop.toString(dates));
    const QDateTime from(start.date(), QTime(0, 0)), to(stop.date(), QTime(23, 59, 59));
    form.zoomDialog()->setdt(from, to);
    form.options->setdt(from, to);
}

} // namespace

QString seriesTitle(const SeriesScope& scope)
{
    return SeriesGraph::base(scope.frequency, scope.cross) + SeriesGraph::kind(scope);
}

QString wholeSeriesTitle(bool frequency, double interval, bool cross)
{
    QString title = SeriesGraph::base(frequency, cross);
    if (frequency)
        return title + SeriesGraph::interval(interval);
    return title.trimmed().chopped(1); // without the full stop that leads on
}

void showSeries(AvarForm& form, const SeriesScope& scope, const QVector<SeriesCurve>& curves)
{
    form.plotKind = scope.frequency ? 1 : 0;
    form.setTitleSource([scope] { return seriesTitle(scope); });
    form.setPictureNote([scope] { return seriesTitle(scope); });
    form.setWindowIcon(
        QIcon(scope.frequency ? QStringLiteral(":/bmp/B_FR_DIF.bmp") : QStringLiteral(":/bmp/B_SAMP.bmp")));
    setTimeAxis(form, scope);
    for (const SeriesCurve& curve : curves) {
        if (curve.t.empty() || form.curveCount >= PlotForm::curveLimit)
            continue;
        const int index = form.curveCount;
        std::vector<double> t = curve.t, x = curve.x;
        form.addData(curve.channel, long(t.size()), t.data(), x.data(), curve.axis, curve.start, curve.stop);
        form.setCurveTitle(index, curve.title);
    }
    setBounds(form, scope.start, scope.stop);
    form.setMarkerMode();
    form.initZoomer();
}
