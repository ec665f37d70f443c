#include "plot/core/curvelines.h"

#include "stats/fits.h"
#include "stats/plainstats.h"

#include <algorithm>

CurveLine trendLine(std::vector<double> x, std::vector<double> y, double interval)
{
    const size_t count = std::min(x.size(), y.size());
    if (count < 2)
        return {};
    double steps = 0.0;
    long stepCount = 0;
    size_t n = 2;
    for (; n < count && x[n] != x[n - 2]; ++n) {
        if (!(x[n] > x[n - 1]))
            continue;
        steps += x[n] - x[n - 1];
        ++stepCount;
    }
    // Two points leave the slope unwritten: the line then lies at zero.
    double slope = 0.0;
    const double intercept = Trend(long(n), x.data(), y.data(), &slope);
    const double step = stepCount ? steps / double(stepCount) : 0.0;
    const double last = x[n - 1];
    return {true, QPointF(x[0], intercept), QPointF(last, intercept + (last - x[0]) * slope),
        (step > 0.0 ? step : interval) * slope};
}

double shownMean(const std::vector<double>& x, std::vector<double>& y)
{
    const size_t count = std::min(x.size(), y.size());
    // Most graphs begin at X = 0, so the first two points are taken whatever their X.
    size_t n = std::min<size_t>(count, 2);
    while (n < count && n >= 2 && x[n] != x[n - 2] && x[n] != 0.0)
        ++n;
    return aver(long(n), y.data());
}

CurveLine averageLine(const std::vector<double>& x, std::vector<double> y)
{
    if (x.size() <= 3 || y.size() < x.size())
        return {};
    const double mean = shownMean(x, y);
    return {true, QPointF(x.front(), mean), QPointF(x.back(), mean), mean};
}
