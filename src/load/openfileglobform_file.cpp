#include "load/openfileglobform.h"

#include "load/addnewformat_class.h"
#include "load/channeltable.h"
#include "load/core/fileguess.h"
#include "load/core/preview.h"
#include "load/core/winprop.h"
#include "load/fieldtext.h"
#include "load/pathhistory.h"
#include "prompt/prompt.h"
#include "ui_openfileglobform.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSignalBlocker>
#include <QStandardPaths>

namespace {

/// Rows of the template list that cannot be removed: the head line and four templates.
constexpr int lastProtectedTemplate = 4;

/// Programs that show a text, the first one found wins.
QString textViewer()
{
    for (const char* name : {"kate", "gedit", "gnome-text-editor", "mousepad", "xed", "pluma", "featherpad",
             "leafpad", "xdg-open"}) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(name));
        if (!program.isEmpty())
            return program;
    }
    return {};
}

} // namespace

void OpenFileGlobForm::setUpFilePage()
{
    FieldText::restrict(ui->file_LE_ChNumber, "\\d{0,9}");
    FieldText::restrict(ui->file_LE_Kdec, "\\d{0,9}");
    FieldText::restrict(ui->file_LE_Band, "\\d{0,9}");
    FieldText::restrict(ui->file_LE_Interv, FieldText::numberPattern);
    FieldText::restrict(ui->file_LE_PhaseK, FieldText::numberPattern);
    const QDate today = QDate::currentDate();
    ui->file_DT_StartDate->setDateTime(QDateTime(QDate(today.year(), today.month(), 1), QTime(0, 0)));
    QSizePolicy policy = ui->file_paramFrame->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui->file_paramFrame->setSizePolicy(policy);
    ui->file_paramFrame->hide();
    ui->file_guessFrame->hide();
    fillTypes();
    fillTemplates();
    ui->file_preview->setSource([this](Preview* preview) { return makePreview(preview); });
    // Only what the user picks counts as a choice, not what the program fills in.
    const auto chosen = [this] {
        m_userChose = true;
        ui->file_guessFrame->hide();
    };
    connect(ui->FileFormat_byDevice, QOverload<int>::of(&QComboBox::activated), this, chosen);
    connect(ui->file_Combo_Formats, QOverload<int>::of(&QComboBox::activated), this, chosen);
    connect(m_templateDialog, &addNewFormat_class::newFormat, this, &OpenFileGlobForm::addNewFormat);
    connect(m_templateDialog, &addNewFormat_class::newFormat, this, chosen);
    connect(m_templateDialog, &addNewFormat_class::formatEdited, this, [this](const QString& format) {
        m_edited = format;
        ui->file_preview->refresh();
    });
    connect(m_templateDialog, &QDialog::finished, this, [this] {
        m_edited.clear();
        m_replaced.clear();
        ui->file_preview->refresh();
    });
}

/// The path fields offer the files and directories of earlier loads.
void OpenFileGlobForm::fillHistory()
{
    QStringList directories;
    for (const QString& directory : m_prop->openedPathS)
        directories << (directory.endsWith(QLatin1Char('/')) ? directory : directory + QLatin1Char('/'));
    m_history->offer(directories, tr("Прежние файлы и каталоги"));
    m_folderHistory->offer(m_prop->openedPathS, tr("Прежние каталоги"));
}

void OpenFileGlobForm::add_file_LE_Path(const QString& path)
{
    m_history->add(path, m_prop->openedPath_MaxNum);
    fillHistory();
}

void OpenFileGlobForm::keepOpenedPath(const QString& directory)
{
    m_prop->openedPathS.removeAll(directory);
    m_prop->openedPathS.prepend(directory);
    while (m_prop->openedPathS.size() > qMax(1, m_prop->openedPath_MaxNum))
        m_prop->openedPathS.removeLast();
    fillHistory();
}

void OpenFileGlobForm::setProp(OpenGlobForm_winProp* prop)
{
    m_prop = prop;
    ui->kat_frame->channelTable()->setShown(
        prop->extChannels ? ChannelTable::mostChannels : ChannelTable::usualChannels);
    fillTemplates();
    fillHistory();
    showNamedFormats(ui->file_format2->name());
}

