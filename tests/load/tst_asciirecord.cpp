#include "load/core/asciirecord.h"

#include "record/record.h"

#include "support/near.h"
#include "support/scopedhome.h"

#include <QtTest>

#include <cmath>

namespace {

QVector<double> values(doubleArray& array)
{
    QVector<double> result;
    for (int i = 0; i < array.count; ++i)
        result.append(array[i]);
    return result;
}

QVector<qint64> parts(const Record& rec)
{
    QVector<qint64> result;
    for (int i = 0; i < rec.n_days; ++i)
        result.append(rec.num_in_days[std::size_t(i)]);
    return result;
}

/// Empty when counts and parts of the record agree.
QString consistent(const Record& rec)
{
    if (rec.t.count != rec.n_cnt || rec.x.count != rec.n_cnt)
        return QStringLiteral("counts");
    if (rec.t.parts.size() != rec.n_days || rec.x.parts.size() != rec.n_days)
        return QStringLiteral("numbers of parts");
    for (int i = 0; i < rec.n_days; ++i) {
        const qint64 n = rec.num_in_days[std::size_t(i)];
        if (n <= 0 || rec.t.DayLengths.at(i) != n || rec.x.DayLengths.at(i) != n || rec.t.capacity.at(i) != n)
            return QStringLiteral("part %1").arg(i);
    }
    return QString();
}

const QDateTime midnight(QDate(2024, 3, 1), QTime(0, 0));

/// "t x" lines for t = first, first + step, ...
QByteArray series(int n, double first, double step)
{
    QByteArray text;
    for (int i = 0; i < n; ++i)
        text += QByteArray::number(first + i * step, 'g', 15) + ' ' + QByteArray::number(i) + '\n';
    return text;
}

} // namespace

class TestAsciiRecord : public QObject {
    Q_OBJECT

private:
    AsciiRequest request(const QByteArray& text, const char* format = "[t] [x]")
    {
        AsciiRequest result;
        result.fileName = m_home.write(QStringLiteral("a.txt"), text);
        result.format = QString::fromUtf8(format);
        result.start = midnight;
        result.dataColumn = 0;
        return result;
    }

    ScopedHome m_home;

private slots:
    void parameters();
    void timesAndStop();
    void days_data();
    void days();
    void badLinesLeaveOut();
    void stopsWhereTimesDoNotGrow_data();
    void stopsWhereTimesDoNotGrow();
    void asking();
    void columns();
    void frequency();
    void refusals_data();
    void refusals();
};

void TestAsciiRecord::parameters()
{
    AsciiRequest asked = request("0 1\n1 2\n");
    asked.interval = 5.0;
    asked.band = 7;
    asked.channel = 12;
    asked.measuredName = QStringLiteral("a");
    asked.referenceName = QStringLiteral("b");
    asked.multiplier = 1e-6;
    Record rec;
    QCOMPARE(readASCIIData(asked, &rec).status, AsciiStatus::Ok);
    QCOMPARE(rec.Band, 10);
    QCOMPARE(rec.ch, 0);
    QCOMPARE(rec.meas_sig, QStringLiteral("Measured signal"));
    QCOMPARE(rec.ref_sig, QStringLiteral("Reference signal"));
    QCOMPARE(rec.Kdec, 1.0);
    QCOMPARE(rec.t.partLen, 2);
    QCOMPARE(values(rec.x), QVector<double>({1e-6, 2e-6}));
    asked.mask = BandGiven | IntervalGiven | MeasuredGiven | ReferenceGiven | ChannelGiven;
    QCOMPARE(readASCIIData(asked, &rec).status, AsciiStatus::Ok); // into the used record
    QCOMPARE(rec.Band, 7);
    QCOMPARE(rec.ch, 12);
    QCOMPARE(rec.meas_sig, QStringLiteral("a"));
    QCOMPARE(rec.ref_sig, QStringLiteral("b"));
    QCOMPARE(rec.Kdec, 5.0);
    QCOMPARE(values(rec.t), QVector<double>({0, 5}));
    QCOMPARE(consistent(rec), QString());
}

