#include "plot/columnbars.h"

#include <QBrush>
#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// Mean height, in pixels, from which on columns look alike as bars and as strokes.
constexpr double tallHeight = 12.0;

} // namespace

ColumnBars::ColumnBars(int first, int count)
    : m_first(first)
    , m_bars(size_t(std::max(count, 1)),
          Bar{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()})
{
}

void ColumnBars::extend(int column, double y)
{
    Bar& bar = at(column);
    bar.low = std::min(bar.low, y);
    bar.high = std::max(bar.high, y);
}

void ColumnBars::add(const QPointF& from, const QPointF& to)
{
    const int begin = int(std::floor(from.x()));
    const int end = int(std::floor(to.x()));
    extend(begin, from.y());
    // Only a stroke that leaves its column has a slope.
    for (int column = begin; column < end; ++column) {
        const double share = (column + 1 - from.x()) / (to.x() - from.x());
        const double y = from.y() + share * (to.y() - from.y());
        extend(column, y);
        extend(column + 1, y);
    }
    extend(end, to.y());
}

bool ColumnBars::tall() const
{
    double sum = 0.0;
    int count = 0;
    for (const Bar& bar : m_bars) {
        if (bar.low > bar.high)
            continue;
        sum += bar.high - bar.low;
        ++count;
    }
    return sum > tallHeight * count;
}

/// The bars with their neighbours' on either side, as a wide pen draws them; `by` more bars at both ends.
std::vector<ColumnBars::Bar> ColumnBars::widened(int by) const
{
    const int count = int(m_bars.size());
    std::vector<Bar> wide(size_t(count + 2 * by), ColumnBars(0, 1).m_bars.front());
    for (int i = 0; i < count; ++i) {
        for (int k = i; k <= i + 2 * by; ++k) {
            wide[size_t(k)].low = std::min(wide[size_t(k)].low, m_bars[size_t(i)].low);
            wide[size_t(k)].high = std::max(wide[size_t(k)].high, m_bars[size_t(i)].high);
        }
    }
    return wide;
}

void ColumnBars::draw(QPainter* painter, const QColor& color, double penWidth, const QRectF& clip) const
{
    const double half = 0.5 * penWidth;
    const int beside = std::max(0, int(std::lround(half - 0.5)));
    std::vector<Bar> bars = widened(beside);
    const double left = m_first - beside;
    for (size_t i = 0; i < bars.size(); ++i) {
        Bar& bar = bars[i];
        const double x = left + double(i);
        if (bar.low > bar.high || x < clip.left() || x >= clip.right()) {
            bar = Bar{0.0, 0.0};
            continue;
        }
        // A steep stroke is hardly longer than the way between its ends, a level one is as high as the pen.
        const double reach = std::max(0.5, half - 0.5 * (bar.high - bar.low));
        bar.low = std::round(std::max(bar.low - reach, clip.top()));
        bar.high = std::round(std::min(bar.high + reach, clip.bottom()));
    }
    const QTransform toLogical = painter->deviceTransform().inverted();
    const QBrush brush(color);
    const Fill fill = [&](size_t from, size_t to, double top, double bottom) {
        const QRectF rect(left + double(from), top, double(to - from), bottom - top);
        painter->fillRect(toLogical.mapRect(rect), brush);
    };
    fillShared(bars, 0, bars.size(), fill);
}

/// Fills the bars from `from` to before `to`: what all of them share in one piece, for wide pieces take a
/// painter less time than narrow ones, then what is left of either half.
void ColumnBars::fillShared(const std::vector<Bar>& bars, size_t from, size_t to, const Fill& fill)
{
    double top = -std::numeric_limits<double>::infinity(), bottom = -top;
    for (size_t i = from; i < to; ++i) {
        top = std::max(top, bars[i].low);
        bottom = std::min(bottom, bars[i].high);
    }
    const size_t middle = from + (to - from) / 2;
    if (top < bottom) {
        fill(from, to, top, bottom);
        fillEdge(bars, from, to, top, true, fill);
        fillEdge(bars, from, to, bottom, false, fill);
    } else if (to - from > 1) {
        fillShared(bars, from, middle, fill);
        fillShared(bars, middle, to, fill);
    }
}

/// The same for what reaches beyond `edge`, upwards or downwards.
void ColumnBars::fillEdge(
    const std::vector<Bar>& bars, size_t from, size_t to, double edge, bool upper, const Fill& fill)
{
    double shared =
        upper ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
    for (size_t i = from; i < to; ++i)
        shared = upper ? std::max(shared, bars[i].low) : std::min(shared, bars[i].high);
    if (shared != edge)
        fill(from, to, std::min(shared, edge), std::max(shared, edge));
    if (to - from < 2)
        return;
    const size_t middle = from + (to - from) / 2;
    fillEdge(bars, from, middle, shared, upper, fill);
    fillEdge(bars, middle, to, shared, upper, fill);
}
