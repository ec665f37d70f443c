#include "samples/recording.h"

#include "store/core/infstruct.h"
#include "store/core/recordingtime.h"

#include <QFile>
#include <QTextCodec>

#include <algorithm>
#include <cmath>

namespace {

constexpr int daySeconds = 86400;
constexpr int headLength = 50; // bytes that the device writes at the start of a recording

bool append(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::Append) && file.write(bytes) == bytes.size();
}

/// The older form: other lengths of the names, and the end offset two numbers later.
QByteArray olderForm(const InfType& inf)
{
    const QByteArray today = encodeInf(inf);
    const auto name = [](const QString& text) {
        return QTextCodec::codecForName("Windows-1251")->fromUnicode(text).leftJustified(64, ' ', true);
    };
    QByteArray bytes = today.left(headLength);
    bytes[42] = 7;
    bytes += QByteArray(4, '\0');
    bytes += today.mid(headLength, 4);
    bytes += name(inf.refName) + name(inf.measName);
    return bytes + today.right(36);
}

/// A slow wave on a slope, µs, different in each channel.
double usualValue(int channel, qint64 mark)
{
    return 1e-6 * double(mark) * channel + 0.01 * std::sin(double(mark) / 5000.0 + channel);
}

} // namespace

RecordingWriter::RecordingWriter(const QDir& directory, int structType)
    : m_directory(directory)
    , m_structType(structType)
{
}

bool RecordingWriter::writeDay(const Stretch& stretch, int day)
{
    const QDate date = stretch.start.date().addDays(day);
    const bool first = day == 0;
    const bool last = date == stretch.stop.date();
    const int channel = m_structType == 2 ? stretch.channel - 1 : stretch.channel;
    const QString path = m_directory.absoluteFilePath(recordingName(date, channel));
    const qint64 midnight = qint64(day) * daySeconds;
    const auto ofDay = [](const QDateTime& time) { return time.time().msecsSinceStartOfDay() / 1000; };
    const qint64 begin = ofDay(stretch.start);
    const qint64 end = last ? midnight + ofDay(stretch.stop) : midnight + daySeconds - 1;
    // The first mark of the grid that lies in this day.
    const qint64 late = std::max<qint64>(0, midnight - begin);
    qint64 mark = begin + (late + stretch.interval - 1) / stretch.interval * stretch.interval;
    QByteArray samples;
    for (; mark <= end; mark += stretch.interval) {
        const double value = stretch.value ? stretch.value(mark) : usualValue(stretch.channel, mark);
        appendSample(&samples, {qint32(mark * 1000 / stretch.dT), value});
    }
    InfType inf;
    const QString dateText = date.toString(QStringLiteral("dd.MM.yyyy"));
    const QString timeForm = QStringLiteral("dd.MM.yyyy hh:mm:ss");
    inf.startMarker = first ? infStarts : infGoesOn;
    inf.startText = first ? stretch.start.toString(timeForm) : dateText;
    inf.startOffset = qint32(QFile(path + QLatin1String(".dat")).size());
    inf.Kdec = qint16(stretch.interval * 1000 / stretch.dT);
    inf.devType = stretch.devType;
    inf.dT = stretch.dT;
    inf.dataType = stretch.dataType;
    inf.endOffset = inf.startOffset + samples.size();
    inf.refName = stretch.reference;
    inf.measName = stretch.measured;
    inf.endText = last ? stretch.stop.toString(timeForm) : dateText + QLatin1String(" 23:59:59");
    inf.endMarker = last ? infEnds : infEndsLater;
    QByteArray structure = m_structType == 2 ? olderForm(inf) : encodeInf(inf);
    if (last && !stretch.finished)
        structure.truncate(headLength);
    if (!append(path + QLatin1String(".inf"), structure))
        return false;
    return (stretch.lost && stretch.lost(day)) || append(path + QLatin1String(".dat"), samples);
}

bool RecordingWriter::write(const Stretch& stretch)
{
    const int days = int(stretch.start.date().daysTo(stretch.stop.date()));
    for (int day = 0; day <= days; ++day) {
        if (!writeDay(stretch, day))
            return false;
    }
    return true;
}

bool RecordingWriter::writeMixture(const QDate& from, int days, int channels, int interval)
{
    const auto at = [&from](int day, int hour) { return QDateTime(from.addDays(day), QTime(hour, 0)); };
    const QDateTime end = dayEnd(from.addDays(days - 1));
    for (int channel = 1; channel <= channels; ++channel) {
        Stretch stretch;
        stretch.channel = channel;
        stretch.interval = interval;
        stretch.measured = QStringLiteral("Clock %1").arg(channel);
        switch (channel % 5) {
        case 1: // one recording over everything
            stretch.start = at(0, 0);
            stretch.stop = end;
            break;
        case 2: // it never ended
            stretch.start = at(0, 9);
            stretch.stop = QDateTime(end.date(), QTime(20, 0));
            stretch.finished = false;
            break;
        case 3: // the data of its second day are lost
            stretch.start = at(0, 6);
            stretch.stop = QDateTime(end.date(), QTime(18, 0));
            stretch.lost = [](int day) { return day == 1; };
            break;
        case 4: // two a day
            for (int day = 0; day < days; ++day) {
                stretch.start = at(day, 1);
                stretch.stop = at(day, 11);
                if (!write(stretch))
                    return false;
                stretch.start = at(day, 13);
                stretch.stop = at(day, 22);
                if (day + 1 < days && !write(stretch))
                    return false;
            }
            break;
        default: // every third day is missing
            for (int day = 0; day < days; day += 3) {
                stretch.start = at(day, 0);
                stretch.stop = std::min(dayEnd(from.addDays(day + 1)), end);
                if (day + 3 < days && !write(stretch))
                    return false;
            }
        }
        if (!write(stretch))
            return false;
    }
    return true;
}
