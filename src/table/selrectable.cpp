#include "table/selrectable.h"

#include "base/globals.h"
#include "prompt/warndiag.h"
#include "ui_selrectable.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

constexpr int columnWidths[] = {20, 50, 130, 130, 50, 68, 125, 84, 84, 50, 70, 100}; // pixels
constexpr int rowHeight = 20; // pixels
constexpr int intervalColumn = 4;
constexpr int bandColumn = 5;

} // namespace

SelRecTable::SelRecTable(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui_SelRecTable>())
{
    ui->setupUi(this);
    if (!diag)
        diag = new WarnDiag(this);
    freqRef = 5.0;
    buildTable();
    buildActions();
    ui->ProcProgressBar->hide();
    ui->stopBtn->hide();
    setFocusProxy(ui->recTable);
    activateBtns(false);
    updateEmptyState();
}

SelRecTable::~SelRecTable()
{
    if (diag && diag->parent() == this)
        diag = nullptr;
}

void SelRecTable::buildTable()
{
    QTableWidget* table = ui->recTable;
    for (int column = 0; column < table->columnCount(); ++column)
        table->setColumnWidth(column, columnWidths[column]);
    table->setColumnHidden(intervalColumn, true);
    table->setColumnHidden(bandColumn, true);
    QHeaderView* rows = table->verticalHeader();
    rows->setMinimumSectionSize(rowHeight);
    rows->setDefaultSectionSize(rowHeight);
    rows->setSectionResizeMode(QHeaderView::Fixed);
    for (int row = 0; row < maxRecords; ++row)
        table->setRowHidden(row, true);

    m_emptyHint = new QLabel(table);
    m_emptyHint->setAlignment(Qt::AlignCenter);
    m_emptyHint->setWordWrap(true);
    m_emptyHint->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* over = new QVBoxLayout(table->viewport());
    over->addWidget(m_emptyHint);
}

void SelRecTable::buildActions()
{
    auto* editTime = new QAction(ui->recTable);
    editTime->setObjectName(QStringLiteral("EditTimeRec"));
    ui->recTable->addAction(editTime);
    connect(editTime, &QAction::triggered, this, &SelRecTable::EditTimeRec);

    m_graphMenu = new QMenu(this);
    m_tableMenu = new QMenu(this);
    ui->avarGrBtn->setMenu(m_graphMenu);
    ui->avarTabBtn->setMenu(m_tableMenu);
    connect(m_graphMenu, &QMenu::triggered, this, &SelRecTable::popup_slot_varplot);
    connect(m_tableMenu, &QMenu::triggered, this, &SelRecTable::popup_slot_vartab);

    auto* stop = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(stop, &QShortcut::activated, this, &SelRecTable::on_stopBtn_clicked);
    showTexts();
}

/// What is not in the form file, or what a new text on a button takes away.
void SelRecTable::showTexts()
{
    ui->processBtn->setShortcut(Qt::Key_F5);
    m_emptyHint->setText(tr("Записей нет.\nНажмите «Добавить запись» и выберите файл измерений."));
    ui->recTable->actions().first()->setText(tr("Изменить время начала записи"));
    const QString limitTip = tr("Ограничение выбросов в этой версии не применяется");
    for (const int column : {9, 10})
        ui->recTable->horizontalHeaderItem(column)->setToolTip(limitTip);
    fillStatisticMenus();
}

void SelRecTable::activateBtns(bool on)
{
    ui->avarGrBtn->setEnabled(on);
    ui->avarTabBtn->setEnabled(on);
    ui->trendTabBtn->setEnabled(on);
}

void SelRecTable::updateEmptyState()
{
    m_emptyHint->setVisible(free_row == 0);
    ui->processBtn->setEnabled(free_row > 0);
    ui->delRecBtn->setEnabled(free_row > 0);
    ui->delAllRecsBtn->setEnabled(free_row > 0);
    emit rowsChanged();
}

void SelRecTable::on_addRecBtn_clicked()
{
    emit GiveMeRec(&load_record[qMin(free_row, maxRecords - 1)]);
}

void SelRecTable::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        const int group = ui->selVarBox->currentIndex();
        ui->retranslateUi(this);
        ui->selVarBox->setCurrentIndex(group);
        showTexts();
        for (int row = 0; row < free_row; ++row)
            DisplayRecInfo_atTableRow(row, &load_record[row]);
    }
    QWidget::changeEvent(event);
}
