#include "load/openfileglobform.h"

#include "load/core/columnfile.h"
#include "load/core/winprop.h"
#include "prompt/prompt.h"
#include "record/record.h"
#include "ui_openfileglobform.h"

#include <QDir>
#include <QFileInfo>

void OpenFileGlobForm::setUpColumnPage()
{
    ReadFormat format;
    format.dateFromFileName_format = QStringLiteral("yyyyMMdd");
    // What most files are: time in seconds, then one value.
    format.columnNum_time = 0;
    format.columnNum_data = {1};
    format.timeUnit_flag = true;
    format.timeFormat_format = QStringLiteral("hh:mm:ss");
    setFormat(format);
    showNamedFormats(QString());
    connect(ui->file_format2, &ColumnPage::filesWanted, this, [this] {
        const QStringList files = ui->file_format2->files();
        const QString start = files.isEmpty() ? m_prop->openedPathS.value(0, QDir::homePath())
                                              : QFileInfo(files.last()).absolutePath();
        ui->file_format2->addFiles(prompt::openFiles(this, tr("Выбрать файлы"), start,
            tr("Текстовые файлы (*.txt *.dat *.csv *.asc);;Все файлы (*)")));
    });
    connect(ui->file_format2, &ColumnPage::nameChosen, this,
        [this](const QString& name) { setFormat(m_prop->ASCIIformats.value(name)); });
}

ReadFormat OpenFileGlobForm::getFormat()
{
    return ui->file_format2->format();
}

void OpenFileGlobForm::setFormat(ReadFormat const& format)
{
    ui->file_format2->setFormat(format);
}

void OpenFileGlobForm::showNamedFormats(const QString& current)
{
    ui->file_format2->setNames(m_prop->ASCIIformats.keys(), current);
}

void OpenFileGlobForm::on_pushButtonSaveFormat_clicked()
{
    const QString title = tr("Сохранение формата");
    const QString name =
        prompt::text(this, title, tr("Введите название"), ui->file_format2->name()).trimmed();
    if (name.isEmpty())
        return;
    if (m_prop->ASCIIformats.contains(name)
        && prompt::message(this, QMessageBox::Question, title,
               tr("Формат «%1» уже есть. Заменить его?").arg(name), QMessageBox::Yes | QMessageBox::No)
            != QMessageBox::Yes)
        return;
    m_prop->ASCIIformats.insert(name, getFormat());
    showNamedFormats(name);
}

void OpenFileGlobForm::on_file_DelFrmtBtn_2_clicked()
{
    m_prop->ASCIIformats.remove(ui->file_format2->name());
    showNamedFormats(QString());
}

void OpenFileGlobForm::forwardFromColumns()
{
    const QStringList faults = ui->file_format2->faults();
    if (!faults.isEmpty()) {
        say(faults.join(QLatin1Char('\n')));
        return;
    }
    readData_fromFile({ui->file_format2->files(), getFormat()});
}

void OpenFileGlobForm::readData_fromFile(ReadFromFilesInfo info)
{
    m_records.clear();
    ColumnResult result;
    withProgress([&](const Progress& progress) { result = readColumns(info, progress); });
    tell(ColumnTexts::outcome(result));
    if (result.status != ColumnStatus::Ok)
        return;
    keepOpenedPath(QFileInfo(info.fileNames.constFirst()).absolutePath());
    m_records = std::move(result.records);
    m_tableFull = false;
    QStringList skipped;
    for (std::size_t i = 0; i < m_records.size(); ++i) {
        if (!m_tableFull)
            emit RecReady(m_records[i].get());
        if (m_tableFull)
            skipped << tr("%1, столбец %2")
                           .arg(QFileInfo(info.fileNames.constFirst()).fileName())
                           .arg(info.format.columnNum_data.value(int(i)) + 1);
    }
    tellSkipped(skipped);
    // With lines at fault the dialog stays, so that the user sees what the status line tells of them.
    if (result.badLines > 0)
        emit AllRecsAdded();
    else
        finishLoading();
}
