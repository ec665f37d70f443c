#include "load/openfileglobform.h"

#include "base/globals.h"
#include "load/core/asciirecord.h"
#include "load/core/fileguess.h"
#include "load/core/winprop.h"
#include "prompt/progressscope.h"
#include "prompt/prompt.h"
#include "record/record.h"
#include "ui_openfileglobform.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QSignalBlocker>
#include <QStandardPaths>

namespace {

/// Rows of the template list that cannot be removed: the head line and four templates.
constexpr int lastProtectedTemplate = 4;
constexpr int mostListedLines = 200;
constexpr int greatestChannel = 32;

/// What must be right for a read: all bits but those of the two signal names.
constexpr int neededFields = 0xf3;

bool isRecordingPath(const QString& path)
{
    return path.endsWith(QLatin1String(".inf"), Qt::CaseInsensitive);
}

double number(const QString& text, bool* ok)
{
    return QString(text).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(ok);
}

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
    // The field shows whole seconds, so it holds no more than these.
    start.setTime(QTime(start.time().hour(), start.time().minute(), start.time().second()));
    ui->file_DT_StartDate->setDateTime(start);
    fillByType(type);
}

void OpenFileGlobForm::on_FileFormat_byDevice_currentIndexChanged(int index)
{
    fillByType(index);
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
    if (!m_prop->formats.contains(format)) {
        m_prop->formats << format;
        while (m_prop->formats.size() > qMax(m_prop->frmt_MaxNum, lastProtectedTemplate + 1))
            m_prop->formats.removeAt(lastProtectedTemplate);
        fillTemplates();
    }
    ui->file_Combo_Formats->setCurrentIndex(m_prop->formats.indexOf(format) + 1);
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
    const QString file = prompt::openFile(
        this, tr("Выбрать файл"), start, tr("Текстовые файлы (*.txt *.dat *.csv *.asc);;Все файлы (*)"));
    if (!file.isEmpty())
        ui->file_LE_Path->setText(file);
}

void OpenFileGlobForm::on_file_LE_Path_textChanged(const QString& path)
{
    ui->file_paramFrame->setVisible(!path.isEmpty());
    showForwardText();
    // The guess runs once a file, so that it does not undo what the user has filled in since.
    if (path == m_guessedPath || isRecordingPath(path) || !QFileInfo(path).isFile())
        return;
    m_guessedPath = path;
    AutoFormat(path);
}

