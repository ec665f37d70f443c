#include "base/debuglog.h"
#include "base/globals.h"
#include "prompt/guard.h"
#include "prompt/progressscope.h"
#include "prompt/prompt.h"
#include "table/core/livetail.h"
#include "table/core/recordtexts.h"
#include "table/core/statisticgroups.h"
#include "table/selrectable.h"
#include "ui_selrectable.h"

#include <QElapsedTimer>
#include <QScopedValueRollback>

#include <algorithm>
#include <future>
#include <utility>

namespace {

constexpr qint64 fewestSamples = 10;
constexpr double copyShare = 0.17; // of the progress bar

} // namespace

void SelRecTable::on_processBtn_clicked()
{
    if (SLEEP || free_row == 0)
        return;
    ProcessedRecords former = std::exchange(results(), ProcessedRecords());
    m_stopAsked = false;
    setCommandsEnabled(false);
    try {
        const bool complete = runGuarded("new onProc_Btn", [this] {
            QElapsedTimer clock;
            clock.start();
            process();
            DebugLOG(qPrintable(QStringLiteral("on_processBtn_clicked %1 ms").arg(clock.elapsed())));
        });
        endProcessing(former, complete);
    } catch (...) { // for the application's guard
        endProcessing(former, false);
        throw;
    }
}

/// Lets the commands go on. Results that are not complete are dropped; a stop puts the former ones back.
void SelRecTable::endProcessing(ProcessedRecords& former, bool complete)
{
    if (!complete)
        results() = ProcessedRecords();
    else if (m_stopAsked)
        results() = std::move(former);
    setCommandsEnabled(true);
    activateBtns(recCount > 0);
    fillStatisticMenus();
}

void SelRecTable::on_stopBtn_clicked()
{
    if (!ui->stopBtn->isHidden())
        m_stopAsked = true;
}

/// The commands rest while the processing lets the window handle its events.
void SelRecTable::setCommandsEnabled(bool on)
{
    if (!on)
        ui->stopBtn->show(); // before the focus looks for a new place
    const QList<QWidget*> commands{ui->recTable, ui->addRecBtn, ui->delRecBtn, ui->delAllRecsBtn,
        ui->processBtn, ui->selVarBox, ui->overlapBox, ui->trendBox, ui->MoveRecordUp, ui->MoveRecordDown,
        ui->RotateRecord_Btn};
    for (QWidget* widget : commands)
        widget->setEnabled(on);
    if (!on) {
        activateBtns(false);
        return;
    }
    updateEmptyState();
    if (ui->stopBtn->hasFocus())
        ui->processBtn->setFocus();
    ui->stopBtn->hide();
}

void SelRecTable::process()
{
    ProgressScope progress(ui->ProcProgressBar);
    const QScopedValueRollback<ProgressScope*> shown(m_progress, &progress);
    const int group = ui->selVarBox->currentIndex();
    varType = ::varType(firstShown(group));
    foldLiveTails();
    const QStringList excluded = copyCheckedRows();
    if (!excluded.isEmpty()) {
        prompt::message(this, QMessageBox::Information, windowTitle(),
            tr("Следующие записи были исключены из обработки:\n") + excluded.join(QLatin1Char('\n'))
                + QLatin1Char('\n') + tr("Слишком мало точек!"));
    }
    // The long forms of these groups overlap by nature.
    if (group != 0)
        ui->overlapBox->setChecked(false);
    overlapped = ui->overlapBox->isChecked();
    driftExcluded = ui->trendBox->isChecked();
    progress.show(100.0 * copyShare);
    findStartStop();
    checkDriftRemoval();
    computeAll();
}

void SelRecTable::foldLiveTails()
{
    for (int row = 0; row < free_row; ++row) {
        const bool live = load_record[row].dyn_n_cnt > 0;
        foldLiveTail(load_record[row]);
        if (live || load_record[row].dataType >= numOfRecTypes)
            DisplayRecInfo_atTableRow(row, &load_record[row]);
    }
}

/// Copies the checked rows that are long enough. Rows that are too short, checked or not, are unchecked and
/// their names returned.
QStringList SelRecTable::copyCheckedRows()
{
    QStringList excluded;
    for (int row = 0; row < free_row; ++row) {
        Record& loaded = load_record[row];
        if (loaded.n_cnt < fewestSamples) {
            excluded << recordName(loaded);
            setChecked(row, false);
        }
        if (!isChecked(row))
            continue;
        shareRecord(&loaded, &record[size_t(recCount)]);
        ++recCount;
    }
    return excluded;
}

