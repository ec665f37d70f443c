#include "clirun.h"
#include "support/near.h"
#include "support/samplerecord.h"
#include "support/scopedhome.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr double adevOfSquares = 1.4142135623730951; // at 1 s, of the phase t^2

/// Columns by position, empty cells left out. The heads are passed over: names of results hold commas.
QVector<QVector<double>> columnsOf(const QByteArray& csv)
{
    const QList<QByteArray> lines = csv.trimmed().split('\n');
    QVector<QVector<double>> columns(lines.last().split(',').size());
    for (const QByteArray& line : lines.mid(1)) {
        const QList<QByteArray> cells = line.split(',');
        for (int c = 0; c < cells.size(); ++c) {
            if (!cells[c].isEmpty())
                columns[c] << cells[c].toDouble();
        }
    }
    return columns;
}

/// Pixels in colour, which curves alone have.
int colouredPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            count += color.saturation() > 150 ? 1 : 0;
        }
    }
    return count;
}

} // namespace

class TestCliCommands : public QObject {
    Q_OBJECT

private slots:
    void init();
    void misuse_data();
    void misuse();
    void refusals_data();
    void refusals();
    void limits();
    void difference();
    void merge_data();
    void merge();
    void mergeTells();
    void startThatNobodyTold();
    void cross_data();
    void cross();
    void crossOfTheSameSignals();
    void crossLessDrift();
    void spectrum();
    void crossSpectrum();
    void minMax();
    void sourcesInJson();
    void outputFolder_data();
    void outputFolder();
    void graphsOverTime();

private:
    QString write(const QString& name, int n, const std::function<double(int)>& value);
    CliRun run(const QStringList& arguments) { return runCli(arguments, m_home.file(".")); }

    ScopedHome m_home;
};

/// A file of phases, one a second from 2026-03-01 on.
QString TestCliCommands::write(const QString& name, int n, const std::function<double(int)>& value)
{
    QByteArray text = "# 01.03.26 00:00:00\n";
    for (int i = 0; i < n; ++i)
        text += QByteArray::number(i) + ' ' + QByteArray::number(value(i), 'g', 17) + '\n';
    m_home.write(name, text);
    return name;
}

void TestCliCommands::init()
{
    QVERIFY(!qEnvironmentVariable("KRONALYS_BIN").isEmpty());
    const auto squares = [](double factor) { return [factor](int i) { return factor * i * i; }; };
    write("one.txt", 200, squares(1.0));
    write("two.txt", 200, squares(2.0));
    write("three.txt", 200, squares(3.0));
}

