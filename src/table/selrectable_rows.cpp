#include "base/busyguard.h"
#include "base/debuglog.h"
#include "base/globals.h"
#include "prompt/prompt.h"
#include "record/staticrecord.h"
#include "table/core/recordtexts.h"
#include "table/core/refresh.h"
#include "table/core/relaydays.h"
#include "table/edtdatetimedlg.h"
#include "table/selrectable.h"
#include "ui_selrectable.h"

#include <QComboBox>
#include <QScopeGuard>
#include <QSignalBlocker>

#include <algorithm>

namespace {

enum Column { Check, Channel, Reference, Measured, Interval, Band, Kind, From, To, MaxY, MaxVarY, Count };

const QString dateForm = QStringLiteral("dd.MM.yyyy");

bool isEditable(int column)
{
    return column == Channel || column == Reference || column == Measured || column == From || column == MaxY
        || column == MaxVarY;
}

} // namespace

void SelRecTable::addRecord(Record* rec)
{
    const auto emptied = qScopeGuard([rec] { deleteRecord(rec); });
    DebugLOG(qPrintable(QStringLiteral("addRecord n_cnt=%1 n_days=%2 Kdec=%3 ch=%4 dataType=%5")
                            .arg(rec->n_cnt)
                            .arg(rec->n_days)
                            .arg(rec->Kdec)
                            .arg(rec->ch)
                            .arg(rec->dataType)));
    if (rec->n_cnt > 0)
        DebugLOG(qPrintable(QStringLiteral("t[0]=%1").arg(rec->t[0], 0, 'g', 17)));
    if (takeUpdate(rec))
        return;
    if (free_row >= maxRecords) {
        prompt::message(this, QMessageBox::Critical, tr("Ошибка загрузки записи"),
            tr("В таблице нет места, запись не загружена!"));
        emit TableIsFull(rec);
        return;
    }
    if (RecIsValid(rec) != 0)
        DebugLOG(" SelRecTable::addRecord Hе сработало.!"); // verbatim
    Record& slot = load_record[free_row];
    auto notTaken = qScopeGuard([&slot] { deleteRecord(&slot); });
    shareRecord(rec, &slot);
    deleteRecord(rec); // now the slot holds the samples alone
    cleanRepeats(slot);
    if (slot.RecID == 0)
        slot.RecID = generateNewID();
    notTaken.dismiss();
    addCopiedRecord();
    if (slot.dynamic && slot.n_days < 5)
        slot.dynamic = false;
}

/// Takes the repeats that a silent comparator leaves out of a fresh phase record, if the user wants that.
void SelRecTable::cleanRepeats(Record& slot)
{
    constexpr int mostDays = 50;
    if (slot.n_cnt < 1 || !removeF0Vals || slot.n_days >= mostDays || slot.dataType != 0)
        return;
    const BusyGuard busy; // the event loop runs meanwhile
    if (slot.devType == 0 || slot.devType == 5)
        StaticRecord::removeF0Values(slot);
    relayDays(slot);
}

void SelRecTable::addCopiedRecord()
{
    const int row = free_row;
    {
        const QSignalBlocker quiet(ui->recTable);
        for (int column = 0; column < ui->recTable->columnCount(); ++column) {
            auto* item = new QTableWidgetItem;
            Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
            if (column == Check)
                flags |= Qt::ItemIsUserCheckable;
            if (isEditable(column))
                flags |= Qt::ItemIsEditable;
            item->setFlags(flags);
            if (column == Channel || column == Interval || column == Band)
                item->setTextAlignment(Qt::AlignCenter);
            if (column == Count)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            ui->recTable->setItem(row, column, item);
        }
    }
    setChecked(row, true);
    DisplayRecInfo_atTableRow(row, &load_record[row]);
    ui->recTable->setRowHidden(row, false);
    ++free_row;
    updateEmptyState();
}

void SelRecTable::DisplayRecInfo_atTableRow(int row, Record* rec)
{
    const QSignalBlocker quiet(ui->recTable);
    if (rec->dataType >= numOfRecTypes)
        rec->dataType = 0;
    const auto put = [&](int column, const QString& text) { ui->recTable->item(row, column)->setText(text); };
    put(Channel, QString::number(rec->ch));
    put(Reference, rec->ref_sig);
    put(Measured, rec->meas_sig);
    put(Interval, QString::number(rec->Kdec, 'g', 6));
    put(Band, QString::number(rec->Band));
    put(Kind, RecTypes[rec->dataType]);
    put(From, rec->start.toString(dateForm));
    put(To, rec->stop.toString(dateForm));
    put(Count, QString::number(rec->n_cnt));
    for (const int column : {MaxY, MaxVarY}) {
        if (ui->recTable->item(row, column)->text().isEmpty()) // a limit that was set stays
            put(column, defaultLimit(rec->dataType));
    }
    showKinds(row);
}

