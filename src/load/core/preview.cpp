#include "load/core/preview.h"

#include "load/core/bytetext.h"
#include "load/core/columnlines.h"
#include "load/core/linesource.h"
#include "load/core/linewalker.h"
#include "load/core/numbertext.h"
#include "load/core/plainlines.h"

#include <QDate>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>

namespace {

constexpr int longestText = 500; // characters
constexpr int mostBytes = 4; // of a character in UTF-8

/// How one line is shown: its text, and where a byte of it stands there.
class ShownLine {
public:
    ShownLine(const char* begin, const char* end)
        : m_begin(begin)
        , m_end(shownEnd(begin, end))
        , m_utf8(isUtf8(m_begin, m_end))
    {
        m_text = m_utf8 ? QString::fromUtf8(m_begin, int(m_end - m_begin)) : textFromBytes(m_begin, m_end);
        m_text.truncate(longestText);
        for (QChar& c : m_text) {
            if (c.category() == QChar::Other_Control)
                c = QLatin1Char(' ');
        }
    }

    const QString& text() const { return m_text; }

    /// Characters in front of a byte, all of them for one that is not shown.
    int place(const char* at) const
    {
        at = std::min(at, m_end);
        const int bytes = int(at - m_begin);
        return std::min(m_utf8 ? QString::fromUtf8(m_begin, bytes).size() : bytes, m_text.size());
    }

    /// Adds a field of these bytes, as far as it is shown.
    void add(PreviewLine& line, PreviewField field, FieldSpan span) const
    {
        field.begin = place(span.begin);
        field.length = place(span.end) - field.begin;
        if (field.length > 0)
            line.fields.append(field);
    }

private:
    /// The end of as many bytes as can be shown, with no character cut in two.
    static const char* shownEnd(const char* begin, const char* end)
    {
        while (end > begin && (end[-1] == '\r' || end[-1] == '\n'))
            --end;
        if (end - begin <= longestText * mostBytes)
            return end;
        end = begin + longestText * mostBytes;
        for (int i = 0; i < mostBytes - 1 && (uchar(*end) & 0xC0) == 0x80; ++i)
            --end;
        return end;
    }

    const char* m_begin;
    const char* m_end;
    bool m_utf8;
    QString m_text;
};

/// Shows how template fields lie in a line. The line is walked as LineWalker does it, which has the last word
/// on whether it is good.
class TemplateLook {
public:
    explicit TemplateLook(const FormatTemplate& format)
        : m_format(format)
        , m_walker(format)
        , m_row(std::size_t(format.variables.size()))
        , m_dataIndex(m_row.size())
    {
        int index = 0;
        for (const int variable : format.dataVariables())
            m_dataIndex[std::size_t(variable)] = index++;
    }

    void look(const char* begin, const char* end, PreviewLine& line);

private:
    void simplify(const char* begin, const char* end);
    bool cutSkipped(std::size_t& at, int& element, const ShownLine& shown, PreviewLine& line) const;
    bool cutVariable(std::size_t& at, int& element, const ShownLine& shown, PreviewLine& line) const;
    void cut(const ShownLine& shown, PreviewLine& line) const;
    FieldSpan span(std::size_t from, std::size_t to) const;

