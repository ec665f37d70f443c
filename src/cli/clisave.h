#pragma once

#include "cli/clioptions.h"

#include <QStringList>

struct CliWork;

/// Writes the records that `options` ask to save. Notes tell what the files do not keep, and names that were
/// taken. Throws DataFault when a file cannot be written.
void writeSaves(CliWork& work, const CliOptions& options, QStringList& notes);
