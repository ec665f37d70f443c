#include "load/columnpage.h"

#include "load/core/columnfile.h"
#include "load/core/columnlist.h"
#include "load/core/preview.h"
#include "load/fieldtext.h"
#include "ui_columnpage.h"

#include <QDir>
#include <QFileInfo>
#include <QListWidget>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

/// Of the rows of the separator list, in their order; the first one means any run of white space.
const char* const separators[] = {" ", ",", ";", "|", "  "};
/// ReadFormat::dataType of the rows of the data type list.
constexpr short dataTypes[] = {0, 4, 1, 2, 3};

double numberOrOne(const QLineEdit* field)
{
    bool ok = false;
    const double value = FieldText::number(field->text(), &ok);
    return ok ? value : 1.0;
}

QString textOf(double number)
{
    return QString::number(number, 'g', 12);
}

/// Shows a column that counts from 0 in a field that counts from 1. A damaged format may name any number.
void showColumn(QSpinBox* field, int column)
{
    field->setValue(qBound(-1, column, greatestColumn - 1) + 1);
}

void showRow(QComboBox* list, int row)
{
    list->setCurrentIndex(row < 0 ? 0 : row);
}

} // namespace

ColumnPage::ColumnPage(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui_ColumnPage>())
{
    ui->setupUi(this);
    fillChoices();
    restrictFields();
    connectFields();
    const QDate today = QDate::currentDate();
    ui->file_DT_Start->setDateTime(QDateTime(QDate(today.year(), today.month(), 1), QTime(0, 0)));
    ui->file_preview_2->setSource([this](Preview* preview) {
        if (m_shown.isEmpty())
            return tr("Добавьте файлы или перетащите их в это окно:\nздесь появится начало первого из них.");
        const QString fault = FieldText::fileFault(m_shown.constFirst());
        if (fault.isEmpty())
            *preview = previewColumns(m_shown.constFirst(), format());
        return fault;
    });
    showFiles();
    showStates();
}

ColumnPage::~ColumnPage() = default;

void ColumnPage::restrictFields()
{
    FieldText::restrict(ui->file_LE_DataCols, "[-0-9,; ]{0,200}");
    FieldText::restrict(ui->file_LE_TimeUnit, FieldText::numberPattern);
    FieldText::restrict(ui->file_LE_Interv_2, FieldText::numberPattern);
    FieldText::restrict(ui->file_LE_Multiplier, FieldText::numberPattern);
    // Three lines; more of the list is scrolled to.
    ui->file_List->setMinimumHeight(ui->file_List->fontMetrics().lineSpacing() * 3 + 8);
    ui->file_List->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
}

void ColumnPage::connectFields()
{
    connect(ui->file_AddBtn, &QPushButton::clicked, this, &ColumnPage::filesWanted);
    for (auto* box : findChildren<QCheckBox*>())
        connect(box, &QCheckBox::toggled, this, &ColumnPage::formatEdited);
    for (auto* field : ui->file_columnFields->findChildren<QLineEdit*>())
        connect(field, &QLineEdit::textChanged, this, &ColumnPage::formatEdited);
    for (auto* list : ui->file_columnFields->findChildren<QComboBox*>())
        connect(list, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ColumnPage::formatEdited);
    connect(ui->file_List, &QListWidget::itemSelectionChanged, this, &ColumnPage::showStates);
    keepOneOf({ui->file_CB_NameDate, ui->file_CB_DateTime, ui->file_CB_Date});
    keepOneOf({ui->file_CB_TimeFormat, ui->file_CB_TimeUnit});
}

/// Of these boxes the user checks at most one. A format from elsewhere may have several.
void ColumnPage::keepOneOf(const QList<QCheckBox*>& boxes)
{
    for (QCheckBox* box : boxes) {
        connect(box, &QCheckBox::clicked, this, [box, boxes](bool checked) {
            for (QCheckBox* other : boxes) {
                if (checked && other != box)
                    other->setChecked(false);
            }
        });
    }
}

void ColumnPage::fillChoices()
{
    ui->file_Combo_Formats_2->addItem(QString());
    for (const char* separator : separators)
        ui->file_Combo_Separator->addItem(QString(), QString::fromLatin1(separator));
    for (const short type : dataTypes)
        ui->file_Combo_DataType->addItem(QString(), type);
    retranslate();
}

