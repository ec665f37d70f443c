#include "stats/cross.h"
#include "stats/deviations.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/shift.h"
#include "stats/walk.h"

#include "record/doublearray.h"

#include <cmath>
#include <limits>

// A body takes one series for a deviation and two for a cross deviation.

namespace {

/// d1, d2 > 0 and d1+d2 < bound: the one family that bounds the sum of the two steps.
struct BoundedSum {
    const double* t;
    long m;
    double bound;
    template <class Place> auto operator()(Place at) const
    {
        const auto d1 = at(t + m) - at(t), d2 = at(t + 2 * m) - at(t + m);
        return (d1 > 0.0) & (d2 > 0.0) & (d1 + d2 < bound);
    }
};

double gapThreshold(long m, double tau0)
{
    return 3.0 * static_cast<double>(m) * tau0;
}

template <class... X> double ofDifferences(long n, long m, long stride, const X*... x)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x...);
    const auto products = walk::product(walk::D2{x, m}...);
    const walk::Total all = walk::total({0, n - 2 * m, stride}, products, walk::Every{});
    return all.twoSampleRoot() / static_cast<double>(m);
}

template <class Gate, class... Rate>
double ofRates(long n, long m, long stride, const Gate& gate, const Rate&... rate)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPointRates(rate...);
    const walk::Grid grid{0, n - 2 * m, stride};
    const auto spread = [&](const auto&... term) {
        return walk::total(grid, walk::product(term...), gate).twoSampleRoot();
    };
    return walk::fromShifted(spread, grid, gate, rate...);
}

}

double alan_scdo(long n, long m, double* x)
{
    return ofDifferences(n, m, m, x);
}

double cross_alan_scdo(long n, long m, double* x, double* y)
{
    return ofDifferences(n, m, m, x, y);
}

double alan_scdo(long n, long m, double* x, double* t, double tau0)
{
    return ofRates(n, m, m, BoundedSum{t, m, gapThreshold(m, tau0)}, walk::F2{x, t, m});
}

double cross_alan_scdo(long n, long m, double* x, double* y, double* u, double* v)
{
    return ofRates(n, m, m, walk::Every{}, walk::F2{x, u, m}, walk::F2{y, v, m}); // no gap test
}

double alan_scdo(long n, long m, doubleArray& x, doubleArray& t, double tau0)
{
    if (guards::passes(2, m, n) || n > std::numeric_limits<int>::max())
        return 0.0;
    const int step = static_cast<int>(m);
    if (n == 2 * m)
        return std::fabs(x[step] - x[0]) / (t[step] - t[0]);
    walk::Total squares;
    // A look-up costs more than a term: the window keeps the two samples that the next term needs again.
    double x0 = x[0], x1 = x[step], t0 = t[0], t1 = t[step];
    for (long i = 0; i < n - 2 * m; i += m) {
        const int newest = static_cast<int>(i + 2 * m);
        const double xs[] = {x0, x1, x[newest]}, ts[] = {t0, t1, t[newest]};
        const bool pass = BoundedSum{ts, 1, gapThreshold(m, tau0)}(walk::Single{0});
        squares.sum += walk::keep(pass, walk::square(walk::F2{xs, ts, 1})(walk::Single{0}));
        squares.count += walk::keep(pass, 1.0);
        x0 = x1;
        x1 = xs[2];
        t0 = t1;
        t1 = ts[2];
    }
    return squares.twoSampleRoot();
}

double alan_scdo_overlap(long n, long m, double* x, double)
{
    return ofDifferences(n, m, 1, x);
}

double cross_alan_scdo_overlap(long n, long m, double* x, double* y)
{
    return ofDifferences(n, m, 1, x, y);
}

double alan_scdo_overlap(long n, long m, double* x, double* t, double)
{
    // no upper bound: a gap only widens the terms that straddle it
    return ofRates(n, m, 1, walk::Rising<2>{t, m}, walk::F2{x, t, m});
}

double cross_alan_scdo_overlap(long n, long m, double* x, double* y, double* u, double* v)
{
    return ofRates(n, m, 1, walk::Every{}, walk::F2{x, u, m}, walk::F2{y, v, m}); // no gap test
}
