#include "data/AccountRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "ui/Prompt.h"

#include "support/Widgets.h"
#include "ui/TransactionDetailsDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <memory>
#include <optional>

class TstTransactionDetailsDialog : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_app.reset();
        m_app.emplace();
        QVERIFY(m_app->ok());
        m_state = m_app->get();
        QVERIFY(m_state->accounts()->insert(Fixtures::account("home", "Home")));
        QVERIFY(m_state->accounts()->insert(Fixtures::account("save", "Savings")));
        m_out = Fixtures::transaction("out", "home", QDate(2026, 3, 1), "To savings", -12345);
        m_out.transferLinkId = QStringLiteral("in");
        m_out.transferDestAccountId = QStringLiteral("save");
        m_out.syncStatus = SyncStatus::Synced;
        m_in = Fixtures::transaction("in", "save", QDate(2026, 3, 1), "Transfer from Home", 12345);
        m_in.transferLinkId = QStringLiteral("out");
        m_in.transferDestAccountId = QStringLiteral("home");
        QVERIFY(m_state->transactions()->insert(m_in));
        QVERIFY(m_state->transactions()->insert(m_out));
    }

    void markClearedFlipsAndPersists()
    {
        TransactionDetailsDialog dialog(m_state, m_out);
        QCOMPARE(child<QLabel>(&dialog, "transferValue")->text(), QStringLiteral("Savings"));
        QCOMPARE(child<QLabel>(&dialog, "amountValue")->text(), QStringLiteral("- $123.45"));
        auto *button = child<QPushButton>(&dialog, "clearedButton");
        auto *status = child<QLabel>(&dialog, "statusValue");
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

    void deleteTakesLinkedLeg_data()
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

    void deleteTakesLinkedLeg()
    {
        QFETCH(bool, transfer);
        QFETCH(QMessageBox::StandardButton, answer);
        QFETCH(QString, text);
        Transaction shown = m_out;
        if (!transfer) {
            shown.transferLinkId.clear();
            shown.transferDestAccountId.clear();
        }
        TransactionDetailsDialog dialog(m_state, shown);
        Prompt::setNextAnswer(answer);
        child<QPushButton>(&dialog, "deleteButton")->click();
        QCOMPARE(Prompt::lastTitle(), QStringLiteral("Delete Transaction"));
        QCOMPARE(Prompt::lastText(), text);

        const bool yes = answer == QMessageBox::Yes;
        QCOMPARE(dialog.deleted(), yes);
        QCOMPARE(dialog.result(), yes ? int(QDialog::Accepted) : int(QDialog::Rejected));
        QCOMPARE(m_state->transactions()->getById(m_out.id)->deletedAt.has_value(), yes);
        QCOMPARE(m_state->transactions()->getById(m_in.id)->deletedAt.has_value(), yes && transfer);
    }

private:
    std::optional<TempAppState> m_app;
    AppState *m_state = nullptr;
    Transaction m_out;
    Transaction m_in;
};

QTEST_MAIN(TstTransactionDetailsDialog)
#include "tst_transactiondetailsdialog.moc"
