#pragma once

#include "load/core/recentrecs.h"
#include "load/core/settings.h"

#include <QDomDocument>
#include <QString>
#include <QVector>

// The configuration file recfiles.xml, Windows-1251. After the XML declaration stands one comment with the
// program's version and the language (see base/language.h), then the root element "xml" with
//   RecentRecs            one "nom" for each recent record, number 0 is the newest
//   WinProp               OpenGlobForm_winProp: Formats, ASCIIformats, openedPathS, extChannels
//   SelRecTable_prop      lastUsedRecID, openSavePath
//   Globals               lastUsedDevID, removeF0Vals, updCycle, AVAR_numPT_perTau
//   AppUpdate             Interval, IsBackupCreating, AutoVersionCheck
//   SaveRecForm_prop      startPath
//   incConnection_prop    IP_STR, DEV_PORT
//   CGGTTS_prop           date1, date2, db_path
//   mySQL_prop            the six members of mySQLconnect_prop
// Elements that are not known are kept as they stand when the file is written again.

/// Fills `settings`, which holds the defaults, from the file: a value that does not convert keeps what stood
/// there, a damaged file gives what was read up to the damage. False when the file cannot be opened; the
/// built-in templates and the first opened directory are there in every case. `localeName` names the language
/// when the file does not.
bool readSettings(const QString& file, const QString& localeName, Settings* settings);

/// The document of these settings and recent records. `before` is the document that stands in the file, from
/// which elements that are not known are taken over; it may be null.
QDomDocument settingsDocument(
    const Settings& settings, const QVector<RecentRecs>& recent, const QDomDocument& before);

/// Writes the file through a temporary one that replaces it; readable for its owner alone, since it may hold
/// a password. False, with the system's reason in `error`, when the old file still stands.
bool writeSettings(
    const QString& file, const Settings& settings, const QVector<RecentRecs>& recent, QString* error);
