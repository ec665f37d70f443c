#include "stats/middle.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr size_t fewValues = 4096; // not worth a sample
constexpr size_t sampleSize = 1024;
constexpr size_t margin = 48; // of the sample to either side of its middle: three standard deviations

Middle selected(std::vector<double>& values, size_t lower, size_t upper)
{
    const auto at = [&](size_t index) { return values.begin() + std::ptrdiff_t(index); };
    std::nth_element(values.begin(), at(upper), values.end());
    const double above = *at(upper);
    return {lower == upper ? above : *std::max_element(values.begin(), at(upper)), above};
}

} // namespace

Middle middleOf(std::vector<double>& values)
{
    const size_t n = values.size();
    const size_t lower = (n - 1) / 2, upper = n / 2;
    if (n < fewValues)
        return selected(values, lower, upper);
    std::vector<double> sample;
    sample.reserve(sampleSize);
    for (size_t i = 0; i < sampleSize; ++i)
        sample.push_back(values[i * n / sampleSize]);
    std::sort(sample.begin(), sample.end());
    const double from = sample[sampleSize / 2 - margin], to = sample[sampleSize / 2 + margin];
    std::vector<double> between(n + 1);
    size_t count = 0, below = 0;
    for (const double value : values) { // without branches: their outcome could not be foreseen
        between[count] = value;
        count += size_t(value >= from) & size_t(value <= to);
        below += size_t(value < from);
    }
    if (below > lower || upper >= below + count)
        return selected(values, lower, upper);
    between.resize(count);
    return selected(between, lower - below, upper - below);
}
