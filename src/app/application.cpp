#include "app/application.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "prompt/guard.h"
#include "prompt/prompt.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QTimer>

#include <exception>
#include <new>

Application::Application(int& argumentCount, char** arguments)
    : QApplication(argumentCount, arguments)
{
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    const QScopedValueRollback<int> depth(m_depth, m_depth + 1);
    const bool busyBefore = SLEEP;
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        recover(event, QString(), busyBefore);
    } catch (const std::exception& failure) {
        recover(event, QString::fromUtf8(failure.what()), busyBefore);
    } catch (int) { // doubleArray::operator[] throws the integer 0 on a bad index
        recover(event, tr("обращение за пределы данных записи"), busyBefore);
    } catch (...) {
        recover(event, tr("причина неизвестна"), busyBefore);
    }
    return true;
}

void Application::recover(const QEvent* event, const QString& what, bool busyBefore)
{
    DebugLOG((QByteArray("A command failed: ") + (what.isEmpty() ? "bad_alloc" : what.toUtf8())).constData());
    // A handler inside a long command gives back the state of that command, which goes on.
    const bool outermost = m_depth == 1;
    SLEEP = !outermost && busyBefore;
    while (outermost && overrideCursor())
        restoreOverrideCursor();
    if (event->type() == QEvent::Paint) {
        // The window would fail again at its next repaint, right behind the message.
        if (m_paintFailures.contains(what))
            return;
        m_paintFailures << what;
    }
    if (m_untold.contains(what))
        return;
    m_untold << what;
    // Not from here: a message box must not open inside a handler that paints or moves a window.
    QTimer::singleShot(0, this, &Application::tell);
}

void Application::tell()
{
    if (m_telling)
        return;
    const QScopedValueRollback<bool> telling(m_telling, true);
    while (!m_untold.isEmpty()) {
        const QString what = m_untold.first();
        if (what.isEmpty()) {
            showOutOfMemory();
        } else {
            prompt::message(activeWindow(), QMessageBox::Critical, tr("Внутренняя ошибка"),
                tr("Команда прервана из-за внутренней ошибки: %1.\n"
                   "Записи в таблице сохранены, работу можно продолжать.")
                    .arg(what));
        }
        m_untold.removeFirst(); // only now, so that repeats behind the open box are not told one by one
    }
}