int OpenFileGlobForm::GetFile_Format(QString fileName, QDateTime& start)
{
    const FileGuess guess = guessFile(fileName, QDateTime::currentDateTime());
    start = guess.start;
    return int(guess.kind);
}

void OpenFileGlobForm::AutoFormat(QString fileName)
{
    QDateTime start;
    const int type = GetFile_Format(fileName, start);
    const QSignalBlocker quiet(ui->FileFormat_byDevice);
    ui->FileFormat_byDevice->setCurrentIndex(type);
    setStart(start);
    fillByType(type);
    ui->file_guessFrame->hide();
}

void OpenFileGlobForm::setStart(QDateTime start)
{
    // The field shows whole seconds, so it holds no more than these.
    start.setTime(QTime(start.time().hour(), start.time().minute(), start.time().second()));
    ui->file_DT_StartDate->setDateTime(start);
}

/// Offers the guess on a new file: it is taken at once until the user has chosen a type or template, then it
/// is only told. The start belongs to the file and is taken anyhow.
void OpenFileGlobForm::propose(const QString& path)
{
    if (!m_userChose) {
        AutoFormat(path);
        return;
    }
    QDateTime start;
    const FileKind kind = FileKind(GetFile_Format(path, start));
    setStart(start);
    const bool known = kind == FileKind::Hrl314 || kind == FileKind::Hrl315;
    const bool taken = ui->FileFormat_byDevice->currentIndex() == int(kind)
        && ui->file_Combo_Formats->currentText() == templateFor(kind);
    ui->file_guessFrame->setVisible(known && !taken);
    QString format = templateFor(kind);
    format.replace(QLatin1Char(' '), QChar::Nbsp); // it stays on one line
    ui->file_guessLbl->setText(
        tr("Файл похож на %1, шаблон %2").arg(ui->FileFormat_byDevice->itemText(int(kind)), format));
}

void OpenFileGlobForm::on_file_guessBtn_clicked()
{
    m_userChose = false;
    AutoFormat(ui->file_LE_Path->text());
}

void OpenFileGlobForm::on_FileFormat_byDevice_currentIndexChanged(int index)
{
    fillByType(index);
}

void OpenFileGlobForm::on_file_Combo_Formats_currentIndexChanged(int index)
{
    ui->file_EditFrmtBtn->setEnabled(index > lastProtectedTemplate);
    ui->file_preview->refresh();
}

void OpenFileGlobForm::fillByType(int type)
{
    ui->file_LE_Interv->setText(QStringLiteral("1"));
    ui->file_LE_PhaseK->setText(QStringLiteral("1e-6"));
    if (type <= int(FileKind::Unknown))
        return;
    const int row = ui->file_Combo_Formats->findText(templateFor(FileKind(type)));
    if (row > 0)
        ui->file_Combo_Formats->setCurrentIndex(row);
}

void OpenFileGlobForm::fillTypes()
{
    // In the order of FileKind.
    ui->FileFormat_byDevice->addItems({QStringLiteral("Select file"), QStringLiteral("HRL-314"),
        QStringLiteral("HRL-315"), tr("Другой формат")});
    ui->FileFormat_byDevice->setCurrentIndex(
        ui->FileFormat_byDevice->findText(QStringLiteral("Select file")));
}

void OpenFileGlobForm::fillTemplates()
{
    const QString chosen =
        ui->file_Combo_Formats->currentIndex() > 0 ? ui->file_Combo_Formats->currentText() : QString();
    ui->file_Combo_Formats->clear();
    ui->file_Combo_Formats->addItem(tr("Выберите формат"));
    ui->file_Combo_Formats->addItems(m_prop->formats);
    ui->file_Combo_Formats->setCurrentIndex(qMax(0, m_prop->formats.indexOf(chosen) + 1));
}

void OpenFileGlobForm::addNewFormat(QString format)
{
    if (format.isEmpty())
        return;
    QStringList& formats = m_prop->formats;
    if (!formats.contains(format)) {
        const int place = m_replaced.isEmpty() ? -1 : formats.indexOf(m_replaced);
        if (place >= lastProtectedTemplate)
            formats[place] = format;
        else
            formats << format;
        while (formats.size() > qMax(m_prop->frmt_MaxNum, lastProtectedTemplate + 1))
            formats.removeAt(lastProtectedTemplate);
        fillTemplates();
    }
    ui->file_Combo_Formats->setCurrentIndex(formats.indexOf(format) + 1);
}

