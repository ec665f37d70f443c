#include "cli/clivalues.h"

#include <QCommandLineParser>

#include <cmath>

std::optional<QString> valueOf(const QCommandLineParser& parser, const char* name)
{
    const QString option = QString::fromLatin1(name);
    if (!parser.isSet(option))
        return std::nullopt;
    const QString value = parser.value(option);
    if (value.isEmpty())
        throw Misuse{QStringLiteral("--%1 needs a value").arg(option)};
    return value;
}

double numberOf(const QCommandLineParser& parser, const char* name, double byDefault)
{
    const std::optional<QString> text = valueOf(parser, name);
    if (!text)
        return byDefault;
    bool ok = false;
    const double value = text->toDouble(&ok);
    if (!ok || !std::isfinite(value))
        throw Misuse{QStringLiteral("--%1: \"%2\" is not a number").arg(QString::fromLatin1(name), *text)};
    return value;
}

bool isGiven(const QCommandLineParser& parser, const char* name)
{
    return parser.isSet(QString::fromLatin1(name));
}
