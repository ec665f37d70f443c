#include "store/scheduleitem.h"

#include "store/core/mapstruct.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <algorithm>

namespace {

constexpr int leastNameWidth = 26; // pixels; a narrower segment shows no name
constexpr int namePadding = 3;
constexpr double outside = 4.0; // pixels beyond the edge, where rounding cannot be seen

/// A rectangle of the scene in pixels, cut off at the edges of what is shown.
QRect pixelsOf(const QTransform& toPixels, const QRectF& rect, const QRectF& shown)
{
    const QRectF mapped = toPixels.mapRect(rect);
    const int left = qRound(std::max(mapped.left(), shown.left() - outside));
    const int right = qRound(std::min(mapped.right(), shown.right() + outside));
    const int top = qRound(mapped.top());
    return QRect(left, top, std::max(0, right - left), qRound(mapped.bottom()) - top);
}

void drawName(QPainter* painter, const QRect& segment, const QRectF& shown, const QString& name)
{
    // The name stays in sight while a part of its segment is.
    const int left = std::max(segment.left(), qRound(shown.left()));
    const int right = std::min(segment.right() + 1, qRound(shown.right()));
    if (right - left < leastNameWidth)
        return;
    const QFontMetrics metrics = painter->fontMetrics();
    const QString text = metrics.elidedText(name, Qt::ElideRight, right - left - 2 * namePadding);
    const int width = metrics.horizontalAdvance(text) + 2 * namePadding;
    const QRect box(
        left, segment.top(), std::min(width, right - left), std::min(metrics.height(), segment.height()));
    painter->fillRect(box, scheduleColors::segmentText);
    painter->setPen(Qt::black);
    painter->drawText(box, Qt::AlignCenter, text);
}

} // namespace

QColor scheduleColors::ofKind(char kind)
{
    switch (kind) {
    case mapStruct::finished:
        return {0, 150, 0};
    case mapStruct::current:
        return {120, 0, 230};
    case mapStruct::cutOff:
        return {0, 90, 0};
    default:
        return {200, 200, 200};
    }
}

ScheduleItem::ScheduleItem(const ScheduleData& data)
    : m_data(data)
{
    setFlag(ItemUsesExtendedStyleOption); // tells what has to be drawn
}

QRectF ScheduleItem::boundingRect() const
{
    return QRectF(0.0, 0.0, m_data.widthX, m_data.heightY);
}

void ScheduleItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*)
{
    const QTransform toPixels = painter->worldTransform();
    const QRectF area = option->exposedRect.intersected(boundingRect());
    painter->save();
    painter->resetTransform();
    painter->setRenderHint(QPainter::Antialiasing, false);
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(painter->font().pointSizeF());
    painter->setFont(font);
    for (int band = 0; band < m_data.bands.count(); ++band) {
        if (area.top() < (band + 1) * chart::bandStep && area.bottom() >= band * chart::bandStep)
            drawBand(painter, toPixels, band, area);
    }
    const QRectF shown = toPixels.mapRect(area);
    for (const QRectF& mark : m_data.marks) {
        QRect pixels = pixelsOf(toPixels, mark, shown);
        pixels.setWidth(std::max(leastWidth, pixels.width()));
        if (mark.right() >= area.left() && mark.left() <= area.right())
            painter->fillRect(pixels, scheduleColors::mark);
    }
    painter->restore();
}

void ScheduleItem::drawBand(QPainter* painter, const QTransform& toPixels, int band, const QRectF& area) const
{
    const chart::Layout& layout = m_data.bands;
    const QRectF shown = toPixels.mapRect(area);
    const double reach = leastWidth / toPixels.m11();
    const auto begin = layout.blocks.begin() + layout.firstOfBand.at(band);
    const auto last = layout.blocks.begin() + layout.firstOfBand.at(band + 1);
    const auto first = std::lower_bound(begin, last, area.left() - reach,
        [](const chart::Block& block, double x) { return block.rect.right() < x; });
    const auto end = std::upper_bound(first, last, area.right() + reach,
        [](double x, const chart::Block& block) { return x < block.rect.left(); });
    // What stands for data lies above what stands for none, and names above both.
    for (auto block = first; block != end; ++block) {
        if (block->segment >= 0)
            continue;
        // The second between two structures is no gap to be seen.
        const bool seen = block == begin || block->rect.width() * toPixels.m11() >= 0.5;
        painter->fillRect(pixelsOf(toPixels, block->rect, shown),
            seen ? scheduleColors::nothing : scheduleColors::ofKind((block - 1)->kind));
    }
    for (auto block = first; block != end; ++block) {
        if (block->segment < 0)
            continue;
        QRect pixels = pixelsOf(toPixels, block->rect, shown);
        pixels.setWidth(std::max(block->kind == mapStruct::current ? leastWidth : 1, pixels.width()));
        painter->fillRect(pixels, scheduleColors::ofKind(block->kind));
    }
    for (auto block = first; block != end; ++block) {
        if (block->segment >= 0 && block->rect.width() * toPixels.m11() >= leastNameWidth)
            drawName(painter, pixelsOf(toPixels, block->rect, shown), shown,
                m_data.labels.at(block->segment).text);
    }
    painter->fillRect(pixelsOf(toPixels, layout.dividers.at(band), shown), scheduleColors::divider);
}
