#pragma once

#include "load/core/linewalker.h"

#include <QtGlobal>

#include <vector>

/// A line counts unless it is blank or its very first byte is "#".
bool countsAsLine(const char* begin, const char* end);

/// The end of the line that starts at `begin`: the next byte 10, or `end`.
char* lineEnd(char* begin, char* end);

/// The plain lines at the start of a stretch of text: those up to the first one that needs the whole rule
/// set. Several stretches are read side by side. The object is made once and used for many of them.
class PlainLines {
public:
    /// From line `index` on, the number of the line in the text, from 1, is the index plus `offset`. Both
    /// count within the stretch.
    struct Numbering {
        int index;
        qint64 offset;
    };

    explicit PlainLines(const FormatTemplate& format);

    /// Reads whole lines from begin up to end; the last one may lack its line end.
    void read(char* begin, char* end);

    /// Lines that count.
    int lines() const { return m_lines; }
    /// As many values of a variable as there are lines.
    const double* values(int variable) const { return m_values[size_t(variable)].data(); }
    /// All lines read, those that do not count too.
    qint64 textLines() const { return m_textLines; }
    const std::vector<Numbering>& numbering() const { return m_numbering; }
    char* begin() const { return m_begin; }
    /// Where the reading ended: at the line that is not plain, or at the end.
    char* rest() const { return m_rest; }
    char* end() const { return m_end; }

private:
    void store(const double* row);

    LineWalker m_walker;
    std::vector<std::vector<double>> m_values;
    double* m_columns[FormatTemplate::maxVariables] = {}; // where these stand
    int m_room = 0; // lines that they can take
    std::vector<Numbering> m_numbering;
    int m_lines = 0;
    qint64 m_textLines = 0;
    char* m_begin = nullptr;
    char* m_rest = nullptr;
    char* m_end = nullptr;
};
