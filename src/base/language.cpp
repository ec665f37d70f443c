#include "base/language.h"

#include "base/globals.h"

#include <QFile>
#include <QFileInfo>

namespace language {

namespace {

constexpr int headLength = 200; // bytes

} // namespace

QString fromFile(const QString& file, const QString& localeName, const QString& fallback)
{
    QFile config(file);
    // Opening a pipe would never end.
    if (!QFileInfo(file).isFile() || !config.open(QIODevice::ReadOnly))
        return fallback;
    const QByteArray head = config.read(headLength);
    const int key = head.indexOf("Application_Lang");
    if (key < 0)
        return fallback;
    const QString system = localeName.section(QLatin1Char('_'), 0, 0);
    const int open = head.indexOf('"', key);
    const int close = open < 0 ? -1 : head.indexOf('"', open + 1);
    if (close < 0 || close == open + 1)
        return system;
    return QString::fromLatin1(head.mid(open + 1, close - open - 1));
}

QString headComment(const QString& version, const QString& lang)
{
    return QStringLiteral("Application_ver = \"%1\" Application_Lang=\"%2\"").arg(version, lang);
}

bool isEnglish()
{
    return App_lang == QLatin1String("en");
}

} // namespace language
