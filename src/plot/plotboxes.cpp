#include "plot/plotboxes.h"

#include <QEvent>
#include <QPainter>
#include <QTransform>
#include <QWidget>
#include <qwt_text_label.h>

#include <algorithm>
#include <limits>

namespace {

constexpr int distance = 10;
/// A segment is tested at this many places.
constexpr int segmentSteps = 16;

/// How many places of the line lie in the area.
int covered(const QPolygonF& line, const QRectF& area)
{
    int count = 0;
    for (int i = 0; i < line.size(); ++i) {
        count += area.contains(line[i]) ? 1 : 0;
        for (int step = 1; i > 0 && step < segmentSteps; ++step)
            count += area.contains(line[i - 1] + (line[i] - line[i - 1]) * step / segmentSteps) ? 1 : 0;
    }
    return count;
}

} // namespace

PlotBoxes::PlotBoxes(QWidget* canvas)
    : QObject(canvas)
    , m_canvas(canvas)
{
    static const std::array<const char*, count> names = {"topRightBox", "bottomLeftBox", "bottomRightBox"};
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(12);
    for (size_t i = 0; i < m_labels.size(); ++i) {
        auto* label = new QwtTextLabel(canvas);
        label->setObjectName(QString::fromLatin1(names[i]));
        label->setFont(font);
        label->setAutoFillBackground(true);
        label->setPalette(QPalette(Qt::white));
        label->setFrameStyle(QFrame::Box | QFrame::Plain);
        label->setMargin(2);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        label->hide();
        m_labels[i] = label;
    }
    canvas->installEventFilter(this);
}

void PlotBoxes::show(Box box, const QwtText& text)
{
    label(box)->setText(text);
    label(box)->show();
    place();
}

void PlotBoxes::hide(Box box)
{
    label(box)->hide();
    place();
}

Qt::Corner PlotBoxes::cornerOf(Box box, const QRect& canvas) const
{
    if (box == BottomLeft)
        return Qt::BottomLeftCorner;
    return box == BottomRight ? Qt::BottomRightCorner : freeCorner(canvas);
}

QRect PlotBoxes::rectOf(Box box, Qt::Corner corner, const QRect& canvas) const
{
    const QRect room = canvas.adjusted(distance, distance, -distance, -distance);
    QRect rect(room.topLeft(), label(box)->sizeHint().boundedTo(room.size().expandedTo(QSize(1, 1))));
    if (corner == Qt::TopRightCorner || corner == Qt::BottomRightCorner)
        rect.moveRight(room.right());
    if (corner == Qt::BottomLeftCorner || corner == Qt::BottomRightCorner)
        rect.moveBottom(room.bottom());
    return rect;
}

Qt::Corner PlotBoxes::freeCorner(const QRect& canvas) const
{
    // The lines are in pixels of the screen; in another picture the canvas has another place and size.
    const QRect screen = m_canvas->contentsRect();
    QTransform toCanvas;
    toCanvas.translate(canvas.left(), canvas.top());
    toCanvas.scale(double(canvas.width()) / std::max(1, screen.width()),
        double(canvas.height()) / std::max(1, screen.height()));
    toCanvas.translate(-screen.left(), -screen.top());
    QVector<QPolygonF> lines = m_obstacles ? m_obstacles() : QVector<QPolygonF>();
    for (QPolygonF& line : lines)
        line = toCanvas.map(line);
    const auto coveredAt = [&](Qt::Corner corner) {
        const QRect area = rectOf(TopRight, corner, canvas);
        int count = 0;
        for (const QPolygonF& line : lines)
            count += covered(line, area);
        for (const Box other : {BottomLeft, BottomRight}) {
            if (!label(other)->isHidden() && area.intersects(rectOf(other, cornerOf(other, canvas), canvas)))
                count = std::numeric_limits<int>::max();
        }
        return count;
    };
    Qt::Corner best = Qt::TopRightCorner;
    int least = coveredAt(best);
    for (const Qt::Corner corner : {Qt::BottomLeftCorner, Qt::TopLeftCorner, Qt::BottomRightCorner}) {
        const int count = coveredAt(corner);
        if (count < least) {
            least = count;
            best = corner;
        }
    }
    return best;
}

void PlotBoxes::place()
{
    const QRect canvas = m_canvas->contentsRect();
    for (const Box box : {TopRight, BottomLeft, BottomRight}) {
        if (!label(box)->isHidden())
            label(box)->setGeometry(rectOf(box, cornerOf(box, canvas), canvas));
    }
}

void PlotBoxes::draw(QPainter* painter, const QRectF& canvas) const
{
    for (const Box box : {TopRight, BottomLeft, BottomRight}) {
        QwtTextLabel* source = label(box);
        if (source->isHidden())
            continue;
        const QRect room = canvas.toAlignedRect();
        const QRect rect = rectOf(box, cornerOf(box, room), room);
        painter->save();
        painter->setPen(QPen(Qt::black, 1.0));
        painter->setBrush(Qt::white);
        painter->drawRect(rect);
        painter->setFont(source->font());
        const int inset = source->frameWidth() + source->margin();
        source->drawText(painter, rect.adjusted(inset, inset, -inset, -inset));
        painter->restore();
    }
}

bool PlotBoxes::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        place();
    return QObject::eventFilter(watched, event);
}
