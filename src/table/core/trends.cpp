#include "table/core/trends.h"

#include "base/globals.h"
#include "base/parallel.h"
#include "record/record.h"
#include "stats/drift.h"
#include "stats/fits.h"
#include "stats/plainstats.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

constexpr double day = 86400.0; // s
constexpr long mostFitted = 1000000; // samples
constexpr double nanosecond = 1e-9; // s
const QString none = QStringLiteral(" - ");

QString number(double value)
{
    return QString::number(value, 'e', 2);
}

Parabola parabolaThrough(long n, double* t, double* x)
{
    Parabola parabola;
    Parab(int(n), t, x, &parabola.quadratic, &parabola.linear, &parabola.constant);
    return parabola;
}

/// Fits line and parabola.
void fit(Trends& trends, PhaseSeries& series)
{
    const long n = series.size();
    double* t = series.t.data();
    double* x = series.x.data();
    Trend(n, t, x, &trends.linearFrequency);
    Parabola& parabola = trends.parabola;
    Parab(int(n), t, x, &parabola.quadratic, &parabola.linear, &parabola.constant);
    trends.middleFrequency = parabola.slopeAt(0.5 * (t[0] + t[n - 1]));
    trends.endFrequency = parabola.slopeAt(t[n - 1]);
    trends.drift = 2.0 * parabola.quadratic;
}

/// The drift by regression on days. `step` is how much the series was thinned by, and `dayEnds` count the
/// samples before that.
void fitDays(Trends& trends, PhaseSeries& series, long step, const QList<int>& dayEnds)
{
    trends.hasDailyDrift = dayEnds.size() > 2;
    if (trends.hasDailyDrift)
        calcLinRegDrift(series.t.data(), series.x.data(), trends.dailyDrift, dayEnds, trends.dailyDriftError,
            double(step));
}

void subtract(const Parabola& parabola, PhaseSeries& series)
{
    for (size_t i = 0; i < series.x.size(); ++i)
        series.x[i] -= parabola.at(series.t[i]);
}

void subtract(const Parabola& parabola, Record& record)
{
    ownSamples(&record);
    const double origin = record.t[0];
    record.t.resetIterator(0);
    record.x.resetIterator(0);
    bool more = record.n_cnt > 0;
    double* t = &record.t[0];
    double* x = &record.x[0];
    while (more) {
        *x -= parabola.at(*t - origin);
        bool moreValues = false;
        t = record.t.nextEl(more);
        x = record.x.nextEl(moreValues);
        more = more && moreValues;
    }
}

/// Seconds from the first sample of a record that begins at `start` to the first full hour at or after
/// `earliest`.
double secondsToFirstHour(const QDateTime& earliest, const QDateTime& start)
{
    constexpr int hour = 3600000; // ms
    const int past = earliest.time().msecsSinceStartOfDay() % hour;
    const QDateTime first = past == 0 ? earliest : earliest.addMSecs(hour - past);
    return double(start.msecsTo(first)) / 1000.0;
}

double dailyDeviation(const Record& record, PhaseSeries& series, const QDateTime& earliest)
{
    constexpr double longestInterval = 960.0; // s
    if (!(record.Kdec <= longestInterval))
        return 0.0;
    const double offset = secondsToFirstHour(earliest, record.start);
    std::vector<double> means = dailyMeans(series, offset, record.Kdec);
    if (REMX_0) {
        for (double& mean : means)
            mean -= series.x.front();
    }
    return sco_phase(long(means.size()), means.data());
}

} // namespace

Parabola fittedParabola(long n, double* t, double* x)
{
    long step = 1;
    PhaseSeries thinned = thinnedSeries(n, t, x, mostFitted, step);
    return step > 1 ? parabolaThrough(thinned.size(), thinned.t.data(), thinned.x.data())
                    : parabolaThrough(n, t, x);
}

