#include "clirun.h"
#include "support/near.h"
#include "support/scopedhome.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <cmath>

namespace {

/// The published series of 1000 fractional frequencies, one a line.
QByteArray thousandFrequencies()
{
    QByteArray text;
    qint64 state = 1234567890;
    for (int i = 0; i < 1000; ++i) {
        text += QByteArray::number(double(state) / 2147483647.0, 'g', 17) + '\n';
        state = state * 16807 % 2147483647;
    }
    return text;
}

/// "t x" lines with x = t * t.
QByteArray squares(int count, int from = 0)
{
    QByteArray text;
    for (int i = from; i < from + count; ++i)
        text += QByteArray::number(i) + ' ' + QByteArray::number(double(i) * i) + '\n';
    return text;
}

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestCli : public QObject {
    Q_OBJECT

private slots:
    void init();
    void misuse_data();
    void misuse();
    void badData_data();
    void badData();
    void thousandPoints();
    void json();
    void alignedUnion();
    void frequencyIsSummedFromZero();
    void optionsReachTheNumbers();
    void severalColumns();
    void badLinesAreSkippedOnRequest();
    void notANumberIsTold();
    void namesOfAnyKind();
    void debugLinesOnRequest();
    void helpAndVersion();
    void outputFolder_data();
    void outputFolder();
    void shortCurveHasNoGraph();
    void graphTakes32Curves();
    void unwritableOutput();

private:
    ScopedHome m_home;
};

void TestCli::init()
{
    QVERIFY(!qEnvironmentVariable("KRONALYS_BIN").isEmpty());
}

void TestCli::misuse_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* name, const QStringList& arguments, const char* message) {
        QTest::newRow(name) << arguments << QByteArray(message);
    };
    row("no file", {}, "no file");
    row("empty file name", {"good.txt", ""}, "empty file name");
    row("unknown option", {"--nix", "good.txt"}, "nix");
    row("single dash", {"-platform", "xcb", "good.txt"}, "Unknown option");
    row("unknown statistic", {"--stat", "adev,zdev", "good.txt"}, "zdev");
    row("empty name in list", {"--stat", "adev,", "good.txt"}, "unknown statistic");
    row("csv and json", {"--csv", "--json", "good.txt"}, "exclude");
    row("interval text", {"--interval", "1s", "good.txt"}, "--interval");
    row("interval zero", {"--interval", "0", "good.txt"}, "above 0");
    row("interval infinite", {"--interval", "inf", "good.txt"}, "not a number");
    row("multiplier zero", {"--multiplier", "0", "good.txt"}, "--multiplier");
    row("points negative", {"--points-per-tau", "-1", "good.txt"}, "--points-per-tau");
    row("points too many", {"--points-per-tau", "2147483648", "good.txt"}, "--points-per-tau");
    row("start", {"--start", "2024-13-01 00:00:00", "good.txt"}, "--start");
    row("template", {"--format", "[t] [x", "good.txt"}, "bracket");
    row("template of 60 values", {"--format", QString("[x] ").repeated(60), "good.txt"},
        "more than 56 values");
    row("template of 101 skipped", {"--format", QString("<s> ").repeated(101) + "[x]", "good.txt"},
        "more than 100 skipped");
    row("template with letters", {"--format", "t=[x]", "good.txt"}, "outside brackets");
    row("template of time only", {"--format", "[t]", "good.txt"}, "no value column");
    row("plot kind", {"--out", "o", "--plot", "gif", "good.txt"}, "gif");
    row("plot alone", {"--plot", "png", "good.txt"}, "--out");
    row("no value", {"good.txt", "--stat"}, "stat");
}

void TestCli::misuse()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    m_home.write("good.txt", squares(100));
    const CliRun run = runCli(arguments, m_home.file("."));
    QCOMPARE(run.status, 2);
    QVERIFY2(run.err.contains(message), run.err.constData());
    QVERIFY(run.err.contains("--help"));
    QVERIFY2(run.out.isEmpty(), run.out.constData());
}

