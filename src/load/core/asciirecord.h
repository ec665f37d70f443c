#pragma once

#include "load/core/formatfilereader.h"

#include <QDateTime>
#include <QString>
#include <QVector>

#include <functional>
#include <memory>
#include <vector>

class doubleArray;
struct Record;

// A text file read by a format template becomes one record for each data variable.
//
// Time value of line i (from 0, lines at fault counted), in seconds from 00:00:00 of the start date:
//   template with "t":     t[i] * interval + (second of day of the start - first t)
//   template without "t":  second of day of the start + i * interval
// Part k of the record ends before the first time value that is not below (k + 1) * 86400 / interval.

/// Bits of AsciiRequest::mask: which of the fields are given; the others have the values of a plain file.
enum AsciiGiven : quint8 {
    BandGiven = 1, // else 10
    IntervalGiven = 2, // else 1 s
    MeasuredGiven = 4, // else "Measured signal"
    ReferenceGiven = 8, // else "Reference signal"
    ChannelGiven = 32, // else 0
};

struct AsciiRequest {
    QString fileName;
    QString format;
    QDateTime start;
    quint8 mask = 0;
    /// Seconds between samples, and a unit of the "t" column.
    double interval = 1.0;
    qint32 band = 10;
    qint32 channel = 0;
    QString measuredName;
    QString referenceName;
    /// Factor for each value, to seconds of phase.
    double multiplier = 1.0;
    /// The values are fractional frequencies y: the record gets x[0] = 0 and x[k + 1] = x[k] + y[k] *
    /// multiplier * interval, one sample more than there are values; its time is the last one plus the
    /// interval.
    bool fractionalFrequency = false;
    /// Index among the data variables, or allColumns for all of them in turn within each line.
    int dataColumn = -1;
};

enum class AsciiStatus {
    Ok,
    CannotOpen, // systemError tells why
    ReadError, // likewise
    TemplateRefused, // templateFault tells why
    BadInterval, // not a number above 0
    BadStart, // no valid date and time
    NoDataColumn, // the template has no such data variable
    NoLines, // no line that is neither blank nor a comment
    NoSamples, // no line without fault
    TooLong, // more values than a record can hold
    Cancelled, // by the progress callback
    Declined, // the caller does not want a file with lines at fault
};

struct AsciiResult {
    AsciiStatus status = AsciiStatus::Ok;
    QString systemError;
    TemplateFault templateFault = TemplateFault::None;
    /// Lines at fault, as numbers in the file, from 1, ascending.
    QVector<qint64> badLines;
    /// Number in the file of the line whose time does not rise above the one before; the samples from there
    /// on are left out. 0 when all times rise.
    qint64 stoppedAtLine = 0;
    /// Lines that are neither blank nor comments.
    int lineCount = 0;
    /// Samples of each record; with allColumns, of each variable.
    int sampleCount = 0;
};

/// A text file that has been read once and gives records, one for each data variable. fill() may be called
/// any number of times; the records share the samples of the file, see shareRecord(). A record that is filled
/// gets new arrays, parameters and day counts; all else in it stays.
class AsciiFile {
public:
    static constexpr int allColumns = -1;
    /// More parts than this cannot be walked through; the last one then takes the rest.
    static constexpr int mostParts = 65535;

    explicit AsciiFile(const AsciiRequest& request);

    /// Reads and checks the file. `progress` gets the share read, about every two megabytes; false cancels.
    const AsciiResult& read(const std::function<bool(double)>& progress = {});
    const AsciiResult& result() const { return m_result; }
    /// Names of the data variables.
    QStringList columnNames() const;

    /// Makes a record of one data variable. allColumns puts the values of each line behind each other, and
    /// repeats the line's time for each of them. `channel` is used when the mask has ChannelGiven. Anything
    /// but Ok leaves the record as it was; with std::bad_alloc it is empty.
    AsciiStatus fill(Record* rec, int column, qint32 channel);

private:
    AsciiStatus readStatus() const;
    bool checkRequest();
    void takeTimes();
    void splitDays();
    void scaleColumn(int variable);
    int partLength() const;
    void setParameters(Record* rec, qint32 channel) const;
    void interleave(doubleArray& array, const std::vector<const double*>& columns) const;
    void fillArrays(Record* rec, const QVector<int>& variables) const;

    AsciiRequest m_request;
    double m_interval; // s
    FormatFileReader m_reader;
    AsciiResult m_result;
    double** m_columns = nullptr; // the reader's; lines at fault are taken out
    std::shared_ptr<double[]> m_counted; // times of a template without "t"
    double* m_times = nullptr;
    QVector<int> m_parts; // lengths
    QVector<bool> m_scaled; // by variable
};

/// Reads a file into one record: AsciiFile in one call. `goOn` is asked when there are lines at fault;
/// without it they are left out silently. Anything but Ok leaves the record as it was.
AsciiResult readASCIIData(const AsciiRequest& request, Record* rec,
    const std::function<bool(const AsciiResult&)>& goOn = {},
    const std::function<bool(double)>& progress = {});
