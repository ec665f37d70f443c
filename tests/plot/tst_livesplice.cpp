#include "plot/core/daycounts.h"
#include "plot/core/livesplice.h"
#include "plot/core/timeticks.h"
#include "support/dayrecord.h"
#include "support/near.h"

#include <QTest>

#include <cmath>
#include <numeric>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

/// `n` samples of a stream that rises by `slope` a second, from base on.
struct Stream {
    Stream(int n, double baseT, double baseX, double slope = 1.0)
    {
        for (int i = 1; i <= n; ++i) {
            t.push_back(baseT + i);
            x.push_back(baseX + slope * i);
        }
        block = {n, t.data(), x.data(), baseT, baseX};
    }
    std::vector<double> t, x;
    LiveBlock block;
};

TestDay seconds(double first, int n, double value = 0.0)
{
    TestDay day;
    for (int i = 0; i < n; ++i) {
        day.t.push_back(first + i);
        day.x.push_back(value);
    }
    return day;
}

} // namespace

class TestLiveSplice : public QObject {
    Q_OBJECT
private slots:
    void days_data();
    void days();
    void values();
    void ticks_data();
    void ticks();
    void splice();
    void spliceOddSamples();
    void flushOverMidnight();
    void flushKeepsCopies();
    void frequencies();
    void newest();
};

void TestLiveSplice::days_data()
{
    QTest::addColumn<QVector<double>>("first");
    QTest::addColumn<QVector<int>>("lengths");
    QTest::addColumn<double>("offset");
    QTest::addColumn<int>("days");
    QTest::addColumn<QVector<int>>("counts");
    using Times = QVector<double>;
    using Ints = QVector<int>;
    QTest::newRow("nothing") << Times() << Ints() << 0.0 << 2 << Ints{0, 0};
    QTest::newRow("one a day") << Times{86390.0, 86400.0} << Ints{10, 5} << 0.0 << 2 << Ints{10, 5};
    QTest::newRow("all in one part") << Times{86390.0} << Ints{15} << 0.0 << 2 << Ints{10, 5};
    QTest::newRow("a day missing") << Times{0.0, 172800.0} << Ints{3, 4} << 0.0 << 3 << Ints{3, 0, 4};
    QTest::newRow("offset") << Times{0.0} << Ints{20} << 86390.0 << 2 << Ints{10, 10};
    QTest::newRow("later start") << Times{0.0} << Ints{5} << 86400.0 << 2 << Ints{0, 5};
    QTest::newRow("beyond both ends")
        << Times{-5.0, 86400.0, 400000.0} << Ints{3, 2, 4} << 0.0 << 2 << Ints{3, 6};
    QTest::newRow("parts without samples")
        << Times{0.0, 5.0, 86400.0} << Ints{2, 0, 3} << 0.0 << 2 << Ints{2, 3};
    QTest::newRow("no times") << Times{notANumber} << Ints{7} << 0.0 << 3 << Ints{0, 0, 7};
}

void TestLiveSplice::days()
{
    QFETCH(QVector<double>, first);
    QFETCH(QVector<int>, lengths);
    QFETCH(double, offset);
    QFETCH(int, days);
    doubleArray t(100000);
    for (int part = 0; part < first.size(); ++part) {
        const TestDay day = seconds(first[part], lengths[part]);
        t.AddNewPart(lengths[part]);
        t.append__(day.t.data(), lengths[part]);
    }
    const std::vector<int> got = countDays(t, offset, days);
    QFETCH(QVector<int>, counts);
    if (!first.isEmpty() && std::isnan(first[0]))
        QCOMPARE(std::accumulate(got.begin(), got.end(), 0), 7);
    else
        QCOMPARE(QVector<int>(got.begin(), got.end()), counts);
    QCOMPARE(firstOfDay(got, days), totalOf(t));
}