void TestCli::badData_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("message");
    const QByteArray middle = "# head\n\n" + squares(50) + "50 x\n" + squares(50, 51);
    QTest::newRow("bad line") << middle << QStringList() << QByteArray("bad.txt:53: ");
    QTest::newRow("time falls back") << squares(50) + squares(50, 49) << QStringList()
                                     << QByteArray("bad.txt:51: ");
    QTest::newRow("empty") << QByteArray() << QStringList() << QByteArray("bad.txt: holds no sample");
    QTest::newRow("comments") << QByteArray("# a\n") << QStringList()
                              << QByteArray("bad.txt: holds no sample");
    QTest::newRow("nine samples") << squares(9) << QStringList() << QByteArray("samples: 9");
    QTest::newRow("drift of ten") << squares(10) << QStringList{"--remove-drift"} << QByteArray("drift");
    QTest::newRow("one column") << thousandFrequencies() << QStringList() << QByteArray("--format");
    QTest::newRow("missing") << QByteArray("-") << QStringList{"missing.txt"}
                             << QByteArray("missing.txt: cannot be opened");
    QTest::newRow("folder") << QByteArray("-") << QStringList{"."} << QByteArray(".: cannot be opened");
    QTest::newRow("device") << QByteArray("-") << QStringList{"/dev/zero"}
                            << QByteArray("not a regular file");
}

void TestCli::badData()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, options);
    QFETCH(QByteArray, message);
    m_home.write("good.txt", squares(100));
    m_home.write("bad.txt", content);
    const CliRun run = runCli(QStringList{"good.txt"} + options + QStringList{"bad.txt"}, m_home.file("."));
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(message), run.err.constData());
    QVERIFY2(run.out.isEmpty(), run.out.constData());
}

void TestCli::thousandPoints()
{
    const QString file = m_home.write("thousand.txt", thousandFrequencies());
    const QStringList common{"--format", "[x]", "--frequency", "--csv", "--stat", "adev,hdev,mdev", "--stat",
        "tdev,sdev,mtie", file};
    const CliRun plain = runCli(common);
    QCOMPARE(plain.status, 0);
    QVERIFY2(plain.err.isEmpty(), plain.err.constData());
    QVERIFY2(plain.out.startsWith("m,tau,adev,hdev,mdev,tdev,sdev,mtie\n1,1,0.2922"),
        plain.out.left(80).constData());
    const CliRun overlap = runCli(QStringList{"--overlap"} + common);
    QVERIFY2(
        overlap.out.startsWith("m,tau,adev,hdev,mdev,tdev,sdev,mtie\n"), overlap.out.left(80).constData());

    const auto values = csvColumns(plain.out);
    const auto others = csvColumns(overlap.out);
    QCOMPARE(values["adev"].keys(), QList<long>({1, 2, 5, 10, 20, 50, 100, 200}));
    const auto check = [&](const char* name, double at1, double at10, double at100) {
        const bool overlapping = name[0] == 'o';
        const QMap<long, double> column = overlapping ? others[name + 1] : values[name];
        NEAR(column[1], at1, 5e-6);
        NEAR(column[10], at10, 5e-6);
        NEAR(column[100], at100, 5e-6);
    };
    check("adev", 2.922319e-1, 9.965736e-2, 3.897804e-2);
    check("oadev", 2.922319e-1, 9.159953e-2, 3.241343e-2);
    check("mdev", 2.922319e-1, 6.172376e-2, 2.170921e-2);
    check("tdev", 1.687202e-1, 3.563623e-1, 1.253382);
    check("hdev", 2.943883e-1, 1.052754e-1, 3.910860e-2);
    check("ohdev", 2.943883e-1, 9.581083e-2, 3.237638e-2);
    QCOMPARE(others["mdev"], values["mdev"]);

    // 17 digits bring every double back.
    const QList<QByteArray> row = plain.out.split('\n')[4].split(',');
    QCOMPARE(row[0], QByteArray("10"));
    QCOMPARE(QByteArray::number(row[2].toDouble(), 'g', 17), row[2]);
}

