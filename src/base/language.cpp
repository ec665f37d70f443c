#include "base/language.h"

#include "base/globals.h"

#include <QFile>
#include <QSaveFile>

namespace language {

namespace {

constexpr int headLength = 200; // bytes

} // namespace

QString fromFile(const QString& file, const QString& localeName, const QString& fallback)
{
    QFile config(file);
    if (!config.open(QIODevice::ReadOnly))
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

bool toFile(const QString& file, const QString& version, const QString& lang)
{
    const QByteArray comment = "<!--" + headComment(version, lang).toUtf8() + "-->";
    QByteArray content;
    QFile before(file);
    if (before.open(QIODevice::ReadOnly))
        content = before.readAll();
    before.close();
    const int start = content.indexOf("<!--");
    const int end = start < 0 ? -1 : content.indexOf("-->", start);
    if (start >= 0 && start < headLength && end > start
        && content.mid(start, end - start).contains("Application_ver"))
        content.replace(start, end + 3 - start, comment);
    else if (content.startsWith("<?xml") && content.contains("?>"))
        content.insert(content.indexOf("?>") + 2, '\n' + comment);
    else if (content.isEmpty())
        content = "<?xml version=\"1.0\" encoding=\"Windows-1251\"?>\n" + comment + "\n<xml/>\n";
    else
        content.prepend(comment + '\n');
    QSaveFile after(file);
    return after.open(QIODevice::WriteOnly) && after.write(content) == content.size() && after.commit();
}

bool isEnglish()
{
    return App_lang == QLatin1String("en");
}

} // namespace language
