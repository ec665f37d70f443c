#include "base/globals.h"
#include "fullformat.h"
#include "load/core/configfile.h"
#include "load/core/configxml.h"
#include "support/scopedhome.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <QVariant>

#include <csignal>
#include <random>

#include <sys/resource.h>

namespace {

const QDate today(2026, 11, 23);
const QString localeName = QStringLiteral("en_GB");

/// No member has its default.
Settings otherSettings()
{
    Settings s = defaultSettings(today);
    s.winProp.formats =
        QStringList{QStringLiteral("[t] <skip> & \"[x]\""), QStringLiteral(" [t]\t[Частота]")};
    s.winProp.frmt_MaxNum = 7;
    s.winProp.ASCIIformats = {{QStringLiteral("Ω \"мой\"\n<1>"), fullFormat()}, {QString(), ReadFormat()}};
    s.winProp.openedPathS = QStringList{QStringLiteral("/данные/2026"), QStringLiteral("/tmp/α 😀𐐐")};
    s.winProp.openedPath_MaxNum = 5;
    s.winProp.extChannels = true;
    s.lastUsedRecID = 201;
    s.lastUsedDevID = 255;
    s.openSavePath = QStringLiteral("/сохранено/");
    s.startPath = QStringLiteral("/home/");
    s.IP_STR = QStringLiteral("10.0.0.1");
    s.DEV_PORT = 4567;
    s.removeF0Vals = true;
    s.updCycle = 65535;
    s.AVAR_numPT_perTau = -1;
    s.Interval = 1000;
    s.IsBackupCreating = false;
    s.AutoVersionCheck = false;
    s.language = QStringLiteral("de");
    s.cggtts = {QDate(2025, 1, 2), QDate(2025, 3, 4), QStringLiteral("/store")};
    s.mySql = {QStringLiteral("PSQL"), QStringLiteral("сервер"), QStringLiteral("5432"),
        QStringLiteral("irnwt"), QStringLiteral("user"), QStringLiteral(" pass<&>\r\n ]]> ")};
    return s;
}

QVariantList valuesOf(const ReadFormat& f)
{
    QVariantList columns;
    for (const int column : f.columnNum_data)
        columns << column;
    return {f.separator, f.linesToSkip, f.columnNum_time, columns, f.dateFromFileName_flag,
        f.dateFromFileName_format, f.timeFormat_flag, f.timeFormat_format, f.timeUnit_flag, f.timeUnit_format,
        f.timeStart_flag, f.timeStart_dateTime, f.interval, f.dataType, f.multiplier,
        f.dateFromFileDateTime_flag, f.columnNum_datetime, f.dateFromFileDateTime_format,
        f.dateFromFileDate_flag, f.columnNum_date, f.dateFromFileDate_format};
}

/// Lists first.
QVariantList valuesOf(const Settings& s)
{
    QVariantMap columnFormats;
    for (auto each = s.winProp.ASCIIformats.cbegin(); each != s.winProp.ASCIIformats.cend(); ++each)
        columnFormats.insert(each.key(), valuesOf(each.value()));
    return {s.winProp.formats, columnFormats, s.winProp.openedPathS, s.winProp.frmt_MaxNum,
        s.winProp.openedPath_MaxNum, s.winProp.extChannels, s.lastUsedRecID, s.lastUsedDevID, s.openSavePath,
        s.startPath, s.IP_STR, s.DEV_PORT, s.removeF0Vals, s.updCycle, s.AVAR_numPT_perTau, s.Interval,
        s.IsBackupCreating, s.AutoVersionCheck, s.language, s.cggtts.date1, s.cggtts.date2, s.cggtts.db_path,
        s.mySql.mySQL_dbms, s.mySql.mySQL_hostname, s.mySql.mySQL_port, s.mySql.mySQL_db_name,
        s.mySql.mySQL_userName, s.mySql.mySQL_passw};
}
constexpr int numberOfLists = 3;

QVector<RecentRecs> recentEntries()
{
    RecentRecs entry;
    entry.str = QStringLiteral("Мазер - Ω, 3: /x");
    entry.dir = QDir(QStringLiteral("/x"));
    return {entry, entry};
}

Settings readFrom(const QString& file)
{
    Settings settings = defaultSettings(today);
    readSettings(file, localeName, &settings);
    return settings;
}

QByteArray contentOf(const QString& file)
{
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("unreadable");
}

QByteArray root(const QByteArray& inner)
{
    return "<?xml version=\"1.0\" encoding=\"Windows-1251\"?>\n<xml>" + inner + "</xml>";
}

bool write(const QString& file, const Settings& settings)
{
    QString error;
    const bool done = writeSettings(file, settings, recentEntries(), &error);
    return done && error.isEmpty();
}

const QString fileName = QStringLiteral("config/recfiles.xml");

} // namespace

