#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

#include <vector>

class AvarForm;

/// What the points of a reduced graph stand for.
enum class SeriesKind {
    MinMax, ///< t in seconds from the start of the graph
    Hour, ///< t in whole hours from the hour of the start
    Day, ///< t is the modified Julian day
};

/// A reduced curve of one record.
struct SeriesCurve {
    quint16 channel = 0;
    QString title;
    std::vector<double> t;
    std::vector<double> x;
    unsigned short axis = 0; ///< of the phase group or the frequency group
    QDateTime start; ///< of the record
    QDateTime stop;
};

/// What a graph of phase or frequency over time shows.
struct SeriesScope {
    SeriesKind kind = SeriesKind::MinMax;
    bool frequency = false;
    double interval = 0.0; ///< of the frequency, s; for hours and days it goes without saying
    bool cross = false; ///< the records were processed together
    QDateTime start, stop; ///< bounds of the data
};

/// The window title of such a graph; without a kind that of the graph of all samples.
QString seriesTitle(const SeriesScope& scope);
QString wholeSeriesTitle(bool frequency, double interval, bool cross);

/// Makes `form` the graph of reduced curves. Empty ones stay out.
void showSeries(AvarForm& form, const SeriesScope& scope, const QVector<SeriesCurve>& curves);
