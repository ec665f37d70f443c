#include "stats/statistic.h"

#include <QTest>

class TestStatistic : public QObject {
    Q_OBJECT
private slots:
    void namesAndNumbers()
    {
        const struct {
            Statistic statistic;
            int processing, graph;
            const char *russian, *english, *axis;
        } rows[] = {
            {Statistic::Sdev, 0, 0, "СКО", "SDEV", "СКО"},
            {Statistic::Adev, 1, 1, "СКДО", "ADEV", "СКДО"},
            {Statistic::Hdev, 2, 2, "HDEV", "HDEV", "HDEV"},
            {Statistic::Mtie, 3, 4, "МОВИ", "MTIE", "МОВИ, с"},
            {Statistic::Tdev, 4, 5, "ДВИ", "TDEV", "ДВИ, с"},
            {Statistic::Mdev, 5, 3, "MDEV", "MDEV", "MDEV"},
            {Statistic::Pdev, 6, 6, "PDEV", "PDEV", "PDEV"},
        };
        for (const auto& row : rows) {
            QCOMPARE(statisticHead(row.statistic, false), QString::fromUtf8(row.russian));
            QCOMPARE(statisticHead(row.statistic, true), QString::fromUtf8(row.english));
            QCOMPARE(statisticAxisTitle(row.statistic, false), QString::fromUtf8(row.axis));
            QCOMPARE(varType(row.statistic), row.processing);
            QCOMPARE(statisticOfVarType(row.processing), row.statistic);
            QCOMPARE(int(avarTypeOf(row.statistic)), row.graph);
            QCOMPARE(statisticOfAvarType(row.graph), row.statistic);
        }
        for (const int number : {-1, 7, 255}) {
            QCOMPARE(statisticOfVarType(number), Statistic::Adev);
            QCOMPARE(statisticOfAvarType(number), Statistic::Adev);
        }
    }
};

QTEST_GUILESS_MAIN(TestStatistic)
#include "tst_statistic.moc"
