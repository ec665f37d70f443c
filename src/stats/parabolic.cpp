#include "stats/parabolic.h"

#include "stats/pairs.h"
#include "stats/scale.h"

#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using pairs::Pair, pairs::load, pairs::both, pairs::folded;

/// Samples are counted from the first one of their block, so an offset costs no digits.
///
/// Sum of (j-last/2)*x[j], j = 0 ... last: B-A*last/2.
double moment(const double* x, long last)
{
    const double first = x[0], middle = 0.5 * static_cast<double>(last);
    const Pair start = both(first), two = both(2.0);
    Pair weight = {1.0 - middle, 2.0 - middle}, sums = {};
    long j = 1;
    for (; j < last; j += 2) {
        sums += (load(x + j) - start) * weight;
        weight += two;
    }
    const double sum = folded(sums);
    return j == last ? sum + (x[last] - first) * middle : sum;
}

/// Sums over the blocks of one averaging factor, the end samples with half their weight: blocks that share
/// their ends then add up to longer ones.
class BlockSums {
public:
    /// Blocks of m+1 samples over a series of n, from the sums of the factor before if m is a multiple of it.
    void build(long n, long m, const double* x)
    {
        const long blocks = n / m - 1;
        if (m_step > 0 && m % m_step == 0) {
            merge(blocks, m / m_step, x);
        } else {
            m_area.resize(static_cast<std::size_t>(blocks));
            m_moment.resize(static_cast<std::size_t>(blocks));
            for (long k = 0; k < blocks; ++k)
                sum(x + m * k, m, m_area[static_cast<std::size_t>(k)], m_moment[static_cast<std::size_t>(k)]);
        }
        m_step = m;
    }

    /// Sum of (j-m/2)*x[mk+j] with the end samples in full.
    double fullMoment(long k, const double* x) const
    {
        const double* const from = x + m_step * k;
        return m_moment[static_cast<std::size_t>(k)]
            + 0.25 * static_cast<double>(m_step) * (from[m_step] - from[0]);
    }

private:
    static void sum(const double* x, long m, double& area, double& moment)
    {
        const double first = x[0], middle = 0.5 * static_cast<double>(m);
        const Pair start = both(first), two = both(2.0);
        Pair weight = {1.0 - middle, 2.0 - middle}, areas = {}, moments = {};
        long j = 1;
        for (; j + 1 < m; j += 2) {
            const Pair value = load(x + j) - start;
            areas += value;
            moments += value * weight;
            weight += two;
        }
        area = folded(areas);
        moment = folded(moments);
        for (; j < m; ++j) {
            area += x[j] - first;
            moment += (x[j] - first) * (static_cast<double>(j) - middle);
        }
        area += 0.5 * (x[m] - first);
        moment += 0.5 * (x[m] - first) * middle;
    }

    void merge(long blocks, long parts, const double* x)
    {
        const double width = static_cast<double>(m_step);
        for (long k = 0; k < blocks; ++k) {
            const double first = x[m_step * parts * k];
            double area = 0.0, moment = 0.0;
            for (long i = 0; i < parts; ++i) {
                const long part = k * parts + i; // never below k: the place written was read before
                const double partArea =
                    m_area[static_cast<std::size_t>(part)] + width * (x[m_step * part] - first);
                const double offset = width * (static_cast<double>(i) - 0.5 * static_cast<double>(parts - 1));
                area += partArea;
                moment += m_moment[static_cast<std::size_t>(part)] + offset * partArea;
            }
            m_area[static_cast<std::size_t>(k)] = area;
            m_moment[static_cast<std::size_t>(k)] = moment;
        }
        m_area.resize(static_cast<std::size_t>(blocks));
        m_moment.resize(static_cast<std::size_t>(blocks));
    }

    long m_step = 0;
    std::vector<double> m_area, m_moment;
};

/// Sum of (momentOf(k)-momentOf(k+1))^2 over the neighbouring blocks.
template <class Moment> double squares(long blocks, const Moment& momentOf)
{
    double sums[2] = {};
    double before = momentOf(0);
    for (long k = 1; k < blocks; ++k) {
        const double now = momentOf(k);
        const double d = before - now;
        sums[k & 1] += d * d + (d - d); // an infinite sample gives a NaN, as it does in A and B
        before = now;
    }
    return sums[0] + sums[1];
}

/// The earlier form's m = 1.
double allan(long n, double tau0, const double* x)
{
    double sum = 0.0;
    for (long i = 0; i + 2 < n; ++i) {
        const double term = ((x[i + 1] - x[i]) - (x[i + 2] - x[i + 1])) / 1.4142135623730951 / tau0;
        sum += term * term;
    }
    return std::sqrt(sum / static_cast<double>(n - 2));
}

}

double* new_rec_parabolic_deviation(long n, long* steps, long& count, double tau0, double* x)
{
    constexpr long leastKept = 16;
    BlockSums table;
    return overScale(n, 2, steps, count, [&](long, long m) {
        const long K = n / m;
        double S;
        if (m < leastKept) {
            S = 72.0 * squares(K - 1, [=](long k) { return moment(x + m * k, m); });
        } else {
            table.build(n, m, x);
            S = 72.0 * squares(K - 1, [&](long k) { return table.fullMoment(k, x); });
        }
        const double factor = static_cast<double>(m);
        // K, although the sum has K-2 terms; m+1 and m+2 where the textbook has m
        return std::sqrt(S / static_cast<double>(K)) / ((factor + 1.0) * tau0) / factor / (factor + 2.0);
    });
}

double* rec_parabolic_deviation(long n, long* steps, long& count, double tau0, double* x)
{
    return overScale(n, 2, steps, count, [=](long index, long m) {
        if (index == 0 && m == 1)
            return allan(n, tau0, x); // only at the head of the scale
        const long K = n / m;
        const double S = 72.0 * squares(K - 1, [=](long k) { return moment(x + m * k, m - 1); });
        const double factor = static_cast<double>(m);
        return std::sqrt(S / static_cast<double>(K)) / ((factor + 1.0) * tau0) / (factor - 1.0)
            / (factor + 1.0);
    });
}
