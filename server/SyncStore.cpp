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
    if (!m_find) {
        m_find.emplace(m_db->connection());
        m_find->prepare(
            QStringLiteral(
                "SELECT %1 FROM sync_rows WHERE owner_id = ? AND entity_type = ? AND client_id = ?")
                .arg(kColumns));
    }
    QSqlQuery &q = *m_find;
    q.bindValue(0, ownerId);
    q.bindValue(1, entityType);
    q.bindValue(2, clientId);
    std::optional<StoredRow> row;
    if (q.exec() && q.next())
        row = readRow(q);
    q.finish();
    return row;
}

bool SyncStore::write(const StoredRow &row)
{
    if (!m_write) {
        m_write.emplace(m_db->connection());
        m_write->prepare(
            QStringLiteral(
                "INSERT OR REPLACE INTO sync_rows (%1, updated_at) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
                .arg(kColumns));
    }
    QSqlQuery &q = *m_write;
    q.bindValue(0, row.ownerId);
    q.bindValue(1, row.entityType);
    q.bindValue(2, row.clientId);
    q.bindValue(3, row.serverId);
    q.bindValue(4, row.accountId.isEmpty() ? QVariant() : QVariant(row.accountId));
    q.bindValue(5, row.version);
    q.bindValue(6, row.deleted ? 1 : 0);
    q.bindValue(7, row.seq);
    q.bindValue(8, row.authorId);
    q.bindValue(9, QString::fromUtf8(row.payload));
    q.bindValue(10, ServerDatabase::now());
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
