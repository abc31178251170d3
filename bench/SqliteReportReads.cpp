#include "SqliteReportReads.h"

#include "core/Dates.h"

#include <QDebug>
#include <QMap>

#include <sqlite3.h>

namespace {

const char kAccountClause[] = " AND t.account_id = ?";

// A prepared statement that finalizes itself, with the binding the service's driver does: text as
// it is, positions in order.
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

    void bind(const QString &value)
    {
        const QByteArray utf8 = value.toUtf8();
        sqlite3_bind_text(m_statement, ++m_bound, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
    }
    bool next() const { return m_statement && sqlite3_step(m_statement) == SQLITE_ROW; }
    QString text(int column) const
    {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_statement, column));
        return text ? QString::fromUtf8(text, sqlite3_column_bytes(m_statement, column)) : QString();
    }
    qint64 integer(int column) const { return sqlite3_column_int64(m_statement, column); }

private:
    sqlite3_stmt *m_statement = nullptr;
    int m_bound = 0;
};

// The service's way of building a ranged statement: head, the account clause when one is chosen, tail.
QString ranged(const char *head, const char *tail, const QString &accountId)
{
    return QString::fromUtf8(head) + (accountId.isEmpty() ? QString() : QString::fromUtf8(kAccountClause)) +
           QString::fromUtf8(tail);
}

void bindRange(Statement &q, const QDate &from, const QDate &to, const QString &accountId)
{
    q.bind(dateText(from));
    q.bind(dateText(to));
    if (!accountId.isEmpty())
        q.bind(accountId);
}

QMap<QString, qint64> categoryTotals(sqlite3 *db, const QDate &from, const QDate &to,
                                     const QString &accountId)
{
    Statement q(db,
                ranged("SELECT COALESCE(c.name, 'Uncategorized'), SUM(t.amount) FROM transactions t LEFT "
                       "JOIN categories c ON t.category_id = c.id WHERE t.deleted_at IS NULL AND t.date >= ? "
                       "AND t.date <= ?",
                       " GROUP BY COALESCE(c.name, 'Uncategorized')", accountId));
    bindRange(q, from, to, accountId);
    QMap<QString, qint64> totals;
    while (q.next())
        totals.insert(q.text(0), q.integer(1));
    return totals;
}

} // namespace

