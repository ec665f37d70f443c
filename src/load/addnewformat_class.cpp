#include "load/addnewformat_class.h"

#include "base/debuglog.h"
#include "load/core/formatcheck.h"
#include "ui_addnewformat_class.h"

#include <QEvent>
#include <QLayout>
#include <QPushButton>
#include <QResizeEvent>
#include <QShowEvent>

addNewFormat_class::addNewFormat_class(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_addNewFormat_class>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    fitReason();
    IsFormatCorrect(QString());
}

addNewFormat_class::~addNewFormat_class() = default;

bool addNewFormat_class::IsFormatCorrect(QString format)
{
    const FormatVerdict verdict = checkFormat(format);
    if (!verdict.trace.isEmpty())
        DebugLOG(verdict.trace.toUtf8().constData());
    m_correct = verdict.correct;
    ui->verdictLbl->setText(m_correct ? QStringLiteral("<font color=#00aa00><b>") + tr("Корректный формат")
                + QStringLiteral("</b></font>")
                                      : QStringLiteral("<font color=#aa0000><b>") + tr("Недопустимый формат")
                + QStringLiteral("</b></font>"));
    ui->reasonLbl->setText(verdict.reasonText());
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(m_correct);
    return m_correct;
}

void addNewFormat_class::edit(const QString& format)
{
    ui->lineEdit->setText(format);
    show();
    raise();
    activateWindow();
}

void addNewFormat_class::on_lineEdit_textChanged(const QString& format)
{
    emit formatEdited(IsFormatCorrect(format) ? format : QString());
}

void addNewFormat_class::on_buttonBox_accepted()
{
    const QString format = ui->lineEdit->text();
    const bool correct = IsFormatCorrect(format);
    if (correct)
        emit newFormat(format);
    done(correct ? Accepted : Rejected);
}

void addNewFormat_class::on_buttonBox_rejected()
{
    reject();
}

/// Keeps room for two lines of the reason, so that the dialog does not jump while the user types.
void addNewFormat_class::fitReason()
{
    ui->reasonLbl->setMinimumHeight(2 * ui->reasonLbl->fontMetrics().lineSpacing());
}

/// The layout alone would cut off wrapped lines.
void addNewFormat_class::fitHeight()
{
    setMinimumHeight(layout()->totalHeightForWidth(width()));
}

bool addNewFormat_class::event(QEvent* event)
{
    const bool known = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest)
        fitHeight();
    return known;
}

void addNewFormat_class::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    fitHeight();
}

void addNewFormat_class::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        IsFormatCorrect(ui->lineEdit->text());
    } else if (event->type() == QEvent::FontChange) {
        fitReason();
    }
    QDialog::changeEvent(event);
}

void addNewFormat_class::showEvent(QShowEvent* event)
{
    ui->lineEdit->setFocus();
    ui->lineEdit->selectAll();
    QDialog::showEvent(event);
}
