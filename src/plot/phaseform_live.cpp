#include "plot/phaseform.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "plot/core/daycounts.h"
#include "plot/multiaxisplot.h"
#include "prompt/guard.h"

#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSlider>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

int flushLength()
{
    return std::max(DYN_PLOTLEN, 1);
}

} // namespace

/// A live record ends with its tail.
QDateTime PhaseForm::endOf(Record& record) const
{
    if (!dynamicMode || !record.dynamic || record.dyn_t.isEmpty())
        return record.stop;
    const double first = totalOf(record.t) > 0 ? record.t[0] : record.dyn_t.constFirst();
    const QDateTime end = record.start.addMSecs(qint64((record.dyn_t.constLast() - first) * 1000.0));
    return std::max(record.stop, end);
}

/// A live record is on the plot even before its first sample.
bool PhaseForm::shows(int index, int day) const
{
    return (dynamicMode && records[size_t(index)].dynamic) || StaticPhaseForm::shows(index, day);
}

void PhaseForm::setFollowing(bool on)
{
    dynamicMode = on;
    dynBtn->setChecked(on);
    plot->processMenu()->setEnabled(!on);
    if (on)
        showSlider(false);
}

void PhaseForm::addDynamicRecords()
{
    dynRecordCount = 0;
    for (int i = 0; i < plot->curveCount; ++i) {
        Record& record = records[size_t(i)];
        if (!record.dynamic)
            continue;
        ++dynRecordCount;
        if (!record.start.isValid())
            record.start = record.dyn_start;
        if (!record.stop.isValid())
            record.stop = record.start;
    }
    if (dynRecordCount < 1)
        return;
    dynBtn->show();
    setFollowing(true);
    runGuarded("PhaseForm addDynamicRecords", [this] {
        measure();
        drawDay(dayCount - 1);
        showLive();
        openWindow();
        plot->replot();
    });
}

/// X of the newest sample that can be shown.
double PhaseForm::liveEnd(int index) const
{
    const Record& record = records[size_t(index)];
    if (dynamicMode && !record.dyn_t.isEmpty())
        return record.dyn_t.constLast() + axisOffset(index);
    const std::vector<double> last = valuesOf(record.t, totalOf(record.t) - 1, 1, axisOffset(index));
    return totalOf(record.t) > 0 ? last.front() : startSecond;
}

double PhaseForm::newestSecond() const
{
    double newest = -std::numeric_limits<double>::infinity();
    for (int i = 0; i < plot->curveCount; ++i) {
        if (records[size_t(i)].dynamic)
            newest = std::fmax(newest, liveEnd(i));
    }
    return newest;
}

/// Where the moving window stands at first.
void PhaseForm::openWindow()
{
    if (isFreq)
        return;
    bool stored = true;
    double left = std::numeric_limits<double>::infinity();
    for (int i = 0; i < plot->curveCount; ++i) {
        Record& record = records[size_t(i)];
        if (!record.dynamic)
            continue;
        stored = stored && totalOf(record.t) > 0;
        if (totalOf(record.t) > 0)
            left = std::fmin(left, record.t[0] + axisOffset(i));
    }
    if (!stored) {
        dynWindowStart = long(startSecond);
        plot->plot()->setAxisScale(
            MultiAxisPlot::bottomAxis, startSecond, std::max(stopSecond, startSecond + flushLength()));
        return;
    }
    const double right = newestSecond();
    if (right - left > flushLength())
        left = right - flushLength();
    dynWindowStart = std::isfinite(left) ? long(std::floor(left)) : long(startSecond);
    moveWindow();
}

/// Where it stands when following goes on.
void PhaseForm::startWindow()
{
    double first = std::numeric_limits<double>::infinity();
    for (int i = 0; i < plot->curveCount; ++i) {
        const Record& record = records[size_t(i)];
        if (record.dynamic && !record.dyn_t.isEmpty() && liveEnd(i) > double(dynWindowStart))
            first = std::fmin(first, record.dyn_t.constFirst() + axisOffset(i));
    }
    if (std::isfinite(first))
        dynWindowStart = long(std::floor(first));
    moveWindow();
}

