#include "app/application.h"
#include "app/interfacelanguage.h"
#include "app/mainwindow.h"
#include "base/busyguard.h"
#include "base/globals.h"
#include "base/paths.h"
#include "resources/resources.h"
#include "support/scopedhome.h"
#include "support/scopedprompts.h"
#include "table/selrectable.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTest>

#include <algorithm>

namespace {

/// Every text of the window that still holds a Russian letter.
QStringList russianTexts(const QWidget& window)
{
    QStringList texts;
    for (const auto* action : window.findChildren<QAction*>()) {
        if (action->objectName() != QLatin1String("actionRuss"))
            texts << action->text() << action->statusTip();
    }
    for (const auto* button : window.findChildren<QAbstractButton*>())
        texts << button->text() << button->toolTip();
    for (const auto* label : window.findChildren<QLabel*>())
        texts << label->text();
    for (const auto* menu : window.findChildren<QMenu*>())
        texts << menu->title();
    for (const auto* frame : window.findChildren<QMdiSubWindow*>())
        texts << frame->windowTitle();
    for (const auto* table : window.findChildren<QTableWidget*>()) {
        for (int column = 0; column < table->columnCount(); ++column)
            texts << table->model()->headerData(column, Qt::Horizontal).toString();
    }
    return texts.filter(QRegularExpression(QStringLiteral("[А-Яа-яЁё]")));
}

QString heading(const MainWindow& window, int column)
{
    const auto* table = window.findChild<QTableWidget*>(QStringLiteral("recTable"));
    return table ? table->model()->headerData(column, Qt::Horizontal).toString() : QString();
}

void trigger(const MainWindow& window, const char* action)
{
    auto* found = window.findChild<QAction*>(QLatin1String(action));
    QVERIFY2(found, action);
    found->trigger();
}

/// The window without command line arguments.
struct Shown {
    char name[9] = "kronalys";
    char* arguments[2] = {name, nullptr};
    MainWindow window{1, arguments};
    Shown() { window.show(); }
};

} // namespace

class TstMainWindow : public QObject {
    Q_OBJECT
private slots:
    void init() { interfaceLanguage::apply(QStringLiteral("ru")); }
    void languageAtStart_data();
    void languageAtStart();
    void switchesLanguageBothWays();
    void refusesToCloseWhileBusy();
    void remembersTheLanguage();
    void tellsTheVersion();
    void tellsAMissingFile();
    void keepsTheTableAndDropsGraphs();
    void tilesGraphsOnly();
    void arrangesGraphsBelowTheTable();
};

void TstMainWindow::languageAtStart_data()
{
    QTest::addColumn<QByteArray>("head"); // null: no file
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("applied");
    QTest::newRow("no file, territory") << QByteArray() << "en_US"
                                        << "ru";
    QTest::newRow("chosen") << QByteArray("<!--Application_Lang=\"en\"-->") << "ru_RU"
                            << "en";
    QTest::newRow("chosen with territory") << QByteArray("<!--Application_Lang=\"en_US\"-->") << "en_US"
                                           << "ru";
    QTest::newRow("left empty, English") << QByteArray("<!--Application_Lang=\"\"-->") << "en_US"
                                         << "en";
    QTest::newRow("left empty, Russian") << QByteArray("<!--Application_Lang=\"\"-->") << "ru_RU"
                                         << "ru";
}

void TstMainWindow::languageAtStart()
{
    QFETCH(const QByteArray, head);
    QFETCH(const QString, locale);
    QFETCH(const QString, applied);
    const ScopedHome home;
    if (!head.isNull())
        home.write(QStringLiteral("config/recfiles.xml"), head);
    interfaceLanguage::applyConfigured(locale);
    QCOMPARE(App_lang, applied);
}

void TstMainWindow::switchesLanguageBothWays()
{
    const ScopedHome home;
    const Shown shown;
    QCOMPARE(heading(shown.window, 2), QStringLiteral("Опорный"));
    const QStringList before = russianTexts(shown.window);
    QVERIFY(before.size() > 40);

    trigger(shown.window, "actionEng");
    const QStringList left = russianTexts(shown.window);
    QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char('|'))));
    QCOMPARE(RecTypes[0], QStringLiteral("phase"));
    QVERIFY(shown.window.findChild<QAction*>(QStringLiteral("actionEng"))->isChecked());

    trigger(shown.window, "actionRuss");
    QCOMPARE(russianTexts(shown.window), before);
    QCOMPARE(RecTypes[0], QStringLiteral("фаза"));
}

void TstMainWindow::refusesToCloseWhileBusy()
{
    const ScopedHome home;
    Shown shown;
    {
        const BusyGuard busy;
        QVERIFY(!shown.window.close());
        QVERIFY(shown.window.isVisible());
        QVERIFY(!QFile::exists(home.file(QStringLiteral("config/recfiles.xml"))));
    }
    QVERIFY(shown.window.close());
}

