#include "plot/plotcomments.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <qwt_text_label.h>

#include <algorithm>
#include <cmath>

namespace {

/// Pixels between a comment and the edge of the canvas.
constexpr int distance = 10;
/// A new comment stands this much lower than the last one, as a share of the free room.
constexpr double nextPlace = 0.12;
constexpr double firstPlace = 0.4;
/// A longer text is wrapped at this share of the canvas.
constexpr double widestShare = 0.6;

} // namespace

PlotComments::PlotComments(QWidget* canvas)
    : QObject(canvas)
    , m_canvas(canvas)
{
    canvas->installEventFilter(this);
}

QwtTextLabel* PlotComments::add(const QString& markup)
{
    auto* label = new QwtTextLabel(m_canvas);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(12);
    QwtText text(markup, QwtText::RichText);
    text.setRenderFlags(Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap);
    label->setFont(font);
    label->setAutoFillBackground(true);
    label->setPalette(QPalette(Qt::white));
    label->setFrameStyle(QFrame::Box | QFrame::Plain);
    label->setMargin(3);
    label->setCursor(Qt::SizeAllCursor);
    label->setText(text);
    label->installEventFilter(this);
    connect(label, &QObject::destroyed, this, &PlotComments::forget);
    // The corners belong to the text boxes.
    const double down = std::fmod(firstPlace + nextPlace * m_labels.size(), 1.0);
    m_places[label] = QPointF(0.5, down);
    m_labels << label;
    place(label);
    label->show();
    return label;
}

void PlotComments::forget(QObject* label)
{
    m_places.remove(label);
    m_labels.erase(std::remove(m_labels.begin(), m_labels.end(), label), m_labels.end());
}

QSize PlotComments::sizeOf(const QwtTextLabel* label, const QSize& canvas) const
{
    const QSize natural = label->sizeHint();
    const int widest = std::max(1, int(widestShare * canvas.width()));
    if (natural.width() <= widest)
        return natural;
    return {widest, std::min(label->heightForWidth(widest), std::max(1, canvas.height() - 2 * distance))};
}

void PlotComments::place(QwtTextLabel* label)
{
    const QRect room = m_canvas->contentsRect().adjusted(distance, distance, -distance, -distance);
    const QSize size = sizeOf(label, m_canvas->contentsRect().size());
    const QPointF share = m_places.value(label);
    const double x = room.left() + share.x() * std::max(0, room.width() - size.width());
    const double y = room.top() + share.y() * std::max(0, room.height() - size.height());
    label->setGeometry(QRect(QPoint(qRound(x), qRound(y)), size));
}

bool PlotComments::drag(QwtTextLabel* label, QEvent* event)
{
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (event->type() == QEvent::MouseButtonPress) {
        m_grip = mouse->pos();
        label->raise();
        return true;
    }
    if (event->type() != QEvent::MouseMove || !(mouse->buttons() & Qt::LeftButton))
        return event->type() == QEvent::MouseButtonRelease;
    const QRect room = m_canvas->contentsRect().adjusted(distance, distance, -distance, -distance);
    const QPoint corner = label->mapToParent(mouse->pos()) - m_grip - room.topLeft();
    const auto share = [](int at, int free) {
        return free > 0 ? std::clamp(double(at) / free, 0.0, 1.0) : 0.0;
    };
    m_places[label] = QPointF(
        share(corner.x(), room.width() - label->width()), share(corner.y(), room.height() - label->height()));
    place(label);
    return true;
}

bool PlotComments::eventFilter(QObject* watched, QEvent* event)
{
    auto* label = qobject_cast<QwtTextLabel*>(watched);
    if (watched == m_canvas && event->type() == QEvent::Resize) {
        for (QwtTextLabel* each : qAsConst(m_labels))
            place(each);
    } else if (label && event->type() == QEvent::ContextMenu) {
        emit menuWanted(label, static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    } else if (label && event->type() == QEvent::Resize) {
        // A corrected text has taken its natural size, which may be too large here.
        place(label);
    } else if (label
        && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove
            || event->type() == QEvent::MouseButtonRelease)) {
        return drag(label, event);
    }
    return QObject::eventFilter(watched, event);
}

void PlotComments::draw(QPainter* painter, const QRectF& canvas) const
{
    for (const QwtTextLabel* label : m_labels) {
        const QSizeF size = label->size();
        const QPointF share = m_places.value(label);
        const QRectF room = canvas.adjusted(distance, distance, -distance, -distance);
        const QRectF rect(room.topLeft()
                + QPointF(share.x() * std::max(0.0, room.width() - size.width()),
                    share.y() * std::max(0.0, room.height() - size.height())),
            size);
        painter->save();
        painter->setPen(QPen(Qt::black, 1.0));
        painter->setBrush(Qt::white);
        painter->drawRect(rect);
        painter->setFont(label->font());
        const int inset = label->frameWidth() + label->margin();
        label->text().draw(painter, rect.adjusted(inset, inset, -inset, -inset));
        painter->restore();
    }
}
