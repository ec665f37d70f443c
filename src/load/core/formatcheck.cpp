#include "load/core/formatcheck.h"

#include "load/core/formattemplate.h"

#include <QStringList>
#include <QVector>

namespace {

FormatVerdict verdict(bool correct, FormatReason reason, const QString& what = QString(), int number = 0)
{
    FormatVerdict result;
    result.correct = correct;
    result.reason = reason;
    result.what = what;
    result.number = number;
    return result;
}

FormatVerdict refused(FormatReason reason, const QString& what = QString(), int position = 0)
{
    return verdict(false, reason, what, position);
}

/// Refused because of the field that ends at `close`.
FormatVerdict badField(FormatReason reason, const char* trace, const QString& field, int close)
{
    FormatVerdict result = refused(reason, field);
    result.trace = QLatin1String(trace) + QString::number(close);
    return result;
}

FormatVerdict accepted(
    FormatReason remark = FormatReason::None, const QString& what = QString(), int width = 0)
{
    return verdict(true, remark, what, width);
}

/// Checks the text between the brackets at `open` and `close`.
FormatVerdict checkField(const QString& format, int open, int close)
{
    const QString field = format.mid(open, close - open + 1);
    const int mark = format.indexOf(QLatin1Char('_'), open);
    if (mark >= 0 && mark < close) {
        bool whole = false;
        format.mid(mark + 1, close - mark - 1).toInt(&whole);
        if (!whole)
            return badField(FormatReason::Width, "!number ", field, close);
    }
    const QString name = format.mid(open + 1, close - open - 1).simplified();
    if (name.isEmpty() || !name.at(0).isLetterOrNumber())
        return badField(FormatReason::Name, "!cmnt name ", field, close);
    return accepted();
}

FormatVerdict checkBrackets(const QString& format)
{
    QVector<int> square, angle; // positions of the open brackets
    bool closedWell = false;
    for (int i = 0; i < format.size(); ++i) {
        const char c = format.at(i).toLatin1();
        if (c == '[' || c == '<') {
            closedWell = false;
            if (!(c == '[' ? angle : square).isEmpty())
                return refused(FormatReason::Brackets);
            (c == '[' ? square : angle).append(i);
        } else if (c == ']' || c == '>') {
            QVector<int>& own = c == ']' ? square : angle;
            if (own.isEmpty())
                return refused(FormatReason::Brackets);
            const FormatVerdict field = checkField(format, own.constLast(), i);
            if (!field.correct)
                return field;
            own.removeLast();
            closedWell = true;
        }
    }
    if (!square.isEmpty() || !angle.isEmpty())
        return refused(FormatReason::Brackets);
    return closedWell ? accepted() : refused(FormatReason::NoField);
}

/// The character at `position` as it can be read in a sentence.
QString shownCharacter(const QString& format, int position)
{
    const QChar c = format.at(position);
    if (c.isHighSurrogate())
        return format.mid(position, 2);
    if (c.isPrint() && !c.isSpace())
        return c;
    const QString code = QStringLiteral("U+%1").arg(int(c.unicode()), 4, 16, QLatin1Char('0')).toUpper();
    return c == QLatin1Char('\t') ? FormatVerdict::tr("табуляция") : code;
}

FormatVerdict checkOutside(const QString& format)
{
    int depth = 0;
    for (int i = 0; i < format.size(); ++i) {
        const QChar c = format.at(i);
        if (c == QLatin1Char('[') || c == QLatin1Char('<'))
            ++depth;
        else if (c == QLatin1Char(']') || c == QLatin1Char('>'))
            --depth;
        else if (depth == 0 && (c.isLetter() || c.isDigit()))
            return refused(FormatReason::Letter, shownCharacter(format, i), i);
        else if (depth == 0 && !isLiteral(c))
            return refused(FormatReason::Literal, shownCharacter(format, i), i);
    }
    return accepted();
}

/// What the reader refuses although the rules above let it pass.
FormatVerdict checkCompiled(const FormatTemplate& compiled)
{
    switch (compiled.fault) {
    case TemplateFault::None:
    case TemplateFault::NoVariable: // a template of skipped fields alone is a correct one
        return accepted();
    case TemplateFault::TooManyVariables:
        return refused(FormatReason::TooManyVariables);
    case TemplateFault::TooManySkipped:
        return refused(FormatReason::TooManySkipped);
    default: // brackets of one kind inside each other
        return refused(FormatReason::Brackets);
    }
}

/// The fields of a correct template as they are written.
QStringList writtenFields(const QString& format)
{
    QStringList result;
    for (int i = 0; i < format.size(); ++i) {
        const QChar c = format.at(i);
        if (c != QLatin1Char('[') && c != QLatin1Char('<'))
            continue;
        const int close = format.indexOf(QLatin1Char(c == QLatin1Char('[') ? ']' : '>'), i);
        result << format.mid(i, close - i + 1);
        i = close;
    }
    return result;
}

/// The field of free width, if there is one, that no character ends before the next field begins.
QString fieldWithoutStop(const FormatTemplate& compiled)
{
    const QStringList written = writtenFields(compiled.text);
    int field = -1;
    bool free = false; // the element before
    for (const char element : compiled.code) {
        const int code = uchar(element);
        if (code < FormatTemplate::firstSkipped) {
            free = false;
            continue;
        }
        if (free)
            return written.at(field);
        ++field;
        free = code >= FormatTemplate::firstVariable
            ? compiled.positional || compiled.variables.at(code - FormatTemplate::firstVariable).width == 0
            : compiled.skipped.at(code - FormatTemplate::firstSkipped).width == 0;
    }
    return {};
}

/// How to write a field so that the reader takes all of its width; empty when there is no way.
QString spelledWidth(const TemplateField& field, int width)
{
    // A width has as many digits as "[name" has characters, see formattemplate.cpp.
    const QString digits = QString::number(width).rightJustified(field.name.size() + 1, QLatin1Char('0'));
    const QString spelled = QStringLiteral("[%1_%2]").arg(field.name, digits);
    const FormatTemplate compiled = compileTemplate(spelled);
    return compiled.fault == TemplateFault::None && compiled.variables.constFirst().width == width
        ? spelled
        : QString();
}

/// A remark when a width is written that the reader does not take.
FormatVerdict checkWidths(const FormatTemplate& compiled)
{
    int variable = 0;
    for (const QString& written : writtenFields(compiled.text)) {
        if (!written.startsWith(QLatin1Char('[')))
            continue;
        const TemplateField& field = compiled.variables.at(variable++);
        const int mark = written.indexOf(QLatin1Char('_'));
        const int asked = mark < 0 ? 0 : written.mid(mark + 1, written.size() - mark - 2).toInt();
        const int taken = compiled.positional ? 0 : field.width;
        if (asked == taken)
            continue;
        FormatVerdict result = accepted(FormatReason::WidthUnread, written, taken);
        if (!compiled.positional)
            result.instead = spelledWidth(field, asked);
        return result;
    }
    return accepted();
}

FormatVerdict remark(const FormatTemplate& compiled)
{
    if (compiled.dataVariables().isEmpty())
        return accepted(FormatReason::NoData);
    const QString open = fieldWithoutStop(compiled);
    if (!open.isEmpty())
        return accepted(FormatReason::NoStop, open);
    return checkWidths(compiled);
}

} // namespace

