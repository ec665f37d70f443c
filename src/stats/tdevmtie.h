#pragma once

/// Time deviation and maximum time interval error. n samples of phase x in s, m the averaging factor or the
/// window in samples; results in s. The time array and tau0 are there for the shape of the common pointer and
/// have no effect.

/// Time deviation, mod_alan_scdo(n, m, x) * m / sqrt(3) (NIST SP 1065, 5.2.6), with the guards of
/// mod_alan_scdo. Works per sample: gaps in the time axis have no effect.
double TDEV(long n, long m, double* x, double* t, double tau0);

/// Maximum time interval error (NIST SP 1065, 5.2.15; ITU-T G.810): the greatest max-min over the windows
/// x[i] ... x[i+m], i = 0 ... n-m-1. 0.0 when no window fits or m is not positive. A NaN sample is passed
/// over as if it were missing, and a window of equal infinities counts as 0. Linear in n for every series;
/// takes scratch of 2(m+1) doubles, so it can throw std::bad_alloc. Writes two lines with the time to the
/// debug log.
double MTIE(long n, long m, double* x, double* t, double tau0);

/// The same value by a full scan of every window, m comparisons each. Writes the same two lines.
double MTIE_noimpr(long n, long m, double* x);

/// MTIE_noimpr under its second name.
double MTIE_impr2(long n, long m, double* x);
