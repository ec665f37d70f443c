#include "load/core/preview.h"

#include "load/core/asciirecord.h"
#include "load/core/columnfile.h"
#include "record/record.h"

#include "support/scopedhome.h"

#include <QFile>
#include <QRandomGenerator>
#include <QtTest>

namespace {

/// The fields of a line as "kind index:text", "!" behind the bad ones.
QStringList shown(const PreviewLine& line)
{
    QStringList result;
    int at = 0;
    for (const PreviewField& field : line.fields) {
        if (field.begin < at || field.length < 1 || field.begin + field.length > line.text.size())
            return QStringList(QStringLiteral("out of order"));
        at = field.begin + field.length;
        result.append(
            QStringLiteral("%1%2:%3%4")
                .arg(QStringLiteral("tdx-").at(field.kind))
                .arg(field.index)
                .arg(line.text.mid(field.begin, field.length), field.bad ? QStringLiteral("!") : QString()));
    }
    return result;
}

QVector<qint64> badNumbers(const Preview& preview)
{
    QVector<qint64> result;
    for (const PreviewLine& line : preview.lines) {
        if (line.kind == PreviewLine::Bad)
            result.append(line.number);
    }
    return result;
}

QByteArray pick(QRandomGenerator& random, const QList<QByteArray>& list)
{
    return list.at(random.bounded(list.size()));
}

QByteArray randomText(QRandomGenerator& random)
{
    const QList<QByteArray> words = {"1", "2.5", "-3e-7", "4", "50", "12:30:00", "6:07:08", "01:02:03", "1:2",
        "x", "nan", "inf", "1,5", "#", "\xD1\x82\xD0\xBA", "\xE0\xE1", "20140131", "7@8", QByteArray(1, '\0'),
        "99991231", ":"};
    const QList<QByteArray> marks = {" ", " ", " ", "  ", "\t", ",", ";", ", ", "\r"};
    const QByteArray usual = pick(random, marks);
    const bool whole = random.bounded(2) == 0; // lines of many fields
    QByteArray text;
    for (int lines = random.bounded(12); lines > 0; --lines) {
        for (int i = whole ? 6 : random.bounded(8); i > 0; --i)
            text += pick(random, words.mid(0, random.bounded(3) ? 8 : words.size()))
                + (random.bounded(8) ? usual : pick(random, marks));
        text += "\n";
    }
    return text;
}

/// Without the care that ScopedHome::write takes for the disk's sake.
QString writeQuickly(const QString& name, const QByteArray& text)
{
    QFile file(name);
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
    return name;
}

ReadFormat randomFormat(QRandomGenerator& random)
{
    ReadFormat format;
    format.separator = QString::fromLatin1(pick(random, {" ", " ", ",", ";", "  "}));
    format.linesToSkip = random.bounded(3) ? 0 : random.bounded(4);
    format.columnNum_time = random.bounded(3) - 1;
    for (int i = 1 + random.bounded(2); i > 0; --i)
        format.columnNum_data.append(random.bounded(3));
    format.timeFormat_flag = random.bounded(2);
    format.timeFormat_format = QString::fromLatin1(pick(random, {"hh:mm:ss", "h:m", "hh:mm AP", ""}));
    format.timeUnit_flag = random.bounded(2);
    format.dateFromFileDateTime_flag = random.bounded(6) == 0;
    format.columnNum_datetime = random.bounded(2);
    format.dateFromFileDateTime_format = QStringLiteral("yyyyMMdd");
    format.dateFromFileDate_flag = random.bounded(4) == 0;
    format.columnNum_date = random.bounded(3);
    format.dateFromFileDate_format = QStringLiteral("yyyyMMdd");
    format.dataType = short(random.bounded(5));
    return format;
}

} // namespace

class TestPreview : public QObject {
    Q_OBJECT

private:
    ScopedHome m_home;

private slots:
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {}); // every bad line
    }
    void templates_data();
    void templates();
    void columns_data();
    void columns();
    void textsAndLimits();
    void faults();
    void templatesAgreeWithReading();
    void columnsAgreeWithReading();
};

void TestPreview::templates_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("fields");
    const auto row = [](const char* format, const QByteArray& line, PreviewLine::Kind kind,
                         const QStringList& fields) {
        QTest::newRow(qPrintable(QString(format) + " | " + line))
            << QString(format) << line << int(kind) << fields;
    };
    const auto good = PreviewLine::Good, bad = PreviewLine::Bad, over = PreviewLine::PassedOver;
    row("[t] [x]", "  1,5 \t  2.5\r", good, {"t0:1,5", "x0:2.5"});
    row("[t] [x] [y]", "1 2 3 4 5", good, {"t0:1", "x0:2", "x1:3"});
    row("[x] [t]", "1 nan", bad, {"x0:1", "t0:nan!"});
    row("[t] [x]", "1 a", bad, {"t0:1", "x0:a!"});
    row("[t] [x]", "a 1", bad, {"t0:a!"});
    row("[t] [x] [y]", "1", bad, {"t0:1"});
    row("[t] [x]", "# 1 2", over, {});
    row("[t] [x]", " \t", over, {});
    row("<20> [t] [x]", "\xD1\x82\xD0\xBA  1   2", good,
        {QString::fromUtf8("-0:\xD1\x82\xD0\xBA"), "t0:1", "x0:2"});
    row("[t_12] [x]", "201401311200   7", good, {"t0:201401311200", "x0:7"});
    row("<a_3>[x]", "ab   7", good, {"-0:ab", "x0:7"});
    row("[t] <D>@<D> [x]", "1  a@bb  5", good, {"t0:1", "-0:a", "-0:bb", "x0:5"});
    row("<S>: [t] <S> [x];", "n: 1 s 5; rest", good, {"-0:n", "t0:1", "-0:s", "x0:5"});
    row("[t]@[x]", "1 @ 5", good, {"t0:1", "x0:5"});
    row("@[x]", "1", bad, {});
}

