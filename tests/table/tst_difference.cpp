#include "support/dayrecord.h"
#include "support/near.h"
#include "support/samplerecord.h"
#include "table/core/difference.h"

#include <QTest>

class DifferenceTest : public QObject {
    Q_OBJECT
private slots:
    void names_data();
    void names();
    void pairs_data();
    void pairs();
    void refusals();
    void parameters();
};

void DifferenceTest::names_data()
{
    QTest::addColumn<QString>("signalsIn"); // reference and measured signal of both
    QTest::addColumn<QString>("ref");
    QTest::addColumn<QString>("meas");
    QTest::addColumn<bool>("other");
    const auto row = [](const char* in, const char* ref, const char* meas, bool other) {
        QTest::newRow(in) << QString::fromUtf8(in) << QString::fromUtf8(ref) << QString::fromUtf8(meas)
                          << other;
    };
    row("ABAB", "A", "B", false);
    row("ABBA", "A", "B", false);
    row("ABAC", "B", "C", true); // (C-A) - (B-A)
    row("ABCB", "C", "A", true); // (B-C) - (B-A)
    row("ABCA", "B", "C", true);
    row("ABBC", "A", "C", true);
    row("ABCD", "A + B", "B", true);
}

void DifferenceTest::names()
{
    QFETCH(QString, signalsIn);
    const DifferenceNames names =
        differenceNames(signalsIn.at(0), signalsIn.at(1), signalsIn.at(2), signalsIn.at(3));
    QTEST(names.ref_sig, "ref");
    QTEST(names.meas_sig, "meas");
    QTEST(names.otherSignals, "other");
    QCOMPARE(names.common, signalsIn != QLatin1String("ABCD"));
}

void DifferenceTest::pairs_data()
{
    QTest::addColumn<int>("firstMs"); // start of each after midnight
    QTest::addColumn<int>("secondMs");
    QTest::addColumn<QVector<double>>("t1"); // s
    QTest::addColumn<QVector<double>>("t2");
    QTest::addColumn<QVector<double>>("at"); // times of the pairs
    QTest::addColumn<int>("start"); // s after midnight
    QTest::newRow("the same grid") << 0 << 0 << QVector<double>{0, 1, 2, 3} << QVector<double>{0, 1, 2, 3}
                                   << QVector<double>{0, 1, 2, 3} << 0;
    QTest::newRow("later and with a gap")
        << 0 << 2000 << QVector<double>{0, 1, 2, 3, 4, 5, 6} << QVector<double>{2, 3, 5, 6, 7}
        << QVector<double>{2, 3, 5, 6} << 2;
    QTest::newRow("a scale that begins at 0") << 3000 << 5000 << QVector<double>{0, 1, 2, 3, 4}
                                              << QVector<double>{0, 1, 2, 3} << QVector<double>{2, 3, 4} << 5;
    QTest::newRow("off by 0.4 s") << 0 << 0 << QVector<double>{0, 1, 2, 3} << QVector<double>{0.4, 1.4, 2.4}
                                  << QVector<double>{0, 1, 2} << 0;
    QTest::newRow("off by 0.5 s") << 0 << 0 << QVector<double>{0, 1, 2, 3} << QVector<double>{0.5, 1.5, 2.5}
                                  << QVector<double>{} << 0;
    QTest::newRow("off by 0.5 s, as the start tells")
        << 0 << 500 << QVector<double>{0, 1, 2, 3} << QVector<double>{0, 1, 2} << QVector<double>{} << 0;
    QTest::newRow("the first samples do not meet")
        << 0 << 0 << QVector<double>{0, 1, 2, 3} << QVector<double>{0.6, 2, 3} << QVector<double>{1, 2, 3}
        << 1;
}

void DifferenceTest::pairs()
{
    QFETCH(int, firstMs);
    QFETCH(int, secondMs);
    QFETCH(QVector<double>, t1);
    QFETCH(QVector<double>, t2);
    QFETCH(QVector<double>, at);
    QFETCH(int, start);
    const QDateTime midnight(QDate(2026, 3, 1), QTime(0, 0));
    Record a, b, out;
    fillDays(a, {{{t1.begin(), t1.end()}, std::vector<double>(size_t(t1.size()), 1.0)}}, 1.0,
        midnight.addMSecs(firstMs));
    fillDays(b, {{{t2.begin(), t2.end()}, std::vector<double>(size_t(t2.size()), 3.0)}}, 1.0,
        midnight.addMSecs(secondMs));
    const DifferenceResult result = differenceOf(a, b, out);
    QCOMPARE(result.status, at.isEmpty() ? DifferenceStatus::NoPairs : DifferenceStatus::Ok);
    QCOMPARE(samplesOf(out.t), at);
    QCOMPARE(samplesOf(out.x), QVector<double>(at.size(), 2.0));
    if (!at.isEmpty()) {
        QCOMPARE(out.start, midnight.addSecs(start));
        QCOMPARE(out.stop, out.start.addSecs(qint64(at.last() - at.first())));
    }
}

