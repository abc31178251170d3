#include "core/AppState.h"
#include "core/Dates.h"
#include "data/AccountRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/Prompt.h"
#include "ui/ReconciliationHistoryScreen.h"
#include "ui/ReconciliationScreen.h"
#include "ui/register/DateField.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <tuple>

class TstReconciliationScreen : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void sumsFollowTheTicks();
    void proposedStatementDate_data();
    void proposedStatementDate();
    void zeroDifferenceWithNothingTickedFinishes();
    void finishedRowsAreReconciledAndNeverComeBack();
    void ticksSurviveAnAddFromWithinAndADelete();
    void spaceWithoutACurrentRowIsSwallowed();
    void escapeCancels_data();
    void escapeCancels();
    void historyListsNewestFirstOrSaysThereIsNone();

private:
    void add(const QString &id, const QDate &date, qint64 amount, bool cleared, bool reconciled = false);
    void open();
    QString figure(const char *name) const
    {
        return m_screen->findChild<QLabel *>(QLatin1String(name))->text();
    }
    QStringList tickedPayees() const;
    int rowOf(const QString &payee) const;
    void press(Qt::Key key);

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<ReconciliationScreen> m_screen;
};

void TstReconciliationScreen::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
    QVERIFY(m_state->accounts()->insert(
        Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"), 100000)));
}

void TstReconciliationScreen::cleanup()
{
    m_screen.reset();
    m_state.reset();
}

void TstReconciliationScreen::add(const QString &id, const QDate &date, qint64 amount, bool cleared,
                                  bool reconciled)
{
    Transaction t = Fixtures::transaction(id, QStringLiteral("a"), date, id, amount);
    t.cleared = cleared || reconciled;
    t.reconciled = reconciled;
    QVERIFY(m_state->transactions()->insert(t));
}

void TstReconciliationScreen::open()
{
    m_screen = std::make_unique<ReconciliationScreen>(m_state.get());
    m_screen->resize(1100, 720);
    m_screen->show();
    m_screen->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_screen.get()));
    m_screen->setAccount(QStringLiteral("a"));
    m_screen->table()->setFocus();
}

QStringList TstReconciliationScreen::tickedPayees() const
{
    QStringList payees;
    const QTableWidget *table = m_screen->table();
    for (int row = 0; row < table->rowCount(); ++row) {
        if (table->item(row, 0)->checkState() == Qt::Checked)
            payees << table->item(row, 2)->text();
    }
    return payees;
}

int TstReconciliationScreen::rowOf(const QString &payee) const
{
    const QTableWidget *table = m_screen->table();
    for (int row = 0; row < table->rowCount(); ++row) {
        if (table->item(row, 2)->text() == payee)
            return row;
    }
    return -1;
}

void TstReconciliationScreen::press(Qt::Key key)
{
    QTest::keyClick(m_screen->table(), key);
}

