#pragma once

#include <vector>

class doubleArray;

constexpr double secondsOfDay = 86400.0;

/// Day of a second that is counted from 00:00:00 of day 0; 0 when it is not a number.
double dayOfSecond(double second);

/// How many samples of a time axis lie on each of `days` days. `offset` raises a time to seconds from
/// 00:00:00 of day 0. Samples before the first day count for it, and those behind the last day for that one,
/// so that the entries together count them all, in their order.
///
/// A day is told by the times, not by the parts: a record that was read from one file, or one with a day
/// missing, does not hold its days one a part.
std::vector<int> countDays(const doubleArray& t, double offset, int days);

/// Running index of the first sample of a day.
int firstOfDay(const std::vector<int>& counts, int day);

/// Number of values that an array holds.
int totalOf(const doubleArray& array);

/// The values first to first + n - 1, each plus `shift`, as far as the array holds them.
std::vector<double> valuesOf(const doubleArray& array, int first, int n, double shift = 0.0);
