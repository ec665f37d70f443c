#pragma once

#include <QString>

/// The interface speaks Russian, the language of its texts, or English, from the embedded translation.
namespace interfaceLanguage {

/// Puts the language in force at once on every open window: English for exactly "en", Russian for all else.
/// Qt's own texts follow, where the system has their translation. `App_lang` becomes "en" or "ru".
void apply(const QString& lang);

/// Applies what the head of the configuration file asks for; `localeName` is the system locale's name.
void applyConfigured(const QString& localeName);

} // namespace interfaceLanguage
