#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QDir>
#include <QString>

class KdecLoadDlg;
class WarnDiag;

// The state that every room reads directly. The ring of recent records and the properties of the loading
// dialog, which have types of their own, stand with those types in load/core.

/// Program version; goes to QCoreApplication, the configuration file and the About text.
extern QString Appver;

/// Scratch texts of debug messages; GUI thread only.
extern QString DEBUGSTR, GEBUGSTR;
extern QDateTime debDay;
extern QByteArray debArr;

/// Start folder of the save dialogs.
extern QDir WorkFolder;

/// Names of the data kinds, indexed by Record::dataType: phase, temperature, humidity, parameter. Translation
/// keys until the main window puts the translated texts in their place.
extern QString RecTypes[4];
extern quint8 numOfRecTypes;

/// Date and date-time patterns, in the order in which they are tried on a text.
constexpr int numOfFormats = 33;
extern const QString Formats[numOfFormats];

/// Directory of the recording now being loaded.
extern QDir dir;

extern QString InitRecPath;

/// The About text.
extern QString KRONALYS_VERSION;

/// "ru", "en", or empty for the system's language.
extern QString App_lang;

/// Most samples, per second of tau, that go into one stability point; 0 means all.
extern qint32 AVAR_numPT_perTau;

/// Points of a live graph: from before the live part, and of the live part.
extern qint32 PRE_PLOTLEN, DYN_PLOTLEN;

/// Nominal frequency, MHz.
extern double freqRef;

extern qint32 CompType;

/// Multiplier from the numbers of a user's text file to seconds of phase.
extern double phKoefUser;
/// Default multiplier from stored phase to seconds.
constexpr double PhaseK = -1e-06;

/// Whether the updater exists in this run.
extern bool updateTheProgram;

/// Turns on writing of the log file.
extern bool LOG;

/// Whether repeated phase samples are cleaned out when a record enters the table.
extern bool removeF0Vals;
/// Whether the first sample is taken off daily means and reduced curves; nothing sets it.
extern bool REMX_0;

/// Set while a long command pumps the event loop; see BusyGuard.
extern bool SLEEP;

/// Last identifier given by newDevID().
extern quint8 lastUsedDevID;

/// Set while a recent record is being reopened.
extern bool Reopening;

/// Gate for mouse and wheel events of the recording chart.
extern bool AcceptScheduleEvents;

extern qint32 BUGloveer, FOxalc, bag;

/// The shared dialogs; null until their owners make them.
extern WarnDiag* diag;
extern KdecLoadDlg* KdecSelForm;
