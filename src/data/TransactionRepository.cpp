#include "data/TransactionRepository.h"

#include "core/Dates.h"
#include "data/Database.h"
#include "data/SqlValues.h"

#include <QSqlQuery>

using namespace SqlValues;

namespace {

const QString kColumns = QStringLiteral(
    "t.id, t.account_id, t.date, t.payee, t.memo, t.amount, t.category_id, t.check_number, t.cleared, "
    "t.reconciled, t.transfer_link_id, t.transfer_dest_account_id, t.is_split, t.recurring_id, t.version, "
    "t.sync_status, t.server_id, t.created_at, t.updated_at, t.deleted_at");

// Where a statement adds ", c.name AS category_name" behind the columns.
constexpr int kCategoryNameColumn = 20;

void readInto(Transaction &t, const QSqlQuery &q)
{
    t.id = q.value(0).toString();
    t.accountId = q.value(1).toString();
    t.date = dateAt(q, 2);
    t.payee = q.value(3).toString();
    t.memo = q.value(4).toString();
    t.amount = q.value(5).toLongLong();
    t.categoryId = q.value(6).toString();
    t.checkNumber = q.value(7).toString();
    t.cleared = q.value(8).toBool();
    t.reconciled = q.value(9).toBool();
    t.transferLinkId = q.value(10).toString();
    t.transferDestAccountId = q.value(11).toString();
    t.isSplit = q.value(12).toBool();
    t.recurringId = q.value(13).toString();
    t.version = q.value(14).toInt();
    t.syncStatus = syncStatusFromString(q.value(15).toString());
    t.serverId = q.value(16).toString();
    t.createdAt = timestampAt(q, 17);
    t.updatedAt = timestampAt(q, 18);
    t.deletedAt = optionalTimestampAt(q, 19);
}

Transaction readTransaction(const QSqlQuery &q)
{
    Transaction t;
    readInto(t, q);
    return t;
}

RegisterRow readRegisterRow(const QSqlQuery &q)
{
    RegisterRow row;
    readInto(row, q);
    row.categoryName = q.value(kCategoryNameColumn).toString();
    return row;
}

QList<Transaction> readAll(QSqlQuery &q)
{
    QList<Transaction> result;
    if (!q.exec())
        return result;
    while (q.next())
        result.append(readTransaction(q));
    return result;
}

std::optional<Transaction> readOne(QSqlQuery &q)
{
    if (!q.exec() || !q.next())
        return std::nullopt;
    return readTransaction(q);
}

const QString kInsert = QStringLiteral(
    "INSERT INTO transactions (id, account_id, date, payee, memo, amount, category_id, check_number, "
    "cleared, "
    "reconciled, transfer_link_id, transfer_dest_account_id, is_split, recurring_id, version, sync_status, "
    "server_id, created_at, updated_at) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

void bindInsert(QSqlQuery &q, const Transaction &transaction)
{
    q.addBindValue(transaction.id);
    q.addBindValue(transaction.accountId);
    q.addBindValue(date(transaction.date));
    q.addBindValue(text(transaction.payee));
    q.addBindValue(text(transaction.memo));
    q.addBindValue(transaction.amount);
    q.addBindValue(nullIfEmpty(transaction.categoryId));
    q.addBindValue(text(transaction.checkNumber));
    q.addBindValue(transaction.cleared ? 1 : 0);
    q.addBindValue(transaction.reconciled ? 1 : 0);
    q.addBindValue(text(transaction.transferLinkId));
    q.addBindValue(text(transaction.transferDestAccountId));
    q.addBindValue(transaction.isSplit ? 1 : 0);
    q.addBindValue(text(transaction.recurringId));
    q.addBindValue(transaction.version);
    q.addBindValue(syncStatusToString(transaction.syncStatus));
    q.addBindValue(text(transaction.serverId));
    q.addBindValue(timestamp(transaction.createdAt));
    q.addBindValue(timestamp(transaction.updatedAt));
}

} // namespace

TransactionRepository::TransactionRepository(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

QList<Transaction> TransactionRepository::getByAccount(const QString &accountId) const
{
    QSqlQuery q(m_db->connection());
    q.setForwardOnly(true);
    q.prepare(QStringLiteral("SELECT %1 FROM transactions t WHERE t.account_id = ? AND t.deleted_at IS NULL "
                             "ORDER BY t.date DESC, t.created_at DESC")
                  .arg(kColumns));
    q.addBindValue(accountId);
    return readAll(q);
}

std::optional<Transaction> TransactionRepository::getById(const QString &id) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM transactions t WHERE t.id = ?").arg(kColumns));
    q.addBindValue(id);
    return readOne(q);
}

QList<Transaction> TransactionRepository::getPending() const
{
    QSqlQuery q(m_db->connection());
    q.setForwardOnly(true);
    q.prepare(QStringLiteral("SELECT %1 FROM transactions t WHERE t.sync_status = 'pending'").arg(kColumns));
    return readAll(q);
}

QList<RegisterRow> TransactionRepository::getByAccountWithBalances(const QString &accountId) const
{
    QList<RegisterRow> result;
    QSqlQuery rows(m_db->connection());
    rows.setForwardOnly(true);
    rows.prepare(QStringLiteral("SELECT %1, c.name AS category_name FROM transactions t "
                                "LEFT JOIN categories c ON t.category_id = c.id "
                                "WHERE t.account_id = ? AND t.deleted_at IS NULL "
                                "ORDER BY t.date ASC, t.created_at ASC")
                     .arg(kColumns));
    rows.addBindValue(accountId);
    if (!rows.exec())
        return result;

    qint64 balance = 0;
    QSqlQuery start(m_db->connection());
    start.prepare(QStringLiteral("SELECT starting_balance FROM accounts WHERE id = ?"));
    start.addBindValue(accountId);
    if (start.exec() && start.next())
        balance = start.value(0).toLongLong();

    // A starting balance (from sample data, old exports or sync) shows as a row that is never stored.
    if (balance != 0) {
        QSqlQuery first(m_db->connection());
        first.prepare(
            QStringLiteral("SELECT date FROM transactions WHERE account_id = ? AND deleted_at IS NULL "
                           "ORDER BY date ASC LIMIT 1"));
        first.addBindValue(accountId);
        QDate date;
        if (first.exec() && first.next())
            date = dateAt(first, 0);
        RegisterRow opening;
        opening.accountId = accountId;
        opening.date = date.isValid() ? date : QDate::currentDate();
        opening.payee = tr("Opening Balance");
        opening.amount = balance;
        opening.runningBalance = balance;
        opening.cleared = true;
        opening.reconciled = true;
        result.append(opening);
    }

    while (rows.next()) {
        RegisterRow row = readRegisterRow(rows);
        balance += row.amount;
        row.runningBalance = balance;
        result.append(std::move(row));
    }
    return result;
}

qint64 TransactionRepository::getBalance(const QString &accountId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "SELECT COALESCE((SELECT starting_balance FROM accounts WHERE id = ?), 0) + "
        "COALESCE((SELECT SUM(amount) FROM transactions WHERE account_id = ? AND deleted_at IS NULL), 0)"));
    q.addBindValue(accountId);
    q.addBindValue(accountId);
    if (!q.exec() || !q.next())
        return 0;
    return q.value(0).toLongLong();
}

