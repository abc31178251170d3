#include "ui/ReportsScreen.h"

#include "core/AppState.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/Prompt.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Preset = ReportsScreen::DatePreset;

class TstReportsScreen : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void datePresets_data();
    void datePresets();
    void comparisonPresets();
    void allTimeFillsEveryTabWithTotals();
    void accountFilterLeavesTheTaxReportAlone();
    void customShowsTheDateEdits();
    void changingTabKeepsTheFilters();
    void exportWritesTheShownCells();
    void exportDoesNothingWithoutRowsOrAName();
    void transactionItemsAreMadeAsTheyArePainted();
    void staysCurrentOnlyWhileVisible();

private:
    void addHousehold();
    QComboBox *combo(const char *name) const { return m_screen->findChild<QComboBox *>(QLatin1String(name)); }
    QStringList column(ReportsScreen::Tab tab, int column) const;

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<ReportsScreen> m_screen;
};

namespace {
constexpr int kAllTime = 9;
constexpr int kCustom = 10;
} // namespace

void TstReportsScreen::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
    m_screen = std::make_unique<ReportsScreen>(m_state.get());
}

void TstReportsScreen::cleanup()
{
    m_screen.reset();
    m_state.reset();
}

// Two accounts with a transfer between them, a salary, and spending in a tax-relevant category.
void TstReportsScreen::addHousehold()
{
    Account checking = Fixtures::account(QStringLiteral("chk"), QStringLiteral("Checking"));
    Account card = Fixtures::account(QStringLiteral("card"), QStringLiteral("Visa"), 1000);
    card.accountType = AccountType::CreditCard;
    card.sortOrder = 1;
    QVERIFY(m_state->accounts()->insert(checking) && m_state->accounts()->insert(card));
    const QString charity = m_state->categories()->getByName(QStringLiteral("Charitable Donations"))->id;

    TransactionRepository *t = m_state->transactions();
    QVERIFY(t->insert(Fixtures::transaction("a", "chk", QDate(2024, 3, 10), "Employer", 300000)));
    Transaction gift = Fixtures::transaction("b", "card", QDate(2024, 4, 8), "Red \"Cross\"", -5000);
    gift.categoryId = charity;
    QVERIFY(t->insert(gift));
    Transaction out = Fixtures::transaction("x1", "chk", QDate(2024, 4, 15), "Transfer to Visa", -10000);
    out.transferLinkId = QStringLiteral("x2");
    Transaction in = Fixtures::transaction("x2", "card", QDate(2024, 4, 15), "Transfer from Checking", 10000);
    in.transferLinkId = QStringLiteral("x1");
    QVERIFY(t->insert(out) && t->insert(in));
}

QStringList TstReportsScreen::column(ReportsScreen::Tab tab, int column) const
{
    QStringList cells;
    for (int row = 0; row < m_screen->table(tab)->rowCount(); ++row)
        cells.append(m_screen->cellText(tab, row, column));
    return cells;
}

void TstReportsScreen::datePresets_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<int>("index");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    const QDate leap(2024, 3, 31);
    QTest::newRow("last month from 31 March") << leap << 1 << QDate(2024, 2, 1) << QDate(2024, 2, 29);
    QTest::newRow("this quarter on its last day") << leap << 2 << QDate(2024, 1, 1) << leap;
    QTest::newRow("last quarter over a year end") << leap << 3 << QDate(2023, 10, 1) << QDate(2023, 12, 31);
    QTest::newRow("last 30 days over February") << leap << 6 << QDate(2024, 3, 1) << leap;
    QTest::newRow("last 12 months") << leap << 8 << QDate(2023, 3, 31) << leap;
    QTest::newRow("12 months from a leap day")
        << QDate(2024, 2, 29) << 8 << QDate(2023, 2, 28) << QDate(2024, 2, 29);
    const QDate newYear(2025, 1, 1);
    QTest::newRow("this month on 1 January") << newYear << 0 << newYear << newYear;
    QTest::newRow("last month on 1 January") << newYear << 1 << QDate(2024, 12, 1) << QDate(2024, 12, 31);
    QTest::newRow("this year on 1 January") << newYear << 4 << newYear << newYear;
    QTest::newRow("last year") << newYear << 5 << QDate(2024, 1, 1) << QDate(2024, 12, 31);
    QTest::newRow("last 90 days") << newYear << 7 << QDate(2024, 10, 3) << newYear;
    QTest::newRow("all time has a floor") << newYear << kAllTime << QDate(2000, 1, 1) << newYear;
    QTest::newRow("custom has no dates") << newYear << kCustom << QDate() << QDate();
}

