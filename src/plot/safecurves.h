#pragma once

#include <QPolygonF>
#include <QVector>
#include <qwt_interval.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_intervalcurve.h>

/// A curve that leaves out the points that have no place on the scales: NaN, infinities, and zeros and
/// negatives on a logarithmic axis. The line is broken there; a point that stands alone is drawn as a dot.
/// Long curves are drawn in as many strokes as their picture needs. Arrays handed over as raw samples must be
/// handed over anew when their content has changed.
class SafeCurve : public QwtPlotCurve {
public:
    explicit SafeCurve(const QString& title = QString());

    void drawSeries(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
        const QRectF& canvasRect, int from, int to) const override;

    /// Least and greatest value that have a place on an axis; invalid without any.
    QwtInterval xRange(bool logarithmic) const;
    QwtInterval yRange(bool logarithmic) const;

    /// Index of the point nearest to a pixel of the canvas within `*distance` pixels, which gets its
    /// distance; -1 for none.
    int pointNear(
        const QPointF& pixel, const QwtScaleMap& xMap, const QwtScaleMap& yMap, double* distance) const;

    /// The unbroken pieces in pixels, with no more points than a picture with columns of this width needs.
    QVector<QPolygonF> outlines(const QwtScaleMap& xMap, const QwtScaleMap& yMap, double column) const;

protected:
    void dataChanged() override;

private:
    /// What a walk over all points tells.
    struct Facts {
        bool known = false;
        bool rising = true; ///< X never falls and is finite
        bool xFinite = true;
        bool yFinite = true;
        QwtInterval x, y, xLog, yLog;
    };

    struct Span {
        int from;
        int to; ///< inclusive
    };

    const Facts& facts() const;
    bool allHavePlace(const QwtScaleMap& xMap, const QwtScaleMap& yMap) const;
    Span visibleSpan(const QwtScaleMap& xMap, double left, double right, Span all) const;
    QVector<Span> pieces(const QwtScaleMap& xMap, const QwtScaleMap& yMap, Span all) const;
    QPolygonF thinned(
        const QwtScaleMap& xMap, const QwtScaleMap& yMap, Span span, double column, bool wholePixels) const;
    void drawPiece(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
        const QRectF& canvasRect, Span span) const;
    void drawDense(QPainter* painter, const QPolygonF& line, const QRectF& clip) const;
    bool asBars(const QPainter& painter) const;
    void drawDot(QPainter* painter, const QPointF& pixel, const QRectF& canvasRect) const;

    mutable Facts m_facts;
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
