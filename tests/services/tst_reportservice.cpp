#include "services/ReportService.h"

#include "core/Dates.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "support/TempDatabase.h"

#include <QTest>

using Row = ReportService::YearOverYearRow;

class TstReportService : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void transferCountsEverywhereButIncomeVsExpenses();
    void oneAccountAndItsTransfer();
    void toDateIsInclusive_data();
    void toDateIsInclusive();
    void splitCountsOnceUnderItsOwnCategory();
    void yearOverYearUnionOfCategories();
    void accountSummary();
    void taxReportIgnoresNothingButTaxRelevance();
    void transactionsReport();
    void emptyRangeGivesNothing();
    void csvQuotesEveryCell();

private:
    std::unique_ptr<TempDatabase> m_db;
    std::unique_ptr<ReportService> m_reports;
};

namespace {

const QDate kMarch1(2024, 3, 1);
const QDate kMarch31(2024, 3, 31);

Category category(const QString &id, const QString &name, CategoryType type, const QString &taxCode = {})
{
    Category c;
    c.id = id;
    c.name = name;
    c.categoryType = type;
    c.isTaxRelevant = !taxCode.isEmpty();
    c.taxCategory = taxCode;
    c.createdAt = c.updatedAt = utcNow();
    return c;
}

Transaction row(const QString &id, const QString &account, const QDate &date, const QString &payee,
                qint64 amount, const QString &categoryId = {})
{
    Transaction t = Fixtures::transaction(id, account, date, payee, amount);
    t.categoryId = categoryId;
    return t;
}

} // namespace

// Checking and a card in March 2024, a transfer between them, a split, a deleted row, a row on each
// edge of the month, and a savings account with nothing in it.
void TstReportService::init()
{
    m_db = std::make_unique<TempDatabase>();
    QVERIFY(m_db->open());
    Database *db = m_db->database();
    AccountRepository accounts(db);
    CategoryRepository categories(db);
    TransactionRepository transactions(db);
    SplitLineRepository splits(db);

    Account checking = Fixtures::account(QStringLiteral("chk"), QStringLiteral("Checking"));
    Account card = Fixtures::account(QStringLiteral("card"), QStringLiteral("Visa"));
    card.accountType = AccountType::CreditCard;
    card.sortOrder = 1;
    Account piggy = Fixtures::account(QStringLiteral("piggy"), QStringLiteral("Piggy Bank"), 2500);
    piggy.accountType = AccountType::Savings;
    piggy.sortOrder = 2;
    QVERIFY(accounts.insert(checking) && accounts.insert(card) && accounts.insert(piggy));

    QVERIFY(categories.insert(
        category(QStringLiteral("groc"), QStringLiteral("Groceries"), CategoryType::Expense)));
    QVERIFY(
        categories.insert(category(QStringLiteral("sal"), QStringLiteral("Salary"), CategoryType::Income)));
    QVERIFY(categories.insert(category(QStringLiteral("char"), QStringLiteral("Charity"),
                                       CategoryType::Expense, QStringLiteral("charitable_contributions"))));
    QVERIFY(
        categories.insert(category(QStringLiteral("rent"), QStringLiteral("Rent"), CategoryType::Expense)));

    QVERIFY(transactions.insert(row("feb", "chk", QDate(2024, 2, 29), "Market", -250, "groc")));
    QVERIFY(transactions.insert(row("t1", "chk", QDate(2024, 3, 5), "Market", -4000, "groc")));
    QVERIFY(transactions.insert(row("t2", "chk", QDate(2024, 3, 10), "Employer", 300000, "sal")));
    QVERIFY(transactions.insert(row("gone", "chk", QDate(2024, 3, 12), "Market", -77777, "groc")));
    QVERIFY(transactions.softDelete(QStringLiteral("gone")));
    QVERIFY(transactions.insert(row("c1", "card", QDate(2024, 3, 8), "Red Cross", -5000, "char")));

    Transaction out = row("x1", "chk", QDate(2024, 3, 15), "Transfer to Visa", -10000);
    out.transferLinkId = QStringLiteral("x2");
    out.transferDestAccountId = QStringLiteral("card");
    Transaction in = row("x2", "card", QDate(2024, 3, 15), "Transfer from Checking", 10000);
    in.transferLinkId = QStringLiteral("x1");
    in.transferDestAccountId = QStringLiteral("chk");
    QVERIFY(transactions.insert(out) && transactions.insert(in));

    Transaction split = row("s1", "chk", QDate(2024, 3, 20), "Big Store", -9000, "groc");
    split.isSplit = true;
    QVERIFY(transactions.insert(split));
    const char *lineCategories[] = {"char", "rent", "sal"};
    for (int i = 0; i < 3; ++i) {
        SplitLine line;
        line.id = QStringLiteral("line-%1").arg(i);
        line.transactionId = QStringLiteral("s1");
        line.categoryId = QString::fromLatin1(lineCategories[i]);
        line.amount = -3000;
        line.createdAt = line.updatedAt = utcNow();
        QVERIFY(splits.insert(line));
    }

    QVERIFY(transactions.insert(row("late", "chk", kMarch31, "Late Fee", -100, "groc")));
    QVERIFY(transactions.insert(row("april", "chk", QDate(2024, 4, 1), "Landlord", -150000, "rent")));

    m_reports = std::make_unique<ReportService>(db);
}

