#include "load/core/columnlines.h"

#include "load/core/numbertext.h"

#include <QTime>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr double dayLength = 86400.0; // s
constexpr double leastInterval = 1e-6; // s

inline bool separatesWords(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool possible(int column)
{
    return column < ColumnLines::mostColumns;
}

/// Fields up to and with a column.
int fieldsTo(int column)
{
    return possible(column) ? column + 1 : 0;
}

/// The first place of `text` in a line, or its end.
const char* findText(const char* begin, const char* end, const QByteArray& text)
{
    const std::size_t room = std::size_t(end - begin);
    const void* const found = text.size() == 1
        ? std::memchr(begin, text.at(0), room)
        : memmem(begin, room, text.constData(), std::size_t(text.size()));
    return found ? static_cast<const char*>(found) : end;
}

} // namespace

FieldSpan trimmedSpan(FieldSpan line)
{
    while (line.begin < line.end && isWhite(*line.begin))
        ++line.begin;
    while (line.end > line.begin && isWhite(line.end[-1]))
        --line.end;
    return line;
}

FieldCutter::FieldCutter(const QString& separator)
    : m_separator(separator.toUtf8())
    , m_white(separator == QLatin1String(" "))
{
}

int FieldCutter::cutAtWhite(FieldSpan line, int most, std::vector<FieldSpan>& fields) const
{
    const char* at = line.begin;
    int count = 0;
    while (count < most) {
        while (at < line.end && separatesWords(*at))
            ++at;
        if (at == line.end)
            break;
        const char* const begin = at;
        while (at < line.end && !separatesWords(*at))
            ++at;
        if (std::size_t(count) == fields.size())
            fields.emplace_back();
        fields[std::size_t(count++)] = {begin, at};
    }
    return count;
}

int FieldCutter::cut(FieldSpan line, int most, std::vector<FieldSpan>& fields) const
{
    if (m_white)
        return cutAtWhite(line, most, fields);
    const char* at = line.begin;
    int count = 0;
    while (count < most) {
        const char* const end = m_separator.isEmpty() ? line.end : findText(at, line.end, m_separator);
        if (std::size_t(count) == fields.size())
            fields.emplace_back();
        fields[std::size_t(count++)] = {at, end};
        if (end == line.end)
            break;
        at = end + m_separator.size();
    }
    return count;
}

bool numberOfField(FieldSpan field, bool& manyDigits, double& value)
{
    field = trimmedSpan(field);
    if (readPlainNumber(field.begin, field.end, false, manyDigits, value) == field.end
        && field.begin < field.end)
        return true;
    const bool comma = std::memchr(field.begin, ',', std::size_t(field.end - field.begin)) != nullptr;
    return !comma && numberFromText(field.begin, field.end, value);
}

ColumnLines::ColumnLines(const ReadFormat& format, const QDate& today)
    : m_format(format)
    , m_today(today)
    , m_cutter(format.separator)
    , m_dateTimeText(format.dateFromFileDateTime_format)
    , m_dateText(format.dateFromFileDate_format)
    , m_timeText(format.timeFormat_format)
    , m_data(format.columnNum_data)
    , m_timeColumn(std::max(format.columnNum_time, -1))
    , m_formattedTime(format.timeFormat_flag && !format.timeFormat_format.isEmpty())
    , m_interval(format.interval >= leastInterval && std::isfinite(format.interval) ? format.interval : 1.0)
    , m_skip(std::max(format.linesToSkip, 0))
    , m_values(std::size_t(m_data.size()))
    , m_hasValue(m_values.size())
    , m_manyDigits(m_values.size())
{
    m_needed = fieldsTo(m_timeColumn);
    m_usable = !format.separator.isEmpty() && !m_data.isEmpty() && possible(m_timeColumn);
    for (const int column : qAsConst(m_data)) {
        m_usable = m_usable && column >= 0 && possible(column);
        m_needed = std::max(m_needed, fieldsTo(column));
    }
    m_wanted = m_needed;
    const auto want = [this](bool flag, int column) {
        if (flag)
            m_wanted = std::max(m_wanted, fieldsTo(column));
        m_usable = m_usable && (!flag || possible(column));
    };
    want(format.dateFromFileDateTime_flag, format.columnNum_datetime);
    want(format.dateFromFileDate_flag, format.columnNum_date);
    setNameDate(today);
}

void ColumnLines::setNameDate(const QDate& date)
{
    m_nameDay = afterCentury((date.isValid() ? date : m_today).toJulianDay());
}

ColumnLines::Outcome ColumnLines::read(const char* begin, const char* end)
{
    const FieldSpan line = trimmedSpan({begin, end});
    if (line.begin == line.end)
        return Outcome::Blank;
    m_fieldCount = m_cutter.cut(line, m_wanted, m_fields);
    if (m_fieldCount < m_needed)
        return Outcome::TooFewFields;
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        bool many = m_manyDigits[i] != 0;
        m_hasValue[i] = numberOfField(m_fields[std::size_t(m_data.at(int(i)))], many, m_values[i]);
        m_manyDigits[i] = many;
    }
    if (!m_hasStart && !findStart())
        return Outcome::NoTime;
    return findTime() ? Outcome::Timed : Outcome::NoTime;
}

