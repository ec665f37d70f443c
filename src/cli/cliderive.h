#pragma once

#include "cli/clirecord.h"

#include <QStringList>

#include <memory>
#include <vector>

/// The difference of two records, or the two joined, as `options` ask. Notes tell what was peculiar about
/// them. Throws DataFault when they do not go together.
std::unique_ptr<LoadedRecord> derivedRecord(
    std::vector<std::unique_ptr<LoadedRecord>> records, const CliOptions& options, QStringList& notes);

/// The note on counts in the common span that differ by more than 10.
QString countsDifferNote();
