// takescreenshots FOLDER: works the real windows with the shipped sample and three made-up clocks, and saves
// each window to FOLDER/ru and FOLDER/en. Run from the root of the source tree; QT_QPA_PLATFORM=offscreen
// will do.

#include "app/interfacelanguage.h"
#include "app/mainwindow.h"
#include "help/helpform.h"
#include "load/addnewformat_class.h"
#include "load/openfileglobform.h"
#include "load/properties.h"
#include "load/saverecform.h"
#include "plot/avarform.h"
#include "plot/grafoptions.h"
#include "plot/insplotcomment.h"
#include "plot/phaseform.h"
#include "plot/plotzoomdt.h"
#include "prompt/prompt.h"
#include "record/record.h"
#include "resources/resources.h"
#include "samples/recording.h"
#include "stats/firfilter.h"
#include "support/samplerecord.h"
#include "support/scopedhome.h"
#include "table/selrectable.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFont>
#include <QIcon>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPixmap>
#include <QSlider>
#include <QTableWidget>
#include <QTime>
#include <QTimer>
#include <QToolButton>

#include <cstdio>
#include <memory>

namespace {

constexpr QSize mainSize(1240, 760);
constexpr QSize arrangedSize(1060, 845); // enough for graphs below the table
constexpr QSize graphSize(660, 500);
constexpr int previewDelay = 500; // ms
constexpr QSize helpSize(800, 520);
constexpr int samplesPerDay = 8640;
constexpr double interval = 10.0; // s, of the made-up clocks

/// Phases of a clock (s): white noise of phase and of frequency, a random walk of frequency, and drift.
class MadeClock {
public:
    MadeClock(Lehmer& source, double size)
        : m_source(source)
        , m_size(size)
    {
    }

    double next()
    {
        m_walk += 2e-16 * m_size * noise();
        m_phase += interval * (1e-12 + m_walk + 3e-13 * m_size * noise());
        return m_phase + 2e-11 * m_size * noise();
    }

private:
    /// Of unit variance: the sum of twelve uniform numbers is close to normal.
    double noise()
    {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i)
            sum += m_source.next();
        return sum;
    }

    Lehmer& m_source;
    double m_size;
    double m_walk = 0.0;
    double m_phase = 0.0;
};

/// In 32 steps of each colour, which makes a much smaller file and looks the same.
QImage inFewerColours(const QPixmap& picture)
{
    constexpr QRgb upperBits = 0xf8f8f8, lowerBits = 0x070707;
    QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = 0xff000000 | (line[x] & upperBits) | (line[x] >> 5 & lowerBits);
    }
    return image.convertToFormat(QImage::Format_RGB888);
}

class Photographer {
public:
    explicit Photographer(const QDir& folder)
        : m_folder(folder)
    {
    }

    void take(const QString& language);
    bool complete() const { return m_failures == 0; }

private:
    template <typename T> T* child(const char* name) { return m_window->findChild<T*>(QLatin1String(name)); }
    void press(const char* name) { child<QAbstractButton>(name)->click(); }
    void shoot(const char* name, QWidget* widget);
    QWidget* frame(QSize size = graphSize);
    template <typename T> T* shown() { return dynamic_cast<T*>(m_shown); }

    void load();
    void loadColumns();
    void recordings();
    void settings();
    void addClocks();
    void process(const QVector<int>& rows);
    void seriesGraphs();
    void reducedGraphs();
    void dialogs();
    void intervalDialog();
    void results();

    QDir m_folder;
    QString m_language;
    std::unique_ptr<MainWindow> m_window;
    SelRecTable* m_table = nullptr;
    QWidget* m_shown = nullptr; ///< the graph or table opened last
    int m_failures = 0;
};

void Photographer::shoot(const char* name, QWidget* widget)
{
    // Layouts, and texts that depend on them, settle in several rounds; previews wait for the end of typing.
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
    if (widget && qobject_cast<OpenFileGlobForm*>(widget)) {
        QEventLoop typed;
        QTimer::singleShot(previewDelay, &typed, &QEventLoop::quit);
        typed.exec();
    }
    const QString file = m_folder.filePath(QStringLiteral("%1/%2.png").arg(m_language, QLatin1String(name)));
    constexpr int smallest = 0; // the compression that takes longest
    if (widget && QDir().mkpath(m_folder.filePath(m_language))
        && inFewerColours(widget->grab()).save(file, "PNG", smallest))
        return;
    std::fprintf(stderr, "%s could not be taken\n", qPrintable(file));
    ++m_failures;
}

/// The frame of the window opened last, at this size.
QWidget* Photographer::frame(QSize size)
{
    QWidget* frame = m_shown ? m_shown->parentWidget() : nullptr;
    if (frame)
        frame->resize(size);
    return frame;
}

