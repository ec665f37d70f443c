// The commands that show phase and frequency over time.

#include "base/globals.h"
#include "plot/avarform.h"
#include "plot/frgrsetdlg.h"
#include "plot/phaseform.h"
#include "plot/seriesgraph.h"
#include "prompt/guard.h"
#include "prompt/prompt.h"
#include "table/core/frequencyseries.h"
#include "table/core/minmax.h"
#include "table/core/recordtexts.h"
#include "table/selrectable.h"
#include "ui_selrectable.h"

#include <QAction>
#include <QGuiApplication>
#include <QHash>
#include <QMenu>
#include <QScopeGuard>

#include <algorithm>

namespace {

constexpr double frequencySteps[] = {0.001, 0.01, 0.1, 1.0, 10.0, 100.0, 1000.0, 3600.0, 10000.0}; // s
constexpr int frequencyAxes = 4; // the first Y axis of the group of frequency graphs

GraphPeriod periodOf(SeriesKind kind)
{
    return kind == SeriesKind::Hour ? GraphPeriod::Hour : GraphPeriod::Day;
}

/// Seconds from the first sample of a record to a place in a reduced graph.
double secondsInto(const QDateTime& start, const SeriesScope& scope, double x)
{
    switch (scope.kind) {
    case SeriesKind::Hour: {
        const QDateTime hour = scope.start.addMSecs(-(scope.start.time().msecsSinceStartOfDay() % 3600000));
        return x * 3600.0 - double(hour.msecsTo(start)) / 1000.0;
    }
    case SeriesKind::Day:
        return (x + 2400001.0 - double(start.date().toJulianDay())) * 86400.0
            - start.time().msecsSinceStartOfDay() / 1000.0;
    case SeriesKind::MinMax:
        break;
    }
    return x - double(scope.start.msecsTo(start)) / 1000.0;
}

} // namespace

void SelRecTable::buildFrequencyMenu()
{
    m_frequencyMenu = new QMenu(this);
    for (const double step : frequencySteps) {
        QAction* item = m_frequencyMenu->addAction(QString::number(step));
        item->setCheckable(true);
        item->setChecked(step == frequencySteps[0]);
        item->setData(step);
    }
    m_frequencyMenu->addAction(QString())->setCheckable(true);
    ui->freqGrBtn->setMenu(m_frequencyMenu);
    connect(m_frequencyMenu, &QMenu::triggered, this, &SelRecTable::popup_slot);
    // One of the three kinds at most.
    for (QCheckBox* box : {ui->checkBox, ui->checkBoxHour, ui->checkBoxDay}) {
        connect(box, &QCheckBox::clicked, this, [this, box](bool on) {
            for (QCheckBox* other : {ui->checkBox, ui->checkBoxHour, ui->checkBoxDay})
                other->setChecked(on && other == box);
        });
    }
}

/// Offers the steps that the records allow, and takes the first one of a second or more.
void SelRecTable::offerFrequencySteps()
{
    double largest = frequencySteps[0];
    for (int i = 0; i < recCount; ++i)
        largest = std::max(largest, record[size_t(i)].Kdec);
    frInterval = 1.0;
    QAction* chosen = nullptr;
    for (QAction* item : m_frequencyMenu->actions()) {
        const double step = item->data().toDouble(); // 0 for the last entry, which asks
        item->setEnabled(step == 0.0 || step >= largest);
        item->setChecked(false);
        if (!chosen && step >= std::max(largest, 1.0))
            chosen = item;
    }
    if (!chosen)
        return;
    chosen->setChecked(true);
    frInterval = chosen->data().toDouble();
}

void SelRecTable::popup_slot(QAction* item)
{
    for (QAction* other : m_frequencyMenu->actions())
        other->setChecked(other == item);
    if (item->data().toDouble() > 0.0) {
        frInterval = item->data().toDouble();
    } else {
        FrGrSetDlg dialog(&frInterval, this);
        prompt::run(dialog);
    }
    if (ui->freqGrBtn->isEnabled())
        on_freqGrBtn_clicked();
}

std::optional<SeriesKind> SelRecTable::seriesKind() const
{
    if (ui->checkBox->isChecked())
        return SeriesKind::MinMax;
    if (ui->checkBoxHour->isChecked())
        return SeriesKind::Hour;
    if (ui->checkBoxDay->isChecked())
        return SeriesKind::Day;
    return std::nullopt;
}

void SelRecTable::on_sampGrBtn_clicked()
{
    const std::optional<SeriesKind> kind = seriesKind();
    const bool shown = runGuarded(kind ? "new AvarForm" : "new PhaseForm", [&] {
        ++sampCount;
        if (kind)
            showReduced(*kind, false);
        else
            showWhole(record.get(), false);
    });
    if (!shown)
        sampCount = 0;
}

