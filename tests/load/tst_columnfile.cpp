#include "load/core/columnfile.h"

#include "load/core/columnlines.h"
#include "record/record.h"

#include "support/near.h"
#include "support/scopedhome.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

#include <sys/stat.h>

#include <algorithm>
#include <cmath>

namespace {

using Setup = void (*)(ReadFormat& format);
const QDateTime told(QDate(2014, 1, 31), QTime(6, 0));

QVector<double> values(doubleArray& array)
{
    QVector<double> result;
    for (int i = 0; i < array.count; ++i)
        result.append(array[i]);
    return result;
}

QVector<int> parts(const Record& rec)
{
    QVector<int> result;
    for (int i = 0; i < rec.n_days; ++i)
        result.append(int(rec.num_in_days[std::size_t(i)]));
    return result;
}

/// Empty when counts and parts of the record agree.
QString consistent(const Record& rec)
{
    qint64 sum = 0;
    for (int i = 0; i < rec.n_days; ++i) {
        const qint64 n = rec.num_in_days[std::size_t(i)];
        sum += n;
        if (n <= 0 || rec.t.DayLengths.at(i) != n || rec.x.DayLengths.at(i) != n)
            return QStringLiteral("part %1").arg(i);
    }
    const bool counts = sum == rec.n_cnt && rec.t.count == sum && rec.x.count == sum;
    return counts && rec.t.parts.size() == rec.n_days ? QString() : QStringLiteral("counts");
}

/// Formatted time in column 0, data in column 1, of the date told.
void clockTimes(ReadFormat& format)
{
    format.columnNum_time = 0;
    format.timeFormat_flag = true;
    format.timeFormat_format = QStringLiteral("hh:mm:ss");
}

void numbers(ReadFormat& format)
{
    format.columnNum_time = 0;
    format.timeUnit_flag = true;
}

void dateTimes(ReadFormat& format)
{
    format.separator = QStringLiteral(";");
    format.dateFromFileDateTime_flag = true;
    format.columnNum_datetime = 0;
}

} // namespace

Q_DECLARE_METATYPE(Setup)
Q_DECLARE_METATYPE(ColumnStatus)

class TestColumnFile : public QObject {
    Q_OBJECT

private:
    ReadFromFilesInfo info(const QByteArray& text, Setup setup)
    {
        ReadFromFilesInfo result;
        result.fileNames = QStringList(m_home.write(QStringLiteral("a.txt"), text));
        result.format.columnNum_data = {1};
        result.format.timeStart_dateTime = told;
        setup(result.format);
        return result;
    }

    ScopedHome m_home;

private slots:
    void startAndTimes_data();
    void startAndTimes();
    void parameters();
    void aligned();
    void intervals_data();
    void intervals();
    void nameOrder_data();
    void nameOrder();
    void nameDates();
    void faults_data();
    void faults();
    void manyBlocks();
    void progressAndCancel();
    void fieldsAndNumbersAsQt();
    void realFiles();
};

