#pragma once

#include <QList>
#include <QString>

/// Most columns that one text may name.
constexpr int mostListedColumns = 1000;
/// Greatest column number that a user may write.
constexpr int greatestColumn = 9999;

/// The columns that a user names, as "2, 4-6": the text counts from 1, the result from 0. Blanks, commas and
/// semicolons part the numbers. The order is that of the text; a column named twice counts once. False, with
/// an empty list, when the text names none or is at fault anywhere.
bool columnsFromText(const QString& text, QList<int>* columns);

/// The text of a list of columns, of which columnsFromText() gives the list again.
QString textFromColumns(const QList<int>& columns);
