#include "plot/core/axisrange.h"

#include <algorithm>
#include <cmath>

namespace {

AxisRange straight(const AxisRange& range, bool logarithmic)
{
    return logarithmic ? AxisRange{std::log10(range.min), std::log10(range.max)} : range;
}

AxisRange back(const AxisRange& range, bool logarithmic)
{
    return logarithmic ? AxisRange{std::pow(10.0, range.min), std::pow(10.0, range.max)} : range;
}

} // namespace

AxisRange movedRange(const AxisRange& range, double share, bool logarithmic)
{
    const AxisRange line = straight(range, logarithmic);
    const double step = (line.max - line.min) * share;
    return back({line.min + step, line.max + step}, logarithmic);
}

AxisRange scaledRange(const AxisRange& range, double anchor, double factor, bool logarithmic)
{
    const AxisRange line = straight(range, logarithmic);
    const double width = line.max - line.min;
    const double min = line.min + width * anchor * (1.0 - factor);
    return back({min, min + width * factor}, logarithmic);
}

AxisRange withinWhole(const AxisRange& range, const AxisRange& before, const AxisRange& whole)
{
    return {std::max(range.min, std::min(before.min, whole.min)),
        std::min(range.max, std::max(before.max, whole.max))};
}
