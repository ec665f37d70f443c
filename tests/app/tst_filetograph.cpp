#include "app/mainwindow.h"
#include "base/globals.h"
#include "load/openfileglobform.h"
#include "plot/avarform.h"
#include "plot/tableform.h"
#include "resources/resources.h"
#include "support/near.h"
#include "support/scopedhome.h"
#include "support/scopedprompts.h"
#include "table/selrectable.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>

/// The main job in the real windows, by their own buttons: a file becomes a stability graph and a table.
class FileToGraphTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void clockSample();
    void everyGroup_data();
    void everyGroup();
    void shortRecordStaysOutOfTheGraph();
    void tooFewSamples();
    void newProcessingShowsItsOwnStatistic();
    void stoppedProcessingKeepsTheFormerResults();
    void failedProcessingGivesTheCommandsBack();
    void deletedRowTakesItsResultsAlong();
    void keys();
    void rowsCanBeEditedMovedInvertedDeleted();
    void tableOf32();

private:
    template <typename T> T* child(const char* name) { return m_window->findChild<T*>(QLatin1String(name)); }
    void press(const char* name) { QTest::mouseClick(child<QAbstractButton>(name), Qt::LeftButton); }
    void load(const QString& file);
    QString smallFile(int samples) const;

    std::unique_ptr<ScopedHome> m_home;
    std::unique_ptr<MainWindow> m_window;
    SelRecTable* m_table = nullptr;
    QTableWidget* m_rows = nullptr;
};

void FileToGraphTest::initTestCase()
{
    initResources();
}

void FileToGraphTest::init()
{
    m_home = std::make_unique<ScopedHome>();
    m_window = std::make_unique<MainWindow>(1, nullptr);
    m_window->resize(1400, 900);
    m_window->show();
    m_table = m_window->findChild<SelRecTable*>();
    m_rows = child<QTableWidget>("recTable");
}

void FileToGraphTest::cleanup()
{
    m_window.reset();
    m_home.reset();
}

void FileToGraphTest::load(const QString& file)
{
    press("addRecBtn");
    auto* dialog = m_window->findChild<OpenFileGlobForm*>();
    QVERIFY(dialog->isVisible());
    QTest::mousePress(child<QAbstractButton>("FromFileButton"), Qt::LeftButton);
    auto* path = child<QLineEdit>("file_LE_Path");
    path->clear();
    QTest::keyClicks(path, file);
    child<QComboBox>("file_Combo_Formats")->setCurrentText(QStringLiteral("[t] [x]"));
    auto* factor = child<QLineEdit>("file_LE_PhaseK");
    factor->clear();
    QTest::keyClicks(factor, QStringLiteral("1"));
    press("Btn_ViewRecList");
    QVERIFY(!dialog->isVisible());
}

QString FileToGraphTest::smallFile(int samples) const
{
    QByteArray text;
    for (int i = 0; i < samples; ++i)
        text += QByteArray::number(i) + ' ' + QByteArray::number(1e-9 * ((i * 7919) % 101), 'e', 9) + '\n';
    return m_home->write(QStringLiteral("small%1.txt").arg(samples), text);
}