void TestPreview::templates()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, line);
    QFETCH(int, kind);
    QFETCH(QStringList, fields);
    const Preview preview = previewTemplate(m_home.write(QStringLiteral("a.txt"), line + '\n'), format);
    QCOMPARE(preview.lines.size(), 1);
    QCOMPARE(int(preview.lines.constFirst().kind), kind);
    QCOMPARE(shown(preview.lines.constFirst()), fields);
}

void TestPreview::columns_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("fields");
    const auto row = [](const QByteArray& line, const char* separator, PreviewLine::Kind kind,
                         const QStringList& fields) {
        QTest::newRow(line.constData()) << line << QString(separator) << int(kind) << fields;
    };
    const auto good = PreviewLine::Good, bad = PreviewLine::Bad;
    row("  00:00:01\t 5 a 6 20140131", " ", good, {"t0:00:00:01", "x0:5", "-0:a", "x1:6", "d0:20140131"});
    row("00:00:01,5,,6,2014013", ",", good, {"t0:00:00:01", "x0:5", "x1:6", "d0:2014013!"});
    row("00:00:01;z;;z", ";", bad, {"t0:00:00:01", "x0:z!", "x1:z!"});
    row("0:01;1;;2", ";", bad, {"t0:0:01!", "x0:1", "x1:2"});
    row("00:00:01;1", ";", bad, {"t0:00:00:01", "x0:1"});
    row("\xF2\xEA;1;\xF2;2", ";", bad,
        {QString::fromUtf8("t0:\xD1\x82\xD0\xBA!"), "x0:1", QString::fromUtf8("-0:\xD1\x82"), "x1:2"});
}

void TestPreview::columns()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, separator);
    ReadFormat format;
    format.separator = separator;
    format.columnNum_time = 0;
    format.timeFormat_flag = true;
    format.timeFormat_format = QStringLiteral("hh:mm:ss");
    format.columnNum_data = {1, 3};
    format.dateFromFileDate_flag = true;
    format.columnNum_date = 4;
    format.dateFromFileDate_format = QStringLiteral("yyyyMMdd");
    format.linesToSkip = 1;
    // The start comes from the second line.
    const QString file = m_home.write(QStringLiteral("a.txt"),
        "head\n" + QByteArray("00:00:00 1 a 1 20140131\n").replace(' ', separator.toLatin1()) + line);
    const Preview preview = previewColumns(file, format);
    QCOMPARE(preview.lines.size(), 3);
    QCOMPARE(preview.lines.at(0).kind, PreviewLine::PassedOver);
    QCOMPARE(preview.lines.at(1).kind, PreviewLine::Good);
    QTEST(int(preview.lines.at(2).kind), "kind");
    QTEST(shown(preview.lines.at(2)), "fields");
}

void TestPreview::textsAndLimits()
{
    const QString file = m_home.write(QStringLiteral("long.txt"),
        "1 " + QByteArray("\xD1\x82").repeated(600000) + " 5\n1\x01 2\r\n\n"
            + QByteArray("3 4\n").repeated(40));
    const Preview preview = previewTemplate(file, QStringLiteral("[t] <w> [x]"), 3);
    QVERIFY(preview.more);
    QCOMPARE(preview.lines.size(), 3);
    QCOMPARE(preview.lines.at(0).text.size(), 500);
    QCOMPARE(preview.lines.at(0).text.at(499), QChar(0x442));
    QCOMPARE(preview.lines.at(0).kind, PreviewLine::Good);
    QCOMPARE(preview.lines.at(0).fields.size(), 2); // the third one is out of sight
    QCOMPARE(preview.lines.at(0).fields.at(1).length, 498);
    QCOMPARE(preview.lines.at(1).text, QStringLiteral("1  2"));
    QCOMPARE(preview.goodLines(), 1);
    QCOMPARE(preview.badLines(), 1);
    QCOMPARE(previewTemplate(file, QStringLiteral("[x]")).lines.size(), previewLines);
    const Preview whole =
        previewTemplate(m_home.write(QStringLiteral("two"), "1\n2"), QStringLiteral("[x]"), 2);
    // A file with so many bad lines is given up.
    const QString bad = m_home.write(
        QStringLiteral("bad.txt"), QByteArray("x 1\n").repeated(250) + QByteArray("1 2\n").repeated(5));
    QCOMPARE(previewTemplate(bad, QStringLiteral("[t] [x]"), 300).badLines(), 255);
    QVERIFY(!whole.more);
    QCOMPARE(whole.lines.constLast().number, 2);
}

