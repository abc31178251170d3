#pragma once

#include "core/RegisterRow.h"
#include "core/Transaction.h"
#include "data/SearchIndexPause.h"
#include "data/TransactionSearchFilter.h"

#include <QList>
#include <QObject>
#include <QSqlQuery>
#include <QStringList>

#include <optional>

class Database;

// The only way the application reads and writes single transactions, and the only place where
// running balances are computed.
class TransactionRepository : public QObject {
    Q_OBJECT
public:
    explicit TransactionRepository(Database *db, QObject *parent = nullptr);

    // Newest first.
    QList<Transaction> getByAccount(const QString &accountId) const;
    // Finds soft-deleted rows too.
    std::optional<Transaction> getById(const QString &id) const;
    QList<Transaction> getPending() const;
    // Oldest first, each with the balance after it; a non-zero starting balance adds a made-up
    // "Opening Balance" row in front that is never stored.
    QList<RegisterRow> getByAccountWithBalances(const QString &accountId) const;
    // The balance after the account's last row: what getByAccountWithBalances ends on, summed in SQL
    // so that the account list does not read every row of every account on each change.
    qint64 getBalance(const QString &accountId) const;
    QList<Transaction> getUnreconciled(const QString &accountId) const;
    // The sum and the latest date of the account's live reconciled rows, where the next reconciliation
    // starts; summed in SQL, since a long history would otherwise be read row by row.
    struct ReconciledTotal {
        qint64 amount = 0;
        QDate latestDate; // invalid when nothing is reconciled
    };
    ReconciledTotal getReconciledTotal(const QString &accountId) const;
    std::optional<Transaction> getLastForPayee(const QString &payee, const QString &accountId) const;
    QStringList getPayees() const;
    // query is FTS5 syntax as given; invalid syntax gives an empty list. At most 200 rows, newest first.
    QList<RegisterRow> search(const QString &query, const TransactionSearchFilter &filter) const;

    bool insert(const Transaction &transaction);

    // The insert statement prepared once and run for each of many rows, for imports: insert() without
    // the signal, which the caller gives once for each account it wrote to. Lives no longer than the
    // bulk write it serves.
    class Inserter {
    public:
        bool insert(const Transaction &transaction);

    private:
        friend class TransactionRepository;
        explicit Inserter(Database *db);
        QSqlQuery m_query;
    };
    Inserter inserter() const;

    bool update(const Transaction &transaction);
    bool softDelete(const QString &id);
    int softDeleteByAccount(const QString &accountId);
    // Brings back rows of the account deleted at or after since (ISO UTC text).
    int restoreByAccount(const QString &accountId, const QString &since);
    int markAllPendingForResync();
    bool markSynced(const QString &id, const QString &serverId);

    // For bulk inserts inside one database transaction (imports). Fed by its trigger, the full-text
    // index flushes at every insert; paused, it takes every row added meanwhile in one statement at
    // the resume. A rollback before the resume undoes the pause by itself. Nothing to pause (no
    // such trigger) gives no value, and inserts then index themselves as usual.
    std::optional<SearchIndexPause> pauseSearchIndex();
    bool resumeSearchIndex(const SearchIndexPause &pause);

signals:
    void transactionsChanged(const QString &accountId);

private:
    Database *m_db = nullptr;
};
