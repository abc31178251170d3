#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "ui/Prompt.h"

#include "support/Widgets.h"
#include "ui/TransactionFormDialog.h"
#include "ui/register/DateField.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

#include <memory>
#include <optional>

class TstTransactionFormDialog : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_app.reset();
        m_app.emplace();
        QVERIFY(m_app->ok());
        m_state = m_app->get();
        QVERIFY(m_state->accounts()->insert(Fixtures::account("home", "Home")));
        QVERIFY(m_state->accounts()->insert(Fixtures::account("visa", "Visa")));
        m_groceries = m_state->categories()->getByName(QStringLiteral("Groceries"))->id;
    }

    void splitLinesFollowType_data()
    {
        QTest::addColumn<bool>("paymentWhenSplit");
        QTest::addColumn<bool>("paymentAtEnd");
        QTest::addColumn<qint64>("sign");
        QTest::newRow("payment") << true << true << qint64(-1);
        QTest::newRow("deposit") << false << false << qint64(1);
        QTest::newRow("turned into a deposit after splitting") << true << false << qint64(1);
    }

    void splitLinesFollowType()
    {
        QFETCH(bool, paymentWhenSplit);
        QFETCH(bool, paymentAtEnd);
        QFETCH(qint64, sign);
        TransactionFormDialog dialog(m_state, QStringLiteral("home"));
        child<QRadioButton>(&dialog, paymentWhenSplit ? "paymentRadio" : "depositRadio")->setChecked(true);
        child<QDoubleSpinBox>(&dialog, "amountSpin")->setValue(0.57);
        auto *combo = child<QComboBox>(&dialog, "categoryCombo");
        combo->setCurrentIndex(combo->findData(m_groceries));

        Prompt::setNextDialogHandler([this](QDialog *editor) {
            auto *table = child<QTableWidget>(editor, "table");
            auto *category = static_cast<QComboBox *>(table->cellWidget(0, 0));
            category->setCurrentIndex(category->findData(m_groceries));
            static_cast<QDoubleSpinBox *>(table->cellWidget(0, 1))->setValue(0.29);
            // The second row stays at zero and must not become a line.
            editor->metaObject()->invokeMethod(editor, "addRow");
            static_cast<QDoubleSpinBox *>(table->cellWidget(2, 1))->setValue(0.28);
            table->item(2, 2)->setText(QStringLiteral("rest"));
            return int(QDialog::Accepted);
        });
        child<QPushButton>(&dialog, "splitButton")->click();
        child<QRadioButton>(&dialog, paymentAtEnd ? "paymentRadio" : "depositRadio")->setChecked(true);

        QVERIFY(!combo->isEnabled());
        QCOMPARE(combo->currentText(), QStringLiteral("—Split—"));
        const Transaction t = dialog.transaction();
        QVERIFY(t.isSplit);
        QCOMPARE(t.categoryId, QString());
        // 0.57 and 0.29 sit just below their cents: truncating would lose one.
        QCOMPARE(t.amount, sign * 57);
        const QList<SplitLine> lines = dialog.splitLines();
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].amount, sign * 29);
        QCOMPARE(lines[0].categoryId, m_groceries);
        QCOMPARE(lines[1].amount, sign * 28);
        QCOMPARE(lines[1].categoryId, QString());
        QCOMPARE(lines[1].memo, QStringLiteral("rest"));
    }

    void existingSplitKeptUntilCleared()
    {
        Transaction t = Fixtures::transaction("t1", "home", QDate(2026, 2, 1), "Market", -3000);
        t.isSplit = true;
        QVERIFY(m_state->transactions()->insert(t));
        for (const qint64 amount : {-1000, -2000}) {
            SplitLine line;
            line.id = QStringLiteral("l%1").arg(amount);
            line.transactionId = t.id;
            line.categoryId = m_groceries;
            line.amount = amount;
            QVERIFY(m_state->splitLines()->insert(line));
        }

        TransactionFormDialog dialog(m_state, t);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Edit Transaction"));
        QCOMPARE(dialog.splitLines().size(), 2);
        // A cancelled editor leaves the lines as they were.
        Prompt::setNextDialogHandler([](QDialog *) { return int(QDialog::Rejected); });
        child<QPushButton>(&dialog, "splitButton")->click();
        QCOMPARE(dialog.splitLines().size(), 2);
        QCOMPARE(child<QPushButton>(&dialog, "splitButton")->text(), QStringLiteral("Edit splits..."));
        QCOMPARE(dialog.transaction().id, QStringLiteral("t1"));

        child<QPushButton>(&dialog, "clearSplitButton")->click();
        QVERIFY(dialog.splitLines().isEmpty());
        QVERIFY(!dialog.transaction().isSplit);
        QVERIFY(child<QComboBox>(&dialog, "categoryCombo")->isEnabled());
        QVERIFY(child<QPushButton>(&dialog, "clearSplitButton")->isHidden());
    }

    void secondNewFormStartsOnLastResultDate()
    {
        {
            TransactionFormDialog first(m_state, QStringLiteral("home"));
            child<DateField>(&first, "dateField")->setDate(QDate(2024, 2, 29));
            QCOMPARE(first.transaction().date, QDate(2024, 2, 29));
        }
        TransactionFormDialog second(m_state, QStringLiteral("home"));
        QCOMPARE(second.windowTitle(), QStringLiteral("New Transaction"));
        QCOMPARE(child<DateField>(&second, "dateField")->date(), QDate(2024, 2, 29));
    }

    void payeeFillsFromNewestInThisAccount()
    {
        Transaction older = Fixtures::transaction("a", "home", QDate(2026, 1, 1), "Grocer", -1234);
        older.memo = QStringLiteral("old");
        Transaction newer = Fixtures::transaction("b", "home", QDate(2026, 1, 5), "Grocer", 4599);
        newer.memo = QStringLiteral("refund");
        newer.categoryId = m_groceries;
        const Transaction elsewhere = Fixtures::transaction("c", "visa", QDate(2026, 1, 9), "Grocer", -777);
        for (const Transaction &t : {older, newer, elsewhere})
            QVERIFY(m_state->transactions()->insert(t));

        TransactionFormDialog dialog(m_state, QStringLiteral("home"));
        child<QLineEdit>(&dialog, "memoEdit")->setText(QStringLiteral("typed"));
        dialog.onPayeeSelected(QStringLiteral("Nobody"));
        QCOMPARE(child<QLineEdit>(&dialog, "memoEdit")->text(), QStringLiteral("typed"));

        dialog.onPayeeSelected(QStringLiteral("Grocer"));
        QVERIFY(child<QRadioButton>(&dialog, "depositRadio")->isChecked());
        QCOMPARE(child<QDoubleSpinBox>(&dialog, "amountSpin")->value(), 45.99);
        QCOMPARE(child<QLineEdit>(&dialog, "memoEdit")->text(), QStringLiteral("refund"));
        QCOMPARE(dialog.transaction().categoryId, m_groceries);
        QCOMPARE(dialog.transaction().amount, qint64(4599));
    }

private:
    std::optional<TempAppState> m_app;
    AppState *m_state = nullptr;
    QString m_groceries;
};

QTEST_MAIN(TstTransactionFormDialog)
#include "tst_transactionformdialog.moc"
