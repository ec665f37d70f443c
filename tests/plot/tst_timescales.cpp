#include "plot/avarform.h"
#include "plot/clockscaledraw.h"
#include "plot/core/timeticks.h"
#include "plot/core/valuetable.h"
#include "plot/multiaxisplot.h"
#include "plot/seriesgraph.h"
#include "support/near.h"

#include <QTest>
#include <qwt_scale_div.h>
#include <qwt_text.h>

#include <cmath>

namespace {

const QDateTime begin(QDate(2026, 3, 1), QTime(1, 30, 17));

/// The bottom axis of a graph of so many points.
const QwtScaleDiv& axisOf(AvarForm& form, SeriesKind kind, double first, double step, int points, double span)
{
    SeriesScope scope;
    scope.kind = kind;
    scope.start = begin;
    scope.stop = begin.addSecs(qint64(span));
    SeriesCurve curve;
    for (int i = 0; i < points; ++i) {
        curve.t.push_back(first + i * step);
        curve.x.push_back(i * 1e-9);
    }
    showSeries(form, scope, {curve});
    return form.plot()->axisScaleDiv(MultiAxisPlot::bottomAxis);
}

} // namespace

/// The bottom axes of graphs over time.
class TestTimeScales : public QObject {
    Q_OBJECT
private slots:
    void wholeSteps_data();
    void wholeSteps();
    void daysAndHours_data();
    void daysAndHours();
    void clock_data();
    void clock();
    void labels();
    void meansWithoutTime();
};

void TestTimeScales::wholeSteps_data()
{
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("step");
    QTest::newRow("part of a day") << 0.9 << 0.0;
    QTest::newRow("one") << 1.0 << 1.0;
    QTest::newRow("as many as there is room for") << 8.0 << 1.0;
    QTest::newRow("one more") << 9.0 << 2.0;
    QTest::newRow("forty") << 40.0 << 5.0;
    QTest::newRow("forty-one") << 41.0 << 10.0;
    QTest::newRow("thirty years") << 10957.0 << 2000.0;
    QTest::newRow("not a number") << std::nan("") << 0.0;
    QTest::newRow("no end") << double(INFINITY) << 0.0;
}

void TestTimeScales::wholeSteps()
{
    QFETCH(double, span);
    QTEST(wholeStep(span, 8).major, "step");
}

void TestTimeScales::daysAndHours_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::newRow("one") << 1 << -1.0 << 1.0;
    QTest::newRow("two") << 2 << 0.0 << 1.0;
    QTest::newRow("three") << 3 << 0.0 << 2.0;
    QTest::newRow("eleven") << 11 << 0.0 << 10.0;
}

/// There is no half of an MJD, and no axis of half a calendar around a single day.
void TestTimeScales::daysAndHours()
{
    QFETCH(int, points);
    QFETCH(double, low);
    QFETCH(double, high);
    for (const auto& [kind, first] : {std::make_pair(SeriesKind::Day, 61100.0), {SeriesKind::Hour, 5.0}}) {
        AvarForm form(nullptr, nullptr, 0);
        const QwtScaleDiv& axis = axisOf(form, kind, first, 1.0, points, points * 86400.0);
        NEAR(axis.lowerBound(), first + low);
        NEAR(axis.upperBound(), first + high);
        QVERIFY(axis.ticks(QwtScaleDiv::MajorTick).size() > 1);
        for (const int type : {QwtScaleDiv::MajorTick, QwtScaleDiv::MediumTick, QwtScaleDiv::MinorTick}) {
            for (const double tick : axis.ticks(type))
                QCOMPARE(tick, std::round(tick));
        }
    }
}

void TestTimeScales::clock_data()
{
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("round");
    QTest::newRow("half a minute") << 30.0 << 5.0;
    QTest::newRow("an hour") << 3600.0 << 600.0;
    QTest::newRow("a day") << 86400.0 << 3.0 * 3600.0;
    QTest::newRow("ten days") << 864000.0 << 86400.0;
}

/// Ticks stand at round times of the day, whatever the second at which the record starts.
void TestTimeScales::clock()
{
    QFETCH(double, span);
    QFETCH(double, round);
    AvarForm form(nullptr, nullptr, 0);
    const QwtScaleDiv& axis = axisOf(form, SeriesKind::MinMax, 0.0, span / 100.0, 101, span);
    const QList<double> ticks = axis.ticks(QwtScaleDiv::MajorTick);
    QVERIFY(ticks.size() > 2);
    const double origin = begin.time().msecsSinceStartOfDay() / 1000.0;
    for (const double tick : ticks)
        NEAR(std::remainder(tick + origin, round), 0.0, 0.0, 1e-6);
}

void TestTimeScales::labels()
{
    ClockScaleDraw clock(QTime(1, 30, 17));
    CalendarScaleDraw calendar(begin);
    const auto scale = [](QwtScaleDraw& draw, double step, double span) {
        QList<double> ticks[QwtScaleDiv::NTickTypes];
        ticks[QwtScaleDiv::MajorTick] << 0.0 << step;
        draw.setScaleDiv(QwtScaleDiv(0.0, span, ticks));
    };
    scale(clock, 3600.0, 86400.0);
    QCOMPARE(clock.label(60.0).text(), QString("01:31"));
    scale(clock, 5.0, 30.0);
    QCOMPARE(clock.label(3.0).text(), QString("01:30:20"));
    QCOMPARE(clock.label(-86400.0).text(), QString("01:30:17"));
    scale(clock, 0.2, 1.0);
    QCOMPARE(clock.label(0.2).text(), QString("01:30:17.200"));
    QCOMPARE(clock.label(std::nan("")).text(), QString());
    scale(calendar, 86400.0, 1e6);
    QCOMPARE(calendar.label(86400.0).text(), QString("02.03"));
    scale(calendar, 86400.0, 1e9);
    QCOMPARE(calendar.label(86400.0).text(), QString("02.03.2026"));
}

void TestTimeScales::meansWithoutTime()
{
    NEAR(meanBetween({0.0, std::nan(""), 1.0, 5.0}, {1.0, 100.0, 3.0, 7.0}, 0.0, 1.0), 2.0);
}

QTEST_MAIN(TestTimeScales)
#include "tst_timescales.moc"
