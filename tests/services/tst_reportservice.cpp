#include "services/ReportService.h"

#include "support/Fixtures.h"
#include "support/Line.h"
#include "support/TempStore.h"

#include <QTest>

#include <optional>

namespace {

const QDate kMarch1(2024, 3, 1);
const QDate kMarch31(2024, 3, 31);
using R = ReportService;

Transaction row(const char *id, const char *account, const QDate &date, const char *payee, qint64 amount,
                const char *categoryId = nullptr)
{
    Transaction t = Fixtures::transaction(id, account, date, payee, amount);
    t.categoryId = QLatin1String(categoryId);
    return t;
}

} // namespace

class TstReportService : public QObject {
    Q_OBJECT
    std::optional<TempStore> m_store;
    std::optional<ReportService> m_reports;

    // One line per report row, so that a whole report compares at once.
    static QString text(const R::CategorySpendingRow &r) { return line(r.category, r.total); }
    static QString text(const R::PayeeSummaryRow &r) { return line(r.payee, r.total, r.count); }
    static QString text(const R::TaxReportRow &r) { return line(r.category, r.taxCategory, r.total); }
    static QString text(const R::IncomeExpenseRow &r) { return line(r.month, r.income, r.expenses, r.net); }
    static QString text(const R::CashFlowRow &r) { return line(r.month, r.inflows, r.outflows, r.net); }
    static QString text(const R::YearOverYearRow &r)
    {
        return line(r.category, r.period1, r.period2, r.difference);
    }
    static QString text(const R::AccountSummaryRow &r)
    {
        return line(r.name, r.accountType, r.cleared, r.uncleared, r.total);
    }
    static QString text(const R::TransactionReportRow &r)
    {
        return line(r.date, r.account, r.payee, r.category, r.amount);
    }
    template <typename Row>
    static QStringList texts(const QList<Row> &rows)
    {
        return lines(rows, [](const Row &r) { return text(r); });
    }

private slots:
    // Checking and a card in March 2024, a transfer between them, a split, a deleted row, a row on each
    // edge of the month, and a savings account with nothing in it.
    void init()
    {
        m_reports.reset();
        m_store.emplace();
        QVERIFY(m_store->ok);
        Account card = Fixtures::account("card", "Visa");
        card.accountType = AccountType::CreditCard;
        card.sortOrder = 1;
        Account piggy = Fixtures::account("piggy", "Piggy Bank", 2500);
        piggy.accountType = AccountType::Savings;
        piggy.sortOrder = 2;
        AccountRepository &accounts = m_store->accounts;
        QVERIFY(accounts.insert(Fixtures::account("chk", "Checking")) && accounts.insert(card) &&
                accounts.insert(piggy));
        CategoryRepository &categories = m_store->categories;
        QVERIFY(categories.insert(Fixtures::category("groc", "Groceries")));
        QVERIFY(categories.insert(Fixtures::category("sal", "Salary", {}, CategoryType::Income)));
        QVERIFY(categories.insert(
            Fixtures::category("char", "Charity", {}, CategoryType::Expense, "charitable_contributions")));
        QVERIFY(categories.insert(Fixtures::category("rent", "Rent")));

        TransactionRepository &t = m_store->transactions;
        QVERIFY(t.insert(row("feb", "chk", QDate(2024, 2, 29), "Market", -250, "groc")));
        QVERIFY(t.insert(row("t1", "chk", QDate(2024, 3, 5), "Market", -4000, "groc")));
        QVERIFY(t.insert(row("t2", "chk", QDate(2024, 3, 10), "Employer", 300000, "sal")));
        QVERIFY(t.insert(row("gone", "chk", QDate(2024, 3, 12), "Market", -77777, "groc")));
        QVERIFY(t.softDelete(QStringLiteral("gone")));
        QVERIFY(t.insert(row("c1", "card", QDate(2024, 3, 8), "Red Cross", -5000, "char")));
        Transaction out = row("x1", "chk", QDate(2024, 3, 15), "Transfer to Visa", -10000);
        out.transferLinkId = QStringLiteral("x2");
        out.transferDestAccountId = QStringLiteral("card");
        Transaction in = row("x2", "card", QDate(2024, 3, 15), "Transfer from Checking", 10000);
        in.transferLinkId = QStringLiteral("x1");
        in.transferDestAccountId = QStringLiteral("chk");
        QVERIFY(t.insert(out) && t.insert(in));
        Transaction split = row("s1", "chk", QDate(2024, 3, 20), "Big Store", -9000, "groc");
        split.isSplit = true;
        QVERIFY(t.insert(split));
        const char *lineCategories[] = {"char", "rent", "sal"};
        for (int i = 0; i < 3; ++i)
            QVERIFY(m_store->splitLines.insert(
                Fixtures::splitLine(QString::number(i), "s1", lineCategories[i], -3000)));
        QVERIFY(t.insert(row("late", "chk", kMarch31, "Late Fee", -100, "groc")));
        QVERIFY(t.insert(row("april", "chk", QDate(2024, 4, 1), "Landlord", -150000, "rent")));
        m_reports.emplace(m_store->db.database());
    }

