#include "table/selrectable.h"

#include "base/globals.h"
#include "prompt/warndiag.h"
#include "ui_selrectable.h"

#include <QAbstractButton>
#include <QAction>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QScrollArea>
#include <QShortcut>
#include <QStyle>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int columnWidths[] = {20, 50, 130, 130, 50, 68, 125, 84, 84, 50, 70, 100}; // pixels
constexpr int rowHeight = 20; // pixels
constexpr int intervalColumn = 4;
constexpr int bandColumn = 5;
const QString rowButtons = QStringLiteral("^(add|upd|del|delAll|diff|merge)Recs?Btn$");

} // namespace

SelRecTable::SelRecTable(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui_SelRecTable>())
{
    ui->setupUi(this);
    if (!diag)
        diag = new WarnDiag(this);
    freqRef = 5.0;
    ui->freqlineEdit->setText(QString::number(freqRef));
    buildTable();
    buildActions();
    buildKeys();
    showTexts();
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
    const auto action = [this](const QString& name, auto slot) {
        auto* made = new QAction(ui->recTable);
        made->setObjectName(name);
        ui->recTable->addAction(made);
        connect(made, &QAction::triggered, this, slot);
        return made;
    };
    action(QStringLiteral("SaveRecsToASCIIFile"), &SelRecTable::SaveRecsToASCIIFile);
    m_saveAction = action(QStringLiteral("SaveRecsToFile"), &SelRecTable::SaveRecsToFile);
    action(QStringLiteral("EditTimeRec"), &SelRecTable::EditTimeRec);

    m_graphMenu = new QMenu(this);
    m_tableMenu = new QMenu(this);
    ui->avarGrBtn->setMenu(m_graphMenu);
    ui->avarTabBtn->setMenu(m_tableMenu);
    connect(m_graphMenu, &QMenu::triggered, this, &SelRecTable::popup_slot_varplot);
    connect(m_tableMenu, &QMenu::triggered, this, &SelRecTable::popup_slot_vartab);

    m_mergeMenu = new QMenu(this);
    for (const MergeMode mode : {MergeMode::StitchPhase, MergeMode::StitchFrequency, MergeMode::KeepGap}) {
        QAction* item = m_mergeMenu->addAction(QString());
        item->setCheckable(true);
        item->setChecked(mode == MergeMode::StitchFrequency);
        item->setData(int(mode));
    }
    ui->mergeRecBtn->setMenu(m_mergeMenu);
    connect(m_mergeMenu, &QMenu::triggered, this, &SelRecTable::popup_mergeRec_ItemSelected);
    buildSpectrumMenus();
    buildFrequencyMenu();
}

void SelRecTable::buildKeys()
{
    const auto key = [this](QWidget* owner, const QKeySequence& keys, auto slot) {
        auto* shortcut = new QShortcut(keys, owner);
        shortcut->setContext(owner == this ? Qt::WindowShortcut : Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, slot);
    };
    key(this, Qt::Key_Escape, &SelRecTable::on_stopBtn_clicked);
    key(ui->recTable, Qt::CTRL + Qt::Key_Up, &SelRecTable::on_MoveRecordUp_clicked);
    key(ui->recTable, Qt::CTRL + Qt::Key_Down, &SelRecTable::on_MoveRecordDown_clicked);
    key(ui->recTable, Qt::CTRL + Qt::Key_A, &SelRecTable::checkAllRec);
    key(ui->recTable, Qt::Key_Delete, [this] {
        if (!SLEEP && selectedRow() >= 0)
            removeRows({selectedRow()});
    });
    key(ui->recTable, Qt::Key_Space, [this] {
        if (selectedRow() >= 0)
            setChecked(selectedRow(), !isChecked(selectedRow()));
    });
    ui->recTable->setAcceptDrops(true);
    ui->recTable->viewport()->installEventFilter(this);
}

/// Files that are dropped on the table.
bool SelRecTable::eventFilter(QObject* watched, QEvent* event)
{
    const bool drag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!drag && event->type() != QEvent::Drop)
        return QWidget::eventFilter(watched, event);
    auto* drop = static_cast<QDropEvent*>(event); // the drag events derive from it
    QStringList files;
    for (const QUrl& url : drop->mimeData()->urls()) {
        if (url.isLocalFile())
            files << url.toLocalFile();
    }
    if (files.isEmpty() || SLEEP)
        return true;
    drop->acceptProposedAction();
    if (!drag)
        emit filesDropped(files);
    return true;
}

