#pragma once

#include "store/core/infstruct.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QFile>
#include <QString>
#include <QVector>

#include <functional>

/// One information structure of a day as a stretch of time.
struct DaySpan {
    InfType inf;
    /// Of the structure, both inclusive. An open one reaches to the next structure or the end of the day.
    QDateTime start, stop;
    /// It has no end marker.
    bool open = false;
    /// Bytes of the data file from here on belong to the next structure; -1 for none.
    qint64 limit = -1;
};

/// What an inf file tells, with the structures that cannot be read left out.
struct DaySpans {
    QVector<DaySpan> spans;
    /// Number of the structure, from 1, to name when no span fits.
    int suspect = 1;
};
DaySpans spansOfDay(const QByteArray& bytes, const QDate& day, int structType);

/// The span that holds the chosen times: the one that encloses `from`, else the first that overlaps; null for
/// none. Of two that meet at `from`, it is the later one on the first day of a stretch, on the others the
/// earlier one, which goes on from the day before.
const DaySpan* spanFor(const DaySpans& day, const QDateTime& from, const QDateTime& to, bool firstDay);

/// The samples of one day of a stretch. Indices count from the first sample of its structure.
class RecordingDay {
public:
    /// Reads the inf file and picks the span. False when there is none; `suspect` then is the number to name.
    bool readSpan(
        const QString& path, int structType, const QDateTime& from, const QDateTime& to, bool firstDay);
    /// Opens the data file; false when it cannot be read.
    bool openData();
    /// Takes the offsets of the span; those that are impossible go to `damage`, and what remains is readable.
    void takeOffsets(const std::function<void(qint64)>& damage);

    /// Finds the end of an open recording by its marks; returns the number of samples.
    qint64 findOpenEnd() const;
    /// Ties the first mark to a time, and estimates the rate of the marks.
    void setClock(const QDateTime& timeOfFirst);
    /// Narrows the samples to the chosen times.
    void trim(const QDateTime& from, const QDateTime& to);

    /// The time of a mark, to the second.
    QDateTime timeOf(qint32 mark) const;
    qint32 mark(qint64 index) const;
    /// Reads `count` samples from `index` on; returns how many came.
    qint64 read(qint64 index, qint64 count, char* bytes) const;

    /// Seconds of a step of the marks, and of the time between two samples.
    double unit() const;
    double interval() const;

    QDate date;
    QString path; // without ending
    DaySpan span;
    int suspect = 1;
    qint64 begin = 0; // byte of the first sample
    qint64 count = 0; // samples of the structure
    qint64 first = 0, last = -1; // chosen ones, both inclusive
    QDateTime timeOfFirst; // of sample 0
    double marksPerSecond = 1.0;
    mutable qint64 bytesRead = 0;

private:
    qint64 firstAtOrAbove(double mark) const;

    mutable QFile m_file;
    qint32 m_firstMark = 0;
};
