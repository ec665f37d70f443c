#include "load/openfileglobform.h"

#include "base/globals.h"
#include "load/core/asciirecord.h"
#include "load/core/fileguess.h"
#include "load/core/winprop.h"
#include "prompt/guard.h"
#include "prompt/warndiag.h"
#include "record/record.h"
#include "ui_openfileglobform.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QFileInfo>
#include <QLayout>
#include <QMimeData>
#include <QProcess>
#include <QRegularExpressionValidator>
#include <QUrl>

namespace {

constexpr QSize filePageSize(605, 640);

/// The first local file of a drop; empty when there is none.
QString droppedFile(const QMimeData* data)
{
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return {};
}

} // namespace

OpenFileGlobForm::OpenFileGlobForm(QWidget* parent)
    : QDialog(parent)
    , viewProcess(new QProcess(this))
    , ui(std::make_unique<Ui_OpenFileGlobForm>())
    , diagLocal(std::make_unique<WarnDiag>(this))
    , m_prop(&winProp)
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setUpFields();
    showBusy(false);
    connect(this, &OpenFileGlobForm::showMessage, diagLocal.get(), &WarnDiag::showMe);
    connect(viewProcess, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            say(tr("Не удалось открыть программу просмотра текста.\n%1").arg(viewProcess->errorString()));
    });
    showFilePage();
}

OpenFileGlobForm::~OpenFileGlobForm()
{
    viewProcess->disconnect(this);
    if (viewProcess->state() != QProcess::NotRunning) {
        viewProcess->terminate();
        viewProcess->waitForFinished(500);
    }
}

void OpenFileGlobForm::setUpFields()
{
    const auto restrict = [this](QLineEdit* field, const char* pattern) {
        field->setValidator(
            new QRegularExpressionValidator(QRegularExpression(QLatin1String(pattern)), this));
    };
    // Only the characters are restricted here, so that a wrong number can be told to the user in words.
    restrict(ui->file_LE_ChNumber, "\\d{0,9}");
    restrict(ui->file_LE_Kdec, "\\d{0,9}");
    restrict(ui->file_LE_Band, "\\d{0,9}");
    restrict(ui->file_LE_Interv, "[-+0-9.,eE]{0,30}");
    restrict(ui->file_LE_PhaseK, "[-+0-9.,eE]{0,30}");
    const QDate today = QDate::currentDate();
    ui->file_DT_StartDate->setDateTime(QDateTime(QDate(today.year(), today.month(), 1), QTime(0, 0)));
    QSizePolicy policy = ui->file_paramFrame->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui->file_paramFrame->setSizePolicy(policy);
    ui->file_paramFrame->hide();
    fillTypes();
    fillTemplates();
}

void OpenFileGlobForm::setProp(OpenGlobForm_winProp* prop)
{
    m_prop = prop;
    fillTemplates();
}

void OpenFileGlobForm::openFile(const QString& path)
{
    srcMode = File;
    m_guessedPath.clear();
    ui->file_LE_Path->clear();
    ui->file_LE_Path->setText(QFileInfo(path).absoluteFilePath());
    myshow(lastRecord);
}

void OpenFileGlobForm::myshow(Record* rec)
{
    lastRecord = rec;
    HideFrames();
    if (srcMode == File)
        showFilePage();
    ui->MenuFrame->show();
    show();
    raise();
    activateWindow();
    ui->file_LE_Path->setFocus();
}

void OpenFileGlobForm::RepeatRec(Record* rec)
{
    emit RecReady(rec);
}

void OpenFileGlobForm::HideFrames()
{
    for (int page = 0; page < ui->pages->count(); ++page)
        ui->pages->widget(page)->hide();
}

void OpenFileGlobForm::showFilePage()
{
    srcMode = File;
    HideFrames();
    ui->pages->setCurrentWidget(ui->file_frame);
    ui->file_frame->show();
    ui->FromFileButton->setChecked(true);
    retranslate();
    // A large font may need more.
    ensurePolished();
    layout()->activate();
    setFixedSize(filePageSize.expandedTo(minimumSizeHint()));
}

void OpenFileGlobForm::on_FromFileButton_pressed()
{
    showFilePage();
}

void OpenFileGlobForm::retranslate()
{
    ui->HelpText->setText(tr("Загрузка данных измерений из файла.\nДля выбора записей следует указать файл "
                             "данных (ASCII-файлы или "
                             "файлы программ компаратора *.inf)"));
    ui->file_Combo_Formats->setItemText(0, tr("Выберите формат"));
    ui->FileFormat_byDevice->setItemText(int(FileKind::Other), tr("Другой формат"));
    showForwardText();
}

void OpenFileGlobForm::on_Btn_ViewRecList_clicked()
{
    if (SLEEP)
        return;
    const bool done = runGuarded("OpenFileGlobForm::on_Btn_ViewRecList_clicked", [this] {
        if (srcMode == File)
            forwardFromFile();
    });
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
    if (m_reading)
        m_stop = true;
    else
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
    setAcceptDrops(!busy);
}

void OpenFileGlobForm::say(const QString& text, const QStringList& details)
{
    emit showMessage(text, true, QDialogButtonBox::Ok, details);
}

void OpenFileGlobForm::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        retranslate();
    }
    QDialog::changeEvent(event);
}

void OpenFileGlobForm::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void OpenFileGlobForm::dropEvent(QDropEvent* event)
{
    const QString file = droppedFile(event->mimeData());
    if (file.isEmpty())
        return;
    showFilePage();
    ui->file_LE_Path->setText(file);
    event->acceptProposedAction();
}
