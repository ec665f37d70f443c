#include "base/globals.h"
#include "graphs.h"
#include "plot/multiaxisplot.h"
#include "stats/deviations.h"
#include "stats/incremental.h"
#include "support/near.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>
#include <qwt_plot_intervalcurve.h>
#include <qwt_text_label.h>

#include <cmath>
#include <limits>

class TestAvarForm : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { App_lang.clear(); }
    void addDataLimits();
    void emptyCurves();
    void arraysAreCopied();
    void barsOnStabilityOnly();
    void sqrt2TwiceRestores();
    void valueTable();
    void tableOfOneVisibleCurveOnly();
    void windowNumberOneHasNoTable();
    void tableOnStabilityOnly();
    void boxStaysInside();
    void boxLeavesTheCurveFree();
    void boxLeavesNamesFree();
    void retranslates();
    void closing();
    void liveCurve();
    void liveTable();
    void runningValues();
    void oddLogCurves_data();
    void oddLogCurves();
};

void TestAvarForm::addDataLimits()
{
    AvarForm form(nullptr, nullptr, 3);
    for (unsigned short i = 0; i < 40; ++i)
        add(form, i, 3);
    QCOMPARE(form.curveCount, 32);
    QCOMPARE(form.visibleCount, 32);
    QCOMPARE(form.channels.size(), 32);
    double value = 1.0;
    form.addData(300, 1, &value, &value);
    QCOMPARE(form.curveCount, 32);
    QCOMPARE(form.channels.size(), 33);
    QCOMPARE(form.channels.last(), static_cast<unsigned short>(300));
}

void TestAvarForm::emptyCurves()
{
    AvarForm form(nullptr, nullptr, 3);
    double value = 1.0;
    form.addData(255, 0, &value, &value);
    form.addData(1, -5, &value, &value);
    form.addData(1, 1, nullptr, &value);
    QCOMPARE(form.curveCount, 0);
    form.addData(256, 0, nullptr, nullptr);
    QCOMPARE(form.curveCount, 1);
    QCOMPARE(form.curve(0)->dataSize(), size_t(0));
}

void TestAvarForm::arraysAreCopied()
{
    AvarForm form(nullptr, nullptr, 2);
    double x[] = {1.0, 2.0};
    double y[] = {-3.0, 4.0};
    form.addData(1, 2, x, y);
    x[0] = y[0] = 99.0;
    QCOMPARE(samples(*form.curve(0)), (QVector<QPointF>{{1.0, -3.0}, {2.0, 4.0}}));
    NEAR(form.yMin, -3.0);
    NEAR(form.yMax, 4.0);
}

void TestAvarForm::barsOnStabilityOnly()
{
    for (const int kind : {0, 1, 2, 3}) {
        AvarForm form(nullptr, nullptr, kind);
        add(form, 1, 4);
        QCOMPARE(form.bars(0)->dataSize(), size_t(kind == 3 ? 4 : 0));
    }
    AvarForm form(nullptr, nullptr, 3);
    double tau = 10.0;
    double value = 4.0;
    form.addData(1, 1, &tau, &value, 0, start, start.addSecs(50));
    NEAR(form.bars(0)->sample(0).interval.minValue(), 2.0);
    NEAR(form.bars(0)->sample(0).interval.maxValue(), 6.0);
    form.sqrt2Action->trigger();
    NEAR(form.bars(0)->sample(0).interval.minValue(), std::sqrt(2.0));
}

void TestAvarForm::sqrt2TwiceRestores()
{
    AvarForm form(nullptr, nullptr, 3);
    add(form, 1, 10);
    add(form, 2, 7);
    const auto before = samples(*form.curve(1));
    form.sqrt2Action->trigger();
    QCOMPARE(form.curve(1)->sample(2).y(), before[2].y() / 1.4142135623730951);
    form.sqrt2Action->trigger();
    const auto after = samples(*form.curve(1));
    for (int i = 0; i < before.size(); ++i)
        QVERIFY(before[i].x() == after[i].x() && before[i].y() == after[i].y());
}

