#include "store/myview.h"

#include "store/core/chartgeometry.h"
#include "store/scheduleitem.h"

#include <QEvent>
#include <QFontInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double keyZoom = 1.25;
constexpr int padding = 4; // pixels
constexpr int tickLength = 5;
constexpr double leastBand = 22.0; // pixels; below it the chart scrolls
constexpr int leastText = 8; // pixels
constexpr double leastShrinking = 0.75; // of a channel's text in a low band
constexpr double mostWidth = 1e9; // pixels of the whole chart; scroll bars count in int
constexpr double mostPixelsPerSecond = 50.0;
constexpr double smallestChart = 0.1; // of the view

} // namespace

MyView::MyView(QWidget* parent)
    : QGraphicsView(parent)
    , m_channels(new QWidget(this))
    , m_ruler(new QWidget(this))
{
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setTransformationAnchor(NoAnchor);
    setResizeAnchor(NoAnchor);
    setViewportUpdateMode(FullViewportUpdate); // names stay at the edge, so all of it moves
    setDragMode(RubberBandDrag);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // one that comes and goes would change the scale
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    for (QWidget* margin : {m_channels, m_ruler})
        margin->installEventFilter(this);
}

void MyView::setData(const ScheduleData* data)
{
    m_data = data;
}

void MyView::dataChanged()
{
    const QFontMetrics metrics(font());
    m_channelWidth = 0;
    for (const ScheduleLabel& label : m_data->chanLabels) {
        const int oneLine =
            metrics.horizontalAdvance(QString(label.text).replace(QLatin1Char('\n'), QLatin1Char(' ')));
        m_channelWidth = std::max(m_channelWidth, int(oneLine * leastShrinking));
        for (const QString& line : label.text.split(QLatin1Char('\n')))
            m_channelWidth = std::max(m_channelWidth, metrics.horizontalAdvance(line) + 2 * padding);
    }
    setViewportMargins(m_channelWidth, 0, 0, metrics.height() + tickLength + padding);
    setSceneRect(0.0, 0.0, m_data->widthX, m_data->heightY);
    placeMargins();
}

double MyView::secondsPerPixel() const
{
    return 1.0 / transform().m11();
}

std::pair<double, double> MyView::visibleSeconds() const
{
    const double left = std::max(0.0, mapToScene(0, 0).x());
    const double right = mapToScene(viewport()->width(), 0).x();
    return {left, m_data ? std::min(right, m_data->widthX) : right};
}

double MyView::fitScale() const
{
    const double width = m_data ? m_data->widthX : 0.0;
    return width > 0.0 ? std::max(1, viewport()->width()) / width : 1.0;
}

double MyView::verticalScale() const
{
    if (!m_data || m_data->heightY <= 0.0)
        return 1.0;
    return std::clamp(viewport()->height() / m_data->heightY, leastBand / chart::bandStep, 1.0);
}

void MyView::setScale(double pixelsPerSecond)
{
    setTransform(QTransform::fromScale(pixelsPerSecond, verticalScale()));
}

void MyView::fitChart()
{
    m_whole = true;
    setScale(fitScale());
    horizontalScrollBar()->setValue(0);
    m_ruler->update();
    m_channels->update();
    emit viewChanged();
}

void MyView::zoom(double factor, int x)
{
    if (!m_data || m_data->widthX <= 0.0)
        return;
    const double at = mapToScene(x, 0).x();
    const double whole = fitScale();
    const double most = std::max(whole, std::min(mostPixelsPerSecond, mostWidth / m_data->widthX));
    setScale(std::clamp(transform().m11() * factor, whole * smallestChart, most));
    m_whole = false;
    horizontalScrollBar()->setValue(qRound(at * transform().m11() - x));
    viewport()->update();
    m_ruler->update();
    emit viewChanged();
}

void MyView::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // the chart zooms
}

void MyView::keyPressEvent(QKeyEvent* event)
{
    QScrollBar* const bar = horizontalScrollBar();
    const int page =
        event->modifiers() & Qt::ControlModifier ? viewport()->width() : viewport()->width() / 10;
    const int middle = viewport()->width() / 2;
    if (event->matches(QKeySequence::SelectAll))
        emit allWanted();
    else if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)
        zoom(keyZoom, middle);
    else if (event->key() == Qt::Key_Minus)
        zoom(1.0 / keyZoom, middle);
    else if (event->key() == Qt::Key_Home)
        fitChart();
    else if (event->key() == Qt::Key_Left)
        bar->setValue(bar->value() - page);
    else if (event->key() == Qt::Key_Right)
        bar->setValue(bar->value() + page);
    else
        QGraphicsView::keyPressEvent(event);
}

