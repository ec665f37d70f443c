#include "base/globals.h"
#include "load/core/winprop.h"
#include "loadingdialog.h"
#include "record/record.h"
#include "support/near.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QDropEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTranslator>
#include <QtTest>

namespace {

class Marked : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return QStringLiteral("en:") + QString::fromUtf8(text);
    }
};

using Bench = LoadingDialog;

const QByteArray plain = "# 01.02.23 00:00:10\n0 1.5\n1 2.5\n2 3.5\n";

} // namespace

class TestOpenFileGlobForm : public QObject {
    Q_OBJECT
private slots:
    // The log lines of bad files would drown the output.
    void initTestCase() { QLoggingCategory::setFilterRules("default.debug=false"); }

    void newcomerJustLoads()
    {
        Bench b;
        QVERIFY(b.get<QGroupBox>("file_paramFrame")->isHidden());
        b.open(plain);
        QVERIFY(b.form.isVisible());
        QCOMPARE(b.form.width(), 605);
        const int roomOnScreen = b.form.screen()->availableSize().height();
        QVERIFY(b.form.height() <= qMin(640, roomOnScreen));
        QVERIFY(b.form.height() >= qMin(640, roomOnScreen - 40));
        QVERIFY(b.get<QDateTimeEdit>("file_DT_StartDate")->isVisible());
        QVERIFY(b.field("file_LE_PhaseK")->isVisible() && b.field("file_LE_Interv")->isVisible());
        QCOMPARE(b.get<QComboBox>("FileFormat_byDevice")->currentText(), QString("HRL-315"));
        QCOMPARE(b.get<QComboBox>("file_Combo_Formats")->currentText(), QString("[t] [x]"));
        b.forward();
        QCOMPARE(b.records.size(), 1);
        Record* rec = b.records.first();
        QCOMPARE(rec->start, QDateTime(QDate(2023, 2, 1), QTime(0, 0, 10)));
        QCOMPARE(rec->n_cnt, 3);
        NEAR(rec->t[0], 10.0);
        NEAR(rec->x[2], 3.5e-6);
        QCOMPARE(rec->ch, 1);
        QCOMPARE(rec->Band, 10);
        NEAR(rec->Kdec, 1.0);
        QCOMPARE(rec->ref_sig, QString("Reference signal"));
        QCOMPARE(rec->meas_sig, QString("Measured signal"));
        QCOMPARE(b.allAdded.count(), 1);
        QVERIFY(b.form.isHidden());
        QVERIFY(!SLEEP);
        QCOMPARE(b.prop.openedPathS.first(), QFileInfo(b.home.file("data.txt")).absolutePath());
    }

    void fieldsReachTheRecord()
    {
        Bench b;
        b.open("1 2\n2 4\n");
        b.field("file_LE_PhaseK")->setText("1e-9");
        b.field("file_LE_Interv")->setText("0,5");
        b.field("file_LE_ChNumber")->setText("32");
        b.field("file_LE_Band")->setText("100");
        b.field("file_LE_RefName")->setText("Maser");
        b.field("file_LE_MeasName")->setText("Rb");
        b.get<QDateTimeEdit>("file_DT_StartDate")->setDateTime(QDateTime(QDate(2020, 1, 2), QTime(1, 0)));
        QTest::keyClick(b.field("file_LE_MeasName"), Qt::Key_Return);
        QCOMPARE(b.records.size(), 1);
        Record* rec = b.records.first();
        NEAR(phKoefUser, 1e-9);
        NEAR(rec->x[1], 4e-9);
        NEAR(rec->Kdec, 0.5);
        QCOMPARE(rec->ch, 32);
        QCOMPARE(rec->Band, 100);
        QCOMPARE(rec->ref_sig, QString("Maser"));
        QCOMPARE(rec->meas_sig, QString("Rb"));
        QCOMPARE(rec->start, QDateTime(QDate(2020, 1, 2), QTime(1, 0)));

        b.field("file_LE_PhaseK")->setText("e");
        b.forward();
        NEAR(phKoefUser, 1.0);
        NEAR(b.records.last()->x[1], 4.0);
    }

    void eachDataColumnIsARecord()
    {
        Bench b;
        b.open("0 1 10\n1 2 20\n");
        QCOMPARE(b.get<QComboBox>("FileFormat_byDevice")->currentText(), QString("HRL-314"));
        b.field("file_LE_ChNumber")->setText("5");
        b.forward();
        QCOMPARE(b.records.size(), 2);
        QCOMPARE(b.records.at(0)->ch, 6);
        NEAR(b.records.at(0)->x[1], 20e-6);
        QCOMPARE(b.records.at(1)->ch, 5);
        NEAR(b.records.at(1)->x[1], 2e-6);
        QCOMPARE(b.allAdded.count(), 1);
    }