void TstReconciliationScreen::sumsFollowTheTicks()
{
    add(QStringLiteral("old deposit"), QDate(2026, 1, 10), 20000, true, true);
    add(QStringLiteral("old payment"), QDate(2026, 1, 31), -5000, true, true);
    add(QStringLiteral("cleared"), QDate(2026, 2, 5), -3000, true);
    add(QStringLiteral("deposit"), QDate(2026, 2, 7), 10000, false);
    add(QStringLiteral("payment"), QDate(2026, 2, 9), -1234, false);
    open();

    QCOMPARE(m_screen->previousBalance(), qint64(115000));
    QCOMPARE(figure("previousValue"), QStringLiteral("$1,150.00"));
    // Cleared in the register: ticked from the start.
    QCOMPARE(tickedPayees(), QStringList{"cleared"});
    QCOMPARE(figure("withdrawalsValue"), QStringLiteral("-$30.00"));
    QCOMPARE(figure("clearedValue"), QStringLiteral("$1,120.00"));
    auto *finish = m_screen->findChild<QPushButton *>(QStringLiteral("finishButton"));
    QVERIFY(!finish->isEnabled());

    m_screen->findChild<QDoubleSpinBox *>(QStringLiteral("statementBalance"))->setValue(1207.66);
    QCOMPARE(m_screen->difference(), qint64(120766 - 112000));

    m_screen->table()->setCurrentCell(rowOf(QStringLiteral("deposit")), 2);
    press(Qt::Key_Space);
    m_screen->table()->setCurrentCell(rowOf(QStringLiteral("payment")), 2);
    press(Qt::Key_R);
    QCOMPARE(tickedPayees(), (QStringList{"cleared", "deposit", "payment"}));
    QCOMPARE(figure("depositsValue"), QStringLiteral("$100.00"));
    QCOMPARE(figure("withdrawalsValue"), QStringLiteral("-$42.34"));
    QCOMPARE(figure("clearedValue"), QStringLiteral("$1,207.66"));
    QCOMPARE(figure("differenceValue"), QStringLiteral("$0.00"));
    QVERIFY(finish->isEnabled());

    press(Qt::Key_C); // the payment again: off
    QCOMPARE(m_screen->difference(), qint64(-1234));
    QVERIFY(!finish->isEnabled());
}

void TstReconciliationScreen::proposedStatementDate_data()
{
    QTest::addColumn<QList<QDate>>("reconciledDates");
    QTest::addColumn<QDate>("lastStatement");
    QTest::addColumn<QDate>("expected");
    const QDate none;
    QTest::newRow("nothing reconciled: today") << QList<QDate>{} << none << QDate::currentDate();
    QTest::newRow("rows only: a month after the latest, clamped")
        << QList<QDate>{QDate(2025, 12, 3), QDate(2026, 1, 31)} << none << QDate(2026, 2, 28);
    QTest::newRow("statement after the rows: a month after it")
        << QList<QDate>{QDate(2026, 1, 31)} << QDate(2026, 2, 15) << QDate(2026, 3, 15);
    QTest::newRow("statement on the latest row's date")
        << QList<QDate>{QDate(2026, 1, 20)} << QDate(2026, 1, 20) << QDate(2026, 2, 20);
    QTest::newRow("rows reconciled past the statement: the rows win")
        << QList<QDate>{QDate(2026, 1, 31)} << QDate(2025, 12, 15) << QDate(2026, 2, 28);
}

void TstReconciliationScreen::proposedStatementDate()
{
    QFETCH(QList<QDate>, reconciledDates);
    QFETCH(QDate, lastStatement);
    QFETCH(QDate, expected);
    for (int i = 0; i < reconciledDates.size(); ++i)
        add(QStringLiteral("r%1").arg(i), reconciledDates[i], 100, true, true);
    if (lastStatement.isValid()) {
        Reconciliation r;
        r.id = QStringLiteral("rec");
        r.accountId = QStringLiteral("a");
        r.statementDate = lastStatement;
        r.completedAt = utcNow();
        QVERIFY(m_state->reconciliations()->insert(r));
    }
    open();
    QCOMPARE(m_screen->findChild<DateField *>(QStringLiteral("statementDate"))->date(), expected);
}

void TstReconciliationScreen::zeroDifferenceWithNothingTickedFinishes()
{
    add(QStringLiteral("open"), QDate(2026, 2, 1), -2500, false);
    open();
    QSignalSpy completed(m_screen.get(), &ReconciliationScreen::reconciliationCompleted);
    m_screen->findChild<QDoubleSpinBox *>(QStringLiteral("statementBalance"))->setValue(1000.00);
    QCOMPARE(m_screen->difference(), qint64(0));

    Prompt::setNextAnswer(QMessageBox::Ok);
    m_screen->findChild<QPushButton *>(QStringLiteral("finishButton"))->click();
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Reconciliation Complete"));
    QCOMPARE(completed.count(), 1);

    const QList<Reconciliation> history = m_state->reconciliations()->getByAccount(QStringLiteral("a"));
    QCOMPARE(history.size(), 1);
    QCOMPARE(history[0].statementBalance, qint64(100000));
    QCOMPARE(history[0].reconciledBalance, qint64(100000));
    QCOMPARE(history[0].statementDate, QDate::currentDate());
    QCOMPARE(history[0].syncStatus, SyncStatus::Pending);
    QVERIFY(!m_state->transactions()->getById(QStringLiteral("open"))->reconciled);
}