void TestAvarForm::valueTable()
{
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Mtie);
    add(form, 1, 5);
    const auto* box = form.findChild<QwtTextLabel*>("topRightBox");
    QVERIFY(!box->isHidden());
    QCOMPARE(box->text().text().count("<TR"), 3);
    QVERIFY(box->text().text().contains("МОВИ</TD>"));
    QCOMPARE(form.plot()->title().text(), QString("rec 1 (01.02.25 10:00:00)  - (12.02.25 23:46:40)"));
    form.sqrt2Action->trigger();
    QVERIFY(box->text().text().contains("МОВИ/sqrt(2)</TD>"));
    // The factor is applied once, to the values as given.
    QVERIFY2(box->text().text().contains("1.41E-11"), qPrintable(box->text().text()));
}

void TestAvarForm::tableOfOneVisibleCurveOnly()
{
    AvarForm form(nullptr, nullptr, 3);
    const auto* box = form.findChild<QwtTextLabel*>("topRightBox");
    add(form, 1, 21);
    QCOMPARE(box->text().text().count("<TR"), 10);
    add(form, 2, 5);
    QVERIFY(box->isHidden());
    QVERIFY(form.plot()->title().text().isEmpty());
    emit form.plot()->legendChecked(form.curve(0), false);
    QCOMPARE(form.visibleCount, 1);
    QVERIFY(!box->isHidden());
    QCOMPARE(box->text().text().count("<TR"), 3);
    emit form.plot()->legendChecked(form.curve(1), false);
    QCOMPARE(form.visibleCount, 0);
    QVERIFY(box->isHidden());
}

void TestAvarForm::windowNumberOneHasNoTable()
{
    int number = 1;
    AvarForm form(&number, nullptr, 3);
    add(form, 1, 5);
    QVERIFY(form.findChild<QwtTextLabel*>("topRightBox")->isHidden());
    number = 2;
    form.showAVAR(form.curve(0), true);
    QVERIFY(!form.findChild<QwtTextLabel*>("topRightBox")->isHidden());
}

void TestAvarForm::tableOnStabilityOnly()
{
    for (const int kind : {0, 1, 2}) {
        AvarForm form(nullptr, nullptr, kind);
        form.setPlotTitle("dates");
        add(form, 1, 5);
        form.sqrt2Action->trigger();
        QVERIFY(form.findChild<QwtTextLabel*>("topRightBox")->isHidden());
        add(form, 2, 5);
        QCOMPARE(form.visibleCount, 2);
        QCOMPARE(form.plot()->title().text(), QString("dates"));
    }
}

void TestAvarForm::boxStaysInside()
{
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    add(form, 1, 21);
    showWindow(form);
    const auto* box = form.findChild<QwtTextLabel*>("topRightBox");
    for (const QSize size : {QSize(900, 700), QSize(475, 400), QSize(600, 420)}) {
        form.resize(size);
        QCoreApplication::processEvents();
        const QRect canvas = form.plot()->canvas()->rect();
        QVERIFY2(canvas.adjusted(10, 10, -10, -10).contains(box->geometry()), qPrintable(form.windowTitle()));
    }
}

void TestAvarForm::boxLeavesTheCurveFree()
{
    const auto cornerIsRight = [](double slope, bool marked) {
        AvarForm form(nullptr, nullptr, 3);
        form.setStability(Statistic::Adev);
        double tau[] = {1.0, 10.0, 100.0, 1000.0};
        double value[4];
        for (int i = 0; i < 4; ++i)
            value[i] = 9e-12 * std::pow(tau[i], slope);
        form.addData(1, 4, tau, value, 0, start, start.addDays(100));
        form.resize(800, 600);
        form.show();
        QCoreApplication::processEvents();
        const auto* box = form.findChild<QwtTextLabel*>("topRightBox");
        // The name of a marker at the right edge, behind the box.
        if (marked)
            QTest::mousePress(form.plot()->canvas(), Qt::LeftButton, {}, QPoint(200, 60));
        return box->geometry().center().x() > form.plot()->canvas()->width() / 2;
    };
    QVERIFY(cornerIsRight(-1.0, false));
    QVERIFY(!cornerIsRight(-1.0, true));
    QVERIFY(!cornerIsRight(1.0, false));
}

