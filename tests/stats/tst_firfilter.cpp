#include "stats/firfilter.h"

#include "support/scopedhome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

QStringList lines;

QByteArray content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Of a symmetric filter, at a frequency in parts of the sampling rate.
double gainDb(const FirFilter& taps, double frequency)
{
    const double pi = std::acos(-1.0);
    double sum = 0.0;
    for (int i = 0; i < firTaps; ++i)
        sum += taps[size_t(i)] * std::cos(2 * pi * frequency * (i - firTaps / 2));
    return 20.0 * std::log10(std::fabs(sum));
}

}

class TestFirFilter : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        lines.clear();
        qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& text) { lines << text; });
    }
    void cleanup() { qInstallMessageHandler(nullptr); }

    void defaultFilter()
    {
        const ScopedHome home;
        const QString config = home.file(QStringLiteral("settings/config"));
        QVERIFY(installDefaultFilter(config));
        const FirFilter taps = readFirFilter(config + QStringLiteral("/filter.txt"));
        QCOMPARE(lines, QStringList());
        for (size_t i = 0; i < taps.size(); ++i)
            QCOMPARE(taps[i], taps[taps.size() - 1 - i]);
        QVERIFY(std::fabs(gainDb(taps, 0.0)) < 1e-10);
        QVERIFY(gainDb(taps, 0.0025) > -0.13); // the end of the decade that a thinning by 10 serves
        for (int i = 0; i <= 4000; ++i)
            QVERIFY(gainDb(taps, 0.046 + (0.5 - 0.046) * i / 4000) < -69.99);
        QCOMPARE(QDir(config).entryList(QDir::Files | QDir::Hidden), QStringList{"filter.txt"});
        QVERIFY(QFile::permissions(config + QStringLiteral("/filter.txt")) & QFile::ReadOther);
    }

    void generatorMakesTheFile()
    {
        QProcess generator;
        generator.start(qEnvironmentVariable("KRONALYS_BIN") + QStringLiteral("/makefilter"), QStringList());
        QVERIFY(generator.waitForFinished());
        const QByteArray made = generator.readAllStandardOutput();
        QCOMPARE(made.count('\n'), firTaps);
        QCOMPARE(content(qEnvironmentVariable("KRONALYS_SOURCE") + "/resources/filter/filter.txt"), made);
    }

    void usersFileStays()
    {
        const ScopedHome home;
        const QString name = home.write(QStringLiteral("filter.txt"), ""), config = QFileInfo(name).path();
        QVERIFY(installDefaultFilter(config));
        QCOMPARE(content(name), QByteArray());
        QVERIFY(QFile::remove(name) && QFile::link(home.file(QStringLiteral("absent")), name));
        QVERIFY(installDefaultFilter(config));
        QVERIFY(!QFile::exists(name)); // still a broken link
        QCOMPARE(lines, QStringList());
        QVERIFY(!installDefaultFilter(home.write(QStringLiteral("file"), "") + "/config"));
        QCOMPARE(lines.size(), 1);
    }

    void texts_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QList<double>>("start");
        QTest::addColumn<int>("filled");
        QTest::addColumn<QStringList>("complaints");
        const QByteArray rest = QByteArray("\n5").repeated(62);
        const QList<double> three = {1.5, -2e-3, 3.0};
        const auto row = [](const char* name, const QByteArray& text, const QList<double>& start, int filled,
                             const QStringList& complaints) {
            QTest::newRow(name) << text << start << filled << complaints;
        };
        row("lines", "1.5\n-2e-3\n3" + rest, three, 65, {});
        row("commas and blanks", "1.5, -2E-3 ,\t3" + rest + " ", three, 65, {});
        row("both, other line ends", "1.5,\r\n-2e-3,\r\n+3.0" + rest + "\r\n\r\n", three, 65, {});
        row("byte order mark", "\xEF\xBB\xBF" + ("1.5,-2e-3,3" + rest), three, 65, {});
        row("few", "1.5,-2e-3", {1.5, -2e-3, 0.0}, 2, {"2 numbers instead of 65"});
        row("many", "1.5,-2e-3,3" + rest + ",7,8", three, 65, {"67 numbers instead of 65"});
        row("empty", "", {0.0}, 0, {"0 numbers"});
        row("words", "1.5,tap,3" + rest, {1.5, 0.0, 3.0}, 64,
            {"place 2 counts as 0, since it holds no number: tap"});
        row("not finite", "nan,inf,1e999" + rest, {0.0, 0.0, 0.0}, 62, {"place 1", "place 2", "place 3"});
        row("nul", QByteArray("1.5,\0,3", 7) + rest, {1.5, 0.0, 3.0}, 64, {"place 2"});
        row("endless", "1.5,-2e-3,3" + rest + QByteArray(100000, ' '), three, 65, {"65536 bytes"});
    }
    void texts()
    {
        QFETCH(QByteArray, text);
        QFETCH(QList<double>, start);
        QFETCH(int, filled);
        QFETCH(QStringList, complaints);
        const ScopedHome home;
        const FirFilter taps = readFirFilter(home.write(QStringLiteral("filter.txt"), text));
        for (int i = 0; i < start.size(); ++i)
            QCOMPARE(taps[size_t(i)], start.at(i));
        QCOMPARE(int(std::count_if(taps.begin(), taps.end(), [](double tap) { return tap != 0.0; })), filled);
        QCOMPARE(lines.size(), complaints.size());
        for (int i = 0; i < lines.size(); ++i)
            QVERIFY2(lines.at(i).contains(complaints.at(i)), qPrintable(lines.at(i)));
    }

    void unreadable()
    {
        const ScopedHome home;
        for (const QString& name : {home.file(QStringLiteral("absent")), home.file(QString())})
            QCOMPARE(readFirFilter(name), FirFilter{});
        QCOMPARE(lines.size(), 2);
    }
};

QTEST_GUILESS_MAIN(TestFirFilter)
#include "tst_firfilter.moc"