void TestColumnFile::startAndTimes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<QDateTime>("start");
    QTest::addColumn<QVector<double>>("t");
    QTest::addColumn<QVector<double>>("x");
    const auto row = [](const char* name, const QByteArray& text, Setup setup, const QDateTime& start,
                         const QVector<double>& t, const QVector<double>& x) {
        QTest::newRow(name) << text << setup << start << t << x;
    };
    const auto at = [](int day, int h, int m, int s) {
        return QDateTime(QDate(2014, 1, day), QTime(h, m, s));
    };
    row("clock", "  13:16:50 1\r\n\r\n13:17:00\t 2.5e-7 9\r\n", clockTimes, at(31, 13, 16, 50), {0, 10},
        {1, 2.5e-7});
    row("clock, start told", "06:00:10 1\n06:00:20 2\n",
        [](ReadFormat& f) {
            clockTimes(f);
            f.timeStart_flag = true;
        },
        told, {10, 20}, {1, 2});
    row("first clock unreadable", "6:0 1\n00:00:20 2\n", clockTimes, at(31, 0, 0, 0), {20}, {2});
    row("milliseconds", "00:00:00.250,1\n00:00:00.500,2",
        [](ReadFormat& f) {
            clockTimes(f);
            f.separator = QStringLiteral(",");
            f.timeFormat_format = QStringLiteral("hh:mm:ss.zzz");
        },
        QDateTime(QDate(2014, 1, 31), QTime(0, 0, 0, 250)), {0, 0.25}, {1, 2});
    row("names and afternoon", "1 Feb 2014 01:00:00 PM;7",
        [](ReadFormat& f) {
            dateTimes(f);
            f.dateFromFileDateTime_format = QStringLiteral("d MMM yyyy hh:mm:ss AP");
        },
        QDateTime(QDate(2014, 2, 1), QTime(13, 0)), {0}, {7});
    row("two-digit year", "140130 23:59:59;1\n140131 00:00:01;2\n",
        [](ReadFormat& f) {
            dateTimes(f);
            f.dateFromFileDateTime_format = QStringLiteral("yyMMdd hh:mm:ss");
        },
        at(30, 23, 59, 59), {0, 2}, {1, 2});
    row("a century", "19140131 00:00:00;1\n20140131 00:00:01;2\n", dateTimes, at(31, 0, 0, 0), {0, 1},
        {1, 2});
    row("head without a date", "date;x\n20140131 00:00:05;3", dateTimes, at(31, 0, 0, 5), {0}, {3});
    row("date column", "23:59:59 5 30.01.2014\n00:00:01 6 31.01.2014\n00:00:02 7 x\n",
        [](ReadFormat& f) {
            clockTimes(f);
            f.dateFromFileDate_flag = true;
            f.columnNum_date = 2;
            f.dateFromFileDate_format = QStringLiteral("dd.MM.yyyy");
        },
        at(30, 23, 59, 59), {0, 2, -86397}, {5, 6, 7});
    row("minutes", "1 5\n2 6\nnan 7\n",
        [](ReadFormat& f) {
            numbers(f);
            f.timeUnit_format = 60.0;
        },
        at(31, 0, 1, 0), {60, 120}, {5, 6});
    row("second of the day too large", "86400.5 1\n86401 2", numbers, at(31, 0, 0, 0), {86400.5, 86401},
        {1, 2});
    row("no time column", "# a head\n0 5\n0 x\n0 6",
        [](ReadFormat& f) {
            f.interval = 2.0;
            f.timeStart_flag = true;
        },
        told, {2, 6}, {5, 6});
    row("interval 0", "0 5\n0 6", [](ReadFormat& f) { f.interval = 0.0; }, at(31, 0, 0, 0), {1, 2}, {5, 6});
    row("no way to a time", "1 5\n2 6", [](ReadFormat& f) { f.columnNum_time = 0; }, QDateTime(), {}, {});
    row("empty fields", ",,3",
        [](ReadFormat& f) {
            f.separator = QStringLiteral(",");
            f.columnNum_data = {2};
        },
        at(31, 0, 0, 0), {1}, {3});
    row("two blanks", "a   1\nb  2", [](ReadFormat& f) { f.separator = QStringLiteral("  "); },
        at(31, 0, 0, 0), {1, 2}, {1, 2});
    row("frequency", "0 1\n0 2\n0 -1",
        [](ReadFormat& f) {
            f.dataType = 4;
            f.interval = 10.0;
            f.multiplier = 2.0;
        },
        at(31, 0, 0, 0), {10, 20, 30}, {20, 60, 40});
    row("head lines", "\n# x\n0 1\n", [](ReadFormat& f) { f.linesToSkip = 2; }, at(31, 0, 0, 0), {1}, {1});
}

void TestColumnFile::startAndTimes()
{
    QFETCH(QByteArray, text);
    QFETCH(Setup, setup);
    QFETCH(QDateTime, start);
    QFETCH(QVector<double>, t);
    const ColumnResult result = readColumns(info(text, setup));
    QCOMPARE(result.status, t.isEmpty() ? ColumnStatus::NoSamples : ColumnStatus::Ok);
    QCOMPARE(result.records.size(), std::size_t(t.isEmpty() ? 0 : 1));
    if (t.isEmpty())
        return;
    Record& rec = *result.records.front();
    QCOMPARE(rec.start, start);
    QCOMPARE(values(rec.t), t);
    QTEST(values(rec.x), "x");
    QCOMPARE(rec.stop, start.addMSecs(qint64(1000 * (t.constLast() - t.constFirst()))));
    QCOMPARE(consistent(rec), QString());
}

void TestColumnFile::parameters()
{
    const ColumnResult result = readColumns(info("0 1\n", [](ReadFormat& f) {
        f.dataType = 2;
        f.multiplier = 0.5;
        f.interval = 3.0;
    }));
    QCOMPARE(result.status, ColumnStatus::Ok);
    const Record& rec = *result.records.front();
    QCOMPARE(rec.dataType, quint16(2));
    QCOMPARE(rec.Band, 10);
    QCOMPARE(rec.ch, 0);
    QCOMPARE(rec.meas_sig, QStringLiteral("Measured signal"));
    QCOMPARE(rec.ref_sig, QStringLiteral("Reference signal"));
    QCOMPARE(rec.t.partLen, 100000);
    QCOMPARE(rec.Kdec, 3.0);
    QVERIFY(ColumnTexts::outcome(result).contains(QLatin1Char('1')));
}

