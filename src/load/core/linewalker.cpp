#include "load/core/linewalker.h"

#include "load/core/numbertext.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

constexpr char fieldFault[] = "ошибка!! несоответствие формата строки !!!!"; // verbatim
constexpr char literalFault[] = "ошибка!! несоответствие формата строки!!!!"; // verbatim
constexpr char stopFault[] = "оши!!"; // verbatim

void trim(char*& begin, char*& end)
{
    while (begin < end && isWhite(*begin))
        ++begin;
    while (end > begin && isWhite(end[-1]))
        --end;
}

/// Turns every run of white space into one blank, in place, and gives the new end. The line must be trimmed.
char* simplify(char* begin, char* end)
{
    char* to = begin;
    for (const char* from = begin; from < end; ++from) {
        if (!isWhite(*from))
            *to++ = *from;
        else if (!isWhite(to[-1])) // a trimmed line starts with ink
            *to++ = ' ';
    }
    return to;
}

/// A stop character that cannot be part of a number, so that the number ends where std::from_chars ends.
bool stopsNumbers(int code)
{
    const bool letter = (code | 0x20) >= 'a' && (code | 0x20) <= 'z';
    return code < FormatTemplate::firstSkipped && !letter && !isDigit(char(code))
        && !std::strchr("+-.", code);
}

} // namespace

struct LineWalker::Walk {
    char* begin;
    qint64 length;
    qint64 at; // in the line
    int element; // in the template
    int badBefore;
    double* row;
    Outcome outcome;
    bool stopped;

    void fault(const char* text)
    {
        outcome.bad = true;
        if (outcome.logCount < 2)
            outcome.log[outcome.logCount++] = text;
    }
};

LineWalker::LineWalker(const FormatTemplate& format)
    : m_format(format)
{
    const QByteArray& code = m_format.code;
    m_fastPossible = !m_format.positional;
    for (const TemplateField& field : m_format.variables) {
        m_widths.append(m_format.positional ? 0 : field.width);
        m_fastPossible = m_fastPossible && field.width == 0;
    }
    for (int i = 0; i + 1 < code.size(); ++i) {
        const int element = uchar(code.at(i)), following = uchar(code.at(i + 1));
        if (element >= FormatTemplate::firstVariable)
            m_fastPossible = m_fastPossible && stopsNumbers(following);
        else if (element >= FormatTemplate::firstSkipped)
            m_fastPossible = m_fastPossible && following < FormatTemplate::firstSkipped;
    }
}

LineWalker::Outcome LineWalker::walk(char* begin, char* end, int badBefore, double* row) const
{
    std::fill_n(row, m_widths.size(), std::numeric_limits<double>::quiet_NaN());
    trim(begin, end);
    if (!m_format.positional)
        end = simplify(begin, end);
    Walk w{begin, end - begin, 0, 0, badBefore, row, Outcome(), false};
    const int elements = m_format.code.size();
    while (!w.stopped && w.at < w.length && w.element < elements) {
        const int code = uchar(m_format.code.at(w.element));
        if (code >= FormatTemplate::firstVariable) {
            const int width = m_widths.at(code - FormatTemplate::firstVariable);
            if (width > 0)
                fixedField(w, width);
            else
                freeField(w);
        } else if (code >= FormatTemplate::firstSkipped) {
            skipField(w);
        } else if (uchar(begin[w.at]) == code) {
            ++w.at;
            ++w.element;
        } else {
            w.fault(literalFault);
            w.stopped = true;
        }
    }
    if (w.element < elements - 1) // a line may end one element short
        w.outcome.bad = true;
    return w.outcome;
}

