#pragma once

#include <QString>

/// The working directories. All stand one level above the directory of the executable, so that a relocated
/// installation carries its settings, data and log with it.
namespace paths {

/// Directory of the configuration file and the flag files; no trailing slash.
QString config();
/// Default directory of exported tables.
QString data();
/// Directory of the log file and its rotated copies.
QString log();

/// Creates the three directories; a failure is not reported, since every later use copes with it.
void makeAll();

/// Puts the three directories below another root. For tests, and for installations whose own tree is
/// read-only.
void setRoot(const QString& root);

} // namespace paths
