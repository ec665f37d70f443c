#include "support/dayrecord.h"
#include "support/near.h"
#include "support/samplerecord.h"
#include "table/core/relaydays.h"

#include <QTest>

namespace {

const QDateTime midnight(QDate(2026, 3, 1), QTime(0, 0));

/// One day of n times.
TestDay times(double first, double step, int n)
{
    TestDay day;
    for (int i = 0; i < n; ++i) {
        day.t.push_back(first + i * step);
        day.x.push_back(i);
    }
    return day;
}

} // namespace

Q_DECLARE_METATYPE(std::vector<TestDay>)

class RelayDaysTest : public QObject {
    Q_OBJECT
private slots:
    void firstAndLastTimes_data();
    void firstAndLastTimes();
    void oddRecords();
};

void RelayDaysTest::firstAndLastTimes_data()
{
    QTest::addColumn<double>("interval");
    QTest::addColumn<QDateTime>("start");
    QTest::addColumn<QDateTime>("stop");
    QTest::addColumn<std::vector<TestDay>>("days");
    QTest::addColumn<QVector<double>>("ends"); // first and last time of each day afterwards
    using Days = std::vector<TestDay>;
    const QDateTime noon = midnight.addSecs(43200);

    QTest::newRow("one day, from noon on")
        << 1.0 << noon << noon.addSecs(999) << Days{times(43200.0, 1.0, 1000)} << QVector<double>{0, 999};
    QTest::newRow("11 s short is left")
        << 1.0 << noon << noon.addSecs(1010) << Days{times(5.0, 1.0, 1000)} << QVector<double>{0, 999};
    QTest::newRow("12 s short is stretched")
        << 1.0 << noon << noon.addSecs(1011) << Days{times(5.0, 1.0, 1000)} << QVector<double>{0, 1011};
    QTest::newRow("more than twice too short")
        << 1.0 << noon << noon.addSecs(5000) << Days{times(5.0, 1.0, 1000)} << QVector<double>{0, 999};
    QTest::newRow("dates in the wrong order")
        << 1.0 << noon << noon.addSecs(-3600) << Days{times(5.0, 1.0, 1000)} << QVector<double>{0, 999};
    // Above one second, the last step over the number of steps tells to stretch without a look at the limits.
    QTest::newRow("interval above 1 s")
        << 10.0 << noon << noon.addSecs(9990) << Days{times(0.0, 10.0, 1000)} << QVector<double>{0, 9981};
    // A middle day closes the gap before it and keeps its own distances.
    QTest::newRow("three days") << 1.0 << midnight << midnight.addSecs(2 * 86400 + 86399)
                                << Days{times(7.0, 1.0, 86400), times(90000.5, 1.0, 86400),
                                       times(172900.0, 1.0, 86400)}
                                << QVector<double>{0, 86399, 86400, 172799, 172800,
                                       172800.0 + 86399.0 * 86399.0 / 259298.0};
    // The last day is measured from the head of the record, and comes out squeezed.
    QTest::newRow("two days") << 1.0 << midnight << midnight.addSecs(86400 + 86399)
                              << Days{times(0.0, 1.0, 86400), times(86400.0, 1.0, 86400)}
                              << QVector<double>{0, 86399, 86400, 86400.0 + 86399.0 * 86399.0 / 172798.0};
    // Above one second a middle day is stretched by the wrong length too.
    QTest::newRow("three days of 100 s")
        << 100.0 << midnight << midnight.addSecs(2 * 86400 + 86300)
        << Days{times(0.0, 100.0, 864), times(86400.0, 100.0, 864), times(172800.0, 100.0, 1)}
        << QVector<double>{0, 86300, 86400, 86400.0 + 86300.0 * 86300.0, 86500.0 + 86300.0 * 86300.0,
               86500.0 + 86300.0 * 86300.0};
    QTest::newRow("a later day begins at a whole second")
        << 1.0 << midnight << midnight.addSecs(86400) << Days{times(5.0, 0.75, 3), times(9.0, 1.0, 1)}
        << QVector<double>{0, 1.5, 2, 2};
    QTest::newRow("an empty day between") << 1.0 << midnight << midnight.addSecs(2 * 86400)
                                          << Days{times(3.0, 1.0, 86400), {}, times(172900.25, 1.0, 1)}
                                          << QVector<double>{0, 86399, 86400, 86400};
}

void RelayDaysTest::firstAndLastTimes()
{
    QFETCH(double, interval);
    QFETCH(QDateTime, start);
    QFETCH(QDateTime, stop);
    QFETCH(std::vector<TestDay>, days);
    QFETCH(QVector<double>, ends);
    Record record;
    fillDays(record, days, interval, start);
    record.stop = stop;
    const QVector<double> values = samplesOf(record.x);
    relayDays(record);
    int end = 0;
    for (int day = 0; day < record.n_days; ++day) {
        const int length = record.t.DayLengths.at(day);
        if (length == 0)
            continue;
        NEAR(record.t.DayData(day)[0], ends.at(end++));
        NEAR(record.t.DayData(day)[length - 1], ends.at(end++));
    }
    QCOMPARE(end, ends.size());
    QVERIFY(rises(record.t));
    QCOMPARE(samplesOf(record.x), values);
}

void RelayDaysTest::oddRecords()
{
    Record record;
    relayDays(record);
    QCOMPARE(record.t.count, 0);
    const double nan = qQNaN();
    for (const double interval : {0.0, 1.0, 20.0, nan}) {
        fillDays(record, {{}, {{nan}, {1.0}}, {{nan, qInf(), 3.0}, {1.0}}, {}, {{1e300}, {}}}, interval, {});
        relayDays(record);
        QCOMPARE(record.t.count, 5);
    }
}

QTEST_APPLESS_MAIN(RelayDaysTest)
#include "tst_relaydays.moc"
