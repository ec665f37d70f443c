#include "table/core/phaseseries.h"

#include "base/largepages.h"
#include "base/parallel.h"
#include "record/record.h"

#include <algorithm>

namespace {

/// Appends the samples of an array, as far as the other one holds them too.
void take(const doubleArray& from, const doubleArray& other, size_t room, std::vector<double>& to)
{
    to.reserve(room);
    preferLargePages(to.data(), room * sizeof(double));
    for (int day = 0; day < from.parts.size() && day < other.parts.size(); ++day) {
        const double* values = from.DayData(day);
        to.insert(to.end(), values, values + std::min(from.DayLengths.at(day), other.DayLengths.at(day)));
    }
}

} // namespace

PhaseSeries phaseSeries(Record& record)
{
    const long stored = long(record.n_cnt);
    const long live =
        long(std::min({record.dyn_n_cnt, qint64(record.dyn_t.size()), qint64(record.dyn_x.size())}));
    PhaseSeries series;
    if (stored + live < 1)
        return series;
    const double origin = stored > 0 ? record.t[0] : record.dyn_t.first();
    const size_t all = size_t(stored + live);
    runTasks({[&] {
                  take(record.t, record.x, all, series.t);
                  if (origin != 0.0) {
                      for (double& t : series.t)
                          t -= origin;
                  }
              },
        [&] { take(record.x, record.t, all, series.x); }});
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
