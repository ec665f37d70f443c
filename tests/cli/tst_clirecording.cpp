#include "clirun.h"
#include "samples/recording.h"
#include "support/near.h"
#include "support/scopedhome.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace {

const QDate firstDay(2026, 3, 1);

QDateTime at(int day, int hour, int minute = 0, int second = 0)
{
    return {firstDay.addDays(day), QTime(hour, minute, second)};
}

QJsonObject firstOf(const CliRun& run)
{
    return QJsonDocument::fromJson(run.out).array().first().toObject();
}

} // namespace

/// Recordings through the command line program.
class TestCliRecording : public QObject {
    Q_OBJECT

private slots:
    void init();
    void misuse_data();
    void misuse();
    void refusals_data();
    void refusals();
    void list();
    void choice_data();
    void choice();
    void values();
    void signalsOfTheRecording();
    void cutShort();
    void saveRecording();
    void saveWhatWasDone();

private:
    CliRun run(const QString& arguments)
    {
        return runCli(arguments.split(QLatin1Char(' ')), m_home->file("."));
    }
    QByteArray bytes(const QString& name) const;

    std::unique_ptr<ScopedHome> m_home;
};

/// The folder "data": channel 1 from the first day 06:00:00 to the third 05:59:50, channel 2 the second day
/// in two stretches, channel 3 the second day up to noon, not finished.
void TestCliRecording::init()
{
    QVERIFY(!qEnvironmentVariable("KRONALYS_BIN").isEmpty());
    m_home = std::make_unique<ScopedHome>();
    QVERIFY(QDir(m_home->file(".")).mkpath("data"));
    RecordingWriter writer(QDir(m_home->file("data")));
    RecordingWriter::Stretch stretch;
    stretch.interval = 10;
    stretch.value = [](qint64 mark) { return -1e-9 * double(mark) * double(mark); };
    const auto write = [&](int channel, const QDateTime& start, const QDateTime& stop,
                           const QString& measured) {
        stretch.channel = channel;
        stretch.start = start;
        stretch.stop = stop;
        stretch.measured = measured;
        QVERIFY(writer.write(stretch));
    };
    write(1, at(0, 6), at(2, 5, 59, 50), "Cs");
    write(2, at(1, 0), at(1, 1, 59, 50), "Rb");
    write(2, at(1, 3), at(1, 23, 59, 50), "Rb");
    stretch.finished = false;
    write(3, at(1, 0), at(1, 11, 59, 50), "Rb");
    QFile text(m_home->file("one.txt"));
    QVERIFY(text.open(QIODevice::WriteOnly));
    for (int i = 0; i < 20; ++i)
        text.write(QByteArray::number(i) + " 1\n");
}

QByteArray TestCliRecording::bytes(const QString& name) const
{
    QFile file(m_home->file(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestCliRecording::misuse_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* arguments, const char* message) {
        QTest::newRow(arguments) << QString(arguments) << QByteArray(message);
    };
    row("--from 2026-03-01 one.txt", "--from needs --recording");
    row("--list one.txt", "--list needs --recording");
    row("--recording data", "--recording needs --channel, or --list");
    row("--recording data --channel 1,17", "\"17\" is not a number from 1 to 16");
    row("--recording data --channel 1,", "\"\" is not a number");
    row("--recording data --channel 1 one.txt", "--recording takes the place of files: \"one.txt\"");
    row("--recording data --channel 1 --interval 2", "--interval does not go with --recording");
    row("--recording data --channel 1 --kdec 0", "--kdec: \"0\"");
    row("--recording data --channel 1 --from 01.03.2026", "--from: \"01.03.2026\" is neither");
    row("--recording data --channel 1 --from 2026-03-02 --to 2026-03-01", "--to lies before --from");
    row("--recording data --list --stat mdev", "--stat does not go with --list");
    row("--recording data --list --save-ascii a", "--save-ascii does not go with --list");
    row("--save-ascii a one.txt one.txt", "--save-ascii takes one record: here are 2");
    row("--cross --save-recording o one.txt one.txt", "do not go with --cross");
}

void TestCliRecording::misuse()
{
    QFETCH(const QString, arguments);
    QFETCH(const QByteArray, message);
    QCOMPARE(refusalFault(run(arguments), 2, message), QByteArray());
}

void TestCliRecording::refusals_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* arguments, const char* message) {
        QTest::newRow(arguments) << QString(arguments) << QByteArray(message);
    };
    row("--recording none --list", "none: is not a folder");
    row("--recording one.txt --list", "one.txt: is not a folder");
    row("--recording . --list", ".: holds no recording");
    row("--recording data --channel 9", "the channels hold no recording");
    row("--recording data --channel 2 --from 2026-03-03", "the channels hold no recording");
    row("--recording data --channel 1 --from 2030-01-01", "holds no recording of the time chosen");
    row("--recording data --channel 1 --from 1900-01-01 --to 2026-03-01", "holds 46081 days");
    row("--recording data --channel 1,2 --diff",
        "--diff takes two records, stretches of recording: here are 3");
    row("--recording data --channel 1,2 --save-ascii a", "--save-ascii takes one record: here are 3");
    row("--recording data --channel 1,3 --cross --signals A-B", "1 pairs for 2 records");
    row("--recording data --channel 3 --save-ascii data", "data: cannot be written");
}

