#include "plot/plotlegend.h"

#include "plot/plaintooltip.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QLayout>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QtMath>
#include <qwt_graphic.h>

#include <algorithm>

namespace {

constexpr int gap = 4;
constexpr int spacing = 1;
/// Entries have at least this width, in pixels, and stand in so many rows before there are more columns.
constexpr int narrowest = 200;
constexpr int fewRows = 4;

int boxSide(const QWidget* widget)
{
    return widget->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, widget);
}

QList<LegendCheck*> entriesOf(const QwtLegend& legend)
{
    QList<LegendCheck*> entries;
    const QLayout* layout = legend.contentsWidget()->layout();
    for (int i = 0; i < layout->count(); ++i) {
        if (auto* entry = qobject_cast<LegendCheck*>(layout->itemAt(i)->widget()))
            entries << entry;
    }
    return entries;
}

/// Of so many columns with no title shortened; rows are filled first.
int naturalWidth(const QList<LegendCheck*>& entries, int columns)
{
    int width = 0;
    for (int column = 0; column < columns; ++column) {
        int widest = 0;
        for (int i = column; i < entries.size(); i += columns)
            widest = std::max(widest, entries[i]->naturalWidth());
        width += widest + spacing;
    }
    return width;
}

} // namespace

PlotLegend::PlotLegend(QWidget* parent)
    : QwtLegend(parent)
{
    setDefaultItemMode(QwtLegendData::Checkable);
    contentsWidget()->layout()->setContentsMargins(0, 0, 0, 0);
    contentsWidget()->layout()->setSpacing(spacing);
}

QWidget* PlotLegend::createWidget(const QwtLegendData&) const
{
    auto* check = new LegendCheck;
    check->setItemMode(defaultItemMode());
    connect(check, &QwtLegendLabel::checked, this, &PlotLegend::itemChecked);
    return check;
}

QSize PlotLegend::sizeHint() const
{
    const QList<LegendCheck*> entries = entriesOf(*this);
    const int width = 2 * frameWidth() + naturalWidth(entries, entries.size());
    return QSize(width, QwtLegend::sizeHint().height());
}

int PlotLegend::heightForWidth(int width) const
{
    const QList<LegendCheck*> entries = entriesOf(*this);
    const int room = width - 2 * frameWidth() - scrollExtent(Qt::Vertical);
    const int wanted = (entries.size() + fewRows - 1) / fewRows;
    const int columns = std::clamp(wanted, 1, std::max(1, room / narrowest));
    const bool fits = sizeHint().width() <= width || naturalWidth(entries, columns) <= room;
    for (LegendCheck* entry : entries)
        entry->setWidthLimit(fits ? QWIDGETSIZE_MAX : std::max(narrowest / 2, room / columns - spacing));
    return QwtLegend::heightForWidth(width);
}

void PlotLegend::renderItem(QPainter* painter, const QWidget* widget, const QRectF& rect, bool) const
{
    if (const auto* entry = qobject_cast<const LegendCheck*>(widget))
        entry->drawEntry(painter, rect.adjusted(gap, 0.0, 0.0, 0.0));
}

LegendCheck::LegendCheck(QWidget* parent)
    : QwtLegendLabel(parent)
{
}

void LegendCheck::setWidthLimit(int limit)
{
    if (limit == m_limit)
        return;
    m_limit = limit;
    updateGeometry();
}

int LegendCheck::naturalWidth() const
{
    const int title = qCeil(QFontMetricsF(font()).horizontalAdvance(text().text()));
    return boxSide(this) + qCeil(data().icon().defaultSize().width()) + title + 5 * gap;
}

QSize LegendCheck::sizeHint() const
{
    const int height = qRound(text().textSize(font()).height());
    return QSize(std::min(naturalWidth(), m_limit), std::max(boxSide(this), height) + 2);
}

void LegendCheck::drawEntry(QPainter* painter, const QRectF& rect) const
{
    const QwtGraphic line = data().icon();
    const QSizeF size = line.defaultSize();
    line.render(painter, QRectF(QPointF(rect.left(), rect.center().y() - 0.5 * size.height()), size));
    const QRectF rest = rect.adjusted(size.width() + gap, 0.0, 0.0, 0.0);
    QwtText title(
        QFontMetricsF(font()).elidedText(text().text(), Qt::ElideMiddle, rest.width()), QwtText::PlainText);
    title.setRenderFlags(Qt::AlignLeft | Qt::AlignVCenter);
    painter->setFont(font());
    painter->setPen(palette().color(QPalette::Text));
    title.draw(painter, rest);
}

bool LegendCheck::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setToolTip(naturalWidth() > width() ? plainToolTip(text().text()) : QString());
    return QwtLegendLabel::event(event);
}

void LegendCheck::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int side = boxSide(this);
    QStyleOptionButton box;
    box.initFrom(this);
    box.rect = QRect(gap, (height() - side) / 2, side, side);
    box.state |= isChecked() ? QStyle::State_On : QStyle::State_Off;
    style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, this);
    painter.setOpacity(isChecked() ? 1.0 : 0.35);
    drawEntry(&painter, QRectF(rect()).adjusted(side + 2 * gap, 0.0, 0.0, 0.0));
}
