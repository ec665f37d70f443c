#include "plot/core/errorbars.h"

#include <cmath>

ErrorBar errorBar(double tau, double y, double span)
{
    if (tau <= 0.0 || span <= 0.0)
        return {y, y};
    const double ratio = span / tau;
    if (ratio > 1.0) {
        const double half = 1.0 / std::sqrt(ratio - 1.0);
        return {y * (1.0 - half), y * (1.0 + half)};
    }
    return {0.5 * y, 1.5 * y};
}
