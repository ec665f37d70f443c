#include "stats/fft.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

constexpr int mostBits = 14;
constexpr int mostPoints = 1 << mostBits;

/// What transforms of every size share. The stage that joins halves of h points finds exp(i*pi*j/h),
/// j = 0 ... h-1, at the places h ... 2h-1.
struct Tables {
    std::vector<double> cosine, sine;
    std::vector<std::uint16_t> reversed; ///< bit reversal of mostBits bits

    Tables()
        : cosine(mostPoints)
        , sine(mostPoints)
        , reversed(mostPoints)
    {
        const double pi = std::acos(-1.0);
        for (int half = 1; half < mostPoints; half *= 2) {
            for (int j = 0; j < half; ++j) {
                const double angle = pi * j / half; // positive: the sign of the exponent
                cosine[static_cast<std::size_t>(half + j)] = std::cos(angle);
                sine[static_cast<std::size_t>(half + j)] = std::sin(angle);
            }
        }
        for (std::size_t i = 1; i < mostPoints; ++i) {
            const unsigned rest = static_cast<unsigned>(reversed[i / 2]) / 2;
            reversed[i] = static_cast<std::uint16_t>(rest | ((i & 1) << (mostBits - 1)));
        }
    }
};

const Tables& tables()
{
    static const Tables made;
    return made;
}

bool isPowerOfTwo(int n)
{
    return n > 0 && (n & (n - 1)) == 0;
}

/// n = 2^bits.
int bitsOf(int n)
{
    int bits = 0;
    for (; n > 1; n /= 2)
        ++bits;
    return bits;
}

/// The place of point i in the bit-reversed order of 2^bits points.
int reversed(int i, int bits)
{
    return tables().reversed[static_cast<std::size_t>(i)] >> (mostBits - bits);
}

/// The first stage: halves of one point, whose twiddle is 1.
void joinSingles(int n, double* re, double* im)
{
    for (int k = 0; k < n; k += 2) {
        const double br = re[k + 1], bi = im[k + 1];
        re[k + 1] = re[k] - br;
        im[k + 1] = im[k] - bi;
        re[k] += br;
        im[k] += bi;
    }
}

/// Two stages in one walk over the data: halves of `part` points, then halves of 2*part. The twiddle of the
/// last quarter is i times that of the third.
void joinQuarters(double* re, double* im, int part, const Tables& table)
{
    double *const re0 = re, *const re1 = re + part, *const re2 = re + 2 * part, *const re3 = re + 3 * part;
    double *const im0 = im, *const im1 = im + part, *const im2 = im + 2 * part, *const im3 = im + 3 * part;
    const double *const c1 = table.cosine.data() + part, *const s1 = table.sine.data() + part;
    const double *const c2 = table.cosine.data() + 2 * part, *const s2 = table.sine.data() + 2 * part;
#pragma GCC ivdep
    for (int j = 0; j < part; ++j) {
        const double br = re1[j] * c1[j] - im1[j] * s1[j], bi = re1[j] * s1[j] + im1[j] * c1[j];
        const double dr = re3[j] * c1[j] - im3[j] * s1[j], di = re3[j] * s1[j] + im3[j] * c1[j];
        const double ar = re0[j] + br, ai = im0[j] + bi, er = re0[j] - br, ei = im0[j] - bi;
        const double pr = re2[j] + dr, pi = im2[j] + di, qr = re2[j] - dr, qi = im2[j] - di;
        const double tr = pr * c2[j] - pi * s2[j], ti = pr * s2[j] + pi * c2[j];
        const double ur = qr * c2[j] - qi * s2[j], ui = qr * s2[j] + qi * c2[j];
        re0[j] = ar + tr;
        im0[j] = ai + ti;
        re2[j] = ar - tr;
        im2[j] = ai - ti;
        re1[j] = er - ui;
        im1[j] = ei + ur;
        re3[j] = er + ui;
        im3[j] = ei - ur;
    }
}

