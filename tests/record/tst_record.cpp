#include "base/globals.h"
#include "record/record.h"

#include <QTest>

#include <new>
#include <numeric>
#include <vector>

namespace {

/// Days of these lengths; t rises by 1 from the seconds of the day of `start`, x is the negative of t.
void fill(Record& rec, const QList<int>& days)
{
    rec.start = QDateTime(QDate(2024, 3, 5), QTime(0, 1, 40), Qt::UTC);
    rec.num_in_days = std::make_unique<qint64[]>(size_t(days.size()));
    rec.n_days = days.size();
    double time = 100.0;
    for (int day = 0; day < days.size(); ++day) {
        rec.num_in_days[day] = days[day];
        rec.t.AddNewPart(days[day]);
        rec.x.AddNewPart(days[day]);
        for (int i = 0; i < days[day]; ++i, time += 1.0) {
            const double value = -time;
            rec.t.append__(&time, 1);
            rec.x.append__(&value, 1);
        }
        rec.n_cnt += days[day];
    }
    rec.stop = rec.start.addSecs(rec.n_cnt - 1);
    rec.Kdec = 2.5;
    rec.Band = 3;
    rec.ch = 4;
    rec.ref_sig = QStringLiteral("H1");
    rec.meas_sig = QStringLiteral("Cs");
    rec.dataType = 2;
    rec.devType = 8;
    rec.path = QStringLiteral("/a/b");
    rec.freqTau = 10.0;
    rec.RecID = 513;
    rec.dyn_start = rec.start.addDays(1);
    rec.dyn_stop = rec.start.addDays(2);
    rec.dyn_t = {1.0, 2.0};
    rec.dyn_x = {3.0, 4.0};
    rec.dyn_n_cnt = 2;
    rec.dat_pos = 99;
    rec.dynamic = true;
}

QList<double> values(doubleArray& array)
{
    QList<double> all;
    for (int day = 0; day < array.parts.size(); ++day) {
        for (int i = 0; i < array.DayLengths.at(day); ++i)
            all << array.DayData(day)[i];
    }
    return all;
}

} // namespace

class TestRecord : public QObject {
    Q_OBJECT
private slots:
    void validity_data();
    void validity();
    void wrongCountIsRepaired();
    void deleted();
    void parametersOnly();
    void copied();
    void sharedSamples();
    void copyWithOddDays();
    void copySmart_data();
    void copySmart();
    void ontoItself();
    void phaseKoef();
    void deviceIds();
};

void TestRecord::validity_data()
{
    QTest::addColumn<QList<double>>("times");
    QTest::addColumn<int>("want");
    QTest::newRow("empty") << QList<double>{} << 0;
    QTest::newRow("one") << QList<double>{5} << 0;
    QTest::newRow("rising") << QList<double>{1, 2, 3, 4, 5} << 0;
    QTest::newRow("first step bad") << QList<double>{2, 2, 3, 4, 5} << 0;
    QTest::newRow("later step bad") << QList<double>{1, 2, 3, 3, 5} << 2;
    QTest::newRow("last step bad") << QList<double>{1, 2, 3, 4, 0} << 3;
}

void TestRecord::validity()
{
    QFETCH(QList<double>, times);
    QFETCH(int, want);
    Record rec;
    rec.t = doubleArray(2);
    rec.t.AddNewPart(0);
    rec.t.AddNewPart(2);
    for (const double time : times)
        rec.t.append_(time);
    rec.n_cnt = times.size();
    QCOMPARE(RecIsValid(&rec), want);
}

void TestRecord::wrongCountIsRepaired()
{
    Record rec;
    fill(rec, {3, 2});
    rec.n_cnt = 17;
    Record copy;
    QTest::ignoreMessage(QtDebugMsg, "CRparam: wrong n_cnt!!!!");
    copyRecParamOnly(&rec, &copy);
    QCOMPARE(copy.n_cnt, 5);
    QTest::ignoreMessage(QtDebugMsg, "CRsmrt: wrong n_cnt!!!!");
    copyRecordSmart(&rec, &copy);
    QCOMPARE(copy.n_cnt, 5);
    QTest::ignoreMessage(QtDebugMsg, "CR: wrong n_cnt!!!!");
    copyRecord(&rec, &copy);
    QCOMPARE(copy.n_cnt, 5);
    QTest::ignoreMessage(QtDebugMsg, "RecIsValid: wrong n_cnt!!!!");
    QCOMPARE(RecIsValid(&rec), 0);
    QCOMPARE(rec.n_cnt, 5);
}

