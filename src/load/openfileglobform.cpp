#include "load/openfileglobform.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "load/addnewformat_class.h"
#include "load/core/asciirecord.h"
#include "load/core/fileguess.h"
#include "load/core/winprop.h"
#include "load/fieldtext.h"
#include "prompt/guard.h"
#include "prompt/progressscope.h"
#include "prompt/warndiag.h"
#include "record/record.h"
#include "store/core/mapstruct.h"
#include "store/schedule.h"
#include "ui_openfileglobform.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QFileInfo>
#include <QLayout>
#include <QMimeData>
#include <QPointer>
#include <QProcess>
#include <QScopeGuard>
#include <QScreen>
#include <QUrl>

namespace {

constexpr QSize filePageSize(605, 640);
constexpr QSize folderPageSize(605, 364);
constexpr QSize chartPageSize(1040, 613);
constexpr QSize recentPageSize(800, 440);
constexpr int usualLetterHeight = 21; // for which the sizes above are
constexpr int titleHeight = 36; // that a window manager may add
constexpr int mostNamedRecords = 8; // in the text of a message

QStringList droppedFiles(const QMimeData* data)
{
    QStringList files;
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile())
            files << url.toLocalFile();
    }
    return files;
}

} // namespace

OpenFileGlobForm::OpenFileGlobForm(QWidget* parent)
    : QDialog(parent)
    , viewProcess(new QProcess(this))
    , ui(std::make_unique<Ui_OpenFileGlobForm>())
    , diagLocal(std::make_unique<WarnDiag>(this))
    , m_prop(&winProp)
    , m_templateDialog(new addNewFormat_class(this))
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    ui->StatusLbl->setSizePolicy(
        QSizePolicy::Ignored, QSizePolicy::Preferred); // a long path must not widen it
    setUpFilePage();
    setUpColumnPage();
    setUpFolderPages();
    setUpRecentPage();
    setUpPages();
    fillHistory();
    showBusy(false);
    tell(QString());
    connect(this, &OpenFileGlobForm::showMessage, diagLocal.get(), &WarnDiag::showMe);
    connect(viewProcess, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            say(tr("Не удалось открыть программу просмотра текста.\n%1").arg(viewProcess->errorString()));
    });
    showPage(File);
}

OpenFileGlobForm::~OpenFileGlobForm()
{
    delete sch; // before the index that it shows
    viewProcess->disconnect(this);
    if (viewProcess->state() != QProcess::NotRunning) {
        viewProcess->terminate();
        viewProcess->waitForFinished(500);
    }
}

/// The sources, one entry each.
void OpenFileGlobForm::setUpPages()
{
    m_pages.push_back({File, ui->FromFileButton, ui->file_frame, filePageSize,
        [] {
            return tr("Загрузка данных измерений из файла.\nДля выбора записей следует указать файл данных "
                      "(ASCII-файлы или файлы программ компаратора *.inf)");
        },
        [this] {
            const bool recording = ui->file_tabWidget->currentWidget() == ui->file_format1
                && FieldText::isRecordingPath(ui->file_LE_Path->text());
            return recording ? tr("Далее") : tr("Загрузить");
        },
        [this] {
            if (ui->file_tabWidget->currentWidget() == ui->file_format1)
                forwardFromFile();
            else
                forwardFromColumns();
        }});
    m_pages.push_back({FolderParameters, ui->FromFolderButton, ui->kat_frame, folderPageSize,
        [] {
            return tr("Загрузка данных измерений из каталога.\nДля выбора записей следует указать каталог с "
                      "файлами данных (*.inf, *.dat) ");
        },
        [] { return tr("Далее"); }, [this] { forwardFromFolder(); }});
    m_pages.push_back({FolderChart, ui->FromFolderButton, ui->sch_frame, chartPageSize,
        [this] { return indexText(); }, [] { return tr("Назад"); }, [this] { backFromChart(); }});
    m_pages.push_back({RecentRecords, ui->RecRecsMenu, ui->recrecs_frame, recentPageSize,
        [] {
            return tr("Недавно открытые записи.\nДля загрузки одной или нескольких записей, отметьте "
                      "необходимые строчки таблицы и нажмите кнопку \"Загрузить\"  ");
        },
        [] { return tr("Загрузить"); }, [this] { forwardFromRecent(); }});
}

