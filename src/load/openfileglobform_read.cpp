#include "load/openfileglobform.h"

#include "base/globals.h"
#include "load/core/asciirecord.h"
#include "load/core/fileguess.h"
#include "load/fieldtext.h"
#include "record/record.h"
#include "store/schedule.h"
#include "ui_openfileglobform.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace {

constexpr int mostListedLines = 200;
constexpr int greatestChannel = 32;

/// What must be right for a read: all bits but those of the two signal names.
constexpr int neededFields = 0xf3;

} // namespace

void OpenFileGlobForm::forwardFromFile()
{
    if (viewProcess->state() != QProcess::NotRunning)
        viewProcess->terminate();
    if (FieldText::isRecordingPath(ui->file_LE_Path->text())) {
        forwardFromRecordingFile();
        return;
    }
    sch->clearSelection();
    AsciiRequest request;
    const bool enough = checkFields(&request);
    takeTemplate(&request);
    if (!enough)
        return;
    m_records.clear();
    if (!readFile(request))
        return;
    keepOpenedPath(QFileInfo(request.fileName).absolutePath());
    add_file_LE_Path(request.fileName);
    m_lastPath = request.fileName;
    sendRecords(request);
    finishLoading();
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
    const double multiplier = FieldText::number(ui->file_LE_PhaseK->text(), &ok);
    phKoefUser = ok ? multiplier : 1.0;
    request->multiplier = phKoefUser;
    request->start = ui->file_DT_StartDate->dateTime();
    check(6, request->start.isValid(), tr("Дата начала измерений введена некорректно\n"));
    request->channel = ui->file_LE_ChNumber->text().toInt(&ok);
    check(5, ok && request->channel >= 1 && request->channel <= greatestChannel,
        tr("Номер канала не указан\n"));
    request->interval = FieldText::number(ui->file_LE_Interv->text(), &ok);
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
    if (!faults.isEmpty()) {
        const bool named = !request->fileName.isEmpty() && !(mask & 1 << 7);
        say(faults,
            named ? QStringList{QDir::toNativeSeparators(request->fileName),
                FieldText::fileFault(request->fileName)}
                  : QStringList());
    }
    // Deliberate: a missing signal name is told, and the read goes on with the default name.
    return (mask & neededFields) == neededFields;
}

void OpenFileGlobForm::takeTemplate(AsciiRequest* request)
{
    if (ui->file_Combo_Formats->currentIndex() <= 0)
        ui->file_Combo_Formats->setCurrentIndex(1);
    request->format = ui->file_Combo_Formats->currentText();
}

bool OpenFileGlobForm::readFile(const AsciiRequest& request)
{
    m_request = std::make_unique<AsciiRequest>(request);
    m_file = std::make_unique<AsciiFile>(request);
    withProgress([this](const Progress& progress) { m_file->read(progress); });
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
        const QString text =
            tr("При чтении файла по шаблону ") + m_request->format + tr(" возникли ошибки, продолжить?");
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
    const QString path = QDir::toNativeSeparators(m_request->fileName);
    const QString format = m_request->format;
    const QString misfit =
        tr("Формат чтения файла указан некорректно,\nпопробуйте открыть файл через окно загрузки данных");
    switch (result.status) {
    case AsciiStatus::CannotOpen:
        return tr("Не удалось открыть файл\n%1\n%2").arg(path, result.systemError);
    case AsciiStatus::ReadError:
        return tr("Не удалось прочитать файл\n%1\n%2").arg(path, result.systemError);
    case AsciiStatus::TemplateRefused:
        return m_reopening
            ? misfit
            : tr("Шаблоном %1 нельзя прочитать файл: в нем ошибка.\nВыберите другой шаблон.").arg(format);
    case AsciiStatus::NoDataColumn:
        return m_reopening ? misfit
                           : tr("В шаблоне %1 нет столбца данных.\nВыберите другой шаблон.").arg(format);
    case AsciiStatus::BadInterval:
        return tr("Интервал между отсчетами не указан\n");
    case AsciiStatus::BadStart:
        return tr("Дата начала измерений введена некорректно\n");
    case AsciiStatus::TooLong:
        return tr("В файле слишком много отсчетов для одной записи.");
    default:
        return m_reopening
            ? misfit
            : tr(
                "В файле нет данных, соответствующих шаблону %1.\nПроверьте файл или выберите другой шаблон.")
                  .arg(format);
    }
}

void OpenFileGlobForm::sendRecords(const AsciiRequest& request)
{
    const QStringList names = m_file->columnNames();
    const int columns = names.size();
    for (int column = 0; column < columns; ++column) {
        m_records.push_back(std::make_unique<Record>());
        m_records.back()->ch = request.channel + column;
    }
    m_tableFull = false;
    QStringList skipped;
    // The further columns go out first, the first one last.
    for (int i = 1; i <= columns; ++i) {
        const int column = i % columns;
        if (!m_tableFull) {
            m_column = column;
            readASCIIData(m_records[std::size_t(column)].get());
        }
        if (m_tableFull)
            skipped << tr("%1, столбец %2, канал %3")
                           .arg(QFileInfo(request.fileName).fileName(), names.at(column),
                               QString::number(request.channel + column));
    }
    m_column = 0;
    m_file.reset();
    tellSkipped(skipped);
}

void OpenFileGlobForm::readASCIIData(Record* rec)
{
    sizeIndex(rec->ch);
    if (!m_file || m_file->fill(rec, m_column, rec->ch) != AsciiStatus::Ok)
        return;
    if (!Reopening)
        SaveRecInfo(rec, recentAscii, m_request->fileName, m_request->format);
    emit RecReady(rec);
}