void TstReportService::cleanup()
{
    m_reports.reset();
    m_db.reset();
}

void TstReportService::transferCountsEverywhereButIncomeVsExpenses()
{
    const auto spending = m_reports->categorySpending(kMarch1, kMarch31, QString());
    QCOMPARE(spending.size(), 3);
    QCOMPARE(spending[0].category, QStringLiteral("Groceries"));
    QCOMPARE(spending[0].total, qint64(-4000 - 9000 - 100));
    // The payment side of the transfer is spending, under no category; its deposit side is not.
    QCOMPARE(spending[1].category, QStringLiteral("Uncategorized"));
    QCOMPARE(spending[1].total, qint64(-10000));
    QCOMPARE(spending[2].category, QStringLiteral("Charity"));
    QCOMPARE(spending[2].total, qint64(-5000));

    const auto flow = m_reports->cashFlow(kMarch1, kMarch31, QString());
    QCOMPARE(flow.size(), 1);
    QCOMPARE(flow[0].month, QStringLiteral("2024-03"));
    QCOMPARE(flow[0].inflows, qint64(300000 + 10000));
    QCOMPARE(flow[0].outflows, qint64(-4000 - 5000 - 10000 - 9000 - 100));
    QCOMPARE(flow[0].net, flow[0].inflows + flow[0].outflows);

    const auto incomeExpenses = m_reports->incomeVsExpenses(kMarch1, kMarch31, QString());
    QCOMPARE(incomeExpenses.size(), 1);
    QCOMPARE(incomeExpenses[0].income, qint64(300000));
    QCOMPARE(incomeExpenses[0].expenses, qint64(-4000 - 5000 - 9000 - 100));
    QCOMPARE(incomeExpenses[0].net, qint64(300000 - 18100));

    const auto payees = m_reports->payeeSummary(kMarch1, kMarch31, QString());
    QCOMPARE(payees.size(), 7);
    QCOMPARE(payees.first().payee, QStringLiteral("Transfer to Visa"));
    QCOMPARE(payees.last().payee, QStringLiteral("Employer"));
    QCOMPARE(payees.last().count, 1);
}

void TstReportService::oneAccountAndItsTransfer()
{
    const auto flow = m_reports->cashFlow(kMarch1, kMarch31, QStringLiteral("card"));
    QCOMPARE(flow.size(), 1);
    QCOMPARE(flow[0].inflows, qint64(10000));
    QCOMPARE(flow[0].outflows, qint64(-5000));
    const auto incomeExpenses = m_reports->incomeVsExpenses(kMarch1, kMarch31, QStringLiteral("card"));
    QCOMPARE(incomeExpenses.size(), 1);
    QCOMPARE(incomeExpenses[0].income, qint64(0));
    QCOMPARE(incomeExpenses[0].net, qint64(-5000));
    const auto spending = m_reports->categorySpending(kMarch1, kMarch31, QStringLiteral("card"));
    QCOMPARE(spending.size(), 1);
    QCOMPARE(spending[0].category, QStringLiteral("Charity"));
    QVERIFY(m_reports->payeeSummary(kMarch1, kMarch31, QStringLiteral("nobody")).isEmpty());
}

