// The index of a recording directory of 400 days and 16 channels, against opening and reading the same inf
// files. The ratio is to stay below 3.

#include "measure.h"
#include "samples/recording.h"
#include "store/core/mapstruct.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstddef>

namespace {

constexpr int days = 400;
constexpr int channels = 16;
constexpr int interval = 21600; // s; the index does not look at the samples

void BM_Index(benchmark::State& state)
{
    QTemporaryDir place;
    const QDir directory(place.path());
    const QDate from(2025, 1, 1);
    if (!RecordingWriter(directory, int(state.range(0))).writeMixture(from, days, channels, interval)) {
        state.SkipWithError("the directory cannot be written");
        return;
    }
    const QStringList files = directory.entryList({QStringLiteral("*.inf")});
    mapStruct map(days, channels);
    const auto readAll = [&] {
        qint64 bytes = 0;
        for (const QString& name : files) {
            QFile file(directory.absoluteFilePath(name));
            if (file.open(QIODevice::ReadOnly))
                bytes += file.readAll().size();
        }
        benchmark::DoNotOptimize(bytes);
    };
    const auto index = [&] { map.readINFFiles(directory, from, QByteArray("\xff\xff")); };
    compare(state, 3.0, readAll, index);
    state.counters["files"] = double(files.size());
    state.counters["segments"] = double(map.segmentCount());
}

} // namespace

BENCHMARK(BM_Index)->Arg(1)->Arg(2)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK_MAIN();
