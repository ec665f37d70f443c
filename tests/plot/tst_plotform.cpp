#include "base/globals.h"
#include "graphs.h"
#include "plot/grafoptions.h"
#include "plot/multiaxisplot.h"
#include "plot/plotlegend.h"
#include "plot/seriesgraph.h"
#include "support/near.h"

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QTest>
#include <qwt_plot_curve.h>
#include <qwt_plot_intervalcurve.h>
#include <qwt_text_label.h>

namespace {

/// Whether markup in the text is shown as it stands.
bool isPlain(const QwtText& text)
{
    const QFont font("Arial", 10);
    return text.textSize(font) == QwtText(text.text(), QwtText::PlainText).textSize(font)
        && text.textSize(font) != QwtText(text.text(), QwtText::RichText).textSize(font);
}

} // namespace

class TestPlotForm : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { App_lang.clear(); }
    void markers_data();
    void markers();
    void markerEdges();
    void means();
    void adevOfHours();
    void modes();
    void statusLine();
    void legendCheck();
    void axisMenu();
    void trend_data();
    void trend();
    void average();
    void titlesAreNotMarkup();
};

void TestPlotForm::markers_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("hours");
    QTest::addColumn<bool>("days");
    QTest::addColumn<int>("xAxisKind");
    QTest::addColumn<QString>("pressed");
    QTest::addColumn<QString>("released");
    const QString value = "X1 = 25.000; Y1 = 7.500e+01;";
    QTest::newRow("ru") << "" << false << false << 0 << value
                        << "|X2 - X1| = 50.000 сек, |Y2 - Y1| = 5.000e+01";
    QTest::newRow("en") << "en" << false << false << 0 << value
                        << "|X2 - X1| = 50.000 s, |Y2 - Y1| = 5.000e+01";
    QTest::newRow("ru days") << "ru" << false << true << 0 << value
                             << "|X2 - X1| = 50.000 сут., |Y2 - Y1| = 5.000e+01";
    QTest::newRow("en days") << "en" << false << true << 1 << "12.12.58,  Y1 = 75"
                             << "|X2 - X1| = 50.000 days, |Y2 - Y1| = 5.000e+01";
    QTest::newRow("ru hours") << "" << true << false << 1 << "11:00:00 02.02.25,  Y1 = 75"
                              << "|X2 - X1| = 50.000 час., |Y2 - Y1| = 5.000e+01";
    QTest::newRow("en hours") << "en" << true << false << 0 << value
                              << "|X2 - X1| = 50.000 hrs, |Y2 - Y1| = 5.000e+01";
    QTest::newRow("seconds as time") << "" << false << false << 1 << "10:00:25 01.02.25,  Y1 = 75"
                                     << "|X2 - X1| = 50.000 сек, |Y2 - Y1| = 5.000e+01";
}

void TestPlotForm::markers()
{
    QFETCH(QString, language);
    App_lang = language;
    AvarForm form(nullptr, nullptr, 2);
    QFETCH(bool, hours);
    QFETCH(bool, days);
    QFETCH(int, xAxisKind);
    form.isHourPlot = hours;
    form.isDayPlot = days;
    form.xAxisKind = xAxisKind;
    form.startTime = start;
    add(form, 1, 5);
    showWindow(form);
    QWidget* canvas = form.plot()->canvas();
    // Ranges that put the points of the mouse on round values.
    const QPoint from(40, 50);
    const QPoint to(140, 150);
    form.initZoomer(0.0, 100.0, 0.0, 100.0);
    const auto fit = [&](int axis, double pixel1, double value1, double pixel2, double value2) {
        const double a = form.plot()->invTransform(axis, pixel1);
        const double b = form.plot()->invTransform(axis, pixel2);
        const double scale = (value2 - value1) / (b - a);
        const QwtInterval range = form.plot()->axisInterval(axis);
        form.plot()->setAxisScale(
            axis, value1 + (range.minValue() - a) * scale, value1 + (range.maxValue() - a) * scale);
        form.plot()->replot();
    };
    for (int pass = 0; pass < 3; ++pass) {
        fit(MultiAxisPlot::bottomAxis, from.x(), 25.0001, to.x(), 75.0001);
        fit(0, from.y(), 75.0, to.y(), 25.0);
        QCoreApplication::processEvents();
    }
    QTest::mousePress(canvas, Qt::LeftButton, {}, from);
    QTEST(form.statusText(), "pressed");
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, to);
    QTEST(form.statusText(), "released");
    QTest::mousePress(canvas, Qt::RightButton, {}, to);
    QCOMPARE(form.statusText(), QString());
}

