#pragma once

#include <cmath>

/// Guards and short cuts of the deviation kernels, safe for every n and m. Private to the room.
namespace guards {

/// k*m >= n, or m is not positive.
inline bool reaches(long k, long m, long n)
{
    return m <= 0 || n <= 0 || m > (n - 1) / k;
}

/// k*m > n, or m is not positive.
inline bool passes(long k, long m, long n)
{
    return m <= 0 || n < 0 || m > n / k;
}

/// The value of the shortest series a family lets in, without and with times.
inline double twoPoints(long m, const double* x)
{
    return std::fabs(x[m] - x[0]) / static_cast<double>(m);
}
inline double twoPoints(long m, const double* x, const double* t)
{
    return std::fabs(x[m] - x[0]) / (t[m] - t[0]);
}

}