void TestLiveSplice::values()
{
    doubleArray array(100000);
    const double data[] = {1, 2, 3, 4, 5, 6};
    array.AddNewPart(2);
    array.append__(data, 2);
    array.AddNewPart(0);
    array.AddNewPart(4);
    array.append__(data + 2, 4);
    QCOMPARE(valuesOf(array, 1, 3, 10.0), (std::vector<double>{12, 13, 14}));
    QCOMPARE(valuesOf(array, 2, 1), std::vector<double>{3});
    QCOMPARE(valuesOf(array, 5, 9), std::vector<double>{6});
    QCOMPARE(valuesOf(array, 6, 1), std::vector<double>());
    QCOMPARE(valuesOf(doubleArray(5), 0, 1), std::vector<double>());
}

void TestLiveSplice::ticks_data()
{
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("step");
    QTest::newRow("a day") << 86400.0 << 10800.0;
    QTest::newRow("a little more") << 86401.0 << 21600.0;
    QTest::newRow("eight hours") << 28800.0 << 3600.0;
    QTest::newRow("the moving window") << 4000.0 << 600.0;
    QTest::newRow("seconds") << 8.0 << 1.0;
    QTest::newRow("decimals") << 7.9 << 0.0;
    QTest::newRow("month") << 30.0 * 86400.0 << 5.0 * 86400.0;
    QTest::newRow("thirty years") << 11000.0 * 86400.0 << 2000.0 * 86400.0;
    QTest::newRow("no span") << notANumber << 0.0;
    QTest::newRow("endless") << infinite << 0.0;
}

void TestLiveSplice::ticks()
{
    QFETCH(double, span);
    QTEST(timeStep(span, 8).major, "step");
}

void TestLiveSplice::splice()
{
    Record record;
    fillDays(record, {{{10, 11, 12}, {1, 2, 3}}});
    QCOMPARE(spliceLive(record, Stream(2, 500.0, 70.0, 2.0).block, -1.0), 2);
    QCOMPARE(record.dyn_t, (QList<double>{13, 14}));
    QCOMPARE(record.dyn_x, (QList<double>{1, -1}));
    QCOMPARE(spliceLive(record, Stream(1, 900.0, -4.0, 2.0).block, 1.0), 1);
    QCOMPARE(record.dyn_t, (QList<double>{13, 14, 15}));
    QCOMPARE(record.dyn_x, (QList<double>{1, -1, 1}));
    QCOMPARE(record.dyn_n_cnt, qint64(3));
    Record empty;
    QCOMPARE(spliceLive(empty, Stream(2, 500.0, 70.0).block, 1.0), 2);
    QCOMPARE(empty.dyn_t, (QList<double>{1, 2}));
    QCOMPARE(empty.dyn_x, (QList<double>{1, 2}));
}

void TestLiveSplice::spliceOddSamples()
{
    Record record;
    fillDays(record, {{{0, 1}, {5, 5}}});
    QCOMPARE(spliceLive(record, {3, nullptr, nullptr, 0.0, 0.0}, 1.0), 0);
    const double t[] = {2, 2, 1, notANumber, infinite, 1e200, 3, 4};
    const double x[] = {1, 9, 9, 9, 9, 9, notANumber, 2};
    QCOMPARE(spliceLive(record, {8, t, x, 1.0, 0.0}, 1.0), 3);
    QCOMPARE(record.dyn_t, (QList<double>{2, 3, 4}));
    QCOMPARE(record.dyn_x.at(0), 6.0);
    QVERIFY(std::isnan(record.dyn_x.at(1)));
    QCOMPARE(record.dyn_x.at(2), 7.0);
    record.dyn_x.last() = notANumber;
    spliceLive(record, Stream(1, 4.0, 2.0).block, 1.0);
    QCOMPARE(record.dyn_x.constLast(), 7.0); // 6, the last number, and 1
}

