#pragma once

/// Distance of the ticks of an axis in seconds that reads as a clock.
struct TimeStep {
    double major = 0.0; ///< s; 0 when the span calls for decimal steps
    int minors = 1; ///< intervals between two major ticks
};

/// The smallest step of whole seconds, minutes, hours or days that divides `span` seconds into at most
/// `mostMajor` intervals. Spans below `mostMajor` seconds, and those beyond any calendar, get none.
///
/// A scale that reads as dates has no use for steps below a day (`dates`), unless it spans less than two.
TimeStep timeStep(double span, int mostMajor, bool dates = false);

/// The same for an axis of whole numbers, such as days: 1, 2 or 5 times a power of ten. Spans below 1 get
/// none.
TimeStep wholeStep(double span, int mostMajor);
