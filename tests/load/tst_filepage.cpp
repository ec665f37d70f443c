#include "base/globals.h"
#include "load/addnewformat_class.h"
#include "load/core/winprop.h"
#include "loadingdialog.h"
#include "support/near.h"

#include <QComboBox>
#include <QCompleter>
#include <QDateTimeEdit>
#include <QDropEvent>
#include <QFrame>
#include <QListWidget>
#include <QLoggingCategory>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>

#include <sys/stat.h>

class TestFilePage : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QLoggingCategory::setFilterRules("default.debug=false"); }

    /// Once the user has chosen, another file only gets a hint.
    void guessIsProposed()
    {
        LoadingDialog b;
        auto* hint = b.get<QFrame>("file_guessFrame");
        auto* format = b.get<QComboBox>("file_Combo_Formats");
        auto* type = b.get<QComboBox>("FileFormat_byDevice");
        b.open("0 1 2\n1 2 3\n");
        QCOMPARE(format->currentText(), QString("[t] [x] [y]"));
        QVERIFY(hint->isHidden());
        format->setCurrentIndex(2);
        emit format->activated(2);
        b.field("file_LE_PhaseK")->setText("1e-9");
        b.form.openFile(b.home.write("two.txt", "# 01.02.23 00:00:10\n0 1\n1 2\n"));
        QCOMPARE(format->currentText(), QString("<20> [t] [x]"));
        QCOMPARE(b.field("file_LE_PhaseK")->text(), QString("1e-9"));
        QCOMPARE(b.get<QDateTimeEdit>("file_DT_StartDate")->date(), QDate(2023, 2, 1));
        QVERIFY(hint->isVisible());
        QVERIFY(b.get<QLabel>("file_guessLbl")->text().contains("HRL-315"));
        b.click("file_guessBtn");
        QCOMPARE(format->currentText(), QString("[t] [x]"));
        QCOMPARE(type->currentText(), QString("HRL-315"));
        QVERIFY(hint->isHidden());
        // From here on guesses are taken again.
        b.form.openFile(b.home.file("data.txt"));
        QCOMPARE(format->currentText(), QString("[t] [x] [y]"));
    }

    void previewFollows()
    {
        LoadingDialog b;
        b.form.myshow(nullptr);
        QVERIFY(b.preview("file_preview").startsWith("Здесь появится"));
        b.open("0 1\n1 x\n2 3\n");
        QTRY_VERIFY(b.legend("file_preview").contains("Годных строк: 2"));
        QVERIFY(b.legend("file_preview").contains("ошибки: 1"));
        QVERIFY(b.preview("file_preview").contains("2! 1 x"));
        b.get<QComboBox>("file_Combo_Formats")->setCurrentText("[t] [x] [y]");
        QTRY_VERIFY(b.legend("file_preview").contains("Годных строк: 0"));

        auto* editor = b.form.findChild<addNewFormat_class*>();
        b.click("file_AddFrmtBtn");
        QVERIFY(editor->isVisible());
        editor->findChild<QLineEdit*>("lineEdit")->setText("[x] [y]");
        QTRY_VERIFY(b.legend("file_preview").contains("Годных строк: 2"));
        editor->findChild<QLineEdit*>("lineEdit")->setText("[x");
        QTRY_COMPARE(b.preview("file_preview"), QString("Шаблон пока не закончен."));
        editor->reject();
        QTRY_VERIFY(b.legend("file_preview").contains("Годных строк: 0"));
    }

    void ownTemplates()
    {
        LoadingDialog b;
        b.open("0 1\n1 2\n");
        auto* list = b.get<QComboBox>("file_Combo_Formats");
        auto* editor = b.form.findChild<addNewFormat_class*>();
        auto* edit = b.get<QAbstractButton>("file_EditFrmtBtn");
        QVERIFY(!edit->isEnabled());
        b.click("file_AddFrmtBtn");
        editor->findChild<QLineEdit*>("lineEdit")->setText("[a] [b]");
        editor->on_buttonBox_accepted();
        QCOMPARE(list->currentText(), QString("[a] [b]"));
        QCOMPARE(b.prop.formats.size(), 7);
        QVERIFY(edit->isEnabled());
        b.click("file_EditFrmtBtn");
        editor->findChild<QLineEdit*>("lineEdit")->setText("[a] [c]");
        editor->on_buttonBox_accepted();
        QCOMPARE(b.prop.formats.mid(6), QStringList{"[a] [c]"});
        QCOMPARE(list->currentText(), QString("[a] [c]"));
        // An edit that was given up leaves no trace on the next template.
        b.click("file_EditFrmtBtn");
        editor->reject();
        b.form.addNewFormat("[d]");
        QCOMPARE(b.prop.formats.mid(6), QStringList({"[a] [c]", "[d]"}));
    }

    void unreadablePaths_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("text");
        QTest::newRow("directory") << "directory"
                                   << "Это каталог";
        QTest::newRow("pipe") << "pipe"
                              << "Это не файл данных";
        QTest::newRow("none") << "none"
                              << "Файла с таким именем нет";
        QTest::newRow("dead link") << "link"
                                   << "Ссылка ведет";
    }
    void unreadablePaths()
    {
        QFETCH(QString, kind);
        QFETCH(QString, text);
        LoadingDialog b;
        const QString path = b.home.file("there");
        if (kind == "directory")
            QVERIFY(QDir().mkpath(path));
        else if (kind == "pipe")
            QCOMPARE(mkfifo(path.toLocal8Bit().constData(), 0600), 0);
        else if (kind == "link")
            QVERIFY(QFile::link("/no/such/file", path));
        b.form.myshow(nullptr);
        b.field("file_LE_Path")->setText(path);
        QTRY_VERIFY2(b.preview("file_preview").startsWith(text), qPrintable(b.preview("file_preview")));
        QStringList details;
        b.closeNext(&details);
        b.forward();
        QCOMPARE(b.said(), QString("Файл не выбран\n"));
        QVERIFY(details.value(0) == path && details.value(1).startsWith(text));
    }

    void history()
    {
        LoadingDialog b;
        b.prop.openedPath_MaxNum = 2;
        QStringList files;
        for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
            files << b.home.write(name, "0 1\n1 2\n");
            b.form.openFile(files.last());
            b.forward();
        }
        b.field("file_LE_Path")->clear();
        b.form.myshow(nullptr);
        QCOMPARE(b.field("file_LE_Path")->text(), files.at(2));
        auto* offers = b.field("file_LE_Path")->completer()->model();
        QStringList offered;
        for (int row = 0; row < offers->rowCount(); ++row)
            offered << offers->index(row, 0).data().toString();
        QCOMPARE(offered, QStringList({files.at(2), files.at(1), QFileInfo(files.at(0)).path() + '/'}));
    }

    void severalFilesGoToTheList()
    {
        LoadingDialog b;
        auto* tabs = b.get<QTabWidget>("file_tabWidget");
        const QString one = b.home.write("one.txt", "0 1\n"), two = b.home.write("two.txt", "1 2\n");
        b.form.openFiles({one});
        QCOMPARE(tabs->currentIndex(), 0);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(one), QUrl::fromLocalFile(two)});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b.form, &enter);
        QDropEvent drop(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b.form, &drop);
        QCOMPARE(tabs->currentIndex(), 1);
        QCOMPARE(b.get<QListWidget>("file_List")->count(), 2);
        // A further file that is dropped there joins them.
        data.setUrls({QUrl::fromLocalFile(b.home.write("three.txt", "2 3\n"))});
        QDragEnterEvent more(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b.form, &more);
        QDropEvent again(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b.form, &again);
        QCOMPARE(b.get<QListWidget>("file_List")->count(), 3);
    }

    void fitsLowScreens()
    {
        LoadingDialog b;
        b.form.myshow(nullptr);
        QVERIFY2(b.form.minimumSizeHint().height() <= 570,
            qPrintable(QString::number(b.form.minimumSizeHint().height())));
        QVERIFY(b.form.minimumSizeHint().width() <= 605);
        for (const char* name : {"file_paramScroll", "file_columnScroll"}) {
            b.get<QTabWidget>("file_tabWidget")->setCurrentIndex(name == QLatin1String("file_columnScroll"));
            auto* area = b.get<QScrollArea>(name);
            QTRY_VERIFY(area->isVisible());
            QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
        }
    }
};

QTEST_MAIN(TestFilePage)
#include "tst_filepage.moc"
