// Writes samples/clock.txt to standard output: the phase of a made-up clock against a better one, every
// second for two days. The level of each power law noise below is given by the Allan deviation that it has
// alone. The same seed gives the same bytes everywhere.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <random>

namespace {

constexpr std::uint64_t seed = 20240301;
constexpr long samples = 172800;
constexpr double tau0 = 1.0; // s

constexpr double whitePhase = 3e-12; // s, standard deviation of a phase sample: ADEV sqrt(3) * 3e-12 / tau
constexpr double whiteFrequency = 5e-13; // ADEV 5e-13 / sqrt(tau)
constexpr double flickerFloor = 1.2e-14; // ADEV at every tau
constexpr double randomWalk = 3e-17; // step of the frequency a second: ADEV 3e-17 * sqrt(tau / 3)
constexpr double frequencyOffset = 1.5e-12;
constexpr double drift = 1.5e-13 / 86400.0; // 1/s: ADEV drift * tau / sqrt(2)

/// Normal deviates by the polar-angle form of Box and Muller. The library's own distribution is left to each
/// implementation, and so would not give the same file everywhere.
class Normal {
public:
    double operator()()
    {
        if (m_kept) {
            m_kept = false;
            return m_second;
        }
        const double radius = std::sqrt(-2.0 * std::log(uniform()));
        const double angle = 2.0 * 3.14159265358979323846 * uniform();
        m_second = radius * std::sin(angle);
        m_kept = true;
        return radius * std::cos(angle);
    }

private:
    /// In (0, 1], so that its logarithm exists.
    double uniform() { return double((m_bits() >> 11) + 1) / 9007199254740992.0; }

    std::mt19937_64 m_bits{seed};
    double m_second = 0.0;
    bool m_kept = false;
};

/// Flicker noise as a sum of first-order low-pass noises of equal variance whose time constants are two
/// octaves apart, from a second to twelve days. With two octaves the Allan deviation of the sum is the
/// standard deviation of one of them.
class Flicker {
public:
    Flicker(double floor, Normal& normal)
        : m_floor(floor)
        , m_normal(normal)
    {
        for (double& state : m_states)
            state = m_floor * m_normal();
    }

    double operator()()
    {
        double sum = 0.0;
        double timeConstant = tau0;
        for (double& state : m_states) {
            const double memory = std::exp(-tau0 / timeConstant);
            state = memory * state + m_floor * std::sqrt(1.0 - memory * memory) * m_normal();
            sum += state;
            timeConstant *= 4.0;
        }
        return sum;
    }

private:
    double m_floor;
    Normal& m_normal;
    std::array<double, 11> m_states{};
};

void writeHead()
{
    std::puts("# 01.03.24 00:00:00 - 02.03.24 23:59:59");
    std::puts("# Phase of a simulated clock against an ideal one. Columns: time, s; phase difference, s.");
    std::printf("# Interval %g s, %ld samples, seed %llu; written by makeclock.\n", tau0, samples,
        static_cast<unsigned long long>(seed));
    std::printf("# White phase %g s, white frequency %g, flicker frequency %g, random walk frequency %g,\n",
        whitePhase, whiteFrequency, flickerFloor, randomWalk);
    std::printf("# frequency offset %g, drift %g per day.\n", frequencyOffset, drift * 86400.0);
}

} // namespace

int main()
{
    Normal normal;
    Flicker flicker(flickerFloor, normal);
    writeHead();
    double phase = 0.0;
    double walk = 0.0;
    for (long i = 0; i < samples; ++i) {
        std::printf("%ld %.8e\n", i, phase + whitePhase * normal());
        walk += randomWalk * normal();
        const double frequency =
            frequencyOffset + drift * (double(i) * tau0) + walk + whiteFrequency * normal() + flicker();
        phase += frequency * tau0;
    }
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? 0 : 1;
}
