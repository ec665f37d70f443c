#include "stats/cross.h"
#include "support/dayrecord.h"
#include "support/near.h"
#include "support/samplerecord.h"
#include "table/core/crosspair.h"
#include "table/core/stability.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace {

using Values = QVector<double>;

const double none = qQNaN();
const QDateTime midnight(QDate(2026, 3, 1), QTime(0, 0));

/// Phases of three clocks with white frequency noise of the levels 1, 2 and 4 (1e-12), one sample a second.
struct Clocks {
    explicit Clocks(int n)
    {
        Lehmer random;
        for (int clock = 0; clock < 3; ++clock) {
            double now = 0.0;
            for (int i = 0; i < n; ++i) {
                phase[clock].push_back(now);
                double normal = -6.0;
                for (int k = 0; k < 12; ++k)
                    normal += random.next();
                now += 1e-12 * (1 << clock) * normal;
            }
        }
    }

    /// Fills the record of one clock less another; the signals are their numbers.
    void fill(Record& record, int measured, int reference) const
    {
        const auto value = [&](int i) { return phase[measured][size_t(i)] - phase[reference][size_t(i)]; };
        fillRecord(record, int(phase[0].size()), 1.0, value, measured + 1);
        record.meas_sig = QString::number(measured);
        record.ref_sig = QString::number(reference);
    }

    std::vector<double> phase[3];
};

void fillTimes(Record& record, const Values& t, double x, int startMs = 0)
{
    fillDays(record, {{{t.begin(), t.end()}, std::vector<double>(size_t(t.size()), x)}}, 1.0,
        midnight.addMSecs(startMs));
}

Values list(const std::vector<double>& values)
{
    return Values(values.begin(), values.end());
}

TauScale scaleOf(const std::vector<qint64>& factors)
{
    return {factors, {factors.begin(), factors.end()}};
}

/// Names records by letters: reference and measured signal of each.
void name(const std::vector<Record*>& records, const QString& letters)
{
    int at = 0;
    for (Record* record : records) {
        record->ref_sig = letters.mid(at++, 1);
        record->meas_sig = letters.mid(at++, 1);
    }
}

} // namespace

class CrossPairTest : public QObject {
    Q_OBJECT
private slots:
    void signalsAndRows();
    void alignment();
    void refusals();
    void countsAndSpan();
    void kernels();
    void rowsOfValues();
    void hatFindsEachClock();
    void hatIsTheSameInAnyOrder();
};

void CrossPairTest::signalsAndRows()
{
    const QString noise = QStringLiteral("Шум компаратора (по каналам 3, 5)");
    struct Row {
        const char* letters;
        SignalCase kind;
        int first, second; // 0 for unknown
        QStringList names;
    };
    const Row rows[] = {
        {"BACA", SignalCase::Three, 1, 1, {"A", "B", "C"}},
        {"BAAC", SignalCase::Three, 1, -1, {"A", "B", "C"}},
        {"ABCA", SignalCase::Three, -1, 1, {"A", "B", "C"}},
        {"ABAC", SignalCase::Three, -1, -1, {"A", "B", "C"}},
        {"ABAB", SignalCase::Two, 1, 1, {"B - A", noise}},
        {"ABBA", SignalCase::Two, 1, -1, {"B - A", noise}},
        {"ABAA", SignalCase::Two, -1, 1, {"B - A", noise}},
        {"AAAA", SignalCase::One, 1, 1, {noise}},
        {"AABB", SignalCase::One, 0, 0, {noise}},
        {"ABCD", SignalCase::Unfit, 0, 0, {}},
        {"AABC", SignalCase::Unfit, 0, 0, {}},
        {"ABCC", SignalCase::Unfit, 0, 0, {}},
    };
    for (const Row& row : rows) {
        Record a, b;
        name({&a, &b}, row.letters);
        a.ch = 3;
        b.ch = 5;
        QVERIFY2(signalCase(a, b) == row.kind, row.letters);
        QStringList names;
        for (const CrossRow& result : crossRows(a, b)) {
            QCOMPARE(result.channels, QStringLiteral("3, 5"));
            names << result.name;
        }
        QCOMPARE(names, row.names);
        const bool known = row.first != 0;
        if (!known)
            QTest::ignoreMessage(QtDebugMsg, "CROSSS new SMTH IS WRONG!!!!!!!!!!!!!!");
        const CommonSigns signs = commonSigns(a, b);
        QCOMPARE(signs.known, known);
        QCOMPARE(signs.first, known ? row.first : 1);
        QCOMPARE(signs.second, known ? row.second : 1);
    }
}

