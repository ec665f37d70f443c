#pragma once

#include "stats/differences.h"
#include "stats/walk.h"

#include <algorithm>
#include <cmath>

/// Rates worked out from a common rate near their own, which keeps the digits of a steady clock under a large
/// frequency. Private to the room.
namespace walk {

/// The mean rate of the first terms that pass the test, rounded to the 24 bits of a float; 0.0 without one.
template <class Rate, class Gate> double nearRate(const Grid& grid, const Rate& rate, const Gate& gate)
{
    const F1 first{rate.x, rate.t, rate.m};
    for (long i = grid.first; i < grid.end; i += blockTerms * grid.stride) {
        const long end = std::min(grid.end, i + blockTerms * grid.stride);
        const Total part = total({i, end, grid.stride}, first, gate);
        if (part.count > 0.0)
            return std::fabs(part.mean()) < 1e30 ? static_cast<double>(static_cast<float>(part.mean())) : 0.0;
    }
    return 0.0;
}

/// What `deviation` makes of the rates less a constant, which must not matter to it. A value that is not
/// finite comes from the rates as they are: an infinite step of time is a rate of zero and has no shift.
template <class Deviation, class Gate, class... Rate>
double fromShifted(const Deviation& deviation, const Grid& grid, const Gate& gate, const Rate&... rate)
{
    const double value = deviation(rate.with(ShiftedQuotient{nearRate(grid, rate, gate)})...);
    return std::isfinite(value) ? value : deviation(rate...);
}

/// @name A rate with the care that a mean over many terms needs
/// @{
inline FirstRate<RoughQuotient> roughly(const FirstRate<ShiftedQuotient>& rate)
{
    return rate.with(RoughQuotient{rate.ratio.shift});
}
inline F2 roughly(const SecondRate<ShiftedQuotient>& rate)
{
    return rate.with(Quotient{}); // of a difference of rates the shift has gone
}
template <class Rate> Rate roughly(const Rate& rate)
{
    return rate;
}
/// @}

/// The mean of a rate over the grid, a shifted one less its shift. Few terms are worth full care: of one term
/// the mean must be that term.
template <class Rate, class Gate> double mean(const Grid& grid, const Rate& rate, const Gate& gate)
{
    const Total rough = total(grid, roughly(rate), gate);
    return rough.count > blockTerms ? rough.mean() : total(grid, rate, gate).mean();
}

}
