#include "base/globals.h"
#include "graphs.h"
#include "plot/core/betweenmarkers.h"
#include "plot/multiaxisplot.h"
#include "stats/deviations.h"
#include "support/near.h"

#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <qwt_plot_intervalcurve.h>
#include <qwt_plot_marker.h>
#include <qwt_text_label.h>

#include <limits>

namespace {

class AdevForm : public AvarForm {
public:
    using AvarForm::AvarForm;
    bool showsAdev(int index) const override { return index >= 1; }
};

QAction* action(const QWidget& form, const QString& text)
{
    for (QAction* each : form.findChildren<QAction*>()) {
        if (each->text() == text)
            return each;
    }
    return nullptr;
}

QPoint pixel(const PlotForm& form, double x, int y)
{
    return QPoint(qRound(form.plot()->transform(MultiAxisPlot::bottomAxis, x)), y);
}

/// The strip, found by what sets it apart from error bars.
const QwtPlotIntervalCurve* stripOf(const PlotForm& form)
{
    for (const QwtPlotItem* item : form.plot()->itemList()) {
        const auto* curve = dynamic_cast<const QwtPlotIntervalCurve*>(item);
        if (curve && curve->style() == QwtPlotIntervalCurve::Tube)
            return curve;
    }
    return nullptr;
}

bool visibleMarker(const PlotForm& form, const QString& name)
{
    for (const QwtPlotItem* item : form.plot()->itemList()) {
        const auto* marker = dynamic_cast<const QwtPlotMarker*>(item);
        if (marker && marker->label().text() == name)
            return marker->isVisible();
    }
    return false;
}

} // namespace

class TestPlotSelect : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { App_lang.clear(); }
    void marking();
    void markingOnALogarithmicAxis();
    void otherModesEndAHalfMadeStretch();
    void bothDirections();
    void strip();
    void phaseSeries_data();
    void phaseSeries();
    void adevRows_data();
    void adevRows();
    void adevBox();
    void boxesKeepApart_data();
    void boxesKeepApart();
};

void TestPlotSelect::marking()
{
    AvarForm form(nullptr, nullptr, 0);
    double x[] = {0.0, 50.0, 100.0};
    double y[] = {1.0, 3.0, 2.0};
    double higher[] = {1.0, 30.0, 2.0};
    form.addData(7, 3, x, y);
    form.addData(8, 3, x, higher);
    form.addData(9, 3, x, higher, 1, start, start.addSecs(100));
    form.showCurve(form.curve(1), false);
    showWindow(form);
    QWidget* canvas = form.plot()->canvas();
    QSignalSpy byIndex(&form, &PlotForm::forRecByIND);
    QSignalSpy byChannel(&form, &AvarForm::forRec);
    action(form, "Отметить границы")->trigger();
    QVERIFY(!form.plot()->zoomEnabled() && !action(form, "Маркер")->isChecked());
    QTest::mouseClick(canvas, Qt::LeftButton, {}, pixel(form, 70.0, 40));
    QCOMPARE(form.clickCount, 1);
    QVERIFY(form.selectionDragging && form.selectionState == 0);
    QVERIFY(form.statusText().startsWith("X1 = ") && !form.statusText().contains("Y"));
    QVERIFY(visibleMarker(form, "X1") && !visibleMarker(form, "Y1") && !stripOf(form)->isVisible());
    form.saveNewRec();
    QCOMPARE(byIndex.size(), 0);

    QTest::mouseMove(canvas, pixel(form, 40.0, 50));
    QVERIFY2(form.statusText().startsWith("X2 = ") && form.statusText().contains("; Y2 = "),
        qPrintable(form.statusText()));
    QVERIFY(visibleMarker(form, "X2") && visibleMarker(form, "Y2") && stripOf(form)->isVisible());
    // One range of the visible curve of the axis, 1 to 3, above and below.
    NEAR(stripOf(form)->sample(0).interval.minValue(), -1.0);
    NEAR(stripOf(form)->sample(0).interval.maxValue(), 5.0);

    QTest::mouseClick(canvas, Qt::LeftButton, {}, pixel(form, 30.0, 60));
    QCOMPARE(form.clickCount, 0);
    QCOMPARE(form.selectionState, 2);
    QVERIFY(!form.selectionDragging && stripOf(form)->isVisible());
    QCOMPARE(form.statusText(), QString::asprintf("X2 = %.3lf", form.selectionX2));
    QTest::mouseMove(canvas, pixel(form, 90.0, 60));
    NEAR(stripOf(form)->sample(0).value, form.selectionX2);
    action(form, "Сохранить как новую запись")->trigger();
    QCOMPARE(byIndex.size(), 2);
    QCOMPARE(byIndex[1][0].toInt(), 2);
    NEAR(byIndex[0][1].toDouble(), 30.0, 0.02);
    NEAR(byIndex[0][2].toDouble(), 70.0, 0.02);
    QCOMPARE(byChannel[0][0].toInt(), 7);

    QTest::mouseClick(canvas, Qt::RightButton, {}, pixel(form, 30.0, 60));
    QVERIFY(form.selectionState == 0 && !stripOf(form)->isVisible() && !visibleMarker(form, "X1"));
    QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(20, -5));
    QCOMPARE(form.clickCount, 0);
}

