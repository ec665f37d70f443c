#pragma once

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

/// D1/m.
struct D1PerSample {
    const double* x;
    long m;
    template <class Place> auto operator()(Place at) const
    {
        return (at(x + m) - at(x)) / static_cast<double>(m);
    }
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

struct F1 {
    const double* x;
    const double* t;
    long m;
    template <class Place> auto operator()(Place at) const
    {
        return (at(x + m) - at(x)) / (at(t + m) - at(t));
    }
};

struct F2 {
    const double* x;
    const double* t;
    long m;
    template <class Place> auto operator()(Place at) const
    {
        const F1 early{x, t, m}, late{x + m, t + m, m};
        return late(at) - early(at);
    }
};

struct F3 {
    const double* x;
    const double* t;
    long m;
    template <class Place> auto operator()(Place at) const
    {
        const F1 early{x, t, m}, late{x + 2 * m, t + 2 * m, m};
        const auto middle = F1{x + m, t + m, m}(at);
        return (late(at) - middle) - (middle - early(at));
    }
};

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
