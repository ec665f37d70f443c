#include "graphs.h"
#include "plot/core/axisrange.h"
#include "plot/multiaxisplot.h"
#include "plot/safecurves.h"
#include "support/near.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QTest>

#include <limits>

Q_DECLARE_METATYPE(AxisRange)

namespace {

constexpr int bottom = MultiAxisPlot::bottomAxis;

void drag(QWidget* canvas, Qt::MouseButton button, const QPoint& from, const QPoint& to)
{
    QTest::mousePress(canvas, button, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, canvas->mapToGlobal(to), button, button, {});
    QApplication::sendEvent(canvas, &move);
    QTest::mouseRelease(canvas, button, {}, to);
}

double valueAt(const PlotForm& form, int axis, int pixel)
{
    return form.plot()->invTransform(axis, pixel);
}

void sameRange(const PlotForm& form, int axis, const QwtInterval& wanted)
{
    const QwtInterval is = form.plot()->axisInterval(axis);
    NEAR(is.minValue(), wanted.minValue(), 1e-9, 1e-9 * wanted.width());
    NEAR(is.maxValue(), wanted.maxValue(), 1e-9, 1e-9 * wanted.width());
}

QImage drawn(const SafeCurve& curve, const QwtScaleMap& xMap, const QwtScaleMap& yMap, bool thinned)
{
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const QRectF canvas = image.rect();
    if (thinned)
        curve.drawSeries(&painter, xMap, yMap, canvas, 0, -1);
    else
        curve.QwtPlotCurve::drawSeries(&painter, xMap, yMap, canvas, 0, -1);
    return image;
}

} // namespace

class TestPlotNavigate : public QObject {
    Q_OBJECT
private slots:
    void ranges_data();
    void ranges();
    void wheel_data();
    void wheel();
    void wheelBackToTheWhole();
    void middleButtonPans();
    void waysBack();
    void hover();
    void nearestPoint();
    void thinnedCurvesLookTheSame();
    void oddCurves_data();
    void oddCurves();
};

void TestPlotNavigate::ranges_data()
{
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<AxisRange>("half");
    QTest::addColumn<AxisRange>("moved");
    QTest::newRow("linear") << false << AxisRange{2500.75, 7500.25} << AxisRange{2500.75, 12499.75};
    QTest::newRow("logarithmic") << true << AxisRange{10.0, 1000.0} << AxisRange{10.0, 1e5};
}

void TestPlotNavigate::ranges()
{
    QFETCH(bool, logarithmic);
    const AxisRange range{1.0, 1e4};
    const auto check = [](const AxisRange& is, const AxisRange& wanted) {
        NEAR(is.min, wanted.min);
        NEAR(is.max, wanted.max);
    };
    QFETCH(AxisRange, half);
    check(scaledRange(range, 0.5, 0.5, logarithmic), half);
    QFETCH(AxisRange, moved);
    check(movedRange(range, 0.25, logarithmic), moved);
    // The anchor stays where it is.
    const AxisRange low = scaledRange(range, 0.0, 3.0, logarithmic);
    NEAR(low.min, range.min);
    const AxisRange kept = withinWhole({-5.0, 30.0}, {-3.0, 8.0}, {0.0, 10.0});
    NEAR(kept.min, -3.0);
    NEAR(kept.max, 10.0);
}

void TestPlotNavigate::wheel_data()
{
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<bool>("vertical");
    for (const bool logarithmic : {false, true}) {
        for (const bool vertical : {false, true})
            QTest::addRow("%d %d", logarithmic, vertical) << logarithmic << vertical;
    }
}

