#include "plot/safecurves.h"

#include <QPainter>
#include <qwt_interval_symbol.h>
#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

namespace {

/// How far beyond the canvas an end is drawn, in pixels: the cap is out of sight, the line reaches the edge.
constexpr double beyond = 10.0;

QwtText plain(const QString& title)
{
    return QwtText(title, QwtText::PlainText);
}

double clamped(double pixel, double fallback, const QRectF& canvas)
{
    if (!std::isfinite(pixel))
        return fallback;
    return std::clamp(pixel, canvas.top() - beyond, canvas.bottom() + beyond);
}

} // namespace

SafeCurve::SafeCurve(const QString& title)
    : QwtPlotCurve(plain(title))
{
}

void SafeCurve::drawSeries(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
    const QRectF& canvasRect, int from, int to) const
{
    const int last = to < 0 ? int(dataSize()) - 1 : to;
    const auto hasPlace = [&](int i) {
        const QPointF point = sample(i);
        return std::isfinite(xMap.transform(point.x())) && std::isfinite(yMap.transform(point.y()));
    };
    for (int begin = std::max(from, 0); begin <= last;) {
        if (!hasPlace(begin)) {
            ++begin;
            continue;
        }
        int end = begin;
        while (end < last && hasPlace(end + 1))
            ++end;
        QwtPlotCurve::drawSeries(painter, xMap, yMap, canvasRect, begin, end);
        if (begin == end && style() == Lines && !symbol()) {
            const QPointF point(xMap.transform(sample(begin).x()), yMap.transform(sample(begin).y()));
            if (canvasRect.contains(point)) {
                QPen dot = pen();
                dot.setWidthF(std::max(4.0, dot.widthF() + 2.0));
                dot.setCapStyle(Qt::RoundCap);
                painter->setPen(dot);
                painter->drawPoint(point);
            }
        }
        begin = end + 1;
    }
}

SafeIntervalCurve::SafeIntervalCurve(const QString& title)
    : QwtPlotIntervalCurve(plain(title))
{
}

void SafeIntervalCurve::drawSymbols(QPainter* painter, const QwtIntervalSymbol& symbol,
    const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect, int from, int to) const
{
    painter->setPen(symbol.pen());
    painter->setBrush(symbol.brush());
    for (int i = from; i <= to; ++i) {
        const QwtIntervalSample bar = sample(size_t(i));
        const double x = xMap.transform(bar.value);
        const double high = yMap.transform(bar.interval.maxValue());
        if (!std::isfinite(x) || x < canvasRect.left() - beyond || x > canvasRect.right() + beyond
            || !std::isfinite(high))
            continue;
        const double low =
            clamped(yMap.transform(bar.interval.minValue()), canvasRect.bottom() + beyond, canvasRect);
        symbol.draw(painter, Qt::Vertical, QPointF(x, low), QPointF(x, clamped(high, low, canvasRect)));
    }
}
