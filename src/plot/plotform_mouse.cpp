#include "plot/plotform.h"

#include "base/language.h"
#include "plot/core/betweenmarkers.h"
#include "plot/grafoptions.h"
#include "plot/multiaxisplot.h"
#include "plot/plotboxes.h"
#include "plot/plotslot.h"

#include <QAction>
#include <QMouseEvent>
#include <qwt_plot_marker.h>

void PlotForm::setMarkerMode()
{
    leaveSelectionMode();
    m_markerAction->setChecked(true);
    m_zoomAction->setChecked(false);
    m_boundsAction->setChecked(false);
    m_plot->setZoomEnabled(false);
}

void PlotForm::setZoomMode()
{
    leaveSelectionMode();
    m_zoomAction->setChecked(true);
    m_markerAction->setChecked(false);
    m_boundsAction->setChecked(false);
    m_pressed = false;
    m_plot->setZoomEnabled(true);
}

bool PlotForm::canvasValue(const QPoint& pos, QPointF* value) const
{
    const QPoint pixel = m_plot->canvas()->mapFrom(this, pos);
    value->setX(m_plot->invTransform(MultiAxisPlot::bottomAxis, pixel.x()));
    value->setY(m_plot->invTransform(currentAxis, pixel.y()));
    return m_plot->axisInterval(MultiAxisPlot::bottomAxis).contains(value->x())
        && m_plot->axisInterval(currentAxis).contains(value->y());
}

MarkerTexts PlotForm::markerTexts() const
{
    return {isHourPlot, isDayPlot, xAxisKind == 1, language::isEnglish(), startTime};
}

PlotPoints PlotForm::pointsOf(int index) const
{
    const QwtPlotCurve& line = m_slots[size_t(index)]->curve;
    const int count = int(line.dataSize());
    PlotPoints points;
    points.title = line.title().text();
    points.x.reserve(count);
    points.y.reserve(count);
    for (int k = 0; k < count; ++k) {
        const QPointF point = line.sample(k);
        points.x << point.x();
        points.y << point.y();
    }
    return points;
}

void PlotForm::clearMarkers()
{
    for (QwtPlotMarker* marker : {m_x1.get(), m_y1.get(), m_x2.get(), m_y2.get()})
        marker->setVisible(false);
    m_boxes->hide(PlotBoxes::BottomLeft);
    m_boxes->hide(PlotBoxes::BottomRight);
    m_pressed = false;
    setStatusText(QString());
}

void PlotForm::placeMarker(const QPointF& value, QwtPlotMarker& vertical, QwtPlotMarker& horizontal)
{
    vertical.setXValue(value.x());
    horizontal.setYValue(value.y());
    vertical.setVisible(true);
    horizontal.setVisible(true);
}

void PlotForm::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    QPointF value;
    const bool inside = canvasValue(event->pos(), &value);
    const bool marking = m_boundsAction->isChecked();
    if (event->button() == Qt::MiddleButton && inside) {
        m_panning = true;
        m_panPos = event->pos();
        m_panBegun = false;
    } else if (event->button() == Qt::RightButton && (marking || m_markerAction->isChecked())) {
        if (marking)
            clearSelection();
        clearMarkers();
        replot();
    } else if (event->button() == Qt::LeftButton && inside && marking) {
        markBoundary(value);
    } else if (event->button() == Qt::LeftButton && inside && m_markerAction->isChecked()) {
        clearMarkers();
        m_pressed = true;
        m_pressPos = event->pos();
        m_pressValue = value;
        placeMarker(value, *m_x1, *m_y1);
        setStatusText(markerTexts().first(value.x(), value.y()));
        replot();
    }
}

void PlotForm::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::MiddleButton)
        m_panning = false;
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    m_pressed = false;
    QPointF value;
    if (m_markerAction->isChecked() && event->pos() != m_pressPos && canvasValue(event->pos(), &value))
        endMarking(value);
}

void PlotForm::endMarking(const QPointF& value)
{
    placeMarker(value, *m_x2, *m_y2);
    const QPointF step = value - m_pressValue;
    setStatusText(markerTexts().difference(step.x(), step.y()));
    if (step.x() != 0.0 && step.y() != 0.0) {
        if (plotKind < 2)
            showMeans(m_pressValue.x(), value.x());
        if (plotKind == 1)
            showAdev(m_pressValue.x(), value.x());
    }
    replot();
}

void PlotForm::showMeans(double x1, double x2)
{
    QVector<PlotPoints> curves;
    for (int i = 0; i < curveCount; ++i) {
        if (m_slots[size_t(i)]->visible)
            curves << pointsOf(i);
    }
    QwtText box(meansText(curves, x1, x2, language::isEnglish()), QwtText::PlainText);
    box.setRenderFlags(Qt::AlignLeft | Qt::AlignTop);
    m_boxes->show(PlotBoxes::BottomLeft, box);
}

bool PlotForm::showsAdev(int index) const
{
    return known(index) && options->curves[size_t(index)].showAdev;
}

void PlotForm::showAdev(double x1, double x2)
{
    for (int i = 0; i < curveCount; ++i) {
        if (!m_slots[size_t(i)]->visible || !showsAdev(i))
            continue;
        PlotPoints points = pointsOf(i);
        const double unit = isDayPlot ? 86400.0 : isHourPlot ? 3600.0 : 1.0; // s
        for (double& x : points.x)
            x *= unit;
        const QString table =
            adevTable(phaseBetween(points, x1 * unit, x2 * unit, interval), interval, language::isEnglish());
        m_boxes->show(PlotBoxes::BottomRight, QwtText(table, QwtText::RichText));
        return;
    }
}
