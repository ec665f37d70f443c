#include "load/saverecform.h"

#include "base/globals.h"
#include "base/parallel.h"
#include "load/core/formatfilereader.h"
#include "prompt/guard.h"
#include "prompt/progressscope.h"
#include "prompt/prompt.h"
#include "record/record.h"
#include "ui_saverecform.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QPalette>
#include <QSaveFile>

#include <atomic>

namespace {

/// The commented lines of a text; empty lines go.
QStringList commentLines(const QString& text)
{
    QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString& line : lines) {
        if (!line.startsWith(QLatin1Char('#')))
            line.prepend(QLatin1Char('#'));
    }
    return lines;
}

} // namespace

/// The look of the dialog while a file is written, and the way back.
struct saverecform::Writing {
    explicit Writing(saverecform* writer)
        : form(writer)
    {
        show(true);
    }
    ~Writing() { show(false); }
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;

    void show(bool writing)
    {
        form->m_writing = writing;
        form->m_stop = false;
        form->ui->inputs->setDisabled(writing);
        form->ui->OKButton->setDisabled(writing);
    }

    saverecform* form;
};

saverecform::saverecform(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_saverecform>())
    , m_record(std::make_unique<Record>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    QSizePolicy policy = ui->progressBar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui->progressBar->setSizePolicy(policy);
    ui->progressBar->hide();
    // The backgrounds are light in a dark theme, too.
    QPalette palette = ui->commentEdit->palette();
    palette.setColor(QPalette::Text, Qt::black);
    ui->commentEdit->setPalette(palette);
    showEditing();
}

saverecform::~saverecform() = default;

void saverecform::setProp(QString* startPath)
{
    m_startPath = startPath;
    if (startPath && !startPath->isEmpty() && QFileInfo(*startPath).isDir())
        WorkFolder.setPath(*startPath);
}

void saverecform::Show(Record* rec)
{
    if (!rec || m_writing)
        return;
    if (!runGuarded("saverecform::Show", [this, rec] { shareRecord(rec, m_record.get()); })) {
        deleteRecord(m_record.get());
        return;
    }
    m_comment.clear();
    m_defaultHeader = true;
    m_editing = false;
    showEditing();
    showPreview();
    showFileName();
    if (frame())
        frame()->show();
    show();
    raise();
    activateWindow();
    ui->fileEdit->setFocus();
}

/// The frame around the dialog in an area of windows, which does not follow it by itself; else null.
QMdiSubWindow* saverecform::frame() const
{
    return qobject_cast<QMdiSubWindow*>(parentWidget());
}

void saverecform::showPreview()
{
    const QString pattern = QStringLiteral("dd.MM.yy hh:mm:ss");
    // Deliberate: the signals stand in the opposite order to the head of the file.
    const QStringList lines = {
        m_record->start.toString(pattern) + QStringLiteral(" - ") + m_record->stop.toString(pattern),
        QStringLiteral("Kdec = ") + QString::number(m_record->Kdec, 'g', 6) + QStringLiteral(" Band = ")
            + QString::number(m_record->Band) + QStringLiteral(" Channel № = ")
            + QString::number(m_record->ch),
        m_record->meas_sig + QStringLiteral(" - ") + m_record->ref_sig,
        tr("Количество отсчетов: %1").arg(m_record->n_cnt),
    };
    ui->commentEdit->setPlainText(lines.join(QLatin1Char('\n')));
}

void saverecform::showFileName()
{
    QString folder = WorkFolder.absolutePath();
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    const QString zero = m_record->ch <= 10 ? QStringLiteral("0") : QString(); // deliberate: 10 gives "010"
    ui->fileEdit->setText(QDir::toNativeSeparators(folder + m_record->start.toString(QStringLiteral("yyMMdd"))
        + QLatin1Char('_') + zero + QString::number(m_record->ch) + QStringLiteral(".txt")));
}

void saverecform::on_OpenDirBtn_clicked()
{
    const QString folder = prompt::directory(this, tr("Выбрать каталог"), WorkFolder.absolutePath());
    if (folder.isEmpty())
        return;
    WorkFolder.setPath(folder);
    showFileName();
}

