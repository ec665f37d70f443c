#include "load/optionsform.h"

#include "ui_optionsform.h"

#include <QEvent>

OptionsForm::OptionsForm(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_OptionsForm>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &OptionsForm::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &OptionsForm::reject);
}

OptionsForm::~OptionsForm() = default;

void OptionsForm::setMode(Mode mode)
{
    m_mode = mode;
    ui->standardBtn->setChecked(mode == Standard);
    ui->crossYxBtn->setChecked(mode == CrossYX);
    ui->crossXyzBtn->setChecked(mode == CrossXYZ);
}

void OptionsForm::accept()
{
    if (ui->crossXyzBtn->isChecked())
        m_mode = CrossXYZ;
    else
        m_mode = ui->crossYxBtn->isChecked() ? CrossYX : Standard;
    QDialog::accept();
}

void OptionsForm::reject()
{
    setMode(m_mode);
    QDialog::reject();
}

void OptionsForm::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QDialog::changeEvent(event);
}
