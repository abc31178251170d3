#pragma once

#include "core/RegisterRow.h"
#include "core/Transaction.h"
#include "data/TransactionSearchFilter.h"

#include <QList>
#include <QObject>
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
    bool update(const Transaction &transaction);
    bool softDelete(const QString &id);
    int softDeleteByAccount(const QString &accountId);
    // Brings back rows of the account deleted at or after since (ISO UTC text).
    int restoreByAccount(const QString &accountId, const QString &since);
    int markAllPendingForResync();
    bool markSynced(const QString &id, const QString &serverId);

signals:
    void transactionsChanged(const QString &accountId);

private:
    Database *m_db = nullptr;
};
