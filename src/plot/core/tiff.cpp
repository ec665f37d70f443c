#include "plot/core/tiff.h"

#include <QtEndian>

#include <array>

namespace {

constexpr quint16 typeShort = 3;
constexpr quint16 typeLong = 4;
constexpr quint16 typeRational = 5;

struct Tag {
    quint16 id;
    quint16 type;
    quint32 count;
    quint32 value;
};

template <typename T> void append(QByteArray& out, T value)
{
    const T little = qToLittleEndian(value);
    out.append(reinterpret_cast<const char*>(&little), sizeof little);
}

} // namespace

QByteArray encodeTiff(const QByteArray& rgb, int width, int height, int dotsPerInch)
{
    if (width < 1 || height < 1 || qint64(width) * height * 3 != rgb.size())
        return {};
    // qCompress puts the length in four bytes before the zlib stream that TIFF asks for.
    const QByteArray pixels = qCompress(rgb, 9).mid(4);
    constexpr quint32 headSize = 8;
    constexpr quint32 tagCount = 12;
    constexpr quint32 depths = headSize + 2 + 12 * tagCount + 4;
    constexpr quint32 resolution = depths + 6;
    constexpr quint32 strip = resolution + 8;
    // Tags stand in rising order.
    const std::array<Tag, tagCount> tags = {{
        {256, typeLong, 1, quint32(width)}, {257, typeLong, 1, quint32(height)}, {258, typeShort, 3, depths},
        {259, typeShort, 1, 8}, // Deflate
        {262, typeShort, 1, 2}, // RGB
        {273, typeLong, 1, strip}, {277, typeShort, 1, 3}, {278, typeLong, 1, quint32(height)},
        {279, typeLong, 1, quint32(pixels.size())}, {282, typeRational, 1, resolution},
        {283, typeRational, 1, resolution}, {296, typeShort, 1, 2}, // dots per inch
    }};
    QByteArray out("II*\0", 4);
    append(out, headSize);
    append(out, quint16(tagCount));
    for (const Tag& tag : tags) {
        append(out, tag.id);
        append(out, tag.type);
        append(out, tag.count);
        append(out, tag.value);
    }
    append(out, quint32(0)); // no further picture
    for (int sample = 0; sample < 3; ++sample)
        append(out, quint16(8));
    append(out, quint32(dotsPerInch));
    append(out, quint32(1));
    return out + pixels;
}