/// The page of a source; the file page for a source without one.
const OpenFileGlobForm::SourcePage& OpenFileGlobForm::page(quint8 source) const
{
    for (const SourcePage& candidate : m_pages) {
        if (candidate.source == source)
            return candidate;
    }
    return m_pages.front();
}

void OpenFileGlobForm::showPage(quint8 source)
{
    const SourcePage& shown = page(source);
    srcMode = shown.source;
    HideFrames();
    tell(QString());
    ui->pages->setCurrentWidget(shown.frame);
    shown.frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    shown.frame->show();
    shown.button->setChecked(true);
    const bool chart = shown.source == FolderChart;
    ui->MenuFrame->setHidden(chart);
    // The key that presses the default button is not to lead away from a choice on the chart.
    ui->Btn_ViewRecList->setAutoDefault(!chart);
    ui->Btn_ViewRecList->setDefault(!chart);
    retranslate();
    fitPage();
}

/// Gives the dialog the size of its page. Letters taller than usual need more; a small screen may have less,
/// then the fields scroll.
void OpenFileGlobForm::fitPage()
{
    ensurePolished();
    const SourcePage& shown = page(srcMode);
    // A page that has just come tells its size only to the layout next to it.
    for (QWidget* inner = shown.frame; inner != this; inner = inner->parentWidget())
        inner->updateGeometry();
    layout()->activate();
    const QSize least = minimumSizeHint();
    QSize wanted = shown.size * qMax(1.0, fontMetrics().height() / double(usualLetterHeight));
    wanted = wanted.expandedTo(least);
    const QWidget* beneath = isVisible() || !parentWidget() ? this : parentWidget();
    if (const QScreen* shownOn = beneath->screen())
        wanted = wanted.boundedTo(shownOn->availableSize() - QSize(0, titleHeight));
    setFixedSize(wanted.expandedTo(least));
}

void OpenFileGlobForm::myshow(Record* rec)
{
    lastRecord = rec;
    if (ui->file_LE_Path->text().isEmpty())
        ui->file_LE_Path->setText(m_lastPath);
    ui->RecRecsMenu->setEnabled(NumRecentRecs > 0);
    fillRecent();
    if (srcMode == FolderChart)
        srcMode = FolderParameters;
    showPage(srcMode == RecentRecords && NumRecentRecs <= 0 ? quint8(File) : srcMode);
    show();
    raise();
    activateWindow();
    if (srcMode == File)
        ui->file_LE_Path->setFocus();
    else if (srcMode == FolderParameters)
        ui->kat_frame->pathField()->setFocus();
}

void OpenFileGlobForm::openFile(const QString& path)
{
    openFiles({path});
}

void OpenFileGlobForm::openFiles(const QStringList& files)
{
    if (files.isEmpty() || m_reading)
        return;
    if (QFileInfo(files.first()).isDir()) {
        openFolder(files.first());
        return;
    }
    srcMode = File;
    if (files.size() == 1) {
        ui->file_tabWidget->setCurrentWidget(ui->file_format1);
        m_guessedPath.clear();
        ui->file_LE_Path->clear();
        ui->file_LE_Path->setText(QFileInfo(files.first()).absoluteFilePath());
    } else {
        ui->file_tabWidget->setCurrentWidget(ui->file_format2);
        ui->file_format2->setFiles(files);
    }
    myshow(lastRecord);
}

void OpenFileGlobForm::RepeatRec(Record* rec)
{
    emit RecReady(rec);
}

void OpenFileGlobForm::HideFrames()
{
    for (const SourcePage& hidden : m_pages) {
        hidden.frame->hide();
        hidden.frame->setSizePolicy(
            QSizePolicy::Ignored, QSizePolicy::Ignored); // the large ones need no room
    }
    sch->shown = false;
}

void OpenFileGlobForm::on_FromFileButton_pressed()
{
    showPage(File);
}

void OpenFileGlobForm::on_RecRecsMenu_clicked()
{
    fillRecent();
    showPage(RecentRecords);
}

void OpenFileGlobForm::on_file_tabWidget_currentChanged(int)
{
    if (m_pages.empty())
        return; // the tabs are just being made
    tell(QString());
    showForwardText();
}

void OpenFileGlobForm::retranslate()
{
    ui->HelpText->setText(page(srcMode).help());
    ui->file_Combo_Formats->setItemText(0, tr("Выберите формат"));
    ui->FileFormat_byDevice->setItemText(int(FileKind::Other), tr("Другой формат"));
    showForwardText();
}

