#include "app/mainwindow.h"

#include "app/interfacelanguage.h"
#include "app/windowlayout.h"
#include "base/debuglog.h"
#include "base/globals.h"
#include "base/language.h"
#include "base/paths.h"
#include "help/helpform.h"
#include "load/openfileglobform.h"
#include "load/properties.h"
#include "load/saverecform.h"
#include "prompt/prompt.h"
#include "table/selrectable.h"
#include "ui_mainwindow.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStatusBar>
#include <QTimer>

namespace {

constexpr int logCheckPeriod = 3600000; // ms
constexpr int refusalShown = 5000; // ms

bool isNumber(const QString& text)
{
    bool number = false;
    text.toUInt(&number);
    return number;
}

} // namespace

MainWindow::MainWindow(int argumentCount, char** arguments, QWidget* parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui_MainWindow>())
    , m_layout(std::make_unique<WindowLayout>())
{
    DebugLOG("Kronalys was started");
    composeTexts();
    ui->setupUi(this);
    m_area = new QMdiArea(this);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // A graph opens over a maximised table, not in its place.
    m_area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    setCentralWidget(m_area);
    if (!m_layout->restore(this))
        setWindowState(windowState() | Qt::WindowMaximized);
    m_hint = new QLabel(this);
    statusBar()->addWidget(m_hint);

    makeForms();
    connectForms();
    connectMenus();
    m_logTimer = new QTimer(this);
    connect(m_logTimer, &QTimer::timeout, this, &MainWindow::chkLog);
    chkLog();
    m_logTimer->start(logCheckPeriod);
    lastUsedDevID = m_properties->settings.lastUsedDevID;
    readRecentRecs();
    QTimer::singleShot(0, this, &MainWindow::checkHelp); // when the window stands: it may have to tell
    SetProps();
    updateHint();
    openArguments(argumentCount, arguments);
}

MainWindow::~MainWindow() = default;

void MainWindow::composeTexts()
{
    RecTypes[0] = tr("фаза");
    RecTypes[1] = tr("температура");
    RecTypes[2] = tr("влажность");
    RecTypes[3] = tr("параметр");
    KRONALYS_VERSION = tr("Программа обработки данных измерений. \n\nver ") + Appver + QLatin1String(" 2024")
        + tr("\nРабочее место метролога времени и частоты");
}

void MainWindow::makeForms()
{
    m_properties = new Properties(this);
    m_table = new SelRecTable;
    m_table->setProp(&m_properties->settings.lastUsedRecID, &m_properties->settings.openSavePath);
    m_tableFrame = m_area->addSubWindow(m_table);
    m_tableFrame->setWindowIcon(QIcon(QStringLiteral(":/bmp/bmp/tab.png")));
    m_tableFrame->setAttribute(Qt::WA_DeleteOnClose, false);
    m_tableFrame->installEventFilter(this);
    m_save = new saverecform(this);
    m_save->setProp(&m_properties->settings.startPath);
}

void MainWindow::connectForms()
{
    connect(m_properties, &Properties::PropChanged, this, &MainWindow::SetProps);
    connect(m_properties, &Properties::PropChanged, this, &MainWindow::writeRecentRecs);
    connect(m_table, &SelRecTable::GiveMeRec, this, [this](Record* rec) { loading()->myshow(rec); });
    connect(m_table, &SelRecTable::filesDropped, this,
        [this](const QStringList& files) { loading()->openFiles(files); });
    connect(this, &MainWindow::GiveHimRec, this,
        [this](const RecentRecs& entry) { loading()->GiveSpecRec(entry); });
    connect(m_table, &SelRecTable::SaveRecs, this, [this](Record* rec, QDir* directory, quint8 number) {
        loading()->SaveRecsP(rec, directory, number);
    });
    connect(m_table, &SelRecTable::SaveToASCII, m_save, &saverecform::Show);
    connect(m_table, &SelRecTable::updRecords, this,
        [this](const QString& path, const QDateTime& start, int channel, double interval) {
            loading()->updRecords_slot(path, start, channel, interval);
        });
    connect(m_table, &SelRecTable::hideWindows_forUpdRec, this,
        [this](bool hidden) { loading()->hideWindows_forUpdRec_slot(hidden); });
    setAcceptDrops(true);
    installEventFilter(m_table); // what is dropped beside the table is taken as on it
    connect(m_table, &SelRecTable::windowMade, this, &MainWindow::addWindow);
    connect(m_table, &SelRecTable::rowsChanged, this, &MainWindow::updateHint);
    for (QAction* action : recentActions())
        connect(action, &QAction::triggered, this, &MainWindow::RecRecsMenuTriggered);
    connect(ui->RecentRecs, &QMenu::hovered, this, &MainWindow::showRecsInfo);
}

