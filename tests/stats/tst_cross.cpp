#include "stats/cross.h"
#include "stats/deviations.h"
#include "support/directsums.h"
#include "support/near.h"

#include <QTest>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace {

using namespace direct;
using Plain = double (*)(long, long, double*, double*);
using Timed = double (*)(long, long, double*, double*, double*, double*);

/// Two measurements with a common oscillator on opposite sides, so that product sums are negative, each with
/// gaps and a step back in its own time scale.
struct Two {
    explicit Two(long n)
        : a(roughSeries(n))
        , b(a)
    {
        std::mt19937 source(11);
        std::normal_distribution<double> noise(0.0, 0.3);
        double now = 50.0;
        for (std::size_t i = 0; i < a.x.size(); ++i) {
            b.x[i] = 5.0 - 0.8 * a.x[i] + noise(source);
            b.t[i] = now;
            a.t[i] = now + (i > 60 ? 40.0 : 0.0);
            now += i == 31 ? -1.5 : i % 97 == 96 ? 30.0 : 1.0 + 1e-3 * static_cast<double>(i % 5);
        }
    }
    Series a, b;
};

/// The direct sum of products for one grid.
struct Sums {
    const Two& s;
    long m, n;
    std::vector<Real> terms(const Series& one, int order, long stride, bool rates) const
    {
        return Direct(one, m, n).terms(order, stride, rates, Gate::Every);
    }
    /// sqrt(|sum (a-ca)(b-cb) / divisor|); a divisor of 0 stands for the number of terms.
    Real root(int order, long stride, bool rates, Real ca = 0, Real cb = 0, Real divisor = 0) const
    {
        const auto a = terms(s.a, order, stride, rates), b = terms(s.b, order, stride, rates);
        const Real count = static_cast<Real>(a.size());
        return std::sqrt(std::fabs(Direct::products(a, b, ca, cb) / (divisor == 0 ? count : divisor)));
    }
    /// The same about the means; `lost` is taken off the number of terms.
    Real aboutMeans(int order, long stride, int lost) const
    {
        const auto a = terms(s.a, order, stride, true), b = terms(s.b, order, stride, true);
        const Real count = static_cast<Real>(a.size()) - lost;
        if (count == 0)
            return std::nan("");
        return root(order, stride, true, Direct::mean(a), Direct::mean(b), count);
    }
    /// A value about centres that `centre` makes of each series.
    Real centred(int order, long stride, Real divisor, const std::function<Real(const Direct&)>& centre) const
    {
        return root(order, stride, false, centre(Direct(s.a, m, n)), centre(Direct(s.b, m, n)), divisor);
    }
};

Real drift(const Direct& d)
{
    return d.X(d.n - 1) - d.X(d.n - 1 - d.m) - d.X(d.m) + d.X(0);
}

struct Kernel {
    const char* name;
    int order;
    Plain plain;
    Timed timed;
    std::function<Real(const Sums&)> direct;
    double call(long n, long m, Two& s) const
    {
        double *x = s.a.x.data(), *y = s.b.x.data();
        return plain ? plain(n, m, x, y) : timed(n, m, x, y, s.a.t.data(), s.b.t.data());
    }
    /// The longest series that is too short for m.
    long refused(long m) const { return order == 1 ? m : order == 2 ? 2 * m - 1 : 3 * m; }
};