void TstReconciliationScreen::finishedRowsAreReconciledAndNeverComeBack()
{
    add(QStringLiteral("pay"), QDate(2026, 2, 1), -2500, true);
    add(QStringLiteral("salary"), QDate(2026, 2, 2), 40000, false);
    add(QStringLiteral("later"), QDate(2026, 2, 3), -700, true);
    open();
    m_screen->table()->setCurrentCell(rowOf(QStringLiteral("salary")), 2);
    press(Qt::Key_Space);
    m_screen->table()->setCurrentCell(rowOf(QStringLiteral("later")), 2);
    press(Qt::Key_Space); // the statement stops before it
    m_screen->findChild<QDoubleSpinBox *>(QStringLiteral("statementBalance"))->setValue(1375.00);
    QSignalSpy changed(m_state->transactions(), &TransactionRepository::transactionsChanged);
    Prompt::setNextAnswer(QMessageBox::Ok);
    m_screen->findChild<QPushButton *>(QStringLiteral("finishButton"))->click();
    // Listeners hear of the whole statement once, not once per row.
    QCOMPARE(changed.count(), 1);

    for (const char *id : {"pay", "salary"}) {
        const Transaction t = *m_state->transactions()->getById(QLatin1String(id));
        QVERIFY(t.cleared && t.reconciled);
        QCOMPARE(t.syncStatus, SyncStatus::Pending);
    }
    // Left as it was: still cleared, not reconciled.
    const Transaction later = *m_state->transactions()->getById(QStringLiteral("later"));
    QVERIFY(later.cleared && !later.reconciled);
    QCOMPARE(m_state->reconciliations()->getLatest(QStringLiteral("a"))->reconciledBalance, qint64(137500));

    open();
    QCOMPARE(m_screen->table()->rowCount(), 1);
    QCOMPARE(m_screen->table()->item(0, 2)->text(), QStringLiteral("later"));
    QCOMPARE(m_screen->previousBalance(), qint64(137500));
}

void TstReconciliationScreen::ticksSurviveAnAddFromWithinAndADelete()
{
    add(QStringLiteral("cleared"), QDate(2026, 2, 1), -2500, true);
    add(QStringLiteral("plain"), QDate(2026, 2, 2), 40000, false);
    add(QStringLiteral("other"), QDate(2026, 2, 3), -700, false);
    open();
    m_screen->table()->setCurrentCell(rowOf(QStringLiteral("cleared")), 2);
    press(Qt::Key_Space); // off, though the register has it cleared
    m_screen->table()->setCurrentCell(rowOf(QStringLiteral("other")), 2);
    press(Qt::Key_Space);

    Prompt::setNextDialogHandler([](QDialog *dialog) {
        dialog->findChild<QLineEdit *>(QStringLiteral("payeeEdit"))->setText(QStringLiteral("added"));
        dialog->findChild<QDoubleSpinBox *>(QStringLiteral("amountSpin"))->setValue(12.00);
        dialog->findChild<QCheckBox *>(QStringLiteral("clearedCheck"))->setChecked(true);
        return int(QDialog::Accepted);
    });
    m_screen->findChild<QPushButton *>(QStringLiteral("addButton"))->click();
    QCOMPARE(m_screen->table()->rowCount(), 4);
    QCOMPARE(tickedPayees().size(), 2);
    QVERIFY(tickedPayees().contains(QStringLiteral("other")));
    QVERIFY(tickedPayees().contains(QStringLiteral("added")));
    QCOMPARE(figure("withdrawalsValue"), QStringLiteral("-$19.00"));

    m_screen->table()->setCurrentCell(rowOf(QStringLiteral("other")), 2);
    Prompt::setNextAnswer(QMessageBox::Yes);
    press(Qt::Key_Delete);
    QCOMPARE(Prompt::lastText(), QStringLiteral("Delete the transaction for other?"));
    QCOMPARE(m_screen->table()->rowCount(), 3);
    QVERIFY(m_state->transactions()->getById(QStringLiteral("other"))->deletedAt.has_value());
    QCOMPARE(tickedPayees().size(), 1);
    QCOMPARE(figure("withdrawalsValue"), QStringLiteral("-$12.00"));
}

