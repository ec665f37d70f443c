#include "plot/multiaxisplot.h"

#include "plot/axiszoomer.h"
#include "plot/core/loglimits.h"
#include "plot/plotscaledraw.h"
#include "plot/safecurves.h"
#include "plot/timescaleengine.h"

#include <QPainter>
#include <qwt_legend.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_intervalcurve.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>

#include <cmath>
#include <vector>

namespace {

constexpr int maxMajor = 8;
constexpr int maxMinor = 5;
/// The scales take at most this share of the width; those that find no room are shown when they are current.
constexpr double scalesShare = 0.6;
/// A logarithmic axis wants a tick at each of 2 to 9.
constexpr int maxMinorLog = 9;

QwtScaleEngine* newEngine(MultiAxisPlot::Scale scale, double origin)
{
    switch (scale) {
    case MultiAxisPlot::Scale::Log10:
        return new QwtLogScaleEngine;
    case MultiAxisPlot::Scale::Time:
        return new TimeScaleEngine(TimeScaleEngine::Ticks::Clock, origin);
    case MultiAxisPlot::Scale::Dates:
        return new TimeScaleEngine(TimeScaleEngine::Ticks::Dates, origin);
    case MultiAxisPlot::Scale::Whole:
        return new TimeScaleEngine(TimeScaleEngine::Ticks::Whole, 0.0);
    case MultiAxisPlot::Scale::Linear:
        break;
    }
    return new QwtLinearScaleEngine;
}

/// What a bottom axis shows on either side of the only X there is: half of the value, as the library has it,
/// would be half of a calendar.
double aroundOne(MultiAxisPlot::Scale scale)
{
    constexpr double minute = 60.0, day = 86400.0;
    return scale == MultiAxisPlot::Scale::Dates ? day : scale == MultiAxisPlot::Scale::Time ? minute : 1.0;
}

/// The values that an axis must show, gathered point by point.
class Extremes {
public:
    explicit Extremes(bool logarithmic)
        : m_log(logarithmic)
    {
    }

    void add(double value)
    {
        if (!std::isfinite(value) || (m_log && (value < logLow || value > logHigh)))
            return;
        // An invalid interval is not extended by a value.
        m_interval = m_interval.isValid() ? m_interval.extend(value) : QwtInterval(value, value);
    }

    /// A bar reaches at most one decade below its middle, so that one uncertain point does not flatten the
    /// others.
    void add(const QwtInterval& bar)
    {
        add(bar.maxValue());
        const double middle = 0.5 * (bar.minValue() + bar.maxValue());
        add(m_log && bar.minValue() > 0.0 ? std::max(bar.minValue(), 0.1 * middle) : bar.minValue());
    }

    void add(const SafeCurve& curve, bool ofX)
    {
        m_interval = m_interval | (ofX ? curve.xRange(m_log) : curve.yRange(m_log));
    }

    QwtInterval interval() const { return m_interval; }

private:
    bool m_log;
    QwtInterval m_interval;
};

void gather(const QwtPlotItem& item, Extremes& xs, Extremes& ys)
{
    if (const auto* safe = dynamic_cast<const SafeCurve*>(&item)) {
        xs.add(*safe, true);
        ys.add(*safe, false);
    } else if (const auto* curve = dynamic_cast<const QwtPlotCurve*>(&item)) {
        for (size_t i = 0; i < curve->dataSize(); ++i) {
            const QPointF point = curve->sample(i);
            xs.add(point.x());
            ys.add(point.y());
        }
    } else if (const auto* bars = dynamic_cast<const QwtPlotIntervalCurve*>(&item)) {
        for (size_t i = 0; i < bars->dataSize(); ++i) {
            const QwtIntervalSample bar = bars->sample(i);
            xs.add(bar.value);
            ys.add(bar.interval);
        }
    }
}

/// The whole decades around a positive interval.
QwtInterval decades(const QwtInterval& interval)
{
    double low = std::floor(std::log10(interval.minValue()) + 1e-9);
    double high = std::ceil(std::log10(interval.maxValue()) - 1e-9);
    if (high <= low) {
        low -= high < low ? 1.0 : 0.0;
        high = low + 1.0;
    }
    return {std::pow(10.0, low), std::pow(10.0, high)};
}

} // namespace

MultiAxisPlot::MultiAxisPlot(QWidget* parent)
    : QwtPlot(parent)
{
    for (Axis& axis : m_axes) {
        axis.engine.reset(newEngine(axis.scale, axis.origin));
        setRange(axis, axis.range.min, axis.range.max);
    }
    for (int native = 0; native < axisCnt; ++native) {
        QwtPlot::setAxisAutoScale(native, false);
        QwtPlot::enableAxis(native, false);
    }
    auto* plotCanvas = qobject_cast<QwtPlotCanvas*>(canvas());
    plotCanvas->setFocusPolicy(Qt::ClickFocus);
    m_leftDraw = new PlotScaleDraw;
    QwtPlot::setAxisScaleDraw(yLeft, m_leftDraw);
    QwtPlot::setAxisScaleDraw(xBottom, new PlotScaleDraw);
    QwtPlot::enableAxis(xBottom, true);
    for (int axis = 0; axis < yAxisCount; ++axis)
        m_zoomers[size_t(axis)] = new AxisZoomer(this, axis);
    connect(this, &QwtPlot::itemAttached, this, &MultiAxisPlot::forgetItem);
    updateScales();
}

