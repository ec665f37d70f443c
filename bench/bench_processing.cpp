// The command "Обработка" as a ratio to the kernels alone, to stay below 1.3: on one record of 1,000,000
// samples (SDEV, ADEV, HDEV), and with all three groups on a longer one. Counter "peak B/sample" is what the
// program takes above its size before the record, to stay below 52: the record, a copy and 20.

#include "base/globals.h"
#include "measure.h"
#include "stats/drift.h"
#include "stats/fits.h"
#include "stats/plainstats.h"
#include "support/samplerecord.h"
#include "table/core/statisticgroups.h"
#include "table/selrectable.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <fstream>
#include <utility>

namespace {

constexpr int samples = 1000000;
constexpr Statistic statistics[] = {Statistic::Sdev, Statistic::Adev, Statistic::Hdev};

/// One after the other, each over the samples that the command gives it.
double kernelSeconds(PhaseSeries& series, bool overlap)
{
    const TauScale scale = tauScale(1, series.size(), 1.0);
    double total = 0.0;
    for (const Statistic statistic : statistics) {
        const StabilityKernel kernel = stabilityKernel(statistic, overlap);
        for (size_t k = 0; k < scale.size(); ++k) {
            total += seconds([&] {
                benchmark::DoNotOptimize(kernel.perTau(
                    series.size(), long(scale.factor[k]), series.x.data(), series.t.data(), 1.0));
            });
        }
    }
    return total;
}

/// All kernels of a group, over the whole scale.
double groupSeconds(PhaseSeries& series, int group)
{
    const TauScale scale = tauScale(1, series.size(), 1.0);
    double total = 0.0;
    for (const Statistic statistic : statisticsOfGroup(group)) {
        std::vector<double> values;
        Tasks tasks;
        addStability(stabilityKernel(statistic, false), series, scale, {1.0, 0, {}}, values, tasks);
        for (const auto& task : tasks)
            total += seconds(task);
    }
    return total;
}

/// The fits and means that the command takes from the engine besides.
double fitSeconds(PhaseSeries& series, const QList<int>& dayEnds)
{
    return seconds([&] {
        double a = 0.0, b = 0.0, c = 0.0;
        const long n = series.size();
        Trend(n, series.t.data(), series.x.data(), &a);
        Parab(int(n), series.t.data(), series.x.data(), &a, &b, &c);
        calcLinRegDrift(series.t.data(), series.x.data(), a, dayEnds, b, 1.0);
        benchmark::DoNotOptimize(aver(n, series.x.data()));
        benchmark::DoNotOptimize(sco_phase(n, series.x.data()));
    });
}

void process(benchmark::State& state)
{
    const bool overlap = state.range(0) != 0;
    SelRecTable table;
    Record record;
    Lehmer random;
    fillRecord(record, samples, 1.0, [&](int) { return 1e-9 * random.next(); });
    PhaseSeries series = phaseSeries(record);
    const QList<int> dayEnds = record.t.DayLengths;
    table.addRecord(&record);
    table.findChild<QCheckBox*>(QStringLiteral("overlapBox"))->setChecked(overlap);

    double command = 1e9;
    double kernels = 1e9;
    double fits = 1e9;
    for (auto _ : state) {
        command = std::min(command, seconds([&] { table.on_processBtn_clicked(); }));
        state.PauseTiming();
        kernels = std::min(kernels, kernelSeconds(series, overlap));
        fits = std::min(fits, fitSeconds(series, dayEnds));
        state.ResumeTiming();
    }
    state.counters["kernels_s"] = kernels;
    state.counters["fits_s"] = fits;
    state.counters["command_to_kernels"] = command / kernels;
    state.counters["command_to_kernels_and_fits"] = command / (kernels + fits);
}

void groups(benchmark::State& state)
{
    const int count = int(state.range(0));
    const qint32 perSecond = std::exchange(AVAR_numPT_perTau, 0); // all samples for every tau
    SelRecTable table;
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5"; // the peak starts anew
    const double before = memory("VmRSS:");
    {
        Record record;
        Lehmer random;
        fillRecord(record, count, 1.0, [&](int) { return 1e-9 * random.next(); });
        table.addRecord(&record);
    }
    auto* box = table.findChild<QComboBox*>(QStringLiteral("selVarBox"));
    double command = 0.0, kernels = 0.0;
    for (auto _ : state) {
        for (int group = 0; group < 3; ++group) {
            box->setCurrentIndex(group);
            command += seconds([&] { table.on_processBtn_clicked(); });
        }
    }
    state.counters["peak B/sample"] = (memory("VmHWM:") - before) / count;
    PhaseSeries series = phaseSeries(table.load_record[0]);
    for (int group = 0; group < 3; ++group)
        kernels += groupSeconds(series, group);
    state.counters["command_s"] = command;
    state.counters["kernels_s"] = kernels;
    state.counters["command_to_kernels"] = command / kernels;
    AVAR_numPT_perTau = perSecond;
}

BENCHMARK(groups)->Arg(1000000)->Arg(10000000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(process)->Arg(0)->Arg(1)->ArgName("overlap")->Iterations(7)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
