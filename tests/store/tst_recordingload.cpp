#include "record/record.h"
#include "samples/recording.h"
#include "store/core/infstruct.h"
#include "store/core/mapstruct.h"
#include "store/core/recordingload.h"
#include "support/near.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <initializer_list>

namespace {

const QDate firstDay(2026, 3, 1);

QDateTime at(int day, int hour, int minute = 0, int second = 0)
{
    return QDateTime(firstDay.addDays(day), QTime(hour, minute, second));
}

/// A directory of recordings, its index, and a load from it.
struct Trial {
    explicit Trial(int structType = 1)
        : writer(QDir(home.path()), structType)
    {
        stretch.start = at(0, 0);
        stretch.stop = at(2, 23, 59, 59);
        stretch.value = [](qint64 mark) { return double(mark) * 1e-3; };
    }

    void write() { QVERIFY(writer.write(stretch)); }

    void index()
    {
        map.setDayChan(5, 1);
        QByteArray channels(2, '\0');
        channels[0] = char(1 << (stretch.channel - 1));
        map.readINFFiles(QDir(home.path()), firstDay, channels, at(10, 0));
    }

    RecordingLoad::Outcome load(
        const QDateTime& start, const QDateTime& stop, int kdec = 1, bool toEnd = false)
    {
        index();
        RecordingStretch chosen;
        chosen.channel = stretch.channel;
        chosen.start = start;
        chosen.stop = stop;
        chosen.recordingStart = stretch.start;
        chosen.kdec = kdec;
        chosen.toEnd = toEnd;
        return loader.load(chosen, &record);
    }

    QString file(int day, const char* ending) const
    {
        const auto number = map.structType == 2 ? stretch.channel - 1 : stretch.channel;
        return home.filePath(recordingName(firstDay.addDays(day), number) + QLatin1String(ending));
    }

    QByteArray bytes(int day, const char* ending) const
    {
        QFile source(file(day, ending));
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
    }

    void replace(int day, const char* ending, const QByteArray& content) const
    {
        QFile target(file(day, ending));
        QVERIFY(target.open(QIODevice::WriteOnly));
        target.write(content);
    }

    /// Puts a number into the structure of a day.
    template <typename Number> void patch(int day, int offset, Number value) const
    {
        QByteArray inf = bytes(day, ".inf");
        qToLittleEndian<Number>(value, inf.data() + offset);
        replace(day, ".inf", inf);
    }

    void checkTimes(double first, double step)
    {
        for (int i = 0; i < int(record.n_cnt); ++i) {
            if (record.t[i] != first + i * step || record.x[i] != -record.t[i] * 1e-3)
                QVERIFY2(false, qPrintable(QString("sample %1 at %2").arg(i).arg(record.t[i])));
        }
    }

    QTemporaryDir home;
    RecordingWriter writer;
    RecordingWriter::Stretch stretch;
    mapStruct map{5, 1};
    RecordingLoad loader{map, home.path()};
    Record record;
};

using Outcome = RecordingLoad::Outcome;

} // namespace

class tst_RecordingLoad : public QObject {
    Q_OBJECT

private slots:
    void wholeRecording()
    {
        Trial trial;
        trial.stretch.start = at(0, 9, 30);
        trial.write();
        QCOMPARE(trial.load(at(0, 9, 30), at(2, 23, 59, 59)), Outcome::Loaded);
        const Record& rec = trial.record;
        QCOMPARE(rec.n_cnt, qint64(3 * 86400 - 34200));
        QCOMPARE(rec.n_days, 3);
        QCOMPARE(rec.num_in_days[0], qint64(86400 - 34200));
        QCOMPARE(rec.num_in_days[2], qint64(86400));
        QCOMPARE(trial.record.t.partLen, 86400 - 34200);
        trial.checkTimes(34200, 1); // device 3 stores with the sign reversed
        QCOMPARE(rec.start, at(0, 9, 30));
        QCOMPARE(rec.stop, at(2, 23, 59, 59));
        QCOMPARE(rec.dyn_start, rec.stop);
        NEAR(rec.Kdec, 1.0);
        QCOMPARE(rec.ch, 1);
        QCOMPARE(rec.ref_sig, QString("H-maser"));
        QCOMPARE(rec.devType, quint16(3));
        QCOMPARE(rec.path, trial.home.path());
        QVERIFY(trial.loader.messages().isEmpty());
    }

