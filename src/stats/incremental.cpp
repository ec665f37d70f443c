#include "stats/incremental.h"

#include "base/debuglog.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/walk.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <vector>

struct varInf::Arrays {
    explicit Arrays(std::size_t length)
        : count(length)
        , value(length)
        , sum(length)
        , sumSq(length)
        , mean(length)
    {
    }
    std::vector<int> count;
    std::vector<double> value, sum, sumSq, mean;
};

void varInf::Reserve(int wanted)
{
    if (wanted < 0 || wanted > longestScale)
        throw std::bad_array_new_length();
    if (wanted <= length)
        return;
    const auto grown = std::make_shared<Arrays>(static_cast<std::size_t>(wanted));
    const auto take = [this](auto*& old, auto& fresh) {
        std::copy_n(old, length, fresh.data());
        old = fresh.data();
    };
    take(count, grown->count);
    take(value, grown->value);
    take(sum, grown->sum);
    take(sumSq, grown->sumSq);
    take(mean, grown->mean);
    length = wanted;
    m_arrays = grown;
}

namespace {

bool holds(const varInf& state, int k)
{
    return k >= 0 && k < state.length;
}

int toCount(long samples)
{
    return static_cast<int>(std::min<long>(samples, std::numeric_limits<int>::max()));
}

void logValue(const char* name, const char* when, double value)
{
    DebugLOG((QByteArray(name) + ' ' + when + " value = " + QByteArray::number(value, 'g', 17)).constData());
}

/// The terms of alan_scdo that the value of factor k holds; 0 for a fresh start. m is positive.
long termsIn(long m, const varInf& state, int k)
{
    if (state.count[k] < 1 || std::fabs(state.value[k]) < 1e-30)
        return 0;
    return std::max(0L, (state.count[k] - m - 1) / m);
}

}

long alan_scdo_Upd_firstSample(long m, const varInf& state, int k)
{
    return m > 0 && holds(state, k) ? m * termsIn(m, state, k) : 0;
}

double alan_scdo_Upd(long n, long m, double* x, varInf& state, int k)
{
    if (!holds(state, k))
        return 0.0;
    int& count = state.count[k];
    double& value = state.value[k];
    if (m == 20)
        logValue("alan_scdo_Upd", "old", value);
    if (count < 1 || std::fabs(value) < 1e-30)
        value = 0.0;
    count = std::max(count, 0);
    if (m <= 0) {
        count = toCount(count + std::clamp<long>(n, 0, std::numeric_limits<int>::max()));
        return value;
    }
    const long terms = termsIn(m, state, k);
    const long seen = m * terms + std::clamp<long>(n, 0, std::numeric_limits<int>::max());
    if (guards::reaches(2, m, n)) {
        count = std::max(count, toCount(seen));
        return value;
    }
    const walk::Total fresh = walk::total({0, n - 2 * m, m}, walk::square(walk::D2{x, m}), walk::Every{});
    const double factor = static_cast<double>(m), old = static_cast<double>(terms);
    const double held = value * factor * value * factor * old; // half the sum of squares so far
    value = std::sqrt((held + held + fresh.sum) * 0.5 / (fresh.count + old)) / factor;
    count = toCount(seen);
    if (m == 20)
        logValue("alan_scdo_Upd", "new", value);
    return value;
}

double sco_Upd(long n, long m, double* x, varInf& state, int k)
{
    if (!holds(state, k))
        return 0.0;
    double &value = state.value[k], &sum = state.sum[k], &sumSq = state.sumSq[k], &mean = state.mean[k];
    const long c = std::max(state.count[k], 0);
    if (c == 0)
        value = sum = sumSq = mean = 0.0;
    const double samples = static_cast<double>(c), factor = static_cast<double>(std::max(m, 0L));
    const double spread = mean * mean + sumSq - 2.0 * mean * sum; // mean^2 once, not once a term
    const long done = m > 0 && c >= m ? (c - m) / m : 0;
    const long carried = c - m * done;
    if (m <= 0 || n <= m - carried)
        return std::sqrt(spread / samples) / factor;
    const long left = n + carried;
    const long fresh = left / m - 1;
    if (fresh == 0)
        return std::sqrt(std::fabs(spread) / samples) / factor;
    const long last = (left - 1) / m * m;
    if (last >= n)
        return value; // built for repeated samples that the block does not bring
    // so carried < m < n: the two samples of the mean lie in the block, too
    const double terms = static_cast<double>(done + fresh);
    const double newMean =
        static_cast<double>(done) * mean / terms + (x[m * fresh - 1] - x[carried + 1]) / terms;
    const walk::Grid grid{0, last, m};
    const double steps = walk::total(grid, walk::D1{x, m}, walk::Every{}).sum;
    const double squares = walk::total(grid, walk::square(walk::D1{x, m}), walk::Every{}).sum;
    const double variance =
        (terms * newMean * newMean - 2.0 * newMean * sum - 2.0 * newMean * steps + sumSq + squares) / terms;
    mean = newMean;
    sum += steps;
    sumSq += squares;
    value = std::sqrt(variance) / factor;
    if (m == 100)
        logValue("sco_Upd", "new", value);
    return value;
}
