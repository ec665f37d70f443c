#include "plot/core/livesplice.h"

#include "plot/core/daycounts.h"
#include "record/record.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace {

constexpr int partOfDay = 100000;
constexpr double farthest = 1e10; // s; no measurement takes 300 years

struct Sample {
    double t;
    double x;
};

double lastOf(const doubleArray& array)
{
    int part = array.parts.size() - 1;
    while (array.DayLengths.at(part) < 1)
        --part;
    return array.DayData(part)[array.DayLengths.at(part) - 1];
}

std::optional<Sample> lastStored(const Record& record)
{
    if (totalOf(record.t) < 1 || totalOf(record.x) < 1)
        return std::nullopt;
    return Sample{lastOf(record.t), lastOf(record.x)};
}

int tailLength(const Record& record)
{
    return std::min(record.dyn_t.size(), record.dyn_x.size());
}

/// The newest value that a stream can go on from.
double levelOf(const Record& record)
{
    const auto finite = [](double value) { return std::isfinite(value); };
    const auto live = std::find_if(record.dyn_x.crbegin(), record.dyn_x.crend(), finite);
    if (live != record.dyn_x.crend())
        return *live;
    const auto stored = lastStored(record);
    return stored && std::isfinite(stored->x) ? stored->x : 0.0;
}

void recount(Record& record)
{
    const DayLenScale& lengths = record.t.DayLengths;
    if (record.n_days != lengths.size() || !record.num_in_days)
        record.num_in_days = std::make_unique<qint64[]>(size_t(lengths.size()));
    record.n_days = lengths.size();
    for (int day = 0; day < record.n_days; ++day)
        record.num_in_days[size_t(day)] = lengths.at(day);
    record.n_cnt = totalOf(record.t);
}

/// The instant of a time of a record with samples.
QDateTime momentOf(Record& record, double t)
{
    const double span = t - record.t[0];
    return std::fabs(span) < farthest ? record.start.addMSecs(qint64(span * 1000.0)) : record.start;
}

class Mover {
public:
    Mover(Record& record, double offset, PhaseBefore* before)
        : m_record(record)
        , m_offset(offset)
        , m_before(before)
    {
        record.t.partLen = partOfDay;
        record.x.partLen = partOfDay;
        if (const auto last = lastStored(record))
            m_day = dayOfSecond(last->t + offset);
    }

    void move(Sample sample)
    {
        if (!m_before) {
            store(sample);
            return;
        }
        const double step = sample.t - m_before->t;
        if (m_before->known && step > 0.0)
            store({sample.t, (sample.x - m_before->x) / step});
        *m_before = {true, sample.t, sample.x};
    }

private:
    void store(Sample sample)
    {
        const double day = dayOfSecond(sample.t + m_offset);
        if (day > m_day) {
            m_record.t.AddNewPart(partOfDay);
            m_record.x.AddNewPart(partOfDay);
        }
        m_day = day;
        m_record.t.append(sample.t);
        m_record.x.append(sample.x);
    }

    Record& m_record;
    double m_offset;
    PhaseBefore* m_before;
    double m_day = std::numeric_limits<double>::infinity(); // no part before the first sample
};

} // namespace

PhaseBefore newestSample(const Record& record)
{
    const auto stored = lastStored(record);
    const double t = !record.dyn_t.isEmpty() ? record.dyn_t.constLast() : stored ? stored->t : 0.0;
    return {true, t, levelOf(record)};
}

int spliceLive(Record& record, const LiveBlock& block, double sign)
{
    if (block.count < 1 || !block.t || !block.x)
        return 0;
    const PhaseBefore last = newestSample(record);
    const double level = last.x - sign * (std::isfinite(block.baseX) ? block.baseX : 0.0);
    const double shift = last.t - block.baseT;
    double lastT = last.t;
    bool rises = !record.dyn_t.isEmpty() || lastStored(record);
    int taken = 0;
    for (int k = 0; k < block.count; ++k) {
        const double t = block.t[k] + shift;
        if (!(std::fabs(t) < farthest) || (rises && !(t > lastT)))
            continue;
        record.dyn_t << t;
        record.dyn_x << level + sign * block.x[k];
        lastT = t;
        rises = true;
        ++taken;
    }
    record.dyn_n_cnt = tailLength(record);
    return taken;
}

void flushLive(Record& record, int keep, double offset, PhaseBefore* before)
{
    const int moved = tailLength(record) - std::max(keep, 0);
    if (moved < 1)
        return;
    Mover mover(record, offset, before);
    for (int i = 0; i < moved; ++i)
        mover.move({record.dyn_t.at(i), record.dyn_x.at(i)});
    record.dyn_t.erase(record.dyn_t.begin(), record.dyn_t.begin() + moved);
    record.dyn_x.erase(record.dyn_x.begin(), record.dyn_x.begin() + moved);
    record.dyn_n_cnt = tailLength(record);
    recount(record);
    if (record.n_cnt < 1)
        return;
    record.stop = momentOf(record, lastOf(record.t));
    record.dyn_start = record.dyn_t.isEmpty() ? record.stop : momentOf(record, record.dyn_t.constFirst());
}

LivePoints livePoints(const Record& record, double offset)
{
    LivePoints points;
    for (int i = 0; i < tailLength(record); ++i) {
        points.t.push_back(record.dyn_t.at(i) + offset);
        points.x.push_back(record.dyn_x.at(i));
    }
    return points;
}

LivePoints liveFrequencies(const Record& record, const PhaseBefore& before, double offset)
{
    LivePoints points;
    PhaseBefore last = before;
    for (int i = 0; i < tailLength(record); ++i) {
        const Sample now{record.dyn_t.at(i), record.dyn_x.at(i)};
        const double step = now.t - last.t;
        if (last.known && step > 0.0) {
            points.t.push_back(now.t + offset);
            points.x.push_back((now.x - last.x) / step);
        }
        last = {true, now.t, now.x};
    }
    return points;
}

LivePoints newestStored(const Record& record, int most, double offset)
{
    const int total = std::min(totalOf(record.t), totalOf(record.x));
    const int first = std::max(total - most, 0);
    LivePoints points{
        valuesOf(record.t, first, total - first, offset), valuesOf(record.x, first, total - first)};
    if (points.t.empty())
        return points;
    const double day = dayOfSecond(points.t.back());
    const auto sameDay = [day](double t) { return dayOfSecond(t) >= day; };
    const auto begin = std::find_if(points.t.begin(), points.t.end(), sameDay);
    points.x.erase(points.x.begin(), points.x.begin() + (begin - points.t.begin()));
    points.t.erase(points.t.begin(), begin);
    return points;
}
