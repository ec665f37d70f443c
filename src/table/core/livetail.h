#pragma once

struct Record;

/// Appends the live tail of a record to its arrays, empties the tail, and brings the counts, `stop`,
/// `dyn_start` and `dyn_stop` in line with the time axis. A record without a tail stays as it is.
void foldLiveTail(Record& record);

/// Rebuilds n_days, num_in_days and n_cnt from the day lengths of the time axis.
void recountDays(Record& record);
