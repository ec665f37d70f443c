#include "load/core/configfile.h"
#include "load/core/recentrecsparser.h"
#include "record/record.h"
#include "support/scopedhome.h"

#include <QTest>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

namespace {

const QString fileName = QStringLiteral("config/recfiles.xml");

QStringList textsOf(const QVector<RecentRecs>& entries)
{
    QStringList texts;
    for (const RecentRecs& entry : entries)
        texts << entry.str;
    return texts;
}

QByteArray nom(const QByteArray& inner)
{
    return "<nom number=\"0\">" + inner + "</nom>";
}

QByteArray inList(const QByteArray& inner)
{
    return "<xml><RecentRecs>" + inner + "</RecentRecs></xml>";
}

} // namespace

class TestRecentRecs : public QObject {
    Q_OBJECT
private slots:
    void init() { setRecentRecords({}); }
    void ring();
    void writeThenRead();
    void text_data();
    void text();
    void values_data();
    void values();
    void damaged_data();
    void damaged();
    void parserErrors();
};

void TestRecentRecs::ring()
{
    Record record;
    QStringList want;
    for (int load = 1; load <= 11; ++load) {
        record.ch = load;
        enterRecentRecord(record, 1, QStringLiteral("/d"), QStringLiteral("[t] [x]"));
        want.prepend(recentText(record, QStringLiteral("/d")));
        QCOMPARE(NumRecentRecs, qMin(load, 10));
        QCOMPARE(nextRecRecsIndex, load % 10);
        QCOMPARE(textsOf(recentRecords()), want.mid(0, 10));
    }
    QCOMPARE(want.last(), QStringLiteral(" - , 1: /d"));
    QVector<RecentRecs> entries = recentRecords();
    entries << entries.constFirst();
    for (const int count : {11, 10, 3, 0}) {
        setRecentRecords(entries.mid(0, count));
        QCOMPARE(nextRecRecsIndex, count % 10 - int(count == 11));
        QCOMPARE(textsOf(recentRecords()), want.mid(0, qMin(count, 10)));
    }
}

void TestRecentRecs::writeThenRead()
{
    const ScopedHome home;
    const QString file = home.file(fileName);
    Record record;
    record.ref_sig = QStringLiteral("Мазер <1> & Ω");
    record.meas_sig = QStringLiteral("b");
    record.start = QDateTime(QDate(2026, 3, 1), QTime(1, 2, 3));
    record.stop = QDateTime(QDate(2026, 3, 2), QTime(4, 5, 6));
    record.n_cnt = 5000000000;
    record.devType = 17;
    record.Kdec = 0.1 + 0.2;
    record.Band = 7;
    for (int load = 0; load < 12; ++load) {
        record.ch = load;
        enterRecentRecord(record, load % 2 + 1, QStringLiteral("/данные/x.txt"),
            QStringLiteral("[t] <a> [x]"), 1.0 / 3.0, 2);
        const QStringList want = textsOf(recentRecords());
        QString error;
        QVERIFY(writeSettings(file, Settings(), recentRecords(), &error));
        setRecentRecords({});
        QVERIFY2(readRecentRecs(file, &error), qPrintable(error));
        QCOMPARE(textsOf(recentRecords()), want);
        QCOMPARE(nextRecRecsIndex, (load + 1) % 10 * int(load < 10));
    }
    const RecentRecs newest = recentRecords().at(0);
    QCOMPARE(newest.type, recentAscii);
    QCOMPARE(newest.format, QStringLiteral("[t] <a> [x]"));
    QCOMPARE(newest.dir.path(), QStringLiteral("/данные/x.txt"));
    QCOMPARE(newest.start, record.start);
    QCOMPARE(newest.stop, record.stop);
    QCOMPARE(newest.num, record.n_cnt);
    QCOMPARE(newest.ch, short(11));
    QCOMPARE(int(newest.devType), 17);
    QCOMPARE(newest.ref, record.ref_sig);
    QCOMPARE(newest.meas, record.meas_sig);
    QCOMPARE(newest.interval, record.Kdec);
    QCOMPARE(newest.multiplier, 1.0 / 3.0);
    QCOMPARE(newest.column, 2);
    QCOMPARE(newest.band, 7);
    QCOMPARE(recentRecords().at(1).format, QString()); // no template: it was no text file
}

void TestRecentRecs::text_data()
{
    QTest::addColumn<QString>("ref");
    QTest::addColumn<QString>("meas");
    QTest::addColumn<QString>("dir");
    QTest::addColumn<QString>("want");
    const QString just = QStringLiteral("1234567890123456789012"), path = QStringLiteral("/data/file.txt");
    QTest::newRow("plain") << "M"
                           << "C" << path << "M - C, 3: /data/file.txt";
    QTest::newRow("%") << "%1"
                       << "%2" << path << "%1 - %2, 3: /data/file.txt";
    QTest::newRow("22") << just << "C"
                        << "/x" << just + QStringLiteral(" - C, 3: /x");
    QTest::newRow("23") << just + QLatin1Char('3') << "C"
                        << "/x" << just + QStringLiteral(" - C, 3: /x");
    QTest::newRow("both") << just + QLatin1Char('3') << just + QLatin1Char('3') << path
                          << just + QStringLiteral(" - ") + just + QStringLiteral(", 3");
    QTest::newRow("just fits") << "M"
                               << "C" << QLatin1Char('/') + QString(34, QLatin1Char('p'))
                               << QStringLiteral("M - C, 3: /") + QString(34, QLatin1Char('p'));
    QTest::newRow("one more") << "M"
                              << "C" << QLatin1Char('/') + QString(34, QLatin1Char('p')) + QLatin1Char('e')
                              << QStringLiteral("M - C, 3: /") + QString(16, QLatin1Char('p'))
            + QStringLiteral("…") + QString(16, QLatin1Char('p')) + QLatin1Char('e');
    QTest::newRow("pairs") << just.chopped(1) + QStringLiteral("😀") << "C"
                           << "/x" << just.chopped(1) + QStringLiteral(" - C, 3: /x");
}

