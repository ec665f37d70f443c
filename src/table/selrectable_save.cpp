#include "base/busyguard.h"
#include "base/globals.h"
#include "prompt/guard.h"
#include "prompt/prompt.h"
#include "store/core/recordingnames.h"
#include "table/core/recordtexts.h"
#include "table/core/refresh.h"
#include "table/selrectable.h"
#include "ui_selrectable.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
#include <QScopedValueRollback>

/// One command of saving: where it writes to, and what came of it.
struct SelRecTable::RecordSaving {
    QDir directory;
    bool chosen = false; // the directory
    int number = 0; // k of the file names; it only grows
    int written = 0;
    bool stopped = false;
    bool coarse = false; // a record has an interval that the files cannot tell
    QStringList directories; // written to
    QStringList faults; // by record
};

/// One row that is read anew, and what has come for it so far.
struct SelRecTable::RowUpdate {
    int row = -1;
    Refresh found = Refresh::Other;
    bool any = false; // a record came
    Record fresh;
};

/// The row with the cursor, or -1; the cursor may also stand on a row that is not in use.
int SelRecTable::currentRow() const
{
    const int row = ui->recTable->currentRow();
    return row < free_row ? row : -1;
}

void SelRecTable::tellSaving(QMessageBox::Icon icon, const QString& text)
{
    prompt::message(this, icon, tr("Сохранение записи"), text);
}

void SelRecTable::SaveRecsToFile()
{
    if (SLEEP)
        return;
    QVector<int> rowSet;
    if (sender() != m_saveAction)
        rowSet = checkedRows();
    if (rowSet.isEmpty() && currentRow() >= 0)
        rowSet << currentRow();
    if (rowSet.isEmpty()) {
        tellSaving(QMessageBox::Information, tr("Сохранять нечего: в таблице не выбрано ни одной записи."));
        return;
    }
    const BusyGuard busy; // the dialogs run the event loop, and the rows must stay what they are
    if (!runGuarded("SaveRecsToFile", [this] { foldLiveTails(); }))
        return;
    RecordSaving saving;
    for (int i = 0; i < rowSet.size() && !saving.stopped; ++i) {
        Record& rec = load_record[rowSet.at(i)];
        if (rec.n_cnt < 1) {
            saving.faults << recordName(rec) + QLatin1String(": ") + tr("в записи нет отсчетов");
            continue;
        }
        if (!placeFor(rec, &saving))
            return;
        if (saving.number <= mostNameNumber)
            save(&rec, &saving, double(i) / rowSet.size(), 1.0 / rowSet.size());
        else
            saving.faults << recordName(rec) + QLatin1String(": ") + tr("все имена файлов заняты");
    }
    tellSaved(saving);
}

/// Asks for the directory where there is none yet, and finds the number under which all names are free; where
/// there is none, the number is above the greatest. False when the user ends the command.
bool SelRecTable::placeFor(const Record& rec, RecordSaving* saving)
{
    while (true) {
        if (!saving->chosen && !chooseDirectory(saving))
            return false;
        if (saving->number > mostNameNumber || !recordingExists(rec, saving->directory, saving->number))
            return true;
        if (saving->number > 0) {
            ++saving->number;
            continue;
        }
        switch (prompt::message(this, QMessageBox::Question, tr("Сохранение записи"),
            tr("В выбранном каталоге уже содержатся файлы данных за выбранные даты.\n"
               "Вы можете выбрать другой каталог или сохранить выбранные записи под другим именем."),
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
            {{QMessageBox::Yes, tr("Выбрать другую папку")},
                {QMessageBox::No, tr("Сохранить под другим именем")},
                {QMessageBox::Cancel, tr("Отменить")}})) {
        case QMessageBox::Yes:
            saving->chosen = false;
            break;
        case QMessageBox::No:
            saving->number = 1;
            break;
        default:
            return false;
        }
    }
}

bool SelRecTable::chooseDirectory(RecordSaving* saving)
{
    const bool known = openSavePath && QFileInfo(*openSavePath).isDir();
    const QString path =
        prompt::directory(this, tr("Выбрать каталог"), known ? *openSavePath : WorkFolder.absolutePath());
    if (path.isEmpty() || !QFileInfo(path).isDir())
        return false;
    saving->directory = QDir(path);
    saving->chosen = true;
    if (openSavePath)
        *openSavePath = saving->directory.absolutePath();
    return true;
}

/// Hands one record over to be written, as the step of the command behind `done` that takes `share` of the
/// progress bar.
void SelRecTable::save(Record* rec, RecordSaving* saving, double done, double share)
{
    m_saveFault = tr("запись не принята к сохранению"); // unless an answer comes
    const bool whole = runCommand("SaveRecs", [&] {
        m_progressDone = done;
        m_progressStep = share;
        showProgress(0.0);
        if (!m_stopAsked)
            emit SaveRecs(rec, &saving->directory, quint8(saving->number));
    });
    if (whole && m_saveFault.isEmpty()) {
        ++saving->written;
        saving->coarse = saving->coarse || !recordingKeepsInterval(*rec);
        const QString path = saving->directory.absolutePath();
        if (!saving->directories.contains(path))
            saving->directories << path;
    } else if (!m_stopAsked) {
        saving->faults << recordName(*rec) + QLatin1String(": ")
                + (whole ? m_saveFault : tr("недостаточно оперативной памяти"));
    }
    saving->stopped = m_stopAsked;
}

void SelRecTable::recSaved(const QString& fault)
{
    m_saveFault = fault;
}

bool SelRecTable::stopAsked(double share)
{
    return m_progress && !showProgress(share);
}

