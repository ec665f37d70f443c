#pragma once

#include <QDateTime>

/// How the X of a time graph counts: seconds or hours from the start, or MJD days.
struct TimeAxis {
    QDateTime start; ///< at X = 0; of no meaning for days
    bool hours = false;
    bool days = false;

    /// NaN for an invalid time.
    double xOf(const QDateTime& time) const;
    /// Invalid when no calendar reaches X.
    QDateTime timeOf(double x) const;
};
