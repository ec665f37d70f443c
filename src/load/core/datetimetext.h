#pragma once

#include <QString>
#include <QtGlobal>

#include <vector>

/// A date-time format in Qt's language, compiled once, that reads many texts.
///
/// A text gives what QDateTime::fromString() gives for it. Formats of digits ("hh:mm:ss", "yyyyMMdd",
/// "d.M.yyyy H:mm") are read without a general parser, the rest goes through Qt.
class DateTimeText {
public:
    struct Moment {
        qint64 day = 0; // Julian day
        int msec = 0; // of the day
    };

    explicit DateTimeText(const QString& format);

    bool isEmpty() const { return m_format.isEmpty(); }
    /// The format has a day, month or year. Without one, the day that is read is 1900-01-01.
    bool hasDate() const { return m_hasDate; }
    /// Texts of the usual form are read without Qt's parser.
    bool isQuick() const { return m_quick; }

    /// False when the characters are no such date or time; `moment` then is untouched.
    bool read(const char* begin, const char* end, Moment& moment) const;

private:
    enum Section : char { Literal, Year, ShortYear, Month, Day, Hour, Minute, Second, Msec, SectionCount };
    struct Token {
        Section section;
        char literal; // the character of a Literal
        uchar least; // digits of a section
        uchar most;
    };

    void compile();
    bool addSection(QChar letter, int length);
    bool addLiteral(QChar c);
    bool readQuickly(const char* at, const char* end, Moment& moment) const;

    QString m_format;
    std::vector<Token> m_tokens;
    int m_longest; // characters that a text may have
    bool m_hasDate = false;
    bool m_quick = false;
};

/// A Julian day after the correction of two-digit years: a year below 2000, also one of four digits, gets 100
/// years added.
qint64 afterCentury(qint64 julianDay);

/// Seconds from one moment to another, by the calendar: a day has 86400 of them, no time zone counts.
double secondsBetween(const DateTimeText::Moment& from, const DateTimeText::Moment& to);