void TestAvarForm::boxLeavesNamesFree()
{
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    // Down the left edge and along the lower one: the upper right corner is free but for a name.
    QVector<double> tau, value;
    for (int i = 0; i < 400; ++i) {
        tau << (i < 200 ? 1.2 * std::pow(2.0, i / 200.0) : 2.4 * std::pow(400.0, (i - 199) / 200.0));
        value << (i < 200 ? 9e-12 * std::pow(0.15, i / 200.0) : 1.3e-12);
    }
    form.addData(1, tau.size(), tau.data(), value.data());
    form.resize(800, 600);
    showWindow(form);
    const auto* box = form.findChild<QwtTextLabel*>("topRightBox");
    const int width = form.plot()->canvas()->width();
    QVERIFY(box->geometry().center().x() > width / 2);
    QTest::mousePress(form.plot()->canvas(), Qt::LeftButton, {}, QPoint(300, 60));
    QVERIFY(!box->geometry().intersects(QRect(width - 24, 42, 24, 18)));
}

void TestAvarForm::retranslates()
{
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Tdev);
    form.setTitleSource([] { return App_lang == "en" ? QString("Stability") : QString("Вариации"); });
    add(form, 1, 5);
    QCOMPARE(form.windowTitle(), QString("Вариации"));
    QCOMPARE(form.plot()->axisTitle(0), QString("ДВИ, с"));
    App_lang = "en";
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&form, &change);
    QCOMPARE(form.windowTitle(), QString("Stability"));
    QCOMPARE(form.plot()->axisTitle(0), QString("TDEV, s"));
    QVERIFY(form.findChild<QwtTextLabel*>("topRightBox")->text().text().contains("tau, s"));
}

void TestAvarForm::closing()
{
    AvarForm form(nullptr, nullptr, 3);
    add(form, 7, 5);
    QSignalSpy closed(&form, &PlotForm::IsClosing);
    QSignalSpy cut(&form, &AvarForm::forRec);
    emit form.forRecByIND(0, 1.0, 2.0);
    emit form.forRecByIND(1, 1.0, 2.0);
    QCOMPARE(cut.size(), 1);
    QCOMPARE(cut[0][0].toUInt(), 7U);
    form.show();
    form.close();
    QCOMPARE(closed.size(), 1);
    QCOMPARE(closed[0][0].value<QObject*>(), static_cast<QObject*>(&form));
}

