#include "plot/multiaxisplot.h"
#include "plot/plotscaledraw.h"
#include "plot/safecurves.h"
#include "support/near.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <qwt_interval_symbol.h>

#include <limits>

namespace {

constexpr double notNumber = std::numeric_limits<double>::quiet_NaN();

/// Notes the pixel at which each item draws the value 1.
class Probe : public QwtPlotItem {
public:
    void draw(QPainter*, const QwtScaleMap&, const QwtScaleMap& yMap, const QRectF& canvas) const override
    {
        place = (canvas.bottom() - yMap.transform(1.0)) / canvas.height();
    }
    mutable double place = -1.0;
};

void drawAll(const MultiAxisPlot& plot)
{
    QImage image(100, 100, QImage::Format_RGB32);
    QPainter painter(&image);
    QwtScaleMap maps[QwtPlot::axisCnt];
    for (QwtScaleMap& map : maps) {
        map.setScaleInterval(0.0, 1.0);
        map.setPaintInterval(100.0, 0.0);
    }
    plot.drawItems(&painter, QRectF(0, 0, 100, 100), maps);
}

/// Lowest row with a pixel of the colour, 0 at the top; -1 for none.
int lowestRow(const QImage& image, const QColor& color)
{
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return y;
        }
    }
    return -1;
}

QImage canvasPicture(MultiAxisPlot& plot)
{
    plot.replot();
    return plot.canvas()->grab().toImage();
}

} // namespace

class TestMultiAxisPlot : public QObject {
    Q_OBJECT
private slots:
    void itemsUseTheirOwnAxis();
    void switchingKeepsRanges();
    void scalesStandSideBySide();
    void scalesLeaveRoom();
    void autoScaleSkipsWhatHasNoPlace_data();
    void autoScaleSkipsWhatHasNoPlace();
    void badRangesAreIgnored_data();
    void badRangesAreIgnored();
    void zoomStackPerAxis();
    void zoomRefusesWhatCannotBeShown();
    void zoomByMouse();
    void barsDownToZeroReachTheBottom();
    void curvesBreakAtGaps();
    void forgottenItems();
    void tickTexts_data();
    void tickTexts();
};

void TestMultiAxisPlot::itemsUseTheirOwnAxis()
{
    MultiAxisPlot plot;
    Probe items[3];
    const double tops[] = {1.0, 4.0, 100.0};
    const int axes[] = {0, 3, 11};
    for (int i = 0; i < 3; ++i) {
        plot.attach(&items[i], axes[i]);
        plot.setAxisScale(axes[i], i == 2 ? 0.01 : 0.0, tops[i]);
    }
    plot.setAxisScaleType(11, MultiAxisPlot::Scale::Log10);
    for (const int current : {0, 3, 11, 5}) {
        plot.setCurrentAxis(current);
        drawAll(plot);
        NEAR(items[0].place, 1.0);
        NEAR(items[1].place, 0.25);
        NEAR(items[2].place, 0.5);
    }
}

void TestMultiAxisPlot::switchingKeepsRanges()
{
    MultiAxisPlot plot;
    SafeCurve small;
    SafeCurve large;
    small.setSamples({{0.0, 0.0}, {1.0, 1.0}});
    large.setSamples({{0.0, 200.0}, {1.0, 800.0}});
    plot.attach(&small, 0);
    plot.attach(&large, 4);
    plot.replot();
    plot.setAxisScale(7, -3.0, 3.0);
    for (const int current : {4, 7, 0}) {
        plot.setCurrentAxis(current);
        plot.replot();
        QCOMPARE(plot.axisInterval(0), QwtInterval(0.0, 1.0));
        QCOMPARE(plot.axisInterval(4), QwtInterval(200.0, 800.0));
        QCOMPARE(plot.axisInterval(7), QwtInterval(-3.0, 3.0));
        QVERIFY(plot.axisAutoScale(4) && !plot.axisAutoScale(7));
    }
    large.setVisible(false);
    small.setSamples({{0.0, 0.0}, {1.0, 2.0}});
    plot.replot();
    QCOMPARE(plot.axisInterval(0), QwtInterval(0.0, 2.0));
    QCOMPARE(plot.axisInterval(4), QwtInterval(200.0, 800.0));
}

