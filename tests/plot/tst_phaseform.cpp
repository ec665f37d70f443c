#include "base/globals.h"
#include "plot/core/daycounts.h"
#include "plot/multiaxisplot.h"
#include "plot/phaseform.h"
#include "plot/plotzoomdt.h"
#include "support/dayrecord.h"
#include "support/near.h"
#include "support/samplerecord.h"

#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <qwt_plot_curve.h>
#include <qwt_text.h>

#include <cmath>

namespace {

const QDateTime morning(QDate(2026, 3, 1), QTime(10, 0));

/// A phase record from 10:00 on, t from 0 on.
void fill(Record& record, int n, double interval, int id, const QDateTime& start = morning)
{
    fillRecord(
        record, n, interval, [](int i) { return i * 1e-9; }, id);
    record.RecID = quint16(id);
    record.start = start;
    record.stop = start.addSecs(qint64((n - 1) * interval));
}

QPointF first(const PhaseForm& form, int curve)
{
    return form.plot->curve(curve)->sample(0);
}

size_t points(const PhaseForm& form, int curve)
{
    return form.plot->curve(curve)->dataSize();
}

bool attached(const PhaseForm& form, int curve)
{
    return form.plot->curve(curve)->plot();
}

/// Sends `n` samples, one a second, whose values fall by `slope`, as a stream does.
class Feeder {
public:
    explicit Feeder(PhaseForm& form, unsigned short id = 1)
        : m_form(form)
        , m_id(id)
    {
    }

    void send(int n, double slope = 1e-9)
    {
        std::vector<double> t, x;
        for (int i = 1; i <= n; ++i) {
            t.push_back(m_t + i);
            x.push_back(m_x - slope * i);
        }
        m_form.UpdateDynamicCurves(m_id, n, t.data(), x.data(), m_t, m_x);
        m_t = t.back();
        m_x = x.back();
    }

private:
    PhaseForm& m_form;
    unsigned short m_id;
    double m_t = 5000.0;
    double m_x = 3.0;
};

} // namespace

class TestPhaseForm : public QObject {
    Q_OBJECT
private slots:
    void oneDay();
    void severalDays();
    void markersOfADay();
    void axes();
    void manyRecords();
    void oddRecords();
    void hiddenStaysHidden();
    void closing();
    void following();
    void followingFromNothing();
    void flushAndNewDay();
    void frequencyWindow();
};

void TestPhaseForm::oneDay()
{
    Record record[1];
    fill(record[0], 100, 10.0, 5);
    PhaseForm form(nullptr);
    form.addRecords(record, 1, 0, 10.0);
    QCOMPARE(form.dayCount, 1);
    QVERIFY(form.daySlider->isHidden());
    QVERIFY(form.dynBtn->isHidden());
    QCOMPARE(first(form, 0), QPointF(36000.0, 0.0));
    QCOMPARE(points(form, 0), size_t(100));
    QCOMPARE(form.startSecond, 36000.0);
    QCOMPARE(form.stopSecond, 36990.0);
    QCOMPARE(form.plot->startTime, QDateTime(QDate(2026, 3, 1), QTime(0, 0)));
    QCOMPARE(form.plot->plot()->title().text(), QString("01.03.2026 - 01.03.2026"));
    QCOMPARE(form.plot->curve(0)->title().text(), QString("Clock 5 - Maser (5)"));
    // The scale ends near the data.
    const QwtInterval range = form.plot->plot()->axisInterval(MultiAxisPlot::bottomAxis);
    QVERIFY(range.minValue() > 35900.0 && range.maxValue() < 37100.0);
    // A stretch goes out in the times of the record.
    QSignalSpy spy(&form, &StaticPhaseForm::forRec);
    emit form.plot->forRecByIND(0, 36010.0, 36050.0);
    form.giveForRec(1, 0.0, 1.0);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0], (QVariantList{QVariant::fromValue<unsigned short>(5), 10.0, 50.0}));
    // Dates in the wrong order leave the title.
    QDate late(2026, 4, 2), early(2026, 4, 1);
    form.setStartStopDates(late, early);
    QCOMPARE(form.plot->plot()->title().text(), QString("01.03.2026 - 01.03.2026"));
    form.setStartStopDates(early, late);
    QCOMPARE(form.plot->plot()->title().text(), QString("01.04.2026 - 02.04.2026"));
    form.refresh();
    QCOMPARE(form.plot->curveCount, 0);
    QVERIFY(!attached(form, 0));
}

