#include "plot/staticphaseform.h"

#include "base/debuglog.h"
#include "plot/clockscaledraw.h"
#include "plot/core/daycounts.h"
#include "plot/multiaxisplot.h"
#include "plot/plaintooltip.h"
#include "plot/plotzoomdt.h"
#include "prompt/guard.h"
#include "table/core/recordtexts.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QSlider>
#include <QVBoxLayout>
#include <qwt_plot_curve.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kindsOfData = 4;

QString dateText(const QDate& date)
{
    return date.toString(QStringLiteral("dd.MM.yyyy"));
}

} // namespace

StaticPhaseForm::StaticPhaseForm(int* number, QWidget* parent)
    : QWidget(parent)
    , plot(new PlotForm(number, this))
    , daySlider(new QSlider(Qt::Horizontal, this))
    , m_rows(new QVBoxLayout(this))
    , m_dayLabel(new QLabel(this))
{
    m_wanted.fill(true);
    plot->plotKind = 0;
    plot->xAxisKind = 1;
    plot->plot()->setAxisScaleType(MultiAxisPlot::bottomAxis, MultiAxisPlot::Scale::Time);
    setWindowIcon(plot->windowIcon());
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
    m_rows->addWidget(plot, 1);
    buildSlider();
    // The title tells all days, a picture shows one of them.
    plot->setPictureNote([this] { return daySlider->isHidden() ? QString() : dayText(daySlider->value()); });
    connect(plot->zoomDialog(), &PlotZoomDT::zoomIt, this, &StaticPhaseForm::zoomOtherDay);
    connect(plot, &PlotForm::forRecByIND, this, &StaticPhaseForm::giveForRec);
    resize(640, 480);
    StaticPhaseForm::retranslate();
}

StaticPhaseForm::~StaticPhaseForm()
{
    delete plot; // while the samples of its curves still stand
}

void StaticPhaseForm::buildSlider()
{
    daySlider->setObjectName(QStringLiteral("daySlider"));
    daySlider->setPageStep(1);
    daySlider->setTickPosition(QSlider::TicksBelow);
    m_dayLabel->setObjectName(QStringLiteral("dayLabel"));
    m_dayLabel->setTextFormat(Qt::PlainText);
    auto* line = new QHBoxLayout;
    line->setContentsMargins(12, 2, 12, 6);
    line->setSpacing(12);
    line->addWidget(daySlider, 1);
    line->addWidget(m_dayLabel);
    m_rows->addLayout(line);
    connect(daySlider, &QSlider::valueChanged, this, &StaticPhaseForm::anotherDay);
    showSlider(false);
}

void StaticPhaseForm::showSlider(bool on)
{
    daySlider->setVisible(on);
    m_dayLabel->setVisible(on);
}

QString StaticPhaseForm::dayText(int day) const
{
    return dateText(firstDate.addDays(day))
        + tr("  (день %1 из %2)").arg(QString::number(day + 1), QString::number(dayCount));
}

void StaticPhaseForm::retranslate()
{
    if (m_title)
        setWindowTitle(m_title());
    daySlider->setToolTip(
        plainToolTip(tr("Выбор дня. Клавиши: стрелки и PageUp, PageDown – на день, Home и End – в начало "
                        "и в конец")));
    daySlider->setAccessibleName(tr("Выбор дня"));
    m_dayLabel->setText(dayText(daySlider->value()));
}

void StaticPhaseForm::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

