#pragma once

#include "load/core/datetimetext.h"
#include "load/core/readformat.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QVector>

#include <vector>

/// A stretch of characters of a line.
struct FieldSpan {
    const char* begin = nullptr;
    const char* end = nullptr;
};

/// Takes the white space off both ends of a line.
FieldSpan trimmedSpan(FieldSpan line);

/// Cuts trimmed lines into fields.
class FieldCutter {
public:
    /// " " stands for any run of blank, tab and line ends; any other text separates two fields, which may be
    /// empty. It must not be empty itself.
    explicit FieldCutter(const QString& separator);

    /// The fields of a line, at most `most` of them.
    int cut(FieldSpan line, int most, std::vector<FieldSpan>& fields) const;

private:
    int cutAtWhite(FieldSpan line, int most, std::vector<FieldSpan>& fields) const;

    QByteArray m_separator;
    bool m_white;
};

/// The number that a field spells, with white space at both ends passed over: what QString::toDouble accepts,
/// see numbertext.h, so no decimal comma. `manyDigits` as for readPlainNumber().
bool numberOfField(FieldSpan field, bool& manyDigits, double& value);

// Reads the lines of files by a column format, one after another, and finds the start.
//
// The start. Its date: the one in the file's name; or else, with the time, the column of date and time; or
// else the column of dates, or what the user told. Its time: what the user told, or the time column of the
// first line; 00:00:00 when that is no time, or a number outside 0 to 86400 s. Where dates stand in the
// lines, the first line that has one counts, and those before give no sample.
//
// The time of a sample, in seconds since the start: the column of date and time; or, without a time column,
// the time of the line before plus the interval, from 0 in front of the first line with a value; or a
// formatted time, of the date in the file's name, in a column of its own, in the format, or of the start; or
// a number, times its unit and not counted from the start. In all dates, a year below 2000 gets 100 years
// added.
class ColumnLines {
public:
    enum class Outcome {
        Blank,
        TooFewFields, // no field for the time or for a data column
        NoTime, // or none that is finite
        Timed,
    };

    /// No file has more columns.
    static constexpr int mostColumns = 1000000;

    /// `today` stands in for dates that are missing.
    ColumnLines(const ReadFormat& format, const QDate& today);

    /// There is a separator, at least one data column, and no column has an impossible number.
    bool isUsable() const { return m_usable; }
    /// Seconds between samples as the user told; 1 for what is no interval.
    double interval() const { return m_interval; }
    /// Lines at the head of each file that do not count.
    qint64 linesToSkip() const { return m_skip; }

    /// Goes over to a file that has this date in its name; an invalid one counts as today.
    void setNameDate(const QDate& date);

    /// Reads a line, with or without its end.
    Outcome read(const char* begin, const char* end);

    /// Of the last line: seconds since the start.
    double time() const { return m_time; }
    /// Whether data column `index`, counted in the format's list, has a number, and the number. Valid when
    /// there are fields enough.
    bool hasValue(int index) const { return m_hasValue[std::size_t(index)] != 0; }
    double value(int index) const { return m_values[std::size_t(index)]; }
    int dataColumns() const { return m_data.size(); }

    bool hasStart() const { return m_hasStart; }
    /// Seconds from midnight to the start.
    double secondOfStart() const { return m_start.msec / 1000.0; }
    /// In local time.
    QDateTime start() const;

    /// For a look at how lines are cut: the cutter, and what the format makes of single columns.
    const FieldCutter& cutter() const { return m_cutter; }
    bool isTimeColumn(int column) const { return column == m_timeColumn; }
    bool isDateColumn(int column) const;
    /// Index in the format's list of data columns, or -1.
    int dataIndex(int column) const { return m_data.indexOf(column); }
    /// Whether a field of this column is the time, date or number that it should be.
    bool isReadable(int column, FieldSpan field) const;

private:
    const FieldSpan* field(int column) const;
    bool readField(const DateTimeText& format, int column, DateTimeText::Moment& moment) const;
    bool findStart();
    int timeOfStart();
    bool findTime();
    bool findFormattedTime();

    ReadFormat m_format;
    QDate m_today;
    FieldCutter m_cutter;
    DateTimeText m_dateTimeText;
    DateTimeText m_dateText;
    DateTimeText m_timeText;
    QList<int> m_data;
    int m_timeColumn;
    bool m_formattedTime;
    bool m_usable;
    double m_interval;
    qint64 m_skip;
    int m_wanted = 0; // fields to be cut
    int m_needed = 0; // fields that a line must have

    std::vector<FieldSpan> m_fields;
    int m_fieldCount = 0;
    std::vector<double> m_values;
    std::vector<char> m_hasValue;
    std::vector<char> m_manyDigits; // see readPlainNumber
    bool m_manyTimeDigits = false;

    qint64 m_nameDay = 0; // Julian day
    bool m_hasStart = false;
    DateTimeText::Moment m_start;
    double m_time = 0.0;
    bool m_counting = false; // a line with a value was met
};