void TestRecord::deleted()
{
    Record rec;
    fill(rec, {3, 2});
    deleteRecord(&rec);
    QVERIFY(rec.t.parts.isEmpty() && rec.x.parts.isEmpty() && rec.dyn_t.isEmpty() && rec.dyn_x.isEmpty());
    QVERIFY(rec.n_cnt == 0 && rec.n_days == 0 && !rec.num_in_days && rec.RecID == 0);
    QVERIFY(rec.dynamic && rec.dyn_n_cnt == 2 && rec.dat_pos == 99);
    QCOMPARE(rec.meas_sig, QStringLiteral("Cs"));
    deleteRecord(&rec);
}

void TestRecord::parametersOnly()
{
    Record rec;
    fill(rec, {3, 2});
    Record copy;
    copy.dat_pos = 7;
    copyRecParamOnly(&rec, &copy);
    QVERIFY(copy.Kdec == 2.5 && copy.Band == 3 && copy.ch == 4 && copy.dataType == 2 && copy.devType == 8);
    QVERIFY(copy.ref_sig == rec.ref_sig && copy.meas_sig == rec.meas_sig && copy.path == rec.path);
    QVERIFY(copy.start == rec.start && copy.stop == rec.stop && copy.freqTau == 10.0);
    QVERIFY(copy.RecID == 513 && copy.dynamic && copy.n_cnt == 5 && copy.n_days == 2);
    QVERIFY(copy.num_in_days[0] == 3 && copy.num_in_days[1] == 2);
    QVERIFY(
        copy.t.parts.isEmpty() && copy.dyn_t.isEmpty() && copy.dyn_start.isNull() && copy.dyn_stop.isNull());
    QVERIFY(copy.dyn_n_cnt == 0 && copy.dat_pos == 7);
    Record empty;
    copyRecParamOnly(&empty, &copy);
    QVERIFY(copy.num_in_days && copy.n_days == 0);
}

void TestRecord::copied()
{
    Record rec;
    fill(rec, {3, 0, 2});
    Record copy;
    fill(copy, {9});
    copy.dat_pos = 1;
    copy.dyn_start = copy.dyn_stop = QDateTime();
    copy.dataType = copy.devType = 1;
    copy.path.clear();
    copyRecord(&rec, &copy);
    QCOMPARE(values(copy.t), values(rec.t));
    QCOMPARE(values(copy.x), values(rec.x));
    QCOMPARE(copy.t.capacity, (QList<int>{3, 0, 2}));
    QVERIFY(!copy.x.DayData(1));
    QCOMPARE(copy.t.partLen, 5);
    QVERIFY(copy.dyn_start == rec.dyn_start && copy.dyn_stop == rec.dyn_stop && copy.dyn_n_cnt == 2);
    QVERIFY(copy.dyn_t == rec.dyn_t && copy.dyn_x == rec.dyn_x && copy.dat_pos == 99);
    QVERIFY(copy.dataType == 2 && copy.devType == 8 && copy.path == rec.path && copy.num_in_days[2] == 2);
    copy.x[0] = 0.0;
    QCOMPARE(rec.x[0], -100.0);
    rec.dyn_n_cnt = 0;
    copyRecord(&rec, &copy);
    QVERIFY(copy.dyn_t.isEmpty());
    copy.t.append(1000.0); // below `partLen`, so that the last part grows
    QCOMPARE(values(copy.t), values(rec.t) + QList<double>{1000.0});
}

