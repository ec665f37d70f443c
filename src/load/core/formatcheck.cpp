#include "load/core/formatcheck.h"

#include <QVector>

namespace {

/// Checks the text between the brackets at `open` and `close`.
FormatVerdict checkField(const QString& format, int open, int close)
{
    const int mark = format.indexOf(QLatin1Char('_'), open);
    if (mark >= 0 && mark < close) {
        bool whole = false;
        format.mid(mark + 1, close - mark - 1).toInt(&whole);
        if (!whole)
            return {false, QStringLiteral("!number %1").arg(close)};
    }
    const QString name = format.mid(open + 1, close - open - 1).simplified();
    if (name.isEmpty() || !name.at(0).isLetterOrNumber())
        return {false, QStringLiteral("!cmnt name %1").arg(close)};
    return {true, QString()};
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
                return {};
            (c == '[' ? square : angle).append(i);
        } else if (c == ']' || c == '>') {
            QVector<int>& own = c == ']' ? square : angle;
            if (own.isEmpty())
                return {};
            const FormatVerdict verdict = checkField(format, own.constLast(), i);
            if (!verdict.correct)
                return verdict;
            own.removeLast();
            closedWell = true;
        }
    }
    return {closedWell && square.isEmpty() && angle.isEmpty(), QString()};
}

bool lettersOutside(const QString& format)
{
    int depth = 0;
    for (const QChar c : format) {
        if (c == QLatin1Char('[') || c == QLatin1Char('<'))
            ++depth;
        else if (c == QLatin1Char(']') || c == QLatin1Char('>'))
            --depth;
        else if (depth == 0 && (c.isLetter() || c.isDigit()))
            return true;
    }
    return false;
}

} // namespace

FormatVerdict checkFormat(const QString& format)
{
    FormatVerdict verdict = checkBrackets(format);
    if (verdict.correct && lettersOutside(format))
        verdict.correct = false;
    return verdict;
}