    void chosenTimes_data()
    {
        QTest::addColumn<QDateTime>("from");
        QTest::addColumn<QDateTime>("to");
        QTest::addColumn<double>("first");
        QTest::addColumn<int>("samples");
        QTest::newRow("inside a day") << at(1, 10) << at(1, 10, 59, 59) << 122400.0 << 3600;
        QTest::newRow("one sample") << at(0, 12) << at(0, 12) << 43200.0 << 1;
        QTest::newRow("over midnight") << at(0, 23, 59, 58) << at(1, 0, 0, 2) << 86398.0 << 5;
        QTest::newRow("to midnight") << at(1, 23) << at(1, 23, 59, 59) << 169200.0 << 3600;
        QTest::newRow("beyond both ends") << at(0, 0) << at(0, 9, 30) << 34200.0 << 1;
    }
    void chosenTimes()
    {
        QFETCH(QDateTime, from);
        QFETCH(QDateTime, to);
        QFETCH(double, first);
        QFETCH(int, samples);
        Trial trial;
        trial.stretch.start = at(0, 9, 30);
        trial.write();
        QCOMPARE(trial.load(from, to), Outcome::Loaded);
        QCOMPARE(trial.record.n_cnt, qint64(samples));
        trial.checkTimes(first, 1);
        QCOMPARE(trial.record.start, at(0, 0).addSecs(qint64(first)));
        QCOMPARE(trial.record.stop, trial.record.start.addSecs(samples - 1));
        // A few marks to find the ends, and the samples.
        QVERIFY2(trial.loader.bytesRead() < samples * 12 + 100 * 12,
            qPrintable(QString::number(trial.loader.bytesRead())));
    }

    void sparseSamplesKeepTheirTimes()
    {
        // 7 s do not fit into a day: the first sample of a later day comes after its midnight.
        Trial trial;
        trial.stretch.start = at(0, 9, 30);
        trial.stretch.interval = 7;
        trial.write();
        QCOMPARE(trial.load(at(1, 0), at(1, 12)), Outcome::Loaded);
        const qint64 first = 86400 + (7 - (86400 - 34200) % 7);
        QCOMPARE(trial.record.t[0], double(first));
        QCOMPARE(trial.record.start, at(0, 0).addSecs(first));
        QVERIFY(trial.record.stop <= at(1, 12));
        QVERIFY(trial.record.stop > at(1, 11, 59, 53));
        NEAR(trial.record.Kdec, 7.0);
    }

    void rateOfMarksIsEstimated()
    {
        // The structure says 1000 ms, the marks count 100 ms.
        Trial trial;
        trial.stretch.stop = at(0, 10);
        trial.stretch.dT = 100;
        trial.write();
        trial.patch<qint16>(0, 43, 1000);
        QCOMPARE(trial.load(at(0, 5), at(0, 6)), Outcome::Loaded);
        QCOMPARE(trial.record.n_cnt, qint64(3601));
        QCOMPARE(trial.record.t[0], 180000.0);
        QCOMPARE(trial.record.start, at(0, 5));
        QCOMPARE(trial.record.stop, at(0, 6));
    }

    void halfSecondMarks()
    {
        Trial trial;
        trial.stretch.stop = at(0, 1);
        trial.stretch.dT = 500;
        trial.write();
        trial.patch<qint16>(0, 40, 2);
        QCOMPARE(trial.load(at(0, 0, 30), at(0, 1)), Outcome::Loaded);
        trial.checkTimes(1800, 1);
        QCOMPARE(trial.record.n_cnt, qint64(1801));
        NEAR(trial.record.Kdec, 1.0);
    }

