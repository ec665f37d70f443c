#pragma once

#include "stats/statistic.h"
#include "table/core/merge.h"
#include "table/core/outliers.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

/// How the table is written.
enum class TableStyle { Aligned, Csv, Json };

/// What becomes of the records before anything is computed.
enum class Pairing {
    None, ///< each stands for itself
    Difference,
    Merge,
    Cross,
    ThreeCorner,
};

/// What is put out.
enum class Content { Stability, Spectrum, MinMax };

/// What a picture in the output folder shows.
enum class Graph { Phase, Frequency, Spectrum, Stability };

/// The names of the signals of one record.
struct SignalPair {
    QString measured;
    QString reference;
};

/// What is read from a recording directory, in place of files.
struct RecordingChoice {
    QString directory; ///< empty for none
    /// Both inclusive; invalid for the first and the last day that the directory holds.
    QDateTime from;
    QDateTime to;
    QVector<int> channels; ///< from 1, without repetition; empty for all
    int kdec = 1; ///< every so manieth sample is taken
    bool list = false; ///< only to list what is there
};

/// What the command line asks for.
struct CliOptions {
    QStringList files;
    RecordingChoice recording;
    QString saveRecording; ///< folder for the records as read, in the recording format; empty for none
    QString saveAscii; ///< text file for the record as processed; empty for none
    /// Format template; empty to take the one that suits the first lines of each file.
    QString format;
    double interval = 1.0; ///< s between samples
    /// Of the first sample: one for all files or one a file; none to take it from the file.
    QVector<QDateTime> starts;
    double multiplier = 1.0; ///< from the numbers of the file to seconds or to fractional frequency
    bool frequency = false; ///< the values are fractional frequencies
    QVector<Statistic> statistics; ///< without repetition
    bool overlap = false;
    bool removeDrift = false;
    bool skipBadLines = false;
    OutlierLimits limits;
    quint32 seed = 1; ///< of the noise that stands for outliers
    Pairing pairing = Pairing::None;
    MergeMode mergeMode = MergeMode::KeepGap;
    bool shiftPhase = false; ///< closes a jump in KeepGap
    QVector<SignalPair> signalPairs; ///< one a record, or none
    Content content = Content::Stability;
    double carrier = 5.0; ///< MHz, see freqRef
    qint32 perSecond = 0; ///< see StabilityOptions
    TableStyle style = TableStyle::Aligned;
    QString outputFolder; ///< empty for no files
    QString plotType; ///< "png", "svg" or "pdf"
    QVector<Graph> graphs; ///< to be drawn, without repetition; none without an output folder
    double freqInterval = 1.0; ///< s, of the graph of the frequency, see frequencyInterval

    bool isRecording() const { return !recording.directory.isEmpty(); }
    bool isCross() const { return pairing == Pairing::Cross || pairing == Pairing::ThreeCorner; }
    bool needsStability() const { return content == Content::Stability || graphs.contains(Graph::Stability); }
    bool needsSpectrum() const { return content == Content::Spectrum || graphs.contains(Graph::Spectrum); }
};

/// The outcome of reading the command line.
struct CliCommand {
    enum class Kind { Run, Help, Version, Misuse };

    Kind kind = Kind::Misuse;
    CliOptions options; ///< for Run
    QString text; ///< for Help the help, for Misuse what is wrong
};

/// Reads the arguments, of which the first is the name of the program. `perSecond` is the default of
/// --points-per-tau. Needs a QCoreApplication for the help.
CliCommand readCommandLine(const QStringList& arguments, qint32 perSecond);

/// "adev", or "oadev" when the overlapping form, which differs for sdev, adev and hdev alone, is asked for.
QString statisticKey(Statistic statistic, bool overlap);

/// Whether a limit is given that filters phase.
bool anyLimit(const CliOptions& options);
