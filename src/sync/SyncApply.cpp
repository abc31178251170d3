#include "sync/SyncApply.h"

#include "core/Dates.h"
#include "core/Identifiers.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/PreferencesRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"

#include <QDebug>
#include <QJsonArray>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

namespace {

// Servers have sent booleans both ways; a number counts as true when it isn't zero.
bool readBool(const QJsonObject &row, QLatin1String key)
{
    const QJsonValue v = row.value(key);
    if (v.isBool())
        return v.toBool();
    return v.toVariant().toLongLong() != 0;
}

qint64 readInt64(const QJsonObject &row, QLatin1String key)
{
    return row.value(key).toInteger(0);
}

qint32 readInt32(const QJsonObject &row, QLatin1String key)
{
    return qint32(row.value(key).toInteger(0));
}

QString readText(const QJsonObject &row, QLatin1String key)
{
    return row.value(key).toString();
}

// A date may come as a full date-time; only its date part is kept.
QDate readDate(const QJsonObject &row, QLatin1String key)
{
    const QString text = readText(row, key);
    if (text.isEmpty())
        return {};
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (date.isValid())
        return date;
    return QDateTime::fromString(text, Qt::ISODate).date();
}

QDateTime readDateTime(const QJsonObject &row, QLatin1String key)
{
    return timestampFromText(readText(row, key));
}

std::optional<QDateTime> readDeletedAt(const QJsonObject &row)
{
    const QString text = readText(row, QLatin1String("deleted_at"));
    if (text.isEmpty())
        return std::nullopt;
    return timestampFromText(text);
}

// Older rows may pre-date the year the program was written; they are corrupt, not history.
bool brokenDate(const QDate &date)
{
    return !date.isValid() || date.year() < 2000;
}

QString localIdForServerId(const QString &table, const QString &serverId)
{
    QSqlQuery q(QSqlDatabase::database());
    q.prepare(QStringLiteral("SELECT id FROM %1 WHERE server_id = ?").arg(table));
    q.addBindValue(serverId);
    if (!q.exec() || !q.next())
        return {};
    return q.value(0).toString();
}

// The local row a server row stands for: first by the id the making device gave it, then by the
// server's own id, so a row that comes back under another client id folds into the one already here.
// Sets the record's id; a row known nowhere gets a fresh one.
template <typename Record, typename Repo>
std::optional<Record> locate(Repo *repo, const QString &table, const QJsonObject &row, Record &record)
{
    const QString serverId = readText(row, QLatin1String("id"));
    const QString clientId = readText(row, QLatin1String("client_id"));
    record.id = clientId;
    record.serverId = serverId;
    record.syncStatus = SyncStatus::Synced;
    if (!clientId.isEmpty()) {
        if (auto existing = repo->getById(clientId))
            return existing;
    }
    if (!serverId.isEmpty()) {
        const QString localId = localIdForServerId(table, serverId);
        if (!localId.isEmpty()) {
            if (auto existing = repo->getById(localId)) {
                record.id = localId;
                return existing;
            }
        }
    }
    if (record.id.isEmpty())
        record.id = newId();
    return std::nullopt;
}

template <typename Record>
void readSyncFields(const QJsonObject &row, Record &record)
{
    record.version = readInt32(row, QLatin1String("version"));
    record.createdAt = readDateTime(row, QLatin1String("created_at"));
    record.updatedAt = readDateTime(row, QLatin1String("updated_at"));
    record.deletedAt = readDeletedAt(row);
}

QJsonArray rowsOf(const QJsonObject &reply, QLatin1String key)
{
    return reply.value(key).toArray();
}

} // namespace

SyncApply::SyncApply(const SyncRepositories &repositories)
    : m_repos(repositories)
{
}

