#include "table/core/minmax.h"

#include "record/comparerecords.h"
#include "record/record.h"
#include "table/core/daywriter.h"

#include <algorithm>
#include <cmath>
#include <queue>
#include <utility>

namespace {

constexpr int mostStretches = 5000;
constexpr size_t mostPeriods = 10000;
const double nothing = std::nan("");

int total(const doubleArray& array)
{
    return array.DayLengths.isEmpty() ? 0 : array.DayLengths.constLast();
}

double firstTime(const Record& record)
{
    const SampleWalk walk(record);
    return !walk.atEnd() && std::isfinite(walk.t()) ? walk.t() : 0.0;
}

/// What `removeFirst` takes off.
double firstValue(const Record& record, bool removeFirst)
{
    const SampleWalk walk(record);
    return removeFirst && !walk.atEnd() && std::isfinite(walk.x()) ? walk.x() : 0.0;
}

/// Lengths of the runs without gaps, at most 5000: neighbours are put together when there are more.
std::vector<int> runsOf(Record& record)
{
    QList<int> lengths = break_Tarr_Linkedzones(&record.t, record.Kdec);
    ++lengths.last(); // the very last sample, which is not counted there
    const int together = (lengths.size() + mostStretches - 1) / mostStretches;
    std::vector<int> runs;
    for (int i = 0; i < lengths.size(); ++i) {
        if (i % together == 0)
            runs.push_back(0);
        runs.back() += lengths.at(i);
    }
    return runs;
}

/// How many stretches each run is cut into. Where rounding gives more than there are, the runs with the most
/// give some away.
std::vector<int> sharesOf(const std::vector<int>& runs, int samples)
{
    std::vector<int> shares;
    std::priority_queue<std::pair<int, size_t>> largest;
    int sum = 0;
    for (size_t i = 0; i < runs.size(); ++i) {
        shares.push_back(int(std::lround(double(runs[i]) / samples * mostStretches)));
        sum += shares.back();
        largest.push({shares.back(), i});
    }
    for (; sum > mostStretches; --sum) {
        const size_t i = largest.top().second;
        largest.pop();
        largest.push({--shares[i], i});
    }
    return shares;
}

/// Collects the samples of one stretch and writes what stands for them.
class Stretch {
public:
    Stretch(GraphSeries& series, double addToT, double base)
        : m_series(series)
        , m_addToT(addToT)
        , m_base(base)
    {
    }

    void take(const double* t, const double* x, int n)
    {
        if (n < 1)
            return;
        if (m_count == 0)
            m_least = m_most = {*t, *x};
        m_count += n;
        constexpr int block = 64; // looked at as a whole
        int i = 0;
        for (; n - i >= block; i += block) {
            double least = x[i], most = x[i];
            for (int k = i; k < i + block; ++k) {
                least = x[k] < least ? x[k] : least;
                most = x[k] > most ? x[k] : most;
            }
            if (!(m_least.x <= least) || !(m_most.x >= most))
                takeEach(t + i, x + i, block);
        }
        takeEach(t + i, x + i, n - i);
    }

    void takeEach(const double* t, const double* x, int n)
    {
        for (int i = 0; i < n; ++i) {
            if (!(m_least.x <= x[i]) && !std::isnan(x[i]))
                m_least = {t[i], x[i]};
            if (!(m_most.x >= x[i]) && !std::isnan(x[i]))
                m_most = {t[i], x[i]};
        }
    }

    void end()
    {
        if (m_count > 1 && !std::isnan(m_least.x)) {
            write(m_most.t < m_least.t ? m_most : m_least);
            write(m_most.t < m_least.t ? m_least : m_most);
        } else if (m_count == 1) {
            write(m_least);
        }
        m_count = 0;
    }

private:
    struct Point {
        double t = 0.0, x = 0.0;
    };

    void write(const Point& point)
    {
        m_series.t.push_back(point.t + m_addToT);
        m_series.x.push_back(point.x - m_base);
    }

