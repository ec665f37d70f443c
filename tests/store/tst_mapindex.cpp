#include "base/globals.h"
#include "samples/recording.h"
#include "store/core/mapstruct.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

#include <random>

namespace {

/// Days are told by their number from here on.
const QDate firstDay(1999, 12, 31);
constexpr int days = 4;

/// "31 10:20:30" of December or January.
QDateTime at(const QString& text)
{
    const int day = text.leftRef(2).toInt();
    return QDateTime(firstDay.addDays(day % 31), QTime::fromString(text.mid(3), QStringLiteral("hh:mm:ss")));
}

struct Piece {
    const char* start;
    const char* stop;
    bool finished = true;
    int lostDay = -1;
    const char* reference = "H";
};
using Pieces = QVector<Piece>;

/// The segments of a band, as "g 31 10:20:30-02 00:00:00 H - Cs".
QStringList band(const mapStruct& map, int index)
{
    QStringList list;
    for (int i = map.firstOfChannel.at(index); i < map.firstOfChannel.at(index + 1); ++i) {
        const QString form = QStringLiteral("dd hh:mm:ss");
        QString line = QStringLiteral("%1 %2-%3")
                           .arg(QLatin1Char(map.kinds.at(i)))
                           .arg(map.starts.at(i).toString(form), map.stops.at(i).toString(form));
        if (!map.names.at(i).isEmpty())
            line += QLatin1Char(' ') + map.names.at(i);
        list << line;
    }
    return list;
}

struct Told {
    QList<mapStruct::Message> messages;
    explicit Told(mapStruct& map)
    {
        map.tell = [this](const mapStruct::Message& message) { messages << message; };
    }
    QString all() const
    {
        QStringList lines;
        for (const mapStruct::Message& message : messages)
            lines << message.title << message.text << message.details;
        return lines.join(QLatin1Char('\n'));
    }
};

void append(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::Append) && file.write(bytes) == bytes.size());
}

} // namespace

Q_DECLARE_METATYPE(Pieces)

class TestMapIndex : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "UTC"); }
    void kinds_data();
    void kinds();
    void current_data();
    void current();
    void namesAndTypes();
    void masks();
    void oddFiles();
    void faultsOfStructures();
    void manyFiles();
    void randomFiles();
    void stopped();
};

void TestMapIndex::kinds_data()
{
    QTest::addColumn<Pieces>("pieces");
    QTest::addColumn<QStringList>("segments");
    QTest::addColumn<int>("result");
    const auto row = [](const char* name, const Pieces& pieces, const QStringList& segments, int result = 0) {
        QTest::newRow(name) << pieces << segments << result;
    };
    const Piece whole{"31 00:00:00", "03 23:59:59"};
    row("nothing", {}, {"c 31 00:00:00-03 23:59:59"}, 5);
    row("over New Year", {whole}, {"g 31 00:00:00-03 23:59:59 H - Cs"});
    row("several a day",
        {{"31 01:00:00", "31 02:00:00"}, {"31 03:00:00", "02 04:00:00"},
            {"02 05:00:00", "03 06:00:00", true, -1, "X"}},
        {"g 31 01:00:00-31 02:00:00 H - Cs", "g 31 03:00:00-02 04:00:00 H - Cs",
            "g 02 05:00:00-03 06:00:00 X - Cs"});
    row("ends before it begins", {{"31 10:00:00", "31 05:00:00"}, {"01 00:00:00", "03 01:00:00"}},
        {"g 31 10:00:00-31 10:00:00 H - Cs", "g 01 00:00:00-03 01:00:00 H - Cs"});
    row("begins late, ends early", {{"01 01:00:00", "02 02:00:00"}},
        {"c 31 00:00:00-31 23:59:59", "g 01 01:00:00-02 02:00:00 H - Cs", "c 03 00:00:00-03 23:59:59"}, 5);
    row("ends beyond the range", {{"31 01:00:00", "04 02:00:00"}}, {"g 31 01:00:00-03 23:59:59 H - Cs"});
    row("cut off on its first day", {{"31 01:00:00", "31 02:00:00", false}, {"01 00:00:00", "03 01:00:00"}},
        {"r 31 01:00:00-31 01:00:00", "g 01 00:00:00-03 01:00:00 H - Cs"});
    row("cut off later", {{"31 01:00:00", "01 02:00:00", false}, {"02 02:00:00", "03 01:00:00"}},
        {"r 31 01:00:00-01 23:59:59 H - Cs", "g 02 02:00:00-03 01:00:00 H - Cs"});
    row("a head keeps the name before it",
        {{"31 01:00:00", "31 02:00:00", true, -1, "X"}, {"31 03:00:00", "31 04:00:00", false},
            {"01 00:00:00", "03 01:00:00"}},
        {"g 31 01:00:00-31 02:00:00 X - Cs", "r 31 03:00:00-31 03:00:00 X - Cs",
            "g 01 00:00:00-03 01:00:00 H - Cs"});
    Piece lost = whole;
    lost.lostDay = 0;
    row("data lost on the first day", {lost},
        {"c 31 00:00:00-31 23:59:59", "g 01 00:00:00-03 23:59:59 H - Cs"}, 5);
    lost.lostDay = 2;
    row("data lost on the way", {lost},
        {"r 31 00:00:00-01 23:59:59 H - Cs", "c 02 00:00:00-02 23:59:59", "g 03 00:00:00-03 23:59:59 H - Cs"},
        5);
    lost.lostDay = 3;
    row("data lost on the last day", {lost},
        {"r 31 00:00:00-02 23:59:59 H - Cs", "c 03 00:00:00-03 23:59:59"}, 5);
}

