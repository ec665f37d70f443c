#include "table/core/stabilitytable.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

/// Scales of equal interval give the same bits; others may differ in the last ones.
bool sameTau(double a, double b)
{
    return std::fabs(a - b) <= 1e-9 * std::max(std::fabs(a), std::fabs(b));
}

} // namespace

std::vector<double> unionOfTau(const QList<StabilityColumn>& columns)
{
    std::vector<double> all;
    for (const StabilityColumn& column : columns)
        all.insert(all.end(), column.tau.begin(), column.tau.end());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end(), sameTau), all.end());
    return all;
}

QStringList stabilityHeads(const std::vector<double>& tau, bool severalRecords)
{
    QStringList heads;
    if (severalRecords)
        heads << QCoreApplication::translate("StabilityTable", "Каналы");
    heads << QStringList{QCoreApplication::translate("StabilityTable", "Канал"),
        QCoreApplication::translate("StabilityTable", "Название")};
    for (const double seconds : tau)
        heads << QString::number(seconds, 'g', 10);
    return heads;
}

QStringList stabilityCells(const StabilityColumn& column, const std::vector<double>& tau)
{
    QStringList cells{column.channels, column.name};
    size_t at = 0;
    for (const double seconds : tau) {
        const bool here = at < column.tau.size() && sameTau(column.tau[at], seconds);
        cells << (here && at < column.value.size() ? QString::number(column.value[at], 'e', 4)
                                                   : QStringLiteral("---"));
        at += here ? 1 : 0;
    }
    return cells;
}