    void decimation_data()
    {
        QTest::addColumn<int>("kdec");
        QTest::addColumn<qint64>("mostBytes");
        QTest::newRow("through a block") << 7 << qint64(3 * 86400 * 12 + 1000);
        QTest::newRow("one by one") << 1000 << qint64(260 * 12 + 1000);
        QTest::newRow("fewer than one a day") << 100000 << qint64(1000);
    }
    void decimation()
    {
        QFETCH(int, kdec);
        QFETCH(qint64, mostBytes);
        Trial trial;
        trial.write();
        QCOMPARE(trial.load(at(0, 0), at(2, 23, 59, 59), kdec), Outcome::Loaded);
        QCOMPARE(trial.record.n_cnt, qint64((3 * 86400 - 1) / kdec + 1));
        trial.checkTimes(0, kdec); // without a break at midnight
        NEAR(trial.record.Kdec, double(kdec));
        QCOMPARE(trial.record.stop, at(0, 0).addSecs((trial.record.n_cnt - 1) * kdec));
        QVERIFY(trial.loader.bytesRead() < mostBytes);
    }

    void severalStructuresADay()
    {
        Trial trial;
        for (const int hour : {1, 5, 9}) {
            trial.stretch.start = at(0, hour);
            trial.stretch.stop = at(0, hour + 4); // the next one begins in the same second
            trial.stretch.measured = QString("from %1 UUUUU").arg(hour); // as the marker's bytes
            trial.write();
        }
        for (const int hour : {1, 5, 9}) {
            trial.stretch.start = at(0, hour);
            QCOMPARE(trial.load(at(0, hour), at(0, hour + 2)), Outcome::Loaded);
            QCOMPARE(trial.record.meas_sig, QString("from %1 UUUUU").arg(hour));
            QCOMPARE(trial.record.n_cnt, qint64(7201));
            trial.checkTimes(hour * 3600, 1);
        }
        trial.stretch.start = QDateTime();
        QCOMPARE(trial.load(at(0, 0), at(0, 2)), Outcome::Loaded); // none encloses: the first that overlaps
        QCOMPARE(trial.record.start, at(0, 1));
        QCOMPARE(trial.load(at(0, 20), at(0, 21)), Outcome::Failed);
    }

    void openRecording_data()
    {
        QTest::addColumn<QByteArray>("tail");
        QTest::addColumn<int>("kept");
        const auto tail = [](std::initializer_list<qint32> marks) {
            QByteArray bytes;
            for (const qint32 mark : marks)
                appendSample(&bytes, {mark, 0.0});
            return bytes;
        };
        QTest::newRow("clean") << QByteArray() << 0;
        QTest::newRow("half a sample") << QByteArray(7, '\1') << 0;
        QTest::newRow("marks below") << tail({100000, 99999}) << 0;
        QTest::newRow("marks before the recording") << tail({-7, -6}) << 0;
        QTest::newRow("marks of another day") << tail({2000000000, 2000000001}) << 0;
        QTest::newRow("one more") << tail({158401}) << 1;
    }
    void openRecording()
    {
        QFETCH(QByteArray, tail);
        QFETCH(int, kept);
        Trial trial;
        trial.stretch.start = at(0, 22);
        trial.stretch.stop = at(1, 20);
        trial.stretch.finished = false;
        trial.write();
        trial.replace(1, ".dat", trial.bytes(1, ".dat") + tail);
        // The index knows no end: it tells the start text of the last day.
        QCOMPARE(trial.load(at(0, 22), at(1, 0), 1, true), Outcome::Loaded);
        QCOMPARE(trial.record.n_cnt, qint64(22 * 3600 + 1 + kept));
        QCOMPARE(trial.record.stop, at(1, 20, 0, kept));
        QCOMPARE(trial.load(at(0, 22), at(1, 3)), Outcome::Loaded);
        QCOMPARE(trial.record.stop, at(1, 3));
    }

