#include "cli/clicompute.h"

#include "cli/clicross.h"
#include "cli/cliderive.h"
#include "table/core/minmax.h"
#include "table/core/phaseseries.h"
#include "table/core/recordspectra.h"
#include "table/core/stability.h"
#include "table/core/trends.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr qint64 fewestSamples = 10; // as in the record table

/// The samples, with --remove-drift less the parabola, which is taken off the record as well.
PhaseSeries seriesOf(LoadedRecord& loaded, const CliOptions& options)
{
    Record& record = loaded.record;
    PhaseSeries series = phaseSeries(record);
    if (options.removeDrift && !recordTrends(record, series, record.start, true).fitted)
        throw DataFault(loaded.result.title + QStringLiteral(": too few samples to remove the drift"));
    return series;
}

void computeStability(LoadedRecord& loaded, const CliOptions& options)
{
    CliResult& result = loaded.result;
    PhaseSeries series = seriesOf(loaded, options);
    deleteRecord(&loaded.record); // the series is all that is needed now
    result.scale = tauScale(1, series.size(), result.interval);
    StabilityOptions work;
    work.interval = result.interval;
    work.perSecond = options.perSecond;
    for (const Statistic statistic : options.statistics) {
        result.columns.append(
            {statistic, stability(stabilityKernel(statistic, options.overlap), series, result.scale, work)});
    }
}

void computeSpectrum(LoadedRecord& loaded, const CliOptions& options)
{
    PhaseSeries series = seriesOf(loaded, options);
    deleteRecord(&loaded.record);
    PhaseSpectrum spectrum = recordSpectrum(series, loaded.result.interval);
    if (spectrum.frequency.empty()) {
        throw DataFault(loaded.result.title
            + QStringLiteral(": too few samples for a spectrum: %1, at least 128 are needed")
                  .arg(series.size()));
    }
    loaded.result.series = spectrumColumns(std::move(spectrum));
}

void computeMinMax(LoadedRecord& loaded, const CliOptions& options, QStringList& notes)
{
    removeDrift(loaded, options);
    GraphSeries reduced = minMaxSeries(loaded.record, 0.0, false);
    if (!reduced.complete)
        notes << loaded.result.title + QStringLiteral(": some runs without gaps are too short to be shown");
    loaded.result.series = {{QStringLiteral("t"), std::move(reduced.t), 'g', 10},
        {QStringLiteral("x"), std::move(reduced.x), 'e', 9}};
}

void nameSignals(std::vector<std::unique_ptr<LoadedRecord>>& records, const CliOptions& options)
{
    for (size_t i = 0; i < records.size(); ++i) {
        Record& record = records[i]->record;
        record.ch = qint32(i) + 1;
        if (options.signalPairs.isEmpty())
            continue;
        const SignalPair& pair = options.signalPairs[int(i)];
        record.meas_sig = pair.measured;
        record.ref_sig = pair.reference;
        for (CliSource& source : records[i]->result.sources)
            source.signalPair = pair;
    }
}

} // namespace

QVector<CliResult> computeAll(const CliOptions& options, QStringList& notes)
{
    QVector<CliResult> results;
    std::vector<std::unique_ptr<LoadedRecord>> records;
    for (int file = 0; file < options.files.size(); ++file) {
        loadFile(file, options, notes, [&](std::unique_ptr<LoadedRecord> loaded) {
            if (options.pairing == Pairing::None)
                results.append(computeRecord(*loaded, options, notes));
            else
                records.push_back(std::move(loaded));
        });
    }
    if (options.pairing == Pairing::None)
        return results;
    nameSignals(records, options);
    if (options.pairing == Pairing::Cross || options.pairing == Pairing::ThreeCorner)
        return crossResults(std::move(records), options, notes);
    const std::unique_ptr<LoadedRecord> derived = derivedRecord(std::move(records), options, notes);
    return {computeRecord(*derived, options, notes)};
}

CliResult computeRecord(LoadedRecord& loaded, const CliOptions& options, QStringList& notes)
{
    checkRecord(loaded, notes);
    switch (options.content) {
    case Content::Spectrum:
        computeSpectrum(loaded, options);
        break;
    case Content::MinMax:
        computeMinMax(loaded, options, notes);
        break;
    case Content::Stability:
        computeStability(loaded, options);
        break;
    }
    return std::move(loaded.result);
}

void checkRecord(const LoadedRecord& loaded, QStringList& notes)
{
    const Record& record = loaded.record;
    if (record.n_cnt < fewestSamples) {
        throw DataFault(loaded.result.title
            + QStringLiteral(": too few samples: %1, at least %2 are needed")
                  .arg(record.n_cnt)
                  .arg(fewestSamples));
    }
    qint64 infinite = 0;
    for (int day = 0; day < record.x.parts.size(); ++day) {
        const double* x = record.x.DayData(day);
        infinite += std::count_if(
            x, x + record.x.DayLengths.at(day), [](double value) { return !std::isfinite(value); });
    }
    if (infinite > 0)
        notes << loaded.result.title
                + QStringLiteral(
                    ": %1 of %2 samples are not finite; results that rest on them are not either")
                      .arg(infinite)
                      .arg(record.n_cnt);
}

void removeDrift(LoadedRecord& loaded, const CliOptions& options)
{
    if (options.removeDrift)
        seriesOf(loaded, options);
}

QVector<CliSeries> spectrumColumns(PhaseSpectrum&& spectrum)
{
    return {{QStringLiteral("f_mHz"), std::move(spectrum.frequency), 'g', 10},
        {QStringLiteral("phase_dBc"), std::move(spectrum.phase), 'f', 3},
        {QStringLiteral("frequency_dBc"), std::move(spectrum.rate), 'f', 3}};
}