void TestMultiAxisPlot::scalesStandSideBySide()
{
    MultiAxisPlot plot;
    plot.resize(500, 300);
    plot.show();
    plot.enableAxis(0, true);
    plot.replot();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    const int alone = plot.canvas()->x();
    plot.enableAxis(1, true);
    plot.setAxisColor(1, Qt::red);
    plot.setAxisTitle(1, "T");
    plot.replot();
    const int two = plot.canvas()->x();
    QVERIFY2(two > alone + 20, qPrintable(QString("%1 %2").arg(alone).arg(two)));
    QVERIFY(lowestRow(plot.grab(QRect(0, 0, two - alone, 300)).toImage(), Qt::red) > 0);
    plot.setCurrentAxis(1);
    plot.replot();
    QCOMPARE(lowestRow(plot.grab(QRect(0, 0, two - alone, 300)).toImage(), Qt::red), -1);
    plot.enableAxis(0, false);
    plot.replot();
    QVERIFY2(plot.canvas()->x() < two - 20, qPrintable(QString("%1 %2").arg(two).arg(plot.canvas()->x())));
}

void TestMultiAxisPlot::scalesLeaveRoom()
{
    MultiAxisPlot plot;
    for (int axis = 0; axis < MultiAxisPlot::yAxisCount; ++axis) {
        plot.enableAxis(axis, true);
        plot.setAxisTitle(axis, QString(200, 'x'));
        plot.setAxisScale(axis, -1.5e-12, 1.5e-12);
    }
    plot.setAxisColor(11, Qt::red);
    plot.resize(460, 340);
    const auto share = [&plot] {
        plot.grab();
        return double(plot.canvas()->width()) / plot.width();
    };
    QVERIFY2(share() > 0.35, qPrintable(QString::number(plot.canvas()->width())));
    plot.setCurrentAxis(11);
    QVERIFY(share() > 0.35);
    QVERIFY(lowestRow(plot.grab().toImage(), Qt::red) > 0);
    // With more width they come back.
    plot.setCurrentAxis(0);
    plot.resize(2400, 340);
    QVERIFY(lowestRow(plot.grab().toImage(), Qt::red) > 0);
}

void TestMultiAxisPlot::autoScaleSkipsWhatHasNoPlace_data()
{
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<QVector<QPointF>>("points");
    QTest::addColumn<QVector<QPointF>>("bars"); // low and high, all at X = 2
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    using Points = QVector<QPointF>;
    const double inf = std::numeric_limits<double>::infinity();
    const Points odd = {{1.0, notNumber}, {2.0, 3e-12}, {notNumber, 2e-12}, {3.0, inf}};
    QTest::newRow("log, NaN and infinity") << true << odd << Points() << 1e-12 << 1e-11;
    QTest::newRow("log, zero and negative")
        << true << Points{{1.0, 0.0}, {2.0, 3e-12}, {3.0, -1.0}, {4.0, 3e-9}} << Points() << 1e-12 << 1e-8;
    QTest::newRow("log, a bar widens")
        << true << Points{{1.0, 3e-12}} << Points{{5e-13, 5.5e-12}} << 1e-13 << 1e-11;
    QTest::newRow("log, a bar to zero does not")
        << true << Points{{1.0, 3e-12}} << Points{{0.0, 6e-12}} << 1e-12 << 1e-11;
    QTest::newRow("log, a bar to almost zero widens one decade at most")
        << true << Points{{1.0, 3e-12}} << Points{{1e-30, 6e-12}} << 1e-13 << 1e-11;
    QTest::newRow("log, one decade exactly")
        << true << Points{{1.0, 1e-3}, {2.0, 1e-3}} << Points() << 1e-3 << 1e-2;
    QTest::newRow("log, beyond any scale")
        << true << Points{{1.0, 1e-200}, {2.0, 3e-12}, {3.0, 1e300}} << Points() << 1e-12 << 1e-11;
    QTest::newRow("linear, too wide to divide")
        << false << Points{{1.0, -1.7e308}, {2.0, 1.7e308}} << Points() << 0.0 << 1.0;
    QTest::newRow("linear, NaN") << false << Points{{1.0, notNumber}, {2.0, -2.0}, {3.0, 4.0}} << Points()
                                 << -2.0 << 4.0;
    QTest::newRow("nothing usable keeps the range")
        << true << Points{{1.0, notNumber}, {2.0, 0.0}} << Points() << 1.0 << 10.0;
}

