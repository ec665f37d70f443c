#include "plot/safecurves.h"

#include "plot/columnbars.h"
#include "plot/core/loglimits.h"

#include <QPaintEngine>
#include <QPainter>
#include <QTransform>
#include <qwt_clipper.h>
#include <qwt_interval_symbol.h>
#include <qwt_painter.h>
#include <qwt_scale_map.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

/// How far beyond the canvas an end is drawn, in pixels: the cap is out of sight, the line reaches the edge.
constexpr double beyond = 10.0;
/// A curve with fewer points to a column of pixels is drawn point by point.
constexpr double pointsPerColumn = 1.5;
/// Columns that are drawn in one way.
constexpr int columnsAtOnce = 64;
/// Columns of a vector picture to a pixel.
constexpr double finer = 4.0;

/// The least and greatest of the values that a linear and a logarithmic axis can show.
struct Reach {
    QwtInterval all, logarithmic;

    /// False for a value that no axis can show.
    bool add(double value)
    {
        if (!std::isfinite(value))
            return false;
        widen(all, value);
        if (value >= logLow && value <= logHigh)
            widen(logarithmic, value);
        return true;
    }

    static void widen(QwtInterval& interval, double value)
    {
        // An invalid interval is not extended by a value.
        interval = interval.isValid() ? interval.extend(value) : QwtInterval(value, value);
    }
};

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

void SafeCurve::dataChanged()
{
    m_facts = Facts();
    QwtPlotCurve::dataChanged();
}

const SafeCurve::Facts& SafeCurve::facts() const
{
    if (m_facts.known)
        return m_facts;
    Facts facts;
    Reach x, y;
    double before = -std::numeric_limits<double>::infinity();
    const int count = int(dataSize());
    for (int i = 0; i < count; ++i) {
        const QPointF point = sample(i);
        facts.rising = facts.rising && std::isfinite(point.x()) && point.x() >= before;
        before = point.x();
        facts.xFinite = x.add(point.x()) && facts.xFinite;
        facts.yFinite = y.add(point.y()) && facts.yFinite;
    }
    facts.x = x.all;
    facts.y = y.all;
    facts.xLog = x.logarithmic;
    facts.yLog = y.logarithmic;
    facts.known = true;
    m_facts = facts;
    return m_facts;
}

QwtInterval SafeCurve::xRange(bool logarithmic) const
{
    return logarithmic ? facts().xLog : facts().x;
}

QwtInterval SafeCurve::yRange(bool logarithmic) const
{
    return logarithmic ? facts().yLog : facts().y;
}

bool SafeCurve::allHavePlace(const QwtScaleMap& xMap, const QwtScaleMap& yMap) const
{
    const auto fits = [](const QwtScaleMap& map, bool finite, const QwtInterval& range) {
        return finite && (!map.transformation() || range.minValue() > 0.0);
    };
    return dataSize() > 0 && fits(xMap, facts().xFinite, facts().x) && fits(yMap, facts().yFinite, facts().y);
}

/// The points between two pixels, and one more at either end for the line that leads there.
SafeCurve::Span SafeCurve::visibleSpan(const QwtScaleMap& xMap, double left, double right, Span all) const
{
    if (!facts().rising || all.from > all.to)
        return all;
    const double a = xMap.invTransform(left);
    const double b = xMap.invTransform(right);
    const double low = std::min(a, b);
    const double high = std::max(a, b);
    const auto firstFrom = [&](auto&& reached) {
        int begin = all.from;
        int end = all.to + 1;
        while (begin < end) {
            const int middle = begin + (end - begin) / 2;
            if (reached(sample(middle).x()))
                end = middle;
            else
                begin = middle + 1;
        }
        return begin;
    };
    const int first = firstFrom([low](double x) { return x >= low; });
    const int behind = firstFrom([high](double x) { return x > high; });
    return {std::max(all.from, first - 1), std::min(all.to, behind)};
}

