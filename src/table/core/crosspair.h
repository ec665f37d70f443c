#pragma once

#include "stats/statistic.h"
#include "table/core/commonsamples.h"
#include "table/core/tauscale.h"

#include <QDateTime>
#include <QString>
#include <QVector>

#include <functional>
#include <vector>

struct Record;

// Cross processing: what two records with a common clock, or three records of three clocks, tell of each
// clock. Records are written M - R, the measured signal M less the reference R.

/// n, averaging factor, x, y, times u of x and v of y (s); see stats/cross.h.
using CrossKernel = double (*)(long, long, double*, double*, double*, double*);

/// The kernel of SDEV, ADEV and HDEV, with `overlap` its overlapping form; null for every other statistic.
CrossKernel crossKernel(Statistic statistic, bool overlap);

/// How many signals two records name together.
enum class SignalCase {
    Unfit, ///< four, or three of which one record has but one: nothing to compare
    One, ///< each record is of a signal against itself: A-A and A-A, also A-A and B-B
    Two, ///< the same two clocks: A-B and A-B, or B-A
    Three, ///< one clock is common: A-B and A-C, in any order
};
SignalCase signalCase(const Record& a, const Record& b);

/// The signs, +1 or -1, that put the signal which both records name on the plus side of both.
struct CommonSigns {
    int first = 1;
    int second = 1;
    bool known = false; ///< false, with a line in the log, when there is no such signal
};
CommonSigns commonSigns(const Record& a, const Record& b);

enum class CrossStatus {
    Ok,
    OtherSignals, ///< SignalCase::Unfit
    NoCommonTime, ///< the records do not meet, or have too few samples for that
    OtherIntervals, ///< Kdec differs
    NoPairs, ///< they meet, but never within half an interval
    NotThreeClocks, ///< the three records are not those of three clocks, each pair of clocks once
};

/// The common samples of two records. All five arrays have one length.
struct CrossSeries {
    SignalCase kind = SignalCase::Unfit;
    bool countsDiffer = false; ///< warning: the counts in the common span differ by more than 10
    double interval = 0.0; ///< Kdec, s
    std::vector<double> x, y; ///< values of the first and the second record times their sign
    std::vector<double> d; ///< y - x
    std::vector<double> u, v; ///< times of x and y, s after the first u, on one scale
    QDateTime start, stop; ///< of the common samples, by the first record, to the millisecond

    long size() const { return long(x.size()); }
};

/// How samples of two records find each other.
enum class CrossMoments {
    ByTimeMarks, ///< those less than half an interval apart
    /// Where the records start at the same date and time their first samples coincide, and every further one
    /// of one record with that of the other, whatever the time marks say; other records as ByTimeMarks.
    Simultaneous,
};

/// The span of each record that both cover. The checks are made in the order signals, time, interval.
CrossStatus crossSpans(
    Record& a, Record& b, Span& inA, Span& inB, CrossMoments moments = CrossMoments::ByTimeMarks);

/// The common samples of two spans; live tails stay out. Ok or NoPairs.
CrossStatus alignSpans(const Record& a, const Record& b, Span inA, Span inB, CrossSeries& out,
    CrossMoments moments = CrossMoments::ByTimeMarks);

/// Both in one call; after a refusal `out` is empty. `a` and `b` may be one record.
CrossStatus crossSeries(
    Record& a, Record& b, CrossSeries& out, CrossMoments moments = CrossMoments::ByTimeMarks);

/// One result of cross processing: the channels that go into it, as "1, 2", and its name.
struct CrossRow {
    QString channels;
    QString name;
};

/// The results in their order. Two: the signal itself, then the noise of the comparator. Three: the common
/// clock, the other clock of `a`, the other clock of `b`. One: the noise of the comparator. Unfit: none.
QVector<CrossRow> crossRows(const Record& a, const Record& b);

/// The values of each row of crossRows(), one for each tau: One (x, y); Two (x, y), and (d, d) divided by the
/// root of 2; Three (x, y), (x, d), (y, d). The times of d are those of the first record. All of them run
/// side by side. Empty when `progress` (see runTasks()) stopped the work, and without kernel, samples or
/// scale. The series is only read.
std::vector<std::vector<double>> crossStability(CrossKernel kernel, CrossSeries& series,
    const TauScale& scale, const std::function<bool(double)>& progress = {});

/// The common samples of three records A-B, A-C and B-C, in any order and with either sign: the
/// three-cornered hat. Clock 0 is common to the first two records, 1 is the other of the first, 2 the other
/// of the second.
struct HatSeries {
    bool countsDiffer = false; ///< warning: the counts in the common span differ by more than 10
    double interval = 0.0; ///< Kdec, s
    /// Values of the records, signed so that they are clock 0 less clock 1, 0 less 2, and 1 less 2. No choice
    /// of signs puts every clock on the plus side of both its records; a kernel drops the sign of its sum.
    std::vector<double> x[3];
    std::vector<double> t[3]; ///< times of x, s after the first t[0], on one scale
    QString clock[3]; ///< names
    QDateTime start, stop; ///< as in CrossSeries

    long size() const { return long(x[0].size()); }
};

/// The two records (0, 1, 2) that contain each clock.
constexpr int hatPairs[3][2] = {{0, 1}, {0, 2}, {1, 2}};

/// As crossSeries(): a sample of each record is taken when all three stand less than half an interval apart.
CrossStatus hatSeries(
    Record& a, Record& b, Record& c, HatSeries& out, CrossMoments moments = CrossMoments::ByTimeMarks);

/// One row a clock, named by it, with the channels of the two records that contain it; none for records that
/// are not those of three clocks.
QVector<CrossRow> hatRows(const Record& a, const Record& b, const Record& c);

/// The values of each clock, as crossStability(): the kernel on the two records that contain it.
std::vector<std::vector<double>> hatStability(CrossKernel kernel, HatSeries& series, const TauScale& scale,
    const std::function<bool(double)>& progress = {});
