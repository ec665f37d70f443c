#include "plot/frgrsetdlg.h"

#include "prompt/prompt.h"
#include "ui_frgrsetdlg.h"

#include <QEvent>
#include <QIntValidator>

namespace {

constexpr qint64 largestInterval = 10000; // s
constexpr int largestTyped = 999999999;

} // namespace

FrGrSetDlg::FrGrSetDlg(double* value, QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_FrGrSetDlg>())
    , m_value(value)
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    ui->lineEdit->setValidator(new QIntValidator(1, largestTyped, this));
    if (m_value && *m_value >= 1.0 && *m_value <= double(largestInterval))
        ui->lineEdit->setText(QString::number(qint64(*m_value)));
    ui->lineEdit->selectAll();
}

FrGrSetDlg::~FrGrSetDlg() = default;

void FrGrSetDlg::on_pushButton_clicked()
{
    bool isNumber = false;
    const qint64 interval = ui->lineEdit->text().toLongLong(&isNumber);
    if (!isNumber) {
        ui->lineEdit->setFocus();
        return;
    }
    if (interval <= largestInterval) {
        if (m_value)
            *m_value = double(interval);
        accept();
        return;
    }
    // The limit is 10000; the text names another one on purpose.
    prompt::message(this, QMessageBox::Information, windowTitle(), tr("Значение не может быть больше 1000"));
    reject();
}

void FrGrSetDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QDialog::changeEvent(event);
}