void OpenFileGlobForm::showForwardText()
{
    ui->Btn_ViewRecList->setText(isRecordingPath(ui->file_LE_Path->text()) ? tr("Далее") : tr("Загрузить"));
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

void OpenFileGlobForm::forwardFromFile()
{
    if (viewProcess->state() != QProcess::NotRunning)
        viewProcess->terminate();
    if (isRecordingPath(ui->file_LE_Path->text())) {
        say(tr("Записи программ компаратора (*.inf) из этого окна пока не загружаются.\nУкажите текстовый "
               "файл с "
               "данными измерений."));
        return;
    }
    AsciiRequest request;
    if (!checkFields(&request))
        return;
    takeTemplate(&request);
    if (!readFile(request))
        return;
    keepOpenedPath(QFileInfo(request.fileName).absolutePath());
    sendRecords(request);
    hide();
    emit AllRecsAdded();
}

bool OpenFileGlobForm::checkFields(AsciiRequest* request)
{
    int mask = 0;
    QString faults;
    const auto check = [&](int bit, bool good, const QString& line) {
        if (good)
            mask |= 1 << bit;
        else
            faults += line;
    };
    bool ok = false;
    request->fileName = ui->file_LE_Path->text();
    check(7, QFileInfo(request->fileName).isFile(), tr("Файл не выбран\n"));
    const double multiplier = number(ui->file_LE_PhaseK->text(), &ok);
    phKoefUser = ok ? multiplier : 1.0;
    request->multiplier = phKoefUser;
    request->start = ui->file_DT_StartDate->dateTime();
    check(6, request->start.isValid(), tr("Дата начала измерений введена некорректно\n"));
    request->channel = ui->file_LE_ChNumber->text().toInt(&ok);
    check(5, ok && request->channel >= 1 && request->channel <= greatestChannel,
        tr("Номер канала не указан\n"));
    request->interval = number(ui->file_LE_Interv->text(), &ok);
    check(4, ok && request->interval > 0.0, tr("Интервал между отсчетами не указан\n"));
    request->referenceName = ui->file_LE_RefName->text();
    check(3, !request->referenceName.isEmpty(), tr("Название опорного сигнала не указано\n"));
    request->measuredName = ui->file_LE_MeasName->text();
    check(2, !request->measuredName.isEmpty(), tr("Название измеряемого сигнала не указано\n"));
    check(1, ui->file_LE_Kdec->text().toInt(&ok) >= 1 && ok, tr("Kdec не указан\n"));
    request->band = ui->file_LE_Band->text().toInt(&ok);
    check(0, ok && request->band >= 1, tr("Полоса пропускания не указана\n"));
    // From here on bit 1 tells of the interval, not of Kdec: both are good in every read.
    request->mask =
        quint8(mask & (BandGiven | IntervalGiven | MeasuredGiven | ReferenceGiven | ChannelGiven));
    if (!faults.isEmpty())
        say(faults);
    // Deliberate: a missing signal name is told, and the read goes on with the default name.
    return (mask & neededFields) == neededFields;
}

void OpenFileGlobForm::takeTemplate(AsciiRequest* request)
{
    if (ui->file_Combo_Formats->currentIndex() <= 0)
        ui->file_Combo_Formats->setCurrentIndex(1);
    request->format = ui->file_Combo_Formats->currentText();
}

/// The look of the dialog while a file is read, and the way back.
struct OpenFileGlobForm::Reading {
    explicit Reading(OpenFileGlobForm* reader)
        : form(reader)
        , focused(reader->focusWidget())
    {
        form->m_reading = true;
        form->showBusy(true);
    }
    ~Reading()
    {
        form->m_reading = false;
        form->showBusy(false);
        if (focused)
            focused->setFocus();
    }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    OpenFileGlobForm* form;
    QPointer<QWidget> focused;
};

bool OpenFileGlobForm::readFile(const AsciiRequest& request)
{
    m_records.clear();
    m_file = std::make_unique<AsciiFile>(request);
    m_stop = false;
    {
        const Reading reading(this);
        ProgressScope progress(ui->progressBar);
        m_file->read([&](double share) {
            progress.show(100.0 * share);
            return !m_stop;
        });
    }
    if (accepted(m_file->result()))
        return true;
    m_file.reset();
    return false;
}

bool OpenFileGlobForm::accepted(const AsciiResult& result)
{
    QStringList lines;
    for (int i = 0; i < qMin(result.badLines.size(), mostListedLines); ++i)
        lines << tr("Несоответствие формата в строке ") + QString::number(result.badLines.at(i));
    if (result.badLines.size() >= mostListedLines)
        lines << tr("и т.д.");
    if (result.status == AsciiStatus::Cancelled)
        return false;
    if (result.status != AsciiStatus::Ok) {
        say(failureText(result), lines);
        return false;
    }
    const bool lenient = ui->FileFormat_byDevice->currentIndex() == int(FileKind::Hrl314);
    if (!lines.isEmpty() && !lenient) {
        const QString text = tr("При чтении файла по шаблону ") + ui->file_Combo_Formats->currentText()
            + tr(" возникли ошибки, продолжить?");
        if (emit showMessage(text, true, QDialogButtonBox::Ok | QDialogButtonBox::Cancel, lines)
            != QDialogButtonBox::Ok)
            return false;
    }
    if (result.stoppedAtLine > 0)
        say(tr("Запись загружена не полностью: некорректный массив меток времени "),
            {tr("Время не растет в строке ") + QString::number(result.stoppedAtLine)});
    return true;
}

QString OpenFileGlobForm::failureText(const AsciiResult& result) const
{
    const QString path = QDir::toNativeSeparators(ui->file_LE_Path->text());
    const QString format = ui->file_Combo_Formats->currentText();
    switch (result.status) {
    case AsciiStatus::CannotOpen:
        return tr("Не удалось открыть файл\n%1\n%2").arg(path, result.systemError);
    case AsciiStatus::ReadError:
        return tr("Не удалось прочитать файл\n%1\n%2").arg(path, result.systemError);
    case AsciiStatus::TemplateRefused:
        return tr("Шаблоном %1 нельзя прочитать файл: в нем ошибка.\nВыберите другой шаблон.").arg(format);
    case AsciiStatus::NoDataColumn:
        return tr("В шаблоне %1 нет столбца данных.\nВыберите другой шаблон.").arg(format);
    case AsciiStatus::BadInterval:
        return tr("Интервал между отсчетами не указан\n");
    case AsciiStatus::BadStart:
        return tr("Дата начала измерений введена некорректно\n");
    case AsciiStatus::TooLong:
        return tr("В файле слишком много отсчетов для одной записи.");
    default:
        return tr(
            "В файле нет данных, соответствующих шаблону %1.\nПроверьте файл или выберите другой шаблон.")
            .arg(format);
    }
}

void OpenFileGlobForm::sendRecords(const AsciiRequest& request)
{
    const int columns = m_file->columnNames().size();
    for (int column = 0; column < columns; ++column) {
        m_records.push_back(std::make_unique<Record>());
        m_records.back()->ch = request.channel + column;
    }
    // The further columns go out first, the first one last.
    for (int column = 1; column < columns; ++column) {
        m_column = column;
        readASCIIData(m_records[std::size_t(column)].get());
    }
    m_column = 0;
    readASCIIData(m_records.front().get());
    m_file.reset();
}

void OpenFileGlobForm::readASCIIData(Record* rec)
{
    if (m_file && m_file->fill(rec, m_column, rec->ch) == AsciiStatus::Ok)
        emit RecReady(rec);
}

void OpenFileGlobForm::keepOpenedPath(const QString& directory)
{
    m_prop->openedPathS.removeAll(directory);
    m_prop->openedPathS.prepend(directory);
    while (m_prop->openedPathS.size() > qMax(1, m_prop->openedPath_MaxNum))
        m_prop->openedPathS.removeLast();
}