void DifferenceTest::refusals()
{
    Record a, b, out;
    fillRecord(a, 100, 1.0, [](int) { return 0.0; });
    fillRecord(b, 100, 2.0, [](int) { return 0.0; });
    out.ch = 77;
    QCOMPARE(differenceOf(a, b, out).status, DifferenceStatus::OtherIntervals);
    b.Kdec = qQNaN();
    QCOMPARE(differenceOf(b, b, out).status, DifferenceStatus::OtherIntervals);
    deleteRecord(&b);
    b.Kdec = 1.0;
    QCOMPARE(differenceOf(a, b, out).status, DifferenceStatus::NoCommonTime);
    QCOMPARE(differenceOf(b, b, out).status, DifferenceStatus::NoCommonTime);
    fillDays(b, {{{0}, {1}}});
    QCOMPARE(differenceOf(a, b, out).status, DifferenceStatus::NoCommonTime);
    QCOMPARE(out.ch, 77);
    // Times that are no numbers and values that are missing are passed over.
    const double nan = qQNaN();
    fillDays(b, {{{0, 1, nan, 3}, {1}}, {{4, nan, 99}, {2, 3, 4}}});
    const DifferenceResult result = differenceOf(a, b, out);
    QCOMPARE(result.status, DifferenceStatus::Ok);
    QVERIFY(rises(out.t) && out.n_cnt == result.pairs);
}

void DifferenceTest::parameters()
{
    Record a, b, out;
    fillRecord(a, 250000, 1.0, [](int i) { return i; });
    fillRecord(
        b, 250000, 1.0, [](int i) { return 3.0 * i; }, 2);
    a.dynamic = true;
    a.RecID = 5;
    DifferenceResult result = differenceOf(a, b, out);
    QCOMPARE(dayLengthsOf(out), QVector<int>({86400, 86400, 250000 - 2 * 86400}));
    QCOMPARE(out.x[200000], 400000.0);
    QCOMPARE(out.ref_sig, QStringLiteral("Clock 1"));
    QCOMPARE(out.meas_sig, QStringLiteral("Clock 2"));
    QVERIFY(!out.dynamic && out.RecID == 0 && result.otherSignals && !result.countsDiffer);
    result = differenceOf(a, a, out);
    QVERIFY(!result.otherSignals && samplesOf(out.x) == QVector<double>(250000, 0.0));

    // Two parts to the first midnight, from 23:59:58 on, whatever time the scale begins at.
    fillDays(a, {{{0, 1, 2}, {0, 1, 2}}, {{3, 4, 5, 6}, {3, 4, 5, 6}}}, 1.0, a.start.addSecs(86398));
    fillDays(b, {{{86401, 86402, 86403}, {0, 0, 0}}}, 1.0, a.start.addSecs(3));
    QCOMPARE(differenceOf(a, b, out).pairs, 3);
    QCOMPARE(samplesOf(out.x), QVector<double>({-3, -4, -5}));
    fillDays(b, {{{86399, 86400, 86401}, {0, 0, 0}}}, 1.0, a.start.addSecs(1));
    differenceOf(a, b, out);
    QCOMPARE(dayLengthsOf(out), QVector<int>({1, 2}));
    fillRecord(a, 1000, 1.0, [](int i) { return i; });

    for (const int missing : {10, 11}) { // samples of the second record
        TestDay day;
        for (int i = 0; i < 1000; ++i) {
            if (i < 500 || i >= 500 + missing) {
                day.t.push_back(i);
                day.x.push_back(i);
            }
        }
        fillDays(b, {day});
        result = differenceOf(a, b, out);
        QCOMPARE(result.countsDiffer, missing > 10);
        QCOMPARE(out.n_cnt, 1000 - missing);
    }
}

QTEST_APPLESS_MAIN(DifferenceTest)
#include "tst_difference.moc"
