// Graphs of days of 86,400 samples against bare plots of the same points, both shown at one size in turn in
// one run. "ratio" is the least time of the one over the least time of the other, "bound" what it should not
// exceed.

#include "plot/multiaxisplot.h"
#include "plot/phaseform.h"
#include "support/samplerecord.h"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <memory>
#include <vector>

namespace {

constexpr int samples = 86400;
constexpr QSize windowSize(1000, 700);

template <typename Work> double seconds(const Work& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

template <typename Yardstick, typename Work>
void compare(benchmark::State& state, double bound, const Yardstick& yardstick, const Work& work)
{
    double leastYard = std::numeric_limits<double>::max(), leastWork = leastYard;
    for (auto _ : state) {
        leastYard = std::min(leastYard, seconds(yardstick));
        const double time = seconds(work);
        leastWork = std::min(leastWork, time);
        state.SetIterationTime(time);
    }
    state.counters["ratio"] = leastWork / leastYard;
    state.counters["yardstick_ms"] = leastYard * 1e3;
    state.counters["best_ms"] = leastWork * 1e3;
    state.counters["bound"] = bound;
}

/// White phase noise, which is the hardest to draw: every line crosses the plot.
void fill(Record* records, int count)
{
    Lehmer random;
    for (int i = 0; i < count; ++i)
        fillRecord(
            records[i], samples, 1.0, [&](int) { return 1e-9 * random.next(); }, i + 1);
}

class Bare {
public:
    explicit Bare(Record* records, int count)
    {
        for (int i = 0; i < count; ++i) {
            auto* curve = new QwtPlotCurve;
            curve->setRawSamples(records[i].t.DayData(0), records[i].x.DayData(0), samples);
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

std::unique_ptr<PhaseForm> graphOf(Record* records, int count)
{
    auto graph = std::make_unique<PhaseForm>(nullptr);
    graph->resize(windowSize);
    graph->addRecords(records, count, 0, 1.0);
    graph->show();
    QApplication::processEvents();
    return graph;
}

void open(benchmark::State& state)
{
    const int count = int(state.range(0));
    const std::unique_ptr<Record[]> records(new Record[size_t(count)]);
    fill(records.get(), count);
    compare(
        state, 3.0, [&] { Bare(records.get(), count).show(); }, [&] { graphOf(records.get(), count); });
}

/// A redraw after a zoom to a half of the day, and to a minute of it.
void zoom(benchmark::State& state)
{
    constexpr int count = 32;
    const double width = double(state.range(0));
    const std::unique_ptr<Record[]> records(new Record[count]);
    fill(records.get(), count);
    Bare bare(records.get(), count);
    bare.show();
    const std::unique_ptr<PhaseForm> graph = graphOf(records.get(), count);
    double from = 0.0;
    compare(
        state, 2.0, [&] { bare.zoom(from, from + width); },
        [&] {
            MultiAxisPlot* plot = graph->plot->plot();
            plot->moveZoom(0, QRectF(from, 0.0, width, 1e-9));
            graph->plot->replot();
            QApplication::processEvents();
            from += 60.0;
        });
}

BENCHMARK(open)->Arg(1)->Arg(32)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(zoom)->Arg(43200)->Arg(60)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
