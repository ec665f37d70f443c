#pragma once

#include <QString>

struct Record;

/// The names of a difference of two records.
struct DifferenceNames {
    QString ref_sig;
    QString meas_sig;
    bool otherSignals = false; ///< the records are not of the same two signals, in either order
    bool common = false; ///< yet one signal is common to them: the difference is of the other two
};

/// Names the second record less the first. With a common signal the other signal of each record is named, in
/// the order that gives the difference its sign when the common one is the reference of both, or the
/// measured signal of both; else the first record's becomes the reference. Without a common signal the
/// reference is the first pair joined by " + ". Records of the same two signals keep the first one's names.
DifferenceNames differenceNames(
    const QString& ref1, const QString& meas1, const QString& ref2, const QString& meas2);

enum class DifferenceStatus {
    Ok,
    OtherIntervals, ///< Kdec differs
    NoCommonTime, ///< the records do not meet, or have too few samples for that
    NoPairs, ///< they meet, but never within 0.49 of an interval
};

struct DifferenceResult {
    DifferenceStatus status = DifferenceStatus::Ok;
    bool countsDiffer = false; ///< warning: the counts in the common span differ by more than 10
    bool otherSignals = false; ///< warning, see DifferenceNames
    qint64 pairs = 0;
};

/// Writes b - a, for the samples that stand at the same time, to `out`, which is none of the two. The times
/// are those of `a`. `out` has the parameters of `a` without its RecID, is not live and has a part a civil
/// day; after a refusal it is left as it was. Live tails stay out.
DifferenceResult differenceOf(Record& a, Record& b, Record& out);
