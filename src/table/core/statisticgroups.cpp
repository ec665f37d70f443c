#include "table/core/statisticgroups.h"

QList<Statistic> statisticsOfGroup(int group)
{
    if (group == 0)
        return {Statistic::Sdev, Statistic::Adev, Statistic::Hdev};
    if (group == 1)
        return {Statistic::Mtie, Statistic::Tdev};
    return {Statistic::Mdev, Statistic::Pdev};
}

Statistic firstShown(int group)
{
    return group == 0 ? Statistic::Adev : statisticsOfGroup(group).first();
}

int groupOf(Statistic statistic)
{
    int group = 0;
    while (group < 2 && !statisticsOfGroup(group).contains(statistic))
        ++group;
    return group;
}