void Photographer::load()
{
    press("addRecBtn");
    auto* dialog = m_window->findChild<OpenFileGlobForm*>();
    shoot("loading", dialog);
    press("FromFileButton");
    child<QLineEdit>("file_LE_Path")->setText(QStringLiteral("samples/clock.txt"));
    emit child<QLineEdit>("file_LE_Path")->editingFinished();
    child<QComboBox>("file_Combo_Formats")->setCurrentText(QStringLiteral("[t] [x]"));
    child<QLineEdit>("file_LE_PhaseK")->setText(QStringLiteral("1"));
    shoot("loading-file", dialog);
    press("file_AddFrmtBtn");
    child<QLineEdit>("lineEdit")->setText(QStringLiteral("<day_8> [t]; [x] [y]"));
    shoot("format", m_window->findChild<addNewFormat_class*>());
    m_window->findChild<addNewFormat_class*>()->reject();
    press("Btn_ViewRecList");
    press("addRecBtn");
    press("RecRecsMenu");
    shoot("loading-recent", dialog);
    loadColumns();
    recordings();
    dialog->reject();
}

/// The second tab, with two files of a day each.
void Photographer::loadColumns()
{
    QDir folder(QDir::temp().filePath(QStringLiteral("measurements")));
    QStringList files;
    for (const char* day : {"20260301", "20260302"}) {
        QFile file(folder.filePath(QStringLiteral("clock_%1.txt").arg(QLatin1String(day))));
        if (!folder.mkpath(QStringLiteral(".")) || !file.open(QIODevice::WriteOnly))
            ++m_failures;
        for (int i = 0; i < samplesPerDay; ++i) {
            const QTime time = QTime::fromMSecsSinceStartOfDay(int(i * interval) * 1000);
            file.write(time.toString(QStringLiteral("hh:mm:ss")).toLatin1() + "  "
                + QByteArray::number(1e-9 * i, 'e', 6) + "  21.5\n");
        }
        files << file.fileName();
    }
    auto* dialog = m_window->findChild<OpenFileGlobForm*>();
    dialog->openFiles(files);
    ReadFormat format;
    format.columnNum_time = 0;
    format.columnNum_data = {1};
    format.timeFormat_flag = true;
    format.timeFormat_format = QStringLiteral("hh:mm:ss");
    format.dateFromFileName_flag = true;
    format.interval = interval;
    dialog->setFormat(format);
    shoot("loading-columns", dialog);
    folder.removeRecursively();
}

/// A directory of a week of recordings, its chart and its table.
void Photographer::recordings()
{
    const QDir folder(QDir::temp().filePath(QStringLiteral("recordings")));
    const QDate from(2026, 3, 2);
    constexpr int days = 7, channels = 6, step = 600;
    if (!folder.mkpath(QStringLiteral("."))
        || !RecordingWriter(folder).writeMixture(from, days, channels, step))
        ++m_failures;
    press("FromFolderButton");
    child<QLineEdit>("kat_LE_Path")->setText(folder.path());
    child<QDateEdit>("kat_DE_Date1")->setDate(from);
    child<QDateEdit>("kat_DE_Date2")->setDate(from.addDays(days - 1));
    press("kat_selectAllChanBtn");
    auto* dialog = m_window->findChild<OpenFileGlobForm*>();
    shoot("loading-folder", dialog);
    prompt::setResponder([](QDialog&) { return int(QDialogButtonBox::Ok); }); // some files are missing
    press("Btn_ViewRecList");
    prompt::setResponder({});
    shoot("recordings-chart", dialog);
    press("ViewTabl_btn");
    shoot("recordings-table", dialog);
    QDir(folder).removeRecursively();
}

void Photographer::settings()
{
    child<QAction>("options_action")->trigger();
    shoot("options", m_window->findChild<Properties*>());
    m_window->findChild<Properties*>()->reject();
    auto* save = m_window->findChild<saverecform*>();
    save->Show(&m_table->load_record[0]);
    shoot("save-text", save);
    save->reject();
    child<QAction>("Help")->trigger();
    m_shown = m_window->findChild<HelpForm*>();
    m_window->findChild<HelpForm*>()->showPage(QStringLiteral("stat-adev"));
    shoot("help", frame(helpSize));
    m_shown->parentWidget()->close();
}

void Photographer::addClocks()
{
    Lehmer source;
    const double sizes[] = {10.0, 4.0, 1.0}; // the calmest one is drawn last, over the others
    for (int i = 0; i < 3; ++i) {
        MadeClock clock(source, sizes[i]);
        Record record;
        fillRecord(
            record, 4 * samplesPerDay, interval, [&](int) { return clock.next(); }, i + 1);
        m_table->addRecord(&record);
    }
}

