#include "plot/plotform.h"

#include "plot/multiaxisplot.h"
#include "plot/plotslot.h"

#include <QAction>
#include <QActionGroup>
#include <QCursor>
#include <QMenu>
#include <qwt_plot_marker.h>

#include <algorithm>
#include <array>

namespace {

/// First and last axis number of the three groups.
constexpr std::array<int, 6> axisGroups = {0, 3, 4, 7, 8, 11};

bool inGroup(int axis, size_t group)
{
    return axis >= axisGroups[2 * group] && axis <= axisGroups[2 * group + 1];
}

} // namespace

QString PlotForm::GetAxisName(int axis) const
{
    const std::array<QString, 8> names = {tr("Разность фаз, с"), tr("Температура"), tr("Влажность"),
        tr("Параметр"), tr("Относительная разность частот"), tr("Температура"), tr("Влажность"),
        tr("Параметр")};
    if (inGroup(axis, 0) || inGroup(axis, 1))
        return names[size_t(axis)];
    if (inGroup(axis, 2))
        return names[size_t(axis - axisGroups[4] + (plotKind == 1 ? axisGroups[2] : axisGroups[0]))];
    return {};
}

void PlotForm::listAxis(int axis)
{
    if (!MultiAxisPlot::isYAxis(axis) || m_usedAxes.contains(axis))
        return;
    m_usedAxes << axis;
    m_plot->enableAxis(axis, true);
    if (!m_axisTitles.count(axis) && plotKind < 2)
        setAxisTitleSource(axis, [this, axis] { return GetAxisName(axis); });
    SetAxisNum(m_usedAxes.size());
    if (m_usedAxes.size() == 1)
        setCurrentAxis(axis);
    colorAxes();
}

void PlotForm::clearAxes()
{
    for (const int axis : qAsConst(m_usedAxes))
        m_plot->enableAxis(axis, false);
    m_usedAxes.clear();
}

void PlotForm::colorAxes()
{
    for (const int axis : qAsConst(m_usedAxes))
        m_plot->setAxisColor(axis, axis == currentAxis ? QColor(Qt::black) : QColor(180, 180, 180));
}

void PlotForm::SetAxisNum(int count)
{
    axisCount = std::clamp(count, 0, MultiAxisPlot::yAxisCount);
    const QList<QAction*> actions = m_axisGroup->actions();
    for (int i = 0; i < actions.size(); ++i)
        actions[i]->setVisible(i < axisCount);
}

void PlotForm::setCurrentAxis(int axis)
{
    if (!MultiAxisPlot::isYAxis(axis))
        return;
    currentAxis = static_cast<unsigned short>(axis);
    m_plot->setCurrentAxis(axis);
    const int entry = std::max(0, m_usedAxes.indexOf(axis));
    m_axisGroup->actions().at(entry)->setChecked(true);
    clearMarkers();
    for (QwtPlotMarker* marker : {m_x1.get(), m_y1.get(), m_x2.get(), m_y2.get()})
        m_plot->attach(marker, axis);
    // The height of the strip is one of the axis before.
    clearSelection();
    m_plot->attach(m_strip.get(), axis);
    colorAxes();
    replot();
}

void PlotForm::CurAxisChenged()
{
    const int entry = m_axisGroup->actions().indexOf(m_axisGroup->checkedAction());
    m_axisMenu->hide();
    if (entry < 0 || entry >= m_usedAxes.size())
        return;
    setCurrentAxis(m_usedAxes[entry]);
}

void PlotForm::showAxisMenu()
{
    m_axisMenu->popup(QCursor::pos());
}

void PlotForm::initZoomer()
{
    m_plot->resetZoom();
    m_plot->setAxisAutoScale(MultiAxisPlot::bottomAxis);
    for (int axis = 0; axis < MultiAxisPlot::yAxisCount; ++axis)
        m_plot->setAxisAutoScale(axis);
    replot();
}

void PlotForm::initZoomer(double xMin, double xMax, double yMin, double yMax)
{
    initZoomer();
    m_plot->setAxisScale(MultiAxisPlot::bottomAxis, xMin, xMax);
    m_plot->setAxisScale(currentAxis, yMin, yMax);
    replot();
}
