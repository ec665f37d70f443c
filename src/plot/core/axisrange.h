#pragma once

/// The part of an axis that is shown, from min to max; both above zero on a logarithmic axis.
struct AxisRange {
    double min = 0.0;
    double max = 1.0;
};

/// Moves a range by a share of its own width: 0.5 shows half a window of larger values more. On a logarithmic
/// axis the share is one of decades.
AxisRange movedRange(const AxisRange& range, double share, bool logarithmic);

/// Makes a range `factor` times as wide about the value at `anchor`, a share of the width (0 at min).
AxisRange scaledRange(const AxisRange& range, double anchor, double factor, bool logarithmic);

/// Keeps a range that grew out of `before` within `whole`; an end that lay outside before may stay there.
AxisRange withinWhole(const AxisRange& range, const AxisRange& before, const AxisRange& whole);
