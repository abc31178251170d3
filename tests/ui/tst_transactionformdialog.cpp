#include "core/AppState.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/Prompt.h"
#include "ui/TransactionFormDialog.h"
#include "ui/register/DateField.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TstTransactionFormDialog : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void splitLinesFollowType_data();
    void splitLinesFollowType();
    void existingSplitKeptUntilCleared();
    void secondNewFormStartsOnLastResultDate();
    void payeeFillsFromNewestInThisAccount();

private:
    template <typename T>
    T *child(QObject *parent, const char *name)
    {
        return parent->findChild<T *>(QLatin1String(name));
    }

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    QString m_groceries;
};

void TstTransactionFormDialog::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("home"), QStringLiteral("Home"))));
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("visa"), QStringLiteral("Visa"))));
    m_groceries = m_state->categories()->getByName(QStringLiteral("Groceries"))->id;
}

void TstTransactionFormDialog::cleanup()
{
    m_state.reset();
}

void TstTransactionFormDialog::splitLinesFollowType_data()
{
    QTest::addColumn<bool>("paymentWhenSplit");
    QTest::addColumn<bool>("paymentAtEnd");
    QTest::addColumn<qint64>("sign");
    QTest::newRow("payment") << true << true << qint64(-1);
    QTest::newRow("deposit") << false << false << qint64(1);
    QTest::newRow("turned into a deposit after splitting") << true << false << qint64(1);
}

void TstTransactionFormDialog::splitLinesFollowType()
{
    QFETCH(bool, paymentWhenSplit);
    QFETCH(bool, paymentAtEnd);
    QFETCH(qint64, sign);
    TransactionFormDialog dialog(m_state.get(), QStringLiteral("home"));
    child<QRadioButton>(&dialog, paymentWhenSplit ? "paymentRadio" : "depositRadio")->setChecked(true);
    child<QDoubleSpinBox>(&dialog, "amountSpin")->setValue(0.57);
    auto *combo = child<QComboBox>(&dialog, "categoryCombo");
    combo->setCurrentIndex(combo->findData(m_groceries));

    Prompt::setNextDialogHandler([this](QDialog *editor) {
        auto *table = editor->findChild<QTableWidget *>(QStringLiteral("table"));
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

void TstTransactionFormDialog::existingSplitKeptUntilCleared()
{
    Transaction t = Fixtures::transaction(QStringLiteral("t1"), QStringLiteral("home"), QDate(2026, 2, 1),
                                          QStringLiteral("Market"), -3000);
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

    TransactionFormDialog dialog(m_state.get(), t);
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

void TstTransactionFormDialog::secondNewFormStartsOnLastResultDate()
{
    {
        TransactionFormDialog first(m_state.get(), QStringLiteral("home"));
        child<DateField>(&first, "dateField")->setDate(QDate(2024, 2, 29));
        QCOMPARE(first.transaction().date, QDate(2024, 2, 29));
    }
    TransactionFormDialog second(m_state.get(), QStringLiteral("home"));
    QCOMPARE(second.windowTitle(), QStringLiteral("New Transaction"));
    QCOMPARE(child<DateField>(&second, "dateField")->date(), QDate(2024, 2, 29));
}

void TstTransactionFormDialog::payeeFillsFromNewestInThisAccount()
{
    Transaction older = Fixtures::transaction(QStringLiteral("a"), QStringLiteral("home"), QDate(2026, 1, 1),
                                              QStringLiteral("Grocer"), -1234);
    older.memo = QStringLiteral("old");
    Transaction newer = Fixtures::transaction(QStringLiteral("b"), QStringLiteral("home"), QDate(2026, 1, 5),
                                              QStringLiteral("Grocer"), 4599);
    newer.memo = QStringLiteral("refund");
    newer.categoryId = m_groceries;
    const Transaction elsewhere = Fixtures::transaction(QStringLiteral("c"), QStringLiteral("visa"),
                                                        QDate(2026, 1, 9), QStringLiteral("Grocer"), -777);
    for (const Transaction &t : {older, newer, elsewhere})
        QVERIFY(m_state->transactions()->insert(t));

    TransactionFormDialog dialog(m_state.get(), QStringLiteral("home"));
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

QTEST_MAIN(TstTransactionFormDialog)
#include "tst_transactionformdialog.moc"
