#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

/// A result table that is to become plain text, with results down the columns.
///
/// As text, every line is one row: the head and then one cell for each column, all right-justified and each
/// ended by a bar, and a newline. A text longer than its width is never cut.
struct TextTable {
    /// Row heads, one per row.
    QStringList heads;
    /// Cells of each column by row; a cell that is missing is empty.
    QVector<QStringList> columns;
};

/// Characters of a row head.
constexpr int textTableHeadWidth = 8;

/// Column widths in characters: the longest text of each column, but not below `least`.
QVector<int> widthsByLongest(const TextTable& table, int least);

/// Column widths in characters: the text in row 1 (from 0), which names the column, but not below `least`.
QVector<int> widthsByName(const TextTable& table, int least);

/// The given rows as text. `firstHeadWidth` is the width of the head of the first line; all other heads have
/// `textTableHeadWidth`. A row number outside the table is passed over.
QString textTable(const TextTable& table, const QVector<int>& widths, const QList<int>& rows,
    int firstHeadWidth = textTableHeadWidth);

/// All row numbers of the table.
QList<int> allRows(const TextTable& table);

/// The largest font size, in points and at most `largest`, at which the longest line of `text` fits into
/// `width` points. A character is `advance` of the font size wide. Never below 4 points, which is still
/// readable.
double fontSizeToFit(const QString& text, double width, double largest, double advance);
