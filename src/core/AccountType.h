#pragma once

#include <QString>

enum class AccountType { Checking = 0, Savings = 1, CreditCard = 2, Cash = 3, Investment = 4, Other = 5 };

QString accountTypeToString(AccountType value);
AccountType accountTypeFromString(const QString &text);