/// Runs of points that all have a place.
QVector<SafeCurve::Span> SafeCurve::pieces(const QwtScaleMap& xMap, const QwtScaleMap& yMap, Span all) const
{
    if (all.from > all.to)
        return {};
    if (allHavePlace(xMap, yMap))
        return {all};
    const auto hasPlace = [&](int i) {
        const QPointF point = sample(i);
        return std::isfinite(xMap.transform(point.x())) && std::isfinite(yMap.transform(point.y()));
    };
    QVector<Span> spans;
    for (int begin = all.from; begin <= all.to; ++begin) {
        if (!hasPlace(begin))
            continue;
        int end = begin;
        while (end < all.to && hasPlace(end + 1))
            ++end;
        spans << Span{begin, end};
        begin = end;
    }
    return spans;
}

/// Of the points that follow one another in a column of pixels, the first, the lowest, the highest and the
/// last draw the same picture as all of them.
QPolygonF SafeCurve::thinned(
    const QwtScaleMap& xMap, const QwtScaleMap& yMap, Span span, double column, bool wholePixels) const
{
    const auto pixelOf = [&](int i) {
        const QPointF point = sample(i);
        const QPointF pixel(xMap.transform(point.x()), yMap.transform(point.y()));
        return wholePixels ? QPointF(std::round(pixel.x()), std::round(pixel.y())) : pixel;
    };
    QPolygonF line;
    for (int i = span.from; i <= span.to;) {
        const QPointF first = pixelOf(i);
        const double place = std::floor(first.x() / column);
        QPointF last = first, low = first, high = first;
        int lowAt = i, highAt = i, next = i + 1;
        for (; next <= span.to; ++next) {
            const QPointF pixel = pixelOf(next);
            if (std::floor(pixel.x() / column) != place)
                break;
            if (pixel.y() < low.y()) {
                low = pixel;
                lowAt = next;
            }
            if (pixel.y() > high.y()) {
                high = pixel;
                highAt = next;
            }
            last = pixel;
        }
        line << first;
        const bool lowFirst = lowAt < highAt;
        for (const auto& [at, pixel] : {std::make_pair(lowFirst ? lowAt : highAt, lowFirst ? low : high),
                 std::make_pair(lowFirst ? highAt : lowAt, lowFirst ? high : low)}) {
            if (at != i && at != next - 1)
                line << pixel;
        }
        if (next - 1 != i)
            line << last;
        i = next;
    }
    return line;
}

QVector<QPolygonF> SafeCurve::outlines(const QwtScaleMap& xMap, const QwtScaleMap& yMap, double column) const
{
    QVector<QPolygonF> lines;
    const Span all = visibleSpan(xMap, xMap.p1(), xMap.p2(), {0, int(dataSize()) - 1});
    for (const Span& span : pieces(xMap, yMap, all))
        lines << thinned(xMap, yMap, span, column, false);
    return lines;
}

int SafeCurve::pointNear(
    const QPointF& pixel, const QwtScaleMap& xMap, const QwtScaleMap& yMap, double* distance) const
{
    const Span span =
        visibleSpan(xMap, pixel.x() - *distance, pixel.x() + *distance, {0, int(dataSize()) - 1});
    int found = -1;
    for (int i = span.from; i <= span.to; ++i) {
        const QPointF point = sample(i);
        const double away =
            std::hypot(xMap.transform(point.x()) - pixel.x(), yMap.transform(point.y()) - pixel.y());
        // A point without a place has no distance.
        if (!(away <= *distance))
            continue;
        *distance = away;
        found = i;
    }
    return found;
}

void SafeCurve::drawSeries(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
    const QRectF& canvasRect, int from, int to) const
{
    const int last = to < 0 ? int(dataSize()) - 1 : to;
    // A symbol shows where its middle is already out of sight.
    const double edge = symbol() ? 0.5 * std::max(symbol()->size().width(), symbol()->size().height()) : 0.0;
    const Span seen = visibleSpan(
        xMap, canvasRect.left() - edge - 1.0, canvasRect.right() + edge + 1.0, {std::max(from, 0), last});
    for (const Span& span : pieces(xMap, yMap, seen)) {
        drawPiece(painter, xMap, yMap, canvasRect, span);
        const QPointF point = sample(span.from);
        if (span.from == span.to && style() == Lines && !symbol())
            drawDot(painter, QPointF(xMap.transform(point.x()), yMap.transform(point.y())), canvasRect);
    }
}