void TestAsciiRecord::timesAndStop()
{
    AsciiRequest asked = request("10 1\n12.5 2\n");
    asked.start = midnight.addSecs(100);
    Record rec;
    readASCIIData(asked, &rec);
    QCOMPARE(values(rec.t), QVector<double>({100, 102.5}));
    QCOMPARE(rec.start, asked.start);
    QCOMPARE(rec.stop, asked.start.addSecs(1 - 100 + 103));
    asked.mask = IntervalGiven;
    asked.interval = 2.0;
    readASCIIData(asked, &rec);
    QCOMPARE(values(rec.t), QVector<double>({110, 115})); // the first t is taken off unscaled
    asked = request("1\n2\n3\n", "[x]");
    asked.start = midnight.addSecs(100);
    asked.mask = IntervalGiven;
    asked.interval = 0.5;
    readASCIIData(asked, &rec);
    QCOMPARE(values(rec.t), QVector<double>({100, 100.5, 101}));
    QCOMPARE(rec.stop, asked.start.addSecs(1 - 100 + 101));
}

void TestAsciiRecord::days_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<double>("interval");
    QTest::addColumn<int>("startSecond");
    QTest::addColumn<QVector<qint64>>("lengths");
    QTest::addColumn<int>("partLen");
    const QString tx = QStringLiteral("[t] [x]"), x = QStringLiteral("<n> [x]");
    const QByteArray threeDays = series(200000, 0, 1);
    QTest::newRow("t over two midnights")
        << threeDays << tx << 1.0 << 0 << QVector<qint64>{86400, 86400, 27200} << 86400;
    QTest::newRow("no t over two midnights")
        << threeDays << x << 1.0 << 0 << QVector<qint64>{86400, 86400, 27200} << 86400;
    QTest::newRow("start in the day")
        << threeDays << x << 1.0 << 86000 << QVector<qint64>{400, 86400, 86400, 26800} << 86400;
    QTest::newRow("one day") << series(86400, 5, 1) << tx << 1.0 << 0 << QVector<qint64>{86400} << 86400;
    QTest::newRow("half seconds") << series(86401, 0, 0.5) << tx << 1.0 << 43200 << QVector<qint64>{86400, 1}
                                  << 86400;
    QTest::newRow("gap of days") << QByteArray("0 1\n1 2\n300000 3\n345599 4\n345600 5\n") << tx << 1.0 << 0
                                 << QVector<qint64>{2, 2, 1} << 5;
    // The boundaries lie at k * 86400 / 10 although the times are seconds.
    QTest::newRow("interval 10") << series(2000, 0, 1) << x << 10.0 << 0 << QVector<qint64>{864, 864, 272}
                                 << 2000;
    QTest::newRow("interval 10, late start")
        << series(3, 0, 1) << x << 10.0 << 80000 << QVector<qint64>{3} << 3;
    QTest::newRow("interval 0.5") << series(200000, 0, 1) << x << 0.5 << 0 << QVector<qint64>{200000}
                                  << 172800;
    QTest::newRow("tiny interval") << series(2, 0, 1) << x << 1e-9 << 0 << QVector<qint64>{2} << 2;
    QTest::newRow("huge interval") << series(3, 0, 1) << x << 1e30 << 0 << QVector<qint64>{1, 1, 1} << 1;
    QTest::newRow("too many parts") << series(70000, 0, 1) << x << 1000.0 << 0
                                    << QVector<qint64>(65534, 1) + QVector<qint64>{4466} << 86;
}

void TestAsciiRecord::days()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, format);
    QFETCH(double, interval);
    QFETCH(int, startSecond);
    AsciiRequest asked = request(text);
    asked.format = format;
    asked.mask = IntervalGiven;
    asked.interval = interval;
    asked.start = midnight.addSecs(startSecond);
    Record rec;
    QCOMPARE(readASCIIData(asked, &rec).status, AsciiStatus::Ok);
    QTEST(parts(rec), "lengths");
    QTEST(rec.t.partLen, "partLen");
    QCOMPARE(consistent(rec), QString());
    QCOMPARE(RecIsValid(&rec), 0);
    QCOMPARE(rec.n_cnt, qint64(text.count('\n')));
    QCOMPARE(rec.x[int(rec.n_cnt) - 1], text.trimmed().split(' ').constLast().toDouble());
}

