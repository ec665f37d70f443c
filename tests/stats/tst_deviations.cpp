#include "stats/deviations.h"

#include "record/doublearray.h"
#include "support/directsums.h"
#include "support/near.h"

#include <QElapsedTimer>
#include <QTest>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace {

using namespace direct;

enum Family { Sco, Scdo, Modified, Hadamard };

struct Kernel {
    const char* name;
    Family family;
    bool timed;
    std::function<double(long n, long m, Series& s)> call;
    std::function<Real(const Direct& d)> direct;
};

#define PLAIN(name) [](long n, long m, Series& s) { return name(n, m, s.x.data()); }
#define TIMED(name) [](long n, long m, Series& s) { return name(n, m, s.x.data(), s.t.data(), s.tau0); }

double overDays(long n, long m, Series& s)
{
    doubleArray x(700), t(700);
    x.append(s.x.data(), static_cast<int>(s.n()));
    t.append(s.t.data(), static_cast<int>(s.n()));
    return alan_scdo(n, m, x, t, s.tau0);
}

const std::vector<Kernel>& kernels()
{
    static const std::vector<Kernel> all = {
        {"sco", Sco, false, PLAIN(sco),
            [](const Direct& d) {
                const long k = static_cast<long>(std::floor(static_cast<double>(d.n) / d.m - 1.0));
                const Real divisor = static_cast<Real>(k);
                const Real centre = (d.X(d.m * k) - d.X(0)) / divisor;
                return std::sqrt(Direct::squares(d.terms(1, d.m, false, Gate::Every), centre) / divisor)
                    / d.M();
            }},
        {"sco timed", Sco, true, TIMED(sco), [](const Direct& d) { return d.sco(d.m, Gate::Bounded); }},
        {"sco_Nepr", Sco, true,
            [](long n, long m, Series& s) { return sco_Nepr(n, m, s.x.data(), s.t.data()); },
            [](const Direct& d) { return d.sco(d.m, Gate::Rising); }},
        {"sco_overlap", Sco, false, PLAIN(sco_overlap),
            [](const Direct& d) {
                const Real divisor = static_cast<Real>(d.n - d.m - 1);
                auto v = d.terms(1, 1, false, Gate::Every);
                for (Real& value : v)
                    value /= d.M();
                return std::sqrt(Direct::squares(v, (d.X(d.n - 1) - d.X(0)) / divisor) / divisor) / d.M();
            }},
        {"sco_overlap timed", Sco, true, TIMED(sco_overlap),
            [](const Direct& d) { return d.sco(1, Gate::Bounded); }},
        {"scdo", Scdo, false, PLAIN(scdo),
            [](const Direct& d) { return d.scdo(d.m, static_cast<Real>((d.n - 2 * d.m) / d.m)); }},
        {"scdo_upd", Scdo, false, PLAIN(scdo_upd),
            [](const Direct& d) { return d.scdo(d.m, static_cast<Real>(d.n - 1)); }},
        {"scdo_overlap", Scdo, false, PLAIN(scdo_overlap),
            [](const Direct& d) { return d.scdo(1, static_cast<Real>(d.n - 1)); }},
        {"scdo timed", Scdo, true, TIMED(scdo), [](const Direct& d) { return d.scdoTimed(d.m); }},
        {"scdo_overlap timed", Scdo, true, TIMED(scdo_overlap),
            [](const Direct& d) { return d.scdoTimed(1); }},
        {"alan_scdo", Scdo, false, PLAIN(alan_scdo),
            [](const Direct& d) { return d.rootMeanSquare(2, d.m, false, Gate::Every, 2) / d.M(); }},
        {"alan_scdo timed", Scdo, true, TIMED(alan_scdo),
            [](const Direct& d) { return d.rootMeanSquare(2, d.m, true, Gate::BoundedSum, 2); }},
        {"alan_scdo over days", Scdo, true, overDays,
            [](const Direct& d) { return d.rootMeanSquare(2, d.m, true, Gate::BoundedSum, 2); }},
        {"alan_scdo_overlap", Scdo, false,
            [](long n, long m, Series& s) { return alan_scdo_overlap(n, m, s.x.data(), 5.0); },
            [](const Direct& d) { return d.rootMeanSquare(2, 1, false, Gate::Every, 2) / d.M(); }},
        {"alan_scdo_overlap timed", Scdo, true, TIMED(alan_scdo_overlap),
            [](const Direct& d) { return d.rootMeanSquare(2, 1, true, Gate::Rising, 2); }},
        {"mod_alan_scdo_unimpr", Modified, false, PLAIN(mod_alan_scdo_unimpr),
            [](const Direct& d) { return d.modified(false); }},
        {"mod_alan_scdo", Modified, false, PLAIN(mod_alan_scdo),
            [](const Direct& d) { return d.modified(false); }},
        {"mod_alan_scdo timed", Modified, true, TIMED(mod_alan_scdo),
            [](const Direct& d) { return d.modified(true); }},
        {"hadamard_scdo", Hadamard, false, PLAIN(hadamard_scdo),
            [](const Direct& d) { return d.rootMeanSquare(3, d.m, false, Gate::Every, 6) / d.M(); }},
        {"hadamard_scdo timed", Hadamard, true, TIMED(hadamard_scdo),
            [](const Direct& d) { return d.rootMeanSquare(3, d.m, true, Gate::Bounded, 6); }},
        {"hadamard_scdo_overlap", Hadamard, false, PLAIN(hadamard_scdo_overlap),
            [](const Direct& d) { return d.rootMeanSquare(3, 1, false, Gate::Every, 1) / d.M() / 6; }},
        {"hadamard_scdo_overlap timed", Hadamard, true, TIMED(hadamard_scdo_overlap),
            [](const Direct& d) { return d.rootMeanSquare(3, 1, true, Gate::LastEitherWay, 6); }},
    };
    return all;
}