void TstReportService::toDateIsInclusive_data()
{
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<qint64>("groceries");
    QTest::addColumn<int>("rows");
    QTest::newRow("to on the last row") << kMarch1 << kMarch31 << qint64(-13100) << 7;
    QTest::newRow("to a day before it") << kMarch1 << QDate(2024, 3, 30) << qint64(-13000) << 6;
    QTest::newRow("from on a leap day") << QDate(2024, 2, 29) << kMarch31 << qint64(-13350) << 8;
    QTest::newRow("one day") << kMarch31 << kMarch31 << qint64(-100) << 1;
}

void TstReportService::toDateIsInclusive()
{
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(qint64, groceries);
    QFETCH(int, rows);
    const auto spending = m_reports->categorySpending(from, to, QString());
    const auto it = std::find_if(spending.cbegin(), spending.cend(),
                                 [](const auto &r) { return r.category == QStringLiteral("Groceries"); });
    QVERIFY(it != spending.cend());
    QCOMPARE(it->total, groceries);
    QCOMPARE(m_reports->transactions(from, to, QString(), QString()).size(), rows);
}

void TstReportService::splitCountsOnceUnderItsOwnCategory()
{
    const QDate day(2024, 3, 20);
    const auto spending = m_reports->categorySpending(day, day, QString());
    QCOMPARE(spending.size(), 1);
    QCOMPARE(spending[0].category, QStringLiteral("Groceries"));
    QCOMPARE(spending[0].total, qint64(-9000));
    const auto listed = m_reports->transactions(day, day, QString(), QString());
    QCOMPARE(listed.size(), 1);
    QCOMPARE(listed[0].category, QStringLiteral("Groceries"));
    // The lines' categories see nothing of it.
    QVERIFY(m_reports->transactions(day, day, QString(), QStringLiteral("rent")).isEmpty());
    QVERIFY(m_reports->taxReport(day, day).isEmpty());
}

void TstReportService::yearOverYearUnionOfCategories()
{
    const auto rows =
        m_reports->yearOverYear(QDate(2024, 2, 1), QDate(2024, 2, 29), kMarch1, kMarch31, QString());
    QStringList names;
    for (const Row &r : rows)
        names.append(r.category);
    QCOMPARE(names, QStringList({"Charity", "Groceries", "Salary", "Uncategorized"}));
    // In the second period only.
    QCOMPARE(rows[0].period1, qint64(0));
    QCOMPARE(rows[0].period2, qint64(-5000));
    QCOMPARE(rows[0].difference, qint64(-5000));
    QCOMPARE(rows[1].period1, qint64(-250));
    QCOMPARE(rows[1].period2, qint64(-13100));
    QCOMPARE(rows[1].difference, qint64(-12850));
    // Deposits count here, and the two legs of the transfer cancel.
    QCOMPARE(rows[2].period2, qint64(300000));
    QCOMPARE(rows[3].period2, qint64(0));

    // In the first period only, and the periods the other way round.
    const auto reversed = m_reports->yearOverYear(kMarch1, kMarch31, QDate(2024, 4, 1), QDate(2024, 4, 30),
                                                  QStringLiteral("chk"));
    QCOMPARE(reversed.size(), 4);
    QCOMPARE(reversed[0].category, QStringLiteral("Groceries"));
    QCOMPARE(reversed[0].difference, qint64(13100));
    QCOMPARE(reversed[1].category, QStringLiteral("Rent"));
    QCOMPARE(reversed[1].period1, qint64(0));
    QCOMPARE(reversed[1].difference, qint64(-150000));
    QCOMPARE(reversed[3].category, QStringLiteral("Uncategorized"));
    QCOMPARE(reversed[3].period1, qint64(-10000));
}

