#include "support/dayrecord.h"
#include "support/near.h"
#include "support/samplerecord.h"
#include "table/core/outliers.h"

#include <QTest>

#include <cmath>
#include <numeric>

using Values = std::vector<double>;

namespace {

/// r1 = 1, r2 = 1/2, and so on in turn.
RandomSource oneAndHalf()
{
    return [state = false]() mutable {
        state = !state;
        return state ? 2147483647 : 1073741824;
    };
}

const double half = 1073741824.0 / 2147483647.0;

void fill(Record& record, const std::vector<Values>& days, int dataType)
{
    std::vector<TestDay> samples;
    double t = 100.0;
    for (const Values& x : days) {
        samples.push_back({Values(x.size()), x});
        std::iota(samples.back().t.begin(), samples.back().t.end(), t);
        t += double(x.size());
    }
    fillDays(record, samples);
    record.dataType = quint16(dataType);
}

} // namespace

Q_DECLARE_METATYPE(std::vector<Values>)

class OutliersTest : public QObject {
    Q_OBJECT
private slots:
    void limitTexts_data();
    void limitTexts();
    void samplesAreReplaced_data();
    void samplesAreReplaced();
    void oddSamplesSurvive();
    void longPhaseRecord();
};

void OutliersTest::limitTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("limit"); // negative for none
    QTest::addColumn<bool>("forPhase");
    QTest::addColumn<bool>("forOthers");
    const auto row = [](const char* text, double limit, bool forPhase, bool forOthers) {
        QTest::newRow(text) << QString::fromUtf8(text) << limit << forPhase << forOthers;
    };
    row("1", 1.0, false, true);
    row("1.0e0", 1.0, false, true);
    row("0", 0.0, false, false);
    row(" 2,5e-9 ", 2.5e-9, true, true);
    row("100", 100.0, true, true);
    for (const char* text : {"", "abc", "1 2", "-2", "inf", "nan", "1e999", "0x10"})
        row(text, -1.0, false, false);
}

void OutliersTest::limitTexts()
{
    QFETCH(QString, text);
    const std::optional<double> limit = limitFromText(text);
    QTEST(limit.value_or(-1.0), "limit");
    QTEST(limitFilters(limit, 0), "forPhase");
    QTEST(limitFilters(limit, 1), "forOthers");
}

void OutliersTest::samplesAreReplaced_data()
{
    using Days = std::vector<Values>;
    QTest::addColumn<int>("dataType");
    QTest::addColumn<bool>("ofChange");
    QTest::addColumn<Days>("days");
    QTest::addColumn<Days>("after");
    QTest::addColumn<int>("replaced");
    // The median step is 1, the largest deviation before the outlier 0.5: the step becomes 1 + 0.5 * half.
    const double step = 1.0 + 0.5 * half;
    QTest::newRow("phase: no step is left, the next day stays")
        << 0 << false << Days{{0, 1, 2.5, 3.5, 13.5, 14.5, 15.5}, {16.5, 17.5}}
        << Days{{0, 1, 2.5, 3.5, 3.5 + step, 4.5 + step, 5.5 + step}, {16.5, 17.5}} << 1;
    QTest::newRow("phase: a spike is two outliers")
        << 0 << false << Days{{0, 1, 2, 12, 4, 5, 6}} << Days{{0, 1, 2, 3, 4, 5, 6}} << 2;
    QTest::newRow("phase: nothing beyond the limit")
        << 0 << false << Days{{0, 1, 4, 5, 6}} << Days{{0, 1, 4, 5, 6}} << 0;
    QTest::newRow("another kind: the sample itself, others stay")
        << 1 << false << Days{{20, 21, 19, 50, 20, 20}} << Days{{20, 21, 19, 20 + half, 20, 20}} << 1;
    // Steps 0 0 1 0 9 ...: changes 0 1 -1 9 -9, median 0, largest 1; the step becomes 1 * half, and the
    // change to the one behind it stays below the limit.
    QTest::newRow("phase, change") << 0 << true << Days{{0, 0, 0, 1, 1, 10, 10, 10}}
                                   << Days{{0, 0, 0, 1, 1, 1 + half, 1 + half, 1 + half}} << 1;
    // The median change is 1: it is the step that becomes that, times half.
    QTest::newRow("phase, change with a drift")
        << 0 << true << Days{{0, 0, 1, 3, 6, 10, 15, 35}} << Days{{0, 0, 1, 3, 6, 10, 15, 15 + half}} << 1;
    // Steps 1 1 1.5 1 30 -28 1 1: median 1, largest 0.5; the step becomes 1 + 0.5 * half.
    QTest::newRow("another kind, change") << 2 << true << Days{{0, 1, 2, 3.5, 4.5, 34.5, 6.5, 7.5, 8.5}}
                                          << Days{{0, 1, 2, 3.5, 4.5, 5.5 + 0.5 * half, 6.5, 7.5, 8.5}} << 1;
}

