// Works out filter.txt, the default low-pass filter of the spectra: makefilter > filter.txt
//
// A Dolph-Chebyshev window is the linear-phase filter with the narrowest main lobe that a given number of
// taps and a given stop band allow; all its ripples are equal. Made for a decimation by 10, which folds
// everything from 0.05 of the sampling rate on into the band below: the stop band begins before that, and the
// main lobe is as narrow as can be, since the spectra thin out by 100 as well with no more than two passes of
// it. Literature: Dolph (1946), Proc. IRE 34, 335; Harris (1978), Proc. IEEE 66, 51.

#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr int taps = 65;
constexpr long double stopBand = 70.0L; // dB below the gain at zero frequency

/// Chebyshev's polynomial of even degree.
long double chebyshev(int degree, long double x)
{
    const long double size = std::fabs(x);
    return size > 1.0L ? std::cosh(degree * std::acosh(size)) : std::cos(degree * std::acos(size));
}

}

int main()
{
    const long double pi = std::acos(-1.0L);
    const int degree = taps - 1;
    const long double ripple = std::pow(10.0L, stopBand / 20.0L);
    const long double stretch = std::cosh(std::acosh(ripple) / degree);

    std::array<long double, taps> value{};
    long double sum = 0.0L;
    for (int i = 0; i < taps; ++i) {
        value[i] = chebyshev(degree, stretch);
        for (int k = 1; k <= degree / 2; ++k)
            value[i] += 2.0L * chebyshev(degree, stretch * std::cos(pi * k / taps))
                * std::cos(2.0L * pi * k * (i - degree / 2) / taps);
        sum += value[i];
    }
    for (const long double tap : value)
        std::printf("%.12Le\n", tap / sum);
    return 0;
}
