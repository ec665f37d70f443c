#pragma once

#include "cli/clirecord.h"

#include <QStringList>
#include <QVector>

#include <memory>
#include <vector>

/// Cross processing of two records, or of three in the three-cornered hat: one result for each clock, or for
/// the noise of the comparator. Throws DataFault when the records do not go together.
QVector<CliResult> crossResults(
    std::vector<std::unique_ptr<LoadedRecord>> records, const CliOptions& options, QStringList& notes);
