#pragma once

#include "plot/timescaledraw.h"

/// A clock that tells seconds where minutes no longer tell the ticks apart, and leaves labels out where they
/// would touch.
class ClockScaleDraw : public TimeScaleDraw {
public:
    explicit ClockScaleDraw(const QTime& base);
    QwtText label(double value) const override;

protected:
    void drawLabel(QPainter* painter, double value) const override;

private:
    QTime m_base;
};

/// Dates that tell the year, too, on a scale of more than a year; labels that would touch are left out.
class CalendarScaleDraw : public DateScaleDraw {
public:
    explicit CalendarScaleDraw(const QDateTime& base);
    QwtText label(double value) const override;

protected:
    void drawLabel(QPainter* painter, double value) const override;

private:
    QDateTime m_base;
};
