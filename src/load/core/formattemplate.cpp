#include "load/core/formattemplate.h"

namespace {

// Literals up to "X"; the letters and brackets behind it would meet the codes of fields or never match.
constexpr ushort firstLiteral = 0x20, lastLiteral = 0x58;

int widthFromText(const QString& text)
{
    bool whole = false;
    const int width = text.toInt(&whole);
    return whole && width > 0 ? width : 0; // a negative width would lead in front of the line
}

/// The field between the brackets at `open` and `close`.
TemplateField field(const QString& format, int open, int close, bool isVariable)
{
    TemplateField result;
    const int mark = format.indexOf(QLatin1Char('_'), open);
    if (mark < 0 || mark >= close) {
        result.name = format.mid(open + 1, close - open - 1);
        return result;
    }
    result.name = format.mid(open + 1, mark - open - 1);
    // deliberate: as many characters as "[name" has, so that "[t_12]" is 12 wide but "[t_5]" reads "5]" and
    // is free
    const int length = isVariable ? mark - open : close - mark - 1;
    result.width = widthFromText(format.mid(mark + 1, length));
    return result;
}

TemplateFault walk(const QString& format, FormatTemplate& result)
{
    for (int i = 0; i < format.size();) {
        const QChar c = format.at(i);
        const bool isVariable = c == QLatin1Char('[');
        if (!isVariable && c != QLatin1Char('<')) {
            if (!isLiteral(c))
                return TemplateFault::Literal;
            result.code.append(c.toLatin1());
            ++i;
            continue;
        }
        const int close = format.indexOf(QLatin1Char(isVariable ? ']' : '>'), i);
        if (close < 0)
            return TemplateFault::Brackets;
        QVector<TemplateField>& fields = isVariable ? result.variables : result.skipped;
        const int base = isVariable ? FormatTemplate::firstVariable : FormatTemplate::firstSkipped;
        result.code.append(char(uchar(base + fields.size())));
        fields.append(field(format, i, close, isVariable));
        result.positional = result.positional || (!isVariable && fields.constLast().width > 0);
        i = close + 1;
    }
    // A bracket swallowed as part of a name would be counted as a field that the walk never meets.
    if (result.variables.size() != format.count(QLatin1Char('['))
        || result.skipped.size() != format.count(QLatin1Char('<')))
        return TemplateFault::Brackets;
    return result.variables.isEmpty() ? TemplateFault::NoVariable : TemplateFault::None;
}

TemplateFault compile(const QString& format, FormatTemplate& result)
{
    if (format.count(QLatin1Char('[')) > FormatTemplate::maxVariables)
        return TemplateFault::TooManyVariables;
    if (format.count(QLatin1Char('<')) > FormatTemplate::maxSkipped)
        return TemplateFault::TooManySkipped;
    return walk(format, result);
}

} // namespace

int FormatTemplate::timeVariable() const
{
    for (int i = 0; i < variables.size(); ++i) {
        if (variables.at(i).name == QLatin1String("t"))
            return i;
    }
    return -1;
}

QVector<int> FormatTemplate::dataVariables() const
{
    QVector<int> result;
    for (int i = 0; i < variables.size(); ++i) {
        if (variables.at(i).name != QLatin1String("t"))
            result.append(i);
    }
    return result;
}

bool isLiteral(QChar c)
{
    return c.unicode() >= firstLiteral && c.unicode() <= lastLiteral;
}

FormatTemplate compileTemplate(const QString& format)
{
    FormatTemplate result;
    result.fault = compile(format, result);
    if (result.fault != TemplateFault::None) {
        const TemplateFault fault = result.fault;
        result = FormatTemplate();
        result.fault = fault;
    }
    result.text = format;
    return result;
}

QStringList dataNames(const QString& format)
{
    const FormatTemplate compiled = compileTemplate(format);
    QStringList result;
    for (const int variable : compiled.dataVariables())
        result.append(compiled.variables.at(variable).name);
    return result;
}