void LineWalker::skipField(Walk& w) const
{
    const int width =
        m_format.skipped.at(uchar(m_format.code.at(w.element)) - FormatTemplate::firstSkipped).width;
    if (width > 0) {
        w.at += width;
        ++w.element;
        return;
    }
    w.stopped = true;
    if (w.element == m_format.code.size() - 1)
        return;
    // A field as the next element is no character that a line could hold.
    const int stop = uchar(m_format.code.at(w.element + 1));
    if (stop >= FormatTemplate::firstSkipped)
        return;
    const void* const found = std::memchr(w.begin + w.at, stop, std::size_t(w.length - w.at));
    if (!found)
        return;
    w.at = static_cast<const char*>(found) - w.begin + 1;
    w.element += 2;
    w.stopped = false;
}

void LineWalker::storeFailure(Walk& w) const
{
    w.row[uchar(m_format.code.at(w.element)) - FormatTemplate::firstVariable] = 0.0;
    w.fault(fieldFault);
    w.stopped = true;
}

void LineWalker::fixedField(Walk& w, int width) const
{
    char* begin = w.begin + w.at;
    char* end = w.begin + std::min(w.at + width, w.length);
    trim(begin, end);
    double value = 0.0;
    if (!numberFromText(begin, end, value)) {
        storeFailure(w);
        return;
    }
    w.row[uchar(m_format.code.at(w.element)) - FormatTemplate::firstVariable] = value;
    w.at += width;
    ++w.element;
}

void LineWalker::freeField(Walk& w) const
{
    const bool last = w.element == m_format.code.size() - 1;
    char* begin = w.begin + w.at;
    char* end = w.begin + w.length;
    if (!last) {
        const int stop = uchar(m_format.code.at(w.element + 1));
        void* const found = stop < FormatTemplate::firstSkipped
            ? std::memchr(begin, stop, std::size_t(end - begin))
            : nullptr;
        if (found)
            end = static_cast<char*>(found);
        else
            w.fault(stopFault);
        // deliberate: a file with this many bad lines gives no further sample
        if (w.badBefore + (w.outcome.bad ? 1 : 0) > mostBadLines) {
            w.stopped = true;
            return;
        }
    }
    const qint64 behind = end - w.begin;
    trim(begin, end);
    double value = 0.0;
    bool converted = numberFromText(begin, end, value);
    if (!converted && last) // surplus fields behind the last variable
        converted = numberFromText(begin, std::find_if(begin, end, isWhite), value);
    if (!converted) {
        storeFailure(w);
        return;
    }
    w.row[uchar(m_format.code.at(w.element)) - FormatTemplate::firstVariable] = value;
    w.at = behind + 1;
    w.element += 2;
}

// A skipped field of free width that is not the template's last element. Only text without white space is
// passed.
bool LineWalker::fastSkip(const char*& at, const char* end, int code) const
{
    while (at < end && uchar(*at) != code && !isWhite(*at))
        ++at;
    return at < end && (uchar(*at) == code || (code == ' ' && isWhite(*at)));
}

bool LineWalker::tryFast(const char* at, const char* end, double* row)
{
    if (!m_fastPossible)
        return false;
    while (end > at && isWhite(end[-1]))
        --end;
    while (at < end && isWhite(*at))
        ++at;
    const char* code = m_format.code.constData();
    const char* const codeEnd = code + m_format.code.size();
    while (code < codeEnd) {
        const int element = uchar(*code++);
        int stop = element; // the character to be passed behind the field; a literal is a field without text
        if (element >= FormatTemplate::firstSkipped) {
            if (element >= FormatTemplate::firstVariable) {
                const int variable = element - FormatTemplate::firstVariable;
                const bool comma = code == codeEnd || *code != ',';
                at = readPlainNumber(at, end, comma, m_manyDigits[variable], row[variable]);
                if (!at)
                    return false;
                if (code == codeEnd)
                    return at == end || isWhite(*at);
            } else {
                if (code == codeEnd)
                    return at < end;
                if (!fastSkip(at, end, uchar(*code)))
                    return false;
            }
            stop = uchar(*code++);
        }
        // A run of white space stands for one blank.
        if (at >= end || (stop == ' ' ? !isWhite(*at) : uchar(*at) != stop))
            return false;
        ++at;
        while (stop == ' ' && at < end && isWhite(*at))
            ++at;
    }
    return true;
}