// A value that is none drops its sample from its own column.
void TestColumnFile::aligned()
{
    const ColumnResult good = readColumns(info("0 1 x\n10 2 5\n20 z z\n30 nan 7\n50 - 8", [](ReadFormat& f) {
        numbers(f);
        f.columnNum_data = {1, 2};
    }));
    QCOMPARE(good.records.size(), std::size_t(2));
    QCOMPARE(values(good.records[0]->t), QVector<double>({0, 10, 30}));
    QVERIFY(std::isnan(values(good.records[0]->x).constLast()));
    QCOMPARE(values(good.records[1]->t), QVector<double>({10, 30, 50}));
    QCOMPARE(values(good.records[1]->x), QVector<double>({5, 7, 8}));
    QCOMPARE(good.records[1]->stop, good.records[1]->start.addSecs(40));
    QCOMPARE(good.badLines, 1);
    QCOMPARE(good.firstBad, QVector<qint64>({3}));
    QCOMPARE(good.droppedValues, 2);
    for (const auto& record : good.records)
        QCOMPARE(consistent(*record), QString());
}

void TestColumnFile::intervals_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("interval");
    QTest::newRow("over the lines") << QByteArray("0 1\n10 2\n20 3\nbad 4\n30 5\n") << 6.0;
    QTest::newRow("one line") << QByteArray("5 1\n") << 7.0;
    QTest::newRow("the same time") << QByteArray("5 1\n5 2\n") << 7.0;
    QTest::newRow("falling") << QByteArray("50000 1\n5 2\n") << 7.0;
    QTest::newRow("times without end") << QByteArray("-1e308 1\n1.7e308 2\n") << 7.0;
    QTest::newRow("far apart") << QByteArray("0 1\n1e17 2\n") << 5e16;
}

void TestColumnFile::intervals()
{
    QFETCH(QByteArray, text);
    const ColumnResult result = readColumns(info(text, [](ReadFormat& f) {
        numbers(f);
        f.interval = 7.0;
    }));
    QCOMPARE(result.status, ColumnStatus::Ok);
    QTEST(result.records.front()->Kdec, "interval");
    QCOMPARE(consistent(*result.records.front()), QString());
    QVERIFY(result.records.front()->stop.isValid());
}

void TestColumnFile::nameOrder_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QStringList>("order");
    const auto row = [](const char* name, const QStringList& files, const char* format,
                         const QStringList& order) {
        QTest::newRow(name) << files << QString(format) << order;
    };
    row("sorted", {"/x/c_20140202.txt", "/x/c_20140131.txt"}, "yyyyMMdd",
        {"/x/c_20140131.txt", "/x/c_20140202.txt"});
    row("left out", {"/x/c_2014.txt", "/x/abc", "/x/c_20140131x"}, "yyyyMMdd", {});
    row("digits at the end of a part", {"/x/a20140202_1", "/x/b_ab2014013199_20990101"}, "yyyyMMdd",
        {"/x/b_ab2014013199_20990101", "/x/a20140202_1"});
    row("leading zeros", {"/x/b_020203", "/x/a_010203"}, "yyMMdd", {"/x/a_010203", "/x/b_020203"});
    row("an earlier path", {"/x/20140202/a_20140101", "/x/c_20140202"}, "yyyyMMdd",
        {"/x/20140202/a_20140101", "/x/20140202/a_20140101"});
    row("up to the first dot", {"/x/a_20140131.20140202"}, "yyyyMMdd", {"/x/a_20140131.20140202"});
    row("no format", {"/x/a_20140131"}, "", {});
}

void TestColumnFile::nameOrder()
{
    QFETCH(QStringList, files);
    QFETCH(QString, format);
    QTEST(sortedByNameDate(files, format), "order");
}