MultiAxisPlot::~MultiAxisPlot()
{
    // The base class detaches its items when this object is no longer whole.
    disconnect(this, &QwtPlot::itemAttached, this, &MultiAxisPlot::forgetItem);
}

MultiAxisPlot::Axis& MultiAxisPlot::axisAt(int axis)
{
    return m_axes[size_t(isYAxis(axis) ? axis : yAxisCount)];
}

const MultiAxisPlot::Axis& MultiAxisPlot::axisAt(int axis) const
{
    return m_axes[size_t(isYAxis(axis) ? axis : yAxisCount)];
}

void MultiAxisPlot::attach(QwtPlotItem* item, int axis)
{
    item->attach(this);
    if (isYAxis(axis))
        m_axisOfItem.insert(item, axis);
}

void MultiAxisPlot::forgetItem(QwtPlotItem* item, bool attached)
{
    if (!attached)
        m_axisOfItem.remove(item);
}

int MultiAxisPlot::axisOf(const QwtPlotItem* item) const
{
    return m_axisOfItem.value(item, m_current);
}

void MultiAxisPlot::setCurrentAxis(int axis)
{
    if (!isYAxis(axis) || axis == m_current)
        return;
    m_current = axis;
    setZoomEnabled(m_zoom);
    updateScales();
}

void MultiAxisPlot::enableAxis(int axis, bool on)
{
    if (isYAxis(axis))
        axisAt(axis).enabled = on;
    updateScales();
}

bool MultiAxisPlot::axisEnabled(int axis) const
{
    return axis == bottomAxis || axisAt(axis).enabled;
}

void MultiAxisPlot::setAxisTitle(int axis, const QString& title)
{
    axisAt(axis).title = title;
    updateScales();
}

QString MultiAxisPlot::axisTitle(int axis) const
{
    return axisAt(axis).title;
}

void MultiAxisPlot::setAxisColor(int axis, const QColor& color)
{
    axisAt(axis).color = color;
    updateScales();
}

QColor MultiAxisPlot::axisColor(int axis) const
{
    return axisAt(axis).color;
}

void MultiAxisPlot::setAxisFont(const QFont& font)
{
    QwtPlot::setAxisFont(yLeft, font);
    QwtPlot::setAxisFont(xBottom, font);
    updateScales();
}

void MultiAxisPlot::setAxisScaleType(int number, Scale scale, double origin)
{
    Axis& axis = axisAt(number);
    if (axis.scale == scale && axis.origin == origin)
        return;
    axis.scale = scale;
    axis.origin = origin;
    axis.engine.reset(newEngine(scale, origin));
    const bool usable = scale != Scale::Log10 || axis.range.min > 0.0;
    setRange(axis, usable ? axis.range.min : 1.0, usable ? axis.range.max : 10.0);
    updateScales();
}

MultiAxisPlot::Scale MultiAxisPlot::axisScaleType(int axis) const
{
    return axisAt(axis).scale;
}

void MultiAxisPlot::setBottomScaleDraw(QwtScaleDraw* draw)
{
    QwtPlot::setAxisScaleDraw(xBottom, draw);
}

void MultiAxisPlot::setRange(Axis& axis, double min, double max)
{
    if (min > max)
        std::swap(min, max);
    if (!std::isfinite(max - min) || min == max || (axis.scale == Scale::Log10 && min <= 0.0))
        return;
    axis.range.min = min;
    axis.range.max = max;
    axis.div =
        axis.engine->divideScale(min, max, maxMajor, axis.scale == Scale::Log10 ? maxMinorLog : maxMinor);
}

void MultiAxisPlot::setAxisScale(int axis, double min, double max)
{
    axisAt(axis).range.automatic = false;
    setRange(axisAt(axis), min, max);
    updateScales();
}

void MultiAxisPlot::setAxisAutoScale(int axis, bool on)
{
    axisAt(axis).range.automatic = on;
}

bool MultiAxisPlot::axisAutoScale(int axis) const
{
    return axisAt(axis).range.automatic;
}

QwtInterval MultiAxisPlot::axisInterval(int axis) const
{
    return {axisAt(axis).range.min, axisAt(axis).range.max};
}

const QwtScaleDiv& MultiAxisPlot::axisScaleDiv(int axis) const
{
    return axisAt(axis).div;
}

QwtScaleMap MultiAxisPlot::axisMap(int number) const
{
    QwtScaleMap map = canvasMap(isYAxis(number) ? yLeft : xBottom);
    const Axis& axis = axisAt(number);
    map.setTransformation(axis.engine->transformation());
    map.setScaleInterval(axis.range.min, axis.range.max);
    return map;
}