    void damagedOffsets_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<qint32>("value");
        QTest::addColumn<qint64>("samples");
        const int start = 36, end = 50;
        QTest::newRow("negative start") << start << -5 << qint64(3601);
        QTest::newRow("start beyond the end") << start << 100000000 << qint64(0);
        QTest::newRow("start not of a sample") << start << 13 << qint64(3601 - 2);
        QTest::newRow("negative end") << end << -12 << qint64(3601);
        QTest::newRow("end beyond the end") << end << 100000000 << qint64(3601);
        QTest::newRow("end not of a sample") << end << 121 << qint64(10);
    }
    void damagedOffsets()
    {
        QFETCH(int, field);
        QFETCH(qint32, value);
        QFETCH(qint64, samples);
        Trial trial;
        trial.stretch.stop = at(0, 1);
        trial.write();
        trial.patch<qint32>(0, field, value);
        QCOMPARE(trial.load(at(0, 0), at(0, 1)), samples > 0 ? Outcome::Loaded : Outcome::Failed);
        QCOMPARE(trial.record.n_cnt, samples);
        const auto& message = trial.loader.messages().value(0);
        QCOMPARE(message.title, QString("Ошибки чтения данных измерения  "));
        QVERIFY2(message.text.contains(trial.file(0, ".dat")), qPrintable(message.text));
        QVERIFY2(message.text.contains(QString::number(value)), qPrintable(message.text));
    }

    void recordingBehindASampleCutShort()
    {
        Trial trial;
        trial.stretch.stop = at(0, 1);
        trial.write();
        trial.replace(0, ".dat", trial.bytes(0, ".dat") + "torn");
        trial.stretch.start = at(0, 2);
        trial.stretch.stop = at(0, 3);
        for (const bool finished : {true, false}) {
            trial.stretch.finished = finished;
            trial.write();
            QCOMPARE(trial.load(trial.stretch.start, trial.stretch.stop), Outcome::Loaded);
            QCOMPARE(trial.record.n_cnt, qint64(3601));
            trial.checkTimes(trial.record.start.time().hour() * 3600, 1);
            QVERIFY(trial.loader.messages().isEmpty());
            trial.stretch.start = at(0, 4);
            trial.stretch.stop = at(0, 5);
        }
    }

    void manyDamagedDaysMakeOneMessage()
    {
        Trial trial;
        trial.stretch.stop = at(29, 1);
        trial.stretch.interval = 600;
        trial.write();
        for (int day = 0; day < 30; ++day)
            trial.patch<qint32>(day, 50, 1000000);
        trial.load(at(0, 0), at(29, 1));
        QCOMPARE(trial.loader.messages().size(), 1);
        QCOMPARE(trial.loader.messages()[0].text.count('\n'), 10);
    }

    void missingFiles()
    {
        Trial trial;
        trial.write();
        trial.index();
        QVERIFY(QFile::rename(trial.file(1, ".dat"), trial.file(1, ".off")));
        QCOMPARE(trial.load(at(0, 0), at(2, 1)), Outcome::Failed);
        QVERIFY(trial.loader.messages()[0].text.endsWith(".dat файл не открывается!!!"));
        QVERIFY(QDir().mkdir(trial.file(1, ".dat")));
        QCOMPARE(trial.load(at(0, 0), at(2, 1)), Outcome::Failed);
        QCOMPARE(trial.record.n_cnt, qint64(0));
        trial.replace(1, ".inf", trial.bytes(1, ".inf") + QByteArray(1, ' ')); // 347 bytes
        QCOMPARE(trial.load(at(0, 0), at(2, 1)), Outcome::Failed);
        QCOMPARE(trial.loader.messages()[0].title, QString("Ошибки чтения информации о записи  "));
        QVERIFY(trial.loader.messages()[0].text.startsWith("структура № 1\n"));
        QCOMPARE(trial.load(QDateTime(), at(0, 0)), Outcome::Failed);
        QCOMPARE(trial.load(at(1, 0), at(0, 0)), Outcome::Failed);
    }

    void shortDays()
    {
        Trial trial;
        trial.stretch.lost = [](int day) { return day != 1; };
        trial.write();
        const QByteArray whole = trial.bytes(1, ".dat");
        for (const int day : {0, 1, 2}) {
            trial.replace(day, ".dat", whole.left(12 * 80000));
            trial.patch<qint32>(day, 50, 12 * 80000);
        }
        QStringList told;
        trial.loader.tellShortDay = [&told](const QString& text) {
            told << text;
            return told.size() < 2;
        };
        QCOMPARE(trial.load(at(0, 0), at(2, 23, 59, 59)), Outcome::Loaded);
        QCOMPARE(told.size(), 2);
        QVERIFY(
            told[1].startsWith("Количество отсчетов за 02.03.2026 в записи измерений в канале №1\n меньше"));
        told.clear();
        trial.load(at(0, 1), at(1, 22)); // no whole day
        QVERIFY(told.isEmpty());

        // The file ends before its size said.
        trial.loader.tellShortDay = [&](const QString&) {
            return QFile::resize(trial.file(0, ".dat"), 1200 + 5);
        };
        QCOMPARE(trial.load(at(0, 0), at(2, 23, 59, 59)), Outcome::Partial);
        QCOMPARE(trial.record.n_cnt, qint64(100));
        QCOMPARE(trial.record.n_days, 1);
        QCOMPARE(trial.record.t.DayLengths.constLast(), 100);
        QVERIFY(trial.loader.messages()[0].text.startsWith("Ошибки чтения данных "));
    }

    void marksThatBeginAnewAtMidnight()
    {
        Trial trial;
        trial.stretch.start = at(0, 1);
        trial.write();
        for (const int day : {1, 2}) {
            QByteArray dat;
            for (qint32 mark = 0; mark < 86400; ++mark)
                appendSample(&dat, {mark, (mark + day * 86400) * 1e-3});
            trial.replace(day, ".dat", dat);
        }
        QCOMPARE(trial.load(at(0, 1), at(2, 23, 59, 59)), Outcome::Loaded);
        trial.checkTimes(3600, 1);
        QCOMPARE(trial.load(at(1, 12), at(1, 13)), Outcome::Loaded);
        QCOMPARE(trial.record.start, at(1, 12));
    }

    void canBeStopped()
    {
        Trial trial;
        trial.write();
        QVector<double> shares;
        trial.loader.progress = [&shares](double share) {
            shares << share;
            return shares.size() < 2;
        };
        QCOMPARE(trial.load(at(0, 0), at(2, 1)), Outcome::Stopped);
        QCOMPARE(trial.record.n_cnt, qint64(0));
        QVERIFY(!trial.record.num_in_days);
        NEAR(shares.value(1), 2.0 / 3.0);
    }

    void olderForm()
    {
        Trial trial(2);
        trial.stretch.channel = 5;
        trial.stretch.stop = at(1, 1);
        trial.write();
        QCOMPARE(trial.load(at(0, 0), at(1, 1)), Outcome::Loaded);
        QCOMPARE(trial.record.devType, quint16(7));
        QCOMPARE(trial.record.n_cnt, qint64(86400 + 3601));
        NEAR(trial.record.x[1000], -1e-6);
        NEAR(trial.record.Kdec, 1.0);
    }

    void randomBytes()
    {
        Trial trial;
        trial.stretch.stop = at(0, 0, 10);
        trial.write();
        const QByteArray good = trial.bytes(0, ".inf");
        quint32 random = 7;
        const auto next = [&random] { return random = random * 1664525u + 1013904223u; };
        int loaded = 0;
        for (int round = 0; round < 300; ++round) {
            QByteArray bad = good;
            for (int i = 0; i < 6; ++i)
                bad[int(next() % unsigned(bad.size()))] = char(next() >> 24);
            bad.truncate(int(next() % 400));
            trial.replace(0, ".inf", bad);
            loaded += trial.load(at(0, 0), at(0, 0, 10), 1, round % 2) == Outcome::Loaded;
            QVERIFY(trial.record.n_cnt <= 601);
            QVERIFY(trial.record.n_cnt > 0 || trial.loader.messages().size() > 0);
        }
        QVERIFY(loaded > 0);
    }
};

QTEST_GUILESS_MAIN(tst_RecordingLoad)
#include "tst_recordingload.moc"
