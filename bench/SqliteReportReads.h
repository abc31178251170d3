#pragma once

#include "services/ReportService.h"

#include <QDate>
#include <QList>
#include <QString>

struct sqlite3;

// The report service's statements, word for word, run straight on the SQLite C API into the same
// row records: what this machine can do at best, and the yardstick for the service's numbers.
class SqliteReportReads {
public:
    explicit SqliteReportReads(const QString &path);
    ~SqliteReportReads();
    SqliteReportReads(const SqliteReportReads &) = delete;
    SqliteReportReads &operator=(const SqliteReportReads &) = delete;

    bool isOpen() const { return m_db != nullptr; }
    QList<ReportService::CategorySpendingRow> categorySpending(const QDate &from, const QDate &to,
                                                               const QString &accountId) const;
    QList<ReportService::PayeeSummaryRow> payeeSummary(const QDate &from, const QDate &to,
                                                       const QString &accountId) const;
    QList<ReportService::TaxReportRow> taxReport(const QDate &from, const QDate &to) const;
    QList<ReportService::IncomeExpenseRow> incomeVsExpenses(const QDate &from, const QDate &to,
                                                            const QString &accountId) const;
    QList<ReportService::CashFlowRow> cashFlow(const QDate &from, const QDate &to,
                                               const QString &accountId) const;
    QList<ReportService::YearOverYearRow> yearOverYear(const QDate &from1, const QDate &to1,
                                                       const QDate &from2, const QDate &to2,
                                                       const QString &accountId) const;
    QList<ReportService::AccountSummaryRow> accountSummary() const;
    QList<ReportService::TransactionReportRow> transactions(const QDate &from, const QDate &to,
                                                            const QString &accountId,
                                                            const QString &categoryId) const;

private:
    sqlite3 *m_db = nullptr;
};