void CrossPairTest::alignment()
{
    struct Row {
        int startMs[3]; // after midnight
        Values t[3]; // s
        Values pairs, triples; // times of the first record, s after the first common one
        int firstMs; // when that is
    };
    const Values five{0, 1, 2, 3, 4};
    const Row rows[] = {
        {{0, 0, 0}, {five, {0, 2, 3, 4}, {0, 1, 2, 4, 5}}, {0, 2, 3, 4}, {0, 2, 4}, 0},
        {{0, 2000, 2000}, {five, {2, 3, 5, 6}, {2, 3, 4, 5}}, {0, 1}, {0, 1}, 2000},
        {{3250, 5250, 5250}, {five, five, five}, {0, 1, 2}, {0, 1, 2}, 5250}, // scales that begin at 0
        {{0, 0, 0}, {five, {0, 1, none, 3, 4}, five}, {0, 1, 3, 4}, {0, 1, 3, 4}, 0},
        {{0, 0, 0}, {five, {0.496, 1.496, 2.496}, {0.2, 1.2, 2.2}}, {0, 1, 2}, {0, 1, 2}, 0},
        {{0, 0, 0}, {five, {0.5, 1.5, 2.5}, five}, {}, {}, 0}, // half an interval is too far
        // Both are near the first, but not near each other.
        {{0, 0, 0}, {{0.25, 1.25, 2.25}, {0.5625, 1.5625, 2.5625}, {0, 1, 2}}, {0, 1, 2}, {}, 250},
    };
    for (const Row& row : rows) {
        Record records[3];
        Record &a = records[0], &b = records[1], &c = records[2];
        for (int i = 0; i < 3; ++i)
            fillTimes(records[i], row.t[i], 5.0 + i, row.startMs[i]);
        name({&a, &b, &c}, "ABCABC");
        CrossSeries pair;
        QCOMPARE(crossSeries(a, b, pair), row.pairs.isEmpty() ? CrossStatus::NoPairs : CrossStatus::Ok);
        QCOMPARE(list(pair.u), row.pairs);
        QCOMPARE(list(pair.x), Values(row.pairs.size(), -5.0));
        QCOMPARE(list(pair.y), Values(row.pairs.size(), 6.0));
        QCOMPARE(list(pair.d), Values(row.pairs.size(), 11.0));
        QCOMPARE(pair.v.size(), pair.u.size());
        for (size_t i = 0; i < pair.v.size(); ++i)
            NEAR(pair.v[i] - pair.u[i], std::fmod(row.t[1].first() - row.t[0].first(), 1.0), 0.0, 1e-9);
        HatSeries hat;
        QCOMPARE(hatSeries(a, b, c, hat), row.triples.isEmpty() ? CrossStatus::NoPairs : CrossStatus::Ok);
        QCOMPARE(list(hat.t[0]), row.triples);
        QCOMPARE(list(hat.x[0]), Values(row.triples.size(), -5.0));
        QCOMPARE(list(hat.x[1]), Values(row.triples.size(), 6.0));
        QCOMPARE(list(hat.x[2]), Values(row.triples.size(), -7.0));
        const QDateTime first = midnight.addMSecs(row.firstMs);
        if (!row.pairs.isEmpty()) {
            QCOMPARE(pair.kind, SignalCase::Three);
            QCOMPARE(pair.start, first);
            QCOMPARE(pair.stop, first.addMSecs(qint64(1000 * row.pairs.last())));
        }
        if (!row.triples.isEmpty()) {
            QCOMPARE(hat.start, first);
            QCOMPARE(hat.stop, first.addMSecs(qint64(1000 * row.triples.last())));
        }
    }
}

