#pragma once

#include <QtGlobal>

#include <vector>

/// The averaging times of one record.
struct TauScale {
    std::vector<qint64> factor; ///< averaging factors, in samples
    std::vector<double> tau; ///< the same in seconds: factor * step * interval

    size_t size() const { return factor.size(); }
};

/// Builds the 1-2-5 scale for `n` samples that are `interval` seconds apart, with a point for one hour after
/// the one near 2000 s and a point for one day after the one near 50000 s. `step` is the stride, in
/// intervals, of the series that the factors count in: 1 for whole records.
///
/// For a power of ten in `step` every point m keeps 3 m below n, so `n` below 4 gives no point. With
/// `fromLoad` the scale is that of a record still being filled: 3 floor(log10(n div 3)) + 1 points, with the
/// hour and the day whatever the length. For any other `step` the scale is 1, then 1, 2, 5 times the next
/// power of ten and its decades, counted in strides. A `step` below 1, or an interval that is not positive
/// and finite, gives an empty scale.
TauScale tauScale(int step, long n, double interval, bool fromLoad = false);

/// The samples of a record that go into one averaging time.
struct SampleRange {
    qint64 first;
    qint64 count;
};

/// All `n` samples, or when `perSecond` (the limit of samples per second of `tau`) is positive and tighter,
/// the newest floor(perSecond * tau) of them. So a long tau sees more data than a short one. With a limit
/// that is no whole number the very last sample stays out, since both the first index and the count are cut
/// down.
SampleRange samplesForTau(qint64 n, qint32 perSecond, double tau);
