#pragma once

#include "cli/clitable.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <stdexcept>

/// Data that cannot be read or processed; what() tells the user, in UTF-8, with file and line where there is
/// one.
class DataFault : public std::runtime_error {
public:
    explicit DataFault(const QString& text)
        : std::runtime_error(text.toStdString())
    {
    }
};

/// Reads a file and computes what `options` ask for: one result for each value column of the template. Lines
/// left out by --skip-bad-lines are told in `notes`. Throws DataFault; then nothing was computed.
QVector<CliResult> processFile(const QString& file, const CliOptions& options, QStringList& notes);
