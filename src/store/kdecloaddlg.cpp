#include "store/kdecloaddlg.h"

#include "ui_kdecloaddlg.h"

#include <QEvent>
#include <QIntValidator>

#include <limits>

KdecLoadDlg::KdecLoadDlg(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_KdecLoadDlg>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    ui->comboBox->setValidator(new QIntValidator(1, std::numeric_limits<int>::max(), this));
}

KdecLoadDlg::~KdecLoadDlg() = default;

void KdecLoadDlg::on_pushButton_clicked()
{
    bool isNumber = false;
    const int factor = ui->comboBox->currentText().toInt(&isNumber);
    accept();
    emit load(isNumber && factor > 0 ? factor : 1);
}

void KdecLoadDlg::on_pushButton_2_clicked()
{
    reject();
}

void KdecLoadDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QDialog::changeEvent(event);
}
