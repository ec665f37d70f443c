#include "stats/incremental.h"

#include "stats/deviations.h"
#include "support/directsums.h"
#include "support/near.h"

#include <QTest>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <new>
#include <random>
#include <utility>
#include <vector>

namespace {

using Samples = std::vector<double>;

varInf room(int length)
{
    varInf state;
    state.Reserve(length);
    return state;
}

struct ScoStep {
    double value, mean, sum, sumSq;
    bool stored = false;
};

/// What sco_Upd is to return and to store, from a state of 0.5, 5.0 and 2.5 (zero while c is 0).
ScoStep scoStep(const Samples& x, long n, long m, long c)
{
    const double mean = c ? 0.5 : 0.0, sum = c ? 5.0 : 0.0, sumSq = c ? 2.5 : 0.0;
    ScoStep step{0.0, mean, sum, sumSq};
    const long q = c < m ? 0 : c / m - 1, left = n + c - q * m;
    const double spread = mean * mean + sumSq - 2 * mean * sum;
    step.value = std::sqrt(spread / static_cast<double>(c)) / static_cast<double>(m);
    if (left / 2 < m) { // the root of a negative spread is refused only up to m
        step.value = left > m ? std::sqrt(std::fabs(spread) / static_cast<double>(c)) / static_cast<double>(m)
                              : step.value;
        return step;
    }
    std::vector<long> positions; // of the later sample of each step
    for (long i = 0; i < left - m; i += m)
        positions.push_back(i + m);
    if (positions.back() >= n || c - q * m + 1 >= n) {
        step.value = c ? 9.0 : 0.0;
        return step;
    }
    const auto at = [&x](long i) { return x[static_cast<std::size_t>(i)]; };
    const long fresh = left / m - 1;
    const double terms = static_cast<double>(q + fresh);
    step.mean = static_cast<double>(q) * mean / terms + (at(m * fresh - 1) - at(c - q * m + 1)) / terms;
    for (const long i : positions) {
        step.sum += at(i) - at(i - m);
        step.sumSq += (at(i) - at(i - m)) * (at(i) - at(i - m));
    }
    const double variance = step.mean * step.mean - (2 * step.mean * step.sum - step.sumSq) / terms;
    step.value = std::sqrt(variance) / static_cast<double>(m);
    step.stored = true;
    return step;
}

/// A block in memory of its own: a sanitizer sees a read beyond it.
double fold(const Samples& x, long from, long to, long m, varInf& state)
{
    Samples block(x.begin() + from, x.begin() + to);
    return alan_scdo_Upd(to - from, m, block.data(), state, 0);
}

}

class TestIncremental : public QObject {
    Q_OBJECT
private slots:
    void copiesShareArraysThatOutliveTheirMaker()
    {
        varInf copy;
        {
            varInf state = room(2);
            state.value[1] = 3.0;
            state.count[1] = 7;
            copy = state;
            state.value[0] = 5.0;
            QCOMPARE(copy.value[0], 5.0);
            state.Reserve(4);
            QCOMPARE(state.length, 4);
            QCOMPARE(state.value[1], 3.0);
            QCOMPARE(state.count[1], 7);
            for (int k : {2, 3})
                QVERIFY(state.count[k] == 0 && state.value[k] == 0.0 && state.sum[k] == 0.0
                    && state.sumSq[k] == 0.0 && state.mean[k] == 0.0);
            state.value[1] = 9.0;
            state.Reserve(1);
            QCOMPARE(state.length, 4);
            for (int bad : {-1, INT_MAX})
                QVERIFY_EXCEPTION_THROWN(state.Reserve(bad), std::bad_array_new_length);
            QCOMPARE(state.value[1], 9.0);
        }
        QCOMPARE(copy.length, 2);
        QCOMPARE(copy.value[1], 3.0);
        {
            const varInf moved = std::move(copy);
        }
        QCOMPARE(copy.value[1], 3.0); // no pointer without its owner
    }

    void blocksGiveTheWhole()
    {
        std::mt19937 source(5);
        Samples x = direct::roughSeries(3000).x;
        for (int run = 0; run < 60; ++run) {
            std::fill_n(x.begin(), run % 3 == 1 ? 500 : 0, 2.0); // nothing to see at first: a fresh start
            const long longest = run % 2 ? 40 : 900;
            for (const long m : {1L, 2L, 7L, 10L, 20L, 97L, 700L}) {
                varInf state = room(1);
                long taken = 0;
                while (taken < static_cast<long>(x.size())) {
                    const long from = alan_scdo_Upd_firstSample(m, state, 0);
                    QVERIFY(from <= taken && (from % m) == 0);
                    taken += std::uniform_int_distribution<long>(0, longest)(source);
                    taken = std::min(taken, static_cast<long>(x.size()));
                    const double got = fold(x, from, taken, m, state);
                    QCOMPARE(state.count[0], static_cast<int>(taken));
                    QCOMPARE(state.value[0], got);
                    const double whole = taken == 2 * m ? 0.0 : alan_scdo(taken, m, x.data());
                    NEAR(got, whole, 1e-12);
                    if (got != 0.0) // at most the samples that a next term needs
                        QVERIFY(taken - alan_scdo_Upd_firstSample(m, state, 0) <= 2 * m);
                }
            }
        }
    }

