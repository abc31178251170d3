#include "SqliteBaseline.h"

#include "core/Dates.h"

#include <QCoreApplication>
#include <QDebug>

#include <sqlite3.h>

namespace {

const QString kColumns = QStringLiteral(
    "t.id, t.account_id, t.date, t.payee, t.memo, t.amount, t.category_id, t.check_number, t.cleared, "
    "t.reconciled, t.transfer_link_id, t.transfer_dest_account_id, t.is_split, t.recurring_id, t.version, "
    "t.sync_status, t.server_id, t.created_at, t.updated_at, t.deleted_at");

constexpr int kCategoryNameColumn = 20;

sqlite3 *openFile(const QString &path)
{
    sqlite3 *db = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        qWarning().noquote() << "Cannot open" << path << "on the C API:" << sqlite3_errmsg(db);
        sqlite3_close(db);
        return nullptr;
    }
    // As the program's own connection has it.
    sqlite3_exec(db, "PRAGMA foreign_keys=ON", nullptr, nullptr, nullptr);
    return db;
}

// A prepared statement that finalizes itself.
class Statement {
public:
    Statement(sqlite3 *db, const QString &sql)
    {
        const QByteArray text = sql.toUtf8();
        if (sqlite3_prepare_v2(db, text.constData(), int(text.size()), &m_statement, nullptr) != SQLITE_OK)
            qWarning().noquote() << "prepare failed:" << sqlite3_errmsg(db);
    }
    ~Statement() { sqlite3_finalize(m_statement); }
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    sqlite3_stmt *get() const { return m_statement; }
    bool isValid() const { return m_statement != nullptr; }
    bool next() const { return m_statement && sqlite3_step(m_statement) == SQLITE_ROW; }

private:
    sqlite3_stmt *m_statement = nullptr;
};

QString textAt(sqlite3_stmt *s, int column)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(s, column));
    return text ? QString::fromUtf8(text, sqlite3_column_bytes(s, column)) : QString();
}

void readInto(Transaction &t, sqlite3_stmt *s)
{
    t.id = textAt(s, 0);
    t.accountId = textAt(s, 1);
    t.date = dateFromText(textAt(s, 2));
    t.payee = textAt(s, 3);
    t.memo = textAt(s, 4);
    t.amount = sqlite3_column_int64(s, 5);
    t.categoryId = textAt(s, 6);
    t.checkNumber = textAt(s, 7);
    t.cleared = sqlite3_column_int(s, 8) != 0;
    t.reconciled = sqlite3_column_int(s, 9) != 0;
    t.transferLinkId = textAt(s, 10);
    t.transferDestAccountId = textAt(s, 11);
    t.isSplit = sqlite3_column_int(s, 12) != 0;
    t.recurringId = textAt(s, 13);
    t.version = sqlite3_column_int(s, 14);
    t.syncStatus = syncStatusFromString(textAt(s, 15));
    t.serverId = textAt(s, 16);
    t.createdAt = timestampFromText(textAt(s, 17));
    t.updatedAt = timestampFromText(textAt(s, 18));
    const QString deleted = textAt(s, 19);
    if (!deleted.isEmpty())
        t.deletedAt = timestampFromText(deleted);
}

RegisterRow readRegisterRow(sqlite3_stmt *s)
{
    RegisterRow row;
    readInto(row, s);
    row.categoryName = textAt(s, kCategoryNameColumn);
    return row;
}

// The three ways the repositories bind text: as it is ("" for a null string), NULL when empty, and
// NULL only when null.
void bindText(sqlite3_stmt *s, int index, const QString &value)
{
    const QByteArray utf8 = value.toUtf8();
    sqlite3_bind_text(s, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

void bindNullIfEmpty(sqlite3_stmt *s, int index, const QString &value)
{
    if (value.isEmpty())
        sqlite3_bind_null(s, index);
    else
        bindText(s, index, value);
}

void bindNullIfNull(sqlite3_stmt *s, int index, const QString &value)
{
    if (value.isNull())
        sqlite3_bind_null(s, index);
    else
        bindText(s, index, value);
}

sqlite3_stmt *prepare(sqlite3 *db, const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK)
        qWarning().noquote() << "prepare failed:" << sqlite3_errmsg(db);
    return statement;
}

} // namespace

SqliteReads::SqliteReads(const QString &path)
    : m_db(openFile(path))
{
}

SqliteReads::~SqliteReads()
{
    sqlite3_close(m_db);
}

