#include "base/globals.h"
#include "load/channeltable.h"
#include "loadingdialog.h"
#include "prompt/warndiag.h"
#include "samples/recording.h"
#include "store/core/mapstruct.h"
#include "store/schedule.h"
#include "support/near.h"

#include <QCompleter>
#include <QDateEdit>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QLoggingCategory>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>

#include <memory>
#include <vector>

namespace {

const QDate first(2023, 2, 1);

QDateTime at(int day, int hour, int minute = 0)
{
    return QDateTime(first.addDays(day), QTime(hour, minute));
}

struct Bench : LoadingDialog {
    QString directory = home.file(QStringLiteral("rec"));

    /// Copies of what was sent: the chart keeps no record.
    std::vector<std::unique_ptr<Record>> kept;

    Bench()
    {
        QDir().mkpath(directory);
        QObject::connect(&form, &OpenFileGlobForm::RecReady, [this](Record* rec) {
            kept.push_back(std::make_unique<Record>());
            copyRecord(rec, kept.back().get());
        });
    }

    /// A recording of channel 2 over midnight, a sample each 10 s, and one of channel 5.
    void record()
    {
        RecordingWriter writer{QDir(directory)};
        RecordingWriter::Stretch stretch;
        stretch.interval = 10;
        stretch.channel = 2;
        stretch.start = at(0, 22);
        stretch.stop = at(1, 3);
        stretch.value = [](qint64 mark) { return double(mark); };
        QVERIFY(writer.write(stretch));
        stretch.channel = 5;
        stretch.start = at(1, 6);
        stretch.stop = at(1, 7);
        QVERIFY(writer.write(stretch));
    }
    ChannelTable* channels() { return get<ChannelTable>("kat_chanTab"); }
    QPushButton* forwardButton() { return get<QPushButton>("Btn_ViewRecList"); }
    void fill(int days, const QByteArray& mask)
    {
        form.srcMode = OpenFileGlobForm::FolderParameters;
        form.myshow(nullptr);
        field("kat_LE_Path")->setText(directory);
        get<QDateEdit>("kat_DE_Date1")->setDate(first);
        get<QDateEdit>("kat_DE_Date2")->setDate(first.addDays(days));
        channels()->setMask(mask);
    }
    void press(int column)
    {
        QTest::mouseClick(channels()->viewport(), Qt::LeftButton, {},
            channels()->visualRect(channels()->model()->index(0, column)).center());
    }
    void showChart()
    {
        fill(1, QByteArray("\x12\0", 2));
        forward();
        QCOMPARE(int(form.srcMode), 4);
    }
};

} // namespace

