#pragma once

#include "record/record.h"
#include "table/core/daywriter.h"

#include <algorithm>
#include <cmath>

/// A stretch of a record.
struct Span {
    int first, last; // running indices, both included
};

/// Calls run(ta, xa, tb, xb, n) for stretches of n samples of both spans, one or more, that stand at the same
/// time, at most `farthest` seconds apart, as long as it gives true. Times are those of each record: on the
/// scale of `a` the second is `timeShift(a, b)` more. A time that is no number pairs with nothing.
template <class Run>
void forEachRun(const Record& a, const Record& b, Span inA, Span inB, double farthest, Run run)
{
    const double offset = timeShift(a, b);
    SampleWalk walkA(a, inA.first);
    SampleWalk walkB(b, inB.first);
    while (!walkA.atEnd() && !walkB.atEnd() && walkA.index() <= inA.last && walkB.index() <= inB.last) {
        const double* ta = walkA.times();
        const double* tb = walkB.times();
        const int most = std::min(
            {walkA.left(), walkB.left(), inA.last - walkA.index() + 1, inB.last - walkB.index() + 1});
        int common = 0;
        while (common < most && std::abs(ta[common] - (offset + tb[common])) <= farthest)
            ++common;
        if (common > 0) {
            if (!run(ta, walkA.values(), tb, walkB.values(), common))
                return;
            walkA.skip(common);
            walkB.skip(common);
            continue;
        }
        const double apart = *ta - (offset + *tb);
        if (std::isnan(apart)) {
            walkA.next();
            walkB.next();
        } else if (apart > 0.0) {
            walkB.next();
        } else {
            walkA.next();
        }
    }
}
