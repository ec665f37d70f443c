// The deviation kernels against the plainest pass over the same arrays, at 10,000,000 samples. "passes" is
// the least time of the kernel over the least time of a plain vectorised sum of every array it reads, both
// taken in turn in one run; "bound" is what it should not exceed.

#include "plainsum.h"
#include "stats/cross.h"
#include "stats/deviations.h"
#include "stats/incremental.h"
#include "stats/tdevmtie.h"

#include <QString>
#include <QtGlobal>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr long samples = 10000000;

/// White frequency noise of 1e-9 s a step on an offset of 1 s and a frequency of 1e-6.
std::vector<double>& noise()
{
    static std::vector<double> phase = [] {
        std::vector<double> made(samples);
        std::mt19937_64 source(1);
        std::normal_distribution<double> step(1e-6, 1e-9);
        double value = 1.0;
        for (double& v : made)
            v = value += step(source);
        return made;
    }();
    return phase;
}

std::vector<double>& whiteNoise()
{
    static std::vector<double> phase = [] {
        std::vector<double> made(samples);
        std::mt19937_64 source(2);
        std::normal_distribution<double> value(0.0, 1e-9);
        for (double& v : made)
            v = value(source);
        return made;
    }();
    return phase;
}

std::vector<double>& rampOf(double slope)
{
    static std::vector<double> phase(samples);
    for (std::size_t i = 0; i < phase.size(); ++i)
        phase[i] = slope * static_cast<double>(i);
    return phase;
}

std::vector<double> wholeSeconds()
{
    std::vector<double> made(samples);
    for (std::size_t i = 0; i < made.size(); ++i)
        made[i] = static_cast<double>(i);
    return made;
}

std::vector<double>& times()
{
    static std::vector<double> seconds = wholeSeconds();
    return seconds;
}

std::vector<double>& otherTimes()
{
    static std::vector<double> seconds = wholeSeconds();
    return seconds;
}

double secondsOf(const std::function<double()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(work());
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void compare(benchmark::State& state, const std::vector<const std::vector<double>*>& reads, double bound,
    const std::function<double()>& kernel)
{
    double leastKernel = std::numeric_limits<double>::max(), leastPass = leastKernel;
    for (auto _ : state) {
        double pass = 0.0;
        for (const auto* array : reads)
            pass += secondsOf([array] { return plainSum(*array); });
        const double time = secondsOf(kernel);
        leastPass = std::min(leastPass, pass);
        leastKernel = std::min(leastKernel, time);
        state.SetIterationTime(time);
    }
    state.counters["passes"] = leastKernel / leastPass;
    state.counters["pass_ms"] = leastPass * 1e3;
    state.counters["best_ms"] = leastKernel * 1e3;
    state.counters["bound"] = bound;
}

using Plain = double (*)(long, long, double*);
using Timed = double (*)(long, long, double*, double*, double);

void plain(benchmark::State& state, Plain kernel, double bound)
{
    const long m = state.range(0);
    compare(state, {&noise()}, bound, [=] { return kernel(samples, m, noise().data()); });
}

void timed(benchmark::State& state, Timed kernel, double bound)
{
    const long m = state.range(0);
    compare(state, {&noise(), &times()}, bound,
        [=] { return kernel(samples, m, noise().data(), times().data(), 1.0); });
}

using CrossPlain = double (*)(long, long, double*, double*);
using CrossTimed = double (*)(long, long, double*, double*, double*, double*);

void crossPlain(benchmark::State& state, CrossPlain kernel, double bound)
{
    const long m = state.range(0);
    compare(state, {&noise(), &whiteNoise()}, bound,
        [=] { return kernel(samples, m, noise().data(), whiteNoise().data()); });
}

void crossTimed(benchmark::State& state, CrossTimed kernel, double bound)
{
    const long m = state.range(0);
    compare(state, {&noise(), &whiteNoise(), &times(), &otherTimes()}, bound, [=] {
        return kernel(samples, m, noise().data(), whiteNoise().data(), times().data(), otherTimes().data());
    });
}

/// 1000 new samples by a factor of 10 into a record of the given length: the time must not depend on it.
void incremental(benchmark::State& state)
{
    const long m = 10, length = state.range(0), fresh = 1000;
    varInf info;
    info.Reserve(1);
    for (auto _ : state) {
        info.count[0] = static_cast<int>(length);
        info.value[0] = 1e-9;
        const long first = alan_scdo_Upd_firstSample(m, info, 0);
        benchmark::DoNotOptimize(alan_scdo_Upd(length + fresh - first, m, noise().data() + first, info, 0));
    }
}

double alanOverlap(long n, long m, double* x)
{
    return alan_scdo_overlap(n, m, x, 1.0);
}

void mtie(benchmark::State& state, std::vector<double>& phase)
{
    const long m = state.range(0);
    compare(state, {&phase}, 15.0, [&phase, m] { return MTIE(samples, m, phase.data(), nullptr, 1.0); });
}

void mtieWhite(benchmark::State& state)
{
    mtie(state, whiteNoise());
}
void mtieWalk(benchmark::State& state)
{
    mtie(state, noise());
}
void mtieRising(benchmark::State& state)
{
    mtie(state, rampOf(1e-6));
}
void mtieFalling(benchmark::State& state)
{
    mtie(state, rampOf(-1e-6));
}

void overlapFactors(benchmark::internal::Benchmark* bench)
{
    bench->Arg(1)->Arg(100)->Arg(10000)->Arg(1000000)->UseManualTime()->Iterations(8)->Unit(
        benchmark::kMillisecond);
}

void windows(benchmark::internal::Benchmark* bench)
{
    bench->Arg(1)->Arg(10)->Arg(1000)->Arg(100000)->Arg(4000000)->UseManualTime()->Iterations(6)->Unit(
        benchmark::kMillisecond);
}

}