TransactionRepository::ReconciledTotal
TransactionRepository::getReconciledTotal(const QString &accountId) const
{
    ReconciledTotal total;
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("SELECT COALESCE(SUM(amount), 0), MAX(date) FROM transactions WHERE account_id = ? "
                       "AND deleted_at IS NULL AND reconciled = 1"));
    q.addBindValue(accountId);
    if (!q.exec() || !q.next())
        return total;
    total.amount = q.value(0).toLongLong();
    total.latestDate = dateFromText(q.value(1).toString());
    return total;
}

QList<Transaction> TransactionRepository::getUnreconciled(const QString &accountId) const
{
    QSqlQuery q(m_db->connection());
    q.setForwardOnly(true);
    q.prepare(QStringLiteral("SELECT %1 FROM transactions t WHERE t.account_id = ? AND t.deleted_at IS NULL "
                             "AND t.reconciled = 0 ORDER BY t.date ASC, t.created_at ASC")
                  .arg(kColumns));
    q.addBindValue(accountId);
    return readAll(q);
}

std::optional<Transaction> TransactionRepository::getLastForPayee(const QString &payee,
                                                                  const QString &accountId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM transactions t WHERE t.payee = ? AND t.account_id = ? "
                             "AND t.deleted_at IS NULL ORDER BY t.date DESC, t.created_at DESC LIMIT 1")
                  .arg(kColumns));
    q.addBindValue(payee);
    q.addBindValue(accountId);
    return readOne(q);
}