void OpenFileGlobForm::showForwardText()
{
    ui->Btn_ViewRecList->setText(page(srcMode).forwardText());
}

void OpenFileGlobForm::on_Btn_ViewRecList_clicked()
{
    if (SLEEP)
        return;
    tell(QString());
    const bool done =
        runGuarded("OpenFileGlobForm::on_Btn_ViewRecList_clicked", [this] { page(srcMode).forward(); });
    if (done)
        return;
    m_file.reset();
    m_records.clear();
}

void OpenFileGlobForm::on_Btn_Stop_clicked()
{
    m_stop = true;
}

void OpenFileGlobForm::on_Btn_Close_clicked()
{
    reject();
}

void OpenFileGlobForm::reject()
{
    if (m_reading) {
        m_stop = true;
        return;
    }
    sch->stopLoading();
    QDialog::reject();
}

void OpenFileGlobForm::showBusy(bool busy)
{
    ui->progressBar->setVisible(busy);
    ui->Btn_Stop->setVisible(busy);
    ui->MenuFrame->setDisabled(busy);
    ui->rightSide->setDisabled(busy);
    ui->Btn_ViewRecList->setDisabled(busy);
    ui->Btn_Close->setDisabled(busy);
    m_templateDialog->setDisabled(busy);
    setAcceptDrops(!busy);
}

/// Runs a reading under the look that the dialog has meanwhile: the progress bar and the button that stops
/// it.
void OpenFileGlobForm::withProgress(const std::function<void(const Progress&)>& read)
{
    m_stop = false;
    m_reading = true;
    const QPointer<QWidget> focused = focusWidget();
    showBusy(true);
    const auto over = qScopeGuard([this, focused] {
        m_reading = false;
        showBusy(false);
        if (focused)
            focused->setFocus();
    });
    ProgressScope progress(ui->progressBar);
    read([this, &progress](double share) {
        progress.show(100.0 * share);
        return !m_stop;
    });
}

void OpenFileGlobForm::say(const QString& text, const QStringList& details)
{
    emit showMessage(text, true, QDialogButtonBox::Ok, details);
}

/// Shows one sentence in the dialog's own status line; an empty one takes the line away.
void OpenFileGlobForm::tell(const QString& status)
{
    ui->StatusLbl->setText(status);
    ui->StatusLbl->setToolTip(status);
    ui->StatusLbl->setVisible(!status.isEmpty());
}

void OpenFileGlobForm::OnTableIsFull_RecLoadError(Record* r)
{
    DebugLOG(qPrintable(QStringLiteral("OnTableIsFull_RecLoadError r.ID =%1").arg(r ? r->RecID : 0)));
    m_tableFull = true;
    sch->stopLoading();
}

/// Names the records that a full table has kept out. The table itself has told of the first one.
void OpenFileGlobForm::tellSkipped(const QStringList& names)
{
    if (names.size() < 2)
        return;
    QString text = tr("В таблице нет места. Не загружены записи:");
    for (const QString& name : names.mid(0, mostNamedRecords))
        text += QLatin1Char('\n') + name;
    const bool all = names.size() <= mostNamedRecords;
    say(all ? text : text + QLatin1Char('\n') + tr("и т.д."), all ? QStringList() : names);
}

void OpenFileGlobForm::finishLoading()
{
    hide();
    emit AllRecsAdded();
}

void OpenFileGlobForm::hideEvent(QHideEvent* event)
{
    m_templateDialog->reject();
    QDialog::hideEvent(event);
}

void OpenFileGlobForm::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        ui->file_format2->retranslate();
        ui->kat_frame->retranslate();
        fillHistory();
        fillRecent();
        retranslate();
    }
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::FontChange) {
        if (!m_pages.empty())
            fitPage();
    }
    QDialog::changeEvent(event);
}

void OpenFileGlobForm::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void OpenFileGlobForm::dropEvent(QDropEvent* event)
{
    const QStringList files = droppedFiles(event->mimeData());
    if (files.isEmpty())
        return;
    event->acceptProposedAction();
    const bool list = srcMode == File && ui->file_tabWidget->currentWidget() == ui->file_format2;
    if (list && !QFileInfo(files.first()).isDir())
        ui->file_format2->addFiles(files);
    else
        openFiles(files);
}
