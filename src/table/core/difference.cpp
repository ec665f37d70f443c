#include "table/core/difference.h"

#include "record/comparerecords.h"
#include "record/record.h"
#include "table/core/commonsamples.h"
#include "table/core/daywriter.h"
#include "table/core/derivedrecord.h"

#include <cstdlib>

DifferenceNames differenceNames(
    const QString& ref1, const QString& meas1, const QString& ref2, const QString& meas2)
{
    const bool same = (ref1 == ref2 && meas1 == meas2) || (ref1 == meas2 && meas1 == ref2);
    if (same)
        return {ref1, meas1, false, true};
    if (ref1 == ref2)
        return {meas1, meas2, true, true};
    if (meas1 == meas2)
        return {ref2, ref1, true, true};
    if (ref1 == meas2)
        return {meas1, ref2, true, true};
    if (meas1 == ref2)
        return {ref1, meas2, true, true};
    return {ref1 + QStringLiteral(" + ") + meas1, meas1, true, false};
}

DifferenceResult differenceOf(Record& a, Record& b, Record& out)
{
    DifferenceResult result;
    if (!(a.Kdec == b.Kdec)) {
        result.status = DifferenceStatus::OtherIntervals;
        return result;
    }
    Span inA{}, inB{};
    if (compareRecords2(&a, &b, inA.first, inA.last, inB.first, inB.last) != 1) {
        result.status = DifferenceStatus::NoCommonTime;
        return result;
    }
    result.countsDiffer = std::abs((inA.last - inA.first) - (inB.last - inB.first)) > 10;
    const double farthest = a.Kdec * 0.49; // s
    bool anyPair = false;
    forEachRun(
        a, b, inA, inB, farthest, [&](const double*, const double*, const double*, const double*, int) {
            anyPair = true;
            return false;
        });
    if (!anyPair) {
        result.status = DifferenceStatus::NoPairs;
        return result;
    }
    const DifferenceNames names = differenceNames(a.ref_sig, a.meas_sig, b.ref_sig, b.meas_sig);
    result.otherSignals = names.otherSignals;
    takeParameters(a, out);
    out.ref_sig = names.ref_sig;
    out.meas_sig = names.meas_sig;
    DayWriter writer(out, startTime(a) - startSecond(a));
    std::vector<double> differences;
    forEachRun(a, b, inA, inB, farthest,
        [&](const double* t, const double* xa, const double*, const double* xb, int n) {
            differences.resize(size_t(n));
            std::transform(xb, xb + n, xa, differences.begin(), std::minus<>());
            writer.add(t, differences.data(), n);
            return true;
        });
    writer.finish();
    result.pairs = out.n_cnt;
    setEnds(a, out);
    return result;
}
