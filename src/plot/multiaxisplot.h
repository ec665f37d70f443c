#pragma once

#include <QColor>
#include <QHash>
#include <QRectF>
#include <QString>
#include <qwt_interval.h>
#include <qwt_plot.h>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>

#include <array>
#include <memory>

class AxisZoomer;
class PlotScaleDraw;
class QwtScaleEngine;

/// A plot with twelve Y axes, numbers 0 to 11, over one bottom axis, number 20. The scale of the current axis
/// stands next to the canvas and the other enabled ones side by side left of it; every item is drawn on its
/// own axis. Scales that would leave the canvas too little width are left out. All axis numbers here are
/// these; the four of the graph library are out of reach for callers.
class MultiAxisPlot : public QwtPlot {
    Q_OBJECT
public:
    static constexpr int yAxisCount = 12;
    static constexpr int bottomAxis = 20;

    /// Time and Dates: linear in seconds, with ticks on whole minutes, hours and days. Whole: linear, with
    /// ticks on whole numbers.
    enum class Scale { Linear, Log10, Time, Dates, Whole };

    explicit MultiAxisPlot(QWidget* parent = nullptr);
    ~MultiAxisPlot() override;

    static bool isYAxis(int axis) { return axis >= 0 && axis < yAxisCount; }

    /// Puts an item on a Y axis. Items that were attached without an axis follow the current one.
    void attach(QwtPlotItem* item, int axis);
    int axisOf(const QwtPlotItem* item) const;

    void setCurrentAxis(int axis);
    int currentAxis() const { return m_current; }

    /// Only Y axes can be disabled. An axis without items keeps its last range.
    void enableAxis(int axis, bool on);
    bool axisEnabled(int axis) const;
    void setAxisTitle(int axis, const QString& title);
    QString axisTitle(int axis) const;
    void setAxisColor(int axis, const QColor& color);
    QColor axisColor(int axis) const;
    void setAxisFont(const QFont& font);
    /// `origin` is the second of the day at 0 of an axis of time.
    void setAxisScaleType(int axis, Scale scale, double origin = 0.0);
    Scale axisScaleType(int axis) const;
    /// Replaces the drawer of the bottom scale; the plot owns it.
    void setBottomScaleDraw(QwtScaleDraw* draw);

    /// A fixed range; swapped or unusable bounds (not finite, equal, not above zero on a logarithmic axis)
    /// are put right or ignored. Takes effect at once.
    void setAxisScale(int axis, double min, double max);
    /// The range follows the visible items of the axis at every replot.
    void setAxisAutoScale(int axis, bool on = true);
    bool axisAutoScale(int axis) const;
    QwtInterval axisInterval(int axis) const;
    const QwtScaleDiv& axisScaleDiv(int axis) const;

    /// From values to pixels of the canvas.
    QwtScaleMap axisMap(int axis) const;
    double transform(int axis, double value) const;
    double invTransform(int axis, double pixel) const;

    /// Zooming with a rubber band, on the bottom and the current axis: right button or Backspace goes back
    /// one step, Escape to the start. Every Y axis has a stack of its own.
    void setZoomEnabled(bool on);
    bool zoomEnabled() const { return m_zoom; }
    /// x and y of `area` are values; y belongs to the axis given.
    void zoomTo(int axis, const QRectF& area);
    /// As zoomTo, but in place of the last step of zooming, when there is one.
    void moveZoom(int axis, const QRectF& area);
    void zoomBack(int axis);
    int zoomDepth(int axis) const;
    /// Undoes all steps of all axes, or of one.
    void zoomHome();
    void zoomHome(int axis);
    /// The range that an axis has without zooming.
    QwtInterval homeInterval(int axis) const;
    /// Empties all stacks; ranges stay as they are.
    void resetZoom();

    void replot() override;
    void drawItems(
        QPainter* painter, const QRectF& canvasRect, const QwtScaleMap maps[axisCnt]) const override;

    void insertLegend(QwtAbstractLegend* legend, LegendPosition position, double ratio = -1.0);

protected:
    void resizeEvent(QResizeEvent* event) override;

signals:
    /// An entry of the legend was checked or unchecked by the user.
    void legendChecked(QwtPlotItem* item, bool on);

private:
    friend class AxisZoomer;

    // Takes the calls that would need the library's axis numbers out of reach.
    using QwtPlot::axisFont;
    using QwtPlot::axisMaxMajor;
    using QwtPlot::axisMaxMinor;
    using QwtPlot::axisScaleDraw;
    using QwtPlot::axisScaleEngine;
    using QwtPlot::axisStepSize;
    using QwtPlot::axisWidget;
    using QwtPlot::setAxisLabelAlignment;
    using QwtPlot::setAxisLabelRotation;
    using QwtPlot::setAxisMaxMajor;
    using QwtPlot::setAxisMaxMinor;
    using QwtPlot::setAxisScaleDiv;
    using QwtPlot::setAxisScaleDraw;
    using QwtPlot::setAxisScaleEngine;

    struct Range {
        bool automatic = true;
        double min = 0.0;
        double max = 1.0;
    };

    struct Axis {
        bool enabled = false;
        Range range;
        Range home; ///< the range below the zoom stack
        QString title;
        QColor color = Qt::black;
        Scale scale = Scale::Linear;
        double origin = 0.0;
        std::unique_ptr<QwtScaleEngine> engine;
        QwtScaleDiv div;
    };

    Axis& axisAt(int axis);
    const Axis& axisAt(int axis) const;
    void setRange(Axis& axis, double min, double max);
    void fitAxes();
    void showNative(int axis);
    void updateScales();
    void toggleLegend(const QVariant& info, bool on);
    void forgetItem(QwtPlotItem* item, bool attached);
    bool acceptsZoom(int axis, const QRectF& area) const;
    void aboutToZoom(int axis);
    void applyZoom(int axis, const QRectF& area);
    void applyHome(int axis);
    const AxisZoomer* zoomed() const;

    std::array<Axis, yAxisCount + 1> m_axes; ///< the bottom axis stands last
    std::array<AxisZoomer*, yAxisCount> m_zoomers{};
    QHash<const QwtPlotItem*, int> m_axisOfItem;
    PlotScaleDraw* m_leftDraw = nullptr;
    int m_current = 0;
    int m_leftExtent = 0;
    bool m_zoom = false;
};