void TestColumnFile::nameDates()
{
    ReadFromFilesInfo asked = info("", [](ReadFormat& f) {
        clockTimes(f);
        f.dateFromFileName_flag = true;
    });
    asked.fileNames = QStringList({m_home.write(QStringLiteral("c_20140201.txt"), "00:00:00 3\n00:00:10 4\n"),
        m_home.write(QStringLiteral("c_20140131.txt"), "23:59:40 1\n23:59:50 2\n"),
        m_home.write(QStringLiteral("none.txt"), "1")});
    const ColumnResult result = readColumns(asked);
    QCOMPARE(result.status, ColumnStatus::Ok);
    QCOMPARE(values(result.records.front()->t), QVector<double>({0, 10, 20, 30}));
    QCOMPARE(values(result.records.front()->x), QVector<double>({1, 2, 3, 4}));
    QCOMPARE(result.records.front()->start, QDateTime(QDate(2014, 1, 31), QTime(23, 59, 40)));
    QCOMPARE(result.records.front()->Kdec, 5.0);

    // The number 10203 is no date.
    asked.fileNames = QStringList(m_home.write(QStringLiteral("c_010203.txt"), "00:00:00 3\n"));
    asked.format.dateFromFileName_format = QStringLiteral("yyMMdd");
    const ColumnResult today = readColumns(asked, {}, QDate(2026, 7, 1));
    QCOMPARE(today.records.front()->start.date(), QDate(2026, 7, 1));

    asked.fileNames = QStringList(m_home.file(QStringLiteral("none.txt")));
    QCOMPARE(readColumns(asked).status, ColumnStatus::NoFiles);
}

void TestColumnFile::faults_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<ColumnStatus>("status");
    const auto row = [](const char* name, const char* file, Setup setup, ColumnStatus status) {
        QTest::newRow(name) << QString(file) << setup << status;
    };
    row("missing", "missing", clockTimes, ColumnStatus::CannotOpen);
    row("directory", ".", clockTimes, ColumnStatus::CannotOpen);
    row("pipe", "pipe", clockTimes, ColumnStatus::CannotOpen);
    row("unreadable", "/proc/self/mem", clockTimes, ColumnStatus::CannotOpen);
    row("empty", "empty", clockTimes, ColumnStatus::NoSamples);
    row("blank lines", "blank", clockTimes, ColumnStatus::NoSamples);
    row(
        "no separator", "a.txt", [](ReadFormat& f) { f.separator.clear(); }, ColumnStatus::NoColumns);
    row(
        "no data", "a.txt", [](ReadFormat& f) { f.columnNum_data.clear(); }, ColumnStatus::NoColumns);
    row(
        "negative", "a.txt",
        [](ReadFormat& f) {
            f.columnNum_data = {1, -1};
        },
        ColumnStatus::NoColumns);
    row(
        "huge date column", "a.txt",
        [](ReadFormat& f) {
            dateTimes(f);
            f.columnNum_datetime = 2147483647;
        },
        ColumnStatus::NoColumns);
    row(
        "beyond the fields", "a.txt", [](ReadFormat& f) { f.columnNum_data = {2}; },
        ColumnStatus::TooFewFields);
    row(
        "time beyond the fields", "a.txt", [](ReadFormat& f) { f.columnNum_time = 2; },
        ColumnStatus::TooFewFields);
    row(
        "date column missing", "a.txt",
        [](ReadFormat& f) {
            f.dateFromFileDateTime_flag = true;
            f.columnNum_datetime = 2;
        },
        ColumnStatus::NoSamples);
}

void TestColumnFile::faults()
{
    QFETCH(QString, file);
    QFETCH(Setup, setup);
    ReadFromFilesInfo asked = info("1 2\n", setup);
    m_home.write(QStringLiteral("empty"), "");
    m_home.write(QStringLiteral("blank"), "\n \r\n\t\n");
    mkfifo(QFile::encodeName(m_home.file(QStringLiteral("pipe"))).constData(), 0600);
    asked.fileNames = QStringList(QDir(m_home.file(QString())).absoluteFilePath(file));
    const ColumnResult result = readColumns(asked);
    QTEST(result.status, "status");
    QVERIFY(result.records.empty());
    const bool system = result.status == ColumnStatus::CannotOpen;
    QCOMPARE(result.systemError.isEmpty(), !system);
    QVERIFY(!ColumnTexts::outcome(result).isEmpty());
    QCOMPARE(result.line, result.status == ColumnStatus::TooFewFields ? 1 : 0);
}

