#include "record/calendar.h"

#include <QtGlobal>

namespace {

constexpr qint64 farthestDay = 700000000000; // its year still fits into an int
constexpr qint64 largestField = 1000000000;

} // namespace

// Fliegel and van Flandern, "A machine algorithm for processing calendar dates", Comm. ACM 11 (1968) 657,
// with the Julian day number shifted to the modified one. All divisions truncate.

void MjdToDate(long mjd, int* year, int* month, int* day)
{
    int y = 0;
    int m = 0;
    int d = 0;
    if (qint64(mjd) <= farthestDay && qint64(mjd) >= -farthestDay) {
        qint64 rest = qint64(mjd) + 2468570;
        const qint64 century = 4 * rest / 146097;
        rest -= (146097 * century + 3) / 4;
        const qint64 yearInCentury = 4000 * (rest + 1) / 1461001;
        rest += 31 - 1461 * yearInCentury / 4;
        const qint64 monthFromMarch = 80 * rest / 2447;
        d = int(rest - 2447 * monthFromMarch / 80);
        m = int(monthFromMarch + 2 - 12 * (monthFromMarch / 11));
        y = int(100 * (century - 49) + yearInCentury + monthFromMarch / 11);
    }
    if (year)
        *year = y;
    if (month)
        *month = m;
    if (day)
        *day = d;
}

long DateToMjd(long year, long month, long day)
{
    for (const qint64 field : {qint64(year), qint64(month), qint64(day)}) {
        if (field > largestField || field < -largestField)
            return 0;
    }
    const qint64 y = year;
    const qint64 m = month;
    return long(day + 367 * y - 7 * (y + (m + 9) / 12) / 4 - (3 * ((y + (m - 9) / 7) / 100) + 3) / 4
        + 275 * m / 9 - 678972);
}
