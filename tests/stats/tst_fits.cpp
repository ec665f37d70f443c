#include "stats/drift.h"
#include "stats/fits.h"
#include "stats/middle.h"
#include "support/near.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace {

using Points = QVector<QPair<double, double>>;

Points line(int count, double step = 1.0)
{
    Points points;
    for (int i = 0; i < count; ++i)
        points.append({i * step, i % 2 ? 1.0 : -1.0});
    return points;
}

}

class TestFits : public QObject {
    Q_OBJECT
private slots:
    void trend()
    {
        double x[] = {1e6, 1e6 + 1, 1e6 + 2, 1e6 + 5}, y[] = {3.0, 5.0, 7.0, 13.0}, slope = 77.0;
        QCOMPARE(Trend(2, x, y, &slope), 0.0);
        QCOMPARE(Trend(-1, x, y, &slope), 0.0);
        QCOMPARE(slope, 77.0);
        NEAR(Trend(4, x, y, &slope), 3.0);
        NEAR(slope, 2.0);
        double bent[] = {3.0, 5.0, 7.0, 14.0};
        NEAR(Trend(4, x, bent, &slope), 7.25 - 2.0 * 31.0 / 14.0);
        NEAR(slope, 31.0 / 14.0);
        double same[] = {4.0, 4.0, 4.0};
        Trend(3, same, y, &slope);
        QVERIFY(std::isnan(slope));
    }

    void parabola()
    {
        std::vector<double> x, y;
        std::vector<long> whole;
        for (int i = 0; i < 1000; ++i) {
            whole.push_back(40 + 3 * i);
            x.push_back(static_cast<double>(whole.back()));
            y.push_back(1e-9 * x.back() * x.back() - 2e-6 * x.back() + 1.0);
        }
        double q = 1, l = 2, c = 3, qw = 0, lw = 0, cw = 0;
        QVERIFY(Parab(1000, x.data(), y.data(), &q, &l, &c));
        NEAR(q, 1e-9, 1e-9);
        NEAR(l, -2e-6, 1e-9);
        NEAR(c, 1.0, 1e-12);
        QVERIFY(Parab(1000, whole.data(), y.data(), &qw, &lw, &cw));
        QCOMPARE(QList<double>({qw, lw, cw}), QList<double>({q, l, c}));

        std::vector<double> still(10, 2.0);
        QVERIFY(!Parab(10, still.data(), y.data(), &q, &l, &c));
        QCOMPARE(c, cw);
        QVERIFY(!Parab(4, x.data(), y.data(), &q, &l, &c));
        QCOMPARE(QList<double>({q, l, c}), QList<double>({0.0, 100000000.0, 0.0}));
        QVERIFY(Parab(5, x.data(), y.data(), &q, &l, &c));
    }

    void lineWithError()
    {
        double intercept = 7.0, error = 8.0;
        const Points points = {{1, 2}, {2, 4}, {3, 5}, {4, 4}, {5, 5}};
        NEAR(linreg(5, points, intercept, error), 0.6);
        NEAR(intercept, 2.2);
        NEAR(error, std::sqrt(2.4 / 3.0 / 10.0));
        NEAR(linreg(99, points, intercept, error), 0.6); // a count beyond the points
        NEAR(linreg(2, points, intercept, error), 2.0);
        QVERIFY(!std::isfinite(error));
        intercept = 7.0;
        error = 8.0;
        QCOMPARE(linreg(3, {{0.1, 1}, {0.1, 2}, {0.1, 5}}, intercept, error), 1.0);
        QCOMPARE(linreg(1, points, intercept, error), 1.0);
        QCOMPARE(linreg(0, {}, intercept, error), 1.0);
        QCOMPARE(linreg(-1, points, intercept, error), 1.0);
        QVERIFY(intercept == 7.0 && error == 8.0);
        NEAR(linreg(3, {{1e9, 1}, {1e9 + 1, 3}, {1e9 + 2, 5}}, intercept, error), 2.0); // a late epoch
    }

    void middle()
    {
        std::mt19937 random;
        for (const int n : {1, 2, 5, 4095, 4096, 20001}) {
            std::vector<double> noise, steps, same(size_t(n), 7.0);
            for (int i = 0; i < n; ++i) {
                noise.push_back(double(random()));
                // every place that is a multiple of a thousandth of the length misleads a regular sample
                steps.push_back(i % (n / 1024 + 1) == 0 ? 1e6 + i : -i);
            }
            for (const std::vector<double>& values : {noise, steps, same}) {
                std::vector<double> sorted = values, work = values;
                std::sort(sorted.begin(), sorted.end());
                const Middle found = middleOf(work);
                QCOMPARE(found.lower, sorted[size_t(n - 1) / 2]);
                QCOMPARE(found.upper, sorted[size_t(n) / 2]);
            }
        }
    }