void TstReportsScreen::datePresets()
{
    QFETCH(QDate, today);
    QFETCH(int, index);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    const QList<Preset> presets = ReportsScreen::datePresets(today);
    QCOMPARE(presets.size(), 11);
    QCOMPARE(presets[index].from, from);
    QCOMPARE(presets[index].to, to);
}

void TstReportsScreen::comparisonPresets()
{
    const auto presets = ReportsScreen::comparisonPresets(QDate(2024, 5, 15));
    QCOMPARE(presets.size(), 4);
    QCOMPARE(presets[0].from1, QDate(2023, 1, 1));
    QCOMPARE(presets[0].to1, QDate(2023, 12, 31));
    QCOMPARE(presets[0].to2, QDate(2024, 5, 15));
    QCOMPARE(presets[1].from1, QDate(2022, 1, 1));
    QCOMPARE(presets[1].to2, QDate(2023, 12, 31));
    QCOMPARE(presets[2].from1, QDate(2024, 1, 1));
    QCOMPARE(presets[2].to1, QDate(2024, 3, 31));
    QCOMPARE(presets[2].from2, QDate(2024, 4, 1));
    QVERIFY(!presets[3].from1.isValid());
}

void TstReportsScreen::allTimeFillsEveryTabWithTotals()
{
    addHousehold();
    m_screen->refresh();
    combo("periodCombo")->setCurrentIndex(kAllTime);

    QCOMPARE(column(ReportsScreen::CategorySpending, 0),
             QStringList({"Uncategorized", "Charitable Donations"}));
    QCOMPARE(column(ReportsScreen::CategorySpending, 1), QStringList({"-$100.00", "-$50.00"}));
    QCOMPARE(column(ReportsScreen::PayeeSummary, 2).last(), QStringLiteral("1"));
    QCOMPARE(m_screen->table(ReportsScreen::PayeeSummary)->item(0, 2)->textAlignment(),
             int(Qt::AlignRight | Qt::AlignVCenter));

    // The transfer is in both cash-flow columns and nowhere in income and expenses.
    QCOMPARE(column(ReportsScreen::IncomeVsExpenses, 0), QStringList({"2024-03", "2024-04", "Total"}));
    QCOMPARE(column(ReportsScreen::IncomeVsExpenses, 2), QStringList({"$0.00", "-$50.00", "-$50.00"}));
    QCOMPARE(column(ReportsScreen::CashFlow, 1), QStringList({"$3,000.00", "$100.00", "$3,100.00"}));
    QCOMPARE(column(ReportsScreen::CashFlow, 2), QStringList({"$0.00", "-$150.00", "-$150.00"}));
    QCOMPARE(column(ReportsScreen::CashFlow, 3).last(), QStringLiteral("$2,950.00"));
    QVERIFY(m_screen->table(ReportsScreen::CashFlow)->item(2, 3)->font().bold());
    QVERIFY(!m_screen->table(ReportsScreen::CashFlow)->item(1, 3)->font().bold());

    QCOMPARE(column(ReportsScreen::AccountSummary, 1), QStringList({"Checking", "Credit Card"}));
    QCOMPARE(column(ReportsScreen::AccountSummary, 2), QStringList({"$0.00", "$10.00"}));
    QCOMPARE(column(ReportsScreen::AccountSummary, 4), QStringList({"$2,900.00", "$60.00"}));
    QCOMPARE(column(ReportsScreen::Transactions, 2).size(), 4);
    QCOMPARE(column(ReportsScreen::Transactions, 0).first(),
             QLocale().toString(QDate(2024, 3, 10), QLocale::ShortFormat));
    // The comparison runs on its own dates: this year against last, with nothing in either.
    QCOMPARE(m_screen->table(ReportsScreen::YearOverYear)->rowCount(), 0);
}

void TstReportsScreen::accountFilterLeavesTheTaxReportAlone()
{
    addHousehold();
    m_screen->refresh();
    combo("periodCombo")->setCurrentIndex(kAllTime);
    combo("accountCombo")->setCurrentIndex(combo("accountCombo")->findData(QStringLiteral("chk")));
    QCOMPARE(column(ReportsScreen::Transactions, 2), QStringList({"Employer", "Transfer to Visa"}));
    QCOMPARE(column(ReportsScreen::TaxReport, 1), QStringList({"charitable_contributions"}));
    QCOMPARE(m_screen->table(ReportsScreen::AccountSummary)->rowCount(), 2);
}

