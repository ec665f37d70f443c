#include "load/core/recententry.h"

#include "load/core/formattemplate.h"

#include <cmath>

namespace {

bool sameFile(const RecentRecs& a, const RecentRecs& b)
{
    return a.type == b.type && a.format == b.format && a.start == b.start && a.dir.path() == b.dir.path();
}

} // namespace

int recentColumn(const QVector<RecentRecs>& entries, const RecentRecs& entry, int columns)
{
    if (entry.column >= 0 && entry.column < columns)
        return entry.column;
    int firstChannel = 0;
    int expected = 0; // the next entry of the file, if it belongs to the records found last
    for (const RecentRecs& other : entries) {
        if (!sameFile(other, entry)) {
            expected = 0;
            continue;
        }
        if (expected < 1 || other.ch != firstChannel + expected) {
            expected = 0;
            firstChannel = other.ch;
        }
        if (other.ch == entry.ch && other.stop == entry.stop && other.num == entry.num)
            return expected;
        expected = expected == 0 ? columns - 1 : expected - 1;
    }
    return 0;
}

double recentInterval(const RecentRecs& entry)
{
    if (entry.interval > 0.0)
        return entry.interval;
    if (entry.num < 2 || compileTemplate(entry.format).timeVariable() >= 0)
        return 1.0;
    const double steps = double(entry.num - 1);
    // The stop stands one second behind the last sample, and both are rounded to seconds.
    const double span = double(entry.start.msecsTo(entry.stop)) / 1000.0 - 1.0;
    const double exact = span / steps;
    for (int digits = 1; exact > 0.0 && digits <= 15; ++digits) {
        const double rounded = QString::number(exact, 'g', digits).toDouble();
        if (std::abs(rounded - exact) * steps <= 1.0)
            return rounded;
    }
    return 1.0;
}