QStringList TransactionRepository::getPayees() const
{
    QStringList payees;
    QSqlQuery q(m_db->connection());
    q.setForwardOnly(true);
    if (!q.exec(QStringLiteral("SELECT DISTINCT payee FROM transactions WHERE deleted_at IS NULL AND payee "
                               "!= '' ORDER BY payee")))
        return payees;
    while (q.next())
        payees.append(q.value(0).toString());
    return payees;
}

QList<RegisterRow> TransactionRepository::search(const QString &query,
                                                 const TransactionSearchFilter &filter) const
{
    QString sql =
        query.isEmpty()
            ? QStringLiteral("SELECT %1, c.name AS category_name FROM transactions t "
                             "LEFT JOIN categories c ON t.category_id = c.id WHERE t.deleted_at IS NULL")
            : QStringLiteral("SELECT %1, c.name AS category_name FROM transactions t "
                             "JOIN transactions_fts fts ON fts.rowid = t.rowid "
                             "LEFT JOIN categories c ON t.category_id = c.id "
                             "WHERE t.deleted_at IS NULL AND transactions_fts MATCH ?");
    sql = sql.arg(kColumns);
    QVariantList values;
    if (!query.isEmpty())
        values << query;
    if (!filter.accountId.isEmpty()) {
        sql += QStringLiteral(" AND t.account_id = ?");
        values << filter.accountId;
    }
    if (!filter.categoryId.isEmpty()) {
        sql += QStringLiteral(" AND t.category_id = ?");
        values << filter.categoryId;
    }
    if (filter.dateFrom.isValid()) {
        sql += QStringLiteral(" AND t.date >= ?");
        values << dateText(filter.dateFrom);
    }
    if (filter.dateTo.isValid()) {
        sql += QStringLiteral(" AND t.date <= ?");
        values << dateText(filter.dateTo);
    }
    if (filter.cleared) {
        sql += QStringLiteral(" AND t.cleared = ?");
        values << (*filter.cleared ? 1 : 0);
    }
    sql += QStringLiteral(" ORDER BY t.date DESC, t.created_at DESC LIMIT 200");

    QList<RegisterRow> result;
    QSqlQuery q(m_db->connection());
    q.setForwardOnly(true);
    if (!q.prepare(sql))
        return result;
    for (const QVariant &value : std::as_const(values))
        q.addBindValue(value);
    // Text that is not valid search syntax fails here; the screen shows no rows, which says enough.
    if (!q.exec())
        return result;
    while (q.next())
        result.append(readRegisterRow(q));
    return result;
}

bool TransactionRepository::insert(const Transaction &transaction)
{
    QSqlQuery q(m_db->connection());
    q.prepare(kInsert);
    bindInsert(q, transaction);
    if (!execLogged(q, "TransactionRepository::insert"))
        return false;
    emit transactionsChanged(transaction.accountId);
    return true;
}

TransactionRepository::Inserter TransactionRepository::inserter() const
{
    return Inserter(m_db);
}

TransactionRepository::Inserter::Inserter(Database *db)
    : m_query(db->connection())
{
    m_query.prepare(kInsert);
}

bool TransactionRepository::Inserter::insert(const Transaction &transaction)
{
    bindInsert(m_query, transaction);
    return execLogged(m_query, "TransactionRepository::insert");
}

bool TransactionRepository::update(const Transaction &transaction)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE transactions SET date=?, payee=?, memo=?, amount=?, category_id=?, "
                             "check_number=?, cleared=?, "
                             "reconciled=?, transfer_link_id=?, transfer_dest_account_id=?, is_split=?, "
                             "recurring_id=?, version=?, "
                             "sync_status=?, server_id=?, updated_at=? WHERE id=?"));
    q.addBindValue(date(transaction.date));
    q.addBindValue(text(transaction.payee));
    q.addBindValue(text(transaction.memo));
    q.addBindValue(transaction.amount);
    q.addBindValue(nullIfEmpty(transaction.categoryId));
    q.addBindValue(text(transaction.checkNumber));
    q.addBindValue(transaction.cleared ? 1 : 0);
    q.addBindValue(transaction.reconciled ? 1 : 0);
    q.addBindValue(text(transaction.transferLinkId));
    q.addBindValue(text(transaction.transferDestAccountId));
    q.addBindValue(transaction.isSplit ? 1 : 0);
    q.addBindValue(text(transaction.recurringId));
    q.addBindValue(transaction.version);
    q.addBindValue(syncStatusToString(transaction.syncStatus));
    q.addBindValue(text(transaction.serverId));
    q.addBindValue(timestamp(transaction.updatedAt));
    q.addBindValue(transaction.id);
    if (!execLogged(q, "TransactionRepository::update"))
        return false;
    emit transactionsChanged(transaction.accountId);
    return true;
}

