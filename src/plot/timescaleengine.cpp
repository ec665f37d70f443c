#include "plot/timescaleengine.h"

#include "plot/core/timeticks.h"

#include <cmath>

namespace {

/// Rounding of the ends of a scale, in steps.
constexpr double slack = 1e-9;

} // namespace

void TimeScaleEngine::autoScale(int maxSteps, double& x1, double& x2, double& stepSize) const
{
    const double step = timeStep(x2 - x1, maxSteps, m_dates).major;
    if (step <= 0.0) {
        QwtLinearScaleEngine::autoScale(maxSteps, x1, x2, stepSize);
        return;
    }
    // A measurement starts when it starts: the scale is widened to the next minor tick at most.
    const double grid = step / timeStep(x2 - x1, maxSteps, m_dates).minors;
    x1 = std::floor(x1 / grid + slack) * grid;
    x2 = std::ceil(x2 / grid - slack) * grid;
    stepSize = step;
}

QwtScaleDiv TimeScaleEngine::divideScale(
    double x1, double x2, int maxMajor, int maxMinor, double stepSize) const
{
    const TimeStep step = timeStep(std::fabs(x2 - x1), maxMajor, m_dates);
    if (step.major <= 0.0)
        return QwtLinearScaleEngine::divideScale(x1, x2, maxMajor, maxMinor, stepSize);
    const double grid = step.major / step.minors;
    const double low = std::ceil(std::fmin(x1, x2) / grid - slack);
    const double high = std::floor(std::fmax(x1, x2) / grid + slack);
    QList<double> ticks[QwtScaleDiv::NTickTypes];
    for (double k = low; k <= high; ++k) {
        const bool major = std::fmod(k, step.minors) == 0.0;
        ticks[major ? QwtScaleDiv::MajorTick : QwtScaleDiv::MinorTick] << k * grid;
    }
    return QwtScaleDiv(x1, x2, ticks);
}
