#include "load/core/formatfilereader.h"
#include "record/record.h"

#include <QByteArray>
#include <QFile>

#include <charconv>
#include <cmath>
#include <string>

namespace {

constexpr char lineEnd[] = "\r\n";

/// Appends a number as printf writes it, with a plain "nan" whatever its sign bit.
void appendNumber(std::string& text, double value, std::chars_format format, int decimals)
{
    char digits[400]; // the longest double in fixed form has 309 digits before the point
    const std::to_chars_result written = std::to_chars(
        digits, digits + sizeof digits, std::isnan(value) ? std::fabs(value) : value, format, decimals);
    text.append(digits, written.ptr);
}

void appendHeader(std::string& text, const Record& rec, const QString& countsLabel)
{
    const QString header = QLatin1Char('#') + rec.start.toString(QStringLiteral(" dd.MM.yy hh:mm:ss - "))
        + rec.stop.toString(QStringLiteral("dd.MM.yy hh:mm:ss")) + QLatin1String(lineEnd)
        + QStringLiteral("# Kdec=") + QString::number(rec.Kdec, 'g', 6) + QStringLiteral(" Channel№ = ")
        + QString::number(rec.ch) + QLatin1String(lineEnd) + QStringLiteral("# ") + rec.ref_sig
        + QStringLiteral(" - ") + rec.meas_sig + QLatin1String(lineEnd) + QStringLiteral("# ") + countsLabel
        + QString::number(rec.n_cnt) + QLatin1String(lineEnd);
    text += header.toStdString();
}

/// Puts the iterator on the first value; null when there is none.
const double* firstElement(doubleArray& array)
{
    array.resetIterator(0);
    return array.DayLengths.isEmpty() || array.DayLengths.constLast() <= 0 ? nullptr : &array[0];
}

const double* nextElement(doubleArray& array)
{
    bool ok = false;
    const double* const next = array.nextEl(ok);
    return ok ? next : nullptr;
}

void appendSamples(std::string& text, Record& rec)
{
    const double* t = firstElement(rec.t);
    const double* x = firstElement(rec.x);
    for (qint64 i = 0; i < rec.n_cnt && t && x; ++i) {
        appendNumber(text, *t, std::chars_format::fixed, 10);
        text += ' ';
        appendNumber(text, *x, std::chars_format::scientific, 16);
        text += lineEnd;
        t = nextElement(rec.t);
        x = nextElement(rec.x);
    }
}

} // namespace

std::string FormatFileReader::asciiText(Record* rec, const QStringList* comment, bool defaultHeader)
{
    std::string text;
    if (comment && !comment->isEmpty()) {
        for (const QString& line : *comment)
            text += line.toStdString() + lineEnd;
    } else if (defaultHeader) {
        appendHeader(text, *rec, tr("total number of counts "));
    }
    appendSamples(text, *rec);
    return text;
}

int FormatFileReader::SaveToASCII(Record* rec, QFile* file, QStringList* comment, bool defaultHeader)
{
    const std::string text = asciiText(rec, comment, defaultHeader);
    if (!file->open(QIODevice::WriteOnly))
        return 1;
    const bool whole = file->write(text.data(), qint64(text.size())) == qint64(text.size());
    file->close();
    return whole && file->error() == QFileDevice::NoError ? 0 : 1;
}
