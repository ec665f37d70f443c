#include "load/openfileglobform.h"

#include "base/busyguard.h"
#include "base/globals.h"
#include "load/core/asciirecord.h"
#include "load/core/recententry.h"
#include "load/fieldtext.h"
#include "prompt/guard.h"
#include "record/record.h"
#include "ui_openfileglobform.h"

#include <QDir>
#include <QHeaderView>
#include <QScopeGuard>

namespace {

enum RecentColumn { Signals, Channel, Start, Stop, Samples, Path, columnCount };

/// The names of the signals in the text of an entry, which ends with the channel and the path.
QString signalNames(const RecentRecs& entry)
{
    const QString channel = QStringLiteral(", %1").arg(entry.ch);
    if (entry.str.endsWith(channel))
        return entry.str.chopped(channel.size());
    const int at = entry.str.indexOf(channel + QLatin1Char(':'));
    return at > 0 ? entry.str.left(at) : entry.str;
}

/// An entry that was never filled: so stands the list before the configuration has been read.
bool isBlank(const RecentRecs& entry)
{
    return entry.type == 0 && entry.str.isEmpty() && !entry.start.isValid();
}

} // namespace

void OpenFileGlobForm::setUpRecentPage()
{
    ui->RecRecsTable->setColumnCount(columnCount);
    QHeaderView* head = ui->RecRecsTable->horizontalHeader();
    head->setSectionResizeMode(QHeaderView::ResizeToContents);
    head->setSectionResizeMode(Signals, QHeaderView::Stretch);
    head->setSectionResizeMode(Path, QHeaderView::Stretch);
    head->setHighlightSections(false);
    ui->RecRecsTable->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    fillRecent();
}

