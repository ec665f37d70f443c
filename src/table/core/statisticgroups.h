#pragma once

#include "stats/statistic.h"

#include <QList>

/// The groups of statistics that are computed together, in the order of the choice in the record table.
/// MTIE and TDEV stand in the second, MDEV and PDEV in the third.
QList<Statistic> statisticsOfGroup(int group);

/// The statistic of a group that is shown first.
Statistic firstShown(int group);

/// The group that a statistic belongs to.
int groupOf(Statistic statistic);