void TestPreview::faults()
{
    const QString file = m_home.write(QStringLiteral("a.txt"), "1 2\n");
    QVERIFY(previewTemplate(file, QStringLiteral("[x")).formatFault);
    QVERIFY(previewColumns(file, ReadFormat()).formatFault);
    ReadFormat format;
    format.columnNum_data = {0};
    for (const char* const name : {"missing", "."}) {
        QVERIFY(!previewColumns(m_home.file(QString(name)), format).error.isEmpty());
        QVERIFY(!previewTemplate(m_home.file(QString(name)), QStringLiteral("[x]")).error.isEmpty());
    }
    const Preview empty = previewColumns(m_home.write(QStringLiteral("empty"), ""), format);
    QVERIFY(empty.error.isEmpty() && empty.lines.isEmpty() && !empty.more);
}

void TestPreview::templatesAgreeWithReading()
{
    const QStringList formats = {"[t] [x]", "<20> [t] [x]", "[t] [x] [y]", "[t_12] [x]", "<A>: [t] <B> [x];",
        "[x]", "<a_3>[x]", "[x],[t]", "[t] <D>@<D> [x]", "[x] <y>"};
    QRandomGenerator random(11);
    int bad = 0, good = 0;
    for (int trial = 0; trial < 1500; ++trial) {
        const QByteArray text = randomText(random);
        AsciiRequest request;
        request.fileName = writeQuickly(m_home.file(QStringLiteral("r.txt")), text);
        request.format = formats.at(random.bounded(formats.size()));
        request.start = QDateTime(QDate(2014, 1, 31), QTime(0, 0));
        const Preview preview = previewTemplate(request.fileName, request.format);
        AsciiFile file(request);
        const AsciiResult& result = file.read();
        // Behind a time that does not rise nothing is read.
        QVector<qint64> wanted = badNumbers(preview);
        if (result.stoppedAtLine > 0) {
            QVERIFY(preview.lines.at(int(result.stoppedAtLine) - 1).kind == PreviewLine::Good);
        }
        QVector<qint64> got = result.badLines;
        const QByteArray told = request.format.toUtf8() + "\n" + text.toPercentEncoding(" ,;:@#\n");
        if (result.stoppedAtLine > 0) {
            const auto behind = [&](qint64 line) { return line > result.stoppedAtLine; };
            wanted.erase(std::remove_if(wanted.begin(), wanted.end(), behind), wanted.end());
            got.erase(std::remove_if(got.begin(), got.end(), behind), got.end());
        } else if (result.status == AsciiStatus::Ok) {
            QVERIFY2(preview.goodLines() == result.sampleCount, told.constData());
        }
        QVERIFY2(got == wanted, told.constData());
        for (const PreviewLine& line : preview.lines)
            QVERIFY2(shown(line) != QStringList(QStringLiteral("out of order")), told.constData());
        bad += preview.badLines();
        good += preview.goodLines();
    }
    QVERIFY(bad > 500);
    QVERIFY(good > 500);
}

void TestPreview::columnsAgreeWithReading()
{
    QRandomGenerator random(13);
    int bad = 0, good = 0, stopped = 0;
    for (int trial = 0; trial < 3000; ++trial) {
        const QByteArray text = randomText(random);
        ReadFromFilesInfo info;
        info.fileNames = QStringList(writeQuickly(m_home.file(QStringLiteral("r.txt")), text));
        info.format = randomFormat(random);
        const Preview preview = previewColumns(info.fileNames.constFirst(), info.format);
        const ColumnResult result = readColumns(info);
        const QByteArray told = text.toPercentEncoding(" ,;:@#\n");
        for (const PreviewLine& line : preview.lines)
            QVERIFY2(shown(line) != QStringList(QStringLiteral("out of order")), told.constData());
        QVector<qint64> wanted = badNumbers(preview);
        if (result.status == ColumnStatus::TooFewFields) {
            ++stopped;
            QVERIFY2(wanted.contains(result.line), told.constData());
            wanted = wanted.mid(0, wanted.indexOf(result.line));
        } else {
            good += preview.goodLines();
            QCOMPARE(result.status, preview.goodLines() > 0 ? ColumnStatus::Ok : ColumnStatus::NoSamples);
        }
        QVERIFY2(result.firstBad == wanted, told.constData());
        bad += wanted.size();
        for (const auto& record : result.records) {
            qint64 sum = 0;
            for (int day = 0; day < record->n_days; ++day)
                sum += record->num_in_days[std::size_t(day)];
            QCOMPARE(sum, record->n_cnt);
            QVERIFY2(record->n_cnt <= preview.goodLines(), told.constData());
        }
    }
    QVERIFY(bad > 100);
    QVERIFY(good > 500);
    QVERIFY(stopped > 100);
}

QTEST_GUILESS_MAIN(TestPreview)
#include "tst_preview.moc"
