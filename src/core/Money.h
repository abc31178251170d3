#pragma once

#include "core/Currency.h"

#include <QString>

// Amounts are whole minor units of the account's currency: cents, or yen for JPY. A negative
// transaction amount is money out. These functions print and read them in one fixed form whatever
// the user's locale: "-$1,234.56", "¥1,500".

QString currencySymbol(Currency currency);
QString formatAmount(qint64 cents, Currency currency);
QString formatAmountPlain(qint64 cents, Currency currency);

// 0 for anything it cannot read: the caller cannot tell failure from zero.
qint64 parseAmount(const QString &text, Currency currency);
