#include "plot/avarform.h"
#include "prompt/guard.h"

#include <qwt_plot_curve.h>

#include <algorithm>
#include <cmath>

namespace {

/// A deviation not above this has not been computed yet.
constexpr double leastValue = 1e-30;
constexpr int stabilityKind = 3;

bool hasMagnitude(double value)
{
    return std::isfinite(value) && std::fabs(value) > leastValue;
}

QwtIntervalSample tenthAround(double tau, double value)
{
    return {tau, 0.9 * value, 1.1 * value};
}

} // namespace

void AvarForm::UpdDynValues(int count, varInf info, const double* tau)
{
    if (plotKind != stabilityKind || info.typeOfVar != avarType)
        return;
    UpdateDynamicCurves(info.recID, std::min(count, info.length), info.value, tau, info.interval);
}

void AvarForm::UpdateDynamicCurves(
    unsigned short channel, int count, const double* y, const double* tau, double tau0)
{
    const int index = channels.indexOf(channel);
    if (count < 1 || !y || !tau || !(tau0 > 0.0) || index < 0 || index >= curveCount)
        return;
    runGuarded("AvarForm UpdateDynamicCurves", [&] { takeLive(index, count, y, tau, tau0); });
}

void AvarForm::takeLive(int index, int count, const double* y, const double* tau, double tau0)
{
    Data& data = m_data[size_t(index)];
    Data fresh;
    fresh.start = data.start;
    fresh.stop = data.stop;
    QVector<QwtIntervalSample> plain;
    QVector<QwtIntervalSample> divided;
    for (int i = 0; i < count; ++i) {
        if (!hasMagnitude(y[i]))
            continue;
        const double value = y[i] / tau0;
        fresh.xData.push_back(tau[i]);
        fresh.yData.push_back(value);
        fresh.ySqrt2Data.push_back(value / sqrt2);
        if (plotKind != stabilityKind)
            continue;
        plain << tenthAround(tau[i], value);
        divided << tenthAround(tau[i], value / sqrt2);
    }
    // The curve lets go of the arrays before these are freed.
    curve(index)->setSamples(QVector<QPointF>());
    data = std::move(fresh);
    m_bars[index] = plain;
    m_barsSqrt2[index] = divided;
    useForm(index);
    showCurve(curve(index), true); // also one that the user has hidden: on purpose
    showAVAR(curve(index), true);
    if (curveCount == 1 && plotKind == stabilityKind)
        showTable(index, true);
}