void TestCliRecording::refusals()
{
    QFETCH(const QString, arguments);
    QFETCH(const QByteArray, message);
    QCOMPARE(refusalFault(run(arguments), 1, message), QByteArray());
    QVERIFY(!QFile::exists(m_home->file("a")));
}

void TestCliRecording::list()
{
    const CliRun csv = run("--recording data --list --csv");
    QCOMPARE(csv.status, 0);
    QCOMPARE(csv.out.split('\n').mid(0, 6),
        QList<QByteArray>({"channel,kind,start,stop,signals",
            "1,finished,2026-03-01 06:00:00,2026-03-03 05:59:50,H-maser - Cs",
            "2,no data,2026-03-01 00:00:00,2026-03-01 23:59:59,",
            "2,finished,2026-03-02 00:00:00,2026-03-02 01:59:50,H-maser - Rb",
            "2,finished,2026-03-02 03:00:00,2026-03-02 23:59:50,H-maser - Rb",
            "2,no data,2026-03-03 00:00:00,2026-03-03 23:59:59,"}));
    QVERIFY(!csv.out.contains("\n4,"));
    const CliRun one = run("--recording data --list --json --channel 9 --from 2026-03-02 --to 2026-03-02");
    QCOMPARE(firstOf(one)["channel"].toInt(), 9);
    QCOMPARE(firstOf(one)["kind"].toString(), QStringLiteral("no data"));
    QVERIFY(run("--recording data --list").out.contains("cut off"));
}

void TestCliRecording::choice_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("stop");
    QTest::addColumn<int>("samples");
    const QString day = QStringLiteral("2026-03-0");
    QTest::newRow("whole") << "--channel 1" << day + "1 06:00:00" << day + "3 05:59:50" << 2 * 8640;
    QTest::newRow("one day") << "--channel 1 --from 2026-03-02 --to 2026-03-02" << day + "2 00:00:00"
                             << day + "2 23:59:50" << 8640;
    QTest::newRow("every sixth") << "--channel 1 --to 2026-03-01 --kdec 6" << day + "1 06:00:00"
                                 << day + "1 23:59:00" << 18 * 60;
    QTest::newRow("without its end") << "--channel 3 --from 2026-03-02" << day + "2 00:00:00"
                                     << day + "2 11:59:50" << 12 * 360;
}

void TestCliRecording::choice()
{
    QFETCH(const QString, arguments);
    QFETCH(const QString, start);
    QFETCH(const QString, stop);
    QFETCH(const int, samples);
    const CliRun done = run("--recording data --json " + arguments);
    QVERIFY2(done.status == 0, done.err.constData());
    const QJsonObject result = firstOf(done);
    QCOMPARE(result["start"].toString(), start);
    QCOMPARE(result["stop"].toString(), stop);
    QCOMPARE(result["samples"].toInt(), samples);
    QCOMPARE(result["interval"].toDouble(), arguments.contains("kdec") ? 60.0 : 10.0);
    QCOMPARE(result["kdec"].toInt(), arguments.contains("kdec") ? 6 : 1);
    QCOMPARE(result["recording"].toString(), QStringLiteral("data"));
    QVERIFY(!result.contains("multiplier") && !result.contains("format"));
}

/// Of the phase a t^2 the ADEV is sqrt(2) a tau.
void TestCliRecording::values()
{
    const CliRun done = run("--recording data --channel 1,2 --csv");
    QVERIFY2(done.status == 0, done.err.constData());
    const auto columns = csvColumns(done.out);
    QCOMPARE(columns.size(), 4); // tau and three stretches
    for (const char* head :
        {"adev:data[1]", "adev:data[2 2026-03-02 00:00:00]", "adev:data[2 2026-03-02 03:00:00]"})
        NEAR(columns[head][1], 1.4142135623730951e-8, 1e-6);
    QVERIFY2(done.err.contains("data: 2 files are missing"), done.err.constData());
}