class TestConfigFile : public QObject {
    Q_OBJECT
private slots:
    void writeThenRead();
    void form();
    void missingFile();
    void values_data();
    void values();
    void language_data();
    void language();
    void truncated();
    void fuzzed();
    void harmless_data();
    void harmless();
    void unknownIsKept();
    void damagedIsPutAside();
    void failedWriteLeavesTheOldFile_data();
    void failedWriteLeavesTheOldFile();
};

void TestConfigFile::writeThenRead()
{
    const ScopedHome home;
    const QString file = home.file(fileName);
    const Settings written = otherSettings();
    const QVariantList want = valuesOf(written);
    const QVariantList normal = valuesOf(defaultSettings(today));
    for (int i = 0; i < want.size(); ++i)
        QVERIFY2(want.at(i) != normal.at(i), qPrintable(QString::number(i))); // else it would prove nothing
    for (int time = 0; time < 2; ++time) { // over an older file, too
        QVERIFY(write(file, written));
        const QVariantList got = valuesOf(readFrom(file));
        for (int i = 0; i < want.size(); ++i)
            QCOMPARE(got.at(i), want.at(i));
    }
    QVERIFY(!QFileInfo::exists(file + QStringLiteral(".damaged")));
    const auto forOthers = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ReadOther
        | QFileDevice::WriteOther | QFileDevice::ExeOwner;
    QVERIFY(QFile::setPermissions(file, QFile::permissions(file) | QFileDevice::ReadOther));
    QVERIFY(write(file, written));
    QVERIFY(!(QFile::permissions(file) & forOthers));
}

void TestConfigFile::form()
{
    const ScopedHome home;
    const QString file = home.file(fileName);
    Settings settings = otherSettings();
    settings.winProp.ASCIIformats = {{QStringLiteral("f"), fullFormat()}};
    settings.openSavePath =
        QStringLiteral("a\x01") + QChar(0xd800) + QStringLiteral("b"); // not allowed in XML
    QVERIFY(write(file, settings));
    const QByteArray content = contentOf(file);
    QVERIFY(content.startsWith("<?xml version=\"1.0\" encoding=\"Windows-1251\"?>\n<!--Application_ver = \""
        + Appver.toLatin1() + "\" Application_Lang=\"de\"-->\n<xml>\n    <RecentRecs>\n"));
    int at = 0;
    for (const char* piece :
        {"<RecentRecs>", "<nom number=\"0\">", "<str>\xcc\xe0\xe7\xe5\xf0 - &#937;, 3: /x",
            "<nom number=\"1\">", "<WinProp>", "<OpenGlobForm_winProp>", "<Formats frmt_MaxNum=\"7\">",
            "<item numb=\"0\">[t] &lt;skip&gt; &amp; &quot;[x]&quot;</item>", "<item numb=\"1\">",
            "<ASCIIformats>", "<item name=\"f\">", "<separator>  </separator>", "<linesToSkip>3<",
            "<columnNum_time>2<", "<columnNum_data>4,7<", "<dateFromFileName_flag>1<",
            "<dateFromFileName_format>", "<dateFromFileDateTime_flag>1<", "<columnNum_datetime>1<",
            "<dateFromFileDateTime_format>", "<dateFromFileDate_flag>1<", "<columnNum_date>5<",
            "<dateFromFileDate_format>", "<timeFormat_flag>1<", "<timeFormat_format>", "<timeUnit_flag>1<",
            "<timeUnit_format>0.001<", "<timeStart_flag>1<", "<timeStart_dateTime>20240229235958<",
            "<interval>2.5<", "<dataType>4<", "<multiplier>-1.5e-09<",
            "<openedPathS openedPath_MaxNum=\"5\">",
            "<item numbP=\"0\">/\xe4\xe0\xed\xed\xfb\xe5/2026</item>",
            "<item numbP=\"1\">/tmp/&#945; &#128512;&#66576;</item>", "<extChannels>1<", "<SelRecTable_prop>",
            "<lastUsedRecID>201<", "<openSavePath>a&#65533;b<", "<Globals>", "<lastUsedDevID>255<",
            "<removeF0Vals>1<", "<updCycle>65535<", "<AVAR_numPT_perTau>-1<", "<AppUpdate>",
            "<Interval>1000<", "<IsBackupCreating>0<", "<AutoVersionCheck>0<", "<SaveRecForm_prop>",
            "<startPath>", "<incConnection_prop>", "<IP_STR>", "<DEV_PORT>4567<", "<CGGTTS_prop>",
            "<date1>02.01.2025<", "<date2>04.03.2025<", "<db_path>/store<", "<mySQL_prop>", "<mySQL_dbms>",
            "<mySQL_hostname>", "<mySQL_port>", "<mySQL_db_name>", "<mySQL_userName>", "<mySQL_passw>",
            "</xml>"}) {
        const int found = content.indexOf(piece, at);
        QVERIFY2(found >= 0, piece);
        at = found + 1;
    }
    settings.language = QStringLiteral("x\" --><!DOCTYPE") + QString(500, QLatin1Char('y'));
    QVERIFY(write(file, settings));
    QVERIFY(contentOf(file).indexOf("-->") < 200);
    QCOMPARE(readFrom(file).DEV_PORT, 4567);
    QCOMPARE(readFrom(file).language, QStringLiteral("x-><!DOCTYPE") + QString(28, QLatin1Char('y')));
}

