#include "base/paths.h"

#include <QCoreApplication>
#include <QDir>

namespace paths {

namespace {

QString& rootOverride()
{
    static QString root;
    return root;
}

QString below(const char* name)
{
    const QString& root = rootOverride();
    const QString base =
        root.isEmpty() ? QCoreApplication::applicationDirPath() + QStringLiteral("/..") : root;
    return base + QLatin1String(name);
}

} // namespace

QString config()
{
    return below("/config");
}
QString data()
{
    return below("/data");
}
QString log()
{
    return below("/log");
}

void makeAll()
{
    const QDir anywhere;
    anywhere.mkpath(config());
    anywhere.mkpath(data());
    anywhere.mkpath(log());
}

void setRoot(const QString& root)
{
    rootOverride() = root;
}

} // namespace paths
