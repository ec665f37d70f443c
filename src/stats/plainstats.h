#pragma once

/// Plain statistics of a series y of n values, in the units of y. A NaN in the series flows into the result.
/// With no values (n < 1) every function but fmin and fmax returns 0.0.

/// Population standard deviation sqrt(sum (y-mean)^2 / n), the mean by aver. n < 2: 0.0.
double sco_phase(long n, double* y);
/// Sample standard deviation sqrt(|sum (y-mean)^2 / (n-1)|); the mean goes to *mean. n = 1: |y[0]|. For n < 2
/// the mean is not written.
double sco_a(long n, double* y, double* mean);
/// As sco_a, but n = 1 gives y[0] with its sign.
double sco_ad(long n, double* y, double* mean);
/// Two-sample deviation with the mean step e = (y[n-1]-y[0])/(n-1) taken out:
/// sqrt(|sum (y[i+1]-y[i]-e)^2 / (2(n-1))|). n = 1: |y[0]|.
double scdo_y(long n, double* y);
/// Two-sample deviation sqrt(|(start + sum (y[i+1]-y[i])^2) / (2(n-1))|). n = 1: |y[0]|.
double alan_sco2(long n, double* y, double start);
/// Mean, summed in extended precision (64 bits of mantissa or more) and rounded once. n = 1: y[0].
double aver(long n, double* y);
/// Sum in plain double, in order.
double sum(long n, double* y);
/// Least element; a NaN counts only at the head of the series. n < 1 returns y[0], which must then be
/// readable; a null array gives 0.0.
double fmin(int n, double* y);
/// Greatest element, with the rules of fmin.
double fmax(int n, double* y);
