#include "plot/plotform.h"

#include "plot/core/timeaxis.h"
#include "plot/grafoptions.h"
#include "plot/insplotcomment.h"
#include "plot/multiaxisplot.h"
#include "plot/plotboxes.h"
#include "plot/plotcomments.h"
#include "plot/plotzoomdt.h"

#include <QAction>
#include <QMenu>
#include <QRectF>
#include <qwt_interval.h>
#include <qwt_text_label.h>

#include <cmath>

void PlotForm::buildDialogs()
{
    options = new GrafOptions(curveLimit, this);
    connect(options, &GrafOptions::applyClick, this, &PlotForm::takeApply);
    connect(options, &GrafOptions::applyZoom, this, &PlotForm::setDTzoom_new);
    connect(options, &GrafOptions::restore1, this, &PlotForm::restoreDTzoom_new);
    connect(options, &GrafOptions::removeCurve, this, &PlotForm::removeCurve);
    m_zoomDialog = new PlotZoomDT(this);
    connect(m_zoomDialog, &PlotZoomDT::zoomIt, this, &PlotForm::setDTzoom);
    connect(m_zoomDialog, &PlotZoomDT::restore, this, &PlotForm::restoreDTzoom);
    m_commentDialog = new InsPlotComment(this);
    connect(m_commentDialog, &InsPlotComment::insComment, this, &PlotForm::setPlotComment);
    connect(this, &PlotForm::SetTmpLabel, m_commentDialog, &InsPlotComment::CorrectComment);
    connect(this, &PlotForm::SetTmpLabel1, m_commentDialog, &InsPlotComment::DelComment);

    m_comments = new PlotComments(m_plot->canvas());
    connect(m_comments, &PlotComments::menuWanted, this, &PlotForm::showCommentMenu);
    m_boxes->setFurther(
        [this](QPainter* painter, const QRectF& canvas) { m_comments->draw(painter, canvas); });
    m_commentMenu = new QMenu(this);
    m_correctAction = m_commentMenu->addAction(QString());
    m_deleteAction = m_commentMenu->addAction(QString());
    connect(m_correctAction, &QAction::triggered, this, &PlotForm::CommentLabelContextMenuTrigg);
    connect(m_deleteAction, &QAction::triggered, this, &PlotForm::CommentLabelContextMenuTrigg1);
}

void PlotForm::setTimeBounds(const QDateTime& from, const QDateTime& to)
{
    m_zoomDialog->setdt(from, to);
    options->setdt(from, to);
}

TimeAxis PlotForm::timeAxis() const
{
    return {startTime, isHourPlot, isDayPlot};
}

bool PlotForm::hasTimeAxis() const
{
    return plotKind < 2 && (isDayPlot || startTime.isValid());
}

/// The range that is shown stands in where nobody has told the bounds of the data.
void PlotForm::offerBounds()
{
    const QwtInterval range = m_plot->axisInterval(MultiAxisPlot::bottomAxis);
    const QDateTime from = timeAxis().timeOf(range.minValue());
    const QDateTime to = timeAxis().timeOf(range.maxValue());
    if (!options->start.isValid() || !options->stop.isValid())
        options->setdt(from, to);
    if (!m_zoomDialog->start.isValid() || !m_zoomDialog->stop.isValid())
        m_zoomDialog->setdt(from, to);
}

void PlotForm::showZoomDialog()
{
    if (!hasTimeAxis())
        return;
    offerBounds();
    m_zoomDialog->myshow();
}

/// Times that are not valid, or without extent, leave X as it is.
void PlotForm::zoomTime(int axis, QwtInterval y, const QDateTime& from, const QDateTime& to)
{
    const QwtInterval shownX = m_plot->axisInterval(MultiAxisPlot::bottomAxis);
    QwtInterval x = shownX;
    const double x1 = timeAxis().xOf(from);
    const double x2 = timeAxis().xOf(to);
    if (hasTimeAxis() && std::isfinite(x1) && std::isfinite(x2) && x1 != x2)
        x = QwtInterval(x1, x2).normalized();
    y = y.normalized();
    if (x == shownX && y == m_plot->axisInterval(axis))
        return;
    const int depth = m_plot->zoomDepth(axis);
    m_plot->zoomTo(axis, QRectF(x.minValue(), y.minValue(), x.width(), y.width()));
    if (m_plot->zoomDepth(axis) == depth) {
        // Too narrow in Y for a step of zooming: the times alone are taken.
        m_plot->setAxisScale(MultiAxisPlot::bottomAxis, x.minValue(), x.maxValue());
        m_timeFixed = true;
    }
    replot();
}

void PlotForm::setDTzoom()
{
    zoomTime(currentAxis, m_plot->axisInterval(currentAxis), m_zoomDialog->start, m_zoomDialog->stop);
}

void PlotForm::setDTzoom_new(int axis, double low, double high, QDateTime from, QDateTime to, bool values)
{
    const bool isAxis = MultiAxisPlot::isYAxis(axis);
    const int number = isAxis ? axis : int(currentAxis);
    const bool usable = isAxis && values && std::isfinite(high - low) && low != high;
    // Bounds that nobody touched do not undo a zoom in time.
    const bool untouched = !options->timeGiven() && from == options->start && to == options->stop;
    zoomTime(number,
        usable ? QwtInterval(low, high, QwtInterval::IncludeBorders) : m_plot->axisInterval(number),
        untouched ? QDateTime() : from, untouched ? QDateTime() : to);
    options->setLimits(axisLimits());
}

void PlotForm::restoreWhole(int axis)
{
    m_plot->zoomHome(axis);
    const QwtInterval whole = m_plot->homeInterval(MultiAxisPlot::bottomAxis);
    // Another axis may still hold the times.
    if (whole != m_plot->axisInterval(MultiAxisPlot::bottomAxis))
        m_plot->setAxisScale(MultiAxisPlot::bottomAxis, whole.minValue(), whole.maxValue());
    if (m_timeFixed)
        m_plot->setAxisAutoScale(MultiAxisPlot::bottomAxis);
    m_timeFixed = false;
    replot();
}

void PlotForm::restoreDTzoom()
{
    restoreWhole(currentAxis);
}

void PlotForm::restoreDTzoom_new()
{
    const int axis = options->chosenAxis();
    restoreWhole(MultiAxisPlot::isYAxis(axis) ? axis : int(currentAxis));
    options->setLimits(axisLimits());
}
