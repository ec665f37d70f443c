// The commands that make a record of others: difference, merge, cutting a stretch.

#include "base/debuglog.h"
#include "base/globals.h"
#include "prompt/guard.h"
#include "prompt/prompt.h"
#include "table/core/cutstretch.h"
#include "table/core/difference.h"
#include "table/core/livetail.h"
#include "table/core/merge.h"
#include "table/selrectable.h"
#include "ui_selrectable.h"

#include <QAction>
#include <QMenu>
#include <QThread>

QVector<int> SelRecTable::checkedRows() const
{
    QVector<int> checked;
    for (int row = 0; row < free_row; ++row) {
        if (isChecked(row))
            checked << row;
    }
    return checked;
}

bool SelRecTable::refuse(const QString& text)
{
    prompt::message(this, QMessageBox::Warning, windowTitle(), text);
    return false;
}

/// Makes a new row of two checked ones by `make`, which gives false when it refuses.
void SelRecTable::combineChecked(const char* name, const std::function<bool(Record&, Record&, Record&)>& make)
{
    if (SLEEP)
        return;
    if (free_row >= maxRecords) {
        tellTableFull();
        return;
    }
    const QVector<int> checked = checkedRows();
    if (checked.size() != 2) {
        refuse(tr("Необходимо отметить две записи!"));
        return;
    }
    bool made = false;
    const bool complete = runCommand(name, [&] {
        Record& first = load_record[checked.at(0)];
        Record& second = load_record[checked.at(1)];
        foldLiveTails();
        made = make(first, second, load_record[free_row]) && !m_stopAsked;
    });
    if (!complete || !made) {
        deleteRecord(&load_record[free_row]);
        return;
    }
    load_record[free_row].RecID = generateNewID();
    addCopiedRecord();
    ui->recTable->selectRow(free_row - 1);
}

void SelRecTable::on_diffRecBtn_clicked()
{
    combineChecked("new onDiff_Btn", [this](Record& first, Record& second, Record& made) {
        DifferenceResult result;
        if (!run({[&] { result = differenceOf(first, second, made); }}, 1.0))
            return false;
        return acceptDifference(result);
    });
}

bool SelRecTable::acceptDifference(const DifferenceResult& result)
{
    switch (result.status) {
    case DifferenceStatus::Ok:
        break;
    case DifferenceStatus::OtherIntervals:
        return refuse(tr("Записи должны иметь одинаковый коэфициент прореживания!"));
    case DifferenceStatus::NoCommonTime:
        return refuse(tr("Выбранные записи не пересекаются по времени!"));
    case DifferenceStatus::NoPairs:
        return refuse(tr("Отсчеты выбранных записей нигде не совпадают по времени!"));
    }
    if (result.countsDiffer)
        tellCountsDiffer();
    if (result.otherSignals) {
        prompt::message(this, QMessageBox::Information, windowTitle(),
            tr("Вычитаются записи с разными опорными и измеряемыми сигналами!\nВозможно в одной из записей "
               "следует "
               "поменять сигналы местами?"));
    }
    return true;
}

void SelRecTable::on_mergeRecBtn_clicked()
{
    combineChecked("new onMerge_Btn", [this](Record& first, Record& second, Record& made) {
        if (!sameSignals(first, second)
            && prompt::message(this, QMessageBox::Question, windowTitle(),
                   tr("Записи должны быть сделны для одинаковых сигналов!") + QLatin1Char('\n')
                       + tr("Продолжить объединение?"),
                   QMessageBox::Yes | QMessageBox::No)
                != QMessageBox::Yes)
            return false;
        MergeResult result;
        const MergeMode mode = mergeMode();
        // The question comes up in the middle of the work, which waits for the answer.
        const auto ask = [this] {
            if (QThread::currentThread() == thread()) // the system gave no further thread
                return askToShiftPhase();
            bool shift = false;
            QMetaObject::invokeMethod(
                this, [&] { shift = askToShiftPhase(); }, Qt::BlockingQueuedConnection);
            return shift;
        };
        if (!run({[&] { result = mergeRecords(first, second, mode, ask, made); }}, 1.0))
            return false;
        return acceptMerge(result);
    });
}

bool SelRecTable::askToShiftPhase()
{
    return !m_stopAsked
        && prompt::message(this, QMessageBox::Question, windowTitle(),
               tr("Между записями слишком большой разрыв по фазе!\nСдвинуть фазу во второй записи?"),
               QMessageBox::Yes | QMessageBox::No)
        == QMessageBox::Yes;
}

bool SelRecTable::acceptMerge(const MergeResult& result)
{
    switch (result.status) {
    case MergeStatus::Ok:
        return true;
    case MergeStatus::OtherTypes:
        return refuse(tr("Невозможно объединение записей с разными типами данных!"));
    case MergeStatus::OtherIntervals:
        return refuse(tr("Записи должны иметь одинаковый коэфициент прореживания! "));
    case MergeStatus::NoSamples:
        return refuse(tr("В одной из записей нет отсчетов!"));
    case MergeStatus::Overlap:
        break;
    }
    return refuse(tr("Выбранные записи не должны пересекаться во времени!"));
}

MergeMode SelRecTable::mergeMode() const
{
    const QList<QAction*> modes = m_mergeMenu->actions();
    for (const QAction* mode : modes) {
        if (mode->isChecked())
            return static_cast<MergeMode>(mode->data().toInt());
    }
    return MergeMode::StitchFrequency;
}

void SelRecTable::popup_mergeRec_ItemSelected(QAction* item)
{
    const QList<QAction*> modes = m_mergeMenu->actions();
    for (QAction* mode : modes)
        mode->setChecked(mode == item);
}

/// The first checked row with an identifier; free_row without any.
int SelRecTable::checkedRowOf(quint16 recID) const
{
    int row = 0;
    while (row < free_row && !(isChecked(row) && load_record[row].RecID == recID))
        ++row;
    return row;
}

void SelRecTable::giveForRec(quint16 recID, double from, double to)
{
    DebugLOG(("SELREC save #" + QByteArray::number(recID)).constData());
    if (SLEEP)
        return;
    if (free_row >= maxRecords) {
        DebugLOG("В таблице слишком много записей, новая не поместится, извините.."); // verbatim
        tellTableFull();
        return;
    }
    const int row = checkedRowOf(recID);
    if (row == free_row) {
        DebugLOG("Нужная запись не найдена в таблице, извините.."); // verbatim
        prompt::message(this, QMessageBox::Information, windowTitle(),
            tr("Запись, из которой Вы хотите вырезать кусок, была удалена из таблицы,\n поэтому операция не "
               "может быть "
               "выполнена."));
        return;
    }
    runGuarded("giveForRec", [&] {
        Record made;
        if (cutStretch(load_record[row], from, to, made) != CutStatus::Ok) { // the log tells why
            refuse(tr("Границы участка в записи не найдены, новая запись не создана."));
            return;
        }
        made.RecID = generateNewID();
        addRecord(&made);
    });
}

void SelRecTable::tellTableFull()
{
    prompt::message(this, QMessageBox::Information, windowTitle(),
        tr("Запись не может быть добавлена, \nт.к превышено максимальное количество записей в таблице, "
           "равное ")
            + QString::number(maxRecords));
}
