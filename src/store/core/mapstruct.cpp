#include "store/core/mapstruct.h"

#include "base/debuglog.h"
#include "load/core/formatfilereader.h"
#include "record/record.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

void logFault(const QString& text, const QString& file)
{
    DebugLOG((QStringLiteral("Ошибка чтения информации: ") + text + QLatin1Char(' ') + file) // verbatim
                 .toUtf8()
                 .constData());
}

} // namespace

mapStruct::mapStruct(short days, short channelCount)
{
    setDayChan(days, channelCount);
}

void mapStruct::clearIndex()
{
    starts.clear();
    stops.clear();
    names.clear();
    kinds.clear();
    firstOfChannel.clear();
    channels.clear();
    missingFiles.clear();
}

void mapStruct::setDayChan(short days, short channelCount)
{
    clearIndex();
    m_days = std::max<short>(0, days);
    firstOfChannel.reserve(std::max<short>(0, channelCount) + 1);
    channels.reserve(std::max<short>(0, channelCount));
}

InfType mapStruct::ReadInf(QString fileName, int number, bool& ok)
{
    ok = false;
    QByteArray bytes;
    if (readInfFile(QFileInfo(fileName), &bytes) == InfFile::CannotOpen)
        return {};
    const InfReading reading = readStructure(bytes, findStructures(bytes), number);
    switch (reading.fault) {
    case InfFault::None:
        break;
    case InfFault::NoStructure:
        logFault(QStringLiteral("Нет ни одной inf-структуры в файле"), fileName); // verbatim
        return {};
    case InfFault::TooLong:
        logFault(QStringLiteral(
                     "флаг конца идет раньше флага начала информационной структуры в файле"), // verbatim
            fileName);
        return {};
    }
    if (reading.type == 1 && reading.length != infSizeType1)
        DebugLOG("Wrong inf-struct size, record is not finished?");
    else if (structType != 0 && structType != reading.type)
        DebugLOG("Different inf-struct types in one folder!!");
    structType = char(reading.type);
    ok = true;
    return reading.inf;
}

int mapStruct::bandOf(int segment) const
{
    const auto next = std::upper_bound(firstOfChannel.begin(), firstOfChannel.end(), segment);
    return int(next - firstOfChannel.begin()) - 1;
}

QString mapStruct::filePath(const QDate& day, int channel) const
{
    // The older devices count their channels from 0.
    return m_directory.absoluteFilePath(recordingName(day, structType == 2 ? channel - 1 : channel));
}

int mapStruct::SaveToASCII(Record* rec, QFile* file)
{
    QStringList header = FormatFileReader::defaultHeader(*rec, true);
    return FormatFileReader(QStringLiteral("[t] [x]")).SaveToASCII(rec, file, &header, false);
}
