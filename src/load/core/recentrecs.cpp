#include "load/core/recentrecs.h"

RecentRecs RecRecs[maxRecentRecs];
qint32 nextRecRecsIndex = 0;
qint32 NumRecentRecs = 1;
