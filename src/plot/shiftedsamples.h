#pragma once

#include <qwt_series_data.h>

#include <memory>

/// Samples of a curve less a constant in Y. It keeps the samples that it stands before, and gives them back.
class ShiftedSamples : public QwtSeriesData<QPointF> {
public:
    explicit ShiftedSamples(double shift)
        : m_shift(shift)
    {
    }

    double shift() const { return m_shift; }
    void hold(QwtSeriesData<QPointF>* samples) { m_samples.reset(samples); }
    QwtSeriesData<QPointF>* release() { return m_samples.release(); }

    size_t size() const override { return m_samples ? m_samples->size() : 0; }
    QPointF sample(size_t i) const override { return m_samples->sample(i) - QPointF(0.0, m_shift); }
    QRectF boundingRect() const override
    {
        return m_samples ? m_samples->boundingRect().translated(0.0, -m_shift) : QRectF();
    }

private:
    std::unique_ptr<QwtSeriesData<QPointF>> m_samples;
    double m_shift;
};
