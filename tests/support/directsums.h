#pragma once

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

/// Reference sums for the tests of the statistics.
namespace direct {

using Real = long double;

struct Series {
    std::vector<double> x, t;
    double tau0 = 1.0;
    long n() const { return static_cast<long>(x.size()); }
};

/// From the stamp i to the next, s.
inline double stepAfter(long i)
{
    switch (i) {
    case 4:
        return 2.0;
    case 7:
        return 2.5;
    case 19:
        return 0.0;
    case 31:
        return -1.0;
    default:
        return i % 97 == 96 ? 40.0 : 1.0 + static_cast<double>(i % 5) / 1024.0;
    }
}

/// Noise at one sample a second with gaps, two equal time stamps and one that steps back. The stamps are
/// exact, and for m = 1 the step of 2 s, with the 1 s after it, lies on the gap thresholds.
inline Series roughSeries(long n)
{
    std::mt19937 source(7);
    std::normal_distribution<double> noise(0.0, 1.0);
    Series s;
    double now = 100.0, phase = 3.0;
    for (long i = 0; i < n; ++i) {
        s.x.push_back(phase += 0.1 + noise(source));
        s.t.push_back(now);
        now += stepAfter(i);
    }
    return s;
}

/// White noise; a count below 1 gives nothing.
inline std::vector<double> noise(long n, double sigma = 1.0)
{
    static std::mt19937 source(6);
    std::normal_distribution<double> value(0.0, sigma);
    std::vector<double> made(n > 0 ? static_cast<std::size_t>(n) : 0);
    for (double& v : made)
        v = value(source);
    return made;
}

enum class Gate { Every, Rising, Bounded, BoundedSum, LastEitherWay };

/// The kernels as straight sums in extended precision, written from the textbook differences.
class Direct {
public:
    Direct(const Series& series, long factor, long samples)
        : s(series)
        , m(factor)
        , n(samples)
    {
    }

    Real X(long i) const { return s.x[static_cast<std::size_t>(i)]; }
    Real T(long i) const { return s.t[static_cast<std::size_t>(i)]; }
    Real M() const { return static_cast<Real>(m); }

    std::vector<Real> terms(int order, long stride, bool rates, Gate gate) const
    {
        std::vector<Real> out;
        for (long i = 0; i < n - order * m; i += stride) {
            if (!admitted(order, i, gate))
                continue;
            static const int binomial[3][3] = {{1, 0, 0}, {-1, 1, 0}, {1, -2, 1}};
            Real term = 0;
            for (int k = 0; k < order; ++k) {
                const Real step = X(i + (k + 1) * m) - X(i + k * m);
                term += binomial[order - 1][k] * (rates ? step / (T(i + (k + 1) * m) - T(i + k * m)) : step);
            }
            out.push_back(term);
        }
        return out;
    }

    /// sum (a-ca)(b-cb) of two sets of terms.
    static Real products(const std::vector<Real>& a, const std::vector<Real>& b, Real ca = 0, Real cb = 0)
    {
        Real all = 0;
        for (std::size_t k = 0; k < a.size(); ++k)
            all += (a[k] - ca) * (b[k] - cb);
        return all;
    }

    static Real squares(const std::vector<Real>& values, Real centre = 0)
    {
        return products(values, values, centre, centre);
    }

    static Real mean(const std::vector<Real>& values)
    {
        Real all = 0;
        for (const Real v : values)
            all += v;
        return all / static_cast<Real>(values.size());
    }

    Real sco(long stride, Gate gate) const
    {
        const auto v = terms(1, stride, true, gate);
        return std::sqrt(squares(v, mean(v)) / (static_cast<Real>(v.size()) - 1));
    }
    Real scdo(long stride, Real divisor) const
    {
        const auto v = terms(2, stride, false, Gate::Every);
        const Real c = (X(n - 1) - X(n - 1 - m) - X(m) + X(0)) / divisor;
        return std::sqrt(squares(v, c) / 2 / static_cast<Real>(v.size())) / M();
    }
    Real scdoTimed(long stride) const
    {
        const auto v = terms(2, stride, true, Gate::Bounded);
        return std::sqrt(squares(v, mean(v)) / 2 / static_cast<Real>(v.size()));
    }
    Real rootMeanSquare(int order, long stride, bool rates, Gate gate, Real divisor) const
    {
        const auto v = terms(order, stride, rates, gate);
        return std::sqrt(squares(v) / static_cast<Real>(v.size()) / divisor);
    }
    Real modified(bool timed) const
    {
        Real all = 0;
        for (long i = 0; i <= n - 3 * m; ++i) {
            Real inner = 0;
            for (long j = i; j < i + m; ++j) {
                const Real x0 = X(j), x1 = X(j + m), x2 = X(j + 2 * m);
                if (!timed)
                    inner += x2 - 2 * x1 + x0;
                else if (T(j + m) + T(j) > 0 && T(j + 2 * m) - T(j + m) > 0)
                    inner += (x2 - x1) / (T(j + 2 * m) - T(j + m)) - (x1 + x0) / (T(j + m) + T(j));
            }
            all += inner * inner;
        }
        return std::sqrt(all / 2 / static_cast<Real>(n - 3 * m + 1)) / (timed ? 1 : M() * M());
    }

    const Series& s;
    const long m;
    const long n;

private:
    bool admitted(int order, long i, Gate gate) const
    {
        double d[3] = {};
        for (int k = 0; k < order; ++k)
            d[k] = static_cast<double>(T(i + (k + 1) * m) - T(i + k * m));
        const double twice = 2.0 * static_cast<double>(m) * s.tau0;
        bool good = true;
        for (int k = 0; k < order && gate != Gate::Every; ++k) {
            if (!(d[k] > 0.0) && !(gate == Gate::LastEitherWay && k == 2))
                good = false;
            if ((gate == Gate::Bounded || gate == Gate::LastEitherWay) && !(d[k] < twice))
                good = false;
        }
        if (gate == Gate::BoundedSum && !(d[0] + d[1] < 1.5 * twice))
            good = false;
        return good;
    }
};

}
