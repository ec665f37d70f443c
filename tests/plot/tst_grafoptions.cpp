#include "graphs.h"
#include "plot/core/curvelines.h"
#include "plot/core/curvetexts.h"
#include "plot/core/limittext.h"
#include "plot/core/timeaxis.h"
#include "plot/grafoptions.h"
#include "plot/multiaxisplot.h"
#include "support/near.h"
#include "support/scopedprompts.h"

#include <QAction>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <qwt_plot_grid.h>
#include <qwt_symbol.h>
#include <qwt_text_label.h>

#include <limits>

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Inf = std::numeric_limits<double>::infinity();

using Values = std::vector<double>;

/// A phase graph over `count` seconds of a parabola around 100.
void fill(AvarForm& form, int count, unsigned short channel = 1)
{
    form.startTime = start;
    QVector<double> x;
    QVector<double> y;
    for (int i = 0; i < count; ++i) {
        x << i;
        y << 100.0 + 0.01 * i * (count - i);
    }
    form.addData(channel, count, x.data(), y.data());
    form.setCurveTitle(form.curveCount - 1, QString("rec %1").arg(channel));
}

template <class Widget> Widget* child(GrafOptions* panel, const char* name)
{
    return panel->findChild<Widget*>(name);
}

void check(GrafOptions* panel, const char* name, bool on)
{
    child<QCheckBox>(panel, name)->setChecked(on);
}

} // namespace

class TestGrafOptions : public QObject {
    Q_OBJECT
private slots:
    void trendLines_data();
    void trendLines();
    void averageLines();
    void texts();
    void times();
    void limitTexts();
    void look();
    void lines();
    void allCurves();
    void subtraction();
    void fewPoints();
    void cancelAndColor();
    void deleting();
    void limits();
    void zooming();
    void keys();
};

void TestGrafOptions::trendLines_data()
{
    QTest::addColumn<QVector<double>>("x");
    QTest::addColumn<QVector<double>>("y");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<double>("number");
    using List = QVector<double>;
    QTest::newRow("one point") << List{1} << List{1} << false << QPointF() << 0.0;
    QTest::newRow("two lie at zero") << List{1, 2} << List{5, 6} << true << QPointF(2, 0) << 0.0;
    QTest::newRow("mean step") << List{0, 2, 4, 10} << List{1, 3, 5, 11} << true << QPointF(10, 11) << 4.0;
    QTest::newRow("X falls: per interval")
        << List{9, 8, 7, 6} << List{4, 3, 2, 1} << true << QPointF(6, 1) << 0.5;
    QTest::newRow("ends at a repeated X")
        << List{0, 1, 2, 1, 9} << List{0, 1, 2, 70, 70} << true << QPointF(2, 2) << 1.0;
}

void TestGrafOptions::trendLines()
{
    QFETCH(QVector<double>, x);
    QFETCH(QVector<double>, y);
    QFETCH(QPointF, to);
    QFETCH(double, number);
    const CurveLine line = trendLine(Values(x.begin(), x.end()), Values(y.begin(), y.end()), 0.5);
    QTEST(line.valid, "valid");
    NEAR(line.to.x(), to.x());
    NEAR(line.to.y(), to.y(), 1e-12, 1e-12);
    NEAR(line.number, number, 1e-12, 1e-12);
}

void TestGrafOptions::averageLines()
{
    QVERIFY(!averageLine({0, 1, 2}, {1, 1, 1}).valid);
    NEAR(averageLine({0, 1, 2, 3}, {1, 2, 3, 6}).number, 3.0);
    NEAR(averageLine({-2, -1, 0, 1, 2}, {1, 3, 50, 50, 50}).number, 2.0);
    NEAR(averageLine({5, 6, 5, 8}, {1, 3, 50, 50}).number, 2.0);
    NEAR(averageLine({5, 6, 5, 8}, {1, 3, 50, 50}).to.x(), 8.0);
    Values one{7.0};
    Values none;
    NEAR(shownMean({4.0}, one), 7.0);
    NEAR(shownMean({}, none), 0.0);
    NEAR(averageLine({0, 1, 2, 3}, {1, NaN, 3, 6}).number, NaN);
}

