#include "base/globals.h"
#include "store/core/infstruct.h"
#include "store/core/mapstruct.h"
#include "store/core/recordingtime.h"
#include "support/near.h"
#include "support/scopedhome.h"

#include <QFileInfo>
#include <QtTest>

#include <random>

namespace {

/// Text with blanks behind it.
QByteArray padded(const char* text, int length)
{
    return QByteArray(text).leftJustified(length, ' ');
}

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

/// A structure of each type, byte by byte.
QByteArray type1()
{
    return hex("50555555") + padded("15.03.2025 01:02:03", 32)
        + hex("0c000000 0a00 03 e803 02 00000000 24000000") + padded("\xCE\xEF\xEE\xF0\xE0", 128)
        + padded("Cs 1", 128) + padded("15.03.2025 23:59:59", 32) + hex("a1aaaaaa");
}

QByteArray type2()
{
    return hex("51555555") + padded("16.03.2025", 32)
        + hex("0c010000 feff 07 0100 05 01000000 11112222 24010000") + padded("Ref 5", 64) + padded("", 64)
        + padded("16.03.2025 10:20:30", 32) + hex("a0aaaaaa");
}

InfReading read(const QByteArray& bytes, int number)
{
    return readStructure(bytes, findStructures(bytes), number);
}

} // namespace

class TestInfStruct : public QObject {
    Q_OBJECT

private slots:
    void bytesOfBothTypes();
    void special();
    void cutAnywhere();
    void finding_data();
    void finding();
    void readInfLogs();
    void randomBytes();
    void unnamedData();
    void sample();
    void timeTexts_data();
    void timeTexts();
    void usualTextsAsByTheFormats();
    void calendar();
};

void TestInfStruct::bytesOfBothTypes()
{
    QCOMPARE(type1().size(), infSizeType1);
    QCOMPARE(type2().size(), infSizeType2);
    const InfReading one = read(type1(), 0);
    QCOMPARE(one.type, 1);
    QCOMPARE(one.inf.startMarker, infStarts);
    QCOMPARE(one.inf.startText, QStringLiteral("15.03.2025 01:02:03"));
    QCOMPARE(one.inf.startOffset, 12);
    QCOMPARE(int(one.inf.Kdec), 10);
    QCOMPARE(int(one.inf.devType), 3);
    QCOMPARE(int(one.inf.dT), 1000);
    QCOMPARE(int(one.inf.dataType), 2);
    QCOMPARE(one.inf.endOffset, 36);
    QCOMPARE(one.inf.refName, QStringLiteral("Опора"));
    QCOMPARE(one.inf.measName, QStringLiteral("Cs 1"));
    QCOMPARE(one.inf.endText, QStringLiteral("15.03.2025 23:59:59"));
    QCOMPARE(one.inf.endMarker, infEndsLater);
    QCOMPARE(encodeInf(one.inf), type1());

    const InfReading two = read(type2(), 0);
    QCOMPARE(two.type, 2);
    QCOMPARE(two.inf.startMarker, infGoesOn);
    QCOMPARE(two.inf.startText, QStringLiteral("16.03.2025"));
    QCOMPARE(two.inf.startOffset, 268);
    QCOMPARE(int(two.inf.Kdec), -2);
    QCOMPARE(int(two.inf.devType), 7);
    QCOMPARE(int(two.inf.dT), 0);
    QCOMPARE(int(two.inf.dataType), 0);
    QCOMPARE(two.inf.endOffset, 292);
    QCOMPARE(two.inf.refName, QStringLiteral("Ref 5"));
    QCOMPARE(two.inf.measName, QStringLiteral("Meas"));
    QCOMPARE(two.inf.endText, QStringLiteral("16.03.2025 10:20:30"));
    QCOMPARE(two.inf.endMarker, infEnds);
}

void TestInfStruct::special()
{
    QByteArray noStep = type1(), shortStep = type1(), zeros = type1(), longNames = type1();
    noStep.replace(43, 2, QByteArray(2, '\0'));
    QCOMPARE(int(read(noStep, 0).inf.dT), 1000);
    shortStep.replace(42, 3, hex("05 0100"));
    QCOMPARE(int(read(shortStep, 0).inf.dT), 1000);
    shortStep[42] = 4;
    QCOMPARE(int(read(shortStep, 0).inf.dT), 1);
    zeros.replace(54, 256, QByteArray(256, '\0'));
    QCOMPARE(read(zeros, 0).inf.refName, QStringLiteral("Ref"));
    QCOMPARE(parseInf(zeros.constData(), zeros.size(), 1).refName, QString());
    InfType inf = read(longNames, 0).inf;
    inf.refName = QString(200, QLatin1Char('r'));
    QCOMPARE(encodeInf(inf).size(), infSizeType1);
    QCOMPARE(read(encodeInf(inf), 0).inf.refName, QString(128, QLatin1Char('r')));
    QCOMPARE(read(encodeInf(inf), 0).inf.measName, QStringLiteral("Cs 1"));
}

