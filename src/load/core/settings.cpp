#include "load/core/settings.h"

#include "base/paths.h"

#include <QCoreApplication>
#include <QDir>

QString firstOpenedPath()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/.."));
}

Settings defaultSettings(const QDate& today)
{
    Settings settings;
    settings.winProp.openedPathS = QStringList{firstOpenedPath()};
    settings.startPath = QDir::homePath() + QLatin1Char('/');
    settings.cggtts.date1 = QDate(today.year(), today.month(), 1);
    settings.cggtts.date2 = today;
    settings.cggtts.db_path = paths::data();
    return settings;
}
