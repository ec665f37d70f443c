#pragma once

#include <QDateTime>
#include <QDir>
#include <QString>

#include <functional>

/// Writes recordings as a phase comparator does: a pair of files for each channel and day, see
/// store/core/infstruct.h. Used by the tests and by the program makerecording.
class RecordingWriter {
public:
    /// `structType` 1 is today's form, 2 the older one, whose channels count from 0.
    explicit RecordingWriter(const QDir& directory, int structType = 1);

    struct Stretch {
        int channel = 1;
        QDateTime start;
        QDateTime stop; // time of the last sample
        /// Seconds between samples.
        int interval = 1;
        qint16 dT = 1000;
        qint8 devType = 3;
        qint8 dataType = 0;
        QString reference = QStringLiteral("H-maser");
        QString measured = QStringLiteral("Cs");
        /// The device wrote its end.
        bool finished = true;
        /// Days whose data file is lost, counted from the day of the start.
        std::function<bool(int)> lost;
        /// The stored value at a time mark, s.
        std::function<double(qint64)> value;
    };
    /// Appends a stretch of recording; its marks count from 00:00:00 of the day of its start. False when a
    /// file could not be written.
    bool write(const Stretch& stretch);

    /// A directory for trials: `days` days from `from` on and channels 1 to `channels`, with whole
    /// recordings, several a day, lost data, gaps, and a running one. Samples every `interval` seconds.
    bool writeMixture(const QDate& from, int days, int channels, int interval);

private:
    bool writeDay(const Stretch& stretch, int day);

    QDir m_directory;
    int m_structType;
};
