#pragma once

#include "load/core/readformat.h"

#include <QCoreApplication>
#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>
#include <vector>

struct Record;

// Text files read by columns: one record for each data column, over any number of files in turn. The rules of
// start and times stand in columnlines.h, those of day ends and parts in columnrecord.h.
//
// The interval of the records is that of the last file: the time from its first sample to its last, in the
// first data column, over the number of its lines. Where that is no positive number (a single line, times
// that repeat or fall), the interval of the file before stays, and at first the user's.

enum class ColumnStatus {
    Ok,
    NoFiles, // none given, or none whose name holds a date
    CannotOpen, // file, systemError
    ReadError, // file, systemError
    NoColumns, // no data column, or an impossible column number or separator
    TooFewFields, // file, line: a line has no field for a wanted column
    NoSamples, // no line gave a time and a value
    TooLong, // more samples than a record can hold
    Cancelled,
};

struct ColumnResult {
    ColumnStatus status = ColumnStatus::Ok;
    /// Where it happened; the line counts from 1 in the file, 0 when no line is to blame.
    QString file;
    qint64 line = 0;
    QString systemError;
    /// Lines, over all files, that gave no sample to any column because time or values did not convert; the
    /// numbers of the first ones, at most mostBadTold, in the file `firstBadFile`.
    qint64 badLines = 0;
    QString firstBadFile;
    QVector<qint64> firstBad;
    /// Values that did not convert in lines that gave a sample to another column.
    qint64 droppedValues = 0;
    static constexpr int mostBadTold = 200;
    /// One for each data column, in the format's order; empty unless Ok.
    std::vector<std::unique_ptr<Record>> records;
};

/// Reads the files. `progress` gets the share read, about every two megabytes; false cancels. `today` stands
/// in for a date in a file's name that is none. With anything but Ok there are no records.
ColumnResult readColumns(const ReadFromFilesInfo& info, const std::function<bool(double)>& progress = {},
    const QDate& today = QDate::currentDate());

/// The files in the order of the dates in their names; files without a date are left out. The date is the
/// first of the name's parts between "_" that ends in at least as many digits as the format has characters,
/// taken as a number.
QStringList sortedByNameDate(const QStringList& files, const QString& dateFormat);

/// One line for the log and the dialog's status line: what went wrong, with file and line.
struct ColumnTexts {
    Q_DECLARE_TR_FUNCTIONS(ColumnTexts)
public:
    static QString outcome(const ColumnResult& result);
};
