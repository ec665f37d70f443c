#include "stats/timinglog.h"

#include "base/debuglog.h"

#include <QByteArray>
#include <QString>
#include <QTime>

namespace {

QByteArray now()
{
    return QTime::currentTime().toString(QStringLiteral("mm:ss:zzz")).toUtf8();
}

}

TimingLog::TimingLog(const char* name, long n, long step)
    : m_name(name)
{
    DebugLOG((now() + ' ' + name + " n = " + QByteArray::number(static_cast<qlonglong>(n))
        + " step = " + QByteArray::number(static_cast<qlonglong>(step)))
                 .constData());
}

TimingLog::~TimingLog()
{
    DebugLOG((now() + ' ' + m_name + " end").constData());
}
