#include "record/record.h"
#include "samples/recording.h"
#include "store/core/mapstruct.h"
#include "support/dayrecord.h"
#include "support/near.h"
#include "support/scopedhome.h"

#include <QDir>
#include <QtTest>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <limits>

namespace {

/// Two days: the last two seconds of the old year, and one sample of the new one.
void fill(Record& record)
{
    fillDays(record, {{{86398.9, 86399.5}, {1e-6, -2e-6}}, {{86400.0}, {3.5e-6}}}, 2.75,
        QDateTime(QDate(1999, 12, 31), QTime(23, 59, 58)));
    record.stop = QDateTime(QDate(2000, 1, 1), QTime(0, 0, 0));
    record.ch = 4;
    record.devType = 5;
    record.dataType = 1;
    record.Band = 30;
    record.ref_sig = QStringLiteral("Опора");
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

QByteArray padded(const char* text, int length)
{
    return QByteArray(text).leftJustified(length, ' ');
}

/// No file may grow beyond this while the object lives, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

} // namespace

class TestSaveInfDat : public QObject {
    Q_OBJECT

private slots:
    void init();
    void twoDays();
    void appended();
    void extremeValues();
    void oddRecords();
    void cannotBeOpened();
    void diskFull();
    void afterAStop();
    void throughTheIndex();
    void ascii();

private:
    int save(unsigned char number = 0);
    QString file(const char* name) const { return m_home->file(QLatin1String(name)); }

    std::unique_ptr<ScopedHome> m_home;
    mapStruct m_map{1, 1};
    Record m_record;
};

void TestSaveInfDat::init()
{
    m_home = std::make_unique<ScopedHome>();
    fill(m_record);
}

int TestSaveInfDat::save(unsigned char number)
{
    QDir directory(m_home->file(QString()));
    return m_map.SaveToInfDat(&m_record, &directory, 0, number);
}

void TestSaveInfDat::twoDays()
{
    QCOMPARE(save(), 0);
    QCOMPARE(m_map.error(), QString());
    QCOMPARE(content(file("991231_04.inf")),
        QByteArray::fromHex("50555555") + padded("31.12.1999 23:59:58", 32)
            + QByteArray::fromHex("00000000 0200 05 e803 01 00000000 18000000")
            + padded("\xCE\xEF\xEE\xF0\xE0", 128) + padded("Clock", 128) + padded("31.12.1999 23:59:59", 32)
            + QByteArray::fromHex("a1aaaaaa"));
    QCOMPARE(content(file("000101_04.inf")),
        QByteArray::fromHex("51555555") + padded("01.01.2000", 32)
            + QByteArray::fromHex("00000000 0200 05 e803 01 00000000 0c000000")
            + padded("\xCE\xEF\xEE\xF0\xE0", 128) + padded("Clock", 128) + padded("01.01.2000 00:00:00", 32)
            + QByteArray::fromHex("a0aaaaaa"));
    // -1, 2 and -3.5 us: the sign is turned, and the time is cut, not rounded.
    QCOMPARE(content(file("991231_04.dat")),
        QByteArray::fromHex("7e510100 000000000000f0bf 7f510100 0000000000000040"));
    QCOMPARE(content(file("000101_04.dat")), QByteArray::fromHex("80510100 0000000000000cc0"));
}

void TestSaveInfDat::appended()
{
    QCOMPARE(save(), 0);
    const QByteArray inf = content(file("991231_04.inf")), dat = content(file("991231_04.dat"));
    QCOMPARE(save(), 0);
    QCOMPARE(content(file("991231_04.inf")).left(infSizeType1), inf);
    QCOMPARE(content(file("991231_04.dat")), dat + dat);
    bool ok = false;
    const InfType second = m_map.ReadInf(file("991231_04.inf"), 1, ok);
    QVERIFY(ok);
    QCOMPARE(second.startOffset, 24);
    QCOMPARE(second.endOffset, 48);
    QCOMPARE(save(2), 0);
    m_record.ch = 10;
    QCOMPARE(save(255), 0);
    QCOMPARE(content(file("991231_04_(2).inf")), inf);
    QCOMPARE(content(file("991231_10_(255).dat")), dat);
}

void TestSaveInfDat::extremeValues()
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    fillDays(m_record, {{{-1e300, -0.9, 2e9, 3e9, std::nan("")}, {infinite, -infinite, 1e308, 5e-324, 0.0}}});
    m_record.Kdec = 1e9;
    m_record.devType = 3;
    m_record.ch = 4;
    QCOMPARE(save(), 0);
    const QByteArray dat = content(file("260301_04.dat"));
    QCOMPARE(dat.size(), 5 * datSampleSize);
    const qint32 least = std::numeric_limits<qint32>::min(), greatest = std::numeric_limits<qint32>::max();
    const qint32 marks[] = {least, 0, 2000000000, greatest, 0};
    const double values[] = {-infinite, infinite, -1e308, -5e-324, -0.0};
    for (int i = 0; i < 5; ++i) {
        const DatSample sample = decodeSample(dat.constData() + i * datSampleSize);
        QCOMPARE(sample.mark, marks[i]);
        QVERIFY(sample.value == values[i]); // with 3 the sign is turned, and nothing scaled
    }
    bool ok = false;
    QCOMPARE(int(m_map.ReadInf(file("260301_04.inf"), 0, ok).Kdec), 32767);
}

