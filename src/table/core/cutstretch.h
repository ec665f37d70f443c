#pragma once

struct Record;

enum class CutStatus {
    Ok,
    BeginUnclear, ///< the beginning is guessed outside its day: nowhere to look for it
    BeginNotFound, ///< looking for the beginning led out of its day
    EndUnclear,
    EndNotFound,
    EndBeforeBegin,
    NoSamples, ///< nothing to copy
};

/// Copies the samples of `source` between two borders, in seconds from its first time stamp, to `out`, which
/// is another record. Times stay as they are. `out` has the parameters of `source` without its RecID, is not
/// live and has a part for each day from the first to the last one touched; after a failure it is left as it
/// was. The live tail stays out.
///
/// A border is looked for in the first day that ends at or behind it, from a guess by proportion: up to the
/// first sample at or above it, or down to the first at or below it. So a border between two days is not
/// found, nor one that is the very last sample of its day. `to` behind the last sample is the last sample. A
/// `from` below 0 is the first sample, and so is such a `to`.
CutStatus cutStretch(Record& source, double from, double to, Record& out);
