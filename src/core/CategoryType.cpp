#include "core/CategoryType.h"

#include "core/WordTable.h"

namespace {
constexpr WordEntry<CategoryType> kWords[] = {
    {CategoryType::Income,   "income"  },
    {CategoryType::Expense,  "expense" },
    {CategoryType::Transfer, "transfer"},
};
} // namespace

QString categoryTypeToString(CategoryType value)
{
    return wordOf(kWords, value, CategoryType::Expense);
}

CategoryType categoryTypeFromString(const QString &text)
{
    return valueOf(kWords, text, CategoryType::Expense);
}