void TestAsciiRecord::badLinesLeaveOut()
{
    Record rec;
    AsciiResult result = readASCIIData(request("# c\nt x\n5 1\n\nbad\n6 2\n7 3\nbad\n"), &rec);
    QCOMPARE(result.badLines, QVector<qint64>({2, 5, 8}));
    QCOMPARE(result.lineCount, 6);
    QCOMPARE(result.sampleCount, 3);
    QCOMPARE(values(rec.t), QVector<double>({0, 1, 2}));
    QCOMPARE(values(rec.x), QVector<double>({1, 2, 3}));
    result = readASCIIData(request("1\nbad\n3\n", "[x]"), &rec);
    QCOMPARE(values(rec.t), QVector<double>({0, 2})); // the time goes by the line
    QCOMPARE(values(rec.x), QVector<double>({1, 3}));
    result = readASCIIData(request("nan 1\n1 2\ninf 3\n2 nan\n"), &rec);
    QCOMPARE(result.badLines, QVector<qint64>({1, 3}));
    QCOMPARE(values(rec.t), QVector<double>({0, 1}));
    QVERIFY(std::isnan(rec.x[1]));
}

void TestAsciiRecord::stopsWhereTimesDoNotGrow_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("line");
    QTest::addColumn<int>("samples");
    QTest::newRow("equal") << QByteArray("#\n1 1\n2 2\n2 3\n4 4\nbad\n") << qint64(4) << 2;
    QTest::newRow("falling") << QByteArray("1 1\nbad\n0 2\n") << qint64(3) << 1;
    QTest::newRow("growing") << QByteArray("-1 1\n0 2\n") << qint64(0) << 2;
    QTest::newRow("too fine for the clock") << QByteArray("0 1\n1e-300 2\n1 3\n") << qint64(2) << 1;
}

void TestAsciiRecord::stopsWhereTimesDoNotGrow()
{
    QFETCH(QByteArray, text);
    AsciiRequest asked = request(text);
    asked.start = midnight.addSecs(3600);
    Record rec;
    const AsciiResult result = readASCIIData(asked, &rec);
    QCOMPARE(result.status, AsciiStatus::Ok);
    QTEST(result.stoppedAtLine, "line");
    QTEST(int(rec.n_cnt), "samples");
    QCOMPARE(consistent(rec), QString());
    QCOMPARE(result.badLines.size(), text.count("bad")); // those behind the stop as well
}

void TestAsciiRecord::asking()
{
    Record rec;
    int asked = 0;
    const auto answer = [&asked](bool goOn) {
        return [&asked, goOn](const AsciiResult& result) {
            asked += result.badLines.size();
            return goOn;
        };
    };
    QCOMPARE(readASCIIData(request("1 1\nbad\n"), &rec, answer(false)).status, AsciiStatus::Declined);
    QCOMPARE(rec.n_cnt, 0);
    QCOMPARE(readASCIIData(request("1 1\nbad\n"), &rec, answer(true)).status, AsciiStatus::Ok);
    QCOMPARE(rec.n_cnt, 1);
    QCOMPARE(readASCIIData(request("bad\n"), &rec, answer(true)).status, AsciiStatus::NoSamples);
    QCOMPARE(asked, 3);
    QCOMPARE(readASCIIData(request("1 1\n"), &rec, answer(false)).status, AsciiStatus::Ok);
    QCOMPARE(readASCIIData(request("1 1\n"), &rec, {}, [](double) { return false; }).status,
        AsciiStatus::Cancelled);
}