void TestConfigFile::missingFile()
{
    const ScopedHome home;
    Settings settings = otherSettings();
    QVERIFY(!readSettings(home.file(fileName), localeName, &settings));
    QCOMPARE(settings.winProp.formats, builtinTemplates());
    QCOMPARE(settings.winProp.frmt_MaxNum, 20);
    QCOMPARE(settings.winProp.openedPathS, QStringList{firstOpenedPath()});
    QCOMPARE(settings.winProp.openedPath_MaxNum, 10);
    const Settings normal = defaultSettings(today);
    QCOMPARE(normal.cggtts.date1, QDate(2026, 11, 1));
    QCOMPARE(normal.cggtts.date2, today);
    QCOMPARE(normal.startPath, QDir::homePath() + QLatin1Char('/'));
    QCOMPARE(normal.language, QStringLiteral("ru"));
}

void TestConfigFile::values_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("index"); // in valuesOf()
    QTest::addColumn<QVariant>("want");
    const auto row = [](const char* xml, int index, const QVariant& want) {
        QTest::newRow(xml) << QByteArray(xml) << index << want;
    };
    const QStringList two{QStringLiteral("a"), QStringLiteral("b")};
    row("<Globals><removeF0Vals>1</removeF0Vals></Globals>", 12, true);
    row("<Globals><removeF0Vals>10</removeF0Vals></Globals>", 12, true);
    row("<Globals><removeF0Vals>2</removeF0Vals></Globals>", 12, false);
    row("<Globals><updCycle>0</updCycle></Globals>", 13, 0);
    row("<Globals><updCycle>65536</updCycle></Globals>", 13, 15);
    row("<Globals><updCycle>-1</updCycle></Globals>", 13, 15);
    row("<Globals><updCycle>1.5</updCycle></Globals>", 13, 15);
    row("<Globals><updCycle>1<a>9</a>2</updCycle></Globals>", 13, 12);
    row("<Globals><lastUsedDevID>x</lastUsedDevID></Globals>", 7, 1);
    row("<Globals><lastUsedDevID>256</lastUsedDevID></Globals>", 7, 1);
    row("<Globals><lastUsedDevID>0</lastUsedDevID></Globals>", 7, 0);
    row("<SelRecTable_prop><lastUsedRecID></lastUsedRecID></SelRecTable_prop>", 6, 1);
    row("<SelRecTable_prop><DEV_PORT>9</DEV_PORT></SelRecTable_prop>", 11, 2220);
    row("<incConnection_prop><DEV_PORT>99999999999999999999</DEV_PORT></incConnection_prop>", 11, 2220);
    row("<incConnection_prop><DEV_PORT> 9 </DEV_PORT></incConnection_prop>", 11, 9);
    row("<Globals><AVAR_numPT_perTau>-2147483648</AVAR_numPT_perTau></Globals>", 14, INT_MIN);
    row("<Globals><AVAR_numPT_perTau>2147483648</AVAR_numPT_perTau></Globals>", 14, 1000000);
    row("<AppUpdate><AutoVersionCheck>7</AutoVersionCheck></AppUpdate>", 17, true);
    row("<AppUpdate><AutoVersionCheck>0</AutoVersionCheck></AppUpdate>", 17, false);
    row("<AppUpdate><AutoVersionCheck>no</AutoVersionCheck></AppUpdate>", 17, true);
    row("<CGGTTS_prop><date1>31.02.2025</date1></CGGTTS_prop>", 19, QDate(2026, 11, 1));
    row("<CGGTTS_prop><date1>28.02.2025</date1></CGGTTS_prop>", 19, QDate(2025, 2, 28));
    row("<mySQL_prop><mySQL_port></mySQL_port></mySQL_prop>", 24, QStringLiteral("3306"));
    row("<mySQL_prop><mySQL_dbms/></mySQL_prop>", 22, QStringLiteral("MySQL"));
    row("<mySQL_prop><mySQL_passw> </mySQL_passw></mySQL_prop>", 27, QStringLiteral(" "));
    row("<WinProp><OpenGlobForm_winProp><Formats/></OpenGlobForm_winProp></WinProp>", 0, builtinTemplates());
    row("<WinProp><OpenGlobForm_winProp><Formats frmt_MaxNum='1'><item>a</item><item>b</item></Formats>"
        "</OpenGlobForm_winProp></WinProp>",
        0, QStringList{QStringLiteral("a")});
    row("<WinProp><OpenGlobForm_winProp><Formats frmt_MaxNum='-5'><item>a</item><x><item>c</item></x>"
        "<item/><item>b</item></Formats></OpenGlobForm_winProp></WinProp>",
        0, two);
    row("<WinProp><OpenGlobForm_winProp><Formats frmt_MaxNum='2000000000'><item>a</item></Formats>"
        "</OpenGlobForm_winProp></WinProp>",
        3, 1000);
    row("<WinProp><new><Formats><item>a</item></Formats></new></WinProp>", 0, builtinTemplates());
    row("<WinProp><OpenGlobForm_winProp><extChannels>3</extChannels></OpenGlobForm_winProp></WinProp>", 5,
        true);
}