/// What is not in the form file, or what a new text on a button takes away.
void SelRecTable::showTexts()
{
    ui->processBtn->setShortcut(Qt::Key_F5);
    m_emptyHint->setText(
        tr("Записей нет.\nНажмите «Добавить запись» и выберите файл измерений,\nили перетащите "
           "файл сюда."));
    const QStringList texts{tr("Сохранить запись в ASCII-файл"), tr("Сохранить запись в файл"),
        tr("Изменить время начала записи")};
    const QStringList tips{tr("Сохранить обработанную запись, на которой стоит курсор, в текстовый файл"),
        tr("Сохранить запись, на которой стоит курсор, в формате файлов компаратора"),
        tr("Изменить время начала и конца записи")};
    for (int i = 0; i < texts.size(); ++i) {
        ui->recTable->actions().at(i)->setText(texts.at(i));
        ui->recTable->actions().at(i)->setToolTip(tips.at(i));
    }
    ui->recTable->horizontalHeaderItem(9)->setToolTip(tr(
        "Наибольшее отклонение от медианы за сутки: для фазы — разности частот, для других данных — самого "
        "значения.\nБольшие отклонения при обработке заменяются. 0 — без ограничения, для фазы также 1"));
    ui->recTable->horizontalHeaderItem(10)->setToolTip(
        tr("То же для изменения от отсчета к отсчету: для фазы — разности частот, для других данных — "
           "скорости"));
    ui->recTable->setToolTip(tr("Пробел — отметить, Ctrl+↑ и Ctrl+↓ — переместить, Del — убрать из таблицы"));
    const QStringList modes{
        tr("Сшивать отсчеты фазы"), tr("Сшивать по частоте"), tr("С разрывом по времени")};
    for (int i = 0; i < modes.size(); ++i)
        m_mergeMenu->actions().at(i)->setText(modes.at(i));
    m_frequencyMenu->actions().last()->setText(tr("Настроить"));
    fillStatisticMenus();
    showSpectrumTexts();
    fitCommands();
    measureRowButtons();
}

void SelRecTable::activateBtns(bool on)
{
    for (QWidget* button :
        QList<QWidget*>{ui->checkBox, ui->checkBoxHour, ui->checkBoxDay, ui->sampGrBtn, ui->freqGrBtn,
            ui->avarGrBtn, ui->avarTabBtn, ui->trendTabBtn, ui->spectrGrBtn, ui->spectrTabBtn})
        button->setEnabled(on);
}

/// Opens the result buttons that have something to show.
void SelRecTable::showResultState()
{
    activateBtns(recCount > 0);
    if (rows.isEmpty()) {
        ui->avarGrBtn->setEnabled(false);
        ui->avarTabBtn->setEnabled(false);
    }
    if (spectrumRows.isEmpty()) {
        ui->spectrGrBtn->setEnabled(false);
        ui->spectrTabBtn->setEnabled(false);
    }
    fillStatisticMenus();
}

void SelRecTable::updateEmptyState()
{
    m_emptyHint->setVisible(free_row == 0);
    ui->processBtn->setEnabled(free_row > 0);
    ui->delRecBtn->setEnabled(free_row > 0);
    ui->delAllRecsBtn->setEnabled(free_row > 0);
    ui->diffRecBtn->setEnabled(free_row > 1);
    ui->mergeRecBtn->setEnabled(free_row > 1);
    ui->updRecsBtn->setEnabled(std::any_of(
        load_record, load_record + free_row, [](const Record& rec) { return !rec.path.isEmpty(); }));
    emit rowsChanged();
}

QSize SelRecTable::sizeHint() const
{
    const QMargins margins = layout()->contentsMargins();
    const int width = ui->commandArea->sizeHint().width() + margins.left() + margins.right();
    return QWidget::sizeHint().expandedTo(QSize(width, 0));
}

/// In a window too narrow for the commands these can be scrolled, by a bar below them.
void SelRecTable::fitCommands()
{
    const QSize wanted = ui->commandArea->minimumSizeHint();
    const bool narrow = ui->commandScroll->width() < wanted.width();
    const int bar = narrow ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    ui->commandScroll->setFixedHeight(wanted.height() + bar);
}

/// Notes the texts that the buttons above the rows have been given, and what room these need.
void SelRecTable::measureRowButtons()
{
    for (QAbstractButton* button : findChildren<QAbstractButton*>(QRegularExpression(rowButtons)))
        button->setAccessibleName(button->text());
    ui->mergeRecBtn->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_rowButtonsWidth = ui->rowsLayout->minimumSize().width();
    fitRowButtons();
}

/// In a window too narrow for their texts the buttons above the rows show their icons alone.
void SelRecTable::fitRowButtons()
{
    const QMargins margins = layout()->contentsMargins();
    const bool narrow = width() < m_rowButtonsWidth + margins.left() + margins.right();
    for (QAbstractButton* button : findChildren<QAbstractButton*>(QRegularExpression(rowButtons))) {
        const QString text = narrow ? QString() : button->accessibleName();
        if (button->text() != text)
            button->setText(text);
    }
    ui->mergeRecBtn->setToolButtonStyle(narrow ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
}

void SelRecTable::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitCommands();
    fitRowButtons();
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