void MyView::placeMargins()
{
    const QRect inner = viewport()->geometry();
    const int rulerHeight = viewportMargins().bottom();
    m_channels->setGeometry(inner.left() - m_channelWidth, inner.top(), m_channelWidth, inner.height());
    m_ruler->setGeometry(inner.left(), inner.bottom() + 1, inner.width(), rulerHeight);
    m_channels->update();
    m_ruler->update();
}

void MyView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    placeMargins();
    if (m_whole)
        fitChart();
    else
        zoom(1.0, 0);
}

void MyView::scrollContentsBy(int dx, int dy)
{
    QGraphicsView::scrollContentsBy(dx, dy);
    m_channels->update();
    m_ruler->update();
}

void MyView::changeEvent(QEvent* event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_data)
        dataChanged();
}

bool MyView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint && watched == m_channels)
        drawChannels();
    else if (event->type() == QEvent::Paint && watched == m_ruler)
        drawRuler();
    else
        return QGraphicsView::eventFilter(watched, event);
    return true;
}

void MyView::drawChannels()
{
    if (!m_data)
        return;
    QPainter painter(m_channels);
    const QFontMetrics metrics(font());
    for (const ScheduleLabel& label : m_data->chanLabels) {
        const int top = mapFromScene(label.at).y();
        const int height = qRound(chart::bandHeight * transform().m22());
        const QRect box(0, top, m_channelWidth, height);
        painter.fillRect(box, scheduleColors::channelText);
        const bool twoLines = height >= 2 * metrics.lineSpacing();
        const QString text =
            twoLines ? label.text : QString(label.text).replace(QLatin1Char('\n'), QLatin1Char(' '));
        QFont smaller = font();
        if (!twoLines) {
            const double fits = double(m_channelWidth - 2 * padding) / metrics.horizontalAdvance(text);
            const int size = int(std::min(QFontInfo(smaller).pixelSize() * fits, double(height - 2)));
            smaller.setPixelSize(std::max(leastText, size));
        }
        painter.setFont(smaller);
        painter.drawText(box.adjusted(padding, 0, -padding, 0), Qt::AlignLeft | Qt::AlignVCenter, text);
    }
}

namespace {

/// Calls `draw` with the seconds of each tick in sight.
template <class Draw> void forTicks(const MyView& view, const Draw& draw)
{
    const int apart = view.fontMetrics().horizontalAdvance(QStringLiteral("00:00:00")) + 2 * padding;
    const double step = chart::rulerStep(apart * view.secondsPerPixel());
    const auto [left, right] = view.visibleSeconds();
    for (double at = std::ceil(left / step) * step; at <= right; at += step)
        draw(at, step);
}

} // namespace

void MyView::drawForeground(QPainter* painter, const QRectF& area)
{
    if (!m_data || !m_data->date1.isValid())
        return;
    painter->setPen(QPen(QColor(255, 255, 255, 110), 0));
    const double bottom = std::min(area.bottom(), m_data->heightY);
    forTicks(*this, [&](double at, double) { painter->drawLine(QLineF(at, area.top(), at, bottom)); });
}

void MyView::drawRuler()
{
    if (!m_data || !m_data->date1.isValid())
        return;
    QPainter painter(m_ruler);
    painter.setPen(palette().color(QPalette::WindowText));
    constexpr double weeks = 20 * chart::daySeconds; // such a chart may be longer than a year
    int free = 0;
    forTicks(*this, [&](double at, double step) {
        const QDateTime time = chart::timeAt(m_data->date1, at);
        const bool midnight = std::fmod(at, chart::daySeconds) == 0.0;
        const QString text = time.toString(step >= weeks ? QStringLiteral("dd.MM.yy")
                : midnight                               ? QStringLiteral("dd.MM")
                : step < 60.0                            ? QStringLiteral("hh:mm:ss")
                                                         : QStringLiteral("hh:mm"));
        const int x = mapFromScene(at, 0.0).x();
        painter.drawLine(x, 0, x, tickLength);
        const int width = painter.fontMetrics().horizontalAdvance(text);
        const int left = std::clamp(x - width / 2, 0, std::max(0, m_ruler->width() - width));
        if (left < free)
            return;
        painter.drawText(left, tickLength + painter.fontMetrics().ascent(), text);
        free = left + width + padding;
    });
}
