#pragma once

#include <QtGlobal>

#include <functional>

struct Record;

enum class MergeMode {
    StitchPhase, ///< the second record follows the first at once, in time and in value
    StitchFrequency, ///< times stay; the second record goes on with the first one's value and frequency
    KeepGap, ///< times and, unless the user wants otherwise, values stay
};

enum class MergeStatus {
    Ok,
    OtherTypes, ///< dataType differs
    OtherIntervals, ///< Kdec differs
    NoSamples, ///< a record has no samples, or its first or last one has no time
    Overlap, ///< the later record begins before or with the end of the earlier
};

struct MergeResult {
    MergeStatus status = MergeStatus::Ok;
    double valueShift = 0.0; ///< what the first value of the second record was raised by
    qint64 leftOut = 0; ///< samples whose time does not rise
};

/// Whether both signals of two records bear the same names; if not, the user is asked before a merge.
bool sameSignals(const Record& a, const Record& b);

/// Joins two records that follow each other, in whichever order they are given, to `out`, which is none of
/// the two. The joint is formed so:
///   StitchPhase      the second record's first sample stands one Kdec behind the first one's last, at its
///                    value plus the linear frequency of the first record times Kdec;
///   StitchFrequency  the parabola fitted to the second record meets, at its first sample, the value and the
///                    frequency of the parabola of the first;
///   KeepGap          a jump in value that is as large as the largest deviation of a step of the first record
///                    from its frequency lets `askShift` be called. On true the second record is moved to
///                    where the first leads.
/// Parabolas become lines, and lines level, where a record has too few values for more. NaN values are kept
/// and take no part in fits and joints.
///
/// `out` has the parameters of the earlier record without its RecID, is not live and has a part a civil day;
/// after a refusal it is left as it was. Live tails stay out.
MergeResult mergeRecords(
    Record& a, Record& b, MergeMode mode, const std::function<bool()>& askShift, Record& out);
