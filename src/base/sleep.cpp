#include "base/sleep.h"

#include <QCoreApplication>

void sleep(int ms)
{
    QCoreApplication::processEvents(QEventLoop::AllEvents, ms);
}
