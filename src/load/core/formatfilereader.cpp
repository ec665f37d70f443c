#include "load/core/formatfilereader.h"

#include "base/debuglog.h"
#include "base/largepages.h"
#include "load/core/linesource.h"
#include "load/core/linewalker.h"
#include "load/core/plainlines.h"

#include <QByteArray>

#include <algorithm>
#include <cstdlib>
#include <future>
#include <limits>
#include <new>
#include <numeric>
#include <thread>
#include <utility>

namespace {

constexpr qint64 mostLogLines = 200; // a file
constexpr qint64 firstRoom = 1024; // lines
constexpr unsigned mostStretches = 8; // read side by side
constexpr int mostLines = std::numeric_limits<int>::max() - 1;

/// Cuts whole lines into as many stretches of about equal size; the later ones may be empty.
std::vector<char*> cutStretches(char* begin, char* end, size_t count)
{
    std::vector<char*> borders{begin};
    for (size_t i = 1; i < count; ++i) {
        char* const wanted = begin + size_t(end - begin) / count * i;
        char* const border = lineEnd(std::max(wanted, borders.back()), end);
        borders.push_back(border < end ? border + 1 : end);
    }
    borders.push_back(end);
    return borders;
}

/// Room for the whole file as the part taken so far suggests, with some to spare, but no more than it can
/// need.
qint64 guessRoom(qint64 lines, qint64 taken, qint64 size)
{
    const qint64 left = std::max<qint64>(size - taken, 0);
    const double share = double(taken) / double(std::max<qint64>(size, 1));
    const qint64 guess = share > 0.0 ? qint64(double(lines) / share * 1.02) : 0;
    const qint64 largest = lines + left / 2 + firstRoom; // a line has a character and an end
    return std::min(std::max(guess, lines + lines / 4) + firstRoom, std::max(largest, lines + firstRoom));
}

} // namespace

/// The stretches of one block of text, which are read side by side.
class FormatFileReader::PlainBlock {
public:
    PlainBlock(const FormatTemplate& format, size_t count)
        : m_stretches(count, PlainLines(format))
    {
    }

    /// `consumed`: bytes of the file up to `end`.
    void start(char* begin, char* end, qint64 consumed)
    {
        m_consumed = consumed;
        const std::vector<char*> borders = cutStretches(begin, end, m_stretches.size());
        for (size_t i = 0; i < m_stretches.size(); ++i) {
            // Without a policy, so that it is done in wait() where the system gives no more threads.
            m_reading.push_back(std::async([&stretch = m_stretches[i], from = borders[i],
                                               to = borders[i + 1]] { stretch.read(from, to); }));
        }
    }

    const std::vector<PlainLines>& wait()
    {
        for (std::future<void>& reading : std::exchange(m_reading, {}))
            reading.get();
        return m_stretches;
    }

    qint64 consumed() const { return m_consumed; }

private:
    std::vector<PlainLines> m_stretches;
    qint64 m_consumed = 0;
    std::vector<std::future<void>> m_reading; // declared last: destroyed first, and waits
};

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
    m_shared.clear();
    m_room = 0;
    m_lines = 0;
    m_fileLines = 0;
    m_bad.clear();
    m_numbering.clear();
    m_faults = 0;
}

// Growing may copy, and need the memory twice; the guess of the room keeps it from happening often.
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
        preferLargePages(memory, std::size_t(lines) * sizeof(double));
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
        m_status = parseBlocks(source);
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

FormatFileReader::Status FormatFileReader::parseBlocks(LineSource& source)
{
    m_columns.resize(std::size_t(m_format.variables.size()));
    m_table.resize(m_columns.size());
    m_fileSize = source.size();
    LineWalker walker(m_format);
    const size_t count = std::clamp(std::thread::hardware_concurrency(), 1u, mostStretches);
    PlainBlock blocks[2] = {{m_format, count}, {m_format, count}};
    char* begin = nullptr;
    char* end = nullptr;
    bool more = source.next(begin, end);
    // While a block is being looked at, the one before it is taken over and the next one read.
    for (int at = 0; more; at = 1 - at) {
        blocks[at].start(begin, end, source.consumed());
        if (!takeBlock(blocks[1 - at], walker))
            return Status::TooLong;
        more = source.next(begin, end);
        if (!more && !takeBlock(blocks[at], walker))
            return Status::TooLong;
    }
    if (source.cancelled())
        return Status::Cancelled;
    if (source.failed())
        return Status::ReadError;
    resizeColumns(qint64(m_lines) + 1);
    for (Column& column : m_columns)
        m_shared.emplace_back(std::move(column));
    return m_lines > 0 ? Status::Parsed : Status::NoLines;
}

bool FormatFileReader::takeBlock(PlainBlock& block, LineWalker& walker)
{
    m_taken = block.consumed();
    const std::vector<PlainLines>& stretches = block.wait();
    const qint64 lines = std::accumulate(stretches.begin(), stretches.end(), qint64(0),
        [](qint64 sum, const PlainLines& plain) { return sum + plain.lines(); });
    if (!makeRoom(lines))
        return false;
    for (const PlainLines& plain : stretches) {
        // With too many bad lines the short cut holds no longer.
        const bool whole = m_bad.size() > LineWalker::mostBadLines;
        if (!whole && !takePlain(plain))
            return false;
        if (!parseLines(whole ? plain.begin() : plain.rest(), plain.end(), walker))
            return false;
    }
    return true;
}

bool FormatFileReader::makeRoom(qint64 lines)
{
    if (m_lines + lines > mostLines)
        return false;
    if (m_lines + lines > m_room)
        resizeColumns(std::min<qint64>(guessRoom(m_lines + lines, m_taken, m_fileSize), mostLines));
    return true;
}

void FormatFileReader::number(int index, qint64 offset)
{
    if (m_numbering.empty() || m_numbering.back().offset != offset)
        m_numbering.push_back({index, offset});
}

bool FormatFileReader::takePlain(const PlainLines& plain)
{
    if (!makeRoom(plain.lines()))
        return false;
    for (const PlainLines::Numbering& entry : plain.numbering())
        number(m_lines + entry.index, m_fileLines - m_lines + entry.offset);
    for (std::size_t i = 0; i < m_table.size(); ++i)
        std::copy_n(plain.values(int(i)), plain.lines(), m_table[i] + m_lines);
    m_lines += plain.lines();
    m_fileLines += plain.textLines();
    return true;
}

bool FormatFileReader::parseLines(char* begin, char* end, LineWalker& walker)
{
    double row[FormatTemplate::maxVariables];
    while (begin < end) {
        char* const behind = lineEnd(begin, end);
        ++m_fileLines;
        if (countsAsLine(begin, behind)) {
            if (!makeRoom(1))
                return false;
            number(m_lines, m_fileLines - m_lines);
            if (!parseLine(walker, begin, behind, row))
                m_bad.append(m_lines);
            for (std::size_t i = 0; i < m_table.size(); ++i)
                m_table[i][m_lines] = row[i];
            ++m_lines;
        }
        begin = behind < end ? behind + 1 : end;
    }
    return true;
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

std::shared_ptr<double[]> FormatFileReader::column(int variable) const
{
    return size_t(variable) < m_shared.size() ? m_shared[size_t(variable)] : nullptr;
}

qint64 FormatFileReader::fileLine(int index) const
{
    const auto behind = std::upper_bound(m_numbering.begin(), m_numbering.end(), index,
        [](int wanted, const Numbering& entry) { return wanted < entry.index; });
    return behind == m_numbering.begin() ? 0 : index + std::prev(behind)->offset;
}
