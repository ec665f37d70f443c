#include "app/application.h"
#include "app/interfacelanguage.h"
#include "app/mainwindow.h"
#include "base/globals.h"
#include "help/helpform.h"
#include "load/core/recentrecs.h"
#include "load/openfileglobform.h"
#include "load/properties.h"
#include "resources/resources.h"
#include "support/dayrecord.h"
#include "support/samplerecord.h"
#include "support/scopedhome.h"
#include "support/scopedprompts.h"
#include "table/selrectable.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QTest>
#include <QTextBrowser>

#include <memory>

namespace {

std::unique_ptr<MainWindow> shownWindow()
{
    auto window = std::make_unique<MainWindow>(1, nullptr);
    window->show();
    return window;
}

/// A text file of a few samples.
QString sampleFile(const ScopedHome& home, const QString& name)
{
    QByteArray text;
    for (int i = 0; i < 20; ++i)
        text += QByteArray::number(i) + ' ' + QByteArray::number(i * i) + '\n';
    return home.write(name, text);
}

QAction* recentAction(const MainWindow& window, int number)
{
    return window.findChild<QAction*>(QStringLiteral("actionRec%1").arg(number));
}

OpenFileGlobForm* loadingDialog(MainWindow* window)
{
    window->findChild<QAction*>(QStringLiteral("actionAddRec"))->trigger();
    return window->findChild<OpenFileGlobForm*>();
}

void load(MainWindow* window, const QString& file)
{
    auto* loading = loadingDialog(window);
    loading->openFile(file);
    loading->findChild<QLineEdit*>(QStringLiteral("file_LE_RefName"))->setText(QStringLiteral("Maser & Co"));
    QTest::mouseClick(loading->findChild<QPushButton*>(QStringLiteral("Btn_ViewRecList")), Qt::LeftButton);
}

} // namespace

/// What the workstation remembers from one session to the next.
class TstWindowMemory : public QObject {
    Q_OBJECT
private slots:
    void init();
    void recentRecordsComeBack();
    void recordsOpenedAnewAreNotEnteredAgain();
    void optionsTakeEffectAndComeBack();
    void windowsComeBack();
    void damagedPlaces_data();
    void damagedPlaces();
    void identifiersGoOn();
    void helpOfTheWindowInFront();
};

void TstWindowMemory::init()
{
    interfaceLanguage::apply(QStringLiteral("ru"));
    setRecentRecords({});
    Reopening = false;
}

void TstWindowMemory::recentRecordsComeBack()
{
    const ScopedHome home;
    QString last;
    {
        const auto window = shownWindow();
        const auto* menu = window->findChild<QMenu*>(QStringLiteral("RecentRecs"));
        QVERIFY(!menu->isEnabled());
        for (int i = 0; i < 11; ++i) {
            last = sampleFile(home, QStringLiteral("file%1.txt").arg(i));
            load(window.get(), last);
            QCOMPARE(window->findChild<SelRecTable*>()->free_row, i + 1);
        }
        QVERIFY(menu->isEnabled());
        // A crash here must not cost the list: it is in the file already.
        QFile config(home.file(QStringLiteral("config/recfiles.xml")));
        QVERIFY(config.open(QIODevice::ReadOnly));
        QVERIFY(config.readAll().contains("file10.txt"));
    }
    const auto window = shownWindow();
    for (int number = 1; number <= 10; ++number)
        QVERIFY(recentAction(*window, number)->isVisible());
    QCOMPARE(recentAction(*window, 1)->toolTip(), last);
    QVERIFY(recentAction(*window, 1)->text().contains(QStringLiteral("Maser && Co")));
    recentAction(*window, 1)->trigger();
    const auto* table = window->findChild<SelRecTable*>();
    QCOMPARE(table->free_row, 1);
    QCOMPARE(table->load_record[0].n_cnt, qint64(20));
}

void TstWindowMemory::recordsOpenedAnewAreNotEnteredAgain()
{
    const ScopedHome home;
    const auto window = shownWindow();
    load(window.get(), sampleFile(home, QStringLiteral("one.txt")));
    QCOMPARE(NumRecentRecs, 1);
    recentAction(*window, 1)->trigger();
    QCOMPARE(window->findChild<SelRecTable*>()->free_row, 2);
    QCOMPARE(NumRecentRecs, 1);
    // And none that is loaded afterwards.
    load(window.get(), sampleFile(home, QStringLiteral("two.txt")));
    QCOMPARE(NumRecentRecs, 1);
}

