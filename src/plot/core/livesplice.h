#pragma once

#include <vector>

struct Record;

/// A batch of new samples of a live stream, with the time and the value of the sample before it.
struct LiveBlock {
    int count = 0;
    const double* t = nullptr; ///< s
    const double* x = nullptr;
    double baseT = 0.0;
    double baseX = 0.0;
};

/// A phase sample, such as the one before the live tail, from which its first frequency is made.
struct PhaseBefore {
    bool known = false;
    double t = 0.0;
    double x = 0.0;
};

/// Points of a curve.
struct LivePoints {
    std::vector<double> t;
    std::vector<double> x;
};

/// The time that a record has got to, with the newest value that a stream can go on from; zeros when there is
/// none.
PhaseBefore newestSample(const Record& record);

/// Appends a batch to the live tail so that it goes on where the record ends; `sign` turns the values of the
/// stream into those of the record. A time that is not finite or does not rise is left out, and a value that
/// is not finite does not carry over to the next batch. Returns how many samples went in.
int spliceLive(Record& record, const LiveBlock& block, double sign);

/// Moves the live tail, all but its newest `keep` samples, into the arrays, with a new part at each midnight;
/// `offset` raises a time to seconds from a midnight. Brings the counts, `stop` and `dyn_start` up to date.
/// Appending opens a part wherever the last one holds 100000 samples, so that no long part is ever copied.
///
/// With `before` the record holds frequencies, which are made of the moved phases.
void flushLive(Record& record, int keep, double offset, PhaseBefore* before = nullptr);

/// The live tail as it stands, each time plus `offset`.
LivePoints livePoints(const Record& record, double offset);

/// Frequencies of the live tail, each at the time of the later of its two phases plus `offset`. A step that
/// does not rise gives none.
LivePoints liveFrequencies(const Record& record, const PhaseBefore& before, double offset);

/// At most `most` of the newest stored samples, none older than the day of the last one; times plus
/// `offset`.
LivePoints newestStored(const Record& record, int most, double offset);
