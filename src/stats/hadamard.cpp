#include "stats/cross.h"
#include "stats/deviations.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/shift.h"
#include "stats/walk.h"

#include <cmath>

// A body takes one series for a deviation and two for a cross deviation.

namespace {

/// d1, d2 > 0 and d1, d2, d3 < bound.
struct LastStepEitherWay {
    const double* t;
    long m;
    double bound;
    template <class Place> auto operator()(Place at) const
    {
        return walk::Regular<2>{t, m, bound}(at) & (at(t + 3 * m) - at(t + 2 * m) < bound);
    }
};

/// sqrt(|mean product of the terms| / inside).
template <class Gate, class... Term>
double root(const walk::Grid& grid, double inside, const Gate& gate, const Term&... term)
{
    const walk::Total all = walk::total(grid, walk::product(term...), gate);
    return std::sqrt(std::fabs(all.sum / all.count) / inside);
}

template <class... X>
double ofDifferences(long n, long m, long stride, double inside, double outside, const X*... x)
{
    if (guards::reaches(3, m, n))
        return 0.0;
    const double value = root({0, n - 3 * m, stride}, inside, walk::Every{}, walk::D3{x, m}...);
    return value / static_cast<double>(m) / outside;
}

template <class Gate, class... Rate>
double ofRates(long n, long m, long stride, const Gate& gate, const Rate&... rate)
{
    if (guards::reaches(3, m, n))
        return 0.0;
    const walk::Grid grid{0, n - 3 * m, stride};
    const auto spread = [&](const auto&... term) { return root(grid, 6.0, gate, term...); };
    return walk::fromShifted(spread, grid, gate, rate...);
}

}

double hadamard_scdo(long n, long m, double* x)
{
    return ofDifferences(n, m, m, 6.0, 1.0, x);
}

double cross_hadamard_scdo(long n, long m, double* x, double* y)
{
    return ofDifferences(n, m, m, 1.0, 6.0, x, y); // the 6 outside the root, unlike hadamard_scdo
}

double hadamard_scdo_overlap(long n, long m, double* x)
{
    return ofDifferences(n, m, 1, 1.0, 6.0, x); // the 6 outside the root
}

double cross_hadamard_scdo_overlap(long n, long m, double* x, double* y)
{
    return ofDifferences(n, m, 1, 1.0, 6.0, x, y); // the 6 outside the root
}

double hadamard_scdo(long n, long m, double* x, double* t, double tau0)
{
    return ofRates(n, m, m, walk::Regular<3>{t, m, walk::stepBound(m, tau0)}, walk::F3{x, t, m});
}

double cross_hadamard_scdo(long n, long m, double* x, double* y, double* u, double* v)
{
    return ofRates(n, m, m, walk::Every{}, walk::F3{x, u, m}, walk::F3{y, v, m}); // no gap test
}

double hadamard_scdo_overlap(long n, long m, double* x, double* t, double tau0)
{
    const LastStepEitherWay gate{t, m, walk::stepBound(m, tau0)}; // d3 is not tested for being positive
    return ofRates(n, m, 1, gate, walk::F3{x, t, m});
}

double cross_hadamard_scdo_overlap(long n, long m, double* x, double* y, double* u, double* v)
{
    return ofRates(n, m, 1, walk::Every{}, walk::F3{x, u, m}, walk::F3{y, v, m}); // no gap test
}
