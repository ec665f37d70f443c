#pragma once

#include "cli/clirecord.h"
#include "cli/clitable.h"

#include <QStringList>
#include <QVector>

struct PhaseSpectrum;

/// Does all that `options` ask for: reads the files, pairs their records, and computes. Throws DataFault.
QVector<CliResult> computeAll(const CliOptions& options, QStringList& notes);

/// Computes stability, spectrum or reduction of one record, which is used up.
CliResult computeRecord(LoadedRecord& loaded, const CliOptions& options, QStringList& notes);

/// Refuses a record that is too short, and tells of samples that are not finite.
void checkRecord(const LoadedRecord& loaded, QStringList& notes);

/// With --remove-drift takes the parabola off the record.
void removeDrift(LoadedRecord& loaded, const CliOptions& options);

/// The columns of a spectrum.
QVector<CliSeries> spectrumColumns(PhaseSpectrum&& spectrum);