void TestPlotNavigate::wheel()
{
    QFETCH(bool, logarithmic);
    QFETCH(bool, vertical);
    AvarForm form(nullptr, nullptr, 3);
    if (logarithmic)
        form.setStability(Statistic::Adev);
    add(form, 1, 12);
    showWindow(form);
    const QPoint at(120, 60);
    const int axis = vertical ? 0 : bottom;
    const int other = vertical ? bottom : 0;
    const QwtInterval before = form.plot()->axisInterval(axis);
    const QwtInterval otherBefore = form.plot()->axisInterval(other);
    const auto placeOf = [&](double value) {
        const QwtScaleMap map = form.plot()->axisMap(axis);
        return (map.transform(value) - map.p1()) / (map.p2() - map.p1());
    };
    const double value = valueAt(form, axis, vertical ? at.y() : at.x());
    const double place = placeOf(value);
    turnWheel(form, at, 1, vertical ? Qt::ControlModifier : Qt::NoModifier);
    NEAR(placeOf(value), place, 1e-9);
    const QwtInterval after = form.plot()->axisInterval(axis);
    if (logarithmic)
        NEAR(std::log(after.maxValue() / after.minValue()),
            0.8 * std::log(before.maxValue() / before.minValue()), 1e-6);
    else
        NEAR(after.width(), 0.8 * before.width(), 1e-6);
    sameRange(form, other, otherBefore);
    // Notches in a row are one step.
    turnWheel(form, at, 2, vertical ? Qt::ControlModifier : Qt::NoModifier);
    QCOMPARE(form.plot()->zoomDepth(0), 1);
    form.undoZoom();
    sameRange(form, axis, before);
}

void TestPlotNavigate::wheelBackToTheWhole()
{
    AvarForm form(nullptr, nullptr, 0);
    add(form, 1, 12);
    showWindow(form);
    const QwtInterval whole = form.plot()->axisInterval(bottom);
    turnWheel(form, QPoint(120, 60), -3);
    QCOMPARE(form.plot()->axisInterval(bottom), whole);
    turnWheel(form, QPoint(20, 60), 3);
    QVERIFY(!form.plot()->axisAutoScale(bottom));
    turnWheel(form, QPoint(250, 60), -30);
    sameRange(form, bottom, whole);
    QCOMPARE(form.plot()->zoomDepth(0), 0);
    QVERIFY(form.plot()->axisAutoScale(bottom) && form.plot()->axisAutoScale(0));
    // A range without digits left is refused and nothing hangs.
    for (int i = 0; i < 300; ++i)
        turnWheel(form, QPoint(120, 60), 1);
    const QwtInterval deep = form.plot()->axisInterval(bottom);
    QVERIFY(deep.isValid() && deep.width() > 0.0);
    turnWheel(form, QPoint(-10, 60), 1);
    QCOMPARE(form.plot()->axisInterval(bottom), deep);
}

