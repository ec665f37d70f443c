#include "store/core/recordingday.h"

#include "base/debuglog.h"
#include "store/core/recordingtime.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int samplesBackwards = 4096; // at once
constexpr int nearGuess = 8; // samples
constexpr double roundingOfMarks = 1e-6;

/// Begins of the structures. Names may hold the three bytes of the pattern, too.
QVector<int> beginsOf(const QByteArray& bytes)
{
    QVector<int> begins;
    for (const int at : findStructures(bytes)) {
        const quint32 marker = parseInf(bytes.constData() + at, int(sizeof(quint32)), 1).startMarker;
        if (marker == infStarts || marker == infGoesOn)
            begins << at;
    }
    return begins;
}

} // namespace

DaySpans spansOfDay(const QByteArray& bytes, const QDate& day, int structType)
{
    DaySpans result;
    const QVector<int> begins = beginsOf(bytes);
    bool unreadable = false;
    for (int i = 0; i < begins.size(); ++i) {
        const int length = begins.value(i + 1, bytes.size()) - begins.at(i);
        if (length > infSizeType1) {
            if (!unreadable)
                result.suspect = i + 1;
            unreadable = true;
            continue;
        }
        // A whole structure tells its type by its length, one cut short is of the directory's.
        const int type = length == infSizeType1 ? 1 : length == infSizeType2 ? 2 : structType;
        DaySpan span;
        span.inf = parseInf(bytes.constData() + begins.at(i), length, type);
        if (span.inf.dT <= 0)
            span.inf.dT = 1000;
        if (span.inf.refName.isEmpty())
            span.inf.refName = QStringLiteral("Ref");
        if (span.inf.measName.isEmpty())
            span.inf.measName = QStringLiteral("Meas");
        span.start = QDateTime(day, timeOfText(span.inf.startText, QTime(0, 0)));
        span.open = !hasEnd(span.inf.endMarker);
        span.stop = span.open ? dayEnd(day) : QDateTime(day, timeOfText(span.inf.endText, QTime(23, 59, 59)));
        if (!result.spans.isEmpty() && result.spans.last().open) {
            DaySpan& before = result.spans.last();
            before.stop = span.start;
            before.limit = span.inf.startOffset;
        }
        result.spans << span;
    }
    return result;
}

const DaySpan* spanFor(const DaySpans& day, const QDateTime& from, const QDateTime& to, bool firstDay)
{
    const DaySpan* enclosing = nullptr;
    const DaySpan* overlapping = nullptr;
    for (const DaySpan& span : day.spans) {
        const bool beginsBefore = secondsBetween(span.start, from) >= 0.0;
        const bool endsAfter = secondsBetween(from, span.stop) >= 0.0;
        if (beginsBefore && endsAfter && (firstDay || !enclosing))
            enclosing = &span;
        if (!overlapping && endsAfter && secondsBetween(span.start, to) >= 0.0)
            overlapping = &span;
    }
    return enclosing ? enclosing : overlapping;
}

bool RecordingDay::readSpan(
    const QString& pathOfDay, int structType, const QDateTime& from, const QDateTime& to, bool firstDay)
{
    path = pathOfDay;
    date = from.date();
    QByteArray bytes;
    if (readInfFile(QFileInfo(path + QLatin1String(".inf")), &bytes) == InfFile::CannotOpen)
        return false;
    const DaySpans spans = spansOfDay(bytes, date, structType);
    suspect = spans.suspect;
    const DaySpan* const found = spanFor(spans, from, to, firstDay);
    if (found)
        span = *found;
    return found;
}

