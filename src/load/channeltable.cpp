#include "load/channeltable.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

/// Draws the box of a channel in the middle of its cell.
class BoxDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& cell, const QModelIndex& index) const override
    {
        const QStyle* style = cell.widget->style();
        QStyleOptionButton box;
        box.initFrom(cell.widget);
        box.state &= ~QStyle::State_HasFocus;
        box.state |=
            index.data(Qt::CheckStateRole).toInt() == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
        const QSize size(style->pixelMetric(QStyle::PM_IndicatorWidth, &box, cell.widget),
            style->pixelMetric(QStyle::PM_IndicatorHeight, &box, cell.widget));
        box.rect = QStyle::alignedRect(cell.direction, Qt::AlignCenter, size, cell.rect);
        style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, cell.widget);
        if (cell.state & QStyle::State_HasFocus) {
            QStyleOptionFocusRect focus;
            focus.initFrom(cell.widget);
            focus.rect = cell.rect.adjusted(1, 1, -1, -1);
            style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, cell.widget);
        }
    }
};

} // namespace

ChannelTable::ChannelTable(QWidget* parent)
    : QTableWidget(1, mostChannels, parent)
{
    for (int column = 0; column < mostChannels; ++column) {
        auto* item = new QTableWidgetItem;
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        item->setCheckState(Qt::Unchecked);
        setItem(0, column, item);
        setHorizontalHeaderItem(column, new QTableWidgetItem(QString::number(column + 1)));
    }
    setItemDelegate(new BoxDelegate(this));
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ChannelTable::setShown(int count)
{
    for (int column = 0; column < mostChannels; ++column) {
        setColumnHidden(column, column >= count);
        if (column >= count)
            setChosen(column, false);
    }
    emit changed();
}

bool ChannelTable::isChosen(int column) const
{
    return item(0, column)->checkState() == Qt::Checked;
}

void ChannelTable::setChosen(int column, bool chosen)
{
    item(0, column)->setCheckState(chosen ? Qt::Checked : Qt::Unchecked);
}

QByteArray ChannelTable::mask() const
{
    QByteArray bits(mostChannels / 8, '\0');
    for (int column = 0; column < mostChannels; ++column) {
        if (isChosen(column))
            bits[column / 8] = char(bits.at(column / 8) | 1 << column % 8);
    }
    return bits;
}

void ChannelTable::setMask(const QByteArray& mask)
{
    for (int column = 0; column < mostChannels; ++column) {
        const bool asked = column / 8 < mask.size() && (mask.at(column / 8) >> column % 8 & 1) != 0;
        setChosen(column, asked && !isColumnHidden(column));
    }
    emit changed();
}

int ChannelTable::chosenCount() const
{
    int count = 0;
    for (int column = 0; column < mostChannels; ++column)
        count += isChosen(column) ? 1 : 0;
    return count;
}

void ChannelTable::toggle(int column)
{
    if (column < 0 || column >= mostChannels || isColumnHidden(column))
        return;
    setChosen(column, !isChosen(column));
    emit changed();
}

void ChannelTable::chooseAll(bool chosen)
{
    setMask(QByteArray(mostChannels / 8, chosen ? '\xff' : '\0'));
}

void ChannelTable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space)
        toggle(currentColumn());
    else if (event->matches(QKeySequence::SelectAll))
        chooseAll(true);
    else
        QTableWidget::keyPressEvent(event);
}

void ChannelTable::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex pressed = indexAt(event->pos());
    if (event->button() != Qt::LeftButton || !pressed.isValid())
        return;
    setCurrentIndex(pressed);
    toggle(pressed.column());
}

void ChannelTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event); // two quick presses are two presses
}

QSize ChannelTable::sizeHint() const
{
    const int box = style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this);
    return {fontMetrics().averageCharWidth() * 3 * mostChannels,
        horizontalHeader()->sizeHint().height() + box + fontMetrics().height() / 2 + 2 * frameWidth()};
}

QSize ChannelTable::minimumSizeHint() const
{
    return sizeHint();
}
