#include "stats/spectra.h"

#include "base/globals.h"
#include "base/paths.h"
#include "stats/convolution.h"
#include "stats/fft.h"
#include "stats/firfilter.h"
#include "support/directsums.h"
#include "support/near.h"
#include "support/scopedhome.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <complex>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace {

using Series = std::vector<double>;
using Complex = std::complex<double>;

const double pi = std::acos(-1.0);
const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinite = std::numeric_limits<double>::infinity();
constexpr double untouched = -12345.0;

Series noise(int n, double sigma = 1e-11)
{
    return direct::noise(n, sigma);
}

/// The sum of the definition, with the positive exponent.
std::vector<Complex> transform(const std::vector<Complex>& x)
{
    std::vector<Complex> out(x.size()), root;
    for (size_t j = 0; j < x.size(); ++j)
        root.push_back(std::polar(1.0, 2 * pi * double(j) / double(x.size())));
    for (size_t k = 0; k < x.size(); ++k) {
        for (size_t j = 0; j < x.size(); ++j)
            out[k] += x[j] * root[j * k % x.size()];
    }
    return out;
}

struct Spectrum {
    Series f = Series(4096, untouched), s1 = f, s2 = f;
    int count = 0;
};

using One = int (*)(int, double, double*, double*, double*, double*);
using Two = int (*)(int, double, double*, double*, double*, double*, double*);

Spectrum made(One estimate, Series x, double tau)
{
    Spectrum out;
    out.count = estimate(int(x.size()), tau, x.data(), out.f.data(), out.s1.data(), out.s2.data());
    return out;
}

Spectrum made(Two estimate, Series x, Series y, double tau)
{
    Spectrum out;
    out.count = estimate(int(x.size()), tau, x.data(), y.data(), out.f.data(), out.s1.data(), out.s2.data());
    return out;
}

/// The steps of the estimate one by one, without product code.
Spectrum stepByStep(const Series& x, const Series& y, double tau)
{
    const int n = int(x.size());
    int L = 8192;
    while (L > n)
        L /= 2;
    const int H = L / 2;
    Series S(static_cast<size_t>(H));
    int c = 0;
    const auto block = [L](const Series& series, int p) {
        double mean = 0.0;
        for (int k = 0; k < L; ++k)
            mean += series[size_t(p + k)] / L;
        std::vector<Complex> v;
        for (int k = 0; k < L; ++k)
            v.push_back((1 - std::cos(k * 2 * pi / L)) * (series[size_t(p + k)] - mean) * 0.5);
        return transform(v);
    };
    for (int p = 0; p + L <= n; p += H, ++c) {
        const std::vector<Complex> a = block(x, p), b = block(y, p);
        for (size_t k = 0; k < S.size(); ++k)
            S[k] += (a[k] * std::conj(b[k])).real();
    }
    const double d = tau > 0 ? 1000.0 / L / tau : 1000.0 / L;
    const double K = freqRef * freqRef * 1e12 * 2.5;
    Spectrum out;
    out.count = H - 1;
    for (int k = 1; k < H; ++k) {
        const double power = 2 * K * 4 * pi * pi * tau * S[size_t(k)] / L / c;
        const double level = 0.5 * (&x == &y ? power : std::fabs(power));
        out.f[size_t(k - 1)] = k * d;
        out.s1[size_t(k - 1)] = 10 * std::log10(level);
        out.s2[size_t(k - 1)] = 10 * std::log10((k + 1) * d * (k + 1) * d * level);
    }
    out.f[size_t(H - 1)] = H * d;
    return out;
}

