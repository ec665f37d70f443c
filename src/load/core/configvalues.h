#pragma once

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <limits>
#include <type_traits>

/// The text form of each type of member in the configuration file. take() leaves the value as it was when the
/// text does not convert.
namespace configValue {

/// Of "start", "stop" and "timeStart_dateTime".
constexpr char momentFormat[] = "yyyyMMddhhmmss";
/// Numbers that a list holds at most.
constexpr int mostNumbers = 1000;

/// A flag that is read in base 2.
template <class Flag> struct Binary {
    Flag& value;
};

template <class Whole>
using IfWhole = std::enable_if_t<std::is_integral_v<Whole> && !std::is_same_v<Whole, bool>>;

template <class Whole, class = IfWhole<Whole>> QString textOf(Whole value)
{
    return QString::number(qlonglong(value));
}
QString textOf(bool value);
QString textOf(Binary<const bool> flag);
QString textOf(double value);
QString textOf(const QString& value);
QString textOf(const QDate& value);
QString textOf(const QDateTime& value);
QString textOf(const QList<int>& value);

template <class Whole, class = IfWhole<Whole>> void take(const QString& text, Whole& value)
{
    bool ok = false;
    const qlonglong number = text.toLongLong(&ok);
    if (ok && number >= qlonglong(std::numeric_limits<Whole>::min())
        && number <= qlonglong(std::numeric_limits<Whole>::max()))
        value = Whole(number);
}
void take(const QString& text, bool& value);
void take(const QString& text, Binary<bool> flag);
void take(const QString& text, double& value);
void take(const QString& text, QString& value);
void take(const QString& text, QDate& value);
void take(const QString& text, QDateTime& value);
void take(const QString& text, QList<int>& value);

} // namespace configValue
