// What the record table does with records besides statistics, against summing passes over the same samples:
// difference and alignment of two records, at most 6 passes over t and x of both; the outlier filter, at most
// a sort of the values plus 4 passes over t and x; reduced curves, at most 3 passes. Counter "ratio": passes,
// or for the filter sorts plus 4 passes. All of them grow in proportion to the samples.

#include "measure.h"
#include "plainsum.h"
#include "support/samplerecord.h"
#include "table/core/crosspair.h"
#include "table/core/difference.h"
#include "table/core/minmax.h"
#include "table/core/outliers.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

namespace {

double sumOf(const doubleArray& array)
{
    double total = 0.0;
    for (int day = 0; day < array.parts.size(); ++day)
        total += plainSum(array.DayData(day), size_t(array.DayLengths.at(day)));
    return total;
}

double onePass(const Record& record)
{
    return sumOf(record.t) + sumOf(record.x);
}

void noise(Record& record, int samples, int channel)
{
    Lehmer random;
    fillRecord(
        record, samples, 1.0, [&](int) { return 1e-9 * random.next(); }, channel);
}

/// Best time of `work` over the iterations, in best times of `measure`.
template <typename Work, typename Measure>
void compare(benchmark::State& state, const Work& work, const Measure& measure)
{
    double best = 1e9, unit = 1e9;
    for (auto _ : state) {
        best = std::min(best, seconds(work));
        state.PauseTiming();
        unit = std::min(unit, seconds(measure));
        state.ResumeTiming();
    }
    state.counters["ratio"] = best / unit;
    state.counters["best_s"] = best;
}

void difference(benchmark::State& state)
{
    Record a, b;
    noise(a, int(state.range(0)), 1);
    noise(b, int(state.range(0)), 2);
    compare(
        state,
        [&] {
            Record made;
            benchmark::DoNotOptimize(differenceOf(a, b, made).pairs);
        },
        [&] { benchmark::DoNotOptimize(onePass(a) + onePass(b)); });
}

void alignment(benchmark::State& state)
{
    Record a, b;
    noise(a, int(state.range(0)), 1);
    noise(b, int(state.range(0)), 2);
    compare(
        state,
        [&] {
            CrossSeries series;
            benchmark::DoNotOptimize(crossSeries(a, b, series));
        },
        [&] { benchmark::DoNotOptimize(onePass(a) + onePass(b)); });
}

void filter(benchmark::State& state)
{
    Record record;
    noise(record, int(state.range(0)), 1);
    std::mt19937 generator(1);
    const RandomSource random = [&] { return int(generator() >> 1); };
    compare(
        state,
        [&] {
            benchmark::DoNotOptimize(removeOutliers(record, {0.5, {}}, random));
        },
        [&] {
            for (int day = 0; day < record.x.parts.size(); ++day) {
                const double* x = record.x.DayData(day);
                std::vector<double> values(x, x + record.x.DayLengths.at(day));
                std::sort(values.begin(), values.end());
                benchmark::DoNotOptimize(values[values.size() / 2]);
            }
            for (int pass = 0; pass < 4; ++pass)
                benchmark::DoNotOptimize(onePass(record));
        });
}

void reduced(benchmark::State& state)
{
    Record record;
    noise(record, int(state.range(0)), 1);
    compare(
        state, [&] { benchmark::DoNotOptimize(minMaxSeries(record, 0.0, false).t.data()); },
        [&] { benchmark::DoNotOptimize(onePass(record)); });
}

#define SIZES Arg(1000000)->Arg(10000000)->Iterations(5)->Unit(benchmark::kMillisecond)
BENCHMARK(difference)->SIZES;
BENCHMARK(alignment)->SIZES;
BENCHMARK(filter)->SIZES;
BENCHMARK(reduced)->SIZES;

} // namespace

BENCHMARK_MAIN();