const std::vector<Kernel>& kernels()
{
    static const std::vector<Kernel> all = {
        {"sco", 1, cross_sco, nullptr,
            [](const Sums& s) {
                const Real k = static_cast<Real>(s.n / s.m - 1);
                if (k == 0)
                    return std::nanl("");
                return s.centred(1, s.m, k, [k](const Direct& d) {
                    return (d.X(static_cast<long>(k) * d.m) - d.X(0)) / k;
                }) / s.m;
            }},
        {"sco timed", 1, nullptr, cross_sco, [](const Sums& s) { return s.aboutMeans(1, s.m, 1); }},
        {"sco_overlap", 1, cross_sco_overlap, nullptr,
            [](const Sums& s) {
                const Real e = static_cast<Real>(s.n - s.m - 1); // D1/m-c is (D1-c*m)/m
                return s.centred(1, 1, e, [e](const Direct& d) { return (d.X(d.n - 1) - d.X(0)) / e * d.m; })
                    / s.m;
            }},
        {"sco_overlap timed", 1, nullptr, cross_sco_overlap,
            [](const Sums& s) { return s.aboutMeans(1, 1, 1); }},
        {"scdo", 2, cross_scdo, nullptr,
            [](const Sums& s) {
                return s.centred(2, s.m, 0, [](const Direct& d) { return drift(d) / (d.n / d.m - 2); })
                    / std::sqrt(2.0L) / s.m;
            }},
        {"scdo timed", 2, nullptr, cross_scdo,
            [](const Sums& s) { return s.aboutMeans(2, s.m, 0) / std::sqrt(2.0L); }},
        {"scdo_overlap", 2, cross_scdo_overlap, nullptr,
            [](const Sums& s) {
                return s.centred(2, 1, 0, [](const Direct& d) { return drift(d) / (d.n - 1); })
                    / std::sqrt(2.0L) / s.m;
            }},
        {"scdo_overlap timed", 2, nullptr, cross_scdo_overlap,
            [](const Sums& s) { return s.aboutMeans(2, 1, 0) / std::sqrt(2.0L); }},
        {"alan", 2, cross_alan_scdo, nullptr,
            [](const Sums& s) { return s.root(2, s.m, false) / std::sqrt(2.0L) / s.m; }},
        {"alan timed", 2, nullptr, cross_alan_scdo,
            [](const Sums& s) { return s.root(2, s.m, true) / std::sqrt(2.0L); }},
        {"alan_overlap", 2, cross_alan_scdo_overlap, nullptr,
            [](const Sums& s) { return s.root(2, 1, false) / std::sqrt(2.0L) / s.m; }},
        {"alan_overlap timed", 2, nullptr, cross_alan_scdo_overlap,
            [](const Sums& s) { return s.root(2, 1, true) / std::sqrt(2.0L); }},
        {"hadamard", 3, cross_hadamard_scdo, nullptr,
            [](const Sums& s) { return s.root(3, s.m, false) / s.m / 6; }},
        {"hadamard timed", 3, nullptr, cross_hadamard_scdo,
            [](const Sums& s) { return s.root(3, s.m, true) / std::sqrt(6.0L); }},
        {"hadamard_overlap", 3, cross_hadamard_scdo_overlap, nullptr,
            [](const Sums& s) { return s.root(3, 1, false) / s.m / 6; }},
        {"hadamard_overlap timed", 3, nullptr, cross_hadamard_scdo_overlap,
            [](const Sums& s) { return s.root(3, 1, true) / std::sqrt(6.0L); }},
    };
    return all;
}

}

class TestCross : public QObject {
    Q_OBJECT
private slots:
    void directSums_data()
    {
        QTest::addColumn<int>("index");
        for (std::size_t k = 0; k < kernels().size(); ++k)
            QTest::newRow(kernels()[k].name) << static_cast<int>(k);
    }
    void directSums()
    {
        QFETCH(int, index);
        const Kernel& kernel = kernels()[static_cast<std::size_t>(index)];
        Two s(5003);
        for (const long n : {7L, 8L, 9L, 10L, 13L, 40L, 101L, 5003L}) {
            for (const long m : {1L, 2L, 3L, 4L, 5L, 33L, 600L}) {
                const bool twoPoints = kernel.order < 3 && n == kernel.refused(m) + 1;
                if (n <= kernel.refused(m) || twoPoints)
                    continue;
                const double got = kernel.call(n, m, s);
                const double want = static_cast<double>(kernel.direct({s, m, n}));
                const QString line = nearly(got, want, 1e-10);
                const bool neither = !std::isfinite(got) && !std::isfinite(want);
                QVERIFY2(line.isEmpty() || neither, qPrintable(QString("n %1 m %2: ").arg(n).arg(m) + line));
            }
        }
    }

    void guards_data() { directSums_data(); }
    void guards()
    {
        QFETCH(int, index);
        const Kernel& kernel = kernels()[static_cast<std::size_t>(index)];
        Two s(40);
        const long most = std::numeric_limits<long>::max();
        for (const long m : {0L, -1L, most, most / 2 + 1, most / 3 + 1, -most - 1, 41L})
            QCOMPARE(kernel.call(40, m, s), 0.0);
        for (const long m : {1L, 3L, 4L}) {
            for (const long n : {kernel.refused(m), 0L, -5L})
                QCOMPARE(kernel.call(n, m, s), 0.0);
            if (kernel.order == 3)
                continue;
            const Direct a(s.a, m, 40), b(s.b, m, 40);
            const Real spans = kernel.plain ? a.M() * a.M() : (a.T(m) - a.T(0)) * (b.T(m) - b.T(0));
            const Real want = std::sqrt(std::fabs((a.X(m) - a.X(0)) * (b.X(m) - b.X(0)) / spans));
            NEAR(kernel.call(kernel.refused(m) + 1, m, s), static_cast<double>(want), 1e-14);
        }
    }

    void badSamples_data() { directSums_data(); }
    void badSamples()
    {
        QFETCH(int, index);
        const Kernel& kernel = kernels()[static_cast<std::size_t>(index)];
        for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
            Two s(300);
            s.b.x[150] = bad;
            QVERIFY(!std::isfinite(kernel.call(300, 3, s)));
            Two late(300);
            late.a.t[150] = bad;
            // an infinite step is a rate of zero; equal stamps are not left out
            QCOMPARE(std::isfinite(kernel.call(300, 3, late)), kernel.plain || !std::isnan(bad));
            late.a.t[150] = late.a.t[153];
            QCOMPARE(std::isfinite(kernel.call(300, 3, late)), kernel.plain != nullptr);
        }
    }
};

QTEST_APPLESS_MAIN(TestCross)
#include "tst_cross.moc"
