#include "prompt/guard.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "prompt/warndiag.h"

#include <QCoreApplication>

#include <new>

void showOutOfMemory()
{
    const QString text = QCoreApplication::translate("Memory",
        "Недостаточно оперативной памяти.\nПопробуйте уменьшить количество загруженных записей,уменьшить "
        "количество\nобрабатываемых записей, загрузить записи на меньшем интервале времени,\nзакрыть лишние "
        "графики.");
    if (diag)
        diag->showMe(text);
    else
        WarnDiag().showMe(text);
}

bool runGuarded(const char* what, const std::function<void()>& body)
{
    try {
        body();
        return true;
    } catch (const std::bad_alloc& failure) {
        DebugLOG((QByteArray(what) + " bad_alloc caught: " + failure.what()).constData());
        showOutOfMemory();
        return false;
    }
}
