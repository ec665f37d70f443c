#pragma once

#include <QDateTime>
#include <QVector>
#include <QtGlobal>

#include <memory>
#include <vector>

struct Record;

/// The numbers of samples at which the days of a column end, found file by file.
class DayEnds {
public:
    /// After a file of `lines` lines: `count` samples so far, `interval` seconds apart, from second
    /// `startSecond` of the day on.
    void endFile(int count, double interval, double startSecond, qint64 lines);

    /// Ascending and above 0; the last one is the number of samples.
    const QVector<int>& ends() const { return m_ends; }

private:
    void walkDays(int count, double interval, double startSecond, qint64 lines);
    void add(int end);

    QVector<int> m_ends;
};

/// Lengths of the parts: those of the days, none above `longest`. When there are more than a record can walk
/// through, the last one takes the rest.
QVector<int> partLengths(const QVector<int>& dayEnds, int longest);

/// What the lines of files gave to one data column.
struct ColumnSeries {
    std::vector<double> values;
    /// Indices, among all times, of those without a value.
    std::vector<int> dropped;
    /// Of the values times the interval, for frequencies.
    double sum = 0.0;
    DayEnds days;
};

/// Parameters that all columns share.
struct ColumnParameters {
    QDateTime start;
    double interval = 1.0; // s
    short dataType = 0;
};

/// Makes a record of a column; one without samples for a column without values. A column without a dropped
/// value uses `times` as they are.
std::unique_ptr<Record> makeColumnRecord(const ColumnParameters& parameters,
    const std::shared_ptr<std::vector<double>>& times, ColumnSeries column);
