#pragma once

#include <vector>

/// The two values in the middle of a series in rising order, which are one and the same for an odd number.
struct Middle {
    double lower; ///< number (n - 1) / 2, from 0
    double upper; ///< number n / 2
};

/// Finds them without sorting the whole. `values` holds one value or more and no NaN; it is reordered.
///
/// Most of the values are left out by one pass: only those between two bounds taken from a sample of them are
/// looked at closer (the idea of Floyd and Rivest, 1975). Where the sample misleads, all are.
Middle middleOf(std::vector<double>& values);