void CrossPairTest::refusals()
{
    struct Row {
        const char* letters; // of two or three records
        int lastMs; // start of the last record after midnight
        double interval; // of the last record, s
        CrossStatus status;
    };
    const Row rows[] = {
        {"ABAB", 0, 1.0, CrossStatus::Ok},
        {"ABCD", 1000000, 2.0, CrossStatus::OtherSignals},
        {"ABAB", 1000000, 2.0, CrossStatus::NoCommonTime},
        {"ABAB", 0, 2.0, CrossStatus::OtherIntervals},
        {"ABAB", 0, none, CrossStatus::OtherIntervals},
        {"ABACBC", 0, 1.0, CrossStatus::Ok},
        {"ABABBC", 1000000, 2.0, CrossStatus::NotThreeClocks}, // a pair twice
        {"ABBCCB", 0, 1.0, CrossStatus::NotThreeClocks},
        {"ABACBA", 0, 1.0, CrossStatus::NotThreeClocks},
        {"ABACBB", 0, 1.0, CrossStatus::NotThreeClocks},
        {"AAABAC", 0, 1.0, CrossStatus::NotThreeClocks},
        {"ABBBAC", 0, 1.0, CrossStatus::NotThreeClocks},
        {"ABACBD", 0, 1.0, CrossStatus::NotThreeClocks},
        {"ABACBC", 1000000, 2.0, CrossStatus::NoCommonTime},
        {"ABACBC", 0, 2.0, CrossStatus::OtherIntervals},
    };
    for (const Row& row : rows) {
        Record a, b, c;
        const bool three = qstrlen(row.letters) == 6;
        for (Record* record : {&a, &b, &c})
            fillTimes(*record, {0, 1, 2, 3}, 1.0, record == (three ? &c : &b) ? row.lastMs : 0);
        name({&a, &b, &c}, row.letters);
        (three ? c : b).Kdec = row.interval;
        CrossSeries pair;
        HatSeries hat;
        pair.x = hat.x[0] = {1.0};
        const CrossStatus status = three ? hatSeries(a, b, c, hat) : crossSeries(a, b, pair);
        QVERIFY2(status == row.status, row.letters);
        QCOMPARE(three ? hat.size() : pair.size(), status == CrossStatus::Ok ? 4 : 0);
        QCOMPARE(hatRows(a, b, c).isEmpty(), !three || status == CrossStatus::NotThreeClocks);
    }
    Record record;
    CrossSeries series;
    QCOMPARE(crossSeries(record, record, series), CrossStatus::NoCommonTime);
    fillTimes(record, {0, 1, 2, 3}, 1.0);
    record.Kdec = 0.0; // nothing is nearer than that
    QCOMPARE(crossSeries(record, record, series), CrossStatus::NoPairs);
}

void CrossPairTest::countsAndSpan()
{
    for (const int missing : {10, 11}) { // samples of the second record
        Record a, b, c;
        fillRecord(a, 1000, 1.0, [](int) { return 0.0; });
        copyRecord(&a, &c);
        Values times;
        for (int i = 100; i < 900; ++i) {
            if (i < 500 || i >= 500 + missing)
                times << i;
        }
        fillTimes(b, times, 0.0, 100000);
        name({&a, &b, &c}, "ABACBC");
        CrossSeries pair;
        HatSeries hat;
        QCOMPARE(crossSeries(a, b, pair), CrossStatus::Ok);
        QCOMPARE(hatSeries(c, a, b, hat), CrossStatus::Ok);
        QVERIFY(pair.countsDiffer == (missing > 10) && hat.countsDiffer == (missing > 10));
        QVERIFY(pair.interval == 1.0 && hat.interval == 1.0);
    }
}

void CrossPairTest::kernels()
{
    std::vector<double> x = Clocks(500).phase[2], t;
    const long n = long(x.size());
    for (long i = 0; i < n; ++i)
        t.push_back(double(i));
    for (int i = 0; i < statisticCount; ++i) {
        for (const bool overlap : {false, true}) {
            const CrossKernel cross = crossKernel(Statistic(i), overlap);
            QCOMPARE(cross != nullptr, Statistic(i) <= Statistic::Hdev);
            if (!cross)
                continue;
            const double single =
                stabilityKernel(Statistic(i), overlap).perTau(n, 7, x.data(), t.data(), 1.0);
            NEAR(cross(n, 7, x.data(), x.data(), t.data(), t.data()), single, 1e-9);
        }
    }
}

