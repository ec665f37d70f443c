#pragma once

#include "cli/clioptions.h"

#include <QByteArray>

/// What a run leaves behind: exit status, and the bytes for the two output streams.
struct CliOutcome {
    static constexpr int done = 0;
    static constexpr int badData = 1; ///< also output that cannot be written
    static constexpr int badUsage = 2;

    int status = done;
    QByteArray out;
    QByteArray err;
};

/// Processes all files, and writes the output folder when one is asked for; for the graphs there a
/// QApplication must exist. With a fault in any file nothing is put out.
CliOutcome runCommand(const CliOptions& options);

/// Takes the place of Qt's own message output: debug and information lines are dropped unless the environment
/// has KRONALYS_DEBUG, so that standard error holds what concerns the user.
void quietMessages();
