#pragma once

#include <QDateTime>
#include <QDir>
#include <QDomDocument>
#include <QString>
#include <QVector>

struct Record;

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

    // What older lists do not tell. They pass over these elements.

    /// Seconds between samples; 0 when not told.
    double interval = 0.0;
    /// Factor from the numbers of a text file to seconds of phase; 0 when not told.
    double multiplier = 0.0;
    /// Data column of a text file, from 0; -1 when not told.
    int column = -1;
    /// 0 when not told.
    qint32 band = 0;
    /// Names of the signals; empty when not told.
    QString ref;
    QString meas;
};

constexpr int maxRecentRecs = 10;
/// RecentRecs::type of a recording, and of a text file that was read by a template.
constexpr short recentRecording = 1;
constexpr short recentAscii = 2;

/// Ring of the recently loaded records; the newest stands before nextRecRecsIndex.
extern RecentRecs RecRecs[maxRecentRecs];
/// Slot of the next entry, 0 to 9.
extern qint32 nextRecRecsIndex;
/// Number of used entries, at most 10; 1 until the configuration file has been read.
extern qint32 NumRecentRecs;

/// Enters a loaded record in the ring. `dir` is the file or directory it came from; `format` its template,
/// `multiplier` and `column` those of a text file.
void enterRecentRecord(const Record& rec, int type, const QString& dir, const QString& format,
    double multiplier = 0.0, int column = -1);
/// The text of an entry in menus: both signal names, each cut to 22 characters, the channel, and the path,
/// shortened in its middle so that the whole keeps to 45 characters where the names leave room.
QString recentText(const Record& rec, const QString& dir);
/// The entries of the ring, the newest first.
QVector<RecentRecs> recentRecords();
/// Puts entries, the newest first, in place of the ring; more than ten are cut off.
void setRecentRecords(const QVector<RecentRecs>& entries);

/// Appends the element "RecentRecs" with these entries, the newest first, to `parent`.
void addRecentRecs(QDomDocument& document, QDomElement& parent, const QVector<RecentRecs>& entries);