void TestCli::json()
{
    const QString file = m_home.write("thousand.txt", thousandFrequencies());
    const QStringList common{"--format", "[x]", "--frequency", "--overlap", "--interval", "2", file};
    const CliRun run = runCli(QStringList{"--json", "--start", "2024-02-29 12:00:00"} + common);
    QCOMPARE(run.status, 0);
    const QJsonArray files = QJsonDocument::fromJson(run.out).array();
    QCOMPARE(files.size(), 1);
    const QJsonObject object = files[0].toObject();
    QCOMPARE(object["file"].toString(), file);
    QCOMPARE(object["samples"].toInt(), 1001);
    QCOMPARE(object["interval"].toDouble(), 2.0);
    QCOMPARE(object["start"].toString(), QString("2024-02-29 12:00:00"));
    QVERIFY(object["overlap"].toBool() && object["frequency"].toBool() && !object["removeDrift"].toBool());
    const QJsonObject columns = object["columns"].toObject();
    QCOMPARE(columns["tau"].toArray()[3].toDouble(), 20.0);
    const QMap<long, double> csv = csvColumns(runCli(QStringList{"--csv"} + common).out)["adev"];
    const QJsonArray factors = columns["m"].toArray();
    QCOMPARE(factors.size(), csv.size());
    for (int i = 0; i < factors.size(); ++i)
        QCOMPARE(columns["adev"].toArray()[i].toDouble(), csv[factors[i].toInt()]);
}

void TestCli::alignedUnion()
{
    m_home.write("long.txt", squares(100));
    m_home.write("short.txt", squares(20));
    const CliRun run = runCli({"--stat", "adev,tdev", "short.txt", "long.txt"}, m_home.file("."));
    QCOMPARE(run.status, 0);
    const QList<QByteArray> lines = run.out.split('\n');
    QVERIFY(lines[0].startsWith("# 1: short.txt, 20 samples, interval 1 s, "));
    QCOMPARE(lines[2].simplified(), QByteArray("tau, s ADEV 1 TDEV 1 ADEV 2 TDEV 2"));
    // The phase t^2 is a drift of 2 a second: ADEV is sqrt(2) tau.
    QCOMPARE(lines[3].simplified().split(' ')[1], QByteArray("1.414214e+00"));
    const QByteArray last = lines[lines.size() - 2];
    QVERIFY2(last.simplified().startsWith("20 --- --- 2.828427e+01 "), last.constData());
    for (int i = 3; i < lines.size() - 1; ++i)
        QCOMPARE(lines[i].size(), lines[2].size());
}

void TestCli::frequencyIsSummedFromZero()
{
    // Phase 0 10 30 60 ...: second differences of 10 over tau 10 s.
    QByteArray text;
    for (int i = 1; i <= 30; ++i)
        text += QByteArray::number(i) + '\n';
    const QString file = m_home.write("rising.txt", text);
    const CliRun run =
        runCli({"--format", "[x]", "--frequency", "--interval", "10", "--csv", "--stat", "adev,mtie", file});
    const auto columns = csvColumns(run.out);
    NEAR(columns["adev"][1], std::sqrt(0.5), 1e-12);
    NEAR(columns["mtie"][1], 300.0, 1e-12);
    NEAR(columns["mtie"][5], 10.0 * (26 + 27 + 28 + 29 + 30), 1e-12);
}

