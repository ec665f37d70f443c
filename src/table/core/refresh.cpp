#include "table/core/refresh.h"

#include "record/record.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int compared = 1000; // samples

bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

/// 1 for the same beginning, -1 for the same with the other sign, 0 for another one.
int signOf(Record& before, Record& fresh)
{
    const int count = int(std::min({before.n_cnt, fresh.n_cnt, qint64(compared)}));
    bool equal = count > 0, opposite = count > 0;
    for (int i = 0; i < count && (equal || opposite); ++i) {
        equal = equal && same(before.x[i], fresh.x[i]);
        opposite = opposite && same(before.x[i], -fresh.x[i]);
    }
    return equal ? 1 : opposite ? -1 : 0;
}

} // namespace

Refresh compareFresh(Record& before, Record& fresh)
{
    constexpr double roundingOfInterval = 1e-9; // s
    const bool sameTime = before.start == fresh.start
        && std::abs(before.Kdec - fresh.Kdec) <= roundingOfInterval * std::max(1.0, before.Kdec);
    const int sign = sameTime ? signOf(before, fresh) : 0;
    if (sign == 0)
        return Refresh::Other;
    if (fresh.n_cnt <= before.n_cnt || fresh.stop <= before.stop)
        return Refresh::NotNewer;
    return sign > 0 ? Refresh::Newer : Refresh::NewerTurned;
}

void turnValues(Record& rec)
{
    if (rec.n_cnt < 1)
        return;
    ownSamples(&rec);
    rec.x.resetIterator(0);
    bool more = true;
    for (double* value = &rec.x[0]; more; value = rec.x.nextEl(more))
        *value = -*value;
}
