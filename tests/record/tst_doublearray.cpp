#include "record/doublearray.h"
#include "support/near.h"

#include <QTest>

#include <cmath>
#include <new>
#include <numeric>
#include <vector>

namespace {

constexpr double untouched = -777.0;

/// 0, 1, 2, ... in parts of these lengths.
void fill(doubleArray& array, const QList<int>& lengths)
{
    double next = 0.0;
    for (const int length : lengths) {
        std::vector<double> values(size_t(length) + 1);
        std::iota(values.begin(), values.end(), next);
        array.AddNewPart(length);
        array.append__(values.data(), length);
        next += length;
    }
}

QList<int> totals(const doubleArray& array)
{
    return array.DayLengths;
}

bool throwsZero(doubleArray& array, int index)
{
    try {
        array[index] = untouched;
    } catch (int what) {
        return what == 0;
    }
    return false;
}

} // namespace

class TestDoubleArray : public QObject {
    Q_OBJECT
private slots:
    void findsEveryIndex_data();
    void findsEveryIndex();
    void badIndexThrows();
    void singleValue();
    void appendOpensParts_data();
    void appendOpensParts();
    void appendWithoutRoom();
    void appendPastThePart();
    void mid_data();
    void mid();
    void midRefuses();
    void iterator();
    void iteratorWithoutPlace();
    void resetIterator();
    void removeLast();
    void replaceDay();
    void shallowAssignment();
};

void TestDoubleArray::findsEveryIndex_data()
{
    QTest::addColumn<QList<int>>("lengths");
    QTest::newRow("one part") << QList<int>{7};
    QTest::newRow("even") << QList<int>{5, 5, 5, 5};
    QTest::newRow("long first") << QList<int>{1000, 1, 2, 3};
    QTest::newRow("long last") << QList<int>{1, 2, 3, 1000};
    QTest::newRow("empty ones") << QList<int>{0, 3, 0, 0, 4, 0};
    QTest::newRow("two values") << QList<int>{1, 1};
}

void TestDoubleArray::findsEveryIndex()
{
    QFETCH(QList<int>, lengths);
    doubleArray array(100000);
    fill(array, lengths);
    const int total = std::accumulate(lengths.begin(), lengths.end(), 0);
    QCOMPARE(array.count, total);
    for (int i = 0; i < total; ++i)
        QCOMPARE(array[i], double(i));
    for (int i = total - 1; i >= 0; i -= 2) // against the order in which the last hit helps
        QCOMPARE(array[i], double(i));
    QVERIFY(throwsZero(array, -1));
    QVERIFY(throwsZero(array, total));
}

void TestDoubleArray::badIndexThrows()
{
    doubleArray array(10);
    QTest::ignoreMessage(QtDebugMsg, "ERROR throw 0;!");
    QVERIFY(throwsZero(array, 0));
    array.append_(1.0); // counted, yet without a place
    QCOMPARE(array.count, 1);
    QVERIFY(throwsZero(array, 0));
    array.clear();
    fill(array, {3, 3});
    QTest::ignoreMessage(QtDebugMsg, "Strange index, can't find");
    QTest::ignoreMessage(QtDebugMsg, "ERROR throw 0;!");
    QVERIFY(throwsZero(array, 6));
    QVERIFY(throwsZero(array, std::numeric_limits<int>::min()));
    array.AddNewPart(4); // room alone is no value
    QVERIFY(throwsZero(array, 6));
}

void TestDoubleArray::singleValue()
{
    doubleArray array(10);
    fill(array, {0, 1});
    array[0] = 4.5;
    for (const int index : {0, -3, 1, 12345})
        QCOMPARE(array[index], 4.5);
}

void TestDoubleArray::appendOpensParts_data()
{
    QTest::addColumn<int>("partLength");
    QTest::addColumn<QList<int>>("blocks");
    QTest::addColumn<QList<int>>("want");
    QTest::newRow("room left") << 10 << QList<int>{9} << QList<int>{9};
    QTest::newRow("exactly full") << 10 << QList<int>{4, 6} << QList<int>{10};
    QTest::newRow("one more") << 10 << QList<int>{4, 7} << QList<int>{10, 11};
    QTest::newRow("several parts") << 10 << QList<int>{35} << QList<int>{10, 20, 30, 35};
    QTest::newRow("nothing") << 10 << QList<int>{0} << QList<int>{0};
    QTest::newRow("no threshold") << 0 << QList<int>{100001} << QList<int>{100000, 100001};
    QTest::newRow("above a part") << 150000 << QList<int>{100001, 60000} << QList<int>{150000, 160001};
}

