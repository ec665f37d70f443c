#include "table/core/phaseseries.h"

#include "record/record.h"

#include <algorithm>
#include <iterator>

PhaseSeries phaseSeries(Record& record)
{
    const long stored = long(record.n_cnt);
    const long live =
        long(std::min({record.dyn_n_cnt, qint64(record.dyn_t.size()), qint64(record.dyn_x.size())}));
    PhaseSeries series;
    if (stored + live < 1)
        return series;
    const double origin = stored > 0 ? record.t[0] : record.dyn_t.first();
    series.t.reserve(size_t(stored + live));
    series.x.reserve(size_t(stored + live));
    for (int day = 0; day < record.t.parts.size() && day < record.x.parts.size(); ++day) {
        const int count = std::min(record.t.DayLengths.at(day), record.x.DayLengths.at(day));
        const double* t = record.t.DayData(day);
        const double* x = record.x.DayData(day);
        std::transform(
            t, t + count, std::back_inserter(series.t), [origin](double time) { return time - origin; });
        series.x.insert(series.x.end(), x, x + count);
    }
    for (int i = 0; i < live; ++i) {
        series.t.push_back(record.dyn_t.at(i) - origin);
        series.x.push_back(record.dyn_x.at(i));
    }
    return series;
}

PhaseSeries thinnedSeries(long n, const double* t, const double* x, long most, long& k)
{
    k = std::max(1L, (n + most - 1) / most);
    PhaseSeries thinned;
    if (k == 1)
        return thinned;
    for (long i = 0; i < n; i += k) {
        thinned.t.push_back(t[i]);
        thinned.x.push_back(x[i]);
    }
    return thinned;
}
