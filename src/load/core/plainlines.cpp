#include "load/core/plainlines.h"

#include "load/core/numbertext.h"

#include <algorithm>
#include <cstring>

bool countsAsLine(const char* begin, const char* end)
{
    if (begin < end && *begin == '#')
        return false;
    while (begin < end && isWhite(*begin))
        ++begin;
    return begin < end;
}

char* lineEnd(char* begin, char* end)
{
    void* const found = std::memchr(begin, '\n', size_t(end - begin));
    return found ? static_cast<char*>(found) : end;
}

PlainLines::PlainLines(const FormatTemplate& format)
    : m_walker(format)
    , m_values(size_t(format.variables.size()))
{
}

void PlainLines::read(char* begin, char* end)
{
    m_lines = 0;
    m_textLines = 0;
    m_numbering.clear();
    m_begin = begin;
    m_end = end;
    double row[FormatTemplate::maxVariables];
    while (begin < end) {
        char* const behind = lineEnd(begin, end);
        if (countsAsLine(begin, behind)) {
            if (!m_walker.tryFast(begin, behind, row))
                break;
            const qint64 offset = m_textLines + 1 - m_lines;
            if (m_numbering.empty() || m_numbering.back().offset != offset)
                m_numbering.push_back({m_lines, offset});
            store(row);
        }
        ++m_textLines;
        begin = behind < end ? behind + 1 : end;
    }
    m_rest = begin;
}

void PlainLines::store(const double* row)
{
    if (m_lines == m_room) {
        m_room = std::max(1024, 2 * m_room);
        for (size_t i = 0; i < m_values.size(); ++i) {
            m_values[i].resize(size_t(m_room));
            m_columns[i] = m_values[i].data();
        }
    }
    for (size_t i = 0; i < m_values.size(); ++i)
        m_columns[i][m_lines] = row[i];
    ++m_lines;
}
