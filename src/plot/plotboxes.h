#pragma once

#include <QObject>
#include <QPolygonF>
#include <QRect>
#include <QVector>

#include <array>
#include <functional>

class QPainter;
class QwtText;
class QwtTextLabel;

/// The three text boxes on the canvas of a graph. They keep 10 pixels from their corner, stay inside the
/// canvas at any size, and let the mouse through. Where there is no room for all of them, the lower right one
/// moves up, and the letters become smaller.
class PlotBoxes : public QObject {
    Q_OBJECT
public:
    enum Box { TopRight, BottomLeft, BottomRight };
    static constexpr int count = 3;

    explicit PlotBoxes(QWidget* canvas);

    QwtTextLabel* label(Box box) const { return m_labels[size_t(box)]; }
    void show(Box box, const QwtText& text);
    void hide(Box box);

    /// What stands on the canvas, in its pixels.
    struct Obstacles {
        QVector<QPolygonF> lines;
        QVector<QRectF> names;
    };

    /// Tells what the first box should not cover. It moves to the corner where it covers fewest names, and of
    /// these to the one where it covers least of the lines.
    void setObstacles(std::function<Obstacles()> obstacles) { m_obstacles = std::move(obstacles); }

    /// Draws what else stands on the canvas into another picture, after the boxes.
    void setFurther(std::function<void(QPainter*, const QRectF&)> further) { m_further = std::move(further); }

    /// Puts the boxes where they belong; to be called when the picture below them has changed.
    void place();
    /// Draws the visible boxes into another picture of the canvas.
    void draw(QPainter* painter, const QRectF& canvas) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Places {
        std::array<QRect, count> rects;
        bool fit = true; ///< nothing is cut off or covered
    };

    QRect rectOf(Box box, Qt::Corner corner, const QRect& canvas) const;
    Obstacles obstaclesOn(const QRect& canvas) const;
    QRect freeRect(const QRect& canvas, const QVector<QRect>& taken) const;
    Places arrange(const QRect& canvas) const;
    void setFontSize(int pixels);

    QWidget* m_canvas;
    std::array<QwtTextLabel*, count> m_labels{};
    std::function<Obstacles()> m_obstacles;
    std::function<void(QPainter*, const QRectF&)> m_further;
};
