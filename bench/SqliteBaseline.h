#pragma once

#include "HouseholdGenerator.h"
#include "core/RegisterRow.h"

#include <QList>
#include <QString>
#include <QStringList>

struct sqlite3;
struct sqlite3_stmt;

// The repository's reads done straight on the SQLite C API: the statements are the repository's,
// word for word, and the records come out the same, through the same converters. What they cost is
// what this machine can do at best, and the yardstick for the repository's numbers.
class SqliteReads {
public:
    explicit SqliteReads(const QString &path);
    ~SqliteReads();
    SqliteReads(const SqliteReads &) = delete;
    SqliteReads &operator=(const SqliteReads &) = delete;

    bool isOpen() const { return m_db != nullptr; }
    QList<RegisterRow> getByAccountWithBalances(const QString &accountId) const;
    // With an empty filter.
    QList<RegisterRow> search(const QString &query) const;
    QStringList getPayees() const;

private:
    sqlite3 *m_db = nullptr;
};

// The generator's rows written on the C API, with the repositories' INSERT statements and their way
// of binding empty text, in one transaction of its own connection.
class SqliteSink : public HouseholdGenerator::Sink {
public:
    explicit SqliteSink(const QString &path);
    ~SqliteSink() override;
    SqliteSink(const SqliteSink &) = delete;
    SqliteSink &operator=(const SqliteSink &) = delete;

    bool begin() override;
    bool addAccount(const Account &account) override;
    bool addRecurring(const RecurringTransaction &rule) override;
    bool addTransaction(const Transaction &transaction) override;
    bool addSplitLine(const SplitLine &line) override;
    bool addReconciliation(const Reconciliation &reconciliation) override;
    bool commit() override;

private:
    bool step(sqlite3_stmt *statement);

    sqlite3 *m_db = nullptr;
    sqlite3_stmt *m_accounts = nullptr;
    sqlite3_stmt *m_rules = nullptr;
    sqlite3_stmt *m_transactions = nullptr;
    sqlite3_stmt *m_splitLines = nullptr;
    sqlite3_stmt *m_reconciliations = nullptr;
};
