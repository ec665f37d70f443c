#pragma once

#include "load/core/recentrecs.h"

/// Which data column of its file a recent record holds, from 0. `entries` are all recent records, the newest
/// first, as far back as there are any; `columns` is the number of data columns of the entry's template.
///
/// An entry of an older list does not tell its column, but the records of one file are entered together: the
/// further columns in turn and the first one last, so that the first one is the newest and outlives the
/// others. 0 for an entry that is not in the list.
int recentColumn(const QVector<RecentRecs>& entries, const RecentRecs& entry, int columns);

/// Seconds between the samples of an entry. Where it does not tell them and its template has no time column,
/// its span and number of samples do: the shortest number that fits. 1 for any other entry.
double recentInterval(const RecentRecs& entry);
