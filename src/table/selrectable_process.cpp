#include "base/debuglog.h"
#include "base/globals.h"
#include "base/parallel.h"
#include "base/sleep.h"
#include "prompt/guard.h"
#include "prompt/progressscope.h"
#include "prompt/prompt.h"
#include "table/core/livetail.h"
#include "table/core/outliers.h"
#include "table/core/recordtexts.h"
#include "table/core/statisticgroups.h"
#include "table/selrectable.h"
#include "ui_selrectable.h"

#include <QElapsedTimer>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTime>

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

namespace {

constexpr qint64 fewestSamples = 10;
constexpr double copyShare = 0.17; // of the progress bar

} // namespace

/// Runs the body of a long command, while the others rest and the window handles its events.
bool SelRecTable::runCommand(const char* name, const std::function<void()>& body)
{
    m_stopAsked = false;
    m_progressDone = 0.0;
    setCommandsEnabled(false);
    const auto enabled = qScopeGuard([this] { setCommandsEnabled(true); });
    return runGuarded(name, [&] {
        ProgressScope progress(ui->ProcProgressBar);
        const QScopedValueRollback<ProgressScope*> shown(m_progress, &progress);
        QElapsedTimer clock;
        clock.start();
        body();
        DebugLOG(qPrintable(QStringLiteral("%1 %2 ms").arg(QLatin1String(name)).arg(clock.elapsed())));
    });
}

/// Runs work side by side, as a step of the command that takes this share of the progress bar. False when the
/// user stopped it.
bool SelRecTable::run(const Tasks& tasks, double share)
{
    m_progressStep = share;
    const bool complete = !m_stopAsked && runTasks(tasks, [this](double part) { return showProgress(part); });
    m_progressDone += share;
    return complete;
}

bool SelRecTable::showProgress(double share)
{
    if (m_progress)
        m_progress->show(100.0 * (m_progressDone + m_progressStep * share));
    return !m_stopAsked;
}

void SelRecTable::on_stopBtn_clicked()
{
    if (!ui->stopBtn->isHidden())
        m_stopAsked = true;
}

void SelRecTable::setCommandsEnabled(bool on)
{
    if (!on)
        ui->stopBtn->show(); // before the focus looks for a new place
    const QList<QWidget*> commands{ui->recTable, ui->addRecBtn, ui->updRecsBtn, ui->delRecBtn,
        ui->delAllRecsBtn, ui->diffRecBtn, ui->mergeRecBtn, ui->processBtn, ui->selVarBox, ui->overlapBox,
        ui->trendBox, ui->crossBox, ui->threeCornHatBox, ui->spectrBox, ui->freqlineEdit, ui->MoveRecordUp,
        ui->MoveRecordDown, ui->RotateRecord_Btn, ui->SelectAllRecords_Btn, ui->UnselectAllRecords_Btn};
    for (QWidget* widget : commands)
        widget->setEnabled(on);
    if (!on) {
        activateBtns(false);
        return;
    }
    updateEmptyState();
    showResultState();
    if (ui->stopBtn->hasFocus())
        ui->processBtn->setFocus();
    ui->stopBtn->hide();
}

void SelRecTable::on_processBtn_clicked()
{
    if (SLEEP || free_row == 0)
        return;
    ProcessedRecords none; // made before memory may end
    ProcessedRecords former = std::exchange(results(), ProcessedRecords());
    bool complete = false;
    // Results that are not complete are dropped; a stop puts the former ones back.
    const auto settled = qScopeGuard([&] {
        if (!complete)
            results() = std::move(none);
        else if (m_stopAsked)
            results() = std::move(former);
        m_series = {};
        m_cross = {};
        showResultState();
    });
    complete = runCommand("new onProc_Btn", [this] { process(); });
}

void SelRecTable::process()
{
    varType = ::varType(firstShown(ui->selVarBox->currentIndex()));
    freqRef = carrier();
    foldLiveTails();
    m_progressStep = copyShare;
    const QStringList excluded = copyCheckedRows();
    if (!excluded.isEmpty()) {
        prompt::message(this, QMessageBox::Information, windowTitle(),
            tr("Следующие записи были исключены из обработки:\n") + excluded.join(QLatin1Char('\n'))
                + QLatin1Char('\n') + tr("Слишком мало точек!"));
    }
    sleep(5);
    adjustBoxes();
    m_progressDone = copyShare;
    showProgress(0.0);
    if (recCount < 1 || m_stopAsked)
        return;
    findStartStop();
    offerFrequencySteps();
    checkDriftRemoval();
    const bool crossWanted = ui->crossBox->isChecked() || ui->threeCornHatBox->isChecked();
    const bool fits = !crossWanted || checkCross();
    crossProc = ui->crossBox->isChecked() || ui->threeCornHatBox->isChecked();
    if (fits)
        checkSpectra();
    computeRecords();
    if (crossProc && fits && !m_stopAsked)
        computeCross();
    showStatistic(varType);
}

