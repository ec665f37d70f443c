#pragma once

#include <vector>

/// Full convolution: out[k] = sum over j of h[j]*a[k-j], k = 0 ... n+m-2, with a taken as zero outside
/// 0 ... n-1. For a filter h of m taps the series comes out m-1 values longer and (m-1)/2 samples late.
/// The array (new[]) belongs to the caller. n or m below 1 gives n+m-1 zeros, read from nothing; a length
/// that comes out negative is taken as 0. Each value is summed in the order of the series, so it does not
/// depend on how the work is cut up.
double* conv(double* a, int n, double* h, int m);

/// Every `factor`-th of the first n values of conv(a, n, h, m), from the first on: n div factor of them,
/// equal to conv's to rounding. The values between are not worked out. factor is at least 1. Private to the
/// room.
std::vector<double> convDecimated(const double* a, int n, const double* h, int m, int factor);
