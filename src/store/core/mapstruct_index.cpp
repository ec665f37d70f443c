#include "store/core/mapstruct.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "base/sleep.h"
#include "store/core/recordingtime.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr int betweenChannels = 1; // ms
constexpr double currentFor = 10800.0; // s
constexpr int deviceCodeAt = 42; // byte of a structure
constexpr int leastStructure = 36; // bytes: marker and start text
/// Of one file; a file of random bytes would fill the list with thousands.
constexpr int mostFaults = 10;
/// Days between two looks at what the user wants; those of a year on a slow share take long.
constexpr int daysAtOnce = 32;

} // namespace

/// The segments of one channel while its days are walked through.
class mapStruct::ChannelWalk {
public:
    ChannelWalk(mapStruct* map, const QDateTime& now)
        : m_map(map)
        , m_now(now)
    {
    }

    void missingDay(const QDate& day)
    {
        close({day.addDays(-1), lastSecond}, cutOff);
        if (!m_gap)
            m_gap = {day, day};
        m_gap->second = day;
    }

    /// One structure of a day; `dat` tells whether the data file is there.
    void structure(const InfType& inf, const QDate& day, bool dat, bool lastDay)
    {
        closeGap();
        // A marker that goes on from the day before begins a segment only where there is none to go on.
        if (!m_start || !goesOn(inf.startMarker)) {
            closeUnfinished(); // the one before never came to its end
            m_start = Moment(day, timeOfText(inf.startText, midnight));
        }
        takeNames(inf);
        // Texts at fault must not end a segment before it begins.
        m_stop = std::max(*m_start, Moment(day, timeOfText(inf.endText, lastSecond)));
        if (!dat)
            closeWithoutData(day);
        else if (!hasEnd(inf.endMarker))
            closeUnfinished();
        else if (!goesOn(inf.endMarker) || lastDay)
            close(m_stop, finished);
    }

    void end()
    {
        closeGap();
        closeUnfinished();
    }

private:
    /// As a pair it compares by the calendar, and costs no look at the time zone.
    using Moment = std::pair<QDate, QTime>;
    static QDateTime dateTime(const Moment& moment) { return QDateTime(moment.first, moment.second); }

    void takeNames(const InfType& inf)
    {
        if (!inf.refName.isEmpty())
            m_reference = inf.refName;
        if (!inf.measName.isEmpty())
            m_measured = inf.measName;
    }

    void append(const Moment& start, const Moment& stop, char kind)
    {
        m_map->starts << dateTime(start);
        m_map->stops << dateTime(stop);
        m_map->kinds += kind;
        const bool named = kind != noData && !(m_reference.isEmpty() && m_measured.isEmpty());
        m_map->names << (named ? QStringLiteral("%1 - %2").arg(m_reference, m_measured) : QString());
    }

    void close(const Moment& stop, char kind)
    {
        if (m_start)
            append(*m_start, stop, kind);
        m_start.reset();
    }

    void closeUnfinished()
    {
        if (m_start)
            close(m_stop, secondsBetween(dateTime(m_stop), m_now) < currentFor ? current : cutOff);
    }

    /// Earlier days of the stretch have their data, this one has none.
    void closeWithoutData(const QDate& day)
    {
        if (m_start->first < day) {
            append(*m_start, {day.addDays(-1), lastSecond}, cutOff);
            m_start = {day, midnight};
        }
        close(m_stop, noData);
    }

    void closeGap()
    {
        if (m_gap)
            append({m_gap->first, midnight}, {m_gap->second, lastSecond}, noData);
        m_gap.reset();
    }

    const QTime midnight{0, 0}, lastSecond{23, 59, 59};
    mapStruct* m_map;
    QDateTime m_now;
    std::optional<Moment> m_start; // of the open segment
    Moment m_stop; // of it, as told by the last structure
    std::optional<std::pair<QDate, QDate>> m_gap; // its first and last day
    QString m_reference, m_measured;
};

void mapStruct::say(const QString& title, const QString& text, const QStringList& details, bool critical)
{
    DebugLOG(QStringLiteral("%1: %2 (%3)").arg(title, text).arg(details.size()).toUtf8().constData());
    if (tell)
        tell({title, text, details, critical});
}

void mapStruct::noteFault(const QString& fault)
{
    m_faults << fault;
    DebugLOG(fault.toUtf8().constData());
}

void mapStruct::noteMissing(const QString& file)
{
    missingFiles << file; // each day and channel is asked for once
}

int mapStruct::readINFFiles(QDir directory, QDate from, QByteArray mask)
{
    return readINFFiles(directory, from, mask, QDateTime::currentDateTime());
}

