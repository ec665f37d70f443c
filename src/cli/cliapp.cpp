#include "cli/cliapp.h"

#include "base/globals.h"
#include "base/paths.h"
#include "base/wholefile.h"
#include "cli/clicompute.h"
#include "cli/cligraph.h"
#include "cli/clirecord.h"
#include "cli/clirecording.h"
#include "cli/clisave.h"
#include "cli/clitable.h"
#include "stats/firfilter.h"

#include <QDir>
#include <QtGlobal>

#include <cstdio>
#include <new>

namespace {

bool debugWanted = false;

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    // Qt's remarks on a missing XDG_RUNTIME_DIR, usual on servers, do not concern anybody here.
    const bool chatter =
        type == QtDebugMsg || type == QtInfoMsg || text.startsWith(QLatin1String("QStandardPaths:"));
    if (chatter && !debugWanted)
        return;
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

QString tableFileName(const CliOptions& options)
{
    const char* name = options.content == Content::Spectrum ? "spectrum"
        : options.content == Content::MinMax                ? "minmax"
                                                            : "stability";
    const char* ending = options.style == TableStyle::Csv ? ".csv"
        : options.style == TableStyle::Json               ? ".json"
                                                          : ".txt";
    return QString::fromLatin1(name) + QString::fromLatin1(ending);
}

void prepareSpectra(const CliOptions& options, QStringList& notes)
{
    freqRef = options.carrier;
    if (!installDefaultFilter(paths::config()))
        notes << paths::config()
                + QStringLiteral("/filter.txt: cannot be written; the low frequencies of the spectra are "
                                 "missing");
}

void writeFile(const QString& name, const QByteArray& content)
{
    QString error;
    if (!replaceFile(name, content, &error))
        throw DataFault(QStringLiteral("%1: cannot be written: %2").arg(name, error));
}

void writeFolder(const CliWork& work, const CliOptions& options, const QByteArray& table, QStringList& notes)
{
    const QDir folder(options.outputFolder);
    if (!folder.mkpath(QStringLiteral(".")))
        throw DataFault(QStringLiteral("%1: the folder cannot be made").arg(options.outputFolder));
    writeFile(folder.filePath(tableFileName(options)), table);
    writeGraphs(work, options, folder, notes);
}

QByteArray lines(const QStringList& texts)
{
    QByteArray bytes;
    for (const QString& text : texts)
        bytes += text.toLocal8Bit() + '\n';
    return bytes;
}

} // namespace

CliOutcome runCommand(const CliOptions& options)
{
    CliOutcome outcome;
    QStringList notes;
    try {
        if (options.recording.list) {
            outcome.out = recordingList(options, notes);
            outcome.err = lines(notes);
            return outcome;
        }
        if (options.needsSpectrum())
            prepareSpectra(options, notes);
        CliWork work = computeAll(options, notes);
        const QByteArray table = tableText(work.results, options);
        writeSaves(work, options, notes);
        if (!options.outputFolder.isEmpty())
            writeFolder(work, options, table, notes);
        outcome.out = table;
    } catch (const DataFault& fault) {
        notes << QString::fromUtf8(fault.what());
        outcome.status = CliOutcome::badData;
    } catch (const std::bad_alloc&) {
        notes << QStringLiteral("out of memory");
        outcome.status = CliOutcome::badData;
    }
    outcome.err = lines(notes);
    return outcome;
}

void quietMessages()
{
    debugWanted = qEnvironmentVariableIsSet("KRONALYS_DEBUG");
    qInstallMessageHandler(handleMessage);
}
