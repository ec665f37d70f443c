#pragma once

#include "cli/clitable.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// Writes the graph of one statistic, in the form that the ending of `fileName` names (png, svg or pdf).
/// Needs a QApplication. Tells which curves stayed out; without any curve no file is written. Throws
/// DataFault when the file cannot be written.
QStringList writeGraph(const QVector<CliResult>& results, Statistic statistic, const CliOptions& options,
    const QString& fileName);