void TstReportsScreen::customShowsTheDateEdits()
{
    m_screen->show();
    auto *label = m_screen->findChild<QLabel *>(QStringLiteral("rangeLabel"));
    auto *from = m_screen->findChild<QDateEdit *>(QStringLiteral("fromEdit"));
    const QDate today = QDate::currentDate();
    QCOMPARE(label->text(),
             QStringLiteral("%1 – %2").arg(
                 QLocale().toString(QDate(today.year(), today.month(), 1), QLocale::ShortFormat),
                 QLocale().toString(today, QLocale::ShortFormat)));
    QVERIFY(label->isVisible() && !from->isVisible());

    combo("periodCombo")->setCurrentIndex(kCustom);
    QVERIFY(!label->isVisible() && from->isVisible());
    // The edits start from the dates of the preset before.
    QCOMPARE(from->date(), QDate(today.year(), today.month(), 1));

    addHousehold();
    from->setDate(QDate(2024, 4, 1));
    m_screen->findChild<QDateEdit *>(QStringLiteral("toEdit"))->setDate(QDate(2024, 4, 30));
    QCOMPARE(column(ReportsScreen::Transactions, 2).size(), 3);

    auto *compare = combo("compareCombo");
    auto *compareLabel = m_screen->findChild<QLabel *>(QStringLiteral("compareLabel"));
    auto *from1 = m_screen->findChild<QDateEdit *>(QStringLiteral("from1Edit"));
    m_screen->findChild<QTabWidget *>()->setCurrentIndex(ReportsScreen::YearOverYear);
    QVERIFY(compareLabel->isVisible() && !from1->isVisible());
    compare->setCurrentIndex(3);
    QVERIFY(!compareLabel->isVisible() && from1->isVisible());
    from1->setDate(QDate(2024, 3, 1));
    m_screen->findChild<QDateEdit *>(QStringLiteral("to1Edit"))->setDate(QDate(2024, 3, 31));
    m_screen->findChild<QDateEdit *>(QStringLiteral("from2Edit"))->setDate(QDate(2024, 4, 1));
    m_screen->findChild<QDateEdit *>(QStringLiteral("to2Edit"))->setDate(QDate(2024, 4, 30));
    QCOMPARE(column(ReportsScreen::YearOverYear, 0), QStringList({"Charitable Donations", "Uncategorized"}));
    QCOMPARE(column(ReportsScreen::YearOverYear, 1), QStringList({"$0.00", "$3,000.00"}));
    QCOMPARE(column(ReportsScreen::YearOverYear, 3), QStringList({"-$50.00", "-$3,000.00"}));
}

void TstReportsScreen::changingTabKeepsTheFilters()
{
    addHousehold();
    m_screen->refresh();
    combo("periodCombo")->setCurrentIndex(kAllTime);
    combo("accountCombo")->setCurrentIndex(2);
    auto *tabs = m_screen->findChild<QTabWidget *>();
    for (int tab = 0; tab < ReportsScreen::TabCount; ++tab)
        tabs->setCurrentIndex(tab);
    QCOMPARE(combo("periodCombo")->currentIndex(), kAllTime);
    QCOMPARE(combo("accountCombo")->currentData().toString(), QStringLiteral("card"));
    QCOMPARE(column(ReportsScreen::Transactions, 2).size(), 2);
}

void TstReportsScreen::exportWritesTheShownCells()
{
    addHousehold();
    m_screen->refresh();
    combo("periodCombo")->setCurrentIndex(kAllTime);
    m_screen->findChild<QTabWidget *>()->setCurrentIndex(ReportsScreen::PayeeSummary);

    const QString path = m_dir.filePath(QStringLiteral("payees.csv"));
    Prompt::setNextFileName(path);
    QTest::mouseClick(m_screen->findChild<QPushButton *>(QStringLiteral("exportButton")), Qt::LeftButton);
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Export CSV"));
    QCOMPARE(Prompt::lastText(),
             QDir(Prompt::startDirectory()).filePath(QStringLiteral("payee_summary.csv")));

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(!bytes.startsWith("\xEF\xBB\xBF"));
    QCOMPARE(bytes, QByteArray("\"Payee\",\"Total\",\"Count\"\n"
                               "\"Transfer to Visa\",\"-$100.00\",\"1\"\n"
                               "\"Red \"\"Cross\"\"\",\"-$50.00\",\"1\"\n"
                               "\"Transfer from Checking\",\"$100.00\",\"1\"\n"
                               "\"Employer\",\"$3,000.00\",\"1\"\n"));

    // The totals go along, as shown.
    m_screen->findChild<QTabWidget *>()->setCurrentIndex(ReportsScreen::CashFlow);
    Prompt::setNextFileName(path);
    QTest::mouseClick(m_screen->findChild<QPushButton *>(QStringLiteral("exportButton")), Qt::LeftButton);
    file.close();
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().endsWith("\"Total\",\"$3,100.00\",\"-$150.00\",\"$2,950.00\"\n"));
}