void TestAvarForm::liveCurve()
{
    AvarForm form(nullptr, nullptr, 3);
    add(form, 7, 5);
    add(form, 8, 5);
    const auto other = samples(*form.curve(1));
    const double nan = std::nan(""), infinity = std::numeric_limits<double>::infinity();
    const double tau[] = {2.0, 4.0, 10.0, 20.0, 40.0, 100.0};
    const double value[] = {2e-12, 0.0, nan, 1e-30, infinity, -8e-12};
    form.showCurve(form.curve(0), false);
    form.UpdateDynamicCurves(7, 6, value, tau, 2.0);
    QVERIFY(form.curveVisible(0));
    QCOMPARE(form.visibleCount, 2);
    QCOMPARE(samples(*form.curve(0)), (QVector<QPointF>{{2.0, 1e-12}, {100.0, -4e-12}}));
    QCOMPARE(form.bars(0)->dataSize(), size_t(2));
    NEAR(form.bars(0)->sample(0).interval.minValue(), 0.9e-12);
    NEAR(form.bars(0)->sample(0).interval.maxValue(), 1.1e-12);
    form.sqrt2Action->trigger();
    NEAR(form.curve(0)->sample(0).y(), 1e-12 / std::sqrt(2.0));
    NEAR(form.bars(0)->sample(0).interval.maxValue(), 1.1e-12 / std::sqrt(2.0));
    // In the form in use, be it the divided one.
    form.UpdateDynamicCurves(7, 1, value, tau, 1.0);
    NEAR(form.curve(0)->sample(0).y(), 2e-12 / std::sqrt(2.0));
    form.sqrt2Action->trigger();
    const auto last = samples(*form.curve(0));
    QCOMPARE(last, (QVector<QPointF>{{2.0, 2e-12}}));

    form.UpdateDynamicCurves(9, 6, value, tau, 1.0);
    form.UpdateDynamicCurves(7, 0, value, tau, 1.0);
    form.UpdateDynamicCurves(7, 6, nullptr, tau, 1.0);
    form.UpdateDynamicCurves(7, 6, value, nullptr, 1.0);
    for (const double interval : {0.0, -1.0, nan})
        form.UpdateDynamicCurves(7, 6, value, tau, interval);
    QCOMPARE(samples(*form.curve(0)), last);
    QCOMPARE(samples(*form.curve(1)), other);
    form.UpdateDynamicCurves(7, 1, value + 1, tau + 1, 1.0);
    QCOMPARE(form.curve(0)->dataSize(), size_t(0));

    // A channel beyond the curves has nothing to show.
    while (form.curveCount < 32)
        add(form, 20, 2);
    form.addData(300, 0, nullptr, nullptr);
    form.UpdateDynamicCurves(300, 1, value, tau, 1.0);
    AvarForm spectrum(nullptr, nullptr, 2);
    add(spectrum, 7, 5);
    spectrum.UpdateDynamicCurves(7, 1, value, tau, 1.0);
    QCOMPARE(spectrum.bars(0)->dataSize(), size_t(0));
}

void TestAvarForm::liveTable()
{
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    add(form, 7, 5);
    const auto* box = form.findChild<QwtTextLabel*>("topRightBox");
    const auto holds = [box](const char* text) { return box->text().text().contains(QLatin1String(text)); };
    const double tau[] = {1.0, 2.0, 5.0, 10.0}, value[] = {3e-12, 2e-12, 1e-12, 4.56e-13};
    QVERIFY(holds(">tau, c<"));
    form.UpdateDynamicCurves(7, 4, value, tau, 1.0);
    QVERIFY(holds(">t, c<") && holds("3.00E-12") && holds("4.56E-13"));
    QCOMPARE(box->text().text().count("<TR"), 3);
    App_lang = "en";
    form.UpdateDynamicCurves(7, 1, value, tau, 1.0);
    QVERIFY(holds(">t, s<"));
    App_lang.clear();
    add(form, 8, 5);
    form.UpdateDynamicCurves(7, 4, value, tau, 1.0);
    QVERIFY(box->isHidden());
}

