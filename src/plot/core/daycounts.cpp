#include "plot/core/daycounts.h"

#include "record/doublearray.h"

#include <algorithm>
#include <cmath>
#include <numeric>

double dayOfSecond(double second)
{
    const double day = std::floor(second / secondsOfDay);
    return std::isnan(day) ? 0.0 : day;
}

std::vector<int> countDays(const doubleArray& t, double offset, int days)
{
    std::vector<int> counts(size_t(std::max(days, 0)));
    const int last = days - 1;
    int day = 0;
    for (int part = 0; part < t.parts.size() && last >= 0; ++part) {
        const double* begin = t.DayData(part);
        const double* const end = begin + t.DayLengths.at(part);
        while (begin < end) {
            day = int(std::clamp(dayOfSecond(*begin + offset), double(day), double(last)));
            const double midnight = (day + 1) * secondsOfDay;
            const auto before = [offset, midnight](double time) { return time + offset < midnight; };
            const double* next = end;
            if (day < last && !before(end[-1]))
                next = std::max(begin + 1, std::partition_point(begin, end, before));
            counts[size_t(day)] += int(next - begin);
            begin = next;
        }
    }
    return counts;
}

int firstOfDay(const std::vector<int>& counts, int day)
{
    const size_t before = std::min(size_t(std::max(day, 0)), counts.size());
    return std::accumulate(counts.begin(), counts.begin() + std::ptrdiff_t(before), 0);
}

int totalOf(const doubleArray& array)
{
    return array.DayLengths.isEmpty() ? 0 : array.DayLengths.constLast();
}

std::vector<double> valuesOf(const doubleArray& array, int first, int n, double shift)
{
    first = std::max(first, 0);
    n = std::clamp(n, 0, std::max(totalOf(array) - first, 0));
    std::vector<double> values;
    values.reserve(size_t(n));
    const QList<int>& totals = array.DayLengths;
    int part = int(std::upper_bound(totals.begin(), totals.end(), first) - totals.begin());
    for (; part < array.parts.size() && n > 0; ++part) {
        const int before = part > 0 ? totals.at(part - 1) : 0;
        const double* from = array.DayData(part) + (first - before);
        const int share = std::min(n, totals.at(part) - first);
        std::transform(
            from, from + share, std::back_inserter(values), [shift](double value) { return value + shift; });
        first += share;
        n -= share;
    }
    return values;
}