void TestInfStruct::cutAnywhere()
{
    for (int length = 4; length < infSizeType1; ++length) {
        const InfReading reading = read(type1().left(length), 0);
        const InfType& inf = reading.inf;
        QCOMPARE(reading.fault, InfFault::None);
        QCOMPARE(reading.type, length == infSizeType2 ? 2 : 1);
        if (reading.type == 2)
            continue;
        QCOMPARE(inf.startMarker, infStarts);
        QCOMPARE(inf.startOffset, length < 40 ? -1 : 12);
        QCOMPARE(int(inf.dT), 1000);
        QCOMPARE(inf.endOffset, length < 54 ? -1 : 36);
        QCOMPARE(
            inf.refName, length < 55 ? QStringLiteral("Ref") : QStringLiteral("Опора").left(length - 54));
        QCOMPARE(inf.endText == inf.startText, length <= 310);
        QCOMPARE(inf.endMarker, 0u);
    }
}

void TestInfStruct::finding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QVector<int>>("begins");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("fault");
    const int none = int(InfFault::None), no = int(InfFault::NoStructure), tooLong = int(InfFault::TooLong);
    using Begins = QVector<int>;
    QTest::newRow("empty") << QByteArray() << Begins() << 0 << no;
    QTest::newRow("no marker") << QByteArray(1000, ' ') << Begins() << 0 << no;
    QTest::newRow("pattern at the start") << hex("555555") << Begins() << 0 << no;
    QTest::newRow("first") << type1() + type1() << Begins{0, 346} << 0 << none;
    QTest::newRow("second") << type1() + type1() << Begins{0, 346} << 1 << none;
    QTest::newRow("third of two") << type1() + type1() << Begins{0, 346} << 2 << no;
    QTest::newRow("negative") << type1() << Begins{0} << -1 << no;
    QTest::newRow("behind rubbish") << "rubbish" + type2() << Begins{7} << 0 << none;
    QTest::newRow("one byte too long") << type1() + ' ' << Begins{0} << 0 << tooLong;
    QTest::newRow("a name of the marker's bytes")
        << type1().replace(54, 3, "UUU") << Begins{0, 53} << 1 << none;
    QTest::newRow("five in a row") << hex("505555555555") << Begins{0, 2} << 1 << none;
}

void TestInfStruct::finding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QVector<int>, begins);
    QFETCH(int, number);
    QFETCH(int, fault);
    QCOMPARE(findStructures(bytes), begins);
    QCOMPARE(int(read(bytes, number).fault), fault);
}

void TestInfStruct::readInfLogs()
{
    const ScopedHome home;
    mapStruct map(1, 1);
    bool ok = true;
    map.ReadInf(home.file(QStringLiteral("nothing.inf")), 0, ok);
    QVERIFY(!ok);
    map.ReadInf(home.file(QString()), 0, ok); // the directory
    QVERIFY(!ok);

    const QString blank = home.write(QStringLiteral("blank.inf"), QByteArray(10, ' '));
    QTest::ignoreMessage(QtDebugMsg,
        qPrintable(QStringLiteral("Ошибка чтения информации: Нет ни одной inf-структуры в файле ") + blank));
    map.ReadInf(blank, 0, ok);
    QVERIFY(!ok);
    const QString tooLong = home.write(QStringLiteral("long.inf"), type1() + ' ');
    QTest::ignoreMessage(QtDebugMsg,
        qPrintable(QStringLiteral("Ошибка чтения информации: флаг конца идет раньше флага начала "
                                  "информационной структуры в файле ")
            + tooLong));
    map.ReadInf(tooLong, 0, ok);
    QVERIFY(!ok);
    QCOMPARE(int(map.structType), 0);

    const QString running = home.write(QStringLiteral("running.inf"), type1().left(60));
    QTest::ignoreMessage(QtDebugMsg, "Wrong inf-struct size, record is not finished?");
    const InfType head = map.ReadInf(running, 0, ok);
    QVERIFY(ok);
    QCOMPARE(head.endText, head.startText);
    QCOMPARE(head.endMarker, 0u);
    QCOMPARE(int(map.structType), 1);
    QTest::ignoreMessage(QtDebugMsg, "Different inf-struct types in one folder!!");
    QCOMPARE(map.ReadInf(home.write(QStringLiteral("two.inf"), type1() + type2()), 1, ok).endOffset, 292);
    QVERIFY(ok);
    QCOMPARE(int(map.structType), 2);
}

void TestInfStruct::randomBytes()
{
    std::mt19937 random(5);
    const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
    for (int trial = 0; trial < 2000; ++trial) {
        QByteArray bytes;
        for (int i = below(4); i >= 0; --i)
            bytes += below(2) ? type1() : type2();
        for (int i = below(20); i >= 0; --i)
            bytes[below(bytes.size())] = char(below(3) ? below(256) : 0x55);
        bytes.truncate(below(bytes.size() + 1));
        const QVector<int> begins = findStructures(bytes);
        for (int number = -1; number <= begins.size(); ++number) {
            const InfReading reading = readStructure(bytes, begins, number);
            QCOMPARE(reading.fault == InfFault::NoStructure, number < 0 || number == begins.size());
            QVERIFY(
                reading.fault != InfFault::None || (reading.length >= 1 && reading.length <= infSizeType1));
            QVERIFY(reading.inf.refName.size() <= 128 && reading.inf.endText.size() <= 32);
        }
    }
}

