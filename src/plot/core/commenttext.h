#pragma once

#include <QString>

/// A comment on a graph is plain text whose lines are joined by "<br />".

/// The lines of the user's text, joined.
QString joinedLines(const QString& plain);

/// As rich text for display: all but the line ends is shown as it stands, never as markup.
QString commentMarkup(const QString& joined);

/// The user's text again from what is displayed.
QString commentPlain(const QString& markup);
