#include "plot/core/timeaxis.h"

#include "record/calendar.h"

#include <cmath>
#include <limits>

namespace {

constexpr double secondsPerDay = 86400.0;
/// Farther from the start no calendar reaches, s.
constexpr double farthest = 1e11;

} // namespace

double TimeAxis::xOf(const QDateTime& time) const
{
    if (!time.isValid() || (!days && !start.isValid()))
        return std::numeric_limits<double>::quiet_NaN();
    if (days) {
        const QDate date = time.date();
        return double(DateToMjd(date.year(), date.month(), date.day()))
            + double(time.time().msecsSinceStartOfDay()) / (1000.0 * secondsPerDay);
    }
    // The fields of a dialog know no time zone: what they show is meant in that of the start.
    QDateTime meant = time;
    if (time.timeSpec() != start.timeSpec())
        meant.setTimeSpec(start.timeSpec());
    const double seconds = double(start.msecsTo(meant)) / 1000.0;
    return hours ? seconds / 3600.0 : seconds;
}

QDateTime TimeAxis::timeOf(double x) const
{
    const double seconds = days ? x * secondsPerDay : hours ? x * 3600.0 : x;
    if (!(std::fabs(seconds) <= farthest))
        return {};
    const qint64 ms = qint64(std::llround(seconds * 1000.0));
    if (!days)
        return start.addMSecs(ms);
    const QDate epoch(1858, 11, 17); // day 0 of the modified Julian days
    return QDateTime(epoch, QTime(0, 0), start.isValid() ? start.timeSpec() : Qt::LocalTime).addMSecs(ms);
}
