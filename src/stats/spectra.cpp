#include "stats/spectra.h"

#include "base/globals.h"
#include "base/paths.h"
#include "stats/convolution.h"
#include "stats/fft.h"
#include "stats/firfilter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

namespace {

constexpr int longestBlock = 8192, shortestBlock = 128;
constexpr int mostPoints = 4096;
constexpr double pi = 3.14159265358979323846;
constexpr double decibels = 4.3429448190325175; // 10/ln 10

int blockLength(int n)
{
    int length = longestBlock;
    while (length > n && length > shortestBlock)
        length /= 2;
    return n < length ? 0 : length;
}

/// The transforms of single blocks of one series.
class Blocks {
public:
    explicit Blocks(int length)
        : m_weight(static_cast<std::size_t>(length))
        , m_block(m_weight.size())
        , m_transform(length)
    {
        for (int k = 0; k < length; ++k)
            m_weight[static_cast<std::size_t>(k)] = (1.0 - std::cos(k * 6.283185307179586 / length)) * 0.5;
    }

    /// Counted from the first sample of the block: an offset then costs no digits.
    const RealTransform& transformed(const double* samples)
    {
        const std::size_t length = m_block.size();
        constexpr std::size_t lanes = 4;
        double sums[lanes] = {};
        for (std::size_t k = 0; k < length; k += lanes) {
            for (std::size_t lane = 0; lane < lanes; ++lane)
                sums[lane] += m_block[k + lane] = samples[k + lane] - samples[0];
        }
        const double mean = ((sums[0] + sums[1]) + (sums[2] + sums[3])) / static_cast<double>(length);
        for (std::size_t k = 0; k < length; ++k)
            m_block[k] = m_weight[k] * (m_block[k] - mean);
        m_transform.run(m_block.data());
        return m_transform;
    }

private:
    std::vector<double> m_weight, m_block;
    RealTransform m_transform;
};

/// Sums up addPower(p, S) over the blocks at p and turns S into frequencies and decibels of level(S); see the
/// header.
template <class AddPower, class Level>
int welch(int n, double tau, int length, const AddPower& addPower, const Level& level, double* f, double* s1,
    double* s2)
{
    const double K = freqRef * freqRef * 1e12 * 2.5; // not 8/3: 0.28 dB below the power of the Hann window
    const int half = length / 2;
    std::vector<double> S(static_cast<std::size_t>(half));
    long count = 0;
    for (long p = 0; p + length <= n; p += half) {
        addPower(p, S.data());
        ++count;
    }
    for (double& value : S)
        value = (2 * K) * 4.0 * pi * pi * tau * value / length / static_cast<double>(count);
    const double step = tau > 0.0 ? 1000.0 / length / tau : 1000.0 / length; // mHz
    for (int k = 1; k <= half; ++k)
        f[k - 1] = k * step; // one entry more than the points returned
    for (int k = 1; k < half; ++k) {
        const double power = level(S[static_cast<std::size_t>(k)]);
        s1[k - 1] = decibels * std::log(0.5 * power);
        s2[k - 1] = decibels * std::log(0.5 * f[k] * f[k] * power); // bin k with the frequency of bin k+1
    }
    return half - 1;
}

/// One stage of the joined spectrum. Without points it stands for two, all zero.
struct Stage {
    std::vector<double> f, s1, s2;
    int count;

    template <class Estimate>
    explicit Stage(const Estimate& estimate)
        : f(mostPoints)
        , s1(mostPoints)
        , s2(mostPoints)
        , count(estimate(f.data(), s1.data(), s2.data()))
    {
        if (count == 0)
            count = 2; // the zeros that the arrays hold
    }

    /// The first place whose frequency is above the bound, or 0.
    int firstAbove(double bound) const
    {
        const auto end = f.begin() + count;
        const auto found = std::find_if(f.begin(), end, [bound](double value) { return value > bound; });
        return found == end ? 0 : static_cast<int>(found - f.begin());
    }
};

struct Output {
    double *f, *s1, *s2;
    int count = 0;

