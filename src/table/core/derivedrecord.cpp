#include "table/core/derivedrecord.h"

#include "record/record.h"
#include "table/core/daywriter.h"

#include <cmath>

namespace {

constexpr double farthest = 1e12; // s; dates go no further

QDateTime moment(const QDateTime& start, double seconds)
{
    return std::abs(seconds) < farthest ? start.addSecs(qint64(std::floor(seconds))) : start;
}

} // namespace

void takeParameters(Record& source, Record& out)
{
    copyRecParamOnly(&source, &out);
    out.RecID = 0;
    out.dynamic = false;
    out.dyn_start = QDateTime();
    out.dyn_stop = QDateTime();
    out.dyn_n_cnt = 0;
    out.dat_pos = 0;
    out.n_cnt = 0;
}

void setEnds(const Record& source, Record& out)
{
    const SampleWalk first(out);
    if (first.atEnd())
        return;
    int lastDay = out.t.parts.size() - 1;
    while (out.t.DayLengths.at(lastDay) < 1)
        --lastDay;
    const double last = out.t.DayData(lastDay)[out.t.DayLengths.at(lastDay) - 1];
    const double origin = startTime(source);
    out.stop = moment(source.start, last - origin);
    out.start = moment(source.start, first.t() - origin);
}
