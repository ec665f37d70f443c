// Loading 30 days of samples a second apart, against reading the same data files whole and converting the
// samples into arrays of a day; "ratio" is to stay below 2. The decimated load is held against the same
// yardstick, and "read share" tells how much of the files it took.

#include "measure.h"
#include "record/record.h"
#include "samples/recording.h"
#include "store/core/chartgeometry.h"
#include "store/core/infstruct.h"
#include "store/core/mapstruct.h"
#include "store/core/recordingload.h"
#include "store/core/recordingtime.h"
#include "store/myview.h"
#include "store/schedule.h"

#include <QApplication>
#include <QFile>
#include <QPixmap>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr int days = 30;
const QDate firstDay(2026, 3, 1);

/// The recording, written once for all.
QString directory()
{
    static const QTemporaryDir home;
    static const bool written = [] {
        RecordingWriter::Stretch stretch;
        stretch.start = dayStart(firstDay);
        stretch.stop = dayEnd(firstDay.addDays(days - 1));
        return RecordingWriter(QDir(home.path())).write(stretch);
    }();
    return written ? home.path() : QString();
}

using Array = std::unique_ptr<double[]>;

qint64 bareReading()
{
    std::vector<Array> arrays;
    qint64 samples = 0;
    for (int day = 0; day < days; ++day) {
        QFile file(
            directory() + QLatin1Char('/') + recordingName(firstDay.addDays(day), 1) + QLatin1String(".dat"));
        if (!file.open(QIODevice::ReadOnly))
            return 0;
        const QByteArray bytes = file.readAll();
        const int count = bytes.size() / datSampleSize;
        arrays.emplace_back(new double[std::size_t(count)]);
        double* const t = arrays.back().get();
        arrays.emplace_back(new double[std::size_t(count)]);
        double* const x = arrays.back().get();
        for (int i = 0; i < count; ++i) {
            const DatSample sample = decodeSample(bytes.constData() + i * datSampleSize);
            t[i] = sample.mark;
            x[i] = sample.value * -1.0;
        }
        samples += count;
    }
    benchmark::DoNotOptimize(arrays.data());
    return samples;
}

void BM_Loading(benchmark::State& state)
{
    mapStruct map(days, 1);
    map.readINFFiles(QDir(directory()), firstDay, QByteArray(1, '\1'));
    RecordingStretch stretch;
    stretch.start = stretch.recordingStart = dayStart(firstDay);
    stretch.stop = dayEnd(firstDay.addDays(days - 1));
    stretch.kdec = int(state.range(0));
    RecordingLoad loader(map, directory());
    qint64 samples = 0, bare = 0;
    compare(
        state, 2.0, [&bare] { bare = bareReading(); },
        [&] {
            Record record;
            loader.load(stretch, &record);
            samples = record.n_cnt;
        });
    if (bare == 0 || samples != (bare - 1) / stretch.kdec + 1)
        state.SkipWithError("not all samples came");
    state.counters["samples"] = double(samples);
    state.counters["read share"] = double(loader.bytesRead()) / double(bare * datSampleSize);
}
BENCHMARK(BM_Loading)
    ->Arg(1)
    ->Arg(10)
    ->Arg(1000)
    ->Iterations(15)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void BM_Zooming(benchmark::State& state)
{
    constexpr int chartDays = 400, channels = 16;
    mapStruct map(chartDays, channels);
    for (int channel = 1; channel <= channels; ++channel) {
        map.channels << channel;
        map.firstOfChannel << map.segmentCount();
        for (int day = 0; day < chartDays; ++day) {
            map.starts << QDateTime(firstDay.addDays(day), QTime(channel % 3, 0));
            map.stops << QDateTime(firstDay.addDays(day), QTime(22, 0));
            map.names << QStringLiteral("H-maser - Clock %1").arg(channel);
            map.kinds += "grbg"[day % 4];
        }
    }
    map.firstOfChannel << map.segmentCount();
    schedule chart(nullptr, &map);
    chart.resize(1040, 613);
    chart.showSchedule(firstDay, firstDay.addDays(chartDays - 1), QByteArray(2, '\xff'), channels, QDir());
    auto* const view = chart.findChild<MyView*>();
    QPixmap frame(chart.size());
    bool closer = false;
    double slowest = 0.0;
    for (auto _ : state) {
        closer = view->visibleSeconds().second - view->visibleSeconds().first > 5 * 86400.0
            && (closer || view->visibleSeconds().first <= 0.0);
        const double time = seconds([&] {
            view->zoom(chart::zoomFactor(closer ? 120 : -120), 500);
            chart.render(&frame);
        });
        slowest = std::max(slowest, time);
        state.SetIterationTime(time);
    }
    state.counters["segments"] = map.segmentCount();
    state.counters["slowest_ms"] = slowest * 1e3;
}
BENCHMARK(BM_Zooming)->Iterations(200)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
