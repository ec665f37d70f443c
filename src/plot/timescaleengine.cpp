#include "plot/timescaleengine.h"

#include <cmath>

namespace {

/// Rounding of the ends of a scale, in steps.
constexpr double slack = 1e-9;

} // namespace

TimeStep TimeScaleEngine::step(double span, int mostMajor) const
{
    return m_ticks == Ticks::Whole ? wholeStep(span, mostMajor)
                                   : timeStep(span, mostMajor, m_ticks == Ticks::Dates);
}

void TimeScaleEngine::autoScale(int maxSteps, double& x1, double& x2, double& stepSize) const
{
    const TimeStep found = step(x2 - x1, maxSteps);
    if (found.major <= 0.0) {
        QwtLinearScaleEngine::autoScale(maxSteps, x1, x2, stepSize);
        return;
    }
    // A measurement starts when it starts: the scale is widened to the next minor tick at most.
    const double grid = found.major / found.minors;
    x1 = std::floor((x1 + m_origin) / grid + slack) * grid - m_origin;
    x2 = std::ceil((x2 + m_origin) / grid - slack) * grid - m_origin;
    stepSize = found.major;
}

QwtScaleDiv TimeScaleEngine::divideScale(
    double x1, double x2, int maxMajor, int maxMinor, double stepSize) const
{
    const TimeStep found = step(std::fabs(x2 - x1), maxMajor);
    if (found.major <= 0.0)
        return QwtLinearScaleEngine::divideScale(x1, x2, maxMajor, maxMinor, stepSize);
    const double grid = found.major / found.minors;
    const double low = std::ceil((std::fmin(x1, x2) + m_origin) / grid - slack);
    const double high = std::floor((std::fmax(x1, x2) + m_origin) / grid + slack);
    QList<double> ticks[QwtScaleDiv::NTickTypes];
    for (double k = low; k <= high; ++k) {
        const bool major = std::fmod(k, found.minors) == 0.0;
        ticks[major ? QwtScaleDiv::MajorTick : QwtScaleDiv::MinorTick] << k * grid - m_origin;
    }
    return QwtScaleDiv(x1, x2, ticks);
}