void TestPlotForm::markerEdges()
{
    AvarForm form(nullptr, nullptr, 2);
    add(form, 1, 5);
    showWindow(form);
    QWidget* canvas = form.plot()->canvas();
    form.setStatusText("kept");
    QTest::mousePress(&form, Qt::LeftButton, {}, QPoint(3, form.height() - 3));
    QCOMPARE(form.statusText(), QString("kept"));
    const QPoint from(50, 60);
    QTest::mouseClick(canvas, Qt::LeftButton, {}, from);
    const QString pressed = form.statusText();
    QVERIFY(pressed.startsWith("X1 = "));
    QTest::mousePress(canvas, Qt::LeftButton, {}, from);
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, QPoint(50, -40));
    QCOMPARE(form.statusText(), pressed);
    form.setZoomMode();
    form.setStatusText("kept");
    QTest::mouseClick(canvas, Qt::LeftButton, {}, from);
    QCOMPARE(form.statusText(), QString("kept"));
}

void TestPlotForm::means()
{
    AvarForm form(nullptr, nullptr, 0);
    double x[] = {0.0, 1.0, 2.0, 3.0};
    double y[] = {0.0, 10.0, 20.0, 60.0};
    form.addData(1, 4, x, y);
    form.setCurveTitle(0, "<i>a</i> name of more than twenty");
    showWindow(form);
    const auto press = [&](double from, double to) {
        const auto pixel = [&](double at) {
            return QPoint(qRound(form.plot()->transform(MultiAxisPlot::bottomAxis, at)), at < 1.6 ? 30 : 90);
        };
        QTest::mousePress(form.plot()->canvas(), Qt::LeftButton, {}, pixel(from));
        QTest::mouseRelease(form.plot()->canvas(), Qt::LeftButton, {}, pixel(to));
    };
    press(2.5, 0.5);
    const auto* box = form.findChild<QwtTextLabel*>("bottomLeftBox");
    QVERIFY(!box->isHidden());
    QCOMPARE(box->text().text(), QString("Среднее значение:\n<i>a</i> name of mor: 1.500000e+01\n"));
    QVERIFY(isPlain(box->text()));
    App_lang = "en";
    press(0.5, 1.7);
    QVERIFY(box->text().text().startsWith("Mean value:\n"));
}

/// X in hours, tau in seconds.
void TestPlotForm::adevOfHours()
{
    SeriesScope scope{SeriesKind::Hour, true, 1.0, false, start.addSecs(1800), start.addDays(2)};
    SeriesCurve series;
    for (int i = 0; i < 40; ++i) {
        series.t.push_back(i);
        series.x.push_back(i % 2 ? 1e-12 : -1e-12);
    }
    AvarForm form(nullptr, nullptr, 1);
    showSeries(form, scope, {series});
    form.options->curves[0].showAdev = true;
    showWindow(form);
    // Hours are counted from 10:00, whatever minute the data start at.
    QCOMPARE(form.startTime, start);
    QTest::mousePress(form.plot()->canvas(), Qt::LeftButton, {}, QPoint(10, 30));
    QTest::mouseRelease(
        form.plot()->canvas(), Qt::LeftButton, {}, QPoint(form.plot()->canvas()->width() - 10, 60));
    const QString table = form.findChild<QwtTextLabel*>("bottomRightBox")->text().text();
    QVERIFY2(table.contains(">3600<") && table.contains(">1.41e-12<"), qPrintable(table));
}