bool TransactionRepository::softDelete(const QString &id)
{
    // Read first: the signal names the account.
    const std::optional<Transaction> existing = getById(id);
    if (!existing)
        return false;
    const QString now = timestampText(utcNow());
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "UPDATE transactions SET deleted_at=?, sync_status='pending', updated_at=? WHERE id=?"));
    q.addBindValue(now);
    q.addBindValue(now);
    q.addBindValue(id);
    if (!execLogged(q, "TransactionRepository::softDelete"))
        return false;
    emit transactionsChanged(existing->accountId);
    return true;
}

int TransactionRepository::softDeleteByAccount(const QString &accountId)
{
    const QString now = timestampText(utcNow());
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE transactions SET deleted_at = ?, updated_at = ?, sync_status = 'pending' "
                       "WHERE account_id = ? AND deleted_at IS NULL"));
    q.addBindValue(now);
    q.addBindValue(now);
    q.addBindValue(accountId);
    const int count = execCount(q, "TransactionRepository::softDeleteByAccount");
    if (count > 0)
        emit transactionsChanged(accountId);
    return count;
}

int TransactionRepository::restoreByAccount(const QString &accountId, const QString &since)
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE transactions SET deleted_at = NULL, updated_at = ?, sync_status = 'pending' "
                       "WHERE account_id = ? AND deleted_at >= ?"));
    q.addBindValue(timestampText(utcNow()));
    q.addBindValue(accountId);
    q.addBindValue(since);
    const int count = execCount(q, "TransactionRepository::restoreByAccount");
    if (count > 0)
        emit transactionsChanged(accountId);
    return count;
}

int TransactionRepository::markAllPendingForResync()
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE transactions SET sync_status = 'pending' WHERE deleted_at IS NULL AND "
                             "sync_status != 'pending'"));
    return execCount(q, "TransactionRepository::markAllPendingForResync");
}

bool TransactionRepository::markSynced(const QString &id, const QString &serverId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE transactions SET sync_status='synced', server_id=? WHERE id=?"));
    q.addBindValue(serverId);
    q.addBindValue(id);
    return q.exec();
}

std::optional<SearchIndexPause> TransactionRepository::pauseSearchIndex()
{
    SearchIndexPause pause;
    QSqlQuery trigger(m_db->connection());
    trigger.prepare(
        QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'trigger' AND name = 'transactions_ai'"));
    if (!trigger.exec() || !trigger.next())
        return std::nullopt;
    pause.triggerSql = trigger.value(0).toString();
    trigger.finish();

    QSqlQuery last(m_db->connection());
    if (!last.exec(QStringLiteral("SELECT IFNULL(MAX(rowid), 0) FROM transactions")) || !last.next())
        return std::nullopt;
    pause.lastRowId = last.value(0).toLongLong();
    last.finish();

    QSqlQuery drop(m_db->connection());
    drop.prepare(QStringLiteral("DROP TRIGGER transactions_ai"));
    if (!execLogged(drop, "TransactionRepository::pauseSearchIndex"))
        return std::nullopt;
    return pause;
}

bool TransactionRepository::resumeSearchIndex(const SearchIndexPause &pause)
{
    QSqlQuery index(m_db->connection());
    index.prepare(
        QStringLiteral("INSERT INTO transactions_fts(rowid, payee, memo, check_number) "
                       "SELECT rowid, payee, memo, check_number FROM transactions WHERE rowid > ?"));
    index.addBindValue(pause.lastRowId);
    if (!execLogged(index, "TransactionRepository::resumeSearchIndex"))
        return false;
    QSqlQuery trigger(m_db->connection());
    trigger.prepare(pause.triggerSql);
    return execLogged(trigger, "TransactionRepository::resumeSearchIndex");
}
