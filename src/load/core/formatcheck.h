#pragma once

#include <QString>

/// The verdict on a template that the user is typing.
struct FormatVerdict {
    bool correct = false;
    /// For the log: "!number " or "!cmnt name " and the position of the closing bracket; empty for other
    /// faults.
    QString trace;
};

/// Checks the brackets, names and widths of a template, and that no letter or digit stands outside brackets.
/// It is stricter than the reader in names and widths, and does not look at the range of literals: the
/// reader refuses "\", "^", "_", "`", "{", "|", "}", "~" and the tab, which pass here.
FormatVerdict checkFormat(const QString& format);
