#include "stats/middle.h"

#include <algorithm>
#include <cstddef>
#include <memory>

namespace {

constexpr size_t fewValues = 4096; // not worth a sample
constexpr size_t sampleSize = 1024;
constexpr size_t margin = 48; // of the sample to either side of its middle: three standard deviations

/// The values of rank `lower` and `upper`, which is the same or the next one, of n.
Middle selected(double* values, size_t n, size_t lower, size_t upper)
{
    std::nth_element(values, values + upper, values + n);
    return {lower == upper ? values[upper] : *std::max_element(values, values + upper), values[upper]};
}

} // namespace

Middle middleOf(std::vector<double>& values)
{
    const size_t n = values.size();
    const size_t lower = (n - 1) / 2, upper = n / 2;
    if (n < fewValues)
        return selected(values.data(), n, lower, upper);
    std::vector<double> sample;
    sample.reserve(sampleSize);
    for (size_t i = 0; i < sampleSize; ++i)
        sample.push_back(values[i * n / sampleSize]);
    std::sort(sample.begin(), sample.end());
    const double from = sample[sampleSize / 2 - margin], to = sample[sampleSize / 2 + margin];
    const std::unique_ptr<double[]> between(new double[n + 1]); // left as it is: few are used
    size_t count = 0, below = 0;
    for (const double value : values) { // without branches: their outcome could not be foreseen
        between[count] = value;
        count += size_t(value >= from) & size_t(value <= to);
        below += size_t(value < from);
    }
    if (below > lower || upper >= below + count)
        return selected(values.data(), n, lower, upper);
    return selected(between.get(), count, lower - below, upper - below);
}
