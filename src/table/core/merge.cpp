#include "table/core/merge.h"

#include "record/comparerecords.h"
#include "record/record.h"
#include "stats/fits.h"
#include "table/core/daywriter.h"
#include "table/core/derivedrecord.h"
#include "table/core/trends.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

const double nothing = std::nan("");

/// The ends of a record: first and last time, and the first and last sample with a value, NaN without.
struct Ends {
    double firstT = nothing, lastT = nothing;
    double firstValueT = nothing, firstValue = nothing;
    double lastValueT = nothing, lastValue = nothing;
};

Ends endsOf(const Record& record)
{
    Ends ends;
    if (const SampleWalk front(record); !front.atEnd())
        ends.firstT = front.t();
    for (SampleWalk walk(record); !walk.atEnd(); walk.next()) {
        ends.lastT = walk.t();
        if (!std::isfinite(walk.x()) || !std::isfinite(walk.t()))
            continue;
        if (std::isnan(ends.firstValue)) {
            ends.firstValueT = walk.t();
            ends.firstValue = walk.x();
        }
        ends.lastValueT = walk.t();
        ends.lastValue = walk.x();
    }
    return ends;
}

/// Line and parabola of a record, t from its first time on.
struct Fit {
    double frequency = 0.0; ///< of the line
    Parabola parabola; ///< the line where the record has too few values
    bool sloping = false; ///< there were two values at least
    int step = 1; ///< every step-th sample was taken
};

Fit fitOf(const Record& record, double origin)
{
    constexpr int most = 1000000;
    const int n = record.t.DayLengths.isEmpty() ? 0 : record.t.DayLengths.constLast();
    Fit fit;
    fit.step = std::max(1, n / most + (n % most > 0 ? 1 : 0));
    std::vector<double> t, x;
    for (SampleWalk walk(record); !walk.atEnd(); walk.next()) {
        if (walk.index() % fit.step == 0 && std::isfinite(walk.x()) && std::isfinite(walk.t())) {
            t.push_back(walk.t() - origin);
            x.push_back(walk.x());
        }
    }
    const int count = int(t.size());
    if (count < 1)
        return fit;
    double first = x.front();
    double slope = count == 2 ? (x[1] - x[0]) / (t[1] - t[0]) : nothing;
    if (count > 2)
        first = Trend(count, t.data(), x.data(), &slope);
    fit.sloping = std::isfinite(slope) && std::isfinite(first);
    if (!fit.sloping) {
        fit.parabola.constant = x.front();
        return fit;
    }
    fit.frequency = slope;
    Parabola& p = fit.parabola;
    if (!Parab(count, t.data(), x.data(), &p.quadratic, &p.linear, &p.constant)
        || !std::isfinite(p.quadratic + p.linear + p.constant))
        p = {0.0, slope, first - slope * t.front()};
    return fit;
}

/// How the samples of the second record move: t by `time`, x by `value` and, from the joint on, by `slope`.
struct Move {
    double time = 0.0;
    double value = 0.0;
    double slope = 0.0;
};

