#include "plot/core/commenttext.h"

#include <QStringList>

namespace {

const QLatin1String lineEnd("<br />");

} // namespace

QString joinedLines(const QString& plain)
{
    return QString(plain).replace('\n', lineEnd);
}

QString commentMarkup(const QString& joined)
{
    QStringList lines = joined.split(lineEnd);
    for (QString& line : lines)
        line = line.toHtmlEscaped();
    return lines.join(lineEnd);
}

QString commentPlain(const QString& markup)
{
    QString plain = markup;
    plain.replace(lineEnd, QStringLiteral("\n"));
    plain.replace(QLatin1String("&quot;"), QStringLiteral("\""));
    plain.replace(QLatin1String("&gt;"), QStringLiteral(">"));
    plain.replace(QLatin1String("&lt;"), QStringLiteral("<"));
    return plain.replace(QLatin1String("&amp;"), QStringLiteral("&"));
}