void TestCliCommands::misuse_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* arguments, const char* message) {
        QTest::newRow(arguments) << QString(arguments) << QByteArray(message);
    };
    row("--limit-y -1 one.txt", "--limit-y");
    row("--limit-y nan one.txt", "--limit-y");
    row("--limit-vary 1e-9x one.txt", "--limit-vary");
    row("--seed 2 one.txt", "--seed needs");
    row("--seed -1 --limit-y 2 one.txt", "--seed");
    row("--diff one.txt", "two records, files or value columns: here are 1");
    row("--diff one.txt two.txt three.txt", "here are 3");
    row("--diff --cross one.txt two.txt", "--diff and --cross exclude each other");
    row("--merge gap --three-corner one.txt two.txt", "--merge and --three-corner exclude");
    row("--merge sum one.txt two.txt", "none of phase, frequency, gap");
    row("--merge phase --shift-phase one.txt two.txt", "--shift-phase needs --merge gap");
    row("--three-corner one.txt two.txt", "--three-corner needs --signals");
    row("--three-corner --signals A-B one.txt", "two or three records");
    row("--cross --signals A-B,A-C,B-C one.txt two.txt", "3 pairs for 2 records");
    row("--cross --signals A-B,AC one.txt two.txt", "\"AC\" is not a pair");
    row("--cross --signals A-B,-C one.txt two.txt", "\"-C\" is not a pair");
    row("--cross --signals A-B-C,A-B one.txt two.txt", "\"A-B-C\" is not a pair");
    row("--signals A-B one.txt", "--signals needs");
    row("--cross --stat adev,mdev one.txt two.txt", "sdev, adev and hdev only, not mdev");
    row("--cross --points-per-tau 5 one.txt two.txt", "--points-per-tau");
    row("--spectrum --minmax one.txt", "exclude each other");
    row("--minmax --cross one.txt two.txt", "--minmax does not go with --cross");
    row("--spectrum --stat adev one.txt", "--stat does not go with --spectrum");
    row("--minmax --out o --graph phase,spectrum --overlap one.txt", "--overlap does not go with");
    row("--carrier 10 one.txt", "--carrier needs --spectrum");
    row("--carrier 10 --out o --graph freq one.txt", "--carrier needs --spectrum");
    row("--graph phase one.txt", "--graph needs --out");
    row("--spectrum --plot png one.txt", "--plot needs --out");
    row("--out o --graph phase,hour one.txt", "unknown graph \"hour\"");
    row("--out o --graph phase, one.txt", "unknown graph \"\"");
    row("--out o --freq-interval 5 one.txt", "--freq-interval needs --graph freq");
    row("--out o --graph freq --freq-interval 0 one.txt", "--freq-interval must be above 0");
    row("--spectrum --carrier 0 one.txt", "--carrier must be above 0");
}

void TestCliCommands::misuse()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, message);
    QCOMPARE(refusalFault(run(arguments.split(' ')), 2, message), QByteArray());
}

void TestCliCommands::refusals_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* arguments, const char* message) {
        QTest::newRow(arguments) << QString(arguments) << QByteArray(message);
    };
    row("--diff one.txt later.txt", "no time in common");
    row("--cross one.txt later.txt", "no time in common");
    row("--merge gap one.txt two.txt", "must not overlap");
    row("--cross --signals A-B,C-D one.txt two.txt", "different signals");
    row("--three-corner --signals A-B,A-B one.txt two.txt", "not of three clocks");
    row("--three-corner --signals A-B,A-C,A-D one.txt two.txt three.txt", "not of three clocks");
    row("--spectrum short.txt", "short.txt: too few samples for a spectrum: 127");
    row("--spectrum --cross one.txt short.txt", "too few common samples for a spectrum: 127");
}

void TestCliCommands::refusals()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, message);
    m_home.write("later.txt",
        "# 09.03.26 00:00:00\n" + QByteArray("0 0\n1 1\n2 2\n3 3\n4 4\n") + "5 5\n6 6\n7 7\n8 8\n9 9\n");
    write("short.txt", 127, [](int i) { return i % 3; });
    QCOMPARE(refusalFault(run(arguments.split(' ')), 1, message), QByteArray());
}

void TestCliCommands::limits()
{
    // One step of 1 us, that is one frequency of 1e-6 among those of 1e-12.
    write("step.txt", 1000, [](int i) { return (i >= 500 ? 1e-6 : 0.0) + i % 2 * 1e-12; });
    const QStringList common{"--csv", "step.txt"};
    const auto adev = [](const CliRun& done) { return csvColumns(done.out)["adev"][1]; };
    QVERIFY(adev(run(common)) > 1e-8);
    const CliRun filtered = run(QStringList{"--limit-y", "1e-9"} + common);
    QCOMPARE(filtered.err, QByteArray("step.txt: 1 of 1000 samples replaced by the limits\n"));
    QVERIFY(adev(filtered) < 3e-12);
    QCOMPARE(run(QStringList{"--limit-y", "1e-9", "--seed", "1"} + common).out, filtered.out);
    QVERIFY(run(QStringList{"--limit-y", "1e-9", "--seed", "2"} + common).out != filtered.out);
    const CliRun change = run(QStringList{"--limit-vary", "1e-9"} + common);
    QVERIFY2(!change.err.startsWith("step.txt: 0 of") && adev(change) < 3e-12, change.err.constData());
    for (const char* none : {"0", "1"}) { // these do not filter phase
        const CliRun done = run(QStringList{"--limit-y", none} + common);
        QCOMPARE(done.status, 0);
        QVERIFY2(done.err.isEmpty() && adev(done) > 1e-8, done.err.constData());
    }
    // Before all else: the outlier is gone from the difference.
    const CliRun difference = run({"--limit-y", "1e-9", "--csv", "--diff", "step.txt", "step.txt"});
    QCOMPARE(adev(difference), 0.0);
    QCOMPARE(difference.err.count("1 of 1000"), 2);
}

