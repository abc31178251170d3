#include "core/AppState.h"
#include "data/AccountRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/Prompt.h"
#include "ui/TransactionDetailsDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TstTransactionDetailsDialog : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void markClearedFlipsAndPersists();
    void deleteTakesLinkedLeg_data();
    void deleteTakesLinkedLeg();

private:
    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    Transaction m_out;
    Transaction m_in;
};

void TstTransactionDetailsDialog::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("home"), QStringLiteral("Home"))));
    QVERIFY(
        m_state->accounts()->insert(Fixtures::account(QStringLiteral("save"), QStringLiteral("Savings"))));
    m_out = Fixtures::transaction(QStringLiteral("out"), QStringLiteral("home"), QDate(2026, 3, 1),
                                  QStringLiteral("To savings"), -12345);
    m_out.transferLinkId = QStringLiteral("in");
    m_out.transferDestAccountId = QStringLiteral("save");
    m_out.syncStatus = SyncStatus::Synced;
    m_in = Fixtures::transaction(QStringLiteral("in"), QStringLiteral("save"), QDate(2026, 3, 1),
                                 QStringLiteral("Transfer from Home"), 12345);
    m_in.transferLinkId = QStringLiteral("out");
    m_in.transferDestAccountId = QStringLiteral("home");
    QVERIFY(m_state->transactions()->insert(m_in));
    QVERIFY(m_state->transactions()->insert(m_out));
}

void TstTransactionDetailsDialog::cleanup()
{
    m_state.reset();
}

void TstTransactionDetailsDialog::markClearedFlipsAndPersists()
{
    TransactionDetailsDialog dialog(m_state.get(), m_out);
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("transferValue"))->text(), QStringLiteral("Savings"));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("amountValue"))->text(), QStringLiteral("- $123.45"));
    auto *button = dialog.findChild<QPushButton *>(QStringLiteral("clearedButton"));
    auto *status = dialog.findChild<QLabel *>(QStringLiteral("statusValue"));
    QCOMPARE(button->text(), QStringLiteral("Mark Cleared"));
    QCOMPARE(status->text(), QStringLiteral("Uncleared"));

    button->click();
    QCOMPARE(button->text(), QStringLiteral("Mark Uncleared"));
    QCOMPARE(status->text(), QStringLiteral("Cleared"));
    std::optional<Transaction> stored = m_state->transactions()->getById(m_out.id);
    QVERIFY(stored->cleared);
    QCOMPARE(stored->syncStatus, SyncStatus::Pending);
    QVERIFY(!m_state->transactions()->getById(m_in.id)->cleared); // one side only
    QVERIFY(!dialog.deleted());
}

void TstTransactionDetailsDialog::deleteTakesLinkedLeg_data()
{
    QTest::addColumn<bool>("transfer");
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<QString>("text");
    const QString transferText = QStringLiteral(
        "Delete transfer \"To savings\" for $123.45?\n\nBoth sides of the transfer will be deleted.");
    QTest::newRow("transfer, yes") << true << QMessageBox::Yes << transferText;
    QTest::newRow("transfer, no") << true << QMessageBox::No << transferText;
    QTest::newRow("plain, yes") << false << QMessageBox::Yes << "Delete \"To savings\" for $123.45?";
}

void TstTransactionDetailsDialog::deleteTakesLinkedLeg()
{
    QFETCH(bool, transfer);
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(QString, text);
    Transaction shown = m_out;
    if (!transfer) {
        shown.transferLinkId.clear();
        shown.transferDestAccountId.clear();
    }
    TransactionDetailsDialog dialog(m_state.get(), shown);
    Prompt::setNextAnswer(answer);
    dialog.findChild<QPushButton *>(QStringLiteral("deleteButton"))->click();
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Delete Transaction"));
    QCOMPARE(Prompt::lastText(), text);

    const bool yes = answer == QMessageBox::Yes;
    QCOMPARE(dialog.deleted(), yes);
    QCOMPARE(dialog.result(), yes ? int(QDialog::Accepted) : int(QDialog::Rejected));
    QCOMPARE(m_state->transactions()->getById(m_out.id)->deletedAt.has_value(), yes);
    QCOMPARE(m_state->transactions()->getById(m_in.id)->deletedAt.has_value(), yes && transfer);
}

QTEST_MAIN(TstTransactionDetailsDialog)
#include "tst_transactiondetailsdialog.moc"