    FormatTemplate m_format;
    LineWalker m_walker;
    std::vector<double> m_row;
    std::vector<int> m_dataIndex; // by variable
    int m_bad = 0;
    std::vector<char> m_text; // the line as it is walked
    std::vector<const char*> m_places; // of its characters in the file
};

/// The characters that a template meets, and where each of them stands.
void TemplateLook::simplify(const char* begin, const char* end)
{
    const FieldSpan line = trimmedSpan({begin, end});
    m_text.clear();
    m_places.clear();
    for (const char* at = line.begin; at < line.end; ++at) {
        if (!m_format.positional && isWhite(*at)) {
            if (isWhite(m_text.back()))
                continue;
            m_text.push_back(' ');
        } else {
            m_text.push_back(*at);
        }
        m_places.push_back(at);
    }
}

/// Without the white space at both ends.
FieldSpan TemplateLook::span(std::size_t from, std::size_t to) const
{
    to = std::min(to, m_text.size());
    return from < to ? trimmedSpan({m_places[from], m_places[to - 1] + 1}) : FieldSpan();
}

bool TemplateLook::cutSkipped(std::size_t& at, int& element, const ShownLine& shown, PreviewLine& line) const
{
    const QByteArray& code = m_format.code;
    const int width = m_format.skipped.at(uchar(code.at(element)) - FormatTemplate::firstSkipped).width;
    const bool last = element == code.size() - 1;
    std::size_t end = m_text.size();
    bool goesOn = true;
    if (width > 0) {
        end = at + std::size_t(width);
        ++element;
    } else {
        const int stop = last ? FormatTemplate::firstSkipped : uchar(code.at(element + 1));
        const auto found = std::find_if(
            m_text.begin() + std::ptrdiff_t(at), m_text.end(), [stop](char c) { return uchar(c) == stop; });
        goesOn = stop < FormatTemplate::firstSkipped && found != m_text.end();
        end = goesOn ? std::size_t(found - m_text.begin()) : end;
        element += 2;
    }
    if (const FieldSpan field = span(at, end); field.begin)
        shown.add(line, {PreviewField::Skipped, 0, 0, 0, false}, field);
    at = width > 0 ? end : end + 1;
    return goesOn;
}

bool TemplateLook::cutVariable(std::size_t& at, int& element, const ShownLine& shown, PreviewLine& line) const
{
    const QByteArray& code = m_format.code;
    const int variable = uchar(code.at(element)) - FormatTemplate::firstVariable;
    const int width = m_format.positional ? 0 : m_format.variables.at(variable).width;
    const bool last = element == code.size() - 1;
    std::size_t end = m_text.size();
    if (width > 0) {
        end = at + std::size_t(width);
    } else if (!last) {
        const int stop = uchar(code.at(element + 1));
        if (stop < FormatTemplate::firstSkipped) {
            end = std::size_t(std::find_if(m_text.begin() + std::ptrdiff_t(at), m_text.end(), [stop](char c) {
                return uchar(c) == stop;
            }) - m_text.begin());
        }
    }
    const bool isTime = m_format.variables.at(variable).name == QLatin1String("t");
    PreviewField field{isTime ? PreviewField::Time : PreviewField::Data, 0, 0,
        isTime ? 0 : m_dataIndex[std::size_t(variable)], false};
    FieldSpan text = span(at, end);
    double value = 0.0;
    if (text.begin) {
        field.bad = !numberFromText(text.begin, text.end, value);
        const char* const wordEnd = std::find_if(text.begin, text.end, isWhite);
        if (field.bad && last && width == 0 && numberFromText(text.begin, wordEnd, value)) {
            field.bad = false; // surplus fields behind the last variable
            text.end = wordEnd;
        }
        field.bad = field.bad || (isTime && !std::isfinite(value));
        shown.add(line, field, text);
    }
    at = width > 0 ? end : end + 1;
    element += width > 0 ? 1 : 2;
    return text.begin && !field.bad;
}

void TemplateLook::cut(const ShownLine& shown, PreviewLine& line) const
{
    const QByteArray& code = m_format.code;
    std::size_t at = 0;
    for (int element = 0; at < m_text.size() && element < code.size();) {
        const int meaning = uchar(code.at(element));
        if (meaning >= FormatTemplate::firstVariable) {
            if (!cutVariable(at, element, shown, line))
                return;
        } else if (meaning >= FormatTemplate::firstSkipped) {
            if (!cutSkipped(at, element, shown, line))
                return;
        } else if (uchar(m_text[at]) != meaning) {
            return;
        } else {
            ++at;
            ++element;
        }
    }
}

void TemplateLook::look(const char* begin, const char* end, PreviewLine& line)
{
    const ShownLine shown(begin, end);
    line.text = shown.text();
    if (!countsAsLine(begin, end)) {
        line.kind = PreviewLine::PassedOver;
        return;
    }
    simplify(begin, end);
    cut(shown, line);
    m_text.assign(begin, end); // the walk may rewrite it
    const LineWalker::Outcome outcome =
        m_walker.walk(m_text.data(), m_text.data() + m_text.size(), m_bad, m_row.data());
    m_bad += outcome.bad ? 1 : 0;
    const int time = m_format.timeVariable();
    const bool noTime = time >= 0 && !std::isfinite(m_row[std::size_t(time)]);
    line.kind = outcome.bad || noTime ? PreviewLine::Bad : PreviewLine::Good;
}

/// Shows how the columns lie in a line.
void lookAtColumns(ColumnLines& columns, const char* begin, const char* end, PreviewLine& line)
{
    const ShownLine shown(begin, end);
    line.text = shown.text();
    const ColumnLines::Outcome outcome = columns.read(begin, end);
    bool sample = false;
    for (int i = 0; i < columns.dataColumns() && outcome == ColumnLines::Outcome::Timed; ++i)
        sample = sample || columns.hasValue(i);
    line.kind = sample ? PreviewLine::Good : PreviewLine::Bad;
    if (outcome == ColumnLines::Outcome::Blank) {
        line.kind = PreviewLine::PassedOver;
        return;
    }
    std::vector<FieldSpan> fields;
    const int count = columns.cutter().cut(trimmedSpan({begin, end}), longestText, fields);
    for (int column = 0; column < count; ++column) {
        const FieldSpan span = fields[std::size_t(column)];
        PreviewField field;
        field.index = std::max(columns.dataIndex(column), 0);
        field.kind = columns.isTimeColumn(column) ? PreviewField::Time
            : columns.isDateColumn(column)        ? PreviewField::DateTime
            : columns.dataIndex(column) >= 0      ? PreviewField::Data
                                                  : PreviewField::Skipped;
        field.bad = field.kind != PreviewField::Skipped && !columns.isReadable(column, span);
        shown.add(line, field, span);
    }
}

/// The first lines of a file, each looked at in turn.
Preview previewLinesOf(const QString& file, int most,
    const std::function<void(const char* begin, const char* end, PreviewLine& line)>& look)
{
    Preview preview;
    LineSource source(file);
    if (!source.open()) {
        preview.error = source.error();
        return preview;
    }
    char* begin = nullptr;
    char* end = nullptr;
    while (!preview.more && source.next(begin, end)) {
        while (begin < end && !preview.more) {
            preview.more = preview.lines.size() >= most;
            if (preview.more)
                break;
            char* const behind = lineEnd(begin, end);
            PreviewLine line;
            line.number = preview.lines.size() + 1;
            look(begin, behind, line);
            preview.lines.append(line);
            begin = behind < end ? behind + 1 : end;
        }
    }
    if (source.failed())
        preview.error = source.error();
    return preview;
}

Preview faultyFormat()
{
    Preview preview;
    preview.formatFault = true;
    return preview;
}

int linesOf(const Preview& preview, PreviewLine::Kind kind)
{
    return int(std::count_if(preview.lines.begin(), preview.lines.end(),
        [kind](const PreviewLine& line) { return line.kind == kind; }));
}

} // namespace

int Preview::goodLines() const
{
    return linesOf(*this, PreviewLine::Good);
}

int Preview::badLines() const
{
    return linesOf(*this, PreviewLine::Bad);
}

Preview previewTemplate(const QString& file, const QString& format, int lines)
{
    const FormatTemplate compiled = compileTemplate(format);
    if (compiled.fault != TemplateFault::None)
        return faultyFormat();
    TemplateLook look(compiled);
    return previewLinesOf(file, lines,
        [&look](const char* begin, const char* end, PreviewLine& line) { look.look(begin, end, line); });
}

Preview previewColumns(const QString& file, const ReadFormat& format, int lines)
{
    ColumnLines columns(format, QDate::currentDate());
    if (!columns.isUsable())
        return faultyFormat();
    return previewLinesOf(file, lines, [&columns](const char* begin, const char* end, PreviewLine& line) {
        if (line.number > columns.linesToSkip()) {
            lookAtColumns(columns, begin, end, line);
            return;
        }
        line.text = ShownLine(begin, end).text();
        line.kind = PreviewLine::PassedOver;
    });
}
