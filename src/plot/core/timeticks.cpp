#include "plot/core/timeticks.h"

#include <cmath>

namespace {

constexpr double minute = 60.0;
constexpr double hour = 3600.0;
constexpr double day = 86400.0;
constexpr double longestSpan = 1e12;

constexpr TimeStep steps[] = {{1.0, 1}, {2.0, 2}, {5.0, 5}, {10.0, 5}, {15.0, 3}, {30.0, 3}, {minute, 4},
    {2.0 * minute, 4}, {5.0 * minute, 5}, {10.0 * minute, 5}, {15.0 * minute, 3}, {30.0 * minute, 3},
    {hour, 4}, {2.0 * hour, 4}, {3.0 * hour, 3}, {6.0 * hour, 6}, {12.0 * hour, 4}, {day, 4}, {2.0 * day, 2},
    {5.0 * day, 5}, {10.0 * day, 5}};

} // namespace

TimeStep timeStep(double span, int mostMajor, bool dates)
{
    const double shortest = dates && span >= 2.0 * day ? day : 0.0;
    if (!(span >= mostMajor) || span > longestSpan || mostMajor < 1)
        return {};
    for (const TimeStep& step : steps) {
        if (span <= step.major * mostMajor && step.major >= shortest)
            return step;
    }
    double days = 20.0;
    for (int k = 0; span > days * day * mostMajor; ++k)
        days *= k % 3 == 1 ? 2.5 : 2.0; // 20, 40, 100, 200, 400, ...
    return {days * day, 2};
}

TimeStep wholeStep(double span, int mostMajor)
{
    if (!(span >= 1.0) || span > longestSpan || mostMajor < 1)
        return {};
    constexpr TimeStep first[] = {{1.0, 1}, {2.0, 2}, {5.0, 5}};
    for (double power = 1.0;; power *= 10.0) {
        for (const TimeStep& step : first) {
            if (span <= step.major * power * mostMajor)
                return {step.major * power, power > 1.0 ? 2 : step.minors};
        }
    }
}
