#pragma once

#include <QString>

class QCommandLineParser;
struct CliOptions;

/// Adds the options of the commands of the record table: outlier limits, difference, merge, cross processing,
/// spectra and reduction.
void addCommands(QCommandLineParser& parser);

/// Reads these options, after all others, and looks whether they go together and with the number of records.
/// Throws Misuse. Looks at the heads of the files for their columns.
void readCommands(const QCommandLineParser& parser, CliOptions& options);

/// Why a command does not take so many records; empty when it does.
QString recordsFault(const CliOptions& options, int records);
