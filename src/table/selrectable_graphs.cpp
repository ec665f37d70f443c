#include "base/debuglog.h"
#include "plot/avarform.h"
#include "plot/core/exporttable.h"
#include "plot/phaseform.h"
#include "plot/spectrumgraph.h"
#include "plot/stabilitygraph.h"
#include "plot/tableform.h"
#include "prompt/guard.h"
#include "stats/statisticname.h"
#include "table/core/recordtexts.h"
#include "table/core/stabilitytable.h"
#include "table/core/statisticgroups.h"
#include "table/selrectable.h"
#include "ui_selrectable.h"

#include <QAction>
#include <QMap>
#include <QMdiSubWindow>
#include <QMenu>
#include <QToolButton>

#include <algorithm>

namespace {

constexpr int firstKindWithoutTime = 2; // of plotKind: spectra, stability

/// A window in the MDI area is moved and closed by its frame.
QWidget* frameOf(QWidget* window)
{
    auto* frame = qobject_cast<QMdiSubWindow*>(window->parentWidget());
    return frame ? frame : window;
}

/// Graphs tell by the channel what a curve is of: a record, or from 256 on the results of several.
quint16 channelOf(const ResultRow& row, int number)
{
    return row.records.size() == 1 ? row.records.first() : quint16(256 + number);
}

void chooseIn(QMenu* menu, QAction* item)
{
    for (QAction* other : menu->actions())
        other->setChecked(other == item);
}

/// What the menu of a spectrum button says: its second entry is the spectrum of the frequency.
bool ofFrequency(QMenu* menu)
{
    return menu->actions().at(1)->isChecked();
}

} // namespace

/// The statistics that the last processing computed, for the graph and for the table.
void SelRecTable::fillStatisticMenus()
{
    const Statistic shown = statisticOfVarType(varType);
    for (QMenu* menu : {m_graphMenu, m_tableMenu}) {
        menu->clear();
        menu->setToolTipsVisible(true);
        for (const Statistic statistic : statisticsOfGroup(groupOf(shown))) {
            QAction* item = menu->addAction(statisticName(statistic));
            item->setCheckable(true);
            item->setChecked(statistic == shown);
            item->setData(int(statistic));
            if (statistic == Statistic::Pdev)
                item->setToolTip(
                    tr("Собственная форма программы: при малых m её значения ниже, чем у общепринятой\n"
                       "PDEV (на 18, 11 и 4 % при m = 2, 4 и 8 для белого фазового шума)"));
        }
    }
    ui->avarGrBtn->setText(statisticName(shown));
    ui->avarTabBtn->setText(statisticName(shown));
}

void SelRecTable::chooseStatistic(const QAction* item)
{
    showStatistic(::varType(static_cast<Statistic>(item->data().toInt())));
    fillStatisticMenus();
}

StabilityNotes SelRecTable::notes() const
{
    return {driftExcluded, overlapped, crossProc, standsStill()};
}

/// Whether running values of live records are of the kind that the results are.
bool SelRecTable::followsLive() const
{
    return !crossProc && !driftExcluded && liveKernel(statisticOfVarType(varType), overlapped);
}

/// A record goes on being measured, and its results do not follow.
bool SelRecTable::standsStill() const
{
    const bool live =
        std::any_of(record.get(), record.get() + recCount, [](const Record& rec) { return rec.dynamic; });
    return live && !followsLive();
}

void SelRecTable::popup_slot_varplot(QAction* item)
{
    chooseStatistic(item);
    on_avarGrBtn_clicked();
}

void SelRecTable::popup_slot_vartab(QAction* item)
{
    chooseStatistic(item);
    on_avarTabBtn_clicked();
}

void SelRecTable::adopt(QWidget* window)
{
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    emit windowMade(window);
}

void SelRecTable::numberWindow(const QObject* window, int* counter)
{
    m_numbers.insert(window, {counter, *counter});
}

void SelRecTable::on_avarGrBtn_clicked()
{
    runGuarded("new AvarForm", [this] {
        QVector<StabilityCurve> curves;
        for (int i = 0; i < rows.size(); ++i) {
            const ResultRow& row = rows.at(i);
            // Values of unlike kinds of data differ by many decades.
            const quint16 axis = crossProc ? quint16(0) : record[size_t(i)].dataType;
            curves.push_back({channelOf(row, i), row.name, tauSec[size_t(i)], avarRes[size_t(i)], row.start,
                row.stop, axis});
        }
        auto graph = std::make_unique<AvarForm>(nullptr, nullptr, 0);
        showStability(*graph, statisticOfVarType(varType), curves, notes());
        if (followsLive())
            connect(this, &SelRecTable::UpdAvarPlots, graph.get(), &AvarForm::UpdDynValues);
        adoptGraph(std::move(graph));
    });
}