void TestDoubleArray::appendOpensParts()
{
    QFETCH(int, partLength);
    QFETCH(QList<int>, blocks);
    QFETCH(QList<int>, want);
    std::vector<double> values(200000);
    std::iota(values.begin(), values.end(), 0.0);
    doubleArray blockwise(partLength);
    doubleArray singly(partLength);
    singly.AddNewPart(100000);
    int done = 0;
    for (const int n : blocks) {
        blockwise.append(values.data() + done, n);
        for (int i = done; i < done + n; ++i)
            singly.append_(values[size_t(i)]);
        done += n;
    }
    QCOMPARE(totals(blockwise), want);
    QCOMPARE(totals(singly), want);
    QCOMPARE(blockwise.count, done);
    QCOMPARE(singly.count, done);
    QCOMPARE(blockwise.filled.last(), blockwise.DayLengths.at(want.size() - 1));
    for (int i = 0; i < done && done > 1; ++i)
        QVERIFY(blockwise[i] == i && singly[i] == i);
}

void TestDoubleArray::appendWithoutRoom()
{
    doubleArray array(10);
    const double values[] = {1.0, 2.0, 3.0};
    array.append_(values, 3);
    QVERIFY(array.parts.isEmpty());
    QCOMPARE(array.count, 3);
    array.clear();
    array.AddNewPart(0);
    QVERIFY(!array.DayData(0));
    array.append(values, 3); // a part without a buffer drops them
    array.append(4.0);
    QCOMPARE(totals(array), QList<int>{0});
    QCOMPARE(array.count, 4);
    array.append__(nullptr, 3);
    array.append(values, -2);
    QCOMPARE(array.count, 2);
    QVERIFY_EXCEPTION_THROWN(array.AddNewPart(-1), std::bad_array_new_length);
}

void TestDoubleArray::appendPastThePart()
{
    doubleArray array(2);
    array.AddNewPart(3);
    const double values[] = {0.0, 1.0, 2.0, 3.0, 4.0};
    array.append__(values, 5); // grows, and heeds no threshold
    array.append__(values, 5);
    QCOMPARE(totals(array), QList<int>{10});
    QCOMPARE(array.filled, QList<int>{10});
    for (int i = 0; i < 10; ++i)
        QCOMPARE(array[i], double(i % 5));
    QTest::ignoreMessage(QtDebugMsg, " wow! 10");
    array.append(values, 2); // the part is above the threshold already
    QCOMPARE(totals(array), (QList<int>{10, 12}));
    QCOMPARE(array[11], 1.0);
}

void TestDoubleArray::mid_data()
{
    QTest::addColumn<QList<int>>("lengths");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("step");
    QTest::addColumn<QList<double>>("want");
    const double nan = std::nan("");
    using Ints = QList<int>;
    using Values = QList<double>;
    QTest::newRow("whole") << Ints{3, 4} << 0 << 1 << Values{0, 1, 2, 3, 4, 5, 6};
    QTest::newRow("inside") << Ints{3, 4} << 4 << 1 << Values{4, 5};
    QTest::newRow("strided") << Ints{3, 4, 4} << 1 << 3 << Values{1, 4, 7, 10};
    QTest::newRow("step over a part") << Ints{4, 1, 2, 5} << 0 << 5 << Values{0, 5, 10};
    QTest::newRow("last value") << Ints{3, 4} << 6 << 1 << Values{6};
    QTest::newRow("at the end") << Ints{3, 4} << 7 << 1 << Values{nan};
    QTest::newRow("to the end") << Ints{3, 4} << 5 << 1 << Values{5, 6, nan};
    QTest::newRow("empty part") << Ints{3, 0, 4} << 1 << 1 << Values{1, 2, untouched, 3, 4};
    QTest::newRow("empty part, strided") << Ints{3, 0, 4} << 0 << 4 << Values{0, untouched};
    QTest::newRow("empty part first") << Ints{0, 3} << 0 << 1 << Values{0, 1};
    QTest::newRow("backwards") << Ints{3, 4} << 5 << -2 << Values{5, 3, 1};
    QTest::newRow("before the front") << Ints{3, 4} << 3 << -3 << Values{3, 0, nan, nan};
    QTest::newRow("back from the end") << Ints{3, 4} << 7 << -1 << Values{nan, 6, 5};
    QTest::newRow("standing") << Ints{3, 4} << 3 << 0 << Values{3, 3, 3};
    QTest::newRow("none") << Ints{3, 4} << 3 << 1 << Values{};
}

void TestDoubleArray::mid()
{
    QFETCH(QList<int>, lengths);
    QFETCH(int, start);
    QFETCH(int, step);
    QFETCH(QList<double>, want);
    doubleArray array(100000);
    fill(array, lengths);
    constexpr double base = 0.25;
    std::vector<double> got(size_t(want.size()) + 1, untouched);
    array.mid(start, want.size(), step, got.data(), base);
    for (int i = 0; i < want.size(); ++i)
        NEAR(got[size_t(i)], want[i] == untouched ? untouched : want[i] - base);
    QCOMPARE(got.back(), untouched);
}

void TestDoubleArray::midRefuses()
{
    doubleArray array(10);
    double got[3] = {untouched, untouched, untouched};
    array.mid(0, 1, 1, got, 0.0);
    fill(array, {5});
    array.mid(-1, 3, 1, got, 0.0);
    array.mid(6, 1, 1, got, 0.0);
    array.mid(0, 3, 3, got, 0.0);
    array.mid(1, 3, std::numeric_limits<int>::max(), got, 0.0);
    for (const double value : got)
        QCOMPARE(value, untouched);
    array.mid(0, 3, 1, nullptr, 0.0);
    array.mid(1, 3, 2, got, 0.0); // the last index equals the count
    QCOMPARE(got[1], 3.0);
    QVERIFY(std::isnan(got[2]));
}

