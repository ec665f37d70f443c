#include "support/dayrecord.h"
#include "support/near.h"
#include "support/samplerecord.h"
#include "table/core/merge.h"

#include <QTest>

#include <cmath>

namespace {

const QDateTime midnight(QDate(2026, 3, 1), QTime(0, 0));

/// n samples, `interval` apart, from second `first` after midnight on; x = value(seconds from midnight).
void fill(Record& record, int first, int n, double interval, const std::function<double(double)>& value)
{
    TestDay day;
    for (int i = 0; i < n; ++i) {
        const double t = first + i * interval;
        day.t.push_back(first % 86400 + i * interval);
        day.x.push_back(value(t));
    }
    fillDays(record, {day}, interval, midnight.addSecs(first));
}

bool yes()
{
    return true;
}

} // namespace

class MergeTest : public QObject {
    Q_OBJECT
private slots:
    void refusals();
    void joints_data();
    void joints();
    void partsBeginAtMidnight();
    void question_data();
    void question();
    void oddSamples();
};

void MergeTest::refusals()
{
    Record a, b, out;
    const auto flat = [](double) { return 0.0; };
    fill(a, 0, 100, 1.0, flat);
    out.ch = 77;
    const auto status = [&] { return mergeRecords(b, a, MergeMode::KeepGap, yes, out).status; };
    for (const int first : {50, 98, 99}) { // inside, by two samples, by one
        fill(b, first, 100, 1.0, flat);
        QCOMPARE(status(), MergeStatus::Overlap);
    }
    fill(b, 50, 1, 1.0, flat);
    QCOMPARE(status(), MergeStatus::Overlap);
    fill(b, 200, 10, 1.0, flat);
    b.dataType = 1;
    QCOMPARE(status(), MergeStatus::OtherTypes);
    b.dataType = 0;
    b.Kdec = 2.0;
    QCOMPARE(status(), MergeStatus::OtherIntervals);
    b.Kdec = 1.0;
    b.t.DayData(0)[9] = qQNaN();
    QCOMPARE(status(), MergeStatus::NoSamples);
    deleteRecord(&b);
    QCOMPARE(status(), MergeStatus::NoSamples);
    QCOMPARE(out.ch, 77);
    QVERIFY(sameSignals(a, b));
    b.ref_sig.clear();
    QVERIFY(!sameSignals(a, b));
}

void MergeTest::joints_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("samples"); // of each record
    QTest::addColumn<double>("firstT"); // of the second record
    QTest::addColumn<double>("firstX");
    QTest::addColumn<double>("lastX");
    // x = 1 + 2t in the first record, ending at t = 2(n-1); 5 - 3(t-1000) in the second, from 1000 on.
    const auto row = [](const char* name, MergeMode mode, int n, double t, double x, double lastX) {
        QTest::newRow(name) << int(mode) << n << t << x << lastX;
    };
    row("phase", MergeMode::StitchPhase, 10, 20.0, 41.0, 41.0 - 54.0);
    row("phase, two samples", MergeMode::StitchPhase, 2, 4.0, 9.0, 3.0);
    row("phase, one sample", MergeMode::StitchPhase, 1, 2.0, 1.0, 1.0);
    row("frequency", MergeMode::StitchFrequency, 10, 1000.0, 2001.0, 2037.0);
    row("frequency, a line", MergeMode::StitchFrequency, 3, 1000.0, 2001.0, 2009.0);
    row("frequency, one sample", MergeMode::StitchFrequency, 1, 1000.0, 1.0, 1.0);
    row("gap", MergeMode::KeepGap, 10, 1000.0, 2.0 * (1000.0 - 18.0 - 1.0) + 37.0, 1999.0 - 54.0);
}

void MergeTest::joints()
{
    QFETCH(int, mode);
    QFETCH(int, samples);
    Record a, b, out;
    fill(a, 0, samples, 2.0, [](double t) { return 1.0 + 2.0 * t; });
    fill(b, 1000, samples, 2.0, [](double t) { return 5.0 - 3.0 * (t - 1000.0); });
    const MergeResult result = mergeRecords(b, a, MergeMode(mode), yes, out);
    QCOMPARE(result.status, MergeStatus::Ok);
    QCOMPARE(dayLengthsOf(out), QVector<int>{2 * samples});
    QVERIFY(rises(out.t));
    QCOMPARE(out.x[samples - 1], a.x[samples - 1]);
    QTEST(out.t[samples], "firstT");
    QFETCH(double, firstX);
    NEAR(out.x[samples], firstX, 1e-9);
    QFETCH(double, lastX);
    NEAR(out.x[2 * samples - 1], lastX, 1e-9);
    NEAR(result.valueShift, firstX - 5.0, 1e-9);
}