void OutliersTest::samplesAreReplaced()
{
    QFETCH(int, dataType);
    QFETCH(bool, ofChange);
    QFETCH(std::vector<Values>, days);
    QFETCH(std::vector<Values>, after);
    Record record;
    fill(record, days, dataType);
    const QVector<double> times = samplesOf(record.t);
    OutlierLimits limits;
    (ofChange ? limits.change : limits.frequency) = 4.0;
    QTEST(int(removeOutliers(record, limits, oneAndHalf())), "replaced");
    for (size_t day = 0; day < after.size(); ++day) {
        for (size_t i = 0; i < after[day].size(); ++i)
            NEAR(record.x.DayData(int(day))[i], after[day][i]);
    }
    QCOMPARE(samplesOf(record.t), times);
}

void OutliersTest::oddSamplesSurvive()
{
    const double nan = qQNaN();
    Record record;
    for (int dataType = 0; dataType < 4; ++dataType) {
        const Values day{0, 1, nan, nan, 20, 21, 22, 23, 24, 25, 1e6, 27, 28, 29, 30, 31, 32};
        fill(record, {{}, {nan}, day, {1, qInf(), 3, 4, 5, 6, 7, 8}}, dataType);
        record.t.DayData(2)[14] = nan;
        QVERIFY(removeOutliers(record, {50.0, 50.0}, oneAndHalf()) > 0);
        QVERIFY(qIsNaN(record.x.DayData(1)[0]));
        for (size_t i = 0; i < day.size(); ++i)
            QVERIFY(
                qIsNaN(day[i]) ? qIsNaN(record.x.DayData(2)[i]) : std::abs(record.x.DayData(2)[i]) < 50.0);
        for (int i = 0; i < 8; ++i)
            QVERIFY(std::abs(record.x.DayData(3)[i]) < 50.0);
    }
    fillDays(record, {{{0, 1, 2}, {1}}, {{3}, {}}});
    QCOMPARE(removeOutliers(record, {50.0, 50.0}, oneAndHalf()), 0);
}

void OutliersTest::longPhaseRecord()
{
    Record record;
    Lehmer noise;
    double phase = 0.0;
    fillRecord(record, 200000, 1.0, [&](int i) {
        phase += 1e-12 * (noise.next() - 0.5) + (i % 1000 == 999 ? 1e-6 : 0.0);
        return phase;
    });
    qint64 state = 1;
    const RandomSource random = [&state] { return int(state = state * 16807 % 2147483647); };
    QCOMPARE(removeOutliers(record, {1e-11, {}}, random), 200);
    QVERIFY(std::abs(record.x[86399]) < 1e-8 && std::abs(record.x[86399] - record.x[0]) < 1e-8);
    QCOMPARE(removeOutliers(record, {1e-11, {}}, random), 0);
}

QTEST_APPLESS_MAIN(OutliersTest)
#include "tst_outliers.moc"
