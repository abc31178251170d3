#include "sync/SyncPayloads.h"

#include "core/Account.h"
#include "core/Category.h"
#include "core/Reconciliation.h"
#include "core/RecurringTransaction.h"
#include "core/Transaction.h"

#include <QDate>
#include <QDateTime>

namespace {

int flag(bool value)
{
    return value ? 1 : 0;
}

QString isoDateTime(const QDateTime &value)
{
    return value.toString(Qt::ISODate);
}

QString isoDate(const QDate &value)
{
    return value.toString(Qt::ISODate);
}

// The fields every payload opens with; the server tells an unknown row from a known one by server_id.
QJsonObject opening(const QString &id, const QString &serverId)
{
    QJsonObject p;
    p.insert(QStringLiteral("client_id"), id);
    if (!serverId.isEmpty())
        p.insert(QStringLiteral("server_id"), serverId);
    return p;
}

void closing(QJsonObject &p, const QDateTime &createdAt, const QDateTime &updatedAt,
             const std::optional<QDateTime> &deletedAt)
{
    p.insert(QStringLiteral("created_at"), isoDateTime(createdAt));
    p.insert(QStringLiteral("updated_at"), isoDateTime(updatedAt));
    if (deletedAt)
        p.insert(QStringLiteral("deleted_at"), isoDateTime(*deletedAt));
}

} // namespace

QJsonObject accountPayload(const Account &a)
{
    QJsonObject p = opening(a.id, a.serverId);
    p.insert(QStringLiteral("name"), a.name);
    p.insert(QStringLiteral("account_type"), accountTypeToString(a.accountType));
    p.insert(QStringLiteral("currency"), currencyToString(a.currency));
    p.insert(QStringLiteral("is_shared"), flag(a.isShared));
    p.insert(QStringLiteral("institution"), a.institution);
    p.insert(QStringLiteral("account_number_last4"), a.accountNumberLast4);
    p.insert(QStringLiteral("starting_balance"), a.startingBalance);
    p.insert(QStringLiteral("sort_order"), a.sortOrder);
    p.insert(QStringLiteral("version"), a.version);
    closing(p, a.createdAt, a.updatedAt, a.deletedAt);
    return p;
}

QJsonObject categoryPayload(const Category &c)
{
    QJsonObject p = opening(c.id, c.serverId);
    p.insert(QStringLiteral("name"), c.name);
    p.insert(QStringLiteral("category_type"), categoryTypeToString(c.categoryType));
    p.insert(QStringLiteral("parent_id"), c.parentId);
    p.insert(QStringLiteral("is_tax_relevant"), flag(c.isTaxRelevant));
    p.insert(QStringLiteral("tax_category"), c.taxCategory);
    p.insert(QStringLiteral("icon"), c.icon);
    p.insert(QStringLiteral("color"), c.color);
    p.insert(QStringLiteral("is_default"), flag(c.isDefault));
    p.insert(QStringLiteral("account_id"), c.accountId);
    p.insert(QStringLiteral("version"), c.version);
    closing(p, c.createdAt, c.updatedAt, c.deletedAt);
    return p;
}

QJsonObject recurringPayload(const RecurringTransaction &r)
{
    QJsonObject p = opening(r.id, r.serverId);
    p.insert(QStringLiteral("account_id"), r.accountId);
    p.insert(QStringLiteral("payee"), r.payee);
    p.insert(QStringLiteral("memo"), r.memo);
    p.insert(QStringLiteral("amount"), r.amount);
    p.insert(QStringLiteral("category_id"), r.categoryId);
    p.insert(QStringLiteral("transfer_dest_account_id"), r.transferDestAccountId);
    p.insert(QStringLiteral("frequency"), frequencyToString(r.frequency));
    p.insert(QStringLiteral("start_date"), isoDate(r.startDate));
    if (r.endDate && r.endDate->isValid())
        p.insert(QStringLiteral("end_date"), isoDate(*r.endDate));
    p.insert(QStringLiteral("next_due_date"), isoDate(r.nextDueDate));
    p.insert(QStringLiteral("auto_post"), flag(r.autoPost));
    p.insert(QStringLiteral("is_active"), flag(r.isActive));
    closing(p, r.createdAt, r.updatedAt, r.deletedAt);
    return p;
}

QJsonObject transactionPayload(const Transaction &t)
{
    QJsonObject p = opening(t.id, t.serverId);
    p.insert(QStringLiteral("account_id"), t.accountId);
    p.insert(QStringLiteral("date"), isoDate(t.date));
    p.insert(QStringLiteral("payee"), t.payee);
    p.insert(QStringLiteral("memo"), t.memo);
    p.insert(QStringLiteral("amount"), t.amount);
    p.insert(QStringLiteral("category_id"), t.categoryId);
    p.insert(QStringLiteral("check_number"), t.checkNumber);
    p.insert(QStringLiteral("cleared"), flag(t.cleared));
    p.insert(QStringLiteral("reconciled"), flag(t.reconciled));
    p.insert(QStringLiteral("transfer_link_id"), t.transferLinkId);
    p.insert(QStringLiteral("transfer_dest_account_id"), t.transferDestAccountId);
    p.insert(QStringLiteral("is_split"), flag(t.isSplit));
    p.insert(QStringLiteral("recurring_id"), t.recurringId);
    p.insert(QStringLiteral("version"), t.version);
    closing(p, t.createdAt, t.updatedAt, t.deletedAt);
    return p;
}

QJsonObject reconciliationPayload(const Reconciliation &r)
{
    QJsonObject p = opening(r.id, r.serverId);
    p.insert(QStringLiteral("account_id"), r.accountId);
    p.insert(QStringLiteral("statement_date"), isoDate(r.statementDate));
    p.insert(QStringLiteral("statement_balance"), r.statementBalance);
    p.insert(QStringLiteral("reconciled_balance"), r.reconciledBalance);
    p.insert(QStringLiteral("completed_at"), isoDateTime(r.completedAt));
    p.insert(QStringLiteral("version"), r.version);
    closing(p, r.createdAt, r.updatedAt, r.deletedAt);
    return p;
}

QJsonObject changeObject(const QString &entityType, const QString &id, qint32 version, bool deleted,
                         const QJsonObject &payload)
{
    QJsonObject change;
    change.insert(QStringLiteral("entity_type"), entityType);
    change.insert(QStringLiteral("entity_id"), id);
    change.insert(QStringLiteral("action"), deleted ? QStringLiteral("delete") : QStringLiteral("upsert"));
    change.insert(QStringLiteral("version"), version);
    change.insert(QStringLiteral("payload"), payload);
    return change;
}
