#pragma once

#include <QString>

enum class CategoryType { Income = 0, Expense = 1, Transfer = 2 };

QString categoryTypeToString(CategoryType value);
CategoryType categoryTypeFromString(const QString &text);
