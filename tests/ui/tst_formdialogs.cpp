// The forms that make and edit records: accounts, categories, recurring rules, transactions with their
// splits, and the details of one transaction.
#include "support/Columns.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/AccountFormDialog.h"
#include "ui/CategoryFormDialog.h"
#include "ui/Prompt.h"
#include "ui/RecurringFormDialog.h"
#include "ui/SplitEditorDialog.h"
#include "ui/TransactionDetailsDialog.h"
#include "ui/TransactionFormDialog.h"
#include "ui/register/DateField.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

Category storedCategory(CategoryType type)
{
    Category c = Fixtures::category("cat-1", "Gifts", "cat-parent", type, "charitable_contributions");
    c.version = 3;
    c.createdAt = QDateTime(QDate(2022, 1, 2), QTime(3, 4, 5), Qt::UTC);
    return c;
}

const QList<Account> kAccounts{Fixtures::account("acc-checking", "Checking"),
                               Fixtures::account("acc-card", "Card")};
const QList<Category> kCategories{Fixtures::category("cat-rent", "Rent")};

RecurringTransaction storedRule()
{
    RecurringTransaction r = Fixtures::rule("rule-1", "acc-card", QDate(2024, 7, 15), -120000);
    r.categoryId = u"cat-rent"_s;
    r.startDate = QDate(2024, 1, 15);
    r.version = 5;
    return r;
}

QDoubleSpinBox *amountAt(QTableWidget *table, int row)
{
    return static_cast<QDoubleSpinBox *>(table->cellWidget(row, 1));
}

const QList<QPair<QString, QString>> kSplitCategories{
    {u"food"_s, u"Food"_s       },
    {u"fuel"_s, u"Auto > Fuel"_s}
};

} // namespace

class TstFormDialogs : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_app;
    AppState *s()
    {
        if (!m_app) {
            m_app.emplace();
            for (const Account &a : {Fixtures::account("home", "Home"), Fixtures::account("visa", "Visa"),
                                     Fixtures::account("save", "Savings")})
                m_app->get()->accounts()->insert(a);
        }
        return m_app->get();
    }
    QString groceries() { return s()->categories()->getByName(u"Groceries"_s)->id; }
    // A transfer from Home to Savings, both sides stored; the paying side is synced.
    std::pair<Transaction, Transaction> transfer()
    {
        Transaction out = Fixtures::transaction("out", "home", QDate(2026, 3, 1), "To savings", -12345);
        out.transferLinkId = u"in"_s;
        out.transferDestAccountId = u"save"_s;
        out.syncStatus = SyncStatus::Synced;
        Transaction in = Fixtures::transaction("in", "save", QDate(2026, 3, 1), "Transfer from Home", 12345);
        in.transferLinkId = u"out"_s;
        in.transferDestAccountId = u"home"_s;
        [&] { QVERIFY(s()->transactions()->insert(in) && s()->transactions()->insert(out)); }();
        return {out, in};
    }