    void medianFilter_data()
    {
        QTest::addColumn<QList<double>>("values");
        QTest::addColumn<QList<double>>("kept");
        const double none = std::nan("");
        using V = QList<double>;
        QTest::newRow("none") << V{} << V{};
        QTest::newRow("odd") << V{1, 2, 3, 4, 50} << V{1, 2, 3, 4};
        // median 3.5, deviations 0.5 0.5 1.5 1.5 2.5 6.5, their median 1.5, bound 4.5
        QTest::newRow("even") << V{10, 1, 2, 3, 4, 5} << V{1, 2, 3, 4, 5};
        QTest::newRow("on the bound") << V{1, 2, 3, 4, 6} << V{1, 2, 3, 4, 6};
        QTest::newRow("no spread") << V{5, 5, 5, 5.1, 5} << V{5, 5, 5, 5};
        QTest::newRow("infinite") << V{1, HUGE_VAL, 2, 3, -HUGE_VAL} << V{1, 2, 3};
        QTest::newRow("not a number") << V{none, 1, 2, 3, 90, 2, 2.5} << V{none, 1, 2, 3, 2, 2.5};
    }
    void medianFilter()
    {
        QFETCH(QList<double>, values);
        QFETCH(QList<double>, kept);
        Points points;
        for (const double v : values)
            points.append({double(points.size()), v});
        int removed = 100;
        medianFilt(points, 1e9, removed);
        QCOMPARE(removed, 100 + values.size() - kept.size());
        QCOMPARE(points.size(), kept.size());
        for (int i = 0; i < kept.size(); ++i)
            NEAR(points[i].second, kept[i]);
    }

    void daysWithGaps()
    {
        Points points = line(40, 10.0);
        int removed = 5;
        QVERIFY(!removeDaysWithGaps(points, 10, removed, 40));
        QCOMPARE(removed, 5);
        QVERIFY(removeDaysWithGaps(points, 9, removed, 40));
        QCOMPARE(removed, 45);
        QVERIFY(removeDaysWithGaps(points, 10, removed, 41));
        QCOMPARE(removed, 85);
        QCOMPARE(points.size(), 40);
        points.clear();
        QVERIFY(!removeDaysWithGaps(points, 10, removed, 0));
    }

    void driftOverDays_data()
    {
        QTest::addColumn<QList<int>>("dayEnds"); // of a record sampled every 60 s
        QTest::addColumn<double>("interval");
        QTest::addColumn<int>("gapAt"); // in kept samples; none when negative
        QTest::addColumn<int>("gap");
        QTest::addColumn<double>("drift");
        QTest::addColumn<bool>("hasError");
        const QList<int> four = {1440, 2880, 4320, 5760};
        QTest::newRow("four days") << four << 1.0 << -1 << 0 << 1e-13 << true;
        QTest::newRow("repeated ends")
            << QList<int>{1440, 1440, 2880, 4320, 4320, 5760} << 1.0 << -1 << 0 << 1e-13 << true;
        QTest::newRow("every seventh") << four << 7.0 << -1 << 0 << 1e-13 << true;
        QTest::newRow("every 36th: 40 a day") << four << 36.0 << -1 << 0 << 1e-13 << true;
        QTest::newRow("every 37th: 39 a day")
            << QList<int>{1440, 2880} << 37.0 << -1 << 0 << 86400.0 << false;
        QTest::newRow("gap of 3600") << four << 1.0 << 2000 << 3600 << 1e-13 << true;
        QTest::newRow("gap of 3601") << QList<int>{1440, 2880} << 1.0 << 2000 << 3601 << 86400.0 << false;
        QTest::newRow("one day") << QList<int>{1440} << 1.0 << -1 << 0 << 86400.0 << false;
        QTest::newRow("no day") << QList<int>{} << 1.0 << -1 << 0 << 86400.0 << false;
        QTest::newRow("no step") << four << 0.0 << -1 << 0 << 86400.0 << false;
        QTest::newRow("step not a number") << four << std::nan("") << -1 << 0 << 86400.0 << false;
    }
    void driftOverDays()
    {
        QFETCH(QList<int>, dayEnds);
        QFETCH(double, interval);
        QFETCH(int, gapAt);
        QFETCH(int, gap);
        QFETCH(double, drift);
        QFETCH(bool, hasError);
        // Exactly as many samples as the day ends count: one read more is caught by the address sanitizer.
        std::vector<double> t, x;
        const int last = dayEnds.isEmpty() ? 0 : dayEnds.last();
        double now = 0.0;
        for (int i = 0; interval >= 1.0 && i * interval < last; ++i) {
            t.push_back(now);
            x.push_back(1.0 + 1e-9 * now + 0.5e-13 / 86400.0 * now * now);
            now += i == gapAt ? gap : 60.0 * interval;
        }
        double got = 0.0, error = 0.0;
        const double returned = calcLinRegDrift(t.data(), x.data(), got, dayEnds, error, interval);
        QCOMPARE(returned, got);
        NEAR(got, drift, 1e-3);
        QCOMPARE(!std::isnan(error), hasError);
    }

    void driftIgnoresOutliers()
    {
        std::vector<double> t, x;
        for (int i = 0; i < 4320; ++i) {
            t.push_back(60.0 * i);
            x.push_back(0.5e-13 / 86400.0 * t.back() * t.back() + (i == 700 ? 1.0 : 0.0));
        }
        double drift = 0.0, error = 0.0;
        calcLinRegDrift(t.data(), x.data(), drift, {1440, 2880, 4320}, error, 1.0);
        NEAR(drift, 1e-13, 1e-3);
        QVERIFY(error < 1e-15);
    }
};

QTEST_APPLESS_MAIN(TestFits)
#include "tst_fits.moc"