Trends recordTrends(Record& record, PhaseSeries& series, const QDateTime& earliest, bool removeDrift)
{
    Trends trends;
    if (series.size() <= 10)
        return trends;
    trends.fitted = true;
    long step = 1;
    PhaseSeries thinned = thinnedSeries(series.size(), series.t.data(), series.x.data(), mostFitted, step);
    PhaseSeries& fitted = step > 1 ? thinned : series;
    const auto means = [&] {
        trends.mean = aver(fitted.size(), fitted.x.data());
        trends.deviation = sco_phase(fitted.size(), fitted.x.data());
        trends.dailyDeviation = dailyDeviation(record, series, earliest);
    };
    const auto days = [&] { fitDays(trends, fitted, step, record.t.DayLengths); };
    if (!removeDrift) { // then all of them only read
        runTasks({days, [&] { fit(trends, fitted); }, means});
        return trends;
    }
    runTasks({days, [&] { fit(trends, fitted); }});
    subtract(trends.parabola, record);
    subtract(trends.parabola, series);
    if (step > 1)
        subtract(trends.parabola, thinned);
    means();
    return trends;
}

std::vector<double> dailyMeans(PhaseSeries& series, double offset, double interval, size_t most)
{
    std::vector<double> means;
    const long n = series.size();
    if (n < 1)
        return means;
    const double end = series.t[size_t(n - 1)] + interval;
    long i = 0;
    while (i < n && series.t[size_t(i)] < offset)
        ++i;
    // Days without samples are stepped over at once: times may lie any distance apart.
    for (double days = 0.0; i < n && means.size() < most; ++days) {
        const double behind = std::floor((series.t[size_t(i)] - offset) / day);
        if (!std::isfinite(behind))
            break;
        days = std::max(days, behind);
        const double from = offset + days * day;
        if (!(from + day <= end))
            break;
        const long first = i;
        while (i < n && (i == first || series.t[size_t(i)] < from + day))
            ++i;
        means.push_back(aver(i - first, series.x.data() + first));
    }
    return means;
}

QStringList trendHeads()
{
    const auto translated = [](const char* text) { return QCoreApplication::translate("TrendTable", text); };
    return {
        translated(QT_TRANSLATE_NOOP("TrendTable", "Название")),
        translated(QT_TRANSLATE_NOOP("TrendTable", "Разность фаз, нс")),
        translated(QT_TRANSLATE_NOOP("TrendTable", "СКО разности фаз, нс")),
        translated(QT_TRANSLATE_NOOP("TrendTable", "СКО разности фаз (сут), нс")),
        translated(QT_TRANSLATE_NOOP("TrendTable", "Разн. частот (лин.)")),
        translated(QT_TRANSLATE_NOOP("TrendTable", "Разн. частот (квадр., середина)")),
        translated(QT_TRANSLATE_NOOP("TrendTable", "Разн. частот (квадр., конец)")),
        translated(QT_TRANSLATE_NOOP("TrendTable", "Дрейф разн. частот")),
        translated(QT_TRANSLATE_NOOP("TrendTable", "Дрейф разн. частот (сут.)")),
        translated(QT_TRANSLATE_NOOP("TrendTable", "Дрейф (сут, л. р.)")),
    };
}

QStringList trendCells(const QString& name, const Trends& trends)
{
    QStringList cells{name};
    if (!trends.fitted) {
        while (cells.size() < 10)
            cells << none;
        return cells;
    }
    cells << number(trends.mean / nanosecond) << number(trends.deviation / nanosecond)
          << number(trends.dailyDeviation / nanosecond) << number(trends.linearFrequency)
          << number(trends.middleFrequency) << number(trends.endFrequency) << number(trends.drift)
          << number(trends.drift * day);
    cells << (trends.hasDailyDrift ? number(trends.dailyDrift) + QChar(0xB1) + number(trends.dailyDriftError)
                                   : none);
    return cells;
}