void TestMultiAxisPlot::autoScaleSkipsWhatHasNoPlace()
{
    QFETCH(bool, logarithmic);
    QFETCH(QVector<QPointF>, points);
    QFETCH(QVector<QPointF>, bars);
    QFETCH(double, low);
    QFETCH(double, high);
    MultiAxisPlot plot;
    plot.resize(300, 300);
    if (logarithmic)
        plot.setAxisScaleType(0, MultiAxisPlot::Scale::Log10);
    SafeCurve curve;
    curve.setSamples(points);
    plot.attach(&curve, 0);
    SafeIntervalCurve intervals;
    QVector<QwtIntervalSample> samples;
    for (const QPointF& bar : bars)
        samples << QwtIntervalSample(2.0, bar.x(), bar.y());
    intervals.setSamples(samples);
    plot.attach(&intervals, 0);
    plot.show();
    plot.replot();
    NEAR(plot.axisInterval(0).minValue(), low, 1e-9);
    NEAR(plot.axisInterval(0).maxValue(), high, 1e-9);
    QVERIFY(!canvasPicture(plot).isNull());
}

void TestMultiAxisPlot::badRangesAreIgnored_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<bool>("taken");
    QTest::newRow("swapped") << 5.0 << 2.0 << true;
    QTest::newRow("equal") << 5.0 << 5.0 << false;
    QTest::newRow("NaN") << notNumber << 5.0 << false;
    QTest::newRow("zero on a logarithmic axis") << 0.0 << 5.0 << false;
    QTest::newRow("negative on a logarithmic axis") << -2.0 << 5.0 << false;
}

void TestMultiAxisPlot::badRangesAreIgnored()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(bool, taken);
    MultiAxisPlot plot;
    plot.setAxisScaleType(2, MultiAxisPlot::Scale::Log10);
    plot.setAxisScale(2, min, max);
    QCOMPARE(plot.axisInterval(2), taken ? QwtInterval(2.0, 5.0) : QwtInterval(1.0, 10.0));
}

void TestMultiAxisPlot::zoomStackPerAxis()
{
    MultiAxisPlot plot;
    const auto area = [](double x, double y, double size) { return QRectF(x, y, size, size); };
    const auto x = [&] { return plot.axisInterval(MultiAxisPlot::bottomAxis); };
    plot.setAxisScale(MultiAxisPlot::bottomAxis, 0.0, 100.0);
    plot.setAxisScale(0, 0.0, 100.0);
    plot.setAxisAutoScale(0);
    plot.setAxisScale(1, 0.0, 100.0);
    plot.zoomTo(0, area(10.0, 20.0, 50.0));
    plot.zoomTo(0, area(20.0, 30.0, 5.0));
    plot.zoomTo(1, area(40.0, 60.0, 10.0));
    QCOMPARE(plot.zoomDepth(0), 2);
    QCOMPARE(plot.zoomDepth(1), 1);
    QCOMPARE(plot.axisInterval(0), QwtInterval(30.0, 35.0));
    QCOMPARE(plot.axisInterval(1), QwtInterval(60.0, 70.0));
    QCOMPARE(x(), QwtInterval(40.0, 50.0));
    plot.zoomBack(1);
    QCOMPARE(plot.axisInterval(1), QwtInterval(0.0, 100.0));
    QCOMPARE(x(), QwtInterval(20.0, 25.0));
    plot.zoomBack(0);
    QCOMPARE(plot.axisInterval(0), QwtInterval(20.0, 70.0));
    plot.zoomBack(0);
    plot.zoomBack(0);
    QCOMPARE(plot.zoomDepth(0), 0);
    QCOMPARE(plot.axisInterval(0), QwtInterval(0.0, 100.0));
    QVERIFY(plot.axisAutoScale(0) && !plot.axisAutoScale(1));
    QCOMPARE(x(), QwtInterval(0.0, 100.0));
    plot.zoomTo(0, area(10.0, 20.0, 50.0));
    plot.resetZoom();
    QCOMPARE(plot.zoomDepth(0), 0);
    QCOMPARE(plot.axisInterval(0), QwtInterval(20.0, 70.0));
}

