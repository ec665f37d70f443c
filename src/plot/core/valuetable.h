#pragma once

#include <QString>
#include <QVector>

/// The tables that a graph window shows in boxes on its canvas, as rich text.

/// Taus and values of one stability curve. Rows stand for the point indices 0, 3, 6, 9, 11, 13, 16, 17 and 20
/// only, which on the usual scale of taus are round numbers. `head` is the short name of the statistic.
/// `live` values have a shorter word for tau above.
QString stabilityTable(const double* tau, const double* value, long count, const QString& head,
    bool dividedBySqrt2, bool english, bool live = false);

/// The parts of such a table: head with the short name of the statistic, one row of texts, end.
QString valueTableHead(const QString& head, bool english, bool live = false);
QString valueTableRow(const QString& tau, const QString& value);
QString valueTableEnd();

/// Mean of the y whose x lies from x1 to x2 inclusive, in either order; 0 when there is none.
double meanBetween(const QVector<double>& x, const QVector<double>& y, double x1, double x2);