const FieldSpan* ColumnLines::field(int column) const
{
    return column >= 0 && column < m_fieldCount ? &m_fields[std::size_t(column)] : nullptr;
}

bool ColumnLines::readField(const DateTimeText& format, int column, DateTimeText::Moment& moment) const
{
    const FieldSpan* const text = field(column);
    return text && format.read(text->begin, text->end, moment);
}

bool ColumnLines::findStart()
{
    DateTimeText::Moment start;
    if (m_format.dateFromFileName_flag) {
        start.day = m_nameDay;
        start.msec = timeOfStart();
    } else if (m_format.dateFromFileDateTime_flag && m_format.columnNum_datetime >= 0
        && !m_dateTimeText.isEmpty()) {
        if (!readField(m_dateTimeText, m_format.columnNum_datetime, start))
            return false;
    } else {
        const QDate told = m_format.timeStart_dateTime.date();
        start.day = (told.isValid() ? told : m_today).toJulianDay();
        if (m_format.dateFromFileDate_flag
            && !(m_dateText.hasDate() && readField(m_dateText, m_format.columnNum_date, start)))
            return false;
        start.msec = timeOfStart();
    }
    start.day = afterCentury(start.day);
    m_start = start;
    m_hasStart = true;
    m_time = 0.0;
    return true;
}

/// In milliseconds.
int ColumnLines::timeOfStart()
{
    if (m_format.timeStart_flag) {
        const QTime told = m_format.timeStart_dateTime.time();
        return told.isValid() ? told.msecsSinceStartOfDay() : 0;
    }
    const FieldSpan* const text = field(m_timeColumn);
    DateTimeText::Moment moment;
    if (m_formattedTime)
        return readField(m_timeText, m_timeColumn, moment) ? moment.msec : 0;
    double second = 0.0;
    if (!text || !numberOfField(*text, m_manyTimeDigits, second))
        return 0;
    second *= m_format.timeUnit_format;
    return second >= 0.0 && second < dayLength - 0.0005 ? int(std::lround(second * 1000.0)) : 0;
}

bool ColumnLines::findTime()
{
    double time = 0.0;
    if (m_format.dateFromFileDateTime_flag) {
        DateTimeText::Moment moment;
        if (!readField(m_dateTimeText, m_format.columnNum_datetime, moment))
            return false;
        moment.day = afterCentury(moment.day);
        m_time = secondsBetween(m_start, moment);
        return true;
    }
    if (m_timeColumn < 0) {
        m_counting = m_counting || std::find(m_hasValue.begin(), m_hasValue.end(), 1) != m_hasValue.end();
        if (m_counting)
            m_time += m_interval; // deliberate: the first sample lies one interval behind the start
        return true;
    }
    if (m_formattedTime)
        return findFormattedTime();
    if (!m_format.timeUnit_flag || !numberOfField(*field(m_timeColumn), m_manyTimeDigits, time))
        return false;
    time *= m_format.timeUnit_format; // deliberate: not counted from the start
    if (!std::isfinite(time))
        return false;
    m_time = time;
    return true;
}

bool ColumnLines::findFormattedTime()
{
    DateTimeText::Moment moment;
    if (!readField(m_timeText, m_timeColumn, moment))
        return false;
    bool hasDate = m_timeText.hasDate();
    if (m_format.dateFromFileName_flag) {
        moment.day = m_nameDay;
        hasDate = true;
    }
    if (m_format.dateFromFileDate_flag) {
        DateTimeText::Moment date;
        hasDate = m_dateText.hasDate() && readField(m_dateText, m_format.columnNum_date, date);
        moment.day = date.day;
    }
    moment.day = hasDate ? afterCentury(moment.day) : m_start.day;
    m_time = secondsBetween(m_start, moment);
    return true;
}

QDateTime ColumnLines::start() const
{
    const QDate date = QDate::fromJulianDay(m_start.day);
    const QTime time = QTime::fromMSecsSinceStartOfDay(m_start.msec);
    const QDateTime start(date, time);
    return start.isValid() ? start : QDateTime(date, time.addSecs(3600)); // a summer time begins here
}

bool ColumnLines::isDateColumn(int column) const
{
    return (m_format.dateFromFileDateTime_flag && column == m_format.columnNum_datetime)
        || (m_format.dateFromFileDate_flag && column == m_format.columnNum_date);
}

bool ColumnLines::isReadable(int column, FieldSpan text) const
{
    DateTimeText::Moment moment;
    double number = 0.0;
    bool many = false;
    const auto reads = [&](const DateTimeText& format) { return format.read(text.begin, text.end, moment); };
    if (m_format.dateFromFileDateTime_flag && column == m_format.columnNum_datetime && !reads(m_dateTimeText))
        return false;
    if (m_format.dateFromFileDate_flag && column == m_format.columnNum_date
        && !(m_dateText.hasDate() && reads(m_dateText)))
        return false;
    if (column == m_timeColumn && !m_format.dateFromFileDateTime_flag
        && !(m_formattedTime ? reads(m_timeText) : numberOfField(text, many, number)))
        return false;
    return !m_data.contains(column) || numberOfField(text, many, number);
}