void saverecform::showEditing()
{
    ui->commentEdit->setReadOnly(!m_editing);
    ui->commentEdit->setStyleSheet(m_editing ? QStringLiteral("background-color: #ffffff;")
                                             : QStringLiteral("background-color: #f0f0f0;"));
    ui->ChangeCommentBtn->setText(m_editing ? tr("Принять") : tr("Изменить"));
    ui->OKButton->setDisabled(m_editing);
}

void saverecform::on_ChangeCommentBtn_clicked()
{
    m_editing = !m_editing;
    if (!m_editing) {
        m_defaultHeader = false;
        m_comment = commentLines(ui->commentEdit->toPlainText());
        ui->commentEdit->setPlainText(m_comment.join(QLatin1Char('\n')));
    }
    showEditing();
    if (m_editing)
        ui->commentEdit->setFocus();
}

QString saverecform::fileName() const
{
    const QString typed = QDir::fromNativeSeparators(ui->fileEdit->text().trimmed());
    return typed.isEmpty() ? QString() : QDir::cleanPath(WorkFolder.absoluteFilePath(typed));
}

bool saverecform::mayWrite(const QString& file)
{
    const QString shown = QDir::toNativeSeparators(file);
    const QFileInfo info(file);
    QString fault;
    if (file.isEmpty())
        fault = tr("Укажите имя файла.");
    else if (info.exists() && !info.isFile())
        fault = tr("Под именем %1 уже есть каталог или устройство. Укажите другое имя файла.").arg(shown);
    else if (!info.dir().exists())
        fault = tr("Каталога %1 нет. Укажите другой каталог.")
                    .arg(QDir::toNativeSeparators(info.dir().absolutePath()));
    if (!fault.isEmpty()) {
        prompt::message(this, QMessageBox::Warning, windowTitle(), fault);
        return false;
    }
    return !info.exists()
        || prompt::message(this, QMessageBox::Question, windowTitle(),
               tr("Файл %1 уже существует. Заменить его?").arg(shown), QMessageBox::Yes | QMessageBox::No)
        == QMessageBox::Yes;
}

bool saverecform::write(const QString& file)
{
    QSaveFile out(file);
    std::atomic<double> made{0.0}; // share of the samples
    std::atomic<bool> stop{false};
    int failure = 1;
    {
        const Writing writing(this);
        ProgressScope progress(ui->progressBar);
        FormatFileReader writer(QStringLiteral("[t] [x]"));
        writer.setProgress([&](double share) {
            made = share;
            return !stop;
        });
        // Beside this thread, since the disk alone may take seconds.
        const auto save = [&] {
            failure = writer.SaveToASCII(m_record.get(), &out, &m_comment, m_defaultHeader);
        };
        runTasks({save}, [&](double) {
            progress.show(100.0 * made);
            stop = m_stop;
            return true;
        });
    }
    if (failure != 0 && !stop)
        prompt::message(this, QMessageBox::Warning, windowTitle(),
            tr("Не удалось сохранить файл %1.\n%2").arg(QDir::toNativeSeparators(file), out.errorString()));
    return failure == 0;
}

void saverecform::on_OKButton_clicked()
{
    if (SLEEP || m_editing)
        return;
    runGuarded("saverecform::on_OKButton_clicked", [this] {
        const QString file = fileName();
        if (!mayWrite(file) || !write(file))
            return;
        keepFolder(file);
        accept();
    });
}

void saverecform::keepFolder(const QString& file)
{
    const QString folder = QFileInfo(file).absolutePath();
    WorkFolder.setPath(folder);
    if (m_startPath)
        *m_startPath = folder;
}

void saverecform::on_CancelButton_clicked()
{
    reject();
}

void saverecform::reject()
{
    if (m_writing)
        m_stop = true;
    else
        QDialog::reject();
}

void saverecform::done(int result)
{
    deleteRecord(m_record.get());
    QDialog::done(result);
    if (frame())
        frame()->hide();
}

void saverecform::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        showEditing();
        if (m_defaultHeader && !m_editing)
            showPreview();
    }
    QDialog::changeEvent(event);
}