void FileToGraphTest::clockSample()
{
    load(qEnvironmentVariable("KRONALYS_SOURCE") + QStringLiteral("/samples/clock.txt"));
    QCOMPARE(m_table->free_row, 1);
    QVERIFY(m_table->load_record[0].n_cnt >= 100000);
    QVERIFY(!m_rows->isRowHidden(0));
    QCOMPARE(m_rows->item(0, 11)->text().toLongLong(), m_table->load_record[0].n_cnt);

    QList<int> shares;
    auto* bar = child<QProgressBar>("ProcProgressBar");
    connect(bar, &QProgressBar::valueChanged, this, [&shares](int value) { shares << value; });
    int heartbeats = 0;
    QTimer heart;
    connect(&heart, &QTimer::timeout, this, [&heartbeats] { heartbeats += SLEEP ? 1 : 0; });
    heart.start(0);
    press("processBtn");
    QVERIFY2(shares.size() > 1 && shares.last() == 100, "the progress bar moves to its end");
    QVERIFY2(heartbeats > 0, "the window is alive meanwhile");
    QVERIFY(bar->isHidden());
    QVERIFY(!SLEEP);

    press("avarGrBtn");
    auto* graph = m_window->findChild<AvarForm*>();
    QVERIFY(graph && graph->isVisible());
    QCOMPARE(graph->curveCount, 1);
    press("avarTabBtn");
    press("trendTabBtn");
    const auto tables = m_window->findChildren<TableForm*>();
    QCOMPARE(tables.size(), 2);

    ScopedPrompts prompts;
    for (const char* kind : {"png", "svg", "pdf"}) {
        const QString file = m_home->file(QStringLiteral("graph"));
        prompts.chooseFile(file, QStringLiteral("*.") + QLatin1String(kind));
        graph->saveImage();
        QVERIFY(QFileInfo(file + QLatin1Char('.') + QLatin1String(kind)).size() > 1000);
    }
    const QString text = m_home->file(QStringLiteral("graph.txt"));
    prompts.chooseFile(text);
    graph->exportASCII();
    QFile exported(text);
    QVERIFY(exported.open(QIODevice::ReadOnly));
    QCOMPARE(exported.readAll().count('\n'), m_table->tauCount[0] + 1);

    m_table->closeAllFigs();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(m_window->findChildren<AvarForm*>().isEmpty());
    QCOMPARE(m_window->findChild<QMdiArea*>()->subWindowList().size(), 1);
}

void FileToGraphTest::everyGroup_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QVector<int>>("computed");
    QTest::newRow("SDEV, ADEV, HDEV") << 0 << QVector<int>{0, 1, 2};
    QTest::newRow("MTIE, TDEV") << 1 << QVector<int>{3, 4};
    QTest::newRow("MDEV, PDEV") << 2 << QVector<int>{5, 6};
}

void FileToGraphTest::everyGroup()
{
    QFETCH(int, group);
    QFETCH(QVector<int>, computed);
    load(smallFile(20000));
    child<QComboBox>("selVarBox")->setCurrentIndex(group);
    press("processBtn");
    QCOMPARE(m_table->varType, computed.first() == 0 ? 1 : computed.first());
    for (int type = 0; type < 7; ++type) {
        const auto& values = m_table->avarAll[0][size_t(type)];
        QCOMPARE(values.empty(), !computed.contains(type));
        for (const double value : values)
            QVERIFY(value > 0.0);
    }
    press("avarGrBtn");
    QCOMPARE(m_window->findChild<AvarForm*>()->curveCount, 1);
    QCOMPARE(child<QToolButton>("avarGrBtn")->menu()->actions().size(), computed.size());
    QCOMPARE(m_table->avarRes[0], m_table->avarAll[0][size_t(m_table->varType)]);
}

void FileToGraphTest::shortRecordStaysOutOfTheGraph()
{
    load(smallFile(300));
    press("processBtn");
    QVERIFY(m_table->tauCount[0] > 0 && m_table->tauCount[0] <= 10);
    press("avarGrBtn");
    auto* graph = m_window->findChild<AvarForm*>();
    QCOMPARE(graph->curveCount, 0);
    QVERIFY(graph->statusText().contains(QStringLiteral("Measured signal")));
}

void FileToGraphTest::tooFewSamples()
{
    load(smallFile(9));
    load(smallFile(10));
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    press("processBtn");
    QVERIFY(prompts.seen.at(0).text.startsWith(
        QStringLiteral("Следующие записи были исключены из обработки:\n")));
    QVERIFY(prompts.seen.at(0).text.endsWith(QStringLiteral("Слишком мало точек!")));
    QCOMPARE(m_rows->item(0, 0)->checkState(), Qt::Unchecked);
    QCOMPARE(m_table->recCount, 1);
    QVERIFY(!m_table->trends.at(0).fitted);
    QVERIFY(child<QPushButton>("trendTabBtn")->isEnabled());
}

