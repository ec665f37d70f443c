#pragma once

#include <QDateTime>
#include <QDir>
#include <QString>

/// One entry of the list of recently loaded records.
struct RecentRecs {
    /// Kind of source: 2 is a text file read by a template, other values a recording.
    short type = 0;
    /// Text in the menu.
    QString str;
    /// Directory or file of the source.
    QDir dir;
    QDateTime start;
    QDateTime stop;
    /// Number of samples.
    qint64 num = 0;
    short ch = 0;
    /// Template, for type 2.
    QString format;
    char devType = 0;
};

constexpr int maxRecentRecs = 10;

/// Ring of the recently loaded records; the newest stands before nextRecRecsIndex.
extern RecentRecs RecRecs[maxRecentRecs];
/// Slot of the next entry, 0 to 9.
extern qint32 nextRecRecsIndex;
/// Number of used entries, at most 10; 1 until the configuration file has been read.
extern qint32 NumRecentRecs;
