#include "cli/clirecord.h"

#include "load/core/asciirecord.h"
#include "load/core/fileguess.h"
#include "table/core/outliers.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>
#include <random>
#include <utility>

namespace {

constexpr int mostReported = 10;

AsciiRequest requestFor(int index, const CliOptions& options, QStringList& notes)
{
    const QString& file = options.files[index];
    const FileGuess guess = guessFile(file, QDateTime::currentDateTime());
    AsciiRequest request;
    request.fileName = file;
    request.format = options.format.isEmpty() ? templateFor(guess.kind) : options.format;
    request.start = guess.start;
    if (!options.starts.isEmpty())
        request.start = options.starts[options.starts.size() > 1 ? index : 0];
    else if (options.pairing != Pairing::None && guess.kind != FileKind::Unknown && !guess.startTold)
        notes << file
                + QStringLiteral(": tells no start, so the time is taken at which it was made; see --start");
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

void replaceOutliers(LoadedRecord& loaded, const CliOptions& options, QStringList& notes)
{
    if (!anyLimit(options))
        return;
    // Seeded anew, so that what becomes of a record does not depend on those before it.
    std::mt19937 generator(options.seed);
    CliSource& source = loaded.result.sources.first();
    source.replaced = removeOutliers(loaded.record, options.limits, [&] { return int(generator() >> 1); });
    notes << source.file
            + QStringLiteral(": %1 of %2 samples replaced by the limits")
                  .arg(source.replaced)
                  .arg(loaded.record.n_cnt);
}

std::unique_ptr<LoadedRecord> recordOf(
    AsciiFile& file, int column, const QString& name, const QString& format)
{
    auto loaded = std::make_unique<LoadedRecord>();
    Record& record = loaded->record;
    if (file.fill(&record, column, 0) != AsciiStatus::Ok)
        throw DataFault(name + QStringLiteral(": the column cannot be read"));
    CliResult& result = loaded->result;
    result.title = name;
    result.start = record.start;
    result.stop = record.stop;
    result.interval = record.Kdec;
    result.samples = record.n_cnt;
    CliSource source;
    source.file = name;
    source.format = format;
    source.samples = record.n_cnt;
    source.badLines.assign(file.result().badLines.begin(), file.result().badLines.end());
    result.sources.append(source);
    return loaded;
}

} // namespace

std::unique_ptr<Record> copyOf(Record& record)
{
    auto copy = std::make_unique<Record>();
    shareRecord(&record, copy.get());
    return copy;
}

void prepareRecord(LoadedRecord& loaded, const CliOptions& options, QStringList& notes)
{
    if (!options.saveRecording.isEmpty() && options.pairing == Pairing::None)
        loaded.asRead = copyOf(loaded.record);
    replaceOutliers(loaded, options, notes);
}

QString templateOf(const QString& file, const CliOptions& options)
{
    return options.format.isEmpty() ? templateFor(guessFile(file, QDateTime()).kind) : options.format;
}

void loadFile(int index, const CliOptions& options, QStringList& notes,
    const std::function<void(std::unique_ptr<LoadedRecord>)>& take)
{
    const QString& fileName = options.files[index];
    const QFileInfo info(fileName);
    if (info.exists() && !info.isFile() && !info.isDir())
        throw DataFault(
            QStringLiteral("%1: is not a regular file; pipes and devices are not read").arg(fileName));
    const AsciiRequest request = requestFor(index, options, notes);
    AsciiFile file(request);
    readFile(file, request, options, notes);
    const QStringList names = file.columnNames();
    for (int column = 0; column < names.size(); ++column) {
        const QString name =
            names.size() > 1 ? QStringLiteral("%1[%2]").arg(fileName, names[column]) : fileName;
        std::unique_ptr<LoadedRecord> loaded = recordOf(file, column, name, request.format);
        prepareRecord(*loaded, options, notes);
        take(std::move(loaded));
    }
}
