#include "plot/plotform.h"

#include "base/language.h"
#include "plot/core/valuetable.h"
#include "plot/multiaxisplot.h"
#include "plot/plotboxes.h"
#include "plot/plotslot.h"
#include "record/calendar.h"

#include <QAction>
#include <QMouseEvent>
#include <qwt_plot_marker.h>

#include <algorithm>
#include <cmath>

void PlotForm::setMarkerMode()
{
    m_markerAction->setChecked(true);
    m_zoomAction->setChecked(false);
    m_boundsAction->setChecked(false);
    m_plot->setZoomEnabled(false);
}

void PlotForm::setZoomMode()
{
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

QString PlotForm::markerTime(double x) const
{
    // Beyond this no calendar reaches, and a whole number soon no longer either.
    x = std::clamp(x, -1e12, 1e12);
    if (isDayPlot) {
        int year = 0;
        int month = 0;
        int day = 0;
        MjdToDate(static_cast<long>(std::floor(x)), &year, &month, &day);
        return QDate(year, month, day).toString(QStringLiteral("dd.MM.yy"));
    }
    const double seconds = isHourPlot ? x * 3600.0 : x;
    return startTime.addMSecs(static_cast<qint64>(seconds * 1000.0))
        .toString(QStringLiteral("hh:mm:ss dd.MM.yy"));
}

void PlotForm::clearMarkers()
{
    for (QwtPlotMarker* marker : {m_x1.get(), m_y1.get(), m_x2.get(), m_y2.get()})
        marker->setVisible(false);
    m_pressed = false;
    setStatusText(QString());
}

void PlotForm::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (!m_markerAction->isChecked())
        return;
    if (event->button() == Qt::RightButton) {
        clearMarkers();
        replot();
        return;
    }
    QPointF value;
    if (event->button() != Qt::LeftButton || !canvasValue(event->pos(), &value))
        return;
    m_pressed = true;
    m_pressPos = event->pos();
    m_pressValue = value;
    m_x1->setXValue(value.x());
    m_y1->setYValue(value.y());
    m_x1->setVisible(true);
    m_y1->setVisible(true);
    m_x2->setVisible(false);
    m_y2->setVisible(false);
    if (xAxisKind == 1)
        setStatusText(markerTime(value.x()) + ", " + " Y1 = " + QString::number(value.y(), 'g', 3));
    else
        setStatusText(QString::asprintf("X1 = %.3lf; Y1 = %1.3le;", value.x(), value.y()));
    replot();
}

QString PlotForm::differenceText(double dx, double dy) const
{
    const bool english = language::isEnglish();
    QString unit = english ? QStringLiteral("s") : QStringLiteral("сек"); // verbatim
    if (isDayPlot)
        unit = english ? QStringLiteral("days") : QStringLiteral("сут."); // verbatim
    else if (isHourPlot)
        unit = english ? QStringLiteral("hrs") : QStringLiteral("час."); // verbatim
    return QString::asprintf("|X2 - X1| = %.3lf ", std::fabs(dx)) + unit
        + QString::asprintf(", |Y2 - Y1| = %1.3le", std::fabs(dy));
}

void PlotForm::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    m_pressed = false;
    QPointF value;
    if (!m_markerAction->isChecked() || event->pos() == m_pressPos || !canvasValue(event->pos(), &value))
        return;
    m_x2->setXValue(value.x());
    m_y2->setYValue(value.y());
    m_x2->setVisible(true);
    m_y2->setVisible(true);
    const double dx = value.x() - m_pressValue.x();
    const double dy = value.y() - m_pressValue.y();
    setStatusText(differenceText(dx, dy));
    if (dx != 0.0 && dy != 0.0 && plotKind < 2)
        showMeans(m_pressValue.x(), value.x());
    replot();
}

void PlotForm::showMeans(double x1, double x2)
{
    QString text = language::isEnglish() ? QStringLiteral("Mean value:\n")
                                         : QStringLiteral("Среднее значение:\n"); // verbatim
    for (int i = 0; i < curveCount; ++i) {
        const Slot& slot = *m_slots[size_t(i)];
        if (!slot.visible)
            continue;
        QVector<double> xs;
        QVector<double> ys;
        for (size_t k = 0; k < slot.curve.dataSize(); ++k) {
            xs << slot.curve.sample(int(k)).x();
            ys << slot.curve.sample(int(k)).y();
        }
        text += slot.curve.title().text().leftJustified(20, ' ', true) + ": "
            + QString::number(meanBetween(xs, ys, x1, x2), 'e', 6) + '\n';
    }
    QwtText box(text, QwtText::PlainText);
    box.setRenderFlags(Qt::AlignLeft | Qt::AlignTop);
    m_boxes->show(PlotBoxes::BottomLeft, box);
}
