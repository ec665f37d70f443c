#include "plot/plotboxes.h"

#include <QEvent>
#include <QPainter>
#include <QTransform>
#include <QWidget>
#include <qwt_text_label.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int distance = 10;
/// A segment is tested at so many places at most, and not more often than this many pixels.
constexpr int segmentSteps = 16;
constexpr double segmentPixels = 4.0;
/// In pixels; where the boxes find no room, they are written smaller.
constexpr int fontSize = 12;
constexpr int smallestFont = 7;

/// How many places of the line lie in the area.
int covered(const QPolygonF& line, const QRectF& area)
{
    int count = 0;
    for (int i = 0; i < line.size(); ++i) {
        count += area.contains(line[i]) ? 1 : 0;
        const QPointF way = i > 0 ? line[i] - line[i - 1] : QPointF();
        const int steps = int(std::min(double(segmentSteps), way.manhattanLength() / segmentPixels));
        for (int step = 1; step < steps; ++step)
            count += area.contains(line[i - 1] + way * step / steps) ? 1 : 0;
    }
    return count;
}

/// Where boxes may stand.
QRect roomOf(const QRect& canvas)
{
    const QRect room = canvas.adjusted(distance, distance, -distance, -distance);
    return QRect(room.topLeft(), room.size().expandedTo(QSize(1, 1)));
}

bool intersects(const QRect& rect, const QVector<QRect>& others)
{
    return std::any_of(
        others.begin(), others.end(), [&rect](const QRect& other) { return rect.intersects(other); });
}

} // namespace

PlotBoxes::PlotBoxes(QWidget* canvas)
    : QObject(canvas)
    , m_canvas(canvas)
{
    static const std::array<const char*, count> names = {"topRightBox", "bottomLeftBox", "bottomRightBox"};
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(fontSize);
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

QRect PlotBoxes::rectOf(Box box, Qt::Corner corner, const QRect& canvas) const
{
    const QRect room = roomOf(canvas);
    QRect rect(room.topLeft(), label(box)->sizeHint().boundedTo(room.size()));
    if (corner == Qt::TopRightCorner || corner == Qt::BottomRightCorner)
        rect.moveRight(room.right());
    if (corner == Qt::BottomLeftCorner || corner == Qt::BottomRightCorner)
        rect.moveBottom(room.bottom());
    return rect;
}

PlotBoxes::Obstacles PlotBoxes::obstaclesOn(const QRect& canvas) const
{
    // The lines are in pixels of the screen; in another picture the canvas has another place and size.
    const QRect screen = m_canvas->contentsRect();
    QTransform toCanvas;
    toCanvas.translate(canvas.left(), canvas.top());
    toCanvas.scale(double(canvas.width()) / std::max(1, screen.width()),
        double(canvas.height()) / std::max(1, screen.height()));
    toCanvas.translate(-screen.left(), -screen.top());
    Obstacles obstacles = m_obstacles ? m_obstacles() : Obstacles();
    for (QPolygonF& line : obstacles.lines)
        line = toCanvas.map(line);
    for (QRectF& name : obstacles.names)
        name = toCanvas.mapRect(name);
    return obstacles;
}

/// The corner for the first box that covers fewest names, least of the lines and nothing of the boxes in
/// `taken`.
QRect PlotBoxes::freeRect(const QRect& canvas, const QVector<QRect>& taken) const
{
    const Obstacles obstacles = obstaclesOn(canvas);
    QRect best = rectOf(TopRight, Qt::TopRightCorner, canvas);
    // Names count before lines: a line goes on beside the box.
    auto least = std::make_pair(std::numeric_limits<int>::max(), 0);
    for (const Qt::Corner corner :
        {Qt::TopRightCorner, Qt::BottomLeftCorner, Qt::TopLeftCorner, Qt::BottomRightCorner}) {
        const QRect area = rectOf(TopRight, corner, canvas);
        if (intersects(area, taken))
            continue;
        auto count = std::make_pair(0, 0);
        for (const QRectF& name : obstacles.names)
            count.first += name.intersects(area) ? 1 : 0;
        for (const QPolygonF& line : obstacles.lines)
            count.second += covered(line, area);
        if (count < least) {
            least = count;
            best = area;
        }
    }
    return best;
}

PlotBoxes::Places PlotBoxes::arrange(const QRect& canvas) const
{
    Places places;
    const QRect room = roomOf(canvas);
    QVector<QRect> taken;
    for (const Box box : {BottomLeft, BottomRight, TopRight}) {
        if (label(box)->isHidden())
            continue;
        QRect rect;
        if (box == TopRight)
            rect = freeRect(canvas, taken);
        else
            rect = rectOf(box, box == BottomLeft ? Qt::BottomLeftCorner : Qt::BottomRightCorner, canvas);
        // Without room side by side the right one stands above the left one.
        if (box == BottomRight && intersects(rect, taken))
            rect.moveBottom(std::max(room.top() + rect.height() - 1, taken.first().top() - distance));
        const QSize wanted = label(box)->sizeHint();
        places.fit = places.fit && !intersects(rect, taken) && wanted == rect.size();
        places.rects[size_t(box)] = rect;
        taken << rect;
    }
    return places;
}

void PlotBoxes::setFontSize(int pixels)
{
    for (QwtTextLabel* each : m_labels) {
        QFont font = each->font();
        if (font.pixelSize() == pixels)
            continue;
        font.setPixelSize(pixels);
        each->setFont(font);
    }
}

void PlotBoxes::place()
{
    if (std::all_of(m_labels.begin(), m_labels.end(), [](QwtTextLabel* each) { return each->isHidden(); }))
        return;
    Places places;
    for (int pixels = fontSize; pixels >= smallestFont; --pixels) {
        setFontSize(pixels);
        places = arrange(m_canvas->contentsRect());
        if (places.fit)
            break;
    }
    for (const Box box : {TopRight, BottomLeft, BottomRight})
        label(box)->setGeometry(places.rects[size_t(box)]);
}

void PlotBoxes::draw(QPainter* painter, const QRectF& canvas) const
{
    const Places places = arrange(canvas.toAlignedRect());
    for (const Box box : {TopRight, BottomLeft, BottomRight}) {
        QwtTextLabel* source = label(box);
        if (source->isHidden())
            continue;
        const QRect rect = places.rects[size_t(box)];
        painter->save();
        painter->setPen(QPen(Qt::black, 1.0));
        painter->setBrush(Qt::white);
        painter->drawRect(rect);
        painter->setFont(source->font());
        const int inset = source->frameWidth() + source->margin();
        source->drawText(painter, rect.adjusted(inset, inset, -inset, -inset));
        painter->restore();
    }
    if (m_further)
        m_further(painter, canvas);
}

bool PlotBoxes::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        place();
    return QObject::eventFilter(watched, event);
}
