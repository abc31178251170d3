#include "support/Fixtures.h"

#include "core/Dates.h"

namespace Fixtures {

Account account(const QString &id, const QString &name, qint64 startingBalance)
{
    Account a;
    a.id = id;
    a.name = name;
    a.startingBalance = startingBalance;
    a.createdAt = utcNow();
    a.updatedAt = a.createdAt;
    return a;
}

Transaction transaction(const QString &id, const QString &accountId, const QDate &date, const QString &payee,
                        qint64 amount, const QTime &created)
{
    Transaction t;
    t.id = id;
    t.accountId = accountId;
    t.date = date;
    t.payee = payee;
    t.amount = amount;
    t.createdAt = QDateTime(date, created, Qt::UTC);
    t.updatedAt = t.createdAt;
    return t;
}

} // namespace Fixtures