void TestConfigFile::values()
{
    QFETCH(const QByteArray, xml);
    QFETCH(const int, index);
    QFETCH(const QVariant, want);
    const ScopedHome home;
    const Settings settings = readFrom(home.write(fileName, root(xml)));
    const QVariantList got = valuesOf(settings), normal = valuesOf(defaultSettings(today));
    QCOMPARE(got.at(index), want);
    for (int i = numberOfLists; i < got.size(); ++i) {
        const bool mayDiffer = i == index || i == 3 || i == 18; // the length of the list; the language
        QVERIFY2(mayDiffer || got.at(i) == normal.at(i), qPrintable(QString::number(i)));
    }
}

void TestConfigFile::language_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("want");
    QTest::newRow("none") << root("") << QStringLiteral("en");
    QTest::newRow("empty") << "<!--Application_Lang=\"\"-->" + root("") << QStringLiteral("en");
    QTest::newRow("damaged") << QByteArray("Application_Lang=\"ru\" <<<") << QStringLiteral("ru");
}

void TestConfigFile::language()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, want);
    const ScopedHome home;
    QCOMPARE(readFrom(home.write(fileName, content)).language, want);
}

void TestConfigFile::truncated()
{
    const ScopedHome home;
    const QString file = home.file(fileName);
    QVERIFY(write(file, otherSettings()));
    const QByteArray whole = contentOf(file);
    const QVariantList full = valuesOf(otherSettings()), normal = valuesOf(defaultSettings(today));
    for (int length = 0; length < whole.size(); ++length) {
        QFile::remove(file); // much faster than to cut it
        home.write(fileName, whole.left(length));
        const Settings read = readFrom(file);
        const QVariantList got = valuesOf(read);
        for (int i = numberOfLists; i < got.size(); ++i) {
            const bool system = i == 18 && got.at(i) == QStringLiteral("en");
            QVERIFY2(got.at(i) == full.at(i) || got.at(i) == normal.at(i) || system,
                qPrintable(QStringLiteral("value %1 cut at %2").arg(i).arg(length)));
        }
        for (const int list : {0, 2}) {
            const QStringList items = got.at(list).toStringList(), all = full.at(list).toStringList();
            QVERIFY(items == all.mid(0, items.size()) || items == normal.at(list).toStringList());
        }
        const auto formats = got.at(1).toMap(), allFormats = full.at(1).toMap();
        for (auto each = formats.cbegin(); each != formats.cend(); ++each)
            QCOMPARE(each.value(), allFormats.value(each.key()));
    }
}

