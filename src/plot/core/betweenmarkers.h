#pragma once

#include "plot/core/plotpoints.h"

#include <QString>
#include <QVector>

#include <vector>

/// What a graph window tells of the points between its two markers. The bounds of X are inclusive and come in
/// either order.

/// A head and one line a curve: its title, cut or filled to 20 characters, and the mean of Y.
QString meansText(const QVector<PlotPoints>& curves, double x1, double x2, bool english);

/// Phase series summed up from frequencies.
struct PhaseSeries {
    std::vector<double> time; ///< s
    std::vector<double> phase; ///< s
};

/// The frequencies of `curve` between the bounds as a phase series that begins at zero. Each frequency lasts
/// until the next point; a step of time counts in whole seconds unless `interval`, the sampling interval (s),
/// is below one. Points without a finite X stay out.
PhaseSeries phaseBetween(const PlotPoints& curve, double x1, double x2, double interval);

/// Rich text table of the Allan deviation of the series at 1, 10, 100 ... samples, as long as it holds 20
/// such steps. The times are whole seconds unless `interval` is below one.
QString adevTable(PhaseSeries series, double interval, bool english);