SyncApply::Page SyncApply::applyPage(const QJsonObject &reply)
{
    const auto each = [&reply](QLatin1String key, auto &&apply) {
        if (!reply.contains(key))
            return;
        for (const QJsonValue &row : rowsOf(reply, key)) {
            if (row.isObject())
                apply(row.toObject());
        }
    };
    each(QLatin1String("accounts"), [this](const QJsonObject &row) { applyAccount(row); });
    each(QLatin1String("categories"), [this](const QJsonObject &row) { applyCategory(row); });
    const QLatin1String recurringKey = reply.contains(QLatin1String("recurring_transactions"))
                                           ? QLatin1String("recurring_transactions")
                                           : QLatin1String("recurring");
    each(recurringKey, [this](const QJsonObject &row) { applyRecurring(row); });
    each(QLatin1String("transactions"), [this](const QJsonObject &row) { applyTransaction(row); });
    each(QLatin1String("reconciliations"), [this](const QJsonObject &row) { applyReconciliation(row); });

    Page page;
    page.serverTime = readText(reply, QLatin1String("server_time"));
    if (!page.serverTime.isEmpty())
        m_repos.preferences->set(QStringLiteral("lastSyncTimestamp"), page.serverTime);
    if (reply.contains(QLatin1String("integrity")))
        checkIntegrity(reply.value(QLatin1String("integrity")).toObject());
    page.hasMore = readBool(reply, QLatin1String("has_more"));
    return page;
}

template <typename Record, typename Repo>
void SyncApply::resolve(Repo *repo, const Record &record, const std::optional<Record> &existing,
                        bool applyDeletion)
{
    const bool deleted = record.deletedAt.has_value();
    if (!existing) {
        if (deleted) {
            ++m_stats.dropped;
            return;
        }
        if (repo->insert(record))
            ++m_stats.inserted;
        return;
    }
    if (record.version < existing->version) {
        ++m_stats.dropped;
        return;
    }
    if (existing->syncStatus == SyncStatus::Pending)
        ++m_stats.overwrittenPending;
    if (repo->update(record))
        ++m_stats.updated;
    if constexpr (requires { repo->softDelete(record.id); }) {
        if (applyDeletion && deleted && !existing->deletedAt)
            repo->softDelete(record.id);
    }
}

void SyncApply::applyAccount(const QJsonObject &row)
{
    Account a;
    const auto existing = locate(m_repos.accounts, QStringLiteral("accounts"), row, a);
    a.name = readText(row, QLatin1String("name"));
    a.accountType = accountTypeFromString(readText(row, QLatin1String("account_type")));
    a.currency = currencyFromString(readText(row, QLatin1String("currency")));
    a.isShared = readBool(row, QLatin1String("is_shared"));
    a.institution = readText(row, QLatin1String("institution"));
    a.accountNumberLast4 = readText(row, QLatin1String("account_number_last4"));
    a.startingBalance = readInt64(row, QLatin1String("starting_balance"));
    a.sortOrder = readInt32(row, QLatin1String("sort_order"));
    readSyncFields(row, a);
    resolve(m_repos.accounts, a, existing, true);
}

void SyncApply::applyCategory(const QJsonObject &row)
{
    Category c;
    const auto existing = locate(m_repos.categories, QStringLiteral("categories"), row, c);
    c.name = readText(row, QLatin1String("name"));
    c.categoryType = categoryTypeFromString(readText(row, QLatin1String("category_type")));
    c.parentId = readText(row, QLatin1String("parent_id"));
    c.isTaxRelevant = readBool(row, QLatin1String("is_tax_relevant"));
    c.taxCategory = readText(row, QLatin1String("tax_category"));
    c.icon = readText(row, QLatin1String("icon"));
    c.color = readText(row, QLatin1String("color"));
    c.isDefault = readBool(row, QLatin1String("is_default"));
    c.accountId = readText(row, QLatin1String("account_id"));
    readSyncFields(row, c);
    resolve(m_repos.categories, c, existing, true);
}

