#include "base/debuglog.h"

#include "base/globals.h"
#include "base/paths.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QtDebug>

namespace {

constexpr qint64 largestLog = 102400; // bytes

} // namespace

QString logFilePath()
{
    return paths::log() + QStringLiteral("/KronalysLog.log");
}

void DebugLOG(const char* text)
{
    qDebug("%s", text);
    if (!LOG)
        return;
    static QMutex mutex;
    const QMutexLocker lock(&mutex);
    QFile file(logFilePath());
    if (!file.open(QIODevice::Append))
        return;
    file.write(QDateTime::currentDateTime().toString(QStringLiteral("dd.MM hh:mm:ss:zzz  ")).toUtf8());
    file.write(text);
    file.write("\n");
}

void rotateLog(const QDate& today)
{
    const QString current = logFilePath();
    if (QFileInfo(current).size() <= largestLog)
        return;
    const QString base =
        paths::log() + QStringLiteral("/KronalysLog_") + today.toString(QStringLiteral("ddMMyyyy"));
    QString aside = base + QStringLiteral(".log");
    for (int n = 1; QFile::exists(aside); ++n)
        aside = base + QStringLiteral("_%1.log").arg(n);
    QFile::rename(current, aside);
}
