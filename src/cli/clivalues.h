#pragma once

#include <QString>

#include <optional>

class QCommandLineParser;

/// What is wrong with the command line, in words for the user.
struct Misuse {
    QString text;
};

/// The value of an option, given without its dashes; empty when the option is not there. An empty value is
/// Misuse.
std::optional<QString> valueOf(const QCommandLineParser& parser, const char* name);

/// The same as a number; one that is not finite is Misuse.
double numberOf(const QCommandLineParser& parser, const char* name, double byDefault);

bool isGiven(const QCommandLineParser& parser, const char* name);