void TestAsciiRecord::columns()
{
    AsciiRequest asked = request("1 10 20\n2 30 40\nbad\n3 50 60\n", "[t] [x] [y]");
    asked.multiplier = 0.5;
    asked.mask = ChannelGiven;
    AsciiFile file(asked);
    QCOMPARE(file.read().status, AsciiStatus::Ok);
    QCOMPARE(file.columnNames(), QStringList({"x", "y"}));
    Record x, y, both;
    QCOMPARE(file.fill(&y, 1, 5), AsciiStatus::Ok);
    QCOMPARE(file.fill(&both, AsciiFile::allColumns, 6), AsciiStatus::Ok);
    QCOMPARE(file.fill(&x, 0, 4), AsciiStatus::Ok);
    QCOMPARE(values(x.x), QVector<double>({5, 15, 25}));
    QCOMPARE(values(y.x), QVector<double>({10, 20, 30}));
    QCOMPARE(values(y.t), QVector<double>({0, 1, 2}));
    QCOMPARE(values(both.x), QVector<double>({5, 10, 15, 20, 25, 30}));
    QCOMPARE(values(both.t), QVector<double>({0, 0, 1, 1, 2, 2}));
    QCOMPARE(x.ch * 100 + y.ch * 10 + both.ch, 456);
    for (const Record* rec : {&x, &y, &both})
        QCOMPARE(consistent(*rec), QString());
    QCOMPARE(file.fill(&x, 2, 4), AsciiStatus::NoDataColumn);
    QCOMPARE(x.n_cnt, 3);
}

void TestAsciiRecord::frequency()
{
    AsciiRequest asked = request("0 1\n1 -2\n3 4\n");
    asked.fractionalFrequency = true;
    asked.multiplier = 1e-3;
    asked.mask = IntervalGiven;
    asked.interval = 10.0;
    Record rec;
    QCOMPARE(readASCIIData(asked, &rec).sampleCount, 4);
    QCOMPARE(values(rec.t), QVector<double>({0, 10, 30, 40}));
    const QVector<double> want{0, 0.01, -0.01, 0.03};
    for (int i = 0; i < 4; ++i)
        NEAR(rec.x[i], want.at(i), 1e-12, 1e-15);
    asked = request(series(86400, 0, 1), "<t> [y]");
    asked.fractionalFrequency = true;
    QCOMPARE(readASCIIData(asked, &rec).status, AsciiStatus::Ok);
    QCOMPARE(parts(rec), QVector<qint64>({86400, 1}));
    QCOMPARE(consistent(rec), QString());
    QCOMPARE(rec.t[86400], 86400.0);
    QCOMPARE(rec.x[86400], 86399.0 * 86400.0 / 2.0);
}

void TestAsciiRecord::refusals_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<double>("interval");
    QTest::addColumn<int>("status");
    const auto row = [](const char* name, const QByteArray& text, const char* format, double interval,
                         AsciiStatus status) {
        QTest::newRow(name) << text << QString(format) << interval << int(status);
    };
    row("empty", "", "[x]", 1, AsciiStatus::NoLines);
    row("only comments", "# a\n", "[x]", 1, AsciiStatus::NoLines);
    row("no good line", "a\nb\n", "[x]", 1, AsciiStatus::NoSamples);
    row("only times", "1\n", "[t]", 1, AsciiStatus::NoDataColumn);
    row("template", "1\n", "[x", 1, AsciiStatus::TemplateRefused);
    row("interval 0", "1\n", "[x]", 0, AsciiStatus::BadInterval);
    row("interval below 0", "1\n", "[x]", -1, AsciiStatus::BadInterval);
    row("no interval", "1\n", "[x]", std::nan(""), AsciiStatus::BadInterval);
    row("endless interval", "1\n", "[x]", HUGE_VAL, AsciiStatus::BadInterval);
}

void TestAsciiRecord::refusals()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, format);
    QFETCH(double, interval);
    AsciiRequest asked = request(text);
    asked.format = format;
    asked.interval = interval;
    asked.mask = IntervalGiven;
    Record rec;
    rec.Band = 77;
    rec.x.append(5.0);
    QTEST(int(readASCIIData(asked, &rec).status), "status");
    QCOMPARE(rec.Band, 77);
    QCOMPARE(rec.x.count, 1);
    asked.fileName = m_home.file(QStringLiteral("missing"));
    asked.format = QStringLiteral("[x]");
    asked.mask = 0;
    const AsciiResult missing = readASCIIData(asked, &rec);
    QCOMPARE(missing.status, AsciiStatus::CannotOpen);
    QVERIFY(!missing.systemError.isEmpty());
    asked.start = QDateTime();
    QCOMPARE(readASCIIData(asked, &rec).status, AsciiStatus::BadStart);
}

QTEST_GUILESS_MAIN(TestAsciiRecord)
#include "tst_asciirecord.moc"
