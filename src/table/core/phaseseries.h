#pragma once

#include <vector>

struct Record;

/// The samples of a record as two plain arrays, which is how the kernels read them.
struct PhaseSeries {
    std::vector<double> t; ///< s from the first sample
    std::vector<double> x; ///< values, as in the record

    long size() const { return long(x.size()); }
};

/// All samples of `record`, the live tail included, with t less the first t.
PhaseSeries phaseSeries(Record& record);

/// At most `most` of `n` samples, every k-th: k = n / most rounded up. Gives k as well; empty when k is 1,
/// since then the whole series serves.
PhaseSeries thinnedSeries(long n, const double* t, const double* x, long most, long& k);