void TestPlotNavigate::middleButtonPans()
{
    for (const bool logarithmic : {false, true}) {
        AvarForm form(nullptr, nullptr, 3);
        if (logarithmic)
            form.setStability(Statistic::Adev);
        add(form, 1, 12);
        showWindow(form);
        QWidget* canvas = form.plot()->canvas();
        const QwtInterval home = form.plot()->axisInterval(0);
        // What lies under the mouse afterwards lay under it before; the scales may take other room.
        const double x = valueAt(form, bottom, 70);
        const double y = valueAt(form, 0, 75);
        const double left = valueAt(form, bottom, 0);
        drag(canvas, Qt::MiddleButton, QPoint(100, 60), QPoint(130, 45));
        NEAR(form.plot()->transform(bottom, x), 100.0, 0.0, 4.0);
        NEAR(form.plot()->transform(0, y), 60.0, 0.0, 2.0);
        const QwtInterval moved = form.plot()->axisInterval(bottom);
        QVERIFY(moved.minValue() < left);
        QMouseEvent later(QEvent::MouseMove, QPoint(10, 10), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(canvas, &later);
        QCOMPARE(form.plot()->axisInterval(bottom), moved);
        form.undoZoom();
        sameRange(form, 0, home);
        // Markers belong to the left button.
        QVERIFY(form.statusText().isEmpty());
    }
}

void TestPlotNavigate::waysBack()
{
    AvarForm form(nullptr, nullptr, 0);
    add(form, 1, 12, 0);
    add(form, 2, 12, 1);
    showWindow(form);
    form.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    QWidget* canvas = form.plot()->canvas();
    canvas->setFocus();
    const QwtInterval home = form.plot()->axisInterval(bottom);
    const auto zoomTwice = [&] {
        form.plot()->zoomTo(0, QRectF(1.0, 1e-12, 50.0, 1e-11));
        form.plot()->zoomTo(0, QRectF(5.0, 1e-12, 10.0, 1e-11));
        QCOMPARE(form.plot()->zoomDepth(0), 2);
    };
    zoomTwice();
    QTest::keyClick(canvas, Qt::Key_Backspace);
    QCOMPARE(form.plot()->zoomDepth(0), 1);
    // An axis that is no longer the current one still holds the bottom axis.
    form.setCurrentAxis(1);
    QTest::keyClick(canvas, Qt::Key_Backspace);
    QCOMPARE(form.plot()->zoomDepth(0), 0);
    sameRange(form, bottom, home);
    zoomTwice();
    QTest::keyClick(canvas, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(form.plot()->zoomDepth(0), 0);
    for (const bool zoomMode : {false, true}) {
        zoomMode ? form.setZoomMode() : form.setMarkerMode();
        zoomTwice();
        QTest::mouseDClick(canvas, Qt::LeftButton, {}, QPoint(80, 60));
        QCOMPARE(form.plot()->zoomDepth(0), 0);
        sameRange(form, bottom, home);
        QVERIFY(form.statusText().isEmpty());
    }
    // In zoom mode one press of the key is one step, too.
    zoomTwice();
    QTest::keyClick(canvas, Qt::Key_Backspace);
    QCOMPARE(form.plot()->zoomDepth(0), 1);
}

void TestPlotNavigate::hover()
{
    AvarForm form(nullptr, nullptr, 0);
    double x[] = {0.0, 50.0, 100.0};
    double y[] = {1.0, 3.0, 2.0};
    double z[] = {1.5, 1.5, 1.5};
    form.addData(1, 3, x, y);
    form.addData(2, 3, x, z);
    form.setCurveTitle(0, "H maser");
    form.setCurveTitle(1, "Rb");
    showWindow(form);
    QWidget* canvas = form.plot()->canvas();
    const auto* label = form.findChild<QLabel*>("statusLabel");
    const auto over = [&](double atX, double atY, int away = 3) {
        const QPoint pixel(
            qRound(form.plot()->transform(bottom, atX)) + away, qRound(form.plot()->transform(0, atY)));
        QMouseEvent move(QEvent::MouseMove, pixel, Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(canvas, &move);
        QTest::qWait(60);
        return form.hoverText();
    };
    QCOMPARE(over(50.0, 3.0), QString("H maser: X = 50; Y = 3"));
    QCOMPARE(label->text(), form.hoverText());
    QCOMPARE(over(50.0, 1.5), QString("Rb: X = 50; Y = 1.5"));
    QCOMPARE(over(75.0, 2.0), QString());
    form.showCurve(form.curve(1), false);
    QCOMPARE(over(50.0, 1.5), QString());
    form.xAxisKind = 1;
    form.startTime = start;
    QCOMPARE(over(50.0, 3.0), QString("H maser: 10:00:50 01.02.25; Y = 3"));
    // Text of a marker stands before it.
    QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(40, 40));
    over(50.0, 3.0);
    QVERIFY(label->text().contains("Y1 = ") && !form.hoverText().isEmpty());
    QTest::mouseClick(canvas, Qt::RightButton, {}, QPoint(40, 40));
    QVERIFY(label->text().startsWith("H maser"));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(canvas, &leave);
    QVERIFY(label->text().isEmpty());
}

void TestPlotNavigate::nearestPoint()
{
    QwtScaleMap map;
    map.setScaleInterval(0.0, 1000.0);
    map.setPaintInterval(0.0, 1000.0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QVector<QPointF> rising;
    for (int i = 0; i < 1000; ++i)
        rising << QPointF(i, (i * 389) % 1000);
    QVector<QPointF> unordered = rising;
    std::reverse(unordered.begin(), unordered.begin() + 500);
    QVector<QPointF> gaps = rising;
    gaps[300].setY(nan);
    gaps[700].setX(nan);
    for (const QVector<QPointF>& points : {rising, unordered, gaps}) {
        SafeCurve curve;
        curve.setSamples(points);
        for (const QPointF& at : {QPointF(300.0, 700.0), QPointF(0.0, 0.0), QPointF(999.0, 500.0),
                 QPointF(700.0, 300.0), QPointF(-50.0, 5.0)}) {
            double best = 20.0;
            for (const QPointF& point : points) {
                const double away = std::hypot(point.x() - at.x(), point.y() - at.y());
                best = away <= best ? away : best;
            }
            double distance = 20.0;
            const int found = curve.pointNear(at, map, map, &distance);
            NEAR(distance, best);
            QCOMPARE(found >= 0, best < 20.0);
        }
    }
}

void TestPlotNavigate::thinnedCurvesLookTheSame()
{
    QwtScaleMap xMap, yMap;
    xMap.setScaleInterval(0.0, 1000.0);
    xMap.setPaintInterval(0.0, 200.0);
    yMap.setScaleInterval(-1.0, 1.0);
    yMap.setPaintInterval(100.0, 0.0);
    SafeCurve curve;
    curve.setPaintAttribute(QwtPlotCurve::FilterPoints);
    QVector<QPointF> points;
    // Part of the curve lies outside on either side; one spike is a single point wide.
    for (int i = -20000; i < 120000; ++i)
        points << QPointF(i / 100.0, i == 50000 ? 0.99 : 0.5 * std::sin(i / 9000.0) + 1e-3 * (i % 7));
    curve.setSamples(points);
    const QImage all = drawn(curve, xMap, yMap, false);
    const QImage thin = drawn(curve, xMap, yMap, true);
    int differing = 0;
    for (int y = 0; y < all.height(); ++y) {
        for (int x = 0; x < all.width(); ++x)
            differing += all.pixel(x, y) != thin.pixel(x, y) ? 1 : 0;
    }
    QVERIFY2(differing <= 4, qPrintable(QString::number(differing)));
    QVERIFY(qGray(thin.pixel(100, 2)) < 128);
    for (const QPolygonF& line : curve.outlines(xMap, yMap, 1.0))
        QVERIFY(line.size() <= 4 * 202);
}

void TestPlotNavigate::oddCurves_data()
{
    QTest::addColumn<QVector<QPointF>>("points");
    QTest::addColumn<bool>("logarithmic");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const QVector<QVector<QPointF>> all = {{}, {{1.0, 1.0}}, {{1.0, 1.0}, {1.0, 1.0}},
        {{2.0, 1.0}, {2.0, 5.0}, {2.0, 3.0}, {2.0, 4.0}}, {{1.0, 7.0}, {2.0, 7.0}, {3.0, 7.0}, {4.0, 7.0}},
        {{nan, nan}, {inf, 1.0}, {1.0, -inf}, {2.0, nan}, {3.0, 3.0}},
        {{0.0, 0.0}, {-1.0, 1.0}, {1.0, -1.0}, {2.0, 0.0}, {3.0, 2.0}},
        {{1e300, 1e300}, {-1e300, -1e300}, {1.0, 1e-300}}};
    for (int i = 0; i < all.size(); ++i) {
        for (const bool logarithmic : {false, true})
            QTest::addRow("%d %d", i, logarithmic) << all[i] << logarithmic;
    }
}

void TestPlotNavigate::oddCurves()
{
    QFETCH(QVector<QPointF>, points);
    QFETCH(bool, logarithmic);
    AvarForm form(nullptr, nullptr, logarithmic ? 3 : 1);
    if (logarithmic)
        form.setLogLog();
    QVector<double> x, y;
    for (const QPointF& point : points) {
        x << point.x();
        y << point.y();
    }
    // Channel 256 takes a slot without points, too.
    form.addData(256, x.size(), x.data(), y.data());
    form.setCurveTitle(0, QString(500, 'W'));
    showWindow(form);
    QWidget* canvas = form.plot()->canvas();
    turnWheel(form, QPoint(90, 60), 2);
    turnWheel(form, QPoint(90, 60), 2, Qt::ControlModifier);
    drag(canvas, Qt::MiddleButton, QPoint(90, 60), QPoint(40, 90));
    drag(canvas, Qt::LeftButton, QPoint(60, 60), QPoint(140, 90));
    QVERIFY(form.statusText().startsWith("|X2 - X1| = "));
    form.setOtmetMode();
    QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(50, 60));
    QTest::mouseMove(canvas, QPoint(80, 60));
    QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(90, 60));
    QCOMPARE(form.selectionState, 2);
    QTest::qWait(40);
    QVERIFY(!form.grab().isNull());
    QVERIFY(form.minimumSizeHint().width() < 500);
}

QTEST_MAIN(TestPlotNavigate)
#include "tst_plotnavigate.moc"
