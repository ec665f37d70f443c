#include "load/core/columnlist.h"

#include <QRegularExpression>
#include <QStringList>
#include <QtGlobal>

bool columnsFromText(const QString& text, QList<int>* columns)
{
    static const QRegularExpression dash(QStringLiteral("\\s*-\\s*"));
    static const QRegularExpression parting(QStringLiteral("[\\s,;]+"));
    static const QRegularExpression range(QStringLiteral("^(\\d{1,4})(?:-(\\d{1,4}))?$"));
    columns->clear();
    const QStringList parts =
        QString(text).replace(dash, QStringLiteral("-")).split(parting, Qt::SkipEmptyParts);
    QList<int> found;
    for (const QString& part : parts) {
        const QRegularExpressionMatch match = range.match(part);
        const int first = match.captured(1).toInt();
        const int last = match.captured(2).isEmpty() ? first : match.captured(2).toInt();
        if (!match.hasMatch() || first < 1 || last < first)
            return false;
        for (int column = first; column <= last; ++column) {
            if (found.contains(column - 1))
                continue;
            if (found.size() == mostListedColumns)
                return false;
            found << column - 1;
        }
    }
    *columns = found;
    return !found.isEmpty();
}

QString textFromColumns(const QList<int>& columns)
{
    QStringList numbers;
    for (const int column : columns)
        numbers << QString::number(column + qint64(1));
    return numbers.join(QStringLiteral(", "));
}