/// The longest series that is too short for m.
long longestRefused(Family family, long m)
{
    return family == Sco ? m : family == Scdo ? 2 * m - 1 : 3 * m;
}

/// 1001 phases of the published 1000-point test series.
Series publishedSeries()
{
    Series s;
    long long state = 1234567890;
    double phase = 0.0;
    for (int i = 0; i <= 1000; ++i) {
        s.x.push_back(phase);
        s.t.push_back(i);
        phase += static_cast<double>(state) / 2147483647.0;
        state = state * 16807 % 2147483647;
    }
    return s;
}

}

class TestDeviations : public QObject {
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
        Series s = roughSeries(5003);
        const long lengths[] = {7, 8, 9, 10, 11, 12, 13, 40, 101, 5003};
        const long factors[] = {1, 2, 3, 4, 5, 10, 33, 600};
        for (const long n : lengths) {
            for (const long m : factors) {
                const bool twoPoints = kernel.family != Hadamard && n == longestRefused(kernel.family, m) + 1;
                if (n <= longestRefused(kernel.family, m) || twoPoints)
                    continue;
                const double want = static_cast<double>(kernel.direct(Direct(s, m, n)));
                const QString line = nearly(kernel.call(n, m, s), want, 1e-11);
                QVERIFY2(line.isEmpty(), qPrintable(QString("n %1 m %2: ").arg(n).arg(m) + line));
            }
        }
    }

    void guards_data() { directSums_data(); }
    void guards()
    {
        QFETCH(int, index);
        const Kernel& kernel = kernels()[static_cast<std::size_t>(index)];
        Series s = roughSeries(40);
        const long most = std::numeric_limits<long>::max();
        for (const long m : {0L, -1L, -3L, most, most / 2 + 1, most / 3 + 1, -most - 1, 41L})
            QCOMPARE(kernel.call(40, m, s), 0.0);
        for (const long m : {1L, 3L, 4L}) {
            const long shortest = longestRefused(kernel.family, m) + 1;
            QCOMPARE(kernel.call(shortest - 1, m, s), 0.0);
            QCOMPARE(kernel.call(0, m, s), 0.0);
            QCOMPARE(kernel.call(-5, m, s), 0.0);
            if (kernel.family == Hadamard)
                continue;
            const std::size_t k = static_cast<std::size_t>(m);
            const double span = kernel.timed ? s.t[k] - s.t[0] : static_cast<double>(m);
            NEAR(kernel.call(shortest, m, s), std::fabs(s.x[k] - s.x[0]) / span, 1e-15);
        }
    }

    void badSamples_data() { directSums_data(); }
    void badSamples()
    {
        QFETCH(int, index);
        const Kernel& kernel = kernels()[static_cast<std::size_t>(index)];
        for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
            Series s = roughSeries(300);
            s.x[150] = bad;
            QVERIFY(!std::isfinite(kernel.call(300, 3, s)));
            Series late = roughSeries(300);
            late.t[150] = bad;
            kernel.call(300, 3, late);
        }
        if (!kernel.timed)
            return;
        Series still = roughSeries(60);
        still.t.assign(60, kernel.family == Modified ? -1.0 : 5.0);
        const double none = kernel.call(60, 2, still);
        if (kernel.family == Modified)
            QCOMPARE(none, 0.0);
        else
            QVERIFY(std::isnan(none));
    }

    void published_data()
    {
        QTest::addColumn<int>("m");
        QTest::addColumn<QList<double>>("want");
        QTest::newRow("1") << 1
                           << QList<double>{2.922319e-1, 2.922319e-1, 2.922319e-1, 2.943883e-1, 2.943883e-1};
        QTest::newRow("10") << 10
                            << QList<double>{9.965736e-2, 9.159953e-2, 6.172376e-2, 1.052754e-1, 9.581083e-2};
        QTest::newRow("100") << 100
                             << QList<double>{
                                    3.897804e-2, 3.241343e-2, 2.170921e-2, 3.910860e-2, 3.237638e-2};
    }
    void published()
    {
        QFETCH(int, m);
        QFETCH(QList<double>, want);
        Series s = publishedSeries();
        double *x = s.x.data(), *t = s.t.data();
        const long n = s.n();
        NEAR(alan_scdo(n, m, x), want[0], 3e-7);
        NEAR(alan_scdo(n, m, x, t, 1.0), want[0], 3e-7);
        NEAR(alan_scdo_overlap(n, m, x, 1.0), want[1], 3e-7);
        NEAR(alan_scdo_overlap(n, m, x, t, 1.0), want[1], 3e-7);
        NEAR(mod_alan_scdo(n, m, x), want[2], 3e-7);
        NEAR(hadamard_scdo(n, m, x), want[3], 3e-7);
        NEAR(hadamard_scdo(n, m, x, t, 1.0), want[3], 3e-7);
        NEAR(hadamard_scdo_overlap(n, m, x, t, 1.0), want[4], 3e-7);
        // The form without times has the 6 outside the root: the published value divided by sqrt(6).
        NEAR(hadamard_scdo_overlap(n, m, x), want[4] / std::sqrt(6.0), 3e-7);
    }

    void wholeScaleAtOnce()
    {
        Series s = roughSeries(1000);
        long steps[] = {0, -2, 1, 7, 333, 334, 500, std::numeric_limits<long>::max()};
        long count = 8;
        const std::unique_ptr<double[]> got(mod_alan_deviation(1000, steps, count, 0.5, s.x.data()));
        QCOMPARE(count, 3L);
        for (int k = 0; k < 3; ++k) {
            // 333 leaves n = 3m+1: two positions and no two-point value
            const Real want = Direct(s, steps[k + 2], 1000).modified(false) / 0.5L;
            NEAR(got[static_cast<std::size_t>(k)], static_cast<double>(want), 1e-11);
        }
        long none = 0;
        const std::unique_ptr<double[]> empty(mod_alan_deviation(1000, steps, none, 1.0, s.x.data()));
        QVERIFY(empty && none == 0);
        for (long bad : {-1L, std::numeric_limits<long>::max()})
            QVERIFY_EXCEPTION_THROWN(
                mod_alan_deviation(1000, steps, bad, 1.0, s.x.data()), std::bad_array_new_length);
    }

    void runningSumThroughExactZeros()
    {
        // Whole numbers between flat stretches: the running sum is exact, falls to zero often and starts
        // afresh.
        Series s;
        for (int i = 0; i < 4000; ++i)
            s.x.push_back(i / 300 % 2 ? i * i % 11 : 2.0);
        for (const long m : {3L, 10L, 200L}) {
            const double want = static_cast<double>(Direct(s, m, 4000).modified(false));
            NEAR(mod_alan_scdo(4000, m, s.x.data()), want, 1e-12);
        }
        // A ramp rounded to doubles: sums of a few last places, often exactly zero. Starting afresh every
        // time would take a minute; the last sample shows that the sums are still right at the end.
        QElapsedTimer clock;
        clock.start();
        s.x.resize(4000000);
        for (std::size_t i = 0; i < s.x.size(); ++i)
            s.x[i] = 1e-6 * static_cast<double>(i);
        QVERIFY(mod_alan_scdo(4000000, 200000, s.x.data()) < 1e-22);
        s.x.back() += 1.0;
        NEAR(mod_alan_scdo(4000000, 200000, s.x.data()), std::sqrt(0.5 / 3400001.0) / 4e10, 1e-9);
        QVERIFY(clock.elapsed() < 10000);
    }

    void largeOffsetCostsNoDigits()
    {
        // 1 s of offset and 1e-6 of frequency on white frequency noise of 1e-15 s a step, at whole seconds
        // and at stamps that no double holds.
        const long n = 2000000;
        for (const double tau0 : {1.0, 0.1}) {
            Series s;
            s.tau0 = tau0;
            std::mt19937_64 source(3);
            std::normal_distribution<double> noise(0.0, 1e-15);
            double walk = 1.0;
            for (long i = 0; i < n; ++i) {
                s.t.push_back(tau0 * static_cast<double>(i));
                s.x.push_back((walk += noise(source)) + 1e-6 * s.t.back());
            }
            for (const Kernel& kernel : kernels()) {
                if (kernel.family == Modified || QByteArray(kernel.name).contains("days"))
                    continue; // a reference of n*m terms; a form without care for the last digits
                for (const long m : {10L, 1000L}) {
                    const double want = static_cast<double>(kernel.direct(Direct(s, m, n)));
                    const QString line = nearly(kernel.call(n, m, s), want, 1e-10);
                    QVERIFY2(line.isEmpty(), qPrintable(QString("%1 m %2: ").arg(kernel.name).arg(m) + line));
                }
            }
        }
    }

    void longerThanAnIndex()
    {
        Series s = roughSeries(60);
        QCOMPARE(overDays(1L << 31, 1, s), 0.0);
    }

    void equalStampsAtTheLastStep()
    {
        Series s = roughSeries(60);
        for (std::size_t i = 0; i < 60; ++i)
            s.t[i] = static_cast<double>(i);
        s.t[33] = s.t[32];
        QVERIFY(std::isinf(hadamard_scdo_overlap(60, 1, s.x.data(), s.t.data(), 1.0)));
        QVERIFY(std::isfinite(hadamard_scdo(60, 1, s.x.data(), s.t.data(), 1.0)));
    }
};

QTEST_APPLESS_MAIN(TestDeviations)
#include "tst_deviations.moc"
