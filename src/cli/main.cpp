#include "base/globals.h"
#include "cli/cliapp.h"
#include "cli/clioptions.h"
#include "resources/resources.h"

#include <QApplication>
#include <QCoreApplication>
#include <QTranslator>

#include <cstdio>
#include <memory>

namespace {

bool put(std::FILE* stream, const QByteArray& bytes)
{
    const bool written =
        std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream) == size_t(bytes.size());
    return std::fflush(stream) == 0 && written;
}

/// Names of results and graphs are English, as all else here.
void speakEnglish(QTranslator& translator)
{
    initResources();
    App_lang = QStringLiteral("en");
    if (translator.load(QStringLiteral(":/lang/Kronalys_en.qm")))
        QCoreApplication::installTranslator(&translator);
}

CliOutcome outcomeOf(const CliCommand& command)
{
    switch (command.kind) {
    case CliCommand::Kind::Run:
        return runCommand(command.options);
    case CliCommand::Kind::Help:
        return {CliOutcome::done, command.text.toLocal8Bit(), {}};
    case CliCommand::Kind::Version:
        return {CliOutcome::done, "kronalys-cli " + Appver.toLatin1() + '\n', {}};
    case CliCommand::Kind::Misuse:
        break;
    }
    const QByteArray text = "kronalys-cli: " + command.text.toLocal8Bit() + "\nTry kronalys-cli --help.\n";
    return {CliOutcome::badUsage, {}, text};
}

} // namespace

int main(int argumentCount, char** arguments)
{
    quietMessages();
    QTranslator translator;
    auto application = std::make_unique<QCoreApplication>(argumentCount, arguments);
    const CliCommand command = readCommandLine(QCoreApplication::arguments(), AVAR_numPT_perTau);
    if (command.kind == CliCommand::Kind::Run && !command.options.graphs.isEmpty()) {
        application.reset();
        // Graphs are drawn into files only. The user's own platform would end the program where its display
        // is away.
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application = std::make_unique<QApplication>(argumentCount, arguments);
    }
    speakEnglish(translator);
    CliOutcome outcome = outcomeOf(command);
    put(stderr, outcome.err);
    if (!put(stdout, outcome.out)) {
        std::fputs("kronalys-cli: the output cannot be written\n", stderr);
        outcome.status = CliOutcome::badData;
    }
    return outcome.status;
}
