#include "base/globals.h"
#include "plot/avarform.h"
#include "plot/multiaxisplot.h"
#include "plot/stabilitygraph.h"

#include <QTest>
#include <qwt_plot_curve.h>
#include <qwt_plot_intervalcurve.h>

#include <cmath>

namespace {

/// Values 1e-12 / tau over `points` decades of tau / 10, with the dates of a day.
StabilityCurve curveOf(const QString& title, int points, quint16 channel = 1)
{
    StabilityCurve curve;
    curve.channel = channel;
    curve.title = title;
    for (int i = 0; i < points; ++i) {
        curve.tau.push_back(std::pow(10.0, 0.3 * i));
        curve.value.push_back(1e-12 / curve.tau.back());
    }
    curve.start = QDateTime(QDate(2024, 3, 1), QTime(10, 20, 30));
    curve.stop = curve.start.addDays(1);
    return curve;
}

} // namespace

class TestStabilityGraph : public QObject {
    Q_OBJECT

private slots:
    void init() { App_lang.clear(); }
    void titlesTellWhatWasDone_data();
    void titlesTellWhatWasDone();
    void oneCurve();
    void shortCurvesStayOut();
    void fewerValuesThanTau();
    void valuesThatDoNotFollow();
    void kindsHaveTheirAxes();
};

void TestStabilityGraph::titlesTellWhatWasDone_data()
{
    QTest::addColumn<bool>("drift");
    QTest::addColumn<bool>("overlap");
    QTest::addColumn<bool>("cross");
    QTest::addColumn<QString>("title");
    QTest::newRow("plain") << false << false << false << "Девиация Аллана (СКДО)";
    QTest::newRow("drift") << true << false << false << "Девиация Аллана (СКДО). Дрейф искл.";
    QTest::newRow("cross") << false << false << true << "Девиация Аллана (СКДО). Кросс-обработка.";
    QTest::newRow("all") << true << true << true
                         << "Девиация Аллана (СКДО). Дрейф искл. С перекрытиями. Кросс-обработка.";
}

void TestStabilityGraph::titlesTellWhatWasDone()
{
    QFETCH(bool, drift);
    QFETCH(bool, overlap);
    QFETCH(bool, cross);
    AvarForm form(nullptr, nullptr, 3);
    showStability(form, Statistic::Adev, {curveOf("a", 11)}, {drift, overlap, cross});
    QTEST(form.windowTitle(), "title");
    QCOMPARE(form.plot()->axisTitle(0), QString("СКДО"));
    QCOMPARE(form.plot()->axisTitle(1), QString("СКДО. Температура"));
    QCOMPARE(form.avarType, avarTypeOf(Statistic::Adev));
    QCOMPARE(form.plotKind, 3);
    App_lang = "en";
    AvarForm english(nullptr, nullptr, 3);
    showStability(english, Statistic::Tdev, {curveOf("a", 11)}, {});
    QCOMPARE(english.plot()->axisTitle(0), QString("TDEV, s"));
}

void TestStabilityGraph::oneCurve()
{
    AvarForm form(nullptr, nullptr, 3);
    QVERIFY(showStability(form, Statistic::Mdev, {curveOf("H <b>maser</b>", 11, 7)}, {}).isEmpty());
    QVERIFY(form.statusText().isEmpty());
    QCOMPARE(form.channels, QList<unsigned short>{7});
    const QString title = form.plot()->title().text();
    QVERIFY2(title.startsWith("H <b>maser</b>"), qPrintable(title));
    QVERIFY2(title.contains("01.03.24 10:20:30") && title.contains("02.03.24 10:20:30"), qPrintable(title));
    QCOMPARE(form.bars(0)->dataSize(), size_t(11));

    // Both scales are logarithmic and hold the whole curve.
    using Plot = MultiAxisPlot;
    for (const int axis : {0, int(Plot::bottomAxis)})
        QCOMPARE(form.plot()->axisScaleType(axis), Plot::Scale::Log10);
    const QwtInterval taus = form.plot()->axisInterval(Plot::bottomAxis);
    QVERIFY(taus.minValue() > 0.0 && taus.minValue() <= 1.0 && taus.maxValue() >= 1000.0);
    const QwtInterval values = form.plot()->axisInterval(0);
    QVERIFY(values.minValue() > 0.0 && values.minValue() <= 1e-15);
    QVERIFY(values.maxValue() >= 1e-12 && values.maxValue() < 1e-9);
}

void TestStabilityGraph::shortCurvesStayOut()
{
    AvarForm form(nullptr, nullptr, 3);
    const QVector<StabilityCurve> curves{
        curveOf("ten", 10), curveOf("eleven", 11), curveOf("none", 0), curveOf("b", 12)};
    QCOMPARE(showStability(form, Statistic::Adev, curves, {}), (QStringList{"ten", "none"}));
    QCOMPARE(form.curveCount, 2);
    QCOMPARE(form.curve(0)->title().text(), QString("eleven"));
    QVERIFY(form.plot()->title().text().isEmpty());
    QVERIFY(form.statusText().contains("ten") && form.statusText().contains("none"));

    AvarForm full(nullptr, nullptr, 3);
    const QVector<StabilityCurve> many(33, curveOf("many", 11));
    QCOMPARE(showStability(full, Statistic::Adev, many, {}), QStringList{"many"});
}

void TestStabilityGraph::fewerValuesThanTau()
{
    AvarForm form(nullptr, nullptr, 3);
    StabilityCurve curve = curveOf("mdev", 14);
    curve.value.resize(12);
    QVERIFY(showStability(form, Statistic::Mdev, {curve}, {}).isEmpty());
    QCOMPARE(form.curve(0)->dataSize(), size_t(12));
    curve.value.resize(10);
    AvarForm other(nullptr, nullptr, 3);
    QCOMPARE(showStability(other, Statistic::Mdev, {curve}, {}), QStringList{"mdev"});
}

void TestStabilityGraph::valuesThatDoNotFollow()
{
    StabilityNotes notes;
    notes.overlapped = true;
    notes.standsStill = true;
    AvarForm form(nullptr, nullptr, 3);
    showStability(form, Statistic::Adev, {curveOf("a", 11), curveOf("short", 2)}, notes);
    QCOMPARE(form.windowTitle(), QString("Девиация Аллана (СКДО). С перекрытиями. Не обновляется."));
    QVERIFY(form.statusText().contains("short") && form.statusText().contains("повторите обработку"));
    AvarForm other(nullptr, nullptr, 3);
    showStability(other, Statistic::Adev, {curveOf("a", 11)}, notes);
    QVERIFY(other.statusText().startsWith("Новые отсчеты"));
}

void TestStabilityGraph::kindsHaveTheirAxes()
{
    AvarForm form(nullptr, nullptr, 3);
    QVector<StabilityCurve> curves{curveOf("phase", 11), curveOf("temperature", 11)};
    curves[1].axis = 1;
    for (double& value : curves[1].value)
        value *= 1e9;
    showStability(form, Statistic::Adev, curves, {});
    QVERIFY(form.plot()->axisEnabled(1) && !form.plot()->axisEnabled(2));
    QVERIFY(form.plot()->axisInterval(0).maxValue() < 1e-9);
    QVERIFY(form.plot()->axisInterval(1).minValue() > 1e-9);
}

QTEST_MAIN(TestStabilityGraph)
#include "tst_stabilitygraph.moc"
