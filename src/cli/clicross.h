#pragma once

#include "cli/clirecord.h"

#include <QStringList>

#include <memory>
#include <vector>

struct CliWork;

/// Cross processing of two records, or of three in the three-cornered hat: adds one result for each clock, or
/// for the noise of the comparator, and the curves of the records themselves. Throws DataFault when the
/// records do not go together.
void addCrossResults(std::vector<std::unique_ptr<LoadedRecord>> records, const CliOptions& options,
    CliWork& work, QStringList& notes);
