#include "plot/core/texttable.h"

#include <QtTest>

class TestTextTable : public QObject {
    Q_OBJECT
private slots:
    void widths()
    {
        const TextTable table{
            {"Канал", "Название", "1"}, {{"1", "cut", "1.25e-13"}, {"22", "a longer name", "x"}, {}}};
        QCOMPARE(widthsByLongest(table, 5), (QVector<int>{8, 13, 5}));
        QCOMPARE(widthsByName(table, 5), (QVector<int>{5, 13, 5}));
        QCOMPARE(widthsByName({{"1"}, {{"a cell of row 0"}}}, 5), QVector<int>{5});
    }

    void layout_data()
    {
        QTest::addColumn<QList<int>>("rows");
        QTest::addColumn<int>("firstHead");
        QTest::addColumn<QString>("text");
        const QString first = "   Канал|  1|    2|\n";
        const QString second = "Название|abcd|     |\n";
        QTest::newRow("all") << QList<int>{0, 1} << 8 << first + second;
        QTest::newRow("one row") << QList<int>{1} << 8 << second;
        QTest::newRow("only the first head is wide")
            << QList<int>{0, 1} << 17 << QString(9, ' ') + first + second;
        QTest::newRow("rows outside") << QList<int>{-1, 1, 2} << 8 << second;
        QTest::newRow("none") << QList<int>{} << 8 << QString();
    }
    void layout()
    {
        QFETCH(QList<int>, rows);
        QFETCH(int, firstHead);
        const TextTable table{{"Канал", "Название"}, {{"1", "abcd"}, {"2"}}};
        QTEST(textTable(table, {3, 5}, rows, firstHead), "text");
    }

    void everyRow()
    {
        QCOMPARE(allRows({{"a", "b"}, {}}), (QList<int>{0, 1}));
        QCOMPARE(allRows({}), QList<int>{});
    }

    void fontSize_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("size");
        QTest::newRow("room enough") << "short\n" << 10.0;
        QTest::newRow("longest line decides") << QString(10, 'x') + "\n" + QString(200, 'x') + "\nx" << 6.0;
        QTest::newRow("not below the readable") << QString(4000, 'x') << 4.0;
        QTest::newRow("nothing") << "" << 10.0;
    }
    void fontSize()
    {
        QFETCH(QString, text);
        QTEST(fontSizeToFit(text, 720.0, 10.0, 0.6), "size");
    }
};

QTEST_APPLESS_MAIN(TestTextTable)
#include "tst_texttable.moc"
