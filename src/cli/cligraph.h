#pragma once

#include "cli/clioptions.h"

#include <QStringList>

class QDir;
struct CliWork;

/// Writes the graphs that `options` ask for into `folder`: "phase", "freq", "spectrum", and one for each
/// statistic, in the form of options.plotType. Needs a QApplication. Notes tell which curves stayed out; a
/// graph without any curve is not written. Throws DataFault when a file cannot be written.
void writeGraphs(const CliWork& work, const CliOptions& options, const QDir& folder, QStringList& notes);
