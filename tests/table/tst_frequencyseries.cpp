#include "support/dayrecord.h"
#include "support/near.h"
#include "table/core/frequencyseries.h"

#include <QTest>

#include <cmath>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Phase t squared at the times given.
TestDay parabola(const std::vector<double>& times)
{
    TestDay day{times, {}};
    for (const double t : times)
        day.x.push_back(t * t);
    return day;
}

} // namespace

class TestFrequencySeries : public QObject {
    Q_OBJECT
private slots:
    void series_data();
    void series();
    void record();
    void otherData();
};

void TestFrequencySeries::series_data()
{
    using Times = QVector<double>;
    QTest::addColumn<Times>("times");
    QTest::addColumn<double>("sampling");
    QTest::addColumn<double>("wanted");
    QTest::addColumn<Times>("t");
    QTest::addColumn<Times>("y");
    QTest::newRow("neighbours") << Times{0, 1, 2, 3} << 1.0 << 1.0 << Times{0, 1, 2} << Times{1, 3, 5};
    QTest::newRow("every other") << Times{0, 1, 2, 3, 4} << 1.0 << 2.0 << Times{0, 2} << Times{2, 6};
    QTest::newRow("gap of twice the interval")
        << Times{0, 1, 3, 4} << 1.0 << 1.0 << Times{0, 3} << Times{1, 7};
    QTest::newRow("shorter gap") << Times{0, 1, 2.5, 3.5} << 1.0 << 1.0 << Times{0, 1, 2.5}
                                 << Times{1, 3.5, 6};
    QTest::newRow("unsteady neighbours")
        << Times{0, 0.875, 2, 3} << 1.0 << 1.0 << Times{0, 0.875, 2} << Times{0.875, 2.875, 5};
    QTest::newRow("unsteady, every other")
        << Times{0, 1, 1.875, 3, 5} << 1.0 << 2.0 << Times{0, 3} << Times{3, 8};
    QTest::newRow("as coarse as can be") << Times{0, 4, 8} << 4.0 << 1.0 << Times{0, 4} << Times{4, 12};
    QTest::newRow("nearest multiple") << Times{0, 3, 6, 9, 12} << 3.0 << 10.0 << Times{0} << Times{9};
    QTest::newRow("unknown sampling") << Times{0, 1, 2, 3} << 0.0 << 2.0 << Times{0} << Times{2};
    QTest::newRow("one sample") << Times{5} << 1.0 << 1.0 << Times() << Times();
    QTest::newRow("none") << Times() << 1.0 << 1.0 << Times() << Times();
    QTest::newRow("times that stand") << Times{0, 0, 1} << 1.0 << 1.0 << Times{0} << Times{1};
}

void TestFrequencySeries::series()
{
    QFETCH(QVector<double>, times);
    QFETCH(double, sampling);
    QFETCH(double, wanted);
    Record source, out;
    fillDays(source, {parabola({times.begin(), times.end()})}, sampling);
    frequencySeries(source, wanted, out);
    QTEST(samplesOf(out.t), "t");
    QTEST(samplesOf(out.x), "y");
    QCOMPARE(out.n_cnt, qint64(out.t.count));
}

void TestFrequencySeries::record()
{
    Record source, out;
    const QDateTime begin(QDate(2026, 3, 1), QTime(23, 59, 57));
    fillDays(source, {parabola({0, 1, 2}), parabola({}), parabola({3, 4, notANumber, 6})}, 1.0, begin);
    source.RecID = 7;
    source.dynamic = true;
    source.dyn_t << 7 << 8;
    source.dyn_x << 49 << 64;
    source.dyn_n_cnt = 2;
    frequencySeries(source, 1.0, out);
    // None from one part to the next; the tail is counted in, and the source stays.
    QCOMPARE(samplesOf(out.t).mid(0, 3), (QVector<double>{0, 1, 3}));
    QCOMPARE(samplesOf(out.x).mid(0, 3), (QVector<double>{1, 3, 7}));
    QCOMPARE(samplesOf(out.x).last(), 15.0);
    QVERIFY(!dayLengthsOf(out).isEmpty());
    QCOMPARE(out.start, begin);
    QCOMPARE(out.stop, begin.addSecs(7));
    QCOMPARE(out.RecID, quint16(7));
    QVERIFY(out.dynamic && out.dyn_t.isEmpty());
    QCOMPARE(source.n_cnt, qint64(7));
    QCOMPARE(source.dyn_n_cnt, qint64(2));
    // At another step, and behind a first sample without a partner, `start` goes along.
    fillDays(source, {parabola({0, 5, 7, 9})}, 1.0, begin);
    source.dyn_n_cnt = 0;
    frequencySeries(source, 2.0, out);
    QCOMPARE(out.Kdec, 2.0);
    QCOMPARE(out.start, begin.addSecs(5));
}

void TestFrequencySeries::otherData()
{
    Record source, out;
    fillDays(source, {parabola({0, 1, 2})});
    source.dataType = 1;
    source.RecID = 3;
    frequencySeries(source, 10.0, out);
    QCOMPARE(samplesOf(out.x), (QVector<double>{0, 1, 4}));
    QCOMPARE(out.Kdec, 1.0);
    QCOMPARE(out.RecID, quint16(3));
    QCOMPARE(out.dataType, quint16(1));
}

QTEST_APPLESS_MAIN(TestFrequencySeries)
#include "tst_frequencyseries.moc"
