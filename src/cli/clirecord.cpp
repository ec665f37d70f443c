#include "cli/clirecord.h"

#include "load/core/asciirecord.h"
#include "load/core/fileguess.h"
#include "record/record.h"
#include "table/core/phaseseries.h"
#include "table/core/stability.h"
#include "table/core/trends.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 fewestSamples = 10; // as in the record table
constexpr int mostReported = 10;

AsciiRequest requestFor(const QString& file, const CliOptions& options)
{
    const FileGuess guess = guessFile(file, QDateTime::currentDateTime());
    AsciiRequest request;
    request.fileName = file;
    request.format = options.format.isEmpty() ? templateFor(guess.kind) : options.format;
    request.start = options.start.isValid() ? options.start : guess.start;
    request.mask = IntervalGiven;
    request.interval = options.interval;
    request.multiplier = options.multiplier;
    request.fractionalFrequency = options.frequency;
    return request;
}

QString failure(const AsciiResult& result)
{
    switch (result.status) {
    case AsciiStatus::CannotOpen:
        return QStringLiteral("cannot be opened: ") + result.systemError;
    case AsciiStatus::ReadError:
        return QStringLiteral("cannot be read: ") + result.systemError;
    case AsciiStatus::NoLines:
    case AsciiStatus::NoSamples:
        return QStringLiteral("holds no sample");
    case AsciiStatus::TooLong:
        return QStringLiteral("holds too many samples");
    case AsciiStatus::BadStart:
        return QStringLiteral("has no valid start; give one by --start");
    default:
        return QStringLiteral("cannot be read with this template");
    }
}

// File names stand in front of the texts that arg() fills in, since they may hold "%1" themselves.

/// "FILE:LINE: what" for each bad line, the first ones only.
QStringList badLineTexts(const AsciiRequest& request, const AsciiResult& result)
{
    QStringList texts;
    const int reported = std::min(result.badLines.size(), mostReported);
    for (int i = 0; i < reported; ++i) {
        texts << QStringLiteral("%1:%2: the line does not fit the template \"%3\"")
                     .arg(request.fileName, QString::number(result.badLines[i]), request.format);
    }
    if (result.badLines.size() > reported) {
        texts << request.fileName
                + QStringLiteral(": %1 more lines do not fit").arg(result.badLines.size() - reported);
    }
    if (result.stoppedAtLine > 0) {
        texts << request.fileName + QStringLiteral(":%1: the time does not rise").arg(result.stoppedAtLine);
    }
    return texts;
}

void readFile(AsciiFile& file, const AsciiRequest& request, const CliOptions& options, QStringList& notes)
{
    const AsciiResult& result = file.read();
    QStringList badLines = badLineTexts(request, result);
    if (result.status == AsciiStatus::NoSamples && options.format.isEmpty())
        badLines << QStringLiteral(
            "%1: no line fits; give the template by --format, as \"[x]\" for a single column")
                        .arg(request.fileName);
    if (!badLines.isEmpty() && !options.skipBadLines)
        throw DataFault(badLines.join(QLatin1Char('\n')));
    notes << badLines;
    if (result.stoppedAtLine > 0)
        notes << request.fileName
                + QStringLiteral(": only the %1 samples before that line are used").arg(result.sampleCount);
    if (result.status != AsciiStatus::Ok)
        throw DataFault(QStringLiteral("%1: %2").arg(request.fileName, failure(result)));
}

void compute(Record& record, const CliOptions& options, CliResult& result, QStringList& notes)
{
    if (record.n_cnt < fewestSamples) {
        throw DataFault(result.file
            + QStringLiteral(": too few samples: %1, at least %2 are needed")
                  .arg(record.n_cnt)
                  .arg(fewestSamples));
    }
    PhaseSeries series = phaseSeries(record);
    const auto infinite =
        std::count_if(series.x.begin(), series.x.end(), [](double x) { return !std::isfinite(x); });
    if (infinite > 0)
        notes << result.file
                + QStringLiteral(
                    ": %1 of %2 samples are not finite; results that rest on them are not either")
                      .arg(infinite)
                      .arg(series.size());
    if (options.removeDrift && !recordTrends(record, series, record.start, true).fitted)
        throw DataFault(QStringLiteral("%1: too few samples to remove the drift").arg(result.file));
    result.scale = tauScale(1, series.size(), record.Kdec);
    StabilityOptions work;
    work.interval = record.Kdec;
    work.perSecond = options.perSecond;
    for (const Statistic statistic : options.statistics) {
        result.columns.append(
            {statistic, stability(stabilityKernel(statistic, options.overlap), series, result.scale, work)});
    }
}

} // namespace

QVector<CliResult> processFile(const QString& fileName, const CliOptions& options, QStringList& notes)
{
    const QFileInfo info(fileName);
    if (info.exists() && !info.isFile() && !info.isDir())
        throw DataFault(
            QStringLiteral("%1: is not a regular file; pipes and devices are not read").arg(fileName));
    const AsciiRequest request = requestFor(fileName, options);
    AsciiFile file(request);
    readFile(file, request, options, notes);

    const QStringList names = file.columnNames();
    QVector<CliResult> results;
    for (int column = 0; column < names.size(); ++column) {
        Record record;
        const AsciiStatus status = file.fill(&record, column, 0);
        if (status != AsciiStatus::Ok)
            throw DataFault(QStringLiteral("%1: column \"%2\" cannot be read").arg(fileName, names[column]));
        CliResult result;
        result.file = names.size() > 1 ? QStringLiteral("%1[%2]").arg(fileName, names[column]) : fileName;
        result.format = request.format;
        result.start = record.start;
        result.stop = record.stop;
        result.interval = record.Kdec;
        result.samples = record.n_cnt;
        result.badLines.assign(file.result().badLines.begin(), file.result().badLines.end());
        compute(record, options, result, notes);
        results.append(result);
    }
    return results;
}
