#pragma once

#include <QDate>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class Database;

// The eight reports, each one read-only statement over the transactions table as it stands, and the
// CSV text of a shown report. It keeps nothing between calls.
//
// What a reader of the numbers must know: only Income vs Expenses leaves transfers out, so every
// other report counts both legs of a transfer; no report reads split lines, so a split counts once,
// whole, under the category of its own row; and a row keeps the name of a deleted category.
class ReportService : public QObject {
    Q_OBJECT
public:
    struct CategorySpendingRow {
        QString category;
        qint64 total = 0;
    };

    struct PayeeSummaryRow {
        QString payee;
        qint64 total = 0;
        qint32 count = 0;
    };

    struct TaxReportRow {
        QString category;
        QString taxCategory;
        qint64 total = 0;
    };

    // expenses is a sum of payments, so it is negative or zero; net is income plus expenses.
    struct IncomeExpenseRow {
        QString month; // yyyy-MM
        qint64 income = 0;
        qint64 expenses = 0;
        qint64 net = 0;
    };

    // outflows is negative or zero; net is inflows plus outflows.
    struct CashFlowRow {
        QString month; // yyyy-MM
        qint64 inflows = 0;
        qint64 outflows = 0;
        qint64 net = 0;
    };

    struct YearOverYearRow {
        QString category;
        qint64 period1 = 0;
        qint64 period2 = 0;
        qint64 difference = 0; // period2 - period1
    };

    struct AccountSummaryRow {
        QString name;
        QString accountType; // the stored word
        qint64 cleared = 0;  // the starting balance with the cleared rows
        qint64 uncleared = 0;
        qint64 total = 0;
    };

    struct TransactionReportRow {
        QDate date;
        QString account;
        QString payee;
        QString category;
        QString memo;
        qint64 amount = 0;
    };

    explicit ReportService(Database *db, QObject *parent = nullptr);

    // Dates are inclusive at both ends. An empty accountId means all accounts. A query that fails
    // gives an empty list.
    QList<CategorySpendingRow> categorySpending(const QDate &from, const QDate &to,
                                                const QString &accountId) const;
    QList<PayeeSummaryRow> payeeSummary(const QDate &from, const QDate &to, const QString &accountId) const;
    // Over all accounts, always.
    QList<TaxReportRow> taxReport(const QDate &from, const QDate &to) const;
    QList<IncomeExpenseRow> incomeVsExpenses(const QDate &from, const QDate &to,
                                             const QString &accountId) const;
    QList<CashFlowRow> cashFlow(const QDate &from, const QDate &to, const QString &accountId) const;
    QList<YearOverYearRow> yearOverYear(const QDate &from1, const QDate &to1, const QDate &from2,
                                        const QDate &to2, const QString &accountId) const;
    QList<AccountSummaryRow> accountSummary() const;
    // An empty categoryId means all categories.
    QList<TransactionReportRow> transactions(const QDate &from, const QDate &to, const QString &accountId,
                                             const QString &categoryId) const;

    // Every cell in double quotes, LF line ends, a last LF.
    static QString toCsv(const QStringList &headers, const QList<QStringList> &rows);

private:
    Database *m_db = nullptr;
};
