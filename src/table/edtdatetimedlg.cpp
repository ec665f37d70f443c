#include "table/edtdatetimedlg.h"

#include "record/record.h"

#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QFormLayout>

EdtDatetimeDlg::EdtDatetimeDlg(Record* record, QWidget* parent)
    : QDialog(parent)
    , m_record(record)
    , m_start(new QDateTimeEdit(record->start))
    , m_stop(new QDateTimeEdit(record->stop))
{
    setWindowTitle(tr("Время записи"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    for (QDateTimeEdit* edit : {m_start, m_stop}) {
        edit->setDisplayFormat(QStringLiteral("dd.MM.yyyy hh:mm:ss"));
        edit->setCalendarPopup(true);
    }
    m_stop->setReadOnly(true);
    m_stop->setToolTip(tr("Сдвигается вместе с началом: длина записи не меняется"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* form = new QFormLayout(this);
    form->addRow(tr("Начало:"), m_start);
    form->addRow(tr("Конец:"), m_stop);
    form->addRow(buttons);
    connect(m_start, &QDateTimeEdit::dateTimeChanged, this, &EdtDatetimeDlg::showStop);
    connect(buttons, &QDialogButtonBox::accepted, this, &EdtDatetimeDlg::take);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void EdtDatetimeDlg::showStop()
{
    m_stop->setDateTime(m_start->dateTime().addMSecs(m_record->start.msecsTo(m_record->stop)));
}

void EdtDatetimeDlg::take()
{
    const QDateTime start = m_start->dateTime();
    if (start != m_record->start) {
        m_record->stop = start.addMSecs(m_record->start.msecsTo(m_record->stop));
        m_record->start = start;
        emit edtRecDateTime();
    }
    accept();
}