int SelRecTable::findStartStop()
{
    if (recCount < 1)
        return 0;
    sampStart = record[0].start;
    sampStop = record[0].stop;
    for (int i = 1; i < recCount; ++i) {
        if (record[size_t(i)].start.secsTo(sampStart) > 0)
            sampStart = record[size_t(i)].start;
        if (sampStop.secsTo(record[size_t(i)].stop) > 0)
            sampStop = record[size_t(i)].stop;
    }
    return int(sampStart.date().daysTo(sampStop.date())) + 1;
}

/// The drift is taken out only where that is allowed for every record: the title of a graph must not say of
/// all curves what is true for some.
void SelRecTable::checkDriftRemoval()
{
    for (int i = 0; i < recCount && driftExcluded; ++i) {
        const Record& rec = record[size_t(i)];
        if (!rec.dynamic && rec.dataType == 0)
            continue;
        prompt::message(this, QMessageBox::Information, windowTitle(),
            tr("Исключение дрейфа доступно только при обработке статических записей.\nДля подробной "
               "обработки данных "
               "отключите динамическое обновление в таблице Управления записями."));
        ui->trendBox->setChecked(false);
        driftExcluded = false;
    }
}

/// Fits every record and computes every statistic of the group for it, until the user stops it.
void SelRecTable::computeAll()
{
    const QList<Statistic> group = statisticsOfGroup(ui->selVarBox->currentIndex());
    m_progressDone = copyShare;
    m_progressStep = (1.0 - copyShare) / (std::max(recCount, 1) * group.size());
    trends.resize(size_t(recCount));
    for (int i = 0; i < recCount && !m_stopAsked; ++i) {
        const size_t index = size_t(i);
        m_series = phaseSeries(record[index]);
        const auto fit = [&] {
            trends[index] = recordTrends(record[index], m_series, sampStart, driftExcluded);
        };
        // Without drift removal the fits only read, so they run beside the kernels.
        auto fitted = std::async(driftExcluded ? std::launch::deferred : std::launch::async, fit);
        if (driftExcluded)
            fitted.get();
        generateTauScale(1, m_series.size(), i, false);
        for (const Statistic statistic : group) {
            if (m_stopAsked)
                break;
            m_type = statistic;
            const StabilityKernel kernel = stabilityKernel(m_type, overlapped);
            if (kernel.perTau)
                avar_calc(i, kernel.perTau, ::varType(m_type) == varType);
            else if (kernel.wholeScale)
                avar_calc(i, kernel.wholeScale);
            m_progressDone += m_progressStep;
        }
        avarRes[index] = avarAll[index][size_t(varType)];
        if (fitted.valid())
            fitted.get();
    }
    m_series = {};
}

int SelRecTable::generateTauScale(int step, long n, int rec, bool fromLoad)
{
    const size_t index = size_t(rec);
    tauCount[index] = 0;
    runGuarded("SelRecTable generateTauScale", [&] {
        const double interval = fromLoad ? load_record[index].Kdec : record[index].Kdec;
        TauScale scale = tauScale(step, n, interval, fromLoad);
        tauCount[index] = int(scale.size());
        tauInt = std::move(scale.factor);
        tauSec[index] = std::move(scale.tau);
    });
    return tauCount[index];
}

void SelRecTable::avar_calc(int rec, TauKernel kernel, bool plain)
{
    const size_t index = size_t(rec);
    if (tauCount[index] <= 0)
        return;
    std::vector<double> values =
        stabilityPerTau(kernel, m_series, {tauInt, tauSec[index]}, stabilityOptions(record[index].Kdec));
    if (plain)
        avarRes[index] = values;
    avarAll[index][size_t(::varType(m_type))] = std::move(values);
}

void SelRecTable::avar_calc(int rec, ScaleKernel kernel)
{
    const size_t index = size_t(rec);
    if (tauCount[index] <= 0)
        return;
    avarRes[index] =
        stabilityWholeScale(kernel, m_series, {tauInt, tauSec[index]}, stabilityOptions(record[index].Kdec));
    tauCount[index] = int(avarRes[index].size());
    avarAll[index][size_t(::varType(m_type))] = avarRes[index];
}

StabilityOptions SelRecTable::stabilityOptions(double interval)
{
    return {interval, AVAR_numPT_perTau, [this](double share) { return showProgress(share); }};
}

bool SelRecTable::showProgress(double share)
{
    if (m_progress)
        m_progress->show(100.0 * (m_progressDone + m_progressStep * share));
    return !m_stopAsked;
}