/// The nominal frequency that the user typed, in MHz; a text that is none goes back to the last one.
double SelRecTable::carrier()
{
    bool ok = false;
    const double typed =
        ui->freqlineEdit->text().trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    if (ok && std::isfinite(typed) && typed > 0.0)
        return typed;
    ui->freqlineEdit->setText(QString::number(freqRef));
    return freqRef;
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

/// Copies the checked rows that are long enough, less their outliers. Rows that are too short, checked or
/// not, are unchecked and their names returned.
QStringList SelRecTable::copyCheckedRows()
{
    QStringList excluded;
    bool live = false;
    for (int row = 0; row < free_row && !m_stopAsked; ++row) {
        Record& loaded = load_record[row];
        if (loaded.n_cnt < fewestSamples) {
            excluded << recordName(loaded);
            setChecked(row, false);
        }
        if (!isChecked(row))
            continue;
        Record& copy = record[size_t(recCount)];
        shareRecord(&loaded, &copy);
        ++recCount;
        const OutlierLimits limits = limitsOf(row);
        if (!limitFilters(limits.frequency, copy.dataType) && !limitFilters(limits.change, copy.dataType))
            continue;
        if (copy.dynamic) {
            live = true;
            continue;
        }
        std::mt19937 generator(quint32(QTime::currentTime().msec()));
        const RandomSource random = [&] { return int(generator() >> 1); };
        run({[&] { removeOutliers(copy, limits, random); }}, 0.0);
    }
    if (live) {
        prompt::message(this, QMessageBox::Information, windowTitle(),
            tr("Применение лимитов на разность частот и изменение разности частот\nвозможно только для "
               "статических записей.\nДинамически обновляемые записи будут обработаны без учета "
               "лимитов.\nДля подробной обработки данных отключите динамическое обновление в таблице "
               "Управления записями."));
    }
    return excluded;
}

/// The long forms of the second and third group overlap by nature, and the third has no cross forms.
void SelRecTable::adjustBoxes()
{
    const int group = ui->selVarBox->currentIndex();
    if (group != 0)
        ui->overlapBox->setChecked(false);
    if (group == 2) {
        ui->threeCornHatBox->setChecked(false);
        ui->crossBox->setChecked(false);
    }
    overlapped = ui->overlapBox->isChecked();
    driftExcluded = ui->trendBox->isChecked();
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

void SelRecTable::checkSpectra()
{
    const auto live = [this] {
        return std::any_of(
            record.get(), record.get() + recCount, [](const Record& rec) { return rec.dynamic; });
    };
    if (!ui->spectrBox->isChecked() || !live())
        return;
    prompt::message(this, QMessageBox::Information, windowTitle(),
        tr("Вычисление спектра возможно только для статических записей.\nДля подробной обработки данных "
           "отключите динамическое обновление в таблице Управления записями."));
    ui->spectrBox->setChecked(false);
}

/// Fits and reduces every record and, unless they are computed together, takes its statistics and its
/// spectrum.
void SelRecTable::computeRecords()
{
    const double whole = 1.0 - copyShare;
    const double share = (crossProc ? 0.3 * whole : whole) / recCount;
    trends.resize(size_t(recCount));
    processedBuffer.resize(size_t(recCount));
    for (int i = 0; i < recCount && !m_stopAsked; ++i) {
        m_series = phaseSeries(record[size_t(i)]);
        if (crossProc)
            run(recordTasks(i), share);
        else
            computeAlone(i, share);
    }
    m_series = {};
}

/// The work that every record needs, be it computed alone or with others.
Tasks SelRecTable::recordTasks(int i)
{
    Record& rec = record[size_t(i)];
    const auto fit = [this, &rec, i] {
        trends[size_t(i)] = recordTrends(rec, m_series, sampStart, driftExcluded);
    };
    const auto reduce = [this, &rec, i] {
        const double offset = double(sampStart.msecsTo(rec.start)) / 1000.0;
        processedBuffer[size_t(i)] = minMaxSeries(rec, offset, REMX_0);
    };
    if (!driftExcluded)
        return {fit, reduce};
    return {[=] { // the curve is of what is left
        fit();
        reduce();
    }};
}

void SelRecTable::computeAlone(int i, double share)
{
    const Record& rec = record[size_t(i)];
    const ResultRow row{{rec.RecID}, QString::number(rec.ch), recordName(rec), rec.start, rec.stop};
    m_tasks = recordTasks(i);
    // Without drift removal the fits only read, so they run beside the kernels.
    if (driftExcluded) {
        run(m_tasks, 0.2 * share);
        m_tasks.clear();
    }
    if (ui->spectrBox->isChecked()) {
        spectrumRows.append(row);
        spectra.resize(size_t(recCount));
        m_tasks.emplace_back([this, i, &rec] { spectra[size_t(i)] = recordSpectrum(m_series, rec.Kdec); });
    }
    rows.append(row);
    generateTauScale(1, m_series.size(), i, false);
    for (const Statistic statistic : statisticsOfGroup(ui->selVarBox->currentIndex())) {
        m_type = statistic;
        const StabilityKernel kernel = stabilityKernel(m_type, overlapped);
        if (kernel.perTau)
            avar_calc(i, kernel.perTau, ::varType(m_type) == varType);
        else if (kernel.wholeScale)
            avar_calc(i, kernel.wholeScale);
    }
    run(std::exchange(m_tasks, {}), driftExcluded ? 0.8 * share : share);
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

void SelRecTable::avar_calc(int rec, TauKernel kernel, bool)
{
    queueStatistic(rec, {kernel, nullptr});
}

void SelRecTable::avar_calc(int rec, ScaleKernel kernel)
{
    queueStatistic(rec, {nullptr, kernel});
}

void SelRecTable::queueStatistic(int rec, const StabilityKernel& kernel)
{
    const size_t index = size_t(rec);
    if (tauCount[index] <= 0)
        return;
    addStability(kernel, m_series, {tauInt, tauSec[index]}, {record[index].Kdec, AVAR_numPT_perTau, {}},
        avarAll[index][size_t(::varType(m_type))], m_tasks);
}