QList<RegisterRow> SqliteReads::getByAccountWithBalances(const QString &accountId) const
{
    QList<RegisterRow> result;
    Statement rows(m_db, QStringLiteral("SELECT %1, c.name AS category_name FROM transactions t "
                                        "LEFT JOIN categories c ON t.category_id = c.id "
                                        "WHERE t.account_id = ? AND t.deleted_at IS NULL "
                                        "ORDER BY t.date ASC, t.created_at ASC")
                             .arg(kColumns));
    if (!rows.isValid())
        return result;
    bindText(rows.get(), 1, accountId);

    qint64 balance = 0;
    Statement start(m_db, QStringLiteral("SELECT starting_balance FROM accounts WHERE id = ?"));
    bindText(start.get(), 1, accountId);
    if (start.next())
        balance = sqlite3_column_int64(start.get(), 0);

    if (balance != 0) {
        Statement first(m_db, QStringLiteral("SELECT date FROM transactions WHERE account_id = ? AND "
                                             "deleted_at IS NULL ORDER BY date ASC LIMIT 1"));
        bindText(first.get(), 1, accountId);
        QDate date;
        if (first.next())
            date = dateFromText(textAt(first.get(), 0));
        RegisterRow opening;
        opening.accountId = accountId;
        opening.date = date.isValid() ? date : QDate::currentDate();
        opening.payee = QCoreApplication::translate("TransactionRepository", "Opening Balance");
        opening.amount = balance;
        opening.runningBalance = balance;
        opening.cleared = true;
        opening.reconciled = true;
        result.append(opening);
    }

    while (rows.next()) {
        RegisterRow row = readRegisterRow(rows.get());
        balance += row.amount;
        row.runningBalance = balance;
        result.append(std::move(row));
    }
    return result;
}

QList<RegisterRow> SqliteReads::search(const QString &query) const
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
    sql += QStringLiteral(" ORDER BY t.date DESC, t.created_at DESC LIMIT 200");

    QList<RegisterRow> result;
    Statement q(m_db, sql);
    if (!q.isValid())
        return result;
    if (!query.isEmpty())
        bindText(q.get(), 1, query);
    while (q.next())
        result.append(readRegisterRow(q.get()));
    return result;
}

QStringList SqliteReads::getPayees() const
{
    QStringList payees;
    Statement q(m_db, QStringLiteral("SELECT DISTINCT payee FROM transactions WHERE deleted_at IS NULL AND "
                                     "payee != '' ORDER BY payee"));
    while (q.next())
        payees.append(textAt(q.get(), 0));
    return payees;
}

SqliteSink::SqliteSink(const QString &path)
    : m_db(openFile(path))
{
}

SqliteSink::~SqliteSink()
{
    for (sqlite3_stmt *s : {m_accounts, m_rules, m_transactions, m_splitLines, m_reconciliations})
        sqlite3_finalize(s);
    sqlite3_close(m_db);
}