void SyncApply::applyRecurring(const QJsonObject &row)
{
    RecurringTransaction r;
    const auto existing = locate(m_repos.recurring, QStringLiteral("recurring_transactions"), row, r);
    r.accountId = readText(row, QLatin1String("account_id"));
    r.payee = readText(row, QLatin1String("payee"));
    r.memo = readText(row, QLatin1String("memo"));
    r.amount = readInt64(row, QLatin1String("amount"));
    r.categoryId = readText(row, QLatin1String("category_id"));
    r.transferDestAccountId = readText(row, QLatin1String("transfer_dest_account_id"));
    r.frequency = frequencyFromString(readText(row, QLatin1String("frequency")));
    r.startDate = readDate(row, QLatin1String("start_date"));
    if (const QDate end = readDate(row, QLatin1String("end_date")); end.isValid())
        r.endDate = end;
    r.nextDueDate = readDate(row, QLatin1String("next_due_date"));
    r.autoPost = readBool(row, QLatin1String("auto_post"));
    r.isActive = readBool(row, QLatin1String("is_active"));
    readSyncFields(row, r);
    if (brokenDate(r.nextDueDate)) {
        ++m_stats.skipped;
        qWarning().noquote() << "applyRecurring: skipping server record with broken nextDueDate:"
                             << r.serverId << r.payee << readText(row, QLatin1String("next_due_date"));
        return;
    }
    resolve(m_repos.recurring, r, existing, true);
}

void SyncApply::applyTransaction(const QJsonObject &row)
{
    Transaction t;
    const auto existing = locate(m_repos.transactions, QStringLiteral("transactions"), row, t);
    t.accountId = readText(row, QLatin1String("account_id"));
    t.date = readDate(row, QLatin1String("date"));
    t.payee = readText(row, QLatin1String("payee"));
    t.memo = readText(row, QLatin1String("memo"));
    t.amount = readInt64(row, QLatin1String("amount"));
    t.categoryId = readText(row, QLatin1String("category_id"));
    t.checkNumber = readText(row, QLatin1String("check_number"));
    t.cleared = readBool(row, QLatin1String("cleared"));
    t.reconciled = readBool(row, QLatin1String("reconciled"));
    t.transferLinkId = readText(row, QLatin1String("transfer_link_id"));
    t.transferDestAccountId = readText(row, QLatin1String("transfer_dest_account_id"));
    t.isSplit = readBool(row, QLatin1String("is_split"));
    t.recurringId = readText(row, QLatin1String("recurring_id"));
    readSyncFields(row, t);
    if (brokenDate(t.date)) {
        ++m_stats.skipped;
        qWarning().noquote() << "applyTransactionChange: skipping server record with broken date:"
                             << t.serverId << t.payee << readText(row, QLatin1String("date"));
        return;
    }
    resolve(m_repos.transactions, t, existing, true);
}

void SyncApply::applyReconciliation(const QJsonObject &row)
{
    Reconciliation r;
    const auto existing = locate(m_repos.reconciliations, QStringLiteral("reconciliations"), row, r);
    r.accountId = readText(row, QLatin1String("account_id"));
    r.statementDate = readDate(row, QLatin1String("statement_date"));
    r.statementBalance = readInt64(row, QLatin1String("statement_balance"));
    r.reconciledBalance = readInt64(row, QLatin1String("reconciled_balance"));
    r.completedAt = readDateTime(row, QLatin1String("completed_at"));
    readSyncFields(row, r);
    if (brokenDate(r.statementDate)) {
        ++m_stats.skipped;
        qWarning().noquote() << "applyReconciliation: skipping server record with broken statementDate:"
                             << r.serverId << readText(row, QLatin1String("statement_date"));
        return;
    }
    // A reconciliation is history the user balanced against a statement; a deletion from elsewhere is
    // not allowed to take it away here.
    resolve(m_repos.reconciliations, r, existing, false);
}

void SyncApply::checkIntegrity(const QJsonObject &integrity) const
{
    const qint64 serverCount = integrity.value(QLatin1String("category_count")).toInteger(0);
    if (serverCount <= 0)
        return;
    const int localCount = m_repos.categories->count();
    if (serverCount != localCount)
        qWarning().noquote() << "Category count mismatch: local=" << localCount << "server=" << serverCount
                             << "(informational only — use Force Full Sync if data appears wrong)";
}
