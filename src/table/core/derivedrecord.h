#pragma once

struct Record;

/// Empties `out` and gives it the parameters of `source`, for samples computed from it. `out` is not live,
/// has no live tail, no place in a data file and RecID 0.
void takeParameters(Record& source, Record& out);

/// Sets `start` and `stop` of `out`, whose times stand on the scale of `source`, to the source's `start` plus
/// whole seconds.
void setEnds(const Record& source, Record& out);
