#include "plot/phaseform.h"

#include "plot/plaintooltip.h"

#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int firstFrequencyAxis = 4;

} // namespace

PhaseForm::PhaseForm(int* number, QWidget* parent)
    : StaticPhaseForm(number, parent)
    , dynBtn(new QPushButton(this))
{
    dynBtn->setObjectName(QStringLiteral("dynBtn"));
    dynBtn->setCheckable(true);
    dynBtn->hide();
    rows()->insertWidget(0, dynBtn);
    connect(dynBtn, &QPushButton::clicked, this, &PhaseForm::onDynBtn);
    PhaseForm::retranslate();
}

void PhaseForm::retranslate()
{
    StaticPhaseForm::retranslate();
    dynBtn->setText(tr("Обновлять графики текущих измерений"));
    dynBtn->setToolTip(plainToolTip(
        tr("Включено: график следует за новыми данными. Выключено: дни выбираются движком под графиком")));
}

void PhaseForm::addRecords(Record* source, int count)
{
    addRecords(source, count, isFreq ? firstFrequencyAxis : 0, 1.0);
}

void PhaseForm::addRecords(Record* source, int count, int axisShift, double interval)
{
    if (count < 1 || !source)
        return;
    plot->curveCount = std::min(count, curveLimit);
    plot->interval = interval;
    m_axisShift = axisShift;
    m_before.fill(PhaseBefore());
    minInterval = source[0].freqTau;
    for (int i = 0; i < plot->curveCount; ++i) {
        minInterval = std::min(minInterval, source[i].freqTau);
        shareRecord(&source[i], &records[size_t(i)]);
    }
    addStaticRecords(true);
}

bool PhaseForm::makesFrequency(int index) const
{
    return isFreq && records[size_t(index)].dataType == 0;
}