    void startsAndGuards()
    {
        Samples x = direct::roughSeries(50).x;
        varInf state = room(1);
        QCOMPARE(alan_scdo_Upd(20, 10, x.data(), state, 0), 0.0);
        QCOMPARE(state.count[0], 20);
        const double fresh = alan_scdo(50, 10, x.data());
        for (const double tiny : {9e-31, -9e-31, 0.0}) {
            state.value[0] = tiny;
            state.count[0] = 40;
            QCOMPARE(alan_scdo_Upd_firstSample(10, state, 0), 0L);
            QCOMPARE(alan_scdo_Upd(3, 10, x.data(), state, 0), 0.0);
            NEAR(alan_scdo_Upd(50, 10, x.data(), state, 0), fresh);
            QCOMPARE(state.count[0], 50);
        }
        for (const long n : {0L, 1L, -3L, LONG_MIN}) {
            QCOMPARE(alan_scdo_Upd(n, 10, x.data(), state, 0), state.value[0]);
            QCOMPARE(state.count[0], 50);
        }
        QCOMPARE(alan_scdo_Upd(50, LONG_MAX, x.data(), state, 0), state.value[0]);
        QCOMPARE(alan_scdo_Upd(3, 0, x.data(), state, 0), state.value[0]);
        QCOMPARE(state.count[0], 53);
        QCOMPARE(alan_scdo_Upd(LONG_MAX, 0, x.data(), state, 0), state.value[0]);
        QCOMPARE(state.count[0], INT_MAX);
        for (const int k : {-1, 1, INT_MAX}) {
            QCOMPARE(alan_scdo_Upd(50, 1, x.data(), state, k), 0.0);
            QCOMPARE(sco_Upd(50, 1, x.data(), state, k), 0.0);
        }
        for (const double bad : {std::nan(""), HUGE_VAL}) {
            varInf other = room(1);
            Samples y = x;
            y[21] = bad;
            QVERIFY(!std::isfinite(alan_scdo_Upd(50, 3, y.data(), other, 0)));
            QVERIFY(!std::isfinite(alan_scdo_Upd(20, 3, x.data(), other, 0)));
        }
    }

    void scoByItsFormula()
    {
        const Samples series = direct::roughSeries(60).x;
        for (const long c : {0L, 2L, 12L, 40L})
            for (const long n : {-1L, 0L, 1L, 2L, 3L, 8L, 10L, 11L, 16L, 47L, 60L})
                for (const long m : {1L, 3L, 5L, 10L, 11L, 24L, LONG_MAX}) {
                    Samples block(series.begin(), series.begin() + std::max(n, 0L));
                    varInf state = room(1);
                    state.count[0] = static_cast<int>(c);
                    state.value[0] = 9.0; // the four are cleared while the count is 0
                    state.mean[0] = c ? 0.5 : 4.0;
                    state.sum[0] = c ? 5.0 : 4.0;
                    state.sumSq[0] = c ? 2.5 : 4.0;
                    const ScoStep want = scoStep(series, n, m, c);
                    const double got = sco_Upd(n, m, block.data(), state, 0);
                    const QString row = QString("c %1 n %2 m %3: ").arg(c).arg(n).arg(m);
                    const QString lines[] = {nearly(got, want.value, 1e-9),
                        nearly(state.mean[0], want.mean, 1e-12), nearly(state.sum[0], want.sum, 1e-12, 1e-13),
                        nearly(state.sumSq[0], want.sumSq, 1e-12)};
                    for (const QString& line : lines)
                        QVERIFY2(line.isEmpty(), qPrintable(row + line));
                    QCOMPARE(state.value[0], want.stored ? got : c ? 9.0 : 0.0);
                    QCOMPARE(state.count[0], static_cast<int>(c));
                }
        varInf state = room(1);
        Samples block = series;
        for (const long m : {0L, -3L, LONG_MIN})
            QVERIFY(!std::isfinite(sco_Upd(60, m, block.data(), state, 0)));
    }
};

QTEST_APPLESS_MAIN(TestIncremental)
#include "tst_incremental.moc"
