#include "table/core/relaydays.h"

#include "base/sleep.h"
#include "record/record.h"

#include <QTime>

#include <cmath>
#include <optional>

namespace {

constexpr double secondsPerDay = 86400.0;

/// Where a day stands in the time axis. It holds a sample at least.
struct DayPlace {
    int day; ///< its part
    int length; ///< in samples
    int last; ///< running index of its last sample
    bool isLast; ///< no part follows
};

double secondOfDay(const QDateTime& time)
{
    return time.isValid() ? QTime(0, 0).secsTo(time.time()) : 0.0;
}

double expectedLength(const Record& record, const DayPlace& place)
{
    double expected = std::trunc(secondsPerDay - record.Kdec);
    if (place.day == 0)
        expected -= secondOfDay(record.start);
    if (place.isLast)
        expected -= secondsPerDay - 1.0 - secondOfDay(record.stop);
    return expected;
}

/// The value at running index 0 or 1; there is one.
double early(const doubleArray& t, int index)
{
    int day = 0;
    while (index >= t.DayLengths.at(day))
        index -= t.DayLengths.at(day++);
    return t.DayData(day)[index];
}

double actualLength(const doubleArray& t, const DayPlace& place)
{
    const double end = t.DayData(place.day)[place.length - 1];
    if (place.day == 0)
        return std::trunc(end - early(t, 0));
    // The results of two comparisons serve as running indices.
    const int b = place.last > 0 ? 1 : 0;
    if (place.isLast)
        return std::trunc(std::trunc(end) - early(t, b));
    const int a = place.last - place.length > 1 ? 1 : 0;
    return std::trunc(std::trunc(early(t, a)) - early(t, b) + 1.0); // near 1, for a whole day
}

double scaleOf(const Record& record, const DayPlace& place)
{
    const double expected = expectedLength(record, place);
    const double actual = actualLength(record.t, place);
    double scale = expected / actual;
    if (std::abs(actual - expected) <= record.Kdec + 10.0 || scale > 2.0)
        scale = 1.0;
    const double* t = record.t.DayData(place.day);
    const int steps = place.length - 1;
    if (steps > 0) {
        // The last step, and not the sum of the steps, over their number.
        const double mean = std::ceil((t[steps] - t[steps - 1]) / steps);
        if (mean == 1.0 && record.Kdec > 1.0)
            scale = expected / actual; // without the checks above
    }
    return std::isfinite(scale) && scale > 0.0 ? scale : 1.0;
}

} // namespace

void relayDays(Record& record)
{
    doubleArray& time = record.t;
    time.unshare();
    std::optional<double> before; // last time laid
    for (int day = 0; day < time.parts.size(); ++day) {
        sleep(5);
        double* t = time.DayData(day);
        const int length = time.DayLengths.at(day);
        if (!t || length < 1)
            continue;
        const int last = time.DayLengths[day] - 1;
        const double scale = scaleOf(record, {day, length, last, day + 1 == time.parts.size()});
        const double first = t[0];
        const double shift = before ? first - *before - record.Kdec : first;
        const double laid = std::floor(first - shift);
        t[0] = laid;
        for (int i = 1; i < length; ++i)
            t[i] = (t[i] - first) * scale + laid;
        before = t[length - 1];
    }
}
