#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <fstream>
#include <limits>
#include <string>

/// What `work` takes, in seconds.
template <typename Work> double seconds(const Work& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// Takes the yardstick and the work in turn. "ratio" is the least time of the work over that of the
/// yardstick, "bound" what it should not exceed, where there is a bound.
template <typename Yardstick, typename Work>
void compare(benchmark::State& state, double bound, const Yardstick& yardstick, const Work& work)
{
    double leastYard = std::numeric_limits<double>::max(), leastWork = leastYard;
    for (auto _ : state) {
        leastYard = std::min(leastYard, seconds(yardstick));
        const double time = seconds(work);
        leastWork = std::min(leastWork, time);
        state.SetIterationTime(time);
    }
    state.counters["ratio"] = leastWork / leastYard;
    state.counters["yardstick_ms"] = leastYard * 1e3;
    state.counters["best_ms"] = leastWork * 1e3;
    if (bound > 0.0)
        state.counters["bound"] = bound;
}

/// A memory figure of this process in bytes, as the system tells it in kilobytes.
inline double memory(const char* key)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.compare(0, std::strlen(key), key) == 0)
            return std::stod(line.substr(std::strlen(key) + 1)) * 1024.0;
    }
    return 0.0;
}
