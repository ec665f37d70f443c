#pragma once

#include "record/record.h"
#include "table/core/daywriter.h"

#include <cmath>

/// A stretch of a record.
struct Span {
    int first, last; // running indices, both included
};

/// Calls pair(ta, xa, tb, xb) for the samples of both spans that stand at the same time, at most `farthest`
/// seconds apart, as long as it gives true. Both times are on the scale of `a`. A time that is no number
/// pairs with nothing.
template <class Pair>
void forEachPair(const Record& a, const Record& b, Span inA, Span inB, double farthest, Pair pair)
{
    const double offset = timeShift(a, b);
    SampleWalk walkA(a, inA.first);
    SampleWalk walkB(b, inB.first);
    while (!walkA.atEnd() && !walkB.atEnd() && walkA.index() <= inA.last && walkB.index() <= inB.last) {
        const double tb = offset + walkB.t();
        const double apart = walkA.t() - tb;
        if (std::abs(apart) > farthest) {
            if (apart > 0.0)
                walkB.next();
            else
                walkA.next();
            continue;
        }
        if (!std::isnan(apart) && !pair(walkA.t(), walkA.x(), tb, walkB.x()))
            return;
        walkA.next();
        walkB.next();
    }
}
