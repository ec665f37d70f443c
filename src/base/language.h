#pragma once

#include <QString>

/// The language of the interface is kept in the head of the configuration file, in a comment
///     <!--Application_ver = "1.24.02.376" Application_Lang="en"-->
/// which must lie within the first 200 bytes.
namespace language {

/// What the head of the file asks for: the quoted text after "Application_Lang". Without quotes, or with an
/// empty text, it is the part of `localeName` before the first "_". A file that cannot be read or that lacks
/// the key gives `fallback`.
QString fromFile(const QString& file, const QString& localeName, const QString& fallback);

/// The comment text, without the comment marks.
QString headComment(const QString& version, const QString& lang);

/// True when the table heads and units are to be English.
bool isEnglish();

} // namespace language
