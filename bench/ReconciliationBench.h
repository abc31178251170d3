#pragma once

#include <QString>

// Opening the reconciliation screen on a large account of the household in dataDirectory, to a painted
// table, a fresh screen each run; and finishing it once with every row ticked, on a copy of the
// household file at householdPath. Prints its rows; false when the household could not be opened.
bool benchReconciliationScreen(const QString &dataDirectory, const QString &householdPath,
                               const QString &accountId, int runs);