void OpenFileGlobForm::fillRecent()
{
    QTableWidget* table = ui->RecRecsTable;
    table->setHorizontalHeaderLabels(
        {tr("Сигналы"), tr("Канал"), tr("Начало"), tr("Конец"), tr("Отсчетов"), tr("Файл")});
    table->setRowCount(0);
    const QVector<RecentRecs> entries = recentRecords();
    const QString dateFormat = QStringLiteral("dd.MM.yyyy\nhh:mm:ss");
    for (int i = 0; i < entries.size(); ++i) {
        const RecentRecs& entry = entries.at(i);
        if (isBlank(entry))
            continue;
        const QString path = entry.dir.path();
        const QString fault =
            entry.type == recentAscii ? FieldText::fileFault(path) : FieldText::directoryFault(path);
        const QString texts[columnCount] = {signalNames(entry), QString::number(entry.ch),
            entry.start.toString(dateFormat), entry.stop.toString(dateFormat), QString::number(entry.num),
            QDir::toNativeSeparators(path)};
        const QString whole = texts[Signals] + QLatin1Char('\n') + texts[Path];
        const QString tip = fault.isEmpty() ? whole : whole + QLatin1Char('\n') + fault;
        const int row = table->rowCount();
        table->insertRow(row);
        for (int column = 0; column < columnCount; ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            item->setToolTip(tip);
            if (!fault.isEmpty())
                item->setForeground(palette().color(QPalette::Disabled, QPalette::Text));
            table->setItem(row, column, item);
        }
        table->item(row, Signals)->setData(Qt::UserRole, i);
        table->item(row, Signals)->setCheckState(Qt::Unchecked);
        table->item(row, Channel)->setTextAlignment(Qt::AlignCenter);
        table->item(row, Samples)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
}

void OpenFileGlobForm::forwardFromRecent()
{
    QVector<int> rows;
    for (int row = 0; row < ui->RecRecsTable->rowCount(); ++row) {
        if (ui->RecRecsTable->item(row, Signals)->checkState() == Qt::Checked)
            rows << row;
    }
    if (rows.isEmpty())
        tell(tr("Отметьте записи, которые нужно загрузить."));
    else
        loadRecent(rows);
}

void OpenFileGlobForm::on_RecRecsTable_itemDoubleClicked(QTableWidgetItem* item)
{
    if (SLEEP || !item)
        return;
    const int row = item->row(); // the item may go while the record is loaded
    runGuarded("OpenFileGlobForm::on_RecRecsTable_itemDoubleClicked", [this, row] { loadRecent({row}); });
}

/// Loads the entries of these rows in turn, until the user stops it. Those that are not loaded stay checked.
void OpenFileGlobForm::loadRecent(const QVector<int>& rows)
{
    const QVector<RecentRecs> entries = recentRecords();
    m_records.clear();
    m_tableFull = m_stop = false;
    QStringList skipped;
    QVector<int> failed;
    for (const int row : rows) {
        const RecentRecs entry =
            entries.value(ui->RecRecsTable->item(row, Signals)->data(Qt::UserRole).toInt());
        bool loaded = false;
        if (!m_tableFull && !m_stop) {
            const BusyGuard busy;
            loaded = reopen(entry);
        }
        if (m_tableFull)
            skipped << entry.str;
        if (!loaded || m_tableFull)
            failed << row;
    }
    tellSkipped(skipped);
    showPage(RecentRecords);
    for (int row = 0; row < ui->RecRecsTable->rowCount(); ++row)
        ui->RecRecsTable->item(row, Signals)
            ->setCheckState(failed.contains(row) ? Qt::Checked : Qt::Unchecked);
    if (failed.isEmpty())
        finishLoading();
    else if (!m_tableFull)
        tell(tr("Не загружены отмеченные записи: %1 из %2").arg(failed.size()).arg(rows.size()));
}

void OpenFileGlobForm::SaveRecInfo(Record* rec, int type, QString dir, QString format)
{
    if (type == recentAscii && m_request)
        enterRecentRecord(*rec, type, dir, format, m_request->multiplier, m_column);
    else
        enterRecentRecord(*rec, type, dir, format);
}

void OpenFileGlobForm::GiveSpecRec(RecentRecs r)
{
    if (SLEEP)
        return;
    m_records.clear();
    m_tableFull = false;
    bool loaded = false;
    runGuarded("OpenFileGlobForm::GiveSpecRec", [this, &r, &loaded] {
        const BusyGuard busy;
        showPage(r.type == recentAscii ? File : FolderParameters);
        loaded = reopen(r);
    });
    if (loaded)
        emit AllRecsAdded();
}

/// How the file of an entry is to be read; what an older list does not tell comes from the page.
AsciiRequest OpenFileGlobForm::requestFor(const RecentRecs& entry) const
{
    AsciiRequest request;
    request.fileName = entry.dir.path();
    request.format = entry.format;
    request.start = entry.start;
    request.channel = entry.ch;
    request.interval = recentInterval(entry);
    request.mask = ChannelGiven | IntervalGiven;
    const auto give = [&request](AsciiGiven field, bool told) { request.mask |= told ? field : 0; };
    request.band = entry.band;
    give(BandGiven, entry.band > 0);
    request.referenceName = entry.ref;
    give(ReferenceGiven, !entry.ref.isEmpty());
    request.measuredName = entry.meas;
    give(MeasuredGiven, !entry.meas.isEmpty());
    bool ok = false;
    const double multiplier = FieldText::number(ui->file_LE_PhaseK->text(), &ok);
    request.multiplier = entry.multiplier != 0.0 ? entry.multiplier : ok ? multiplier : 1.0;
    return request;
}

/// Puts an entry into the fields of the file page.
void OpenFileGlobForm::showRequest(const AsciiRequest& request)
{
    setStart(request.start);
    ui->file_LE_Interv->setText(FieldText::text(request.interval));
    ui->file_LE_PhaseK->setText(FieldText::text(request.multiplier));
    ui->file_LE_ChNumber->setText(QString::number(request.channel));
    if (request.mask & ReferenceGiven)
        ui->file_LE_RefName->setText(request.referenceName);
    if (request.mask & MeasuredGiven)
        ui->file_LE_MeasName->setText(request.measuredName);
    if (request.mask & BandGiven)
        ui->file_LE_Band->setText(QString::number(request.band));
    const int row = ui->file_Combo_Formats->findText(request.format);
    if (row > 0)
        ui->file_Combo_Formats->setCurrentIndex(row);
}

bool OpenFileGlobForm::reopen(const RecentRecs& entry)
{
    return entry.type == recentAscii ? reopenText(entry) : reopenRecording(entry);
}

bool OpenFileGlobForm::reopenText(const RecentRecs& entry)
{
    const QString path = entry.dir.path();
    const QString fault = FieldText::fileFault(path);
    if (!fault.isEmpty()) {
        say(tr("Не удалось открыть файл\n%1\n%2").arg(QDir::toNativeSeparators(path), fault));
        return false;
    }
    ui->file_tabWidget->setCurrentWidget(ui->file_format1);
    ui->file_LE_Path->setText(path);
    const AsciiRequest request = requestFor(entry);
    showRequest(request);
    phKoefUser = request.multiplier;
    // An entry that is opened again is in the list already, so it is not entered once more.
    const auto restore = qScopeGuard([this, before = Reopening] {
        Reopening = before;
        m_reopening = false;
    });
    Reopening = m_reopening = true;
    if (!readFile(request))
        return false;
    const int columns = m_file->columnNames().size();
    m_column = recentColumn(recentRecords(), entry, columns);
    m_records.push_back(std::make_unique<Record>());
    Record* rec = m_records.back().get();
    rec->ch = entry.ch;
    rec->devType = entry.devType == char(-1) ? quint16(65535) : quint16(quint8(entry.devType));
    readASCIIData(rec);
    m_column = 0;
    m_file.reset();
    m_lastPath = path;
    return true;
}
