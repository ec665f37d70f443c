#pragma once

#include <QPair>
#include <QVector>

/// Least-squares line y = a + b*(x-x[0]): returns a, the value at x[0], and writes b to *slope. n < 3 returns
/// 0.0 and writes nothing.
double Trend(long n, double* x, double* y, double* slope);

/// Least-squares parabola y = q*x^2 + l*x + c; x is used as it stands, not shifted. n < 5 gives q = 0, c = 0,
/// l = 100000000.0 and false. A determinant below 1e-30 gives false and writes nothing.
bool Parab(int n, long* x, double* y, double* q, double* l, double* c);
bool Parab(int n, double* x, double* y, double* q, double* l, double* c);

/// Least-squares line through the first `count` points (x, y): returns the slope, writes the intercept (the
/// value at x = 0) and the standard error of the slope. Equal x in all points, or no point, gives 1.0 and
/// writes nothing. Two points give no finite error. A count beyond the points is cut to their number.
double linreg(int count, QVector<QPair<double, double>> points, double& intercept, double& error);