int mapStruct::readINFFiles(QDir directory, QDate from, QByteArray mask, const QDateTime& now)
{
    clearIndex();
    m_faults.clear();
    m_directory = directory;
    ::dir = directory;
    if (!directory.isReadable()) {
        say(tr("папка недоступна"), tr("в данный момент выбранный каталог не доступен"), {directory.path()});
        return notReadable;
    }
    findType(from);
    const int bits = mask.size() * 8;
    for (int bit = 0; bit < bits; ++bit) {
        if (((quint8(mask.at(bit / 8)) >> (bit % 8)) & 1) == 0)
            continue;
        firstOfChannel << segmentCount();
        channels << bit + 1;
        const bool whole = walkChannel(bit + 1, from, now, bits);
        sleep(betweenChannels);
        if (!whole || (progress && !progress(double(bit + 1) / bits))) {
            clearIndex();
            return indexed;
        }
    }
    firstOfChannel << segmentCount();
    if (!m_faults.isEmpty())
        say(tr("Чтение каталога"), tr("При чтении файлов возникли ошибки."), m_faults);
    else if (!missingFiles.isEmpty())
        say(tr("Чтение каталога"), tr("Не удалось найти файлы:"), missingFiles, false);
    return missingFiles.isEmpty() ? indexed : filesMissing;
}

/// The type of the first whole structure in the range. Where all are cut short, as where there is none, it is
/// type 1.
void mapStruct::findType(const QDate& from)
{
    QHash<QString, QStringList> filesOfDay; // from one listing: a directory may hold very many files
    for (const QString& file : m_directory.entryList({QStringLiteral("*.inf")}, QDir::Files, QDir::Unsorted))
        filesOfDay[file.section(QLatin1Char('_'), 0, 0)] << file;
    structType = 0;
    for (int i = 0; i < m_days; ++i) {
        QStringList files = filesOfDay.value(from.addDays(i).toString(QStringLiteral("yyMMdd")));
        files.sort();
        for (const QString& file : files) {
            QByteArray bytes;
            readInfFile(QFileInfo(m_directory, file), &bytes);
            const QVector<int> begins = findStructures(bytes);
            for (int number = 0; number < begins.size(); ++number) {
                const InfReading reading = readStructure(bytes, begins, number);
                if (reading.fault != InfFault::None)
                    continue;
                structType = char(reading.length == infSizeType2 ? 2 : 1);
                if (reading.length == infSizeType1 || reading.length == infSizeType2)
                    return;
            }
        }
    }
    if (structType == 0)
        DebugLOG("Unable to find the type of inf-structures!");
    structType = 1;
}

/// The structures of a day, by their position in the file. What cannot be read is told and left out.
QVector<InfType> mapStruct::structuresOf(const QFileInfo& file)
{
    const QString path = file.filePath();
    QByteArray bytes;
    const InfFile outcome = readInfFile(file, &bytes);
    if (outcome != InfFile::Read)
        noteFault((outcome == InfFile::Broken ? tr("Ошибки при чтении файла ") : tr("Ошибки открытия файла "))
            + path);
    const int size = structType == 2 ? infSizeType2 : infSizeType1;
    const int count = (bytes.size() + size - 1) / size;
    const QString fault = tr("Ошибки записи в информационной структуре: ") + path;
    if (count != findStructures(bytes).size()) {
        DebugLOG((path + QStringLiteral(" исправить?")).toUtf8().constData()); // verbatim
        noteFault(fault + tr(" проблема с количеством записей"));
    }
    QVector<InfType> structures;
    int unreadable = 0;
    for (int i = 0; i < count; ++i) {
        const char* const at = bytes.constData() + i * size;
        const int length = std::min(size, bytes.size() - i * size);
        const InfType inf = parseInf(at, length, structType);
        if (length < leastStructure || !hasStart(inf.startMarker)) {
            if (++unreadable <= mostFaults)
                noteFault(fault + QLatin1String(": ")
                    + tr("не читается информационная структура о записи номер") + QLatin1Char(' ')
                    + QString::number(i + 1));
        } else if (structType == 2 && length > deviceCodeAt && at[deviceCodeAt] != 7
            && at[deviceCodeAt] != 0) {
            DebugLOG("Прочитанная структура не соответсвует формату HRL-318!"); // verbatim
        } else {
            structures << inf;
        }
    }
    if (unreadable > mostFaults)
        noteFault(fault + QLatin1String(": ") + tr("всего не читается: %1").arg(unreadable));
    return structures;
}

/// False when the user stops; `bits` is the number of channels that the mask has room for.
bool mapStruct::walkChannel(int channel, const QDate& from, const QDateTime& now, int bits)
{
    ChannelWalk walk(this, now);
    for (int i = 0; i < m_days; ++i) {
        if (i > 0 && i % daysAtOnce == 0 && progress && !progress((channel - 1 + double(i) / m_days) / bits))
            return false;
        const QDate day = from.addDays(i);
        const QString path = filePath(day, channel);
        const QFileInfo inf(path + QLatin1String(".inf"));
        if (!inf.isFile() && !inf.exists()) { // one look at the file system, as a rule
            walk.missingDay(day);
            noteMissing(inf.filePath());
            continue;
        }
        const QFileInfo dat(path + QLatin1String(".dat"));
        if (!dat.isFile())
            noteMissing(dat.filePath());
        const QVector<InfType> structures = structuresOf(inf);
        if (!structures.isEmpty() || inf.size() == 0)
            logUnnamed(structures, dat);
        for (const InfType& structure : structures)
            walk.structure(structure, day, dat.isFile(), i == m_days - 1);
    }
    walk.end();
    return true;
}
