#include "plot/popupmenu.h"
#include "plot/tableform.h"
#include "stats/incremental.h"
#include "support/scopedhome.h"
#include "support/scopedprompts.h"

#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTextCodec>
#include <QTranslator>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace {

class Marked : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return QStringLiteral("en:") + QString::fromUtf8(text);
    }
};

/// Two columns under the rows channel, name, and two averaging factors.
void fill(TableForm& form)
{
    form.setColNum(4, {"Канал", "Название", "1", "10"});
    form.addLine({"1", "Ch1-Ref", "1.5e-13", "2e-14"});
    form.addLine({"2", "Стандарт", "3.5e-13", "an unusually long cell here"});
    form.resizeCol();
}

QString cell(const QString& text, int width)
{
    return text.rightJustified(width) + '|';
}

QString clip()
{
    return QGuiApplication::clipboard()->text();
}

QAction* item(popupmenu* menu, const QString& text)
{
    for (QAction* action : menu->actions())
        if (action->text() == text)
            return action;
    return nullptr;
}

} // namespace

class TestTableForm : public QObject {
    Q_OBJECT
private slots:
    void init() { QGuiApplication::clipboard()->clear(); }

    void rowsAndColumns()
    {
        TableForm form;
        form.setColNum(2, {"a", "b"});
        form.setColNum(2, {"x", "y"});
        QCOMPARE(form.sorchTable->verticalHeaderItem(0)->text(), QString("a"));
        form.setColNum(3, {"x", "y", "z"});
        QCOMPARE(form.sorchTable->rowCount(), 3);
        QCOMPARE(form.sorchTable->verticalHeaderItem(0)->text(), QString("x"));

        form.addLine({});
        form.addLine({"1", "2", "3", "beyond the rows"});
        QCOMPARE(form.sorchTable->columnCount(), 2);
        QCOMPARE(form.sorchTable->rowCount(), 3);
        QCOMPARE(form.sorchTable->item(2, 0)->text(), QString());
        const QTableWidgetItem* last = form.sorchTable->item(2, 1);
        QCOMPARE(last->text(), QString("3"));
        QVERIFY(!(last->flags() & Qt::ItemIsEditable));
        QVERIFY(last->textAlignment() & Qt::AlignRight);

        form.setColWidth(1, 222);
        QCOMPARE(form.sorchTable->columnWidth(1), 222);
        form.resizeCol();
        QVERIFY(form.sorchTable->columnWidth(1) < 222);
        form.setRowCount(1);
        QCOMPARE(form.sorchTable->rowCount(), 1);
    }

    void copyAll()
    {
        TableForm form;
        fill(form);
        form.copyAllTab();
        QCOMPARE(clip(),
            cell("Канал", 8) + cell("1", 25) + cell("2", 27) + '\n' + cell("Название", 8)
                + cell("Ch1-Ref", 25) + cell("Стандарт", 27) + '\n' + cell("1", 8) + cell("1.5e-13", 25)
                + cell("3.5e-13", 27) + '\n' + cell("10", 8) + cell("2e-14", 25)
                + cell("an unusually long cell here", 27) + '\n');
    }

    void copySelection()
    {
        TableForm form;
        fill(form);
        const QString names = cell("Канал", 8) + cell("1", 25) + cell("2", 27) + '\n' + cell("Название", 8)
            + cell("Ch1-Ref", 25) + cell("Стандарт", 27) + '\n';
        form.copySelected();
        QCOMPARE(clip(), names);
        form.sorchTable->item(2, 1)->setSelected(true);
        form.copySelected();
        QCOMPARE(clip(), names);
        form.sorchTable->item(2, 0)->setSelected(true);
        form.copySelected();
        QCOMPARE(clip(), names + cell("1", 8) + cell("1.5e-13", 25) + cell("3.5e-13", 27) + '\n');
    }

