#pragma once

#include "cli/clirecord.h"
#include "cli/clitable.h"
#include "plot/seriesgraph.h"
#include "plot/spectrumgraph.h"

#include <QDateTime>
#include <QStringList>
#include <QVector>

#include <memory>
#include <vector>

struct PhaseSpectrum;

/// All that a run computes: what the table tells, and the curves that only graphs show.
struct CliWork {
    QVector<CliResult> results;
    QVector<SpectrumCurve> spectra; ///< of the phase
    QVector<SeriesCurve> phases; ///< t in seconds from the start of each, as for the frequencies
    QVector<SeriesCurve> frequencies;
    std::vector<std::unique_ptr<Record>> asRead; ///< to be saved in the recording format
    std::unique_ptr<Record> processed; ///< to be saved as text
    double freqInterval = 0.0; ///< s, over which the first of the frequencies were taken
};

/// Does all that `options` ask for: reads the files, pairs their records, and computes. Throws DataFault.
CliWork computeAll(const CliOptions& options, QStringList& notes);

/// Adds stability, spectrum or reduction of one record, which is used up, and its curves.
void computeRecord(LoadedRecord& loaded, const CliOptions& options, CliWork& work, QStringList& notes);

/// Adds the curves of phase and frequency that graphs need.
void addSeriesCurves(LoadedRecord& loaded, const CliOptions& options, CliWork& work, QStringList& notes);

/// Refuses a record that is too short, and tells of samples that are not finite.
void checkRecord(const LoadedRecord& loaded, QStringList& notes);

/// With --remove-drift takes the parabola off the record.
void removeDrift(LoadedRecord& loaded, const CliOptions& options);

/// Adds a spectrum: to the graph where one is wanted, and as the columns of `result` where they are.
void addSpectrum(PhaseSpectrum&& spectrum, CliResult& result, const CliOptions& options, CliWork& work);
