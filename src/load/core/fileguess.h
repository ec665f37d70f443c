#pragma once

#include <QDateTime>
#include <QString>

/// Kinds of measurement file that the loading dialog can tell apart.
enum class FileKind {
    Unknown, // "Select file": there is no such file, or it cannot be opened
    Hrl314, // three numbers a line
    Hrl315, // two numbers a line
    Other,
};

struct FileGuess {
    FileKind kind = FileKind::Unknown;
    /// Start of the measurement as told by the head of the file, else the time at which the file was made.
    QDateTime start;
    bool startTold = false; ///< the start is that of the head
};

/// Looks at the head lines of a file. Known are the lines "Start: yyyy-MM-dd hh:mm:ss" and, as the first one
/// that begins with "#", "# dd.MM.yy hh:mm:ss". `now` is the start of a file that does not exist.
FileGuess guessFile(const QString& fileName, const QDateTime& now);

/// The template that goes with a kind: "[t] [x] [y]" for the first device, else "[t] [x]".
QString templateFor(FileKind kind);