    void checks_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("reads");
        QTest::newRow("no file") << "file_LE_Path"
                                 << "/no/such/file.txt"
                                 << "Файл не выбран\n"
                                 << false;
        QTest::newRow("directory") << "file_LE_Path"
                                   << "/"
                                   << "Файл не выбран\n"
                                   << false;
        for (const char* channel : {"", "0", "33"})
            QTest::newRow(qPrintable(QString("channel ") + channel))
                << "file_LE_ChNumber" << channel << "Номер канала не указан\n"
                << false;
        for (const char* interval : {"", "0", "-1"})
            QTest::newRow(qPrintable(QString("interval ") + interval))
                << "file_LE_Interv" << interval << "Интервал между отсчетами не указан\n"
                << false;
        QTest::newRow("Kdec") << "file_LE_Kdec"
                              << "0"
                              << "Kdec не указан\n"
                              << false;
        QTest::newRow("band") << "file_LE_Band"
                              << ""
                              << "Полоса пропускания не указана\n"
                              << false;
        QTest::newRow("reference") << "file_LE_RefName"
                                   << ""
                                   << "Название опорного сигнала не указано\n"
                                   << true;
        QTest::newRow("measured") << "file_LE_MeasName"
                                  << ""
                                  << "Название измеряемого сигнала не указано\n"
                                  << true;
    }
    void checks()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        QFETCH(bool, reads);
        Bench b;
        b.open(plain);
        b.field(qPrintable(field))->setText(text);
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QTEST(b.said(), "line");
        QCOMPARE(b.records.size(), reads ? 1 : 0);
        QCOMPARE(b.form.isVisible(), !reads);
        QCOMPARE(b.allAdded.count(), reads ? 1 : 0);
        if (reads) {
            QCOMPARE(b.records.first()->ref_sig, QString("Reference signal"));
            QCOMPARE(b.records.first()->meas_sig, QString("Measured signal"));
        }
    }

    void faultsComeTogether()
    {
        Bench b;
        b.form.openFile("/no/such/file.txt");
        b.field("file_LE_ChNumber")->setText("33");
        b.field("file_LE_RefName")->clear();
        b.field("file_LE_Kdec")->clear();
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QCOMPARE(b.said(),
            QString("Файл не выбран\nНомер канала не указан\nНазвание опорного сигнала не указано\nKdec не "
                    "указан\n"));
    }

    void badLines_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<int>("records");
        QTest::newRow("cancel") << int(QDialogButtonBox::Cancel) << 0;
        QTest::newRow("go on") << int(QDialogButtonBox::Ok) << 1;
    }
    void badLines()
    {
        QFETCH(int, answer);
        QFETCH(int, records);
        Bench b;
        b.open("# head\n\n0 1\n1 two\n2 3\n");
        QStringList details;
        b.prompts.handle([&](QDialog& dialog) {
            auto* list = dialog.findChild<QListWidget*>("More_list");
            for (int i = 0; i < list->count(); ++i)
                details << list->item(i)->text();
            dialog.show();
            auto* box = dialog.findChild<QDialogButtonBox*>();
            box->button(QDialogButtonBox::StandardButton(answer))->click();
            return dialog.result();
        });
        b.forward();
        QCOMPARE(b.said(), QString("При чтении файла по шаблону [t] [x] возникли ошибки, продолжить?"));
        QCOMPARE(details, QStringList{"Несоответствие формата в строке 4"});
        QCOMPARE(b.records.size(), records);
        QCOMPARE(b.form.isHidden(), records == 1);
        if (records)
            QCOMPARE(b.records.first()->n_cnt, 2);
    }

    void manyBadLines()
    {
        Bench b;
        b.open("0 1\n" + QByteArray("x y\n").repeated(200) + "1 2\n");
        b.get<QComboBox>("FileFormat_byDevice")->setCurrentText("HRL-315");
        QStringList ends;
        b.prompts.handle([&](QDialog& dialog) {
            auto* list = dialog.findChild<QListWidget*>("More_list");
            ends = QStringList{QString::number(list->count()), list->item(list->count() - 2)->text(),
                list->item(list->count() - 1)->text()};
            return int(QDialog::Rejected);
        });
        b.forward();
        QCOMPARE(ends, QStringList({"201", "Несоответствие формата в строке 201", "и т.д."}));
        QVERIFY(b.records.isEmpty());
    }

    void threeColumnFilesAreNotAskedAbout()
    {
        Bench b;
        b.open("0 1 2\n1 x 3\n2 3 4\n");
        b.forward();
        QCOMPARE(b.records.size(), 2);
        QCOMPARE(b.records.first()->n_cnt, 2);
    }

    void nothingToLoad_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("said");
        QTest::newRow("empty") << QByteArray() << "[t] [x]"
                               << "нет данных";
        QTest::newRow("only comments") << QByteArray("# a\n#b\n\n") << "[t] [x]"
                                       << "нет данных";
        QTest::newRow("nothing fits") << QByteArray("one two\n") << "[t] [x]"
                                      << "нет данных";
        QTest::newRow("no data column") << plain << "[t]"
                                        << "нет столбца данных";
        QTest::newRow("broken template") << plain << "[t] [x"
                                         << "нельзя прочитать";
    }
    void nothingToLoad()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, format);
        QFETCH(QString, said);
        Bench b;
        b.open(content);
        b.form.addNewFormat(format);
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QVERIFY2(b.said().contains(said), qPrintable(b.said()));
        QVERIFY(b.said().contains(format));
        QVERIFY(b.records.isEmpty() && b.form.isVisible() && b.allAdded.isEmpty());
    }

    void systemsReason()
    {
        Bench b;
        b.form.openFile("/proc/self/mem");
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QVERIFY2(b.said().startsWith("Не удалось открыть файл\n/proc/self/mem\n"), qPrintable(b.said()));
        QVERIFY(b.said().section('\n', 2).size() > 5);
        QVERIFY(b.form.isVisible());
    }

    void timesThatDoNotGrow()
    {
        Bench b;
        b.open("0 1\n1 2\n1 3\n2 4\n");
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QCOMPARE(b.said(), QString("Запись загружена не полностью: некорректный массив меток времени "));
        QCOMPARE(b.records.size(), 1);
        QCOMPARE(b.records.first()->n_cnt, 2);
    }

    void recordingFiles()
    {
        Bench b;
        b.form.openFile(b.home.write("230201_01.inf", "x"));
        QCOMPARE(b.get<QPushButton>("Btn_ViewRecList")->text(), QString("Далее"));
        b.open(plain);
        QCOMPARE(b.get<QPushButton>("Btn_ViewRecList")->text(), QString("Загрузить"));
    }

    void templates()
    {
        Bench b;
        auto* list = b.get<QComboBox>("file_Combo_Formats");
        QCOMPARE(list->itemText(0), QString("Выберите формат"));
        QCOMPARE(list->count(), 7);
        for (int row = 0; row <= 4; ++row) {
            list->setCurrentIndex(row);
            b.prompts.press(QMessageBox::Ok);
            b.click("file_DelFrmtBtn");
            QCOMPARE(b.said(),
                QString(
                    "Возможно удаление только пользовательских форматов,\nчетыре стандартных формата удалить "
                    "нельзя.\n"));
        }
        list->setCurrentIndex(-1);
        b.click("file_DelFrmtBtn");
        QCOMPARE(list->count(), 7);
        list->setCurrentIndex(5);
        b.click("file_DelFrmtBtn");
        QCOMPARE(list->count(), 6);
        QVERIFY(!b.prop.formats.contains("<Firsr_num>: [t_5] <Sec_num> [x];"));

        b.form.addNewFormat("[a] [b]");
        QCOMPARE(list->currentText(), QString("[a] [b]"));
        b.form.addNewFormat("[t] [x]");
        QCOMPARE(list->currentIndex(), 1);
        QCOMPARE(b.prop.formats.count("[t] [x]"), 1);
        b.prop.frmt_MaxNum = 6;
        b.form.addNewFormat("[c]");
        QCOMPARE(b.prop.formats.size(), 6);
        QCOMPARE(b.prop.formats.at(3), QString("[t_12] [x] [y]"));
        QCOMPARE(list->currentText(), QString("[c]"));
    }

    void headLineOfTheListMeansTheFirstTemplate()
    {
        Bench b;
        b.open(plain);
        b.get<QComboBox>("file_Combo_Formats")->setCurrentIndex(0);
        b.forward();
        QCOMPARE(b.get<QComboBox>("file_Combo_Formats")->currentIndex(), 1);
        QCOMPARE(b.records.size(), 1);
    }

    void typeKeepsTheDate()
    {
        Bench b;
        b.open(plain);
        auto* start = b.get<QDateTimeEdit>("file_DT_StartDate");
        start->setDate(QDate(2001, 1, 1));
        b.field("file_LE_Interv")->setText("7");
        b.field("file_LE_PhaseK")->setText("7");
        b.get<QComboBox>("FileFormat_byDevice")->setCurrentText("HRL-314");
        QCOMPARE(b.get<QComboBox>("file_Combo_Formats")->currentText(), QString("[t] [x] [y]"));
        QCOMPARE(b.field("file_LE_Interv")->text(), QString("1"));
        QCOMPARE(b.field("file_LE_PhaseK")->text(), QString("1e-6"));
        QCOMPARE(start->date(), QDate(2001, 1, 1));
    }

    void waysToAFile()
    {
        Bench b;
        b.form.myshow(nullptr);
        const QString path = b.home.write("a.txt", plain);
        b.prompts.chooseFile(path);
        b.click("file_OpenBtn");
        QCOMPARE(b.field("file_LE_Path")->text(), path);
        b.prompts.chooseFile(QString());
        b.click("file_OpenBtn");
        QCOMPARE(b.field("file_LE_Path")->text(), path);

        const QString dropped = b.home.write("b.txt", "0 1 2\n");
        QMimeData data;
        data.setUrls({QUrl("http://localhost/c.txt"), QUrl::fromLocalFile(dropped)});
        const QPoint inside(50, 50);
        QDragEnterEvent enter(inside, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b.form, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(inside, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b.form, &drop);
        QCOMPARE(b.field("file_LE_Path")->text(), dropped);
        QCOMPARE(b.get<QComboBox>("FileFormat_byDevice")->currentText(), QString("HRL-314"));
        b.field("file_LE_Path")->clear();
        QVERIFY(b.get<QGroupBox>("file_paramFrame")->isHidden());
    }

    void stopping()
    {
        Bench b;
        b.open("0 1\n1 2\n" + QByteArray("2 3\n").repeated(2000000));
        auto* stop = b.get<QPushButton>("Btn_Stop");
        QVERIFY(stop->isHidden());
        bool barSeen = false;
        QTimer::singleShot(0, [&] {
            barSeen = SLEEP && b.get<QProgressBar>("progressBar")->isVisible();
            QTest::mouseClick(b.get<QPushButton>("Btn_ViewRecList"), Qt::LeftButton);
            QTest::mouseClick(stop, Qt::LeftButton);
        });
        b.forward();
        QVERIFY(barSeen);
        QVERIFY(b.records.isEmpty() && b.form.isVisible() && !SLEEP);
        QVERIFY(stop->isHidden() && b.get<QProgressBar>("progressBar")->isHidden());

        QTimer::singleShot(0, [&] { QTest::keyClick(&b.form, Qt::Key_Escape); });
        b.forward();
        QVERIFY(b.records.isEmpty() && b.form.isVisible());
        QTest::keyClick(&b.form, Qt::Key_Escape);
        QVERIFY(b.form.isHidden());
    }

    void viewer()
    {
        Bench b;
        const QByteArray path = qgetenv("PATH");
        const QString seen = b.home.file("seen");
        QFile script(
            b.home.write("kate", "#!/bin/sh\necho \"$1\" > " + seen.toUtf8() + "\nexec /bin/sleep 60\n"));
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner));
        qputenv("PATH", QFileInfo(script).path().toUtf8());
        b.prompts.press(QDialogButtonBox::Ok);
        b.click("file_ViewBtn");
        QCOMPARE(b.said(), QString("Файл не выбран\n"));
        b.open(plain);
        b.click("file_ViewBtn");
        QTRY_VERIFY(QFileInfo(seen).size() > 0);
        QFile told(seen);
        QVERIFY(told.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(told.readAll().trimmed()), b.home.file("data.txt"));
        QTRY_COMPARE(b.form.viewProcess->state(), QProcess::Running);
        b.forward();
        QTRY_COMPARE(b.form.viewProcess->state(), QProcess::NotRunning);
        QVERIFY(QFile::remove(script.fileName()));
        b.open(plain);
        b.prompts.press(QDialogButtonBox::Ok);
        b.click("file_ViewBtn");
        QVERIFY(b.said().contains("Не найдена"));
        qputenv("PATH", path);
    }

    void language()
    {
        Bench b;
        b.form.openFile("/x.inf");
        b.field("file_LE_ChNumber")->setText("9");
        Marked english;
        QCoreApplication::installTranslator(&english);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(b.form.windowTitle(), QString("en:Загрузка данных"));
        QVERIFY(b.get<QLabel>("HelpText")->text().startsWith("en:"));
        QCOMPARE(b.get<QComboBox>("file_Combo_Formats")->itemText(0), QString("en:Выберите формат"));
        QCOMPARE(b.get<QComboBox>("FileFormat_byDevice")->itemText(3), QString("en:Другой формат"));
        QCOMPARE(b.get<QPushButton>("Btn_ViewRecList")->text(), QString("en:Далее"));
        QCOMPARE(b.field("file_LE_ChNumber")->text(), QString("9"));
        QCoreApplication::removeTranslator(&english);
    }

    void recordsOfOtherWindowsPass()
    {
        Bench b;
        Record rec;
        b.form.RepeatRec(&rec);
        QCOMPARE(b.records, QList<Record*>{&rec});
    }
};

QTEST_MAIN(TestOpenFileGlobForm)
#include "tst_openfileglobform.moc"