void TestCli::optionsReachTheNumbers()
{
    const QString file = m_home.write("squares.txt", squares(1000));
    const auto adev = [&](const QStringList& options, long m) {
        return csvColumns(runCli(options + QStringList{"--csv", file}).out)["adev"][m];
    };
    NEAR(adev({}, 10), std::sqrt(2.0) * 10.0, 1e-9);
    NEAR(adev({"--multiplier", "-1e-6"}, 10), std::sqrt(2.0) * 1e-5, 1e-9);
    NEAR(adev({"--interval", "2"}, 10), std::sqrt(2.0) * 5.0, 1e-9);
    QVERIFY(adev({"--remove-drift"}, 10) < 1e-6);

    QByteArray changing; // calm only in its last 100 s
    for (int i = 0; i < 1000; ++i)
        changing += QByteArray::number(i) + ' ' + QByteArray::number(i < 900 ? i % 2 : 0) + '\n';
    const QString two = m_home.write("changing.txt", changing);
    const QStringList common{"--csv", two};
    QVERIFY(csvColumns(runCli(common).out)["adev"][1] > 1.0);
    QCOMPARE(csvColumns(runCli(QStringList{"--points-per-tau", "90"} + common).out)["adev"][1], 0.0);
}

void TestCli::severalColumns()
{
    QByteArray text;
    for (int i = 0; i < 100; ++i)
        text += QByteArray::number(i) + ' ' + QByteArray::number(i * i) + " skip "
            + QByteArray::number(2 * i * i) + '\n';
    m_home.write("two.txt", text);
    const CliRun run = runCli({"--csv", "--format", "[t] [x] <s> [y]", "two.txt"}, m_home.file("."));
    QVERIFY2(run.out.startsWith("m,tau,adev:two.txt[x],adev:two.txt[y]\n"), run.out.constData());
    const auto columns = csvColumns(run.out);
    NEAR(columns["adev:two.txt[y]"][1], 2.0 * columns["adev:two.txt[x]"][1], 1e-12);
}

void TestCli::badLinesAreSkippedOnRequest()
{
    m_home.write("bad.txt", squares(50) + "50 x\n" + squares(50, 51));
    const CliRun run = runCli({"--skip-bad-lines", "--json", "bad.txt"}, m_home.file("."));
    QCOMPARE(run.status, 0);
    QVERIFY2(run.err.startsWith("bad.txt:51: "), run.err.constData());
    const QJsonObject object = QJsonDocument::fromJson(run.out).array()[0].toObject();
    QCOMPARE(object["samples"].toInt(), 100);
    QCOMPARE(object["badLines"].toArray(), QJsonArray({51}));
    QCOMPARE(runCli({"--skip-bad-lines", "--format", "[x];", "bad.txt"}, m_home.file(".")).status, 1);
}

void TestCli::notANumberIsTold()
{
    m_home.write("nan.txt", squares(50) + "50 nan\n51 inf\n" + squares(50, 52));
    const CliRun run = runCli({"--csv", "nan.txt"}, m_home.file("."));
    QCOMPARE(run.status, 0);
    QVERIFY2(run.err.startsWith("nan.txt: 2 of 102 samples are not finite"), run.err.constData());
    QVERIFY(std::isnan(csvColumns(run.out)["adev"][1]));
}

void TestCli::namesOfAnyKind()
{
    const QString cyrillic = QString::fromUtf8("Имя \"а, б\" <b>.txt");
    const CliRun percent = runCli({m_home.write("5%1%2%3.txt", squares(9) + "8 0\n")});
    QVERIFY2(percent.err.endsWith("5%1%2%3.txt:10: the time does not rise\n"), percent.err.constData());
    m_home.write("two\nlines %2.txt", squares(100));
    m_home.write(cyrillic, squares(20000));
    const QStringList files{"two\nlines %2.txt", cyrillic};
    const CliRun table = runCli(QStringList{"--out", "o", "--plot", "svg"} + files, m_home.file("."));
    QCOMPARE(table.status, 0);
    QVERIFY2(table.out.startsWith("# 1: two?lines %2.txt, 100 samples, "), table.out.constData());
    const QByteArray picture = contentOf(m_home.file("o/adev.svg"));
    QVERIFY2(picture.contains("Имя &quot;а, б&quot;") && !picture.contains("<b>"), "name in the legend");
    const QByteArray csv = runCli(QStringList{"--csv"} + files, m_home.file(".")).out;
    QVERIFY2(csv.startsWith("m,tau,\"adev:two\nlines %2.txt\",\"adev:Имя \"\"а, б\"\" <b>.txt\"\n"),
        csv.constData());
}

