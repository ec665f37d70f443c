#include "load/fieldsarea.h"

#include <QEvent>
#include <QScrollBar>

FieldsArea::FieldsArea(QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QSize FieldsArea::sizeHint() const
{
    return widget() ? widget()->sizeHint().expandedTo(minimumSizeHint()) : QScrollArea::sizeHint();
}

QSize FieldsArea::minimumSizeHint() const
{
    constexpr int lines = 3;
    const int width = widget() ? widget()->minimumSizeHint().width() : 0;
    return QSize(width + verticalScrollBar()->sizeHint().width(), fontMetrics().lineSpacing() * lines);
}

bool FieldsArea::eventFilter(QObject* watched, QEvent* event)
{
    // Fields that appear or change their font make the hints above wrong.
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

void FieldsArea::showEvent(QShowEvent* event)
{
    // A scroll area paints a ground of its own under the widget it gets.
    viewport()->setAutoFillBackground(false);
    if (widget())
        widget()->setAutoFillBackground(false);
    QScrollArea::showEvent(event);
}
