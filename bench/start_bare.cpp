// The least that a program with an area of windows and a table needs: it shows them once and ends.

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QTableWidget>
#include <QTimer>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    auto* area = new QMdiArea(&window);
    window.setCentralWidget(area);
    window.menuBar()->addMenu(QStringLiteral("File"));
    window.statusBar();
    auto* frame = area->addSubWindow(new QTableWidget(32, 12));
    frame->resize(1210, 480);
    window.setWindowState(Qt::WindowMaximized);
    window.show();
    QTimer::singleShot(0, &application, &QApplication::quit); // behind the first painting
    return QApplication::exec();
}
