#pragma once

/// Cross deviations: the stability that two measurements with a common oscillator share, as in the
/// three-cornered hat.
///
/// Arguments and notation are those of deviations.h, with two phase series of n samples each:
///   x, y     phase of the two measurements, s, read only, sample by sample at the same instants
///   u, v     time of each sample of x and of y, s, read only
///   D1x, F1x, ... the differences and rates of deviations.h taken on x (with u), D1y, F1y, ... on y (with v)
///
/// Each function is the one of the same name in deviations.h with the square of a term replaced by the
/// product of the terms of the two series. With a clock A in both and independent B and C, the expectation of
/// that product is the variance of A alone. A sum of products can come out negative: the root is taken of its
/// absolute value, so the sign of the covariance is lost and two series of opposite sign give the value of
/// two equal ones. With y = x a form without a centre gives the value of its single-series kernel.
///
/// Departs from the single series: the forms with times have no gap rule and take no tau0. Every position of
/// the grid counts, terms across a gap like any other, and C is the number of positions; equal stamps give an
/// infinity or a NaN.
///
/// Guard: 0.0 when the series are too short for m, or m is not positive. "Two points":
/// sqrt(|(x[m]-x[0])(y[m]-y[0])|)/m, or sqrt(|(x[m]-x[0])(y[m]-y[0])/(u[m]-u[0])/(v[m]-v[0])|) with times.
/// Without times the value is in x per sample, with times in rates. No error is reported; a NaN or an
/// infinity among the samples flows into the result. Stateless and reentrant.
///
/// Literature: Gray and Allan, "A method for estimating the frequency stability of an individual oscillator",
/// 28th Frequency Control Symposium (1974); Groslambert et al., "Characterization of frequency fluctuations
/// by crosscorrelations and by using three or more oscillators", 35th (1981). The differences and the 1/2 and
/// 1/6 are those of NIST SP 1065 (Riley, 2008), section 5.

/// @name Standard deviation of first differences. Guard m >= n; two points at n = m+1.
/// @{

/// sqrt(|sum (D1x-cx)(D1y-cy) / K|) / m, K = floor(n/m)-1, cx = (x[mK]-x[0])/K, cy likewise. Departs: divides
/// by K, not K-1, and when m does not divide n the grid holds one term more than K counts. K = 0 gives no
/// finite value.
double cross_sco(long n, long m, double* x, double* y);
/// sqrt(|sum (F1x-mean)(F1y-mean) / (C-1)|). One position, m+1 < n <= 2m, gives a NaN.
double cross_sco(long n, long m, double* x, double* y, double* u, double* v);
/// sqrt(|sum (D1x/m-cx)(D1y/m-cy) / E|), E = n-m-1, cx = (x[n-1]-x[0])/E. Departs: cx is per sample but over
/// E steps. The root is not divided by m again, unlike that of sco_overlap.
double cross_sco_overlap(long n, long m, double* x, double* y);
/// Overlapping cross_sco with times: sqrt(|sum (F1x-mean)(F1y-mean) / (n-m-1)|).
double cross_sco_overlap(long n, long m, double* x, double* y, double* u, double* v);
/// @}

/// @name Two-sample deviation with the drift taken out. Guard 2m > n; two points at n = 2m.
/// With Px = x[n-1]-x[n-1-m]-x[m]+x[0], Py likewise; the forms with times centre on the means of F2.
/// @{

/// sqrt(|0.5 sum (D2x-cx)(D2y-cy) / C|) / m, cx = Px / ((n-2m) div m); below n = 3m no finite value.
double cross_scdo(long n, long m, double* x, double* y);
/// sqrt(|0.5 sum (F2x-mean)(F2y-mean) / C|).
double cross_scdo(long n, long m, double* x, double* y, double* u, double* v);
/// sqrt(|0.5 sum (D2x-cx)(D2y-cy) / (n-2m)|) / m, stride 1, cx = Px / (n-1).
double cross_scdo_overlap(long n, long m, double* x, double* y);
/// Overlapping cross_scdo with times.
double cross_scdo_overlap(long n, long m, double* x, double* y, double* u, double* v);
/// @}

/// @name Allan deviation. Guard 2m > n; two points at n = 2m.
/// @{

/// sqrt(|0.5 sum D2x*D2y / C|) / m.
double cross_alan_scdo(long n, long m, double* x, double* y);
/// sqrt(|0.5 sum F2x*F2y / C|).
double cross_alan_scdo(long n, long m, double* x, double* y, double* u, double* v);
/// sqrt(|0.5 sum D2x*D2y / C|) / m, stride 1.
double cross_alan_scdo_overlap(long n, long m, double* x, double* y);
/// sqrt(|0.5 sum F2x*F2y / C|), stride 1.
double cross_alan_scdo_overlap(long n, long m, double* x, double* y, double* u, double* v);
/// @}

/// @name Hadamard deviation. Guard 3m >= n; no two-point case.
/// @{

/// sqrt(|sum D3x*D3y / C|) / m / 6. Departs: the 6 stands outside the root, unlike that of hadamard_scdo, so
/// the value is the textbook's divided by sqrt(6).
double cross_hadamard_scdo(long n, long m, double* x, double* y);
/// sqrt(|sum F3x*F3y / C| / 6).
double cross_hadamard_scdo(long n, long m, double* x, double* y, double* u, double* v);
/// sqrt(|sum D3x*D3y / (n-3m)|) / m / 6, stride 1. Departs: the 6 stands outside the root.
double cross_hadamard_scdo_overlap(long n, long m, double* x, double* y);
/// sqrt(|sum F3x*F3y| / (n-3m) / 6), stride 1.
double cross_hadamard_scdo_overlap(long n, long m, double* x, double* y, double* u, double* v);
/// @}
