#pragma once

#include <QList>
#include <QPair>
#include <QVector>

/// Robust frequency drift from a phase record of several days. Points are (time s, phase s).

/// Removes the points whose y lies more than three median absolute deviations from the median, and adds their
/// number to `removed`. A NaN ranks above every number and is never removed. The second argument has no
/// effect.
void medianFilt(QVector<QPair<double, double>>& points, double unused, int& removed);

/// Says whether a day is to be rejected: fewer than `minLength` points, or two neighbours more than `maxGap`
/// seconds apart (told to the debug log). A rejected day adds its number of points to `removed`; the points
/// stay.
bool removeDaysWithGaps(QVector<QPair<double, double>>& points, int maxGap, int& removed, int minLength);

/// Frequency drift per day: a line through the frequencies of the accepted days over their middle times.
/// @param t, x      time and phase, s, every `interval`-th sample of the record
/// @param drift     out: drift, s/s per day; also returned
/// @param dayEnds   running sample counts of the whole record at the end of each day; they bound what is
/// read: t and x
///                  hold at least (greatest end)/interval samples, rounded up
/// @param error     out: standard error of the drift; NaN with fewer than two accepted days
/// @param interval  decimation step, at least 1; anything less reads nothing
/// With fewer than two accepted days the drift is 86400.0, the slope 1.0 of a fit that has none.
double calcLinRegDrift(
    double* t, double* x, double& drift, QList<int> dayEnds, double& error, double interval);
