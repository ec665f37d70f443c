#include "record/staticrecord.h"
#include "support/dayrecord.h"

#include <QTest>

using Values = std::vector<double>;
Q_DECLARE_METATYPE(std::vector<Values>)

class StaticRecordTest : public QObject {
    Q_OBJECT
private slots:
    void repeatsGo_data();
    void repeatsGo();
    void timesStayAtTheHead();
    void oddRecords();
};

void StaticRecordTest::repeatsGo_data()
{
    QTest::addColumn<std::vector<Values>>("days");
    QTest::addColumn<std::vector<Values>>("left");
    using Days = std::vector<Values>;
    const double nan = qQNaN();
    QTest::newRow("no repeats") << Days{{1, 2, 1}, {2, 3}, {4}} << Days{{1, 2, 1}, {2, 3}, {4}};
    QTest::newRow("one, in the middle") << Days{{1, 2, 2, 3, 4}} << Days{{1, 2, 3, 4}};
    QTest::newRow("one, at the end") << Days{{1, 2, 2}, {3}} << Days{{1, 2}, {3}};
    QTest::newRow("of three the third stays") << Days{{1, 2, 2, 2, 5}} << Days{{1, 2, 2, 5}};
    QTest::newRow("nothing else") << Days{{7, 7, 7, 7, 7}} << Days{{7, 7, 7}};
    QTest::newRow("later day") << Days{{1, 2}, {3, 4, 4, 5}, {6}} << Days{{1, 2}, {3, 4, 5}, {6}};
    QTest::newRow("over midnight") << Days{{1, 2}, {2, 3}, {4}} << Days{{1, 2}, {3}, {4}};
    QTest::newRow("a day of the repeat alone") << Days{{1, 2}, {2}, {2, 3}} << Days{{1, 2}, {}, {3}};
    QTest::newRow("empty days") << Days{{}, {1, 1, 2}, {}, {2, 5}} << Days{{}, {1, 2}, {}, {5}};
    QTest::newRow("NaN") << Days{{1, nan, nan, 1, 1}} << Days{{1, nan, nan, 1}};
}

void StaticRecordTest::repeatsGo()
{
    QFETCH(const std::vector<Values>, days);
    QFETCH(const std::vector<Values>, left);
    std::vector<TestDay> samples;
    double t = 0;
    int before = 0, after = 0;
    for (const Values& x : days) {
        samples.push_back({{}, x});
        for (size_t i = 0; i < x.size(); ++i)
            samples.back().t.push_back(t++);
        before += int(x.size());
    }
    StaticRecord record;
    fillDays(record, samples);
    const int removed = record.removeF0Values();
    QVector<int> lengths;
    QVector<double> times;
    for (size_t day = 0; day < left.size(); ++day) {
        lengths.append(int(left[day].size()));
        after += lengths.last();
        for (size_t i = 0; i < left[day].size(); ++i) {
            times.append(samples[day].t[i]);
            const double x = record.x.DayData(int(day))[i];
            QVERIFY(x == left[day][i] || (qIsNaN(x) && qIsNaN(left[day][i])));
        }
    }
    QCOMPARE(removed, before - after);
    QCOMPARE(dayLengthsOf(record), lengths);
    QCOMPARE(samplesOf(record.t), times);
}

void StaticRecordTest::timesStayAtTheHead()
{
    Record record; // as it stands in a slot
    fillDays(record, {{{0, 10, 20, 30}, {5, 5, 6, 7}}, {{40, 50}, {8, 9}}});
    QCOMPARE(StaticRecord::removeF0Values(record), 1);
    QCOMPARE(samplesOf(record.t), QVector<double>({0, 10, 20, 40, 50}));
    QCOMPARE(samplesOf(record.x), QVector<double>({5, 6, 7, 8, 9}));
    QCOMPARE(record.t[3], 40.0);
}

void StaticRecordTest::oddRecords()
{
    StaticRecord record;
    record.n_cnt = 5;
    QCOMPARE(record.removeF0Values(), 0);
    QCOMPARE(record.n_cnt, 0);
    fillDays(record, {{{0, 1, 2}, {1, 1}}, {{3}, {}}}); // more times than values
    QCOMPARE(record.removeF0Values(), 1);
    QCOMPARE(dayLengthsOf(record), QVector<int>({1, 0}));
    fillDays(record, {{{0}, {1}}});
    record.removeXValue(0);
    QCOMPARE(record.n_cnt, 1);
}

QTEST_APPLESS_MAIN(StaticRecordTest)
#include "tst_staticrecord.moc"