void TestPlotSelect::markingOnALogarithmicAxis()
{
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    form.xAxisKind = 1;
    form.startTime = start;
    add(form, 1, 12);
    showWindow(form);
    form.setOtmetMode();
    QTest::mouseClick(form.plot()->canvas(), Qt::LeftButton, {}, QPoint(60, 40));
    QVERIFY2(form.statusText().endsWith("01.02.25"), qPrintable(form.statusText()));
    QTest::mouseMove(form.plot()->canvas(), QPoint(100, 40));
    QVERIFY2(form.statusText().contains("01.02.25,  Y2 = "), qPrintable(form.statusText()));
    QVERIFY(stripOf(form)->sample(0).interval.minValue() > 0.0);
    QVERIFY(!form.grab().isNull());
}

void TestPlotSelect::otherModesEndAHalfMadeStretch()
{
    AvarForm form(nullptr, nullptr, 0);
    add(form, 1, 5);
    showWindow(form);
    const QPoint first(60, 40);
    for (const char* mode : {"Маркер", "Масштаб"}) {
        form.setOtmetMode();
        QTest::mouseClick(form.plot()->canvas(), Qt::LeftButton, {}, first);
        action(form, mode)->trigger();
        QVERIFY(form.clickCount == 0 && !form.selectionDragging && !visibleMarker(form, "X1"));
    }
    form.setOtmetMode();
    QTest::mouseClick(form.plot()->canvas(), Qt::LeftButton, {}, first);
    QTest::mouseClick(form.plot()->canvas(), Qt::LeftButton, {}, QPoint(90, 40));
    form.setZoomMode();
    QVERIFY(form.selectionState == 2 && stripOf(form)->isVisible());
    form.setCurrentAxis(1);
    QVERIFY(form.selectionState == 0 && !stripOf(form)->isVisible());
}

void TestPlotSelect::bothDirections()
{
    AvarForm form(nullptr, nullptr, 0);
    QSignalSpy spy(&form, &PlotForm::forRecByIND);
    form.selectionState = 2;
    form.saveNewRec();
    QCOMPARE(spy.size(), 0);
    add(form, 1, 5);
    form.selectionState = 2;
    for (const auto& [x1, x2] : {std::make_pair(2.0, 9.0), std::make_pair(9.0, 2.0)}) {
        form.selectionX1 = x1;
        form.selectionX2 = x2;
        form.saveNewRec();
        QCOMPARE(spy.last()[1].toDouble(), 2.0);
        QCOMPARE(spy.last()[2].toDouble(), 9.0);
    }
    form.selectionState = 0;
    form.saveNewRec();
    QCOMPARE(spy.size(), 2);
}