void TstWindowMemory::optionsTakeEffectAndComeBack()
{
    const ScopedHome home;
    {
        const auto window = shownWindow();
        QVERIFY(!removeF0Vals);
        auto* options = window->findChild<Properties*>();
        options->settings.removeF0Vals = true;
        options->settings.AVAR_numPT_perTau = 5000;
        emit options->PropChanged();
        QVERIFY(removeF0Vals);
        QCOMPARE(AVAR_numPT_perTau, 5000);
    }
    removeF0Vals = false;
    AVAR_numPT_perTau = 1000000;
    const auto window = shownWindow(); // the first one never closed properly
    QVERIFY(removeF0Vals);
    QCOMPARE(AVAR_numPT_perTau, 5000);
    removeF0Vals = false;
    AVAR_numPT_perTau = 1000000;
}

void TstWindowMemory::windowsComeBack()
{
    const ScopedHome home;
    const QRect place(40, 30, 500, 260);
    QRect kept;
    {
        const auto window = shownWindow();
        window->setWindowState(Qt::WindowNoState);
        window->resize(1100, 750);
        auto* frame = qobject_cast<QMdiSubWindow*>(window->findChild<SelRecTable*>()->parentWidget());
        frame->setGeometry(place);
        kept = frame->geometry();
        auto* options = window->findChild<Properties*>();
        options->show();
        options->resize(options->size() + QSize(60, 40));
        options->close();
        QVERIFY(window->close());
    }
    const auto window = shownWindow();
    QVERIFY(!window->isMaximized());
    QCOMPARE(window->size(), QSize(1100, 750));
    QCOMPARE(window->findChild<SelRecTable*>()->parentWidget()->geometry(), kept);
}

void TstWindowMemory::damagedPlaces_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("huge") << QByteArray(
        "[QWidget]\nsize=@Size(1000000 1000000)\n[SelRecTable]\nplace=@Rect(0 0 2147483647 2147483647)\n");
    QWidget large;
    large.setGeometry(-30000, -30000, 30000, 30000);
    QTest::newRow("huge main window") << "[main]\ngeometry=" + large.saveGeometry().toHex() + '\n';
    QTest::newRow("tiny") << QByteArray("[QWidget]\nsize=@Size(0 0)\n[SelRecTable]\nplace=@Rect(5 5 1 1)\n");
    // A list of 2^31 - 1 values in Qt's binary form.
    QTest::newRow("binary") << QByteArray(
        "[QWidget]\nsize=@Variant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)\n[main]\ngeometry=00ff\n");
    QTest::newRow("not text") << QByteArray(5000, '\xff');
}

void TstWindowMemory::damagedPlaces()
{
    QFETCH(const QByteArray, content);
    const ScopedHome home;
    home.write(QStringLiteral("config/windows.ini"), content);
    auto window = shownWindow();
    auto* graph = new QWidget;
    window->addWindow(graph);
    const QSize screen = window->screen()->size();
    QVERIFY(window->normalGeometry().width() <= screen.width() * 2);
    for (const QWidget* frame : {graph->parentWidget(), window->findChild<SelRecTable*>()->parentWidget()}) {
        QVERIFY(frame->width() >= 300 && frame->height() >= 200);
        QVERIFY(frame->width() <= screen.width() * 2 && frame->height() <= screen.height() * 2);
    }
    // And the places of this session are kept.
    QVERIFY(window->close());
    window.reset();
    QFile places(home.file(QStringLiteral("config/windows.ini")));
    QVERIFY(places.open(QIODevice::ReadOnly));
    QVERIFY(places.readAll().contains("[SelRecTable]\nplace="));
}

void TstWindowMemory::identifiersGoOn()
{
    const ScopedHome home;
    quint8 last = 0;
    {
        const auto window = shownWindow();
        load(window.get(), sampleFile(home, QStringLiteral("one.txt")));
        last = quint8(window->findChild<SelRecTable*>()->load_record[0].RecID);
        QVERIFY(window->close());
    }
    const auto window = shownWindow();
    load(window.get(), home.file(QStringLiteral("one.txt")));
    QCOMPARE(window->findChild<SelRecTable*>()->load_record[0].RecID, quint16(last + 1));
}

void TstWindowMemory::helpOfTheWindowInFront()
{
    const ScopedHome home;
    const auto window = shownWindow();
    const QTextBrowser* pages = nullptr;
    const auto help = [&] {
        window->findChild<QAction*>(QStringLiteral("contextHelp_action"))->trigger();
        pages = window->findChild<HelpForm*>()->findChild<QTextBrowser*>();
        return pages->source().fileName();
    };
    window->findChild<QAction*>(QStringLiteral("showall_action"))->trigger();
    QCOMPARE(help(), QStringLiteral("record-table.html"));
    QVERIFY(pages->isVisible());
    auto* loading = loadingDialog(window.get());
    QTRY_COMPARE(QApplication::activeWindow(), loading);
    QCOMPARE(help(), QStringLiteral("loading.html"));
}

int main(int argc, char** argv)
{
    initResources();
    Application application(argc, argv);
    TstWindowMemory test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_windowmemory.moc"
