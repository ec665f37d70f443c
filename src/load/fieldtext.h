#pragma once

#include <QCoreApplication>
#include <QString>

class QLineEdit;

/// What the pages of the loading dialog share.
class FieldText {
    Q_DECLARE_TR_FUNCTIONS(FieldText)

public:
    /// Characters of a number. Only these are restricted while the user types, so that a wrong number can be
    /// told in words.
    static constexpr const char* numberPattern = "[-+0-9.,eE]{0,30}";
    /// Lets only texts of this pattern into a field.
    static void restrict(QLineEdit* field, const char* pattern);
    /// The number of a field, with a comma or a point.
    static double number(const QString& text, bool* ok);
    /// A number for a field, with all its digits.
    static QString text(double number);
    /// Whether a path names the information file of a recording.
    static bool isRecordingPath(const QString& path);
    /// Why a path cannot be read as a file of measurements; empty when it seems that it can.
    static QString fileFault(const QString& path);
    /// Why a path cannot be listed as a directory; empty when it seems that it can.
    static QString directoryFault(const QString& path);
};