class TestFolderPage : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QLoggingCategory::setFilterRules("default.debug=false"); }

    void page()
    {
        Bench b;
        b.form.myshow(nullptr);
        QTest::mousePress(b.get<QPushButton>("FromFolderButton"), Qt::LeftButton);
        QCOMPARE(int(b.form.srcMode), 1);
        QVERIFY(b.get<QPushButton>("FromFolderButton")->isChecked());
        QCOMPARE(b.form.size(), QSize(605, 364));
        QCOMPARE(b.forwardButton()->text(), QString("Далее"));
        QCOMPARE(b.get<QLabel>("HelpText")->text(),
            QString("Загрузка данных измерений из каталога.\nДля выбора записей следует указать каталог с "
                    "файлами данных (*.inf, *.dat) "));
    }

    void channels()
    {
        Bench b;
        b.fill(0, {});
        QCOMPARE(b.channels()->columnCount(), 16);
        QVERIFY(!b.channels()->isColumnHidden(7) && b.channels()->isColumnHidden(8));
        b.click("kat_selectAllChanBtn");
        QCOMPARE(b.channels()->mask(), QByteArray("\xff\0", 2));
        b.prop.extChannels = true;
        b.form.setProp(&b.prop);
        QVERIFY(!b.channels()->isColumnHidden(15));
        b.click("kat_selectAllChanBtn");
        QCOMPARE(b.channels()->mask(), QByteArray("\xff\xff"));
        b.prop.extChannels = false;
        b.form.setProp(&b.prop);
        QCOMPARE(b.channels()->chosenCount(), 8); // no channel is chosen out of sight
        b.click("kat_deselectAllChanBtn");
        QCOMPARE(b.channels()->chosenCount(), 0);
        b.press(2);
        b.press(7);
        b.press(2);
        b.press(0);
        QTest::keyClick(b.channels(), Qt::Key_Right);
        QTest::keyClick(b.channels(), Qt::Key_Space);
        QCOMPARE(b.channels()->mask(), QByteArray("\x83\0", 2));
        auto* head = b.channels()->horizontalHeader();
        QTest::mouseClick(head->viewport(), Qt::LeftButton, {},
            {head->sectionViewportPosition(7) + head->sectionSize(7) / 2, head->height() / 2});
        QCOMPARE(b.channels()->mask(), QByteArray("\x03\0", 2));
        b.form.headerItemClicked(8);
        b.form.headerItemClicked(-1);
        QCOMPARE(b.channels()->chosenCount(), 2);
    }

    void checks_data()
    {
        QTest::addColumn<int>("days");
        QTest::addColumn<int>("mask");
        QTest::addColumn<int>("asks"); // 1: and the answer is no
        QTest::addColumn<QString>("status");
        QTest::newRow("550 days, 2 channels") << 550 << 3 << 1 << QString();
        QTest::newRow("1099 days, 1 channel") << 1099 << 1 << 0 << QString();
        QTest::newRow("157 days, 7 channels") << 157 << 0x7f << 0 << QString(); // 1099
        QTest::newRow("100 days, 11 channels") << 100 << 0x7ff << 1 << QString();
        QTest::newRow("backwards") << -1 << 3 << 0 << "Первый день позже последнего.";
        QTest::newRow("no channel") << 1 << 0 << 0 << "Не выбран ни один канал.";
        QTest::newRow("a century") << 36500 << 1 << 0 << "Слишком много дней: можно указать не больше 32767.";
    }
    void checks()
    {
        QFETCH(int, days);
        QFETCH(int, mask);
        QFETCH(int, asks);
        QFETCH(QString, status);
        Bench b;
        b.prop.extChannels = true;
        b.form.setProp(&b.prop);
        const char bits[] = {char(mask & 0xff), char(mask >> 8)};
        b.fill(days, QByteArray(bits, 2));
        phKoefUser = 1.0;
        // Without a file the index tells what it misses.
        if (status.isEmpty())
            b.prompts.press(asks ? QDialogButtonBox::Cancel : QDialogButtonBox::Ok);
        b.forward();
        NEAR(phKoefUser, 1e-6);
        QCOMPARE(b.status(), status);
        QCOMPARE(b.prompts.seen.size(), status.isEmpty() ? 1 : 0);
        QCOMPARE(int(b.form.srcMode), asks || !status.isEmpty() ? 1 : 4);
        if (asks)
            QVERIFY2(b.said().contains(QString("за %1 суток для %2 каналов.\nОбработка может занять "
                                               "продолжительное время.\nВы уверены, что даты введены "
                                               "корректно?")
                                           .arg(days)
                                           .arg(b.channels()->chosenCount())),
                qPrintable(b.said()));
        else if (status.isEmpty())
            QCOMPARE(int(b.form.map->days()), days + 1);
    }

    void directories_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("detail");
        QTest::newRow("none") << ""
                              << "Каталог не указан.";
        QTest::newRow("gone") << "/no/such"
                              << "Каталога с таким именем нет.";
        QTest::newRow("file") << "/dev/null"
                              << "Это не каталог.";
    }
    void directories()
    {
        QFETCH(QString, path);
        QFETCH(QString, detail);
        Bench b;
        b.fill(1, QByteArray("\1\0", 2));
        b.field("kat_LE_Path")->setText(path);
        QStringList details;
        b.closeNext(&details);
        b.forward();
        QCOMPARE(b.said(), QString("в данный момент выбранный каталог не доступен"));
        QCOMPARE(details.last(), detail);
        QCOMPARE(int(b.form.srcMode), 1);
    }

    void chartAndBack()
    {
        Bench b;
        b.record();
        b.prompts.press(QDialogButtonBox::Ok); // channel 5 has no file on the first day
        b.showChart();
        QVERIFY(b.said().startsWith("Не удалось найти файлы:"));
        QCOMPARE(b.form.kat_date1, first);
        QCOMPARE(b.form.kat_date2, first.addDays(1));
        QCOMPARE(b.form.kat_channels, QByteArray("\x12\0", 2));
        QCOMPARE(b.form.kat_channelCount, 2);
        QCOMPARE(b.form.kat_dir.absolutePath(), b.directory);
        QCOMPARE(b.form.map->kinds, QByteArray("gcg"));
        QVERIFY(b.form.sch->shown && b.form.sch->isVisible() && AcceptScheduleEvents);
        QCOMPARE(b.form.size(), QSize(1040, 613).boundedTo(b.form.screen()->availableSize() - QSize(0, 36)));
        QCOMPARE(b.forwardButton()->text(), QString("Назад"));
        QVERIFY(b.get<QWidget>("MenuFrame")->isHidden());
        b.click("ViewTabl_btn");
        QVERIFY(b.get<QTableWidget>("tableWidget")->isVisible());
        SLEEP = true;
        for (const char* pressed : {"ViewSch_btn", "ViewTabl_btn"}) {
            b.click(pressed);
            QVERIFY(b.get<QPushButton>("ViewTabl_btn")->isChecked());
        }
        SLEEP = false;
        b.click("ViewSch_btn");
        QVERIFY(b.get<QWidget>("graphicsView")->isVisible());
        b.forward();
        QCOMPARE(int(b.form.srcMode), 1);
        QCOMPARE(b.form.size(), QSize(605, 364));
        QCOMPARE(b.forwardButton()->text(), QString("Далее"));
        QVERIFY(!b.form.sch->shown && b.get<QWidget>("MenuFrame")->isVisible());
        QCOMPARE(b.field("kat_LE_Path")->completer()->model()->index(0, 0).data().toString(), b.directory);
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QCOMPARE(int(b.form.srcMode), 4);
        b.form.hide();
        b.form.myshow(nullptr);
        QCOMPARE(int(b.form.srcMode), 1);
    }

    void stoppedIndex()
    {
        Bench b;
        b.fill(1, QByteArray("\xff\0", 2));
        auto* stop = b.get<QPushButton>("Btn_Stop");
        QTimer timer;
        connect(&timer, &QTimer::timeout, [stop] {
            if (stop->isVisible())
                stop->click();
        });
        timer.start(0);
        b.forward();
        QCOMPARE(b.status(), QString("Чтение каталога прервано."));
        QCOMPARE(int(b.form.srcMode), 1);
        QVERIFY(!SLEEP && b.get<QWidget>("kat_chanTab")->isEnabled());
    }

    void recordingFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("date"); // empty: refused
        QTest::addColumn<int>("mask");
        QTest::newRow("channel 2") << "230201_02.inf"
                                   << "2023-02-01" << 2;
        QTest::newRow("a numbered one") << "230201_02_(3).inf"
                                        << "2023-02-01" << 2;
        QTest::newRow("channel 0") << "230201_00.inf"
                                   << "2023-02-01" << 1;
        QTest::newRow("channel 16") << "230201_16.INF"
                                    << "2023-02-01" << 0x8000;
        QTest::newRow("channel 17") << "230201_17.inf"
                                    << "" << 0;
        QTest::newRow("1951") << "510201_01.inf"
                              << "1951-02-01" << 1;
        QTest::newRow("2050") << "500201_01.inf"
                              << "2050-02-01" << 1;
        QTest::newRow("no day") << "230231_01.inf"
                                << "" << 0;
        QTest::newRow("no name") << "x.inf"
                                 << "" << 0;
        QTest::newRow("nothing else") << ".inf"
                                      << "" << 0;
    }
    void recordingFile()
    {
        QFETCH(QString, name);
        QFETCH(QString, date);
        QFETCH(int, mask);
        Bench b;
        b.form.openFile(b.home.write("rec/" + name, {}));
        QCOMPARE(b.forwardButton()->text(), QString("Далее"));
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QCOMPARE(int(b.form.srcMode), date.isEmpty() ? 2 : 4);
        if (date.isEmpty()) {
            QVERIFY(b.said().startsWith("Имя файла записи"));
            return;
        }
        QCOMPARE(b.form.kat_date1.toString(Qt::ISODate), date);
        QCOMPARE(b.form.kat_date2, b.form.kat_date1);
        const char bits[] = {char(mask & 0xff), char(mask >> 8)};
        QCOMPARE(b.form.kat_channels, QByteArray(bits, 2));
        QCOMPARE(b.form.kat_channelCount, 1);
        QCOMPARE(b.form.kat_dir.absolutePath(), b.directory);
        b.forward();
        QCOMPARE(int(b.form.srcMode), 2);
        QCOMPARE(b.forwardButton()->text(), QString("Далее"));
    }

    void droppedDirectory()
    {
        Bench b;
        b.form.myshow(nullptr);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(b.directory)});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b.form, &enter);
        QDropEvent drop(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b.form, &drop);
        QCOMPARE(int(b.form.srcMode), 1);
        QCOMPARE(b.field("kat_LE_Path")->text(), b.directory);
    }

    void loadsAndReopens_data()
    {
        QTest::addColumn<int>("kdec");
        QTest::newRow("all") << 1;
        QTest::newRow("each seventh") << 7;
    }
    void loadsAndReopens()
    {
        QFETCH(int, kdec);
        Bench b;
        b.record();
        b.prompts.press(QDialogButtonBox::Ok);
        b.showChart();
        b.form.sch->tableWidgetClicked(0);
        b.form.sch->load(kdec);
        QCOMPARE(b.records.size(), 1);
        QVERIFY(b.form.isHidden() && b.allAdded.count() == 1);
        Record& loaded = *b.kept.front();
        QCOMPARE(int(loaded.n_cnt), 5 * 360 / kdec + 1);
        QCOMPARE(NumRecentRecs, 1);
        RecentRecs entry = recentRecords().first();
        QCOMPARE(entry.dir.path(), b.directory);

        const auto checkSame = [&b, &loaded] {
            Record* again = b.kept.back().get();
            QCOMPARE(again->n_cnt, loaded.n_cnt);
            QCOMPARE(again->start, loaded.start);
            QCOMPARE(again->stop, loaded.stop);
            QCOMPARE(again->meas_sig, loaded.meas_sig);
            QCOMPARE(again->ch, loaded.ch);
            NEAR(again->Kdec, loaded.Kdec);
            const int last = int(loaded.n_cnt) - 1;
            NEAR(again->t[last], loaded.t[last]);
            NEAR(again->x[last], loaded.x[last]);
        };
        b.form.GiveSpecRec(entry);
        QCOMPARE(b.records.size(), 2);
        checkSame();
        QCOMPARE(b.field("kat_LE_Path")->text(), b.directory);
        QCOMPARE(NumRecentRecs, 1);
        QVERIFY(!SLEEP);
        // What an older list does not tell: every sample is taken.
        entry.interval = 0.0;
        b.form.GiveSpecRec(entry);
        QCOMPARE(int(b.kept.back()->n_cnt), 5 * 360 + 1 - (5 * 360) % kdec);
        // The whole of it, from its start alone.
        entry = recentRecords().first();
        b.form.updRecords_slot(b.directory, entry.start, 2, entry.interval);
        QCOMPARE(b.records.size(), 4);
        checkSame();
    }

    void reopenFaults_data()
    {
        QTest::addColumn<QString>("gone");
        QTest::addColumn<QString>("text");
        QTest::newRow("inf") << "230202_02.inf"
                             << ". Невозможно открыть файл, возможно запись измерений еще не началась. "
                                "Повторите попытку позже.";
        QTest::newRow("dat") << "230202_02.dat"
                             << ". Невозможно открыть файл, возможно запись измерений еще не началась. "
                                "Повторите попытку позже.";
        QTest::newRow("no recording") << ""
                                      << "Ошибки чтения информации о записи";
    }
    void reopenFaults()
    {
        QFETCH(QString, gone);
        QFETCH(QString, text);
        Bench b;
        b.record();
        RecentRecs entry;
        entry.type = recentRecording;
        entry.dir = QDir(b.directory);
        entry.start = at(0, 22);
        entry.stop = at(1, 3);
        entry.ch = 2;
        if (gone.isEmpty()) {
            entry.start = at(1, 10);
            entry.stop = at(1, 11);
        } else {
            QVERIFY(QFile::remove(b.directory + '/' + gone));
        }
        b.prompts.press(QDialogButtonBox::Ok);
        b.form.GiveSpecRec(entry);
        QVERIFY2(b.said().contains(text), qPrintable(b.said()));
        QVERIFY(b.said().contains(b.directory + "/230202_02"));
        QVERIFY(b.records.isEmpty() && b.allAdded.isEmpty() && !SLEEP);
        for (const int channel : {-5, 0, 32767}) { // from a damaged list
            entry.ch = short(channel);
            b.prompts.press(QDialogButtonBox::Ok);
            b.form.GiveSpecRec(entry);
            QVERIFY(b.records.isEmpty() && b.said().startsWith("Запись не загружена: "));
        }
    }

    void fullTableStopsTheChart()
    {
        Bench b;
        b.record();
        b.prompts.press(QDialogButtonBox::Ok);
        b.showChart();
        b.room = 1;
        b.form.sch->updRecords(1.0); // all
        QCOMPARE(b.records.size(), 1);
        QVERIFY(b.form.isVisible() && b.allAdded.count() == 1);
        // A text file empties the index, and the chart with it.
        b.room = 32;
        b.open("0 1\n1 2\n");
        b.forward();
        QCOMPARE(b.records.size(), 2);
        QCOMPARE(b.form.map->segmentCount(), 0);
        QEvent language(QEvent::LanguageChange);
        QCoreApplication::sendEvent(b.form.sch, &language);
        QVERIFY(b.form.sch->rects.isEmpty());
    }

    void savesForTheTable()
    {
        Bench b;
        b.record();
        b.prompts.press(QDialogButtonBox::Ok);
        b.showChart();
        b.form.sch->tableWidgetClicked(2);
        b.form.sch->load(1);
        QSignalSpy saved(&b.form, &OpenFileGlobForm::RecSaved);
        QDir target(b.home.file("out"));
        QVERIFY(QDir().mkpath(target.path()));
        b.form.SaveRecsP(b.kept.front().get(), &target, 3);
        QCOMPARE(saved.takeFirst().first().toString(), QString());
        QCOMPARE(target.entryList(QDir::Files), QStringList({"230202_05_(3).dat", "230202_05_(3).inf"}));
        QDir none(b.home.file("none"));
        b.form.SaveRecsP(b.kept.front().get(), &none, 0);
        QVERIFY(saved.takeFirst().first().toString().startsWith(
            "Ошибка при открытии inf-файла. Файл не сохранён!"));
        b.form.myshow(nullptr);
        b.form.hideWindows_forUpdRec_slot(true);
        QVERIFY(b.form.isHidden());
        b.form.hideWindows_forUpdRec_slot(false);
        QVERIFY(b.form.isVisible());
    }
};

QTEST_MAIN(TestFolderPage)
#include "tst_folderpage.moc"
