#include "table/core/cutstretch.h"

#include "base/debuglog.h"
#include "record/record.h"
#include "table/core/derivedrecord.h"
#include "table/core/livetail.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int smallestPart = 100000; // samples

enum class Found { Yes, Unclear, No };

struct Place {
    Found found = Found::Unclear;
    int day = 0;
    int pos = 0; ///< inside the day
};

/// The time axis of a record, less its first time.
class Axis {
public:
    explicit Axis(const doubleArray& t)
        : m_t(t)
    {
        while (m_first < days() && length(m_first) == 0)
            ++m_first;
        m_last = days() - 1;
        while (m_last > m_first && length(m_last) == 0)
            --m_last;
        if (m_first < days())
            m_origin = m_t.DayData(m_first)[0];
    }

    bool isEmpty() const { return m_first >= days(); }
    int days() const { return m_t.parts.size(); }
    int length(int day) const { return m_t.DayLengths.at(day); }
    double at(int day, int pos) const { return m_t.DayData(day)[pos] - m_origin; }
    double end(int day) const { return at(day, length(day) - 1); }
    int firstDay() const { return m_first; }
    int lastDay() const { return m_last; }

    /// The first day that ends at or behind a border; the number of days when there is none.
    int dayOf(double border) const
    {
        for (int day = m_first; day < days(); ++day) {
            if (length(day) > 0 && end(day) >= border)
                return day;
        }
        return days();
    }

private:
    const doubleArray& m_t;
    int m_first = 0;
    int m_last = 0;
    double m_origin = 0.0;
};

/// Looks for a border in one day.
Place search(const Axis& axis, int day, double border)
{
    if (day == axis.firstDay() && axis.at(day, 0) > border)
        return {Found::Yes, day, 0};
    const int length = axis.length(day);
    const double first = axis.at(day, 0);
    const double guess = std::trunc((border - first) * length / (axis.end(day) - first));
    if (length == 1 && first == border)
        return {Found::Yes, day, 0}; // the proportion is that of two zeros
    if (!(guess >= 0.0) || !(guess < length)) // also the last sample, which is guessed one too far
        return {Found::Unclear, day, 0};
    int pos = int(guess);
    const bool up = axis.at(day, pos) < border;
    while (pos >= 0 && pos < length) {
        const double time = axis.at(day, pos);
        if (up ? time >= border : time <= border)
            return {Found::Yes, day, pos};
        pos += up ? 1 : -1;
    }
    return {Found::No, day, 0};
}

Place findBegin(const Axis& axis, double from)
{
    const Place place = search(axis, std::min(axis.dayOf(from), axis.lastDay()), from);
    if (place.found == Found::Unclear)
        DebugLOG(" BEING не то что не нашли, даже не поняли где искать"); // verbatim
    else if (place.found == Found::No)
        DebugLOG("BEGIN не нашли... хм"); // verbatim
    return place;
}

Place findEnd(const Axis& axis, double to)
{
    const int day = axis.dayOf(to);
    const Place place = day < axis.days() || std::isnan(to)
        ? search(axis, std::min(day, axis.lastDay()), to)
        : Place{Found::Yes, axis.lastDay(), axis.length(axis.lastDay()) - 1};
    if (place.found == Found::Unclear)
        DebugLOG(" END не то что не нашли, даже не поняли где искать"); // verbatim
    else if (place.found == Found::No)
        DebugLOG("END не нашли... хм"); // verbatim
    return place;
}

/// Samples from position `first` to before `behind` of a day, as far as both arrays hold them.
int inBoth(const Record& source, int day, int first, int behind)
{
    const int inX = day < source.x.parts.size() ? source.x.DayLengths.at(day) : 0;
    return std::max(0, std::min(behind, inX) - first);
}

void copyDays(const Record& source, const Place& begin, const Place& end, Record& out)
{
    const auto size = [&](int day) { return std::max(smallestPart, source.t.DayLengths.at(day)); };
    int largest = smallestPart;
    for (int day = begin.day; day <= end.day; ++day)
        largest = std::max(largest, size(day));
    out.t = doubleArray(largest);
    out.x = doubleArray(largest);
    for (int day = begin.day; day <= end.day; ++day) {
        const int first = day == begin.day ? begin.pos : 0;
        const int behind = day == end.day ? end.pos + 1 : source.t.DayLengths.at(day);
        const int count = inBoth(source, day, first, behind);
        out.t.AddNewPart(size(day));
        out.x.AddNewPart(size(day));
        if (count < 1)
            continue;
        out.t.append__(source.t.DayData(day) + first, count);
        out.x.append__(source.x.DayData(day) + first, count);
    }
    recountDays(out);
}

bool holdsAny(const Record& source, const Place& begin, const Place& end)
{
    for (int day = begin.day; day <= end.day; ++day) {
        const int behind = day == end.day ? end.pos + 1 : source.t.DayLengths.at(day);
        if (inBoth(source, day, day == begin.day ? begin.pos : 0, behind) > 0)
            return true;
    }
    return false;
}

} // namespace

CutStatus cutStretch(Record& source, double from, double to, Record& out)
{
    const Axis axis(source.t);
    if (axis.isEmpty())
        return CutStatus::NoSamples;
    const Place begin = findBegin(axis, from);
    if (begin.found == Found::Unclear)
        return CutStatus::BeginUnclear;
    const Place end = findEnd(axis, to);
    if (end.found != Found::Yes)
        return end.found == Found::Unclear ? CutStatus::EndUnclear : CutStatus::EndNotFound;
    if (begin.found != Found::Yes)
        return CutStatus::BeginNotFound;
    if (end.day < begin.day || (end.day == begin.day && end.pos < begin.pos))
        return CutStatus::EndBeforeBegin;
    if (!holdsAny(source, begin, end))
        return CutStatus::NoSamples;
    takeParameters(source, out);
    copyDays(source, begin, end, out);
    setEnds(source, out);
    return CutStatus::Ok;
}
