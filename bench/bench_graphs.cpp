// Graphs of days of 86,400 samples against bare plots of the same points, both shown at one size in turn in
// one run. "ratio" is the least time of the one over the least time of the other, "bound" what it should not
// exceed.

#include "measure.h"
#include "plot/multiaxisplot.h"
#include "plot/phaseform.h"
#include "support/samplerecord.h"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <vector>

namespace {

constexpr int samples = 86400;
constexpr QSize windowSize(1000, 700);

/// White phase noise, whose lines all cross the plot, or a random walk, whose lines are short.
std::vector<Record> recordsOf(int count, bool walk)
{
    std::vector<Record> records(static_cast<size_t>(count));
    Lehmer random;
    for (int i = 0; i < count; ++i) {
        double sum = 0.0;
        const auto next = [&](int) {
            const double step = 1e-9 * random.next();
            sum += step - 0.5e-9;
            return walk ? sum : step;
        };
        fillRecord(records[size_t(i)], samples, 1.0, next, i + 1);
    }
    return records;
}

class Bare {
public:
    explicit Bare(std::vector<Record>& records)
    {
        for (Record& record : records) {
            auto* curve = new QwtPlotCurve;
            curve->setRawSamples(record.t.DayData(0), record.x.DayData(0), samples);
            curve->attach(&m_plot);
        }
        m_plot.resize(windowSize);
    }

    void show()
    {
        m_plot.show();
        m_plot.replot();
        QApplication::processEvents();
    }

    void zoom(double from, double to)
    {
        m_plot.setAxisScale(QwtPlot::xBottom, from, to);
        m_plot.replot();
        QApplication::processEvents();
    }

private:
    QwtPlot m_plot;
};

std::unique_ptr<PhaseForm> graphOf(std::vector<Record>& records)
{
    auto graph = std::make_unique<PhaseForm>(nullptr);
    graph->resize(windowSize);
    graph->addRecords(records.data(), int(records.size()), 0, 1.0);
    graph->show();
    QApplication::processEvents();
    return graph;
}

void open(benchmark::State& state)
{
    std::vector<Record> records = recordsOf(int(state.range(0)), state.range(1) != 0);
    compare(
        state, 3.0, [&] { Bare(records).show(); }, [&] { graphOf(records); });
}

/// A redraw after a zoom to a half of the day, and to a minute of it.
void zoom(benchmark::State& state)
{
    const double width = double(state.range(0));
    std::vector<Record> records = recordsOf(32, state.range(1) != 0);
    Bare bare(records);
    bare.show();
    const std::unique_ptr<PhaseForm> graph = graphOf(records);
    const QwtInterval y = graph->plot->plot()->axisInterval(0);
    double from = 0.0;
    compare(
        state, 2.0, [&] { bare.zoom(from, from + width); },
        [&] {
            MultiAxisPlot* plot = graph->plot->plot();
            plot->moveZoom(0, QRectF(from, y.minValue(), width, y.width()));
            graph->plot->replot();
            QApplication::processEvents();
            from += 60.0;
        });
}

BENCHMARK(open)
    ->ArgNames({"curves", "walk"})
    ->ArgsProduct({{1, 32}, {0, 1}})
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(zoom)
    ->ArgNames({"width", "walk"})
    ->ArgsProduct({{60, 43200}, {0, 1}})
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    // Records tell a lot.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg)
            std::cerr << qPrintable(text) << '\n';
    });
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
