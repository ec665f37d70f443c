#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QVector>

class QFileInfo;

// The files of a recording. A multi-channel phase comparator writes a pair of files for each channel and day,
// yyMMdd_CC.inf and yyMMdd_CC.dat, all numbers little-endian.
//
// Inf file: information structures behind each other, one for each stretch of recording on this day.
//
//   offset  size  type 1 (346 bytes)          type 2 (222 bytes, older, read only)
//        0     4  start marker                start marker
//        4    32  start text                  start text
//       36     4  int32 start offset          int32 start offset
//       40     2  int16 Kdec                  int16 Kdec
//       42     1  int8 devType                ignored, taken as 7
//       43     2  int16 dT, ms                ignored, taken as 0
//       45     1  int8 dataType               ignored, taken as 0
//       46     4  reserved                    reserved
//       50     4  int32 end offset            skipped
//       54        128 + 128 names             int32 end offset, 64 + 64 names from 58
//      310    32  end text                    end text, at 186
//      342     4  end marker                  end marker, at 218
//
// Dat file: samples of 12 bytes, int32 time mark in s and double value; see PhaseKoef() for its unit.
//
// Texts are in Windows-1251, padded with blanks.

/// The recording starts in this structure; it goes on from the day before.
constexpr quint32 infStarts = 0x55555550u;
constexpr quint32 infGoesOn = 0x55555551u;
/// The recording ends in this structure; it goes on the next day.
constexpr quint32 infEnds = 0xAAAAAAA0u;
constexpr quint32 infEndsLater = 0xAAAAAAA1u;

constexpr int infSizeType1 = 346; // bytes
constexpr int infSizeType2 = 222;
constexpr int datSampleSize = 12;

/// One information structure.
struct InfType {
    quint32 startMarker = 0;
    QString startText;
    /// Where the stretch begins in the dat file; -1 when the structure ends before it.
    qint32 startOffset = -1;
    qint16 Kdec = 0;
    /// Index of PhaseKoef.
    qint8 devType = 0;
    /// Step of the time marks, ms.
    qint16 dT = 1000;
    qint8 dataType = 0;
    qint32 reserved = 0;
    /// Where it ends; -1 when the structure ends before it.
    qint32 endOffset = -1;
    QString refName;
    QString measName;
    QString endText;
    quint32 endMarker = 0;
};

/// Whether a marker is one of both start markers, or of both end markers; further bits do not count.
constexpr bool hasStart(quint32 marker)
{
    return (marker & infStarts) == infStarts;
}
constexpr bool hasEnd(quint32 marker)
{
    return (marker & infEnds) == infEnds;
}
/// The same stretch stands in the neighbouring day, too: before this one for a start marker, behind it for an
/// end marker.
constexpr bool goesOn(quint32 marker)
{
    return (marker & 1) != 0;
}

/// Reads one structure of type 1 or 2 from the bytes at hand; what they do not hold any more has the value of
/// a cleared InfType, the end text is the start text and the end marker 0.
InfType parseInf(const char* data, int length, int type);
/// The bytes of a structure of type 1. Texts that are too long are cut.
QByteArray encodeInf(const InfType& inf);

/// Where the structures of a file begin, by their markers, ascending.
QVector<int> findStructures(const QByteArray& bytes);

/// The bytes of an inf file. Not the file of a device or a pipe, which might never end.
enum class InfFile {
    Read,
    CannotOpen,
    Broken, // a fault on the way, or more than a day can bring about; the bytes are those that were read
};
InfFile readInfFile(const QFileInfo& path, QByteArray* bytes);

/// What came of reading one structure by its number.
enum class InfFault {
    None,
    NoStructure, // the file does not hold so many
    TooLong, // the next one begins too late: the end stands before the beginning
};
struct InfReading {
    InfType inf;
    InfFault fault = InfFault::None;
    /// 1 or 2; and the bytes up to the next structure or the end of the file.
    int type = 0;
    int length = 0;
};
/// Structure `number`, from 0, of the bytes of an inf file, whose structures begin at `begins`. Empty names
/// become "Ref" and "Meas".
InfReading readStructure(const QByteArray& bytes, const QVector<int>& begins, int number);

/// Tells the log of data behind those that the structures of a day name: a writer was stopped before its
/// structure. They do no harm. Data behind a stretch without an end are none of these.
void logUnnamed(const QVector<InfType>& structures, const QFileInfo& dat);

struct DatSample {
    qint32 mark; // s
    double value; // as stored
};
DatSample decodeSample(const char* data);
void appendSample(QByteArray* bytes, const DatSample& sample);

/// "yyMMdd_CC" and, for k above 0, "_(k)".
QString recordingName(const QDate& day, int number, int k = 0);
