#include "ui/ReportsScreen.h"

#include "data/CategoryRepository.h"
#include "support/Columns.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/Prompt.h"

#include <QtTest>
#include <QtWidgets>

#include <optional>

using namespace Qt::StringLiterals;

namespace {
constexpr int kAllTime = 9;
constexpr int kCustom = 10;
using R = ReportsScreen;
} // namespace

class TstReportsScreen : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_state;
    std::optional<ReportsScreen> m_screen;

    QComboBox *combo(const char *name) { return child<QComboBox>(&*m_screen, name); }
    QDateEdit *dateEdit(const char *name) { return child<QDateEdit>(&*m_screen, name); }
    QTabWidget *tabs() { return m_screen->findChild<QTabWidget *>(); }
    QStringList column(R::Tab tab, int column)
    {
        QStringList cells;
        for (int row = 0; row < m_screen->table(tab)->rowCount(); ++row)
            cells.append(m_screen->cellText(tab, row, column));
        return cells;
    }
    // Exports the tab and gives back what was written. The question for a file name gets the export file,
    // an empty answer (a cancel) or, with Script::None, whatever was scripted before.
    enum class Script { Name, Cancel, None };
    QByteArray exported(R::Tab tab, Script script = Script::Name)
    {
        const QString path = m_state->directory() + u"/export.csv"_s;
        QFile::remove(path);
        tabs()->setCurrentIndex(tab);
        if (script != Script::None)
            Prompt::setNextFileName(script == Script::Name ? path : QString());
        QTest::mouseClick(child<QPushButton>(&*m_screen, "exportButton"), Qt::LeftButton);
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Two accounts with a transfer between them, a salary, and spending in a tax-relevant category, all time.
    void addHousehold()
    {
        Account card = Fixtures::account("card", "Visa", 1000);
        card.accountType = AccountType::CreditCard;
        card.sortOrder = 1;
        QVERIFY(m_state->get()->accounts()->insert(Fixtures::account("chk", "Checking")));
        QVERIFY(m_state->get()->accounts()->insert(card));
        TransactionRepository *t = m_state->get()->transactions();
        QVERIFY(t->insert(Fixtures::transaction("a", "chk", QDate(2024, 3, 10), "Employer", 300000)));
        Transaction gift = Fixtures::transaction("b", "card", QDate(2024, 4, 8), "Red \"Cross\"", -5000);
        gift.categoryId = m_state->get()->categories()->getByName(u"Charitable Donations"_s)->id;
        QVERIFY(t->insert(gift));
        Transaction out = Fixtures::transaction("x1", "chk", QDate(2024, 4, 15), "Transfer to Visa", -10000);
        out.transferLinkId = u"x2"_s;
        Transaction in =
            Fixtures::transaction("x2", "card", QDate(2024, 4, 15), "Transfer from Checking", 10000);
        in.transferLinkId = u"x1"_s;
        QVERIFY(t->insert(out) && t->insert(in));
        m_screen->refresh();
        combo("periodCombo")->setCurrentIndex(kAllTime);
    }

private slots:
    void init()
    {
        m_screen.reset();
        QVERIFY(m_state.emplace().ok());
        m_screen.emplace(m_state->get());
    }

    void datePresets_data()
    {
        addColumns<QDate, int, QDate, QDate>({"today", "index", "from", "to"});
        using D = QDate;
        const D leap(2024, 3, 31), newYear(2025, 1, 1);
        QTest::newRow("last month from 31 March") << leap << 1 << D(2024, 2, 1) << D(2024, 2, 29);
        QTest::newRow("last quarter over a year end") << leap << 3 << D(2023, 10, 1) << D(2023, 12, 31);
        QTest::newRow("last 30 days over February") << leap << 6 << D(2024, 3, 1) << leap;
        QTest::newRow("12 months from a leap day") << D(2024, 2, 29) << 8 << D(2023, 2, 28) << D(2024, 2, 29);
        QTest::newRow("this month on 1 January") << newYear << 0 << newYear << newYear;
        QTest::newRow("last year") << newYear << 5 << D(2024, 1, 1) << D(2024, 12, 31);
        QTest::newRow("last 90 days") << newYear << 7 << D(2024, 10, 3) << newYear;
        QTest::newRow("all time has a floor") << newYear << kAllTime << D(2000, 1, 1) << newYear;
        QTest::newRow("custom has no dates") << newYear << kCustom << D() << D();
    }

    void datePresets()
    {
        QFETCH(QDate, today);
        QFETCH(int, index);
        QFETCH(QDate, from);
        QFETCH(QDate, to);
        const R::DatePreset preset = R::datePresets(today).at(index);
        QCOMPARE(QList<QDate>({preset.from, preset.to}), QList<QDate>({from, to}));
    }

    void comparisonPresets()
    {
        QStringList got;
        for (const auto &p : R::comparisonPresets(QDate(2024, 5, 15)))
            got << u"%1 %2 %3 %4"_s.arg(p.from1.toString(Qt::ISODate), p.to1.toString(Qt::ISODate),
                                        p.from2.toString(Qt::ISODate), p.to2.toString(Qt::ISODate));
        QCOMPARE(got, QStringList({"2023-01-01 2023-12-31 2024-01-01 2024-05-15",
                                   "2022-01-01 2022-12-31 2023-01-01 2023-12-31",
                                   "2024-01-01 2024-03-31 2024-04-01 2024-05-15", "   "}));
    }

    void allTimeFillsEveryTabWithTotals()
    {
        addHousehold();
        QCOMPARE(column(R::CategorySpending, 0), QStringList({"Uncategorized", "Charitable Donations"}));
        QCOMPARE(column(R::CategorySpending, 1), QStringList({"-$100.00", "-$50.00"}));
        QCOMPARE(column(R::PayeeSummary, 2).last(), u"1"_s);
        // The transfer is in both cash-flow columns and nowhere in income and expenses.
        QCOMPARE(column(R::IncomeVsExpenses, 2), QStringList({"$0.00", "-$50.00", "-$50.00"}));
        QCOMPARE(column(R::CashFlow, 2), QStringList({"$0.00", "-$150.00", "-$150.00"}));
        QVERIFY(m_screen->table(R::CashFlow)->item(2, 3)->font().bold());
        QVERIFY(!m_screen->table(R::CashFlow)->item(1, 3)->font().bold());
        QCOMPARE(column(R::AccountSummary, 1), QStringList({"Checking", "Credit Card"}));
        QCOMPARE(column(R::AccountSummary, 4), QStringList({"$2,900.00", "$60.00"}));
        QCOMPARE(column(R::Transactions, 0).first(),
                 QLocale().toString(QDate(2024, 3, 10), QLocale::ShortFormat));
        // The comparison runs on its own dates: this year against last, with nothing in either.
        QCOMPARE(m_screen->table(R::YearOverYear)->rowCount(), 0);

        // The account filter leaves the tax report alone, and changing tabs keeps the filters.
        combo("accountCombo")->setCurrentIndex(combo("accountCombo")->findData(u"chk"_s));
        for (int tab = 0; tab < R::TabCount; ++tab)
            tabs()->setCurrentIndex(tab);
        QCOMPARE(combo("periodCombo")->currentIndex(), kAllTime);
        QCOMPARE(column(R::Transactions, 2), QStringList({"Employer", "Transfer to Visa"}));
        QCOMPARE(column(R::TaxReport, 1), QStringList({"charitable_contributions"}));
        QCOMPARE(m_screen->table(R::AccountSummary)->rowCount(), 2);
    }

    void customShowsTheDateEdits()
    {
        m_screen->show();
        auto *label = child<QLabel>(&*m_screen, "rangeLabel");
        const QDate today = QDate::currentDate(), first(today.year(), today.month(), 1);
        QCOMPARE(label->text(), u"%1 – %2"_s.arg(QLocale().toString(first, QLocale::ShortFormat),
                                                 QLocale().toString(today, QLocale::ShortFormat)));
        QVERIFY(label->isVisible() && !dateEdit("fromEdit")->isVisible());
        combo("periodCombo")->setCurrentIndex(kCustom);
        QVERIFY(!label->isVisible() && dateEdit("fromEdit")->isVisible());
        // The edits start from the dates of the preset before.
        QCOMPARE(dateEdit("fromEdit")->date(), first);
        addHousehold();
        combo("periodCombo")->setCurrentIndex(kCustom);
        dateEdit("fromEdit")->setDate(QDate(2024, 4, 1));
        dateEdit("toEdit")->setDate(QDate(2024, 4, 30));
        QCOMPARE(column(R::Transactions, 2).size(), 3);

        auto *compareLabel = child<QLabel>(&*m_screen, "compareLabel");
        tabs()->setCurrentIndex(R::YearOverYear);
        QVERIFY(compareLabel->isVisible() && !dateEdit("from1Edit")->isVisible());
        combo("compareCombo")->setCurrentIndex(3);
        QVERIFY(!compareLabel->isVisible() && dateEdit("from1Edit")->isVisible());
        dateEdit("from1Edit")->setDate(QDate(2024, 3, 1));
        dateEdit("to1Edit")->setDate(QDate(2024, 3, 31));
        dateEdit("from2Edit")->setDate(QDate(2024, 4, 1));
        dateEdit("to2Edit")->setDate(QDate(2024, 4, 30));
        QCOMPARE(column(R::YearOverYear, 0) + column(R::YearOverYear, 3),
                 QStringList({"Charitable Donations", "Uncategorized", "-$50.00", "-$3,000.00"}));
    }

    void exportWritesTheShownCells()
    {
        m_screen->refresh();
        // An empty tab asks nothing, so the name scripted for it waits for the next question, which the
        // month list asks: without months it still has its Total row.
        QCOMPARE(exported(R::CategorySpending), QByteArray());
        QCOMPARE(exported(R::CashFlow, Script::None).count('\n'), 2);
        QCOMPARE(exported(R::CashFlow, Script::Cancel), QByteArray());

        addHousehold();
        const QByteArray payees = exported(R::PayeeSummary);
        QCOMPARE(Prompt::lastTitle(), u"Export CSV"_s);
        QCOMPARE(Prompt::lastText(), QDir(Prompt::startDirectory()).filePath(u"payee_summary.csv"_s));
        QCOMPARE(
            payees,
            QByteArray("\"Payee\",\"Total\",\"Count\"\n\"Transfer to Visa\",\"-$100.00\",\"1\"\n"
                       "\"Red \"\"Cross\"\"\",\"-$50.00\",\"1\"\n"
                       "\"Transfer from Checking\",\"$100.00\",\"1\"\n\"Employer\",\"$3,000.00\",\"1\"\n"));
        // The totals go along, as shown.
        QVERIFY(exported(R::CashFlow).endsWith("\"Total\",\"$3,100.00\",\"-$150.00\",\"$2,950.00\"\n"));
    }

    void transactionItemsAreMadeAsTheyArePainted()
    {
        QVERIFY(m_state->get()->accounts()->insert(Fixtures::account("chk", "Checking")));
        for (int i = 0; i < 300; ++i)
            QVERIFY(m_state->get()->transactions()->insert(Fixtures::transaction(
                QString::number(i), "chk", QDate(2024, 1, 1).addDays(i), u"Payee %1"_s.arg(i), -i)));
        m_screen->resize(800, 600);
        m_screen->show();
        QVERIFY(QTest::qWaitForWindowExposed(&*m_screen));
        m_screen->refresh();
        combo("periodCombo")->setCurrentIndex(kAllTime);
        tabs()->setCurrentIndex(R::Transactions);
        QTableWidget *table = m_screen->table(R::Transactions);
        QCOMPARE(table->rowCount(), 300);
        QTRY_VERIFY(table->item(0, 0));
        QCOMPARE(table->item(0, 5)->textAlignment(), int(Qt::AlignRight | Qt::AlignVCenter));
        QVERIFY(!table->item(299, 0));
        // Unpainted rows export all the same.
        const QList<QByteArray> lines = exported(R::Transactions).split('\n');
        QCOMPARE(Prompt::lastText(), QDir(Prompt::startDirectory()).filePath(u"transactions.csv"_s));
        QCOMPARE(lines.size(), 302);
        QCOMPARE(lines[300],
                 "\"" + QLocale().toString(QDate(2024, 1, 1).addDays(299), QLocale::ShortFormat).toUtf8() +
                     "\",\"Checking\",\"Payee 299\",\"\",\"\",\"-$2.99\"");
        table->scrollToBottom();
        QTRY_VERIFY(table->item(299, 0));
        QCOMPARE(table->item(299, 5)->text(), u"-$2.99"_s);
    }

    void staysCurrentOnlyWhileVisible()
    {
        addHousehold();
        QCOMPARE(m_screen->table(R::Transactions)->rowCount(), 4);
        TransactionRepository *t = m_state->get()->transactions();
        QVERIFY(t->insert(Fixtures::transaction("c", "chk", QDate(2024, 5, 1), "Bakery", -700)));
        QTest::qWait(20);
        QCOMPARE(m_screen->table(R::Transactions)->rowCount(), 4);
        m_screen->show();
        QVERIFY(QTest::qWaitForWindowExposed(&*m_screen));
        QVERIFY(t->insert(Fixtures::transaction("d", "chk", QDate(2024, 5, 2), "Bakery", -800)));
        QVERIFY(m_state->get()->accounts()->insert(Fixtures::account("new", "Wallet")));
        QTRY_COMPARE(m_screen->table(R::Transactions)->rowCount(), 6);
        QCOMPARE(combo("accountCombo")->count(), 4);
        QCOMPARE(combo("periodCombo")->currentIndex(), kAllTime);
    }
};

QTEST_MAIN(TstReportsScreen)
#include "tst_reportsscreen.moc"
