#pragma once

#include "stats/walk.h"

/// The differences, rates and gap tests of the deviation kernels, in the notation of deviations.h. Each is a
/// function of a place of the walk (walk.h). Private to the room.
///
/// A second or third difference is taken as a difference of first differences: neighbouring samples are then
/// subtracted without rounding, and a large phase or frequency offset costs no digits.
namespace walk {

struct D1 {
    const double* x;
    long m;
    template <class Place> auto operator()(Place at) const { return at(x + m) - at(x); }
};

struct D2 {
    const double* x;
    long m;
    template <class Place> auto operator()(Place at) const
    {
        const auto x1 = at(x + m);
        return (at(x + 2 * m) - x1) - (x1 - at(x));
    }
};

struct D3 {
    const double* x;
    long m;
    template <class Place> auto operator()(Place at) const
    {
        const auto x1 = at(x + m), x2 = at(x + 2 * m);
        const auto middle = x2 - x1;
        return ((at(x + 3 * m) - x2) - middle) - (middle - (x1 - at(x)));
    }
};

/// dx/dt.
struct Quotient {
    template <class Value> Value operator()(Value dx, Value dt) const { return dx / dt; }
};

/// dx/dt-shift, worked out as (dx-shift*dt)/dt: a rate rounded at 1e-6 has lost what a good clock does at
/// 1e-18, the rest after the shift has not. Finite steps only.
struct ShiftedQuotient {
    double shift; // of 24 significant bits, so that its product with half of a step is exact
    template <class Value> Value operator()(Value dx, Value dt) const
    {
        const Value upper = leadingBits(dt);
        return ((dx - shift * upper) - shift * (dt - upper)) / dt;
    }
};

/// The same without the care for the last digits of shift*dt, a third faster: enough for a mean.
struct RoughQuotient {
    double shift;
    template <class Value> Value operator()(Value dx, Value dt) const { return (dx - shift * dt) / dt; }
};

template <class Ratio> struct FirstRate {
    const double* x;
    const double* t;
    long m;
    Ratio ratio = {};
    template <class Place> auto operator()(Place at) const
    {
        return ratio(at(x + m) - at(x), at(t + m) - at(t));
    }
    template <class Other> FirstRate<Other> with(const Other& other) const { return {x, t, m, other}; }
};

template <class Ratio> struct SecondRate {
    const double* x;
    const double* t;
    long m;
    Ratio ratio = {};
    template <class Place> auto operator()(Place at) const
    {
        const FirstRate<Ratio> early{x, t, m, ratio}, late{x + m, t + m, m, ratio};
        return late(at) - early(at);
    }
    template <class Other> SecondRate<Other> with(const Other& other) const { return {x, t, m, other}; }
};

template <class Ratio> struct ThirdRate {
    const double* x;
    const double* t;
    long m;
    Ratio ratio = {};
    template <class Place> auto operator()(Place at) const
    {
        const FirstRate<Ratio> early{x, t, m, ratio}, late{x + 2 * m, t + 2 * m, m, ratio};
        const auto middle = FirstRate<Ratio>{x + m, t + m, m, ratio}(at);
        return (late(at) - middle) - (middle - early(at));
    }
    template <class Other> ThirdRate<Other> with(const Other& other) const { return {x, t, m, other}; }
};

using F1 = FirstRate<Quotient>;
using F2 = SecondRate<Quotient>;
using F3 = ThirdRate<Quotient>;

/// The first `Steps` time steps are positive.
template <int Steps> struct Rising {
    const double* t;
    long m;
    template <class Place> auto operator()(Place at) const
    {
        const auto first = (at(t + m) - at(t)) > 0.0;
        if constexpr (Steps == 1)
            return first;
        else
            return first & ((at(t + 2 * m) - at(t + m)) > 0.0);
    }
};

/// The gap threshold of a single time step, s.
inline double stepBound(long m, double tau0)
{
    return 2.0 * static_cast<double>(m) * tau0;
}

/// Each of the first `Steps` time steps is positive and below `bound`.
template <int Steps> struct Regular {
    const double* t;
    long m;
    double bound;
    template <class Place> auto operator()(Place at) const
    {
        const auto step = at(t + Steps * m) - at(t + (Steps - 1) * m);
        const auto good = (step > 0.0) & (step < bound);
        if constexpr (Steps == 1)
            return good;
        else
            return good & Regular<Steps - 1>{t, m, bound}(at);
    }
};

}
