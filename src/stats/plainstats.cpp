#include "stats/plainstats.h"

#include "stats/differences.h"
#include "stats/walk.h"

#include <cmath>

namespace {

struct Value {
    const double* y;
    template <class Place> auto operator()(Place at) const { return at(y); }
};

double squaresAbout(long n, const double* y, double centre)
{
    return walk::total({0, n, 1}, walk::squareAbout(Value{y}, centre), walk::Every{}).sum;
}

double squaredStepsAbout(long n, const double* y, double centre)
{
    return walk::total({0, n - 1, 1}, walk::squareAbout(walk::D1{y, 1}, centre), walk::Every{}).sum;
}

}

double sco_phase(long n, double* y)
{
    if (n < 2)
        return 0.0;
    return std::sqrt(squaresAbout(n, y, aver(n, y)) / static_cast<double>(n));
}

double sco_a(long n, double* y, double* mean)
{
    return n == 1 ? std::fabs(y[0]) : sco_ad(n, y, mean);
}

double sco_ad(long n, double* y, double* mean)
{
    if (n < 1)
        return 0.0;
    if (n == 1)
        return y[0]; // with its sign, unlike sco_a
    *mean = aver(n, y);
    return std::sqrt(std::fabs(squaresAbout(n, y, *mean) / static_cast<double>(n - 1)));
}

double scdo_y(long n, double* y)
{
    if (n < 1)
        return 0.0;
    if (n == 1)
        return std::fabs(y[0]);
    const double steps = static_cast<double>(n - 1);
    const double centre = (y[n - 1] - y[0]) / steps;
    return std::sqrt(std::fabs(squaredStepsAbout(n, y, centre) / (2.0 * steps)));
}

double alan_sco2(long n, double* y, double start)
{
    if (n < 1)
        return 0.0;
    if (n == 1)
        return std::fabs(y[0]);
    const double steps = static_cast<double>(n - 1);
    return std::sqrt(std::fabs((start + squaredStepsAbout(n, y, 0.0)) / (2.0 * steps)));
}

double aver(long n, double* y)
{
    if (n < 1)
        return 0.0;
    // Four sums, since each addition waits for the one before it in the same sum.
    long double total[4] = {0.0L, 0.0L, 0.0L, 0.0L};
    long i = 0;
    for (; i + 4 <= n; i += 4) {
        for (long k = 0; k < 4; ++k)
            total[k] += static_cast<long double>(y[i + k]);
    }
    for (; i < n; ++i)
        total[0] += static_cast<long double>(y[i]);
    return static_cast<double>((total[0] + total[1] + total[2] + total[3]) / static_cast<long double>(n));
}

double sum(long n, double* y)
{
    double total = 0.0;
    for (long i = 0; i < n; ++i)
        total += y[i];
    return total;
}

double fmin(int n, double* y)
{
    if (!y)
        return 0.0;
    double least = y[0];
    for (int i = 1; i < n; ++i)
        least = y[i] < least ? y[i] : least;
    return least;
}

double fmax(int n, double* y)
{
    if (!y)
        return 0.0;
    double greatest = y[0];
    for (int i = 1; i < n; ++i)
        greatest = y[i] > greatest ? y[i] : greatest;
    return greatest;
}
