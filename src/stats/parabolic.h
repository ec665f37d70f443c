#pragma once

/// Parabolic deviation: half the change of frequency, root mean square, between neighbouring blocks of a
/// phase series, where the frequency of a block is the slope of its least-squares line. For a whole scale of
/// averaging factors in one call.
///
/// Arguments
///   n        number of samples
///   steps    averaging factors m, in samples
///   count    in: number of factors; out: number of values, which are those of the factors kept, in order
///   tau0     sampling interval, s
///   x        phase, s, read only
/// A factor with 2m >= n or below 1 is dropped. The array returned (new[], room for the count that came in)
/// belongs to the caller. A count that no array can have throws std::bad_array_new_length. A NaN or an
/// infinity in a block that is compared gives a NaN. No error is reported.
///
/// Literature: Vernotte, Lenczner, Bourgeois and Rubiola (2016), IEEE Trans. UFFC 63, 611, "The parabolic
/// variance"; Benkler, Lisdat and Sterr (2015), Metrologia 52, 565.

/// Blocks of m+1 samples x[mk] ... x[mk+m], k = 0 ... K-2 with K = n div m, which share their end samples.
/// With A[k] the sum of x[mk+j] and B[k] that of j*x[mk+j], j = 0 ... m,
///   d[k] = (B[k]-B[k+1]) - (A[k]-A[k+1])*m/2,   S = 72 * sum of d[k]^2,
///   value = sqrt(S/K) / ((m+1)*tau0) / m / (m+2).
/// A single block gives 0.
///
/// Departs from the textbook PDEV, sqrt(72/(M*m^4*tau^2) * sum of d^2) with tau = m*tau0 and M places of the
/// block pair, one sample apart, of m samples in each block:
///   - blocks have m+1 samples and share one, so that m = 1 gives the Allan deviation; the divisor
///     m(m+1)(m+2) gives the slope exactly, where the textbook takes its limit m^3;
///   - the block pair moves by m samples, not by one: fewer terms and a wider spread of the value;
///   - S is divided by K although it has K-2 terms.
/// For long series the form lies below the textbook's for m = 2, 4, 8, 16 by 18, 11, 4, 1.4 per cent in white
/// phase noise and by 6, 7, 4.5, 2.6 per cent in white frequency noise; both tend to the same value
/// as m grows.
///
/// From m = 16 on the sums of all blocks are kept; a following factor that is a multiple of m is put together
/// from them instead of the series. Below 16 they would take up as much room as the series. The result is
/// that of the direct sums to rounding. Memory: at most n/8 values.
double* new_rec_parabolic_deviation(long n, long* steps, long& count, double tau0, double* x);

/// The earlier form. Blocks of m samples that share none, j = 0 ... m-1, and (m-1)/2 in place of m/2:
///   value = sqrt(S/K) / ((m+1)*tau0) / (m-1) / (m+1).
/// An m of 1 at the head of `steps` gives the overlapping Allan deviation, sqrt(sum D2^2/(2(n-2)))/tau0; an m
/// of 1 elsewhere, for which a block has no slope, gives a NaN.
double* rec_parabolic_deviation(long n, long* steps, long& count, double tau0, double* x);
