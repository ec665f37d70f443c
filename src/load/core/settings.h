#pragma once

#include "load/core/winprop.h"

#include <QDate>
#include <QString>
#include <QtGlobal>

/// What the stores of satellite time transfer keep.
struct Cggtts_prop {
    /// First and last date of the window; at first the first day of the current month, and today.
    QDate date1;
    QDate date2;
    /// Directory of the store.
    QString db_path;
};

/// How the SQL server is reached.
struct mySQLconnect_prop {
    QString mySQL_dbms = QStringLiteral("MySQL");
    QString mySQL_hostname = QStringLiteral("localhost");
    QString mySQL_port = QStringLiteral("3306");
    QString mySQL_db_name = QStringLiteral("test");
    QString mySQL_userName;
    QString mySQL_passw;
};

/// All settings that live from run to run. The members carry the element names of the configuration file; the
/// values here are the defaults, those that depend on the machine come from defaultSettings().
struct Settings {
    OpenGlobForm_winProp winProp;
    /// Counters of Record::RecID and of newDevID().
    quint8 lastUsedRecID = 1;
    quint8 lastUsedDevID = 1;
    /// Last directory for saving.
    QString openSavePath;
    /// Start directory of the save dialog; the home directory and "/" at first.
    QString startPath;
    /// The control connection.
    QString IP_STR = QStringLiteral("localhost");
    int DEV_PORT = 2220;
    /// Whether repeated phase samples are cleaned out when a record enters the table.
    bool removeF0Vals = false;
    /// Seconds between updates of live records.
    quint16 updCycle = 15;
    /// Most samples for each tau; negative for all.
    qint32 AVAR_numPT_perTau = 1000000;
    /// Version checks: milliseconds between them, and whether they are made by themselves; backup before an
    /// update.
    int Interval = 3600000;
    bool IsBackupCreating = true;
    bool AutoVersionCheck = true;
    /// "ru", "en", or another language of the system.
    QString language = QStringLiteral("ru");
    /// Cross processing takes the moments of two records with the same start as simultaneous, sample by
    /// sample, and does not look at their time marks. Kept for the session only.
    bool simultaneousMoments = false;
    Cggtts_prop cggtts;
    mySQLconnect_prop mySql;
};

/// The directory that the loading dialog opens at first: the parent of the program's own.
QString firstOpenedPath();
/// The defaults with the paths and dates of this machine filled in; `today` gives date1 and date2.
Settings defaultSettings(const QDate& today);