void SelRecTable::on_freqGrBtn_clicked()
{
    const std::optional<SeriesKind> kind = seriesKind();
    const bool shown = runGuarded(kind ? "new AvarForm" : "new FreqForm", [&] {
        ++freqCount;
        const bool wait = !kind || *kind == SeriesKind::MinMax;
        if (wait) {
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
            const auto restored = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
            for (int i = 0; i < recCount; ++i)
                frequencySeries(record[size_t(i)], frInterval, record_freq[size_t(i)]);
        }
        if (kind)
            showReduced(*kind, true);
        else
            showWhole(record_freq.get(), true);
    });
    if (!shown)
        freqCount = 0;
}

/// A graph of all samples, day by day.
void SelRecTable::showWhole(Record* shown, bool frequency)
{
    int* const counter = frequency ? &freqCount : &sampCount;
    auto window = std::make_unique<PhaseForm>(counter);
    window->isFreq = frequency;
    window->plot->plotKind = frequency ? 1 : 0;
    window->setWindowIcon(
        QIcon(frequency ? QStringLiteral(":/bmp/freqIcon.png") : QStringLiteral(":/bmp/phaseIcon.png")));
    const double interval = frequency && recCount > 0 ? shown[0].Kdec : 1.0;
    window->setTitleSource(
        [frequency, interval, cross = crossProc] { return wholeSeriesTitle(frequency, interval, cross); });
    window->addRecords(shown, recCount, frequency ? frequencyAxes : 0, interval);
    window->addDynamicRecords();
    connect(this, &SelRecTable::PlotsTakeNewDataFromManager, window.get(), &PhaseForm::UpdateDynamicCurves);
    connect(window.get(), &PhaseForm::IsClosing, this, &SelRecTable::PlotIsClosed);
    connect(window.get(), &PhaseForm::NewRecReady, this, &SelRecTable::addRecord);
    connect(window.get(), &PhaseForm::forRec, this, [this](quint16 id, double from, double to) {
        const double first = firstTimeOf(id);
        giveForRec(id, from - first, to - first);
    });
    numberWindow(window.get(), counter);
    m_phases.prepend(window.get());
    adopt(window.release());
}

/// The first time stamp of the row that a stretch is cut from.
double SelRecTable::firstTimeOf(quint16 recID)
{
    const int row = checkedRowOf(recID);
    return row < free_row && load_record[row].n_cnt > 0 ? load_record[row].t[0] : 0.0;
}

GraphSeries SelRecTable::reducedSeries(int i, SeriesKind kind, bool frequency)
{
    Record& rec = record[size_t(i)];
    if (kind == SeriesKind::MinMax) {
        if (!frequency)
            return processedBuffer[size_t(i)];
        return minMaxSeries(record_freq[size_t(i)], double(sampStart.msecsTo(rec.start)) / 1000.0, false);
    }
    if (frequency && rec.dataType == 0)
        return periodFrequencies(rec, periodOf(kind), sampStart);
    return periodMeans(rec, periodOf(kind), sampStart, REMX_0);
}

void SelRecTable::showReduced(SeriesKind kind, bool frequency)
{
    SeriesScope scope{kind, frequency, frInterval, crossProc, sampStart, sampStop};
    if (frequency && kind == SeriesKind::MinMax && recCount > 0)
        scope.interval = record_freq[0].Kdec;
    QVector<SeriesCurve> curves;
    QHash<quint16, QDateTime> starts;
    for (int i = 0; i < recCount; ++i) {
        const Record& rec = record[size_t(i)];
        starts[rec.RecID] = rec.start;
        GraphSeries series = reducedSeries(i, kind, frequency);
        curves.push_back({rec.RecID, recordName(rec), std::move(series.t), std::move(series.x),
            static_cast<unsigned short>(rec.dataType + (frequency ? frequencyAxes : 0)), rec.start,
            rec.stop});
    }
    int* const counter = frequency ? &freqCount : &sampCount;
    auto graph = std::make_unique<AvarForm>(counter, nullptr, frequency ? 1 : 0);
    showSeries(*graph, scope, curves);
    // The starts as they were: the user may have moved a record since.
    connect(graph.get(), &AvarForm::forRec, this, [this, scope, starts](quint16 id, double from, double to) {
        const QDateTime start = starts.value(id);
        giveForRec(id, secondsInto(start, scope, from), secondsInto(start, scope, to));
    });
    numberWindow(graph.get(), counter);
    adoptGraph(std::move(graph));
}
