#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QString>

class QPainter;
class QRectF;
class QwtTextLabel;

/// The user's comments on the canvas of a graph. They are dragged with the mouse, keep their place when the
/// canvas changes its size, and stay inside it.
class PlotComments : public QObject {
    Q_OBJECT
public:
    explicit PlotComments(QWidget* canvas);

    /// `markup` is rich text.
    QwtTextLabel* add(const QString& markup);
    QList<QwtTextLabel*> labels() const { return m_labels; }

    /// Draws the comments into another picture of the canvas.
    void draw(QPainter* painter, const QRectF& canvas) const;

signals:
    void menuWanted(QwtTextLabel* label, const QPoint& globalPos);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize sizeOf(const QwtTextLabel* label, const QSize& canvas) const;
    void place(QwtTextLabel* label);
    bool drag(QwtTextLabel* label, QEvent* event);
    void forget(QObject* label);

    QWidget* m_canvas;
    QList<QwtTextLabel*> m_labels;
    /// Share of the free room left of and above each label, 0 to 1.
    QHash<const QObject*, QPointF> m_places;
    QPoint m_grip; ///< where the mouse holds the label that is dragged
};
