#include "load/core/datetimetext.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QtTest>

namespace {

bool readText(const DateTimeText& format, const QByteArray& text, DateTimeText::Moment& moment)
{
    return format.read(text.constData(), text.constData() + text.size(), moment);
}

QString pick(QRandomGenerator& random, const QStringList& list)
{
    return list.at(random.bounded(list.size()));
}

} // namespace

class TestDateTimeText : public QObject {
    Q_OBJECT

private slots:
    void quick_data();
    void quick();
    void agreesWithQt();
    void centuries();
};

void TestDateTimeText::quick_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("quick");
    QTest::addColumn<bool>("hasDate");
    for (const char* const format : {"hh:mm:ss", "H:m:s", "HH:mm:ss.zzz", "hhmmss"})
        QTest::newRow(format) << QString(format) << true << false;
    for (const char* const format : {"yyyyMMdd", "yyMMdd", "d.M.yy H:mm", "yyyy-MM-ddThh:mm:ss", "'T'dd"})
        QTest::newRow(format) << QString(format) << true << true;
    for (const char* const format : {"hh:mm AP", "h:mm a", "ss.z", "hh hh", "'d'hh''", "hm", "y hh"})
        QTest::newRow(format) << QString(format) << false << false;
    for (const char* const format : {"dd MMM yyyy", "yyyyMd", "yy yyyy", "dddd hh"})
        QTest::newRow(format) << QString(format) << false << true;
    QTest::newRow("empty") << QString() << false << false;
}

void TestDateTimeText::quick()
{
    QFETCH(QString, format);
    const DateTimeText compiled(format);
    QTEST(compiled.isQuick(), "quick");
    QTEST(compiled.hasDate(), "hasDate");
}

// The quick way and Qt's own parser, over texts that fit, nearly fit and do not fit.
void TestDateTimeText::agreesWithQt()
{
    const QStringList pieces = {"yyyy", "yy", "MM", "M", "dd", "d", "hh", "h", "HH", "H", "mm", "m", "ss",
        "s", "zzz", "z", "AP", "MMM", "ddd", "t"};
    const QStringList marks = {
        "", "", ":", ":", "-", ".", "/", " ", "T", "'T'", "'on '", "''", "Z", "x", "_", "1"};
    const QStringList whole = {"hh:mm:ss", "yyyyMMdd hh:mm:ss", "yyyyMMdd", "yyMMdd", "d.M.yy H:m:s",
        "yyyy-MM-ddThh:mm:ss.zzz", "dd.MM.yyyy", "MMdd hh"};
    QRandomGenerator random(20140131);
    int quick = 0;
    int good = 0;
    for (int trial = 0; trial < 60000; ++trial) {
        QString format = pick(random, whole);
        if (random.bounded(2)) {
            format.clear();
            for (int i = 1 + random.bounded(5); i > 0; --i)
                format += pick(random, pieces) + pick(random, marks);
        }
        const QDateTime time(QDate(1896 + random.bounded(220), 1, 1).addDays(random.bounded(366)),
            QTime::fromMSecsSinceStartOfDay(random.bounded(86400000)));
        QByteArray text = time.toString(format).toUtf8();
        for (int changes = random.bounded(3); changes > 0 && !text.isEmpty(); --changes) {
            const int at = random.bounded(text.size());
            const char c = "0123456789: -.T"[random.bounded(15)];
            text.replace(at, random.bounded(2), QByteArray(random.bounded(2), c));
        }
        const QDateTime wanted = QDateTime::fromString(QString::fromUtf8(text), format);
        const DateTimeText compiled(format);
        DateTimeText::Moment moment;
        const bool read = readText(compiled, text, moment);
        const QByteArray trialText = "'" + text + "' by '" + format.toUtf8() + "'";
        QVERIFY2(read == (!format.isEmpty() && wanted.isValid()), trialText.constData());
        quick += compiled.isQuick() ? 1 : 0;
        if (!read)
            continue;
        good += compiled.isQuick() ? 1 : 0;
        QVERIFY2(moment.day == wanted.date().toJulianDay(), trialText.constData());
        QVERIFY2(moment.msec == wanted.time().msecsSinceStartOfDay(), trialText.constData());
    }
    QVERIFY(good > 10000);
    QVERIFY(quick - good > 5000);
}

void TestDateTimeText::centuries()
{
    const auto after = [](int year, int month, int day) {
        return QDate::fromJulianDay(afterCentury(QDate(year, month, day).toJulianDay()));
    };
    QCOMPARE(after(1999, 12, 31), QDate(2099, 12, 31));
    QCOMPARE(after(2000, 1, 1), QDate(2000, 1, 1));
    QCOMPARE(after(1, 1, 1), QDate(101, 1, 1));
    const qint64 day = QDate(2024, 2, 28).toJulianDay();
    QCOMPARE(secondsBetween({day, 86399500}, {day + 2, 0}), 86400.5);
    const DateTimeText digits("yyyyMMdd");
    DateTimeText::Moment moment;
    for (QDate date(1, 1, 1); date.year() < 10000; date = date.addDays(13)) {
        QVERIFY(readText(digits, date.toString("yyyyMMdd").toUtf8(), moment));
        QCOMPARE(moment.day, date.toJulianDay());
    }
    DateTimeText::Moment far;
    QVERIFY(readText(DateTimeText("yyyyMMdd hh:mm:ss"), "99991231 23:59:59", far));
    QCOMPARE(QDate::fromJulianDay(far.day), QDate(9999, 12, 31));
    QVERIFY(!readText(DateTimeText("hh:mm:ss"), QByteArray(1000000, '1'), far));
}

QTEST_GUILESS_MAIN(TestDateTimeText)
#include "tst_datetimetext.moc"
