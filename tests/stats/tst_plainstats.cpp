#include "stats/edf.h"
#include "stats/plainstats.h"
#include "support/near.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <vector>

class TestPlainStats : public QObject {
    Q_OBJECT
private slots:
    void smallCounts()
    {
        double y[] = {-4.0}, mean = 77.0;
        const auto each = [&](long n) {
            return QList<double>{sco_phase(n, y), sco_a(n, y, &mean), sco_ad(n, y, &mean), scdo_y(n, y),
                alan_sco2(n, y, 9.0), aver(n, y), sum(n, y), fmin(int(n), y), fmax(int(n), y)};
        };
        QCOMPARE(each(0), (QList<double>{0, 0, 0, 0, 0, 0, 0, -4, -4}));
        QCOMPARE(each(-3), (QList<double>{0, 0, 0, 0, 0, 0, 0, -4, -4}));
        QCOMPARE(each(1), (QList<double>{0, 4, -4, 4, 4, -4, -4, -4, -4}));
        QCOMPARE(mean, 77.0);
        QCOMPARE(fmin(0, static_cast<double*>(nullptr)), 0.0);
    }

    void knownSeries()
    {
        double y[] = {2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0}, mean = 0.0;
        QCOMPARE(aver(8, y), 5.0);
        QCOMPARE(sum(8, y), 40.0);
        QCOMPARE(sco_phase(8, y), 2.0);
        NEAR(sco_a(8, y, &mean), std::sqrt(32.0 / 7.0));
        QCOMPARE(mean, 5.0);
        mean = 0.0;
        NEAR(sco_ad(8, y, &mean), std::sqrt(32.0 / 7.0));
        QCOMPARE(mean, 5.0);
        NEAR(scdo_y(8, y), std::sqrt(6.0 / 14.0)); // squared steps 13, less 7*1*1
        NEAR(alan_sco2(8, y, 0.0), std::sqrt(13.0 / 14.0));
        NEAR(alan_sco2(8, y, -41.0), std::sqrt(2.0)); // of the absolute value
        QCOMPARE(fmin(8, y), 2.0);
        QCOMPARE(fmax(8, y), 9.0);
        y[3] = std::nan("");
        for (const double got : {aver(8, y), sum(8, y), sco_phase(8, y), sco_a(8, y, &mean), scdo_y(8, y)})
            QVERIFY(std::isnan(got));
        QCOMPARE(fmax(8, y), 9.0);
    }

    void longSeries()
    {
        std::vector<double> y(5001, 0.1);
        y[0] = 1e15; // plain double would keep eighths only
        y[5000] = -1e15;
        NEAR(aver(5001, y.data()), 4999 * 0.1 / 5001, 1e-3);
        for (std::size_t i = 0; i < y.size(); ++i)
            y[i] = 1e6 + static_cast<double>(i % 2);
        const double half = 2500.0 * 2501.0 / (5001.0 * 5001.0);
        NEAR(sco_phase(5001, y.data()), std::sqrt(half), 1e-12);
    }

    void edf_data()
    {
        QTest::addColumn<int>("alpha");
        QTest::addColumn<qint64>("samples");
        QTest::addColumn<qint64>("m");
        QTest::addColumn<double>("want");
        const double none = std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("white phase") << 2 << qint64(100) << qint64(5) << 50.5 * 90.0 / 95.0;
        QTest::newRow("flicker phase")
            << 1 << qint64(101) << qint64(5) << std::exp(std::sqrt(std::log(10.0) * std::log(275.0)));
        QTest::newRow("white frequency") << 0 << qint64(101) << qint64(5) << 29.0 * 25.0 / 26.25;
        QTest::newRow("cut quotient 0") << 0 << qint64(3) << qint64(1) << 3.0 / 2.25;
        QTest::newRow("cut quotient -2") << 0 << qint64(1) << qint64(1) << 2.0 / 2.25;
        QTest::newRow("no samples") << 0 << qint64(0) << qint64(1) << none;
        QTest::newRow("flicker frequency 1") << -1 << qint64(12) << qint64(1) << 200.0 / 22.7;
        QTest::newRow("flicker frequency") << -1 << qint64(100) << qint64(5) << 12500.0 / 5.0 / 115.0;
        // (121 - 99 + 36)*10 = 580; 580/3 = 193; 193/9 = 21; 21/9 = 2
        QTest::newRow("random walk, cut") << -2 << qint64(12) << qint64(3) << 2.0;
        QTest::newRow("random walk, three") << -2 << qint64(3) << qint64(1) << none;
        QTest::newRow("random walk, m 0") << -2 << qint64(9) << qint64(0) << none;
        QTest::newRow("random walk, long") << -2 << qint64(10000000) << qint64(1) << 9999999.0;
        QTest::newRow("other") << 3 << qint64(100) << qint64(5) << 1.0;
    }
    void edf()
    {
        QFETCH(int, alpha);
        QFETCH(qint64, samples);
        QFETCH(qint64, m);
        QFETCH(double, want);
        NEAR(EDF(alpha, long(samples), long(m)), want);
    }

    void edfAtTheEdges()
    {
        const long most = std::numeric_limits<long>::max();
        for (int alpha = -2; alpha <= 2; ++alpha) {
            for (const long samples : {-most - 1, -1L, 0L, 1L, most}) {
                for (const long m : {-most - 1, -1L, 0L, 1L, most})
                    EDF(alpha, samples, m);
            }
        }
        QVERIFY(EDF(-2, most, 1) > 9e18);
    }
};

QTEST_APPLESS_MAIN(TestPlainStats)
#include "tst_plainstats.moc"
