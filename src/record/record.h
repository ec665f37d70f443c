#pragma once

#include "record/doublearray.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <memory>

/// One measurement series with its parameters.
///
/// The absolute time of sample i is `start` (Unix time) - t[0] + t[i]. `t` and `x` have the same parts, and
/// `num_in_days` their lengths. A copy is made by copyRecord only.
struct Record {
    Record() = default;
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    Record& operator=(Record&&) = default; // for moveRecord(), which also empties the source

    /// Local time of the first and the last sample.
    QDateTime start;
    QDateTime stop;
    /// Interval between samples, s.
    double Kdec = 0.0;
    qint32 Band = 0;
    qint32 ch = 0;
    /// Names of the reference and of the measured signal.
    QString ref_sig;
    QString meas_sig;
    /// Number of samples.
    qint64 n_cnt = 0;
    /// Seconds from 00:00:00 of the date of `start`, rising over all days.
    doubleArray t{100000};
    /// Values: phase difference in s for data type 0, else in the unit of the quantity.
    doubleArray x{100000};
    /// Number of parts, and samples in each part; null for a record without samples.
    qint32 n_days = 0;
    std::unique_ptr<qint64[]> num_in_days;
    /// Index into RecTypes: 0 phase, 1 temperature, 2 humidity, 3 parameter.
    quint16 dataType = 0;
    /// Kind of device, see PhaseKoef; 65535 for none.
    quint16 devType = 65535;
    /// Absolute path of the source directory, for a record read from a recording.
    QString path;
    /// Averaging interval of the frequency computed from a live phase graph, s.
    double freqTau = 1.0;
    /// Identity in the table and of the live stream; 0 for not assigned.
    quint16 RecID = 0;
    /// The live tail: times of its ends, its samples and their number.
    QDateTime dyn_start;
    QDateTime dyn_stop;
    QList<double> dyn_t;
    QList<double> dyn_x;
    qint64 dyn_n_cnt = 0;
    /// Position in the data file up to which live data were read.
    qint64 dat_pos = 0;
    /// Whether new samples come in.
    bool dynamic = false;
};

/// Number of good steps of the time axis before the first one that does not rise; 0 for a valid record, and
/// also when the very first step is bad. A wrong `n_cnt` is repaired and logged. Moves the iterator of `t`.
int RecIsValid(Record* rec);

/// Empties a record: samples, live lists, day counts and RecID. Parameters and texts stay, and so do
/// `dyn_n_cnt`, `dat_pos` and `dynamic`.
void deleteRecord(Record* rec);

/// Copies the parameters and `num_in_days` without the samples; `n_cnt` tells the source's number. Neither
/// `dyn_start`, `dyn_stop`, the live tail nor `dat_pos` is copied. Onto itself it does nothing, as all copies
/// here.
void copyRecParamOnly(Record* src, Record* dst);

/// Full copy with a part for each day. The copy's `partLen` is the number of its samples. A day of which the
/// parts hold less than `num_in_days` says is copied as far as it exists. A negative `n_days` or day count
/// throws std::bad_array_new_length.
void copyRecord(Record* src, Record* dst);

/// As copyRecord, but the copy holds the samples of the source where these are complete, so that it takes
/// neither time nor memory. Whoever writes samples in place calls ownSamples() first.
void shareRecord(Record* src, Record* dst);
/// Makes `dst` what `src` is, and empties `src`. Needs no memory.
void moveRecord(Record* src, Record* dst);
/// Gives a record arrays of its own where it shares them.
void ownSamples(Record* rec);

/// As copyRecord, with the parts made anew by append: their length is that of the longest day. `dataType`,
/// `devType`, `dyn_n_cnt` and `dat_pos` of the target stay.
void copyRecordSmart(Record* src, Record* dst);

/// Does nothing.
void addDayToRec(Record* rec);

/// Multiplier from the stored phase of a kind of device to Record::x; 1.0 for an unknown kind.
double PhaseKoef(int devType);

/// The next device identifier; 0 follows 255.
quint8 newDevID();
