#include "app/mainwindow.h"

#include "app/windowlayout.h"
#include "base/debuglog.h"
#include "base/globals.h"
#include "base/language.h"
#include "help/helpform.h"
#include "prompt/prompt.h"
#include "ui_mainwindow.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHelpEngine>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>

namespace {

constexpr QSize comfortable(900, 650);

/// The help page of each window, by class.
const struct {
    const char* window;
    const char* page;
} pagesOfWindows[] = {
    {"SelRecTable", "record-table"},
    {"AvarForm", "stability-graph"},
    {"StaticPhaseForm", "graphs"},
    {"PhaseForm", "graphs"},
    {"TableForm", "tables"},
    {"GrafOptions", "graph-options"},
    {"PlotZoomDT", "graph-options"},
    {"InsPlotComment", "graph-options"},
    {"FrGrSetDlg", "graph-options"},
    {"ColumnPage", "loading-columns"},
    {"FolderPage", "loading-folder"},
    {"schedule", "loading-folder"},
    {"OpenFileGlobForm", "loading"},
    {"addNewFormat_class", "format-template"},
    {"saverecform", "format-export"},
    {"Properties", "options"},
    {"OptionsForm", "cross"},
    {"HelpForm", "index"},
};

/// The page of the innermost window that has one; a window of several kinds tells its page itself.
QString pageOf(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        const QVariant own = widget->property("helpPage");
        if (own.isValid())
            return own.toString();
        for (const auto& entry : pagesOfWindows) {
            if (qstrcmp(widget->metaObject()->className(), entry.window) == 0)
                return QLatin1String(entry.page);
        }
    }
    return QStringLiteral("main-window");
}

} // namespace

/// The collection in the language of the interface; empty when there is no help beside the program.
QString MainWindow::helpCollection() const
{
    const QString directory = QCoreApplication::applicationDirPath() + QLatin1String("/doc");
    if (App_lang.isEmpty() || !QFileInfo(directory).isDir())
        return {};
    return directory
        + (language::isEnglish() ? QLatin1String("/KronalysHelp_english.qhc")
                                 : QLatin1String("/KronalysHelp.qhc"));
}

void MainWindow::checkHelp()
{
    const QString file = helpCollection();
    if (file.isEmpty() || QFile::exists(file))
        return;
    DebugLOG("Help was not loaded yet");
    prompt::message(this, QMessageBox::Critical, windowTitle(),
        language::isEnglish()
            ? tr(" Отсутствует файл справки (ENG) \\doc\\KronalysHelp_english.qhc,\nфайл будет создан "
                 "автоматически,\nчасть справочной информации может быть недоступна")
            : tr(" Отсутствует файл справки \\doc\\KronalysHelp.qhc,\nфайл будет создан "
                 "автоматически,\nчасть справочной информации может быть недоступна"));
}

void MainWindow::openHelpCollection()
{
    m_help->setEngine(nullptr);
    delete m_helpEngine;
    m_helpEngine = nullptr;
    const QString file = helpCollection();
    if (file.isEmpty())
        return;
    m_helpEngine = new QHelpEngine(file, this);
    m_help->setEngine(m_helpEngine);
    connect(m_helpEngine, &QHelpEngine::setupFinished, this, &MainWindow::helpsetupfinished);
    m_helpEngine->setupData();
}

/// The help is made when it is first asked for; the main window then stands sooner.
HelpForm* MainWindow::help()
{
    if (m_help)
        return m_help;
    m_help = new HelpForm;
    m_helpFrame = m_area->addSubWindow(m_help);
    m_helpFrame->setAttribute(Qt::WA_DeleteOnClose, false);
    m_helpFrame->setWindowIcon(QApplication::windowIcon());
    m_helpFrame->installEventFilter(this);
    const QRect area(QPoint(0, 0), m_area->maximumViewportSize());
    QRect place = m_layout->placeOf(QLatin1String(m_help->metaObject()->className()));
    if (!area.contains(place)) {
        place = QRect(QPoint(0, 0), comfortable.boundedTo(area.size()));
        place.moveCenter(area.center());
    }
    m_helpFrame->setGeometry(place);
    connect(m_help, &HelpForm::ShowPrev, this, &MainWindow::ShowPrevHelpPage);
    connect(m_help, &HelpForm::ShowNext, this, &MainWindow::ShowNextHelpPage);
    openHelpCollection();
    return m_help;
}

void MainWindow::helpsetupfinished()
{
    DebugLOG("Help was loaded");
}

void MainWindow::ShowPrevHelpPage()
{
    m_help->showPrevious();
}

void MainWindow::ShowNextHelpPage()
{
    m_help->showNext();
}

void MainWindow::showHelp(const QString& page)
{
    help()->showPage(page);
    m_help->show();
    m_helpFrame->isMinimized() ? m_helpFrame->showNormal() : m_helpFrame->show();
    m_area->setActiveSubWindow(m_helpFrame);
    activateWindow();
}

void MainWindow::showHelpOfWindow()
{
    const QWidget* front = QApplication::activeWindow();
    if ((!front || front == this) && m_area->activeSubWindow())
        front = m_area->activeSubWindow()->widget();
    const QWidget* focused = QApplication::focusWidget();
    showHelp(pageOf(front && front->isAncestorOf(focused) ? focused : front));
}
