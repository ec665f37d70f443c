#include "stats/cross.h"
#include "stats/deviations.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/shift.h"
#include "stats/walk.h"

// A body takes one series for a deviation and two for a cross deviation.

namespace {

/// What the drift has changed from the first to the last first difference.
double driftSpan(long n, long m, const double* x)
{
    return (x[n - 1] - x[n - 1 - m]) - (x[m] - x[0]);
}

/// @name The number of steps that the drift is spread over
/// @{
long wholeSteps(long n, long m)
{
    return (n - 2 * m) / m; // cut to a whole number: 0 below n = 3m, and then no finite value
}
long sampleSteps(long n, long)
{
    return n - 1; // at a stride of m too
}
/// @}

template <class... X>
double ofDifferences(long n, long m, long stride, long (*stepsOfDrift)(long, long), const X*... x)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x...);
    const double steps = static_cast<double>(stepsOfDrift(n, m));
    const auto products =
        walk::product(walk::about(walk::D2{x, m}, static_cast<long double>(driftSpan(n, m, x)) / steps)...);
    const walk::Total all = walk::total({0, n - 2 * m, stride}, products, walk::Every{});
    return all.twoSampleRoot() / static_cast<double>(m);
}

/// The first pass over a series finds its mean, the last the spread about the means.
template <class Gate, class... Rate>
double ofRates(long n, long m, long stride, const Gate& gate, const Rate&... rate)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPointRates(rate...);
    const walk::Grid grid{0, n - 2 * m, stride};
    const auto spread = [&](const auto&... term) {
        const auto products = walk::product(walk::about(term, walk::mean(grid, term, gate))...);
        return walk::total(grid, products, gate).twoSampleRoot();
    };
    return walk::fromShifted(spread, grid, gate, rate...);
}

}

double scdo(long n, long m, double* x)
{
    return ofDifferences(n, m, m, wholeSteps, x);
}

double cross_scdo(long n, long m, double* x, double* y)
{
    return ofDifferences(n, m, m, wholeSteps, x, y);
}

double scdo_upd(long n, long m, double* x)
{
    return ofDifferences(n, m, m, sampleSteps, x);
}

double scdo_overlap(long n, long m, double* x)
{
    return ofDifferences(n, m, 1, sampleSteps, x);
}

double cross_scdo_overlap(long n, long m, double* x, double* y)
{
    return ofDifferences(n, m, 1, sampleSteps, x, y);
}

double scdo(long n, long m, double* x, double* t, double tau0)
{
    return ofRates(n, m, m, walk::Regular<2>{t, m, walk::stepBound(m, tau0)}, walk::F2{x, t, m});
}

double cross_scdo(long n, long m, double* x, double* y, double* u, double* v)
{
    return ofRates(n, m, m, walk::Every{}, walk::F2{x, u, m}, walk::F2{y, v, m}); // no gap test
}

double scdo_overlap(long n, long m, double* x, double* t, double tau0)
{
    return ofRates(n, m, 1, walk::Regular<2>{t, m, walk::stepBound(m, tau0)}, walk::F2{x, t, m});
}

double cross_scdo_overlap(long n, long m, double* x, double* y, double* u, double* v)
{
    return ofRates(n, m, 1, walk::Every{}, walk::F2{x, u, m}, walk::F2{y, v, m}); // no gap test
}