void TestPlotSelect::strip()
{
    AvarForm form(nullptr, nullptr, 0);
    add(form, 1, 5);
    const QwtInterval before = form.plot()->axisInterval(0);
    form.setSelectionRect(1.0, 5.0, -4.0, 4.0);
    form.setSelectionXmin(7.0);
    form.setSelectionXmax(6.0);
    form.setSelectionYmin(3.0);
    form.setSelectionYmax(-2.0);
    QCOMPARE(stripOf(form)->dataSize(), size_t(2));
    QCOMPARE(stripOf(form)->sample(0).value, 6.0);
    QCOMPARE(stripOf(form)->sample(1).value, 7.0);
    QCOMPARE(stripOf(form)->sample(0).interval, QwtInterval(-2.0, 3.0));
    form.plot()->replot();
    QCOMPARE(form.plot()->axisInterval(0), before);
    form.setSelectionXmin(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(stripOf(form)->dataSize(), size_t(0));
}

void TestPlotSelect::phaseSeries_data()
{
    QTest::addColumn<QVector<double>>("x");
    QTest::addColumn<double>("interval");
    QTest::addColumn<std::vector<double>>("time");
    QTest::addColumn<std::vector<double>>("phase");
    using Numbers = std::vector<double>;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("bounds belong to it") << QVector<double>{9.0, 10.0, 11.0, 13.0, 20.0, 21.0} << 1.0
                                         << Numbers{10.0, 11.0, 13.0, 20.0} << Numbers{0.0, 2.0, 8.0, 36.0};
    QTest::newRow("whole seconds") << QVector<double>{0.0, 10.0, 11.9, 12.8999999999} << 1.0
                                   << Numbers{10.0, 11.0, 12.0} << Numbers{0.0, 2.0, 5.0};
    QTest::newRow("fractions") << QVector<double>{0.0, 10.0, 10.25, 10.75} << 0.25
                               << Numbers{10.0, 10.25, 10.75} << Numbers{0.0, 0.5, 2.0};
    QTest::newRow("no place") << QVector<double>{nan, 15.0, nan} << 1.0 << Numbers{15.0} << Numbers{0.0};
}

void TestPlotSelect::phaseSeries()
{
    QFETCH(QVector<double>, x);
    QFETCH(double, interval);
    QFETCH(std::vector<double>, time);
    QFETCH(std::vector<double>, phase);
    PlotPoints curve{"", x, {}};
    for (int i = 0; i < x.size(); ++i)
        curve.y << i + 1.0;
    const PhaseSeries series = phaseBetween(curve, 20.0, 10.0, interval);
    QCOMPARE(series.time.size(), time.size());
    for (size_t i = 0; i < time.size(); ++i) {
        NEAR(series.time[i], time[i]);
        NEAR(series.phase[i], phase[i]);
    }
}

void TestPlotSelect::adevRows_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<double>("interval");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("none") << 0 << 1.0 << QStringList{};
    QTest::newRow("one") << 1 << 1.0 << QStringList{};
    QTest::newRow("19") << 19 << 1.0 << QStringList{};
    QTest::newRow("20") << 20 << 1.0 << QStringList{"1"};
    QTest::newRow("2000, interval 1.5") << 2000 << 1.5 << QStringList{"1", "15", "150"};
    QTest::newRow("below a second") << 2000 << 0.025 << QStringList{"0.025", "0.25", "2.5"};
    QTest::newRow("no interval") << 200 << 0.0 << QStringList{"0", "0"};
}

void TestPlotSelect::adevRows()
{
    QFETCH(int, points);
    QFETCH(double, interval);
    QFETCH(QStringList, labels);
    PhaseSeries series;
    for (int i = 0; i < points; ++i) {
        series.time.push_back(interval * i);
        series.phase.push_back(1e-9 * ((i * 7919) % 101));
    }
    QString wanted = "<TD width=30 align = center>ADEV</TD></TR>";
    long m = 1;
    for (const QString& label : labels) {
        PhaseSeries copy = series;
        const double value = alan_scdo(points, m, copy.phase.data(), copy.time.data(), interval);
        wanted += "<TR align = center><TD align = center>" + label
            + "</TD><TD align = center><FONT COLOR=Black>" + QString::number(value, 'e', 2)
            + "</FONT></TD></TR>";
        m *= 10;
    }
    const QString table = adevTable(series, interval, true);
    QVERIFY2(table.endsWith(wanted + "</TABLE></Qt>"), qPrintable(table));
    QVERIFY(table.contains("tau, s"));
    QVERIFY(adevTable(series, interval, false).contains("СКДО"));
}

