#pragma once

#include "stats/incremental.h"
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

/// Folds a block of new samples into the state of one averaging time: n, averaging factor, x, state, number
/// of the averaging time.
using LiveKernel = double (*)(long, long, double*, varInf&, int);

/// The kernel that keeps a statistic of a live record up to date; null for one that only a new processing
/// brings up to date. SDEV is such a one: sco_Upd stands still from its second block on.
LiveKernel liveKernel(Statistic statistic, bool overlap);

/// What goes into each averaging time, and how the work reports.
struct StabilityOptions {
    double interval = 1.0; ///< nominal sampling interval, s
    qint32 perSecond = 0; ///< see samplesForTau()
    std::function<bool(double)> progress; ///< see runTasks()
};

/// Work that may run beside other work, see runTasks().
using Tasks = std::vector<std::function<void()>>;

/// Adds the work of one statistic to `tasks`. The series and `values` must live until the tasks have run;
/// `values` then holds as many as the scale has points, or fewer: those of the leading ones.
///
/// A kernel with one value per averaging time sees for each a tail of `series` of its own. One that takes the
/// whole scale sees the samples chosen for the first averaging time, and the first time step as the interval.
void addStability(const StabilityKernel& kernel, PhaseSeries& series, const TauScale& scale,
    const StabilityOptions& options, std::vector<double>& values, Tasks& tasks);

/// The values of one statistic; empty without a kernel, without samples, without a scale, and when `progress`
/// stopped the work.
std::vector<double> stability(const StabilityKernel& kernel, PhaseSeries& series, const TauScale& scale,
    const StabilityOptions& options);