void FileToGraphTest::stoppedProcessingKeepsTheFormerResults()
{
    load(smallFile(20000));
    press("processBtn");
    const auto before = m_table->avarAll[0][1];
    QVERIFY(!before.empty());
    child<QComboBox>("selVarBox")->setCurrentIndex(1);
    connect(child<QProgressBar>("ProcProgressBar"), &QProgressBar::valueChanged, this,
        [this] { press("stopBtn"); });
    press("processBtn");
    QCOMPARE(m_table->varType, 1);
    QCOMPARE(m_table->avarAll[0][1], before);
    QVERIFY(m_table->avarAll[0][3].empty());
    QVERIFY(child<QToolButton>("avarGrBtn")->isEnabled());
    QCOMPARE(m_table->free_row, 1);
}

void FileToGraphTest::newProcessingShowsItsOwnStatistic()
{
    load(smallFile(300));
    press("processBtn");
    auto* button = child<QToolButton>("avarTabBtn");
    const QString first = button->text();
    button->menu()->actions().at(2)->trigger(); // opens the table of HDEV
    QVERIFY(button->text() != first);
    QCOMPARE(m_table->avarRes[0], m_table->avarAll[0][2]);
    press("processBtn");
    QCOMPARE(m_table->varType, 1);
    QCOMPARE(button->text(), first);
    QVERIFY(button->menu()->actions().at(1)->isChecked());
}

void FileToGraphTest::failedProcessingGivesTheCommandsBack()
{
    load(smallFile(300));
    press("processBtn");
    const auto fails = connect(child<QProgressBar>("ProcProgressBar"), &QProgressBar::valueChanged, this,
        [](int value) { value > 50 ? throw 0 : void(); });
    QVERIFY_EXCEPTION_THROWN(m_table->on_processBtn_clicked(), int);
    disconnect(fails);
    QVERIFY(!SLEEP);
    QVERIFY(m_rows->isEnabled());
    QVERIFY(child<QPushButton>("stopBtn")->isHidden());
    QVERIFY(!child<QToolButton>("avarGrBtn")->isEnabled());
    press("processBtn");
    QVERIFY(child<QToolButton>("avarGrBtn")->isEnabled());
}

void FileToGraphTest::deletedRowTakesItsResultsAlong()
{
    for (const int samples : {300, 400, 500})
        load(smallFile(samples));
    press("processBtn");
    press("avarTabBtn");
    const auto values = m_table->avarRes[2];
    const double mean = m_table->trends.at(2).mean;
    QVERIFY(values != m_table->avarRes[1]);
    m_rows->item(0, 0)->setCheckState(Qt::Unchecked);
    m_rows->item(2, 0)->setCheckState(Qt::Unchecked);
    press("delRecBtn");
    QCOMPARE(m_table->recCount, 2);
    QCOMPARE(m_table->record[1].RecID, m_table->load_record[1].RecID);
    QCOMPARE(m_table->record[1].n_cnt, qint64(500));
    QCOMPARE(m_table->avarRes[1], values);
    NEAR(m_table->trends.at(1).mean, mean);
    press("avarTabBtn");
    const auto tables = m_window->findChildren<TableForm*>();
    QCOMPARE(tables.size(), 2); // the one opened before lives on
    press("SelectAllRecords_Btn");
    press("delRecBtn");
    QVERIFY(!child<QToolButton>("avarTabBtn")->isEnabled());
}

void FileToGraphTest::keys()
{
    load(smallFile(20000));
    QApplication::setActiveWindow(m_window.get());
    m_rows->setFocus();
    QTest::keyClick(m_rows, Qt::Key_F5);
    QTRY_COMPARE(m_table->recCount, 1);
    child<QComboBox>("selVarBox")->setCurrentIndex(1);
    auto* stop = child<QPushButton>("stopBtn");
    connect(child<QProgressBar>("ProcProgressBar"), &QProgressBar::valueChanged, this,
        [stop] { QTest::keyClick(stop, Qt::Key_Escape); });
    press("processBtn");
    QCOMPARE(m_table->varType, 1);
}