    void transferCountsEverywhereButIncomeVsExpenses()
    {
        // The payment side of the transfer is spending, under no category; its deposit side is not.
        QCOMPARE(texts(m_reports->categorySpending(kMarch1, kMarch31, QString())),
                 QStringList({"Groceries -13100", "Uncategorized -10000", "Charity -5000"}));
        QCOMPARE(texts(m_reports->cashFlow(kMarch1, kMarch31, QString())),
                 QStringList({"2024-03 310000 -28100 281900"}));
        QCOMPARE(texts(m_reports->incomeVsExpenses(kMarch1, kMarch31, QString())),
                 QStringList({"2024-03 300000 -18100 281900"}));
        const QStringList payees = texts(m_reports->payeeSummary(kMarch1, kMarch31, QString()));
        QCOMPARE(payees.size(), 7);
        QCOMPARE(payees.first(), QStringLiteral("Transfer to Visa -10000 1"));
        QCOMPARE(payees.last(), QStringLiteral("Employer 300000 1"));
    }

    void oneAccountAndItsTransfer()
    {
        const QString card = QStringLiteral("card");
        QCOMPARE(texts(m_reports->cashFlow(kMarch1, kMarch31, card)),
                 QStringList({"2024-03 10000 -5000 5000"}));
        QCOMPARE(texts(m_reports->incomeVsExpenses(kMarch1, kMarch31, card)),
                 QStringList({"2024-03 0 -5000 -5000"}));
        QCOMPARE(texts(m_reports->categorySpending(kMarch1, kMarch31, card)), QStringList({"Charity -5000"}));
        QVERIFY(m_reports->payeeSummary(kMarch1, kMarch31, QStringLiteral("nobody")).isEmpty());
    }

    void toDateIsInclusive_data()
    {
        QTest::addColumn<QDate>("from");
        QTest::addColumn<QDate>("to");
        QTest::addColumn<QString>("expected"); // groceries, then the number of rows
        QTest::newRow("to on the last row") << kMarch1 << kMarch31 << "Groceries -13100 7";
        QTest::newRow("to a day before it") << kMarch1 << QDate(2024, 3, 30) << "Groceries -13000 6";
        QTest::newRow("from on a leap day") << QDate(2024, 2, 29) << kMarch31 << "Groceries -13350 8";
        QTest::newRow("one day") << kMarch31 << kMarch31 << "Groceries -100 1";
    }

    void toDateIsInclusive()
    {
        QFETCH(QDate, from);
        QFETCH(QDate, to);
        QFETCH(QString, expected);
        const QStringList spending = texts(m_reports->categorySpending(from, to, QString()));
        QCOMPARE(
            line(spending.filter("Groceries").value(0), m_reports->transactions(from, to, {}, {}).size()),
            expected);
    }

    void splitCountsOnceUnderItsOwnCategory()
    {
        const QDate day(2024, 3, 20);
        QCOMPARE(texts(m_reports->categorySpending(day, day, QString())), QStringList({"Groceries -9000"}));
        QCOMPARE(texts(m_reports->transactions(day, day, QString(), QString())),
                 QStringList({"2024-03-20 Checking Big Store Groceries -9000"}));
        // The lines' categories see nothing of it.
        QVERIFY(m_reports->transactions(day, day, QString(), QStringLiteral("rent")).isEmpty());
        QVERIFY(m_reports->taxReport(day, day).isEmpty());
    }

