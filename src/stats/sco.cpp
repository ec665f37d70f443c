#include "stats/cross.h"
#include "stats/deviations.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/shift.h"
#include "stats/walk.h"

#include <cmath>
#include <limits>

// A body takes one series for a deviation and two for a cross deviation.

namespace {

/// Mean first difference over `count` steps from sample 0 to sample `last`. Wider than a double, since every
/// term shares its error; a single step is rounded as its term is, so that their difference is exactly zero.
long double meanStep(const double* x, long last, double count)
{
    if (count == 1.0)
        return static_cast<long double>(x[last] - x[0]);
    return (static_cast<long double>(x[last]) - static_cast<long double>(x[0])) / count;
}

template <class... X> double overGrid(long n, long m, const X*... x)
{
    if (guards::reaches(1, m, n))
        return 0.0;
    if (n == m + 1)
        return guards::twoPoints(m, x...);
    const double factor = static_cast<double>(m);
    const long whole = static_cast<long>(std::floor(static_cast<double>(n) / factor - 1.0));
    const double divisor = static_cast<double>(whole); // one less than the terms when m does not divide n
    const auto products = walk::product(walk::about(walk::D1{x, m}, meanStep(x, m * whole, divisor))...);
    const walk::Total all = walk::total({0, n - m, m}, products, walk::Every{});
    return std::sqrt(std::fabs(all.sum / divisor)) / factor; // by K, not K-1
}

template <class... X> double overlapping(long n, long m, double lastDivisor, const X*... x)
{
    if (guards::reaches(1, m, n))
        return 0.0;
    if (n == m + 1)
        return guards::twoPoints(m, x...);
    const double factor = static_cast<double>(m);
    const double divisor = static_cast<double>(n - m - 1); // the centre is per sample, yet not over n-1 steps
    // (D1-c*m)/m for D1/m-c: D1 is exact
    const auto products = walk::product(
        walk::divided(walk::about(walk::D1{x, m}, meanStep(x, n - 1, divisor) * factor), factor)...);
    const walk::Total all = walk::total({0, n - m, 1}, products, walk::Every{});
    return std::sqrt(std::fabs(all.sum / divisor)) / lastDivisor;
}

/// The first pass over a series finds its mean rate, the last the spread about the means.
template <class Gate, class... Rate>
double ofRates(long n, long m, long stride, const Gate& gate, const Rate&... rate)
{
    if (guards::reaches(1, m, n))
        return 0.0;
    if (n == m + 1)
        return guards::twoPointRates(rate...);
    const walk::Grid grid{0, n - m, stride};
    const auto spread = [&](const auto&... term) {
        const auto products = walk::product(walk::about(term, walk::mean(grid, term, gate))...);
        const walk::Total all = walk::total(grid, products, gate);
        if (all.count == 0.0)
            return std::numeric_limits<double>::quiet_NaN(); // 0/(0-1) would pass for a deviation of zero
        return std::sqrt(std::fabs(all.sum / (all.count - 1.0)));
    };
    return walk::fromShifted(spread, grid, gate, rate...);
}

}

double sco(long n, long m, double* x)
{
    return overGrid(n, m, x);
}

double cross_sco(long n, long m, double* x, double* y)
{
    return overGrid(n, m, x, y);
}

double sco(long n, long m, double* x, double* t, double tau0)
{
    return ofRates(n, m, m, walk::Regular<1>{t, m, walk::stepBound(m, tau0)}, walk::F1{x, t, m});
}

double sco_Nepr(long n, long m, double* x, double* t)
{
    return ofRates(n, m, m, walk::Rising<1>{t, m}, walk::F1{x, t, m}); // no upper bound
}

double cross_sco(long n, long m, double* x, double* y, double* u, double* v)
{
    return ofRates(n, m, m, walk::Every{}, walk::F1{x, u, m}, walk::F1{y, v, m}); // no gap test
}

double sco_overlap(long n, long m, double* x)
{
    return overlapping(n, m, static_cast<double>(m), x); // by m a second time
}

double cross_sco_overlap(long n, long m, double* x, double* y)
{
    return overlapping(n, m, 1.0, x, y); // not by m a second time, unlike sco_overlap
}

double sco_overlap(long n, long m, double* x, double* t, double tau0)
{
    return ofRates(n, m, 1, walk::Regular<1>{t, m, walk::stepBound(m, tau0)}, walk::F1{x, t, m});
}

double cross_sco_overlap(long n, long m, double* x, double* y, double* u, double* v)
{
    return ofRates(n, m, 1, walk::Every{}, walk::F1{x, u, m}, walk::F1{y, v, m}); // no gap test
}
