#include "load/core/datetimetext.h"

#include "load/core/bytetext.h"
#include "load/core/numbertext.h"

#include <QDate>
#include <QDateTime>
#include <QTime>

#include <algorithm>

namespace {

constexpr int defaultYear = 1900; // of QDateTime::fromString()
constexpr int roomForNames = 256; // characters; names of months and days in any language

/// Of a Gregorian date from the year 1 on. Years start in March here, so that a leap day ends one; from there
/// on, the lengths of the months repeat every five with 153 days.
qint64 julianDay(int year, int month, int day)
{
    constexpr int daysBefore = 1721119; // Julian day of March 1 of the year 0, less 1
    const int y = month > 2 ? year : year - 1;
    const int m = month > 2 ? month - 3 : month + 9;
    return daysBefore + 365 * y + y / 4 - y / 100 + y / 400 + (153 * m + 2) / 5 + day;
}

/// Behind the run of equal letters at `at`.
int runEnd(const QString& format, int at)
{
    int end = at + 1;
    while (end < format.size() && format.at(end) == format.at(at))
        ++end;
    return end;
}

} // namespace

DateTimeText::DateTimeText(const QString& format)
    : m_format(format)
    , m_longest(format.size() + roomForNames)
{
    compile();
}

void DateTimeText::compile()
{
    m_quick = !m_format.isEmpty();
    bool quoted = false;
    for (int i = 0; i < m_format.size();) {
        const QChar c = m_format.at(i);
        if (c == QLatin1Char('\'')) {
            quoted = !quoted;
            m_quick = m_quick && !(i > 0 && m_format.at(i - 1) == c); // a doubled quote is one of the text
            ++i;
            continue;
        }
        const bool letter = c.isLetter() && !quoted;
        const int end = letter ? runEnd(m_format, i) : i + 1;
        const int length = end - i;
        m_hasDate = m_hasDate
            || (letter
                && (c == QLatin1Char('d') || c == QLatin1Char('M') || (c == QLatin1Char('y') && length > 1)));
        if (m_quick)
            m_quick = letter ? addSection(c, length) : addLiteral(c);
        i = end;
    }
    m_quick = m_quick && !quoted;
    // A section of either length must know where it ends, and no section may come twice.
    int seen[SectionCount] = {};
    for (std::size_t i = 0; m_quick && i < m_tokens.size(); ++i) {
        const Token& token = m_tokens[i];
        const bool open = token.least < token.most && i + 1 < m_tokens.size();
        if (open && m_tokens[i + 1].section != Literal)
            m_quick = false;
        if (token.section != Literal && ++seen[token.section] > 1)
            m_quick = false;
    }
    if (seen[Year] + seen[ShortYear] > 1)
        m_quick = false;
}

/// False for what only Qt reads: names, AM and PM, time zones.
bool DateTimeText::addSection(QChar letter, int length)
{
    const auto add = [this](Section section, int least, int most) {
        m_tokens.push_back({section, 0, uchar(least), uchar(most)});
        return true;
    };
    const auto addEither = [&](Section section) { return length <= 2 && add(section, length, 2); };
    switch (letter.unicode()) {
    case 'y':
        return length == 4 ? add(Year, 4, 4) : length == 2 && add(ShortYear, 2, 2);
    case 'M':
        return addEither(Month);
    case 'd':
        return addEither(Day);
    case 'h':
    case 'H':
        return addEither(Hour);
    case 'm':
        return addEither(Minute);
    case 's':
        return addEither(Second);
    case 'z':
        return length == 3 && add(Msec, 3, 3);
    case 'T':
        return length == 1 && addLiteral(letter);
    default:
        return false;
    }
}

bool DateTimeText::addLiteral(QChar c)
{
    if (c.unicode() <= ' ' || c.unicode() > '~' || c.isDigit())
        if (c != QLatin1Char(' '))
            return false;
    m_tokens.push_back({Literal, c.toLatin1(), 0, 0});
    return true;
}

bool DateTimeText::readQuickly(const char* at, const char* end, Moment& moment) const
{
    int values[SectionCount] = {0, defaultYear, 0, 1, 1, 0, 0, 0, 0};
    for (const Token& token : m_tokens) {
        if (token.section == Literal) {
            if (at == end || *at++ != token.literal)
                return false;
            continue;
        }
        int value = 0;
        int digits = 0;
        for (; digits < token.most && at < end && isDigit(*at); ++digits)
            value = value * 10 + (*at++ - '0');
        if (digits < token.least)
            return false;
        values[token.section] = value;
        if (token.section == ShortYear)
            values[Year] = defaultYear + value;
    }
    if (at != end || values[Hour] > 23 || values[Minute] > 59 || values[Second] > 59)
        return false;
    if (m_hasDate) {
        if (values[Year] < 1 || !QDate::isValid(values[Year], values[Month], values[Day]))
            return false;
        moment.day = julianDay(values[Year], values[Month], values[Day]);
    } else {
        static const qint64 defaultDay = QDate(defaultYear, 1, 1).toJulianDay();
        moment.day = defaultDay;
    }
    moment.msec = ((values[Hour] * 60 + values[Minute]) * 60 + values[Second]) * 1000 + values[Msec];
    return true;
}

bool DateTimeText::read(const char* begin, const char* end, Moment& moment) const
{
    if (m_quick && readQuickly(begin, end, moment))
        return true;
    // A character has up to four bytes.
    if (isEmpty() || end - begin > 4 * std::ptrdiff_t(m_longest))
        return false;
    const QDateTime read = QDateTime::fromString(textFromBytes(begin, end), m_format);
    if (!read.date().isValid() || !read.time().isValid())
        return false;
    moment.day = read.date().toJulianDay();
    moment.msec = read.time().msecsSinceStartOfDay();
    return true;
}

qint64 afterCentury(qint64 julianDay)
{
    static const qint64 year2000 = QDate(2000, 1, 1).toJulianDay();
    return julianDay < year2000 ? QDate::fromJulianDay(julianDay).addYears(100).toJulianDay() : julianDay;
}

double secondsBetween(const DateTimeText::Moment& from, const DateTimeText::Moment& to)
{
    constexpr qint64 dayMsecs = 86400000;
    return double((to.day - from.day) * dayMsecs + (to.msec - from.msec)) / 1000.0;
}