void TestPhaseForm::severalDays()
{
    Record records[2];
    fill(records[0], 3 * 1440, 60.0, 1, QDateTime(QDate(2026, 3, 1), QTime(0, 0)));
    fill(records[1], 60, 60.0, 2, QDateTime(QDate(2026, 3, 2), QTime(23, 30)));
    PhaseForm form(nullptr);
    form.subtractFirst = true;
    form.addRecords(records, 2);
    QCOMPARE(form.dayCount, 3);
    QCOMPARE(form.dayCounts[1], (std::vector<int>{0, 30, 30}));
    QCOMPARE(form.daySlider->maximum(), 2);
    QCOMPARE(form.daySlider->pageStep(), 1);
    QCOMPARE(form.daySlider->value(), 2);
    QVERIFY(!form.daySlider->isHidden());
    QCOMPARE(first(form, 0), QPointF(2 * secondsOfDay, 0.0));
    QCOMPARE(points(form, 0), size_t(1440));
    NEAR(form.plot->curve(0)->sample(1439).y(), 1439e-9);
    QCOMPARE(form.plot->plot()->axisInterval(MultiAxisPlot::bottomAxis),
        QwtInterval(2 * secondsOfDay, 3 * secondsOfDay));
    // The keys of the slider work from the graph.
    QTest::keyClick(&form, Qt::Key_Home);
    QCOMPARE(form.daySlider->value(), 0);
    QCOMPARE(first(form, 0).x(), 0.0);
    QVERIFY(!attached(form, 1));
    QTest::keyClick(&form, Qt::Key_PageUp);
    QCOMPARE(form.daySlider->value(), 1);
    QVERIFY(attached(form, 1));
    QCOMPARE(first(form, 1).x(), secondsOfDay + 23.5 * 3600.0);
    // So does a day called by its number.
    form.anotherDay(2);
    QCOMPARE(form.daySlider->value(), 2);
    QCOMPARE(first(form, 0).x(), 2 * secondsOfDay);
    form.anotherDay(3);
    QCOMPARE(form.daySlider->value(), 2);
    form.anotherDay(1);
    // A period on another day shows that day.
    form.plot->zoomDialog()->setdt(morning.addDays(2), morning.addDays(2).addSecs(3600));
    emit form.plot->zoomDialog()->zoomIt();
    QCOMPARE(form.daySlider->value(), 2);
    QCOMPARE(form.plot->plot()->axisInterval(MultiAxisPlot::bottomAxis),
        QwtInterval(2 * secondsOfDay + 36000.0, 2 * secondsOfDay + 39600.0));
    const size_t before = points(form, 1);
    form.anotherDay(3);
    form.anotherDay(-1);
    QCOMPARE(points(form, 1), before);
}

void TestPhaseForm::markersOfADay()
{
    Record records[1];
    fill(records[0], 2 * 1440, 60.0, 1, QDateTime(QDate(2026, 3, 1), QTime(0, 0)));
    PhaseForm form(nullptr);
    form.addRecords(records, 1);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QWidget* canvas = form.plot->plot()->canvas();
    const auto shown = [&form] {
        int count = 0;
        for (const QwtPlotItem* marker : form.plot->plot()->itemList(QwtPlotItem::Rtti_PlotMarker))
            count += marker->isVisible() ? 1 : 0;
        return count;
    };
    QTest::mousePress(canvas, Qt::LeftButton, {}, QPoint(100, 100));
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, QPoint(200, 150));
    const auto* means = form.findChild<QWidget*>("bottomLeftBox");
    QVERIFY(!means->isHidden() && shown() == 4);
    form.daySlider->setValue(0);
    QVERIFY(means->isHidden() && shown() == 0);
    QCOMPARE(form.plot->statusText(), QString());
    // A stretch may begin on one day and end on the next.
    form.plot->setOtmetMode();
    QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(100, 100));
    form.daySlider->setValue(1);
    QVERIFY(!form.plot->statusText().isEmpty());
    QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(200, 100));
    QCOMPARE(form.plot->selectionState, 2);
    QVERIFY(form.plot->selectionX1 < secondsOfDay && form.plot->selectionX2 > secondsOfDay);
}

void TestPhaseForm::axes()
{
    Record records[3];
    for (int i = 0; i < 3; ++i)
        fill(records[i], 10, 1.0, i + 1);
    records[1].dataType = 2;
    records[2].dataType = 1;
    PhaseForm form(nullptr);
    form.addRecords(records, 3);
    MultiAxisPlot& plot = *form.plot->plot();
    QCOMPARE(plot.axisOf(form.plot->curve(1)), 2);
    QCOMPARE(plot.axisOf(form.plot->curve(2)), 1);
    QCOMPARE(int(form.plot->currentAxis), 0);
    QVERIFY(plot.axisEnabled(2) && !plot.axisEnabled(3));
    QCOMPARE(plot.axisColor(0), QColor(Qt::black));
    QCOMPARE(plot.axisColor(1), QColor(180, 180, 180));
    PhaseForm other(nullptr);
    other.isFreq = true;
    other.plot->plotKind = 1;
    other.addRecords(records, 3, 4, 1.0);
    QCOMPARE(other.plot->plot()->axisOf(other.plot->curve(1)), 6);
    QCOMPARE(int(other.plot->currentAxis), 4);
}

