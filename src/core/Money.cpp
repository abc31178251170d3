#include "core/Money.h"

#include <QLocale>

#include <cmath>

namespace {

// Grouping with "," whatever the user's locale: amounts must read the same on every machine.
const QLocale &englishLocale()
{
    static const QLocale locale(QLocale::English, QLocale::AnyScript, QLocale::AnyTerritory);
    return locale;
}

// Unsigned, so that the most negative amount has a magnitude too.
quint64 magnitude(qint64 cents)
{
    return cents < 0 ? quint64(0) - quint64(cents) : quint64(cents);
}

QString numberText(quint64 magnitude, Currency currency)
{
    if (currency == Currency::JPY)
        return englishLocale().toString(magnitude);
    const quint64 whole = magnitude / 100;
    const quint64 rest = magnitude % 100;
    return QStringLiteral("%1.%2").arg(englishLocale().toString(whole)).arg(rest, 2, 10, QLatin1Char('0'));
}

} // namespace

QString currencySymbol(Currency currency)
{
    switch (currency) {
    case Currency::USD: return QStringLiteral("$");
    case Currency::EUR: return QStringLiteral("€");
    case Currency::GBP: return QStringLiteral("£");
    case Currency::CAD: return QStringLiteral("$");
    case Currency::AUD: return QStringLiteral("$");
    case Currency::JPY: return QStringLiteral("¥");
    }
    return QStringLiteral("$");
}

QString formatAmount(qint64 cents, Currency currency)
{
    const QString number = numberText(magnitude(cents), currency);
    if (cents < 0)
        return QStringLiteral("-%1%2").arg(currencySymbol(currency), number);
    return currencySymbol(currency) + number;
}

QString formatAmountPlain(qint64 cents, Currency currency)
{
    const QString number = numberText(magnitude(cents), currency);
    return cents < 0 ? QLatin1Char('-') + number : number;
}

qint64 parseAmount(const QString &text, Currency currency)
{
    // Only this currency's own symbol is stripped: "€5" typed into a dollar account must not
    // silently become five dollars.
    QString t = text;
    t.remove(currencySymbol(currency));
    t.remove(QLatin1Char(','));
    t = t.trimmed();
    if (t.isEmpty())
        return 0;

    const bool negative = t.startsWith(QLatin1Char('-'));
    if (negative)
        t.remove(0, 1);

    bool ok = false;
    qint64 value = 0;
    if (currency == Currency::JPY) {
        value = t.toLongLong(&ok, 10);
        if (!ok)
            return 0;
    } else {
        const double number = QLocale::c().toDouble(t, &ok);
        if (!ok)
            return 0;
        const double scaled = std::round(number * 100.0);
        // Beyond what 64 bits hold (or "inf"): as unreadable as "abc", and converting it would be undefined.
        if (!std::isfinite(scaled) || std::fabs(scaled) >= 9.2e18)
            return 0;
        value = static_cast<qint64>(scaled);
    }
    return negative ? -value : value;
}