void TestSaveInfDat::oddRecords()
{
    // A day without samples, and counts that promise more than there is.
    fillDays(m_record, {{{1.0}, {1.0}}, {{}, {}}, {{172800.0}, {2.0}}});
    m_record.devType = 65535; // no device: the value as it is
    m_record.ch = 4;
    m_record.num_in_days[0] = -5;
    m_record.num_in_days[2] = 1000;
    QCOMPARE(save(), 0);
    QCOMPARE(content(file("260301_04.dat")), QByteArray());
    QCOMPARE(content(file("260302_04.dat")), QByteArray());
    QCOMPARE(content(file("260303_04.dat")).size(), 2 * datSampleSize);
    NEAR(decodeSample(content(file("260303_04.dat")).constData()).value, 1.0);
    m_record.num_in_days.reset();
    QCOMPARE(save(1), 0);
    QCOMPARE(content(file("260303_04_(1).dat")), QByteArray());
    deleteRecord(&m_record);
    QCOMPARE(save(2), 0);
}

void TestSaveInfDat::cannotBeOpened()
{
    QDir nowhere(file("no"));
    QCOMPARE(m_map.SaveToInfDat(&m_record, &nowhere, 0, 0), 1);
    QVERIFY(m_map.error().startsWith(QStringLiteral("Ошибка при открытии inf-файла. Файл не сохранён!")));
    // The second day's data file is none: the first day stays, the second one leaves nothing.
    QCOMPARE(mkfifo(qPrintable(file("000101_04.dat")), 0600), 0);
    QCOMPARE(save(), 1);
    QVERIFY(m_map.error().startsWith(QStringLiteral("Ошибка при открытии dat-файла. Файл не сохранён!")));
    QCOMPARE(content(file("991231_04.inf")).size(), infSizeType1);
    QVERIFY(!QFile::exists(file("000101_04.inf")));
}

void TestSaveInfDat::diskFull()
{
    std::vector<double> t, x;
    for (int i = 0; i < 250000; ++i) {
        t.push_back(i * 0.1);
        x.push_back(i);
    }
    fillDays(m_record, {{{1.0}, {1.0}}});
    m_record.ch = 4;
    QCOMPARE(save(), 0);
    const QByteArray inf = content(file("260301_04.inf")), dat = content(file("260301_04.dat"));
    fillDays(m_record, {{t, x}});
    m_record.ch = 4;
    for (const rlim_t bytes : {1000000, 2500000, 13, 400}) { // in the samples, or in the structure
        if (bytes == 400)
            fillDays(m_record, {{{1.0}, {1.0}}});
        m_record.ch = 4;
        const FullDisk full(bytes);
        QCOMPARE(save(), 1);
        QVERIFY(m_map.error().startsWith(QStringLiteral("Файл не сохранён:")));
        QVERIFY(m_map.error().count(QLatin1Char('\n')) == 2); // the file and the reason
        QCOMPARE(content(file("260301_04.inf")), inf);
        QCOMPARE(content(file("260301_04.dat")), dat);
        QCOMPARE(save(1), bytes == 400 ? 0 : 1);
        QCOMPARE(QFile::exists(file("260301_04_(1).inf")), bytes == 400);
    }
    QCOMPARE(save(), 0);
}

