#include "plot/plotzoomdt.h"

#include "base/debuglog.h"
#include "ui_plotzoomdt.h"

#include <QEvent>
#include <QPushButton>

PlotZoomDT::PlotZoomDT(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_PlotZoomDT>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowModality(Qt::WindowModal);
    for (QDateTimeEdit* edit : {ui->dateTimeEdit, ui->dateTimeEdit_2})
        connect(edit, &QDateTimeEdit::dateTimeChanged, this, &PlotZoomDT::checkStretch);
}

PlotZoomDT::~PlotZoomDT() = default;

void PlotZoomDT::myshow()
{
    show();
    raise();
    activateWindow();
    ui->dateTimeEdit->setFocus();
}

void PlotZoomDT::setdt(QDateTime from, QDateTime to)
{
    start = from;
    stop = to;
    ui->dateTimeEdit->setDateTime(from);
    ui->dateTimeEdit_2->setDateTime(to);
    checkStretch();
}

void PlotZoomDT::checkStretch()
{
    const bool empty = ui->dateTimeEdit->dateTime() == ui->dateTimeEdit_2->dateTime();
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(!empty);
}

void PlotZoomDT::on_dateTimeEdit_editingFinished()
{
    if (ui->dateTimeEdit->dateTime().isValid())
        start = ui->dateTimeEdit->dateTime();
}

void PlotZoomDT::on_dateTimeEdit_2_editingFinished()
{
    if (ui->dateTimeEdit_2->dateTime().isValid())
        stop = ui->dateTimeEdit_2->dateTime();
}

void PlotZoomDT::on_buttonBox_accepted()
{
    on_dateTimeEdit_editingFinished();
    on_dateTimeEdit_2_editingFinished();
    const QString form = QStringLiteral("dd.MM.yyyy hh:mm:ss");
    DebugLOG(qPrintable("zoomDT " + start.toString(form) + " " + stop.toString(form)));
    emit zoomIt();
    accept();
}

void PlotZoomDT::on_buttonBox_rejected()
{
    reject();
}

void PlotZoomDT::on_restore_pBtn_clicked()
{
    emit restore();
}

void PlotZoomDT::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QDialog::changeEvent(event);
}
