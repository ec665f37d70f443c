#include "stats/deviations.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/walk.h"

#include <cmath>
#include <limits>

namespace {

/// The forms with times: the first pass finds the mean rate, the second the spread about it.
template <class Gate> double spreadOfRates(const walk::Grid& grid, const walk::F1& rate, const Gate& gate)
{
    const walk::Total rates = walk::total(grid, rate, gate);
    if (rates.count == 0.0)
        return std::numeric_limits<double>::quiet_NaN(); // 0/(0-1) would pass for a deviation of zero
    const walk::Total squares = walk::total(grid, walk::squareAbout(rate, rates.mean()), gate);
    return std::sqrt(squares.sum / (squares.count - 1.0));
}

double gapThreshold(long m, double tau0)
{
    return static_cast<double>(2 * m) * tau0;
}

}

double sco(long n, long m, double* x)
{
    if (guards::reaches(1, m, n))
        return 0.0;
    if (n == m + 1)
        return guards::twoPoints(m, x);
    const double factor = static_cast<double>(m);
    const long whole = static_cast<long>(std::floor(static_cast<double>(n) / factor - 1.0));
    const double divisor = static_cast<double>(whole); // one less than the terms when m does not divide n
    const double centre = (x[m * whole] - x[0]) / divisor;
    const walk::Total squares =
        walk::total({0, n - m, m}, walk::squareAbout(walk::D1{x, m}, centre), walk::Every{});
    return std::sqrt(squares.sum / divisor) / factor; // by K, not K-1
}

double sco(long n, long m, double* x, double* t, double tau0)
{
    if (guards::reaches(1, m, n))
        return 0.0;
    if (n == m + 1)
        return guards::twoPoints(m, x, t);
    return spreadOfRates({0, n - m, m}, {x, t, m}, walk::Regular<1>{t, m, gapThreshold(m, tau0)});
}

double sco_Nepr(long n, long m, double* x, double* t)
{
    if (guards::reaches(1, m, n))
        return 0.0;
    if (n == m + 1)
        return guards::twoPoints(m, x, t);
    return spreadOfRates({0, n - m, m}, {x, t, m}, walk::Rising<1>{t, m}); // no upper bound
}

double sco_overlap(long n, long m, double* x)
{
    if (guards::reaches(1, m, n))
        return 0.0;
    if (n == m + 1)
        return guards::twoPoints(m, x);
    const double divisor = static_cast<double>(n - m - 1);
    const double centre = (x[n - 1] - x[0]) / divisor; // per sample, yet over n-m-1 steps, not n-1
    const walk::Total squares =
        walk::total({0, n - m, 1}, walk::squareAbout(walk::D1PerSample{x, m}, centre), walk::Every{});
    return std::sqrt(squares.sum / divisor) / static_cast<double>(m); // by m a second time
}

double sco_overlap(long n, long m, double* x, double* t, double tau0)
{
    if (guards::reaches(1, m, n))
        return 0.0;
    if (n == m + 1)
        return guards::twoPoints(m, x, t);
    return spreadOfRates({0, n - m, 1}, {x, t, m}, walk::Regular<1>{t, m, gapThreshold(m, tau0)});
}
