#include "plot/core/betweenmarkers.h"

#include "plot/core/valuetable.h"
#include "stats/deviations.h"
#include "stats/statistic.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int titleWidth = 20;
/// A step of the table needs a series this many times as long.
constexpr long samplesPerStep = 20;
/// Times in binary fractions fall short of a whole second by less than this.
constexpr double timeRounding = 1e-6;

/// Below a second whole seconds would all be zero.
bool inWholeSeconds(double interval)
{
    return !(interval < 1.0);
}

QString seconds(double value, double interval)
{
    if (inWholeSeconds(interval) && std::fabs(value) < 1e15)
        return QString::number(static_cast<qlonglong>(value));
    return QString::number(value, 'g', 6);
}

} // namespace

QString meansText(const QVector<PlotPoints>& curves, double x1, double x2, bool english)
{
    QString text =
        english ? QStringLiteral("Mean value:\n") : QStringLiteral("Среднее значение:\n"); // verbatim
    for (const PlotPoints& curve : curves)
        text += curve.title.leftJustified(titleWidth, ' ', true) + ": "
            + QString::number(meanBetween(curve.x, curve.y, x1, x2), 'e', 6) + '\n';
    return text;
}

PhaseSeries phaseBetween(const PlotPoints& curve, double x1, double x2, double interval)
{
    const auto [low, high] = std::minmax(x1, x2);
    PhaseSeries series;
    double lastX = 0.0;
    double lastY = 0.0;
    for (int i = 0; i < curve.x.size() && i < curve.y.size(); ++i) {
        const double x = curve.x[i];
        if (!(x >= low && x <= high))
            continue;
        if (series.time.empty()) {
            series.time.push_back(x);
            series.phase.push_back(0.0);
        } else {
            double step = x - lastX;
            if (inWholeSeconds(interval))
                step = std::trunc(step + timeRounding);
            series.time.push_back(series.time.back() + step);
            series.phase.push_back(series.phase.back() + lastY * step);
        }
        lastX = x;
        lastY = curve.y[i];
    }
    return series;
}

QString adevTable(PhaseSeries series, double interval, bool english)
{
    const long n = long(series.time.size());
    QString html = valueTableHead(statisticHead(Statistic::Adev, english), english);
    for (long m = 1; n != 1 && m <= n / samplesPerStep; m *= 10)
        html += valueTableRow(seconds(interval * double(m), interval),
            QString::number(alan_scdo(n, m, series.phase.data(), series.time.data(), interval), 'e', 2));
    return html + valueTableEnd();
}
