#pragma once

#include "record/record.h"

/// A record seen through the operations that clean it in place. It adds no fields.
struct StaticRecord : Record {
    /// Takes samples that repeat the value before them out of every day, and gives how many. Only `x` closes
    /// up: the values kept move onto the earlier time stamps of their day, and the day loses its last time
    /// stamps. So the series keeps its grid. A day whose first value repeats the last one kept before it
    /// loses it too.
    ///
    /// The value after a repeat is kept unseen: of a run of equal values every second one goes, and of three
    /// the third stays. A NaN repeats nothing. Brings `DayLengths`, `count`, `filled`, `n_days`,
    /// `num_in_days` and `n_cnt` in line. Lets the event loop run before every day; the caller holds SLEEP.
    int removeF0Values() { return removeF0Values(*this); }

    /// The same for a record that stands in a table's slot.
    static int removeF0Values(Record& rec);

    /// Removing by index does nothing, on purpose.
    void removeXValue(int index) { removeXValues(&index, 1); }
    void removeXValues(int* indices, int n);
};
