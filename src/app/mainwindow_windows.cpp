#include "app/mainwindow.h"

#include "table/selrectable.h"
#include "ui_mainwindow.h"

#include <QAction>
#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QResizeEvent>

#include <iterator>

void MainWindow::addWindow(QWidget* window)
{
    constexpr QSize readable(540, 440);
    const QSize wanted = window->testAttribute(Qt::WA_Resized) ? window->size() : window->sizeHint();
    auto* frame = new QMdiSubWindow;
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->setWidget(window);
    frame->setWindowIcon(window->windowIcon());
    frame->resize(wanted.expandedTo(readable)); // before the area looks for a place that is large enough
    m_area->addSubWindow(frame);
    connect(window, &QObject::destroyed, frame, &QObject::deleteLater);
    window->show();
    frame->show();
    m_area->setActiveSubWindow(frame);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_tableFrame && event->type() == QEvent::Close) {
        // The table lives as long as the program: closing it only puts it out of sight.
        event->ignore();
        m_tableFrame->hide();
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    placeTable();
}

/// As large as the table wants to be, at most the area. It follows the main window until the user moves it.
void MainWindow::placeTable()
{
    if (m_tableFrame->isMaximized() || m_tableFrame->isMinimized())
        return;
    if (m_tablePlace.isValid() && m_tableFrame->geometry() != m_tablePlace)
        return;
    constexpr QSize comfortable(1210, 480);
    const QSize wanted = m_tableFrame->sizeHint().expandedTo(comfortable);
    m_tableFrame->setGeometry(QRect(QPoint(0, 0), wanted.boundedTo(m_area->maximumViewportSize())));
    m_tablePlace = m_tableFrame->geometry();
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

/// The record table above, as wide as the area, since it needs the width; the graphs and tables side by side
/// below.
void MainWindow::arrangeAll()
{
    QList<QMdiSubWindow*> figures = m_area->subWindowList();
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
    if (m_area->subWindowList().size() < 2)
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
    const QList<QMdiSubWindow*> frames = m_area->subWindowList();
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
