#include "stats/tdevmtie.h"

#include "stats/deviations.h"
#include "stats/timinglog.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

/// The extremes of the samples seen. A NaN compares false and so changes nothing.
struct Range {
    double high = -endless;
    double low = endless;

    void take(double v)
    {
        high = v > high ? v : high;
        low = v < low ? v : low;
    }
};

/// The greater of `best` and the width of the range; no sample (-inf) and equal infinities (NaN) leave it.
double wider(double best, const Range& range)
{
    const double width = range.high - range.low;
    return width > best ? width : best;
}

}

double TDEV(long n, long m, double* x, double*, double)
{
    return mod_alan_scdo(n, m, x) * static_cast<double>(m) / 1.7320508075688772;
}

/// The series is cut into blocks of one window's length. A window that starts at place k of a block is the
/// block from k on and the first k samples of the next block: the extremes of the former are laid down in one
/// backward pass over the block, those of the latter grow in one forward pass. Three comparisons an extreme
/// and sample, whatever the series.
double MTIE(long n, long m, double* x, double*, double)
{
    const TimingLog log("MTIE", n, m);
    if (m <= 0 || n <= m)
        return 0.0;
    const long width = m + 1, windows = n - m;
    const std::size_t room = static_cast<std::size_t>(std::min(width, windows));
    const std::unique_ptr<double[]> highFrom(new double[room]),
        lowFrom(new double[room]); // filled before it is read
    double best = 0.0;
    for (long start = 0; start < windows; start += width) {
        const double* block = x + start;
        const long places = std::min(width, windows - start);
        Range tail;
        for (long k = m; k >= places; --k)
            tail.take(block[k]);
        for (long k = places - 1; k >= 0; --k) {
            tail.take(block[k]);
            highFrom[static_cast<std::size_t>(k)] = tail.high;
            lowFrom[static_cast<std::size_t>(k)] = tail.low;
        }
        best = wider(best, tail);
        Range head;
        for (long k = 1; k < places; ++k) {
            head.take(block[m + k]);
            const std::size_t place = static_cast<std::size_t>(k);
            best = wider(best, {std::max(head.high, highFrom[place]), std::min(head.low, lowFrom[place])});
        }
    }
    return best;
}

double MTIE_noimpr(long n, long m, double* x)
{
    const TimingLog log("MTIE", n, m);
    if (m <= 0 || n <= m)
        return 0.0;
    double best = 0.0;
    for (long i = 0; i < n - m; ++i) {
        Range window;
        for (long k = 0; k <= m; ++k)
            window.take(x[i + k]);
        best = wider(best, window);
    }
    return best;
}

double MTIE_impr2(long n, long m, double* x)
{
    return MTIE_noimpr(n, m, x);
}
