#include "stats/deviations.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/walk.h"

#include <cmath>

namespace {

/// What the drift has changed from the first to the last first difference.
double driftSpan(long n, long m, const double* x)
{
    return (x[n - 1] - x[n - 1 - m]) - (x[m] - x[0]);
}

/// The forms without times: sqrt(0.5 sum (D2-centre)^2 / C) / m.
double spreadOfDifferences(const walk::Grid& grid, const walk::D2& difference, double centre)
{
    const walk::Total squares = walk::total(grid, walk::squareAbout(difference, centre), walk::Every{});
    return std::sqrt(squares.sum * 0.5 / squares.count) / static_cast<double>(difference.m);
}

/// The forms with times: the first pass finds the mean, the second the spread about it.
double spreadOfRateDifferences(const walk::Grid& grid, const walk::F2& difference, double tau0)
{
    const walk::Regular<2> gate{difference.t, difference.m, static_cast<double>(2 * difference.m) * tau0};
    const double centre = walk::total(grid, difference, gate).mean();
    const walk::Total squares = walk::total(grid, walk::squareAbout(difference, centre), gate);
    return std::sqrt(squares.sum * 0.5 / squares.count);
}

}

double scdo(long n, long m, double* x)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x);
    const long steps = (n - 2 * m) / m; // cut to a whole number: 0 below n = 3m, and then no finite value
    return spreadOfDifferences({0, n - 2 * m, m}, {x, m}, driftSpan(n, m, x) / static_cast<double>(steps));
}

double scdo_upd(long n, long m, double* x)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x);
    const double centre = driftSpan(n, m, x) / static_cast<double>(n - 1); // n-1 steps at a stride of m
    return spreadOfDifferences({0, n - 2 * m, m}, {x, m}, centre);
}

double scdo_overlap(long n, long m, double* x)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x);
    const double centre = driftSpan(n, m, x) / static_cast<double>(n - 1);
    return spreadOfDifferences({0, n - 2 * m, 1}, {x, m}, centre);
}

double scdo(long n, long m, double* x, double* t, double tau0)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x, t);
    return spreadOfRateDifferences({0, n - 2 * m, m}, {x, t, m}, tau0);
}

double scdo_overlap(long n, long m, double* x, double* t, double tau0)
{
    if (guards::passes(2, m, n))
        return 0.0;
    if (n == 2 * m)
        return guards::twoPoints(m, x, t);
    return spreadOfRateDifferences({0, n - 2 * m, 1}, {x, t, m}, tau0);
}
