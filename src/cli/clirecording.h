#pragma once

#include "cli/clirecord.h"

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <memory>

/// What the recording directory of `options` holds in the time and channels chosen, in their style. `notes`
/// get the faults of its files. Throws DataFault when there is nothing to list.
QByteArray recordingList(const CliOptions& options, QStringList& notes);

/// Reads the recordings chosen and hands over one record for each stretch, outliers replaced as `options`
/// ask. `notes` get what was peculiar. Throws DataFault when a stretch cannot be read, when there is none, or
/// when there are not as many as the command takes.
void loadRecordings(const CliOptions& options, QStringList& notes,
    const std::function<void(std::unique_ptr<LoadedRecord>)>& take);
