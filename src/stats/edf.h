#pragma once

/// Equivalent degrees of freedom of an overlapping Allan estimate from `samples` phase samples at averaging
/// factor m, for the noise with frequency spectrum f^alpha: 2 white phase, 1 flicker phase, 0 white
/// frequency, -1 flicker frequency, -2 random-walk frequency (NIST SP 1065, 5.4.1, the simple formulas); any
/// other alpha gives 1.0. Departs: two quotients are cut to whole numbers. A whole-number division by zero
/// gives a NaN.
double EDF(int alpha, long samples, long m);
