#pragma once

#include <qwt_scale_engine.h>

/// Divides an axis in seconds at whole seconds, minutes, hours and days.
class TimeScaleEngine : public QwtLinearScaleEngine {
public:
    /// `dates` for an axis that shows dates only, which repeat below a day.
    explicit TimeScaleEngine(bool dates = false)
        : m_dates(dates)
    {
    }
    void autoScale(int maxSteps, double& x1, double& x2, double& stepSize) const override;
    QwtScaleDiv divideScale(
        double x1, double x2, int maxMajor, int maxMinor, double stepSize = 0.0) const override;

private:
    bool m_dates;
};
