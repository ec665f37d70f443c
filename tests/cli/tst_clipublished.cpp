#include "clirun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

namespace {

QString dataFile(const QString& name)
{
    return qEnvironmentVariable("KRONALYS_SOURCE") + QStringLiteral("/../shared/data/") + name;
}

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Column `place`, from 0, of a table by averaging factor; "#" begins a comment.
QMap<long, double> publishedColumn(const QString& name, int place)
{
    QMap<long, double> values;
    for (const QByteArray& line : contentOf(dataFile(name)).split('\n')) {
        const QList<QByteArray> cells = line.simplified().split(' ');
        if (!line.startsWith('#') && cells.size() > place)
            values[cells[0].toLong()] = cells[place].toDouble();
    }
    return values;
}

/// Whether `got` rounds to the five digits that `want` was printed with.
bool sameFiveDigits(double got, double want)
{
    const double lastDigit = std::pow(10.0, std::floor(std::log10(want)) - 4.0);
    return std::abs(got - want) <= 0.501 * lastDigit;
}

struct Series {
    const char* record;
    const char* table; ///< with the key of the statistic in place of %1
    const char* statistics;
    QList<long> factors; ///< that both tables have at least
};

} // namespace

/// Values that others published for real records, or computed from them by the textbook definitions. The
/// records are not part of the project; without them the test is skipped.
class TestCliPublished : public QObject {
    Q_OBJECT

private slots:
    void reproduced_data();
    void reproduced();
    void dailyFilesInOne();

private:
    static void addRow(const QString& record, const QString& table, const QByteArray& key, int place,
        const QList<long>& factors);
    static void compare(const QStringList& command, const QByteArray& key,
        const QMap<long, double>& published, const QList<long>& factors);
};

void TestCliPublished::addRow(
    const QString& record, const QString& table, const QByteArray& key, int place, const QList<long>& factors)
{
    QTest::addRow("%s %s", qPrintable(table), key.constData()) << record << table << key << place << factors;
}

void TestCliPublished::reproduced_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("place");
    QTest::addColumn<QList<long>>("factors");
    const QList<long> upTo50{1, 2, 5, 10, 20, 50};
    const QString tic = QStringLiteral("clock/allantools/tic_phase.txt");
    const Series series[] = {
        {"clock/allantools/PHASE.DAT", "published/phasedat/phase_dat_%1.txt",
            "adev oadev hdev ohdev mdev tdev", upTo50},
        {"clock/allantools/PHASE.DAT", "published/phasedat/phase_dat_%1.txt", "mtie", {1}},
        {"derived/ocxo/ocxo_phase_s.txt", "published/ocxo/stable32_%1_alltau.txt",
            "adev oadev hdev ohdev mdev tdev", upTo50},
        {"clock/allantools/tic_phase.txt", "published/tic53230a/tic_%1.txt", "adev", upTo50},
        {"clock/allantools/tic_phase.txt", "published/tic53230a/tic_%1.txt", "oadev hdev ohdev mdev tdev",
            {1, 2}},
    };
    for (const Series& one : series) {
        for (const QByteArray& key : QByteArray(one.statistics).split(' ')) {
            const QString table = QString::fromLatin1(one.table).arg(QString::fromLatin1(key));
            addRow(QString::fromLatin1(one.record), table, key, key == "mtie" ? 3 : 5, one.factors);
        }
    }
    int place = 2;
    for (const QByteArray& key : QByteArray("adev oadev mdev tdev hdev ohdev mtie").split(' '))
        addRow(tic, QStringLiteral("published/computed_expected/tic.txt"), key, place++, {1, 2});
}

void TestCliPublished::compare(const QStringList& command, const QByteArray& key,
    const QMap<long, double>& published, const QList<long>& factors)
{
    const bool overlap = key.startsWith('o');
    const QString statistic = QString::fromLatin1(overlap ? key.mid(1) : key);
    const CliRun run = runCli(command + QStringList{"--csv", "--stat", statistic}
        + (overlap ? QStringList{"--overlap"} : QStringList()));
    QCOMPARE(run.status, 0);
    const QMap<long, double> got = csvColumns(run.out)[statistic.toLatin1()];
    for (const long factor : factors)
        QVERIFY2(got.contains(factor) && published.contains(factor),
            QByteArray::number(qint64(factor)).constData());
    for (auto it = got.begin(); it != got.end(); ++it) {
        if (!published.contains(it.key()))
            continue;
        const double want = published[it.key()];
        QVERIFY2(sameFiveDigits(it.value(), want),
            qPrintable(QStringLiteral("m=%1: %2 for %3").arg(it.key()).arg(it.value(), 0, 'e', 6).arg(want)));
    }
}

void TestCliPublished::reproduced()
{
    QFETCH(QString, record);
    QFETCH(QString, table);
    QFETCH(QByteArray, key);
    QFETCH(int, place);
    QFETCH(QList<long>, factors);
    if (!QFileInfo::exists(dataFile(record)))
        QSKIP("the measured records are not here");
    compare({"--format", "[x]", dataFile(record)}, key, publishedColumn(table, place), factors);
}

void TestCliPublished::dailyFilesInOne()
{
    const QDir days(dataFile(QStringLiteral("derived/cs5071a_daily_10s_hms")));
    if (!days.exists())
        QSKIP("the measured records are not here");
    // The times start anew each day, so that they are left to the counting of samples; there are no gaps.
    QTemporaryDir folder;
    QFile joined(folder.filePath(QStringLiteral("days.txt")));
    QVERIFY(joined.open(QIODevice::WriteOnly));
    for (const QString& name : days.entryList(QDir::Files, QDir::Name))
        joined.write(contentOf(days.filePath(name)));
    joined.close();
    const QString table = QStringLiteral("published/computed_expected/cs5071a_10s.txt");
    int place = 2;
    for (const QByteArray& key : QByteArray("adev oadev mdev tdev hdev ohdev mtie").split(' '))
        compare({"--format", "<hms> [x]", "--interval", "10", joined.fileName()}, key,
            publishedColumn(table, place++), {1, 2});
}

QTEST_GUILESS_MAIN(TestCliPublished)
#include "tst_clipublished.moc"