/// The box at the end of the command.
void SelRecTable::tellSaved(const RecordSaving& saving)
{
    QStringList texts;
    if (saving.stopped)
        texts << tr("Сохранение прервано. Последняя запись могла сохраниться не полностью.");
    if (!saving.faults.isEmpty())
        texts << tr("Не удалось сохранить:") + QLatin1Char('\n') + saving.faults.join(QLatin1Char('\n'));
    if (saving.written > 0) {
        QString text =
            tr("Запись успешно сохранена в каталоге ") + saving.directories.join(QLatin1String(", "));
        if (saving.number > 0)
            text += tr(" под именами с суффиксом ")
                + QStringLiteral("(%1)").arg(qMin(saving.number, mostNameNumber));
        texts << text << tr("Сохранено записей: %1").arg(saving.written);
    } else {
        texts << tr("Ни одна запись не сохранена.");
    }
    if (saving.coarse)
        texts << tr("Интервал между отсчетами не равен целому числу секунд, а файлы записей хранят время с "
                    "точностью до секунды.");
    tellSaving(!saving.faults.isEmpty() ? QMessageBox::Critical
            : saving.stopped            ? QMessageBox::Warning
                                        : QMessageBox::Information,
        texts.join(QLatin1Char('\n')));
}

void SelRecTable::SaveRecsToASCIIFile()
{
    if (SLEEP)
        return;
    if (currentRow() < 0) {
        tellSaving(QMessageBox::Information, tr("Сохранять нечего: в таблице не выбрано ни одной записи."));
        return;
    }
    const quint16 id = load_record[currentRow()].RecID;
    for (int i = 0; i < recCount; ++i) {
        if (record[size_t(i)].RecID == id) {
            emit SaveToASCII(&record[size_t(i)]);
            return;
        }
    }
    tellSaving(QMessageBox::Information, tr(" Перед сохранением в ASCII-файл записи следует обработать! "));
}

/// The checked rows that stand in a recording and are not followed already.
QVector<int> SelRecTable::rowsToUpdate() const
{
    QVector<int> rowSet;
    for (const int row : checkedRows()) {
        if (!load_record[row].path.isEmpty() && !load_record[row].dynamic)
            rowSet << row;
    }
    return rowSet;
}

void SelRecTable::on_updRecsBtn_clicked()
{
    if (SLEEP)
        return;
    const QVector<int> rowSet = rowsToUpdate();
    if (rowSet.isEmpty()) {
        prompt::message(this, QMessageBox::Information, windowTitle(),
            tr("Обновлять нечего: отметьте записи, загруженные из каталога. Текущие записи обновляются "
               "сами."));
        return;
    }
    QStringList faults;
    runCommand("on_updRecsBtn_clicked", [&] {
        emit hideWindows_forUpdRec(true);
        const auto shown = qScopeGuard([this] { emit hideWindows_forUpdRec(false); });
        m_progressStep = 1.0 / rowSet.size();
        for (int i = rowSet.size() - 1; i >= 0; --i) { // from the last to the first
            if (!showProgress(0.0))
                break;
            const QString fault = updateRow(rowSet.at(i));
            if (!fault.isEmpty() && !m_stopAsked)
                faults.prepend(recordName(load_record[rowSet.at(i)]) + QLatin1String(": ") + fault);
            m_progressDone += m_progressStep;
        }
    });
    if (!faults.isEmpty())
        prompt::message(this, QMessageBox::Warning, windowTitle(),
            tr("Не удалось обновить:") + QLatin1Char('\n') + faults.join(QLatin1Char('\n')));
}

/// Has the row read anew. Gives what went wrong; then, and where nothing later was found, the row stays.
QString SelRecTable::updateRow(int row)
{
    RowUpdate update;
    update.row = row;
    Record& slot = load_record[row];
    {
        const QScopedValueRollback<RowUpdate*> running(m_update, &update);
        emit updRecords(slot.path, slot.start, slot.ch, slot.Kdec);
    }
    if (!update.any)
        return tr("запись не прочитана");
    if (update.found == Refresh::Other)
        return tr("в файлах каталога другая запись");
    if (update.found == Refresh::NotNewer || m_stopAsked)
        return {};
    Record& fresh = update.fresh;
    if (update.found == Refresh::NewerTurned)
        turnValues(fresh);
    // What the user has changed in the table stays.
    fresh.ch = slot.ch;
    fresh.ref_sig = slot.ref_sig;
    fresh.meas_sig = slot.meas_sig;
    fresh.dataType = slot.dataType;
    fresh.Band = slot.Band;
    fresh.Kdec = slot.Kdec;
    fresh.path = slot.path;
    fresh.freqTau = slot.freqTau;
    fresh.RecID = slot.RecID;
    fresh.dynamic = slot.dynamic;
    moveRecord(&fresh, &slot);
    DisplayRecInfo_atTableRow(row, &slot);
    return {};
}

/// While a row is being updated, takes the record in its place; false when none is. A directory may hold
/// several recordings of a channel: the one that begins as the row does is kept.
bool SelRecTable::takeUpdate(Record* rec)
{
    if (!m_update)
        return false;
    m_update->any = true;
    if (m_update->found != Refresh::Other)
        return true;
    Record fresh;
    shareRecord(rec, &fresh);
    deleteRecord(rec); // now the copy holds the samples alone
    cleanRepeats(fresh);
    m_update->found = compareFresh(load_record[m_update->row], fresh);
    if (m_update->found != Refresh::Other)
        moveRecord(&fresh, &m_update->fresh);
    return true;
}