double MultiAxisPlot::transform(int axis, double value) const
{
    return axisMap(axis).transform(value);
}

double MultiAxisPlot::invTransform(int axis, double pixel) const
{
    return axisMap(axis).invTransform(pixel);
}

void MultiAxisPlot::fitAxes()
{
    std::vector<Extremes> extremes;
    extremes.reserve(m_axes.size());
    bool any = false;
    for (const Axis& axis : m_axes) {
        extremes.emplace_back(axis.scale == Scale::Log10);
        any = any || axis.range.automatic;
    }
    if (!any)
        return;
    for (const QwtPlotItem* item : itemList()) {
        if (item->isVisible() && item->testItemAttribute(QwtPlotItem::AutoScale))
            gather(*item, extremes.back(), extremes[size_t(axisOf(item))]);
    }
    for (size_t i = 0; i < m_axes.size(); ++i) {
        Axis& axis = m_axes[i];
        const QwtInterval found = extremes[i].interval();
        if (!axis.range.automatic || !found.isValid())
            continue;
        if (axis.scale == Scale::Log10) {
            const QwtInterval whole = decades(found);
            setRange(axis, whole.minValue(), whole.maxValue());
            continue;
        }
        double min = found.minValue();
        double max = found.maxValue();
        if (min == max && i == size_t(yAxisCount)) {
            min -= aroundOne(axis.scale);
            max += aroundOne(axis.scale);
        }
        double step = 0.0;
        axis.engine->autoScale(maxMajor, min, max, step);
        setRange(axis, min, max);
    }
}

void MultiAxisPlot::showNative(int number)
{
    const int native = isYAxis(number) ? int(yLeft) : int(xBottom);
    const Axis& axis = axisAt(number);
    QwtPlot::setAxisScaleEngine(native, newEngine(axis.scale, axis.origin));
    QwtPlot::setAxisScaleDiv(native, axis.div);
}

void MultiAxisPlot::updateScales()
{
    showNative(bottomAxis);
    QwtText bottomTitle(axisAt(bottomAxis).title, QwtText::PlainText);
    bottomTitle.setRenderFlags(Qt::AlignHCenter | Qt::TextWordWrap);
    QwtPlot::setAxisTitle(xBottom, bottomTitle);
    QVector<PlotScaleDraw::Neighbour> neighbours;
    bool any = axisAt(m_current).enabled;
    for (int number = 0; number < yAxisCount; ++number) {
        const Axis& axis = axisAt(number);
        any = any || axis.enabled;
        if (axis.enabled && number != m_current)
            neighbours << PlotScaleDraw::Neighbour{
                axis.div, axis.scale == Scale::Log10, axis.title, axis.color};
    }
    m_leftDraw->setOwn(axisAt(m_current).title, axisAt(m_current).color, QwtPlot::axisFont(yLeft));
    m_leftDraw->setNeighbours(neighbours);
    showNative(m_current);
    const QFont font = axisWidget(yLeft)->font();
    while (!neighbours.isEmpty() && m_leftDraw->extent(font) > scalesShare * width()) {
        neighbours.removeLast();
        m_leftDraw->setNeighbours(neighbours);
    }
    QwtPlot::enableAxis(yLeft, any);
    // A neighbour's label may stand at the very end where the current scale has none.
    QwtScaleWidget* widget = axisWidget(yLeft);
    const int half = widget->fontMetrics().height() / 2 + 1;
    widget->setMinBorderDist(half, half);
    widget->update();
    const int extent = qRound(m_leftDraw->extent(widget->font()));
    if (extent != m_leftExtent)
        updateLayout();
    m_leftExtent = extent;
}

void MultiAxisPlot::replot()
{
    fitAxes();
    updateScales();
    QwtPlot::replot();
}

void MultiAxisPlot::resizeEvent(QResizeEvent* event)
{
    updateScales();
    QwtPlot::resizeEvent(event);
}

void MultiAxisPlot::drawItems(
    QPainter* painter, const QRectF& canvasRect, const QwtScaleMap maps[axisCnt]) const
{
    for (QwtPlotItem* item : itemList()) {
        if (!item->isVisible())
            continue;
        QwtScaleMap yMap = maps[yLeft];
        const Axis& axis = axisAt(axisOf(item));
        yMap.setTransformation(axis.engine->transformation());
        yMap.setScaleInterval(axis.range.min, axis.range.max);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing, item->testRenderHint(QwtPlotItem::RenderAntialiased));
        item->draw(painter, maps[xBottom], yMap, canvasRect);
        painter->restore();
    }
}

void MultiAxisPlot::insertLegend(QwtAbstractLegend* legend, LegendPosition position, double ratio)
{
    QwtPlot::insertLegend(legend, position, ratio);
    if (auto* table = qobject_cast<QwtLegend*>(legend))
        connect(table, &QwtLegend::checked, this, &MultiAxisPlot::toggleLegend);
}

void MultiAxisPlot::toggleLegend(const QVariant& info, bool on)
{
    emit legendChecked(infoToItem(info), on);
}