/// Beside the menus where there is room, else between these and the plot; the plot stands still in either
/// case.
void TestPlotForm::statusLine()
{
    AvarForm form(nullptr, nullptr, 0);
    add(form, 1, 5);
    form.resize(1200, 600);
    showWindow(form);
    const auto* label = form.findChild<QLabel*>("statusLabel");
    const auto* menus = form.findChild<QMenuBar*>();
    for (const int width : {1200, 475}) {
        form.resize(width, 600);
        form.setStatusText(QString());
        QCoreApplication::processEvents();
        const QRect plot = form.plot()->geometry();
        form.setStatusText("|X2 - X1| = 86400.000 s, |Y2 - Y1| = 1.234e-10");
        QCoreApplication::processEvents();
        QCOMPARE(form.plot()->geometry(), plot);
        QVERIFY(!label->geometry().intersects(plot));
        QCOMPARE(label->geometry().right(), form.width() - 1);
        QCOMPARE(label->text(), form.statusText());
        QCOMPARE(plot.top() == menus->height(), width > 1000);
        for (QAction* action : menus->actions())
            QVERIFY(!label->geometry().intersects(menus->actionGeometry(action)));
    }
}

void TestPlotForm::modes()
{
    AvarForm form(nullptr, nullptr, 3);
    QMap<QString, QAction*> actions;
    for (QAction* action : form.findChildren<QAction*>())
        actions[action->text()] = action;
    for (const char* name : {"Сохранить", "Печать", "Экспорт в ASCII", "Маркер", "Масштаб",
             "Делить на корень из 2", "Отметить границы", "Сохранить как новую запись",
             "Предварительный просмотр", "Копировать изображение", "Показать всё", "Предыдущий масштаб"})
        QVERIFY2(actions.contains(name) && actions[name]->isVisible(), name);
    for (const QAction* action : qAsConst(actions)) {
        // Every command tells more than its name.
        if (!action->menu() && !action->text().isEmpty())
            QVERIFY2(action->toolTip() != action->text(), qPrintable(action->text()));
    }
    QVERIFY(actions["Маркер"]->isChecked() && !form.plot()->zoomEnabled());
    actions["Масштаб"]->trigger();
    QVERIFY(actions["Масштаб"]->isChecked() && !actions["Маркер"]->isChecked() && form.plot()->zoomEnabled());
    actions["Масштаб"]->trigger();
    QVERIFY(actions["Масштаб"]->isChecked());
    actions["Маркер"]->trigger();
    QVERIFY(
        actions["Маркер"]->isChecked() && !actions["Масштаб"]->isChecked() && !form.plot()->zoomEnabled());
}

void TestPlotForm::legendCheck()
{
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    add(form, 1, 10);
    add(form, 99, 10);
    showWindow(form);
    const QwtInterval both = form.plot()->axisInterval(0);
    LegendCheck* entry = nullptr;
    for (LegendCheck* each : form.findChildren<LegendCheck*>()) {
        QVERIFY(each->isChecked());
        if (each->text().text() == "rec 99")
            entry = each;
    }
    QVERIFY(entry);
    QTest::mouseClick(entry, Qt::LeftButton);
    QVERIFY(!form.curve(1)->isVisible() && !form.bars(1)->isVisible() && !form.curveVisible(1));
    QVERIFY(form.curve(0)->isVisible() && form.bars(0)->isVisible());
    QVERIFY(form.plot()->axisInterval(0).maxValue() < both.maxValue());
    QTest::mouseClick(entry, Qt::LeftButton);
    QVERIFY(form.curve(1)->isVisible() && form.bars(1)->isVisible());
    QCOMPARE(form.plot()->axisInterval(0), both);
}

void TestPlotForm::axisMenu()
{
    AvarForm form(nullptr, nullptr, 1);
    add(form, 1, 5, 4);
    add(form, 2, 5, 6);
    QCOMPARE(form.axisCount, 2);
    QCOMPARE(int(form.currentAxis), 4);
    QCOMPARE(form.plot()->axisTitle(4), QString("Относительная разность частот"));
    QCOMPARE(form.plot()->axisTitle(6), QString("Влажность"));
    QCOMPARE(form.plot()->axisColor(6), QColor(180, 180, 180));
    for (QAction* action : form.findChildren<QAction*>()) {
        if (action->text() == "Ось #3")
            QVERIFY(!action->isVisible());
        if (action->text() == "Ось #2")
            action->trigger();
    }
    QCOMPARE(int(form.currentAxis), 6);
    QCOMPARE(form.plot()->currentAxis(), 6);
    QCOMPARE(form.plot()->axisColor(6), QColor(Qt::black));
    QCOMPARE(form.plot()->axisColor(4), QColor(180, 180, 180));
    QCOMPARE(form.GetAxisName(0), QString("Разность фаз, с"));
    QCOMPARE(form.GetAxisName(7), QString("Параметр"));
    QCOMPARE(form.GetAxisName(8), form.GetAxisName(4));
    QVERIFY(form.GetAxisName(12).isEmpty() && form.GetAxisName(-1).isEmpty());
}

