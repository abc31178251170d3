#include "core/AccountType.h"

#include "core/WordTable.h"

namespace {
constexpr WordEntry<AccountType> kWords[] = {
    {AccountType::Checking,   "checking"   },
    {AccountType::Savings,    "savings"    },
    {AccountType::CreditCard, "credit_card"},
    {AccountType::Cash,       "cash"       },
    {AccountType::Investment, "investment" },
    {AccountType::Other,      "other"      },
};
} // namespace

QString accountTypeToString(AccountType value)
{
    return wordOf(kWords, value, AccountType::Other);
}

AccountType accountTypeFromString(const QString &text)
{
    return valueOf(kWords, text, AccountType::Other);
}
