#pragma once

#include <QCoreApplication>
#include <QString>

/// What there is to say about a template.
enum class FormatReason {
    None,
    // It is refused:
    Empty,
    NoField,
    Brackets, // one without its counterpart, or inside another
    Width, // no whole number behind "_"
    Name, // none, or one that begins with neither letter nor digit
    Letter, // a letter or digit outside brackets
    Literal, // another character that the reader cannot carry: outside 0x20 to 0x58
    TooManyVariables,
    TooManySkipped,
    // It is accepted, but the user may not have meant it so:
    NoData, // no variable besides the time
    NoStop, // nothing stands between a field of free width and the next field
    WidthUnread, // the reader takes another width than the one written
};

/// The verdict on a template that the user is typing.
struct FormatVerdict {
    Q_DECLARE_TR_FUNCTIONS(FormatVerdict)
public:
    /// The reason in the user's words, in one or two sentences; empty for None.
    QString reasonText() const;

    bool correct = false;
    /// For the log: "!number " or "!cmnt name " and the position of the closing bracket; empty for other
    /// faults.
    QString trace;
    FormatReason reason = FormatReason::Empty;
    /// The field or the character that the reason is about, as the user is to read it.
    QString what;
    /// Letter and Literal: its place in the template, from 0. WidthUnread: the width taken, 0 for free.
    int number = 0;
    /// WidthUnread: how to write the field so that its width counts; empty when its name is too short.
    QString instead;
};

/// Checks the brackets, names and widths of a template, and that nothing stands outside brackets but what the
/// reader can carry. It is stricter than the reader, which takes letters up to "X" there, and any name.
FormatVerdict checkFormat(const QString& format);
