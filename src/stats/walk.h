#pragma once

#include "stats/pairs.h"

#include <algorithm>
#include <cmath>

/// The walk over a grid of positions that every deviation kernel shares. A kernel is a difference
/// (differences.h), a gap test, and a summand made of both; the walk adds the summands of all positions that
/// pass the test. The parts are written once for a single position and for two at a time. Private to the
/// room.
namespace walk {

using pairs::Pair, pairs::folded;
using PairMask = decltype(Pair{} > Pair{});

/// One position.
struct Single {
    long i;
    double operator()(const double* p) const { return p[i]; }
    Single shifted(long by) const { return {i + by}; }
};

/// Two neighbouring positions.
struct Neighbours {
    long i;
    Pair operator()(const double* p) const { return pairs::load(p + i); }
    Neighbours shifted(long by) const { return {i + by}; }
};

/// Two positions one stride apart.
struct Apart {
    long i;
    long stride;
    Pair operator()(const double* p) const { return Pair{p[i], p[i + stride]}; }
};

/// The test that every position passes.
struct Every {
    struct Always { };
    template <class Place> Always operator()(Place) const { return {}; }
};

/// The value where the test holds, else 0.0; a dropped NaN or infinity leaves no trace.
inline double keep(bool holds, double value)
{
    return holds ? value : 0.0;
}
inline Pair keep(PairMask holds, Pair value)
{
    return holds ? value : Pair{};
}
template <class Value> Value keep(Every::Always, Value value)
{
    return value;
}

/// The value cut to the upper half of its bits.
inline Pair leadingBits(Pair value)
{
    using Bits = long long __attribute__((vector_size(16)));
    constexpr long long upper = ~((1LL << 27) - 1);
    return reinterpret_cast<Pair>(reinterpret_cast<Bits>(value) & Bits{upper, upper});
}
inline double leadingBits(double value)
{
    return leadingBits(pairs::both(value))[0];
}

/// The positions first, first+stride, ... below end.
struct Grid {
    long first;
    long end;
    long stride;
};

struct Total {
    double sum = 0.0;
    double count = 0.0;
    double mean() const { return sum / count; }
    /// Of second differences: sqrt(|sum/2| / count).
    double twoSampleRoot() const { return std::sqrt(std::fabs(sum * 0.5 / count)); }
};

/// Terms summed apart before they join the total: short sums keep the rounding error of a long series small.
constexpr long blockTerms = 2048;

/// Sum and count over `terms` positions. `two(k)` gives the places of the terms k and k+1, `one(k)` that of
/// term k.
template <class Summand, class Gate, class Two, class One>
Total block(long terms, const Summand& summand, const Gate& gate, const Two& two, const One& one)
{
    const Pair ones = pairs::both(1.0);
    Pair sumA = {}, sumB = {}, count = {};
    long k = 0;
    for (; k + 4 <= terms; k += 4) {
        const auto a = two(k), b = two(k + 2);
        const auto passA = gate(a), passB = gate(b);
        sumA += keep(passA, summand(a));
        sumB += keep(passB, summand(b));
        count += keep(passA, ones) + keep(passB, ones);
    }
    Total total{folded(sumA + sumB), folded(count)};
    for (; k < terms; ++k) {
        const auto pass = gate(one(k));
        total.sum += keep(pass, summand(one(k)));
        total.count += keep(pass, 1.0);
    }
    return total;
}

/// Sum of the summand and number of positions, over the positions of the grid that pass the test.
template <class Summand, class Gate> Total total(const Grid& grid, const Summand& summand, const Gate& gate)
{
    Total all;
    long double sum = 0.0L;
    const long stride = grid.stride;
    const long terms = grid.end > grid.first ? (grid.end - grid.first - 1) / stride + 1 : 0;
    for (long done = 0; done < terms; done += blockTerms) {
        const long start = grid.first + done * stride;
        const long now = std::min(blockTerms, terms - done);
        const auto one = [=](long k) { return Single{start + k * stride}; };
        const auto neighbours = [=](long k) { return Neighbours{start + k}; };
        const auto apart = [=](long k) { return Apart{start + k * stride, stride}; };
        const Total part =
            stride == 1 ? block(now, summand, gate, neighbours, one) : block(now, summand, gate, apart, one);
        sum += static_cast<long double>(part.sum);
        all.count += part.count;
    }
    all.sum = static_cast<double>(sum);
    return all;
}

/// @name Summands
/// @{
template <class Term> struct Centred {
    Term term;
    double centre;
    template <class Place> auto operator()(Place at) const { return term(at) - centre; }
};

template <class Term> struct Divided {
    Term term;
    double divisor;
    template <class Place> auto operator()(Place at) const { return term(at) / divisor; }
};

template <class Term> struct Square {
    Term term;
    template <class Place> auto operator()(Place at) const
    {
        const auto value = term(at);
        return value * value;
    }
};

template <class First, class Second> struct Product {
    First first;
    Second second;
    template <class Place> auto operator()(Place at) const { return first(at) * second(at); }
};

template <class Term> Centred<Term> about(const Term& term, double centre)
{
    return {term, centre};
}

/// A centre in two parts: one double of it would be off by a constant that every term shares.
template <class Term> Centred<Centred<Term>> about(const Term& term, long double centre)
{
    const double leading = static_cast<double>(centre);
    const double rest = std::isfinite(leading) ? static_cast<double>(centre - leading) : 0.0;
    return about(about(term, leading), rest);
}

template <class Term> Divided<Term> divided(const Term& term, double divisor)
{
    return {term, divisor};
}

template <class Term> Square<Term> square(const Term& term)
{
    return {term};
}
template <class Term> Square<Centred<Term>> squareAbout(const Term& term, double centre)
{
    return {about(term, centre)};
}

/// What a deviation sums: the square of the term of one series, the product of the terms of two.
template <class Term> Square<Term> product(const Term& term)
{
    return {term};
}
template <class First, class Second> Product<First, Second> product(const First& first, const Second& second)
{
    return {first, second};
}
/// @}

}