void TestConfigFile::fuzzed()
{
    const ScopedHome home;
    const QString file = home.file(fileName);
    QVERIFY(write(file, otherSettings()));
    const QByteArray whole = contentOf(file);
    std::mt19937 random(20261123);
    for (int round = 0; round < 300; ++round) {
        QByteArray content = whole;
        for (unsigned i = random() % 8 + 1; i > 0; --i) {
            const int at = int(random() % unsigned(content.size()));
            if (random() % 2)
                content[at] = char(random());
            else
                content.insert(at, whole.mid(int(random() % unsigned(whole.size())), int(random() % 60)));
        }
        QFile::remove(file);
        QFile::remove(file + QStringLiteral(".damaged"));
        home.write(fileName, content);
        const Settings read = readFrom(file);
        QVERIFY(write(file, read));
        // What was kept of a bad file makes a good one.
        bool damaged = true;
        configTree(contentOf(file), &damaged);
        QVERIFY2(!damaged, content.constData());
        const QVariantList again = valuesOf(readFrom(file)), first = valuesOf(read);
        for (int i = numberOfLists; i < again.size(); ++i) {
            if (i != 18 && i != 27) // the language fits in a comment; "\r" may have lost its reference
                QCOMPARE(again.at(i), first.at(i));
        }
    }
}

void TestConfigFile::harmless_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("good");
    QByteArray bomb = "<!DOCTYPE xml [<!ENTITY a \"aaaaaaaaaa\">";
    for (char c = 'b'; c < 'z'; ++c) {
        const QByteArray before(1, char(c - 1));
        bomb += QByteArray("<!ENTITY ") + c + " \"" + ('&' + before + ';').repeated(10) + "\">";
    }
    QTest::newRow("entities") << bomb + "]><xml><Globals><updCycle>&y;</updCycle></Globals></xml>" << false;
    QTest::newRow("attribute defaults") << QByteArray(
        "<!DOCTYPE xml [<!ATTLIST a b CDATA 'x'>]><xml><Globals><updCycle>3</updCycle></Globals>"
        "</xml>") << false;
    QTest::newRow("nesting") << root(QByteArray("<a>").repeated(500000) + QByteArray("</a>").repeated(500000))
                             << false;
    QTest::newRow("nested blocks") << QByteArray("<xml><Globals><WinProp>").repeated(100000) << false;
    QTest::newRow("templates") << root("<WinProp><OpenGlobForm_winProp><Formats>"
        + QByteArray("<item numb=\"7\">[t] [x]</item>\n").repeated(100000)
        + "</Formats></OpenGlobForm_winProp><Globals/></WinProp><Globals><updCycle>7</updCycle></Globals>")
                               << true;
    QTest::newRow("elements") << root(QByteArray("<a/>").repeated(1000000)) << false;
    QTest::newRow("long text") << root(
        "<Globals><updCycle>" + QByteArray(7000000, '9') + "</updCycle></Globals>")
                               << true;
    QTest::newRow("too long") << root("<a>" + QByteArray(int(maxConfigSize), 'x') + "</a>") << false;
    QTest::newRow("not UTF-8") << QByteArray("<xml><Globals>\xff\xfe</Globals></xml>") << false;
    QTest::newRow("zeros") << QByteArray(100000, '\0') << false;
    QTest::newRow("not XML") << QByteArray("[Globals]\nupdCycle=3\n") << false;
    QTest::newRow("another root") << QByteArray("<html><Globals><updCycle>3</updCycle></Globals></html>")
                                  << false;
    QTest::newRow("more after the end") << root("") + "<xml/>" << false;
    QTest::newRow("empty") << QByteArray() << true;
}

void TestConfigFile::harmless()
{
    QFETCH(const QByteArray, content);
    QFETCH(const bool, good);
    const ScopedHome home;
    const QString file = home.write(fileName, content);
    QElapsedTimer timer;
    timer.start();
    const Settings settings = readFrom(file);
    QVERIFY(settings.winProp.formats.size() <= 20);
    QCOMPARE(int(settings.updCycle), QTest::currentDataTag() == QByteArray("templates") ? 7 : 15);
    QVERIFY(write(file, settings));
    QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(QFileInfo::exists(file + QStringLiteral(".damaged")), !good);
    if (!good)
        QCOMPARE(contentOf(file + QStringLiteral(".damaged")), content);
}

