#pragma once

#include "plot/core/timeticks.h"

#include <qwt_scale_engine.h>

/// Divides an axis in seconds at whole seconds, minutes, hours and days, or an axis of whole numbers at
/// these.
class TimeScaleEngine : public QwtLinearScaleEngine {
public:
    enum class Ticks {
        Clock,
        Dates, ///< the axis shows dates only, which repeat below a day
        Whole,
    };

    /// `origin` is the second of the day at X = 0.
    TimeScaleEngine(Ticks ticks, double origin)
        : m_ticks(ticks)
        , m_origin(origin)
    {
    }
    void autoScale(int maxSteps, double& x1, double& x2, double& stepSize) const override;
    QwtScaleDiv divideScale(
        double x1, double x2, int maxMajor, int maxMinor, double stepSize = 0.0) const override;

private:
    TimeStep step(double span, int mostMajor) const;

    Ticks m_ticks;
    double m_origin;
};