void ColumnPage::retranslate()
{
    ui->retranslateUi(this);
    ui->file_Combo_Formats_2->setItemText(0, tr("Не выбран"));
    const QString separatorNames[] = {tr("пробел или табуляция"), tr("запятая"), tr("точка с запятой"),
        tr("вертикальная черта"), tr("двойной пробел")};
    for (int row = 0; row < int(std::size(separators)); ++row)
        ui->file_Combo_Separator->setItemText(row, separatorNames[row]);
    const QString typeNames[] = {
        tr("Фаза"), tr("Частота"), tr("Температура"), tr("Влажность"), tr("Параметр")};
    for (int row = 0; row < int(std::size(dataTypes)); ++row)
        ui->file_Combo_DataType->setItemText(row, typeNames[row]);
    showFiles();
}

void ColumnPage::addFiles(const QStringList& files)
{
    for (const QString& file : files) {
        const QString path = QFileInfo(file).absoluteFilePath();
        if (!m_files.contains(path))
            m_files << path;
    }
    showFiles();
}

void ColumnPage::setFiles(const QStringList& files)
{
    m_files.clear();
    addFiles(files);
}

void ColumnPage::showFiles()
{
    m_shown = m_files;
    if (ui->file_CB_NameDate->isChecked())
        m_shown = sortedByNameDate(m_files, ui->file_LE_NameDate->text());
    const QStringList selected = selectedFiles();
    const QSignalBlocker quiet(ui->file_List);
    ui->file_List->clear();
    const auto add = [&](const QString& path, const QString& text, const QString& fault) {
        auto* item = new QListWidgetItem(text, ui->file_List);
        item->setData(Qt::UserRole, path);
        const QString shownPath = QDir::toNativeSeparators(path);
        item->setToolTip(fault.isEmpty() ? shownPath : shownPath + QLatin1Char('\n') + fault);
        if (!fault.isEmpty())
            item->setForeground(palette().color(QPalette::Disabled, QPalette::Text));
        item->setSelected(selected.contains(path));
    };
    for (int i = 0; i < m_shown.size(); ++i)
        add(m_shown.at(i), QStringLiteral("%1. %2").arg(i + 1).arg(QFileInfo(m_shown.at(i)).fileName()),
            FieldText::fileFault(m_shown.at(i)));
    for (const QString& path : m_files) {
        if (!m_shown.contains(path))
            add(path, tr("%1 (нет даты в имени)").arg(QFileInfo(path).fileName()),
                tr("Файл не будет прочитан: в его имени нет даты."));
    }
    ui->file_preview_2->refresh();
    showStates();
}

/// The paths that are selected in the list.
QStringList ColumnPage::selectedFiles() const
{
    QStringList paths;
    for (const QListWidgetItem* item : ui->file_List->selectedItems())
        paths << item->data(Qt::UserRole).toString();
    return paths;
}

void ColumnPage::on_file_RemoveBtn_clicked()
{
    for (const QString& path : selectedFiles())
        m_files.removeAll(path);
    showFiles();
}

void ColumnPage::on_file_UpBtn_clicked()
{
    moveFile(-1);
}

void ColumnPage::on_file_DownBtn_clicked()
{
    moveFile(1);
}

void ColumnPage::moveFile(int step)
{
    const QStringList selected = selectedFiles();
    const int from = selected.size() == 1 ? m_files.indexOf(selected.constFirst()) : -1;
    if (from < 0 || from + step < 0 || from + step >= m_files.size())
        return;
    m_files.move(from, from + step);
    showFiles();
}

void ColumnPage::formatEdited()
{
    if (sender() == ui->file_CB_NameDate || sender() == ui->file_LE_NameDate)
        showFiles();
    else
        ui->file_preview_2->refresh();
    showStates();
}

