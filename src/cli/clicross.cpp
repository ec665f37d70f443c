#include "cli/clicross.h"

#include "cli/clicompute.h"
#include "cli/cliderive.h"
#include "table/core/crosspair.h"
#include "table/core/recordspectra.h"
#include "table/core/tauscale.h"

#include <utility>

namespace {

using Records = std::vector<std::unique_ptr<LoadedRecord>>;

[[noreturn]] void refuse(CrossStatus status)
{
    const auto fault = [](const char* text) { return DataFault(QString::fromLatin1(text)); };
    switch (status) {
    case CrossStatus::NoCommonTime:
        throw fault("the records have no time in common");
    case CrossStatus::OtherIntervals:
        throw fault("the records have different intervals");
    case CrossStatus::NoPairs:
        throw fault("no samples of the records stand at the same time");
    case CrossStatus::NotThreeClocks:
        throw fault("the records are not of three clocks, as A-B and A-C, with B-C where there is a third");
    case CrossStatus::OtherSignals:
    case CrossStatus::Ok:
        break;
    }
    throw fault("the records are of different signals; one must be common to both");
}

void release(Records& records)
{
    for (const auto& loaded : records)
        deleteRecord(&loaded->record);
}

/// What all results have in common.
template <class Series> CliResult frameOf(const Series& series, const Records& records, QStringList& notes)
{
    if (series.countsDiffer)
        notes << countsDifferNote();
    CliResult frame;
    for (const auto& loaded : records)
        frame.sources += loaded->result.sources;
    frame.start = series.start;
    frame.stop = series.stop;
    frame.interval = series.interval;
    frame.samples = series.size();
    return frame;
}

/// `values` gives the stability of all results under a kernel.
template <class Values>
void addStability(QVector<CliResult>& results, const CliOptions& options, Values values)
{
    if (results.isEmpty() || !options.needsStability())
        return;
    const TauScale scale = tauScale(1, long(results.first().samples), results.first().interval);
    for (const Statistic statistic : options.statistics) {
        std::vector<std::vector<double>> all = values(crossKernel(statistic, options.overlap), scale);
        for (int i = 0; i < results.size(); ++i) {
            results[i].scale = scale;
            results[i].columns.append(
                {statistic, size_t(i) < all.size() ? std::move(all[size_t(i)]) : std::vector<double>()});
        }
    }
}

/// One result a row. `values` gives the stability of all rows under a kernel, `spectra` their spectra.
template <class Values, class Spectra>
void addRows(const QVector<CrossRow>& rows, const CliResult& frame, const CliOptions& options, CliWork& work,
    Values values, Spectra spectra)
{
    QVector<CliResult> results(rows.size(), frame);
    for (int i = 0; i < rows.size(); ++i)
        results[i].title = rows[i].name;
    addStability(results, options, values);
    std::vector<PhaseSpectrum> all = options.needsSpectrum() ? spectra() : std::vector<PhaseSpectrum>();
    for (int i = 0; i < rows.size() && options.needsSpectrum(); ++i) {
        if (size_t(i) >= all.size() || all[size_t(i)].frequency.empty())
            throw DataFault(
                QStringLiteral("too few common samples for a spectrum: %1, at least 128 are needed")
                    .arg(frame.samples));
        addSpectrum(std::move(all[size_t(i)]), results[i], options, work);
    }
    work.results += results;
}

void addOfTwo(Records& records, const CliOptions& options, CliWork& work, QStringList& notes)
{
    Record& a = records[0]->record;
    Record& b = records[1]->record;
    if (options.pairing == Pairing::ThreeCorner && signalCase(a, b) != SignalCase::Three)
        refuse(CrossStatus::NotThreeClocks);
    if (options.signalPairs.isEmpty() && !options.isRecording())
        notes << QStringLiteral("the records are taken for two of the same signals; --signals names others");
    CrossSeries series;
    const CrossStatus status = crossSeries(a, b, series);
    if (status != CrossStatus::Ok)
        refuse(status);
    const QVector<CrossRow> rows = crossRows(a, b);
    release(records);
    addRows(
        rows, frameOf(series, records, notes), options, work,
        [&](CrossKernel kernel, const TauScale& scale) { return crossStability(kernel, series, scale); },
        [&] { return crossSpectra(series); });
}

void addOfThree(Records& records, const CliOptions& options, CliWork& work, QStringList& notes)
{
    Record& a = records[0]->record;
    Record& b = records[1]->record;
    Record& c = records[2]->record;
    HatSeries series;
    const CrossStatus status = hatSeries(a, b, c, series);
    if (status != CrossStatus::Ok)
        refuse(status);
    const QVector<CrossRow> rows = hatRows(a, b, c);
    release(records);
    addRows(
        rows, frameOf(series, records, notes), options, work,
        [&](CrossKernel kernel, const TauScale& scale) { return hatStability(kernel, series, scale); },
        [&] { return hatSpectra(series); });
}

} // namespace

void addCrossResults(Records records, const CliOptions& options, CliWork& work, QStringList& notes)
{
    for (const auto& loaded : records) {
        checkRecord(*loaded, notes);
        removeDrift(*loaded, options);
        addSeriesCurves(*loaded, options, work, notes);
    }
    if (records.size() == 3)
        addOfThree(records, options, work, notes);
    else
        addOfTwo(records, options, work, notes);
}
