#include "prompt/progressscope.h"

#include "base/sleep.h"

#include <QGuiApplication>

ProgressScope::ProgressScope(QProgressBar* bar)
    : m_bar(bar)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    if (!m_bar)
        return;
    m_bar->setRange(0, 100);
    m_bar->setValue(0);
    m_bar->show();
}

ProgressScope::~ProgressScope()
{
    QGuiApplication::restoreOverrideCursor();
    if (m_bar)
        m_bar->hide();
}

void ProgressScope::show(double percent)
{
    if (m_bar)
        m_bar->setValue(qBound(0, qRound(percent), 100));
    sleep(5);
}
