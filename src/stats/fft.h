#pragma once

#include <vector>

/// Discrete Fourier transforms of up to 16384 points.
///
/// X[k] = sum over j of x[j]*exp(+2*pi*i*j*k/n), k = 0 ... n-1, not divided by n. Departs from most
/// literature in the sign of the exponent: a phase spectrum comes out with the opposite sign, a power
/// spectrum the same.
///
/// n is a power of two. The twiddle factors are worked out once for the whole program, each by itself rather
/// than by repeated rotation; that is safe from several threads.
///
/// Literature: Cooley and Tukey (1965), Math. Comp. 19, 297.

/// Transform in place of n complex values re + i*im, radix 2, decimation in time. n below 2 leaves the arrays
/// as they are, and so does an n that is no power of two.
void FFT(short n, double* re, double* im);

/// @name Spectra of n real values, all n bins
/// The inputs are only read and may be the outputs as well. An n that is no power of two gives zeros, n below
/// 1 writes nothing. A NaN or an infinity in the input flows into every bin.
/// @{

/// out[k] = |X[k]|.
void SPECTR1(short n, double* in, double* out);
/// out[k] = |X[k]|^2.
void SPECTR2(short n, double* in, double* out);
/// With A and B the transforms of a and b: re[k] + i*im[k] = A[k]*conj(B[k]).
void XSPECTR2(short n, double* a, double* b, double* re, double* im);
/// @}

/// The bins 0 ... n/2 of the transform of n real values; the others are their conjugates. The even and the
/// odd samples go through one complex transform of n/2 points, which halves the work. Private to the room.
class RealTransform {
public:
    /// n is a power of two from 2 to 16384.
    explicit RealTransform(int n);
    void run(const double* in);
    const double* re() const { return m_re.data(); }
    const double* im() const { return m_im.data(); }

private:
    int m_half;
    std::vector<double> m_re, m_im;
};
