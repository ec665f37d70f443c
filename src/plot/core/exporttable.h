#pragma once

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

/// What the X axis of an exported graph counts.
enum class ExportKind {
    Tau, ///< averaging time or plain seconds
    Hour, ///< hours from the start
    Day, ///< modified Julian days
    Spectrum, ///< frequency; the table is thinned to round values
};

/// One curve of the graph. `low` and `high` are the ends of the error bars: both empty, or as long as `y`.
struct ExportColumn {
    QString title;
    QVector<double> x;
    QVector<double> y;
    QVector<double> low;
    QVector<double> high;
};

struct ExportRequest {
    ExportKind kind = ExportKind::Tau;
    /// The instant at X = 0; read for hours only, and there cut to the whole hour.
    QDateTime startTime;
    bool english = false;
    /// Every column gets the minimum and the maximum beside its value.
    bool withBars = false;
    QVector<ExportColumn> columns;
};

/// The lines of the table, head first, without line ends. No column gives no line. The left cells come from
/// the longest column, the first of equals; a cell beyond the end of a column is "---|".
QStringList exportTable(const ExportRequest& request);

/// The whole numbers of X that stay in the thinned table of a spectrum of n points: 1, and 1, 2, 5 times
/// powers of ten from 1 on, in rising order, each once.
QVector<qint64> spectrumKeepers(int n);

/// The points of a spectrum that stay in its table: the mean of y by the whole part of x.
QMap<qint64, double> thinnedSpectrum(const QVector<double>& x, const QVector<double>& y);