/// The three stages and the join step by step, over whole filtered series.
Spectrum stages(const std::vector<Series>& series, double tau, const FirFilter& filter)
{
    FirFilter h = filter;
    const auto estimate = [&](const std::vector<Series>& s, double interval) {
        Spectrum stage = s.size() == 2 ? made(XSpectr, s[0], s[1], interval) : made(Spectr, s[0], interval);
        if (stage.count == 0) {
            stage.count = 2;
            stage.f = stage.s1 = stage.s2 = {0.0, 0.0};
        }
        return stage;
    };
    std::vector<Series> tenth, hundredth;
    for (Series x : series) {
        const int n = int(x.size());
        const std::unique_ptr<double[]> a(conv(x.data(), n, h.data(), 65));
        const std::unique_ptr<double[]> b(conv(a.get(), n + 64, h.data(), 65));
        tenth.emplace_back(a.get(), a.get() + pror(a.get(), n, 10, a.get()));
        hundredth.emplace_back(b.get(), b.get() + pror(b.get(), n, 100, b.get()));
    }
    const Spectrum one = estimate(series, tau), two = estimate(tenth, 10 * tau);
    const Spectrum three = estimate(hundredth, 100 * tau);
    const double w = one.f[size_t(one.count - 1)] / 2000.0;
    const auto above = [](const Spectrum& s, double bound) {
        for (int k = 0; k < s.count; ++k) {
            if (s.f[size_t(k)] > bound)
                return k;
        }
        return 0;
    };
    Spectrum out;
    const auto add = [&](const Spectrum& s, int from, int end) {
        for (size_t k = size_t(from); int(k) < end && out.count < 4096; ++k, ++out.count) {
            out.f[size_t(out.count)] = s.f[k];
            out.s1[size_t(out.count)] = s.s1[k];
            out.s2[size_t(out.count)] = s.s2[k];
        }
    };
    add(three, 0, above(three, w));
    add(two, above(two, w), above(two, 10 * w));
    add(one, above(one, 10 * w), one.count);
    return out;
}

QString differs(const Spectrum& got, const Spectrum& want)
{
    if (got.count != want.count)
        return QStringLiteral("%1 points instead of %2").arg(got.count).arg(want.count);
    for (size_t k = 0; k < got.f.size(); ++k) {
        for (const QString& line : {nearly(got.f[k], want.f[k]), nearly(got.s1[k], want.s1[k], 0.0, 1e-6),
                 nearly(got.s2[k], want.s2[k], 0.0, 1e-6)}) {
            if (!line.isEmpty())
                return QStringLiteral("point %1: %2").arg(k).arg(line);
        }
    }
    return QString();
}

#define SAME(got, want)                                                                                      \
    do {                                                                                                     \
        const QString line = differs(got, want);                                                             \
        QVERIFY2(line.isEmpty(), qPrintable(line));                                                          \
    } while (false)

double mean(const Series& values, int first, int end)
{
    double sum = 0.0;
    for (int k = first; k < end; ++k)
        sum += std::pow(10.0, values[size_t(k)] / 10.0);
    return 10.0 * std::log10(sum / (end - first));
}

}