/// Gives a row its choice of the kind of data.
void SelRecTable::showKinds(int row)
{
    const Record* rec = &load_record[row];
    auto* kinds = new QComboBox;
    for (int i = 0; i < numOfRecTypes; ++i)
        kinds->addItem(RecTypes[i]);
    kinds->setCurrentIndex(rec->dataType);
    kinds->setFrame(false);
    connect(kinds, qOverload<int>(&QComboBox::currentIndexChanged), this, &SelRecTable::ChangeDataType);
    ui->recTable->setCellWidget(row, Kind, kinds);
}

void SelRecTable::on_recTable_itemChanged(QTableWidgetItem* item)
{
    if (!item || !item->tableWidget() || item->row() >= free_row)
        return;
    if (item->column() == MaxY || item->column() == MaxVarY)
        limitEdited(item);
    Record& rec = load_record[item->row()];
    const QString text = item->text();
    switch (item->column()) {
    case Channel: {
        bool good = false;
        const int channel = text.toInt(&good);
        if (good)
            rec.ch = channel;
        break;
    }
    case Reference:
        if (!text.isEmpty())
            rec.ref_sig = text;
        break;
    case Measured:
        if (!text.isEmpty())
            rec.meas_sig = text;
        break;
    case Kind:
        for (quint16 i = 0; i < numOfRecTypes; ++i) {
            if (RecTypes[i] == text)
                rec.dataType = i;
        }
        break;
    case From: {
        const QDate date = QDate::fromString(text, dateForm);
        if (!date.isValid() || date == rec.start.date())
            break;
        const qint64 days = rec.start.date().daysTo(date);
        rec.start.setDate(date);
        rec.stop.setDate(rec.stop.date().addDays(days));
        ui->recTable->item(item->row(), To)->setText(rec.stop.toString(dateForm));
        break;
    }
    default:
        break;
    }
}

/// A text that is no limit goes back to the default.
void SelRecTable::limitEdited(QTableWidgetItem* item)
{
    const QSignalBlocker quiet(ui->recTable);
    if (!limitFromText(item->text()))
        item->setText(defaultLimit(load_record[item->row()].dataType));
}

OutlierLimits SelRecTable::limitsOf(int row) const
{
    return {limitFromText(ui->recTable->item(row, MaxY)->text()),
        limitFromText(ui->recTable->item(row, MaxVarY)->text())};
}

void SelRecTable::ChangeDataType(int index)
{
    int row = -1;
    for (int i = 0; i < free_row; ++i) {
        if (ui->recTable->cellWidget(i, Kind) == sender())
            row = i;
    }
    if (row < 0)
        return;
    Record& rec = load_record[row];
    if (index < 0 || index >= numOfRecTypes)
        DebugLOG(qPrintable(QStringLiteral("Wrong index of DataType selected: %1").arg(index)));
    else
        rec.dataType = quint16(index);
    ui->recTable->item(row, Kind)->setText(RecTypes[rec.dataType]);
    ui->recTable->item(row, MaxY)->setText(defaultLimit(rec.dataType));
    ui->recTable->item(row, MaxVarY)->setText(defaultLimit(rec.dataType));
}

int SelRecTable::selectedRow() const
{
    const QList<QTableWidgetItem*> items = ui->recTable->selectedItems();
    return items.isEmpty() ? -1 : items.first()->row();
}

bool SelRecTable::isChecked(int row) const
{
    return ui->recTable->item(row, Check)->checkState() == Qt::Checked;
}

void SelRecTable::setChecked(int row, bool on)
{
    ui->recTable->item(row, Check)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
}

void SelRecTable::checkAllRec()
{
    for (int row = 0; row < free_row; ++row)
        setChecked(row, true);
}

void SelRecTable::uncheckAllRec()
{
    for (int row = 0; row < free_row; ++row)
        setChecked(row, false);
}

void SelRecTable::on_SelectAllRecords_Btn_clicked()
{
    checkAllRec();
}
void SelRecTable::on_UnselectAllRecords_Btn_clicked()
{
    uncheckAllRec();
}

void SelRecTable::MoveRecord_inTable(int from, int to)
{
    const auto valid = [this](int row) { return row >= 0 && row < free_row; };
    if (!valid(from) || !valid(to) || from == to)
        return;
    Record kept;
    moveRecord(&load_record[from], &kept);
    moveRecord(&load_record[to], &load_record[from]);
    moveRecord(&kept, &load_record[to]);
    const QSignalBlocker quiet(ui->recTable);
    for (int column = 0; column < ui->recTable->columnCount(); ++column) {
        QTableWidgetItem* one = ui->recTable->takeItem(from, column);
        QTableWidgetItem* other = ui->recTable->takeItem(to, column);
        ui->recTable->setItem(to, column, one);
        ui->recTable->setItem(from, column, other);
    }
    DisplayRecInfo_atTableRow(from, &load_record[from]);
    DisplayRecInfo_atTableRow(to, &load_record[to]);
}