void SelRecTable::adoptGraph(std::unique_ptr<AvarForm> graph)
{
    connect(graph.get(), &AvarForm::IsClosing, this, &SelRecTable::PlotIsClosed);
    // There X is no time of a record.
    if (graph->plotKind >= firstKindWithoutTime)
        connect(graph.get(), &AvarForm::forRec, graph.get(), [shown = graph.get()] {
            shown->setStatusText(tr("Новая запись вырезается только из графика по времени"));
        });
    m_graphs.prepend(graph.get());
    adopt(graph.release());
}

TableForm* SelRecTable::newTable(const std::function<QString()>& title)
{
    auto* table = new TableForm;
    table->setTitleSource(title);
    table->setWindowIcon(QIcon(QStringLiteral(":/bmp/bmp/tab.png")));
    connect(table, &TableForm::IsClosing, this, &SelRecTable::PlotIsClosed);
    m_tables.prepend(table);
    return table;
}

void SelRecTable::on_avarTabBtn_clicked()
{
    runGuarded("new onAvarTab_Btn", [this] {
        QList<StabilityColumn> columns;
        for (int i = 0; i < rows.size(); ++i)
            columns << StabilityColumn{
                rows.at(i).channels, rows.at(i).name, tauSec[size_t(i)], avarRes[size_t(i)]};
        const std::vector<double> tau = unionOfTau(columns);
        if (!rows.isEmpty() && tau.size() > tauSec[0].size())
            DebugLOG(" почему-то заголовок короче чем массив"); // verbatim
        const Statistic statistic = statisticOfVarType(varType);
        TableForm* table = newTable([statistic, told = notes()] {
            return tr("Таблица вариаций (") + statisticName(statistic) + QLatin1Char(')') + notesText(told);
        });
        const bool cross = crossProc;
        const QStringList heads = stabilityHeads(tau, cross);
        table->setColNum(heads.size(), heads);
        // The others are numbers in either language, and a live measurement adds to them.
        table->setHeadSource([cross] { return stabilityHeads({}, cross); });
        table->tableType = 4 * int(crossProc) + 2 * int(overlapped) + int(driftExcluded);
        table->avarType = avarTypeOf(statistic);
        if (followsLive())
            connect(this, &SelRecTable::UpdAvarPlots, table, &TableForm::UpdDynValues);
        for (int i = 0; i < rows.size(); ++i) {
            QStringList cells = stabilityCells(columns.at(i), tau);
            if (cross)
                cells.insert(1, QString::number(i + 1));
            table->addLine(cells);
            table->channels << channelOf(rows.at(i), i);
        }
        table->resizeCol();
        adopt(table);
    });
}

void SelRecTable::buildSpectrumMenus()
{
    m_spectrumGraphMenu = new QMenu(this);
    m_spectrumTableMenu = new QMenu(this);
    for (QMenu* menu : {m_spectrumGraphMenu, m_spectrumTableMenu}) {
        for (int i = 0; i < 2; ++i)
            menu->addAction(QString())->setCheckable(true);
        menu->actions().first()->setChecked(true);
    }
    ui->spectrGrBtn->setMenu(m_spectrumGraphMenu);
    ui->spectrTabBtn->setMenu(m_spectrumTableMenu);
    connect(m_spectrumGraphMenu, &QMenu::triggered, this, &SelRecTable::popup_slot_spectr);
    connect(m_spectrumTableMenu, &QMenu::triggered, this, &SelRecTable::popup_slot_spectrtab);
}

void SelRecTable::showSpectrumTexts()
{
    const auto show = [](QMenu* menu, QToolButton* button) {
        menu->actions().at(0)->setText(tr("Спектр фазы"));
        menu->actions().at(1)->setText(tr("Спектр частоты"));
        button->setText(menu->actions().at(int(ofFrequency(menu)))->text());
    };
    show(m_spectrumGraphMenu, ui->spectrGrBtn);
    show(m_spectrumTableMenu, ui->spectrTabBtn);
}

void SelRecTable::popup_slot_spectr(QAction* item)
{
    chooseIn(m_spectrumGraphMenu, item);
    showSpectrumTexts();
    on_spectrGrBtn_clicked();
}

void SelRecTable::popup_slot_spectrtab(QAction* item)
{
    chooseIn(m_spectrumTableMenu, item);
    showSpectrumTexts();
    on_spectrTabBtn_clicked();
}