void TestRecord::sharedSamples()
{
    Record rec;
    fill(rec, {3, 2});
    Record copy;
    shareRecord(&rec, &copy);
    QVERIFY(copy.x.DayData(0) == rec.x.DayData(0));
    QCOMPARE(copy.n_cnt, 5);
    QCOMPARE(copy.num_in_days[1], 2);
    const QList<double> before = values(rec.x);
    // What either side appends stays its own, and so does what it writes once it owns its samples.
    rec.x.append(7.0);
    copy.x.append(8.0);
    QCOMPARE(values(rec.x), before + QList<double>{7.0});
    QCOMPARE(values(copy.x), before + QList<double>{8.0});
    ownSamples(&copy);
    copy.x[0] = 1e9;
    copy.t[4] = 1e9;
    QCOMPARE(values(rec.x), before + QList<double>{7.0});
    QVERIFY(rec.t[4] != 1e9);
    deleteRecord(&rec);
    QCOMPARE(values(copy.x).mid(1), before.mid(1) + QList<double>{8.0});
}

void TestRecord::copyWithOddDays()
{
    Record rec;
    fill(rec, {3, 2});
    rec.num_in_days[0] = 10;
    rec.num_in_days[1] = 1;
    Record copy;
    copyRecord(&rec, &copy);
    QCOMPARE(values(copy.t), (QList<double>{100, 101, 102, 103}));
    rec.n_days = 3;
    rec.num_in_days.reset();
    copyRecord(&rec, &copy);
    QCOMPARE(values(copy.t), values(rec.t));
    QCOMPARE(copy.num_in_days[0], 3);
    rec.n_days = -1;
    QVERIFY_EXCEPTION_THROWN(copyRecord(&rec, &copy), std::bad_array_new_length);
    rec.n_days = 1;
    rec.num_in_days = std::make_unique<qint64[]>(1);
    rec.num_in_days[0] = -4;
    QVERIFY_EXCEPTION_THROWN(copyRecord(&rec, &copy), std::bad_array_new_length);
}

void TestRecord::copySmart_data()
{
    QTest::addColumn<QList<int>>("days");
    QTest::addColumn<int>("shift"); // of the start against t[0], s
    QTest::addColumn<QList<int>>("want");
    QTest::newRow("days") << QList<int>{2, 3, 1} << 0 << QList<int>{3, 6};
    QTest::newRow("sample by sample") << QList<int>{2, 3, 1} << 1 << QList<int>{3, 6};
    QTest::newRow("empty day") << QList<int>{0, 2, 0, 1} << 0 << QList<int>{2, 3};
    QTest::newRow("empty") << QList<int>{} << 0 << QList<int>{};
}

void TestRecord::copySmart()
{
    QFETCH(QList<int>, days);
    QFETCH(int, shift);
    QFETCH(QList<int>, want);
    Record rec;
    fill(rec, days);
    rec.start = rec.start.addSecs(shift);
    Record copy;
    copyRecordSmart(&rec, &copy);
    const QList<int> lengths = copy.x.DayLengths;
    QCOMPARE(lengths, want);
    QCOMPARE(values(copy.t), values(rec.t));
    QCOMPARE(values(copy.x), values(rec.x));
    QVERIFY(copy.dataType == 0 && copy.devType == 65535 && copy.dyn_n_cnt == 0 && copy.dat_pos == 0);
    QVERIFY(copy.dyn_t == rec.dyn_t && copy.path == rec.path && copy.n_cnt == rec.n_cnt);
}

void TestRecord::ontoItself()
{
    Record rec;
    fill(rec, {3, 2});
    copyRecord(&rec, &rec);
    copyRecParamOnly(&rec, &rec);
    copyRecordSmart(&rec, &rec);
    QVERIFY(values(rec.t).size() == 5 && rec.num_in_days && rec.n_cnt == 5);
}

void TestRecord::phaseKoef()
{
    const QList<int> plain{3, 8, 9};
    for (int devType = 0; devType < 15; ++devType)
        QCOMPARE(PhaseKoef(devType), plain.contains(devType) ? -1.0 : -1e-06);
    for (const int devType : {15, 16, 65535, -1})
        QCOMPARE(PhaseKoef(devType), 1.0);
}

void TestRecord::deviceIds()
{
    lastUsedDevID = 254;
    QCOMPARE(int(newDevID()), 255);
    QCOMPARE(int(newDevID()), 0);
    QCOMPARE(int(lastUsedDevID), 0);
}

QTEST_APPLESS_MAIN(TestRecord)
#include "tst_record.moc"
