#include "load/recordingreader.h"

#include "record/record.h"
#include "store/core/mapstruct.h"
#include "store/core/recordingday.h"
#include "store/core/recordingtime.h"

#include <QDir>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int mostDays = std::numeric_limits<short>::max(); // of an index

/// Segment that holds the start, the later one of two that meet there; else the first that reaches beyond it.
/// -1 for none.
int segmentAt(const mapStruct& map, const QDateTime& start, const QDateTime& stop)
{
    int beyond = -1;
    for (int i = map.segmentCount() - 1; i >= 0; --i) {
        if (map.kinds.at(i) == mapStruct::noData || map.stops.at(i) < start)
            continue;
        if (map.starts.at(i) <= start)
            return i;
        if (!stop.isValid() || map.starts.at(i) <= stop)
            beyond = i;
    }
    return beyond;
}

/// How many samples of the files make one of the record.
int decimation(const mapStruct& map, const KnownRecording& known)
{
    RecordingDay day;
    const QDate date = known.start.date();
    if (!(known.interval > 0.0)
        || !day.readSpan(map.filePath(date, known.channel), map.structType, known.start, dayEnd(date), true))
        return 1;
    return int(std::clamp(std::round(known.interval / day.interval()), 1.0, 1e9));
}

} // namespace

KnownRecordingResult readKnownRecording(const KnownRecording& known, Record* rec,
    const std::function<bool(double)>& progress, const std::function<bool(const QString&)>& tellShortDay)
{
    KnownRecordingResult result;
    const bool toEnd = !known.stop.isValid();
    const QDate from = known.start.date();
    const qint64 days = from.daysTo((toEnd ? known.now : known.stop).date()) + 1;
    if (!known.start.isValid() || days < 1 || days > mostDays || known.channel < 1
        || known.channel > mostRecordingChannels)
        return result;
    mapStruct map(short(days), 1);
    QByteArray mask(known.channel / 8 + 1, '\0');
    mask[(known.channel - 1) / 8] = char(1 << (known.channel - 1) % 8);
    bool stopped = false;
    map.progress = [&](double) {
        stopped = progress && !progress(0.0);
        return !stopped;
    };
    map.readINFFiles(QDir(known.directory), from, mask, known.now);
    if (stopped) {
        result.outcome = RecordingLoad::Outcome::Stopped;
        return result;
    }
    // Up to now there may be days without a file: the recording may have ended before.
    if (!toEnd)
        result.missing = map.missingFiles;
    const int segment = segmentAt(map, known.start, known.stop);
    if (!result.missing.isEmpty() || (toEnd && segment < 0))
        return result;
    RecordingStretch stretch;
    stretch.channel = known.channel;
    stretch.start = known.start;
    stretch.stop = toEnd ? map.stops.at(segment) : known.stop;
    stretch.recordingStart = segment < 0 ? known.start : std::min(known.start, map.starts.at(segment));
    stretch.toEnd = toEnd && map.kinds.at(segment) != mapStruct::finished;
    stretch.kdec = decimation(map, known);
    RecordingLoad loader(map, QDir(known.directory).absolutePath());
    loader.progress = progress;
    loader.tellShortDay = tellShortDay;
    result.outcome = loader.load(stretch, rec);
    result.messages = loader.messages();
    return result;
}
