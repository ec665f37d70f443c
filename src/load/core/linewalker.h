#pragma once

#include "load/core/formattemplate.h"

#include <QVector>

/// Cuts one line by a compiled template.
class LineWalker {
public:
    /// What a line had; the texts go to the log in this order.
    struct Outcome {
        bool bad = false;
        int logCount = 0;
        const char* log[2] = {nullptr, nullptr};
    };

    /// Bad lines after which no free-width field in front of others is converted any more.
    static constexpr int mostBadLines = 200;

    explicit LineWalker(const FormatTemplate& format);

    /// The whole rule set, for a line that is not blank. It may rewrite the line's characters. `row` gets one
    /// value for each variable: NaN where the walk did not come, 0 where a conversion failed. `badBefore` is
    /// the number of bad lines up to here.
    Outcome walk(char* begin, char* end, int badBefore, double* row) const;

    /// A short cut for plain lines, of which `row` then is the same as by walk() and the line is good. False
    /// when the line needs walk(); `row` may then have been written. Valid up to mostBadLines bad lines.
    bool tryFast(const char* begin, const char* end, double* row);

private:
    struct Walk;
    void skipField(Walk& w) const;
    void fixedField(Walk& w, int width) const;
    void freeField(Walk& w) const;
    void storeFailure(Walk& w) const;
    bool fastSkip(const char*& at, const char* end, int code) const;

    FormatTemplate m_format;
    QVector<int> m_widths; // of the variables, as they hold for this template
    bool m_fastPossible = false;
    bool m_manyDigits[FormatTemplate::maxVariables] = {}; // see readPlainNumber
};
