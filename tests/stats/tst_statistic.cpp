#include "stats/statistic.h"

#include <QTest>

class TestStatistic : public QObject {
    Q_OBJECT
private slots:
    void namesAndNumbers_data();
    void namesAndNumbers();
    void unknownNumbers();
};

void TestStatistic::namesAndNumbers_data()
{
    QTest::addColumn<int>("statistic");
    QTest::addColumn<int>("processing");
    QTest::addColumn<int>("graph");
    QTest::addColumn<QString>("russian");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("axis");
    const auto row = [](Statistic statistic, int processing, int graph, const char* russian,
                         const char* english, const char* axis) {
        QTest::newRow(english) << int(statistic) << processing << graph << QString::fromUtf8(russian)
                               << QString::fromUtf8(english) << QString::fromUtf8(axis);
    };
    row(Statistic::Sdev, 0, 0, "СКО", "SDEV", "СКО");
    row(Statistic::Adev, 1, 1, "СКДО", "ADEV", "СКДО");
    row(Statistic::Hdev, 2, 2, "HDEV", "HDEV", "HDEV");
    row(Statistic::Mtie, 3, 4, "МОВИ", "MTIE", "МОВИ, с");
    row(Statistic::Tdev, 4, 5, "ДВИ", "TDEV", "ДВИ, с");
    row(Statistic::Mdev, 5, 3, "MDEV", "MDEV", "MDEV");
    row(Statistic::Pdev, 6, 6, "PDEV", "PDEV", "PDEV");
}

void TestStatistic::namesAndNumbers()
{
    QFETCH(int, statistic);
    QFETCH(int, processing);
    QFETCH(int, graph);
    const auto value = static_cast<Statistic>(statistic);
    QTEST(statisticHead(value, false), "russian");
    QTEST(statisticHead(value, true), "english");
    QTEST(statisticAxisTitle(value, false), "axis");
    QCOMPARE(varType(value), processing);
    QCOMPARE(statisticOfVarType(processing), value);
    QCOMPARE(int(avarTypeOf(value)), graph);
    QCOMPARE(statisticOfAvarType(graph), value);
}

void TestStatistic::unknownNumbers()
{
    for (const int number : {-1, 7, 255}) {
        QCOMPARE(statisticOfVarType(number), Statistic::Adev);
        QCOMPARE(statisticOfAvarType(number), Statistic::Adev);
    }
}

QTEST_GUILESS_MAIN(TestStatistic)
#include "tst_statistic.moc"
