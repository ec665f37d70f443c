#include "prompt/warndiag.h"

#include "prompt/prompt.h"
#include "ui_warndiag.h"

#include <QEvent>
#include <QPushButton>
#include <QStyle>

WarnDiag::WarnDiag(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_WarnDiag>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    connect(ui->buttonBox, &QDialogButtonBox::clicked, this, [this](QAbstractButton* button) {
        m_pressed = ui->buttonBox->standardButton(button);
        accept();
    });
}

WarnDiag::~WarnDiag() = default;

QDialogButtonBox::StandardButton WarnDiag::showMe(
    const QString& text, bool warning, QDialogButtonBox::StandardButtons buttons, const QStringList& details)
{
    setWindowTitle(tr("Сообщение"));
    const QStyle::StandardPixmap sign =
        warning ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    ui->SignLbl->setPixmap(style()->standardIcon(sign).pixmap(48, 48));
    ui->MessageLbl->setText(text);
    // Long lines wrap, short ones stay as they are written.
    ui->MessageLbl->setMinimumWidth(
        qBound(320, ui->MessageLbl->fontMetrics().size(0, text).width() + 4, 640));
    ui->buttonBox->setStandardButtons(buttons);
    ui->More_list->clear();
    ui->More_list->addItems(details);
    ui->MoreLbl->setVisible(!details.isEmpty());
    showDetails(false);
    m_pressed = buttons & QDialogButtonBox::Cancel ? QDialogButtonBox::Cancel : QDialogButtonBox::Ok;
    prompt::run(*this);
    return m_pressed;
}

void WarnDiag::on_MoreLbl_clicked()
{
    showDetails(ui->More_list->isHidden());
}

void WarnDiag::showDetails(bool shown)
{
    ui->More_list->setVisible(shown);
    ui->MoreLbl->setText(shown ? tr("Скрыть подробности проблемы") : tr("Показать подробности проблемы..."));
    adjustSize();
}

void WarnDiag::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QDialog::changeEvent(event);
}
