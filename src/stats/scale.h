#pragma once

#include "stats/guards.h"

#include <memory>

/// The values value(index, m) of a whole scale of averaging factors, in order; a factor with reach*m >= n or
/// below 1 is dropped. On return count is the number kept. The array (new[], zero beyond them, room for the
/// count that came in) belongs to the caller. A count that no array can have throws
/// std::bad_array_new_length. Private to the room.
template <class Value>
double* overScale(long n, long reach, const long* steps, long& count, const Value& value)
{
    std::unique_ptr<double[]> values(new double[count]());
    long kept = 0;
    for (long k = 0; k < count; ++k) {
        if (!guards::reaches(reach, steps[k], n))
            values[kept++] = value(k, steps[k]);
    }
    count = kept;
    return values.release();
}