/// Both types, from the same pieces.
void TestMapIndex::kinds()
{
    QFETCH(Pieces, pieces);
    QFETCH(QStringList, segments);
    QFETCH(int, result);
    for (const int type : {1, 2}) {
        QTemporaryDir place;
        const QDir directory(place.path());
        RecordingWriter writer(directory, type);
        RecordingWriter::Stretch stretch;
        stretch.interval = 7200;
        for (const Piece& piece : pieces) {
            stretch.start = at(piece.start);
            stretch.stop = at(piece.stop);
            stretch.finished = piece.finished;
            stretch.reference = QString::fromLatin1(piece.reference);
            stretch.lost = [&](int day) { return day == piece.lostDay; };
            QVERIFY(writer.write(stretch));
        }
        mapStruct map(days, 1);
        const Told told(map);
        QCOMPARE(map.readINFFiles(directory, firstDay, QByteArray("\x01")), result);
        QCOMPARE(band(map, 0), segments);
        QCOMPARE(map.missingFiles.isEmpty(), result == 0);
        QCOMPARE(told.messages.size(), result == 0 ? 0 : 1);
        if (result != 0)
            QCOMPARE(told.messages.first().text, QStringLiteral("Не удалось найти файлы:"));
        QCOMPARE(int(map.structType), pieces.isEmpty() ? 1 : type);
    }
}

void TestMapIndex::current_data()
{
    QTest::addColumn<QString>("now");
    QTest::addColumn<QString>("kind");
    QTest::newRow("running") << "03 12:00:00"
                             << "b"; // the day is not over, whatever the text says
    QTest::newRow("just") << "04 02:59:58"
                          << "b";
    QTest::newRow("no more") << "04 02:59:59"
                             << "r";
}

void TestMapIndex::current()
{
    QFETCH(QString, now);
    QFETCH(QString, kind);
    QTemporaryDir place;
    RecordingWriter::Stretch stretch;
    stretch.start = at(QStringLiteral("31 01:00:00"));
    stretch.stop = at(QStringLiteral("03 11:00:00"));
    stretch.interval = 3600;
    stretch.finished = false;
    QVERIFY(RecordingWriter(QDir(place.path())).write(stretch));
    mapStruct map(days, 1);
    map.readINFFiles(QDir(place.path()), firstDay, QByteArray("\x01"), at(now));
    QCOMPARE(band(map, 0), QStringList(kind + QStringLiteral(" 31 01:00:00-03 23:59:59 H-maser - Cs")));
}

void TestMapIndex::namesAndTypes()
{
    QTemporaryDir place;
    const QDir directory(place.path());
    RecordingWriter::Stretch stretch;
    stretch.start = at(QStringLiteral("31 01:00:00"));
    stretch.stop = at(QStringLiteral("31 02:00:00"));
    stretch.interval = 600;
    stretch.channel = 10;
    RecordingWriter older(directory, 2);
    QVERIFY(older.write(stretch));
    stretch.channel = 11;
    QVERIFY(older.write(stretch));
    QVERIFY(directory.exists(QStringLiteral("991231_09.inf"))
        && directory.exists(QStringLiteral("991231_10.inf")));
    QFile inf(directory.filePath(QStringLiteral("991231_10.inf")));
    QVERIFY(inf.open(QIODevice::ReadWrite) && inf.seek(42) && inf.write("\x05") == 1); // another device's
    inf.close();
    mapStruct map(1, 2);
    QTest::ignoreMessage(QtDebugMsg, "Прочитанная структура не соответсвует формату HRL-318!");
    QCOMPARE(map.readINFFiles(directory, firstDay, QByteArray("\x00\x06", 2)), 0);
    QCOMPARE(map.channels, QVector<int>({10, 11}));
    QCOMPARE(band(map, 0), QStringList("g 31 01:00:00-31 02:00:00 H-maser - Cs"));
    QCOMPARE(band(map, 1), QStringList());
    QCOMPARE(map.filePath(firstDay, 11), directory.absoluteFilePath(QStringLiteral("991231_10")));

    // One cut short tells no type; a whole one behind it does.
    append(directory.filePath(QStringLiteral("991231_01.inf")),
        encodeInf(InfType()).replace(0, 4, "PUUU").left(50));
    map.readINFFiles(directory, firstDay, QByteArray("\x01"));
    QCOMPARE(int(map.structType), 2);
}

