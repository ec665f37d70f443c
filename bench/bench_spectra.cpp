// Spectra, convolution and parabolic deviation. "ratio" is the least time of the function over the least time
// of its yardstick, both taken in turn in one run; "bound" is what it should not exceed, where there is a
// bound. Yardsticks: for Spectr as many complex transforms of the same length by FFTW, the best plan it
// finds; for the others a plain vectorised sum of the series.

#include "measure.h"
#include "plainsum.h"
#include "stats/convolution.h"
#include "stats/fft.h"
#include "stats/parabolic.h"
#include "stats/spectra.h"

#include <QString>
#include <QtGlobal>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#ifdef WITH_FFTW
#include <fftw3.h>
#endif

namespace {

std::vector<double> noise(std::size_t n)
{
    std::vector<double> made(n);
    std::mt19937_64 source(1);
    std::normal_distribution<double> value(0.0, 1e-9);
    for (double& v : made)
        v = value(source);
    return made;
}

std::vector<double>& longSeries()
{
    static std::vector<double> made = noise(10000000);
    return made;
}

template <class Work> void againstPass(benchmark::State& state, double bound, const Work& work)
{
    compare(
        state, bound, [] { benchmark::DoNotOptimize(plainSum(longSeries())); }, work);
}

#ifdef WITH_FFTW
constexpr int length = 8192;

/// Transforms in place, one for each of the blocks that a series of n samples gives.
class Fftw {
public:
    explicit Fftw(int n)
        : m_blocks((n - length) / (length / 2) + 1)
        , m_data(fftw_alloc_complex(length))
        , m_plan(fftw_plan_dft_1d(length, m_data, m_data, FFTW_BACKWARD, FFTW_PATIENT))
    {
        std::memset(m_data, 0, sizeof(fftw_complex) * length);
    }
    ~Fftw()
    {
        fftw_destroy_plan(m_plan);
        fftw_free(m_data);
    }
    void run() const
    {
        for (int k = 0; k < m_blocks; ++k)
            fftw_execute(m_plan);
    }

private:
    int m_blocks;
    fftw_complex* m_data;
    fftw_plan m_plan;
};

void spectr(benchmark::State& state)
{
    const int n = int(state.range(0));
    std::vector<double> x = noise(std::size_t(n)), f(4096), s1(4096), s2(4096);
    const Fftw fftw(n);
    compare(
        state, 3.0, [&] { fftw.run(); }, [&] { Spectr(n, 1.0, x.data(), f.data(), s1.data(), s2.data()); });
}

/// The transform alone, complex against complex.
void transform(benchmark::State& state)
{
    std::vector<double> re = noise(length), im = noise(length);
    const std::vector<double> keptRe = re, keptIm = im;
    const Fftw fftw(length);
    compare(
        state, 0.0, [&] { fftw.run(); },
        [&] {
            re = keptRe; // lest the values grow without end
            im = keptIm;
            FFT(length, re.data(), im.data());
        });
}

BENCHMARK(spectr)->Arg(1000000)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(transform)->UseManualTime()->Iterations(500)->Unit(benchmark::kMicrosecond);
#endif

void convolution(benchmark::State& state)
{
    std::vector<double> h = noise(65);
    std::unique_ptr<double[]> out;
    againstPass(state, 0.0, [&] {
        out.reset();
        out.reset(conv(longSeries().data(), int(longSeries().size()), h.data(), 65));
    });
}

void threeDecades(benchmark::State& state)
{
    std::vector<double> f(4096), s1(4096), s2(4096);
    againstPass(state, 0.0, [&] {
        doSpectrum(int(longSeries().size()), 1.0, longSeries().data(), f.data(), s1.data(), s2.data());
    });
}

void parabolic(benchmark::State& state)
{
    againstPass(state, 6.0, [&] {
        long step = state.range(0), count = 1;
        const std::unique_ptr<double[]> made(
            new_rec_parabolic_deviation(long(longSeries().size()), &step, count, 1.0, longSeries().data()));
        benchmark::DoNotOptimize(made[0]);
    });
}

/// A whole scale 1, 2, 5, 10, ...; the bound is for all of its factors together.
void parabolicScale(benchmark::State& state)
{
    std::vector<long> steps;
    for (long decade = 1; decade <= 1000000; decade *= 10) {
        for (const long mantissa : {1L, 2L, 5L})
            steps.push_back(mantissa * decade);
    }
    steps.pop_back();
    againstPass(state, 6.0 * double(steps.size()), [&] {
        long count = long(steps.size());
        const std::unique_ptr<double[]> made(new_rec_parabolic_deviation(
            long(longSeries().size()), steps.data(), count, 1.0, longSeries().data()));
        benchmark::DoNotOptimize(made[0]);
    });
}

BENCHMARK(convolution)->UseManualTime()->Iterations(8)->Unit(benchmark::kMillisecond);
BENCHMARK(threeDecades)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(parabolic)
    ->Arg(1)
    ->Arg(2)
    ->Arg(3)
    ->Arg(5)
    ->Arg(10)
    ->Arg(15)
    ->Arg(16)
    ->Arg(20)
    ->Arg(100)
    ->Arg(10000)
    ->Arg(1000000)
    ->UseManualTime()
    ->Iterations(8)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(parabolicScale)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}

int main(int argc, char** argv)
{
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) {}); // the missing filter is told
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
