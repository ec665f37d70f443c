#pragma once

class QDir;
struct Record;

/// The greatest number that can go into the names of a recording's files.
constexpr int mostNameNumber = 255;

/// Whether an inf file for one of the days of the record stands in the directory already, under the number
/// `k`; see recordingName().
bool recordingExists(const Record& rec, const QDir& directory, int k);

/// Whether the files of a recording keep the interval of the record: they hold whole seconds in 16 bits.
bool recordingKeepsInterval(const Record& rec);
