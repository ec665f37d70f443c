#pragma once

class doubleArray;

/// Deviation kernels: one phase series and one averaging factor in, one stability value out.
///
/// Arguments
///   n        number of samples
///   m        averaging factor in samples; the averaging time is m*tau0
///   x        phase, s, read only
///   t        time of each sample, s, read only; a gap is a large step between two neighbours
///   tau0     nominal sampling interval, s; serves the gap threshold alone, save in mod_alan_deviation
///
/// Differences at sample i
///   D1 = x[i+m]-x[i]    D2 = x[i+2m]-2x[i+m]+x[i]    D3 = x[i+3m]-3x[i+2m]+3x[i+m]-x[i]
///   d1 = t[i+m]-t[i]    d2 = t[i+2m]-t[i+m]          d3 = t[i+3m]-t[i+2m]
///   F1, F2, F3: the same differences with each step of x divided by its step of t
///
/// Grid: i = 0, m, 2m, ... (plain forms) or i = 0, 1, 2, ... (overlap forms) while i < n - k*m, k the order
/// of the difference: every position whose last sample is still in the series.
///
/// Gap rule of the forms with times: a term counts only when its steps of t pass the test named at the
/// function; a step that is zero, negative or NaN never passes where it is tested. C is the number of terms
/// that count.
///
/// Forms without times work in x per sample and divide by m at the end; forms with times work in rates.
///
/// Guard: 0.0 when the series is too short for m, or m is not positive. "Two points": the shortest series
/// that is let in gives |x[m]-x[0]|/m, or |x[m]-x[0]|/(t[m]-t[0]) with times. No error is reported: no
/// counted term gives a NaN, and a NaN or an infinity among the samples flows into the result.
///
/// Sums use several accumulators, so a value agrees with a straight sum to rounding. A large phase or
/// frequency costs no digits: differences are taken of neighbouring samples, centres are wider than a double,
/// and rates are worked out less a common rate near their own (the form over arrays kept by days excepted).
/// Stateless and reentrant.
///
/// Literature: NIST SP 1065 (Riley, 2008) sections 5.2 to 5.6; IEEE Std 1139.

/// @name Standard deviation of first differences (SP 1065, 5.1). Guard m >= n; two points at n = m+1.
/// @{

/// sqrt(sum (D1-c)^2 / K) / m, K = floor(n/m)-1, c = (x[mK]-x[0])/K. Departs: divides by K, not K-1, and when
/// m does not divide n the grid holds one term more than K counts. K = 0 gives no finite value.
double sco(long n, long m, double* x);
/// sqrt(sum (F1-mean)^2 / (C-1)); counts 0 < d1 < 2m*tau0.
double sco(long n, long m, double* x, double* t, double tau0);
/// As sco with times, but counts every d1 > 0: gaps of any length stay in.
double sco_Nepr(long n, long m, double* x, double* t);
/// sqrt(sum (D1/m-c)^2 / E) / m, E = n-m-1, c = (x[n-1]-x[0])/E. Departs: c is per sample but over E steps,
/// and the root is divided by m once more.
double sco_overlap(long n, long m, double* x);
/// Overlapping sco with times: sqrt(sum (F1-mean)^2 / (C-1)); counts 0 < d1 < 2m*tau0.
double sco_overlap(long n, long m, double* x, double* t, double tau0);
/// @}

/// @name Two-sample deviation with the drift taken out. Guard 2m > n; two points at n = 2m.
/// With P = x[n-1]-x[n-1-m]-x[m]+x[0]; the forms with times centre on the mean of F2 instead.
/// @{

/// sqrt(0.5 sum (D2-c)^2 / C) / m, c = P / ((n-2m) div m).
double scdo(long n, long m, double* x);
/// sqrt(0.5 sum (D2-c)^2 / C) / m, stride m, c = P / (n-1).
double scdo_upd(long n, long m, double* x);
/// sqrt(0.5 sum (D2-c)^2 / (n-2m)) / m, stride 1, c = P / (n-1).
double scdo_overlap(long n, long m, double* x);
/// sqrt(0.5 sum (F2-mean)^2 / C); counts 0 < d1, d2 < 2m*tau0.
double scdo(long n, long m, double* x, double* t, double tau0);
/// Overlapping scdo with times, same test.
double scdo_overlap(long n, long m, double* x, double* t, double tau0);
/// @}

