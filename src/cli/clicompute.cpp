#include "cli/clicompute.h"

#include "cli/clicross.h"
#include "cli/cliderive.h"
#include "cli/clirecording.h"
#include "table/core/frequencyseries.h"
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

void computeStability(PhaseSeries& series, CliResult& result, const CliOptions& options)
{
    result.scale = tauScale(1, series.size(), result.interval);
    StabilityOptions work;
    work.interval = result.interval;
    work.perSecond = options.perSecond;
    for (const Statistic statistic : options.statistics) {
        result.columns.append(
            {statistic, stability(stabilityKernel(statistic, options.overlap), series, result.scale, work)});
    }
}

void computeSpectrum(PhaseSeries& series, CliResult& result, const CliOptions& options, CliWork& work)
{
    PhaseSpectrum spectrum = recordSpectrum(series, result.interval);
    if (spectrum.frequency.empty()) {
        throw DataFault(result.title
            + QStringLiteral(": too few samples for a spectrum: %1, at least 128 are needed")
                  .arg(series.size()));
    }
    addSpectrum(std::move(spectrum), result, options, work);
}

GraphSeries reduced(Record& record, const QString& title, QStringList& notes)
{
    GraphSeries series = minMaxSeries(record, 0.0, false);
    const QString note = title + QStringLiteral(": some runs without gaps are too short to be shown");
    if (!series.complete && !notes.contains(note))
        notes << note;
    return series;
}

void computeMinMax(LoadedRecord& loaded, QStringList& notes)
{
    GraphSeries series = reduced(loaded.record, loaded.result.title, notes);
    loaded.result.series = {{QStringLiteral("t"), std::move(series.t), 'g', 10},
        {QStringLiteral("x"), std::move(series.x), 'e', 9}};
}

SeriesCurve curveOf(Record& record, const QString& title, unsigned short axis, QStringList& notes)
{
    GraphSeries series = reduced(record, title, notes);
    return {0, title, std::move(series.t), std::move(series.x), axis, record.start, record.stop};
}

void nameSignals(std::vector<std::unique_ptr<LoadedRecord>>& records, const CliOptions& options)
{
    for (size_t i = 0; i < records.size(); ++i) {
        Record& record = records[i]->record;
        if (!options.isRecording())
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

CliWork computeAll(const CliOptions& options, QStringList& notes)
{
    CliWork work;
    std::vector<std::unique_ptr<LoadedRecord>> records;
    const auto take = [&](std::unique_ptr<LoadedRecord> loaded) {
        if (options.pairing == Pairing::None)
            computeRecord(*loaded, options, work, notes);
        else
            records.push_back(std::move(loaded));
    };
    if (options.isRecording())
        loadRecordings(options, notes, take);
    for (int file = 0; file < options.files.size(); ++file)
        loadFile(file, options, notes, take);
    if (options.pairing == Pairing::None)
        return work;
    nameSignals(records, options);
    if (options.isCross()) {
        addCrossResults(std::move(records), options, work, notes);
    } else {
        const std::unique_ptr<LoadedRecord> derived = derivedRecord(std::move(records), options, notes);
        if (!options.saveRecording.isEmpty())
            derived->asRead = copyOf(derived->record);
        computeRecord(*derived, options, work, notes);
    }
    return work;
}

void computeRecord(LoadedRecord& loaded, const CliOptions& options, CliWork& work, QStringList& notes)
{
    checkRecord(loaded, notes);
    PhaseSeries series;
    if (options.removeDrift || options.needsStability() || options.needsSpectrum())
        series = seriesOf(loaded, options);
    addSeriesCurves(loaded, options, work, notes);
    if (options.content == Content::MinMax)
        computeMinMax(loaded, notes);
    if (loaded.asRead)
        work.asRead.push_back(std::move(loaded.asRead));
    if (!options.saveAscii.isEmpty())
        work.processed = copyOf(loaded.record);
    deleteRecord(&loaded.record); // the series is all that is needed now
    if (options.needsStability())
        computeStability(series, loaded.result, options);
    if (options.needsSpectrum())
        computeSpectrum(series, loaded.result, options, work);
    work.results.append(std::move(loaded.result));
}

void addSeriesCurves(LoadedRecord& loaded, const CliOptions& options, CliWork& work, QStringList& notes)
{
    constexpr unsigned short frequencyAxis = 4; // the first one of frequencies
    const QString& title = loaded.result.title;
    if (options.graphs.contains(Graph::Phase))
        work.phases.append(curveOf(loaded.record, title, 0, notes));
    if (!options.graphs.contains(Graph::Frequency))
        return;
    Record frequencies;
    frequencySeries(loaded.record, options.freqInterval, frequencies);
    if (frequencies.n_cnt == 0) {
        notes << title
                + QStringLiteral(": no frequency in the graph: no samples lie %1 s apart")
                      .arg(frequencies.Kdec, 0, 'g', 10);
        return;
    }
    if (work.frequencies.isEmpty())
        work.freqInterval = frequencies.Kdec;
    frequencies.stop = loaded.record.stop; // so that both graphs span the same days
    work.frequencies.append(curveOf(frequencies, title, frequencyAxis, notes));
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

void addSpectrum(PhaseSpectrum&& spectrum, CliResult& result, const CliOptions& options, CliWork& work)
{
    if (options.graphs.contains(Graph::Spectrum))
        work.spectra.append({0, result.title, spectrum.frequency, spectrum.phase, result.start, result.stop});
    if (options.content != Content::Spectrum)
        return;
    result.series = {{QStringLiteral("f_mHz"), std::move(spectrum.frequency), 'g', 10},
        {QStringLiteral("phase_dBc"), std::move(spectrum.phase), 'f', 3},
        {QStringLiteral("frequency_dBc"), std::move(spectrum.rate), 'f', 3}};
}
