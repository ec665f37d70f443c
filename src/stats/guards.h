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

/// @name The value of the shortest series a family lets in, for one series and for two
/// @{
inline double twoPoints(long m, const double* x)
{
    return std::fabs(x[m] - x[0]) / static_cast<double>(m);
}
inline double twoPoints(long m, const double* x, const double* y)
{
    return std::sqrt(std::fabs((x[m] - x[0]) * (y[m] - y[0]))) / static_cast<double>(m);
}

/// With times: a rate names its phase x, its times t and its step m.
template <class Rate> double twoPointRates(const Rate& a)
{
    return std::fabs(a.x[a.m] - a.x[0]) / (a.t[a.m] - a.t[0]);
}
template <class Rate> double twoPointRates(const Rate& a, const Rate& b)
{
    const double steps = (a.x[a.m] - a.x[0]) * (b.x[b.m] - b.x[0]);
    return std::sqrt(std::fabs(steps / (a.t[a.m] - a.t[0]) / (b.t[b.m] - b.t[0])));
}
/// @}

}