void TestLiveSplice::flushOverMidnight()
{
    Record record;
    const QDateTime begin(QDate(2026, 3, 1), QTime(23, 59, 50));
    fillDays(record, {seconds(0.0, 5)}, 1.0, begin);
    spliceLive(record, Stream(20, 4.0, 0.0).block, 1.0);
    flushLive(record, 3, 86390.0);
    QCOMPARE(dayLengthsOf(record), (QVector<int>{10, 12}));
    QVERIFY(rises(record.t));
    QCOMPARE(record.x[21], 17.0);
    QCOMPARE(record.stop, begin.addSecs(21));
    QCOMPARE(record.dyn_t, (QList<double>{22, 23, 24}));
    QCOMPARE(record.dyn_start, begin.addSecs(22));
    flushLive(record, 3, 86390.0);
    QCOMPARE(record.n_cnt, qint64(22));
    flushLive(record, 0, 86390.0);
    QCOMPARE(record.n_cnt, qint64(25));
    QVERIFY(record.dyn_t.isEmpty());
}

void TestLiveSplice::flushKeepsCopies()
{
    Record source, shown;
    fillDays(source, {seconds(0.0, 5, 1.0)});
    shareRecord(&source, &shown);
    spliceLive(shown, Stream(3, 4.0, 0.0).block, 1.0);
    flushLive(shown, 0, 0.0);
    QCOMPARE(dayLengthsOf(shown), QVector<int>{8});
    QCOMPARE(dayLengthsOf(source), QVector<int>{5});
    // A long part is not made longer, which would copy it.
    Record large;
    fillDays(large, {seconds(0.0, 150000)}, 0.1);
    spliceLive(large, Stream(3, 0.0, 0.0).block, 1.0);
    flushLive(large, 0, 0.0);
    QCOMPARE(dayLengthsOf(large).first(), 150000);
}

void TestLiveSplice::frequencies()
{
    Record record;
    fillDays(record, {{{0, 1}, {0.5, 0.5}}});
    PhaseBefore before = newestSample(record);
    spliceLive(record, Stream(6, 100.0, 0.0, 2.0).block, -1.0);
    LivePoints points = liveFrequencies(record, before, 1000.0);
    QCOMPARE(points.t, (std::vector<double>{1002, 1003, 1004, 1005, 1006, 1007}));
    QCOMPARE(points.x, std::vector<double>(6, -2.0));
    flushLive(record, 2, 0.0, &before);
    QCOMPARE(samplesOf(record.x), (QVector<double>{0.5, 0.5, -2, -2, -2, -2}));
    QCOMPARE(samplesOf(record.t), (QVector<double>{0, 1, 2, 3, 4, 5}));
    points = liveFrequencies(record, before, 0.0);
    QCOMPARE(points.x, std::vector<double>(2, -2.0));
    // A time that does not rise gives no frequency.
    record.dyn_t[1] = record.dyn_t[0];
    QCOMPARE(liveFrequencies(record, before, 0.0).x.size(), size_t(1));
    QCOMPARE(liveFrequencies(record, PhaseBefore(), 0.0).x.size(), size_t(0));
    flushLive(record, 0, 0.0, &before);
    QCOMPARE(record.n_cnt, qint64(7));
}

void TestLiveSplice::newest()
{
    Record record;
    fillDays(record, {seconds(86300.0, 200, 4.0)});
    QCOMPARE(newestStored(record, 10, 0.0).t.front(), 86490.0);
    const LivePoints day = newestStored(record, 150, 0.0);
    QCOMPARE(day.t.size(), size_t(100));
    QCOMPARE(day.x.size(), size_t(100));
    QCOMPARE(day.t.front(), 86400.0);
    QCOMPARE(newestStored(record, 150, 100.0).t.size(), size_t(150));
    Record empty;
    QVERIFY(newestStored(empty, 10, 0.0).t.empty());
}

QTEST_APPLESS_MAIN(TestLiveSplice)
#include "tst_livesplice.moc"