void TestPhaseForm::manyRecords()
{
    const auto records = std::make_unique<Record[]>(33);
    for (int i = 0; i < 33; ++i)
        fill(records[size_t(i)], 5, 1.0, i + 1);
    records[3].freqTau = 0.25;
    PhaseForm form(nullptr);
    form.addRecords(records.get(), 33, 0, 1.0);
    QCOMPARE(form.plot->curveCount, 32);
    QVERIFY(attached(form, 31));
    QCOMPARE(form.minInterval, 0.25);
    form.addRecords(records.get(), 0, 0, 1.0);
    QCOMPARE(form.plot->curveCount, 32);
}

void TestPhaseForm::oddRecords()
{
    Record records[3];
    fill(records[0], 1, 1.0, 1);
    records[0].x[0] = std::nan("");
    // No samples, and an end before the start.
    records[1].start = QDateTime(QDate(2027, 1, 1), QTime(0, 0));
    records[1].stop = QDateTime(QDate(1996, 1, 1), QTime(0, 0));
    PhaseForm form(nullptr);
    form.addRecords(records, 2);
    QCOMPARE(form.dayCount, 1);
    QCOMPARE(points(form, 0), size_t(1));
    form.addRecords(records + 1, 1);
    QCOMPARE(form.dayCount, 1);
    // Thirty years with a sample at either end.
    fillDays(records[2], {{{0, 950000000}, {1, 2}}});
    form.addRecords(records + 2, 1);
    QCOMPARE(form.dayCount, 10996);
    QCOMPARE(points(form, 0), size_t(1));
    form.daySlider->setValue(5000);
    QVERIFY(!attached(form, 0));
    form.grab();
}

void TestPhaseForm::hiddenStaysHidden()
{
    Record records[3];
    for (int i = 0; i < 3; ++i) // the last one misses the first day
        fill(records[i], 2880, 60.0, i + 1, QDateTime(QDate(2026, 3, i < 2 ? 1 : 2), QTime(0, 0)));
    PhaseForm form(nullptr);
    form.addRecords(records, 3);
    form.daySlider->setValue(0);
    form.plot->showCurve(form.plot->curve(1), false);
    form.daySlider->setValue(1);
    QVERIFY(form.plot->curveVisible(0) && form.plot->curveVisible(2));
    QVERIFY(!form.plot->curveVisible(1));
}

void TestPhaseForm::closing()
{
    Record record[1];
    fill(record[0], 10, 1.0, 1);
    PhaseForm form(nullptr);
    form.addRecords(record, 1);
    QSignalSpy spy(&form, &StaticPhaseForm::IsClosing);
    form.close();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(form.records[0].n_cnt, qint64(0));
    QCOMPARE(form.plot->curveCount, 0);
    QVERIFY(!attached(form, 0));
    QVERIFY(!form.plot->curveVisible(0));
    QCOMPARE(record[0].n_cnt, qint64(10));
}

void TestPhaseForm::following()
{
    Record records[2];
    fill(records[0], 10000, 1.0, 1);
    fill(records[1], 10000, 1.0, 2);
    PhaseForm form(nullptr);
    form.addRecords(records, 2);
    form.addDynamicRecords();
    QVERIFY(!form.dynamicMode);
    records[0].dynamic = true;
    form.addRecords(records, 2);
    form.addDynamicRecords();
    QVERIFY(form.dynamicMode && form.dynBtn->isChecked() && !form.dynBtn->isHidden());
    QVERIFY(!form.plot->processMenu()->isEnabled());
    QCOMPARE(form.dynRecordCount, 1);
    const double last = 36000.0 + 9999.0;
    QCOMPARE(form.dynWindowStart, long(last) - 4000);
    Feeder stranger(form, 2);
    stranger.send(5);
    QVERIFY(form.records[1].dyn_t.isEmpty());
    Feeder feeder(form);
    form.busy = true;
    feeder.send(5);
    QVERIFY(form.records[0].dyn_t.isEmpty());
    form.busy = false;
    feeder.send(100);
    QCOMPARE(form.dynWindowStart, long(last) + 100 - 4000);
    QCOMPARE(form.plot->plot()->axisInterval(MultiAxisPlot::bottomAxis),
        QwtInterval(last + 100 - 4000, last + 100));
    QCOMPARE(points(form, 0), size_t(8000 + 100));
    const QPointF end = form.plot->curve(0)->sample(8099);
    QCOMPARE(end.x(), last + 100);
    NEAR(end.y(), 10099e-9, 1e-6);
    // What the user has zoomed to stays.
    form.plot->plot()->zoomTo(0, QRectF(45000.0, 0.0, 500.0, 1e-5));
    feeder.send(1);
    QCOMPARE(form.plot->plot()->axisInterval(MultiAxisPlot::bottomAxis), QwtInterval(45000.0, 45500.0));
    // Viewing: the tail joins the record, and later samples wait.
    form.dynBtn->click();
    QVERIFY(!form.dynamicMode && form.plot->processMenu()->isEnabled());
    QCOMPARE(form.records[0].n_cnt, qint64(10101));
    QCOMPARE(points(form, 0), size_t(10101));
    feeder.send(7);
    QCOMPARE(points(form, 0), size_t(10101));
    form.dynBtn->click();
    QVERIFY(form.dynamicMode);
    QCOMPARE(points(form, 0), size_t(8007));
    QCOMPARE(form.dynWindowStart, long(last) + 102);
}

