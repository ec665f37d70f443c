#include "load/openfileglobform.h"

#include "base/busyguard.h"
#include "base/globals.h"
#include "load/channeltable.h"
#include "load/core/winprop.h"
#include "load/fieldtext.h"
#include "load/pathhistory.h"
#include "load/recordingreader.h"
#include "prompt/prompt.h"
#include "record/record.h"
#include "store/core/mapstruct.h"
#include "store/schedule.h"
#include "ui_openfileglobform.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QLayout>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QtAlgorithms>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 manyChannelDays = 1099;
constexpr qint64 mostDays = std::numeric_limits<short>::max(); // of an index
constexpr double phaseUnit = 1e-06; // s
constexpr int longestPath = 700; // pixels, in the head of the chart page

/// Also a result of the index that the chart takes; no index gives it.
constexpr int indexedInPart = 3;

/// The day and the channel in the name of a recording's file; an invalid day when there are none.
struct RecordingFile {
    QDate day;
    int channelBit = 0;

    explicit RecordingFile(const QString& path)
    {
        const QString name = QFileInfo(path).completeBaseName();
        const QString digits = name.mid(7).section(QLatin1Char('_'), 0, 0);
        bool ok = false;
        const int channel = digits.toInt(&ok);
        const QDate date = QDate::fromString(name.left(6), QStringLiteral("yyMMdd"));
        if (!ok || channel < 0 || channel > ChannelTable::mostChannels || name.at(6) != QLatin1Char('_'))
            return;
        day = date.isValid() && date.year() < 1951 ? date.addYears(100) : date;
        // Deliberate: also for the older form of files, which counts channels from 0.
        channelBit = std::max(0, channel - 1);
    }
};

} // namespace

void OpenFileGlobForm::setUpFolderPages()
{
    m_map = std::make_unique<mapStruct>(short(1), short(1));
    map = m_map.get();
    sch = new schedule(ui->sch_frame, map);
    ui->sch_frame->layout()->addWidget(sch);
    m_history = new PathHistory(ui->file_LE_Path, QStringLiteral("file_historyAction"));
    m_folderHistory = new PathHistory(ui->kat_frame->pathField(), QStringLiteral("kat_historyAction"));
    ui->kat_frame->channelTable()->setShown(ChannelTable::usualChannels);
    connect(ui->kat_frame->channelTable()->horizontalHeader(), &QHeaderView::sectionClicked, this,
        &OpenFileGlobForm::headerItemClicked);
    connect(ui->kat_frame, &FolderPage::changed, this, [this] { tell(QString()); });
    connect(ui->kat_frame, &FolderPage::directoryWanted, this, [this] {
        const QString given = ui->kat_frame->path();
        const QString start =
            QFileInfo(given).isDir() ? given : m_prop->openedPathS.value(0, QDir::homePath());
        const QString chosen = prompt::directory(this, tr("Выбрать каталог"), start);
        if (!chosen.isEmpty())
            ui->kat_frame->setPath(chosen);
    });
    connect(sch, &schedule::NewRecLoaded, this, &OpenFileGlobForm::SaveRecInfo);
    connect(sch, &schedule::TakeRec, this, [this](Record* rec) {
        if (m_chartTaken++ == 0)
            m_tableFull = false; // another source may have found it full since the last load
        emit RecReady(rec);
    });
    connect(sch, &schedule::AllRecsAdded, this, &OpenFileGlobForm::chartLoaded);
    connect(sch, &schedule::TableIsShown, this, [this](bool table) {
        m_tableShown = table;
        (table ? ui->ViewTabl_btn : ui->ViewSch_btn)->setChecked(true);
    });
}

void OpenFileGlobForm::add_Kat_LE_Path(const QString& path)
{
    m_folderHistory->add(path, m_prop->openedPath_MaxNum);
    fillHistory();
}

void OpenFileGlobForm::on_FromFolderButton_pressed()
{
    showPage(FolderParameters);
}

void OpenFileGlobForm::headerItemClicked(int channel)
{
    ui->kat_frame->channelTable()->toggle(channel);
}

void OpenFileGlobForm::on_kat_selectAllChanBtn_clicked()
{
    ui->kat_frame->channelTable()->chooseAll(true);
}

void OpenFileGlobForm::on_kat_deselectAllChanBtn_clicked()
{
    ui->kat_frame->channelTable()->chooseAll(false);
}

void OpenFileGlobForm::openFolder(const QString& path)
{
    srcMode = FolderParameters;
    ui->kat_frame->setPath(QFileInfo(path).absoluteFilePath());
    myshow(lastRecord);
}