double finiteOr0(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

Move stitchPhase(const Record& first, const Ends& one, const Ends& two)
{
    const Fit fit = fitOf(first, one.firstT);
    Move move;
    move.time = one.lastT + first.Kdec - two.firstT;
    const double apart = two.firstValueT + move.time - one.lastValueT;
    move.value = finiteOr0(one.lastValue + fit.frequency * apart - two.firstValue);
    return move;
}

Move stitchFrequency(
    const Record& first, const Record& second, const Ends& one, const Ends& two, double timeMove)
{
    const Fit fit = fitOf(first, one.firstT);
    const Fit fitOfSecond = fitOf(second, two.firstT);
    const double joint = two.firstT + timeMove - one.firstT;
    Move move{timeMove, 0.0, 0.0};
    if (std::isnan(one.lastValue) || std::isnan(two.firstValue))
        return move;
    move.value = finiteOr0(fit.parabola.at(joint) - fitOfSecond.parabola.at(0.0));
    if (fit.sloping && fitOfSecond.sloping)
        move.slope = finiteOr0(fit.parabola.slopeAt(joint) - fitOfSecond.parabola.slopeAt(0.0));
    return move;
}

/// The largest deviation of a step between neighbours from the step that the frequency makes.
double largestDeviation(const Record& record, double frequency)
{
    double largest = 0.0;
    double t = nothing;
    double x = nothing;
    for (SampleWalk walk(record); !walk.atEnd(); walk.next()) {
        const double deviation = std::abs(walk.x() - frequency * (walk.t() - t) - x);
        if (deviation > largest)
            largest = deviation;
        t = walk.t();
        x = walk.x();
    }
    return largest;
}

Move keepGap(const Record& first, const Ends& one, const Ends& two, double timeMove,
    const std::function<bool()>& askShift)
{
    const Fit fit = fitOf(first, one.firstT);
    const double gap = two.firstT + timeMove - one.lastT - 1.0; // less a second, whatever Kdec is
    const double reached = fit.frequency * gap + one.lastValue;
    // The step of the fit stands for the second; the shift itself is short of it.
    const double jump = std::abs(two.firstValue - fit.frequency * (gap + fit.step) - one.lastValue);
    Move move{timeMove, 0.0, 0.0};
    if (largestDeviation(first, fit.frequency) <= jump && askShift && askShift())
        move.value = finiteOr0(reached - two.firstValue);
    return move;
}

MergeStatus refusal(Record& a, Record& b)
{
    if (a.dataType != b.dataType)
        return MergeStatus::OtherTypes;
    if (!(a.Kdec == b.Kdec))
        return MergeStatus::OtherIntervals;
    int a0 = 0, a1 = 0, b0 = 0, b1 = 0;
    return compareRecords2(&a, &b, a0, a1, b0, b1) == 1 ? MergeStatus::Overlap : MergeStatus::Ok;
}

qint64 join(Record& first, Record& second, const Move& move, double joint, Record& out)
{
    takeParameters(first, out);
    DayWriter writer(out, startTime(first) - startSecond(first));
    for (SampleWalk walk(first); !walk.atEnd(); walk.next())
        writer.add(walk.t(), walk.x());
    for (SampleWalk walk(second); !walk.atEnd(); walk.next())
        writer.add(walk.t() + move.time, walk.x() + (move.value + move.slope * (walk.t() - joint)));
    writer.finish();
    setEnds(first, out);
    return writer.leftOut();
}

} // namespace

bool sameSignals(const Record& a, const Record& b)
{
    return a.ref_sig == b.ref_sig && a.meas_sig == b.meas_sig;
}

MergeResult mergeRecords(
    Record& a, Record& b, MergeMode mode, const std::function<bool()>& askShift, Record& out)
{
    MergeResult result;
    result.status = refusal(a, b);
    if (result.status != MergeStatus::Ok)
        return result;
    Record& first = b.start < a.start ? b : a;
    Record& second = &first == &a ? b : a;
    const Ends one = endsOf(first);
    const Ends two = endsOf(second);
    if (!std::isfinite(one.firstT + one.lastT + two.firstT + two.lastT)) {
        result.status = MergeStatus::NoSamples;
        return result;
    }
    const double timeMove = timeShift(first, second);
    if (!(two.firstT + timeMove > one.lastT)) {
        result.status = MergeStatus::Overlap;
        return result;
    }
    const Move move = mode == MergeMode::StitchPhase ? stitchPhase(first, one, two)
        : mode == MergeMode::StitchFrequency         ? stitchFrequency(first, second, one, two, timeMove)
                                                     : keepGap(first, one, two, timeMove, askShift);
    result.valueShift = move.value;
    result.leftOut = join(first, second, move, two.firstT, out);
    return result;
}
