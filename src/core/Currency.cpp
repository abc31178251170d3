#include "core/Currency.h"

#include "core/WordTable.h"

namespace {
constexpr WordEntry<Currency> kWords[] = {
    {Currency::USD, "USD"},
    {Currency::EUR, "EUR"},
    {Currency::GBP, "GBP"},
    {Currency::CAD, "CAD"},
    {Currency::AUD, "AUD"},
    {Currency::JPY, "JPY"},
};
} // namespace

QString currencyToString(Currency value)
{
    return wordOf(kWords, value, Currency::USD);
}

Currency currencyFromString(const QString &text)
{
    return valueOf(kWords, text, Currency::USD);
}
