#include "load/core/columnrecord.h"

#include "record/record.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double dayLength = 86400.0; // s
constexpr double dayLimit = 86410.0;
constexpr int partSize = 100000;
constexpr int mostParts = 65535; // the iterator of a record reaches no more
constexpr double farthest = 1e12; // s; keeps dates within the calendar

/// The same samples as an array that shares its memory.
std::shared_ptr<double[]> arrayOf(const std::shared_ptr<std::vector<double>>& values)
{
    return std::shared_ptr<double[]>(values, values->data());
}

std::vector<double> without(const std::vector<double>& times, const std::vector<int>& dropped)
{
    std::vector<double> kept;
    kept.reserve(times.size() - dropped.size());
    auto from = times.begin();
    for (const int index : dropped) {
        kept.insert(kept.end(), from, times.begin() + index);
        from = times.begin() + index + 1;
    }
    kept.insert(kept.end(), from, times.end());
    return kept;
}

} // namespace

void DayEnds::add(int end)
{
    if (end > (m_ends.isEmpty() ? 0 : m_ends.constLast()))
        m_ends.append(end);
}

void DayEnds::endFile(int count, double interval, double startSecond, qint64 lines)
{
    // deliberate: a number of samples is added to seconds
    const double limit = m_ends.isEmpty() ? dayLimit : m_ends.constLast() + dayLimit;
    if (count * interval + startSecond > limit)
        walkDays(count, interval, startSecond, lines);
    add(count);
}

// The interval is the span of the last file over its lines, not over the steps between them. So it is short
// by one part in `lines`, and the midnights of the files before come out late by as much: such a one, close
// behind a day end that is known, is that day end again.
void DayEnds::walkDays(int count, double interval, double startSecond, qint64 lines)
{
    const double first = (dayLength - startSecond) / interval;
    const double step = dayLength / interval;
    const double last = m_ends.isEmpty() ? 0.0 : m_ends.constLast();
    const double late = m_ends.isEmpty() ? 0.0 : last / double(std::max<qint64>(lines, 1)) + 1.0;
    if (step <= 1.0) { // each sample is a day of its own
        for (qint64 end = std::max<qint64>(qint64(last) + 1, qint64(first)); end < count; ++end)
            add(int(end));
        return;
    }
    double k = last + late > first ? std::ceil((last + late - first) / step) : 0.0;
    for (double end = first + k * step; end < count; end = first + ++k * step)
        add(int(end));
}

QVector<int> partLengths(const QVector<int>& dayEnds, int longest)
{
    QVector<int> lengths;
    int begin = 0;
    for (const int end : dayEnds) {
        while (begin < end && lengths.size() < mostParts - 1) {
            lengths.append(std::min(end - begin, longest));
            begin += lengths.constLast();
        }
    }
    if (!dayEnds.isEmpty() && begin < dayEnds.constLast())
        lengths.append(dayEnds.constLast() - begin);
    return lengths;
}

std::unique_ptr<Record> makeColumnRecord(const ColumnParameters& parameters,
    const std::shared_ptr<std::vector<double>>& times, ColumnSeries column)
{
    auto record = std::make_unique<Record>();
    record->start = parameters.start;
    record->stop = parameters.start;
    record->Kdec = parameters.interval;
    record->Band = 10;
    record->meas_sig = QStringLiteral("Measured signal");
    record->ref_sig = QStringLiteral("Reference signal");
    record->ch = 0;
    record->dataType = quint16(parameters.dataType);
    record->t = doubleArray(partSize);
    record->x = doubleArray(partSize);

    const auto kept = column.dropped.empty()
        ? times
        : std::make_shared<std::vector<double>>(without(*times, column.dropped));
    const auto values = std::make_shared<std::vector<double>>(std::move(column.values));
    if (values->empty())
        return record;
    const double span = kept->back() - kept->front();
    record->stop = parameters.start.addMSecs(std::llround(std::clamp(span, -farthest, farthest) * 1000.0));
    const QVector<int> lengths = partLengths(column.days.ends(), partSize);
    record->t.addParts(arrayOf(kept), lengths);
    record->x.addParts(arrayOf(values), lengths);
    record->num_in_days = std::make_unique<qint64[]>(std::size_t(lengths.size()));
    std::copy(lengths.begin(), lengths.end(), record->num_in_days.get());
    record->n_cnt = record->x.count;
    record->n_days = lengths.size();
    return record;
}
