#include "plot/core/errorbars.h"
#include "support/near.h"

#include <QTest>

class TestErrorBars : public QObject {
    Q_OBJECT
private slots:
    void bars_data();
    void bars();
};

void TestErrorBars::bars_data()
{
    QTest::addColumn<double>("tau");
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    // All for y = 4.
    QTest::newRow("span of 5 tau: half width 1/2") << 10.0 << 50.0 << 2.0 << 6.0;
    QTest::newRow("span of twice tau: down to zero") << 10.0 << 20.0 << 0.0 << 8.0;
    QTest::newRow("a little above tau: below zero") << 8.0 << 10.0 << -4.0 << 12.0;
    QTest::newRow("span equals tau") << 10.0 << 10.0 << 2.0 << 6.0;
    QTest::newRow("span shorter than tau") << 10.0 << 3.0 << 2.0 << 6.0;
    QTest::newRow("no tau") << 0.0 << 50.0 << 4.0 << 4.0;
    QTest::newRow("negative tau") << -1.0 << 50.0 << 4.0 << 4.0;
    QTest::newRow("no span") << 10.0 << 0.0 << 4.0 << 4.0;
    QTest::newRow("stop before start") << 10.0 << -5.0 << 4.0 << 4.0;
}

void TestErrorBars::bars()
{
    QFETCH(double, tau);
    QFETCH(double, span);
    QFETCH(double, low);
    QFETCH(double, high);
    const ErrorBar bar = errorBar(tau, 4.0, span);
    NEAR(bar.low, low, 1e-12, 1e-12);
    NEAR(bar.high, high);
}

QTEST_GUILESS_MAIN(TestErrorBars)
#include "tst_errorbars.moc"
