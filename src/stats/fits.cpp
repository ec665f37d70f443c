#include "stats/fits.h"

#include <algorithm>
#include <cmath>

namespace {

// The powers of x up to the fourth leave plain double too few digits for a phase with an offset. So the sums
// are kept in extended precision, and fed block by block from plain ones counted from the block's first
// point, which are small.
using Real = long double;

double apart(double a, double b)
{
    return a - b;
}

double apart(long a, long b)
{
    return static_cast<double>(static_cast<Real>(a) - static_cast<Real>(b));
}

struct PowerSums {
    Real u1 = 0, u2 = 0, u3 = 0, u4 = 0, v = 0, uv = 0, uuv = 0;
};

/// Adds the sums of `count` points with (u, v) = (du + shift, dv + rise).
void addShifted(PowerSums& sums, Real count, const PowerSums& d, Real shift, Real rise)
{
    const Real s = shift, ss = s * s;
    sums.u1 += d.u1 + count * s;
    sums.u2 += d.u2 + 2 * s * d.u1 + count * ss;
    sums.u3 += d.u3 + 3 * s * d.u2 + 3 * ss * d.u1 + count * ss * s;
    sums.u4 += d.u4 + 4 * s * d.u3 + 6 * ss * d.u2 + 4 * ss * s * d.u1 + count * ss * ss;
    const Real dv = d.v + count * rise, duv = d.uv + rise * d.u1, duuv = d.uuv + rise * d.u2;
    sums.v += dv;
    sums.uv += duv + s * dv;
    sums.uuv += duuv + 2 * s * duv + ss * dv;
}

template <class X> PowerSums powerSums(int n, const X* x, const double* y)
{
    constexpr int blockSize = 512;
    PowerSums sums;
    for (int first = 0; first < n; first += std::min(blockSize, n - first)) {
        const int end = first + std::min(blockSize, n - first);
        double u1 = 0, u2 = 0, u3 = 0, u4 = 0, v1 = 0, uv = 0, uuv = 0;
        for (int i = first; i < end; ++i) {
            const double u = apart(x[i], x[first]), v = y[i] - y[first], uu = u * u;
            u1 += u;
            u2 += uu;
            u3 += uu * u;
            u4 += uu * uu;
            v1 += v;
            uv += u * v;
            uuv += uu * v;
        }
        addShifted(sums, end - first, {u1, u2, u3, u4, v1, uv, uuv}, static_cast<Real>(x[first]), y[first]);
    }
    return sums;
}

template <class X> bool parabola(int n, const X* x, const double* y, double* q, double* l, double* c)
{
    if (n < 5) {
        *q = 0.0;
        *c = 0.0;
        *l = 100000000.0; // marks a fit without enough points
        return false;
    }
    const PowerSums sums = powerSums(n, x, y);
    const Real s1 = sums.u1, s2 = sums.u2, s3 = sums.u3, s4 = sums.u4;
    const Real t0 = sums.v, t1 = sums.uv, t2 = sums.uuv;
    const Real count = static_cast<Real>(n);
    const Real determinant =
        s1 * s2 * s3 + s1 * s3 * s2 + count * s2 * s4 - s2 * s2 * s2 - s1 * s1 * s4 - count * s3 * s3;
    if (std::fabs(determinant) < 1e-30L)
        return false;
    *c = static_cast<double>(
        (s2 * t1 * s3 + t2 * s1 * s3 + t0 * s2 * s4 - t2 * s2 * s2 - s1 * t1 * s4 - t0 * s3 * s3)
        / determinant);
    *l = static_cast<double>(
        (t2 * s1 * s2 + t0 * s3 * s2 + count * t1 * s4 - s2 * s2 * t1 - s4 * t0 * s1 - count * s3 * t2)
        / determinant);
    *q = static_cast<double>(
        (t0 * s1 * s3 + s1 * t1 * s2 + count * s2 * t2 - t0 * s2 * s2 - t2 * s1 * s1 - s3 * count * t1)
        / determinant);
    return true;
}

}

double Trend(long n, double* x, double* y, double* slope)
{
    if (n < 3)
        return 0.0;
    double u1 = 0.0, v1 = 0.0, uv = 0.0, uu = 0.0;
    for (long i = 0; i < n; ++i) {
        const double u = x[i] - x[0], v = y[i] - y[0]; // from y[0] too: a phase offset then costs no digits
        u1 += u;
        v1 += v;
        uv += u * v;
        uu += u * u;
    }
    const double count = static_cast<double>(n);
    const double meanU = u1 / count, meanV = v1 / count;
    *slope = (uv / count - meanU * meanV) / (uu / count - meanU * meanU);
    return y[0] + (meanV - meanU * *slope);
}

bool Parab(int n, long* x, double* y, double* q, double* l, double* c)
{
    return parabola(n, x, y, q, l, c);
}

bool Parab(int n, double* x, double* y, double* q, double* l, double* c)
{
    return parabola(n, x, y, q, l, c);
}

double linreg(int count, QVector<QPair<double, double>> points, double& intercept, double& error)
{
    const int used = std::min(count, points.size());
    if (used < 1)
        return 1.0;
    // Counted from the first point: an epoch or a phase offset then costs no digits, and equal x are found
    // exactly.
    const QPair<double, double> origin = points.constFirst();
    const double number = used;
    double su = 0.0, sv = 0.0, suv = 0.0, suu = 0.0;
    for (int i = 0; i < used; ++i) {
        const double u = points.at(i).first - origin.first, v = points.at(i).second - origin.second;
        su += u;
        sv += v;
        suv += u * v;
        suu += u * u;
    }
    const double determinant = suu * number - su * su;
    if (determinant == 0.0)
        return 1.0; // not 0: the fixed answer for a line that has no slope
    const double slope = (number * suv - su * sv) / determinant;
    const double atOrigin = (suu * sv - suv * su) / determinant;
    double residuals = 0.0, spread = 0.0;
    for (int i = 0; i < used; ++i) {
        const double u = points.at(i).first - origin.first, v = points.at(i).second - origin.second;
        const double miss = v - (slope * u + atOrigin);
        residuals += miss * miss;
        spread += (u - su / number) * (u - su / number);
    }
    intercept = origin.second + atOrigin - slope * origin.first;
    error = std::sqrt((residuals / (number - 2.0)) / ((spread / number) * number));
    return slope;
}