void TstReportService::accountSummary()
{
    CategoryRepository(m_db->database()).softDelete(QStringLiteral("groc"));
    QVERIFY(m_db->exec(QStringLiteral("UPDATE transactions SET cleared = 1 WHERE id IN ('t1', 't2')")));
    const auto rows = m_reports->accountSummary();
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows[0].name, QStringLiteral("Checking"));
    QCOMPARE(rows[0].accountType, QStringLiteral("checking"));
    QCOMPARE(rows[0].cleared, qint64(296000));
    QCOMPARE(rows[0].uncleared, qint64(-250 - 10000 - 9000 - 100 - 150000));
    QCOMPARE(rows[0].total, rows[0].cleared + rows[0].uncleared);
    QCOMPARE(rows[1].accountType, QStringLiteral("credit_card"));
    QCOMPARE(rows[1].total, qint64(5000));
    // No rows at all: the starting balance is cleared money and the total.
    QCOMPARE(rows[2].name, QStringLiteral("Piggy Bank"));
    QCOMPARE(rows[2].cleared, qint64(2500));
    QCOMPARE(rows[2].uncleared, qint64(0));
    QCOMPARE(rows[2].total, qint64(2500));

    QVERIFY(AccountRepository(m_db->database()).softDelete(QStringLiteral("card")));
    QCOMPARE(m_reports->accountSummary().size(), 2);
}

void TstReportService::taxReportIgnoresNothingButTaxRelevance()
{
    // A deleted category keeps its name in every report.
    QVERIFY(CategoryRepository(m_db->database()).softDelete(QStringLiteral("char")));
    const auto rows = m_reports->taxReport(kMarch1, kMarch31);
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows[0].category, QStringLiteral("Charity"));
    QCOMPARE(rows[0].taxCategory, QStringLiteral("charitable_contributions"));
    QCOMPARE(rows[0].total, qint64(-5000));
    QCOMPARE(m_reports->categorySpending(kMarch1, kMarch31, QString()).last().category,
             QStringLiteral("Charity"));
}

void TstReportService::transactionsReport()
{
    const auto rows = m_reports->transactions(QDate(2024, 3, 15), kMarch31, QString(), QString());
    QCOMPARE(rows.size(), 4);
    // Same date: by payee.
    QCOMPARE(rows[0].payee, QStringLiteral("Transfer from Checking"));
    QCOMPARE(rows[0].account, QStringLiteral("Visa"));
    QCOMPARE(rows[0].category, QString());
    QCOMPARE(rows[1].payee, QStringLiteral("Transfer to Visa"));
    QCOMPARE(rows[1].amount, qint64(-10000));
    QCOMPARE(rows[3].date, kMarch31);
    QCOMPARE(rows[3].category, QStringLiteral("Groceries"));

    const auto groceries =
        m_reports->transactions(kMarch1, kMarch31, QStringLiteral("chk"), QStringLiteral("groc"));
    QCOMPARE(groceries.size(), 3);
}

void TstReportService::emptyRangeGivesNothing()
{
    const QDate from(2030, 1, 1), to(2030, 12, 31);
    QVERIFY(m_reports->categorySpending(from, to, QString()).isEmpty());
    QVERIFY(m_reports->payeeSummary(from, to, QString()).isEmpty());
    QVERIFY(m_reports->taxReport(from, to).isEmpty());
    QVERIFY(m_reports->incomeVsExpenses(from, to, QString()).isEmpty());
    QVERIFY(m_reports->cashFlow(from, to, QString()).isEmpty());
    QVERIFY(m_reports->yearOverYear(from, to, from, to, QString()).isEmpty());
    QVERIFY(m_reports->transactions(from, to, QString(), QString()).isEmpty());
    // A range the wrong way round is empty too, not swapped.
    QVERIFY(m_reports->cashFlow(kMarch31, kMarch1, QString()).isEmpty());
}

void TstReportService::csvQuotesEveryCell()
{
    const QString csv = ReportService::toCsv(
        {
            "Payee", "Total"
    },
        {{"a\"b", "-$1,234.50"}, {"", "0"}});
    QCOMPARE(csv, QStringLiteral("\"Payee\",\"Total\"\n\"a\"\"b\",\"-$1,234.50\"\n\"\",\"0\"\n"));
    QCOMPARE(ReportService::toCsv({"Month"}, {}), QStringLiteral("\"Month\"\n"));
}

QTEST_GUILESS_MAIN(TstReportService)
#include "tst_reportservice.moc"
