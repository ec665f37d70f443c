// Reading "[t] [x]" text into a record, against a bare loop that finds the line ends and converts both
// numbers. Counters: "ratio" of the best times to the bare loop over text in memory, to stay below 1.5;
// "ratio to file" to the loop that reads the file whole first; and "peak B/sample" above the program's own
// size before the reading, to stay below 40 plus the file.

#include "load/core/asciirecord.h"
#include "measure.h"
#include "record/record.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <limits>
#include <string>

namespace {

enum Style { Exported, Short, Aligned, Comma };

const char* const styleNames[] = {"as exported", "short numbers", "columns of blanks", "decimal comma"};

QByteArray makeText(int style, int lines)
{
    QByteArray text;
    char line[100];
    quint32 random = 12345;
    for (int i = 0; i < lines; ++i) {
        random = random * 1664525u + 1013904223u;
        const double x = (double(random) / 4294967296.0 - 0.5) * 1e-9;
        const char* const form = style == Exported ? "%.10f %.16e\r\n"
            : style == Aligned                     ? "%12.1f   %15.8e\n"
                                                   : "%.0f %.5e\n";
        int length = std::snprintf(line, sizeof line, form, double(i), x);
        if (style == Comma)
            std::replace(line, line + length, '.', ',');
        text.append(line, length);
    }
    return text;
}

double seconds(std::chrono::steady_clock::time_point from)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

double bareLoop(const QByteArray& text)
{
    double sum = 0.0;
    const char* at = text.constData();
    const char* const end = at + text.size();
    while (at < end) {
        const void* const found = std::memchr(at, '\n', std::size_t(end - at));
        const char* const lineEnd = found ? static_cast<const char*>(found) : end;
        double t = 0.0, x = 0.0;
        while (at < lineEnd && *at == ' ')
            ++at;
        const char* second = std::from_chars(at, lineEnd, t).ptr;
        while (second < lineEnd && *second == ' ')
            ++second;
        std::from_chars(second, lineEnd, x);
        sum += t + x;
        at = lineEnd + 1;
    }
    return sum;
}

void BM_Reading(benchmark::State& state)
{
    const int lines = int(state.range(1));
    QTemporaryDir dir;
    AsciiRequest request;
    request.fileName = dir.filePath(QStringLiteral("text.txt"));
    request.format = QStringLiteral("[t] [x]");
    request.start = QDateTime(QDate(2024, 3, 1), QTime(0, 0));
    request.dataColumn = 0;
    const QByteArray text = makeText(int(state.range(0)), lines);
    // The bare loop knows no comma.
    const QByteArray plain = state.range(0) == Comma ? makeText(Short, lines) : text;
    {
        QFile file(request.fileName);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            state.SkipWithError("cannot write the file");
    }
    double peak = 0.0;
    double best = std::numeric_limits<double>::infinity();
    double bareBest = best;
    double bareFileBest = best;
    for (auto _ : state) {
        const auto bareFrom = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(bareLoop(plain));
        bareBest = std::min(bareBest, seconds(bareFrom));
        const auto bareFileFrom = std::chrono::steady_clock::now();
        QFile bareFile(request.fileName);
        benchmark::DoNotOptimize(bareFile.open(QIODevice::ReadOnly));
        benchmark::DoNotOptimize(bareLoop(bareFile.readAll()));
        bareFileBest = std::min(bareFileBest, seconds(bareFileFrom));
        malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << "5"; // the peak starts anew
        const double before = memory("VmRSS:");
        const auto from = std::chrono::steady_clock::now();
        Record record;
        const AsciiResult result = readASCIIData(request, &record);
        const double took = seconds(from);
        if (result.status != AsciiStatus::Ok || record.n_cnt != lines)
            state.SkipWithError("not all samples were read");
        best = std::min(best, took);
        peak = std::max(peak, memory("VmHWM:") - before);
        state.SetIterationTime(took);
    }
    state.SetLabel(styleNames[state.range(0)]);
    state.counters["ratio"] = best / bareBest;
    state.counters["ratio to file"] = best / bareFileBest;
    state.counters["ns/sample"] = best / lines * 1e9;
    state.counters["MB/s"] = text.size() / best / 1e6;
    state.counters["peak B/sample"] = peak / lines;
    state.counters["file B/sample"] = double(text.size()) / lines;
}

} // namespace

BENCHMARK(BM_Reading)
    ->ArgsProduct({{Exported, Short, Aligned, Comma}, {2000000}})
    ->UseManualTime()
    ->Iterations(15)
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
