#include "table/core/recordspectra.h"

#include "base/parallel.h"
#include "stats/spectra.h"
#include "table/core/crosspair.h"
#include "table/core/phaseseries.h"
#include "table/core/trends.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace {

using Samples = std::vector<double>;

constexpr long fewest = 128; // the shortest block
constexpr size_t mostPoints = 4096;
constexpr long longestSingleStage = 20480; // samples

bool hasSpectrum(long n, double interval)
{
    return n >= fewest && interval > 0.0 && std::isfinite(interval);
}

/// The first `n` samples less the parabola through them.
Samples withoutParabola(long n, Samples& t, Samples& x)
{
    const Parabola parabola = fittedParabola(n, t.data(), x.data());
    Samples rest(size_t(n), 0.0);
    for (size_t i = 0; i < rest.size(); ++i)
        rest[i] = x[i] - parabola.at(t[i]);
    return rest;
}

/// Runs estimate(frequency, phase, rate), which returns the number of points.
template <class Estimate> PhaseSpectrum spectrumOf(const Estimate& estimate)
{
    PhaseSpectrum out;
    out.frequency.resize(mostPoints + 1);
    out.phase.resize(mostPoints);
    out.rate.resize(mostPoints);
    const size_t points = size_t(estimate(out.frequency.data(), out.phase.data(), out.rate.data()));
    for (Samples* array : {&out.frequency, &out.phase, &out.rate})
        array->resize(points);
    return out;
}

PhaseSpectrum crossSpectrum(Samples& x, Samples& y, double interval)
{
    const long n = long(x.size());
    const auto estimate = n > longestSingleStage ? doXSpectrum : XSpectr;
    return spectrumOf([&](double* f, double* s1, double* s2) {
        return estimate(int(n), interval, x.data(), y.data(), f, s1, s2);
    });
}

struct SamplesPair {
    Samples *x, *y;
};

/// The cross spectra of several pairs, side by side.
std::vector<PhaseSpectrum> spectraOf(const std::vector<SamplesPair>& pairs, double interval)
{
    std::vector<PhaseSpectrum> spectra(pairs.size());
    std::vector<std::function<void()>> tasks;
    for (size_t i = 0; i < pairs.size(); ++i)
        tasks.emplace_back([&, i] { spectra[i] = crossSpectrum(*pairs[i].x, *pairs[i].y, interval); });
    runTasks(tasks);
    return spectra;
}

/// How many samples serve: `most`, but no more than the spectra can count.
long cut(long n, long most)
{
    return std::min({n, most, long(std::numeric_limits<int>::max())});
}

} // namespace

PhaseSpectrum recordSpectrum(PhaseSeries& series, double interval)
{
    const long n = cut(series.size(), std::numeric_limits<long>::max());
    if (!hasSpectrum(n, interval))
        return {};
    Samples x = withoutParabola(n, series.t, series.x);
    return spectrumOf(
        [&](double* f, double* s1, double* s2) { return doSpectrum(int(n), interval, x.data(), f, s1, s2); });
}

std::vector<PhaseSpectrum> crossSpectra(CrossSeries& series, long most)
{
    const size_t rows = series.kind == SignalCase::Three ? 3
        : series.kind == SignalCase::Two                 ? 2
        : series.kind == SignalCase::One                 ? 1
                                                         : 0;
    const long n = cut(series.size(), most);
    if (!hasSpectrum(n, series.interval))
        return std::vector<PhaseSpectrum>(rows);
    Samples x = withoutParabola(n, series.u, series.x);
    Samples y = withoutParabola(n, series.v, series.y);
    Samples d;
    std::vector<SamplesPair> pairs{{&x, &y}, {&x, &d}, {&y, &d}};
    pairs.resize(rows);
    if (rows > 1) {
        d.resize(x.size());
        std::transform(y.begin(), y.end(), x.begin(), d.begin(), std::minus<>());
    }
    return spectraOf(pairs, series.interval);
}

std::vector<PhaseSpectrum> hatSpectra(HatSeries& series, long most)
{
    const long n = cut(series.size(), most);
    if (!hasSpectrum(n, series.interval))
        return std::vector<PhaseSpectrum>(3);
    Samples x[3];
    for (int i = 0; i < 3; ++i)
        x[i] = withoutParabola(n, series.t[i], series.x[i]);
    std::vector<SamplesPair> pairs;
    for (const auto& [i, j] : hatPairs)
        pairs.push_back({&x[i], &x[j]});
    return spectraOf(pairs, series.interval);
}
