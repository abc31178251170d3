#include "services/ReportService.h"

#include "core/Dates.h"
#include "data/Database.h"

#include <QMap>
#include <QSqlQuery>

namespace {

const QString kAccountClause = QStringLiteral(" AND t.account_id = ?");

// Prepares head + the account clause when an account is chosen + tail, and binds the two dates and
// the account in the order the clauses stand. Reports read each row once, so the driver need not
// keep the rows it has passed.
QSqlQuery prepareRanged(Database *db, const QString &head, const QString &tail, const QDate &from,
                        const QDate &to, const QString &accountId)
{
    QSqlQuery q(db->connection());
    q.setForwardOnly(true);
    q.prepare(head + (accountId.isEmpty() ? QString() : kAccountClause) + tail);
    q.addBindValue(dateText(from));
    q.addBindValue(dateText(to));
    if (!accountId.isEmpty())
        q.addBindValue(accountId);
    return q;
}

// Name to total over one period, both signs counted.
QMap<QString, qint64> categoryTotals(Database *db, const QDate &from, const QDate &to,
                                     const QString &accountId)
{
    QSqlQuery q = prepareRanged(
        db,
        QStringLiteral(
            "SELECT COALESCE(c.name, 'Uncategorized'), SUM(t.amount) FROM transactions t LEFT JOIN "
            "categories c ON t.category_id = c.id WHERE t.deleted_at IS NULL AND t.date >= ? AND "
            "t.date <= ?"),
        QStringLiteral(" GROUP BY COALESCE(c.name, 'Uncategorized')"), from, to, accountId);
    QMap<QString, qint64> totals;
    if (!q.exec())
        return totals;
    while (q.next())
        totals.insert(q.value(0).toString(), q.value(1).toLongLong());
    return totals;
}

QString quoted(const QString &cell)
{
    QString text = cell;
    text.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

ReportService::ReportService(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

QList<ReportService::CategorySpendingRow> ReportService::categorySpending(const QDate &from, const QDate &to,
                                                                          const QString &accountId) const
{
    // Outflows only, so that a refund does not hide what was spent.
    QSqlQuery q = prepareRanged(
        m_db,
        QStringLiteral(
            "SELECT COALESCE(c.name, 'Uncategorized'), SUM(t.amount) FROM transactions t LEFT JOIN "
            "categories c ON t.category_id = c.id WHERE t.deleted_at IS NULL AND t.amount < 0 AND "
            "t.date >= ? AND t.date <= ?"),
        QStringLiteral(" GROUP BY COALESCE(c.name, 'Uncategorized') ORDER BY SUM(t.amount) ASC"), from, to,
        accountId);
    QList<CategorySpendingRow> rows;
    if (!q.exec())
        return rows;
    while (q.next())
        rows.append({q.value(0).toString(), q.value(1).toLongLong()});
    return rows;
}

QList<ReportService::PayeeSummaryRow> ReportService::payeeSummary(const QDate &from, const QDate &to,
                                                                  const QString &accountId) const
{
    QSqlQuery q =
        prepareRanged(m_db,
                      QStringLiteral("SELECT t.payee, SUM(t.amount), COUNT(*) FROM transactions t "
                                     "WHERE t.deleted_at IS NULL AND t.date >= ? AND t.date <= ?"),
                      QStringLiteral(" GROUP BY t.payee ORDER BY SUM(t.amount) ASC"), from, to, accountId);
    QList<PayeeSummaryRow> rows;
    if (!q.exec())
        return rows;
    while (q.next())
        rows.append({q.value(0).toString(), q.value(1).toLongLong(), q.value(2).toInt()});
    return rows;
}

QList<ReportService::TaxReportRow> ReportService::taxReport(const QDate &from, const QDate &to) const
{
    QSqlQuery q = prepareRanged(
        m_db,
        QStringLiteral(
            "SELECT c.name, c.tax_category, SUM(t.amount) FROM transactions t JOIN categories c ON "
            "t.category_id = c.id WHERE t.deleted_at IS NULL AND c.is_tax_relevant = 1 AND t.date "
            ">= ? AND t.date <= ? GROUP BY c.name, c.tax_category ORDER BY c.tax_category, c.name"),
        QString(), from, to, QString());
    QList<TaxReportRow> rows;
    if (!q.exec())
        return rows;
    while (q.next())
        rows.append({q.value(0).toString(), q.value(1).toString(), q.value(2).toLongLong()});
    return rows;
}

QList<ReportService::IncomeExpenseRow> ReportService::incomeVsExpenses(const QDate &from, const QDate &to,
                                                                       const QString &accountId) const
{
    // The one report without transfers: moving money between one's own accounts is neither.
    QSqlQuery q = prepareRanged(
        m_db,
        QStringLiteral("SELECT strftime('%Y-%m', t.date) AS month, SUM(CASE WHEN t.amount > 0 THEN t.amount "
                       "ELSE 0 END) AS income, SUM(CASE WHEN t.amount < 0 THEN t.amount ELSE 0 END) AS "
                       "expenses FROM transactions t WHERE t.deleted_at IS NULL   AND (t.transfer_link_id IS "
                       "NULL OR t.transfer_link_id = '')   AND t.date >= ? AND t.date <= ?"),
        QStringLiteral(" GROUP BY month ORDER BY month"), from, to, accountId);
    QList<IncomeExpenseRow> rows;
    if (!q.exec())
        return rows;
    while (q.next()) {
        const qint64 income = q.value(1).toLongLong();
        const qint64 expenses = q.value(2).toLongLong();
        rows.append({q.value(0).toString(), income, expenses, income + expenses});
    }
    return rows;
}

QList<ReportService::CashFlowRow> ReportService::cashFlow(const QDate &from, const QDate &to,
                                                          const QString &accountId) const
{
    QSqlQuery q = prepareRanged(
        m_db,
        QStringLiteral(
            "SELECT strftime('%Y-%m', t.date) AS month, SUM(CASE WHEN t.amount > 0 THEN t.amount "
            "ELSE 0 END) AS inflows, SUM(CASE WHEN t.amount < 0 THEN t.amount ELSE 0 END) AS "
            "outflows FROM transactions t WHERE t.deleted_at IS NULL AND t.date >= ? AND t.date <= "
            "?"),
        QStringLiteral(" GROUP BY month ORDER BY month"), from, to, accountId);
    QList<CashFlowRow> rows;
    if (!q.exec())
        return rows;
    while (q.next()) {
        const qint64 inflows = q.value(1).toLongLong();
        const qint64 outflows = q.value(2).toLongLong();
        rows.append({q.value(0).toString(), inflows, outflows, inflows + outflows});
    }
    return rows;
}

QList<ReportService::YearOverYearRow> ReportService::yearOverYear(const QDate &from1, const QDate &to1,
                                                                  const QDate &from2, const QDate &to2,
                                                                  const QString &accountId) const
{
    const QMap<QString, qint64> first = categoryTotals(m_db, from1, to1, accountId);
    const QMap<QString, qint64> second = categoryTotals(m_db, from2, to2, accountId);
    // A QMap's keys are in plain character-code order, which is the order of the rows.
    QMap<QString, YearOverYearRow> merged;
    for (auto it = first.cbegin(); it != first.cend(); ++it)
        merged[it.key()].period1 = it.value();
    for (auto it = second.cbegin(); it != second.cend(); ++it)
        merged[it.key()].period2 = it.value();
    QList<YearOverYearRow> rows;
    rows.reserve(merged.size());
    for (auto it = merged.begin(); it != merged.end(); ++it) {
        YearOverYearRow row = it.value();
        row.category = it.key();
        row.difference = row.period2 - row.period1;
        rows.append(row);
    }
    return rows;
}

QList<ReportService::AccountSummaryRow> ReportService::accountSummary() const
{
    QSqlQuery q(m_db->connection());
    q.setForwardOnly(true);
    q.prepare(QStringLiteral(
        "SELECT a.name, a.account_type, a.starting_balance, COALESCE(SUM(CASE WHEN t.cleared = 1 THEN "
        "t.amount "
        "ELSE 0 END), 0) AS cleared_sum, COALESCE(SUM(CASE WHEN t.cleared = 0 THEN t.amount ELSE 0 END), 0) "
        "AS "
        "uncleared_sum, COALESCE(SUM(t.amount), 0) AS total_sum FROM accounts a LEFT JOIN transactions t ON "
        "t.account_id = a.id AND t.deleted_at IS NULL WHERE a.deleted_at IS NULL GROUP BY a.id ORDER BY "
        "a.sort_order, a.name"));
    QList<AccountSummaryRow> rows;
    if (!q.exec())
        return rows;
    while (q.next()) {
        const qint64 start = q.value(2).toLongLong();
        // The starting balance is cleared money: it goes with the cleared column, not the uncleared.
        rows.append({q.value(0).toString(), q.value(1).toString(), start + q.value(3).toLongLong(),
                     q.value(4).toLongLong(), start + q.value(5).toLongLong()});
    }
    return rows;
}

QList<ReportService::TransactionReportRow> ReportService::transactions(const QDate &from, const QDate &to,
                                                                       const QString &accountId,
                                                                       const QString &categoryId) const
{
    QSqlQuery q(m_db->connection());
    q.setForwardOnly(true);
    q.prepare(QStringLiteral("SELECT t.date, a.name AS account_name, t.payee,        COALESCE(c.name, '') AS "
                             "category_name,        COALESCE(t.memo, ''), t.amount FROM transactions t LEFT "
                             "JOIN accounts a ON t.account_id = a.id LEFT JOIN categories c ON t.category_id "
                             "= c.id WHERE t.deleted_at IS NULL AND t.date >= ? AND t.date <= ?") +
              (accountId.isEmpty() ? QString() : kAccountClause) +
              (categoryId.isEmpty() ? QString() : QStringLiteral(" AND t.category_id = ?")) +
              QStringLiteral(" ORDER BY t.date, t.payee"));
    q.addBindValue(dateText(from));
    q.addBindValue(dateText(to));
    if (!accountId.isEmpty())
        q.addBindValue(accountId);
    if (!categoryId.isEmpty())
        q.addBindValue(categoryId);
    QList<TransactionReportRow> rows;
    if (!q.exec())
        return rows;
    while (q.next()) {
        rows.append({dateFromText(q.value(0).toString()), q.value(1).toString(), q.value(2).toString(),
                     q.value(3).toString(), q.value(4).toString(), q.value(5).toLongLong()});
    }
    return rows;
}

QString ReportService::toCsv(const QStringList &headers, const QList<QStringList> &rows)
{
    // Headers are fixed texts of the program, so their quotes are left as they are.
    QStringList headerCells;
    for (const QString &header : headers)
        headerCells.append(QLatin1Char('"') + header + QLatin1Char('"'));
    QString csv = headerCells.join(QLatin1Char(',')) + QLatin1Char('\n');
    for (const QStringList &row : rows) {
        QStringList cells;
        cells.reserve(row.size());
        for (const QString &cell : row)
            cells.append(quoted(cell));
        csv += cells.join(QLatin1Char(',')) + QLatin1Char('\n');
    }
    return csv;
}
