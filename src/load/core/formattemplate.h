#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

// A format template tells how a line of a text file is cut into numbers:
//
//   [name]     variable, up to the next character of the template or to the end of the line
//   [name_N]   variable of the next N characters
//   <name>     skipped, up to and including the next character of the template
//   <name_N>   the next N characters are skipped
//   other      the line must hold this character
//
// The variable "t" is the time column, all other variables are data. Without a "_" there is no width: "<20>"
// skips up to the next character of the template.

/// Why a template cannot be used.
enum class TemplateFault {
    None,
    NoVariable,
    TooManyVariables, // more than 56
    TooManySkipped, // more than 100
    Brackets, // one without its counterpart, or inside another
    Literal, // a character outside 0x20 to 0x58, or a closing bracket on its own
};

struct TemplateField {
    QString name;
    int width = 0; // characters; 0 for free width
};

/// A compiled template.
struct FormatTemplate {
    static constexpr int maxVariables = 56;
    static constexpr int maxSkipped = 100;
    static constexpr int firstSkipped = 100; // byte of skipped field 0
    static constexpr int firstVariable = 200; // byte of variable 0

    QString text;
    TemplateFault fault = TemplateFault::NoVariable;
    QVector<TemplateField> variables;
    QVector<TemplateField> skipped;
    /// One byte for each element: firstSkipped + j, firstVariable + i, or a literal's own code. Empty with a
    /// fault.
    QByteArray code;
    /// A skipped field has a fixed width: lines are cut by position, and all variables count as free.
    bool positional = false;

    /// Index of the first variable named "t", or -1.
    int timeVariable() const;
    /// Indices of the variables that are not named "t".
    QVector<int> dataVariables() const;
};

/// Whether a template can carry this character outside brackets.
bool isLiteral(QChar c);

FormatTemplate compileTemplate(const QString& format);

/// Names of the data variables of a template, in its order; empty for one that cannot be used.
QStringList dataNames(const QString& format);