void TestGrafOptions::texts()
{
    using namespace curvetext;
    const QString both = withTrend(withAverage(blank(), -1.5e-12), NaN);
    QCOMPARE(both, QString("-1.50e-12  nan       "));
    QCOMPARE(withAverage(blank(), -1.234e-101).left(11), QString("-1.23e-101 "));
    QCOMPARE(withoutTrend(withoutAverage(both)), QString(21, ' '));
    QVERIFY(curveTextTable({{"a", blank()}}, "A", "T").isEmpty());
    const QString table =
        curveTextTable({{"<b>a</b>", withAverage(blank(), 1.0)}, {"left out", blank()}}, "A", "T");
    QVERIFY(table.contains("<TD align = center>A</TD><TD align = center></TD></TR>"));
    QVERIFY(table.contains("&lt;b&gt;a&lt;/b&gt;</TD><TD align = center>1.00e+00</TD>"));
    QVERIFY(!table.contains("left out"));
}

void TestGrafOptions::times()
{
    const QDateTime at = start.addMSecs(5400500);
    NEAR((TimeAxis{start}.xOf(at)), 5400.5);
    NEAR((TimeAxis{start, true}.xOf(at)), 5400.5 / 3600.0);
    NEAR((TimeAxis{{}, false, true}.xOf(QDateTime(QDate(2025, 2, 1), QTime(12, 0)))), 60707.5);
    QCOMPARE((TimeAxis{{}, false, true}.timeOf(60707.5)), QDateTime(QDate(2025, 2, 1), QTime(12, 0)));
    QCOMPARE((TimeAxis{start, true}.timeOf(0.5)), start.addSecs(1800));
    NEAR((TimeAxis{start}.xOf(QDateTime())), NaN);
    for (const double x : {NaN, Inf, -1e300})
        QVERIFY(!(TimeAxis{start, false, true}.timeOf(x)).isValid());
}

void TestGrafOptions::limitTexts()
{
    QCOMPARE(limitText(-1e-12, 2e-12), QString("-1e-12"));
    QCOMPARE(limitText(12345.6789012, 1e-6), QString("12345.6789012"));
    QCOMPARE(limitText(0.0, 0.0), QString("0"));
    double value = 5.0;
    for (const char* wrong : {"", "abc", "inf", "nan", "1e999", "1,2,3"})
        QVERIFY2(!readLimit(wrong, &value) && value == 5.0, wrong);
    QVERIFY(readLimit(" 1,5e-3 ", &value));
    NEAR(value, 1.5e-3);
}

void TestGrafOptions::look()
{
    AvarForm form(nullptr, nullptr, 0);
    fill(form, 10);
    fill(form, 10, 2);
    form.openProperty();
    GrafOptions* panel = form.options;
    QVERIFY(panel->isVisible() && panel->windowModality() == Qt::ApplicationModal);
    const auto* curves = child<QComboBox>(panel, "selLinecBox");
    QCOMPARE(curves->count(), 2);
    QCOMPARE(curves->itemText(1), QString("График 2"));
    child<QComboBox>(panel, "selLinecBox")->setCurrentIndex(1);
    QCOMPARE(panel->selectedCurve, 1);
    QCOMPARE(child<QLineEdit>(panel, "titleLE")->text(), QString("rec 2"));
    QCOMPARE(child<QComboBox>(panel, "styleBox")->count(), int(QwtSymbol::Hexagon) + 1);
    const QPen before = form.curve(0)->pen();
    child<QLineEdit>(panel, "titleLE")->setText("<i>mine</i>");
    child<QComboBox>(panel, "widthBox")->setCurrentIndex(4);
    child<QComboBox>(panel, "sizeBox")->setCurrentIndex(2);
    child<QComboBox>(panel, "styleBox")->setCurrentIndex(QwtSymbol::XCross);
    check(panel, "markerChkBox", true);
    check(panel, "lineChkBox", false);
    check(panel, "gridChkBox", false);
    child<QPushButton>(panel, "ApplyBtn")->click();
    QVERIFY(panel->isVisible());
    QwtPlotCurve* curve = form.curve(1);
    QCOMPARE(curve->pen().widthF(), 5.0);
    QCOMPARE(curve->title().text(), QString("<i>mine</i>"));
    QCOMPARE(curve->style(), QwtPlotCurve::NoCurve);
    QVERIFY(curve->symbol());
    QCOMPARE(curve->symbol()->style(), QwtSymbol::XCross);
    QCOMPARE(curve->symbol()->size(), QSize(5, 5));
    QCOMPARE(curve->legendIconSize(), QSize(24, 10));
    const QwtPlotItemList grids = form.plot()->itemList(QwtPlotItem::Rtti_PlotGrid);
    QVERIFY(grids.size() == 1 && !grids.first()->isVisible());
    QCOMPARE(form.curve(0)->pen(), before);
    check(panel, "markerChkBox", false);
    check(panel, "lineChkBox", true);
    child<QPushButton>(panel, "OkBtn")->click();
    QVERIFY(!panel->isVisible() && !curve->symbol() && curve->style() == QwtPlotCurve::Lines);
}

