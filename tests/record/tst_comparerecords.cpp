#include "record/comparerecords.h"
#include "record/record.h"

#include <QTest>

#include <cmath>

namespace {

using Times = QList<double>;

const QDateTime midnight(QDate(2024, 3, 5), QTime(0, 0), Qt::UTC);

void fill(Record& rec, const Times& times)
{
    for (const double time : times) {
        rec.t.append(time);
        rec.x.append(0.0);
    }
    rec.n_cnt = times.size();
    rec.start = midnight.addSecs(times.isEmpty() ? 0 : qint64(times.first()));
}

Times grid(double from, double step, int n)
{
    Times times;
    for (int i = 0; i < n; ++i)
        times << from + i * step;
    return times;
}

} // namespace

class TestCompareRecords : public QObject {
    Q_OBJECT
private slots:
    void compare_data();
    void compare();
    void wrongCount();
    void longOffset();
    void linkedZones_data();
    void linkedZones();
};

void TestCompareRecords::compare_data()
{
    QTest::addColumn<Times>("a");
    QTest::addColumn<Times>("b");
    QTest::addColumn<int>("result");
    QTest::addColumn<QList<int>>("ranges");
    QTest::newRow("same") << grid(0, 1, 5) << grid(0, 1, 5) << 1 << QList<int>{0, 4, 0, 4};
    QTest::newRow("shifted") << grid(0, 1, 10) << grid(4, 1, 10) << 1 << QList<int>{4, 9, 0, 5};
    QTest::newRow("inside") << grid(0, 1, 100) << grid(40, 1, 5) << 1 << QList<int>{40, 44, 0, 4};
    QTest::newRow("1 s and 10 s") << grid(0, 1, 100) << grid(25, 10, 20) << 1 << QList<int>{25, 99, 0, 8};
    QTest::newRow("off the grid") << grid(0, 1, 10) << Times{2, 3.5, 4.5} << 1 << QList<int>{2, 5, 0, 2};
    QTest::newRow("touching") << grid(0, 1, 5) << grid(4, 1, 5) << 0 << QList<int>{0, 4, 0, 4};
    QTest::newRow("apart") << grid(0, 1, 5) << grid(50, 1, 5) << 0 << QList<int>{0, 4, 0, 4};
    QTest::newRow("one sample") << grid(0, 1, 1) << grid(0, 1, 5) << 0 << QList<int>{0, 0, 0, 4};
    QTest::newRow("empty") << Times{} << Times{} << 0 << QList<int>{0, -1, 0, -1};
    QTest::newRow("repeated stamps") << Times{0, 0, 1, 2} << Times{0, 0, 1, 2} << 1 << QList<int>{0, 3, 0, 3};
    QTest::newRow("not a number") << Times{0, std::nan(""), 2} << Times{0, 1, 2} << 1
                                  << QList<int>{0, 2, 0, 2};
    QTest::newRow("falling") << Times{5, 4, 3} << grid(0, 1, 9) << 0 << QList<int>{0, 2, 3, 5};
}

void TestCompareRecords::compare()
{
    QFETCH(Times, a);
    QFETCH(Times, b);
    QFETCH(int, result);
    QFETCH(QList<int>, ranges);
    Record recA;
    Record recB;
    fill(recA, a);
    fill(recB, b);
    int a0 = -5;
    int a1 = -5;
    int b0 = -5;
    int b1 = -5;
    QCOMPARE(compareRecords(&recA, &recB, a0, a1, b0, b1), result);
    QCOMPARE((QList<int>{a0, a1, b0, b1}), ranges);
    QCOMPARE(compareRecords2(&recB, &recA, b0, b1, a0, a1), result);
    QCOMPARE((QList<int>{a0, a1, b0, b1}), ranges);
}

void TestCompareRecords::wrongCount()
{
    Record a;
    Record b;
    fill(a, grid(0, 1, 5));
    fill(b, grid(0, 1, 5));
    a.n_cnt = 50;
    int a0 = 0;
    int a1 = 0;
    int b0 = 0;
    int b1 = 0;
    QCOMPARE(compareRecords(&a, &b, a0, a1, b0, b1), 1);
    QCOMPARE(a1, 4);
    QCOMPARE(a.n_cnt, 5);
}

void TestCompareRecords::longOffset()
{
    Record a;
    Record b;
    fill(a, grid(0, 1, 400000));
    fill(b, grid(399000, 1, 400000));
    int a0 = 0;
    int a1 = 0;
    int b0 = 0;
    int b1 = 0;
    QCOMPARE(compareRecords(&a, &b, a0, a1, b0, b1), 1);
    QCOMPARE((QList<int>{a0, a1, b0, b1}), (QList<int>{399000, 399999, 0, 999}));
}

void TestCompareRecords::linkedZones_data()
{
    QTest::addColumn<Times>("times");
    QTest::addColumn<QList<int>>("want");
    QTest::newRow("gap") << Times{0, 1, 5, 6} << QList<int>{2, 1};
    QTest::newRow("exactly two steps") << Times{0, 1, 3} << QList<int>{2};
    QTest::newRow("gap at the end") << Times{0, 1, 4} << QList<int>{2, 0};
    QTest::newRow("repeated") << Times{0, 1, 1, 2} << QList<int>{2, 1};
    QTest::newRow("falling") << Times{0, 1, 0.5, 1.5} << QList<int>{2, 1};
    QTest::newRow("not a number") << Times{0, std::nan(""), 2, 3} << QList<int>{1, 1, 1};
    QTest::newRow("one value") << Times{7} << QList<int>{0};
    QTest::newRow("no value") << Times{} << QList<int>{0};
}

void TestCompareRecords::linkedZones()
{
    QFETCH(Times, times);
    QFETCH(QList<int>, want);
    doubleArray axis(2); // with part boundaries between the values
    for (const double time : times)
        axis.append(time);
    QCOMPARE(break_Tarr_Linkedzones(&axis, 1.0), want);
}

QTEST_APPLESS_MAIN(TestCompareRecords)
#include "tst_comparerecords.moc"
