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

Category category(const QString &id, const QString &name, const QString &parentId, CategoryType type,
                  const QString &taxCode)
{
    Category c;
    c.id = id;
    c.name = name;
    c.parentId = parentId;
    c.categoryType = type;
    c.isTaxRelevant = !taxCode.isEmpty();
    c.taxCategory = taxCode;
    c.createdAt = c.updatedAt = utcNow();
    return c;
}

RecurringTransaction rule(const QString &id, const QString &accountId, const QDate &nextDue, qint64 amount,
                          Frequency frequency)
{
    RecurringTransaction r;
    r.id = id;
    r.accountId = accountId;
    r.payee = QStringLiteral("Landlord");
    r.amount = amount;
    r.frequency = frequency;
    r.startDate = r.nextDueDate = nextDue;
    r.createdAt = r.updatedAt = utcNow();
    return r;
}

SplitLine splitLine(const QString &id, const QString &transactionId, const QString &categoryId, qint64 amount)
{
    SplitLine l;
    l.id = id;
    l.transactionId = transactionId;
    l.categoryId = categoryId;
    l.amount = amount;
    l.createdAt = l.updatedAt = utcNow();
    return l;
}

} // namespace Fixtures