/// @name Allan deviation (SP 1065, 5.2.2 and 5.2.4). Guard 2m > n; two points at n = 2m.
/// @{

/// sqrt(0.5 sum D2^2 / C) / m.
double alan_scdo(long n, long m, double* x);
/// sqrt(0.5 sum F2^2 / C); counts d1, d2 > 0 and d1+d2 < 3m*tau0 (a bound on the sum, unlike scdo).
double alan_scdo(long n, long m, double* x, double* t, double tau0);
/// The same over arrays kept by days. Indices are int, so a longer n gives 0.0; an index beyond the arrays
/// throws as doubleArray::operator[] does.
double alan_scdo(long n, long m, doubleArray& x, doubleArray& t, double tau0);
/// sqrt(0.5 sum D2^2 / C) / m, stride 1. The last argument has no effect.
double alan_scdo_overlap(long n, long m, double* x, double unused);
/// sqrt(0.5 sum F2^2 / C), stride 1; counts d1, d2 > 0 with no upper bound, so tau0 has no effect.
double alan_scdo_overlap(long n, long m, double* x, double* t, double tau0);
/// @}

/// @name Modified Allan deviation (SP 1065, 5.2.5). Guard 3m >= n; two points at n = 3m+1.
/// A(i) is the sum of the inner term over j = i ... i+m-1, for i = 0 ... n-3m: the textbook's whole set.
/// @{

/// sqrt(0.5 sum A^2 / (n-3m+1)) / m^2 with the inner term D2(j), each A summed in full: m additions a
/// position. Writes two lines with the time to the debug log.
double mod_alan_scdo_unimpr(long n, long m, double* x);
/// The same by a running sum, linear in n.
double mod_alan_scdo(long n, long m, double* x);
/// sqrt(0.5 sum A^2 / (n-3m+1)) with the inner term
/// H(j) = (x[j+2m]-x[j+m])/(t[j+2m]-t[j+m]) - (x[j+m]+x[j])/(t[j+m]+t[j]). Departs: the plus signs make it
/// depend on the origins of x and t. A term counts when both divisors are positive; tau0 has no effect.
double mod_alan_scdo(long n, long m, double* x, double* t, double tau0);
/// Textbook MDEV in units of x per second, sqrt(0.5 sum A^2 / (n-3m+1)) / m / (tau0*m), for a whole scale of
/// averaging factors. Entries with 3m >= n or m not positive are dropped; there is no two-point case. On
/// return count is the number of values kept; the array (new[], room for the count that came in) belongs to
/// the caller. A count that no array can have throws std::bad_array_new_length.
double* mod_alan_deviation(long n, long* steps, long& count, double tau0, double* x);
/// @}

/// @name Hadamard deviation (SP 1065, 5.2.9 and 5.2.10). Guard 3m >= n; no two-point case.
/// @{

/// sqrt(sum D3^2 / C / 6) / m.
double hadamard_scdo(long n, long m, double* x);
/// sqrt(sum F3^2 / C / 6); counts 0 < d1, d2, d3 < 2m*tau0.
double hadamard_scdo(long n, long m, double* x, double* t, double tau0);
/// sqrt(sum D3^2 / (n-3m)) / m / 6, stride 1. Departs: the 6 stands outside the root, so the value is the
/// textbook's divided by sqrt(6).
double hadamard_scdo_overlap(long n, long m, double* x);
/// sqrt(sum F3^2 / C / 6), stride 1; counts d1, d2 > 0 and d1, d2, d3 < 2m*tau0. Departs: d3 may be
/// negative, and equal stamps there, d3 = 0, give an infinity or a NaN.
double hadamard_scdo_overlap(long n, long m, double* x, double* t, double tau0);
/// @}