void TestPhaseForm::followingFromNothing()
{
    Record record[1];
    record[0].RecID = 1;
    record[0].dynamic = true;
    record[0].dyn_start = morning;
    PhaseForm form(nullptr);
    form.addRecords(record, 1);
    form.addDynamicRecords();
    QVERIFY(form.dynamicMode && attached(form, 0));
    QCOMPARE(form.dynWindowStart, 36000l);
    QCOMPARE(form.plot->plot()->axisInterval(MultiAxisPlot::bottomAxis), QwtInterval(36000.0, 40000.0));
    Feeder feeder(form);
    feeder.send(3);
    QCOMPARE(points(form, 0), size_t(3));
    QCOMPARE(first(form, 0).x(), 36000.0);
    feeder.send(5000);
    QCOMPARE(form.records[0].dyn_t.size(), 2000);
    QCOMPARE(form.records[0].n_cnt, qint64(3003));
    QCOMPARE(form.plot->curve(0)->maxXValue(), 36000.0 + 5002.0);
}

void TestPhaseForm::flushAndNewDay()
{
    Record record[1];
    fill(record[0], 100, 1.0, 1, QDateTime(QDate(2026, 3, 1), QTime(23, 30)));
    record[0].dynamic = true;
    PhaseForm form(nullptr);
    form.addRecords(record, 1);
    form.addDynamicRecords();
    Feeder feeder(form);
    for (int sent = 0; sent < 40; ++sent) {
        feeder.send(150);
        const int length = form.records[0].dyn_t.size();
        QVERIFY(length < DYN_PLOTLEN);
        QVERIFY(length >= PRE_PLOTLEN || form.records[0].n_cnt == 100);
        QVERIFY(points(form, 0) <= size_t(3 * DYN_PLOTLEN));
    }
    // 1800 s before midnight, and what was not flushed behind it.
    QCOMPARE(form.records[0].n_cnt + form.records[0].dyn_t.size(), qint64(6100));
    QCOMPARE(dayLengthsOf(form.records[0]).first(), 1800);
    QVERIFY(rises(form.records[0].t));
    QCOMPARE(form.dayCount, 2);
    QCOMPARE(form.plot->plot()->title().text(), QString("01.03.2026 - 02.03.2026"));
    form.dynBtn->click();
    QCOMPARE(form.dayCounts[0], (std::vector<int>{1800, 4300}));
    QVERIFY(!form.daySlider->isHidden());
    QCOMPARE(form.daySlider->maximum(), 1);
    QCOMPARE(points(form, 0), size_t(4300));
    QCOMPARE(record[0].n_cnt, qint64(100));
}

void TestPhaseForm::frequencyWindow()
{
    Record record[1];
    fillRecord(
        record[0], 100, 1.0, [](int) { return 1e-9; }, 1);
    record[0].RecID = 1;
    record[0].dynamic = true;
    PhaseForm form(nullptr);
    form.isFreq = true;
    form.plot->plotKind = 1;
    form.addRecords(record, 1, 4, 1.0);
    form.addDynamicRecords();
    Feeder feeder(form);
    feeder.send(10, 2e-9);
    QCOMPARE(points(form, 0), size_t(110));
    NEAR(form.plot->curve(0)->sample(109).y(), 2e-9, 1e-6);
    feeder.send(5000, 2e-9);
    QCOMPARE(form.records[0].n_cnt, qint64(100 + 3010));
    for (int i = 100; i < 3110; ++i)
        NEAR(form.records[0].x[i], 2e-9, 1e-5);
    // The tail holds phases: it stays apart.
    form.dynBtn->click();
    QCOMPARE(form.records[0].n_cnt, qint64(3110));
    QCOMPARE(points(form, 0), size_t(3110));
}

QTEST_MAIN(TestPhaseForm)
#include "tst_phaseform.moc"
