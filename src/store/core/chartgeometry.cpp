#include "store/core/chartgeometry.h"

#include "store/core/mapstruct.h"
#include "store/core/recordingtime.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace chart {

Layout layOut(const mapStruct& map, const QDate& from, const QDate& to)
{
    Layout layout;
    const QDateTime origin = dayStart(from);
    const double end = secondsBetween(origin, dayEnd(to));
    const int bands = map.channels.size();
    layout.blockOfSegment.fill(-1, map.segmentCount());
    for (int band = 0; band < bands; ++band) {
        const double y = band * bandStep;
        layout.firstOfBand << layout.blocks.size();
        const auto add = [&](double left, double right, char kind, int segment) {
            layout.blocks << Block{QRectF(left, y, right - left, bandHeight), kind, segment};
        };
        double x = 0.0;
        for (int i = map.firstOfChannel.at(band); i < map.firstOfChannel.at(band + 1); ++i) {
            const double left = std::max(x, secondsBetween(origin, map.starts.at(i)));
            const double right = std::max(left, secondsBetween(origin, map.stops.at(i)));
            if (left > x)
                add(x, left, mapStruct::noData, -1);
            layout.blockOfSegment[i] = layout.blocks.size();
            add(left, right, map.kinds.at(i), i);
            x = right;
        }
        if (end > x)
            add(x, end, mapStruct::noData, -1);
        layout.dividers << QRectF(0.0, y + bandHeight, end + 1.0, dividerHeight);
    }
    layout.firstOfBand << layout.blocks.size();
    layout.width = end + 1.0;
    layout.height = bands * bandStep;
    return layout;
}

QRectF markOf(int band, const QDate& from, const QDateTime& start, const QDateTime& stop)
{
    const QDateTime origin = dayStart(from);
    return QRectF(
        secondsBetween(origin, start), band * bandStep + markTop, secondsBetween(start, stop), markHeight);
}

QDateTime timeAt(const QDate& from, double x)
{
    return plusSeconds(dayStart(from), qint64(std::floor(x)));
}

namespace {

/// The blocks of a band that may touch x and what lies right of it.
QVector<Block>::const_iterator blockAt(const Layout& layout, int band, double x)
{
    const auto first = layout.blocks.begin() + layout.firstOfBand.at(band);
    const auto last = layout.blocks.begin() + layout.firstOfBand.at(band + 1);
    return std::lower_bound(
        first, last, x, [](const Block& block, double at) { return block.rect.right() < at; });
}

} // namespace

Place placeAt(const Layout& layout, const QPointF& point, double reach)
{
    Place place;
    if (!(point.x() >= 0.0 && point.x() < layout.width && point.y() >= 0.0 && point.y() < layout.height))
        return place;
    place.day = int(point.x() / daySeconds) + 1;
    place.band = int(point.y() / bandStep);
    if (point.y() - place.band * bandStep > bandHeight)
        return place; // on the divider
    const auto last = layout.blocks.begin() + layout.firstOfBand.at(place.band + 1);
    double nearest = reach / 2.0;
    bool hit = false;
    for (auto block = blockAt(layout, place.band, point.x() - reach); block != last; ++block) {
        if (block->rect.left() > point.x() + reach)
            break;
        if (block->segment < 0 || block->rect.width() >= reach)
            continue;
        const double distance = std::abs(block->rect.center().x() - point.x());
        if (distance <= nearest) {
            nearest = distance;
            place.segment = block->segment;
            hit = true;
        }
    }
    auto under = blockAt(layout, place.band, point.x());
    while (under != last && under->rect.right() <= point.x())
        ++under; // what ends here is not under the point
    if (!hit && under != last && under->rect.left() <= point.x())
        place.segment = under->segment;
    return place;
}

QVector<int> segmentsIn(const Layout& layout, const QRectF& area)
{
    QVector<int> found;
    for (int band = 0; band < layout.count(); ++band) {
        const double top = band * bandStep;
        if (area.bottom() < top || area.top() > top + bandHeight)
            continue;
        const auto last = layout.blocks.begin() + layout.firstOfBand.at(band + 1);
        for (auto block = blockAt(layout, band, area.left()); block != last; ++block) {
            if (block->rect.left() > area.right())
                break;
            if (block->segment >= 0)
                found << block->segment;
        }
    }
    return found;
}

double zoomFactor(int delta)
{
    return std::pow(1.1, delta / 120.0);
}

QString nameOf(const mapStruct& map, int segment)
{
    const QString name = map.names.value(segment);
    return name.isEmpty() ? QStringLiteral("...") : name;
}

double rulerStep(double least)
{
    static const double steps[] = {1, 5, 10, 30, 60, 300, 600, 1800, 3600, 7200, 10800, 21600, 43200, 86400,
        2 * 86400, 5 * 86400, 10 * 86400, 20 * 86400, 50 * 86400, 100 * 86400};
    const auto step = std::lower_bound(std::begin(steps), std::end(steps), least);
    return step == std::end(steps) ? *(step - 1) : *step;
}

}