void TestCliRecording::signalsOfTheRecording()
{
    const QStringList common{"--recording", "data", "--json", "--channel"};
    const QStringList both =
        common + QStringList{"1,2", "--from", "2026-03-02 03:00:00", "--to", "2026-03-02"};
    const CliRun hat = runCli(both + QStringList{"--three-corner"}, m_home->file("."));
    QVERIFY2(hat.status == 0, hat.err.constData());
    const QJsonArray sources = firstOf(hat)["sources"].toArray();
    QCOMPARE(sources.at(0).toObject()["measured"].toString(), QStringLiteral("Cs"));
    QCOMPARE(sources.at(1).toObject()["reference"].toString(), QStringLiteral("H-maser"));
    QCOMPARE(QJsonDocument::fromJson(hat.out).array().size(), 3);
    // One that is not finished does not tell its signals yet.
    const QStringList named = common + QStringList{"1,3", "--cross", "--signals", "A-B,A-C"};
    const QJsonObject result = firstOf(runCli(named, m_home->file(".")));
    QCOMPARE(result["sources"].toArray().at(1).toObject()["reference"].toString(), QStringLiteral("C"));
}

void TestCliRecording::cutShort()
{
    QVERIFY(QFile::resize(m_home->file("data/260302_01.dat"), 12 * 4000));
    const CliRun strict = run("--recording data --channel 1 --json");
    QCOMPARE(strict.status, 1);
    QVERIFY2(
        strict.err.contains("data[1]: cannot be read whole") && strict.out.isEmpty(), strict.err.constData());
    const CliRun done = run("--recording data --channel 1 --json --skip-bad-lines");
    QVERIFY2(done.status == 0, done.err.constData());
    QVERIFY(done.err.contains("260302_01.dat"));
    QCOMPARE(firstOf(done)["samples"].toInt(), 2 * 8640 - 4640);
}

void TestCliRecording::saveRecording()
{
    const QString stat = QStringLiteral(" --stat adev,mdev --csv");
    const CliRun first = run("--recording data --channel 1 --save-recording copy" + stat);
    QVERIFY2(first.status == 0, first.err.constData());
    for (const char* name : {"260301_01.dat", "260302_01.dat", "260303_01.inf"})
        QCOMPARE(bytes(QStringLiteral("copy/") + name), bytes(QStringLiteral("data/") + name));
    QCOMPARE(run("--recording copy --channel 1" + stat).out.replace("copy[", "data["), first.out);

    const CliRun second = run("--recording data --channel 1 --save-recording copy" + stat);
    QVERIFY2(second.err.contains("with the suffix (1)"), second.err.constData());
    QCOMPARE(bytes("copy/260302_01_(1).dat"), bytes("copy/260302_01.dat"));
    QCOMPARE(bytes("copy/260302_01.inf").size(), 346);
    // A file with a fault in the run leaves nothing behind.
    QCOMPARE(run("--save-recording none one.txt missing.txt").status, 1);
    QVERIFY(!QFile::exists(m_home->file("none")));
    // Text files tell no channel: they are numbered.
    const CliRun texts = run("--save-recording texts --start 2026-03-01T00:00:00 one.txt one.txt");
    QCOMPARE(texts.status, 2);
    QCOMPARE(run("--save-recording texts --interval 0.5 one.txt one.txt").err.count("whole seconds"), 2);
    QCOMPARE(QDir(m_home->file("texts")).entryList({"*_01.inf", "*_02.dat"}, QDir::Files).size(), 2);
}

/// The recording is saved as read, the text as processed.
void TestCliRecording::saveWhatWasDone()
{
    QFile data(m_home->file("data/260302_03.dat"));
    QVERIFY(data.open(QIODevice::ReadWrite) && data.seek(12 * 100 + 4));
    const double step = 1.0;
    data.write(reinterpret_cast<const char*>(&step), sizeof step);
    data.close();
    const CliRun done =
        run("--recording data --channel 3 --limit-y 1e-3 --save-recording raw --save-ascii done.txt --csv");
    QVERIFY2(done.status == 0, done.err.constData());
    QCOMPARE(bytes("raw/260302_03.dat"), bytes("data/260302_03.dat"));
    const QList<QByteArray> lines = bytes("done.txt").split('\n');
    QCOMPARE(lines.at(0).trimmed(), QByteArray("# 02.03.26 00:00:00 - 02.03.26 11:59:50"));
    QCOMPARE(lines.size(), 4 + 12 * 360 + 1);
    const QList<QByteArray> sample = lines.at(104).split(' ');
    QCOMPARE(sample.at(0).toDouble(), 1000.0);
    QVERIFY(qAbs(sample.at(1).toDouble()) < 0.5);
    const QStringList read{"--csv", "--interval", "10", "--format", "<t> [x]", "done.txt"};
    const CliRun again = runCli(read, m_home->file("."));
    QCOMPARE(csvColumns(again.out)["adev"].keys(), csvColumns(done.out)["adev"].keys());
    NEAR(csvColumns(again.out)["adev"][10], csvColumns(done.out)["adev"][10], 1e-9);
}

QTEST_GUILESS_MAIN(TestCliRecording)
#include "tst_clirecording.moc"
