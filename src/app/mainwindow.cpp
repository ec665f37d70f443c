#include "app/mainwindow.h"

#include "app/interfacelanguage.h"
#include "base/debuglog.h"
#include "base/globals.h"
#include "base/language.h"
#include "base/paths.h"
#include "load/core/winprop.h"
#include "load/openfileglobform.h"
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

} // namespace

MainWindow::MainWindow(int argumentCount, char** arguments, QWidget* parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui_MainWindow>())
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
    updateHint();
    openArgument(argumentCount, arguments);
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
    m_table = new SelRecTable;
    m_tableFrame = m_area->addSubWindow(m_table);
    m_tableFrame->setAttribute(Qt::WA_DeleteOnClose, false);
    m_tableFrame->setWindowIcon(QIcon(QStringLiteral(":/bmp/bmp/tab.png")));
    m_tableFrame->installEventFilter(this);
    m_loading = new OpenFileGlobForm(this);
    m_loading->setProp(&winProp);
}

void MainWindow::connectForms()
{
    connect(m_table, &SelRecTable::GiveMeRec, m_loading, &OpenFileGlobForm::myshow);
    connect(m_loading, &OpenFileGlobForm::RecReady, m_table, &SelRecTable::addRecord);
    connect(m_loading, &OpenFileGlobForm::AllRecsAdded, this, &MainWindow::showTable);
    connect(m_table, &SelRecTable::filesDropped, this,
        [this](const QStringList& files) { m_loading->openFile(files.first()); });
    connect(m_table, &SelRecTable::windowMade, this, &MainWindow::addWindow);
    connect(m_table, &SelRecTable::rowsChanged, this, &MainWindow::updateHint);
}

void MainWindow::connectMenus()
{
    // There are no remembered records to offer.
    ui->RecentRecs->menuAction()->setVisible(false);
    connect(ui->actionAddRec, &QAction::triggered, m_table, &SelRecTable::on_addRecBtn_clicked);
    connect(ui->exit_action, &QAction::triggered, this, &QWidget::close);
    connect(ui->close_figs_action, &QAction::triggered, m_table, &SelRecTable::closeAllFigs);
    connect(ui->minimize_figs_action, &QAction::triggered, m_table, &SelRecTable::minimizeAllFigs);
    connect(ui->restore_figs_action, &QAction::triggered, m_table, &SelRecTable::restoreAllFigs);
    connect(ui->cascade_action, &QAction::triggered, m_area, &QMdiArea::cascadeSubWindows);
    connect(ui->arrange_action, &QAction::triggered, this, &MainWindow::arrangeAll);
    connect(ui->tile_figs_action, &QAction::triggered, this, &MainWindow::tileGraphs);
    connect(ui->showall_action, &QAction::triggered, this, &MainWindow::showEverything);
    connect(ui->menu_3, &QMenu::aboutToShow, this, &MainWindow::listWindows);
    connect(ui->About, &QAction::triggered, this, &MainWindow::showAbout);

    auto* languages = new QActionGroup(this);
    languages->addAction(ui->actionRuss);
    languages->addAction(ui->actionEng);
    (language::isEnglish() ? ui->actionEng : ui->actionRuss)->setChecked(true);
    connect(
        ui->actionRuss, &QAction::triggered, this, [] { interfaceLanguage::apply(QStringLiteral("ru")); });
    connect(ui->actionEng, &QAction::triggered, this, [] { interfaceLanguage::apply(QStringLiteral("en")); });
}

void MainWindow::openArgument(int argumentCount, char** arguments)
{
    if (argumentCount != 2)
        return;
    const QString file = QFile::decodeName(arguments[1]);
    // When the window stands: the dialog opens over it.
    QTimer::singleShot(0, this, [this, file] {
        if (QFileInfo(file).isFile())
            m_loading->openFile(QFileInfo(file).absoluteFilePath());
        else
            prompt::message(this, QMessageBox::Critical, windowTitle(), tr("Файл не найден:\n%1").arg(file));
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
    if (!language::toFile(paths::config() + QLatin1String("/recfiles.xml"), Appver, App_lang))
        DebugLOG("The configuration file could not be written");
    DebugLOG("Closed by user");
    QMainWindow::closeEvent(event);
}