void MergeTest::partsBeginAtMidnight()
{
    // A parabola that goes on behind a gap of a day needs no move, and one with another slope is turned back.
    const auto parabola = [](double t) { return 1e-9 + 1e-12 * t + 1e-18 * t * t; };
    Record a, b, out;
    fill(a, 80000, 100000, 1.0, parabola);
    fill(b, 80000 + 200000, 100000, 1.0, [&](double t) { return parabola(t) - 3e-12 * t + 7.0; });
    const MergeResult result = mergeRecords(a, b, MergeMode::StitchFrequency, {}, out);
    QCOMPARE(result.leftOut, 0);
    QCOMPARE(dayLengthsOf(out), QVector<int>({6400, 86400, 7200, 65600, 34400}));
    for (const int i : {0, 99999, 100000, 199999})
        NEAR(out.x[i], parabola(80000.0 + i + (i < 100000 ? 0 : 100000)), 1e-6);
    QCOMPARE(out.t[100000], 280000.0);
    QCOMPARE(out.start, a.start);
    QCOMPARE(out.stop, b.stop);

    QCOMPARE(mergeRecords(a, b, MergeMode::StitchPhase, {}, out).leftOut, 0);
    QCOMPARE(dayLengthsOf(out), QVector<int>({6400, 86400, 86400, 20800}));
    QCOMPARE(out.stop, a.start.addSecs(199999));
}

void MergeTest::question_data()
{
    QTest::addColumn<double>("jump");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<bool>("asked");
    QTest::newRow("small") << 0.2 << true << false;
    QTest::newRow("large, yes") << 0.8 << true << true;
    QTest::newRow("large, no") << 0.8 << false << true;
}

void MergeTest::question()
{
    QFETCH(double, jump);
    QFETCH(bool, answer);
    Record a, b, out;
    // Frequency 10, a second of which the shift lacks, and steps of 0.5 up and down.
    fill(a, 0, 101, 1.0, [](double t) {
        return std::fmod(t, 4.0) == 1.0 || std::fmod(t, 4.0) == 2.0 ? 10.0 * t + 0.5 : 10.0 * t;
    });
    fill(b, 200, 50, 1.0, [&](double t) { return 10.0 * t + jump; });
    bool asked = false;
    const auto ask = [&] {
        asked = true;
        return answer;
    };
    const MergeResult result = mergeRecords(a, b, MergeMode::KeepGap, ask, out);
    QTEST(asked, "asked");
    NEAR(result.valueShift, asked && answer ? -jump - 10.0 : 0.0, 0.0, 0.2);
    NEAR(out.x[150] - (jump + 2490.0), result.valueShift);
    QCOMPARE(out.t[101], 200.0);
}

void MergeTest::oddSamples()
{
    const double nan = qQNaN();
    for (const MergeMode mode : {MergeMode::StitchPhase, MergeMode::StitchFrequency, MergeMode::KeepGap}) {
        Record a, b, out;
        fillDays(a, {{{0, 1, 2, 3, 4, 4, 6}, {0, 1, nan, 3, 4, 4, nan}}, {}, {{nan, 7}, {1, 7}}});
        fillDays(b, {{{10, 11, 12}, {nan, 50, nan}}}, 1.0, midnight.addSecs(10));
        const MergeResult result = mergeRecords(a, b, mode, yes, out);
        QCOMPARE(result.status, MergeStatus::Ok);
        QCOMPARE(result.leftOut, 2);
        NEAR(result.valueShift, mode == MergeMode::StitchFrequency ? -40.0 : -41.0, 1e-9);
        QVERIFY(rises(out.t));
        QCOMPARE(out.n_cnt, 10);
        QVERIFY(qIsNaN(out.x[7]) && qIsFinite(out.x[8]) && qIsNaN(out.x[2]));
        fillDays(b, {{{10}, {nan}}}, 1.0, midnight.addSecs(10));
        QCOMPARE(mergeRecords(a, b, mode, yes, out).valueShift, 0.0);
    }
}

QTEST_APPLESS_MAIN(MergeTest)
#include "tst_merge.moc"
