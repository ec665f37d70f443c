// The workstation from its start to a usable window, where it ends.

#include "app/application.h"
#include "app/interfacelanguage.h"
#include "app/mainwindow.h"
#include "base/paths.h"
#include "resources/resources.h"
#include "stats/firfilter.h"

#include <QTemporaryDir>
#include <QTimer>

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    paths::setRoot(home.path());
    initResources();
    Application application(argc, argv);
    paths::makeAll();
    installDefaultFilter(paths::config());
    interfaceLanguage::applyConfigured(QStringLiteral("en_US"));
    MainWindow window(1, argv);
    window.show();
    QTimer::singleShot(0, &application, &QApplication::quit); // behind the first painting
    return QApplication::exec();
}
