#pragma once

#include "store/core/recordingload.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

struct Record;

constexpr int mostRecordingChannels = 256;

/// A recording that was loaded before, as a recent entry or a row of the table tells it.
struct KnownRecording {
    QString directory;
    int channel = 1; // from 1
    /// Times of the first and the last sample. Without `stop`, all that the recording holds up to `now`.
    QDateTime start;
    QDateTime stop;
    QDateTime now;
    /// Seconds between the samples; 0 takes every sample.
    double interval = 0.0;
};

/// What came of it.
struct KnownRecordingResult {
    RecordingLoad::Outcome outcome = RecordingLoad::Outcome::Failed;
    /// Files that are gone; then nothing is loaded.
    QStringList missing;
    QVector<mapStruct::Message> messages;
};

/// Loads such a recording into `rec`: indexes its days, finds the segment it began in, and reads that as the
/// chart does. `progress` false stops it; `tellShortDay` is that of RecordingLoad. The caller holds SLEEP.
KnownRecordingResult readKnownRecording(const KnownRecording& known, Record* rec,
    const std::function<bool(double)>& progress = {},
    const std::function<bool(const QString&)>& tellShortDay = {});
