#pragma once

#include <QString>

// The only currencies the program knows. All but JPY count in cents; JPY counts whole yen.
enum class Currency { USD = 0, EUR = 1, GBP = 2, CAD = 3, AUD = 4, JPY = 5 };

QString currencyToString(Currency value);
Currency currencyFromString(const QString &text);