void FileToGraphTest::rowsCanBeEditedMovedInvertedDeleted()
{
    load(smallFile(20));
    load(smallFile(30));
    load(smallFile(40));
    Record* const loaded = m_table->load_record;
    const quint16 third = loaded[2].RecID;

    m_rows->item(1, 1)->setText(QStringLiteral("7"));
    m_rows->item(1, 1)->setText(QStringLiteral("seven"));
    QCOMPARE(loaded[1].ch, 7);
    m_rows->item(1, 2)->setText(QStringLiteral("Maser"));
    m_rows->item(1, 2)->setText(QString());
    QCOMPARE(loaded[1].ref_sig, QStringLiteral("Maser"));
    const QDateTime start = loaded[1].start;
    const QDateTime stop = loaded[1].stop;
    m_rows->item(1, 7)->setText(start.addDays(40).toString(QStringLiteral("dd.MM.yyyy")));
    QCOMPARE(loaded[1].start, start.addDays(40));
    QCOMPARE(loaded[1].stop, stop.addDays(40));
    m_rows->item(1, 7)->setText(QStringLiteral("31.02.2026"));
    QCOMPARE(loaded[1].start, start.addDays(40));
    auto* kind = qobject_cast<QComboBox*>(m_rows->cellWidget(1, 6));
    kind->setCurrentIndex(1);
    QCOMPARE(int(loaded[1].dataType), 1);
    QCOMPARE(m_rows->item(1, 9)->text(), QStringLiteral("100"));
    kind->setCurrentIndex(0);
    QCOMPARE(m_rows->item(1, 10)->text(), QStringLiteral("1"));

    m_rows->selectRow(1);
    const double value = loaded[1].x[13];
    press("RotateRecord_Btn");
    NEAR(loaded[1].x[13], -value);
    QCOMPARE(loaded[1].meas_sig, QStringLiteral("Maser"));
    press("RotateRecord_Btn");
    NEAR(loaded[1].x[13], value);

    press("MoveRecordUp");
    QCOMPARE(loaded[0].n_cnt, qint64(30));
    QCOMPARE(loaded[1].n_cnt, qint64(20));
    press("MoveRecordUp");
    QCOMPARE(loaded[0].n_cnt, qint64(30));
    press("MoveRecordDown");
    QCOMPARE(loaded[1].n_cnt, qint64(30));

    press("UnselectAllRecords_Btn");
    m_rows->item(1, 0)->setCheckState(Qt::Checked);
    press("delRecBtn");
    QCOMPARE(m_table->free_row, 2);
    QCOMPARE(loaded[1].RecID, third);
    QCOMPARE(loaded[1].n_cnt, qint64(40));
    QVERIFY(m_rows->isRowHidden(2));
    press("delAllRecsBtn");
    QCOMPARE(m_table->free_row, 0);
    QVERIFY(!child<QPushButton>("processBtn")->isEnabled());
}

void FileToGraphTest::tableOf32()
{
    const auto make = [](Record& record) {
        double t[2] = {0.0, 1.0};
        for (doubleArray* array : {&record.t, &record.x}) {
            array->AddNewPart(2);
            array->append__(t, 2);
        }
        record.n_cnt = 2;
        record.n_days = 1;
        record.num_in_days = std::make_unique<qint64[]>(1);
        record.num_in_days[0] = 2;
    };
    Record record;
    for (int i = 0; i < SelRecTable::maxRecords; ++i) {
        make(record);
        m_table->addRecord(&record);
        QCOMPARE(record.n_cnt, qint64(0));
    }
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    make(record);
    m_table->addRecord(&record);
    QCOMPARE(prompts.seen.at(0).title, QStringLiteral("Ошибка загрузки записи"));
    QCOMPARE(prompts.seen.at(0).text, QStringLiteral("В таблице нет места, запись не загружена!"));
    QCOMPARE(record.n_cnt, qint64(0));
    QCOMPARE(m_table->free_row, 32);
    quint8 last = 0;
    for (int i = 0; i < 256; ++i) {
        last = m_table->generateNewID();
        QVERIFY(last != 0);
    }
}

QTEST_MAIN(FileToGraphTest)
#include "tst_filetograph.moc"