void SelRecTable::on_spectrGrBtn_clicked()
{
    runGuarded("new StectrForm", [this] {
        const bool frequency = ofFrequency(m_spectrumGraphMenu);
        QVector<SpectrumCurve> curves;
        for (int i = 0; i < spectrumRows.size(); ++i) {
            const ResultRow& row = spectrumRows.at(i);
            const PhaseSpectrum& spectrum = spectra[size_t(i)];
            curves.push_back({channelOf(row, i), row.name, spectrum.frequency,
                frequency ? spectrum.rate : spectrum.phase, row.start, row.stop});
        }
        auto graph = std::make_unique<AvarForm>(nullptr, nullptr, 0);
        showSpectra(*graph, frequency, curves, driftExcluded);
        adoptGraph(std::move(graph));
    });
}

void SelRecTable::on_spectrTabBtn_clicked()
{
    runGuarded("new SpectrTab", [this] {
        const bool ofRate = ofFrequency(m_spectrumTableMenu);
        QList<QMap<qint64, double>> columns;
        QMap<qint64, bool> kept;
        for (const PhaseSpectrum& spectrum : spectra) {
            const std::vector<double>& values = ofRate ? spectrum.rate : spectrum.phase;
            columns << thinnedSpectrum(
                {spectrum.frequency.begin(), spectrum.frequency.end()}, {values.begin(), values.end()});
            for (const qint64 whole : columns.last().keys())
                kept[whole] = true;
        }
        TableForm* table = newTable([] { return tr("Таблица спектр. плотн. мощности"); });
        const auto heads = [whole = kept.keys()] {
            QStringList texts{tr("Название")};
            for (const qint64 frequency : whole)
                texts << tr("%1 мГц").arg(frequency);
            return texts;
        };
        table->setColNum(kept.size() + 1, heads());
        table->setHeadSource(heads);
        for (int i = 0; i < columns.size(); ++i) {
            QStringList cells{spectrumRows.at(i).name};
            for (const qint64 whole : kept.keys())
                cells << (columns.at(i).contains(whole) ? QString::number(columns.at(i).value(whole), 'g', 8)
                                                        : QStringLiteral("---"));
            table->addLine(cells);
        }
        table->resizeCol();
        adopt(table);
    });
}

void SelRecTable::on_trendTabBtn_clicked()
{
    runGuarded("new on_tendTab_Btn", [this] {
        TableForm* table = newTable([] { return tr("Таблица Частота/Дрейф"); });
        const QStringList heads = trendHeads();
        table->setColNum(heads.size(), heads);
        table->setHeadSource(trendHeads);
        for (int i = 0; i < recCount; ++i)
            table->addLine(trendCells(recordName(record[size_t(i)]), trends[size_t(i)]));
        table->resizeCol();
        adopt(table);
    });
}

void SelRecTable::PlotIsClosed(QObject* window)
{
    const auto isIt = [window](const QObject* other) { return other == window; };
    m_phases.erase(std::remove_if(m_phases.begin(), m_phases.end(), isIt), m_phases.end());
    m_graphs.erase(std::remove_if(m_graphs.begin(), m_graphs.end(), isIt), m_graphs.end());
    m_tables.erase(std::remove_if(m_tables.begin(), m_tables.end(), isIt), m_tables.end());
    if (auto* table = qobject_cast<TableForm*>(window))
        table->channels.clear();
    const WindowNumber number = m_numbers.take(window);
    if (number.counter && *number.counter == number.number)
        *number.counter = 0;
    auto* widget = qobject_cast<QWidget*>(window);
    if (!widget)
        return;
    frameOf(widget)->deleteLater();
}

QList<QWidget*> SelRecTable::figures() const
{
    QList<QWidget*> all;
    for (PhaseForm* graph : m_phases)
        all << graph;
    for (AvarForm* graph : m_graphs)
        all << graph;
    for (TableForm* table : m_tables)
        all << table;
    return all;
}

void SelRecTable::closeAllFigs()
{
    for (QWidget* window : figures()) {
        DebugLOG(qPrintable(QStringLiteral("Window title = ") + window->windowTitle()));
        frameOf(window)->close();
    }
}

void SelRecTable::minimizeAllFigs()
{
    for (QWidget* window : figures())
        frameOf(window)->showMinimized();
}

void SelRecTable::restoreAllFigs()
{
    for (QWidget* window : figures()) {
        QWidget* frame = frameOf(window);
        if (frame->isMinimized())
            frame->showNormal();
    }
}
