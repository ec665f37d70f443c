#include "store/core/infstruct.h"

#include "base/debuglog.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <QtEndian>

#include <algorithm>

namespace {

/// Twelve thousand structures: a recording that starts anew every seven seconds.
constexpr qint64 mostBytes = 4 << 20;
constexpr int textLength = 32;
constexpr int nameLength1 = 128;
constexpr int nameLength2 = 64;

QTextCodec* codec()
{
    static QTextCodec* const windows1251 = QTextCodec::codecForName("Windows-1251");
    return windows1251;
}

/// Walks over the bytes of a structure that may end anywhere.
class Walk {
public:
    Walk(const char* data, int length)
        : m_at(data)
        , m_left(std::max(0, length))
    {
    }

    bool atEnd() const { return m_left == 0; }

    /// `missing` when the number is not there whole.
    template <typename Number> Number number(Number missing)
    {
        if (m_left < int(sizeof(Number))) {
            m_left = 0;
            return missing;
        }
        const auto value = qFromLittleEndian<Number>(m_at);
        skip(int(sizeof(Number)));
        return value;
    }

    /// Without the blanks at its end; as much of it as there is.
    QString text(int length)
    {
        const char* const text = m_at;
        const int there = std::min(length, m_left);
        skip(there);
        int end = int(qstrnlen(text, uint(there))); // other writers pad with zeros
        while (end > 0 && text[end - 1] == ' ')
            --end;
        // The codec makes a converter each time.
        const bool plain = std::all_of(text, text + end, [](char c) { return uchar(c) < 0x80; });
        return plain ? QString::fromLatin1(text, end) : codec()->toUnicode(text, end);
    }

    void skip(int bytes)
    {
        const int there = std::min(bytes, m_left);
        m_at += there;
        m_left -= there;
    }

private:
    const char* m_at;
    int m_left;
};

/// Exactly `length` bytes, padded with blanks.
QByteArray padded(const QString& text, int length)
{
    return codec()->fromUnicode(text).leftJustified(length, ' ', true);
}

template <typename Number> void appendNumber(QByteArray* bytes, Number value)
{
    char raw[sizeof(Number)];
    qToLittleEndian<Number>(value, raw);
    bytes->append(raw, int(sizeof raw));
}

} // namespace

InfType parseInf(const char* data, int length, int type)
{
    InfType inf;
    Walk walk(data, length);
    inf.startMarker = walk.number<quint32>(0);
    inf.startText = walk.text(textLength);
    inf.startOffset = walk.number<qint32>(-1);
    inf.Kdec = walk.number<qint16>(0);
    inf.devType = walk.number<qint8>(0);
    inf.dT = walk.number<qint16>(0);
    inf.dataType = walk.number<qint8>(0);
    inf.reserved = walk.number<qint32>(0);
    if (type == 2) {
        inf.devType = 7;
        inf.dT = 0;
        inf.dataType = 0;
        walk.skip(int(2 * sizeof(qint16)));
    } else if (inf.dT == 0 || (inf.devType == 5 && inf.dT == 1)) {
        inf.dT = 1000;
    }
    const int nameLength = type == 2 ? nameLength2 : nameLength1;
    inf.endOffset = walk.number<qint32>(-1);
    inf.refName = walk.text(nameLength);
    inf.measName = walk.text(nameLength);
    if (walk.atEnd()) {
        inf.endText = inf.startText;
    } else {
        inf.endText = walk.text(textLength);
        inf.endMarker = walk.number<quint32>(0);
    }
    return inf;
}

QByteArray encodeInf(const InfType& inf)
{
    QByteArray bytes;
    bytes.reserve(infSizeType1);
    appendNumber(&bytes, inf.startMarker);
    bytes += padded(inf.startText, textLength);
    appendNumber(&bytes, inf.startOffset);
    appendNumber(&bytes, inf.Kdec);
    appendNumber(&bytes, inf.devType);
    appendNumber(&bytes, inf.dT);
    appendNumber(&bytes, inf.dataType);
    appendNumber(&bytes, inf.reserved);
    appendNumber(&bytes, inf.endOffset);
    bytes += padded(inf.refName, nameLength1);
    bytes += padded(inf.measName, nameLength1);
    bytes += padded(inf.endText, textLength);
    appendNumber(&bytes, inf.endMarker);
    return bytes;
}

QVector<int> findStructures(const QByteArray& bytes)
{
    QVector<int> begins;
    // A structure begins one byte before the pattern, since the low byte of its marker differs; so a pattern
    // at the very start of the file belongs to none.
    for (int at = bytes.indexOf("\x55\x55\x55", 1); at > 0; at = bytes.indexOf("\x55\x55\x55", at + 2))
        begins << at - 1;
    return begins;
}

InfFile readInfFile(const QFileInfo& path, QByteArray* bytes)
{
    QFile file(path.filePath());
    if (!path.isFile() || !file.open(QIODevice::ReadOnly))
        return InfFile::CannotOpen;
    const bool tooLong = path.size() > mostBytes;
    *bytes = tooLong ? file.read(mostBytes) : file.readAll();
    return file.error() == QFileDevice::NoError && !tooLong ? InfFile::Read : InfFile::Broken;
}

InfReading readStructure(const QByteArray& bytes, const QVector<int>& begins, int number)
{
    InfReading reading;
    if (number < 0 || number >= begins.size()) {
        reading.fault = InfFault::NoStructure;
        return reading;
    }
    const int begin = begins.at(number);
    const int end = number + 1 < begins.size() ? begins.at(number + 1) : bytes.size();
    reading.length = end - begin;
    if (reading.length > infSizeType1) {
        reading.fault = InfFault::TooLong;
        return reading;
    }
    // The length alone tells the type: one of type 1 that was cut short right here is taken for type 2.
    reading.type = reading.length == infSizeType2 ? 2 : 1;
    reading.inf = parseInf(bytes.constData() + begin, reading.length, reading.type);
    if (reading.inf.refName.isEmpty())
        reading.inf.refName = QStringLiteral("Ref");
    if (reading.inf.measName.isEmpty())
        reading.inf.measName = QStringLiteral("Meas");
    return reading;
}

void logUnnamed(const QVector<InfType>& structures, const QFileInfo& dat)
{
    qint64 named = 0;
    for (const InfType& inf : structures) {
        if (!hasEnd(inf.endMarker))
            return;
        named = std::max<qint64>(named, inf.endOffset);
    }
    if (dat.isFile() && dat.size() > named)
        DebugLOG(QStringLiteral("%1: no structure names the bytes from %2 to %3")
                     .arg(dat.filePath())
                     .arg(named)
                     .arg(dat.size())
                     .toUtf8()
                     .constData());
}

DatSample decodeSample(const char* data)
{
    return {qFromLittleEndian<qint32>(data), qFromLittleEndian<double>(data + sizeof(qint32))};
}

void appendSample(QByteArray* bytes, const DatSample& sample)
{
    appendNumber(bytes, sample.mark);
    appendNumber(bytes, sample.value);
}

QString recordingName(const QDate& day, int number, int k)
{
    QString name = day.toString(QStringLiteral("yyMMdd")) + QLatin1Char('_');
    if (number < 10)
        name += QLatin1Char('0');
    name += QString::number(number);
    if (k > 0)
        name += QStringLiteral("_(%1)").arg(k);
    return name;
}