void OpenFileGlobForm::forwardFromFolder()
{
    const FolderPage& page = *ui->kat_frame;
    phKoefUser = phaseUnit;
    const QString fault = FieldText::directoryFault(page.path());
    if (!fault.isEmpty()) {
        say(tr("в данный момент выбранный каталог не доступен"),
            QStringList{QDir::toNativeSeparators(page.path()), fault}.filter(QRegularExpression(".")));
        return;
    }
    const int channels = page.channelTable()->chosenCount();
    const qint64 days = page.firstDate().daysTo(page.lastDate());
    if (days < 0)
        tell(tr("Первый день позже последнего."));
    else if (channels == 0)
        tell(tr("Не выбран ни один канал."));
    else if (days >= mostDays)
        tell(tr("Слишком много дней: можно указать не больше %1.").arg(mostDays));
    else if (days * channels <= manyChannelDays || isManyDaysWanted(days, channels)) {
        m_chartFrom = FolderParameters;
        showIndex(page.path(), page.firstDate(), page.lastDate(), page.channelTable()->mask());
    }
}

bool OpenFileGlobForm::isManyDaysWanted(qint64 days, int channels)
{
    const QString text =
        tr("Вы пытаетесь открыть данные измерений за %1 суток для %2 каналов.\nОбработка может "
           "занять продолжительное время.\nВы уверены, что даты введены корректно?")
            .arg(days)
            .arg(channels);
    return emit showMessage(text, true, QDialogButtonBox::Ok | QDialogButtonBox::Cancel, {})
        == QDialogButtonBox::Ok;
}

/// The file page with a file of a recording: its day and channel go straight to the chart.
void OpenFileGlobForm::forwardFromRecordingFile()
{
    const QFileInfo info(ui->file_LE_Path->text());
    const RecordingFile file(info.fileName());
    if (!file.day.isValid()) {
        say(tr("Имя файла записи должно состоять из даты и номера канала: ггММдд_КК.inf"), {info.fileName()});
        return;
    }
    const QString fault = FieldText::fileFault(info.filePath());
    if (!fault.isEmpty()) {
        say(tr("Файл не выбран\n"), {QDir::toNativeSeparators(info.filePath()), fault});
        return;
    }
    QByteArray mask(ChannelTable::mostChannels / 8, '\0');
    mask[file.channelBit / 8] = char(1 << file.channelBit % 8);
    m_lastPath = info.filePath();
    m_chartFrom = File;
    showIndex(info.absolutePath(), file.day, file.day, mask);
}

/// Indexes a directory and shows the chart of it.
void OpenFileGlobForm::showIndex(
    const QString& directory, const QDate& first, const QDate& last, const QByteArray& channels)
{
    kat_dir = QDir(directory);
    kat_date1 = first;
    kat_date2 = last;
    kat_channels = channels;
    kat_channelCount = 0;
    for (const char bits : channels)
        kat_channelCount += int(qPopulationCount(quint8(bits)));
    sizeIndex(kat_channelCount);
    QVector<mapStruct::Message> messages;
    map->tell = [&messages](const mapStruct::Message& message) { messages << message; };
    int code = mapStruct::notReadable;
    withProgress([&](const Progress& progress) {
        const auto over = qScopeGuard([this] {
            map->progress = {};
            map->tell = {};
        });
        map->progress = progress;
        code = map->readINFFiles(kat_dir, kat_date1, kat_channels);
    });
    if (m_stop) {
        tell(tr("Чтение каталога прервано."));
        return;
    }
    for (const mapStruct::Message& message : qAsConst(messages))
        emit showMessage(message.text, message.critical, QDialogButtonBox::Ok, message.details);
    if (code != mapStruct::indexed && code != indexedInPart && code != mapStruct::filesMissing) {
        say(tr("Во время чтения данных возникли ошибки"));
        return;
    }
    keepOpenedPath(directory);
    add_Kat_LE_Path(directory);
    m_tableFull = false;
    showPage(FolderChart);
    sch->showSchedule(kat_date1, kat_date2, kat_channels, kat_channelCount, kat_dir);
}

/// Sizes the index for the chosen days, which empties it, and empties the chart along with it.
void OpenFileGlobForm::sizeIndex(int channels)
{
    const qint64 days = std::clamp<qint64>(kat_date1.daysTo(kat_date2) + 1, 1, mostDays);
    sch->clearSelection();
    map->setDayChan(short(days), short(channels));
    const QScopedValueRollback<bool> awake(SLEEP, false); // else the chart would keep what is gone
    sch->refreshSch(kat_date1, kat_date2, {}, 0, kat_dir);
}

void OpenFileGlobForm::backFromChart()
{
    showPage(m_chartFrom);
}

/// What the chart shows, for the head of its page.
QString OpenFileGlobForm::indexText() const
{
    const QString form = QStringLiteral("dd.MM.yyyy");
    const QString path = QDir::toNativeSeparators(kat_dir.absolutePath());
    return tr("Каталог %1\nс %2 по %3")
        .arg(fontMetrics().elidedText(path, Qt::ElideMiddle, longestPath), kat_date1.toString(form),
            kat_date2.toString(form));
}

