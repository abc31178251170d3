#include "services/TransferHint.h"

namespace {
const QString kPrefix = QStringLiteral("[\u2192 ");
}

QString makeTransferHint(const QString &accountName)
{
    return QStringLiteral("[\u2192 %1]").arg(accountName);
}

QString memoWithTransferHint(const QString &accountName, const QString &memo)
{
    const QString hint = makeTransferHint(accountName);
    return memo.isEmpty() ? hint : QStringLiteral("%1 %2").arg(hint, memo);
}

std::optional<TransferHint> parseTransferHint(const QString &memo)
{
    if (!memo.startsWith(kPrefix))
        return std::nullopt;
    const qsizetype close = memo.indexOf(QLatin1Char(']'), kPrefix.size());
    if (close < 0)
        return std::nullopt;
    TransferHint result;
    result.hint = memo.mid(kPrefix.size(), close - kPrefix.size());
    if (result.hint.isEmpty())
        return std::nullopt;
    qsizetype restStart = close + 1;
    if (restStart < memo.size() && memo.at(restStart) == QLatin1Char(' '))
        ++restStart;
    result.rest = memo.mid(restStart);
    return result;
}

bool isSelfTransfer(const QifTransaction &transaction)
{
    return !transaction.transferAccount.isEmpty() && !transaction.sourceAccount.isEmpty() &&
           transaction.transferAccount.compare(transaction.sourceAccount, Qt::CaseInsensitive) == 0;
}
