#include "base/wholefile.h"
#include "load/core/formatfilereader.h"
#include "record/record.h"

#include <QByteArray>
#include <QFile>
#include <QSaveFile>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <functional>
#include <string>

namespace {

using Progress = std::function<bool(double)>;

constexpr char lineEnd[] = "\r\n";
constexpr int samplesPerStep = 50000; // about two megabytes of text
constexpr std::size_t usualLine = 48; // bytes; only extreme times make longer lines

/// Appends a number as printf writes it, with a plain "nan" whatever its sign bit.
void appendNumber(std::string& text, double value, std::chars_format format, int decimals)
{
    char digits[400]; // the longest double in fixed form has 309 digits before the point
    const std::to_chars_result written = std::to_chars(
        digits, digits + sizeof digits, std::isnan(value) ? std::fabs(value) : value, format, decimals);
    text.append(digits, written.ptr);
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

/// False when the progress has stopped it.
bool appendSamples(std::string& text, Record& rec, const Progress& progress)
{
    const double* t = firstElement(rec.t);
    const double* x = firstElement(rec.x);
    for (qint64 i = 0; i < rec.n_cnt && t && x; ++i) {
        if (progress && i % samplesPerStep == 0 && !progress(double(i) / double(rec.n_cnt)))
            return false;
        appendNumber(text, *t, std::chars_format::fixed, 10);
        text += ' ';
        appendNumber(text, *x, std::chars_format::scientific, 16);
        text += lineEnd;
        t = nextElement(rec.t);
        x = nextElement(rec.x);
    }
    return !progress || progress(1.0);
}

bool compose(
    std::string& text, Record& rec, const QStringList* comment, bool defaultHeader, const Progress& progress)
{
    // Without it the text would be moved as it grows, and take twice its size.
    text.reserve(std::size_t(qMax<qint64>(0, qMin<qint64>(rec.n_cnt, rec.t.count))) * usualLine);
    QStringList header;
    if (comment && !comment->isEmpty())
        header = *comment;
    else if (defaultHeader)
        header = FormatFileReader::defaultHeader(rec, false);
    for (const QString& line : header)
        text += line.toStdString() + lineEnd;
    return appendSamples(text, rec, progress);
}

} // namespace

QStringList FormatFileReader::defaultHeader(const Record& rec, bool withBand)
{
    const QString band = withBand ? QStringLiteral(" Band = ") + QString::number(rec.Band) : QString();
    return {
        QLatin1Char('#') + rec.start.toString(QStringLiteral(" dd.MM.yy hh:mm:ss - "))
            + rec.stop.toString(QStringLiteral("dd.MM.yy hh:mm:ss")),
        QStringLiteral("# Kdec=") + QString::number(rec.Kdec, 'g', 6) + band + QStringLiteral(" Channel№ = ")
            + QString::number(rec.ch),
        QStringLiteral("# ") + rec.ref_sig + QStringLiteral(" - ") + rec.meas_sig,
        QStringLiteral("# ") + tr("total number of counts ") + QString::number(rec.n_cnt),
    };
}

std::string FormatFileReader::asciiText(Record* rec, const QStringList* comment, bool defaultHeader)
{
    std::string text;
    compose(text, *rec, comment, defaultHeader, {});
    return text;
}

int FormatFileReader::SaveToASCII(Record* rec, QFile* file, QStringList* comment, bool defaultHeader)
{
    std::string text;
    if (!compose(text, *rec, comment, defaultHeader, m_progress) || !file->open(QIODevice::WriteOnly))
        return 1;
    const bool whole = writeWhole(file, text.data(), qint64(text.size()));
    file->close();
    return whole && file->error() == QFileDevice::NoError ? 0 : 1;
}

int FormatFileReader::SaveToASCII(Record* rec, QSaveFile* file, QStringList* comment, bool defaultHeader)
{
    std::string text;
    return compose(text, *rec, comment, defaultHeader, m_progress) && openToReplace(file)
            && writeWhole(file, text.data(), qint64(text.size())) && file->commit()
        ? 0
        : 1;
}