/// A writer that was killed leaves data without a structure, or half a structure.
void TestSaveInfDat::afterAStop()
{
    m_home->write(QStringLiteral("991231_04.dat"), "tail");
    QTest::ignoreMessage(QtDebugMsg,
        qPrintable(file("991231_04.dat") + QStringLiteral(": no structure names the bytes from 0 to 4")));
    QCOMPARE(save(), 0);
    bool ok = false;
    QCOMPARE(m_map.ReadInf(file("991231_04.inf"), 0, ok).startOffset, 4);
    QCOMPARE(content(file("991231_04.dat")).mid(4),
        QByteArray::fromHex("7e510100 000000000000f0bf 7f510100 0000000000000040"));

    const QByteArray whole = content(file("000101_04.inf"));
    for (const int length : {4, 50, 60, 310, 345}) {
        m_home->write(QStringLiteral("000101_04.inf"), whole + whole.left(length));
        const InfType before = m_map.ReadInf(file("000101_04.inf"), 1, ok);
        QCOMPARE(save(), 0);
        QCOMPARE(content(file("000101_04.inf")).size(), 3 * infSizeType1);
        QCOMPARE(content(file("000101_04.inf")).left(infSizeType1 + length), whole + whole.left(length));
        const InfType after = m_map.ReadInf(file("000101_04.inf"), 1, ok);
        QVERIFY(ok);
        QCOMPARE(after.endText, before.endText);
        QCOMPARE(after.measName, before.measName);
        QVERIFY(!hasEnd(after.endMarker));
        QVERIFY(hasEnd(m_map.ReadInf(file("000101_04.inf"), 2, ok).endMarker));
    }
    const QByteArray older = whole.left(infSizeType2); // whole by the length of the other type
    m_home->write(QStringLiteral("000101_04.inf"), older);
    QCOMPARE(save(), 0);
    QCOMPARE(content(file("000101_04.inf")).size(), infSizeType2 + infSizeType1);
}

void TestSaveInfDat::throughTheIndex()
{
    QCOMPARE(save(), 0);
    QCOMPARE(save(), 0);
    mapStruct map(3, 4);
    QCOMPARE(map.readINFFiles(QDir(m_home->file(QString())), QDate(1999, 12, 30), QByteArray("\x08")), 5);
    QCOMPARE(map.kinds, QByteArray("crgg"));
    QCOMPARE(map.starts.at(1), m_record.start);
    QCOMPARE(map.stops.at(2), m_record.stop);
    QCOMPARE(map.names.at(2), QStringLiteral("Опора - Clock"));
}

void TestSaveInfDat::ascii()
{
    QFile out(file("out.txt"));
    QCOMPARE(m_map.SaveToASCII(&m_record, &out), 0);
    QCOMPARE(content(file("out.txt")),
        QByteArray(
            "# 31.12.99 23:59:58 - 01.01.00 00:00:00\r\n# Kdec=2.75 Band = 30 Channel№ = 4\r\n"
            "# Опора - Clock\r\n# total number of counts 3\r\n86398.9000000000 9.9999999999999995e-07\r\n"
            "86399.5000000000 -1.9999999999999999e-06\r\n86400.0000000000 3.4999999999999999e-06\r\n"));
    QFile nowhere(file("no/out.txt"));
    QCOMPARE(m_map.SaveToASCII(&m_record, &nowhere), 1);
}

QTEST_GUILESS_MAIN(TestSaveInfDat)
#include "tst_saveinfdat.moc"