/// The loading dialog is large, so it is made when it is first asked for; the window then stands sooner.
OpenFileGlobForm* MainWindow::loading()
{
    if (m_loading)
        return m_loading;
    m_loading = new OpenFileGlobForm(this);
    m_loading->setProp(&m_properties->settings.winProp);
    connect(m_loading, &OpenFileGlobForm::RecReady, m_table, &SelRecTable::addRecord);
    connect(m_loading, &OpenFileGlobForm::RecReady, this, &MainWindow::UpdateRecentRecsMenu);
    connect(m_loading, &OpenFileGlobForm::RecReady, this, &MainWindow::writeRecentRecs);
    connect(m_loading, &OpenFileGlobForm::AllRecsAdded, this, &MainWindow::showTable);
    connect(m_loading, &OpenFileGlobForm::RecSaved, m_table, &SelRecTable::recSaved);
    m_loading->othersProgress = [this](double share) { return !m_table->stopAsked(share); };
    connect(m_table, &SelRecTable::TableIsFull, m_loading, &OpenFileGlobForm::OnTableIsFull_RecLoadError);
    offerRecentFiles();
    return m_loading;
}

void MainWindow::SetProps()
{
    const Settings& settings = m_properties->settings;
    if (m_loading)
        m_loading->setProp(&m_properties->settings.winProp);
    removeF0Vals = settings.removeF0Vals;
    AVAR_numPT_perTau = settings.AVAR_numPT_perTau;
    m_table->simultaneousMoments = settings.simultaneousMoments;
}

void MainWindow::connectMenus()
{
    connect(ui->actionAddRec, &QAction::triggered, m_table, &SelRecTable::on_addRecBtn_clicked);
    connect(ui->Save_action, &QAction::triggered, m_table, &SelRecTable::SaveRecsToFile);
    connect(ui->options_action, &QAction::triggered, m_properties, &Properties::show);
    connect(ui->exit_action, &QAction::triggered, this, &QWidget::close);
    connect(ui->close_figs_action, &QAction::triggered, m_table, &SelRecTable::closeAllFigs);
    connect(ui->minimize_figs_action, &QAction::triggered, m_table, &SelRecTable::minimizeAllFigs);
    connect(ui->restore_figs_action, &QAction::triggered, m_table, &SelRecTable::restoreAllFigs);
    connect(ui->cascade_action, &QAction::triggered, m_area, &QMdiArea::cascadeSubWindows);
    connect(ui->arrange_action, &QAction::triggered, this, &MainWindow::arrangeAll);
    connect(ui->tile_figs_action, &QAction::triggered, this, &MainWindow::tileGraphs);
    connect(ui->showall_action, &QAction::triggered, this, &MainWindow::showEverything);
    connect(ui->menu_3, &QMenu::aboutToShow, this, &MainWindow::listWindows);
    connect(ui->Help, &QAction::triggered, this, [this] { showHelp(QStringLiteral("index")); });
    // In front of every window, the loading dialog too.
    ui->contextHelp_action->setShortcutContext(Qt::ApplicationShortcut);
    connect(ui->contextHelp_action, &QAction::triggered, this, &MainWindow::showHelpOfWindow);
    connect(ui->About, &QAction::triggered, this, &MainWindow::showAbout);

    auto* languages = new QActionGroup(this);
    languages->addAction(ui->actionRuss);
    languages->addAction(ui->actionEng);
    (language::isEnglish() ? ui->actionEng : ui->actionRuss)->setChecked(true);
    connect(
        ui->actionRuss, &QAction::triggered, this, [] { interfaceLanguage::apply(QStringLiteral("ru")); });
    connect(ui->actionEng, &QAction::triggered, this, [] { interfaceLanguage::apply(QStringLiteral("en")); });
}

void MainWindow::openArguments(int argumentCount, char** arguments)
{
    QStringList files;
    QStringList missing;
    for (int i = 1; i < argumentCount; ++i) {
        const QString name = QFile::decodeName(arguments[i]);
        if (QFileInfo(name).isFile())
            files << QFileInfo(name).absoluteFilePath();
        else if (argumentCount > 2
            || !isNumber(name)) // one number alone stands for a channel, not for a file
            missing << name;
    }
    if (files.isEmpty() && missing.isEmpty())
        return;
    // When the window stands: the dialog opens over it.
    QTimer::singleShot(0, this, [this, files, missing] {
        if (!files.isEmpty())
            loading()->openFiles(files);
        if (!missing.isEmpty())
            prompt::message(this, QMessageBox::Critical, windowTitle(),
                tr("Файл не найден:\n%1").arg(missing.join(QLatin1Char('\n'))));
    });
}

void MainWindow::chkLog()
{
    rotateLog(QDate::currentDate());
}

void MainWindow::showAbout()
{
    prompt::message(this, QMessageBox::Information, windowTitle(), KRONALYS_VERSION);
}

void MainWindow::updateHint()
{
    m_hint->setText(m_table->free_row == 0
            ? tr("Записей нет. Чтобы загрузить файл измерений, нажмите Ctrl+O.")
            : QString());
}

void MainWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        composeTexts();
        retranslateFrames();
        (language::isEnglish() ? ui->actionEng : ui->actionRuss)->setChecked(true);
        updateHint();
        checkHelp();
        if (m_help)
            openHelpCollection();
    }
    QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (SLEEP) {
        statusBar()->showMessage(
            tr("Идёт обработка. Закрыть программу можно после её окончания."), refusalShown);
        event->ignore();
        return;
    }
    keepWindows();
    writeRecentRecs();
    DebugLOG("Closed by user");
    QMainWindow::closeEvent(event);
}
