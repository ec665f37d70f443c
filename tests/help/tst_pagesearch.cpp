#include "help/core/pagesearch.h"

#include <QTest>

class TestPageSearch : public QObject {
    Q_OBJECT
private slots:
    void findsPages_data();
    void findsPages();
    void splitsWords_data();
    void splitsWords();
    void cutsExcerpt();
};

void TestPageSearch::findsPages_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("pages");
    QTest::newRow("nothing asked") << QString() << QString();
    QTest::newRow("only signs") << "- . +" << QString();
    QTest::newRow("absent") << "рубидий" << QString();
    QTest::newRow("title before often") << "спектр"
                                        << "spectrum graphs";
    QTest::newRow("more often first") << "график"
                                      << "graphs spectrum";
    QTest::newRow("every word") << "график фаза"
                                << "graphs";
    QTest::newRow("words of title and text") << "спектры мощности"
                                             << "spectrum";
    QTest::newRow("other ending and case") << "ПОГРЕШНОСТЬ"
                                           << "table";
    QTest::newRow("yo as ye") << "счетчик"
                              << "table";
    QTest::newRow("name with a dot") << "recfiles.xml"
                                     << "table";
    QTest::newRow("end of a sentence") << "фазы."
                                       << "graphs";
    QTest::newRow("Latin words whole") << "adevs" << QString();
}

void TestPageSearch::findsPages()
{
    const QVector<HelpText> pages = {
        {"table", "Таблица", "Погрешности, счётчик и файл recfiles.xml. ADEV"},
        {"graphs", "Окна", "График фазы, график частоты, график.\n Спектр, спектр, спектр; фаза"},
        {"spectrum", "Спектры", "Один график плотности мощности"},
    };
    QFETCH(QString, query);
    QStringList names;
    for (const HelpHit& hit : searchPages(pages, query))
        names << hit.page;
    QTEST(names.join(' '), "pages");
}

void TestPageSearch::splitsWords_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("repeated") << "тау Тау" << QStringList{"тау"};
    QTest::newRow("five letters stay") << "фазой" << QStringList{"фазой"};
    QTest::newRow("six lose two") << "фазами" << QStringList{"фаза"};
    QTest::newRow("option") << "--remove-drift" << QStringList{"--remove-drift"};
    QTest::newRow("quoted") << "«Обработка» (1)" << QStringList{"обработ", "1"};
}

void TestPageSearch::splitsWords()
{
    QFETCH(QString, query);
    QTEST(searchWords(query), "words");
}

void TestPageSearch::cutsExcerpt()
{
    const QString filler = QStringLiteral("слово ").repeated(50);
    const auto hits =
        searchPages({{"a", "A", filler + "\n  метка\tздесь " + filler}, {"b", "B", "метка"}}, "метка");
    QCOMPARE(hits.size(), 2);
    const QString excerpt = hits[0].excerpt;
    QVERIFY2(excerpt.startsWith(QChar(0x2026)) && excerpt.endsWith(QChar(0x2026)), qPrintable(excerpt));
    QVERIFY2(excerpt.contains("слово метка здесь слово"), qPrintable(excerpt));
    QVERIFY2(excerpt.size() < 200, qPrintable(excerpt));
    for (const QString& word : excerpt.mid(1, excerpt.size() - 2).split(' '))
        QVERIFY2(word == "слово" || word == "метка" || word == "здесь", qPrintable(word));
    QCOMPARE(hits[1].excerpt, QStringLiteral("метка"));
}

QTEST_GUILESS_MAIN(TestPageSearch)
#include "tst_pagesearch.moc"
