#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

/// One column of the table of stability values.
struct StabilityColumn {
    int channel = 0;
    QString name;
    std::vector<double> tau; ///< s, rising
    std::vector<double> value; ///< as many as tau, or fewer: those of the leading ones
};

/// The averaging times that any of the columns has, in rising order.
std::vector<double> unionOfTau(const QList<StabilityColumn>& columns);

/// Heads of the rows: channel, name, and each tau in seconds.
QStringList stabilityHeads(const std::vector<double>& tau);

/// The cells of one column under those heads: values in format e with 4 decimals, "---" where the column has
/// none.
QStringList stabilityCells(const StabilityColumn& column, const std::vector<double>& tau);