void TestRecentRecs::text()
{
    QFETCH(const QString, ref);
    QFETCH(const QString, meas);
    QFETCH(const QString, dir);
    QFETCH(const QString, want);
    Record record;
    record.ref_sig = ref;
    record.meas_sig = meas;
    record.ch = 3;
    QCOMPARE(recentText(record, dir), want);
    enterRecentRecord(record, 1, dir, {});
    QCOMPARE(recentRecords().at(0).str, want);
    QCOMPARE(record.ref_sig, ref);
}

void TestRecentRecs::values_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("want"); // type, num, ch, devType, format, start
    QTest::newRow("none") << QByteArray() << "0 0 0 0  ";
    QTest::newRow("older") << QByteArray("<lenFormat>3</lenFormat><format>[x]</format><ch>2</ch>")
                           << "0 0 2 0 [x] ";
    QTest::newRow("no numbers") << QByteArray("<type>x</type><num></num><ch>1e3</ch><devType>1.0</devType>"
                                              "<interval>inf</interval><multiplier>x</multiplier><column/>")
                                << "0 0 0 0  ";
    QTest::newRow("too large") << QByteArray(
        "<type>32768</type><num>9223372036854775808</num><ch>-32769</ch><devType>300</devType>")
                               << "0 0 0 0  ";
    QTest::newRow("extremes") << QByteArray(
        "<type>-1</type><num>9223372036854775807</num><ch>32767</ch><devType>-1</devType>")
                              << "-1 9223372036854775807 32767 -1  ";
    QTest::newRow("no moment") << QByteArray("<start>20260230000000</start>") << "0 0 0 0  ";
    QTest::newRow("moment") << QByteArray("<start>20260228000000</start><new><ch>4</ch></new>")
                            << "0 0 4 0  2026";
}

void TestRecentRecs::values()
{
    QFETCH(const QByteArray, xml);
    QFETCH(const QString, want);
    const ScopedHome home;
    QString error;
    const bool sound = readRecentRecs(home.write(fileName, "<xml><nom/>" + inList(nom(xml)).mid(5)), &error);
    QVERIFY2(sound, qPrintable(error));
    QCOMPARE(NumRecentRecs, 1);
    const RecentRecs got = recentRecords().at(0);
    QCOMPARE(QStringLiteral("%1 %2 %3 %4 %5 %6")
                 .arg(got.type)
                 .arg(got.num)
                 .arg(got.ch)
                 .arg(int(got.devType))
                 .arg(got.format, got.start.toString(QStringLiteral("yyyy"))),
        want);
    QCOMPARE(got.interval, 0.0);
    QCOMPARE(got.multiplier, 0.0);
    QCOMPARE(got.column, -1);
    QVERIFY(got.band == 0 && got.ref.isEmpty() && got.meas.isEmpty());
}

void TestRecentRecs::damaged_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("left");
    const QByteArray a = nom("<str>a</str>"), b = nom("<str>b</str>");
    const QStringList one{QStringLiteral("a")}, two{QStringLiteral("a"), QStringLiteral("b")};
    QTest::newRow("none") << QByteArray() << QStringList();
    QTest::newRow("cut behind") << inList(a + b).chopped(8) << two;
    QStringList ten = two;
    while (ten.size() < 10)
        ten << QStringLiteral("b");
    QTest::newRow("more than ten") << inList(a + b.repeated(20)).chopped(8) << ten;
    QTest::newRow("cut in the second") << inList(a + b.chopped(3)) << one;
    QTest::newRow("wrong end") << inList(a + "<nom></mon>" + b) << one;
    QTest::newRow("not XML") << QByteArray(1000, '<') << QStringList();
    QTest::newRow("nesting") << inList(a + QByteArray("<x>").repeated(1000000)) << one;
    QTest::newRow("nesting in an entry") << inList(a + nom(QByteArray("<str>").repeated(1000000))) << one;
    QByteArray bomb = "<!DOCTYPE xml [<!ENTITY a \"aaaaaaaaaa\">";
    for (char c = 'b'; c < 'l'; ++c)
        bomb +=
            QByteArray("<!ENTITY ") + c + " \"" + (QByteArray("&") + char(c - 1) + ';').repeated(10) + "\">";
    QTest::newRow("entities") << bomb + "]>" + inList(nom("<str>&k;</str>")) << QStringList();
}

void TestRecentRecs::damaged()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QStringList, left);
    const ScopedHome home;
    Record record;
    enterRecentRecord(record, 1, QStringLiteral("/before"), {});
    QString error;
    QVERIFY(!readRecentRecs(home.write(fileName, content), &error));
    QVERIFY(error.startsWith(QStringLiteral("Line:")));
    QCOMPARE(textsOf(recentRecords()), left);
    QCOMPARE(nextRecRecsIndex, left.size() % 10);
    QVERIFY(!readRecentRecs(home.file(QStringLiteral("none.xml")), &error));
    QCOMPARE(NumRecentRecs, 0);
}

void TestRecentRecs::parserErrors()
{
    RecentRecsParser parser;
    QCOMPARE(parser.errorString(), QStringLiteral("Error!!!!"));
    QVERIFY(!parser.fatalError(QXmlParseException(QStringLiteral("no %2 end"), 7, 5)));
    QCOMPARE(parser.errorString(), QStringLiteral("Line:5, Column:7, Messange:no %2 end"));
}

QTEST_GUILESS_MAIN(TestRecentRecs)
#include "tst_recentrecs.moc"