/// Fields that have no part in the reading are grey.
void ColumnPage::showStates()
{
    const QStringList selected = selectedFiles();
    const bool byDate = ui->file_CB_NameDate->isChecked();
    const int place = selected.size() == 1 && !byDate ? m_files.indexOf(selected.constFirst()) : -1;
    ui->file_RemoveBtn->setEnabled(!selected.isEmpty());
    ui->file_UpBtn->setEnabled(place > 0);
    ui->file_DownBtn->setEnabled(place >= 0 && place + 1 < m_files.size());
    ui->file_DelFrmtBtn_2->setEnabled(!name().isEmpty());
    const bool allInOne = ui->file_CB_DateTime->isChecked();
    const bool timeColumn = ui->file_SB_TimeCol->value() > 0 && !allInOne;
    ui->file_SB_Skip->setEnabled(ui->file_CB_Skip->isChecked());
    ui->file_SB_TimeCol->setEnabled(!allInOne);
    ui->file_CB_TimeFormat->setEnabled(timeColumn);
    ui->file_LE_TimeFormat->setEnabled(timeColumn && ui->file_CB_TimeFormat->isChecked());
    ui->file_CB_TimeUnit->setEnabled(timeColumn);
    ui->file_LE_TimeUnit->setEnabled(timeColumn && ui->file_CB_TimeUnit->isChecked());
    ui->file_LE_NameDate->setEnabled(byDate);
    ui->file_SB_DateTimeCol->setEnabled(allInOne);
    ui->file_LE_DateTime->setEnabled(allInOne);
    ui->file_SB_DateCol->setEnabled(ui->file_CB_Date->isChecked());
    ui->file_LE_Date->setEnabled(ui->file_CB_Date->isChecked());
    const bool dateKnown = byDate || allInOne || ui->file_CB_Date->isChecked();
    ui->file_DT_Start->setEnabled(ui->file_CB_Start->isChecked() || !dateKnown);
}

ReadFormat ColumnPage::format() const
{
    ReadFormat format;
    format.separator = ui->file_Combo_Separator->currentData().toString();
    format.linesToSkip = ui->file_CB_Skip->isChecked() ? ui->file_SB_Skip->value() : 0;
    format.columnNum_time = ui->file_SB_TimeCol->value() - 1;
    columnsFromText(ui->file_LE_DataCols->text(), &format.columnNum_data);
    format.dateFromFileName_flag = ui->file_CB_NameDate->isChecked();
    format.dateFromFileName_format = ui->file_LE_NameDate->text();
    format.timeFormat_flag = ui->file_CB_TimeFormat->isChecked();
    format.timeFormat_format = ui->file_LE_TimeFormat->text();
    format.timeUnit_flag = ui->file_CB_TimeUnit->isChecked();
    format.timeUnit_format = numberOrOne(ui->file_LE_TimeUnit);
    format.timeStart_flag = ui->file_CB_Start->isChecked();
    format.timeStart_dateTime = ui->file_DT_Start->dateTime();
    format.interval = numberOrOne(ui->file_LE_Interv_2);
    format.dataType = short(ui->file_Combo_DataType->currentData().toInt());
    format.multiplier = numberOrOne(ui->file_LE_Multiplier);
    format.dateFromFileDateTime_flag = ui->file_CB_DateTime->isChecked();
    format.columnNum_datetime = format.dateFromFileDateTime_flag ? ui->file_SB_DateTimeCol->value() - 1 : -1;
    format.dateFromFileDateTime_format = ui->file_LE_DateTime->text();
    format.dateFromFileDate_flag = ui->file_CB_Date->isChecked();
    format.columnNum_date = format.dateFromFileDate_flag ? ui->file_SB_DateCol->value() - 1 : -1;
    format.dateFromFileDate_format = ui->file_LE_Date->text();
    return format;
}

