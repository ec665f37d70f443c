#include "stats/parabolic.h"

#include "stats/deviations.h"
#include "support/near.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <numeric>
#include <random>
#include <vector>

namespace {

using Kernel = double* (*)(long, long*, long&, double, double*);

constexpr double tau0 = 0.5;

/// White phase noise of 1e-9 s on an offset, a frequency and a drift.
std::vector<double> series(int n, double offset = 0.0)
{
    std::mt19937 source(3);
    std::normal_distribution<double> noise(0.0, 1e-9);
    std::vector<double> x;
    for (int i = 0; i < n; ++i)
        x.push_back(offset + 1e-9 * i + 1e-13 * i * i + noise(source));
    return x;
}

/// The block sums as they are told, `last` being the last place of a block.
double direct(const std::vector<double>& x, long m, long last, double closing)
{
    const long K = long(x.size()) / m;
    std::vector<long double> A, B;
    for (long k = 0; k <= K - 2; ++k) {
        long double a = 0, b = 0;
        for (long j = 0; j <= last; ++j) {
            a += x[size_t(m * k + j)];
            b += static_cast<long double>(j) * x[size_t(m * k + j)];
        }
        A.push_back(a);
        B.push_back(b);
    }
    long double sum = 0;
    for (size_t k = 0; k + 1 < A.size(); ++k) {
        const long double d = (B[k] - B[k + 1]) - (A[k] - A[k + 1]) * 0.5L * static_cast<long double>(last);
        sum += d * d;
    }
    return double(std::sqrt(72.0L * sum / K)) / closing;
}

double directNew(const std::vector<double>& x, long m)
{
    return direct(x, m, m, (m + 1) * tau0 * m * (m + 2));
}

double directOld(const std::vector<double>& x, long m)
{
    return direct(x, m, m - 1, (m + 1) * tau0 * (m - 1) * (m + 1));
}

std::vector<double> run(Kernel kernel, std::vector<double> x, std::vector<long> steps)
{
    long count = long(steps.size());
    const std::unique_ptr<double[]> values(kernel(long(x.size()), steps.data(), count, tau0, x.data()));
    return {values.get(), values.get() + count};
}

}

Q_DECLARE_METATYPE(std::vector<long>)

class TestParabolic : public QObject {
    Q_OBJECT
private slots:
    void directSums_data()
    {
        QTest::addColumn<int>("n");
        QTest::addColumn<std::vector<long>>("steps");
        std::vector<long> all(48);
        std::iota(all.begin(), all.end(), 1);
        QTest::newRow("every factor") << 97 << all;
        QTest::newRow("doubling") << 10007 << std::vector<long>{1, 2, 4, 8, 16, 32, 64, 512, 4096};
        QTest::newRow("decades") << 10007 << std::vector<long>{10, 20, 50, 100, 200, 500, 1000, 2000, 5000};
        QTest::newRow("odd multiples, falling and equal")
            << 5000 << std::vector<long>{17, 51, 51, 34, 255, 16, 48, 2, 96, 17};
    }
    void directSums()
    {
        QFETCH(int, n);
        QFETCH(std::vector<long>, steps);
        const std::vector<double> x = series(n);
        const std::vector<double> fresh = run(new_rec_parabolic_deviation, x, steps);
        const std::vector<double> earlier = run(rec_parabolic_deviation, x, steps);
        // 1 s of offset leaves the samples 1e-16 s of rounding each
        const std::vector<double> shifted = run(new_rec_parabolic_deviation, series(n, 1.0), steps);
        QCOMPARE(fresh.size(), steps.size());
        QCOMPARE(earlier.size(), steps.size());
        for (size_t i = 0; i < steps.size(); ++i) {
            NEAR(fresh[i], directNew(x, steps[i]), 1e-11);
            NEAR(shifted[i], fresh[i], 1e-5);
            if (steps[i] > 1)
                NEAR(earlier[i], directOld(x, steps[i]), 1e-11);
        }
    }

    void closedForms()
    {
        const std::vector<double> x = series(1000);
        std::vector<double> copy = x;
        // With m = 1 the sum is that of the Allan deviation; the divisor is n, not n-2.
        const double allan = alan_scdo_overlap(1000, 1, copy.data(), 1.0) / tau0;
        NEAR(run(new_rec_parabolic_deviation, x, {1})[0], allan * std::sqrt(998.0 / 1000.0));
        NEAR(run(rec_parabolic_deviation, x, {1})[0], allan);
        QVERIFY(std::isnan(run(rec_parabolic_deviation, x, {2, 1})[1]));
    }

    void droppedFactors()
    {
        const std::vector<double> x = series(20);
        const long most = std::numeric_limits<long>::max();
        for (const Kernel kernel : {new_rec_parabolic_deviation, rec_parabolic_deviation}) {
            const std::vector<double> kept = run(kernel, x, {0, -1, -most - 1, 3, 10, most, 9, 11});
            QCOMPARE(kept.size(), size_t(2));
            QCOMPARE(kept[0], run(kernel, x, {2, 3})[1]);
            QCOMPARE(kept[1], 0.0); // a single block
            for (const int n : {0, 1, 2})
                QCOMPARE(run(kernel, series(n), {1, 2}).size(), size_t(0));
            QCOMPARE(run(kernel, series(3), {1, 2}).size(), size_t(1));
            QCOMPARE(run(kernel, {}, {}).size(), size_t(0));
            long count = -1, none = 5;
            QVERIFY_EXCEPTION_THROWN(kernel(20, &none, count, tau0, nullptr), std::bad_alloc);
            std::unique_ptr<double[]> empty(kernel(-5, &none, count = 1, tau0, nullptr));
            QCOMPARE(count, 0L);
        }
    }

    void notNumbers()
    {
        for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
            for (size_t at = 0; at < 100; ++at) {
                std::vector<double> x = series(100);
                x[at] = value;
                const std::vector<double> got = run(new_rec_parabolic_deviation, x, {7, 25, 32});
                const size_t lastRead[] = {91, 75, 64};
                for (size_t i = 0; i < got.size(); ++i)
                    QCOMPARE(std::isnan(got[i]), at <= lastRead[i]);
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestParabolic)
#include "tst_parabolic.moc"
