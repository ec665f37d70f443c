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

std::vector<double> stabilityPerTau(
    TauKernel kernel, PhaseSeries& series, const TauScale& scale, const StabilityOptions& options)
{
    std::vector<double> values(scale.size());
    std::vector<std::function<void()>> tasks;
    tasks.reserve(scale.size());
    for (size_t k = 0; k < scale.size(); ++k) {
        tasks.emplace_back([&, k] {
            const SampleRange range = samplesForTau(series.size(), options.perSecond, scale.tau[k]);
            values[k] = kernel(long(range.count), long(scale.factor[k]), series.x.data() + range.first,
                series.t.data() + range.first, options.interval);
        });
    }
    if (!runTasks(tasks, options.progress))
        return {};
    return values;
}

std::vector<double> stabilityWholeScale(
    ScaleKernel kernel, PhaseSeries& series, const TauScale& scale, const StabilityOptions& options)
{
    if (scale.size() == 0 || series.size() < 2)
        return {};
    std::vector<double> values;
    const auto work = [&] {
        const SampleRange range = samplesForTau(series.size(), options.perSecond, scale.tau[0]);
        std::vector<long> factors(scale.factor.begin(), scale.factor.end());
        long count = long(factors.size());
        const std::unique_ptr<double[]> result(kernel(long(range.count), factors.data(), count,
            series.t[1] - series.t[0], series.x.data() + range.first));
        values.assign(result.get(), result.get() + count);
    };
    if (!runTasks({work}, options.progress))
        return {};
    return values;
}

std::vector<double> stability(const StabilityKernel& kernel, PhaseSeries& series, const TauScale& scale,
    const StabilityOptions& options)
{
    if (series.size() < 1 || scale.size() == 0)
        return {};
    if (kernel.perTau)
        return stabilityPerTau(kernel.perTau, series, scale, options);
    if (kernel.wholeScale)
        return stabilityWholeScale(kernel.wholeScale, series, scale, options);
    return {};
}
