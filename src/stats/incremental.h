#pragma once

#include <memory>

/// Running deviations of a measurement that goes on: a block of new samples is folded into the state of one
/// averaging factor, at the cost of the block and not of the record.

/// The running state of one record for one statistic over a scale of averaging factors. Entry k of the five
/// arrays belongs to factor k. A copy shares the arrays of the one it was copied from, and they live as long
/// as either of the two: what one folds in, the other shows, until one of them grows. A move is a copy.
struct varInf {
    varInf() = default;
    varInf(const varInf&) = default; // named, so that no move leaves pointers behind without their owner
    varInf& operator=(const varInf&) = default;

    int* count = nullptr; ///< samples that have been taken in
    int length = 0; ///< factors that the arrays have room for
    double* value = nullptr; ///< latest deviation
    double* sum = nullptr; ///< sum of the first differences so far (sco_Upd)
    double* sumSq = nullptr; ///< sum of their squares so far (sco_Upd)
    double* mean = nullptr; ///< mean first difference so far (sco_Upd)
    unsigned char typeOfVar = 0; ///< statistic, as numbered in a stability graph (avarTypeOf)
    unsigned short recID = 0; ///< channel of the record
    double interval = 0.0; ///< sampling interval, s

    /// Grows the arrays to `length` entries, the old ones kept and the new ones zero. Copies made before keep
    /// the shorter arrays. A length already there changes nothing. A negative length, or one beyond any scale
    /// (longestScale), throws std::bad_array_new_length; after any throw the state is as it was.
    void Reserve(int length);

    static constexpr int longestScale = 1 << 24;

private:
    struct Arrays;
    std::shared_ptr<Arrays> m_arrays;
};

/// The sample of the series, from 0, that the next block for alan_scdo_Upd begins with: m times the number of
/// terms that value[k] holds. So a block repeats the last m+1 to 2m samples that the next terms still need;
/// before the first term, and after a fresh start, it is sample 0.
long alan_scdo_Upd_firstSample(long m, const varInf& state, int k);

/// Allan deviation (NIST SP 1065, 5.2.2) without overlap of a growing phase series, in x per sample: after
/// every call value[k] is alan_scdo(count, m, series) of deviations.h to rounding, for every m and every way
/// of cutting the series into blocks, and count[k] is the number of distinct samples taken in.
///
/// n samples x of the block, of which the first is sample alan_scdo_Upd_firstSample. With K terms in the
/// value and C new ones of sum T: sqrt(0.5 (2K (m*value)^2 + T) / (K+C)) / m, since 2K (m*value)^2 is the old
/// sum. K = (count-m-1) div m.
///
/// A block of n <= 2m samples holds no term: it only counts, and the value is returned as it stands (0.0 at
/// first: the two-point value of alan_scdo is never shown). m not positive: n is added to count. A value
/// below 1e-30 in magnitude is taken as a fresh start with K = 0: a phase without any second difference is
/// read from its beginning until the first one shows. A NaN or an infinity stays in the value. k outside the
/// arrays gives 0.0. count stops at the largest int. Writes the value before and after to the debug log when
/// m is 20.
double alan_scdo_Upd(long n, long m, double* x, varInf& state, int k);

/// Standard deviation of first differences of a growing phase series, in x per sample, from running sums of
/// the differences and of their squares. n new samples x, none repeated. Changes value, sum, sumSq and mean,
/// never count: that is the caller's.
///
/// With c = count, Q = (c-m) div m terms done (0 for c < m), L = n+c-mQ samples not yet in a term,
/// N = L div m - 1 and T = Q+N, and over the steps d = x[i]-x[i-m], i = m, 2m, ... < L, with S1 = sum d and
/// S2 = sum d^2:
///   mean' = Q*mean/T + (x[mN-1]-x[c-mQ+1])/T,
///   value = sqrt((T*mean'^2 - 2*mean'*(sum+S1) + sumSq + S2) / T) / m.
///
/// c < 1 clears the state. Nothing is stored and the return is
///   sqrt((mean^2+sumSq-2*mean*sum)/c)/m   for L <= m or m not positive, then with m = 0: no finite value,
///   sqrt(|mean^2+sumSq-2*mean*sum|/c)/m   for N = 0,
///   value[k]                              when a step reaches beyond the n samples of the block,
///   0.0                                   for k outside the arrays.
/// The first two give a NaN while c is 0. Departs from the textbook: mean^2 stands there once, not once a
/// term, and the mean comes from two samples of the block, not from the sum. The last but one holds for every
/// block once c reaches m, since the steps lie from the first repeated sample on and none is repeated.
/// A negative variance gives a NaN, which is stored. Writes the value to the debug log when m is 100.
double sco_Upd(long n, long m, double* x, varInf& state, int k);