void TestGrafOptions::lines()
{
    AvarForm form(nullptr, nullptr, 0);
    fill(form, 10);
    fill(form, 10, 2);
    const auto* box = form.findChild<QwtTextLabel*>("topRightBox");
    form.openProperty();
    check(form.options, "averChkBox", true);
    form.options->on_ApplyBtn_clicked();
    QVERIFY(form.averageCurve(0)->plot());
    QVERIFY(!box->isHidden() && box->text().text().contains(">Средн.<"));
    QVERIFY(!box->text().text().contains(">Тренд<"));
    // The legend works on without taking the box away.
    form.showCurve(form.curve(1), false);
    form.showAVAR(form.curve(1), false);
    QVERIFY(box->text().text().contains(">Средн.<"));
    check(form.options, "trendChkBox", true);
    check(form.options, "averChkBox", false);
    form.options->on_ApplyBtn_clicked();
    QVERIFY(!form.averageCurve(0)->plot() && form.trendCurve(0)->plot());
    QVERIFY(form.curveText(0).startsWith(QString(11, ' ')) && !form.curveText(0).trimmed().isEmpty());
    check(form.options, "trendChkBox", false);
    form.options->on_ApplyBtn_clicked();
    QCOMPARE(form.curveText(0), QString(21, ' '));
    QVERIFY(box->isHidden());
}

void TestGrafOptions::allCurves()
{
    AvarForm form(nullptr, nullptr, 0);
    fill(form, 10);
    fill(form, 10, 2);
    form.openProperty();
    check(form.options, "averChkBox", true);
    form.options->on_OkBtn_clicked();
    form.setCurveTitle(0, "new day");
    form.setCurveTitle(1, "new day 2");
    form.takeApply2();
    QCOMPARE(form.curve(0)->title().text(), QString("rec 1"));
    QCOMPARE(form.curve(1)->title().text(), QString("new day 2"));
    const QString html = form.findChild<QwtTextLabel*>("topRightBox")->text().text();
    QVERIFY(html.contains(">Aver<") && !html.contains("Средн."));
    form.options->selectedCurve = -1;
    form.options->curves[0].lineWidth = 7;
    form.takeApply();
    QCOMPARE(form.curve(0)->pen().widthF(), 1.0);
}

void TestGrafOptions::subtraction()
{
    AvarForm form(nullptr, nullptr, 1);
    double x[] = {0, 1, 2, 3};
    double y[] = {1, 2, 3, 6};
    form.addData(1, 4, x, y);
    form.openProperty();
    check(form.options, "subtractChkBox", true);
    check(form.options, "averChkBox", true);
    form.options->on_ApplyBtn_clicked();
    form.options->on_ApplyBtn_clicked();
    NEAR(form.curve(0)->sample(3).y(), 3.0);
    NEAR(form.curve(0)->boundingRect().top(), -2.0);
    NEAR(form.averageCurve(0)->sample(0).y(), 0.0, 0.0, 1e-15);
    QVERIFY(form.curveText(0).startsWith("3.00e+00 "));
    form.sqrt2Action->trigger();
    NEAR(form.curve(0)->sample(3).y(), 3.0 / std::sqrt(2.0));
    form.sqrt2Action->trigger();
    check(form.options, "subtractChkBox", false);
    form.options->on_ApplyBtn_clicked();
    QCOMPARE(form.curve(0)->sample(3).y(), 6.0);
    form.curve(0)->setSamples(QVector<QPointF>{{0, 1}, {1, NaN}});
    check(form.options, "subtractChkBox", true);
    form.options->on_ApplyBtn_clicked();
    QCOMPARE(form.curve(0)->sample(0).y(), 1.0);
}

void TestGrafOptions::fewPoints()
{
    for (int count = 0; count <= 4; ++count) {
        AvarForm form(nullptr, nullptr, 0);
        QVector<double> same(4, 3.0);
        form.addData(256, count, same.data(), same.data());
        form.openProperty();
        for (const char* name : {"averChkBox", "trendChkBox", "subtractChkBox", "markerChkBox"})
            check(form.options, name, true);
        form.options->on_OkBtn_clicked();
        form.takeApply2();
        QCOMPARE(form.averageCurve(0) != nullptr, count > 3);
        QCOMPARE(form.trendCurve(0) != nullptr, count > 1);
        form.grab();
    }
    AvarForm empty(nullptr, nullptr, 0);
    empty.openProperty();
    QCOMPARE(empty.options->selectedCurve, -1);
    QSignalSpy applied(empty.options, &GrafOptions::applyClick);
    empty.options->on_OkBtn_clicked();
    empty.options->on_delBtn_clicked();
    QCOMPARE(applied.count(), 1);
}

