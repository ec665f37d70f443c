#pragma once

#include <QGraphicsView>

#include <utility>

struct ScheduleData;

/// The view of the recording chart, with the names of the channels at its left and a ruler of dates below,
/// which stay in sight. Only time is zoomed: all channels keep their height.
class MyView : public QGraphicsView {
    Q_OBJECT
public:
    explicit MyView(QWidget* parent = nullptr);

    /// `data` must outlive the view.
    void setData(const ScheduleData* data);
    /// The data have changed: sizes the margins and the scene.
    void dataChanged();
    /// Brings the whole chart into sight.
    void fitChart();
    /// Scales time by `factor`; what lies at `x`, pixels of the viewport, stays there.
    void zoom(double factor, int x);

    double secondsPerPixel() const;
    /// Seconds from the first day at the left and the right edge.
    std::pair<double, double> visibleSeconds() const;

signals:
    /// Another part of the chart is in sight.
    void viewChanged();
    /// The keys for "all" were pressed.
    void allWanted();

protected:
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void drawForeground(QPainter* painter, const QRectF& area) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void placeMargins();
    void setScale(double pixelsPerSecond);
    double fitScale() const;
    double verticalScale() const;
    void drawChannels();
    void drawRuler();

    const ScheduleData* m_data = nullptr;
    QWidget* m_channels;
    QWidget* m_ruler;
    int m_channelWidth = 0;
    bool m_whole = true; // the whole chart is in sight
};
