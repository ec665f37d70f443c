#include "table/core/stability.h"

#include "base/parallel.h"
#include "stats/deviations.h"
#include "stats/parabolic.h"
#include "stats/tdevmtie.h"

#include <algorithm>
#include <memory>

StabilityKernel stabilityKernel(Statistic statistic, bool overlap)
{
    StabilityKernel kernel;
    switch (statistic) {
    case Statistic::Sdev:
        kernel.perTau = overlap ? TauKernel(sco_overlap) : TauKernel(sco);
        break;
    case Statistic::Adev:
        kernel.perTau = overlap ? TauKernel(alan_scdo_overlap) : TauKernel(alan_scdo);
        break;
    case Statistic::Hdev:
        kernel.perTau = overlap ? TauKernel(hadamard_scdo_overlap) : TauKernel(hadamard_scdo);
        break;
    case Statistic::Mdev:
        kernel.wholeScale = mod_alan_deviation;
        break;
    case Statistic::Tdev:
        kernel.perTau = TDEV;
        break;
    case Statistic::Mtie:
        kernel.perTau = MTIE;
        break;
    case Statistic::Pdev:
        kernel.wholeScale = new_rec_parabolic_deviation;
        break;
    }
    return kernel;
}

LiveKernel liveKernel(Statistic statistic, bool overlap)
{
    return statistic == Statistic::Adev && !overlap ? alan_scdo_Upd : nullptr;
}

namespace {

void addPerTau(TauKernel kernel, PhaseSeries& series, const TauScale& scale, const StabilityOptions& options,
    std::vector<double>& values, Tasks& tasks)
{
    values.resize(scale.size());
    for (size_t k = 0; k < scale.size(); ++k) {
        const SampleRange range = samplesForTau(series.size(), options.perSecond, scale.tau[k]);
        const long factor = long(scale.factor[k]);
        tasks.emplace_back([=, &series, &value = values[k], interval = options.interval] {
            value = kernel(long(range.count), factor, series.x.data() + range.first,
                series.t.data() + range.first, interval);
        });
    }
}

void addWholeScale(ScaleKernel kernel, PhaseSeries& series, const TauScale& scale,
    const StabilityOptions& options, std::vector<double>& values, Tasks& tasks)
{
    if (series.size() < 2)
        return;
    const SampleRange range = samplesForTau(series.size(), options.perSecond, scale.tau[0]);
    std::vector<long> factors(scale.factor.begin(), scale.factor.end());
    tasks.emplace_back([=, &series, &values]() mutable {
        long count = long(factors.size());
        const std::unique_ptr<double[]> result(kernel(long(range.count), factors.data(), count,
            series.t[1] - series.t[0], series.x.data() + range.first));
        values.assign(result.get(), result.get() + count);
    });
}

} // namespace

void addStability(const StabilityKernel& kernel, PhaseSeries& series, const TauScale& scale,
    const StabilityOptions& options, std::vector<double>& values, Tasks& tasks)
{
    values.clear();
    if (series.size() < 1 || scale.size() == 0)
        return;
    if (kernel.perTau)
        addPerTau(kernel.perTau, series, scale, options, values, tasks);
    else if (kernel.wholeScale)
        addWholeScale(kernel.wholeScale, series, scale, options, values, tasks);
}

std::vector<double> stability(const StabilityKernel& kernel, PhaseSeries& series, const TauScale& scale,
    const StabilityOptions& options)
{
    std::vector<double> values;
    Tasks tasks;
    addStability(kernel, series, scale, options, values, tasks);
    if (!runTasks(tasks, options.progress))
        values.clear();
    return values;
}
