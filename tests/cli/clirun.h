#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// What a run of the command line program left.
struct CliRun {
    int status = -1; ///< -1 when it did not end by itself
    QByteArray out;
    QByteArray err;
};

/// Runs the real program with no display to be found in its environment, whose platform is no use either.
inline CliRun runCli(const QStringList& arguments, const QString& folder = QString(), bool debug = false)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "KRONALYS_DEBUG"})
        environment.remove(QString::fromLatin1(name));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("none"));
    if (debug)
        environment.insert(QStringLiteral("KRONALYS_DEBUG"), QStringLiteral("1"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(qEnvironmentVariable("KRONALYS_BIN") + QStringLiteral("/kronalys-cli"), arguments);
    CliRun run;
    if (process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit)
        run.status = process.exitCode();
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}

/// Empty when the run ended with this status, told this, and put nothing out.
inline QByteArray refusalFault(const CliRun& run, int status, const QByteArray& told)
{
    if (run.status == status && run.err.contains(told) && run.out.isEmpty())
        return {};
    return QByteArray::number(run.status) + ", told: " + run.err + "put out: " + run.out;
}

/// Columns of a CSV table by head and averaging factor; empty cells are left out.
inline QMap<QByteArray, QMap<long, double>> csvColumns(const QByteArray& text)
{
    QMap<QByteArray, QMap<long, double>> columns;
    const QList<QByteArray> lines = text.trimmed().split('\n');
    const QList<QByteArray> heads = lines.first().split(',');
    for (const QByteArray& line : lines.mid(1)) {
        const QList<QByteArray> cells = line.split(',');
        for (int c = 1; c < cells.size() && c < heads.size(); ++c) {
            if (!cells[c].isEmpty())
                columns[heads[c]][cells[0].toLong()] = cells[c].toDouble();
        }
    }
    return columns;
}