bool RecordingDay::openData()
{
    const QString name = path + QLatin1String(".dat");
    m_file.setFileName(name);
    // Without a buffer a single sample costs twelve bytes and not a buffer full.
    return QFileInfo(name).isFile() && m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

void RecordingDay::takeOffsets(const std::function<void(qint64)>& damage)
{
    const qint64 size = m_file.size();
    begin = span.inf.startOffset;
    qint64 end = span.inf.endOffset;
    // Behind a sample that was cut short the next structure begins between two multiples, and ends so, too.
    const bool shifted = span.open || (end - begin) % datSampleSize == 0;
    if (begin < 0 || begin > size || (begin % datSampleSize != 0 && !shifted)) {
        damage(begin);
        begin = std::clamp<qint64>(begin, 0, size);
        begin = (begin + datSampleSize - 1) / datSampleSize * datSampleSize;
    }
    if (span.open) {
        end = size;
        if (span.limit >= begin && span.limit < size)
            end = span.limit;
    } else if (end < begin || end > size || (end - begin) % datSampleSize != 0) {
        damage(end);
        // An end before the beginning tells nothing; the file may hold samples all the same.
        end = end < begin ? size : std::min(end, size);
    }
    count = std::max<qint64>(0, (end - begin) / datSampleSize);
    m_firstMark = count > 0 ? mark(0) : 0;
    first = 0;
    last = count - 1;
}

qint64 RecordingDay::read(qint64 index, qint64 samples, char* bytes) const
{
    if (!m_file.seek(begin + index * datSampleSize))
        return 0;
    qint64 got = 0;
    const qint64 wanted = samples * datSampleSize;
    while (got < wanted) {
        const qint64 more = m_file.read(bytes + got, wanted - got);
        if (more <= 0)
            break;
        got += more;
    }
    bytesRead += got;
    return got / datSampleSize;
}

qint32 RecordingDay::mark(qint64 index) const
{
    char bytes[datSampleSize];
    // What cannot be read counts as late; reading the samples will tell.
    return read(index, 1, bytes) == 1 ? decodeSample(bytes).mark : std::numeric_limits<qint32>::max();
}

double RecordingDay::unit() const
{
    return span.inf.dT / 1000.0;
}

double RecordingDay::interval() const
{
    return std::max<qint16>(1, span.inf.Kdec) * unit();
}

qint64 RecordingDay::findOpenEnd() const
{
    // The last sample whose mark is not below the one before it and lies in this day.
    const double latest = secondsBetween(timeOfFirst, dayEnd(date)) / unit() + m_firstMark;
    QByteArray block;
    for (qint64 end = count; end > 1;) {
        // One sample more than is judged, to compare with.
        const qint64 from = std::max<qint64>(0, end - samplesBackwards);
        block.resize(int(end - from) * datSampleSize);
        const qint64 got = read(from, end - from, block.data());
        for (qint64 i = got - 1; i > 0; --i) {
            const qint32 own = decodeSample(block.constData() + i * datSampleSize).mark;
            const qint32 before = decodeSample(block.constData() + (i - 1) * datSampleSize).mark;
            if (own >= before && own >= m_firstMark && own <= latest)
                return from + i + 1;
        }
        end = from > 0 ? from + 1 : 0;
    }
    return std::min<qint64>(count, 1);
}

void RecordingDay::setClock(const QDateTime& time)
{
    timeOfFirst = time;
    marksPerSecond = 1.0 / unit();
    if (span.open && count > 0) {
        count = findOpenEnd();
        last = count - 1;
        span.stop = timeOf(mark(last));
        span.inf.endText = span.stop.toString(QStringLiteral("dd.MM.yy hh:mm:ss"));
        DebugLOG(("open recording ends " + span.inf.endText.toUtf8()).constData());
    }
    if (count < 2)
        return;
    const double marks = double(mark(count - 1)) - m_firstMark;
    const double seconds = secondsBetween(timeOfFirst, span.stop);
    const double estimate = marks / seconds;
    // The times are those of the structure, which are less fine than the marks by up to a sample and a
    // second. An estimate that tells no more than this would move the samples; the device's own step does
    // not.
    if (std::abs(marks * unit() - seconds) > interval() + 1.0 && seconds > 0.0 && estimate > 0.0)
        marksPerSecond = estimate;
}

QDateTime RecordingDay::timeOf(qint32 mark) const
{
    const double seconds = (double(mark) - m_firstMark) / marksPerSecond;
    constexpr double century = 3.2e9; // s; hostile marks must stay within dates
    return plusSeconds(timeOfFirst, qint64(std::floor(std::clamp(seconds, -century, century) + 0.5)));
}

/// Marks rise, so it is found by halving, close to where the rate lets it be expected.
qint64 RecordingDay::firstAtOrAbove(double wanted) const
{
    qint64 low = 0, high = count;
    const double guess = (wanted - m_firstMark) / marksPerSecond / interval();
    const auto probe = [&](qint64 index) {
        if (mark(index) >= wanted)
            high = std::min(high, index);
        else
            low = std::max(low, index + 1);
    };
    const qint64 middle = qint64(std::clamp(guess, 0.0, double(count - 1)));
    probe(std::max<qint64>(0, middle - nearGuess));
    probe(std::min(count - 1, middle + nearGuess));
    while (low < high)
        probe(low + (high - low) / 2);
    return low;
}

void RecordingDay::trim(const QDateTime& from, const QDateTime& to)
{
    if (count == 0)
        return;
    const auto markAt = [this](const QDateTime& time) {
        return m_firstMark + secondsBetween(timeOfFirst, time) * marksPerSecond;
    };
    if (secondsBetween(timeOfFirst, from) > 0.0)
        first = firstAtOrAbove(markAt(from) - roundingOfMarks);
    if (secondsBetween(to, span.stop) > 0.0)
        last = firstAtOrAbove(markAt(to) + roundingOfMarks) - 1;
}