void TestDoubleArray::iterator()
{
    doubleArray array(10);
    fill(array, {0, 3, 0, 0, 2});
    array.resetIterator(0);
    QCOMPARE(int(array.itDay), 1);
    bool ok = false;
    for (int i = 1; i < 5; ++i) {
        const double* value = array.nextEl(ok);
        QVERIFY(ok);
        QCOMPARE(*value, double(i));
    }
    QVERIFY(array.nextEl(ok) == array.DayData(0) && !ok);
    for (int i = 3; i >= 0; --i) {
        const double* value = array.prevEl(ok);
        QVERIFY(ok);
        QCOMPARE(*value, double(i));
    }
    QVERIFY(array.prevEl(ok) == array.DayData(0) && !ok);
    QCOMPARE(*array.nextEl(ok), 1.0); // the failed step back left it on the first value

    array.AddNewPart(0);
    array.resetIterator(4, 1);
    QVERIFY(array.nextEl(ok) == array.DayData(0) && !ok);
    QCOMPARE(int(array.itDay), 5);
    QCOMPARE(array.itPos, 0U);
    QCOMPARE(*array.prevEl(ok), 4.0);
}

void TestDoubleArray::iteratorWithoutPlace()
{
    doubleArray array(10);
    bool ok = true;
    QVERIFY(!array.nextEl(ok) && !ok);
    ok = true;
    QVERIFY(!array.prevEl(ok) && !ok);
    fill(array, {8});
    array.resetIterator(7);
    array.removeLast(5);
    QVERIFY(array.prevEl(ok) == array.DayData(0) + 6 && ok); // the values taken off still stand there
    array.resetIterator(2);
    array.clear();
    array.AddNewPart(0);
    ok = true;
    QVERIFY(!array.prevEl(ok) && !ok);
}

void TestDoubleArray::resetIterator()
{
    doubleArray array(10);
    fill(array, {3, 0, 4});
    array.resetIterator(3);
    QCOMPARE(int(array.itDay), 2);
    QCOMPARE(array.itPos, 0U);
    for (const int index : {7, -1}) {
        array.resetIterator(2, 3);
        QCOMPARE(array.itPos, 3U);
        array.resetIterator(index);
        QVERIFY(array.itDay == 0 && array.itPos == 0);
    }
    const QList<QPair<int, int>> outside{{2, 4}, {3, 0}, {1, 0}, {-1, 0}, {2, -1}};
    for (const auto& [day, pos] : outside) {
        array.resetIterator(2, 3);
        array.resetIterator(day, pos);
        QVERIFY(array.itDay == 0 && array.itPos == 0);
    }
}

void TestDoubleArray::removeLast()
{
    doubleArray array(10);
    array.removeLast(2);
    fill(array, {3, 4});
    array.removeLast(1);
    QCOMPARE(totals(array), (QList<int>{3, 6}));
    QCOMPARE(array.count, 7);
    QCOMPARE(array.filled, (QList<int>{3, 4}));
    QVERIFY(throwsZero(array, 6));
    array.removeLast(100);
    QCOMPARE(totals(array), (QList<int>{3, 3}));
    const double value = 9.0;
    array.append__(&value, 1); // takes the place that has become free
    QCOMPARE(array[3], 9.0);
}

void TestDoubleArray::replaceDay()
{
    doubleArray array(10);
    fill(array, {3, 4, 2});
    const double values[] = {10.0, 11.0, 12.0, 13.0, 14.0, 15.0};
    array.replaceDay(1, values, 6);
    QCOMPARE(totals(array), (QList<int>{3, 9, 11}));
    QCOMPARE(array.count, 9);
    QCOMPARE(array[8], 15.0);
    QCOMPARE(array[9], 7.0);
    array.replaceDay(0, values, 0);
    QCOMPARE(totals(array), (QList<int>{0, 6, 8}));
    QCOMPARE(array[0], 10.0);
    array.replaceDay(3, values, 1);
    array.replaceDay(-1, values, 1);
    QCOMPARE(array.parts.size(), 3);
    QVERIFY_EXCEPTION_THROWN(array.replaceDay(0, values, -1), std::bad_array_new_length);
}

void TestDoubleArray::shallowAssignment()
{
    doubleArray array(10);
    fill(array, {3});
    array = doubleArray(77);
    QVERIFY(array.parts.isEmpty() && array.count == 0 && array.partLen == 77);
    fill(array, {3});
    {
        doubleArray other(1);
        other = array;
        other[1] = 5.0;
        other.clear();
    }
    QCOMPARE(array[1], 5.0); // shared while it lasted, and not freed with the other
}

QTEST_APPLESS_MAIN(TestDoubleArray)
#include "tst_doublearray.moc"
