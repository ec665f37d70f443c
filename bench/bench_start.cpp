// Time from the start of the program to a usable window, against a bare main window with an area of windows
// and a table. Both run as processes of their own, in turn.

#include "measure.h"

#include <QProcess>

#include <cstdlib>

namespace {

void run(const char* program)
{
    QProcess process;
    process.start(QString::fromLocal8Bit(program), QStringList());
    if (!process.waitForFinished(60000) || process.exitCode() != 0) {
        std::fprintf(stderr, "%s did not come to its end\n", program);
        std::exit(1);
    }
}

void start(benchmark::State& state)
{
    compare(
        state, 2.0, [] { run(BARE_PROGRAM); }, [] { run(WHOLE_PROGRAM); });
}
BENCHMARK(start)->Iterations(10)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