void OpenFileGlobForm::on_ViewSch_btn_clicked()
{
    showView(false);
}

void OpenFileGlobForm::on_ViewTabl_btn_clicked()
{
    showView(true);
}

void OpenFileGlobForm::showView(bool table)
{
    if (SLEEP) // the view stays, and so does the mark of its button
        (m_tableShown ? ui->ViewTabl_btn : ui->ViewSch_btn)->setChecked(true);
    else if (table)
        sch->showTable(kat_date1, kat_date2, kat_channels, kat_channelCount, kat_dir);
    else
        sch->showSchedule(kat_date1, kat_date2, kat_channels, kat_channelCount, kat_dir);
}

/// A load of the chart has ended. With all chosen records in the table the dialog goes; otherwise it stays
/// with what the chart tells.
void OpenFileGlobForm::chartLoaded()
{
    const bool all = m_chartTaken == sch->selected.size() && !m_tableFull;
    m_chartTaken = 0;
    m_tableFull = false;
    if (all)
        finishLoading();
    else
        emit AllRecsAdded();
}

/// False when the user wants to hear no more of it.
bool OpenFileGlobForm::tellShortDay(const QString& text)
{
    const auto pressed = prompt::message(this, QMessageBox::Warning, tr("Загрузка записи"), text,
        QMessageBox::Ignore | QMessageBox::Ok,
        {{QMessageBox::Ignore, tr("Больше не показывать")}, {QMessageBox::Ok, tr("OK")}});
    return pressed != QMessageBox::Ignore;
}

/// Reads a recording that was loaded before and sends it.
bool OpenFileGlobForm::sendKnownRecording(const KnownRecording& known, const Progress& progress)
{
    m_records.push_back(std::make_unique<Record>());
    Record* rec = m_records.back().get();
    const KnownRecordingResult result =
        readKnownRecording(known, rec, progress, [this](const QString& text) { return tellShortDay(text); });
    QStringList lines;
    for (const QString& file : result.missing)
        lines << QDir::toNativeSeparators(file)
                + tr(
                    ". Невозможно открыть файл, возможно запись измерений еще не началась. Повторите попытку "
                    "позже.");
    if (!lines.isEmpty())
        say(lines.first(), lines.mid(1));
    for (const mapStruct::Message& message : result.messages)
        say(message.title.trimmed() + QLatin1Char('\n') + message.text, message.details);
    if (result.outcome != RecordingLoad::Outcome::Loaded && result.outcome != RecordingLoad::Outcome::Partial)
        return false;
    emit RecReady(rec);
    return true;
}

bool OpenFileGlobForm::reopenRecording(const RecentRecs& entry)
{
    const QString path = entry.dir.absolutePath();
    const QString fault = FieldText::directoryFault(path);
    if (!fault.isEmpty()) {
        say(tr("Не удалось открыть каталог\n%1\n%2").arg(QDir::toNativeSeparators(path), fault));
        return false;
    }
    const bool channel = entry.ch >= 1 && entry.ch <= mostRecordingChannels;
    if (!channel || !entry.start.isValid() || entry.stop < entry.start) { // a damaged list
        say(tr("Запись не загружена: %1").arg(entry.str));
        return false;
    }
    FolderPage& page = *ui->kat_frame;
    page.setPath(path);
    page.setDates(entry.start.date(), entry.stop.date());
    KnownRecording known;
    known.directory = path;
    known.channel = entry.ch;
    known.start = entry.start;
    known.stop = entry.stop;
    known.interval = entry.interval;
    bool sent = false;
    withProgress([&](const Progress& progress) { sent = sendKnownRecording(known, progress); });
    if (!sent && !m_stop)
        tell(tr("Запись не загружена: %1").arg(entry.str));
    return sent;
}

void OpenFileGlobForm::SaveRecsP(Record* rec, QDir* directory, quint8 number)
{
    map->progress = othersProgress;
    const bool written = map->SaveToInfDat(rec, directory, 0, number) == 0;
    map->progress = {};
    emit RecSaved(written ? QString() : map->error());
}

void OpenFileGlobForm::updRecords_slot(QString path, QDateTime start, int channel, double interval)
{
    const BusyGuard busy;
    KnownRecording known;
    known.directory = path;
    known.channel = channel;
    known.start = start;
    known.now = QDateTime::currentDateTime();
    known.interval = interval;
    m_records.clear();
    sendKnownRecording(known, othersProgress);
}

void OpenFileGlobForm::hideWindows_forUpdRec_slot(bool hidden)
{
    if (hidden) {
        m_hiddenForUpdate = isVisible();
        hide();
    } else if (m_hiddenForUpdate) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        show();
        setAttribute(Qt::WA_ShowWithoutActivating, false);
    }
}
