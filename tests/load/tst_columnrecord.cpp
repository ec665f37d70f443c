#include "load/core/columnrecord.h"

#include <QtTest>

#include <numeric>

namespace {

/// The arguments of DayEnds::endFile().
struct FileEnd {
    int count;
    double interval, startSecond;
    qint64 lines;
};

} // namespace

Q_DECLARE_METATYPE(QVector<FileEnd>)

class TestColumnRecord : public QObject {
    Q_OBJECT

private slots:
    void dayEnds_data();
    void dayEnds();
    void partSizes();
};

void TestColumnRecord::dayEnds_data()
{
    QTest::addColumn<QVector<FileEnd>>("files");
    QTest::addColumn<QVector<int>>("ends");
    const auto row = [](const char* name, const QVector<FileEnd>& files, const QVector<int>& ends) {
        QTest::newRow(name) << files << ends;
    };
    row("within the limit", {{86410, 1.0, 0.0, 86410}}, {86410});
    row("above the limit", {{86411, 1.0, 0.0, 86411}}, {86400, 86411});
    row("from noon", {{200000, 1.0, 43200.0, 200000}}, {43200, 129600, 200000});
    row("boundary at the last sample", {{17280, 10.0, 0.0, 17280}}, {8640, 17280});
    row("cut to whole samples", {{40000, 7.0, 0.0, 40000}}, {12342, 24685, 37028, 40000});
    row("the limit adds samples", {{1000, 1.0, 0.0, 1000}, {87000, 1.0, 0.0, 86000}}, {1000, 87000});
    row("late midnights of daily files",
        {{3859, 9.9974, 47810.0, 3859}, {12499, 9.99884, 47810.0, 8640}, {21139, 9.99884, 47810.0, 8640}},
        {3859, 12499, 21139});
    row("a sample a day", {{4, 86400.0, 0.0, 4}}, {1, 2, 3, 4});
    row("samples far apart", {{3, 1e300, 0.0, 3}}, {1, 2, 3});
    row("a file without samples", {{0, 1.0, 0.0, 0}, {2, 1.0, 0.0, 2}, {2, 1.0, 0.0, 0}}, {2});
}

void TestColumnRecord::dayEnds()
{
    QFETCH(QVector<FileEnd>, files);
    DayEnds days;
    for (const FileEnd& file : files)
        days.endFile(file.count, file.interval, file.startSecond, file.lines);
    QTEST(days.ends(), "ends");
}

void TestColumnRecord::partSizes()
{
    QCOMPARE(partLengths({}, 10), QVector<int>());
    QCOMPARE(partLengths({10, 15, 36}, 10), QVector<int>({10, 5, 10, 10, 1}));
    QVector<int> days(70000);
    std::iota(days.begin(), days.end(), 1);
    const QVector<int> lengths = partLengths(days, 10);
    QCOMPARE(lengths.size(), 65535);
    QCOMPARE(lengths.constLast(), 70000 - 65534);
}

QTEST_GUILESS_MAIN(TestColumnRecord)
#include "tst_columnrecord.moc"
