#include "base/globals.h"
#include "load/core/configfile.h"
#include "load/core/recententry.h"
#include "load/core/recentrecsparser.h"
#include "load/core/settings.h"
#include "loadingdialog.h"
#include "support/near.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QTableWidget>
#include <QTimer>

namespace {

/// The first record sent since `from`, by its last value.
double lastValue(const LoadingDialog& b, int from)
{
    Record* rec = b.records.value(from);
    return rec ? rec->x[int(rec->n_cnt) - 1] : -1.0;
}

struct Bench : LoadingDialog {
    QTableWidget* table() { return get<QTableWidget>("RecRecsTable"); }
    void load(const char* name, const QByteArray& content)
    {
        form.openFile(home.write(name, content));
        forward();
    }
    void showRecent()
    {
        form.myshow(nullptr);
        click("RecRecsMenu");
    }
};

} // namespace

class TestRecentPage : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QLoggingCategory::setFilterRules("default.debug=false"); }

    void columnOfAnEntry()
    {
        // Newest first: a load of three columns from channel 4, another file, one from channel 1 of which the
        // oldest entry has dropped off.
        QVector<RecentRecs> entries;
        const auto add = [&entries](const char* file, int channel) {
            RecentRecs entry;
            entry.type = recentAscii;
            entry.dir = QDir(file);
            entry.ch = short(channel);
            entries << entry;
        };
        for (const int channel : {4, 6, 5})
            add("/a", channel);
        add("/b", 1);
        for (const int channel : {1, 3})
            add("/a", channel);
        QVector<int> columns;
        for (const RecentRecs& entry : entries)
            columns << recentColumn(entries, entry, 3);
        QCOMPARE(columns, QVector<int>({0, 2, 1, 0, 0, 2}));
        entries.last().column = 1; // told, so it is not guessed
        QCOMPARE(recentColumn(entries, entries.last(), 3), 1);
        QCOMPARE(recentColumn(entries, entries.last(), 1), 0);
        entries.first().ch = 30;
        QCOMPARE(recentColumn(entries, RecentRecs(), 3), 0);
    }

    void intervalOfAnEntry_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<int>("num");
        QTest::addColumn<double>("span"); // s
        QTest::addColumn<double>("interval");
        QTest::newRow("with times") << "[t] [x]" << 11 << 101.0 << 1.0;
        QTest::newRow("ten") << "[x]" << 11 << 101.0 << 10.0;
        QTest::newRow("tenth, rounded") << "[x]" << 86401 << 8641.0 << 0.1;
        QTest::newRow("exact") << "[x]" << 10001 << 12346.0 << 1.2345;
        QTest::newRow("one sample") << "[x]" << 1 << 1.0 << 1.0;
        QTest::newRow("backwards") << "[x]" << 5 << -100.0 << 1.0;
    }
    void intervalOfAnEntry()
    {
        QFETCH(QString, format);
        QFETCH(int, num);
        QFETCH(double, span);
        QFETCH(double, interval);
        RecentRecs entry;
        entry.format = format;
        entry.num = num;
        entry.start = QDateTime(QDate(2023, 1, 1), QTime(0, 0));
        entry.stop = entry.start.addMSecs(qint64(span * 1000));
        if (interval == 1.2345)
            QVERIFY(qAbs(recentInterval(entry) - interval) * num <= 1.0);
        else
            NEAR(recentInterval(entry), interval);
    }

    void entersEachColumn()
    {
        Bench b;
        b.load("three.txt", "0 1 10\n1 2 20\n");
        QCOMPARE(NumRecentRecs, 2);
        const RecentRecs newest = recentRecords().first();
        QCOMPARE(int(newest.type), 2);
        QCOMPARE(int(newest.ch), 1);
        QCOMPARE(newest.dir.path(), b.home.file("three.txt"));
        QCOMPARE(newest.format, QString("[t] [x] [y]"));
        QCOMPARE(int(newest.num), 2);
        Reopening = true;
        b.forward();
        QCOMPARE(NumRecentRecs, 2);
    }

    void loadsCheckedRows()
    {
        Bench b;
        b.form.myshow(nullptr);
        QVERIFY(!b.get<QAbstractButton>("RecRecsMenu")->isEnabled());
        b.form.openFile(b.home.write("a.txt", "0 1\n1 2\n"));
        b.field("file_LE_PhaseK")->setText("1.23456789e-3");
        b.field("file_LE_RefName")->setText("Мазер");
        b.field("file_LE_Interv")->setText("0.1");
        b.field("file_LE_Band")->setText("3");
        b.forward();
        b.field("file_LE_RefName")->setText("Reference signal");
        b.field("file_LE_Band")->setText("10");
        b.load("b.txt", "0 3 30\n1 4 40\n");
        // As after a new start of the program.
        QString error;
        QVERIFY(writeSettings(b.home.file("config/recfiles.xml"), Settings(), recentRecords(), &error));
        setRecentRecords({});
        QVERIFY2(readRecentRecs(b.home.file("config/recfiles.xml"), &error), qPrintable(error));
        b.records.clear();
        b.showRecent();
        QVERIFY(b.get<QAbstractButton>("RecRecsMenu")->isEnabled());
        QCOMPARE(int(b.form.srcMode), 5);
        QCOMPARE(b.table()->rowCount(), 3);
        QCOMPARE(b.table()->item(0, 0)->text(), QString("Reference signal - Measured signal"));
        QCOMPARE(b.table()->item(1, 1)->text(), QString("2"));
        b.forward();
        QVERIFY(b.records.isEmpty() && b.status().startsWith("Отметьте"));
        for (const int row : {1, 2})
            b.table()->item(row, 0)->setCheckState(Qt::Checked);
        b.forward();
        QCOMPARE(b.records.size(), 2);
        NEAR(lastValue(b, 0), 40e-6); // the second column of b.txt
        NEAR(lastValue(b, 1), 2.46913578e-3);
        const Record& a = *b.records.at(1);
        QCOMPARE(a.ref_sig, QString("Мазер"));
        QCOMPARE(a.meas_sig, QString("Measured signal"));
        NEAR(a.Kdec, 0.1);
        QCOMPARE(a.Band, 3);
        QVERIFY(b.form.isHidden() && !SLEEP && !Reopening);
        QCOMPARE(NumRecentRecs, 3);
        b.form.myshow(nullptr);
        QCOMPARE(int(b.form.srcMode), 5);
        emit b.table()->itemDoubleClicked(b.table()->item(0, 3));
        NEAR(lastValue(b, 2), 4e-6);
    }

    void missingFiles()
    {
        Bench b;
        b.load("a.txt", "0 1\n1 2\n");
        b.load("b.txt", "0 3\n1 4\n");
        b.records.clear();
        QVERIFY(QFile::remove(b.home.file("b.txt")));
        b.showRecent();
        QVERIFY(b.table()->item(0, 0)->toolTip().contains("Файла с таким именем нет."));
        QVERIFY(b.table()->item(0, 0)->foreground() != b.table()->item(1, 0)->foreground());
        for (const int row : {0, 1})
            b.table()->item(row, 0)->setCheckState(Qt::Checked);
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QVERIFY(b.said().startsWith("Не удалось открыть файл\n"));
        QCOMPARE(b.records.size(), 1);
        QVERIFY(b.form.isVisible() && b.status().contains("1 из 2"));
        QCOMPARE(b.table()->item(0, 0)->checkState(), Qt::Checked);
        QCOMPARE(b.table()->item(1, 0)->checkState(), Qt::Unchecked);
    }

    void stopEndsTheBatch()
    {
        Bench b;
        b.load("a.txt", "0 1\n1 2\n");
        b.load("b.txt", "0 3\n1 4\n");
        b.records.clear();
        b.showRecent();
        for (const int row : {0, 1})
            b.table()->item(row, 0)->setCheckState(Qt::Checked);
        auto* stop = b.get<QAbstractButton>("Btn_Stop");
        QTimer timer;
        connect(&timer, &QTimer::timeout, [stop, &timer] {
            if (!stop->isVisible())
                return;
            stop->click();
            timer.stop();
        });
        timer.start(0);
        b.forward();
        QVERIFY(!timer.isActive() && b.records.size() < 2);
        QCOMPARE(b.table()->item(1, 0)->checkState(), Qt::Checked);
        QVERIFY(b.form.isVisible() && !SLEEP && b.status().startsWith("Не загружены"));
    }

    void givesOneRecord()
    {
        Bench b;
        RecentRecs entry;
        entry.type = recentAscii;
        entry.dir = QDir(b.home.write("a.txt", "5\n6\n7\n"));
        entry.format = QStringLiteral("[x]");
        entry.start = QDateTime(QDate(2023, 2, 1), QTime(0, 0, 10));
        entry.stop = entry.start.addSecs(21);
        entry.num = 3;
        entry.ch = 9;
        entry.devType = 16;
        SLEEP = true;
        b.form.GiveSpecRec(entry);
        QVERIFY(b.records.isEmpty());
        SLEEP = false;
        b.form.GiveSpecRec(entry);
        QCOMPARE(b.records.size(), 1);
        Record* rec = b.records.first();
        QCOMPARE(rec->ch, 9);
        QCOMPARE(int(rec->devType), 16);
        QCOMPARE(rec->start, entry.start);
        NEAR(rec->Kdec, 10.0);
        NEAR(rec->x[2], 7e-6);
        QCOMPARE(NumRecentRecs, 0);
        QCOMPARE(b.field("file_LE_Path")->text(), entry.dir.path());
        QVERIFY(b.form.isHidden() && b.allAdded.count() == 1);
    }

    void refused_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("text");
        const QString misfit =
            "Формат чтения файла указан некорректно,\nпопробуйте открыть файл через окно загрузки данных";
        QTest::newRow("fault") << 2 << "[t] [x" << misfit;
        QTest::newRow("no data") << 2 << "[t]" << misfit;
        QTest::newRow("no line fits") << 2 << "[t];[x]" << misfit;
        QTest::newRow("no directory") << 1 << ""
                                      << "Не удалось открыть каталог\n";
        QTest::newRow("damaged entry") << 0 << ""
                                       << "Запись не загружена: ";
    }
    void refused()
    {
        QFETCH(int, type);
        QFETCH(QString, format);
        QFETCH(QString, text);
        Bench b;
        RecentRecs entry;
        entry.type = short(type);
        entry.dir = QDir(b.home.write("a.txt", "one two\n"));
        if (type == 0)
            entry.dir = QDir(QFileInfo(entry.dir.path()).path());
        entry.format = format;
        entry.start = QDateTime(QDate(2023, 2, 1), QTime(0, 0));
        b.prompts.press(QDialogButtonBox::Ok);
        b.form.GiveSpecRec(entry);
        QVERIFY2(b.said().startsWith(text), qPrintable(b.said()));
        QVERIFY(b.records.isEmpty() && !SLEEP && !Reopening && b.allAdded.isEmpty());
    }

    void fullTable()
    {
        Bench b;
        b.load("a.txt", "0 1\n1 2\n");
        b.records.clear();
        b.room = 1;
        b.form.openFile(b.home.write("wide.txt", "0 1 2 3\n1 2 3 4\n"));
        b.form.addNewFormat("[t] [x] [y] [z]");
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QCOMPARE(b.records.size(), 1);
        QCOMPARE(b.said(),
            QString(
                "В таблице нет места. Не загружены записи:\nwide.txt, столбец z, канал 3\nwide.txt, столбец "
                "x, канал 1"));
        QCOMPARE(NumRecentRecs, 3); // also the one for which there was no place

        b.room = 0;
        b.records.clear();
        b.showRecent();
        b.table()->item(0, 0)->setCheckState(Qt::Checked);
        b.forward(); // the table itself tells of one record
        QVERIFY(b.records.isEmpty() && b.form.isVisible());
    }
};

QTEST_MAIN(TestRecentPage)
#include "tst_recentpage.moc"