void TestCliCommands::difference()
{
    QCOMPARE(csvColumns(run({"--csv", "--diff", "two.txt", "two.txt"}).out)["adev"][1], 0.0);
    const CliRun done = run({"--csv", "--diff", "one.txt", "three.txt"});
    QCOMPARE(done.status, 0);
    QVERIFY2(done.err.isEmpty(), done.err.constData());
    NEAR(csvColumns(done.out)["adev"][1], 2.0 * adevOfSquares, 1e-12);
    QCOMPARE(columnsOf(run({"--minmax", "--csv", "--diff", "one.txt", "three.txt"}).out)[1][10], 200.0);
    QVERIFY(run({"--diff", "one.txt", "three.txt"}).out.startsWith("# three.txt - one.txt, 200 samples, "));
    // Two columns of one file are two records.
    m_home.write(
        "columns.txt", "0 1 5\n1 2 7\n2 3 9\n3 4 11\n4 5 13\n5 6 15\n6 7 17\n7 8 19\n8 9 21\n9 10 23\n");
    const CliRun columns =
        run({"--minmax", "--csv", "--start", "2026-03-01 00:00:00", "--diff", "columns.txt"});
    QCOMPARE(columnsOf(columns.out)[1], (QVector<double>{4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));

    write("gappy.txt", 200, [](int i) { return i; });
    QFile file(m_home.file("gappy.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QList<QByteArray> lines = file.readAll().split('\n');
    lines.erase(lines.begin() + 50, lines.begin() + 61); // 11 samples
    m_home.write("gappy.txt", lines.join('\n'));
    const CliRun odd = run({"--diff", "--signals", "A-B,C-D", "one.txt", "gappy.txt"});
    QCOMPARE(odd.status, 0);
    QVERIFY2(odd.err.contains("differ by more than 10\n"), odd.err.constData());
    QVERIFY2(odd.err.contains("different reference and measured signals"), odd.err.constData());
    QVERIFY2(odd.out.contains(", 189 samples, "), odd.out.constData());
}

void TestCliCommands::merge_data()
{
    QTest::addColumn<QStringList>("mode");
    QTest::addColumn<int>("delay"); // s, of the second part
    QTest::addColumn<double>("raise"); // of the second part in the result, over the ramp
    QTest::addColumn<double>("lastTime");
    QTest::addColumn<QByteArray>("note");
    const QByteArray raised = "the second record begins 100 s higher than it was read\n";
    QTest::newRow("phase") << QStringList{"phase"} << 70 << 0.0 << 99.0 << raised;
    QTest::newRow("frequency") << QStringList{"frequency"} << 70 << 40.0 << 119.0
                               << QByteArray("the second record begins 140 s higher");
    QTest::newRow("gap") << QStringList{"gap"} << 70 << -100.0 << 119.0
                         << QByteArray(
                                "a jump in phase between the records stays; --shift-phase closes it\n");
    // A second is taken off the gap, that is 2 s of phase here.
    QTest::newRow("gap closed") << QStringList{"gap", "--shift-phase"} << 50 << -2.0 << 99.0
                                << QByteArray("the second record begins 98 s higher");
}

/// A ramp of 2 s a second, cut in the middle; its second half begins at 0 again.
void TestCliCommands::merge()
{
    QFETCH(QStringList, mode);
    QFETCH(int, delay);
    QFETCH(double, raise);
    QFETCH(double, lastTime);
    QFETCH(QByteArray, note);
    QByteArray half;
    for (int i = 0; i < 50; ++i)
        half += QByteArray::number(i) + ' ' + QByteArray::number(2 * i) + '\n';
    m_home.write("first.txt", half);
    m_home.write("second.txt", half);
    const QDateTime start(QDate(2026, 3, 1), QTime(0, 0));
    const auto text = [](const QDateTime& time) { return time.toString("yyyy-MM-dd hh:mm:ss"); };
    const CliRun done = run(QStringList{"--minmax", "--csv", "--start", text(start.addSecs(delay)), "--start",
                                text(start), "--merge"}
        + mode + QStringList{"second.txt", "first.txt"});
    QCOMPARE(done.status, 0);
    QVERIFY2(done.err.contains(note), done.err.constData());
    const QVector<QVector<double>> columns = columnsOf(done.out);
    QCOMPARE(columns[1].size(), 100);
    QCOMPARE(columns[0].last(), lastTime);
    for (int i = 0; i < 100; ++i)
        NEAR(columns[1][i], 2.0 * i + (i >= 50 ? raise : 0.0), 1e-9);
}

void TestCliCommands::mergeTells()
{
    const CliRun done = run({"--merge", "frequency", "--signals", "A-B,A-C", "--start", "2026-03-01 00:00:00",
        "--start", "2026-03-02 00:00:00", "one.txt", "two.txt"});
    QCOMPARE(done.status, 0);
    QVERIFY2(done.err.contains("of different signals; they are joined"), done.err.constData());
    QVERIFY(done.out.startsWith("# one.txt + two.txt, 400 samples, "));

    write("level.txt", 199, [](int i) { return i % 2; });
    const CliRun level = run({"--merge", "gap", "--shift-phase", "--start", "2026-03-01 00:00:00", "--start",
        "2026-03-02 00:00:00", "level.txt", "level.txt"});
    QVERIFY2(level.err.startsWith("no jump in phase"), level.err.constData());
}

void TestCliCommands::startThatNobodyTold()
{
    m_home.write("bare.txt", "0 0\n1 1\n2 2\n3 3\n4 4\n5 5\n6 6\n7 7\n8 8\n9 9\n");
    const CliRun alone = run({"bare.txt"});
    QVERIFY2(alone.status == 0 && alone.err.isEmpty(), alone.err.constData());
    const CliRun paired = run({"--diff", "bare.txt", "bare.txt"});
    QVERIFY2(paired.err.startsWith("bare.txt: tells no start"), paired.err.constData());
    QVERIFY(run({"--diff", "--start", "2026-03-01 00:00:00", "bare.txt", "bare.txt"}).err.isEmpty());
    QCOMPARE(run({"--start", "2026-03-01 00:00:00", "--start", "2026-03-02 00:00:00", "bare.txt"}).status, 2);
}

void TestCliCommands::cross_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QList<double>>("squares"); // of the values in units of the deviation of t^2
    // x = t^2, y = 3 t^2, d = 2 t^2: the products of their terms.
    const QList<double> three{3.0, 2.0, 6.0};
    QTest::newRow("common clock") << "--cross --signals A-B,A-C one.txt three.txt" << three;
    QTest::newRow("spaces") << "--cross --signals A+-+B-x,A+-+C one.txt three.txt" << three;
    QTest::newRow("two of three clocks") << "--three-corner --signals A-B,A-C one.txt three.txt" << three;
    QTest::newRow("hat") << "--three-corner --signals A-B,A-C,B-C one.txt three.txt two.txt" << three;
    QTest::newRow("turned") << "--cross --signals A-B,C-A one.txt three.txt" << QList<double>{3.0, 4.0, 12.0};
    QTest::newRow("same clocks") << "--cross --signals A-B,A-B one.txt three.txt" << QList<double>{3.0, 2.0};
    QTest::newRow("one clock") << "--cross --signals A-A,A-A one.txt three.txt" << QList<double>{3.0};
}

void TestCliCommands::cross()
{
    QFETCH(QString, arguments);
    QFETCH(QList<double>, squares);
    QStringList list{"--csv"};
    for (QString argument : arguments.split(' '))
        list << argument.replace('+', ' ');
    for (const bool overlap : {false, true}) {
        const CliRun done = run(overlap ? QStringList{"--overlap"} + list : list);
        QCOMPARE(done.status, 0);
        QVERIFY2(done.err.isEmpty(), done.err.constData());
        const QVector<QVector<double>> columns = columnsOf(done.out);
        QCOMPARE(columns.size(), 2 + squares.size());
        QCOMPARE(columns[0].mid(0, 4), (QVector<double>{1, 2, 5, 10}));
        for (int i = 0; i < squares.size(); ++i)
            NEAR(columns[2 + i][0], std::sqrt(squares[i]) * adevOfSquares, 1e-12);
    }
}

/// A record against itself gives its own stability, and a comparator without noise.
void TestCliCommands::crossOfTheSameSignals()
{
    Lehmer noise;
    write("noise.txt", 500, [&](int) { return noise.next(); });
    const QStringList common{"--csv", "--stat", "adev,hdev,sdev"};
    double before = 0.0;
    for (const QStringList& form : {QStringList(), QStringList{"--overlap"}}) {
        const CliRun done = run(form + common + QStringList{"--cross", "noise.txt", "noise.txt"});
        QCOMPARE(done.status, 0);
        QVERIFY2(done.err.contains("taken for two of the same signals"), done.err.constData());
        const QVector<QVector<double>> columns = columnsOf(done.out);
        const QVector<QVector<double>> single = columnsOf(run(form + common + QStringList{"noise.txt"}).out);
        QCOMPARE(columns.size(), 8);
        QCOMPARE(columns[0], single[0]);
        for (int k = 0; k < columns[0].size(); ++k) {
            NEAR(columns[2][k], single[2][k], 1e-9);
            NEAR(columns[3][k], single[3][k], 1e-9);
        }
        QVERIFY(columns[2][3] != before);
        before = columns[2][3];
        QCOMPARE(columns[5], QVector<double>(columns[0].size(), 0.0));
    }
}

void TestCliCommands::crossLessDrift()
{
    const CliRun done =
        run({"--csv", "--remove-drift", "--cross", "--signals", "A-B,A-C", "one.txt", "three.txt"});
    const QVector<QVector<double>> columns = columnsOf(done.out);
    QCOMPARE(columns.size(), 5);
    for (int row = 2; row < 5; ++row)
        QVERIFY(columns[row][0] < 1e-6);
}

void TestCliCommands::spectrum()
{
    write("sine.txt", 20000, [](int i) { return 1e-9 * std::sin(2.0 * M_PI * 0.125 * i) + 1e-6 * i; });
    const CliRun done = run({"--spectrum", "--csv", "sine.txt"});
    QCOMPARE(done.status, 0);
    QVERIFY2(done.out.startsWith("f_mHz,phase_dBc,frequency_dBc\n"), done.out.left(80).constData());
    const QVector<QVector<double>> columns = columnsOf(done.out);
    const auto peak = std::max_element(columns[1].begin(), columns[1].end()) - columns[1].begin();
    NEAR(columns[0][int(peak)], 125.0, 1e-3);
    QVERIFY(columns[0][0] < 0.1); // from the thinned stages
    for (const double value : columns[1])
        QVERIFY(std::isfinite(value));
    const QVector<QVector<double>> ten =
        columnsOf(run({"--spectrum", "--carrier", "10", "--csv", "sine.txt"}).out);
    NEAR(ten[1][int(peak)] - columns[1][int(peak)], 20.0 * std::log10(2.0), 1e-9);

    // Side by side: the shorter record has no low frequencies, and fewer lines.
    write("brief.txt", 200, [](int i) { return i % 2 * 1e-9; });
    const CliRun both = run({"--spectrum", "brief.txt", "sine.txt"});
    const QList<QByteArray> lines = both.out.trimmed().split('\n');
    QCOMPARE(lines[2].simplified(),
        QByteArray("f_mHz 1 phase_dBc 1 frequency_dBc 1 f_mHz 2 phase_dBc 2 frequency_dBc 2"));
    QCOMPARE(lines.size(), 3 + columns[0].size());
    QVERIFY2(lines.last().simplified().startsWith("--- --- --- "), lines.last().constData());
    const QJsonObject object =
        QJsonDocument::fromJson(run({"--spectrum", "--json", "sine.txt"}).out).array()[0].toObject();
    QCOMPARE(object["carrier"].toDouble(), 5.0);
    QCOMPARE(object["columns"].toObject()["f_mHz"].toArray().size(), columns[0].size());
}

void TestCliCommands::crossSpectrum()
{
    write("left.txt", 4096, [](int i) { return 1e-9 * std::sin(2.0 * M_PI * 0.125 * i); });
    write("right.txt", 4096, [](int i) { return 3e-9 * std::sin(2.0 * M_PI * 0.125 * i); });
    const CliRun done =
        run({"--spectrum", "--csv", "--cross", "--signals", "A-B,A-C", "left.txt", "right.txt"});
    QCOMPARE(done.status, 0);
    const QVector<QVector<double>> columns = columnsOf(done.out);
    QCOMPARE(columns.size(), 9);
    const int peak = int(std::max_element(columns[1].begin(), columns[1].end()) - columns[1].begin());
    NEAR(columns[0][peak], 125.0, 1e-3);
    NEAR(columns[1][peak] - columns[4][peak], 10.0 * std::log10(3.0 / 2.0), 1e-6);
    NEAR(columns[7][peak] - columns[4][peak], 10.0 * std::log10(3.0), 1e-6);
}

void TestCliCommands::minMax()
{
    write("long.txt", 60000, [](int i) { return i == 12345 ? -5.0 : i == 43210 ? 7.0 : 1e-3 * (i % 10); });
    const CliRun done = run({"--minmax", "--csv", "long.txt"});
    QVERIFY2(done.out.startsWith("t,x\n0,0\n"), done.out.left(40).constData());
    const QVector<QVector<double>> columns = columnsOf(done.out);
    QVERIFY(columns[0].size() <= 10000);
    QCOMPARE(columns[0][columns[1].indexOf(-5.0)], 12345.0);
    QCOMPARE(columns[0][columns[1].indexOf(7.0)], 43210.0);
    const QVector<double> level = columnsOf(run({"--minmax", "--remove-drift", "--csv", "two.txt"}).out)[1];
    QVERIFY(std::abs(*std::max_element(level.begin(), level.end())) < 1e-6);
}

void TestCliCommands::sourcesInJson()
{
    const CliRun done =
        run({"--json", "--limit-y", "1e9", "--cross", "--signals", "A-B,A-C", "one.txt", "three.txt"});
    const QJsonArray results = QJsonDocument::fromJson(done.out).array();
    QCOMPARE(results.size(), 3);
    const QJsonObject object = results[1].toObject();
    QCOMPARE(object["operation"].toString(), QString("cross"));
    QCOMPARE(object["limitY"].toDouble(), 1e9);
    QCOMPARE(object["samples"].toInt(), 200);
    QCOMPARE(object["start"].toString(), QString("2026-03-01 00:00:00"));
    const QJsonObject second = object["sources"].toArray()[1].toObject();
    QCOMPARE(second["file"].toString(), QString("three.txt"));
    QCOMPARE(second["reference"].toString(), QString("C"));
    QCOMPARE(second["replaced"].toInt(-1), 0);
}

void TestCliCommands::outputFolder_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("files");
    const auto row = [](const char* arguments, const char* files) {
        QTest::newRow(arguments) << QString(arguments) << QString(files);
    };
    row("--spectrum", "spectrum.csv spectrum.png");
    row("--minmax --plot svg", "minmax.csv phase.svg");
    row("--minmax --graph spectrum", "minmax.csv spectrum.png");
    row("--graph freq,phase", "freq.png phase.png stability.csv");
    row("--graph phase --graph spectrum,phase --plot pdf", "phase.pdf spectrum.pdf stability.csv");
    row("--spectrum --graph stability --stat mdev,tdev", "mdev.png spectrum.csv tdev.png");
    row("--cross --signals A-B,A-C --graph spectrum,stability,freq two.txt",
        "adev.png freq.png spectrum.png stability.csv");
}

void TestCliCommands::outputFolder()
{
    QFETCH(QString, arguments);
    QFETCH(QString, files);
    const QString folder = m_home.file("out/" + arguments);
    write("two.txt", 20000, [](int i) { return 2.0 * i * i; });
    write("long.txt", 20000, [](int i) { return i * i + 1e3 * (i % 7); });
    const CliRun done =
        run(QStringList{"--csv", "--out", folder} + arguments.split(' ') + QStringList{"long.txt"});
    QVERIFY2(done.status == 0 && done.err.isEmpty(), done.err.constData());
    QCOMPARE(QDir(folder).entryList(QDir::Files).join(' '), files);
    QCOMPARE(done.out.startsWith("t,x\n"), arguments.startsWith("--minmax"));
    for (const QString& name : files.split(' ')) {
        QFile file(folder + '/' + name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        if (name.endsWith(".csv"))
            QCOMPARE(file.readAll(), done.out);
        if (!name.endsWith(".png"))
            continue;
        QVERIFY2(colouredPixels(QImage(file.fileName())) > 2000, qPrintable(name));
    }
}

/// What the graphs of phase and frequency show: the texts and the extent of the curves in a picture of lines.
void TestCliCommands::graphsOverTime()
{
    m_home.write(
        "later.txt", "# 03.03.26 00:00:00\n0 0\n1 1\n2 2\n3 3\n4 4\n5 5\n6 6\n7 7\n8 8\n9 9\n10 10\n11 12\n");
    const CliRun done = run({"--remove-drift", "--out", "time", "--plot", "svg", "--graph", "phase,freq",
        "--freq-interval", "20.2", "one.txt", "later.txt"});
    QCOMPARE(done.status, 0);
    QCOMPARE(done.err, QByteArray("later.txt: no frequency in the graph: no samples lie 20 s apart\n"));
    const auto picture = [this](const char* name) {
        QFile file(m_home.file(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray phase = picture("time/phase.svg");
    const QByteArray frequency = picture("time/freq.svg");
    QVERIFY(phase.contains(">one.txt<") && phase.contains(">later.txt<"));
    QVERIFY2(phase.contains(">01.03.2026 - 03.03.2026<"), "the bounds are those of all files");
    QVERIFY2(phase.contains(">03.03<"), "the later file is drawn where its days are");
    QVERIFY(phase.contains(">Phase difference. Min/Max. Drift removed<"));
    QVERIFY(frequency.contains(">one.txt<") && !frequency.contains(">later.txt<"));
    QVERIFY(
        frequency.contains("Measurement interval 20 s") && frequency.contains(">01.03.2026 - 01.03.2026<"));
}

QTEST_GUILESS_MAIN(TestCliCommands)
#include "tst_clicommands.moc"
