#pragma once

#include "services/QifTransaction.h"

#include <QString>

#include <optional>

// An imported transfer whose partner was not part of the import keeps the partner's QIF name at the
// head of its memo, "[→ Savings] rent", so that a later import of that account can link the two.

struct TransferHint {
    QString hint; // the account name as written
    QString rest; // the memo behind it
};

QString makeTransferHint(const QString &accountName);
// The hint with the memo behind it: "[→ %1]" alone for an empty memo, "[→ %1] %2" otherwise.
QString memoWithTransferHint(const QString &accountName, const QString &memo);
std::optional<TransferHint> parseTransferHint(const QString &memo);

// A bracket naming the record's own account: an opening balance or an exchange inside one account.
bool isSelfTransfer(const QifTransaction &transaction);
