#include "plot/safecurves.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <qwt_scale_map.h>

#include <cmath>
#include <limits>

namespace {

constexpr QSize pictureSize(200, 100);

using Shape = std::function<double(int i, int n)>;

/// Noise between -1 and 1, the same at every call.
double noise(int i)
{
    return std::fmod(std::fabs(std::sin(i * 12.9898) * 43758.5453), 1.0) * 2.0 - 1.0;
}

/// The curve as the program draws it, or point by point as the library does.
QImage drawn(const Shape& shape, int n, double penWidth, double scale, bool dense)
{
    SafeCurve curve;
    curve.setPaintAttribute(QwtPlotCurve::FilterPoints, dense);
    curve.setPen(QPen(Qt::black, penWidth));
    QVector<QPointF> points;
    for (int i = 0; i < n; ++i)
        points << QPointF(i, shape(i, n));
    curve.setSamples(points);
    QwtScaleMap xMap, yMap;
    xMap.setScaleInterval(-0.05 * n, 1.05 * n);
    xMap.setPaintInterval(0.0, pictureSize.width());
    yMap.setScaleInterval(-1.2, 1.2);
    yMap.setPaintInterval(pictureSize.height(), 0.0);
    QImage image(pictureSize * scale, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    curve.drawSeries(&painter, xMap, yMap, QRectF(QPointF(), pictureSize), 0, -1);
    return image;
}

/// Share of the pixels that are dark in one picture where the other is white so many pixels around.
double strays(const QImage& in, const QImage& other, int around)
{
    int count = 0;
    for (int y = around; y < in.height() - around; ++y) {
        for (int x = around; x < in.width() - around; ++x) {
            bool near = qGray(in.pixel(x, y)) > 100;
            for (int dy = -around; dy <= around && !near; ++dy) {
                for (int dx = -around; dx <= around && !near; ++dx)
                    near = qGray(other.pixel(x + dx, y + dy)) < 155;
            }
            count += near ? 0 : 1;
        }
    }
    return double(count) / (in.width() * in.height());
}

} // namespace

/// Dense curves are filled column by column; the picture stays that of their strokes.
class TestDenseCurves : public QObject {
    Q_OBJECT
private slots:
    void samePicture_data();
    void samePicture();
    void manyHighStrokes();
};

void TestDenseCurves::samePicture_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("penWidth");
    QTest::addColumn<double>("scale");
    const char* const kinds[] = {
        "noise", "half of it quiet", "one spike", "sine with noise", "a gap", "a step"};
    for (int kind = 0; kind < 6; ++kind) {
        QTest::addRow("%s, screen", kinds[kind]) << kind << 1.0 << 1.0;
        QTest::addRow("%s, print", kinds[kind]) << kind << 2.0 << 3.125;
    }
}

void TestDenseCurves::samePicture()
{
    QFETCH(int, kind);
    QFETCH(double, penWidth);
    QFETCH(double, scale);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const QVector<Shape> shapes = {[](int i, int) { return noise(i); },
        [](int i, int n) { return i < n / 2 ? noise(i) : 0.001 * noise(i); },
        [](int i, int n) { return i == n / 2 ? 0.9 : -0.5 + 0.001 * noise(i); },
        [](int i, int n) { return 0.7 * std::sin(8.0 * i / n) + 0.3 * noise(i); },
        [nan](int i, int n) { return i > n / 3 && i < n / 2 ? nan : noise(i); },
        [](int i, int n) { return (i < n / 3 ? 0.8 : -0.8) + 0.1 * noise(i); }};
    const QImage all = drawn(shapes[kind], 6000, penWidth, scale, false);
    const QImage dense = drawn(shapes[kind], 6000, penWidth, scale, true);
    // The library draws a few strokes at a time, and their ends reach out by half of the pen.
    const int around = int(std::ceil(0.5 * penWidth * scale)) + 1;
    const double lost = strays(all, dense, around), added = strays(dense, all, around);
    QVERIFY2(lost < 2e-4 && added < 2e-4, qPrintable(QStringLiteral("%1 %2").arg(lost).arg(added)));
}

void TestDenseCurves::manyHighStrokes()
{
    QElapsedTimer clock;
    clock.start();
    const Shape shape = [](int i, int) { return noise(i); };
    for (int k = 0; k < 3; ++k)
        drawn(shape, 20000, 1.0, 6.0, true);
    const qint64 dense = clock.restart();
    drawn(shape, 20000, 1.0, 6.0, false);
    QVERIFY2(dense < clock.elapsed(), qPrintable(QString::number(dense)));
}

QTEST_MAIN(TestDenseCurves)
#include "tst_densecurves.moc"
