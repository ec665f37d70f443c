#include "stats/deviations.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/walk.h"

#include "record/doublearray.h"

#include <cmath>
#include <limits>

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
    return static_cast<double>(3 * m) * tau0;
}

double deviation(const walk::Total& squares)
{
    return std::sqrt(squares.sum * 0.5 / squares.count);
}

}

double alan_scdo(long n, long m, double* x)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x);
    const walk::Total squares = walk::total({0, n - 2 * m, m}, walk::square(walk::D2{x, m}), walk::Every{});
    return deviation(squares) / static_cast<double>(m);
}

double alan_scdo(long n, long m, double* x, double* t, double tau0)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x, t);
    const BoundedSum gate{t, m, gapThreshold(m, tau0)};
    return deviation(walk::total({0, n - 2 * m, m}, walk::square(walk::F2{x, t, m}), gate));
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
    return deviation(squares);
}

double alan_scdo_overlap(long n, long m, double* x, double)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x);
    const walk::Total squares = walk::total({0, n - 2 * m, 1}, walk::square(walk::D2{x, m}), walk::Every{});
    return deviation(squares) / static_cast<double>(m);
}

double alan_scdo_overlap(long n, long m, double* x, double* t, double)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x, t);
    const walk::Rising<2> gate{t, m}; // no upper bound: a gap only widens the terms that straddle it
    return deviation(walk::total({0, n - 2 * m, 1}, walk::square(walk::F2{x, t, m}), gate));
}