    void append(const Stage& stage, int first, int end)
    {
        for (int k = first; k < end && count < mostPoints; ++k, ++count) {
            const std::size_t from = static_cast<std::size_t>(k);
            f[count] = stage.f[from];
            s1[count] = stage.s1[from];
            s2[count] = stage.s2[from];
        }
    }
};

int join(const Stage& fine, const Stage& tenth, const Stage& hundredth, Output out)
{
    const double w = fine.f[static_cast<std::size_t>(fine.count) - 1] / 2000.0;
    out.append(hundredth, 0, hundredth.firstAbove(w));
    out.append(tenth, tenth.firstAbove(w), tenth.firstAbove(10 * w));
    out.append(fine, fine.firstAbove(10 * w), fine.count);
    return out.count;
}

/// The filter once and twice over. The values that thinning would throw away are not worked out.
class Thinner {
public:
    Thinner()
        : m_once(readFirFilter(paths::config() + QStringLiteral("/filter.txt")))
        , m_twice(conv(m_once.data(), firTaps, m_once.data(), firTaps))
    {
    }
    std::vector<double> tenth(const double* x, int n) const
    {
        return convDecimated(x, n, m_once.data(), firTaps, 10);
    }
    std::vector<double> hundredth(const double* x, int n) const
    {
        return convDecimated(x, n, m_twice.get(), 2 * firTaps - 1, 100);
    }

private:
    FirFilter m_once;
    std::unique_ptr<double[]> m_twice;
};

Stage spectrumStage(std::vector<double> x, double tau)
{
    const int n = static_cast<int>(x.size());
    return Stage([&](double* f, double* s1, double* s2) { return Spectr(n, tau, x.data(), f, s1, s2); });
}

Stage crossStage(std::vector<double> x, std::vector<double> y, double tau)
{
    const int n = static_cast<int>(x.size());
    return Stage(
        [&](double* f, double* s1, double* s2) { return XSpectr(n, tau, x.data(), y.data(), f, s1, s2); });
}

}

int Spectr(int n, double tau, double* x, double* f, double* s1, double* s2)
{
    const int length = blockLength(n);
    if (length == 0)
        return 0;
    Blocks blocks(length);
    const auto addPower = [&](long p, double* S) {
        const RealTransform& bins = blocks.transformed(x + p);
        for (int k = 0; k < length / 2; ++k)
            S[k] += bins.re()[k] * bins.re()[k] + bins.im()[k] * bins.im()[k];
    };
    return welch(
        n, tau, length, addPower, [](double power) { return power; }, f, s1, s2);
}

int XSpectr(int n, double tau, double* x, double* y, double* f, double* s1, double* s2)
{
    const int length = blockLength(n);
    if (length == 0)
        return 0;
    Blocks blocksX(length), blocksY(length);
    const auto addPower = [&](long p, double* S) {
        const RealTransform &a = blocksX.transformed(x + p), &b = blocksY.transformed(y + p);
        for (int k = 0; k < length / 2; ++k)
            S[k] += a.re()[k] * b.re()[k] + a.im()[k] * b.im()[k];
    };
    return welch(
        n, tau, length, addPower, [](double power) { return std::fabs(power); }, f, s1, s2);
}

int pror(double* src, int n, int factor, double* dst)
{
    if (n < 1 || factor < 1)
        return 0;
    const int m = n / factor;
    for (long i = 0; i < m; ++i)
        dst[i] = src[i * factor];
    return m;
}

int doSpectrum(int n, double tau, double* x, double* f, double* s1, double* s2)
{
    const Thinner thinner;
    const Stage fine([&](double* a, double* b, double* c) { return Spectr(n, tau, x, a, b, c); });
    return join(fine, spectrumStage(thinner.tenth(x, n), 10 * tau),
        spectrumStage(thinner.hundredth(x, n), 100 * tau), {f, s1, s2});
}

int doXSpectrum(int n, double tau, double* x, double* y, double* f, double* s1, double* s2)
{
    const Thinner thinner;
    const Stage fine([&](double* a, double* b, double* c) { return XSpectr(n, tau, x, y, a, b, c); });
    return join(fine, crossStage(thinner.tenth(x, n), thinner.tenth(y, n), 10 * tau),
        crossStage(thinner.hundredth(x, n), thinner.hundredth(y, n), 100 * tau), {f, s1, s2});
}
