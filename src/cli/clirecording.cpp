#include "cli/clirecording.h"

#include "base/busyguard.h"
#include "base/globals.h"
#include "cli/clicommands.h"
#include "cli/clitexts.h"
#include "store/core/mapstruct.h"
#include "store/core/recordingload.h"
#include "store/core/recordingtime.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <limits>

namespace {

constexpr int mostReported = 10;
constexpr int maskBytes = 2; // 16 channels

/// The index of the directory, and the time asked for.
struct Index {
    mapStruct map{0, 0};
    QDateTime from, to;
};

/// The day in the name of an inf file; invalid when there is none.
QDate dayOf(const QString& file)
{
    const QDate day = QDate::fromString(file.left(6), QStringLiteral("yyMMdd"));
    constexpr int firstYear = 1951; // of the two digits
    return day.isValid() && day.year() < firstYear ? day.addYears(100) : day;
}

/// Puts the first and the last day of the directory where the command line tells none.
void completeTimes(const QDir& directory, Index& index)
{
    if (index.from.isValid() && index.to.isValid())
        return;
    QDate first, last;
    for (const QString& file : directory.entryList({QStringLiteral("??????_*.inf")}, QDir::Files)) {
        const QDate day = dayOf(file);
        if (!day.isValid())
            continue;
        first = first.isValid() ? std::min(first, day) : day;
        last = last.isValid() ? std::max(last, day) : day;
    }
    if (!index.from.isValid())
        index.from = dayStart(first);
    if (!index.to.isValid())
        index.to = dayEnd(last);
}

QByteArray maskOf(const QVector<int>& channels)
{
    QByteArray mask(maskBytes, channels.isEmpty() ? '\xff' : '\0');
    for (const int channel : channels)
        mask[(channel - 1) / 8] = char(mask.at((channel - 1) / 8) | (1 << ((channel - 1) % 8)));
    return mask;
}

/// The text of a message with its first details, on one line each.
QStringList linesOf(const QString& name, const mapStruct::Message& message)
{
    QStringList lines{name + QStringLiteral(": ") + message.text.simplified()};
    lines += message.details.mid(0, mostReported);
    if (message.details.size() > mostReported)
        lines << name + QStringLiteral(": %1 more such lines").arg(message.details.size() - mostReported);
    return lines;
}

void readIndex(const CliOptions& options, Index& index, QStringList& notes)
{
    const RecordingChoice& choice = options.recording;
    const QString& name = choice.directory;
    const QDir directory(name);
    index.from = choice.from;
    index.to = choice.to;
    if (!QFileInfo(name).isDir() || !directory.isReadable())
        throw DataFault(name + QStringLiteral(": is not a folder that can be read"));
    completeTimes(directory, index);
    if (!index.from.isValid() || !index.to.isValid())
        throw DataFault(name + QStringLiteral(": holds no recording"));
    const qint64 days = index.from.date().daysTo(index.to.date()) + 1;
    if (days < 1)
        throw DataFault(name + QStringLiteral(": holds no recording of the time chosen"));
    if (days > std::numeric_limits<short>::max())
        throw DataFault(name + QStringLiteral(": the time chosen holds %1 days").arg(days));
    index.map.setDayChan(short(days), short(choice.channels.size()));
    index.map.tell = [&](const mapStruct::Message& message) {
        if (message.critical)
            notes += linesOf(name, message);
    };
    const BusyGuard busy;
    const int code = index.map.readINFFiles(directory, index.from.date(), maskOf(choice.channels));
    index.map.tell = {};
    if (code == mapStruct::notReadable)
        throw DataFault(name + QStringLiteral(": is not a folder that can be read"));
}

QString kindText(char kind)
{
    switch (kind) {
    case mapStruct::finished:
        return QStringLiteral("finished");
    case mapStruct::current:
        return QStringLiteral("current");
    case mapStruct::cutOff:
        return QStringLiteral("cut off");
    default:
        return QStringLiteral("no data");
    }
}

QString timeText(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

/// Channel, kind, start, stop and signals of every segment. Of channels that nobody has asked for, those
/// without any recording are left out.
QVector<QStringList> listLines(const mapStruct& map, bool wholeChannels)
{
    QVector<QStringList> lines;
    for (int band = 0; band < map.channels.size(); ++band) {
        const int first = map.firstOfChannel.at(band), end = map.firstOfChannel.at(band + 1);
        const auto* const kinds = map.kinds.constData();
        if (!wholeChannels
            && std::all_of(kinds + first, kinds + end, [](char kind) { return kind == mapStruct::noData; }))
            continue;
        for (int i = first; i < end; ++i)
            lines << QStringList{QString::number(map.channels.at(band)), kindText(map.kinds.at(i)),
                timeText(map.starts.at(i)), timeText(map.stops.at(i)), map.names.at(i)};
    }
    return lines;
}

/// A stretch with what is told of it.
struct Chosen {
    RecordingStretch stretch;
    QString title;
    bool current = false;
};

/// The parts of the segments that lie in the time asked for, in the order of the channels asked for.
QVector<Chosen> chosenStretches(const CliOptions& options, const Index& index)
{
    const mapStruct& map = index.map;
    QVector<Chosen> all;
    for (const int channel : options.recording.channels) {
        const int begin = all.size();
        const int band = map.channels.indexOf(channel);
        for (int i = map.firstOfChannel.at(band); i < map.firstOfChannel.at(band + 1); ++i) {
            const char kind = map.kinds.at(i);
            const bool open = kind == mapStruct::current || kind == mapStruct::cutOff;
            // Where an open one really ends, only its samples tell.
            const QDateTime end = open ? dayEnd(map.stops.at(i).date()) : map.stops.at(i);
            Chosen one;
            one.stretch.channel = channel;
            one.stretch.start = std::max(map.starts.at(i), index.from);
            one.stretch.stop = std::min(end, index.to);
            one.stretch.recordingStart = map.starts.at(i);
            one.stretch.toEnd = open && index.to >= end;
            one.stretch.kdec = options.recording.kdec;
            one.current = kind == mapStruct::current;
            if (kind != mapStruct::noData && one.stretch.start <= one.stretch.stop)
                all << one;
        }
        const bool several = all.size() - begin > 1;
        for (int i = begin; i < all.size(); ++i) {
            const QString number = QString::number(channel);
            all[i].title = QStringLiteral("%1[%2]").arg(options.recording.directory,
                several ? number + QLatin1Char(' ') + timeText(all.at(i).stretch.start) : number);
        }
    }
    return all;
}

void noteLoad(const Chosen& one, const RecordingLoad& loader, const Record& record, QStringList& notes)
{
    for (const mapStruct::Message& message : loader.messages())
        notes << one.title + QStringLiteral(": ") + message.title.simplified() + QStringLiteral(": ")
                + message.text;
    if (record.dataType != 0)
        notes << one.title
                + QStringLiteral(": holds %1 and not phase; it is taken as it stands")
                      .arg(RecTypes[record.dataType]);
    if (one.current)
        notes << one.title
                + QStringLiteral(": is still being recorded; read up to %1").arg(timeText(record.stop));
}

std::unique_ptr<LoadedRecord> loaded(
    const Chosen& one, const Index& index, const CliOptions& options, QStringList& notes)
{
    auto out = std::make_unique<LoadedRecord>();
    Record& record = out->record;
    RecordingLoad loader(index.map, QFileInfo(options.recording.directory).absoluteFilePath());
    loader.tellShortDay = [&](const QString& text) {
        notes << one.title + QStringLiteral(": ") + text.simplified();
        return false;
    };
    const RecordingLoad::Outcome outcome = loader.load(one.stretch, &record);
    noteLoad(one, loader, record, notes);
    const bool some = outcome == RecordingLoad::Outcome::Loaded || outcome == RecordingLoad::Outcome::Partial;
    if (!some)
        throw DataFault(one.title + QStringLiteral(": cannot be read"));
    if (!loader.messages().isEmpty() && !options.skipBadLines)
        throw DataFault(
            one.title + QStringLiteral(": cannot be read whole; --skip-bad-lines takes what there is"));
    CliResult& result = out->result;
    result.title = one.title;
    result.start = record.start;
    result.stop = record.stop;
    result.interval = record.Kdec;
    result.samples = record.n_cnt;
    CliSource source;
    source.file = one.title;
    source.channel = one.stretch.channel;
    source.signalPair = {record.meas_sig, record.ref_sig};
    source.samples = record.n_cnt;
    result.sources.append(source);
    return out;
}

} // namespace

QByteArray recordingList(const CliOptions& options, QStringList& notes)
{
    Index index;
    readIndex(options, index, notes);
    const QStringList head{QStringLiteral("channel"), QStringLiteral("kind"), QStringLiteral("start"),
        QStringLiteral("stop"), QStringLiteral("signals")};
    QVector<QStringList> lines = listLines(index.map, !options.recording.channels.isEmpty());
    if (options.style == TableStyle::Json) {
        QJsonArray segments;
        for (const QStringList& line : lines) {
            QJsonObject segment{{head[0], line[0].toInt()}};
            for (int i = 1; i < head.size(); ++i)
                segment.insert(head[i], line[i]);
            segments.append(segment);
        }
        return QJsonDocument(segments).toJson();
    }
    lines.prepend(head);
    if (options.style == TableStyle::Aligned) {
        for (QStringList& line : lines)
            std::replace(line.begin(), line.end(), QString(), noValue);
        return aligned(lines).toUtf8();
    }
    QString text;
    for (QStringList& line : lines) {
        std::transform(line.begin(), line.end(), line.begin(), quoted);
        text += line.join(QLatin1Char(',')) + QLatin1Char('\n');
    }
    return text.toUtf8();
}

void loadRecordings(const CliOptions& options, QStringList& notes,
    const std::function<void(std::unique_ptr<LoadedRecord>)>& take)
{
    Index index;
    readIndex(options, index, notes);
    const QVector<Chosen> all = chosenStretches(options, index);
    if (all.isEmpty())
        throw DataFault(options.recording.directory
            + QStringLiteral(": the channels hold no recording in this time; see --list"));
    const QString fault = recordsFault(options, all.size());
    if (!fault.isEmpty())
        throw DataFault(fault);
    if (!index.map.missingFiles.isEmpty())
        notes << options.recording.directory
                + QStringLiteral(": %1 files are missing in this time; see --list")
                      .arg(index.map.missingFiles.size());
    for (const Chosen& one : all) {
        std::unique_ptr<LoadedRecord> record = loaded(one, index, options, notes);
        prepareRecord(*record, options, notes);
        take(std::move(record));
    }
}