void OpenFileGlobForm::on_file_AddFrmtBtn_clicked()
{
    const bool chosen = ui->file_Combo_Formats->currentIndex() > 0;
    editTemplate(chosen ? ui->file_Combo_Formats->currentText() : QString(), false);
}

void OpenFileGlobForm::on_file_EditFrmtBtn_clicked()
{
    if (ui->file_Combo_Formats->currentIndex() > lastProtectedTemplate)
        editTemplate(ui->file_Combo_Formats->currentText(), true);
}

void OpenFileGlobForm::editTemplate(const QString& format, bool replace)
{
    m_replaced = replace ? format : QString();
    m_edited = format;
    m_templateDialog->edit(format);
    ui->file_preview->refresh();
}

void OpenFileGlobForm::on_file_DelFrmtBtn_clicked()
{
    const int row = ui->file_Combo_Formats->currentIndex();
    if (row < 0)
        return;
    if (row > lastProtectedTemplate) {
        m_prop->formats.removeAt(row - 1);
        ui->file_Combo_Formats->removeItem(row);
        return;
    }
    // Deliberate: the text says four, the head line is protected too.
    prompt::message(this, QMessageBox::Information, tr("Удаление шаблона"),
        tr("Возможно удаление только пользовательских форматов,\n")
            + tr("четыре стандартных формата удалить нельзя.\n"));
}

void OpenFileGlobForm::on_file_OpenBtn_clicked()
{
    const QFileInfo current(ui->file_LE_Path->text());
    QString start = m_prop->openedPathS.value(0, QDir::homePath());
    if (!ui->file_LE_Path->text().isEmpty() && current.dir().exists())
        start = current.exists() ? current.filePath() : current.path();
    const QString file = prompt::openFile(this, tr("Выбрать файл"), start,
        tr("Текстовые файлы (*.txt *.dat *.csv *.asc);;Записи программ компаратора (*.inf);;Все файлы (*)"));
    if (!file.isEmpty())
        ui->file_LE_Path->setText(file);
}

void OpenFileGlobForm::on_file_LE_Path_textChanged(const QString& path)
{
    ui->file_paramFrame->setVisible(!path.isEmpty());
    ui->file_preview->refresh();
    showForwardText();
    // The guess runs once a file, so that it does not undo what the user has filled in since.
    if (path == m_guessedPath)
        return;
    ui->file_guessFrame->hide();
    if (FieldText::isRecordingPath(path) || !QFileInfo(path).isFile())
        return;
    m_guessedPath = path;
    propose(path);
}

/// The preview of the template tab: the file as the chosen template cuts it, or the one that is being typed.
QString OpenFileGlobForm::makePreview(Preview* preview) const
{
    const QString path = ui->file_LE_Path->text();
    if (path.isEmpty())
        return tr("Здесь появится начало файла, разобранное по шаблону.");
    const QString fault = FieldText::fileFault(path);
    if (!fault.isEmpty())
        return fault;
    if (FieldText::isRecordingPath(path))
        return tr("Это файл записи программ компаратора.");
    // The head line of the list stands for the first template.
    const int row = qMax(1, ui->file_Combo_Formats->currentIndex());
    QString format = ui->file_Combo_Formats->itemText(row);
    if (m_templateDialog->isVisible()) {
        if (m_edited.isEmpty())
            return tr("Шаблон пока не закончен.");
        format = m_edited;
    }
    *preview = previewTemplate(path, format);
    return {};
}

void OpenFileGlobForm::on_file_ViewBtn_clicked()
{
    const QString path = ui->file_LE_Path->text();
    if (!QFileInfo(path).isFile()) {
        say(tr("Файл не выбран\n"));
        return;
    }
    const QString program = textViewer();
    if (program.isEmpty()) {
        say(tr("Не найдена программа просмотра текста."));
        return;
    }
    if (viewProcess->state() != QProcess::NotRunning) {
        viewProcess->terminate();
        viewProcess->waitForFinished(1000);
    }
    viewProcess->start(program, {path});
}
