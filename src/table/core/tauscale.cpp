#include "table/core/tauscale.h"

#include <cmath>

namespace {

constexpr double hour = 3600.0; // s
constexpr double day = 86400.0; // s

/// Puts points into a scale and knows the two that stand beside the decades.
class Builder {
public:
    Builder(int step, double interval)
        : m_step(step)
        , m_interval(interval)
    {
    }

    void put(qint64 factor) { m_scale.factor.push_back(factor); }

    /// The hour follows the point at 2000 s, the day the one at 50000 s, if the point lies within one step of
    /// it.
    void putHourAfter(qint64 factor) { putAfter(factor, 2000.0, hour); }
    void putDayAfter(qint64 factor) { putAfter(factor, 50000.0, day); }

    TauScale finish()
    {
        for (const qint64 factor : m_scale.factor)
            m_scale.tau.push_back(double(factor) * m_step * m_interval);
        return std::move(m_scale);
    }

private:
    void putAfter(qint64 factor, double near, double extra)
    {
        const double seconds = double(factor) * m_step * m_interval;
        if (seconds >= near - m_step && seconds <= near + m_step)
            put(qint64(extra / m_interval)); // in intervals, not in steps: on purpose
    }

    int m_step;
    double m_interval;
    TauScale m_scale;
};

TauScale decadeScale(int step, long n, double interval)
{
    Builder scale(step, interval);
    if (n < 4)
        return scale.finish();
    const double length = double(n) * interval * step; // s
    for (qint64 m = 1;; m *= 10) {
        scale.put(m);
        if (6 * m < n)
            scale.put(2 * m);
        if (length > 3.0 * hour)
            scale.putHourAfter(2 * m);
        if (15 * m < n)
            scale.put(5 * m);
        if (length > 3.0 * day)
            scale.putDayAfter(5 * m);
        if (30 * m >= n)
            return scale.finish();
    }
}

TauScale growingScale(int step, long n, double interval)
{
    Builder scale(step, interval);
    if (n < 3)
        return scale.finish();
    const int decades = int(std::floor(std::log10(double(n / 3))));
    qint64 m = 1;
    for (int i = 0; i < decades; ++i, m *= 10) {
        scale.put(m);
        scale.put(2 * m);
        scale.putHourAfter(2 * m);
        scale.put(5 * m);
        scale.putDayAfter(5 * m);
    }
    scale.put(m);
    return scale.finish();
}

TauScale strideScale(int step, long n, double interval)
{
    Builder scale(step, interval);
    const double decade = std::pow(10.0, std::floor(std::log10(step)) + 1.0);
    const double decades = std::floor(std::log10(double(step) * double(n) / 3.0 / decade));
    const int count = n > 0 ? int(3.0 * decades + 2.0) : 0;
    if (count < 1)
        return scale.finish();
    scale.put(1);
    const double leading[] = {1.0, 2.0, 5.0};
    for (int i = 1; i < count; ++i)
        scale.put(std::llround(leading[(i - 1) % 3] * decade * std::pow(10.0, (i - 1) / 3)));
    return scale.finish();
}

} // namespace

TauScale tauScale(int step, long n, double interval, bool fromLoad)
{
    if (step < 1 || !(interval > 0.0) || !std::isfinite(interval))
        return {};
    const double exponent = std::log10(step);
    if (std::fabs(exponent - std::round(exponent)) > 0.01)
        return strideScale(step, n, interval);
    return fromLoad ? growingScale(step, n, interval) : decadeScale(step, n, interval);
}

SampleRange samplesForTau(qint64 n, qint32 perSecond, double tau)
{
    const double limit = double(perSecond) * tau;
    if (perSecond <= 0 || double(n) <= limit)
        return {0, n};
    return {qint64(double(n) - limit), qint64(limit)};
}