FormatVerdict checkFormat(const QString& format)
{
    if (format.isEmpty())
        return {};
    for (const auto check : {checkBrackets, checkOutside}) {
        const FormatVerdict result = check(format);
        if (!result.correct)
            return result;
    }
    const FormatTemplate compiled = compileTemplate(format);
    const FormatVerdict result = checkCompiled(compiled);
    return result.correct ? remark(compiled) : result;
}

QString FormatVerdict::reasonText() const
{
    switch (reason) {
    case FormatReason::None:
        return {};
    case FormatReason::Empty:
        return tr("Введите шаблон.");
    case FormatReason::NoField:
        return tr("В шаблоне нет ни одного поля в скобках.");
    case FormatReason::Brackets:
        return tr("Каждая скобка должна быть закрыта, вложенных скобок быть не должно.");
    case FormatReason::Width:
        return tr("В поле %1 после знака подчеркивания должно стоять целое число.").arg(what);
    case FormatReason::Name:
        return tr("Имя в поле %1 должно начинаться с буквы или цифры.").arg(what);
    case FormatReason::Letter:
        return tr("Буквы и цифры допустимы только в скобках: «%1», позиция %2.")
            .arg(what, QString::number(number + 1));
    case FormatReason::Literal:
        return tr("Этот символ допустим только в скобках: «%1», позиция %2.")
            .arg(what, QString::number(number + 1));
    case FormatReason::TooManyVariables:
        return tr("В шаблоне больше %1 полей [имя].").arg(FormatTemplate::maxVariables);
    case FormatReason::TooManySkipped:
        return tr("В шаблоне больше %1 полей <имя>.").arg(FormatTemplate::maxSkipped);
    case FormatReason::NoData:
        return tr("В шаблоне нет столбца данных: загружать будет нечего.");
    case FormatReason::NoStop:
        return tr("За полем %1 сразу идет другое поле: нет символа, на котором оно кончается.").arg(what);
    case FormatReason::WidthUnread:
        break;
    }
    const QString taken = number > 0
        ? tr("Ширина поля %1 будет прочитана как %2.").arg(what, QString::number(number))
        : tr("Ширина в поле %1 не действует: оно кончается на следующем символе шаблона.").arg(what);
    return instead.isEmpty() ? taken : taken + ' ' + tr("Чтобы задать ширину, пишите %1.").arg(instead);
}