/// The slider obeys its keys wherever the focus is.
void StaticPhaseForm::keyPressEvent(QKeyEvent* event)
{
    constexpr std::array<int, 6> keys = {
        Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    const bool ours = std::find(keys.begin(), keys.end(), event->key()) != keys.end();
    if (ours && !daySlider->isHidden() && !daySlider->hasFocus())
        QCoreApplication::sendEvent(daySlider, event);
    else
        QWidget::keyPressEvent(event);
}

void StaticPhaseForm::setTitleSource(PlotForm::Text text)
{
    plot->setTitleSource(text);
    m_title = std::move(text);
    setWindowTitle(m_title());
}

unsigned short StaticPhaseForm::axisOf(int index) const
{
    const int kind = std::min<int>(records[size_t(index)].dataType, kindsOfData - 1);
    return static_cast<unsigned short>(std::clamp(kind + m_axisShift, 0, MultiAxisPlot::yAxisCount - 1));
}

double StaticPhaseForm::offsetOf(Record& record) const
{
    double first = record.dyn_t.isEmpty() ? 0.0 : record.dyn_t.constFirst();
    if (totalOf(record.t) > 0)
        first = valuesOf(record.t, 0, 1).front();
    const double begin = startSecond + double(shownStart.secsTo(record.start));
    return std::isfinite(first) ? begin - first : begin;
}

void StaticPhaseForm::measure()
{
    shownStart = QDateTime();
    shownStop = QDateTime();
    for (int i = 0; i < plot->curveCount; ++i) {
        Record& record = records[size_t(i)];
        const QDateTime stop = endOf(record);
        if (record.start.isValid() && (!shownStart.isValid() || record.start < shownStart))
            shownStart = record.start;
        if (stop.isValid() && (!shownStop.isValid() || stop > shownStop))
            shownStop = stop;
    }
    const QTime time = shownStart.time();
    startSecond = time.isValid() ? 3600.0 * time.hour() + 60.0 * time.minute() + time.second() : 0.0;
    stopSecond = startSecond + double(shownStart.secsTo(shownStop));
    firstDate = shownStart.date();
    plot->startTime = QDateTime(firstDate, QTime(0, 0));
    for (int i = 0; i < plot->curveCount; ++i)
        m_offsets[size_t(i)] = offsetOf(records[size_t(i)]);
    qint64 days = shownStart.date().daysTo(shownStop.date()) + 1;
    if (days < 1) {
        const QString form = QStringLiteral("dd.MM.yyyy hh:mm:ss");
        DebugLOG(qPrintable(
            QStringLiteral("dayCount < 1: ") + shownStart.toString(form) + " - " + shownStop.toString(form)));
        days = 1;
    }
    setDays(int(days));
}

void StaticPhaseForm::setDays(int days)
{
    dayCount = days;
    for (int i = 0; i < curveLimit; ++i)
        dayCounts[size_t(i)] =
            i < plot->curveCount ? countDays(records[size_t(i)].t, axisOffset(i), days) : std::vector<int>();
    const QSignalBlocker quiet(daySlider);
    daySlider->setRange(0, days - 1);
    daySlider->setTickInterval(std::max(1, days / 40));
    plot->setPlotTitle(dateText(shownStart.date()) + " - " + dateText(shownStop.date()));
    m_dayLabel->setMinimumWidth(m_dayLabel->fontMetrics().horizontalAdvance(dayText(days - 1)));
    const QDateTime dayEnd(shownStop.date(), QTime(23, 59, 59));
    plot->setTimeBounds(plot->startTime, dayEnd);
    if (days == 1)
        plot->zoomDialog()->setdt(shownStart, shownStop);
}

void StaticPhaseForm::setTimeAxis()
{
    plot->plot()->setBottomScaleDraw(new ClockScaleDraw(QTime(0, 0)));
    plot->setAxisTitleSource(MultiAxisPlot::bottomAxis, [] { return tr("Время"); });
}

/// The last day that any record has samples on: the end of a record may lie at the very start of a day.
int StaticPhaseForm::lastDay() const
{
    const auto bare = [this](int day) {
        for (int i = 0; i < plot->curveCount; ++i) {
            if (shows(i, day))
                return false;
        }
        return true;
    };
    int day = dayCount - 1;
    while (day > 0 && bare(day))
        --day;
    return bare(day) ? dayCount - 1 : day;
}

void StaticPhaseForm::addStaticRecords(bool first)
{
    if (!plot) {
        DebugLOG("ERROR QWT!!");
        return;
    }
    measure();
    if (first) {
        setTimeAxis();
        m_wanted.fill(true);
        m_present.clear();
        for (int i = 0; i < curveLimit; ++i)
            clearCurve(i);
        plot->clearAxes();
        for (int i = 0; i < plot->curveCount; ++i)
            plot->setCurveTitle(i, recordName(records[size_t(i)]));
    }
    showSlider(dayCount > 1);
    anotherDay(lastDay());
}

void StaticPhaseForm::clearCurve(int index)
{
    plot->curve(index)->setSamples(QVector<QPointF>());
    plot->detachCurve(index);
    m_points[size_t(index)] = Points();
}

void StaticPhaseForm::arrangeCurves(const std::vector<int>& present)
{
    for (const int index : m_present)
        m_wanted[size_t(index)] = plot->curveVisible(index);
    for (int i = 0; i < curveLimit; ++i) {
        plot->curve(i)->setSamples(QVector<QPointF>());
        m_points[size_t(i)] = Points();
    }
    if (present == m_present)
        return;
    // All of them anew, so that the legend keeps the order of the records.
    for (const int index : m_present)
        plot->detachCurve(index);
    m_present = present;
    const unsigned short current = plot->currentAxis;
    plot->clearAxes();
    int lowest = MultiAxisPlot::yAxisCount;
    bool still = false;
    for (const int index : present) {
        const unsigned short axis = axisOf(index);
        lowest = std::min<int>(lowest, axis);
        still = still || axis == current;
        plot->attachCurve(index, axis);
        plot->showCurve(plot->curve(index), m_wanted[size_t(index)]);
    }
    plot->setCurrentAxis(still ? current : lowest);
}

void StaticPhaseForm::setSamples(int index, std::vector<double> x, std::vector<double> y)
{
    Points& points = m_points[size_t(index)];
    plot->curve(index)->setSamples(QVector<QPointF>());
    points.x = std::move(x);
    points.y = std::move(y);
    plot->curve(index)->setRawSamples(
        points.x.data(), points.y.data(), int(std::min(points.x.size(), points.y.size())));
}

bool StaticPhaseForm::shows(int index, int day) const
{
    return dayCounts[size_t(index)][size_t(day)] > 0;
}

void StaticPhaseForm::drawDay(int day)
{
    std::vector<int> present;
    for (int i = 0; i < plot->curveCount; ++i) {
        if (shows(i, day))
            present.push_back(i);
    }
    arrangeCurves(present);
    plot->dropMarkers();
    plot->initZoomer();
    if (dayCount > 1)
        plot->plot()->setAxisScale(MultiAxisPlot::bottomAxis, day * secondsOfDay, (day + 1) * secondsOfDay);
    for (const int i : present) {
        const Record& record = records[size_t(i)];
        const std::vector<int>& counts = dayCounts[size_t(i)];
        const int first = firstOfDay(counts, day);
        std::vector<double> y = valuesOf(record.x, first, counts[size_t(day)]);
        if (subtractFirst && !y.empty())
            std::transform(
                y.begin(), y.end(), y.begin(), [base = y.front()](double value) { return value - base; });
        setSamples(i, valuesOf(record.t, first, counts[size_t(day)], axisOffset(i)), std::move(y));
    }
    plot->takeApply2();
}

void StaticPhaseForm::anotherDay(int day)
{
    if (day < 0 || day >= dayCount)
        return;
    if (!plot) {
        DebugLOG("ERROR QWT!!");
        return;
    }
    {
        const QSignalBlocker quiet(daySlider);
        daySlider->setValue(day);
    }
    m_dayLabel->setText(dayText(day));
    runGuarded("StaticPhaseForm anotherDay", [this, day] { drawDay(day); });
}

/// A period that begins on another day calls that day up.
void StaticPhaseForm::zoomOtherDay()
{
    const qint64 day = firstDate.daysTo(plot->zoomDialog()->start.date());
    if (daySlider->isHidden() || day == daySlider->value() || day < 0 || day >= dayCount)
        return;
    daySlider->setValue(int(day));
    plot->setDTzoom();
}

void StaticPhaseForm::giveForRec(int index, double x1, double x2)
{
    if (index < 0 || index >= plot->curveCount)
        return;
    emit forRec(records[size_t(index)].RecID, x1 - axisOffset(index), x2 - axisOffset(index));
}

void StaticPhaseForm::setStartStopDates(QDate& start, QDate& stop)
{
    if (stop < start)
        return;
    plot->setPlotTitle(dateText(start) + " - " + dateText(stop));
}

void StaticPhaseForm::plotData(int index, double* x, double* y, long n)
{
    setTimeAxis();
    if (index < 0 || index >= plot->curveCount || n < 0 || (n > 0 && (!x || !y)))
        return;
    setSamples(index, std::vector<double>(x, x + n), std::vector<double>(y, y + n));
    plot->replot();
}

void StaticPhaseForm::refresh()
{
    for (int i = 0; i < curveLimit; ++i)
        clearCurve(i);
    m_present.clear();
    plot->clearAxes();
    plot->curveCount = 0;
    shownStart = QDateTime::currentDateTime();
    shownStop = shownStart;
    plot->replot();
}

void StaticPhaseForm::closeEvent(QCloseEvent* event)
{
    for (int i = 0; i < plot->curveCount; ++i) {
        clearCurve(i);
        plot->showCurve(plot->curve(i), false);
        deleteRecord(&records[size_t(i)]);
    }
    m_present.clear();
    plot->curveCount = 0;
    emit IsClosing(this);
    event->accept();
}
