#include "server/SyncStore.h"

#include "server/ServerDatabase.h"

#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <limits>

namespace OmbrelServer {

namespace {

const QString kColumns = QStringLiteral(
    "owner_id, entity_type, client_id, server_id, account_id, version, deleted, seq, author_id, payload");

StoredRow readRow(const QSqlQuery &q)
{
    return StoredRow{q.value(0).toString(),   q.value(1).toString(),   q.value(2).toString(),
                     q.value(3).toString(),   q.value(4).toString(),   q.value(5).toLongLong(),
                     q.value(6).toInt() != 0, q.value(7).toLongLong(), q.value(8).toString(),
                     q.value(9).toByteArray()};
}

QList<StoredRow> readRows(QSqlQuery &q, const char *where)
{
    QList<StoredRow> rows;
    if (!q.exec()) {
        qWarning().noquote() << where << "failed:" << q.lastError().text();
        return rows;
    }
    while (q.next())
        rows.append(readRow(q));
    return rows;
}

} // namespace

SyncStore::SyncStore(ServerDatabase *db)
    : m_db(db)
{
    QSqlQuery q(m_db->connection());
    if (q.exec(QStringLiteral("SELECT MAX(COALESCE((SELECT MAX(seq) FROM sync_rows), 0),"
                              " COALESCE((SELECT MAX(granted_seq) FROM shares), 0))")) &&
        q.next())
        m_seq = q.value(0).toLongLong();
}

std::optional<StoredRow> SyncStore::find(const QString &ownerId, const QString &entityType,
                                         const QString &clientId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("SELECT %1 FROM sync_rows WHERE owner_id = ? AND entity_type = ? AND client_id = ?")
            .arg(kColumns));
    q.addBindValue(ownerId);
    q.addBindValue(entityType);
    q.addBindValue(clientId);
    if (!q.exec() || !q.next())
        return std::nullopt;
    return readRow(q);
}

bool SyncStore::write(const StoredRow &row)
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral(
            "INSERT OR REPLACE INTO sync_rows (%1, updated_at) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
            .arg(kColumns));
    q.addBindValue(row.ownerId);
    q.addBindValue(row.entityType);
    q.addBindValue(row.clientId);
    q.addBindValue(row.serverId);
    q.addBindValue(row.accountId.isEmpty() ? QVariant() : QVariant(row.accountId));
    q.addBindValue(row.version);
    q.addBindValue(row.deleted ? 1 : 0);
    q.addBindValue(row.seq);
    q.addBindValue(row.authorId);
    q.addBindValue(QString::fromUtf8(row.payload));
    q.addBindValue(ServerDatabase::now());
    if (!q.exec()) {
        qWarning().noquote() << "SyncStore::write failed:" << q.lastError().text();
        return false;
    }
    return true;
}

QList<StoredRow> SyncStore::ownerRowsAfter(const QString &ownerId, qint64 afterSeq, int limit) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM sync_rows WHERE owner_id = ? AND seq > ? ORDER BY seq LIMIT ?")
                  .arg(kColumns));
    q.addBindValue(ownerId);
    q.addBindValue(afterSeq);
    q.addBindValue(limit);
    return readRows(q, "SyncStore::ownerRowsAfter");
}

QList<StoredRow> SyncStore::accountRows(const QString &ownerId, const QString &accountId, qint64 afterSeq,
                                        qint64 upToSeq, int limit) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
                  "SELECT %1 FROM sync_rows WHERE owner_id = ? AND account_id = ? AND seq > ? AND seq <= ?"
                  " ORDER BY seq LIMIT ?")
                  .arg(kColumns));
    q.addBindValue(ownerId);
    q.addBindValue(accountId);
    q.addBindValue(afterSeq);
    q.addBindValue(upToSeq < 0 ? std::numeric_limits<qint64>::max() : upToSeq);
    q.addBindValue(limit);
    return readRows(q, "SyncStore::accountRows");
}

bool SyncStore::removeOwner(const QString &ownerId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("DELETE FROM sync_rows WHERE owner_id = ?"));
    q.addBindValue(ownerId);
    if (!q.exec()) {
        qWarning().noquote() << "SyncStore::removeOwner failed:" << q.lastError().text();
        return false;
    }
    return true;
}

} // namespace OmbrelServer
