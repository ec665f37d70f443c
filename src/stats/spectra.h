#pragma once

/// Spectra of phase series by Welch's method, in dB relative to the carrier.
///
/// Arguments
///   n        number of samples
///   tau      sampling interval, s
///   x, y     phase, s, read only
///   f        out: Fourier frequency, mHz, rising
///   s1       out: spectrum of the phase, dBc
///   s2       out: spectrum of the frequency, dBc (mHz^2)
/// The carrier is the global freqRef, MHz, in the formulas F = freqRef*1e6 Hz.
///
/// Spectr. The block length L is the greatest of 8192, 4096, ..., 128 that is not above n; H = L/2. Blocks
/// start at 0, H, 2H, ... while they lie in the series; c is their number. Each loses its mean and is
/// weighted by the Hann window (1-cos(2*pi*k/L))/2. X[k] is its transform (fft.h). With d = 1000/(L*tau) mHz,
/// or 1000/L when tau is not above 0,
///   S[k] = 2*(2.5*F^2)*4*pi^2*tau/L * mean over the blocks of |X[k]|^2,   k = 1 ... H-1
///   f = k*d,   s1 = 10*lg(S[k]/2),   s2 = 10*lg(((k+1)*d)^2 * S[k]/2).
/// So s1 is the single-sideband phase noise L(f) = S_phi(f)/2, per Hz, less 0.28 dB.
///
/// Departures from the textbook, all on purpose:
///   - the factor 2.5 stands where the power of the Hann window asks for 8/3: 0.28 dB less;
///   - s2 takes bin k with the frequency of bin k+1: 6 dB too high at the first bin, 0.09 dB at bin 100;
///   - s2 is in mHz^2, 60 dB above Hz^2;
///   - the mean alone is taken off a block: a frequency offset or drift shows in the lowest bins.
/// A bin that is exactly zero gives minus infinity, a negative tau a NaN. A NaN or an infinity among the
/// samples of any block makes every value a NaN; the frequencies stand.
///
/// Literature: Welch (1967), IEEE Trans. Audio Electroacoust. 15, 70; Harris (1978), Proc. IEEE 66, 51; IEEE
/// Std 1139 for L(f).

/// The spectrum of one series. Returns the number of points, H-1; s1 and s2 have room for these, f for one
/// more, the frequency of bin H. n below 128 returns 0 and writes nothing.
int Spectr(int n, double tau, double* x, double* f, double* s1, double* s2);

/// The same of two series: |X[k]|^2 gives way to the real part of X[k]*conj(Y[k]), and the logarithms take
/// the absolute value of S[k], so the sign of the correlation is lost.
int XSpectr(int n, double tau, double* x, double* y, double* f, double* s1, double* s2);

/// dst[i] = src[i*factor] for i below m = n div factor; returns m. dst may be src. n or factor below 1
/// returns 0.
int pror(double* src, int n, int factor, double* dst);

/// The spectrum over three decades of resolution, in three stages: Spectr of the series; of the series
/// filtered by "filter.txt" in the configuration directory (firfilter.h) and thinned out to every 10th
/// sample, n div 10 of them; and of the series filtered twice and thinned out to every 100th, n div 100. The
/// tail that the filter adds to the series is left out. Joined with w = (top frequency of
/// stage 1)/2000: below w from stage 3, from w to 10w from stage 2, above from stage 1. At most 4096 points,
/// so that the topmost frequencies of a long series fall away. f, s1 and s2 have room for 4096 points.
///
/// A stage without points (fewer than 128 samples left) counts as one of two points whose frequencies and
/// values are 0. Stages 2 and 3 then add nothing; the lowest frequencies are missing. A series shorter than
/// 128 gives these two zeros themselves and returns 2: a result of 2 means that there is no spectrum.
///
/// With a filter of zeros the frequencies below 10w have the value minus infinity. The second filtering runs
/// at the full rate, as the first, so that it cannot hold off what a thinning by 100 folds down from 0.01 of
/// the sampling rate on: with the default filter white phase noise shows 2.6 dB too high below w. The gain of
/// the filter is not taken out: with the default filter at most 0.13 dB just below 10w.
int doSpectrum(int n, double tau, double* x, double* f, double* s1, double* s2);

/// The same of two series, with XSpectr.
int doXSpectrum(int n, double tau, double* x, double* y, double* f, double* s1, double* s2);
