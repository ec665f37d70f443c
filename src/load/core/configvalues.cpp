#include "load/core/configvalues.h"

#include <QStringList>

#include <cmath>

namespace configValue {

QString textOf(bool value)
{
    return QString::number(int(value));
}
QString textOf(Binary<const bool> flag)
{
    return textOf(flag.value);
}
QString textOf(double value)
{
    return QString::number(value, 'g', 6);
}
QString textOf(const QString& value)
{
    return value;
}
QString textOf(const QDate& value)
{
    return value.toString(QStringLiteral("dd.MM.yyyy"));
}
QString textOf(const QDateTime& value)
{
    return value.toString(QLatin1String(momentFormat));
}
QString textOf(const QList<int>& value)
{
    QStringList numbers;
    for (const int number : value)
        numbers << QString::number(number);
    return numbers.join(QLatin1Char(','));
}

void take(const QString& text, bool& value)
{
    bool ok = false;
    const qlonglong number = text.toLongLong(&ok);
    value = ok ? number != 0 : value;
}
void take(const QString& text, Binary<bool> flag)
{
    bool ok = false;
    const qlonglong number = text.toLongLong(&ok, 2);
    flag.value = ok ? number != 0 : flag.value;
}
void take(const QString& text, double& value)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (ok && std::isfinite(number))
        value = number;
}
void take(const QString& text, QString& value)
{
    value = text;
}
void take(const QString& text, QDate& value)
{
    const QDate date = QDate::fromString(text.trimmed(), QStringLiteral("dd.MM.yyyy"));
    value = date.isValid() ? date : value;
}
void take(const QString& text, QDateTime& value)
{
    const QDateTime date = QDateTime::fromString(text.trimmed(), QLatin1String(momentFormat));
    value = date.isValid() ? date : value;
}
void take(const QString& text, QList<int>& value)
{
    QList<int> numbers;
    const QStringList parts = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        bool ok = false;
        numbers << part.toInt(&ok);
        if (!ok || numbers.size() > mostNumbers)
            return;
    }
    value = numbers;
}

} // namespace configValue
