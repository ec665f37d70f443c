#include "prompt/prompt.h"
#include "table/core/statisticgroups.h"
#include "table/selrectable.h"
#include "ui_selrectable.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr double alignShare = 0.06; // of the progress bar
constexpr double statisticsShare = 0.42;
constexpr double spectraShare = 0.10;

int stepsIn(Span span)
{
    return span.last - span.first;
}

} // namespace

/// Whether the records can be computed together as the boxes say; tells the user when not. Where the kind of
/// a record forbids it, the boxes are cleared, and every record is computed alone.
bool SelRecTable::checkCross()
{
    const auto tell = [this](const QString& text) {
        prompt::message(this, QMessageBox::Information, windowTitle(), text);
    };
    if (recCount != 2 && !(recCount == 3 && ui->threeCornHatBox->isChecked())) {
        tell(tr(
            "Для вычисления кросс-вариаций необходимо выбрать две записи в перекрывающиеся моменты времени "
            "с одинаковым опорным сигналом. Кроме этого записи должны иметь одинаковый интервал времени "
            "между отсчетами."));
        return false;
    }
    if (ui->selVarBox->currentIndex() == 1) {
        tell(tr("Кросс-обработка возможна только при вычислении характеристик стабильности"));
        ui->selVarBox->setCurrentIndex(0);
        varType = ::varType(firstShown(0));
    }
    for (int i = 0; i < recCount; ++i) {
        const Record& rec = record[size_t(i)];
        if (!rec.dynamic && rec.dataType == 0)
            continue;
        if (rec.dynamic)
            tell(
                tr("Кросс-обработка возможна только для статических записей.\nДля подробной обработки данных "
                   "отключите динамическое обновление в таблице Управления записями."));
        else
            tell(tr("Кросс-обработка возможна только для записей фазовых измерений."));
        ui->crossBox->setChecked(false);
        ui->threeCornHatBox->setChecked(false);
        return true;
    }
    return true;
}

void SelRecTable::computeCross()
{
    if (recCount == 3)
        computeHat();
    else
        computePair();
}

CrossMoments SelRecTable::moments() const
{
    return simultaneousMoments ? CrossMoments::Simultaneous : CrossMoments::ByTimeMarks;
}

/// Whether records fit together; tells the user why not.
bool SelRecTable::crossFits(CrossStatus status)
{
    QString text;
    switch (status) {
    case CrossStatus::Ok:
        return true;
    case CrossStatus::OtherSignals:
        text = tr("Выбранные записи содержат разные сигналы, кросс-обработка невозможна!");
        break;
    case CrossStatus::NoCommonTime:
        text = tr("Выбранные записи не пересекаются по времени!");
        break;
    case CrossStatus::OtherIntervals:
        text = tr("Записи должны иметь одинаковый коэфициент прореживания!");
        break;
    case CrossStatus::NoPairs:
        text = tr("Отсчеты выбранных записей нигде не совпадают по времени!");
        break;
    case CrossStatus::NotThreeClocks:
        text =
            tr("Для метода трёх генераторов нужны записи трёх генераторов: A - B и A - C, или также B - C.");
        break;
    }
    prompt::message(this, QMessageBox::Warning, windowTitle(), text);
    return false;
}

void SelRecTable::tellCountsDiffer()
{
    prompt::message(this, QMessageBox::Information, windowTitle(),
        tr("Разница в количестве отсчетов между записями на общем интервале времени превышает 10"));
}

void SelRecTable::computePair()
{
    Record& first = record[0];
    Record& second = record[1];
    const SignalCase signalsOf = signalCase(first, second);
    if (ui->threeCornHatBox->isChecked() && (signalsOf == SignalCase::One || signalsOf == SignalCase::Two)) {
        crossFits(CrossStatus::NotThreeClocks);
        return;
    }
    Span inA{}, inB{};
    if (!crossFits(crossSpans(first, second, inA, inB, moments())))
        return;
    if (std::abs(stepsIn(inA) - stepsIn(inB)) > 10)
        tellCountsDiffer();
    CrossStatus status = CrossStatus::Ok;
    const auto align = [&] { status = alignSpans(first, second, inA, inB, m_cross, moments()); };
    if (!run({align}, alignShare) || !crossFits(status))
        return;
    comparison = int(m_cross.kind);
    takeCrossRows(crossRows(first, second), m_cross.start, m_cross.stop);
    generateTauScale(1, m_cross.size(), 0, false);
    for (const Statistic statistic : statisticsOfGroup(0)) {
        if (m_stopAsked)
            break;
        m_type = statistic;
        cross_calc(0, crossKernel(statistic, overlapped), inA.first, inB.first, inA.last, inB.last,
            ::varType(statistic) == varType);
    }
    if (ui->spectrBox->isChecked()) {
        spectrumRows = rows;
        run({[this] { spectra = crossSpectra(m_cross); }}, spectraShare);
    }
    m_cross = {};
}

int SelRecTable::cross_calc(int rec, CrossKernel kernel, int a0, int b0, int a1, int b1, bool shown)
{
    if (m_cross.size() == 0
        && alignSpans(record[0], record[1], {a0, a1}, {b0, b1}, m_cross, moments()) != CrossStatus::Ok)
        return 0;
    m_progressStep = statisticsShare / statisticsOfGroup(0).size();
    const auto values = crossStability(
        kernel, m_cross, {tauInt, tauSec[size_t(rec)]}, [this](double share) { return showProgress(share); });
    m_progressDone += m_progressStep;
    return takeCrossValues(rec, values, shown);
}

void SelRecTable::computeHat()
{
    HatSeries series;
    CrossStatus status = CrossStatus::Ok;
    const auto align = [&] { status = hatSeries(record[0], record[1], record[2], series, moments()); };
    if (!run({align}, alignShare) || !crossFits(status))
        return;
    if (series.countsDiffer)
        tellCountsDiffer();
    comparison = 3;
    takeCrossRows(hatRows(record[0], record[1], record[2]), series.start, series.stop);
    generateTauScale(1, series.size(), 0, false);
    for (const Statistic statistic : statisticsOfGroup(0)) {
        if (m_stopAsked)
            break;
        m_type = statistic;
        m_progressStep = statisticsShare / statisticsOfGroup(0).size();
        const auto values = hatStability(crossKernel(statistic, overlapped), series, {tauInt, tauSec[0]},
            [this](double share) { return showProgress(share); });
        m_progressDone += m_progressStep;
        takeCrossValues(0, values, ::varType(statistic) == varType);
    }
    if (ui->spectrBox->isChecked()) {
        spectrumRows = rows;
        run({[&] { spectra = hatSpectra(series); }}, spectraShare);
    }
}

/// Every result of cross processing rests on all records.
void SelRecTable::takeCrossRows(const QVector<CrossRow>& names, const QDateTime& start, const QDateTime& stop)
{
    QVector<quint16> all;
    for (int i = 0; i < recCount; ++i)
        all << record[size_t(i)].RecID;
    rows.clear();
    for (const CrossRow& row : names)
        rows.append({all, row.channels, row.name, start, stop});
}

int SelRecTable::takeCrossValues(int rec, const std::vector<std::vector<double>>& values, bool shown)
{
    for (size_t i = 0; i < values.size(); ++i) {
        const size_t row = size_t(rec) + i;
        tauSec[row] = tauSec[size_t(rec)];
        tauCount[row] = tauCount[size_t(rec)];
        avarAll[row][size_t(::varType(m_type))] = values[i];
        if (shown)
            avarRes[row] = values[i];
    }
    return int(values.size());
}
