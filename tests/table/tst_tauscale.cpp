#include "support/near.h"
#include "table/core/tauscale.h"

#include <QTest>

#include <new>

using Factors = std::vector<qint64>;
Q_DECLARE_METATYPE(Factors)

class TauScaleTest : public QObject {
    Q_OBJECT
private slots:
    void factors_data();
    void factors();
    void secondsAreFactorTimesStepTimesInterval();
    void range_data();
    void range();
};

void TauScaleTest::factors_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("n");
    QTest::addColumn<double>("interval");
    QTest::addColumn<bool>("fromLoad");
    QTest::addColumn<Factors>("want");

    const Factors toHour{1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 3600, 5000, 10000, 20000};
    QTest::newRow("3 samples") << 1 << 3 << 1.0 << false << Factors{};
    QTest::newRow("4 samples: 6 is not below 4") << 1 << 4 << 1.0 << false << Factors{1};
    QTest::newRow("6 is not below 6") << 1 << 6 << 1.0 << false << Factors{1};
    QTest::newRow("6 is below 7") << 1 << 7 << 1.0 << false << Factors{1, 2};
    QTest::newRow("15 is not below 15") << 1 << 15 << 1.0 << false << Factors{1, 2};
    QTest::newRow("30 is not below 30") << 1 << 30 << 1.0 << false << Factors{1, 2, 5};
    QTest::newRow("30 is below 31") << 1 << 31 << 1.0 << false << Factors{1, 2, 5, 10};
    QTest::newRow("no hour at 10800 s")
        << 1 << 10800 << 1.0 << false << Factors{1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000};
    QTest::newRow("hour, no day") << 1 << 100000 << 1.0 << false << toHour;
    Factors day = toHour;
    day.insert(day.end(), {50000, 86400});
    QTest::newRow("hour, and day from 259200 s on") << 1 << 259201 << 1.0 << false << day;
    day.pop_back();
    QTest::newRow("no day at 259200 s") << 1 << 259200 << 1.0 << false << day;
    QTest::newRow("hour in units of a short interval")
        << 1 << 1100000 << 0.01 << false
        << Factors{1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000, 50000, 100000, 200000,
               360000};
    QTest::newRow("growing: 3 floor(log10(33)) + 1") << 1 << 100 << 1.0 << true << Factors{1, 2, 5, 10};
    QTest::newRow("growing: hour whatever the length")
        << 1 << 30000 << 1.0 << true
        << Factors{1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 3600, 5000, 10000};
    QTest::newRow("growing: too short") << 1 << 2 << 1.0 << true << Factors{};
    QTest::newRow("stride of 3") << 3 << 1000 << 1.0 << false << Factors{1, 10, 20, 50, 100, 200, 500, 1000};
    QTest::newRow("stride of 3, too short") << 3 << 3 << 1.0 << false << Factors{};
    QTest::newRow("no step") << 0 << 1000 << 1.0 << false << Factors{};
    QTest::newRow("no interval") << 1 << 1000 << 0.0 << false << Factors{};
    QTest::newRow("NaN interval") << 1 << 1000 << qQNaN() << false << Factors{};
}

void TauScaleTest::factors()
{
    QFETCH(int, step);
    QFETCH(int, n);
    QFETCH(double, interval);
    QFETCH(bool, fromLoad);
    QFETCH(Factors, want);
    const TauScale scale = tauScale(step, n, interval, fromLoad);
    QCOMPARE(scale.factor, want);
    QCOMPARE(scale.tau.size(), want.size());
}

void TauScaleTest::secondsAreFactorTimesStepTimesInterval()
{
    const TauScale scale = tauScale(10, 1000, 0.5);
    QVERIFY(scale.size() > 3);
    for (size_t i = 0; i < scale.size(); ++i)
        NEAR(scale.tau[i], double(scale.factor[i]) * 5.0);
}

void TauScaleTest::range_data()
{
    QTest::addColumn<qint64>("n");
    QTest::addColumn<int>("limit");
    QTest::addColumn<double>("tau");
    QTest::addColumn<qint64>("first");
    QTest::addColumn<qint64>("count");
    QTest::newRow("no limit") << qint64(5000) << 0 << 1.0 << qint64(0) << qint64(5000);
    QTest::newRow("negative: all") << qint64(5000) << -1 << 1.0 << qint64(0) << qint64(5000);
    QTest::newRow("at the limit") << qint64(5000) << 2500 << 2.0 << qint64(0) << qint64(5000);
    QTest::newRow("one above") << qint64(5001) << 2500 << 2.0 << qint64(1) << qint64(5000);
    QTest::newRow("a broken limit cuts both ends") << qint64(100) << 5 << 0.7 << qint64(96) << qint64(3);
}

void TauScaleTest::range()
{
    QFETCH(qint64, n);
    QFETCH(int, limit);
    QFETCH(double, tau);
    QFETCH(qint64, first);
    QFETCH(qint64, count);
    const SampleRange got = samplesForTau(n, limit, tau);
    QCOMPARE(got.first, first);
    QCOMPARE(got.count, count);
}

QTEST_APPLESS_MAIN(TauScaleTest)
#include "tst_tauscale.moc"
