#pragma once

#include <QString>

#include <functional>
#include <optional>

struct Record;

/// Limits on a value (for phase: the frequency difference) and on its change; none where empty.
struct OutlierLimits {
    std::optional<double> frequency;
    std::optional<double> change;
};

/// Gives whole numbers, evenly spread over 0 to 2147483647.
using RandomSource = std::function<int()>;

/// The number in a cell of "Max Y" or "Max VarY", with a point or a comma. Empty for a text that is no
/// number, negative, infinite or not a number: there is no limit then, and the cell goes back to its default.
std::optional<double> limitFromText(const QString& text);

/// Whether a limit filters: 0 does not, nor 1 for phase, which is the default there.
bool limitFilters(std::optional<double> limit, int dataType);

/// Replaces, day by day, samples whose value lies further from the median of the day than the limit, and
/// gives how many replacements there were. The limit on the change comes first.
///
/// The value of a sample is, under the limits on frequency and on change,
///   for phase  the frequency difference to the sample before, and the difference of two such,
///   else       the sample itself, and its difference quotient to the sample before.
/// The replacement is noise about the median, as wide as the largest deviation seen so far in that day. In a
/// phase record the rest of the day moves by as much as the last replaced sample did, so that no step is
/// left. A sample whose value is not a number, or whose time does not rise, is never replaced.
qint64 removeOutliers(Record& record, const OutlierLimits& limits, const RandomSource& random);
