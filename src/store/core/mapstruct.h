#pragma once

#include "store/core/infstruct.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

class GrowingFile;
class QFile;
class QFileInfo;
struct Record;

/// The index of a recording directory over a range of days and channels, and the reader and writer of its
/// files.
///
/// A segment is a stretch of recording or of absence of one channel. Segments stand in parallel arrays, filed
/// by channel, in the order of days and of the structures of a day: they rise in time, unless a day's files
/// hold stretches that overlap. A segment never ends before it starts.
class mapStruct {
    Q_DECLARE_TR_FUNCTIONS(mapStruct)

public:
    /// Kinds of segment.
    static constexpr char finished = 'g'; // with its data file
    static constexpr char current = 'b'; // no end, its stop less than 10800 s ago or to come
    static constexpr char cutOff = 'r'; // no end and older, or cut off by a missing file
    static constexpr char noData = 'c'; // no inf file or no dat file

    /// Results of readINFFiles().
    static constexpr int indexed = 0;
    static constexpr int filesMissing = 5;
    static constexpr int notReadable = 18;

    /// Something to tell the user: a box with this title, text and details.
    struct Message {
        QString title;
        QString text;
        QStringList details;
        bool critical = false;
    };

    mapStruct(short days, short channels);

    /// Sizes the index and empties it.
    void setDayChan(short days, short channels);
    short days() const { return m_days; }

    /// Structure `number`, from 0, found by its marker, and takes its type for that of the directory. Faults
    /// go to the log; `ok` tells.
    InfType ReadInf(QString fileName, int number, bool& ok);

    /// Indexes `days()` days from `from` on. Bit n of `channels` (bits 0 to 7 in the first byte) asks for
    /// channel n + 1. `now` decides what is current. Returns indexed, filesMissing or notReadable. Handles
    /// events between the channels: the caller holds SLEEP.
    int readINFFiles(QDir dir, QDate from, QByteArray channels, const QDateTime& now);
    int readINFFiles(QDir dir, QDate from, QByteArray channels);

    /// Appends the record, a pair of files a day, in `dir`; `number` above 0 goes into the names. 0 on
    /// success, 1 when a file cannot be opened or written; error() tells which. The days before it stay
    /// written, the files of its own day get their former length back. `flag` decides nothing.
    int SaveToInfDat(Record* rec, QDir* dir, unsigned char flag, unsigned char number);
    /// Writes the text form, with the default header and the band in its second line. 0 on success.
    int SaveToASCII(Record* rec, QFile* file);
    QString error() const { return m_error; }

    /// What there is to tell goes here; without it, to the log only.
    std::function<void(const Message&)> tell;
    /// Called with the share of the work done. False stops readINFFiles(), whose index is then empty, and
    /// SaveToInfDat(), which keeps the days that are written.
    std::function<bool(double)> progress;

    // The index.
    QVector<QDateTime> starts, stops;
    /// "reference - measured"; empty for noData and where no structure has told a name.
    QStringList names;
    QByteArray kinds;
    /// The first segment of each indexed channel, and behind them the number of segments.
    QVector<int> firstOfChannel;
    /// Channel numbers, from 1, in the order of the bands.
    QVector<int> channels;
    QStringList missingFiles;
    /// Structure type of the directory, 1 or 2; 0 while unknown.
    char structType = 0;

    int segmentCount() const { return starts.size(); }
    /// Band of a segment.
    int bandOf(int segment) const;
    /// Absolute path of a day's file of a channel (from 1) without its ending, by the structure type.
    QString filePath(const QDate& day, int channel) const;

private:
    class ChannelWalk;

    void clearIndex();
    void findType(const QDate& from);
    void say(
        const QString& title, const QString& text, const QStringList& details = {}, bool critical = true);
    bool walkChannel(int channel, const QDate& from, const QDateTime& now, int bits);
    QVector<InfType> structuresOf(const QFileInfo& file);
    bool appendDay(Record* rec, int day, int first, int count, const QString& path);
    bool fail(const QString& text, const GrowingFile& file);
    void noteFault(const QString& fault);
    void noteMissing(const QString& file);

    QDir m_directory;
    short m_days = 0;
    QStringList m_faults; // of the indexing, to be told in one message
    QString m_error;
};
