#include "stats/deviations.h"
#include "support/near.h"
#include "support/samplerecord.h"
#include "table/core/livetail.h"
#include "table/core/stability.h"
#include "table/core/stabilitytable.h"

#include <QTest>

class StabilityTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void publishedSeries_data();
    void publishedSeries();
    void everyTauHasItsOwnTail();
    void wholeScaleUsesTheTailOfTheFirstTau();
    void stoppedOrEmptyGivesNothing();
    void liveTailIsRead();
    void foldedTailIsTheSameSeries();
    void tableOfDifferentLengths();
    void liveKernels();

private:
    Record m_record;
};

void StabilityTest::init()
{
    Lehmer random;
    double phase = 0.0;
    fillRecord(m_record, 1001, 1.0, [&](int i) { return i == 0 ? phase : phase += random.next(); });
}

void StabilityTest::publishedSeries_data()
{
    QTest::addColumn<int>("statistic");
    QTest::addColumn<bool>("overlap");
    QTest::addColumn<QVector<double>>("want"); // at tau 1, 10, 100 s
    const auto row = [](const char* name, Statistic statistic, bool overlap, QVector<double> want) {
        QTest::newRow(name) << int(statistic) << overlap << want;
    };
    row("ADEV", Statistic::Adev, false, {2.922319e-1, 9.965736e-2, 3.897804e-2});
    row("overlapping ADEV", Statistic::Adev, true, {2.922319e-1, 9.159953e-2, 3.241343e-2});
    row("MDEV", Statistic::Mdev, false, {2.922319e-1, 6.172376e-2, 2.170921e-2});
    row("TDEV", Statistic::Tdev, false, {1.687202e-1, 3.563623e-1, 1.253382});
    row("HDEV", Statistic::Hdev, false, {2.943883e-1, 1.052754e-1, 3.910860e-2});
    row("overlapping HDEV", Statistic::Hdev, true, {2.943883e-1, 9.581083e-2, 3.237638e-2});
}

void StabilityTest::publishedSeries()
{
    QFETCH(int, statistic);
    QFETCH(bool, overlap);
    QFETCH(QVector<double>, want);
    PhaseSeries series = phaseSeries(m_record);
    const TauScale scale = tauScale(1, series.size(), m_record.Kdec);
    const auto values =
        stability(stabilityKernel(static_cast<Statistic>(statistic), overlap), series, scale, {});
    QCOMPARE(values.size(), scale.size());
    for (size_t k = 0; k < 3; ++k)
        NEAR(values[3 * k], want[int(k)], 5e-7);
}

void StabilityTest::everyTauHasItsOwnTail()
{
    PhaseSeries series = phaseSeries(m_record);
    StabilityOptions options;
    options.perSecond = 70;
    const TauScale scale = tauScale(1, series.size(), 1.0);
    const auto values = stability({alan_scdo, nullptr}, series, scale, options);
    for (size_t k = 0; k < scale.size(); ++k) {
        const long count = std::min(1001L, 70 * long(scale.factor[k]));
        NEAR(values[k],
            alan_scdo(count, long(scale.factor[k]), series.x.data() + 1001 - count,
                series.t.data() + 1001 - count, 1.0),
            0.0);
    }
}

void StabilityTest::wholeScaleUsesTheTailOfTheFirstTau()
{
    PhaseSeries series = phaseSeries(m_record);
    StabilityOptions options;
    options.perSecond = 100;
    const TauScale scale = tauScale(1, series.size(), 1.0);
    const auto values = stability({nullptr, mod_alan_deviation}, series, scale, options);
    QCOMPARE(values.size(), size_t(5)); // 3 * 50 is not below 100
    NEAR(values[3], mod_alan_scdo(100, 10, series.x.data() + 901));
}

void StabilityTest::stoppedOrEmptyGivesNothing()
{
    PhaseSeries series = phaseSeries(m_record);
    const TauScale scale = tauScale(1, series.size(), 1.0);
    StabilityOptions stopped;
    stopped.progress = [](double) { return false; };
    QVERIFY(stability(stabilityKernel(Statistic::Adev, false), series, scale, stopped).empty());
    QVERIFY(stability(stabilityKernel(Statistic::Mdev, false), series, {}, {}).empty());
    PhaseSeries nothing;
    QVERIFY(stability(stabilityKernel(Statistic::Adev, false), nothing, scale, {}).empty());
}

void StabilityTest::liveTailIsRead()
{
    m_record.dyn_t = {1001.0, 1002.5};
    m_record.dyn_x = {7.0, 8.0};
    m_record.dyn_n_cnt = 2;
    const PhaseSeries series = phaseSeries(m_record);
    QCOMPARE(series.size(), 1003L);
    NEAR(series.t.back(), 1002.5);
    NEAR(series.x.back(), 8.0);
}

void StabilityTest::foldedTailIsTheSameSeries()
{
    liveTailIsRead();
    const PhaseSeries before = phaseSeries(m_record);
    foldLiveTail(m_record);
    const PhaseSeries after = phaseSeries(m_record);
    QCOMPARE(m_record.n_cnt, qint64(1003));
    QCOMPARE(m_record.dyn_n_cnt, qint64(0));
    QVERIFY(m_record.dyn_t.isEmpty());
    QCOMPARE(after.t, before.t);
    QCOMPARE(after.x, before.x);
    QCOMPARE(m_record.start.secsTo(m_record.stop), qint64(1002));
    QCOMPARE(m_record.num_in_days[size_t(m_record.n_days - 1)] > 0, true);
}

void StabilityTest::tableOfDifferentLengths()
{
    const QList<StabilityColumn> columns{{QStringLiteral("1"), QStringLiteral("short"), {1.0, 2.0}, {3e-12}},
        {QStringLiteral("2"), QStringLiteral("long"), {2.0, 5.0}, {4e-12, 5e-12}}};
    const std::vector<double> tau = unionOfTau(columns);
    QCOMPARE(stabilityHeads(tau).mid(2), QStringList({"1", "2", "5"}));
    QCOMPARE(stabilityCells(columns[0], tau), QStringList({"1", "short", "3.0000e-12", "---", "---"}));
    QCOMPARE(stabilityCells(columns[1], tau), QStringList({"2", "long", "---", "4.0000e-12", "5.0000e-12"}));
}

/// One that is offered takes every new sample in: block after block it gives the value of the whole series.
void StabilityTest::liveKernels()
{
    PhaseSeries series = phaseSeries(m_record);
    int offered = 0;
    for (int number = 0; number < statisticCount; ++number) {
        for (const bool overlap : {false, true}) {
            const LiveKernel kernel = liveKernel(statisticOfVarType(number), overlap);
            if (!kernel)
                continue;
            ++offered;
            varInf running;
            running.Reserve(1);
            for (const long behind : {100L, 555L, 1001L}) {
                const long first = alan_scdo_Upd_firstSample(5, running, 0);
                kernel(behind - first, 5, series.x.data() + first, running, 0);
            }
            const TauKernel whole = stabilityKernel(statisticOfVarType(number), overlap).perTau;
            NEAR(running.value[0], whole(1001, 5, series.x.data(), series.t.data(), 1.0), 1e-9);
        }
    }
    QCOMPARE(offered, 1);
}

QTEST_APPLESS_MAIN(StabilityTest)
#include "tst_stability.moc"
