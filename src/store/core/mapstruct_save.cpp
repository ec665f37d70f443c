#include "store/core/mapstruct.h"

#include "base/debuglog.h"
#include "base/wholefile.h"
#include "record/record.h"
#include "store/core/recordingtime.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr qint64 largestOffset = std::numeric_limits<qint32>::max();
constexpr int samplesAtOnce = 100000; // 1.2 MB

qint32 truncated(double value)
{
    constexpr double least = std::numeric_limits<qint32>::min();
    constexpr double greatest = std::numeric_limits<qint32>::max();
    return std::isnan(value) ? 0 : qint32(std::clamp(value, least, greatest));
}

/// The structure of day `day`, from 0, all but its offsets.
InfType structureOf(const Record& rec, int day)
{
    const bool last = day == rec.n_days - 1;
    const QString dateForm = QStringLiteral("dd.MM.yyyy");
    const QString timeForm = QStringLiteral("dd.MM.yyyy hh:mm:ss");
    const QString date = rec.start.date().addDays(day).toString(dateForm);
    InfType inf;
    inf.startMarker = day == 0 ? infStarts : infGoesOn;
    inf.startText = day == 0 ? rec.start.toString(timeForm) : date;
    inf.Kdec = qint16(std::clamp(truncated(rec.Kdec), qint32(std::numeric_limits<qint16>::min()),
        qint32(std::numeric_limits<qint16>::max())));
    inf.devType = qint8(rec.devType); // the file keeps one byte
    inf.dT = 1000;
    inf.dataType = qint8(rec.dataType);
    inf.refName = rec.ref_sig;
    inf.measName = rec.meas_sig;
    inf.endText = last ? rec.stop.toString(timeForm) : date + QLatin1String(" 23:59:59");
    inf.endMarker = last ? infEnds : infEndsLater;
    return inf;
}

/// What makes the last structure of an inf file whole where it was cut short, so that the next one stands
/// where a reader by position looks for it. It reads as before: without an end.
QByteArray completion(const QByteArray& bytes)
{
    const int rest = bytes.size() % infSizeType1;
    const InfType last = parseInf(bytes.constData() + bytes.size() - rest, rest, 1);
    const bool cutShort = hasStart(last.startMarker) && rest != infSizeType2; // that one is whole, of type 2
    return cutShort ? encodeInf(last).mid(rest) : QByteArray();
}

/// Tells of data that a writer has left without a structure.
void logLeftOver(const QByteArray& inf, const QString& dat)
{
    const QVector<int> begins = findStructures(inf);
    QVector<InfType> structures;
    for (int number = 0; number < begins.size(); ++number)
        structures << readStructure(inf, begins, number).inf;
    logUnnamed(structures, QFileInfo(dat));
}

} // namespace

/// A file that grows by what is appended. Unless that is kept, it gets its former length back.
class GrowingFile {
public:
    explicit GrowingFile(const QString& path)
        : m_file(path)
        , m_isNew(!QFileInfo::exists(path))
    {
    }

    ~GrowingFile()
    {
        if (!m_file.isOpen() || m_kept)
            return;
        if (m_isNew ? !m_file.remove() : !m_file.resize(m_begin))
            DebugLOG("What was appended could not be taken off again");
    }

    bool open()
    {
        // Opening a pipe would wait for its reader.
        if ((!m_isNew && !QFileInfo(m_file).isFile())
            || !m_file.open(QIODevice::Append | QIODevice::Unbuffered))
            return false;
        m_begin = m_file.size();
        return true;
    }

    bool append(const QByteArray& bytes) { return writeWhole(&m_file, bytes.constData(), bytes.size()); }

    void keep() { m_kept = true; }
    const QFile& file() const { return m_file; }
    qint64 begin() const { return m_begin; }

private:
    QFile m_file;
    bool m_isNew;
    bool m_kept = false;
    qint64 m_begin = 0;
};

namespace {

/// Appends the samples from `first` on; false when the file did not take them.
bool appendSamples(GrowingFile* file, Record* rec, int first, int count)
{
    // A reader knows one byte of the type, and multiplies by what this byte stands for.
    const double unit = PhaseKoef(qint8(rec->devType));
    QByteArray bytes;
    bytes.reserve(std::min(count, samplesAtOnce) * datSampleSize);
    for (int i = first; i < first + count;) {
        bytes.resize(0); // keeps the memory
        for (const int end = std::min(first + count, i + samplesAtOnce); i < end; ++i)
            appendSample(&bytes, {truncated(rec->t[i]), rec->x[i] / unit});
        if (!file->append(bytes))
            return false;
    }
    return true;
}

} // namespace

int mapStruct::SaveToInfDat(Record* rec, QDir* directory, unsigned char, unsigned char number)
{
    m_error.clear();
    int first = 0;
    for (int day = 0; day < rec->n_days; ++day) {
        if (progress && !progress(double(day) / rec->n_days)) {
            m_error = tr("Сохранение остановлено, записано суток: %1").arg(day);
            return 1;
        }
        const QString path =
            directory->absoluteFilePath(recordingName(rec->start.date().addDays(day), rec->ch, number));
        const qint64 there = std::min(rec->t.count, rec->x.count) - first;
        const qint64 told = rec->num_in_days ? rec->num_in_days[std::size_t(day)] : 0;
        const int count = int(std::clamp<qint64>(told, 0, there));
        if (!appendDay(rec, day, first, count, path))
            return 1;
        first += count;
    }
    return 0;
}

bool mapStruct::fail(const QString& text, const GrowingFile& file)
{
    m_error = text + QLatin1Char('\n') + file.file().fileName();
    if (file.file().error() != QFileDevice::NoError)
        m_error += QLatin1Char('\n') + file.file().errorString();
    DebugLOG(m_error.toUtf8().constData());
    return false;
}

/// The samples first: when the structure does not follow, they are a harmless tail that nothing names.
bool mapStruct::appendDay(Record* rec, int day, int first, int count, const QString& path)
{
    GrowingFile inf(path + QLatin1String(".inf"));
    GrowingFile dat(path + QLatin1String(".dat"));
    if (!inf.open())
        return fail(tr("Ошибка при открытии inf-файла. Файл не сохранён!"), inf);
    if (!dat.open())
        return fail(tr("Ошибка при открытии dat-файла. Файл не сохранён!"), dat);
    QByteArray before;
    if (readInfFile(QFileInfo(inf.file()), &before) != InfFile::Read)
        return fail(tr("Ошибка при открытии inf-файла. Файл не сохранён!"), inf);
    logLeftOver(before, dat.file().fileName());
    const qint64 end = dat.begin() + qint64(count) * datSampleSize;
    if (end > largestOffset)
        return fail(tr("Файл не сохранён: в нём не может быть больше 2 Гбайт."), dat);
    InfType structure = structureOf(*rec, day);
    structure.startOffset = qint32(dat.begin());
    structure.endOffset = qint32(end);
    if (!appendSamples(&dat, rec, first, count))
        return fail(tr("Файл не сохранён:"), dat);
    if (!inf.append(completion(before) + encodeInf(structure)))
        return fail(tr("Файл не сохранён:"), inf);
    inf.keep();
    dat.keep();
    return true;
}