void TestGrafOptions::cancelAndColor()
{
    AvarForm form(nullptr, nullptr, 0);
    fill(form, 10);
    form.openProperty();
    GrafOptions* panel = form.options;
    const QColor own = form.curve(0)->pen().color();
    ScopedPrompts prompts;
    QColor asked;
    for (const bool accept : {true, false, true}) {
        prompts.handle([&, accept](QDialog& dialog) {
            auto* chooser = qobject_cast<QColorDialog*>(&dialog);
            asked = chooser->currentColor();
            chooser->setCurrentColor(QColor(1, 2, 3));
            dialog.done(accept ? QDialog::Accepted : QDialog::Rejected);
            return dialog.result();
        });
        panel->on_colorBtn_clicked();
        QCOMPARE(asked, QColor(Qt::green));
        QCOMPARE(panel->curves[0].color, QColor(1, 2, 3));
        QCOMPARE(child<QPushButton>(panel, "colorBtn")->palette().color(QPalette::Button), QColor(1, 2, 3));
    }
    check(panel, "AVarChkBox", true);
    panel->on_CancelBtn_clicked();
    QCOMPARE(panel->curves[0].color, own);
    QVERIFY(!panel->isVisible() && !form.showsAdev(0));
    form.takeApply2();
    QCOMPARE(form.curve(0)->pen().color(), own);
    form.openProperty();
    panel->curves[0].color = QColor(1, 2, 3);
    check(panel, "AVarChkBox", true);
    check(panel, "averChkBox", true);
    panel->on_OkBtn_clicked();
    QCOMPARE(form.curve(0)->pen().color(), QColor(1, 2, 3));
    QCOMPARE(form.averageCurve(0)->pen().color(), QColor(254, 253, 252));
    QVERIFY(form.showsAdev(0) && !form.showsAdev(1) && !form.showsAdev(-1));
    panel->Clear();
    QVERIFY(!form.showsAdev(0) && panel->selectedCurve == -1 && !panel->start.isValid());
}

void TestGrafOptions::deleting()
{
    AvarForm form(nullptr, nullptr, 0);
    fill(form, 10);
    fill(form, 10, 2);
    form.openProperty();
    check(form.options, "averChkBox", true);
    form.options->on_ApplyBtn_clicked();
    child<QPushButton>(form.options, "delBtn")->click();
    QVERIFY(!form.curveVisible(0) && form.curveVisible(1));
    QVERIFY(!form.averageCurve(0)->plot());
    QCOMPARE(form.visibleCount, 1);
    QVERIFY(!child<QCheckBox>(form.options, "averChkBox")->isChecked());
}

void TestGrafOptions::limits()
{
    GrafOptions panel(2);
    QList<unsigned short> axes{4, 6};
    panel.setdt(start, start.addSecs(3600));
    panel.myShow_new(nullptr, 0, 0, &axes, {{"a", 0.0, 1.0}, {"b", -1e-9, 1e-9}}, 1);
    QCOMPARE(panel.chosenAxis(), 6);
    QSignalSpy zoom(&panel, &GrafOptions::applyZoom);
    auto* low = child<QLineEdit>(&panel, "lowLim_LE");
    auto* high = child<QLineEdit>(&panel, "highLim_LE");
    QCOMPARE(low->text(), QString("-1e-09"));
    const auto apply = [&](const char* from, const char* to) {
        low->setText(from);
        high->setText(to);
        panel.on_pushButton_clicked();
        return zoom.takeLast();
    };
    QCOMPARE(panel.checkAllLim(), 4);
    QList<QVariant> sent = apply("-5", "7,5");
    QCOMPARE(sent.at(0).toInt(), 6);
    QCOMPARE(sent.at(1).toDouble(), -5.0);
    QCOMPARE(sent.at(2).toDouble(), 7.5);
    QCOMPARE(sent.at(3).toDateTime(), start);
    QCOMPARE(sent.at(4).toDateTime(), start.addSecs(3600));
    QVERIFY(sent.at(5).toBool() && !panel.timeGiven());
    // What cannot be read leaves the limit as it was, and is red.
    sent = apply("x", "8");
    QCOMPARE(sent.at(1).toDouble(), -5.0);
    QVERIFY(sent.at(5).toBool() && low->palette().color(QPalette::Text) == QColor(Qt::red));
    QCOMPARE(panel.checkAllLim(), 3);
    QVERIFY(!apply("", "nan").at(5).toBool());
    QVERIFY(!apply("3", "3").at(5).toBool());
    QVERIFY(high->palette().color(QPalette::Text) == QColor(Qt::red));
    child<QDateTimeEdit>(&panel, "dateTimeEdit")->setDateTime(start.addSecs(60));
    panel.on_dateTimeEdit_editingFinished();
    QVERIFY(panel.timeGiven() && panel.start == start.addSecs(60));
    panel.on_axNames_comboBox_activated(0);
    QCOMPARE(panel.chosenAxis(), 4);
    QCOMPARE(high->text(), QString("1"));
    panel.setPossible(false, true, true);
    QVERIFY(!apply("1", "2").at(3).toDateTime().isValid());
    QSignalSpy restored(&panel, &GrafOptions::restore1);
    child<QPushButton>(&panel, "resetBtn")->click();
    QCOMPARE(restored.count(), 1);
}