void TestCli::debugLinesOnRequest()
{
    const QString file = m_home.write("good.txt", squares(100));
    QVERIFY(runCli({"--stat", "mtie", file}).err.isEmpty());
    QVERIFY(runCli({"--stat", "mtie", file}, QString(), true).err.contains("MTIE"));
}

void TestCli::helpAndVersion()
{
    const CliRun help = runCli({"--help"});
    QCOMPARE(help.status, 0);
    QVERIFY(help.out.contains("Examples:\n  kronalys-cli samples/clock.txt\n"));
    QVERIFY(help.err.isEmpty());
    const CliRun version = runCli({"--version"});
    QCOMPARE(version.status, 0);
    QCOMPARE(version.out, QByteArray("kronalys-cli 1.24.02.376\n"));
}

void TestCli::outputFolder_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("graph");
    QTest::addColumn<QByteArray>("head");
    QTest::newRow("png") << QStringList() << "stability.txt"
                         << "adev.png" << QByteArray("\x89PNG");
    QTest::newRow("svg") << QStringList{"--plot", "svg", "--csv"} << "stability.csv"
                         << "adev.svg" << QByteArray("<?xml");
    QTest::newRow("pdf") << QStringList{"--plot", "pdf", "--json", "--overlap"} << "stability.json"
                         << "oadev.pdf" << QByteArray("%PDF");
}

void TestCli::outputFolder()
{
    QFETCH(QStringList, options);
    QFETCH(QString, table);
    QFETCH(QString, graph);
    QFETCH(QByteArray, head);
    const QString file = m_home.write("good.txt", squares(20000));
    const QString folder = m_home.file(QString("made/") + QTest::currentDataTag());
    const CliRun run = runCli(options + QStringList{"--out", folder, file});
    QVERIFY2(run.status == 0 && run.err.isEmpty(), run.err.constData());
    QCOMPARE(QDir(folder).entryList(QDir::Files), (QStringList{graph, table}));
    QCOMPARE(contentOf(folder + '/' + table), run.out);
    const QByteArray picture = contentOf(folder + '/' + graph);
    QVERIFY(picture.startsWith(head));
    QVERIFY(picture.size() > 2000);
}

void TestCli::shortCurveHasNoGraph()
{
    m_home.write("short.txt", squares(100));
    const CliRun run = runCli({"--out", "none", "short.txt"}, m_home.file("."));
    QCOMPARE(run.status, 0);
    QVERIFY2(run.err.startsWith(
                 "short.txt: no curve of adev in the graph: 5 values of tau, more than 10 are needed\n"),
        run.err.constData());
    QCOMPARE(QDir(m_home.file("none")).entryList(QDir::Files), QStringList{"stability.txt"});
}

void TestCli::graphTakes32Curves()
{
    QByteArray text;
    for (int i = 0; i < 12000; ++i)
        text += QByteArray::number(i % 7) + QByteArray(" 1").repeated(33) + '\n';
    m_home.write("wide.txt", text);
    const QString format = QStringLiteral("[a]") + QStringLiteral(" [b]").repeated(33);
    const CliRun run = runCli({"--out", "wide", "--format", format, "wide.txt"}, m_home.file("."));
    QCOMPARE(run.status, 0);
    QCOMPARE(run.err, QByteArray("2 more curves of adev are not in the graph, which takes at most 32\n"));
}

void TestCli::unwritableOutput()
{
    const QString file = m_home.write("good.txt", squares(100));
    const CliRun run = runCli({"--out", file, file});
    QCOMPARE(run.status, 1);
    QVERIFY(run.out.isEmpty());
    QVERIFY2(run.err.contains("good.txt"), run.err.constData());
}

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
