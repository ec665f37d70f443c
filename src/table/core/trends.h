#pragma once

#include "table/core/phaseseries.h"

#include <QDateTime>
#include <QStringList>

#include <vector>

struct Record;

/// A parabola quadratic * t^2 + linear * t + constant, t in seconds from the first sample.
struct Parabola {
    double quadratic = 0.0;
    double linear = 0.0;
    double constant = 0.0;

    double at(double t) const { return (quadratic * t + linear) * t + constant; }
    double slopeAt(double t) const { return 2.0 * quadratic * t + linear; }
};

/// The parabola through `n` samples, at most 1,000,000 evenly picked ones of which go into the fit. Fewer
/// than 5 samples have none that means anything.
Parabola fittedParabola(long n, double* t, double* x);

/// What the fits say of one record. Values in the unit of x; frequencies and drifts per second of t.
struct Trends {
    bool fitted = false; ///< false for 10 samples or fewer: then nothing below is set
    double mean = 0.0;
    double deviation = 0.0; ///< population form, about the mean
    double dailyDeviation = 0.0; ///< the same of the daily means; 0 with fewer than two days
    double linearFrequency = 0.0; ///< slope of the straight line
    double middleFrequency = 0.0; ///< slope of the parabola in the middle of the record
    double endFrequency = 0.0; ///< slope of the parabola at the end
    double drift = 0.0; ///< change of frequency per second, from the parabola
    Parabola parabola;
    bool hasDailyDrift = false; ///< the record has more than two days
    double dailyDrift = 0.0; ///< change of frequency per day, from a regression on days
    double dailyDriftError = 0.0;
};

/// Everything above for one record and its samples, `series`, at most 1,000,000 evenly picked ones of which
/// go into the fits.
///
/// Daily means begin at the first full hour after `earliest`, the earliest start of the records processed
/// together, and are formed for records whose interval is at most 960 s. With `removeDrift` the fitted
/// parabola is taken off before mean and deviations are formed, and off the values of `series` and of the
/// record itself. Without it both are only read, so that the kernels may run over the series meanwhile.
Trends recordTrends(Record& record, PhaseSeries& series, const QDateTime& earliest, bool removeDrift);

/// Means of x over the whole days that begin `offset` seconds after the first sample, at most `most` of them.
/// A day without samples is left out, and so is one that the series does not reach the end of, less one
/// `interval`.
std::vector<double> dailyMeans(PhaseSeries& series, double offset, double interval, size_t most = 5000);

/// Heads of the table of frequency and drift, translated; ten of them, the first for the name of the record.
QStringList trendHeads();

/// One column of that table, in the order of the heads: phase differences in nanoseconds, frequencies
/// relative, drift per second and per day. A record without fits has " - " throughout.
QStringList trendCells(const QString& name, const Trends& trends);
