#pragma once

#include <QDate>
#include <QString>

/// Writes one line to Qt's debug stream and, when the global LOG is set, to the log file with a time mark.
/// The file is opened and closed at every call, so that a crash loses nothing; a file that cannot be opened
/// is passed over in silence. Text is UTF-8. Safe to call from any thread.
void DebugLOG(const char* text);

/// The path of the log file.
QString logFilePath();

/// Moves a log file of more than 102400 bytes aside, to the first free one of "KronalysLog_ddMMyyyy.log",
/// "KronalysLog_ddMMyyyy_1.log", "..._2.log" and so on, in the same directory.
void rotateLog(const QDate& today);
