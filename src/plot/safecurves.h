#pragma once

#include <qwt_plot_curve.h>
#include <qwt_plot_intervalcurve.h>

/// A curve that leaves out the points that have no place on the scales: NaN, infinities, and zeros and
/// negatives on a logarithmic axis. The line is broken there; a point that stands alone is drawn as a dot.
class SafeCurve : public QwtPlotCurve {
public:
    explicit SafeCurve(const QString& title = QString());

    void drawSeries(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
        const QRectF& canvasRect, int from, int to) const override;
};

/// Error bars that never leave the canvas: an end without a place on the scale, such as a lower bound at or
/// below zero on a logarithmic axis, is drawn to the edge of the canvas.
class SafeIntervalCurve : public QwtPlotIntervalCurve {
public:
    explicit SafeIntervalCurve(const QString& title = QString());

protected:
    void drawSymbols(QPainter* painter, const QwtIntervalSymbol& symbol, const QwtScaleMap& xMap,
        const QwtScaleMap& yMap, const QRectF& canvasRect, int from, int to) const override;
};