/// Keeps what the user has zoomed to.
void PhaseForm::scaleWindow()
{
    for (int axis = 0; axis < MultiAxisPlot::yAxisCount; ++axis) {
        if (plot->plot()->zoomDepth(axis) > 0)
            return;
    }
    plot->plot()->setAxisScale(
        MultiAxisPlot::bottomAxis, double(dynWindowStart), double(dynWindowStart) + flushLength());
}

void PhaseForm::moveWindow()
{
    const double newest = newestSecond();
    if (std::isfinite(newest) && newest > double(dynWindowStart) + flushLength())
        dynWindowStart = long(std::ceil(newest)) - flushLength();
    scaleWindow();
}

/// Puts every live record on the plot, also one without samples as yet.
void PhaseForm::showLive()
{
    for (int i = 0; i < plot->curveCount; ++i) {
        if (!records[size_t(i)].dynamic)
            continue;
        dynOffset[size_t(i)] = axisOffset(i);
        showTail(i);
    }
}

void PhaseForm::showTail(int index)
{
    const Record& record = records[size_t(index)];
    const double offset = axisOffset(index);
    LivePoints points = newestStored(record, 2 * flushLength(), offset);
    const LivePoints live = makesFrequency(index) ? liveFrequencies(record, m_before[size_t(index)], offset)
                                                  : livePoints(record, offset);
    points.t.insert(points.t.end(), live.t.begin(), live.t.end());
    points.x.insert(points.x.end(), live.x.begin(), live.x.end());
    setSamples(index, std::move(points.t), std::move(points.x));
    plot->renewSubtraction(index);
}

void PhaseForm::onDynBtn()
{
    runGuarded("PhaseForm onDynBtn", [this] {
        if (dynamicMode)
            stopFollowing();
        else
            startFollowing();
    });
}

void PhaseForm::startFollowing()
{
    setFollowing(true);
    measure();
    drawDay(dayCount - 1);
    showLive();
    startWindow();
    plot->replot();
}

/// In a frequency window the tail, which holds phases, stays as it is.
void PhaseForm::stopFollowing()
{
    setFollowing(false);
    for (int i = 0; i < plot->curveCount && !isFreq; ++i) {
        if (records[size_t(i)].dynamic)
            flushLive(records[size_t(i)], 0, axisOffset(i));
    }
    addStaticRecords(false);
}

void PhaseForm::UpdateDynamicCurves(
    unsigned short channel, int count, const double* t, const double* x, double baseT, double baseX)
{
    if (count < 1 || busy)
        return;
    const auto isIt = [channel](const Record& record) { return record.dynamic && record.RecID == channel; };
    const auto end = records.begin() + plot->curveCount;
    const auto live = std::find_if(records.begin(), end, isIt);
    if (live == end)
        return;
    const int index = int(live - records.begin());
    {
        const QScopedValueRollback<bool> guard(busy, true);
        runGuarded("PhaseForm UpdateDynamicCurves", [&] { takeBatch(index, {count, t, x, baseT, baseX}); });
    }
    if (dynamicMode)
        plot->replot();
}

void PhaseForm::takeBatch(int index, const LiveBlock& block)
{
    Record& record = records[size_t(index)];
    PhaseBefore* before = makesFrequency(index) ? &m_before[size_t(index)] : nullptr;
    const bool empty = totalOf(record.t) < 1 && record.dyn_t.isEmpty();
    if (before && !before->known && record.dyn_t.isEmpty())
        *before = newestSample(record);
    // The streams send phases of the opposite sign, and so frequencies come out with the sign of the record.
    const double sign = record.dataType == 0 ? -1.0 : 1.0;
    spliceLive(record, block, sign);
    if (empty)
        measure(); // only now its place on the axis is known
    if (record.dyn_t.size() >= flushLength()) {
        flushLive(record, std::max(PRE_PLOTLEN, 0), axisOffset(index), before);
        dayCounts[size_t(index)] = countDays(record.t, axisOffset(index), dayCount);
    }
    addNewDays();
    if (!dynamicMode)
        return;
    dynOffset[size_t(index)] = axisOffset(index);
    showTail(index);
    moveWindow();
}

void PhaseForm::addNewDays()
{
    const double newest = newestSecond();
    if (!std::isfinite(newest) || dayOfSecond(newest) < dayCount)
        return;
    DebugLOG("new day");
    stopSecond = newest;
    shownStop = plot->startTime.addMSecs(qint64(newest * 1000.0));
    setDays(int(dayOfSecond(newest)) + 1);
}
