#include "stats/deviations.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/walk.h"

#include <cmath>

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

double gapThreshold(long m, double tau0)
{
    return static_cast<double>(2 * m) * tau0;
}

}

double hadamard_scdo(long n, long m, double* x)
{
    if (guards::reaches(3, m, n))
        return 0.0;
    const walk::Total squares = walk::total({0, n - 3 * m, m}, walk::square(walk::D3{x, m}), walk::Every{});
    return std::sqrt(squares.sum / squares.count / 6.0) / static_cast<double>(m);
}

double hadamard_scdo(long n, long m, double* x, double* t, double tau0)
{
    if (guards::reaches(3, m, n))
        return 0.0;
    const walk::Regular<3> gate{t, m, gapThreshold(m, tau0)};
    const walk::Total squares = walk::total({0, n - 3 * m, m}, walk::square(walk::F3{x, t, m}), gate);
    return std::sqrt(squares.sum / squares.count / 6.0);
}

double hadamard_scdo_overlap(long n, long m, double* x)
{
    if (guards::reaches(3, m, n))
        return 0.0;
    const walk::Total squares = walk::total({0, n - 3 * m, 1}, walk::square(walk::D3{x, m}), walk::Every{});
    return std::sqrt(squares.sum / squares.count) / static_cast<double>(m) / 6.0; // the 6 outside the root
}

double hadamard_scdo_overlap(long n, long m, double* x, double* t, double tau0)
{
    if (guards::reaches(3, m, n))
        return 0.0;
    const LastStepEitherWay gate{t, m, gapThreshold(m, tau0)}; // d3 is not tested for being positive
    const walk::Total squares = walk::total({0, n - 3 * m, 1}, walk::square(walk::F3{x, t, m}), gate);
    return std::sqrt(squares.sum / squares.count / 6.0);
}
