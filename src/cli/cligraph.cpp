#include "cli/cligraph.h"

#include "cli/clirecord.h"
#include "plot/avarform.h"
#include "plot/stabilitygraph.h"

#include <algorithm>

namespace {

constexpr int width = 900; // pixels
constexpr int height = 650;

QVector<StabilityCurve> curvesOf(const QVector<CliResult>& results, Statistic statistic)
{
    QVector<StabilityCurve> curves;
    for (const CliResult& result : results) {
        for (const CliColumn& column : result.columns) {
            if (column.statistic == statistic)
                curves.append({0, result.title, result.scale.tau, column.values, result.start, result.stop});
        }
    }
    return curves;
}

/// Why `leftOut` of the curves are not in the graph.
QStringList leftOutNotes(const QVector<StabilityCurve>& curves, int leftOut, const QString& key)
{
    QStringList notes;
    for (const StabilityCurve& curve : curves) {
        const size_t points = std::min(curve.tau.size(), curve.value.size());
        if (points <= stabilityPointsTooFew) {
            notes << curve.title
                    + QStringLiteral(
                        ": no curve of %1 in the graph: %2 values of tau, more than %3 are needed")
                          .arg(key)
                          .arg(points)
                          .arg(stabilityPointsTooFew);
        }
    }
    if (leftOut > notes.size()) {
        notes << QStringLiteral("%1 more curves of %2 are not in the graph, which takes at most %3")
                     .arg(leftOut - notes.size())
                     .arg(key)
                     .arg(PlotForm::curveLimit);
    }
    return notes;
}

} // namespace

QStringList writeGraph(const QVector<CliResult>& results, Statistic statistic, const CliOptions& options,
    const QString& fileName)
{
    AvarForm form(nullptr, nullptr, 3);
    form.resize(width, height);
    const bool cross = options.pairing == Pairing::Cross || options.pairing == Pairing::ThreeCorner;
    const StabilityNotes notes{options.removeDrift, options.overlap, cross};
    const QVector<StabilityCurve> curves = curvesOf(results, statistic);
    const int leftOut = showStability(form, statistic, curves, notes).size();
    const QStringList told = leftOutNotes(curves, leftOut, statisticKey(statistic, options.overlap));
    QString error;
    if (leftOut < curves.size() && !form.saveImageTo(fileName, &error))
        throw DataFault(QStringLiteral("%1: cannot be written: %2").arg(fileName, error));
    return told;
}
