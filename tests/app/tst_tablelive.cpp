#include "app/tablewindow.h"
#include "plot/multiaxisplot.h"
#include "plot/phaseform.h"
#include "resources/resources.h"
#include "stats/incremental.h"
#include "support/near.h"

#include <QComboBox>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <qwt_plot_curve.h>

#include <algorithm>

/// What the windows that the record table opens take from records that go on being measured.
class TableLiveTest : public QObject, private TableWindow {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init() { open(); }
    void cleanup() { close(); }
    void resultsFollow();
    void onlyLikeResultsFollow_data();
    void onlyLikeResultsFollow();
    void seriesFollow();
    void numbers();
    void stretchOfACheckedRow();
    void kindsHaveTheirAxes();

private:
    template <typename T> T* newest() { return m_window->findChildren<T*>().value(0); }
    void closeForm(QWidget* window);
    varInf runningOf(int row, int type, double value);
};

void TableLiveTest::closeForm(QWidget* window)
{
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Running values of a record, the same at every averaging time of its results.
varInf TableLiveTest::runningOf(int row, int type, double value)
{
    const size_t index = size_t(row);
    varInf running;
    running.Reserve(m_table->tauCount[index]);
    running.recID = m_table->record[index].RecID;
    running.interval = m_table->record[index].Kdec;
    running.typeOfVar = static_cast<unsigned char>(type);
    std::fill_n(running.value, running.length, value);
    return running;
}

void TableLiveTest::resultsFollow()
{
    add("BAn7000i86.4l1 CAn7000i86.4");
    QVERIFY(m_table->load_record[0].dynamic);
    press("processBtn");
    press("avarGrBtn");
    press("avarTabBtn");
    auto* graph = newest<AvarForm>();
    auto* table = newest<TableForm>();
    QVERIFY(graph->statusText().isEmpty() && !graph->windowTitle().contains("Не обновляется"));
    const size_t points = graph->curve(0)->dataSize();
    const double former = graph->curve(1)->sample(1).y();
    const varInf running = runningOf(0, 1, 8.64e-12);
    emit m_table->UpdAvarPlots(running.length, running, m_table->tauSec[0].data());
    QCOMPARE(graph->curve(0)->dataSize(), points);
    for (size_t i = 0; i < points; ++i)
        NEAR(graph->curve(0)->sample(int(i)).y(), 1e-13);
    NEAR(graph->curve(1)->sample(1).y(), former);
    const QTableWidget* cells = table->sorchTable;
    for (int row = 2; row < cells->rowCount(); ++row)
        QCOMPARE(cells->item(row, 0)->text(), QStringLiteral("1e-13"));
    QVERIFY(cells->item(2, 1)->text() != QLatin1String("1e-13"));
    // A longer measurement has longer averaging times.
    std::vector<double> tau = m_table->tauSec[0];
    const double last = tau.back();
    const int rows = cells->rowCount();
    tau.push_back(10.0 * last);
    varInf longer = running;
    longer.Reserve(running.length + 1);
    longer.value[running.length] = 8.64e-14;
    emit m_table->UpdAvarPlots(longer.length, longer, tau.data());
    NEAR(graph->curve(0)->maxXValue(), 10.0 * last);
    QCOMPARE(cells->rowCount(), rows + 1);
    QCOMPARE(cells->item(rows, 0)->text(), QStringLiteral("1e-15"));
    QCOMPARE(cells->item(rows, 1)->text(), QString());

    closeForm(graph);
    table->close();
    QVERIFY(table->channels.isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    emit m_table->UpdAvarPlots(longer.length, longer, tau.data());
    QVERIFY(!newest<AvarForm>() && !newest<TableForm>());
}

void TableLiveTest::onlyLikeResultsFollow_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("boxes");
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("statistic"); // of the menu
    QTest::addColumn<bool>("follows");
    QTest::addColumn<bool>("told");
    const char live[] = "BAn7000i86.4l1", still[] = "BAn7000i86.4";
    const auto row = [](const char* record, const char* boxes, int group, int statistic, bool follows,
                         bool told) {
        QTest::addRow("%s %s %d %d", record, boxes, group, statistic)
            << QString::fromUtf8(record) << QString::fromUtf8(boxes) << group << statistic << follows << told;
    };
    row(live, "", 0, 1, true, false);
    row(live, "", 0, 0, false, true);
    row(live, "", 0, 2, false, true);
    row(live, "overlapBox", 0, 1, false, true);
    row(live, "", 1, 0, false, true);
    row(live, "", 2, 0, false, true);
    row(still, "overlapBox", 0, 1, false, false);
    row(still, "trendBox", 0, 1, false, false);
}

void TableLiveTest::onlyLikeResultsFollow()
{
    QFETCH(QString, record);
    QFETCH(QString, boxes);
    QFETCH(int, group);
    QFETCH(int, statistic);
    QFETCH(bool, follows);
    QFETCH(bool, told);
    add(record);
    check(boxes);
    child<QComboBox>("selVarBox")->setCurrentIndex(group);
    press("processBtn");
    for (const char* button : {"avarGrBtn", "avarTabBtn"})
        child<QToolButton>(button)->menu()->actions().at(statistic)->trigger();
    auto* graph = newest<AvarForm>();
    auto* table = newest<TableForm>();
    QCOMPARE(graph->windowTitle().endsWith(QStringLiteral(". Не обновляется.")), told);
    QCOMPARE(table->windowTitle().endsWith(QStringLiteral(". Не обновляется.")), told);
    QCOMPARE(graph->statusText().isEmpty(), !told);
    const double value = graph->curve(0)->sample(0).y();
    const QString cell = table->sorchTable->item(2, 0)->text();
    const varInf running = runningOf(0, graph->avarType, 1.0);
    emit m_table->UpdAvarPlots(running.length, running, m_table->tauSec[0].data());
    QCOMPARE(graph->curve(0)->sample(0).y() != value, follows);
    QCOMPARE(table->sorchTable->item(2, 0)->text() != cell, follows);
}

void TableLiveTest::seriesFollow()
{
    add("CAn7000i86.4 BAn7000i86.4l1");
    press("processBtn");
    press("sampGrBtn");
    press("freqGrBtn");
    const QList<PhaseForm*> windows = m_window->findChildren<PhaseForm*>();
    QCOMPARE(windows.size(), 2);
    const double t[] = {1000.0, 1086.4, 1172.8}, x[] = {1e-9, 2e-9, 3e-9};
    emit m_table->PlotsTakeNewDataFromManager(m_table->record[1].RecID, 3, t, x, 913.6, 0.0);
    for (PhaseForm* window : windows) {
        QVERIFY(window->dynamicMode && !window->dynBtn->isHidden());
        QCOMPARE(window->dynRecordCount, 1);
        QCOMPARE(window->records[1].dyn_t.size(), 3);
        QVERIFY(window->records[0].dyn_t.isEmpty());
    }
    m_table->closeAllFigs();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    emit m_table->PlotsTakeNewDataFromManager(m_table->record[1].RecID, 3, t, x, 913.6, 0.0);

    checkRows({0});
    press("processBtn");
    press("sampGrBtn");
    QVERIFY(!newest<PhaseForm>()->dynamicMode && newest<PhaseForm>()->dynBtn->isHidden());
}

void TableLiveTest::numbers()
{
    add("BA");
    press("processBtn");
    const auto counts = [this] { return std::pair(m_table->sampCount, m_table->freqCount); };
    QCOMPARE(counts(), std::pair(0, 0));
    press("sampGrBtn");
    auto* first = newest<PhaseForm>();
    QCOMPARE(counts(), std::pair(1, 0));
    check("checkBox");
    press("sampGrBtn");
    auto* second = newest<AvarForm>();
    QCOMPARE(counts(), std::pair(2, 0));
    press("freqGrBtn");
    press("avarGrBtn");
    QCOMPARE(counts(), std::pair(2, 1));
    closeForm(first);
    QCOMPARE(counts(), std::pair(2, 1));
    closeForm(second);
    QCOMPARE(counts(), std::pair(0, 1));
    m_table->closeAllFigs();
    QCOMPARE(counts(), std::pair(0, 0));
}

/// A stretch is counted from the row that it is cut from.
void TableLiveTest::stretchOfACheckedRow()
{
    add("BA BA");
    Record& other = m_table->load_record[0];
    for (int i = 0; i < 300; ++i)
        other.t[i] += 1000.0;
    other.RecID = m_table->load_record[1].RecID;
    checkRows({1});
    press("processBtn");
    press("sampGrBtn");
    emit newest<PhaseForm>()->forRec(other.RecID, 100.0, 200.0);
    QCOMPARE(m_table->free_row, 3);
    QCOMPARE(m_table->load_record[2].n_cnt, qint64(101));
    NEAR(m_table->load_record[2].t[0], 100.0);
    press("avarGrBtn");
    auto* graph = newest<AvarForm>();
    emit graph->forRec(other.RecID, 10.0, 20.0);
    QCOMPARE(m_table->free_row, 3);
    QCOMPARE(graph->statusText(), QStringLiteral("Новая запись вырезается только из графика по времени"));
}

void TableLiveTest::kindsHaveTheirAxes()
{
    add("BAn7000 BAn7000k1");
    press("processBtn");
    press("avarGrBtn");
    const AvarForm* graph = newest<AvarForm>();
    QCOMPARE(graph->curveCount, 2);
    QVERIFY(graph->plot()->axisEnabled(0) && graph->plot()->axisEnabled(1));
    QCOMPARE(graph->plot()->axisOf(graph->curve(1)), 1);
}

QTEST_MAIN(TableLiveTest)
#include "tst_tablelive.moc"
