#pragma once

struct Record;

/// The interval at which frequencies can be made when `wanted` (s) is asked of samples `interval` apart: the
/// nearest whole number of sampling intervals, at least one. `wanted` itself when the interval is unknown.
double frequencyInterval(double wanted, double interval);

/// Makes mean fractional frequencies of a phase record, its live tail included: from a sample to the first
/// one that lies the interval or more later, and on from there, at the time of the earlier one. Across a gap
/// of twice the interval, and from one part to the next, there is none. Kdec of `out` is the interval used;
/// what else tells of the record, RecID included, stays. Records of other data are taken over as they stand.
///
/// At the record's own interval neighbours are taken, however unsteady their times are.
void frequencySeries(Record& source, double wanted, Record& out);
