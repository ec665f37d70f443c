#include "base/globals.h"
#include "base/language.h"
#include "support/scopedhome.h"

#include <QFile>
#include <QTest>

namespace {

const QString fallback = QStringLiteral("ru_RU");

} // namespace

class TestLanguage : public QObject {
    Q_OBJECT
private slots:
    void fromFile_data();
    void fromFile();
    void missingFile();
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
