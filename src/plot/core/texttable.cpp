#include "plot/core/texttable.h"

#include <QtGlobal>

#include <algorithm>

QVector<int> widthsByLongest(const TextTable& table, int least)
{
    QVector<int> widths;
    for (const QStringList& column : table.columns) {
        int width = least;
        for (const QString& cell : column)
            width = std::max(width, cell.size());
        widths << width;
    }
    return widths;
}

QVector<int> widthsByName(const TextTable& table, int least)
{
    QVector<int> widths;
    for (const QStringList& column : table.columns)
        widths << std::max(least, column.value(1).size());
    return widths;
}

QString textTable(
    const TextTable& table, const QVector<int>& widths, const QList<int>& rows, int firstHeadWidth)
{
    const QLatin1Char bar('|');
    QString text;
    int headWidth = firstHeadWidth;
    for (const int row : rows) {
        if (row < 0 || row >= table.heads.size())
            continue;
        text += table.heads.at(row).rightJustified(headWidth) + bar;
        for (int column = 0; column < table.columns.size(); ++column)
            text += table.columns.at(column).value(row).rightJustified(widths.value(column)) + bar;
        text += QLatin1Char('\n');
        headWidth = textTableHeadWidth;
    }
    return text;
}

QList<int> allRows(const TextTable& table)
{
    QList<int> rows;
    for (int row = 0; row < table.heads.size(); ++row)
        rows << row;
    return rows;
}

double fontSizeToFit(const QString& text, double width, double largest, double advance)
{
    int longest = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        longest = std::max(longest, line.size());
    const double fitting = longest > 0 ? width / (longest * advance) : largest;
    return qBound(4.0, fitting, largest);
}