void TestPlotSelect::adevBox()
{
    AdevForm form(nullptr, nullptr, 1);
    std::vector<double> x, y, twice;
    for (int i = 0; i < 300; ++i) {
        x.push_back(i);
        y.push_back(1e-12 * ((i * 7919) % 101));
        twice.push_back(2.0 * y.back());
    }
    form.addData(1, 300, x.data(), y.data());
    form.addData(2, 300, x.data(), y.data());
    form.addData(3, 300, x.data(), twice.data());
    showWindow(form);
    const auto* box = form.findChild<QwtTextLabel*>("bottomRightBox");
    const auto* means = form.findChild<QwtTextLabel*>("bottomLeftBox");
    const auto mark = [&] {
        QTest::mousePress(form.plot()->canvas(), Qt::LeftButton, {}, pixel(form, 20.0, 50));
        QTest::mouseRelease(form.plot()->canvas(), Qt::LeftButton, {}, pixel(form, 280.0, 90));
        return box->isHidden() ? QString() : box->text().text();
    };
    const QString second = mark();
    QCOMPARE(second.count("<TR align"), 3);
    QVERIFY(!means->isHidden());
    form.showCurve(form.curve(1), false);
    const QString third = mark();
    QVERIFY(!third.isEmpty() && third != second);
    form.showCurve(form.curve(2), false);
    QVERIFY(mark().isEmpty());
    form.showCurve(form.curve(2), true);
    form.plotKind = 0;
    QVERIFY(mark().isEmpty() && !means->isHidden());
    form.plotKind = 1;
    QVERIFY(!mark().isEmpty());
    // They tell of the markers, and go with these.
    QTest::mouseClick(form.plot()->canvas(), Qt::RightButton, {}, QPoint(50, 50));
    QVERIFY(box->isHidden() && means->isHidden());
}

void TestPlotSelect::boxesKeepApart_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("curves");
    QTest::newRow("least") << QSize(475, 400) << 6;
    QTest::newRow("800x600") << QSize(800, 600) << 32;
    QTest::newRow("4K") << QSize(3840, 2160) << 32;
}

void TestPlotSelect::boxesKeepApart()
{
    QFETCH(QSize, size);
    QFETCH(int, curves);
    AdevForm form(nullptr, nullptr, 1);
    std::vector<double> x, y;
    for (int i = 0; i < 300; ++i) {
        x.push_back(i);
        y.push_back(1e-12 * (i % 7));
    }
    for (int i = 0; i < curves; ++i)
        form.addData(quint16(i), 300, x.data(), y.data());
    for (int i = 0; i < curves; ++i)
        form.setCurveTitle(i, "maser against reference");
    form.resize(size);
    showWindow(form);
    const QRect canvas = form.plot()->canvas()->contentsRect();
    QTest::mousePress(form.plot()->canvas(), Qt::LeftButton, {}, pixel(form, 20.0, 50));
    QTest::mouseRelease(form.plot()->canvas(), Qt::LeftButton, {}, pixel(form, 280.0, 90));
    const auto* adev = form.findChild<QwtTextLabel*>("bottomRightBox");
    const auto* means = form.findChild<QwtTextLabel*>("bottomLeftBox");
    for (const QwtTextLabel* box : {adev, means}) {
        QVERIFY(!box->isHidden() && canvas.contains(box->geometry()));
        QCOMPARE(box->size(), box->sizeHint());
    }
    QVERIFY(!adev->geometry().intersects(means->geometry()));
}

QTEST_MAIN(TestPlotSelect)
#include "tst_plotselect.moc"