void TstMainWindow::remembersTheLanguage()
{
    const ScopedHome home;
    const QByteArray rest = "<Later><kept/></Later>";
    const QString file = home.write(QStringLiteral("config/recfiles.xml"),
        "<!--Application_ver = \"1\" Application_Lang=\"ru\"--><xml>" + rest + "</xml>");
    Shown shown;
    trigger(shown.window, "actionEng");
    QVERIFY(shown.window.close());
    QFile written(file);
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QByteArray content = written.readAll();
    QVERIFY(content.left(200).contains(
        "<!--Application_ver = \"" + Appver.toLatin1() + "\" Application_Lang=\"en\"-->"));
    QVERIFY(content.contains("<kept/>")); // what a newer version keeps there
}

void TstMainWindow::tellsTheVersion()
{
    const ScopedHome home;
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    prompts.press(QMessageBox::Ok);
    const Shown shown;
    trigger(shown.window, "About");
    QCOMPARE(prompts.seen[0].title, QStringLiteral("Kronalys"));
    QVERIFY(prompts.seen[0].text.startsWith(
        QStringLiteral("Программа обработки данных измерений. \n\nver 1.24.02.376 2024\n")));
    trigger(shown.window, "actionEng");
    trigger(shown.window, "About");
    QVERIFY(prompts.seen[1].text.contains(QStringLiteral("ver 1.24.02.376 2024\n")));
    QVERIFY(!prompts.seen[1].text.contains(QRegularExpression(QStringLiteral("[А-Яа-я]"))));
}

void TstMainWindow::tellsAMissingFile()
{
    const ScopedHome home;
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    char name[] = "kronalys";
    char file[] = "/no/such/file.txt";
    char* arguments[] = {name, file, nullptr};
    MainWindow window(2, arguments);
    window.show();
    QTRY_COMPARE(prompts.seen.size(), 1);
    QVERIFY(prompts.seen[0].text.contains(QLatin1String(file)));
}

void TstMainWindow::keepsTheTableAndDropsGraphs()
{
    const ScopedHome home;
    Shown shown;
    const auto* area = shown.window.findChild<QMdiArea*>();
    auto* table = shown.window.findChild<SelRecTable*>();
    QVERIFY(table && table->isVisible());
    auto* frame = qobject_cast<QMdiSubWindow*>(table->parentWidget());
    QVERIFY(frame);
    frame->close();
    QVERIFY(!table->isVisible());
    trigger(shown.window, "showall_action");
    QVERIFY(table->isVisible());

    auto* graph = new QWidget;
    emit table->windowMade(graph);
    QVERIFY(graph->isVisible());
    const int frames = area->subWindowList().size();
    graph->deleteLater();
    QTRY_COMPARE(area->subWindowList().size(), frames - 1);
}

void TstMainWindow::tilesGraphsOnly()
{
    const ScopedHome home;
    Shown shown;
    auto* table = shown.window.findChild<SelRecTable*>();
    QList<QWidget*> graphs{new QWidget, new QWidget};
    for (QWidget* graph : graphs)
        emit table->windowMade(graph);
    trigger(shown.window, "tile_figs_action");
    QVERIFY(table->parentWidget()->isMinimized());
    const QRect first = graphs[0]->parentWidget()->geometry();
    const QRect second = graphs[1]->parentWidget()->geometry();
    QVERIFY(!first.intersects(second));
    QVERIFY(first.width() > 100 && second.width() > 100);
    trigger(shown.window, "showall_action");
    QVERIFY(!table->parentWidget()->isMinimized());
}

void TstMainWindow::arrangesGraphsBelowTheTable()
{
    const ScopedHome home;
    Shown shown;
    shown.window.setWindowState(Qt::WindowNoState);
    shown.window.resize(1400, 1000);
    auto* table = shown.window.findChild<SelRecTable*>();
    QList<QWidget*> graphs{new QWidget, new QWidget, new QWidget};
    for (QWidget* graph : graphs)
        emit table->windowMade(graph);
    trigger(shown.window, "arrange_action");
    const auto* area = shown.window.findChild<QMdiArea*>();
    QList<QMdiSubWindow*> frames = area->subWindowList();
    frames.erase(std::remove_if(frames.begin(), frames.end(),
                     [](const QMdiSubWindow* frame) { return frame->isHidden(); }), // the help
        frames.end());
    QCOMPARE(frames.size(), 4);
    for (int i = 0; i < 4; ++i) {
        QVERIFY(area->viewport()->rect().contains(frames[i]->geometry()));
        for (int j = 0; j < i; ++j)
            QVERIFY(!frames[i]->geometry().intersects(frames[j]->geometry()));
    }
}

int main(int argc, char** argv)
{
    initResources();
    Application application(argc, argv);
    TstMainWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mainwindow.moc"
