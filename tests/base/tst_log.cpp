#include "base/debuglog.h"
#include "base/globals.h"
#include "base/paths.h"
#include "support/scopedhome.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

const QDate today(2024, 2, 7);

QByteArray content(const QString& file)
{
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("unreadable");
}

void writeLog(int bytes, char fill)
{
    QFile out(logFilePath());
    QVERIFY(out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(QByteArray(bytes, fill)), qint64(bytes));
}

QStringList names()
{
    return QDir(paths::log()).entryList(QDir::Files, QDir::Name);
}

} // namespace

class TestLog : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { LOG = false; }
    void switchedOff();
    void lines();
    void withoutDirectory();
    void rotation();
};

void TestLog::switchedOff()
{
    const ScopedHome home;
    QTest::ignoreMessage(QtDebugMsg, "only said");
    DebugLOG("only said");
    QVERIFY(!QFile::exists(logFilePath()));
}

void TestLog::lines()
{
    const ScopedHome home;
    LOG = true;
    QTest::ignoreMessage(QtDebugMsg, "100% первая");
    DebugLOG("100% первая"); // the text is no format
    DebugLOG("");
    const QStringList lines = QString::fromUtf8(content(logFilePath())).split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 3);
    const QRegularExpression form(QStringLiteral("^\\d\\d\\.\\d\\d \\d\\d:\\d\\d:\\d\\d:\\d\\d\\d  (.*)$"));
    QCOMPARE(form.match(lines[0]).captured(1), QStringLiteral("100% первая"));
    QVERIFY(form.match(lines[1]).hasMatch());
    QVERIFY(lines[2].isEmpty());
    const QDateTime now = QDateTime::currentDateTime();
    QVERIFY(lines[0].startsWith(now.toString(QStringLiteral("dd.MM")))
        || lines[0].startsWith(now.addSecs(-60).toString(QStringLiteral("dd.MM"))));
}

void TestLog::withoutDirectory()
{
    const ScopedHome home;
    QVERIFY(QDir(paths::log()).removeRecursively());
    LOG = true;
    QTest::ignoreMessage(QtDebugMsg, "lost");
    DebugLOG("lost");
    rotateLog(today);
    QVERIFY(!QFile::exists(logFilePath()));
}

void TestLog::rotation()
{
    const ScopedHome home;
    writeLog(102400, 'a');
    rotateLog(today);
    QCOMPARE(names(), QStringList{"KronalysLog.log"});
    for (const char fill : {'b', 'c', 'd'}) {
        writeLog(102401, fill);
        rotateLog(today);
        QVERIFY(!QFile::exists(logFilePath()));
    }
    QCOMPARE(names(),
        (QStringList{
            "KronalysLog_07022024.log", "KronalysLog_07022024_1.log", "KronalysLog_07022024_2.log"}));
    QCOMPARE(content(paths::log() + "/KronalysLog_07022024.log"), QByteArray(102401, 'b'));
    QCOMPARE(content(paths::log() + "/KronalysLog_07022024_2.log"), QByteArray(102401, 'd'));
}

QTEST_GUILESS_MAIN(TestLog)
#include "tst_log.moc"