/// Values that a measurement leaves behind as it goes on are those of the whole series.
void TestAvarForm::runningValues()
{
    constexpr double interval = 0.5;
    const long factors[] = {1, 2, 5, 10, 20, 50};
    double tau[6];
    std::vector<double> x;
    for (int i = 0; i < 600; ++i)
        x.push_back(1e-9 * ((i * 7919) % 101));
    varInf running;
    running.Reserve(6);
    running.recID = 7;
    running.interval = interval;
    running.typeOfVar = avarTypeOf(Statistic::Adev);
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    add(form, 7, 5);
    const auto before = samples(*form.curve(0));
    for (const long behind : {40L, 230L, 600L}) {
        for (int k = 0; k < 6; ++k) {
            tau[k] = double(factors[k]) * interval;
            const long first = alan_scdo_Upd_firstSample(factors[k], running, k);
            alan_scdo_Upd(behind - first, factors[k], x.data() + first, running, k);
        }
        form.UpdDynValues(6, running, tau);
    }
    QCOMPARE(form.curve(0)->dataSize(), size_t(6));
    for (int k = 0; k < 6; ++k) {
        NEAR(form.curve(0)->sample(k).x(), tau[k]);
        NEAR(form.curve(0)->sample(k).y(), alan_scdo(600, factors[k], x.data()) / interval, 1e-9);
    }
    form.UpdDynValues(99, running, tau); // only as many as there are
    QCOMPARE(form.curve(0)->dataSize(), size_t(6));
    form.UpdDynValues(2, running, tau);
    QCOMPARE(form.curve(0)->dataSize(), size_t(2));
    // Others leave the curve alone.
    running.typeOfVar = avarTypeOf(Statistic::Sdev);
    form.UpdDynValues(6, running, tau);
    running.typeOfVar = avarTypeOf(Statistic::Adev);
    running.recID = 8;
    form.UpdDynValues(6, running, tau);
    form.UpdDynValues(0, varInf(), nullptr);
    QCOMPARE(form.curve(0)->dataSize(), size_t(2));
}

void TestAvarForm::oddLogCurves_data()
{
    QTest::addColumn<QVector<double>>("values");
    QTest::addColumn<QwtInterval>("range"); // of the Y axis
    const double nan = std::nan(""), infinity = std::numeric_limits<double>::infinity();
    const QwtInterval asItWas(1.0, 10.0);
    const auto row = [](const char* name, const QVector<double>& values, const QwtInterval& range) {
        QTest::newRow(name) << values << range;
    };
    row("one point", {3e-12}, {1e-12, 1e-11});
    row("one point at a decade", {1e-12}, {1e-13, 1e-11});
    row("zeros", {0.0, 0.0, 0.0}, asItWas);
    row("negatives", {-1.0, -2.0}, asItWas);
    row("no numbers", {nan, nan}, asItWas);
    row("infinite", {infinity, 2e-12, 3e-12}, {1e-12, 1e-11});
    row("holes", {2e-12, 0.0, 3e-12, nan, -1.0, 5e-12}, {1e-12, 1e-11});
    row("out of reach", {1e-320, 2e-12, 1e300}, {1e-12, 1e-11});
}

/// On logarithmic axes every value has a place or none, and all that one does with a graph goes on working.
void TestAvarForm::oddLogCurves()
{
    QFETCH(QVector<double>, values);
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    QVector<double> tau;
    for (int i = 0; i < values.size(); ++i)
        tau << std::pow(10.0, i);
    form.addData(7, values.size(), tau.data(), values.data(), 0, start, start.addDays(1));
    form.initZoomer();
    showWindow(form);
    const auto shown = [&form](int axis) { return form.plot()->axisInterval(axis); };
    QFETCH(QwtInterval, range);
    NEAR(shown(0).minValue(), range.minValue());
    NEAR(shown(0).maxValue(), range.maxValue());
    QWidget* canvas = form.plot()->canvas();
    for (const Qt::KeyboardModifiers keys :
        {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
        for (const int notches : {5, -8, 400, -400})
            turnWheel(form, canvas->rect().center() + QPoint(30, -20), notches, keys);
    }
    form.sqrt2Action->trigger();
    form.plot()->zoomHome();
    QTest::mousePress(canvas, Qt::LeftButton, {}, QPoint(40, 40));
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, QPoint(90, 60));
    form.showTrend(0);
    form.showAver(0);
    form.replot();
    for (const int axis : {0, int(MultiAxisPlot::bottomAxis)}) {
        QVERIFY(shown(axis).minValue() > 0.0 && std::isfinite(shown(axis).maxValue()));
        QVERIFY(shown(axis).maxValue() > shown(axis).minValue());
    }
    QVERIFY(!form.grab().isNull());
}

QTEST_MAIN(TestAvarForm)
#include "tst_avarform.moc"
