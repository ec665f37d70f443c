#pragma once

#include "cli/clioptions.h"
#include "table/core/tauscale.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVector>

#include <vector>

/// The values of one statistic for one file.
struct CliColumn {
    Statistic statistic;
    std::vector<double> values; ///< for the leading points of the scale; may be fewer than the scale has
};

/// Everything computed for one file, with what the numbers rest on.
struct CliResult {
    QString file;
    QString format;
    QDateTime start;
    QDateTime stop;
    double interval = 1.0; ///< s
    qint64 samples = 0; ///< of phase
    std::vector<qint64> badLines; ///< numbers in the file, from 1, of the lines left out
    TauScale scale;
    QVector<CliColumn> columns;
};

/// The table for people: a line "# ..." on each file, a head, and a line for each tau that any file has, with
/// "---" where a file has none.
QByteArray alignedTable(const QVector<CliResult>& results, const CliOptions& options);

/// One head line "m,tau,adev,..." and a line for each tau, with 17 significant digits and empty cells where a
/// file has no such tau. With several files the head has the file behind the statistic, "adev:FILE".
QByteArray csvTable(const QVector<CliResult>& results);

/// An array of one object a file: the parameters used, and "columns" with an array for m, tau and each
/// statistic. A value that is not finite is null.
QByteArray jsonTable(const QVector<CliResult>& results, const CliOptions& options);

/// The table in the style of `options`.
QByteArray tableText(const QVector<CliResult>& results, const CliOptions& options);
