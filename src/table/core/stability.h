#pragma once

#include "stats/statistic.h"
#include "table/core/phaseseries.h"
#include "table/core/tauscale.h"

#include <functional>
#include <vector>

/// One value per averaging time: n, averaging factor, x, t (s), nominal interval (s).
using TauKernel = double (*)(long, long, double*, double*, double);
/// All averaging times in one call: n, factors, their count (may be lowered), interval (s), x. The result is
/// a new array of as many values.
using ScaleKernel = double* (*)(long, long*, long&, double, double*);

/// The kernel of a statistic: one of the two is set.
struct StabilityKernel {
    TauKernel perTau = nullptr;
    ScaleKernel wholeScale = nullptr;
};

/// With `overlap` the overlapping form where there is one: SDEV, ADEV and HDEV. MDEV and TDEV overlap by
/// nature.
StabilityKernel stabilityKernel(Statistic statistic, bool overlap);

/// What goes into each averaging time, and how the work reports.
struct StabilityOptions {
    double interval = 1.0; ///< nominal sampling interval, s
    qint32 perSecond = 0; ///< see samplesForTau()
    std::function<bool(double)> progress; ///< see runTasks()
};

/// The values of one statistic over the scale, with every tau on its own tail of `series`; tau run side by
/// side. Returns as many values as the scale has points, or none when `progress` stopped the work.
std::vector<double> stabilityPerTau(
    TauKernel kernel, PhaseSeries& series, const TauScale& scale, const StabilityOptions& options);

/// The same through a kernel that takes the whole scale. All tau see the samples chosen for the first one,
/// and the interval is the first time step of the series. May return fewer values than the scale has points:
/// those of the leading ones.
std::vector<double> stabilityWholeScale(
    ScaleKernel kernel, PhaseSeries& series, const TauScale& scale, const StabilityOptions& options);

/// Either of the two, by what the kernel has; empty without a kernel, without samples and without a scale.
std::vector<double> stability(const StabilityKernel& kernel, PhaseSeries& series, const TauScale& scale,
    const StabilityOptions& options);
