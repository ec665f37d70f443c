#include "support/dayrecord.h"
#include "support/samplerecord.h"
#include "table/core/cutstretch.h"

#include <QTest>

class CutStretchTest : public QObject {
    Q_OBJECT
private slots:
    void stretches_data();
    void stretches();
    void parameters();
    void oddRecords();
};

void CutStretchTest::stretches_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<int>("status");
    QTest::addColumn<QVector<double>>("t");
    const auto row = [](const char* name, double from, double to, CutStatus status,
                         const QVector<double>& t = {}) {
        QTest::newRow(name) << from << to << int(status) << t;
    };
    // Days 100 101 102 104 108 | 200 210 220; borders are counted from 100 on.
    row("samples", 1, 4, CutStatus::Ok, {101, 102, 104});
    row("guess too low: up to the next", 0.5, 3, CutStatus::Ok, {101, 102, 104});
    row("guess too high: down to the one before", 7, 101, CutStatus::Ok, {104, 108, 200, 210});
    row("two days", 4, 110, CutStatus::Ok, {104, 108, 200, 210});
    row("second day", 100, 101, CutStatus::Ok, {200, 210});
    row("end beyond the last sample", 110, 1e9, CutStatus::Ok, {210, 220});
    row("begin before the first sample", -5, 1, CutStatus::Ok, {100, 101});
    row("both before", -5, -1, CutStatus::Ok, {100});
    row("begin beyond the end", 121, 130, CutStatus::BeginUnclear);
    row("begin far between the days", 50, 110, CutStatus::BeginUnclear);
    row("begin just before the second day", 99, 110, CutStatus::BeginNotFound);
    row("end far between the days", 1, 50, CutStatus::EndUnclear);
    row("end just before the second day", 1, 99, CutStatus::EndNotFound);
    row("the end is told before the beginning", 99, 98, CutStatus::EndNotFound);
    row("end on the last sample", 1, 120, CutStatus::EndUnclear);
    row("backwards", 4, 1, CutStatus::EndBeforeBegin);
    row("backwards by days", 110, 1, CutStatus::EndBeforeBegin);
    row("no numbers", qQNaN(), 4, CutStatus::BeginUnclear);
    row("end no number", 1, qQNaN(), CutStatus::EndUnclear);
    row("all", -qInf(), qInf(), CutStatus::Ok, {100, 101, 102, 104, 108, 200, 210, 220});
}

void CutStretchTest::stretches()
{
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(int, status);
    QFETCH(QVector<double>, t);
    Record record, out;
    fillDays(
        record, {{}, {{100, 101, 102, 104, 108}, {0, 1, 2, 4, 8}}, {{200, 210, 220}, {100, 110, 120}}, {}});
    QCOMPARE(int(cutStretch(record, from, to, out)), status);
    QCOMPARE(samplesOf(out.t), t);
    for (int i = 0; i < t.size(); ++i)
        QCOMPARE(out.x.count == 1 ? samplesOf(out.x).at(i) : out.x[i], t.at(i) - 100.0);
}

void CutStretchTest::parameters()
{
    Record record, out;
    fillRecord(
        record, 3 * 172800, 0.5, [](int i) { return i; }, 4); // more samples a day than a part usually has
    record.RecID = 9;
    record.dynamic = true;
    out.dat_pos = 5;
    QCOMPARE(cutStretch(record, 86000.5, 172800.0, out), CutStatus::Ok);
    QCOMPARE(dayLengthsOf(out), QVector<int>({799, 172800, 1}));
    QCOMPARE(out.t.capacity.at(0), 172800);
    QCOMPARE(out.t[0], 86000.5);
    QCOMPARE(out.x[799], 172800.0);
    QCOMPARE(out.start, record.start.addSecs(86000));
    QCOMPARE(out.stop, record.start.addSecs(172800));
    QVERIFY(!out.dynamic && out.RecID == 0 && out.dat_pos == 0 && out.ch == 4);
    // The half second that `start` lost stays known.
    Record again;
    QCOMPARE(cutStretch(out, 1.0, 2.0, again), CutStatus::Ok);
    QCOMPARE(again.t[0], 86001.5);
    QCOMPARE(again.start, record.start.addSecs(86001));
}

void CutStretchTest::oddRecords()
{
    Record record, out;
    QCOMPARE(cutStretch(record, 0, 1, out), CutStatus::NoSamples);
    fillDays(record, {{{7}, {1}}});
    QCOMPARE(cutStretch(record, 0, 1, out), CutStatus::Ok);
    QCOMPARE(dayLengthsOf(out), QVector<int>{1});
    QCOMPARE(cutStretch(record, 0, 0, out), CutStatus::Ok);
    fillDays(record, {{{0, 1, 2}, {}}, {{3, 4}, {5}}});
    QCOMPARE(cutStretch(record, 0, 1, out), CutStatus::NoSamples);
    QCOMPARE(cutStretch(record, 0, 9, out), CutStatus::Ok);
    QCOMPARE(samplesOf(out.t), QVector<double>{3});
    const double nan = qQNaN();
    for (const double first : {nan, 0.0, qInf(), -1e300}) {
        for (const double last : {nan, 0.0, qInf(), 1e300}) {
            fillDays(record, {{{first, nan, 5, nan, last}, {1, 2, 3, 4, 5}}});
            for (const double from : {-1.0, 0.0, 4.0, 1e300})
                cutStretch(record, from, from * 2.0, out);
        }
    }
}

QTEST_APPLESS_MAIN(CutStretchTest)
#include "tst_cutstretch.moc"
