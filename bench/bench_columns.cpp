// Reading "hh:mm:ss value" text by columns, against reading the same numbers by the template "[t] [x]". The
// ratio of the best times should stay below 3.

#include "load/core/asciirecord.h"
#include "load/core/columnfile.h"
#include "measure.h"
#include "record/record.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

enum Kind { Clock, DateAndClock, Numbers };

const char* const kindNames[] = {"hh:mm:ss", "yyyyMMdd;hh:mm:ss", "seconds"};

bool writeText(const QString& file, int lines, int kind)
{
    QByteArray text;
    char line[100];
    quint32 random = 12345;
    for (int i = 0; i < lines; ++i) {
        random = random * 1664525u + 1013904223u;
        const double x = (double(random) / 4294967296.0 - 0.5) * 1e-9;
        const int s = i % 86400;
        int length = 0;
        if (kind == Numbers)
            length = std::snprintf(line, sizeof line, "%d %.12e\n", i, x);
        else
            length = std::snprintf(line, sizeof line, "%s%02d:%02d:%02d %.12e\n",
                kind == DateAndClock ? "20140131;" : "", s / 3600, s / 60 % 60, s % 60, x);
        text.append(line, length);
    }
    QFile out(file);
    return out.open(QIODevice::WriteOnly) && out.write(text) == text.size();
}

void BM_Columns(benchmark::State& state)
{
    const int kind = int(state.range(0));
    const int lines = int(state.range(1));
    QTemporaryDir dir;
    AsciiRequest byTemplate;
    byTemplate.fileName = dir.filePath(QStringLiteral("numbers.txt"));
    byTemplate.format = QStringLiteral("[t] [x]");
    byTemplate.start = QDateTime(QDate(2014, 1, 31), QTime(0, 0));
    byTemplate.dataColumn = 0;
    ReadFromFilesInfo byColumns;
    byColumns.fileNames = QStringList(dir.filePath(QStringLiteral("columns.txt")));
    byColumns.format.columnNum_data = {1};
    byColumns.format.columnNum_time = 0;
    byColumns.format.timeFormat_flag = kind != Numbers;
    byColumns.format.timeFormat_format =
        kind == DateAndClock ? QStringLiteral("yyyyMMdd;hh:mm:ss") : QStringLiteral("hh:mm:ss");
    byColumns.format.timeUnit_flag = kind == Numbers;
    byColumns.format.timeStart_dateTime = byTemplate.start;
    if (!writeText(byTemplate.fileName, lines, Numbers)
        || !writeText(byColumns.fileNames.constFirst(), lines, kind))
        state.SkipWithError("cannot write the files");
    qint64 samples = 0;
    compare(
        state, 3.0,
        [&] {
            Record record;
            readASCIIData(byTemplate, &record);
            samples = record.n_cnt;
        },
        [&] {
            const ColumnResult result = readColumns(byColumns);
            if (result.records.empty() || result.records.front()->n_cnt != samples)
                state.SkipWithError("not all samples were read");
        });
    state.SetLabel(kindNames[kind]);
    state.counters["ns/sample"] = state.counters["best_ms"] * 1e6 / lines;
}

} // namespace

BENCHMARK(BM_Columns)
    ->ArgsProduct({{Clock, DateAndClock, Numbers}, {1000000}})
    ->UseManualTime()
    ->Iterations(15)
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
