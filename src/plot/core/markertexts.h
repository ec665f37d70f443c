#pragma once

#include <QDateTime>
#include <QString>

/// The texts that a graph window writes about markers, boundaries and the point next to the mouse. X is in
/// seconds or tau, or in hours from the start, or in MJD days.
struct MarkerTexts {
    bool isHourPlot = false;
    bool isDayPlot = false;
    bool dates = false; ///< X reads as a time
    bool english = false;
    QDateTime startTime; ///< at X = 0

    /// "hh:mm:ss dd.MM.yy", or "dd.MM.yy" in a day plot. An X that no calendar reaches is taken at its end.
    QString time(double x) const;
    /// Where the first marker stands.
    QString first(double x, double y) const;
    QString difference(double dx, double dy) const;
    /// A boundary of the stretch that is being marked, `number` 1 or 2.
    QString boundary(int number, double x) const;
    /// The second boundary while it follows the mouse.
    QString dragged(double x, double y) const;
    /// A point of a curve.
    QString point(const QString& curve, double x, double y) const;
};