void TestGrafOptions::zooming()
{
    AvarForm form(nullptr, nullptr, 0);
    fill(form, 1001);
    showWindow(form);
    const auto range = [&](int axis) { return form.plot()->axisInterval(axis); };
    constexpr int bottom = MultiAxisPlot::bottomAxis;
    const QwtInterval wholeX = range(bottom);
    const QwtInterval wholeY = range(0);
    form.openProperty();
    QCOMPARE(form.options->start, start);
    child<QLineEdit>(form.options, "lowLim_LE")->setText("200");
    child<QLineEdit>(form.options, "highLim_LE")->setText("100");
    form.options->on_pushButton_clicked();
    QCOMPARE(range(0), QwtInterval(100, 200));
    QCOMPARE(range(bottom), wholeX);
    form.setDTzoom_new(0, 0, 0, start.addSecs(500), start.addSecs(300), false);
    QCOMPARE(range(bottom), QwtInterval(300, 500));
    QCOMPARE(range(0), QwtInterval(100, 200));
    child<QLineEdit>(form.options, "lowLim_LE")->setText("150");
    form.options->on_pushButton_clicked();
    QCOMPARE(range(0), QwtInterval(150, 200));
    QCOMPARE(range(bottom), QwtInterval(300, 500));
    child<QDateTimeEdit>(form.options, "dateTimeEdit")->setDateTime(start.addSecs(400));
    form.options->on_pushButton_clicked();
    QCOMPARE(range(bottom), QwtInterval(400, 1000));
    form.setDTzoom_new(0, 150, 200, start.addSecs(300), start.addSecs(500), true);
    form.setDTzoom_new(0, NaN, 1, QDateTime(), start, true);
    form.setDTzoom_new(99, 1, 2, start, start, true);
    QCOMPARE(range(bottom), QwtInterval(300, 500));
    child<QPushButton>(form.options, "resetBtn")->click();
    QCOMPARE(range(bottom), wholeX);
    QCOMPARE(range(0), wholeY);
    QCOMPARE(
        child<QLineEdit>(form.options, "highLim_LE")->text(), limitText(wholeY.maxValue(), wholeY.width()));
}

void TestGrafOptions::keys()
{
    AvarForm form(nullptr, nullptr, 0);
    fill(form, 10);
    form.openProperty();
    GrafOptions* panel = form.options;
    QVERIFY(QTest::qWaitForWindowActive(panel));
    QSignalSpy applied(panel, &GrafOptions::applyClick);
    QSignalSpy zoomed(panel, &GrafOptions::applyZoom);
    child<QLineEdit>(panel, "lowLim_LE")->setFocus();
    QTest::keyClick(child<QLineEdit>(panel, "lowLim_LE"), Qt::Key_Return);
    QVERIFY(panel->isVisible() && zoomed.count() == 1 && applied.isEmpty());
    child<QLineEdit>(panel, "titleLE")->setFocus();
    QTest::keyClick(child<QLineEdit>(panel, "titleLE"), Qt::Key_Return);
    QVERIFY(!panel->isVisible() && applied.count() == 1);
    form.openProperty();
    QVERIFY(QTest::qWaitForWindowActive(panel));
    child<QPushButton>(panel, "CancelBtn")->setFocus();
    QTest::keyClick(child<QPushButton>(panel, "CancelBtn"), Qt::Key_Return);
    QVERIFY(!panel->isVisible() && applied.count() == 1);
    form.openProperty();
    QTest::keyClick(panel, Qt::Key_Escape);
    QVERIFY(!panel->isVisible() && applied.count() == 1);
}

QTEST_MAIN(TestGrafOptions)
#include "tst_grafoptions.moc"
