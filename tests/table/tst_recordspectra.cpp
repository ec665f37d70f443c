#include "base/paths.h"
#include "stats/firfilter.h"
#include "stats/fits.h"
#include "stats/spectra.h"
#include "support/near.h"
#include "support/samplerecord.h"
#include "support/scopedhome.h"
#include "table/core/crosspair.h"
#include "table/core/phaseseries.h"
#include "table/core/recordspectra.h"

#include <QTest>

#include <cmath>
#include <vector>

namespace {

using Samples = std::vector<double>;

/// White phase noise on a parabola that is far above it.
Samples onParabola(int n, Lehmer& random, double scale)
{
    Samples x;
    for (int i = 0; i < n; ++i)
        x.push_back(1e-12 * random.next() + scale * (1e-9 + 1e-11 * i + 1e-14 * i * i));
    return x;
}

Samples times(int n, double interval)
{
    Samples t;
    for (int i = 0; i < n; ++i)
        t.push_back(i * interval);
    return t;
}

Samples detrended(Samples t, Samples x)
{
    double quadratic = 0.0, linear = 0.0, constant = 0.0;
    Parab(int(x.size()), t.data(), x.data(), &quadratic, &linear, &constant);
    for (size_t i = 0; i < x.size(); ++i)
        x[i] -= (quadratic * t[i] + linear) * t[i] + constant;
    return x;
}

using CrossEstimate = int (*)(int, double, double*, double*, double*, double*, double*);

/// Empty when the spectrum is that of x and y, by the estimate.
QString differs(const PhaseSpectrum& got, CrossEstimate estimate, double interval, Samples x, Samples y)
{
    Samples f(4097), s1(4096), s2(4096);
    const int points = estimate(int(x.size()), interval, x.data(), y.data(), f.data(), s1.data(), s2.data());
    const size_t count = size_t(points);
    if (got.frequency.size() != count || got.phase.size() != count || got.rate.size() != count)
        return QStringLiteral("%1 points instead of %2").arg(got.frequency.size()).arg(count);
    for (size_t i = 0; i < count; ++i) {
        for (const QString& line : {nearly(got.frequency[i], f[i]), nearly(got.phase[i], s1[i], 0.0, 1e-3),
                 nearly(got.rate[i], s2[i], 0.0, 1e-3)}) {
            if (!line.isEmpty())
                return line;
        }
    }
    return {};
}

Samples minus(const Samples& y, const Samples& x)
{
    Samples d;
    for (size_t i = 0; i < x.size(); ++i)
        d.push_back(y[i] - x[i]);
    return d;
}

CrossSeries pairOf(SignalCase kind, int n, double interval)
{
    Lehmer random;
    CrossSeries series;
    series.kind = kind;
    series.interval = interval;
    series.x = onParabola(n, random, 1.0);
    series.y = onParabola(n, random, -3.0);
    series.d = minus(series.y, series.x);
    series.u = series.v = times(n, interval);
    return series;
}

} // namespace

class RecordSpectraTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void record();
    void tooLittle();
    void rows();
    void lengths();

private:
    ScopedHome m_home;
};

void RecordSpectraTest::initTestCase()
{
    QVERIFY(installDefaultFilter(paths::config()));
}

void RecordSpectraTest::record()
{
    Lehmer random;
    PhaseSeries series{times(20000, 0.5), onParabola(20000, random, 1.0)};
    const Samples before = series.x;
    const PhaseSpectrum spectrum = recordSpectrum(series, 0.5);
    QCOMPARE(series.x, before);
    const Samples x = detrended(series.t, series.x);
    const auto single = [](int n, double tau, double* a, double*, double* f, double* s1, double* s2) {
        return doSpectrum(n, tau, a, f, s1, s2);
    };
    const QString line = differs(spectrum, single, 0.5, x, x);
    QVERIFY2(line.isEmpty(), qPrintable(line));
    QVERIFY(std::isfinite(spectrum.phase.front()));
}

void RecordSpectraTest::tooLittle()
{
    HatSeries hat;
    QCOMPARE(hatSpectra(hat).size(), size_t(3));
    Lehmer random;
    for (const int n : {0, 127, 128}) {
        PhaseSeries series{times(n, 1.0), onParabola(n, random, 1.0)};
        const bool fits = n == 128;
        QCOMPARE(recordSpectrum(series, 1.0).frequency.empty(), !fits);
        QVERIFY(recordSpectrum(series, 0.0).phase.empty());
        QVERIFY(recordSpectrum(series, qQNaN()).phase.empty());
        QVERIFY(recordSpectrum(series, qInf()).phase.empty());
        CrossSeries pair = pairOf(SignalCase::Two, n, 1.0);
        const auto spectra = crossSpectra(pair);
        QCOMPARE(spectra.size(), size_t(2));
        QVERIFY(spectra[0].phase.empty() != fits && spectra[1].rate.empty() != fits);
    }
}

void RecordSpectraTest::rows()
{
    CrossSeries series = pairOf(SignalCase::Unfit, 3000, 2.0);
    const Samples x = detrended(series.u, series.x), y = detrended(series.v, series.y);
    const Samples d = minus(y, x);
    HatSeries hat;
    hat.interval = 2.0;
    hat.x[0] = series.x;
    hat.x[1] = series.y;
    hat.x[2] = series.d;
    hat.t[0] = hat.t[1] = hat.t[2] = series.u;
    const Samples* of[3][2] = {{&x, &y}, {&x, &d}, {&y, &d}};
    for (const SignalCase kind : {SignalCase::Unfit, SignalCase::One, SignalCase::Two, SignalCase::Three}) {
        series.kind = kind;
        auto spectra = crossSpectra(series);
        QCOMPARE(spectra.size(), size_t(kind)); // none, one, two, three
        const auto ofHat = hatSpectra(hat);
        spectra.insert(spectra.end(), ofHat.begin(), ofHat.end());
        for (size_t row = 0; row < spectra.size(); ++row) {
            const auto& [first, second] = of[row < size_t(kind) ? row : row - size_t(kind)];
            const QString line = differs(spectra[row], XSpectr, 2.0, *first, *second);
            QVERIFY2(line.isEmpty(), qPrintable(line));
        }
    }
}

void RecordSpectraTest::lengths()
{
    for (const int n : {20480, 20481}) {
        CrossSeries series = pairOf(SignalCase::One, n, 1.0);
        const QString line = differs(crossSpectra(series)[0], n > 20480 ? doXSpectrum : XSpectr, 1.0,
            detrended(series.u, series.x), detrended(series.v, series.y));
        QVERIFY2(line.isEmpty(), qPrintable(line));
    }
    CrossSeries series = pairOf(SignalCase::One, 3000, 1.0);
    const auto cut = crossSpectra(series, 1000);
    const Samples t = times(1000, 1.0);
    const Samples x(series.x.begin(), series.x.begin() + 1000), y(series.y.begin(), series.y.begin() + 1000);
    const QString line = differs(cut[0], XSpectr, 1.0, detrended(t, x), detrended(t, y));
    QVERIFY2(line.isEmpty(), qPrintable(line));
}

QTEST_APPLESS_MAIN(RecordSpectraTest)
#include "tst_recordspectra.moc"
