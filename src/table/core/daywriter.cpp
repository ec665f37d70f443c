#include "table/core/daywriter.h"

#include "table/core/livetail.h"

#include <cmath>

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr int usualPart = 100000; // samples

double firstTime(const Record& record)
{
    for (int day = 0; day < record.t.parts.size(); ++day) {
        if (record.t.DayLengths.at(day) > 0)
            return record.t.DayData(day)[0];
    }
    return 0.0;
}

void reset(doubleArray& array)
{
    array.clear();
    array = doubleArray(usualPart);
}

} // namespace

double startSecond(const Record& record)
{
    return record.start.isValid() ? record.start.time().msecsSinceStartOfDay() / 1000.0 : 0.0;
}

double startTime(const Record& record)
{
    const double first = firstTime(record);
    if (!std::isfinite(first))
        return 0.0;
    const double second = startSecond(record);
    return first >= second && first - second < 1.0 ? second : first;
}

double timeShift(const Record& record, const Record& other)
{
    const double later = record.start.isValid() && other.start.isValid()
        ? double(record.start.msecsTo(other.start)) / 1000.0
        : 0.0;
    return later + startTime(record) - startTime(other);
}

SampleWalk::SampleWalk(const Record& record, int index)
    : SampleWalk(record)
{
    while (!atEnd() && index >= m_before + m_length)
        nextDay();
    if (!atEnd())
        m_pos = std::max(0, index - m_before);
}

void SampleWalk::nextDay()
{
    m_before += m_record.t.DayLengths.at(m_day);
    ++m_day;
    findDay();
}

void SampleWalk::findDay()
{
    m_pos = 0;
    m_length = 0;
    const int days = std::min(m_record.t.parts.size(), m_record.x.parts.size());
    for (; m_day < days; ++m_day) {
        m_length = std::min(m_record.t.DayLengths.at(m_day), m_record.x.DayLengths.at(m_day));
        if (m_length > 0)
            break;
        m_before += m_record.t.DayLengths.at(m_day);
    }
    m_t = m_record.t.DayData(m_day);
    m_x = m_record.x.DayData(m_day);
}

DayWriter::DayWriter(Record& record, double midnight)
    : m_record(record)
    , m_midnight(std::isfinite(midnight) ? midnight : 0.0)
    , m_nextMidnight(-std::numeric_limits<double>::infinity())
{
    reset(record.t);
    reset(record.x);
}

void DayWriter::add(const double* t, const double* x, int count)
{
    int i = 0;
    while (i < count) {
        // As many as go to the day at hand without a look at each.
        int good = i;
        double last = m_last;
        while (good < count && t[good] > last && t[good] < m_nextMidnight)
            last = t[good++];
        m_t.insert(m_t.end(), t + i, t + good);
        m_x.insert(m_x.end(), x + i, x + good);
        m_last = last;
        i = good;
        if (i < count) {
            add(t[i], x[i]);
            ++i;
        }
    }
}

void DayWriter::openDay(double t)
{
    writeDay();
    const double day = std::floor((t - m_midnight) / secondsPerDay);
    m_nextMidnight = m_midnight + (day + 1.0) * secondsPerDay;
}

void DayWriter::writeDay()
{
    if (m_t.empty())
        return;
    const int length = int(std::min<size_t>(m_t.size(), size_t(std::numeric_limits<int>::max())));
    m_record.t.AddNewPart(length);
    m_record.t.append__(m_t.data(), length);
    m_record.x.AddNewPart(length);
    m_record.x.append__(m_x.data(), length);
    m_t.clear();
    m_x.clear();
}

void DayWriter::finish()
{
    writeDay();
    recountDays(m_record);
    int longest = usualPart;
    for (int day = 0; day < m_record.n_days; ++day)
        longest = std::max(longest, m_record.t.DayLengths.at(day));
    m_record.t.partLen = longest;
    m_record.x.partLen = longest;
}