void TestConfigFile::unknownIsKept()
{
    const ScopedHome home;
    const QString file = home.file(fileName);
    QVERIFY(write(file, otherSettings()));
    QByteArray content = contentOf(file);
    const auto insert = [&content](const char* before, const QByteArray& what) {
        QVERIFY2(content.contains(before), before);
        content.replace(content.indexOf(before), 0, what);
    };
    const QByteArray kept[] = {"<Later a=\"1\" b=\"&lt;\">", "<deep>\xcf \xf0 <!-- note --><i/></deep>",
        "<newForm/>", "<inForm> </inForm>", "<inGlobals/>", "<inFormat>8</inFormat>", "<inFormats/>",
        "<inRecent/>"};
    insert("</xml>", kept[0] + kept[1] + "</Later><Later a=\"2\"/>");
    insert("</WinProp>", kept[2]);
    insert("</OpenGlobForm_winProp>", kept[3]);
    insert("</Globals>", kept[4]);
    insert("</Globals>", "<updCycle name=\"x\">3</updCycle>");
    insert("<linesToSkip>3", kept[5]);
    insert("</Formats>", kept[6]);
    insert("</RecentRecs>", kept[7]);
    insert("<separator> <", "<ofRemoved/>");
    home.write(fileName, content);
    Settings settings = readFrom(file);
    QCOMPARE(int(settings.updCycle), 3);
    settings.updCycle = 4;
    settings.winProp.formats = QStringList{QStringLiteral("[x]")};
    settings.winProp.ASCIIformats.remove(QString());
    QByteArray before;
    for (int time = 0; time < 3; ++time) {
        QVERIFY(write(file, settings));
        const QByteArray now = contentOf(file);
        for (const QByteArray& piece : kept)
            QVERIFY2(now.count(piece) == 1, (piece + now).constData());
        QCOMPARE(now.count("<Later a=\"2\"/>"), 1);
        QVERIFY(!now.contains("<ofRemoved/>"));
        QCOMPARE(now.count("<Globals>"), 1);
        QCOMPARE(now.count("<separator>"), 1);
        QCOMPARE(now.count("<nom "), 2);
        QCOMPARE(int(readFrom(file).updCycle), 4);
        QVERIFY(time == 0 || now == before);
        before = now;
    }
    QVERIFY(!QFileInfo::exists(file + QStringLiteral(".damaged")));
}

void TestConfigFile::damagedIsPutAside()
{
    const ScopedHome home;
    const QByteArray content = root("<Globals><updCycle>3</updCycle><new>1</new></Globals>").chopped(3);
    const QString file = home.write(fileName, content);
    const QString aside = file + QStringLiteral(".damaged");
    QVERIFY(write(file, readFrom(file)));
    QCOMPARE(int(readFrom(file).updCycle), 3);
    QVERIFY(contentOf(file).contains("<new>1</new>"));
    QCOMPARE(contentOf(aside), content);
    QVERIFY(!(QFile::permissions(aside) & (QFileDevice::ReadGroup | QFileDevice::ReadOther)));
    home.write(fileName, "<another");
    QVERIFY(write(file, readFrom(file)));
    QCOMPARE(contentOf(aside), content); // the first stays
}

void TestConfigFile::failedWriteLeavesTheOldFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("sound") << root("<Globals><updCycle>3</updCycle></Globals>");
    QTest::newRow("damaged, to be put aside") << root("<Globals><updCycle>3</updCycle></Globals>").chopped(4);
}

void TestConfigFile::failedWriteLeavesTheOldFile()
{
    QFETCH(const QByteArray, content);
    const ScopedHome home;
    const QString file = home.write(fileName, content);
    QString error;
    // No file may grow beyond a few bytes, as on a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit normal{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &normal), 0);
    const rlimit small{rlim_t(content.size() - 1), normal.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool done = writeSettings(file, otherSettings(), {}, &error);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &normal), 0);
    QVERIFY(!done);
    QVERIFY(!error.isEmpty());
    QCOMPARE(contentOf(file), content);
    QCOMPARE(QFileInfo(file).dir().entryList(QDir::Files).size(), 1);

    const QString full = home.file(QStringLiteral("full.xml"));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), full));
    for (const QString& impossible : {full, home.file(QStringLiteral("none/recfiles.xml")),
             home.file(QStringLiteral("config")), file + QStringLiteral("/recfiles.xml")}) {
        error.clear();
        Settings settings = defaultSettings(today);
        QVERIFY(!readSettings(impossible, localeName, &settings));
        QVERIFY(!writeSettings(impossible, settings, {}, &error));
        QVERIFY(!error.isEmpty());
    }
}

QTEST_GUILESS_MAIN(TestConfigFile)
#include "tst_configfile.moc"
