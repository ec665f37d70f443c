#include "app/tablewindow.h"
#include "plot/phaseform.h"
#include "resources/resources.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t large = 100000; // bytes
std::atomic<int> largeLeft{-1}; // allocations of this size that still succeed; negative: all

} // namespace

void* operator new(std::size_t size)
{
    if (size >= large && largeLeft >= 0 && largeLeft-- == 0)
        throw std::bad_alloc();
    if (void* memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return std::malloc(size);
}
void* operator new[](std::size_t size)
{
    return operator new(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

Q_DECLARE_METATYPE(std::vector<TestDay>)

namespace {

/// Commands of the table that take their time: records, boxes, group of statistics, button.
void longCommands()
{
    QTest::addColumn<QString>("records");
    QTest::addColumn<QString>("boxes");
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("button");
    const auto row = [](const char* records, const char* boxes, int group, const char* button) {
        QTest::addRow("%s %s %d", button, boxes, group)
            << QString::fromUtf8(records) << QString::fromUtf8(boxes) << group << QString::fromUtf8(button);
    };
    row("BAn15000 CAn15000", "trendBox overlapBox spectrBox", 0, "processBtn");
    row("BAn15000 CAn15000", "", 1, "processBtn");
    row("BAn15000 CAn15000", "", 2, "processBtn");
    row("BAn15000 CAn15000", "crossBox spectrBox", 0, "processBtn");
    row("BAn15000 CAn15000 BCn15000", "threeCornHatBox spectrBox", 0, "processBtn");
    row("BAn15000 ABn15000", "", 0, "diffRecBtn");
    row("BAn15000 BAn15000+20000", "", 0, "mergeRecBtn");
}

} // namespace

/// What stops, disturbs or starves the commands of the record table, and records that are odd.
class TableResilienceTest : public QObject, private TableWindow {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init() { open(); }
    void cleanup()
    {
        largeLeft = -1;
        close();
    }
    void stopKeepsAll_data() { longCommands(); }
    void stopKeepsAll();
    void othersRestMeanwhile();
    void memoryEndsAnywhere_data();
    void memoryEndsAnywhere();
    void graphsWithoutMemory();
    void oddRecords_data();
    void oddRecords();
};

void TableResilienceTest::stopKeepsAll()
{
    QFETCH(QString, records);
    QFETCH(QString, boxes);
    QFETCH(QString, button);
    QFETCH(int, group);
    add(records);
    press("processBtn");
    const auto former = m_table->avarRes;
    const int rows = m_table->free_row;
    check(boxes);
    child<QComboBox>("selVarBox")->setCurrentIndex(group);
    for (const int from : {-1, 20, 60, 99}) { // stop at the first progress beyond
        bool stopped = false;
        const auto stop = connect(
            child<QProgressBar>("ProcProgressBar"), &QProgressBar::valueChanged, this, [&](int share) {
                if (share > from && !stopped)
                    press("stopBtn");
                stopped = stopped || share > from;
            });
        press(button);
        disconnect(stop);
        QVERIFY(stopped);
        QCOMPARE(m_table->free_row, rows);
        QCOMPARE(m_table->load_record[rows].n_cnt, qint64(0));
        QVERIFY(m_table->avarRes == former);
        QVERIFY(!m_table->crossProc && !SLEEP && m_rows->isEnabled());
        QCOMPARE(openResults(), 3);
    }
    press(button); // and undisturbed it goes through
    QVERIFY(m_table->free_row > rows || m_table->crossProc || m_table->avarRes != former);
}

/// Every command that the window lets through while one runs, be it by menu, key or another window.
void TableResilienceTest::othersRestMeanwhile()
{
    add("BAn20000 CAn20000 BCn20000");
    check("spectrBox");
    press("processBtn");
    const auto former = m_table->avarRes;
    m_rows->selectRow(0);
    openResults();
    int calls = 0;
    const auto during = [&] {
        ++calls;
        m_window->close();
        m_table->closeAllFigs();
        for (const char* name : {"delRecBtn", "delAllRecsBtn", "diffRecBtn", "mergeRecBtn", "MoveRecordDown",
                 "RotateRecord_Btn", "UnselectAllRecords_Btn", "addRecBtn", "avarGrBtn"})
            press(name);
        m_table->on_processBtn_clicked();
        m_table->on_delRecBtn_clicked();
        m_table->on_delAllRecsBtn_clicked();
        m_table->on_diffRecBtn_clicked();
        m_table->on_mergeRecBtn_clicked();
        m_table->on_MoveRecordDown_clicked();
        m_table->on_RotateRecord_Btn_clicked();
        m_table->EditTimeRec();
        m_table->giveForRec(m_table->load_record[0].RecID, 10.0, 20.0);
        QEvent language(QEvent::LanguageChange);
        QApplication::sendEvent(m_window.get(), &language);
        QApplication::sendEvent(m_table, &language);
    };
    m_rows->item(1, 9)->setText(QStringLiteral("1e-3")); // the filter runs, too
    connect(child<QProgressBar>("ProcProgressBar"), &QProgressBar::valueChanged, this, during);
    press("processBtn");
    QVERIFY(calls > 3);
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_table->free_row, 3);
    QCOMPARE(m_table->recCount, 3);
    QVERIFY(m_table->avarRes == former);
    QCOMPARE(openResults(), 5);
}

void TableResilienceTest::memoryEndsAnywhere_data()
{
    longCommands();
    QTest::newRow("cut") << "BAn15000 CAn15000"
                         << "" << 0 << "cut";
}

/// The n-th large allocation of a command fails, for every n there is.
void TableResilienceTest::memoryEndsAnywhere()
{
    QFETCH(QString, records);
    QFETCH(QString, boxes);
    QFETCH(int, group);
    QFETCH(QString, button);
    add(records);
    const int rows = m_table->free_row;
    const QVector<double> before = values(0);
    press("processBtn");
    const auto former = m_table->avarRes;
    m_rows->item(0, 9)->setText(QStringLiteral("1e-3"));
    check(boxes);
    child<QComboBox>("selVarBox")->setCurrentIndex(group);
    QStringList told;
    prompt::setResponder([&told](QDialog& dialog) {
        const auto* text = dialog.findChild<QLabel*>(QStringLiteral("MessageLbl"));
        told << (text ? text->text() : QString());
        return int(QDialog::Accepted);
    });
    int failures = 0;
    while (failures < 1000) {
        told.clear();
        largeLeft = failures;
        if (button == QLatin1String("cut"))
            m_table->giveForRec(m_table->load_record[0].RecID, 10.0, 14000.0);
        else
            press(button);
        const bool failed = largeLeft < 0;
        largeLeft = -1;
        QVERIFY(!SLEEP && m_rows->isEnabled() && !QApplication::overrideCursor());
        QVERIFY(child<QProgressBar>("ProcProgressBar")->isHidden());
        QVERIFY(child<QPushButton>("stopBtn")->isHidden());
        QCOMPARE(values(0), before);
        if (!failed)
            break;
        ++failures;
        QCOMPARE(told.size(), 1);
        QVERIFY(told.first().startsWith(QStringLiteral("Недостаточно оперативной памяти.\n")));
        QCOMPARE(m_table->free_row, rows);
        QCOMPARE(m_table->load_record[rows].n_cnt, qint64(0));
        QCOMPARE(openResults(), button == QLatin1String("processBtn") ? 0 : 3);
        QVERIFY(button == QLatin1String("processBtn") || m_table->avarRes == former);
    }
    QVERIFY2(failures > 0, "there were large allocations");
    QVERIFY(m_table->free_row > rows || (m_table->recCount == rows && !m_table->rows.isEmpty()));
}

/// A window that could not be made leaves no number behind.
void TableResilienceTest::graphsWithoutMemory()
{
    add("BAn15000");
    press("processBtn");
    int told = 0;
    prompt::setResponder([&told](QDialog&) { return ++told, int(QDialog::Accepted); });
    largeLeft = 0; // the frequencies come first
    press("freqGrBtn");
    QVERIFY(largeLeft < 0);
    largeLeft = -1;
    QCOMPARE(told, 1);
    QVERIFY(m_window->findChildren<PhaseForm*>().isEmpty());
    QCOMPARE(m_table->freqCount, 0);
}

void TableResilienceTest::oddRecords_data()
{
    const double nan = std::nan("");
    const auto days = [](int count, int length, double step) {
        std::vector<TestDay> made(static_cast<size_t>(count));
        for (int i = 0; i < count * length; ++i) {
            made[size_t(i / length)].t.push_back(i * step);
            made[size_t(i / length)].x.push_back(noise(i));
        }
        return made;
    };
    QTest::addColumn<std::vector<TestDay>>("days");
    QTest::addColumn<double>("interval");
    for (const int n : {0, 1, 9, 10, 11})
        QTest::addRow("%d samples", n) << (n ? days(1, n, 1.0) : days(0, 0, 1.0)) << 1.0;
    QTest::newRow("empty days") << days(3, 0, 1.0) << 1.0;
    QTest::newRow("equal times") << days(2, 100, 0.0) << 1.0;
    QTest::newRow("falling times") << days(2, 100, -1.0) << 1.0;
    QTest::newRow("times that are no numbers") << days(2, 100, nan) << 1.0;
    QTest::newRow("no interval") << days(2, 100, 1.0) << 0.0;
    QTest::newRow("interval that is no number") << days(2, 100, 1.0) << nan;
    QTest::newRow("far apart") << days(2, 100, 1e300) << 1.0;
    QTest::newRow("a sample a day") << days(400, 1, 86400.0) << 86400.0;
    QTest::newRow("50 days") << days(50, 24, 3600.0) << 3600.0;
    std::vector<TestDay> holes = days(2, 100, 1.0);
    for (double& x : holes[1].x)
        x = nan;
    QTest::newRow("a day without values") << holes << 1.0;
    holes[0].x.assign(100, nan);
    QTest::newRow("no values") << holes << 1.0;
    holes = days(3, 100, 1.0);
    holes[0] = TestDay();
    QTest::newRow("an empty first day") << holes << 1.0;
}

/// Nothing that a file may hold stops a command half way, and each result that is offered can be shown.
void TableResilienceTest::oddRecords()
{
    QFETCH(std::vector<TestDay>, days);
    QFETCH(double, interval);
    for (removeF0Vals = true; m_table->free_row < 2;) {
        Record record;
        fillDays(record, days, interval);
        record.devType = 0;
        record.ch = m_table->free_row;
        m_table->addRecord(&record);
    }
    int told = 0;
    prompt::setResponder([&told](QDialog&) { return ++told, int(QDialog::Accepted); });
    m_rows->item(0, 9)->setText(QStringLiteral("1e-9"));
    m_rows->item(0, 10)->setText(QStringLiteral("1e-9"));
    const int good = m_table->load_record[0].n_cnt < 10 ? 0 : 2;
    const std::pair<int, const char*> runs[] = {
        {1, ""}, {2, ""}, {0, "trendBox overlapBox spectrBox"}, {0, "crossBox"}};
    for (const auto& [group, boxes] : runs) {
        check(boxes);
        m_table->checkAllRec();
        child<QComboBox>("selVarBox")->setCurrentIndex(group);
        told = 0;
        press("processBtn");
        QCOMPARE(m_table->recCount, good);
        QVERIFY(good == 2 || told == 1);
        openResults();
        m_table->closeAllFigs();
    }
    m_table->checkAllRec();
    press("mergeRecBtn");
    if (m_table->free_row == 2)
        press("diffRecBtn");
    m_table->checkAllRec();
    m_table->giveForRec(m_table->load_record[0].RecID, 0.0, 50.0);
    for (int row = 0; row < m_table->free_row; ++row) {
        m_rows->selectRow(row);
        press("RotateRecord_Btn");
    }
    QVERIFY(!SLEEP && m_rows->isEnabled());
}

QTEST_MAIN(TableResilienceTest)
#include "tst_tableresilience.moc"
