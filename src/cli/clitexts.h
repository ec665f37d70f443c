#pragma once

#include "cli/clitable.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

/// What stands in the table for people where a column has no value.
const QString noValue = QStringLiteral("---");

/// With all 17 digits.
QString exact(double value);

/// A cell of a CSV line, in quotation marks where it needs them.
QString quoted(const QString& cell);

/// The line "# ..." on a result, with its number when there are several.
QString fileLine(const CliResult& result, int number, bool several);

/// What the numbers of a result rest on.
QJsonObject parameters(const CliResult& result, const CliOptions& options);

/// Right-justified to the widest cell of each column, with two blanks between.
QString aligned(const QVector<QStringList>& lines);
