#include "store/core/chartgeometry.h"
#include "store/core/mapstruct.h"
#include "support/near.h"

#include <QTest>

namespace {

const QDate firstDay(2026, 3, 1);

QDateTime at(int day, int hour, int minute = 0, int second = 0)
{
    return QDateTime(firstDay.addDays(day), QTime(hour, minute, second));
}

void add(mapStruct& map, const QDateTime& start, const QDateTime& stop, char kind)
{
    map.starts << start;
    map.stops << stop;
    map.kinds += kind;
    map.names << QString();
}

/// Channel 1 without segments, channel 4 with three: one after 06:00, one that takes a second, one without
/// data.
mapStruct sampleMap()
{
    mapStruct map(2, 2);
    map.channels << 1 << 4;
    map.firstOfChannel << 0 << 0 << 3;
    add(map, at(0, 6), at(0, 12), mapStruct::finished);
    add(map, at(0, 13), at(0, 13, 0, 1), mapStruct::current);
    add(map, at(1, 0), at(1, 23, 59, 59), mapStruct::noData);
    return map;
}

} // namespace

class tst_ChartGeometry : public QObject {
    Q_OBJECT

private slots:
    void oneDay()
    {
        mapStruct map(1, 1);
        map.channels << 1;
        map.firstOfChannel << 0 << 0;
        const chart::Layout layout = chart::layOut(map, firstDay, firstDay);
        QCOMPARE(layout.blocks.size(), 1);
        QCOMPARE(layout.blocks[0].rect, QRectF(0, 0, 86399, 50));
        QCOMPARE(layout.dividers, QVector<QRectF>{QRectF(0, 50, 86400, 5)});
        QCOMPARE(layout.width, 86400.0);
        map.firstOfChannel.last() = 1;
        add(map, at(0, 0), at(0, 23, 59, 59), mapStruct::finished);
        QCOMPARE(chart::layOut(map, firstDay, firstDay).blocks.size(), 1); // nothing before it and behind it
    }

    void bands()
    {
        const chart::Layout layout = chart::layOut(sampleMap(), firstDay, firstDay.addDays(1));
        QCOMPARE(layout.count(), 2);
        QCOMPARE(layout.height, 110.0);
        QVector<QRectF> rects;
        QByteArray kinds;
        for (const chart::Block& block : layout.blocks) {
            rects << block.rect;
            kinds += block.kind;
        }
        const auto rect = [](double from, double to) { return QRectF(from, 55, to - from, 50); };
        QCOMPARE(rects,
            (QVector<QRectF>{QRectF(0, 0, 172799, 50), rect(0, 21600), rect(21600, 43200), rect(43200, 46800),
                rect(46800, 46801), rect(46801, 86400), rect(86400, 172799)}));
        QCOMPARE(kinds, QByteArray("ccgcbcc"));
        QCOMPARE(layout.blockOfSegment, (QVector<int>{2, 4, 6}));
        QCOMPARE(chart::markOf(1, firstDay, at(0, 6), at(0, 7)), QRectF(21600, 92.5, 3600, 12.5));
    }

    void disorderStaysOnTheChart()
    {
        mapStruct map = sampleMap();
        map.starts[1] = at(-5, 0); // before the first day and the segment before it
        map.stops[1] = at(0, 1);
        const chart::Layout layout = chart::layOut(map, firstDay, firstDay.addDays(1));
        for (int i = 2; i < layout.blocks.size(); ++i) {
            QVERIFY(layout.blocks[i].rect.width() >= 0.0);
            QVERIFY(layout.blocks[i].rect.left() >= layout.blocks[i - 1].rect.left());
        }
    }

    void places_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<double>("reach");
        QTest::addColumn<int>("day");
        QTest::addColumn<int>("band");
        QTest::addColumn<int>("segment");
        QTest::newRow("no data") << QPointF(100, 0) << 0.0 << 1 << 0 << -1;
        QTest::newRow("first second") << QPointF(21600.5, 60) << 0.0 << 1 << 1 << 0;
        QTest::newRow("before it") << QPointF(21599.5, 60) << 0.0 << 1 << 1 << -1;
        QTest::newRow("divider") << QPointF(21700, 107) << 0.0 << 1 << 1 << -1;
        QTest::newRow("short one, missed") << QPointF(46700, 60) << 0.0 << 1 << 1 << -1;
        QTest::newRow("short one, hit") << QPointF(46700, 60) << 400.0 << 1 << 1 << 1;
        QTest::newRow("second day") << QPointF(86400, 60) << 0.0 << 2 << 1 << 2;
        QTest::newRow("left of the chart") << QPointF(-1, 60) << 0.0 << 0 << -1 << -1;
        QTest::newRow("right of it") << QPointF(172800, 60) << 0.0 << 0 << -1 << -1;
        QTest::newRow("below it") << QPointF(5, 110) << 0.0 << 0 << -1 << -1;
    }
    void places()
    {
        QFETCH(QPointF, point);
        QFETCH(double, reach);
        const chart::Layout layout = chart::layOut(sampleMap(), firstDay, firstDay.addDays(1));
        const chart::Place place = chart::placeAt(layout, point, reach);
        QTEST(place.day, "day");
        QTEST(place.band, "band");
        QTEST(place.segment, "segment");
    }

    void areas()
    {
        const chart::Layout layout = chart::layOut(sampleMap(), firstDay, firstDay.addDays(1));
        const auto in = [&layout](double x, double y, double width, double height) {
            return chart::segmentsIn(layout, QRectF(x, y, width, height));
        };
        QCOMPARE(in(0, 0, 200000, 200), (QVector<int>{0, 1, 2}));
        QCOMPARE(in(0, 0, 200000, 50), QVector<int>());
        QCOMPARE(in(43000, 60, 4000, 1), (QVector<int>{0, 1}));
        QCOMPARE(in(43201, 60, 3000, 1), QVector<int>());
    }

    void zoomAndRuler()
    {
        NEAR(chart::zoomFactor(240), 1.21);
        NEAR(chart::zoomFactor(-240), 1 / 1.21);
        QCOMPARE(chart::rulerStep(3601), 7200.0);
        QCOMPARE(chart::rulerStep(86400), 86400.0);
        QCOMPARE(chart::rulerStep(1e9), 8640000.0);
        QCOMPARE(chart::timeAt(firstDay, 86461.9), at(1, 0, 1, 1));
    }
};

QTEST_GUILESS_MAIN(tst_ChartGeometry)
#include "tst_chartgeometry.moc"
