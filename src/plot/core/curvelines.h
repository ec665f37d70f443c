#pragma once

#include <QPointF>

#include <vector>

/// A straight line that stands for a curve, and the number that is told about it.
struct CurveLine {
    bool valid = false;
    QPointF from, to;
    double number = 0.0;
};

/// The least-squares line through the points (x, y), from the first to the last one used. The points end
/// before one whose X equals the X two places before it. The number is the slope per mean step of X, or per
/// `interval` when no step is positive. Fewer than two points give no line; two leave it at zero.
CurveLine trendLine(std::vector<double> x, std::vector<double> y, double interval);

/// The mean of Y from the first to the last X, both as line and as number. The values end before a point
/// whose X equals the X two places before it, or is 0. Up to three points give no line.
CurveLine averageLine(const std::vector<double>& x, std::vector<double> y);

/// That mean alone, for any number of points; 0 when there is none.
double shownMean(const std::vector<double>& x, std::vector<double>& y);