void Photographer::process(const QVector<int>& rows)
{
    m_table->closeAllFigs();
    m_table->uncheckAllRec();
    for (const int row : rows)
        child<QTableWidget>("recTable")->item(row, 0)->setCheckState(Qt::Checked);
    press("processBtn");
}

void Photographer::seriesGraphs()
{
    press("sampGrBtn");
    shoot("phase-days", frame());
    shown<PhaseForm>()->daySlider->setValue(1);
    shoot("phase-another-day", frame());
    press("freqGrBtn");
    shoot("frequency", frame());
}

void Photographer::reducedGraphs()
{
    const struct {
        const char* box;
        const char* phase;
        const char* frequency;
    } kinds[] = {{"checkBox", "phase-minmax", "frequency-minmax"},
        {"checkBoxHour", "phase-hourly", "frequency-hourly"},
        {"checkBoxDay", "phase-daily", "frequency-daily"}};
    for (const auto& kind : kinds) {
        press(kind.box);
        press("sampGrBtn");
        shoot(kind.phase, frame());
        press("freqGrBtn");
        shoot(kind.frequency, frame());
        press(kind.box);
    }
}

/// The panels of a graph over time, which must be the window opened last.
void Photographer::dialogs()
{
    auto* graph = shown<PlotForm>();
    if (!graph) {
        ++m_failures;
        return;
    }
    graph->setPlotComment(QStringLiteral("Maser, H1<br />Clock 1"));
    shoot("comment-on-graph", frame());
    graph->openProperty();
    shoot("properties", graph->options);
    graph->options->hide();
    graph->showZoomDialog();
    shoot("period", graph->zoomDialog());
    graph->zoomDialog()->hide();
    graph->showCommentDialog();
    shoot("comment", graph->commentDialog());
    graph->commentDialog()->hide();
}

/// The last entry of the menu of the frequency button asks for an interval.
void Photographer::intervalDialog()
{
    prompt::setResponder([this](QDialog& dialog) {
        dialog.show();
        shoot("interval", &dialog);
        dialog.hide();
        return int(QDialog::Rejected);
    });
    m_table->popup_slot(child<QToolButton>("freqGrBtn")->menu()->actions().last());
    prompt::setResponder({});
}

void Photographer::results()
{
    press("avarGrBtn");
    shoot("stability-three", frame());
    press("spectrGrBtn");
    shoot("spectrum", frame());
    press("spectrTabBtn");
    shoot("spectrum-table", frame());
    press("avarTabBtn");
    shoot("stability-table", frame());
    press("trendTabBtn");
    shoot("trend-table", frame(QSize(800, 420)));
}

void Photographer::take(const QString& language)
{
    m_language = language;
    const ScopedHome home;
    installDefaultFilter(home.file(QStringLiteral("config")));
    interfaceLanguage::apply(language);
    m_window = std::make_unique<MainWindow>(1, nullptr);
    m_window->setWindowState(Qt::WindowNoState); // the screen may be smaller than the pictures
    m_window->resize(mainSize);
    m_window->show();
    m_table = m_window->findChild<SelRecTable*>();
    QObject::connect(
        m_table, &SelRecTable::windowMade, m_window.get(), [this](QWidget* window) { m_shown = window; });
    shoot("empty", m_window.get());
    load();
    child<QCheckBox>("spectrBox")->setChecked(true);
    process({0});
    press("sampGrBtn");
    shoot("phase-day", frame());
    press("avarGrBtn");
    shoot("stability-one", frame());
    settings();

    addClocks();
    process({1, 2, 3});
    shoot("table", m_window.get());
    seriesGraphs();
    reducedGraphs();
    press("checkBox");
    press("sampGrBtn");
    dialogs();
    intervalDialog();
    press("checkBox");
    m_table->closeAllFigs();
    results();
    m_table->closeAllFigs();
    press("sampGrBtn");
    press("avarGrBtn");
    m_window->resize(arrangedSize);
    child<QAction>("arrange_action")->trigger();
    shoot("arranged", m_window.get());
    m_window.reset();
}

} // namespace

int main(int argumentCount, char** arguments)
{
    QApplication application(argumentCount, arguments);
    QFont font = QApplication::font();
    font.setPointSize(9); // as on a desktop that sets none
    QApplication::setFont(font);
    if (QApplication::arguments().size() != 2) {
        std::fputs("usage: takescreenshots FOLDER\n", stderr);
        return 2;
    }
    initResources();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/Icon.ico")));
    Photographer photographer{QDir(QApplication::arguments().at(1))};
    for (const char* language : {"ru", "en"})
        photographer.take(QLatin1String(language));
    return photographer.complete() ? 0 : 1;
}
