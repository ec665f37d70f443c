#pragma once

#include "cli/clitable.h"
#include "record/record.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
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

/// A record with what is told of it; nothing is computed yet.
struct LoadedRecord {
    CliResult result;
    Record record;
    std::unique_ptr<Record> asRead; ///< before anything was done to it, when it is to be saved
};

/// The template of a file: that of `options`, else the one that suits its first lines.
QString templateOf(const QString& file, const CliOptions& options);

/// A record of its own with the same samples.
std::unique_ptr<Record> copyOf(Record& record);

/// Keeps what is to be saved as it was read, and replaces outliers as `options` ask, which `notes` tell.
void prepareRecord(LoadedRecord& loaded, const CliOptions& options, QStringList& notes);

/// Reads file number `index` and hands over one record for each value column of the template, outliers
/// replaced as `options` ask. `notes` get the lines left out by --skip-bad-lines, the number of samples
/// replaced, and for records that are paired a start that no one told. Throws DataFault when the file cannot
/// be read; nothing was handed over then.
void loadFile(int index, const CliOptions& options, QStringList& notes,
    const std::function<void(std::unique_ptr<LoadedRecord>)>& take);
