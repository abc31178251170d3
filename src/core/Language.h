#pragma once

#include <QString>
#include <QStringList>

// The interface language is chosen in the settings and takes effect at the next start.

// "en", "es", "de", "fr", "ja".
QStringList supportedLanguages();

// The stored choice ("system" when none). With resolveSystem, "system" becomes the system locale's
// language if we have it, else "en"; any other stored code stands as it is.
QString resolvedLanguage(bool resolveSystem);

// The rule of resolvedLanguage, apart from where its inputs come from.
QString resolveLanguage(const QString &stored, const QString &systemLocaleName);

void setLanguage(const QString &code);