private slots:
    // Only the forms that read the household get one.
    void init() { m_app.reset(); }

    // Whatever the double, the record must hold what the user sees: 0.29 sits below 29 cents, -0.285 shows
    // as -0.28.
    void accountBalanceIsTheShownValueInCents()
    {
        AccountFormDialog dialog;
        QStringList cents;
        for (const double value : {0.29, -0.285, 1.005, -99999999.99}) {
            child<QDoubleSpinBox>(&dialog, "balanceSpin")->setValue(value);
            cents << QString::number(dialog.account().startingBalance);
        }
        QCOMPARE(cents, QStringList({"29", "-28", "100", "-9999999999"}));
    }

    void newAccountTrimsAndGetsFreshIdentity()
    {
        AccountFormDialog dialog;
        QCOMPARE(dialog.windowTitle(), u"New Account"_s);
        child<QLineEdit>(&dialog, "nameEdit")->setText(u"   "_s);
        child<QLineEdit>(&dialog, "institutionEdit")->setText(u" First Bank "_s);
        child<QComboBox>(&dialog, "typeCombo")->setCurrentIndex(2);
        child<QComboBox>(&dialog, "currencyCombo")->setCurrentIndex(5);
        const Account a = dialog.account();
        QCOMPARE(a.name + u'|' + a.institution, u"|First Bank"_s);
        QVERIFY(a.accountType == AccountType::CreditCard && a.currency == Currency::JPY);
        QVERIFY(a.id.size() == 36 && a.createdAt.isValid()); // a UUID without braces
        QCOMPARE(dialog.openingDate(), QDate::currentDate());
    }

    void editedAccountKeepsIdentityAndMapsUnknownKeys()
    {
        Account original = Fixtures::account("acc-1", "Old", -12345);
        original.accountType = static_cast<AccountType>(42);
        original.currency = static_cast<Currency>(17);
        original.syncStatus = SyncStatus::Synced;
        original.createdAt = QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7), Qt::UTC);
        AccountFormDialog dialog(original);
        QCOMPARE(dialog.windowTitle(), u"Edit Account"_s);
        const Account a = dialog.account();
        QVERIFY(a.id == original.id && a.createdAt == original.createdAt && a.startingBalance == -12345);
        QVERIFY(a.accountType == AccountType::Other && a.currency == Currency::USD);
        QCOMPARE(a.syncStatus, SyncStatus::Pending);
    }

    void newSubcategoryKeepsParent()
    {
        CategoryFormDialog top;
        QCOMPARE(top.windowTitle(), u"New Category"_s);
        QVERIFY(!child<QLabel>(&top, "parentLabel"));
        CategoryFormDialog dialog(u"cat-parent"_s, u"Housing"_s);
        QCOMPARE(dialog.windowTitle(), u"New Subcategory"_s);
        QCOMPARE(child<QLabel>(&dialog, "parentLabel")->text(), u"Housing"_s);
        child<QLineEdit>(&dialog, "nameEdit")->setText(u"  Rent "_s);
        child<QComboBox>(&dialog, "typeCombo")->setCurrentIndex(1);
        const Category c = dialog.category();
        QCOMPARE(c.name + u'|' + c.parentId, u"Rent|cat-parent"_s);
        QCOMPARE(c.categoryType, CategoryType::Income);
        QVERIFY(c.id.size() == 36 && c.createdAt.isValid());
    }

    void editedCategoryKeepsIdentity()
    {
        // A transfer category is edited as an expense.
        for (const auto &[type, expected] : {
                 std::pair{CategoryType::Income,   CategoryType::Income },
                 std::pair{CategoryType::Transfer, CategoryType::Expense}
        }) {
            const Category original = storedCategory(type);
            CategoryFormDialog dialog(original);
            QCOMPARE(dialog.windowTitle(), u"Edit Category"_s);
            const Category c = dialog.category();
            QVERIFY(c.id == original.id && c.createdAt == original.createdAt &&
                    c.parentId == original.parentId);
            QVERIFY(c.version == 3 && c.taxCategory == original.taxCategory);
            QCOMPARE(c.categoryType, expected);
            QVERIFY(child<QLineEdit>(&dialog, "taxCodeEdit")->isEnabled());
        }
    }

    void turningTaxOffClearsTheCode()
    {
        CategoryFormDialog dialog(storedCategory(CategoryType::Expense));
        auto *check = child<QCheckBox>(&dialog, "taxCheck");
        auto *code = child<QLineEdit>(&dialog, "taxCodeEdit");
        check->setChecked(false);
        QVERIFY(!code->isEnabled());
        QVERIFY(!child<QLabel>(&dialog, "taxCodeLabel")->isEnabled());
        check->setChecked(true);
        QCOMPARE(code->text(), QString()); // gone for good, not merely hidden while off
        code->setText(u" mortgage_interest "_s);
        QVERIFY(dialog.category().isTaxRelevant);
        QCOMPARE(dialog.category().taxCategory, u"mortgage_interest"_s);
    }

    void ruleAmountSignFollowsType()
    {
        RecurringFormDialog dialog(kAccounts, kCategories);
        QVERIFY(child<QRadioButton>(&dialog, "paymentRadio")->isChecked());
        QStringList amounts;
        for (const auto &[radio, value] : {
                 std::pair{"paymentRadio", 0.29},
                 std::pair{"depositRadio", 1.01}
        }) {
            child<QRadioButton>(&dialog, radio)->setChecked(true);
            child<QDoubleSpinBox>(&dialog, "amountSpin")->setValue(value);
            amounts << QString::number(dialog.recurring().amount);
        }
        QCOMPARE(amounts, QStringList({"-29", "101"}));
    }

    void ruleScheduleRestartsOnlyWhenTheStartDateChanges()
    {
        RecurringFormDialog dialog(storedRule(), kAccounts, kCategories);
        QCOMPARE(dialog.windowTitle(), u"Edit Recurring Transaction"_s);
        child<QLineEdit>(&dialog, "payeeEdit")->setText(u" New Landlord "_s);
        const auto schedule = [&dialog] {
            const RecurringTransaction r = dialog.recurring();
            return u"%1 %2 %3 %4 %5"_s
                .arg(r.payee, r.startDate.toString(Qt::ISODate), r.nextDueDate.toString(Qt::ISODate),
                     r.categoryId)
                .arg(r.amount);
        };
        QCOMPARE(schedule(), u"New Landlord 2024-01-15 2024-07-15 cat-rent -120000"_s);
        child<QDateEdit>(&dialog, "startDateEdit")->setDate(QDate(2024, 1, 16));
        QCOMPARE(schedule(), u"New Landlord 2024-01-16 2024-01-16 cat-rent -120000"_s);
    }

    void ruleStartBeforeFloorFallsBackToToday()
    {
        RecurringFormDialog dialog(kAccounts, kCategories);
        child<QDateEdit>(&dialog, "startDateEdit")->setDate(QDate(1999, 12, 31));
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^RecurringFormDialog: rejecting invalid startDate "
                                                ".*1999-12-31.* — falling back to today$"_s));
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^RecurringFormDialog: rejecting invalid nextDueDate "
                                                ".*1999-12-31.* — falling back to startDate "_s));
        const RecurringTransaction r = dialog.recurring();
        QVERIFY(r.startDate == QDate::currentDate() && r.nextDueDate == QDate::currentDate());
    }

    void ruleIdentityAndVersionByMode()
    {
        const RecurringTransaction original = storedRule();
        RecurringFormDialog edit(original, kAccounts, kCategories);
        QVERIFY(edit.recurring().id == original.id && edit.recurring().version == 6);

        std::unique_ptr<RecurringFormDialog> memorize(
            RecurringFormDialog::createFromSeed(original, kAccounts, kCategories));
        QCOMPARE(memorize->windowTitle(), u"Memorize Transaction"_s);
        const RecurringTransaction seeded = memorize->recurring();
        QVERIFY(seeded.id != original.id && seeded.version == 5 && seeded.accountId == u"acc-card");
        // A new rule starts where its seed is dated, whatever the seed said about its next date.
        QCOMPARE(seeded.nextDueDate, original.startDate);

        RecurringFormDialog fresh(kAccounts, kCategories);
        QCOMPARE(fresh.windowTitle(), u"New Recurring Transaction"_s);
        const RecurringTransaction created = fresh.recurring();
        QVERIFY(created.version == 1 && created.accountId == u"acc-checking" &&
                created.frequency == Frequency::Monthly);
        auto *end = child<QDateEdit>(&fresh, "endDateEdit");
        QVERIFY(!end->isEnabled());
        end->setDate(QDate(2030, 6, 30));
        QVERIFY(!fresh.recurring().endDate);
        child<QCheckBox>(&fresh, "endDateCheck")->setChecked(true);
        QVERIFY(end->isEnabled());
        QCOMPARE(fresh.recurring().endDate, std::optional<QDate>(QDate(2030, 6, 30)));
    }

    void splitLinesFollowType_data()
    {
        addColumns<bool, bool, qint64>({"paymentWhenSplit", "paymentAtEnd", "sign"});
        QTest::newRow("payment") << true << true << qint64(-1);
        QTest::newRow("deposit") << false << false << qint64(1);
        QTest::newRow("turned into a deposit after splitting") << true << false << qint64(1);
    }

    void splitLinesFollowType()
    {
        QFETCH(bool, paymentWhenSplit);
        QFETCH(bool, paymentAtEnd);
        QFETCH(qint64, sign);
        TransactionFormDialog dialog(s(), u"home"_s);
        child<QRadioButton>(&dialog, paymentWhenSplit ? "paymentRadio" : "depositRadio")->setChecked(true);
        child<QDoubleSpinBox>(&dialog, "amountSpin")->setValue(0.57);
        auto *combo = child<QComboBox>(&dialog, "categoryCombo");
        combo->setCurrentIndex(combo->findData(groceries()));
        Prompt::setNextDialogHandler([this](QDialog *editor) {
            auto *table = child<QTableWidget>(editor, "table");
            auto *category = static_cast<QComboBox *>(table->cellWidget(0, 0));
            category->setCurrentIndex(category->findData(groceries()));
            amountAt(table, 0)->setValue(0.29);
            // The second row stays at zero and must not become a line.
            editor->metaObject()->invokeMethod(editor, "addRow");
            amountAt(table, 2)->setValue(0.28);
            table->item(2, 2)->setText(u"rest"_s);
            return int(QDialog::Accepted);
        });
        child<QPushButton>(&dialog, "splitButton")->click();
        child<QRadioButton>(&dialog, paymentAtEnd ? "paymentRadio" : "depositRadio")->setChecked(true);
        QVERIFY(!combo->isEnabled());
        QCOMPARE(combo->currentText(), u"—Split—"_s);
        const Transaction t = dialog.transaction();
        QVERIFY(t.isSplit && t.categoryId.isEmpty());
        // 0.57 and 0.29 sit just below their cents: truncating would lose one.
        QCOMPARE(t.amount, sign * 57);
        QStringList lines;
        for (const SplitLine &line : dialog.splitLines())
            lines << u"%1 %2 %3"_s.arg(line.amount)
                         .arg(line.categoryId == groceries() ? u"groceries"_s : line.categoryId, line.memo);
        QCOMPARE(lines, QStringList({u"%1 groceries "_s.arg(sign * 29), u"%1  rest"_s.arg(sign * 28)}));
    }

    void existingSplitKeptUntilCleared()
    {
        Transaction t = Fixtures::transaction("t1", "home", QDate(2026, 2, 1), "Market", -3000);
        t.isSplit = true;
        QVERIFY(s()->transactions()->insert(t));
        for (const qint64 amount : {-1000, -2000})
            QVERIFY(s()->splitLines()->insert(
                Fixtures::splitLine(u"l%1"_s.arg(amount), t.id, groceries(), amount)));
        TransactionFormDialog dialog(s(), t);
        QCOMPARE(dialog.windowTitle(), u"Edit Transaction"_s);
        QCOMPARE(dialog.splitLines().size(), 2);
        // A cancelled editor leaves the lines as they were.
        Prompt::setNextDialogHandler([](QDialog *) { return int(QDialog::Rejected); });
        child<QPushButton>(&dialog, "splitButton")->click();
        QCOMPARE(dialog.splitLines().size(), 2);
        QCOMPARE(child<QPushButton>(&dialog, "splitButton")->text(), u"Edit splits..."_s);
        QCOMPARE(dialog.transaction().id, u"t1"_s);
        child<QPushButton>(&dialog, "clearSplitButton")->click();
        QVERIFY(dialog.splitLines().isEmpty() && !dialog.transaction().isSplit);
        QVERIFY(child<QComboBox>(&dialog, "categoryCombo")->isEnabled());
        QVERIFY(child<QPushButton>(&dialog, "clearSplitButton")->isHidden());
    }

    void secondNewTransactionStartsOnLastResultDate()
    {
        {
            TransactionFormDialog first(s(), u"home"_s);
            child<DateField>(&first, "dateField")->setDate(QDate(2024, 2, 29));
            QCOMPARE(first.transaction().date, QDate(2024, 2, 29));
        }
        TransactionFormDialog second(s(), u"home"_s);
        QCOMPARE(second.windowTitle(), u"New Transaction"_s);
        QCOMPARE(child<DateField>(&second, "dateField")->date(), QDate(2024, 2, 29));
    }

    void payeeFillsFromNewestInThisAccount()
    {
        Transaction older = Fixtures::transaction("a", "home", QDate(2026, 1, 1), "Grocer", -1234);
        older.memo = u"old"_s;
        Transaction newer = Fixtures::transaction("b", "home", QDate(2026, 1, 5), "Grocer", 4599);
        newer.memo = u"refund"_s;
        newer.categoryId = groceries();
        for (const Transaction &t :
             {older, newer, Fixtures::transaction("c", "visa", QDate(2026, 1, 9), "Grocer", -777)})
            QVERIFY(s()->transactions()->insert(t));
        TransactionFormDialog dialog(s(), u"home"_s);
        auto *memo = child<QLineEdit>(&dialog, "memoEdit");
        memo->setText(u"typed"_s);
        dialog.onPayeeSelected(u"Nobody"_s);
        QCOMPARE(memo->text(), u"typed"_s);
        dialog.onPayeeSelected(u"Grocer"_s);
        QVERIFY(child<QRadioButton>(&dialog, "depositRadio")->isChecked());
        QCOMPARE(child<QDoubleSpinBox>(&dialog, "amountSpin")->value(), 45.99);
        QCOMPARE(memo->text(), u"refund"_s);
        QCOMPARE(dialog.transaction().categoryId, groceries());
        QCOMPARE(dialog.transaction().amount, qint64(4599));
    }

    void splitRemainder_data()
    {
        addColumns<qint64, double, QString, QString>({"total", "second", "text", "style"});
        QTest::newRow("one cent over")
            << qint64(-1000) << 4.01 << u"Remaining: -$0.01"_s << u"color: #cc0000;"_s;
        QTest::newRow("one cent short") << qint64(1000) << 3.99 << u"Remaining: $0.01"_s << u""_s;
        // 0.57 * 100 is just under 57: truncating would leave a cent over.
        QTest::newRow("rounds, not truncates")
            << qint64(657) << 0.57 << u"Remaining: $0.00"_s << u"color: green;"_s;
    }

    void splitRemainder()
    {
        QFETCH(qint64, total);
        QFETCH(double, second);
        QFETCH(QString, text);
        QFETCH(QString, style);
        SplitEditorDialog dialog(total, kSplitCategories, {});
        auto *table = child<QTableWidget>(&dialog, "table");
        QCOMPARE(table->rowCount(), 2);
        amountAt(table, 0)->setValue(6.00);
        amountAt(table, 1)->setValue(second);
        QCOMPARE(child<QLabel>(&dialog, "remainingLabel")->text(), text);
        QCOMPARE(child<QLabel>(&dialog, "remainingLabel")->styleSheet(), style);
    }

    void splitLinesComeBackWithSignAndWithoutZeros()
    {
        SplitLine fuel = Fixtures::splitLine("old1", "t", "fuel", -2500);
        fuel.memo = u" tank "_s;
        SplitEditorDialog dialog(-3000, kSplitCategories,
                                 {fuel, Fixtures::splitLine("", "t", "deleted-category", -500)});
        auto *table = child<QTableWidget>(&dialog, "table");
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(amountAt(table, 0)->value(), 25.0);
        QCOMPARE(child<QLabel>(&dialog, "remainingLabel")->text(), u"Remaining: $0.00"_s);
        dialog.addRow();
        // The new empty row is left out; each line is made anew.
        QStringList lines;
        for (const SplitLine &line : dialog.lines())
            lines << u"%1 %2 %3 %4"_s.arg(line.categoryId)
                         .arg(line.amount)
                         .arg(line.memo)
                         .arg(line.id == fuel.id);
        QCOMPARE(lines, QStringList({"fuel -2500  tank  0", " -500  0"}));
    }

    void markClearedFlipsOneSideAndPersists()
    {
        const auto [out, in] = transfer();
        TransactionDetailsDialog dialog(s(), out);
        QCOMPARE(child<QLabel>(&dialog, "transferValue")->text(), u"Savings"_s);
        QCOMPARE(child<QLabel>(&dialog, "amountValue")->text(), u"- $123.45"_s);
        auto *button = child<QPushButton>(&dialog, "clearedButton");
        auto *status = child<QLabel>(&dialog, "statusValue");
        QCOMPARE(button->text() + status->text(), u"Mark ClearedUncleared"_s);
        button->click();
        QCOMPARE(button->text() + status->text(), u"Mark UnclearedCleared"_s);
        const std::optional<Transaction> stored = s()->transactions()->getById(out.id);
        QVERIFY(stored->cleared);
        QCOMPARE(stored->syncStatus, SyncStatus::Pending);
        QVERIFY(!s()->transactions()->getById(in.id)->cleared);
        QVERIFY(!dialog.deleted());
    }

    void deleteTakesLinkedLeg_data()
    {
        addColumns<bool, QMessageBox::StandardButton, QString>({"transfer", "answer", "text"});
        const QString transferText =
            u"Delete transfer \"To savings\" for $123.45?\n\nBoth sides of the transfer will be deleted."_s;
        QTest::newRow("transfer, yes") << true << QMessageBox::Yes << transferText;
        QTest::newRow("transfer, no") << true << QMessageBox::No << transferText;
        QTest::newRow("plain, yes") << false << QMessageBox::Yes << u"Delete \"To savings\" for $123.45?"_s;
    }

    void deleteTakesLinkedLeg()
    {
        QFETCH(bool, transfer);
        QFETCH(QMessageBox::StandardButton, answer);
        QFETCH(QString, text);
        auto [shown, in] = this->transfer();
        if (!transfer) {
            shown.transferLinkId.clear();
            shown.transferDestAccountId.clear();
        }
        TransactionDetailsDialog dialog(s(), shown);
        Prompt::setNextAnswer(answer);
        child<QPushButton>(&dialog, "deleteButton")->click();
        QCOMPARE(Prompt::lastTitle(), u"Delete Transaction"_s);
        QCOMPARE(Prompt::lastText(), text);
        const bool yes = answer == QMessageBox::Yes;
        QCOMPARE(dialog.deleted(), yes);
        QCOMPARE(dialog.result(), yes ? int(QDialog::Accepted) : int(QDialog::Rejected));
        QCOMPARE(s()->transactions()->getById(shown.id)->deletedAt.has_value(), yes);
        QCOMPARE(s()->transactions()->getById(in.id)->deletedAt.has_value(), yes && transfer);
    }
};

QTEST_MAIN(TstFormDialogs)
#include "tst_formdialogs.moc"
