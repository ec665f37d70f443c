#include "stats/edf.h"

#include <cmath>
#include <limits>

namespace {

/// Wide enough for the cube of a sample count; the fixed 64 bits would overflow above two million samples.
__extension__ using Wide = __int128;

/// Up to here (N-1)^2*(N-2) and its like fit into Wide.
constexpr long widest = 1L << 40;

double whitePhase(double samples, double m)
{
    return (samples + 1.0) * 0.5 * (samples - 2.0 * m) / (samples - m);
}

double flickerPhase(double samples, double m)
{
    const double rest = samples - 1.0;
    return std::exp(std::sqrt(std::log(rest * 0.5 / m) * std::log((2.0 * m + 1.0) * 0.25 * rest)));
}

double whiteFrequency(long samples, long m)
{
    if (samples == 0)
        return std::numeric_limits<double>::quiet_NaN();
    const Wide cut = (2 * static_cast<Wide>(samples) - 4) / samples; // a whole number, 1 from four samples on
    const double factor = static_cast<double>(m);
    const double rest = static_cast<double>(samples) - 1.0;
    return (1.5 * rest / factor - static_cast<double>(cut)) * factor * factor / (factor * factor + 1.25);
}

double flickerFrequency(double samples, double m)
{
    if (m == 1.0)
        return 2.0 * (samples - 2.0) * (samples - 2.0) / (2.3 * samples - 4.9);
    return 1.25 * samples * samples / m / (samples + 3.0 * m);
}

double randomWalkFrequency(long samples, long m)
{
    if (m == 0 || samples == 3)
        return std::numeric_limits<double>::quiet_NaN();
    if (samples > widest || samples < -widest || m > widest || m < -widest) {
        const double all = static_cast<double>(samples), rest = all - 1.0, factor = static_cast<double>(m);
        return (rest * rest - 3.0 * rest * factor + 4.0 * factor * factor) * (all - 2.0) / factor
            / (all - 3.0) / (all - 3.0);
    }
    const Wide all = samples, rest = all - 1, factor = m;
    const Wide product = (rest * rest - 3 * rest * factor + 4 * factor * factor) * (all - 2);
    return static_cast<double>(
        product / factor / (all - 3) / (all - 3)); // each quotient cut to a whole number
}

}

double EDF(int alpha, long samples, long m)
{
    switch (alpha) {
    case 2:
        return whitePhase(static_cast<double>(samples), static_cast<double>(m));
    case 1:
        return flickerPhase(static_cast<double>(samples), static_cast<double>(m));
    case 0:
        return whiteFrequency(samples, m);
    case -1:
        return flickerFrequency(static_cast<double>(samples), static_cast<double>(m));
    case -2:
        return randomWalkFrequency(samples, m);
    default:
        return 1.0;
    }
}
