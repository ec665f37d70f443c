#include "base/globals.h"
#include "base/language.h"
#include "support/scopedhome.h"

#include <QFile>
#include <QTest>

namespace {

const QString fallback = QStringLiteral("ru_RU");

QByteArray content(const QString& file)
{
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("unreadable");
}

} // namespace

class TestLanguage : public QObject {
    Q_OBJECT
private slots:
    void fromFile_data();
    void fromFile();
    void missingFile();
    void toFile_data();
    void toFile();
    void unwritable();
    void english();
};

void TestLanguage::fromFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("want");
    const QByteArray key = "Application_Lang=\"en\"";
    const QString system = QStringLiteral("en");
    QTest::newRow("asked for") << QByteArray("<!--Application_Lang=\"ru\"-->") << QStringLiteral("ru");
    QTest::newRow("with a territory") << QByteArray("Application_Lang=\"en_US\"") << QStringLiteral("en_US");
    QTest::newRow("after the version")
        << QByteArray("<!--Application_ver = \"1\" Application_Lang = \"ru\"-->") << QStringLiteral("ru");
    QTest::newRow("empty value") << QByteArray("Application_Lang=\"\"") << system;
    QTest::newRow("no quotes") << QByteArray("Application_Lang=ru") << system;
    QTest::newRow("one quote") << QByteArray("Application_Lang=\"ru") << system;
    QTest::newRow("no key") << QByteArray("<xml lang=\"ru\"/>") << fallback;
    QTest::newRow("empty file") << QByteArray() << fallback;
    QTest::newRow("ends at byte 200") << QByteArray(200 - key.size(), ' ') + key << QStringLiteral("en");
    QTest::newRow("quote at byte 201")
        << QByteArray(201 - key.size(), ' ') + "Application_Lang=\"ru\"" << system;
    QTest::newRow("key beyond") << QByteArray(200, ' ') + key << fallback;
}

void TestLanguage::fromFile()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, want);
    const ScopedHome home;
    const QString name = home.write(QStringLiteral("recfiles.xml"), file);
    QCOMPARE(language::fromFile(name, QStringLiteral("en_GB"), fallback), want);
}

void TestLanguage::missingFile()
{
    const ScopedHome home;
    QCOMPARE(language::fromFile(home.file(QStringLiteral("none.xml")), QStringLiteral("en_GB"), fallback),
        fallback);
}

void TestLanguage::toFile_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArray comment = "<!--Application_ver = \"1.2\" Application_Lang=\"en\"-->";
    const QByteArray declaration = "<?xml version=\"1.0\" encoding=\"Windows-1251\"?>";
    const QByteArray body = "\n<xml>\xcf\xf0\xe8<!--Application_ver stays--></xml>\n"; // Windows-1251
    QTest::newRow("no file") << QByteArray() << declaration + '\n' + comment + "\n<xml/>\n";
    QTest::newRow("replaced") << declaration + "\n<!--Application_ver = \"1.1\" Application_Lang=\"ru\"-->"
            + body << declaration + '\n' + comment + body;
    QTest::newRow("inserted") << declaration + "\n<xml/>" << declaration + '\n' + comment + "\n<xml/>";
    QTest::newRow("no declaration") << QByteArray("<xml/>") << comment + "\n<xml/>";
    QTest::newRow("another comment") << declaration + "<!--kept--><xml/>"
                                     << declaration + '\n' + comment + "<!--kept--><xml/>";
}

void TestLanguage::toFile()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const ScopedHome home;
    const QString name = home.file(QStringLiteral("recfiles.xml"));
    if (!before.isEmpty())
        home.write(QStringLiteral("recfiles.xml"), before);
    QVERIFY(language::toFile(name, QStringLiteral("1.2"), QStringLiteral("en")));
    QCOMPARE(content(name), after);
    QCOMPARE(language::fromFile(name, QStringLiteral("ru_RU"), fallback), QStringLiteral("en"));
    QVERIFY(language::toFile(name, QStringLiteral("1.2"), QStringLiteral("en")));
    QCOMPARE(content(name), after); // a second time changes nothing
}

void TestLanguage::unwritable()
{
    const ScopedHome home;
    QVERIFY(!language::toFile(
        home.file(QStringLiteral("none/recfiles.xml")), QStringLiteral("1"), QStringLiteral("en")));
}

void TestLanguage::english()
{
    for (const char* lang : {"", "ru", "en_US", "EN"}) {
        App_lang = QLatin1String(lang);
        QVERIFY(!language::isEnglish());
    }
    App_lang = QStringLiteral("en");
    QVERIFY(language::isEnglish());
}

QTEST_GUILESS_MAIN(TestLanguage)
#include "tst_language.moc"