void TstReportsScreen::exportDoesNothingWithoutRowsOrAName()
{
    m_screen->refresh();
    auto *tabs = m_screen->findChild<QTabWidget *>();
    auto *button = m_screen->findChild<QPushButton *>(QStringLiteral("exportButton"));
    const QString path = m_dir.filePath(QStringLiteral("empty.csv"));
    // An empty tab asks nothing, so the scripted name is still waiting for the next question.
    tabs->setCurrentIndex(ReportsScreen::CategorySpending);
    Prompt::setNextFileName(path);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!QFile::exists(path));

    // A month list without months still has its Total row, so this tab asks.
    tabs->setCurrentIndex(ReportsScreen::CashFlow);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(QFile::exists(path));

    QVERIFY(QFile::remove(path));
    Prompt::setNextFileName(QString());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!QFile::exists(path));
}

void TstReportsScreen::transactionItemsAreMadeAsTheyArePainted()
{
    QVERIFY(
        m_state->accounts()->insert(Fixtures::account(QStringLiteral("chk"), QStringLiteral("Checking"))));
    for (int i = 0; i < 300; ++i) {
        QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
            QString::number(i), "chk", QDate(2024, 1, 1).addDays(i), QStringLiteral("Payee %1").arg(i), -i)));
    }
    m_screen->resize(800, 600);
    m_screen->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
    m_screen->refresh();
    combo("periodCombo")->setCurrentIndex(kAllTime);
    m_screen->findChild<QTabWidget *>()->setCurrentIndex(ReportsScreen::Transactions);
    QTableWidget *table = m_screen->table(ReportsScreen::Transactions);
    QCOMPARE(table->rowCount(), 300);
    QTRY_VERIFY(table->item(0, 0));
    QCOMPARE(table->item(0, 2)->text(), QStringLiteral("Payee 0"));
    QCOMPARE(table->item(0, 5)->textAlignment(), int(Qt::AlignRight | Qt::AlignVCenter));
    QVERIFY(!table->item(299, 0));

    // Unpainted rows export all the same.
    const QString path = m_dir.filePath(QStringLiteral("transactions.csv"));
    Prompt::setNextFileName(path);
    QTest::mouseClick(m_screen->findChild<QPushButton *>(QStringLiteral("exportButton")), Qt::LeftButton);
    QCOMPARE(Prompt::lastText(), QDir(Prompt::startDirectory()).filePath(QStringLiteral("transactions.csv")));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    QCOMPARE(lines.size(), 302);
    QCOMPARE(lines[300],
             QByteArray("\"") +
                 QLocale().toString(QDate(2024, 1, 1).addDays(299), QLocale::ShortFormat).toUtf8() +
                 "\",\"Checking\",\"Payee 299\",\"\",\"\",\"-$2.99\"");

    table->scrollToBottom();
    QTRY_VERIFY(table->item(299, 0));
    QCOMPARE(table->item(299, 5)->text(), QStringLiteral("-$2.99"));
}

void TstReportsScreen::staysCurrentOnlyWhileVisible()
{
    addHousehold();
    m_screen->refresh();
    combo("periodCombo")->setCurrentIndex(kAllTime);
    QCOMPARE(m_screen->table(ReportsScreen::Transactions)->rowCount(), 4);

    QVERIFY(m_state->transactions()->insert(
        Fixtures::transaction("c", "chk", QDate(2024, 5, 1), "Bakery", -700)));
    QTest::qWait(20);
    QCOMPARE(m_screen->table(ReportsScreen::Transactions)->rowCount(), 4);

    m_screen->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
    QVERIFY(m_state->transactions()->insert(
        Fixtures::transaction("d", "chk", QDate(2024, 5, 2), "Bakery", -800)));
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("new"), QStringLiteral("Wallet"))));
    QTRY_COMPARE(m_screen->table(ReportsScreen::Transactions)->rowCount(), 6);
    QCOMPARE(combo("accountCombo")->count(), 4);
    QCOMPARE(combo("periodCombo")->currentIndex(), kAllTime);
}

QTEST_MAIN(TstReportsScreen)
#include "tst_reportsscreen.moc"
