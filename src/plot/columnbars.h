#pragma once

#include <QPointF>
#include <QRectF>

#include <functional>
#include <vector>

class QColor;
class QPainter;

/// The part of a dense line that falls into neighbouring columns of pixels of the device, told by what it
/// covers of each column. A line that goes up and down many times within a column need not be drawn stroke by
/// stroke.
class ColumnBars {
public:
    /// Columns `first` to `first + count - 1`.
    ColumnBars(int first, int count);

    bool covers(double x) const { return x >= m_first && x < m_first + int(m_bars.size()); }
    /// A stroke between two points in the columns, in pixels of the device; `to` is not left of `from`.
    void add(const QPointF& from, const QPointF& to);
    /// So much is covered that bars look like the strokes themselves.
    bool tall() const;
    /// Fills what a solid pen of this width covers within `clip`, both in pixels of the device.
    void draw(QPainter* painter, const QColor& color, double penWidth, const QRectF& clip) const;

private:
    /// Empty when `low` lies above `high`. Y counts downwards, so `low` is the upper end on the screen.
    struct Bar {
        double low;
        double high;
    };

    /// The columns from one to before another, counted from the first bar, and two places in Y.
    using Fill = std::function<void(size_t from, size_t to, double top, double bottom)>;

    Bar& at(int column) { return m_bars[size_t(column - m_first)]; }
    void extend(int column, double y);
    std::vector<Bar> widened(int by) const;
    static void fillShared(const std::vector<Bar>& bars, size_t from, size_t to, const Fill& fill);
    static void fillEdge(
        const std::vector<Bar>& bars, size_t from, size_t to, double edge, bool upper, const Fill& fill);

    int m_first;
    std::vector<Bar> m_bars;
};