BENCHMARK_CAPTURE(plain, sco, static_cast<Plain>(sco), 2.5)->Apply(overlapFactors);
BENCHMARK_CAPTURE(plain, sco_overlap, static_cast<Plain>(sco_overlap), 2.5)->Apply(overlapFactors);
BENCHMARK_CAPTURE(plain, scdo_overlap, static_cast<Plain>(scdo_overlap), 2.5)->Apply(overlapFactors);
BENCHMARK_CAPTURE(plain, alan_scdo, static_cast<Plain>(alan_scdo), 2.5)->Apply(overlapFactors);
BENCHMARK_CAPTURE(plain, alan_scdo_overlap, alanOverlap, 2.5)->Apply(overlapFactors);
BENCHMARK_CAPTURE(plain, hadamard_scdo, static_cast<Plain>(hadamard_scdo), 2.5)->Apply(overlapFactors);
BENCHMARK_CAPTURE(plain, hadamard_scdo_overlap, static_cast<Plain>(hadamard_scdo_overlap), 2.5)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(plain, mod_alan_scdo, static_cast<Plain>(mod_alan_scdo), 6.0)->Apply(overlapFactors);
BENCHMARK_CAPTURE(timed, sco, static_cast<Timed>(sco), 4.0)->Apply(overlapFactors);
BENCHMARK_CAPTURE(timed, sco_overlap, static_cast<Timed>(sco_overlap), 4.0)->Apply(overlapFactors);
BENCHMARK_CAPTURE(timed, scdo_overlap, static_cast<Timed>(scdo_overlap), 4.0)->Apply(overlapFactors);
BENCHMARK_CAPTURE(timed, alan_scdo, static_cast<Timed>(alan_scdo), 4.0)->Apply(overlapFactors);
BENCHMARK_CAPTURE(timed, alan_scdo_overlap, static_cast<Timed>(alan_scdo_overlap), 4.0)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(timed, hadamard_scdo_overlap, static_cast<Timed>(hadamard_scdo_overlap), 4.0)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(timed, mod_alan_scdo, static_cast<Timed>(mod_alan_scdo), 6.0)->Apply(overlapFactors);
BENCHMARK_CAPTURE(crossPlain, sco, static_cast<CrossPlain>(cross_sco), 5.0)->Apply(overlapFactors);
BENCHMARK_CAPTURE(crossPlain, sco_overlap, static_cast<CrossPlain>(cross_sco_overlap), 5.0)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(crossPlain, scdo_overlap, static_cast<CrossPlain>(cross_scdo_overlap), 5.0)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(crossPlain, alan_scdo_overlap, static_cast<CrossPlain>(cross_alan_scdo_overlap), 5.0)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(
    crossPlain, hadamard_scdo_overlap, static_cast<CrossPlain>(cross_hadamard_scdo_overlap), 5.0)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(crossTimed, sco, static_cast<CrossTimed>(cross_sco), 5.0)->Apply(overlapFactors);
BENCHMARK_CAPTURE(crossTimed, sco_overlap, static_cast<CrossTimed>(cross_sco_overlap), 5.0)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(crossTimed, scdo_overlap, static_cast<CrossTimed>(cross_scdo_overlap), 5.0)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(crossTimed, alan_scdo_overlap, static_cast<CrossTimed>(cross_alan_scdo_overlap), 5.0)
    ->Apply(overlapFactors);
BENCHMARK_CAPTURE(
    crossTimed, hadamard_scdo_overlap, static_cast<CrossTimed>(cross_hadamard_scdo_overlap), 5.0)
    ->Apply(overlapFactors);
BENCHMARK(incremental)->Arg(10000)->Arg(1000000)->Arg(9990000);
BENCHMARK(mtieWhite)->Apply(windows);
BENCHMARK(mtieWalk)->Apply(windows);
BENCHMARK(mtieRising)->Apply(windows);
BENCHMARK(mtieFalling)->Apply(windows);

int main(int argc, char** argv)
{
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) {}); // MTIE logs every call
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