void TstReconciliationScreen::spaceWithoutACurrentRowIsSwallowed()
{
    for (int i = 0; i < 60; ++i)
        add(QStringLiteral("row%1").arg(i, 2, 10, QLatin1Char('0')), QDate(2026, 1, 1).addDays(i), -100,
            false);
    open();
    QTableWidget *table = m_screen->table();
    table->setCurrentIndex(QModelIndex());
    const int scroll = table->verticalScrollBar()->value();
    const qint64 before = m_screen->difference();
    press(Qt::Key_Space);
    press(Qt::Key_R);
    QVERIFY(tickedPayees().isEmpty());
    QCOMPARE(m_screen->difference(), before);
    QCOMPARE(table->verticalScrollBar()->value(), scroll);
    QVERIFY(!table->currentIndex().isValid());
}

void TstReconciliationScreen::escapeCancels_data()
{
    QTest::addColumn<QString>("focus"); // object name; empty: the table
    QTest::newRow("table") << QString();
    QTest::newRow("statement balance") << QStringLiteral("statementBalance");
}

void TstReconciliationScreen::escapeCancels()
{
    QFETCH(QString, focus);
    add(QStringLiteral("payment"), QDate(2026, 2, 9), -1234, false);
    open();
    QWidget *target = focus.isEmpty() ? m_screen->table() : m_screen->findChild<QWidget *>(focus);
    target->setFocus();
    QSignalSpy cancelled(m_screen.get(), &ReconciliationScreen::cancelled);
    QTest::keyClick(target, Qt::Key_Escape);
    QCOMPARE(cancelled.size(), 1);
}

void TstReconciliationScreen::historyListsNewestFirstOrSaysThereIsNone()
{
    ReconciliationHistoryScreen history(m_state.get());
    history.setAccount(QStringLiteral("a"));
    QVERIFY(history.table()->isHidden());
    QVERIFY(!history.findChild<QLabel *>(QStringLiteral("emptyLabel"))->isHidden());

    for (const auto &[id, date, balance] : {
             std::tuple{"jan", QDate(2026, 1, 31), qint64(-1250) },
             std::tuple{"mar", QDate(2026, 3, 31), qint64(300000)},
             std::tuple{"feb", QDate(2026, 2, 28), qint64(0)     }
    }) {
        Reconciliation r;
        r.id = QLatin1String(id);
        r.accountId = QStringLiteral("a");
        r.statementDate = date;
        r.statementBalance = balance;
        r.reconciledBalance = balance;
        r.completedAt = utcNow();
        QVERIFY(m_state->reconciliations()->insert(r));
    }
    history.setAccount(QStringLiteral("a"));
    QCOMPARE(history.findChild<QLabel *>(QStringLiteral("titleLabel"))->text(),
             QStringLiteral("Reconciliation History — Checking"));
    QVERIFY(!history.table()->isHidden());
    QCOMPARE(history.table()->rowCount(), 3);
    QCOMPARE(history.table()->item(0, 0)->text(), QStringLiteral("Mar 31, 2026"));
    QCOMPARE(history.table()->item(0, 1)->text(), QStringLiteral("$3,000.00"));
    QCOMPARE(history.table()->item(2, 0)->text(), QStringLiteral("Jan 31, 2026"));
    QCOMPARE(history.table()->item(2, 2)->text(), QStringLiteral("-$12.50"));
}

QTEST_MAIN(TstReconciliationScreen)
#include "tst_reconciliationscreen.moc"