void TestMultiAxisPlot::zoomRefusesWhatCannotBeShown()
{
    MultiAxisPlot plot;
    plot.setAxisScaleType(0, MultiAxisPlot::Scale::Log10);
    plot.zoomTo(0, QRectF(1.0, -1.0, 5.0, 5.0));
    plot.zoomTo(0, QRectF(1.0, 1.0, 1e-14, 5.0));
    plot.zoomTo(0, QRectF(notNumber, 1.0, 1.0, 5.0));
    QCOMPARE(plot.zoomDepth(0), 0);
    plot.zoomTo(0, QRectF(1.0, 1e-13, 5.0, 1e-12));
    QCOMPARE(plot.zoomDepth(0), 1);
}

void TestMultiAxisPlot::zoomByMouse()
{
    MultiAxisPlot plot;
    plot.resize(400, 300);
    plot.setAxisScale(MultiAxisPlot::bottomAxis, 0.0, 100.0);
    for (const int axis : {0, 5}) {
        plot.enableAxis(axis, true);
        plot.setAxisScale(axis, 0.0, 100.0);
    }
    plot.setCurrentAxis(5);
    plot.setZoomEnabled(true);
    plot.show();
    plot.replot();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    QWidget* canvas = plot.canvas();
    const QPoint from(canvas->width() / 4, canvas->height() / 4);
    const QPoint to(canvas->width() / 2, canvas->height() / 2);
    const QPointF first(
        plot.invTransform(MultiAxisPlot::bottomAxis, from.x()), plot.invTransform(5, from.y()));
    const QPointF last(plot.invTransform(MultiAxisPlot::bottomAxis, to.x()), plot.invTransform(5, to.y()));
    const auto drag = [&](const QPoint& end) {
        QTest::mousePress(canvas, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, end, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(canvas, &move);
        QTest::mouseRelease(canvas, Qt::LeftButton, {}, end);
    };
    drag(from + QPoint(3, 2));
    QCOMPARE(plot.zoomDepth(5), 0);
    drag(to);
    QCOMPARE(plot.zoomDepth(5), 1);
    QCOMPARE(plot.zoomDepth(0), 0);
    NEAR(plot.axisInterval(5).minValue(), last.y(), 0.0, 1.0);
    NEAR(plot.axisInterval(5).maxValue(), first.y(), 0.0, 1.0);
    NEAR(plot.axisInterval(MultiAxisPlot::bottomAxis).minValue(), first.x(), 0.0, 1.0);
    NEAR(plot.axisInterval(MultiAxisPlot::bottomAxis).maxValue(), last.x(), 0.0, 1.0);
    QTest::mouseClick(canvas, Qt::RightButton, {}, from);
    QCOMPARE(plot.zoomDepth(5), 0);
    QCOMPARE(plot.axisInterval(5), QwtInterval(0.0, 100.0));
    plot.zoomTo(5, QRectF(10.0, 10.0, 5.0, 5.0));
    QTest::keyClick(canvas, Qt::Key_Backspace);
    QCOMPARE(plot.zoomDepth(5), 0);
}

void TestMultiAxisPlot::barsDownToZeroReachTheBottom()
{
    MultiAxisPlot plot;
    plot.resize(300, 300);
    plot.setAxisScaleType(0, MultiAxisPlot::Scale::Log10);
    plot.setAxisScale(0, 1e-13, 1e-10);
    plot.setAxisScale(MultiAxisPlot::bottomAxis, 0.0, 10.0);
    SafeIntervalCurve bars;
    bars.setStyle(QwtPlotIntervalCurve::NoCurve);
    auto* symbol = new QwtIntervalSymbol(QwtIntervalSymbol::Bar);
    symbol->setPen(QPen(Qt::red, 3.0));
    bars.setSymbol(symbol);
    plot.attach(&bars, 0);
    plot.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    for (const double low : {0.0, -1e-11, 1e-40}) {
        bars.setSamples({QwtIntervalSample(5.0, low, 1e-11)});
        const QImage picture = canvasPicture(plot);
        QVERIFY2(lowestRow(picture, Qt::red) > picture.height() - 6, qPrintable(QString::number(low)));
    }
    bars.setSamples({QwtIntervalSample(5.0, 1e-12, 1e-11)});
    const int row = lowestRow(canvasPicture(plot), Qt::red);
    QVERIFY(row > 0 && row < plot.canvas()->height() - 30);
    bars.setSamples(
        {QwtIntervalSample(5.0, notNumber, notNumber), QwtIntervalSample(notNumber, 1e-12, 1e-11)});
    QCOMPARE(lowestRow(canvasPicture(plot), Qt::red), -1);
}

void TestMultiAxisPlot::curvesBreakAtGaps()
{
    MultiAxisPlot plot;
    plot.resize(300, 300);
    plot.setAxisScaleType(0, MultiAxisPlot::Scale::Log10);
    plot.setAxisScale(0, 1.0, 100.0);
    plot.setAxisScale(MultiAxisPlot::bottomAxis, 0.0, 4.0);
    SafeCurve curve;
    curve.setPen(Qt::red, 3.0);
    plot.attach(&curve, 0);
    plot.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    const auto redAt = [&](double x) {
        const QImage picture = canvasPicture(plot);
        const int column = qRound(plot.transform(MultiAxisPlot::bottomAxis, x));
        return picture.pixelColor(column, qRound(plot.transform(0, 10.0))) == QColor(Qt::red);
    };
    for (const double hole : {0.0, -5.0, notNumber}) {
        curve.setSamples({{0.0, 10.0}, {1.0, 10.0}, {2.0, hole}, {3.0, 10.0}});
        QVERIFY(redAt(0.5));
        QVERIFY(!redAt(1.5));
        QVERIFY(!redAt(2.5));
        QVERIFY(redAt(3.0));
    }
}

void TestMultiAxisPlot::forgottenItems()
{
    MultiAxisPlot plot;
    SafeCurve curve;
    plot.attach(&curve, 6);
    QCOMPARE(plot.axisOf(&curve), 6);
    curve.detach();
    QCOMPARE(plot.axisOf(&curve), 0);
    plot.attach(&curve, 99);
    QCOMPARE(plot.axisOf(&curve), 0);
}

void TestMultiAxisPlot::tickTexts_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("resolution");
    QTest::addColumn<QString>("text");
    QTest::newRow("power") << 1e-12 << 0.0 << "1e-12";
    QTest::newRow("positive power") << 1e6 << 0.0 << "1e6";
    QTest::newRow("mantissa") << 2.5e-12 << 5e-13 << "2.5e-12";
    QTest::newRow("plain") << 2000.0 << 0.0 << "2000";
    QTest::newRow("small plain") << 0.001 << 0.0 << "0.001";
    QTest::newRow("zero with noise") << 1e-20 << 0.5 << "0";
    QTest::newRow("negative") << -1e-9 << 1e-10 << "-1e-9";
    QTest::newRow("neighbours differ") << 1.00000005 << 5e-8 << "1.00000005";
}

void TestMultiAxisPlot::tickTexts()
{
    QFETCH(double, value);
    QFETCH(double, resolution);
    QTEST(tickText(value, resolution), "text");
}

QTEST_MAIN(TestMultiAxisPlot)
#include "tst_multiaxisplot.moc"
