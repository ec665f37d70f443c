#pragma once

/// Lower and upper end of the bar about one stability value.
struct ErrorBar {
    double low;
    double high;
};

/// Bar about the value y at the averaging time tau for data that span `span` (both s). With r = span/tau the
/// relative half width is 1/sqrt(r-1) for r > 1, so that r = 2 reaches down to zero and a smaller r below it;
/// r <= 1 gives 0.5*y to 1.5*y; tau <= 0 or span <= 0 gives no width.
ErrorBar errorBar(double tau, double y, double span);