void ColumnPage::setFormat(const ReadFormat& format)
{
    int separator = ui->file_Combo_Separator->findData(format.separator);
    if (separator < 0 && !format.separator.isEmpty()) {
        // One that only the configuration file can give.
        separator = ui->file_Combo_Separator->count();
        ui->file_Combo_Separator->addItem(QStringLiteral("\"%1\"").arg(format.separator), format.separator);
    }
    showRow(ui->file_Combo_Separator, separator);
    ui->file_CB_Skip->setChecked(format.linesToSkip > 0);
    ui->file_SB_Skip->setValue(format.linesToSkip);
    showColumn(ui->file_SB_TimeCol, format.columnNum_time);
    ui->file_LE_DataCols->setText(textFromColumns(format.columnNum_data));
    ui->file_CB_NameDate->setChecked(format.dateFromFileName_flag);
    ui->file_LE_NameDate->setText(format.dateFromFileName_format);
    ui->file_CB_TimeFormat->setChecked(format.timeFormat_flag);
    ui->file_LE_TimeFormat->setText(format.timeFormat_format);
    ui->file_CB_TimeUnit->setChecked(format.timeUnit_flag);
    ui->file_LE_TimeUnit->setText(textOf(format.timeUnit_format));
    ui->file_CB_Start->setChecked(format.timeStart_flag);
    if (format.timeStart_dateTime.isValid())
        ui->file_DT_Start->setDateTime(format.timeStart_dateTime);
    ui->file_LE_Interv_2->setText(textOf(format.interval));
    showRow(ui->file_Combo_DataType, ui->file_Combo_DataType->findData(format.dataType));
    ui->file_LE_Multiplier->setText(textOf(format.multiplier));
    ui->file_CB_DateTime->setChecked(format.dateFromFileDateTime_flag);
    showColumn(ui->file_SB_DateTimeCol, format.columnNum_datetime);
    ui->file_LE_DateTime->setText(format.dateFromFileDateTime_format);
    ui->file_CB_Date->setChecked(format.dateFromFileDate_flag);
    showColumn(ui->file_SB_DateCol, format.columnNum_date);
    ui->file_LE_Date->setText(format.dateFromFileDate_format);
    showFiles();
}

QStringList ColumnPage::faults() const
{
    QStringList lines;
    const auto check = [&lines](bool good, const QString& line) {
        if (!good && !lines.contains(line))
            lines << line;
    };
    const auto filled = [](const QCheckBox* box, const QLineEdit* field) {
        return !box->isChecked() || !field->text().trimmed().isEmpty();
    };
    const bool allInOne = ui->file_CB_DateTime->isChecked();
    const bool timeColumn = ui->file_SB_TimeCol->value() > 0 && !allInOne;
    check(!m_files.isEmpty(), tr("Не выбраны файлы для загрузки!"));
    check(filled(ui->file_CB_NameDate, ui->file_LE_NameDate),
        tr("Не указан формат для чтения даты из имени файла!"));
    const QString noTimeFormat = tr("Не указан формат для чтения меток времени!");
    check(filled(ui->file_CB_DateTime, ui->file_LE_DateTime), noTimeFormat);
    check(allInOne || filled(ui->file_CB_Date, ui->file_LE_Date), noTimeFormat);
    check(!timeColumn || filled(ui->file_CB_TimeFormat, ui->file_LE_TimeFormat), noTimeFormat);
    const bool unitGiven =
        ui->file_CB_TimeUnit->isChecked() && filled(ui->file_CB_TimeUnit, ui->file_LE_TimeUnit);
    check(!timeColumn || ui->file_CB_TimeFormat->isChecked() || unitGiven,
        tr("Не указаны единицы измерения для чтения меток времени!"));
    QList<int> columns;
    const QString named = ui->file_LE_DataCols->text();
    check(!named.trimmed().isEmpty(), tr("Не указаны номера столбцов с данными!"));
    check(named.trimmed().isEmpty() || columnsFromText(named, &columns),
        tr("Ошибка в номерах столбцов с данными: нужны числа от 1 до %1, например 2, 4-6.")
            .arg(greatestColumn));
    return lines;
}

void ColumnPage::setNames(const QStringList& names, const QString& current)
{
    QComboBox* list = ui->file_Combo_Formats_2;
    while (list->count() > 1)
        list->removeItem(1);
    list->addItems(names);
    list->setCurrentIndex(names.indexOf(current) + 1);
    showStates();
}

QString ColumnPage::name() const
{
    const QComboBox* list = ui->file_Combo_Formats_2;
    return list->currentIndex() > 0 ? list->currentText() : QString();
}

void ColumnPage::on_file_Combo_Formats_2_activated(int row)
{
    showStates();
    if (row > 0)
        emit nameChosen(name());
}
