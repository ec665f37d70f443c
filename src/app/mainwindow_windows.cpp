#include "app/mainwindow.h"

#include "app/windowlayout.h"
#include "help/helpform.h"
#include "table/selrectable.h"
#include "ui_mainwindow.h"

#include <QAction>
#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QResizeEvent>

#include <iterator>

namespace {

QString kindOf(const QObject& window)
{
    return QLatin1String(window.metaObject()->className());
}

} // namespace

void MainWindow::addWindow(QWidget* window)
{
    constexpr QSize readable(540, 440);
    const QSize own = window->testAttribute(Qt::WA_Resized) ? window->size() : window->sizeHint();
    const QSize wanted = m_layout->sizeOf(kindOf(*window), own.expandedTo(readable))
                             .boundedTo(m_area->maximumViewportSize().expandedTo(readable));
    auto* frame = new QMdiSubWindow;
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->setWidget(window);
    frame->setWindowIcon(window->windowIcon());
    frame->installEventFilter(this);
    frame->resize(wanted); // before the area looks for a place that is large enough
    m_area->addSubWindow(frame);
    connect(window, &QObject::destroyed, frame, &QObject::deleteLater);
    window->show();
    frame->show();
    m_area->setActiveSubWindow(frame);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    auto* frame = event->type() == QEvent::Close ? qobject_cast<QMdiSubWindow*>(watched) : nullptr;
    if (frame && (frame == m_tableFrame || frame == m_helpFrame)) {
        // These live as long as the program: closing them only puts them out of sight.
        event->ignore();
        frame->hide();
        return true;
    }
    if (frame && frame->widget() && !frame->isMaximized() && !frame->isMinimized())
        m_layout->keepSize(kindOf(*frame->widget()), frame->size());
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    placeTable();
}

/// Where the user left the table in the last session; else as large as it wants to be, at most the area. It
/// follows the main window until the user moves it.
void MainWindow::placeTable()
{
    if (m_tableFrame->isMaximized() || m_tableFrame->isMinimized())
        return;
    if (m_tablePlace.isValid() && m_tableFrame->geometry() != m_tablePlace)
        return;
    constexpr QSize comfortable(1210, 480);
    const QSize wanted = m_tableFrame->sizeHint().expandedTo(comfortable);
    const QSize area = m_area->maximumViewportSize();
    QRect place(QPoint(0, 0), wanted.boundedTo(area));
    const QRect left = m_layout->placeOf(kindOf(*m_table));
    if (QRect(QPoint(0, 0), area).contains(left))
        place = left;
    m_tableFrame->setGeometry(place);
    m_tablePlace = m_tableFrame->geometry();
}

/// The table and the help come back where they stood, graphs as large as the last one of their kind.
void MainWindow::keepWindows()
{
    m_layout->keep(this);
    for (const QMdiSubWindow* frame : m_area->subWindowList()) {
        QWidget* window = frame->widget();
        if (!window || frame->isMaximized() || frame->isMinimized())
            continue;
        if (window == m_table || window == m_help)
            m_layout->keepPlace(kindOf(*window), frame->geometry());
        else
            m_layout->keepSize(kindOf(*window), frame->size());
    }
}

/// Puts the keyboard into the record table, wherever it was.
void MainWindow::showTable()
{
    activateWindow();
    m_tableFrame->show();
    m_area->setActiveSubWindow(m_tableFrame);
    m_table->setFocus();
}

void MainWindow::showEverything()
{
    for (QMdiSubWindow* frame : m_area->subWindowList()) {
        if (frame->isMinimized())
            frame->showNormal();
    }
    showTable();
}

/// The system menus of the frames are Qt's own, and Qt sets their texts only when it makes a frame.
void MainWindow::retranslateFrames()
{
    const char* const texts[] = {
        "&Restore", "&Move", "&Size", "Mi&nimize", "Ma&ximize", "Stay on &Top", "&Close"};
    for (const QMdiSubWindow* frame : m_area->subWindowList()) {
        size_t next = 0;
        for (QAction* action : frame->systemMenu() ? frame->systemMenu()->actions() : QList<QAction*>()) {
            if (!action->isSeparator() && next < std::size(texts))
                action->setText(QCoreApplication::translate("QMdiSubWindow", texts[next++]));
        }
    }
}

/// All windows of the area but a help that was not asked for.
QList<QMdiSubWindow*> MainWindow::windowsInUse() const
{
    QList<QMdiSubWindow*> frames = m_area->subWindowList();
    if (m_helpFrame && m_helpFrame->isHidden())
        frames.removeAll(m_helpFrame);
    return frames;
}

/// The record table above, as wide as the area, since it needs the width; the graphs and tables side by side
/// below.
void MainWindow::arrangeAll()
{
    QList<QMdiSubWindow*> figures = windowsInUse();
    figures.removeAll(m_tableFrame);
    const QSize area = m_area->maximumViewportSize();
    const int above = qMax(area.height() * 2 / 5, m_tableFrame->minimumSizeHint().height());
    m_tableFrame->showNormal();
    m_tableFrame->setGeometry(0, 0, area.width(), above);
    if (figures.isEmpty())
        return;
    constexpr int readableWidth = 480;
    const int columns = qBound(1, area.width() / readableWidth, figures.size());
    const int rows = (figures.size() + columns - 1) / columns;
    int lowest = 0; // the area scrolls rather than cut a graph
    for (const QMdiSubWindow* figure : figures)
        lowest = qMax(lowest, figure->minimumSizeHint().height());
    const QSize cell(area.width() / columns, qMax(lowest, (area.height() - above) / rows));
    for (int i = 0; i < figures.size(); ++i) {
        figures[i]->showNormal();
        const QPoint corner(i % columns * cell.width(), above + i / columns * cell.height());
        figures[i]->setGeometry(QRect(corner, cell));
    }
}

/// The graphs and tables get the area to themselves; the record table waits as a small frame at its lower
/// edge.
void MainWindow::tileGraphs()
{
    if (windowsInUse().size() < 2)
        return;
    m_tableFrame->showMinimized();
    m_area->tileSubWindows();
}

/// Puts the open windows at the end of the window menu.
void MainWindow::listWindows()
{
    for (QAction* old : ui->menu_3->actions()) {
        if (!old->data().isNull()) {
            ui->menu_3->removeAction(old);
            delete old;
        }
    }
    const QList<QMdiSubWindow*> frames = windowsInUse();
    for (int i = 0; i < frames.size(); ++i) {
        QMdiSubWindow* frame = frames[i];
        QAction* choice =
            ui->menu_3->addAction(QStringLiteral("%1  %2").arg(i + 1).arg(frame->windowTitle()));
        choice->setData(i);
        choice->setCheckable(true);
        choice->setChecked(frame == m_area->activeSubWindow());
        connect(choice, &QAction::triggered, frame, [this, frame] {
            frame->isMinimized() ? frame->showNormal() : frame->show();
            m_area->setActiveSubWindow(frame);
        });
    }
}