SqliteReportReads::SqliteReportReads(const QString &path)
{
    if (sqlite3_open_v2(path.toUtf8().constData(), &m_db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        qWarning().noquote() << "Cannot open" << path << "on the C API:" << sqlite3_errmsg(m_db);
        sqlite3_close(m_db);
        m_db = nullptr;
    }
}

SqliteReportReads::~SqliteReportReads()
{
    sqlite3_close(m_db);
}

QList<ReportService::CategorySpendingRow>
SqliteReportReads::categorySpending(const QDate &from, const QDate &to, const QString &accountId) const
{
    Statement q(m_db,
                ranged("SELECT COALESCE(c.name, 'Uncategorized'), SUM(t.amount) FROM transactions t LEFT "
                       "JOIN categories c ON t.category_id = c.id WHERE t.deleted_at IS NULL AND t.amount "
                       "< 0 AND t.date >= ? AND t.date <= ?",
                       " GROUP BY COALESCE(c.name, 'Uncategorized') ORDER BY SUM(t.amount) ASC", accountId));
    bindRange(q, from, to, accountId);
    QList<ReportService::CategorySpendingRow> rows;
    while (q.next())
        rows.append({q.text(0), q.integer(1)});
    return rows;
}

QList<ReportService::PayeeSummaryRow> SqliteReportReads::payeeSummary(const QDate &from, const QDate &to,
                                                                      const QString &accountId) const
{
    Statement q(m_db, ranged("SELECT t.payee, SUM(t.amount), COUNT(*) FROM transactions t WHERE t.deleted_at "
                             "IS NULL AND t.date >= ? AND t.date <= ?",
                             " GROUP BY t.payee ORDER BY SUM(t.amount) ASC", accountId));
    bindRange(q, from, to, accountId);
    QList<ReportService::PayeeSummaryRow> rows;
    while (q.next())
        rows.append({q.text(0), q.integer(1), qint32(q.integer(2))});
    return rows;
}

QList<ReportService::TaxReportRow> SqliteReportReads::taxReport(const QDate &from, const QDate &to) const
{
    Statement q(m_db, QStringLiteral("SELECT c.name, c.tax_category, SUM(t.amount) FROM transactions t JOIN "
                                     "categories c ON t.category_id = c.id WHERE t.deleted_at IS NULL AND "
                                     "c.is_tax_relevant = 1 AND t.date >= ? AND t.date <= ? GROUP BY c.name, "
                                     "c.tax_category ORDER BY c.tax_category, c.name"));
    bindRange(q, from, to, QString());
    QList<ReportService::TaxReportRow> rows;
    while (q.next())
        rows.append({q.text(0), q.text(1), q.integer(2)});
    return rows;
}

QList<ReportService::IncomeExpenseRow> SqliteReportReads::incomeVsExpenses(const QDate &from, const QDate &to,
                                                                           const QString &accountId) const
{
    Statement q(m_db,
                ranged("SELECT strftime('%Y-%m', t.date) AS month, SUM(CASE WHEN t.amount > 0 THEN "
                       "t.amount ELSE 0 END) AS income, SUM(CASE WHEN t.amount < 0 THEN t.amount ELSE 0 "
                       "END) AS expenses FROM transactions t WHERE t.deleted_at IS NULL   AND "
                       "(t.transfer_link_id IS NULL OR t.transfer_link_id = '')   AND t.date >= ? AND "
                       "t.date <= ?",
                       " GROUP BY month ORDER BY month", accountId));
    bindRange(q, from, to, accountId);
    QList<ReportService::IncomeExpenseRow> rows;
    while (q.next())
        rows.append({q.text(0), q.integer(1), q.integer(2), q.integer(1) + q.integer(2)});
    return rows;
}

QList<ReportService::CashFlowRow> SqliteReportReads::cashFlow(const QDate &from, const QDate &to,
                                                              const QString &accountId) const
{
    Statement q(m_db,
                ranged("SELECT strftime('%Y-%m', t.date) AS month, SUM(CASE WHEN t.amount > 0 THEN "
                       "t.amount ELSE 0 END) AS inflows, SUM(CASE WHEN t.amount < 0 THEN t.amount ELSE 0 "
                       "END) AS outflows FROM transactions t WHERE t.deleted_at IS NULL AND t.date >= ? "
                       "AND t.date <= ?",
                       " GROUP BY month ORDER BY month", accountId));
    bindRange(q, from, to, accountId);
    QList<ReportService::CashFlowRow> rows;
    while (q.next())
        rows.append({q.text(0), q.integer(1), q.integer(2), q.integer(1) + q.integer(2)});
    return rows;
}

QList<ReportService::YearOverYearRow> SqliteReportReads::yearOverYear(const QDate &from1, const QDate &to1,
                                                                      const QDate &from2, const QDate &to2,
                                                                      const QString &accountId) const
{
    const QMap<QString, qint64> first = categoryTotals(m_db, from1, to1, accountId);
    const QMap<QString, qint64> second = categoryTotals(m_db, from2, to2, accountId);
    QMap<QString, ReportService::YearOverYearRow> merged;
    for (auto it = first.cbegin(); it != first.cend(); ++it)
        merged[it.key()].period1 = it.value();
    for (auto it = second.cbegin(); it != second.cend(); ++it)
        merged[it.key()].period2 = it.value();
    QList<ReportService::YearOverYearRow> rows;
    for (auto it = merged.begin(); it != merged.end(); ++it)
        rows.append({it.key(), it->period1, it->period2, it->period2 - it->period1});
    return rows;
}

QList<ReportService::AccountSummaryRow> SqliteReportReads::accountSummary() const
{
    Statement q(m_db,
                QStringLiteral(
                    "SELECT a.name, a.account_type, a.starting_balance, COALESCE(SUM(CASE WHEN t.cleared = "
                    "1 THEN t.amount ELSE 0 END), 0) AS cleared_sum, COALESCE(SUM(CASE WHEN t.cleared = 0 "
                    "THEN t.amount ELSE 0 END), 0) AS uncleared_sum, COALESCE(SUM(t.amount), 0) AS "
                    "total_sum FROM accounts a LEFT JOIN transactions t ON t.account_id = a.id AND "
                    "t.deleted_at IS NULL WHERE a.deleted_at IS NULL GROUP BY a.id ORDER BY a.sort_order, "
                    "a.name"));
    QList<ReportService::AccountSummaryRow> rows;
    while (q.next()) {
        const qint64 start = q.integer(2);
        rows.append({q.text(0), q.text(1), start + q.integer(3), q.integer(4), start + q.integer(5)});
    }
    return rows;
}

QList<ReportService::TransactionReportRow> SqliteReportReads::transactions(const QDate &from, const QDate &to,
                                                                           const QString &accountId,
                                                                           const QString &categoryId) const
{
    Statement q(m_db,
                QStringLiteral("SELECT t.date, a.name AS account_name, t.payee,        COALESCE(c.name, "
                               "'') AS category_name,        COALESCE(t.memo, ''), t.amount FROM "
                               "transactions t LEFT JOIN accounts a ON t.account_id = a.id LEFT JOIN "
                               "categories c ON t.category_id = c.id WHERE t.deleted_at IS NULL AND t.date "
                               ">= ? AND t.date <= ?") +
                    (accountId.isEmpty() ? QString() : QString::fromUtf8(kAccountClause)) +
                    (categoryId.isEmpty() ? QString() : QStringLiteral(" AND t.category_id = ?")) +
                    QStringLiteral(" ORDER BY t.date, t.payee"));
    bindRange(q, from, to, accountId);
    if (!categoryId.isEmpty())
        q.bind(categoryId);
    QList<ReportService::TransactionReportRow> rows;
    while (q.next())
        rows.append({dateFromText(q.text(0)), q.text(1), q.text(2), q.text(3), q.text(4), q.integer(5)});
    return rows;
}
