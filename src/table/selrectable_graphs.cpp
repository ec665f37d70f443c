#include "base/debuglog.h"
#include "plot/avarform.h"
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
#include <QMdiSubWindow>
#include <QMenu>

namespace {

/// A window in the MDI area is moved and closed by its frame.
QWidget* frameOf(QWidget* window)
{
    auto* frame = qobject_cast<QMdiSubWindow*>(window->parentWidget());
    return frame ? frame : window;
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
    varType = ::varType(static_cast<Statistic>(item->data().toInt()));
    for (int i = 0; i < recCount; ++i)
        avarRes[size_t(i)] = avarAll[size_t(i)][size_t(varType)];
    fillStatisticMenus();
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

void SelRecTable::on_avarGrBtn_clicked()
{
    runGuarded("new AvarForm", [this] {
        QVector<StabilityCurve> curves;
        for (int i = 0; i < recCount; ++i) {
            const size_t index = size_t(i);
            const Record& rec = record[index];
            curves.push_back(
                {rec.RecID, recordName(rec), tauSec[index], avarRes[index], rec.start, rec.stop});
        }
        auto graph = std::make_unique<AvarForm>(nullptr, nullptr, 0);
        showStability(*graph, statisticOfVarType(varType), curves, {driftExcluded, overlapped, false});
        connect(graph.get(), &AvarForm::IsClosing, this, &SelRecTable::PlotIsClosed);
        m_graphs.prepend(graph.get());
        adopt(graph.release());
    });
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
        for (int i = 0; i < recCount; ++i) {
            const size_t index = size_t(i);
            columns << StabilityColumn{
                record[index].ch, recordName(record[index]), tauSec[index], avarRes[index]};
        }
        const std::vector<double> tau = unionOfTau(columns);
        if (recCount > 0 && tau.size() > tauSec[0].size())
            DebugLOG(" почему-то заголовок короче чем массив"); // verbatim
        const Statistic statistic = statisticOfVarType(varType);
        const StabilityNotes notes{driftExcluded, overlapped, false};
        TableForm* table = newTable([statistic, notes] {
            return tr("Таблица вариаций (") + statisticName(statistic) + QLatin1Char(')') + notesText(notes);
        });
        table->setColNum(int(tau.size()) + 2, stabilityHeads(tau));
        table->setHeadSource([tau] { return stabilityHeads(tau); });
        table->tableType = 2 * int(overlapped) + int(driftExcluded);
        for (int i = 0; i < recCount; ++i) {
            table->addLine(stabilityCells(columns.at(i), tau));
            table->channels << record[size_t(i)].RecID;
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
    m_graphs.erase(std::remove_if(m_graphs.begin(), m_graphs.end(), isIt), m_graphs.end());
    m_tables.erase(std::remove_if(m_tables.begin(), m_tables.end(), isIt), m_tables.end());
    auto* widget = qobject_cast<QWidget*>(window);
    if (!widget)
        return;
    frameOf(widget)->deleteLater();
}

QList<QWidget*> SelRecTable::figures() const
{
    QList<QWidget*> all;
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