void TestPlotForm::trend_data()
{
    QTest::addColumn<QVector<QPointF>>("points");
    QTest::addColumn<QVector<QPointF>>("line");
    QTest::addColumn<QString>("text");
    using Points = QVector<QPointF>;
    const QString blank(11, ' ');
    QTest::newRow("one point") << Points{{1.0, 1.0}} << Points() << QString(21, ' ');
    QTest::newRow("two points lie at zero")
        << Points{{1.0, 5.0}, {2.0, 6.0}} << Points{{1.0, 0.0}, {2.0, 0.0}} << blank + "0.00e+00  ";
    QTest::newRow("slope a step") << Points{{10.0, 1.0}, {12.0, 2.0}, {14.0, 3.0}, {16.0, 4.0}}
                                  << Points{{10.0, 1.0}, {16.0, 4.0}} << blank + "1.00e+00  ";
    QTest::newRow("ends at a repeated X")
        << Points{{0.0, 0.0}, {1.0, 2.0}, {2.0, 4.0}, {3.0, 6.0}, {2.0, 90.0}, {9.0, 90.0}}
        << Points{{0.0, 0.0}, {3.0, 6.0}} << blank + "2.00e+00  ";
}

void TestPlotForm::trend()
{
    QFETCH(QVector<QPointF>, points);
    QFETCH(QVector<QPointF>, line);
    AvarForm form(nullptr, nullptr, 0);
    QVector<double> x;
    QVector<double> y;
    for (const QPointF& point : points) {
        x << point.x();
        y << point.y();
    }
    form.addData(1, x.size(), x.data(), y.data());
    form.setCurveTitle(0, "rec");
    form.showTrend(1);
    form.showTrend(-1);
    form.showTrend(0);
    QTEST(form.curveText(0), "text");
    QCOMPARE(form.trendCurve(0) != nullptr, !line.isEmpty());
    if (line.isEmpty())
        return;
    const auto drawn = samples(*form.trendCurve(0));
    for (int i = 0; i < 2; ++i) {
        NEAR(drawn[i].x(), line[i].x());
        NEAR(drawn[i].y(), line[i].y(), 1e-9, 1e-9);
    }
    QCOMPARE(form.trendCurve(0)->title().text(), QString("Тренд (rec)"));
    QCOMPARE(form.trendCurve(0)->pen().color(), QColor(250, 245, 105));
    QCOMPARE(form.trendCurve(0)->pen().style(), Qt::DashLine);
}

void TestPlotForm::average()
{
    AvarForm form(nullptr, nullptr, 0);
    double x[] = {0.0, 1.0, 2.0, 3.0, 2.0};
    double y[] = {1.0, 2.0, 3.0, 6.0, 100.0};
    form.addData(1, 3, x, y);
    form.addData(2, 5, x, y);
    form.showAver(0);
    QVERIFY(!form.averageCurve(0));
    form.showAver(1);
    QCOMPARE(samples(*form.averageCurve(1)).size(), 2);
    NEAR(form.averageCurve(1)->sample(0).y(), 3.0);
    NEAR(form.averageCurve(1)->sample(1).y(), 3.0);
    QCOMPARE(form.curveText(1), "3.00e+00  " + QString(11, ' '));
    form.showTrend(1);
    QCOMPARE(form.curveText(1).size(), 21);
    QVERIFY(form.curveText(1).startsWith("3.00e+00   "));
}

void TestPlotForm::titlesAreNotMarkup()
{
    AvarForm form(nullptr, nullptr, 3);
    add(form, 1, 5);
    form.setCurveTitle(0, "<b>rec</b>");
    QVERIFY(isPlain(form.curve(0)->title()));
    QVERIFY(isPlain(form.plot()->title()));
    for (const LegendCheck* entry : form.findChildren<LegendCheck*>())
        QVERIFY(isPlain(entry->text()));
}

QTEST_MAIN(TestPlotForm)
#include "tst_plotform.moc"