void SelRecTable::on_MoveRecordUp_clicked()
{
    const int row = selectedRow();
    if (SLEEP || row < 1)
        return;
    MoveRecord_inTable(row, row - 1);
    ui->recTable->selectRow(row - 1);
}

void SelRecTable::on_MoveRecordDown_clicked()
{
    const int row = selectedRow();
    if (SLEEP || row < 0 || row + 1 >= free_row)
        return;
    MoveRecord_inTable(row, row + 1);
    ui->recTable->selectRow(row + 1);
}

void SelRecTable::on_RotateRecord_Btn_clicked()
{
    const int row = selectedRow();
    if (SLEEP || row < 0 || row >= free_row)
        return;
    Record& rec = load_record[row];
    turnValues(rec);
    rec.ref_sig.swap(rec.meas_sig);
    DisplayRecInfo_atTableRow(row, &rec);
}

void SelRecTable::clearRow(int row)
{
    const QSignalBlocker quiet(ui->recTable);
    ui->recTable->removeCellWidget(row, Kind);
    for (int column = 0; column < ui->recTable->columnCount(); ++column)
        delete ui->recTable->takeItem(row, column);
    ui->recTable->setRowHidden(row, true);
    deleteRecord(&load_record[row]);
}

void SelRecTable::on_delRecBtn_clicked()
{
    if (!SLEEP)
        removeRows(checkedRows());
}

/// Moves a row, with its checks, limits and colours, to a row that is not in use.
void SelRecTable::takeRow(int from, int to)
{
    moveRecord(&load_record[from], &load_record[to]);
    const QSignalBlocker quiet(ui->recTable);
    for (int column = 0; column < ui->recTable->columnCount(); ++column)
        ui->recTable->setItem(to, column, ui->recTable->takeItem(from, column));
    showKinds(to);
}

/// Removes rows, in rising order, with all results that rest on them. The selection goes to the row behind
/// the one it was on.
void SelRecTable::removeRows(const QVector<int>& unwanted)
{
    const int current = std::max(0, ui->recTable->currentRow());
    const int before = int(std::lower_bound(unwanted.begin(), unwanted.end(), current) - unwanted.begin());
    int kept = 0;
    for (int row = 0; row < free_row; ++row) {
        if (unwanted.contains(row)) {
            drop(load_record[row].RecID);
            continue;
        }
        if (kept != row)
            takeRow(row, kept);
        ++kept;
    }
    for (int row = kept; row < free_row; ++row)
        clearRow(row);
    free_row = kept;
    if (kept > 0)
        ui->recTable->selectRow(std::min(current - before, kept - 1));
    showResultState();
    updateEmptyState();
}

void SelRecTable::on_delAllRecsBtn_clicked()
{
    if (SLEEP)
        return;
    for (int row = 0; row < free_row; ++row)
        clearRow(row);
    DebugLOG("DELETE ALL RECORDS");
    free_row = 0;
    results() = ProcessedRecords();
    showResultState();
    updateEmptyState();
}

void SelRecTable::EditTimeRec()
{
    const int row = ui->recTable->currentRow();
    if (SLEEP || row < 0 || row >= free_row)
        return;
    EdtDatetimeDlg dialog(&load_record[row], this);
    connect(&dialog, &EdtDatetimeDlg::edtRecDateTime, this, &SelRecTable::EditRecTableDateTime);
    prompt::run(dialog);
}

void SelRecTable::EditRecTableDateTime()
{
    const int row = ui->recTable->currentRow();
    if (row < 0 || row >= free_row)
        return;
    const QSignalBlocker quiet(ui->recTable);
    ui->recTable->item(row, From)->setText(load_record[row].start.toString(dateForm));
    ui->recTable->item(row, To)->setText(load_record[row].stop.toString(dateForm));
}

void SelRecTable::setProp(quint8* recID, QString* savePath)
{
    lastUsedRecID = recID;
    openSavePath = savePath;
    if (recID)
        m_lastID = *recID;
}

quint8 SelRecTable::generateNewID()
{
    const auto inUse = [this](quint8 id) {
        return id == 0 || std::any_of(load_record, load_record + free_row, [id](const Record& rec) {
            return rec.RecID == id;
        });
    };
    do {
        ++m_lastID;
    } while (inUse(m_lastID)); // there are more identifiers than rows
    if (lastUsedRecID)
        *lastUsedRecID = m_lastID;
    return m_lastID;
}
