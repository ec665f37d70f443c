#pragma once

#include "cli/clitable.h"

#include <QByteArray>
#include <QVector>

/// The spectrum of a record, "f_mHz", "phase_dBc" and "frequency_dBc", or the record reduced to its extremes,
/// "t" (s from the first sample) and "x". The columns of several results stand side by side; line k holds
/// point k of each of them, whatever its frequency or time.
QByteArray seriesText(const QVector<CliResult>& results, const CliOptions& options);
