#include "support/dayrecord.h"
#include "support/near.h"
#include "support/samplerecord.h"
#include "table/core/minmax.h"

#include <QTest>

#include <algorithm>
#include <cmath>

class MinMaxTest : public QObject {
    Q_OBJECT
private slots:
    void reduction_data();
    void reduction();
    void stretchesShowTheirExtremes();
    void runsShare();
    void means();
    void frequencies();
    void oddRecords();
};

void MinMaxTest::reduction_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("points");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("whole") << 5000 << 5000;
    QTest::newRow("some stretches of two") << 7000 << 7000;
    QTest::newRow("of two") << 10000 << 10000;
    QTest::newRow("of two and three") << 12345 << 10000;
    QTest::newRow("long") << 1000003 << 10000;
}

void MinMaxTest::reduction()
{
    QFETCH(int, samples);
    Record record;
    Lehmer noise;
    fillRecord(record, samples, 1.0, [&](int) { return noise.next(); });
    const GraphSeries series = minMaxSeries(record, 7.0, false);
    QTEST(int(series.t.size()), "points");
    QCOMPARE(series.x.size(), series.t.size());
    if (samples == 0)
        return;
    QVERIFY(std::is_sorted(series.t.begin(), series.t.end()));
    const QVector<double> x = samplesOf(record.x);
    QCOMPARE(*std::max_element(series.x.begin(), series.x.end()), *std::max_element(x.begin(), x.end()));
    QCOMPARE(*std::min_element(series.x.begin(), series.x.end()), *std::min_element(x.begin(), x.end()));
    for (size_t i = 0; i < series.t.size(); ++i)
        QCOMPARE(series.x[i], x.at(int(series.t[i] - 7.0)));
    QVERIFY(series.t.back() - 7.0 > 0.999 * (samples - 1) - 0.5);
}

void MinMaxTest::stretchesShowTheirExtremes()
{
    Record record; // stretches of 4; the maximum comes first in every other one
    fillRecord(record, 20000, 1.0,
        [](int i) { return 5.0 + (i % 8 == 1 || i % 8 == 6) - (i % 8 == 2 || i % 8 == 5); });
    const GraphSeries series = minMaxSeries(record, 0.0, true);
    QCOMPARE(series.t.size(), size_t(10000));
    QCOMPARE(std::vector<double>(series.t.begin(), series.t.begin() + 4), std::vector<double>({1, 2, 5, 6}));
    QCOMPARE(
        std::vector<double>(series.x.begin(), series.x.begin() + 4), std::vector<double>({1, -1, -1, 1}));
    for (int i = 0; i < 4; ++i)
        record.x[i] = i == 2 ? 9.0 : qQNaN();
    for (int i = 4; i < 8; ++i)
        record.x[i] = qQNaN();
    const GraphSeries withGaps = minMaxSeries(record, 0.0, true);
    QCOMPARE(std::vector<double>(withGaps.x.begin(), withGaps.x.begin() + 2), std::vector<double>({9, 9}));
    QCOMPARE(withGaps.t.at(2), 9.0);
}

void MinMaxTest::runsShare()
{
    // 12000 runs of one or two samples: they are put together, and the points do not become too many.
    TestDay day;
    for (int i = 0; i < 12000; ++i) {
        for (int k = 0; k < 1 + i % 2; ++k) {
            day.t.push_back(10.0 * i + k);
            day.x.push_back(i);
        }
    }
    Record record;
    fillDays(record, {day});
    GraphSeries series = minMaxSeries(record, 0.0, false);
    QVERIFY(series.t.size() > 7000 && series.t.size() <= 10000);
    QVERIFY(series.t.back() > 119900.0);

    // A run of two in 30000 samples has no share, and one large run beside 2499 that round up gives way.
    day = {};
    for (int i = 0; i < 30002; ++i) {
        day.t.push_back(i < 30000 ? i : 100000 + i);
        day.x.push_back(i);
    }
    fillDays(record, {day});
    series = minMaxSeries(record, 0.0, false);
    QVERIFY(series.t.back() < 30000.0 && series.t.size() == 10000);
    day = {};
    for (int i = 0; i < 37500; ++i)
        day.t.push_back(i);
    for (int i = 0; i < 2499 * 5; ++i)
        day.t.push_back(100000.0 + 100.0 * (i / 5) + i % 5);
    day.x.assign(day.t.size(), 1.0);
    fillDays(record, {day});
    series = minMaxSeries(record, 0.0, false);
    QVERIFY(series.t.size() == 10000 && series.t.back() == 100000.0 + 100.0 * 2498);
}

