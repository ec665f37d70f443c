#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

/// One column of the table of stability values.
struct StabilityColumn {
    QString channels; ///< of the records behind it
    QString name;
    std::vector<double> tau; ///< s, rising
    std::vector<double> value; ///< as many as tau, or fewer: those of the leading ones
};

/// The averaging times that any of the columns has, in rising order.
std::vector<double> unionOfTau(const QList<StabilityColumn>& columns);

/// Heads of the rows: channel, name, and each tau in seconds. For results of several records the first one is
/// of their channels, and the next one of the number of the result.
QStringList stabilityHeads(const std::vector<double>& tau, bool severalRecords = false);

/// The cells of one column under those heads, without the number of the result: values in format e with 4
/// decimals, "---" where the column has none.
QStringList stabilityCells(const StabilityColumn& column, const std::vector<double>& tau);
