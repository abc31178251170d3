#include "core/Language.h"

#include <QLocale>
#include <QSettings>

namespace {
const QString kLanguageKey = QStringLiteral("ui/language");
const QString kSystem = QStringLiteral("system");
} // namespace

QStringList supportedLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("es"), QStringLiteral("de"), QStringLiteral("fr"),
            QStringLiteral("ja")};
}

QString resolveLanguage(const QString &stored, const QString &systemLocaleName)
{
    if (stored != kSystem)
        return stored;
    const QString code = systemLocaleName.left(2);
    return supportedLanguages().contains(code) ? code : QStringLiteral("en");
}

QString resolvedLanguage(bool resolveSystem)
{
    const QString stored = QSettings().value(kLanguageKey, kSystem).toString();
    if (!resolveSystem)
        return stored;
    return resolveLanguage(stored, QLocale::system().name());
}

void setLanguage(const QString &code)
{
    QSettings().setValue(kLanguageKey, code);
}