void TestInfStruct::unnamedData()
{
    const ScopedHome home;
    const QFileInfo dat(home.write(QStringLiteral("a.dat"), QByteArray(37, '\0')));
    static int lines;
    const auto linesFor = [&](const QVector<InfType>& structures) {
        lines = 0;
        const auto counting = [](QtMsgType, const QMessageLogContext&, const QString&) { ++lines; };
        const QtMessageHandler before = qInstallMessageHandler(counting);
        logUnnamed(structures, dat);
        qInstallMessageHandler(before);
        return lines;
    };
    InfType inf = read(type1(), 0).inf; // names 36 bytes
    QCOMPARE(linesFor({inf}), 1);
    QCOMPARE(linesFor({}), 1);
    InfType all = inf;
    all.endOffset = 37;
    QCOMPARE(linesFor({all, inf}), 0);
    inf.endMarker = 0; // still running
    QCOMPARE(linesFor({inf}), 0);
}

void TestInfStruct::sample()
{
    QByteArray bytes;
    appendSample(&bytes, {-2, 1.5});
    QCOMPARE(bytes, hex("feffffff 000000000000f83f"));
    QCOMPARE(decodeSample(bytes.constData()).mark, -2);
    QCOMPARE(decodeSample(bytes.constData()).value, 1.5);
    QCOMPARE(recordingName(QDate(1999, 12, 31), 9), QStringLiteral("991231_09"));
    QCOMPARE(recordingName(QDate(2000, 1, 1), 10, 2), QStringLiteral("000101_10_(2)"));
}

void TestInfStruct::timeTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("time"); // empty for the missing one
    const auto row = [](const char* text, const char* time) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(time);
    };
    row("15.03.2025 01:02:03", "01:02:03");
    row("15.03.2025", "");
    row("03/15/2025", "");
    row("15.03.25", "");
    row("03/15/2025 01:02:03 PM", "13:02:03");
    row("15.03.2025 12:00:00 AM", "00:00:00");
    row("15.03.25 1:02:03", "01:02:03");
    row("15-03-2025 9:02:03", "09:02:03");
    row("2025/03/15 9:02:03", "09:02:03");
    row("30.03.2025 02:30:00", "02:30:00"); // left out by summer time in many zones
    row("15.03.2025 24:00:00", "");
    row("31.02.2025 01:02:03", "");
    row("15.03.2025 01-02-03", "");
    row("15.03.2025 0a:02:03", "");
    row("rubbish", "");
    row("", "");
}

void TestInfStruct::timeTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, time);
    const QTime missing(11, 22, 33);
    const QTime expected = time.isEmpty() ? missing : QTime::fromString(time, QStringLiteral("hh:mm:ss"));
    QCOMPARE(timeOfText(text, missing), expected);
}

void TestInfStruct::usualTextsAsByTheFormats()
{
    std::mt19937 random(6);
    const auto digits = [&](unsigned limit, int width) {
        return QStringLiteral("%1").arg(random() % limit, width, 10, QLatin1Char('0'));
    };
    const QTime missing(11, 22, 33);
    int valid = 0;
    for (int i = 0; i < 500; ++i) {
        QString text = digits(33, 2) + '.' + digits(15, 2) + '.' + digits(3000, 4);
        if (i % 5 > 0)
            text += ' ' + digits(26, 2) + ':' + digits(62, 2) + ':' + digits(62, 2);
        QTime expected = missing;
        for (const QString& format : Formats) {
            const QDateTime time = QDateTime::fromString(text, format);
            if (time.isValid()) {
                expected = format.contains(QLatin1Char(' ')) ? time.time() : missing;
                ++valid;
                break;
            }
        }
        QCOMPARE(timeOfText(text, missing), expected);
    }
    QVERIFY(valid > 100 && valid < 450);
}

void TestInfStruct::calendar()
{
    const QDateTime night(QDate(2024, 12, 31), QTime(23, 59, 59, 500));
    QCOMPARE(plusSeconds(night, 1), QDateTime(QDate(2025, 1, 1), QTime(0, 0, 0, 500)));
    QCOMPARE(plusSeconds(night, -86400 * 366), QDateTime(QDate(2023, 12, 31), QTime(23, 59, 59, 500)));
    NEAR(secondsBetween(night, dayStart(QDate(2025, 1, 2))), 86400.5);
    NEAR(secondsBetween(dayEnd(QDate(2025, 1, 2)), night), -172799.5);
}

QTEST_APPLESS_MAIN(TestInfStruct)
#include "tst_infstruct.moc"