void SafeCurve::drawPiece(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
    const QRectF& canvasRect, Span span) const
{
    const bool onlyLine = style() == Lines && !symbol() && brush().style() == Qt::NoBrush
        && !testCurveAttribute(Fitted) && testPaintAttribute(FilterPoints);
    // Columns of the device. A vector picture may be looked at through a glass.
    const QTransform& toDevice = painter->deviceTransform();
    const bool vector = painter->paintEngine() && painter->paintEngine()->type() != QPaintEngine::Raster;
    const double scale = std::max(1.0, std::hypot(toDevice.m11(), toDevice.m12())) * (vector ? finer : 1.0);
    const double columns = canvasRect.width() * scale;
    if (!onlyLine || span.to - span.from < pointsPerColumn * columns) {
        QwtPlotCurve::drawSeries(painter, xMap, yMap, canvasRect, span.from, span.to);
        return;
    }
    const double width = std::max(1.0, pen().widthF());
    const QRectF clip = canvasRect.adjusted(-width, -width, width, width);
    painter->save();
    painter->setPen(pen());
    // The library, too, puts the points of a picture in pixels on whole ones.
    const QPolygonF line = thinned(xMap, yMap, span, 1.0 / scale, QwtPainter::roundingAlignment(painter));
    if (!vector && asBars(*painter))
        drawDense(painter, line, clip);
    else
        QwtPainter::drawPolyline(painter, QwtClipper::clipPolygonF(clip, line));
    painter->restore();
}

/// Bars are right for a solid line that goes from left to right.
bool SafeCurve::asBars(const QPainter& painter) const
{
    const QTransform& toDevice = painter.deviceTransform();
    return facts().rising && pen().style() == Qt::SolidLine && pen().color().alpha() == 255
        && toDevice.type() <= QTransform::TxScale && toDevice.m11() > 0.0 && toDevice.m22() > 0.0;
}

/// Strokes that go up and down all over the picture take the painter long, and where they stand close
/// together they leave nothing of it. There the columns of pixels are filled; elsewhere the line is drawn.
void SafeCurve::drawDense(QPainter* painter, const QPolygonF& line, const QRectF& clip) const
{
    const QTransform toDevice = painter->deviceTransform();
    const QRectF seen = toDevice.mapRect(clip).toAlignedRect();
    const double width = std::max(1.0, pen().widthF() * toDevice.m11());
    const bool smooth = painter->testRenderHint(QPainter::Antialiasing);
    int drawn = 0; // up to this point
    const auto stroke = [&](int to) {
        const QPolygonF part = line.mid(drawn, to - drawn + 1);
        if (part.size() > 1)
            QwtPainter::drawPolyline(painter, QwtClipper::clipPolygonF(clip, part));
    };
    for (int i = 0; i < line.size();) {
        QPointF last = toDevice.map(line[i]);
        ColumnBars bars(
            int(std::floor(std::clamp(last.x(), seen.left() - 1.0, seen.right() + 1.0))), columnsAtOnce);
        int next = i + 1;
        for (; next < line.size() && bars.covers(last.x()); ++next) {
            const QPointF pixel = toDevice.map(line[next]);
            if (!bars.covers(pixel.x()))
                break;
            bars.add(last, pixel);
            last = pixel;
        }
        if (bars.tall()) {
            stroke(i);
            painter->setRenderHint(QPainter::Antialiasing, false);
            bars.draw(painter, pen().color(), width, seen);
            painter->setRenderHint(QPainter::Antialiasing, smooth);
            drawn = next - 1;
        }
        i = next;
    }
    stroke(line.size() - 1);
}

void SafeCurve::drawDot(QPainter* painter, const QPointF& pixel, const QRectF& canvasRect) const
{
    if (!canvasRect.contains(pixel))
        return;
    QPen dot = pen();
    dot.setWidthF(std::max(4.0, dot.widthF() + 2.0));
    dot.setCapStyle(Qt::RoundCap);
    painter->setPen(dot);
    painter->drawPoint(pixel);
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
