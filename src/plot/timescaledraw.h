#pragma once

#include <QDateTime>
#include <QTime>
#include <qwt_scale_draw.h>

/// A scale in seconds that reads as the time of the day, "hh:mm".
class TimeScaleDraw : public QwtScaleDraw {
public:
    /// `base` is the time at 0.
    explicit TimeScaleDraw(const QTime& base);

    /// Empty for a value without a place in time.
    QwtText label(double value) const override;

private:
    QTime m_base;
};

/// A scale in seconds that reads as the date, "dd.MM".
class DateScaleDraw : public QwtScaleDraw {
public:
    /// `base` is the instant at 0.
    explicit DateScaleDraw(const QDateTime& base);

    /// Empty for a value without a place in time.
    QwtText label(double value) const override;

private:
    QDateTime m_base;
};
