#include "stats/tdevmtie.h"

#include "stats/deviations.h"
#include "support/near.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

using Shape = double (*)(int i);

double noise(int)
{
    static std::mt19937 source(5);
    return std::uniform_real_distribution<double>(-1.0, 1.0)(source);
}

/// The definition, window by window; a NaN is passed over.
double direct(const std::vector<double>& x, int m)
{
    double best = 0.0;
    for (int i = 0; i + m < static_cast<int>(x.size()); ++i) {
        for (int a = i; a <= i + m; ++a) {
            for (int b = i; b <= i + m; ++b) {
                const double width = x[static_cast<std::size_t>(a)] - x[static_cast<std::size_t>(b)];
                best = width > best ? width : best;
            }
        }
    }
    return best;
}

}

Q_DECLARE_METATYPE(Shape)

class TestTdevMtie : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    }

    void fastFormAgainstFullScan_data()
    {
        QTest::addColumn<Shape>("shape");
        QTest::newRow("random") << Shape(noise);
        QTest::newRow("constant") << Shape([](int) { return 0.1; });
        QTest::newRow("rising") << Shape([](int i) { return 0.1 * i; });
        QTest::newRow("falling") << Shape([](int i) { return -0.1 * i * i; });
        QTest::newRow("saw") << Shape([](int i) { return 0.3 * (i % 7); });
        QTest::newRow("plateaus") << Shape([](int i) { return double(i / 5 * 37 % 11); });
        QTest::newRow("not numbers") << Shape([](int i) { return i % 4 == 1 ? std::nan("") : noise(i); });
        QTest::newRow("starts without") << Shape([](int i) { return i < 12 ? std::nan("") : 0.5 * i; });
        QTest::newRow("one infinity") << Shape([](int i) { return i == 17 ? HUGE_VAL : 1.0; });
        QTest::newRow("infinite") << Shape([](int) { return -HUGE_VAL; });
    }
    void fastFormAgainstFullScan()
    {
        QFETCH(Shape, shape);
        std::vector<double> x;
        for (int n = 1; n <= 60; ++n) {
            x.push_back(shape(n));
            for (int m = 1; m <= n + 1; ++m) {
                const double want = direct(x, m);
                QCOMPARE(MTIE(n, m, x.data(), nullptr, 1.0), want);
                QCOMPARE(MTIE_noimpr(n, m, x.data()), want);
            }
        }
        QCOMPARE(MTIE_impr2(60, 9, x.data()), direct(x, 9));
    }

    void guards()
    {
        double x[] = {1.0, 5.0, 2.0};
        const long most = std::numeric_limits<long>::max();
        for (const long m : {0L, -1L, -most - 1, 3L, 4L, most}) {
            QCOMPARE(MTIE(3, m, x, nullptr, 1.0), 0.0);
            QCOMPARE(MTIE_noimpr(3, m, x), 0.0);
        }
        for (const long n : {0L, -1L, -most - 1}) {
            QCOMPARE(MTIE(n, 1, nullptr, nullptr, 1.0), 0.0);
            QCOMPARE(MTIE_noimpr(n, 1, nullptr), 0.0);
            QCOMPARE(TDEV(n, 1, nullptr, nullptr, 1.0), 0.0);
        }
        QCOMPARE(MTIE(3, 2, x, nullptr, 1.0), 4.0);
    }

    void linearOnRamps()
    {
        const long n = 2000000, m = n / 2;
        QElapsedTimer clock;
        clock.start();
        for (const double slope : {1.0, -1.0}) {
            std::vector<double> x;
            for (long i = 0; i < n; ++i)
                x.push_back(slope * static_cast<double>(i));
            QCOMPARE(MTIE(n, m, x.data(), nullptr, 1.0), static_cast<double>(m));
        }
        QVERIFY(clock.elapsed() < 20000); // a rescan at every sample takes a quarter of an hour
    }

    void debugLines()
    {
        static QStringList lines;
        lines.clear();
        qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& text) { lines << text; });
        double x[] = {1.0, 5.0, 2.0, 3.0, 3.0, 4.0, 2.0};
        MTIE(3, 2, x, nullptr, 1.0);
        MTIE_noimpr(3, 7, x);
        mod_alan_scdo_unimpr(7, 2, x);
        initTestCase();
        const QStringList want = {" MTIE n = 3 step = 2", " MTIE end", " MTIE n = 3 step = 7", " MTIE end",
            " modAllan n = 7 step = 2", " modAllan end"};
        QCOMPARE(lines.size(), want.size());
        for (int k = 0; k < want.size(); ++k) {
            QVERIFY(QRegularExpression("^[0-5]\\d:[0-5]\\d:\\d{3} ").match(lines[k]).hasMatch());
            QCOMPARE(lines[k].mid(9), want[k]);
        }
    }

    void tdev()
    {
        std::vector<double> x, t(100, 1.0);
        for (int i = 0; i < 100; ++i)
            x.push_back(noise(i));
        for (const long m : {1L, 5L, 32L})
            NEAR(TDEV(100, m, x.data(), t.data(), 9.0),
                mod_alan_scdo(100, m, x.data()) * double(m) / std::sqrt(3.0));
        NEAR(TDEV(100, 33, x.data(), nullptr, 1.0), std::fabs(x[33] - x[0]) / std::sqrt(3.0));
        QCOMPARE(TDEV(99, 33, x.data(), nullptr, 1.0), 0.0);
        QCOMPARE(TDEV(99, 0, x.data(), nullptr, 1.0), 0.0);
    }
};

QTEST_APPLESS_MAIN(TestTdevMtie)
#include "tst_tdevmtie.moc"
