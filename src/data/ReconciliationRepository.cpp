#include "data/ReconciliationRepository.h"

#include "core/Dates.h"
#include "data/Database.h"
#include "data/SqlValues.h"

#include <QSqlQuery>

using namespace SqlValues;

namespace {

const QString kColumns = QStringLiteral("id, account_id, statement_date, statement_balance, "
                                        "reconciled_balance, completed_at, version, sync_status, "
                                        "server_id, created_at, updated_at, deleted_at");

Reconciliation readReconciliation(const QSqlQuery &q)
{
    Reconciliation r;
    r.id = q.value(0).toString();
    r.accountId = q.value(1).toString();
    r.statementDate = dateAt(q, 2);
    r.statementBalance = q.value(3).toLongLong();
    r.reconciledBalance = q.value(4).toLongLong();
    r.completedAt = timestampAt(q, 5);
    r.version = q.value(6).toInt();
    r.syncStatus = syncStatusFromString(q.value(7).toString());
    r.serverId = q.value(8).toString();
    r.createdAt = timestampAt(q, 9);
    r.updatedAt = timestampAt(q, 10);
    r.deletedAt = optionalTimestampAt(q, 11);
    return r;
}

QList<Reconciliation> readAll(QSqlQuery &q)
{
    QList<Reconciliation> result;
    if (!q.exec())
        return result;
    while (q.next())
        result.append(readReconciliation(q));
    return result;
}

std::optional<Reconciliation> readOne(QSqlQuery &q)
{
    if (!q.exec() || !q.next())
        return std::nullopt;
    return readReconciliation(q);
}

} // namespace

ReconciliationRepository::ReconciliationRepository(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

QList<Reconciliation> ReconciliationRepository::getByAccount(const QString &accountId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM reconciliations WHERE account_id = ? AND deleted_at IS NULL "
                             "ORDER BY statement_date DESC")
                  .arg(kColumns));
    q.addBindValue(accountId);
    return readAll(q);
}

std::optional<Reconciliation> ReconciliationRepository::getById(const QString &id) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM reconciliations WHERE id = ?").arg(kColumns));
    q.addBindValue(id);
    return readOne(q);
}

std::optional<Reconciliation> ReconciliationRepository::getLatest(const QString &accountId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM reconciliations WHERE account_id = ? AND deleted_at IS NULL "
                             "ORDER BY statement_date DESC LIMIT 1")
                  .arg(kColumns));
    q.addBindValue(accountId);
    return readOne(q);
}

QList<Reconciliation> ReconciliationRepository::getPending() const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM reconciliations WHERE sync_status = 'pending'").arg(kColumns));
    return readAll(q);
}

bool ReconciliationRepository::insert(const Reconciliation &record)
{
    // The one insert that stamps a missing time: records arrive from older backups without them.
    const QDateTime now = utcNow();
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "INSERT INTO reconciliations (id, account_id, statement_date, statement_balance, reconciled_balance, "
        "completed_at, version, sync_status, server_id, created_at, updated_at) "
        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    q.addBindValue(record.id);
    q.addBindValue(record.accountId);
    q.addBindValue(date(record.statementDate));
    q.addBindValue(record.statementBalance);
    q.addBindValue(record.reconciledBalance);
    q.addBindValue(timestamp(record.completedAt));
    q.addBindValue(record.version);
    q.addBindValue(syncStatusToString(record.syncStatus));
    q.addBindValue(text(record.serverId));
    q.addBindValue(timestamp(record.createdAt.isValid() ? record.createdAt : now));
    q.addBindValue(timestamp(record.updatedAt.isValid() ? record.updatedAt : now));
    if (!execLogged(q, "ReconciliationRepository::insert"))
        return false;
    emit reconciliationsChanged();
    return true;
}

bool ReconciliationRepository::update(const Reconciliation &record)
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE reconciliations SET account_id=?, statement_date=?, statement_balance=?, "
                       "reconciled_balance=?, "
                       "completed_at=?, version=?, sync_status=?, server_id=?, updated_at=? WHERE id=?"));
    q.addBindValue(record.accountId);
    q.addBindValue(date(record.statementDate));
    q.addBindValue(record.statementBalance);
    q.addBindValue(record.reconciledBalance);
    q.addBindValue(timestamp(record.completedAt));
    q.addBindValue(record.version);
    q.addBindValue(syncStatusToString(record.syncStatus));
    q.addBindValue(text(record.serverId));
    q.addBindValue(timestamp(record.updatedAt));
    q.addBindValue(record.id);
    if (!execLogged(q, "ReconciliationRepository::update"))
        return false;
    emit reconciliationsChanged();
    return true;
}

int ReconciliationRepository::softDeleteByAccount(const QString &accountId)
{
    const QString now = timestampText(utcNow());
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE reconciliations SET deleted_at = ?, updated_at = ?, sync_status = 'pending' "
                       "WHERE account_id = ? AND deleted_at IS NULL"));
    q.addBindValue(now);
    q.addBindValue(now);
    q.addBindValue(accountId);
    const int count = execCount(q, "ReconciliationRepository::softDeleteByAccount");
    if (count > 0)
        emit reconciliationsChanged();
    return count;
}

int ReconciliationRepository::restoreByAccount(const QString &accountId, const QString &since)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "UPDATE reconciliations SET deleted_at = NULL, updated_at = ?, sync_status = 'pending' "
        "WHERE account_id = ? AND deleted_at >= ?"));
    q.addBindValue(timestampText(utcNow()));
    q.addBindValue(accountId);
    q.addBindValue(since);
    const int count = execCount(q, "ReconciliationRepository::restoreByAccount");
    if (count > 0)
        emit reconciliationsChanged();
    return count;
}

int ReconciliationRepository::markAllPendingForResync()
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE reconciliations SET sync_status = 'pending' WHERE deleted_at IS NULL "
                             "AND sync_status != 'pending'"));
    const int count = execCount(q, "ReconciliationRepository::markAllPendingForResync");
    if (count > 0)
        emit reconciliationsChanged();
    return count;
}

bool ReconciliationRepository::markSynced(const QString &id, const QString &serverId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE reconciliations SET sync_status='synced', server_id=? WHERE id=?"));
    q.addBindValue(serverId);
    q.addBindValue(id);
    return q.exec();
}
