#pragma once

#include "store/core/chartgeometry.h"

#include <QColor>
#include <QDate>
#include <QGraphicsItem>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

/// A text on the chart, with its place in the scene.
struct ScheduleLabel {
    QString text;
    QPointF at;
};

/// What the chart of a recording directory shows. Segment i has rects[i] and labels[i].
struct ScheduleData {
    QDate date1, date2;
    int nChan = 0;
    /// Size of the scene: seconds and units.
    double widthX = 0.0, heightY = 0.0;
    QList<QRectF> rects;
    /// Of the chosen segments, in the order of `selected`.
    QList<QRectF> marks;
    QList<int> selected;
    QList<ScheduleLabel> labels, chanLabels;
    bool shown = false;
    chart::Layout bands;
};

namespace scheduleColors {

const QColor nothing(150, 0, 0);
const QColor divider(192, 192, 192);
const QColor mark(85, 0, 100);
const QColor chosenRow(120, 0, 190);
const QColor segmentText(245, 245, 245, 150);
const QColor channelText(150, 150, 255, 150);
/// Of a kind of segment.
QColor ofKind(char kind);

}

/// All bands, segments, marks and names of the chart in one item: thousands of segments are a few rectangles
/// each, which is far less than an item each. Names are drawn in pixels, so that they keep their size at
/// every scale.
class ScheduleItem : public QGraphicsItem {
public:
    /// `data` must outlive the item.
    explicit ScheduleItem(const ScheduleData& data);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    /// Least width of a current recording and of a mark, pixels; so that one that has just begun can be seen
    /// and hit.
    static constexpr int leastWidth = 4;

private:
    void drawBand(QPainter* painter, const QTransform& toPixels, int band, const QRectF& area) const;

    const ScheduleData& m_data;
};