void TestMapIndex::masks()
{
    QTemporaryDir place;
    mapStruct map(days, 3);
    QCOMPARE(map.readINFFiles(QDir(place.path()), firstDay, QByteArray(2, '\0')), 0);
    QCOMPARE(map.segmentCount(), 0);
    QCOMPARE(map.firstOfChannel, QVector<int>({0}));
    QCOMPARE(map.readINFFiles(QDir(place.path()), firstDay, QByteArray("\x81\x01")), 5);
    QCOMPARE(map.channels, QVector<int>({1, 8, 9}));
    QCOMPARE(map.firstOfChannel, QVector<int>({0, 1, 2, 3}));
    QCOMPARE(map.bandOf(2), 2);
    QCOMPARE(map.missingFiles.size(), 3 * days);
    QCOMPARE(::dir, QDir(place.path()));

    const Told told(map);
    QCOMPARE(map.readINFFiles(QDir(place.filePath(QStringLiteral("no"))), firstDay, QByteArray("\x01")), 18);
    QCOMPARE(map.segmentCount(), 0);
    QCOMPARE(told.messages.size(), 1);
    QCOMPARE(told.messages.first().title, QStringLiteral("папка недоступна"));
    QCOMPARE(told.messages.first().text, QStringLiteral("в данный момент выбранный каталог не доступен"));
    map.setDayChan(-1, -1);
    QCOMPARE(map.readINFFiles(QDir(place.path()), firstDay, QByteArray("\x01")), 0);
    QCOMPARE(map.segmentCount(), 0);
}

/// What is no plain file must neither be waited for nor stop the days around it.
void TestMapIndex::oddFiles()
{
    QTemporaryDir place;
    QDir directory(place.path());
    RecordingWriter::Stretch stretch;
    stretch.start = at(QStringLiteral("03 00:00:00"));
    stretch.stop = at(QStringLiteral("03 23:59:59"));
    stretch.interval = 7200;
    QVERIFY(RecordingWriter(directory).write(stretch));
    QVERIFY(directory.mkdir(QStringLiteral("991231_01.inf")));
    QCOMPARE(mkfifo(qPrintable(place.filePath(QStringLiteral("000101_01.inf"))), 0600), 0);
    QVERIFY(QFile::copy(
        place.filePath(QStringLiteral("000103_01.inf")), place.filePath(QStringLiteral("000102_01.inf"))));
    QCOMPARE(mkfifo(qPrintable(place.filePath(QStringLiteral("000102_01.dat"))), 0600), 0);
    append(place.filePath(QStringLiteral("991231_\xff.inf")), "UUUU");
    mapStruct map(days, 1);
    const Told told(map);
    QCOMPARE(map.readINFFiles(directory, firstDay, QByteArray("\x01")), 5);
    QCOMPARE(
        band(map, 0), QStringList({"c 02 00:00:00-02 23:59:59", "g 03 00:00:00-03 23:59:59 H-maser - Cs"}));
    QCOMPARE(told.messages.size(), 1);
    QCOMPARE(told.messages.first().text, QStringLiteral("При чтении файлов возникли ошибки."));
    QCOMPARE(told.messages.first().details.size(), 2);
    QVERIFY(told.all().contains(
        QStringLiteral("Ошибки открытия файла ") + place.filePath(QStringLiteral("000101_01.inf"))));
}

void TestMapIndex::faultsOfStructures()
{
    QTemporaryDir place;
    const QDir directory(place.path());
    RecordingWriter writer(directory);
    RecordingWriter::Stretch stretch;
    stretch.interval = 7200;
    stretch.start = at(QStringLiteral("31 00:00:00"));
    stretch.stop = at(QStringLiteral("31 20:00:00"));
    stretch.reference = QStringLiteral("UUU reference");
    QVERIFY(writer.write(stretch));
    append(place.filePath(QStringLiteral("991231_01.inf")), QByteArray(infSizeType1 * 30, ' '));
    stretch.reference = QStringLiteral("H");
    QVERIFY(writer.write(stretch)); // behind the rubbish
    stretch.start = at(QStringLiteral("01 00:00:00"));
    stretch.stop = at(QStringLiteral("03 20:00:00"));
    QVERIFY(writer.write(stretch));
    append(place.filePath(QStringLiteral("000103_01.dat")), "a tail");
    mapStruct map(days, 1);
    const Told told(map);
    QTest::ignoreMessage(QtDebugMsg,
        qPrintable(place.filePath(QStringLiteral("000103_01.dat"))
            + ": no structure names the bytes from 132 to 138"));
    QCOMPARE(map.readINFFiles(directory, firstDay, QByteArray("\x01")), 0);
    QCOMPARE(band(map, 0),
        QStringList({"g 31 00:00:00-31 20:00:00 UUU reference - Cs", "g 31 00:00:00-31 20:00:00 H - Cs",
            "g 01 00:00:00-03 20:00:00 H - Cs"}));
    QVERIFY(told.all().contains(QStringLiteral(" проблема с количеством записей")));
    QVERIFY(told.all().contains(QStringLiteral("не читается информационная структура о записи номер 2\n")));
    QVERIFY(told.all().contains(QStringLiteral("всего не читается: 30")));
    QCOMPARE(told.messages.first().details.size(), 12);
}

