#pragma once

#include "store/core/mapstruct.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

class RecordingDay;
struct Record;

/// A stretch of one channel that is to become a record.
struct RecordingStretch {
    /// From 1.
    int channel = 1;
    /// Chosen times, both inclusive.
    QDateTime start, stop;
    /// Where the recording that holds the stretch begins; when it is not known, `start`. It ties the time
    /// marks of later days to the clock.
    QDateTime recordingStart;
    /// Goes up to the end of the recording on the day of `stop`, wherever that may be: for one that is still
    /// open.
    bool toEnd = false;
    /// Every so manieth sample is taken, counted through all days.
    int kdec = 1;
};

/// Reads a stretch of a recording, day by day, into a record. It shows nothing: what there is to tell stands
/// in messages().
class RecordingLoad {
    Q_DECLARE_TR_FUNCTIONS(RecordingLoad)

public:
    enum class Outcome {
        Loaded,
        Partial, // the data files ended in the middle; the record holds what came before
        Failed, // the record is empty
        Stopped, // by `progress`; the record is empty
    };

    /// `map` tells the names of the files; `directory` goes into the record.
    RecordingLoad(const mapStruct& map, const QString& directory);

    /// Called with the share of the work done; false stops the load.
    std::function<bool(double)> progress;
    /// Called with a text for each whole day with too few samples, until it returns false.
    std::function<bool(const QString&)> tellShortDay;

    /// Fills `rec` with one part a day. Throws std::bad_alloc and then leaves a record that has to be
    /// emptied.
    Outcome load(const RecordingStretch& stretch, Record* rec);

    const QVector<mapStruct::Message>& messages() const { return m_messages; }
    /// Bytes of data files that the last load has read.
    qint64 bytesRead() const { return m_bytesRead; }

private:
    /// A known pair of time and mark.
    struct Anchor {
        QDateTime time;
        qint32 mark = 0;
    };

    Outcome loadDays(Record* rec);
    void findAnchor();
    /// False when the load cannot go on, with the message made.
    bool openDay(RecordingDay* day, const QDate& date);
    void placeDay(RecordingDay* day);
    void checkCount(const RecordingDay& day);
    bool readDay(RecordingDay* day, Record* rec);
    void setParameters(const RecordingDay& day, Record* rec) const;
    void say(const QString& title, const QString& text);
    void noteDamage(const RecordingDay& day, qint64 offset);

    const mapStruct& m_map;
    QString m_directory;
    RecordingStretch m_stretch;
    QVector<mapStruct::Message> m_messages;
    QStringList m_damage;
    Anchor m_anchor;
    int m_days = 0; // of the stretch
    int m_day = 0; // the one at hand, from 0
    qint64 m_skip = 0; // samples to pass over before the next one taken
    double m_lastT = 0.0; // s, of the last sample taken
    double m_shift = 0.0; // s, added to the marks of a device that begins anew at midnight
    bool m_stopped = false;
    bool m_tellShortDays = true;
    QByteArray m_block; // of samples as read
    qint64 m_bytesRead = 0;
};
