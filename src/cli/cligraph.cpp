#include "cli/cligraph.h"

#include "cli/clicompute.h"
#include "cli/clirecord.h"
#include "plot/avarform.h"
#include "plot/seriesgraph.h"
#include "plot/spectrumgraph.h"
#include "plot/stabilitygraph.h"

#include <QDir>

#include <algorithm>

namespace {

constexpr int width = 900; // pixels
constexpr int height = 650;

/// A graph of one file; what is left undone tells itself by the notes.
class GraphFile {
public:
    GraphFile(const QString& key, const CliOptions& options, const QDir& folder)
        : m_file(folder.filePath(key + QLatin1Char('.') + options.plotType))
        , m_key(key)
    {
        form.resize(width, height);
    }

    /// `known` of the curves that did not fit are told already.
    void write(int curves, QStringList& notes, int known = 0)
    {
        const int leftOut = curves - form.curveCount;
        if (leftOut > known) {
            notes << QStringLiteral("%1 more curves of %2 are not in the graph, which takes at most %3")
                         .arg(leftOut - known)
                         .arg(m_key)
                         .arg(PlotForm::curveLimit);
        }
        QString error;
        if (form.curveCount > 0 && !form.saveImageTo(m_file, &error))
            throw DataFault(QStringLiteral("%1: cannot be written: %2").arg(m_file, error));
    }

    AvarForm form{nullptr, nullptr, -1};

private:
    QString m_file;
    QString m_key;
};

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

/// Why curves are too short for the graph.
QStringList shortNotes(const QVector<StabilityCurve>& curves, const QString& key)
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
    return notes;
}

void writeStability(const CliWork& work, Statistic statistic, const CliOptions& options, const QDir& folder,
    QStringList& notes)
{
    const QString key = statisticKey(statistic, options.overlap);
    GraphFile graph(key, options, folder);
    const QVector<StabilityCurve> curves = curvesOf(work.results, statistic);
    showStability(graph.form, statistic, curves, {options.removeDrift, options.overlap, options.isCross()});
    const QStringList tooShort = shortNotes(curves, key);
    notes << tooShort;
    graph.write(curves.size(), notes, tooShort.size());
}

void writeSpectrum(const CliWork& work, const CliOptions& options, const QDir& folder, QStringList& notes)
{
    GraphFile graph(QStringLiteral("spectrum"), options, folder);
    showSpectra(graph.form, false, work.spectra, options.removeDrift);
    graph.write(work.spectra.size(), notes);
}

void writeSeries(
    const CliWork& work, bool frequency, const CliOptions& options, const QDir& folder, QStringList& notes)
{
    QVector<SeriesCurve> curves = frequency ? work.frequencies : work.phases;
    if (curves.isEmpty())
        return;
    SeriesScope scope{SeriesKind::MinMax, frequency, work.freqInterval, options.isCross(),
        curves.first().start, curves.first().stop};
    for (const SeriesCurve& curve : curves) {
        scope.start = std::min(scope.start, curve.start);
        scope.stop = std::max(scope.stop, curve.stop);
    }
    for (SeriesCurve& curve : curves) {
        const double offset = double(scope.start.msecsTo(curve.start)) / 1000.0;
        for (double& t : curve.t)
            t += offset;
    }
    GraphFile graph(frequency ? QStringLiteral("freq") : QStringLiteral("phase"), options, folder);
    showSeries(graph.form, scope, curves);
    graph.form.setPictureNote([scope, drift = options.removeDrift] {
        return pictureTitle(seriesTitle(scope), {drift, false, false});
    });
    graph.write(curves.size(), notes);
}

} // namespace

void writeGraphs(const CliWork& work, const CliOptions& options, const QDir& folder, QStringList& notes)
{
    for (const Graph graph : options.graphs) {
        switch (graph) {
        case Graph::Phase:
        case Graph::Frequency:
            writeSeries(work, graph == Graph::Frequency, options, folder, notes);
            break;
        case Graph::Spectrum:
            writeSpectrum(work, options, folder, notes);
            break;
        case Graph::Stability:
            for (const Statistic statistic : options.statistics)
                writeStability(work, statistic, options, folder, notes);
            break;
        }
    }
}
