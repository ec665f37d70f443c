#include "stats/deviations.h"
#include "stats/differences.h"
#include "stats/guards.h"
#include "stats/pairs.h"
#include "stats/scale.h"
#include "stats/timinglog.h"
#include "stats/walk.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace {

/// The inner term of the form with times, 0.0 where it does not count.
struct H {
    const double* x;
    const double* t;
    long m;
    template <class Place> auto operator()(Place at) const
    {
        const auto x1 = at(x + m), t1 = at(t + m);
        const auto step = at(t + 2 * m) - t1, span = t1 + at(t);
        const auto value = (at(x + 2 * m) - x1) / step - (x1 + at(x)) / span; // plus signs in both places
        return walk::keep((span > 0.0) & (step > 0.0), value);
    }
};

/// A restart of the running sum costs m terms. In all they may cost this many terms a position, which keeps
/// the work linear. Only a series of whole multiples of one quantum, without noise below it, meets exact
/// zeros so often, and its running sum is exact: a restart past the allowance would find the same zero.
constexpr long restartTerms = 16;

/// The sum of m inner terms from position i on, every term added.
template <class Term> double fullSum(const Term& term, long i)
{
    return walk::total({i, i + term.m, 1}, term, walk::Every{}).sum;
}

/// What `count` steps of one position, from position i on, add to the sum of m inner terms and take from it.
template <class Term> void changes(const Term& term, long i, long count, double* out)
{
    const auto change = [&term](auto at) { return term(at.shifted(term.m)) - term(at); };
    long k = 0;
    for (; k + 2 <= count; k += 2)
        pairs::store(out + k, change(walk::Neighbours{i + k}));
    if (k < count)
        out[k] = change(walk::Single{i + k});
}

/// The sum of A^2 over the positions 0 ... positions-1 by the running sum. The changes are worked out a block
/// ahead: they vectorise, the running sum itself cannot.
template <class Term> double runningSquares(const Term& term, long positions)
{
    std::array<double, 1024> step;
    double running = fullSum(term, 0);
    double all = running * running;
    const long last = positions - 1;
    long restarts = positions / term.m * restartTerms + restartTerms;
    for (long done = 0; done < last; done += static_cast<long>(step.size())) {
        const long now = std::min(static_cast<long>(step.size()), last - done);
        changes(term, done, now, step.data());
        double part = 0.0;
        for (long k = 0; k < now; ++k) {
            if (running == 0.0 && restarts > 0) {
                running = fullSum(term, done + k + 1); // afresh from an exact zero, as at the first position
                --restarts;
            } else {
                running += step[static_cast<std::size_t>(k)];
            }
            part += running * running;
        }
        all += part;
    }
    return all;
}

long positions(long n, long m)
{
    return n - 3 * m + 1;
}

double deviation(double squares, long count)
{
    return std::sqrt(squares * 0.5 / static_cast<double>(count));
}

}

double mod_alan_scdo_unimpr(long n, long m, double* x)
{
    const TimingLog log("modAllan", n, m);
    if (guards::reaches(3, m, n))
        return 0.0;
    if (n == 3 * m + 1)
        return guards::twoPoints(m, x); // a first difference over m samples, not over the span of the family
    const double inverse = 1.0 / static_cast<double>(m);
    double squares = 0.0;
    for (long i = 0; i < positions(n, m); ++i) {
        const double inner = fullSum(walk::D2{x, m}, i);
        squares += inner * inner;
    }
    return deviation(squares, positions(n, m)) * inverse * inverse;
}

double mod_alan_scdo(long n, long m, double* x)
{
    if (guards::reaches(3, m, n))
        return 0.0;
    if (n == 3 * m + 1)
        return guards::twoPoints(m, x); // a first difference over m samples, not over the span of the family
    const double inverse = 1.0 / static_cast<double>(m);
    return deviation(runningSquares(walk::D2{x, m}, positions(n, m)), positions(n, m)) * inverse * inverse;
}

double mod_alan_scdo(long n, long m, double* x, double* t, double)
{
    if (guards::reaches(3, m, n))
        return 0.0;
    if (n == 3 * m + 1)
        return guards::twoPointRates(H{x, t, m}); // a first difference over m samples, as above
    return deviation(runningSquares(H{x, t, m}, positions(n, m)), positions(n, m));
}

double* mod_alan_deviation(long n, long* steps, long& count, double tau0, double* x)
{
    return overScale(n, 3, steps, count, [=](long, long m) {
        const double factor = static_cast<double>(m);
        const double squares = runningSquares(walk::D2{x, m}, positions(n, m)); // no two-point case
        return deviation(squares, positions(n, m)) / factor / (tau0 * factor);
    });
}