    GraphSeries& m_series;
    double m_addToT;
    double m_base;
    int m_count = 0;
    Point m_least, m_most;
};

/// Cuts one run into `share` stretches as even as can be: what the division leaves over is carried on.
void reduceRun(SampleWalk& walk, int length, int share, Stretch& stretch)
{
    const bool shown = share > 0; // without a share it yields nothing
    qint64 carried = 0;
    int left = length; // of the stretch at hand
    for (int done = 0; done < length && !walk.atEnd();) {
        if (shown && (done == 0 || left == 0)) {
            carried += length % share;
            left = std::max(1, length / share + (carried >= share ? 1 : 0));
            carried -= carried >= share ? share : 0;
        }
        const int count = std::min({left, walk.left(), length - done});
        if (shown)
            stretch.take(walk.times(), walk.values(), count);
        walk.skip(count);
        done += count;
        left -= count;
        if (left == 0)
            stretch.end();
    }
    stretch.end();
}

double periodLength(GraphPeriod period)
{
    return period == GraphPeriod::Hour ? 3600.0 : 86400.0; // s
}

QDateTime wholeHour(const QDateTime& time)
{
    return time.addMSecs(-(time.time().msecsSinceStartOfDay() % 3600000));
}

/// Numbers the civil hours or days of a record as the graph does.
class Periods {
public:
    Periods(const Record& record, GraphPeriod period, const QDateTime& origin)
        : m_length(periodLength(period))
        , m_origin(startTime(record) - std::fmod(startSecond(record), m_length))
    {
        if (!record.start.isValid())
            return;
        if (period == GraphPeriod::Day)
            m_first = double(record.start.date().toJulianDay() - 2400001);
        else if (origin.isValid())
            m_first = std::round(double(wholeHour(origin).msecsTo(wholeHour(record.start))) / 3600000.0);
    }

    double of(double t) const { return m_first + std::floor((t - m_origin) / m_length); }

private:
    double m_length;
    double m_origin; // time t at which the first one begins
    double m_first = 0.0; // its number
};

bool push(GraphSeries& series, double t, double x)
{
    if (series.t.size() == mostPeriods) {
        series.complete = false;
        return false;
    }
    series.t.push_back(t);
    series.x.push_back(x);
    return true;
}

} // namespace

GraphSeries minMaxSeries(Record& record, double offset, bool removeFirst)
{
    GraphSeries series;
    const int samples = total(record.t);
    if (samples < 1)
        return series;
    const std::vector<int> runs = runsOf(record);
    const std::vector<int> shares = sharesOf(runs, samples);
    Stretch stretch(series, offset - firstTime(record), firstValue(record, removeFirst));
    SampleWalk walk(record);
    for (size_t i = 0; i < runs.size(); ++i)
        reduceRun(walk, runs[i], shares[i], stretch);
    return series;
}

GraphSeries periodMeans(const Record& record, GraphPeriod period, const QDateTime& origin, bool removeFirst)
{
    GraphSeries series;
    const Periods periods(record, period, origin);
    const double base = firstValue(record, removeFirst);
    double current = nothing;
    double sum = 0.0; // of differences to the first value of the period
    double first = 0.0;
    qint64 count = 0;
    const auto end = [&] { return count == 0 || push(series, current, first - base + sum / double(count)); };
    for (SampleWalk walk(record); !walk.atEnd(); walk.next()) {
        if (!std::isfinite(walk.t()) || !std::isfinite(walk.x()))
            continue;
        const double number = periods.of(walk.t());
        if (number < current)
            continue;
        if (number != current) {
            if (!end())
                return series;
            current = number;
            first = walk.x();
            sum = 0.0;
            count = 0;
        }
        sum += walk.x() - first;
        ++count;
    }
    end();
    return series;
}

GraphSeries periodFrequencies(const Record& record, GraphPeriod period, const QDateTime& origin)
{
    GraphSeries series;
    const Periods periods(record, period, origin);
    double current = nothing;
    double t = nothing;
    double x = nothing;
    for (SampleWalk walk(record); !walk.atEnd(); walk.next()) {
        if (!std::isfinite(walk.t()) || !std::isfinite(walk.x()))
            continue;
        const double number = periods.of(walk.t());
        if (number == current || number < current)
            continue;
        const double step = walk.t() - t;
        if (step > 0.0 && step < 2.0 * periodLength(period) && !push(series, current, (walk.x() - x) / step))
            return series;
        current = number;
        t = walk.t();
        x = walk.x();
    }
    return series;
}