class TestSpectra : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        freqRef = 5.0;
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    }

    void transforms()
    {
        for (const short n : {2, 4, 8, 16, 512, 1024}) {
            Series a = noise(n, 1.0), b = noise(n, 1.0), re = a, im = b;
            std::vector<Complex> both, first, second;
            for (size_t k = 0; k < a.size(); ++k) {
                both.emplace_back(a[k], b[k]);
                first.emplace_back(a[k], 0.0);
                second.emplace_back(b[k], 0.0);
            }
            both = transform(both);
            first = transform(first);
            second = transform(second);
            FFT(n, re.data(), im.data());
            Series modulus(a.size()), power = a, crossRe = a, crossIm = b;
            SPECTR1(n, a.data(), modulus.data());
            SPECTR2(n, power.data(), power.data()); // in place
            XSPECTR2(n, crossRe.data(), crossIm.data(), crossRe.data(), crossIm.data());
            for (size_t k = 0; k < a.size(); ++k) {
                NEAR(re[k], both[k].real(), 0.0, 1e-10);
                NEAR(im[k], both[k].imag(), 0.0, 1e-10);
                NEAR(modulus[k], std::abs(first[k]), 0.0, 1e-10);
                NEAR(power[k], std::norm(first[k]), 0.0, 1e-8);
                NEAR(crossRe[k], (first[k] * std::conj(second[k])).real(), 0.0, 1e-8);
                NEAR(crossIm[k], (first[k] * std::conj(second[k])).imag(), 0.0, 1e-8);
            }
        }
    }

    void noTransform()
    {
        for (const short n : {-32768, -1, 0, 1, 3, 12}) {
            Series re = noise(16), im = noise(16), power(16, untouched), crossRe = power, crossIm = power;
            const Series keptRe = re, keptIm = im;
            FFT(n, re.data(), im.data());
            QCOMPARE(re, keptRe);
            QCOMPARE(im, keptIm);
            SPECTR2(n, re.data(), power.data());
            XSPECTR2(n, re.data(), im.data(), crossRe.data(), crossIm.data());
            for (size_t k = 0; k < 16; ++k) {
                const bool written = int(k) < n;
                QCOMPARE(power[k], !written ? untouched : n == 1 ? re[0] * re[0] : 0.0);
                QCOMPARE(crossRe[k], !written ? untouched : n == 1 ? re[0] * im[0] : 0.0);
                QCOMPARE(crossIm[k], !written ? untouched : 0.0);
            }
        }
        Series re(16384), im(16384); // the longest that there is
        re[5] = 1.0;
        FFT(16384, re.data(), im.data());
        for (int k = 0; k < 16384; ++k)
            NEAR(im[size_t(k)], std::sin(2 * pi * (5 * k % 16384) / 16384), 0.0, 1e-14);
    }

    void thinning()
    {
        Series x = {0, 1, 2, 3, 4, 5, 6}, out(7, untouched);
        QCOMPARE(pror(x.data(), 7, 3, out.data()), 2);
        QCOMPARE(out, (Series{0, 3, untouched, untouched, untouched, untouched, untouched}));
        QCOMPARE(pror(x.data(), 7, 2, x.data()), 3);
        QCOMPARE(x, (Series{0, 2, 4, 3, 4, 5, 6}));
        for (const int factor : {0, -1, 8, std::numeric_limits<int>::max()})
            QCOMPARE(pror(x.data(), 7, factor, out.data()), 0);
        QCOMPARE(pror(nullptr, -7, 3, nullptr), 0);
    }

    void estimate()
    {
        const struct {
            int n;
            double tau;
            int points; // of one block, one and a rest, two, the next length, many
        } rows[] = {{128, 1.0, 63}, {191, 0.1, 63}, {192, 10.0, 63}, {256, 1.0, 127}, {3000, 3.7, 1023}};
        freqRef = 10.0;
        for (const auto& row : rows) {
            Series x = noise(row.n), y = noise(row.n);
            for (size_t i = 0; i < x.size(); ++i) {
                x[i] += 1e-3 + 1e-12 * double(i); // an offset and a frequency
                y[i] += 0.5 * x[i];
            }
            const Spectrum got = made(Spectr, x, row.tau);
            QCOMPARE(got.count, row.points);
            SAME(got, stepByStep(x, x, row.tau));
            SAME(made(XSpectr, x, y, row.tau), stepByStep(x, y, row.tau));
        }
    }

    void oddInput()
    {
        const Series x = noise(20000), zero(1000, 0.0), constant(1000, 0.1);
        for (const double tau : {0.0, -1.0, notANumber}) {
            const Spectrum got = made(Spectr, x, tau);
            NEAR(got.f[62], 63 * 1000.0 / 8192);
            NEAR(got.s1[62], tau == 0.0 ? -infinite : notANumber);
        }
        NEAR(made(XSpectr, x, x, -1.0).s1[5], made(Spectr, x, 1.0).s1[5]); // the absolute value
        for (const double level : {made(Spectr, zero, 1.0).s1[3], made(Spectr, constant, 1.0).s2[3],
                 made(XSpectr, constant, noise(1000), 1.0).s1[3]})
            QCOMPARE(level, -infinite);
        for (const double value : {notANumber, infinite, -infinite}) {
            Series y = x;
            y[700] = value;
            for (const Spectrum& got : {made(Spectr, y, 1.0), made(XSpectr, x, y, 1.0)}) {
                QCOMPARE(got.count, 4095);
                QVERIFY(std::isnan(got.s1[0]) && std::isnan(got.s2[4094]));
            }
        }
        for (const int n : {-1, 0, 1, 127, std::numeric_limits<int>::min()}) {
            QCOMPARE(Spectr(n, 1.0, nullptr, nullptr, nullptr, nullptr), 0);
            QCOMPARE(XSpectr(n, 1.0, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
        }
    }

    /// A sine of the phase and white phase noise come out at the levels that theory gives.
    void knownLevels()
    {
        const double sigma = 1e-11, tau = 0.5, amplitude = 1e-12;
        const int n = 200000, bin = 1000;
        Series x = noise(n, sigma), y = noise(n, sigma);
        const double carrier = 2 * pi * freqRef * 1e6;
        const double white = 10 * std::log10(carrier * carrier * sigma * sigma * tau * 2.5 / (8.0 / 3.0));
        const Spectrum got = made(Spectr, x, tau);
        NEAR(mean(got.s1, 10, 4095), white, 0.0, 0.05);
        QVERIFY(mean(made(XSpectr, x, y, tau).s1, 10, 4095) < white - 5); // nothing in common
        for (size_t i = 0; i < x.size(); ++i)
            x[i] = y[i] = amplitude * std::sin(2 * pi * bin * double(i) / 8192);
        // |X| is amplitude*L/4: half a sine, under a window of mean 1/2
        const double peak =
            10 * std::log10(2.5 * carrier * carrier * tau / 8192 * std::pow(amplitude * 8192 / 4, 2));
        const Spectrum sine = made(Spectr, x, tau), both = made(XSpectr, x, y, tau);
        NEAR(sine.f[bin - 1], 1000.0 * bin / 8192 / tau);
        NEAR(sine.s1[bin - 1], peak, 0.0, 1e-6);
        NEAR(sine.s1[bin], peak - 20 * std::log10(2.0), 0.0, 1e-6);
        QVERIFY(sine.s1[bin + 1] < peak - 200);
        NEAR(both.s1[bin - 1], peak, 0.0, 1e-6);
        const double nextBin = 20 * std::log10(sine.f[bin]);
        NEAR(sine.s2[bin - 1], peak + nextBin, 0.0, 1e-6);
    }

    void threeDecades()
    {
        // A stage gets its first block at n = 128, n/10 = 128, n/100 = 128.
        const int rows[][2] = {{0, 2}, {1, 2}, {127, 2}, {128, 63}, {1279, 509}, {1280, 512}, {12799, 4096},
            {12800, 4096}, {60000, 4096}, {1000000, 4096}};
        const ScopedHome home;
        QVERIFY(installDefaultFilter(paths::config()));
        const FirFilter filter = readFirFilter(paths::config() + QStringLiteral("/filter.txt"));
        for (const auto& [n, points] : rows) {
            const Series x = noise(n), y = noise(n);
            const Spectrum got = made(doSpectrum, x, 2.0);
            QCOMPARE(got.count, points);
            SAME(got, stages({x}, 2.0, filter));
            SAME(made(doXSpectrum, x, y, 2.0), stages({x, y}, 2.0, filter));
            QVERIFY(points == 2 ? got.f[1] == 0.0 && got.s1[1] == 0.0 && got.s2[1] == 0.0
                                : std::is_sorted(got.f.begin(), got.f.begin() + points));
        }
    }

    void decadesHoldTheLevel()
    {
        const ScopedHome home;
        const int n = 1000000;
        Series x = noise(n);
        const Spectrum bare = made(doSpectrum, x, 1.0); // no filter: nothing below 10w
        const double w = made(Spectr, x, 1.0).f[4094] / 2000.0;
        for (size_t k = 0; int(k) < bare.count; ++k)
            QCOMPARE(std::isinf(bare.s1[k]), bare.f[k] <= 10 * w);

        QVERIFY(installDefaultFilter(paths::config()));
        const Spectrum white = made(doSpectrum, x, 1.0);
        const auto place = [&](double f) {
            return int(std::upper_bound(white.f.begin(), white.f.begin() + white.count, f) - white.f.begin());
        };
        const auto level = [&](double from, double to) { return mean(white.s1, place(from), place(to)); };
        const double top = level(100.0, 400.0);
        NEAR(level(2 * w, 10 * w), top, 0.0, 0.6);
        NEAR(level(0.2 * w, w), top + 2.6, 0.0, 1.2); // what the thinning by 100 folds down
    }
};

QTEST_APPLESS_MAIN(TestSpectra)
#include "tst_spectra.moc"
