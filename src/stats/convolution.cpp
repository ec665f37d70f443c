#include "stats/convolution.h"

#include "stats/pairs.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace {

std::size_t fullLength(int n, int m)
{
    return static_cast<std::size_t>(std::max(0L, static_cast<long>(n) + m - 1));
}

/// One value, with as many taps as reach into the series.
double valueAt(long k, const double* a, long n, const double* h, long m)
{
    double sum = 0.0;
    for (long j = std::min(k, m - 1); j >= std::max(0L, k - n + 1); --j)
        sum += h[j] * a[k - j];
    return sum;
}

constexpr int lanes = 6; // pairs; with the taps and the products they fill the registers

/// The values at 2*lanes neighbouring places, all of whose taps lie in the series. `a` points to the first
/// place.
void sideBySide(const double* a, const double* h, long m, double* out)
{
    pairs::Pair sums[lanes] = {};
    for (long j = m - 1; j >= 0; --j) {
        const pairs::Pair tap = pairs::both(h[j]);
        const double* const from = a - j;
#pragma GCC unroll 6
        for (int lane = 0; lane < lanes; ++lane)
            sums[lane] += tap * pairs::load(from + 2 * lane);
    }
#pragma GCC unroll 6
    for (int lane = 0; lane < lanes; ++lane)
        pairs::store(out + 2 * lane, sums[lane]);
}

/// Sum of p[j]*q[j].
double product(const double* p, const double* q, long m)
{
    pairs::Pair even = {}, odd = {};
    long j = 0;
    for (; j + 4 <= m; j += 4) {
        even += pairs::load(p + j) * pairs::load(q + j);
        odd += pairs::load(p + j + 2) * pairs::load(q + j + 2);
    }
    double sum = pairs::folded(even + odd);
    for (; j < m; ++j)
        sum += p[j] * q[j];
    return sum;
}

}

double* conv(double* a, int n, double* h, int m)
{
    if (n < 1 || m < 1)
        return new double[fullLength(n, m)]();
    const long length = static_cast<long>(n) + m - 1;
    double* const out = new double[fullLength(n, m)];
    long k = 0;
    for (; k < std::min<long>(m - 1, length); ++k)
        out[k] = valueAt(k, a, n, h, m);
    for (; k + 2 * lanes <= n; k += 2 * lanes)
        sideBySide(a + k, h, m, out + k);
    for (; k < length; ++k)
        out[k] = valueAt(k, a, n, h, m);
    return out;
}

std::vector<double> convDecimated(const double* a, int n, const double* h, int m, int factor)
{
    std::vector<double> out(static_cast<std::size_t>(std::max(0, n) / factor));
    if (n < 1 || m < 1)
        return out;
    const std::vector<double> turned(std::reverse_iterator(h + m), std::reverse_iterator(h));
    for (std::size_t i = 0; i < out.size(); ++i) {
        const long k = static_cast<long>(i) * factor;
        out[i] = k < m - 1 ? valueAt(k, a, n, h, m) : product(turned.data(), a + (k - m + 1), m);
    }
    return out;
}
