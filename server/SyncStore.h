#pragma once

#include <QByteArray>
#include <QList>
#include <QSqlQuery>
#include <QString>

#include <optional>

namespace OmbrelServer {

class ServerDatabase;

// One synced row as the server keeps it: the payload as the device sent it, and the server's own
// bookkeeping beside it.
struct StoredRow {
    QString ownerId;
    QString entityType; // account, category, recurring, transaction, reconciliation
    QString clientId;
    QString serverId;
    QString accountId; // the account the row belongs to; an account's own id; empty for a category
    qint64 version = 0;
    bool deleted = false;
    qint64 seq = 0; // server-wide change number of the last write
    QString authorId;
    QByteArray payload; // compact JSON object
};

// The sync_rows table and the server-wide change counter.
class SyncStore {
public:
    explicit SyncStore(ServerDatabase *db);

    // The next change number; every write of a row and every grant of a share takes one.
    qint64 nextSeq() { return ++m_seq; }
    qint64 lastSeq() const { return m_seq; }

    std::optional<StoredRow> find(const QString &ownerId, const QString &entityType,
                                  const QString &clientId) const;
    // Inserts or replaces the row under its owner, type and client id.
    bool write(const StoredRow &row);
    // The owner's rows written after afterSeq, oldest first.
    QList<StoredRow> ownerRowsAfter(const QString &ownerId, qint64 afterSeq, int limit) const;
    // The rows of one account of an owner (the account itself, its rules, transactions and
    // reconciliations) whose change number lies in (afterSeq, upToSeq], oldest first; upToSeq < 0: no bound.
    QList<StoredRow> accountRows(const QString &ownerId, const QString &accountId, qint64 afterSeq,
                                 qint64 upToSeq, int limit) const;
    bool removeOwner(const QString &ownerId);

private:
    ServerDatabase *m_db;
    qint64 m_seq = 0;
    // The two statements of every pushed change, prepared once: a push of 500 changes runs each 500
    // times.
    mutable std::optional<QSqlQuery> m_find;
    std::optional<QSqlQuery> m_write;
};

} // namespace OmbrelServer