bool SqliteSink::begin()
{
    if (!m_db || sqlite3_exec(m_db, "BEGIN", nullptr, nullptr, nullptr) != SQLITE_OK)
        return false;
    m_accounts = prepare(m_db, "INSERT INTO accounts (id, name, account_type, currency, institution, "
                               "account_number_last4, starting_balance, sort_order, is_shared, version, "
                               "sync_status, server_id, created_at, updated_at) "
                               "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    m_rules =
        prepare(m_db, "INSERT INTO recurring_transactions (id, account_id, payee, memo, amount, "
                      "category_id, frequency, start_date, end_date, next_due_date, auto_post, is_active, "
                      "transfer_dest_account_id, version, sync_status, server_id, created_at, updated_at) "
                      "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    m_transactions = prepare(m_db, "INSERT INTO transactions (id, account_id, date, payee, memo, amount, "
                                   "category_id, check_number, cleared, reconciled, transfer_link_id, "
                                   "transfer_dest_account_id, is_split, recurring_id, version, sync_status, "
                                   "server_id, created_at, updated_at) "
                                   "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    m_splitLines = prepare(m_db, "INSERT INTO split_lines (id, transaction_id, category_id, amount, memo, "
                                 "created_at, updated_at) VALUES (?, ?, ?, ?, ?, ?, ?)");
    m_reconciliations = prepare(m_db, "INSERT INTO reconciliations (id, account_id, statement_date, "
                                      "statement_balance, reconciled_balance, completed_at, version, "
                                      "sync_status, server_id, created_at, updated_at) "
                                      "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    return m_accounts && m_rules && m_transactions && m_splitLines && m_reconciliations;
}

bool SqliteSink::addAccount(const Account &a)
{
    sqlite3_stmt *s = m_accounts;
    bindText(s, 1, a.id);
    bindText(s, 2, a.name);
    bindText(s, 3, accountTypeToString(a.accountType));
    bindText(s, 4, currencyToString(a.currency));
    bindText(s, 5, a.institution);
    bindText(s, 6, a.accountNumberLast4);
    sqlite3_bind_int64(s, 7, a.startingBalance);
    sqlite3_bind_int(s, 8, a.sortOrder);
    sqlite3_bind_int(s, 9, a.isShared ? 1 : 0);
    sqlite3_bind_int(s, 10, a.version);
    bindText(s, 11, syncStatusToString(a.syncStatus));
    bindText(s, 12, a.serverId);
    bindText(s, 13, timestampText(a.createdAt));
    bindText(s, 14, timestampText(a.updatedAt));
    return step(s);
}

bool SqliteSink::addRecurring(const RecurringTransaction &r)
{
    sqlite3_stmt *s = m_rules;
    bindText(s, 1, r.id);
    bindText(s, 2, r.accountId);
    bindText(s, 3, r.payee);
    bindText(s, 4, r.memo);
    sqlite3_bind_int64(s, 5, r.amount);
    bindNullIfEmpty(s, 6, r.categoryId);
    bindText(s, 7, frequencyToString(r.frequency));
    bindText(s, 8, dateText(r.startDate));
    if (r.endDate)
        bindText(s, 9, dateText(*r.endDate));
    else
        sqlite3_bind_null(s, 9);
    bindText(s, 10, dateText(r.nextDueDate));
    sqlite3_bind_int(s, 11, r.autoPost ? 1 : 0);
    sqlite3_bind_int(s, 12, r.isActive ? 1 : 0);
    bindNullIfNull(s, 13, r.transferDestAccountId);
    sqlite3_bind_int(s, 14, r.version);
    bindText(s, 15, syncStatusToString(r.syncStatus));
    bindText(s, 16, r.serverId);
    bindText(s, 17, timestampText(r.createdAt));
    bindText(s, 18, timestampText(r.updatedAt));
    return step(s);
}

bool SqliteSink::addTransaction(const Transaction &t)
{
    sqlite3_stmt *s = m_transactions;
    bindText(s, 1, t.id);
    bindText(s, 2, t.accountId);
    bindText(s, 3, dateText(t.date));
    bindText(s, 4, t.payee);
    bindText(s, 5, t.memo);
    sqlite3_bind_int64(s, 6, t.amount);
    bindNullIfEmpty(s, 7, t.categoryId);
    bindText(s, 8, t.checkNumber);
    sqlite3_bind_int(s, 9, t.cleared ? 1 : 0);
    sqlite3_bind_int(s, 10, t.reconciled ? 1 : 0);
    bindText(s, 11, t.transferLinkId);
    bindText(s, 12, t.transferDestAccountId);
    sqlite3_bind_int(s, 13, t.isSplit ? 1 : 0);
    bindText(s, 14, t.recurringId);
    sqlite3_bind_int(s, 15, t.version);
    bindText(s, 16, syncStatusToString(t.syncStatus));
    bindText(s, 17, t.serverId);
    bindText(s, 18, timestampText(t.createdAt));
    bindText(s, 19, timestampText(t.updatedAt));
    return step(s);
}

bool SqliteSink::addSplitLine(const SplitLine &l)
{
    sqlite3_stmt *s = m_splitLines;
    bindText(s, 1, l.id);
    bindText(s, 2, l.transactionId);
    bindNullIfNull(s, 3, l.categoryId);
    sqlite3_bind_int64(s, 4, l.amount);
    bindText(s, 5, l.memo);
    bindText(s, 6, timestampText(l.createdAt));
    bindText(s, 7, timestampText(l.updatedAt));
    return step(s);
}

bool SqliteSink::addReconciliation(const Reconciliation &r)
{
    sqlite3_stmt *s = m_reconciliations;
    bindText(s, 1, r.id);
    bindText(s, 2, r.accountId);
    bindText(s, 3, dateText(r.statementDate));
    sqlite3_bind_int64(s, 4, r.statementBalance);
    sqlite3_bind_int64(s, 5, r.reconciledBalance);
    bindText(s, 6, timestampText(r.completedAt));
    sqlite3_bind_int(s, 7, r.version);
    bindText(s, 8, syncStatusToString(r.syncStatus));
    bindText(s, 9, r.serverId);
    bindText(s, 10, timestampText(r.createdAt));
    bindText(s, 11, timestampText(r.updatedAt));
    return step(s);
}

bool SqliteSink::commit()
{
    return sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool SqliteSink::step(sqlite3_stmt *statement)
{
    const bool done = sqlite3_step(statement) == SQLITE_DONE;
    if (!done)
        qWarning().noquote() << "SqliteSink: insert failed:" << sqlite3_errmsg(m_db);
    sqlite3_reset(statement);
    return done;
}