    void copyKey()
    {
        TableForm form;
        fill(form);
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.sorchTable->setFocus();
        form.sorchTable->selectRow(3);
        QTest::keyClick(form.sorchTable, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(clip().contains("unusually"));
        QCOMPARE(clip().count('\n'), 3);
    }

    void saving()
    {
        ScopedHome home;
        TableForm form;
        fill(form);
        ScopedPrompts prompts;
        prompts.chooseFile(home.file("out.txt"));
        form.saveTab();
        prompts.chooseFile(home.file("export.txt"));
        form.exportASCII();
        prompts.chooseFile(QString());
        form.saveTab();
        prompts.chooseFile(QString());
        form.exportASCII();
        prompts.chooseFile(home.file("no/such/dir.txt"));
        prompts.press(QMessageBox::Ok);
        form.exportASCII();
        QCOMPARE(prompts.seen.last().text, QString("ERROR! (file saving)"));

        const auto content = [&home](const QString& name) {
            QFile file(home.file(name));
            return file.open(QIODevice::ReadOnly)
                ? QTextCodec::codecForName("Windows-1251")->toUnicode(file.readAll())
                : QString("no file");
        };
        form.copyAllTab();
        QCOMPARE(content("out.txt"), clip());
        QCOMPARE(content("export.txt").section('\n', 1, 1),
            cell("Название", 8) + cell("Ch1-Ref", 15) + cell("Стандарт", 15));
        QCOMPARE(content("export.txt").section('\n', 3, 3),
            cell("10", 8) + cell("2e-14", 15) + "an unusually long cell here|");
    }

    void printing()
    {
        ScopedHome home;
        TableForm form;
        fill(form);
        ScopedPrompts prompts;
        prompts.handle([&home](QDialog& dialog) {
            QPrinter* printer = static_cast<QPrintDialog&>(dialog).printer();
            [&] {
                QCOMPARE(printer->pageLayout().orientation(), QPageLayout::Landscape);
                QCOMPARE(printer->docName(), QString("Таблица результатов измерений"));
                QCOMPARE(printer->creator(), QString("Таблица"));
            }();
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(home.file("table.pdf"));
            return int(QDialog::Accepted);
        });
        form.printTab();
        QVERIFY(QFileInfo(home.file("table.pdf")).size() > 1000);
        prompts.handle([](QDialog&) { return int(QDialog::Rejected); });
        form.printTab();
    }

    void popupMenu()
    {
        TableForm form;
        fill(form);
        form.show();
        auto* menu = form.findChild<popupmenu*>();
        QVERIFY(menu);
        QTest::mousePress(form.sorchTable->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
        QVERIFY(!menu->isVisible());
        QTest::mousePress(form.sorchTable->viewport(), Qt::RightButton, {}, QPoint(20, 20));
        QVERIFY(menu->isVisible());
        menu->close();

        QSignalSpy selected(menu, &popupmenu::copySelected), all(menu, &popupmenu::copyAllTab);
        QSignalSpy saved(menu, &popupmenu::saveTab), printed(menu, &popupmenu::printTab);
        ScopedPrompts prompts;
        prompts.chooseFile(QString());
        prompts.handle([](QDialog&) { return int(QDialog::Rejected); });
        for (const char* text : {"Копировать выделенное", "Копировать всю таблицу",
                 "Сохранить таблицу в файл", "Печать таблицы"}) {
            QAction* action = item(menu, text);
            QVERIFY2(action, text);
            action->trigger();
        }
        QCOMPARE(QList<int>({selected.count(), all.count(), saved.count(), printed.count()}),
            QList<int>({1, 1, 1, 1}));
        QCOMPARE(prompts.seen.size(), 2);
    }

    void language()
    {
        TableForm form;
        fill(form);
        form.setTitleSource([] { return QCoreApplication::translate("Owner", "Таблица"); });
        form.setHeadSource([] { return QStringList{QCoreApplication::translate("Owner", "Канал")}; });
        QCOMPARE(form.windowTitle(), QString("Таблица"));
        Marked english;
        QCoreApplication::installTranslator(&english);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(form.windowTitle(), QString("en:Таблица"));
        QCOMPARE(form.sorchTable->verticalHeaderItem(0)->text(), QString("en:Канал"));
        QCOMPARE(form.sorchTable->verticalHeaderItem(2)->text(), QString("1"));
        QCOMPARE(form.findChild<QMenuBar*>()->actions().first()->text(), QString("en:&Опции"));
        QAction* action = item(form.findChild<popupmenu*>(), "en:Копировать выделенное");
        QVERIFY(action);
        action->trigger();
        QCOMPARE(clip().count('\n'), 2);
        QCoreApplication::removeTranslator(&english);
    }

    void runningValues()
    {
        TableForm form;
        fill(form);
        form.setHeadSource([] { return QStringList{"Канал", "Название"}; });
        form.channels = {5, 7};
        const double tau[] = {1.0, 2.0, 5.0, 10.0, 20.0, -1.0};
        varInf running;
        running.Reserve(6);
        running.recID = 7;
        running.interval = 0.5;
        running.typeOfVar = 1;
        const double values[] = {1.23456789e-12, 5e-13, 0.0, std::nan(""), 2e-14, 1.0};
        std::copy_n(values, 6, running.value);
        const auto texts = [&form](int column) {
            QStringList all;
            for (int row = 0; row < form.sorchTable->rowCount(); ++row)
                all << form.sorchTable->item(row, column)->text();
            return all;
        };
        const auto heads = [&form] {
            QStringList all;
            for (int row = 0; row < form.sorchTable->rowCount(); ++row)
                all << form.sorchTable->verticalHeaderItem(row)->text();
            return all;
        };
        const QStringList before = texts(1);
        form.UpdDynValues(6, running, tau); // of no statistic
        form.avarType = 2;
        form.UpdDynValues(6, running, tau);
        form.avarType = 1;
        form.UpdDynValues(6, running, nullptr);
        form.UpdDynValues(0, running, tau);
        running.recID = 8;
        QTest::ignoreMessage(QtDebugMsg, "not found");
        form.UpdDynValues(6, running, tau);
        running.recID = 7;
        running.interval = 0.0;
        form.UpdDynValues(6, running, tau);
        running.interval = 0.5;
        QCOMPARE(texts(1), before);
        QCOMPARE(heads().size(), 4);

        form.sorchTable->setColumnWidth(1, 10);
        form.UpdDynValues(99, running, tau);
        QCOMPARE(heads(), (QStringList{"Канал", "Название", "1", "2", "10", "20"}));
        QCOMPARE(texts(0), (QStringList{"1", "Ch1-Ref", "1.5e-13", "", "2e-14", ""}));
        QCOMPARE(texts(1),
            (QStringList{"2", "Стандарт", "2.46914e-12", "1e-12", "an unusually long cell here", "4e-14"}));
        QVERIFY(!(form.sorchTable->item(5, 1)->flags() & Qt::ItemIsEditable));
        QVERIFY(form.sorchTable->columnWidth(1) > 50);
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&form, &change);
        QCOMPARE(heads().mid(2), (QStringList{"1", "2", "10", "20"}));
        form.UpdDynValues(1, running, tau);
        QCOMPARE(heads().size(), 6);
    }

    void closing()
    {
        TableForm form;
        QSignalSpy spy(&form, &TableForm::IsClosing);
        form.show();
        form.close();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().first().value<QObject*>(), &form);
    }
};

QTEST_MAIN(TestTableForm)
#include "tst_tableform.moc"
