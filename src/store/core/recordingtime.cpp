#include "store/core/recordingtime.h"

#include "base/globals.h"

#include <QDate>
#include <QTime>

#include <optional>

namespace {

constexpr int daySeconds = 86400;
/// The first of them hold a date alone.
constexpr int dateFormats = 4;
constexpr int shortestText = 8; // characters of the shortest of them

/// The number in two digits at `at`; -1 when there is none.
int twoDigits(const QString& text, int at)
{
    const int tens = text.at(at).unicode() - '0', ones = text.at(at + 1).unicode() - '0';
    return tens >= 0 && tens <= 9 && ones >= 0 && ones <= 9 ? tens * 10 + ones : -1;
}

/// The form that recordings are written in, which makes nearly all texts: "dd.MM.yyyy", with or without
/// " hh:mm:ss". Nothing where the text is not just that.
std::optional<QTime> timeOfUsualText(const QString& text, const QTime& missing)
{
    const QLatin1String form("00.00.0000 00:00:00");
    const bool dateAlone = text.size() == 10;
    if (!dateAlone && text.size() != form.size())
        return {};
    for (const int at : {2, 5, 10, 13, 16}) {
        if (at < text.size() && text.at(at) != form.at(at))
            return {};
    }
    const int century = twoDigits(text, 6), year = twoDigits(text, 8);
    if (century < 0 || year < 0
        || !QDate::isValid(century * 100 + year, twoDigits(text, 3), twoDigits(text, 0)))
        return {};
    if (dateAlone)
        return missing;
    const QTime time(twoDigits(text, 11), twoDigits(text, 14), twoDigits(text, 17));
    return time.isValid() ? std::optional<QTime>(time) : std::nullopt;
}

} // namespace

double secondsBetween(const QDateTime& from, const QDateTime& to)
{
    return double(from.date().daysTo(to.date())) * daySeconds
        + (to.time().msecsSinceStartOfDay() - from.time().msecsSinceStartOfDay()) / 1000.0;
}

QDateTime plusSeconds(const QDateTime& from, qint64 seconds)
{
    const qint64 ofDay = from.time().msecsSinceStartOfDay() / 1000 + seconds;
    const qint64 days = ofDay >= 0 ? ofDay / daySeconds : -((-ofDay + daySeconds - 1) / daySeconds);
    const QTime time =
        QTime::fromMSecsSinceStartOfDay(int((ofDay - days * daySeconds) * 1000 + from.time().msec()));
    return QDateTime(from.date().addDays(days), time);
}

QDateTime dayStart(const QDate& day)
{
    return QDateTime(day, QTime(0, 0));
}

QDateTime dayEnd(const QDate& day)
{
    return QDateTime(day, QTime(23, 59, 59));
}

QTime timeOfText(const QString& text, const QTime& missing)
{
    if (const std::optional<QTime> usual = timeOfUsualText(text, missing))
        return *usual;
    if (text.size() < shortestText || !text.front().isDigit()) // no pattern fits
        return missing;
    for (int i = 0; i < numOfFormats; ++i) {
        if (i < dateFormats) {
            if (QDate::fromString(text, Formats[i]).isValid())
                return missing;
            continue;
        }
        // Date and time by themselves: QDateTime would refuse the hour that summer time leaves out.
        const int blank = Formats[i].indexOf(QLatin1Char(' '));
        const int split = text.indexOf(QLatin1Char(' '));
        if (split < 0 || !QDate::fromString(text.left(split), Formats[i].left(blank)).isValid())
            continue;
        const QTime time = QTime::fromString(text.mid(split + 1), Formats[i].mid(blank + 1));
        if (time.isValid())
            return time;
    }
    return missing;
}
