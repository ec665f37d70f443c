#include "support/near.h"
#include "support/samplerecord.h"
#include "table/core/trends.h"

#include <QTest>

namespace {

Trends trendsOf(Record& record, bool removeDrift)
{
    PhaseSeries series = phaseSeries(record);
    const Trends trends = recordTrends(record, series, record.start, removeDrift);
    const PhaseSeries after = phaseSeries(record);
    [&] { QCOMPARE(series.x, after.x); }(); // what was taken off one was taken off the other
    return trends;
}

} // namespace

class TrendsTest : public QObject {
    Q_OBJECT
private slots:
    void parabolaIsFound_data();
    void parabolaIsFound();
    void driftIsTakenOffTheRecord();
    void dailyMeansAreWholeDays();
    void cells();
};

void TrendsTest::parabolaIsFound_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<double>("interval");
    QTest::newRow("an hour") << 3600 << 1.0;
    QTest::newRow("thinned by 2") << 1200000 << 0.1;
    QTest::newRow("four days") << 34560 << 10.0;
}

void TrendsTest::parabolaIsFound()
{
    QFETCH(int, n);
    QFETCH(double, interval);
    Record record;
    const double q = 3e-19, l = -2e-12, c = 5e-9;
    fillRecord(record, n, interval, [&](int i) {
        const double t = i * interval;
        return (q * t + l) * t + c;
    });
    const Trends trends = trendsOf(record, false);
    const double end = (n - 1) * interval;
    QVERIFY(trends.fitted);
    NEAR(trends.drift, 2.0 * q, 1e-3);
    NEAR(trends.endFrequency, 2.0 * q * end + l, 1e-5);
    NEAR(trends.middleFrequency, q * end + l, 1e-5);
    NEAR(trends.linearFrequency, q * end + l, 1e-4);
    QCOMPARE(trends.hasDailyDrift, record.n_days > 2);
    if (trends.hasDailyDrift)
        NEAR(trends.dailyDrift, 2.0 * q * 86400.0, 1e-3);
}

void TrendsTest::driftIsTakenOffTheRecord()
{
    Record record;
    fillRecord(
        record, 200000, 1.0, [](int i) { return 1e-18 * i * i + 1e-12 * i + (i % 2 ? 1e-12 : -1e-12); });
    const Trends kept = trendsOf(record, false);
    QVERIFY(kept.deviation > 1e-9);
    NEAR(record.x[150000], 1e-18 * 150000.0 * 150000.0 + 1e-12 * 150000.0 - 1e-12);
    const Trends removed = trendsOf(record, true);
    NEAR(removed.deviation, 1e-12, 1e-3);
    NEAR(removed.linearFrequency, kept.linearFrequency);
    QVERIFY(removed.dailyDeviation < 1e-13);
    for (const int i : {0, 1, 86399, 86400, 199999})
        NEAR(record.x[i], i % 2 ? 1e-12 : -1e-12, 1e-3);

    Record tooShort;
    fillRecord(tooShort, 10, 1.0, [](int i) { return double(i); });
    QVERIFY(!trendsOf(tooShort, true).fitted);
    NEAR(tooShort.x[9], 9.0);
}

void TrendsTest::dailyMeansAreWholeDays()
{
    PhaseSeries series;
    for (int i = 0; i < 3 * 144 - 1; ++i) { // a sample every 600 s, the last day one short
        series.t.push_back(i * 600.0);
        series.x.push_back(i / 144);
    }
    QCOMPARE(dailyMeans(series, 0.0, 600.0), std::vector<double>({0.0, 1.0}));
    series.t.push_back(series.t.back() + 600.0);
    series.x.push_back(2.0);
    QCOMPARE(dailyMeans(series, 0.0, 600.0), std::vector<double>({0.0, 1.0, 2.0}));
    QCOMPARE(dailyMeans(series, 43200.0, 600.0), std::vector<double>({0.5, 1.5}));
    QCOMPARE(dailyMeans(series, 0.0, 600.0, 1).size(), size_t(1));
    PhaseSeries nothing;
    QVERIFY(dailyMeans(nothing, 0.0, 600.0).empty());

    // A gap of any length is crossed at once, and no time stops the walk.
    series.t.back() += 100.0 * 86400.0;
    QCOMPARE(dailyMeans(series, -864000.0, 600.0), std::vector<double>({0.0, 1.0, 2.0, 2.0}));
    for (const double time : {1e18, 1e300, qInf(), qQNaN()}) {
        series.t.back() = time;
        QVERIFY(dailyMeans(series, 0.0, 600.0).size() <= 4);
    }
}

void TrendsTest::cells()
{
    Trends trends;
    QCOMPARE(trendHeads().size(), 10);
    QCOMPARE(
        trendCells(QStringLiteral("A"), trends).mid(1), QVector<QString>(9, QStringLiteral(" - ")).toList());
    trends.fitted = true;
    trends.mean = 1.5e-9;
    trends.drift = 1e-18;
    QStringList cells = trendCells(QStringLiteral("A"), trends);
    QCOMPARE(cells.at(1), QStringLiteral("1.50e+00"));
    QCOMPARE(cells.at(8), QStringLiteral("8.64e-14"));
    QCOMPARE(cells.at(9), QStringLiteral(" - "));
    trends.hasDailyDrift = true;
    trends.dailyDrift = 2e-14;
    trends.dailyDriftError = 3e-16;
    QCOMPARE(trendCells(QStringLiteral("A"), trends).at(9), QStringLiteral("2.00e-14±3.00e-16"));
}

QTEST_APPLESS_MAIN(TrendsTest)
#include "tst_trends.moc"