void TestMapIndex::manyFiles()
{
    QTemporaryDir place;
    const QDir directory(place.path());
    RecordingWriter::Stretch stretch;
    stretch.start = at(QStringLiteral("31 00:00:00"));
    stretch.stop = at(QStringLiteral("03 23:59:59"));
    stretch.interval = 7200;
    QVERIFY(RecordingWriter(directory).write(stretch));
    QFile inf(place.filePath(QStringLiteral("000101_01.inf")));
    QVERIFY(inf.open(QIODevice::ReadWrite));
    const QByteArray structure = inf.readAll();
    QVERIFY(inf.write(structure.repeated(9999)) > 0);
    inf.close();
    QFile huge(place.filePath(QStringLiteral("000102_01.inf")));
    QVERIFY(huge.open(QIODevice::ReadWrite) && huge.resize(qint64(1) << 40)); // takes no room on the disk
    huge.close();
    append(place.filePath(QStringLiteral("991231_00.inf")), QByteArray("U").repeated(1 << 20));
    for (int i = 0; i < 3000; ++i)
        append(place.filePath(QStringLiteral("991231_x%1.inf").arg(i)), {});
    mapStruct map(days, 1);
    const Told told(map);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(map.readINFFiles(directory, firstDay, QByteArray("\x01")), 0);
    QVERIFY2(timer.elapsed() < 30000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(band(map, 0), QStringList("g 31 00:00:00-03 23:59:59 H-maser - Cs"));
    QVERIFY(told.all().contains(QStringLiteral("Ошибки при чтении файла ") + huge.fileName()));
}

void TestMapIndex::randomFiles()
{
    QTemporaryDir place;
    const QDir directory(place.path());
    QVERIFY(RecordingWriter(directory).writeMixture(firstDay, days, 5, 7200));
    std::mt19937 random(8);
    const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
    const QStringList files = directory.entryList({QStringLiteral("*.inf")});
    for (int trial = 0; trial < 200; ++trial) {
        QFile file(directory.filePath(files.at(below(files.size()))));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QByteArray bytes = file.readAll();
        for (int i = 0; i < 5 && !bytes.isEmpty(); ++i)
            bytes[below(bytes.size())] = char(below(2) ? below(256) : 0x55);
        file.resize(0);
        file.seek(0);
        file.write(bytes.left(below(20) ? bytes.size() : below(bytes.size() + 1)));
        file.close();
        mapStruct map(days, 16);
        map.readINFFiles(directory, firstDay, QByteArray("\x3f"), at(QStringLiteral("03 12:00:00")));
        QCOMPARE(map.firstOfChannel.size(), 7);
        QCOMPARE(map.firstOfChannel.constLast(), map.segmentCount());
        QVERIFY(map.stops.size() == map.segmentCount() && map.names.size() == map.segmentCount()
            && map.kinds.size() == map.segmentCount());
        for (int i = 0; i < map.segmentCount(); ++i) {
            QVERIFY(map.starts.at(i).isValid() && map.starts.at(i) <= map.stops.at(i));
            QVERIFY(
                map.starts.at(i).date() >= firstDay && map.stops.at(i).date() <= firstDay.addDays(days - 1));
            QVERIFY(QByteArray("gbrc").contains(map.kinds.at(i)));
        }
    }
}

void TestMapIndex::stopped()
{
    QTemporaryDir place;
    mapStruct map(days, 3);
    QVector<double> shares;
    map.progress = [&](double share) {
        shares << share;
        return shares.size() < 2;
    };
    QCOMPARE(map.readINFFiles(QDir(place.path()), firstDay, QByteArray("\x83")), 0);
    QCOMPARE(shares, QVector<double>({0.125, 0.25}));
    QCOMPARE(map.segmentCount(), 0);
}

QTEST_GUILESS_MAIN(TestMapIndex)
#include "tst_mapindex.moc"
