#pragma once

#include <QDate>
#include <QDateTime>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVector>

class mapStruct;

/// Where things lie on the chart of a recording directory. X is in seconds from 00:00:00 of the first day, Y
/// in units; each channel has a band with a divider below it.
namespace chart {

constexpr double daySeconds = 86400.0;
constexpr double bandHeight = 50.0;
constexpr double dividerHeight = 5.0;
constexpr double bandStep = bandHeight + dividerHeight;
constexpr double markTop = 37.5; // of a selection mark, below the top of its band
constexpr double markHeight = 12.5;

/// A coloured rectangle.
struct Block {
    QRectF rect;
    /// Kind of the segment; mapStruct::noData where there is none.
    char kind = 0;
    /// -1 before, between and behind the segments.
    int segment = -1;
};

struct Layout {
    /// Band by band, rising in time.
    QVector<Block> blocks;
    /// The first block of each band, and behind them the number of blocks.
    QVector<int> firstOfBand;
    /// Block of each segment.
    QVector<int> blockOfSegment;
    QVector<QRectF> dividers;
    double width = 0.0; // s
    double height = 0.0;

    int count() const { return dividers.size(); }
};

/// Lays out the segments of `map` over the days from `from` to `to`.
Layout layOut(const mapStruct& map, const QDate& from, const QDate& to);

/// The mark of a chosen stretch on a band.
QRectF markOf(int band, const QDate& from, const QDateTime& start, const QDateTime& stop);

/// The point of time at x.
QDateTime timeAt(const QDate& from, double x);

/// What lies at a point.
struct Place {
    /// From 1; 0 outside the chart.
    int day = 0;
    /// From 0; -1 outside the chart.
    int band = -1;
    /// -1 for none.
    int segment = -1;
};
/// A segment counts as wide as `reach` seconds at least, so that a short one can be hit.
Place placeAt(const Layout& layout, const QPointF& point, double reach = 0.0);

/// The segments that a rectangle touches, in rising order.
QVector<int> segmentsIn(const Layout& layout, const QRectF& area);

/// 1.1 for each 120 of a wheel's delta, its inverse for -120.
double zoomFactor(int delta);

/// "reference - measured" or, for a segment without a name, "...".
QString nameOf(const mapStruct& map, int segment);

/// A round step for the ruler, s: the least one that is at least `least`.
double rulerStep(double least);

}
