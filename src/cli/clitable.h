#pragma once

#include "cli/clioptions.h"
#include "table/core/tauscale.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVector>

#include <vector>

/// The values of one statistic for one result.
struct CliColumn {
    Statistic statistic;
    std::vector<double> values; ///< for the leading points of the scale; may be fewer than the scale has
};

/// One named column of a spectrum or a reduced record.
struct CliSeries {
    QString name;
    std::vector<double> values;
    char format; ///< of the table for people, with `digits`: see QString::number
    int digits;
};

/// Where the samples of a result came from.
struct CliSource {
    QString file; ///< with the column in brackets when the file has several
    QString format; ///< of a text file
    int channel = 0; ///< of a recording; 0 for a text file
    SignalPair signalPair; ///< empty names when not told
    qint64 samples = 0;
    qint64 replaced = 0; ///< by the outlier limits
    std::vector<qint64> badLines; ///< numbers in the file, from 1, of the lines left out
};

/// Everything computed for one record, or one combination of records, with what the numbers rest on.
struct CliResult {
    QString title; ///< for a single record its file
    QVector<CliSource> sources;
    QDateTime start;
    QDateTime stop;
    double interval = 1.0; ///< s
    qint64 samples = 0; ///< of phase
    TauScale scale;
    QVector<CliColumn> columns; ///< of the stability
    QVector<CliSeries> series; ///< of a spectrum or a reduced record
};

/// The table for people: a line "# ..." on each file, a head, and a line for each tau that any file has, with
/// "---" where a file has none.
QByteArray alignedTable(const QVector<CliResult>& results, const CliOptions& options);

/// One head line "m,tau,adev,..." and a line for each tau, with 17 significant digits and empty cells where a
/// file has no such tau. With several files the head has the file behind the statistic, "adev:FILE".
QByteArray csvTable(const QVector<CliResult>& results);

/// An array of one object a result: the parameters used, and "columns" with an array for m, tau and each
/// statistic. A value that is not finite is null.
QByteArray jsonTable(const QVector<CliResult>& results, const CliOptions& options);

/// The table of what `options` ask for, in their style.
QByteArray tableText(const QVector<CliResult>& results, const CliOptions& options);
