#include "table/core/livetail.h"

#include "record/record.h"

#include <algorithm>

void recountDays(Record& record)
{
    const DayLenScale& days = record.t.DayLengths;
    record.n_days = days.size();
    record.num_in_days = std::make_unique<qint64[]>(size_t(days.size()));
    record.n_cnt = 0;
    for (int day = 0; day < days.size(); ++day) {
        record.num_in_days[size_t(day)] = days.at(day);
        record.n_cnt += days.at(day);
    }
}

void foldLiveTail(Record& record)
{
    if (record.dyn_n_cnt <= 0)
        return;
    const int live =
        int(std::min({record.dyn_n_cnt, qint64(record.dyn_t.size()), qint64(record.dyn_x.size())}));
    for (int i = 0; i < live; ++i) {
        record.t.append(record.dyn_t.at(i));
        record.x.append(record.dyn_x.at(i));
    }
    recountDays(record);
    record.dyn_t.clear();
    record.dyn_x.clear();
    record.dyn_n_cnt = 0;
    if (record.n_cnt < 1)
        return;
    const double span = record.t[int(record.n_cnt) - 1] - record.t[0];
    record.stop = record.start.addSecs(qint64(span));
    record.dyn_start = record.stop;
    record.dyn_stop = record.stop;
}