void MinMaxTest::means()
{
    // From 10:30 to 13:30 every 10 min; x is the number of the hour.
    TestDay day;
    for (int i = 0; i <= 18; ++i) {
        day.t.push_back(37800.0 + 600.0 * i);
        day.x.push_back(std::floor(day.t.back() / 3600.0) + (i % 2 ? 1e-3 : -1e-3));
    }
    const QDateTime start(QDate(2026, 3, 1), QTime(10, 30));
    Record record;
    fillDays(record, {day}, 600.0, start);
    GraphSeries hours = periodMeans(record, GraphPeriod::Hour, start.addSecs(-3600 - 1800 - 60), false);
    QCOMPARE(hours.t, std::vector<double>({2, 3, 4, 5}));
    NEAR(hours.x.at(1), 11.0);
    NEAR(hours.x.at(3), 13.0);
    hours = periodMeans(record, GraphPeriod::Hour, start, true);
    QCOMPARE(hours.t.front(), 0.0);
    NEAR(hours.x.at(1), 11.0 - (10.0 - 1e-3));

    fillRecord(record, 3 * 144 + 1, 600.0, [](int i) { return i / 144 + 1.0; });
    const GraphSeries days = periodMeans(record, GraphPeriod::Day, start, false);
    QCOMPARE(days.t, std::vector<double>({61100, 61101, 61102, 61103})); // 2026-03-01 on
    QCOMPARE(days.x, std::vector<double>({1, 2, 3, 4}));
    fillRecord(record, 12000, 3600.0, [](int i) { return i; });
    QCOMPARE(periodMeans(record, GraphPeriod::Hour, record.start, false).t.size(), size_t(10000));
    QVERIFY(!periodMeans(record, GraphPeriod::Hour, record.start, false).complete);
    QVERIFY(periodMeans(record, GraphPeriod::Day, record.start, false).complete);
}

void MinMaxTest::frequencies()
{
    TestDay day; // hours 0 to 5 without 3; in each the frequency is its number
    double x = 1.0;
    for (int i = 0; i < 36; ++i) {
        if (i / 6 != 3) {
            day.t.push_back(600.0 * i);
            day.x.push_back(x);
        }
        x += 600.0 * (i / 6);
    }
    Record record;
    fillDays(record, {day}, 600.0);
    const GraphSeries hours = periodFrequencies(record, GraphPeriod::Hour, record.start);
    QCOMPARE(
        hours.t, std::vector<double>({0, 1, 4})); // no step over the hour that is missing, none at the end
    QCOMPARE(hours.x, std::vector<double>({0, 1, 4}));
    QVERIFY(periodFrequencies(record, GraphPeriod::Day, record.start).t.empty());
}

void MinMaxTest::oddRecords()
{
    const double nan = qQNaN();
    Record record;
    for (const double interval : {-1.0, 0.0, 1.0, nan}) {
        fillDays(record,
            {{}, {{nan, 0, 0, -5, qInf(), 1e300}, {nan, 1, 2, 3, 4, 5}}, {{7, 8}, {}}, {{}, {1}}}, interval,
            {});
        QVERIFY(minMaxSeries(record, 0.0, true).t.size() <= 8);
        for (const GraphPeriod period : {GraphPeriod::Hour, GraphPeriod::Day}) {
            const GraphSeries series = periodMeans(record, period, {}, true);
            QVERIFY(std::is_sorted(series.t.begin(), series.t.end()) && series.t.size() == 2);
            QVERIFY(periodFrequencies(record, period, {}).t.size() <= 1);
        }
    }
}

QTEST_APPLESS_MAIN(MinMaxTest)
#include "tst_minmax.moc"
