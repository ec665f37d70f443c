#include "table/core/frequencyseries.h"

#include "record/record.h"
#include "table/core/derivedrecord.h"
#include "table/core/livetail.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// Rounding of the time stamps, in intervals.
constexpr double slack = 1e-6;

struct Frequencies {
    std::vector<double> t;
    std::vector<double> y;
};

struct Day {
    const double* t;
    const double* x;
    int n;
};

Day dayOf(const Record& record, int day)
{
    if (day >= record.x.parts.size())
        return {nullptr, nullptr, 0};
    const int n = std::min(record.t.DayLengths.at(day), record.x.DayLengths.at(day));
    return {record.t.DayData(day), record.x.DayData(day), n};
}

Frequencies frequenciesOf(const Day& day, double interval, bool neighbours)
{
    Frequencies result;
    for (int i = 0; i < day.n;) {
        const double t0 = day.t[i];
        int j = i + 1;
        while (j < day.n && !neighbours && !(day.t[j] >= t0 + interval * (1.0 - slack)))
            ++j;
        if (j >= day.n)
            break;
        const double step = day.t[j] - t0;
        if (step > 0.0 && step < 2.0 * interval * (1.0 - slack)) {
            result.t.push_back(t0);
            result.y.push_back((day.x[j] - day.x[i]) / step);
        }
        i = j;
    }
    return result;
}

void addDay(doubleArray& array, const std::vector<double>& values)
{
    array.AddNewPart(int(values.size()));
    array.append__(values.data(), int(values.size()));
}

} // namespace

double frequencyInterval(double wanted, double interval)
{
    if (!(interval > 0.0) || !std::isfinite(interval))
        return wanted;
    const double ratio = wanted / interval;
    return std::isfinite(ratio) ? std::max(1.0, std::round(ratio)) * interval : interval;
}

void frequencySeries(Record& source, double wanted, Record& out)
{
    Record copy;
    shareRecord(&source, &copy);
    foldLiveTail(copy);
    if (source.dataType != 0) {
        shareRecord(&copy, &out);
        return;
    }
    const double interval = frequencyInterval(wanted, copy.Kdec);
    const bool neighbours = std::fabs(interval - copy.Kdec) <= slack * copy.Kdec;
    takeParameters(copy, out);
    for (int day = 0; day < copy.t.parts.size(); ++day) {
        const Frequencies made = frequenciesOf(dayOf(copy, day), interval, neighbours);
        addDay(out.t, made.t);
        addDay(out.x, made.y);
    }
    recountDays(out);
    setEnds(copy, out);
    out.Kdec = interval;
    out.RecID = source.RecID;
    out.dynamic = source.dynamic;
    out.dyn_start = copy.dyn_start;
    out.dyn_stop = copy.dyn_stop;
}
