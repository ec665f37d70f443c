#include "load/core/formatfilereader.h"

#include "base/debuglog.h"
#include "load/core/linesource.h"
#include "load/core/linewalker.h"
#include "load/core/numbertext.h"

#include <QByteArray>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr qint64 mostLogLines = 200; // a file
constexpr qint64 firstRoom = 1024; // lines
constexpr int mostLines = std::numeric_limits<int>::max() - 1;

/// A line counts unless it is blank or its very first byte is "#".
bool countsAsLine(const char* begin, const char* end)
{
    if (begin < end && *begin == '#')
        return false;
    while (begin < end && isWhite(*begin))
        ++begin;
    return begin < end;
}

/// Room for the whole file as the part read so far suggests, with some to spare, but no more than it can
/// need.
qint64 guessRoom(qint64 lines, const LineSource& source)
{
    const qint64 left = std::max<qint64>(source.size() - source.consumed(), 0);
    const double share = double(source.consumed()) / double(std::max<qint64>(source.size(), 1));
    const qint64 guess = share > 0.0 ? qint64(double(lines) / share * 1.02) : 0;
    const qint64 largest = lines + left / 2 + firstRoom; // a line has a character and an end
    return std::min(std::max(guess, lines + lines / 4) + firstRoom, std::max(largest, lines + firstRoom));
}

} // namespace

void FormatFileReader::FreeMemory::operator()(double* memory) const
{
    std::free(memory);
}

FormatFileReader::FormatFileReader(QString format)
{
    setNewFormat(format);
}

FormatFileReader::~FormatFileReader() = default;

void FormatFileReader::setNewFormat(QString format)
{
    dropData();
    m_status = Status::NotRead;
    m_systemError.clear();
    m_format = compileTemplate(format);
}

int FormatFileReader::NumOfVars(QString format)
{
    return format.count(QLatin1Char('['));
}

void FormatFileReader::dropData()
{
    m_table.clear();
    m_columns.clear();
    m_room = 0;
    m_lines = 0;
    m_bad.clear();
    m_numbering.clear();
    m_faults = 0;
}

// The system moves large blocks by their pages, so that growing neither copies nor needs the memory twice.
void FormatFileReader::resizeColumns(qint64 lines)
{
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        void* const memory =
            std::realloc(m_columns[i].get(), std::size_t(std::max<qint64>(lines, 1)) * sizeof(double));
        if (!memory)
            throw std::bad_alloc();
        static_cast<void>(m_columns[i].release());
        m_columns[i].reset(static_cast<double*>(memory));
        m_table[i] = m_columns[i].get();
    }
    m_room = lines;
}

QList<int> FormatFileReader::ParseTheFile(QString fileName, double*** data, int& lines)
{
    dropData();
    m_systemError.clear();
    if (m_format.fault != TemplateFault::None) {
        m_status = Status::TemplateRefused;
        *data = nullptr;
        lines = 0;
        return {};
    }
    LineSource source(fileName);
    source.setProgress(m_progress);
    if (!source.open()) {
        m_status = Status::CannotOpen;
        m_systemError = source.error();
        return {};
    }
    try {
        m_status = parseLines(source);
    } catch (...) {
        dropData();
        m_status = Status::NotRead;
        throw;
    }
    if (m_faults > mostLogLines)
        DebugLOG(qPrintable(QStringLiteral("... and %1 more").arg(m_faults - mostLogLines)));
    if (m_status != Status::Parsed && m_status != Status::NoLines) {
        m_systemError = source.error();
        dropData();
    }
    *data = m_table.data();
    lines = m_lines;
    return m_bad;
}

FormatFileReader::Status FormatFileReader::parseLines(LineSource& source)
{
    m_columns.resize(std::size_t(m_format.variables.size()));
    m_table.resize(m_columns.size());
    LineWalker walker(m_format);
    double row[FormatTemplate::maxVariables];
    qint64 fileLine = 0;
    qint64 offset = 0; // of fileLine to the index of the line
    char* begin = nullptr;
    char* end = nullptr;
    while (source.next(begin, end)) {
        ++fileLine;
        if (!countsAsLine(begin, end))
            continue;
        if (m_lines == m_room) {
            if (m_lines == mostLines)
                return Status::TooLong;
            resizeColumns(std::min<qint64>(guessRoom(m_lines, source), mostLines));
        }
        if (fileLine - m_lines != offset) {
            offset = fileLine - m_lines;
            m_numbering.push_back({m_lines, offset});
        }
        if (!parseLine(walker, begin, end, row))
            m_bad.append(m_lines);
        for (std::size_t i = 0; i < m_table.size(); ++i)
            m_table[i][m_lines] = row[i];
        ++m_lines;
    }
    if (source.cancelled())
        return Status::Cancelled;
    if (source.failed())
        return Status::ReadError;
    resizeColumns(qint64(m_lines) + 1);
    return m_lines > 0 ? Status::Parsed : Status::NoLines;
}

bool FormatFileReader::parseLine(LineWalker& walker, char* begin, char* end, double* row)
{
    if (m_bad.size() <= LineWalker::mostBadLines && walker.tryFast(begin, end, row))
        return true;
    const LineWalker::Outcome outcome = walker.walk(begin, end, m_bad.size(), row);
    for (int i = 0; i < outcome.logCount; ++i)
        logFault(outcome.log[i]);
    return !outcome.bad;
}

// A binary file would write a log as large as itself.
void FormatFileReader::logFault(const char* text)
{
    if (++m_faults <= mostLogLines)
        DebugLOG(text);
}

qint64 FormatFileReader::fileLine(int index) const
{
    const auto behind = std::upper_bound(m_numbering.begin(), m_numbering.end(), index,
        [](int wanted, const Numbering& entry) { return wanted < entry.index; });
    return behind == m_numbering.begin() ? 0 : index + std::prev(behind)->offset;
}