void CrossPairTest::rowsOfValues()
{
    const Clocks clocks(3000);
    const TauScale scale = scaleOf({1, 10});
    const CrossKernel kernel = cross_alan_scdo_overlap;
    Record a, b, c;
    CrossSeries series;
    const auto values = [&] {
        crossSeries(a, b, series);
        const auto found = crossStability(kernel, series, scale);
        return int(found.size()) == crossRows(a, b).size() ? found : std::vector<std::vector<double>>();
    };
    clocks.fill(a, 2, 1);
    clocks.fill(b, 2, 1);
    auto found = values();
    QCOMPARE(found.size(), size_t(2));
    NEAR(found[0][0], 1e-12 * std::sqrt(4.0 + 16.0), 0.05);
    QCOMPARE(found[1], std::vector<double>(2, 0.0));
    clocks.fill(b, 2, 0);
    b.ref_sig = a.ref_sig; // as if clocks 0 and 1 were the noise of two comparators
    found = values();
    QCOMPARE(found.size(), size_t(2));
    NEAR(found[1][0], 1e-12 * std::sqrt((1.0 + 4.0) / 2.0), 0.05);
    a.ref_sig = b.ref_sig = a.meas_sig;
    QCOMPARE(values().size(), size_t(1));

    // With comparators that add nothing, the third record of a hat is the difference of the others.
    clocks.fill(a, 0, 1);
    clocks.fill(b, 2, 0);
    clocks.fill(c, 2, 1);
    found = values();
    HatSeries hat;
    QCOMPARE(hatSeries(a, b, c, hat), CrossStatus::Ok);
    const auto ofHat = hatStability(kernel, hat, scale);
    QCOMPARE(found.size(), size_t(3));
    for (size_t row = 0; row < 3; ++row)
        NEAR(found[row][1], ofHat[row][1], 1e-6);

    QVERIFY(crossStability(kernel, series, scale, [](double) { return false; }).empty());
    QVERIFY(crossStability(nullptr, series, scale).empty());
    QVERIFY(crossStability(kernel, series, TauScale()).empty());
    series = CrossSeries();
    QVERIFY(crossStability(kernel, series, scale).empty());
}

void CrossPairTest::hatFindsEachClock()
{
    const Clocks clocks(20000);
    Record a, b, c;
    clocks.fill(a, 0, 1);
    clocks.fill(b, 2, 1);
    clocks.fill(c, 2, 0);
    b.ch = 7;
    HatSeries hat;
    QCOMPARE(hatSeries(a, b, c, hat), CrossStatus::Ok);
    const auto rows = hatRows(a, b, c);
    const auto values = hatStability(crossKernel(Statistic::Adev, true), hat, scaleOf({1, 10}));
    const QStringList channels{"1, 7", "1, 3", "7, 3"};
    const int clock[3] = {1, 0, 2};
    QCOMPARE(values.size(), size_t(3));
    for (int k = 0; k < 3; ++k) {
        QCOMPARE(rows.at(k).name, QString::number(clock[k]));
        QCOMPARE(hat.clock[k], rows.at(k).name);
        QCOMPARE(rows.at(k).channels, channels.at(k));
        const double level = 1e-12 * (1 << clock[k]);
        NEAR(values[size_t(k)][0], level, 0.1);
        NEAR(values[size_t(k)][1], level / std::sqrt(10.0), 0.3);
        for (size_t i = 0; i < 100; ++i) { // 0 less 1, 0 less 2, 1 less 2
            const auto& [plus, minus] = hatPairs[k]; // which are also the clocks
            NEAR(hat.x[k][i], clocks.phase[clock[plus]][i] - clocks.phase[clock[minus]][i], 0.0, 1e-24);
        }
    }
}

void CrossPairTest::hatIsTheSameInAnyOrder()
{
    const Clocks clocks(2000);
    std::map<QString, std::vector<double>> wanted;
    for (int turned = 0; turned < 8; ++turned) {
        Record records[3];
        for (int i = 0; i < 3; ++i) {
            const int next = (i + 1) % 3;
            const bool other = (turned >> i) % 2 != 0;
            clocks.fill(records[i], other ? next : i, other ? i : next);
        }
        int order[3] = {0, 1, 2};
        do {
            HatSeries hat;
            QCOMPARE(
                hatSeries(records[order[0]], records[order[1]], records[order[2]], hat), CrossStatus::Ok);
            const auto values = hatStability(crossKernel(Statistic::Sdev, false), hat, scaleOf({1, 20}));
            for (size_t k = 0; k < 3; ++k) {
                std::vector<double>& same = wanted[hat.clock[k]];
                if (same.empty())
                    same = values[k];
                NEAR(values[k][0], same[0], 1e-9);
                NEAR(values[k][1], same[1], 1e-9);
            }
        } while (std::next_permutation(order, order + 3));
    }
    QCOMPARE(wanted.size(), size_t(3));
}

QTEST_APPLESS_MAIN(CrossPairTest)
#include "tst_crosspair.moc"