    void yearOverYearUnionOfCategories()
    {
        // Deposits count here, and the two legs of the transfer cancel.
        QCOMPARE(texts(m_reports->yearOverYear(QDate(2024, 2, 1), QDate(2024, 2, 29), kMarch1, kMarch31,
                                               QString())),
                 QStringList({"Charity 0 -5000 -5000", "Groceries -250 -13100 -12850",
                              "Salary 0 300000 300000", "Uncategorized 0 0 0"}));
        // The periods the other way round, and categories in the first period only.
        QCOMPARE(texts(m_reports->yearOverYear(kMarch1, kMarch31, QDate(2024, 4, 1), QDate(2024, 4, 30),
                                               QStringLiteral("chk"))),
                 QStringList({"Groceries -13100 0 13100", "Rent 0 -150000 -150000", "Salary 300000 0 -300000",
                              "Uncategorized -10000 0 10000"}));
    }

    void accountSummary()
    {
        QVERIFY(m_store->categories.softDelete(QStringLiteral("groc")));
        QVERIFY(
            m_store->db.exec(QStringLiteral("UPDATE transactions SET cleared = 1 WHERE id IN ('t1', 't2')")));
        // No rows at all: the starting balance is cleared money and the total.
        QCOMPARE(texts(m_reports->accountSummary()),
                 QStringList({"Checking checking 296000 -169350 126650", "Visa credit_card 0 5000 5000",
                              "Piggy Bank savings 2500 0 2500"}));
        QVERIFY(m_store->accounts.softDelete(QStringLiteral("card")));
        QCOMPARE(m_reports->accountSummary().size(), 2);
    }

    void taxReportIgnoresNothingButTaxRelevance()
    {
        // A deleted category keeps its name in every report.
        QVERIFY(m_store->categories.softDelete(QStringLiteral("char")));
        QCOMPARE(texts(m_reports->taxReport(kMarch1, kMarch31)),
                 QStringList({"Charity charitable_contributions -5000"}));
        QCOMPARE(texts(m_reports->categorySpending(kMarch1, kMarch31, QString())).last(),
                 QStringLiteral("Charity -5000"));
    }

    void transactionsReport()
    {
        // Same date: by payee.
        QCOMPARE(texts(m_reports->transactions(QDate(2024, 3, 15), kMarch31, QString(), QString())),
                 QStringList({"2024-03-15 Visa Transfer from Checking  10000",
                              "2024-03-15 Checking Transfer to Visa  -10000",
                              "2024-03-20 Checking Big Store Groceries -9000",
                              "2024-03-31 Checking Late Fee Groceries -100"}));
        QCOMPARE(
            m_reports->transactions(kMarch1, kMarch31, QStringLiteral("chk"), QStringLiteral("groc")).size(),
            3);
    }

    void emptyRangeGivesNothing()
    {
        const QDate from(2030, 1, 1), to(2030, 12, 31);
        ReportService &r = *m_reports;
        // A range the wrong way round is empty too, not swapped.
        QCOMPARE(line(r.categorySpending(from, to, {}).size(), r.payeeSummary(from, to, {}).size(),
                      r.taxReport(from, to).size(), r.incomeVsExpenses(from, to, {}).size(),
                      r.cashFlow(from, to, {}).size(), r.yearOverYear(from, to, from, to, {}).size(),
                      r.transactions(from, to, {}, {}).size(), r.cashFlow(kMarch31, kMarch1, {}).size()),
                 "0 0 0 0 0 0 0 0");
    }

    void csvQuotesEveryCell()
    {
        QCOMPARE(R::toCsv(
                     {
                         "Payee", "Total"
        },
                     {{"a\"b", "-$1,234.50"}, {"", "0"}}),
                 QStringLiteral("\"Payee\",\"Total\"\n\"a\"\"b\",\"-$1,234.50\"\n\"\",\"0\"\n"));
        QCOMPARE(R::toCsv({"Month"}, {}), QStringLiteral("\"Month\"\n"));
    }
};

QTEST_GUILESS_MAIN(TstReportService)
#include "tst_reportservice.moc"
