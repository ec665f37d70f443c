#include "plot/insplotcomment.h"

#include "plot/core/commenttext.h"
#include "ui_insplotcomment.h"

#include <QEvent>
#include <QKeySequence>
#include <QShortcut>
#include <qwt_text_label.h>

InsPlotComment::InsPlotComment(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_InsPlotComment>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowModality(Qt::WindowModal);
    // Enter alone starts a new line.
    for (const int key : {Qt::CTRL + Qt::Key_Return, Qt::CTRL + Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(QKeySequence(key), this);
        connect(shortcut, &QShortcut::activated, this, &InsPlotComment::on_buttonBox_accepted);
    }
}

InsPlotComment::~InsPlotComment() = default;

void InsPlotComment::on_buttonBox_accepted()
{
    const QString text = joinedLines(ui->textEdit->toPlainText());
    if (!text.isEmpty() && m_corrected) {
        QwtText corrected = m_corrected->text();
        corrected.setText(commentMarkup(text), QwtText::RichText);
        m_corrected->setText(corrected);
        m_corrected->adjustSize();
    } else if (!text.isEmpty()) {
        emit insComment(text);
    }
    m_corrected.clear();
    ui->textEdit->clear();
    accept();
}

void InsPlotComment::on_buttonBox_rejected()
{
    reject();
}

void InsPlotComment::reject()
{
    m_corrected.clear();
    ui->textEdit->clear();
    QDialog::reject();
}

void InsPlotComment::on_pushButton_clicked()
{
    ui->textEdit->clear();
    ui->textEdit->setFocus();
}

void InsPlotComment::CorrectComment(QwtTextLabel* label)
{
    if (!label)
        return;
    m_corrected = label;
    ui->textEdit->setPlainText(commentPlain(label->text().text()));
    ui->textEdit->selectAll();
    show();
}

void InsPlotComment::DelComment(QwtTextLabel* label)
{
    delete label;
}

void InsPlotComment::showEvent(QShowEvent* event)
{
    ui->textEdit->setFocus();
    QDialog::showEvent(event);
}

void InsPlotComment::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QDialog::changeEvent(event);
}