// Lines across the blocks of the reader, in parts of 100000.
void TestColumnFile::manyBlocks()
{
    QByteArray text("head\n");
    const int lines = 250000;
    for (int i = 0; i < lines; ++i)
        text += i == 200000 ? QByteArray("x 1\n")
                            : QByteArray::number(i * 0.1, 'f', 1) + ' ' + QByteArray::number(i) + '\n';
    const ColumnResult result = readColumns(info(text, [](ReadFormat& f) {
        numbers(f);
        f.linesToSkip = 1;
    }));
    QCOMPARE(result.status, ColumnStatus::Ok);
    Record& rec = *result.records.front();
    QCOMPARE(parts(rec), QVector<int>({100000, 100000, 49999}));
    QCOMPARE(consistent(rec), QString());
    QCOMPARE(result.firstBad, QVector<qint64>({200002}));
    QCOMPARE(rec.x[199999], 199999.0);
    QCOMPARE(rec.x[200000], 200001.0);
    QCOMPARE(rec.t[249998], 24999.9);
}

void TestColumnFile::progressAndCancel()
{
    ReadFromFilesInfo asked = info(QByteArray("1 2\n").repeated(1500000), numbers);
    asked.fileNames += m_home.write(QStringLiteral("b.txt"), QByteArray("1 2\n").repeated(1500000));
    QVector<double> shares;
    QCOMPARE(readColumns(asked,
                 [&shares](double share) {
                     shares.append(share);
                     return true;
                 })
                 .status,
        ColumnStatus::Ok);
    QVERIFY(shares.size() > 6);
    QVERIFY(std::is_sorted(shares.begin(), shares.end()));
    QCOMPARE(shares.constLast(), 1.0);
    for (const double limit : {-1.0, 0.1, 0.6}) {
        const ColumnResult result = readColumns(asked, [limit](double share) { return share < limit; });
        QCOMPARE(result.status, ColumnStatus::Cancelled);
        QVERIFY(result.records.empty());
    }
}

void TestColumnFile::fieldsAndNumbersAsQt()
{
    QRandomGenerator random(7);
    const QRegularExpression white(QStringLiteral("[\r\n\t ]+"));
    bool many = false;
    for (int trial = 0; trial < 50000; ++trial) {
        QByteArray text;
        for (int i = random.bounded(14); i > 0; --i)
            text += "0123456789.,;-+e \t \v|naif"[random.bounded(25)];
        const FieldSpan line = trimmedSpan({text.constData(), text.constData() + text.size()});
        const QString string = QString::fromLatin1(text).trimmed();
        for (const char* const separator : {" ", ",", ";", "|", "  "}) {
            std::vector<FieldSpan> fields;
            const int count = FieldCutter(QString(separator)).cut(line, 100, fields);
            QStringList got;
            for (int i = 0; i < count; ++i)
                got += QString::fromLatin1(fields[std::size_t(i)].begin,
                    int(fields[std::size_t(i)].end - fields[std::size_t(i)].begin));
            const bool words = *separator == ' ' && separator[1] == 0;
            QCOMPARE(got, words ? string.split(white, Qt::SkipEmptyParts) : string.split(QString(separator)));
        }
        bool wantedOk = false;
        const double wanted = QString::fromLatin1(text).toDouble(&wantedOk);
        double value = 0.0;
        const bool ok = numberOfField({text.constData(), text.constData() + text.size()}, many, value);
        QVERIFY2(ok == wantedOk, text.constData());
        QVERIFY2(!ok || value == wanted || (std::isnan(value) && std::isnan(wanted)), text.constData());
    }
}

void TestColumnFile::realFiles()
{
    const QDir dir(qEnvironmentVariable("KRONALYS_SOURCE")
        + QStringLiteral("/../shared/data/derived/cs5071a_daily_10s_hms"));
    const QStringList names = dir.entryList(QDir::Files);
    if (names.size() != 7)
        QSKIP("the files are not here");
    ReadFromFilesInfo asked = info("", [](ReadFormat& f) {
        clockTimes(f);
        f.dateFromFileName_flag = true;
        f.linesToSkip = 2;
    });
    asked.fileNames.clear();
    for (const QString& name : names)
        asked.fileNames.prepend(dir.absoluteFilePath(name));
    const ColumnResult result = readColumns(asked);
    QCOMPARE(result.status, ColumnStatus::Ok);
    QCOMPARE(result.badLines, 0);
    Record& rec = *result.records.front();
    QCOMPARE(rec.start, QDateTime(QDate(2014, 1, 31), QTime(13, 16, 50)));
    QCOMPARE(parts(rec), QVector<int>({3859, 8640, 8640, 8640, 8640, 8640, 8640}));
    NEAR(rec.Kdec, 10.0, 2e-4);
    QCOMPARE(rec.t[int(rec.n_cnt) - 1], 38590.0 + 6 * 86400.0 - 10.0);
    QCOMPARE(RecIsValid(&rec), 0);
}

QTEST_GUILESS_MAIN(TestColumnFile)
#include "tst_columnfile.moc"
