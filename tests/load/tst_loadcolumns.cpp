#include "base/globals.h"
#include "fullformat.h"
#include "load/core/columnlist.h"
#include "load/core/winprop.h"
#include "loadingdialog.h"
#include "record/record.h"
#include "support/near.h"

#include <QCheckBox>
#include <QComboBox>
#include <QInputDialog>
#include <QListWidget>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QtTest>

#include <limits>

namespace {

/// The dialog at its second tab.
struct Bench : LoadingDialog {
    Bench()
    {
        form.myshow(nullptr);
        get<QTabWidget>("file_tabWidget")->setCurrentIndex(1);
    }
    QStringList listed()
    {
        QStringList texts;
        auto* list = get<QListWidget>("file_List");
        for (int row = 0; row < list->count(); ++row)
            texts << list->item(row)->text();
        return texts;
    }
    void answerName(const QString& name)
    {
        prompts.handle([name](QDialog& dialog) {
            auto* input = qobject_cast<QInputDialog*>(&dialog);
            if (!input || input->labelText() != QString("Введите название"))
                return -1;
            input->setTextValue(name);
            return int(QDialog::Accepted);
        });
    }
};

} // namespace

class TestLoadColumns : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QLoggingCategory::setFilterRules("default.debug=false"); }

    void columnList_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("again"); // empty: refused
        QTest::newRow("one") << "2"
                             << "2";
        QTest::newRow("some") << " 3, 1;7  2 "
                              << "3, 1, 7, 2";
        QTest::newRow("ranges") << "2 - 4, 3-5"
                                << "2, 3, 4, 5";
        for (const char* bad : {"", " ,", "0", "2, x", "4-2", "1-", "-1", "1-2-3", "10000", "1-9999"})
            QTest::newRow(qPrintable(QString("refused ") + bad)) << bad << "";
    }
    void columnList()
    {
        QFETCH(QString, text);
        QFETCH(QString, again);
        QList<int> columns{5};
        QCOMPARE(columnsFromText(text, &columns), !again.isEmpty());
        QCOMPARE(textFromColumns(columns), again);
        if (!columns.isEmpty())
            QCOMPARE(columns.first(), again.section(',', 0, 0).toInt() - 1);
    }

    void formatThereAndBack()
    {
        Bench b;
        QCOMPARE(b.form.getFormat().dateFromFileName_format, QString("yyyyMMdd"));
        b.form.setFormat(fullFormat());
        QCOMPARE(membersOf(b.form.getFormat()), membersOf(fullFormat()));
        QCOMPARE(b.get<QSpinBox>("file_SB_TimeCol")->value(), 3);
        QCOMPARE(b.field("file_LE_DataCols")->text(), QString("5, 8"));

        ReadFormat plain;
        plain.columnNum_data = {1};
        plain.timeStart_dateTime = QDateTime(QDate(2021, 1, 1), QTime(0, 0));
        plain.timeFormat_format = QStringLiteral("hh");
        b.form.setFormat(plain);
        QCOMPARE(membersOf(b.form.getFormat()), membersOf(plain));
        for (const char* name : {"file_LE_TimeUnit", "file_LE_Interv_2", "file_LE_Multiplier"})
            b.field(name)->setText("e");
        const ReadFormat format = b.form.getFormat();
        QCOMPARE(QVariantList({format.timeUnit_format, format.interval, format.multiplier}),
            QVariantList({1.0, 1.0, 1.0}));
    }

    void choices()
    {
        Bench b;
        auto* separators = b.get<QComboBox>("file_Combo_Separator");
        auto* types = b.get<QComboBox>("file_Combo_DataType");
        QString separatorTexts, typeTexts;
        for (int row = 0; row < separators->count(); ++row) {
            separators->setCurrentIndex(row);
            separatorTexts += b.form.getFormat().separator + '=' + separators->itemText(row) + '.';
        }
        for (int row = 0; row < types->count(); ++row) {
            types->setCurrentIndex(row);
            typeTexts += QString::number(b.form.getFormat().dataType) + types->itemText(row);
        }
        QVERIFY(separatorTexts.startsWith(" ="));
        QCOMPARE(separatorTexts.section('.', 1),
            QString(",=запятая.;=точка с запятой.|=вертикальная черта.  =двойной пробел."));
        QCOMPARE(typeTexts, QString("0Фаза4Частота1Температура2Влажность3Параметр"));

        auto* skip = b.get<QCheckBox>("file_CB_Skip");
        b.get<QSpinBox>("file_SB_Skip")->setValue(3);
        QCOMPARE(b.form.getFormat().linesToSkip, 0);
        skip->setChecked(true);
        QCOMPARE(b.form.getFormat().linesToSkip, 3);
        // The user checks one source of the date at a time.
        b.get<QCheckBox>("file_CB_NameDate")->click();
        b.get<QCheckBox>("file_CB_Date")->click();
        QVERIFY(b.form.getFormat().dateFromFileDate_flag && !b.form.getFormat().dateFromFileName_flag);
    }

    void checks()
    {
        Bench b;
        ReadFormat format;
        format.columnNum_time = 0;
        format.dateFromFileName_flag = format.timeFormat_flag = true;
        format.dateFromFileName_format.clear();
        b.form.setFormat(format);
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QCOMPARE(b.said(),
            QString(
                "Не выбраны файлы для загрузки!\nНе указан формат для чтения даты из имени файла!\nНе указан "
                "формат для чтения меток времени!\nНе указаны номера столбцов с данными!"));
        b.form.openFiles({b.home.write("a.txt", "0 1\n"), b.home.write("b.txt", "1 2\n")});
        format.dateFromFileName_flag = format.timeFormat_flag = false;
        // As a damaged configuration file gives them.
        format.columnNum_data = {std::numeric_limits<int>::max()};
        format.columnNum_time = std::numeric_limits<int>::max();
        format.timeUnit_flag = true;
        b.form.setFormat(format);
        QCOMPARE(b.get<QSpinBox>("file_SB_TimeCol")->value(), 9999);
        QCOMPARE(b.field("file_LE_DataCols")->text(), QString("2147483648"));
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QVERIFY(b.said().startsWith("Ошибка в номерах столбцов с данными"));
        format.columnNum_data = {1};
        format.columnNum_time = 0;
        format.timeUnit_flag = false;
        b.form.setFormat(format);
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QCOMPARE(b.said(), QString("Не указаны единицы измерения для чтения меток времени!"));
        QVERIFY(b.records.isEmpty() && b.form.isVisible());
    }

    void filesInOrder()
    {
        Bench b;
        const QString late = b.home.write("x_20230105.txt", "0 1\n1 2\n");
        const QString early = b.home.write("x_20230104.txt", "0 3\n1 4\n");
        const QString undated = b.home.write("x.txt", "0 5\n");
        b.form.openFiles({late, early, undated, late});
        QCOMPARE(b.listed(), QStringList({"1. x_20230105.txt", "2. x_20230104.txt", "3. x.txt"}));
        b.get<QListWidget>("file_List")->setCurrentRow(2);
        b.click("file_UpBtn");
        QCOMPARE(b.listed(), QStringList({"1. x_20230105.txt", "2. x.txt", "3. x_20230104.txt"}));
        QVERIFY(b.get<QAbstractButton>("file_DownBtn")->isEnabled());
        b.get<QCheckBox>("file_CB_NameDate")->click();
        QCOMPARE(
            b.listed(), QStringList({"1. x_20230104.txt", "2. x_20230105.txt", "x.txt (нет даты в имени)"}));
        QVERIFY(!b.get<QAbstractButton>("file_UpBtn")->isEnabled());
        b.click("file_RemoveBtn");
        QCOMPARE(b.listed().size(), 2);
        b.prompts.chooseFile(undated);
        b.click("file_AddBtn");
        QCOMPARE(b.listed().size(), 3);
    }

    void eachColumnIsARecord()
    {
        Bench b;
        b.form.openFiles(
            {b.home.write("a.csv", "head\n0;1;10\n1;2;20\n"), b.home.write("b.csv", "head\n2;3;30\n")});
        ReadFormat format;
        format.separator = QStringLiteral(";");
        format.linesToSkip = 1;
        format.columnNum_time = 0;
        format.columnNum_data = {2, 1};
        format.timeUnit_flag = true;
        format.multiplier = 1e-3;
        format.timeStart_dateTime = QDateTime(QDate(2023, 2, 1), QTime(0, 0));
        b.form.setFormat(format);
        b.forward();
        QCOMPARE(b.records.size(), 2);
        QCOMPARE(b.records.at(0)->n_cnt, 3);
        NEAR(b.records.at(0)->x[2], 0.03);
        NEAR(b.records.at(1)->x[0], 0.001);
        QCOMPARE(b.records.at(0)->start, format.timeStart_dateTime);
        QVERIFY(b.form.isHidden() && b.allAdded.count() == 1 && !SLEEP);
        QCOMPARE(b.prop.openedPathS.value(0), QFileInfo(b.home.file("a.csv")).absolutePath());
    }

    void statusLine_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("records");
        QTest::newRow("bad value") << QByteArray("0 1\n1 x\n2 3\n") << "2" << 1;
        QTest::newRow("few fields") << QByteArray("0 1\n1 2\n2\n") << "3" << 0;
        QTest::newRow("no samples") << QByteArray("a b\n") << "" << 0;
    }
    void statusLine()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, line);
        QFETCH(int, records);
        Bench b;
        b.form.openFiles({b.home.write("a.txt", content), b.home.write("b.txt", "3 4\n")});
        if (records == 0 && line.isEmpty())
            b.form.openFiles({b.home.file("a.txt"), b.home.write("c.txt", "c d\n")});
        b.forward();
        QCOMPARE(b.records.size(), records);
        QVERIFY(b.form.isVisible());
        QVERIFY(b.get<QLabel>("StatusLbl")->isVisible());
        QVERIFY2(b.status().contains(line) && b.status().size() > 10, qPrintable(b.status()));
        QVERIFY(b.status().contains("a.txt"));
        b.get<QTabWidget>("file_tabWidget")->setCurrentIndex(0);
        QVERIFY(b.get<QLabel>("StatusLbl")->isHidden());
    }

    void vanishedFile()
    {
        Bench b;
        const QString gone = b.home.write("gone.txt", "0 1\n");
        b.form.openFiles({b.home.write("a.txt", "0 1\n1 2\n"), gone});
        QVERIFY(QFile::remove(gone));
        b.forward();
        QVERIFY(b.records.isEmpty() && b.form.isVisible() && !SLEEP);
        QVERIFY2(b.status().contains("gone.txt"), qPrintable(b.status()));
    }

    void fullTable()
    {
        Bench b;
        b.room = 2;
        b.form.openFiles(
            {b.home.write("a.txt", "0 1 2 3 4\n1 2 3 4 5\n"), b.home.write("b.txt", "2 3 4 5 6\n")});
        b.field("file_LE_DataCols")->setText("2-5");
        b.prompts.press(QDialogButtonBox::Ok);
        b.forward();
        QCOMPARE(b.records.size(), 2);
        QCOMPARE(b.said(),
            QString("В таблице нет места. Не загружены записи:\na.txt, столбец 4\na.txt, столбец 5"));
        QVERIFY(!SLEEP);
    }

    void namedFormats()
    {
        Bench b;
        auto* names = b.get<QComboBox>("file_Combo_Formats_2");
        b.form.setFormat(fullFormat());
        b.answerName("  ");
        b.click("pushButtonSaveFormat");
        QVERIFY(b.prop.ASCIIformats.isEmpty());
        b.answerName("Мой");
        b.click("pushButtonSaveFormat");
        QCOMPARE(names->currentText(), QString("Мой"));
        QCOMPARE(membersOf(b.prop.ASCIIformats.value("Мой")), membersOf(fullFormat()));
        // The same name asks before it takes the place of the first.
        b.form.setFormat(ReadFormat());
        b.answerName("Мой");
        b.prompts.press(QMessageBox::No);
        b.click("pushButtonSaveFormat");
        QCOMPARE(b.prop.ASCIIformats.value(QStringLiteral("Мой")).separator, QStringLiteral("  "));
        names->setCurrentIndex(1);
        emit names->activated(1);
        QCOMPARE(membersOf(b.form.getFormat()), membersOf(fullFormat()));
        b.click("file_DelFrmtBtn_2");
        QVERIFY(b.prop.ASCIIformats.isEmpty() && names->count() == 1);
        QVERIFY(!b.get<QPushButton>("file_DelFrmtBtn_2")->isEnabled());
    }

    void previewFollows()
    {
        Bench b;
        QVERIFY(b.preview("file_preview_2").startsWith("Добавьте файлы"));
        b.form.openFiles({b.home.write("a.txt", "0;1\n1;2\n"), b.home.write("b.txt", "2;3\n")});
        QTRY_VERIFY(b.legend("file_preview_2").contains("Годных строк: 0"));
        b.get<QComboBox>("file_Combo_Separator")->setCurrentIndex(2);
        QTRY_VERIFY(b.legend("file_preview_2").contains("Годных строк: 2"));
    }
};

QTEST_MAIN(TestLoadColumns)
#include "tst_loadcolumns.moc"
