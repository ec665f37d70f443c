#pragma once

class QCommandLineParser;
struct CliOptions;

/// Adds the options that choose from a recording directory, and those that save records.
void addRecordingOptions(QCommandLineParser& parser);

/// Reads these options, before all others. Throws Misuse.
void readRecordingOptions(const QCommandLineParser& parser, CliOptions& options);