/// All stages over n values that stand in bit-reversed order.
void joinAll(int n, double* re, double* im)
{
    const Tables& table = tables();
    int part = 1;
    if (bitsOf(n) % 2 == 1) {
        joinSingles(n, re, im);
        part = 2;
    }
    for (; part < n; part *= 4) {
        for (int first = 0; first < n; first += 4 * part)
            joinQuarters(re + first, im + first, part, table);
    }
}

template <class Value> void realBins(short n, double* in, double* out, const Value& value)
{
    if (n < 2 || !isPowerOfTwo(n)) {
        for (int k = 0; k < n; ++k)
            out[k] = n == 1 ? value(in[0], 0.0) : 0.0;
        return;
    }
    RealTransform transform(n);
    transform.run(in);
    for (int k = 0; k < n; ++k) {
        const int bin = std::min(k, n - k);
        out[k] = value(transform.re()[bin], transform.im()[bin]);
    }
}

}

void FFT(short n, double* re, double* im)
{
    if (n / 2 == 0 || !isPowerOfTwo(n))
        return;
    const int bits = bitsOf(n);
    for (int i = 1; i < n; ++i) {
        const int other = reversed(i, bits);
        if (i < other) {
            std::swap(re[i], re[other]);
            std::swap(im[i], im[other]);
        }
    }
    joinAll(n, re, im);
}

void SPECTR1(short n, double* in, double* out)
{
    realBins(n, in, out, [](double re, double im) { return std::hypot(re, im); });
}

void SPECTR2(short n, double* in, double* out)
{
    realBins(n, in, out, [](double re, double im) { return re * re + im * im; });
}

void XSPECTR2(short n, double* a, double* b, double* re, double* im)
{
    if (n < 2 || !isPowerOfTwo(n)) {
        for (int k = 0; k < n; ++k) {
            re[k] = n == 1 ? a[0] * b[0] : 0.0;
            im[k] = 0.0;
        }
        return;
    }
    RealTransform first(n), second(n);
    first.run(a);
    second.run(b);
    for (int k = 0; k < n; ++k) {
        const int bin = std::min(k, n - k);
        const double ar = first.re()[bin], br = second.re()[bin];
        const double ai = first.im()[bin], bi = second.im()[bin];
        re[k] = ar * br + ai * bi;
        im[k] = bin == k ? ai * br - ar * bi : ar * bi - ai * br;
    }
}

RealTransform::RealTransform(int n)
    : m_half(n / 2)
    , m_re(static_cast<std::size_t>(m_half) + 1)
    , m_im(m_re.size())
{
}

void RealTransform::run(const double* in)
{
    const Tables& table = tables();
    const int bits = bitsOf(m_half);
    double *const re = m_re.data(), *const im = m_im.data();
    for (int k = 0; k < m_half; ++k) {
        const int from = reversed(k, bits);
        re[k] = in[2 * from];
        im[k] = in[2 * from + 1];
    }
    joinAll(m_half, re, im);

    // Z = E + i*O, with E and O the transforms of the even and the odd samples: X[k] = E[k] + w[k]*O[k]. The
    // bin in the middle stands already.
    const double *const c = table.cosine.data() + m_half, *const s = table.sine.data() + m_half;
    re[m_half] = re[0] - im[0];
    re[0] += im[0];
    im[0] = 0.0; // as im[m_half] is from the start
#pragma GCC ivdep
    for (int k = 1; k < m_half / 2; ++k) {
        const int mirror = m_half - k;
        const double er = 0.5 * (re[k] + re[mirror]), ei = 0.5 * (im[k] - im[mirror]);
        const double orr = 0.5 * (im[k] + im[mirror]), oi = 0.5 * (re[mirror] - re[k]);
        const double wr = c[k] * orr - s[k] * oi, wi = c[k] * oi + s[k] * orr;
        re[k] = er + wr;
        im[k] = ei + wi;
        re[mirror] = er - wr;
        im[mirror] = wi - ei;
    }
}
