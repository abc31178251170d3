#include "ui/ReconciliationScreen.h"

#include "core/Dates.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/Prompt.h"
#include "ui/ReconciliationHistoryScreen.h"
#include "ui/register/DateField.h"

#include <QtTest>
#include <QtWidgets>

#include <optional>

using namespace Qt::StringLiterals;

class TstReconciliationScreen : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_app;
    std::optional<ReconciliationScreen> m_screen;

    AppState *s() const { return m_app->get(); }
    void add(const QString &id, const QDate &date, qint64 amount, bool cleared, bool reconciled = false)
    {
        Transaction t = Fixtures::transaction(id, "a", date, id, amount);
        t.cleared = cleared || reconciled;
        t.reconciled = reconciled;
        QVERIFY(s()->transactions()->insert(t));
    }
    void addStatement(const char *id, const QDate &date, qint64 balance = 0)
    {
        Reconciliation r;
        r.id = QLatin1String(id);
        r.accountId = u"a"_s;
        r.statementDate = date;
        r.statementBalance = r.reconciledBalance = balance;
        r.completedAt = utcNow();
        QVERIFY(s()->reconciliations()->insert(r));
    }
    void open()
    {
        m_screen.emplace(s());
        m_screen->resize(1100, 720);
        m_screen->show();
        m_screen->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&*m_screen));
        m_screen->setAccount(u"a"_s);
        table()->setFocus();
    }
    QTableWidget *table() const { return m_screen->table(); }
    QString figure(const char *name) const { return child<QLabel>(&*m_screen, name)->text(); }
    void setStatement(double balance)
    {
        child<QDoubleSpinBox>(&*m_screen, "statementBalance")->setValue(balance);
    }
    QPushButton *button(const char *name) const { return child<QPushButton>(&*m_screen, name); }
    QStringList tickedPayees() const
    {
        QStringList payees;
        for (int row = 0; row < table()->rowCount(); ++row)
            if (table()->item(row, 0)->checkState() == Qt::Checked)
                payees << table()->item(row, 2)->text();
        return payees;
    }
    // Makes the payee's row current and presses the key on the table.
    void press(const QString &payee, Qt::Key key)
    {
        for (int row = 0; row < table()->rowCount(); ++row)
            if (table()->item(row, 2)->text() == payee)
                table()->setCurrentCell(row, 2);
        QTest::keyClick(table(), key);
    }

private slots:
    void init()
    {
        m_screen.reset();
        QVERIFY(m_app.emplace().ok());
        QVERIFY(s()->accounts()->insert(Fixtures::account("a", "Checking", 100000)));
    }

    void sumsFollowTheTicks()
    {
        add(u"old deposit"_s, QDate(2026, 1, 10), 20000, true, true);
        add(u"old payment"_s, QDate(2026, 1, 31), -5000, true, true);
        add(u"cleared"_s, QDate(2026, 2, 5), -3000, true);
        add(u"deposit"_s, QDate(2026, 2, 7), 10000, false);
        add(u"payment"_s, QDate(2026, 2, 9), -1234, false);
        open();
        QCOMPARE(m_screen->previousBalance(), qint64(115000));
        QCOMPARE(figure("previousValue"), u"$1,150.00"_s);
        // Cleared in the register: ticked from the start.
        QCOMPARE(tickedPayees(), QStringList{"cleared"});
        QCOMPARE(figure("withdrawalsValue"), u"-$30.00"_s);
        QCOMPARE(figure("clearedValue"), u"$1,120.00"_s);
        QVERIFY(!button("finishButton")->isEnabled());

        setStatement(1207.66);
        QCOMPARE(m_screen->difference(), qint64(120766 - 112000));
        press(u"deposit"_s, Qt::Key_Space);
        press(u"payment"_s, Qt::Key_R);
        QCOMPARE(tickedPayees(), QStringList({"cleared", "deposit", "payment"}));
        QCOMPARE(figure("depositsValue"), u"$100.00"_s);
        QCOMPARE(figure("withdrawalsValue"), u"-$42.34"_s);
        QCOMPARE(figure("clearedValue"), u"$1,207.66"_s);
        QCOMPARE(figure("differenceValue"), u"$0.00"_s);
        QVERIFY(button("finishButton")->isEnabled());

        press(u"payment"_s, Qt::Key_C); // off again
        QCOMPARE(m_screen->difference(), qint64(-1234));
        QVERIFY(!button("finishButton")->isEnabled());
    }

    void proposedStatementDate_data()
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

    void proposedStatementDate()
    {
        QFETCH(QList<QDate>, reconciledDates);
        QFETCH(QDate, lastStatement);
        QFETCH(QDate, expected);
        for (int i = 0; i < reconciledDates.size(); ++i)
            add(u"r%1"_s.arg(i), reconciledDates[i], 100, true, true);
        if (lastStatement.isValid())
            addStatement("rec", lastStatement);
        open();
        QCOMPARE(child<DateField>(&*m_screen, "statementDate")->date(), expected);
    }

    void zeroDifferenceWithNothingTickedFinishes()
    {
        add(u"open"_s, QDate(2026, 2, 1), -2500, false);
        open();
        QSignalSpy completed(&*m_screen, &ReconciliationScreen::reconciliationCompleted);
        setStatement(1000.00);
        QCOMPARE(m_screen->difference(), qint64(0));
        Prompt::setNextAnswer(QMessageBox::Ok);
        button("finishButton")->click();
        QCOMPARE(Prompt::lastTitle(), u"Reconciliation Complete"_s);
        QCOMPARE(completed.count(), 1);
        const QList<Reconciliation> history = s()->reconciliations()->getByAccount(u"a"_s);
        QCOMPARE(history.size(), 1);
        QCOMPARE(history[0].statementBalance, qint64(100000));
        QCOMPARE(history[0].reconciledBalance, qint64(100000));
        QCOMPARE(history[0].statementDate, QDate::currentDate());
        QCOMPARE(history[0].syncStatus, SyncStatus::Pending);
        QVERIFY(!s()->transactions()->getById(u"open"_s)->reconciled);
    }

    void finishedRowsAreReconciledAndNeverComeBack()
    {
        add(u"pay"_s, QDate(2026, 2, 1), -2500, true);
        add(u"salary"_s, QDate(2026, 2, 2), 40000, false);
        add(u"later"_s, QDate(2026, 2, 3), -700, true);
        open();
        press(u"salary"_s, Qt::Key_Space);
        press(u"later"_s, Qt::Key_Space); // the statement stops before it
        setStatement(1375.00);
        QSignalSpy changed(s()->transactions(), &TransactionRepository::transactionsChanged);
        Prompt::setNextAnswer(QMessageBox::Ok);
        button("finishButton")->click();
        // Listeners hear of the whole statement once, not once per row.
        QCOMPARE(changed.count(), 1);
        QStringList states;
        for (const char *id : {"pay", "salary", "later"}) {
            const Transaction t = *s()->transactions()->getById(QLatin1String(id));
            states << u"%1 %2%3 %4"_s.arg(t.id).arg(t.cleared).arg(t.reconciled).arg(int(t.syncStatus));
        }
        const int pending = int(SyncStatus::Pending);
        // The row after the statement is left as it was: still cleared, not reconciled.
        QCOMPARE(states, QStringList({u"pay 11 %1"_s.arg(pending), u"salary 11 %1"_s.arg(pending),
                                      u"later 10 %1"_s.arg(pending)}));
        QCOMPARE(s()->reconciliations()->getLatest(u"a"_s)->reconciledBalance, qint64(137500));
        open();
        QCOMPARE(table()->rowCount(), 1);
        QCOMPARE(table()->item(0, 2)->text(), u"later"_s);
        QCOMPARE(m_screen->previousBalance(), qint64(137500));
    }

    void ticksSurviveAnAddFromWithinAndADelete()
    {
        add(u"cleared"_s, QDate(2026, 2, 1), -2500, true);
        add(u"plain"_s, QDate(2026, 2, 2), 40000, false);
        add(u"other"_s, QDate(2026, 2, 3), -700, false);
        open();
        press(u"cleared"_s, Qt::Key_Space); // off, though the register has it cleared
        press(u"other"_s, Qt::Key_Space);
        Prompt::setNextDialogHandler([](QDialog *dialog) {
            child<QLineEdit>(dialog, "payeeEdit")->setText(u"added"_s);
            child<QDoubleSpinBox>(dialog, "amountSpin")->setValue(12.00);
            child<QCheckBox>(dialog, "clearedCheck")->setChecked(true);
            return int(QDialog::Accepted);
        });
        button("addButton")->click();
        QCOMPARE(table()->rowCount(), 4);
        QStringList ticked = tickedPayees();
        ticked.sort();
        QCOMPARE(ticked, QStringList({"added", "other"}));
        QCOMPARE(figure("withdrawalsValue"), u"-$19.00"_s);

        Prompt::setNextAnswer(QMessageBox::Yes);
        press(u"other"_s, Qt::Key_Delete);
        QCOMPARE(Prompt::lastText(), u"Delete the transaction for other?"_s);
        QCOMPARE(table()->rowCount(), 3);
        QVERIFY(s()->transactions()->getById(u"other"_s)->deletedAt.has_value());
        QCOMPARE(tickedPayees(), QStringList{"added"});
        QCOMPARE(figure("withdrawalsValue"), u"-$12.00"_s);
    }

    void spaceWithoutACurrentRowIsSwallowed()
    {
        for (int i = 0; i < 60; ++i)
            add(u"row%1"_s.arg(i, 2, 10, QLatin1Char('0')), QDate(2026, 1, 1).addDays(i), -100, false);
        open();
        table()->setCurrentIndex(QModelIndex());
        const int scroll = table()->verticalScrollBar()->value();
        const qint64 before = m_screen->difference();
        QTest::keyClick(table(), Qt::Key_Space);
        QTest::keyClick(table(), Qt::Key_R);
        QVERIFY(tickedPayees().isEmpty());
        QCOMPARE(m_screen->difference(), before);
        QCOMPARE(table()->verticalScrollBar()->value(), scroll);
        QVERIFY(!table()->currentIndex().isValid());
    }

    void escapeCancels_data()
    {
        QTest::addColumn<QString>("focus"); // object name; empty: the table
        QTest::newRow("table") << QString();
        QTest::newRow("statement balance") << u"statementBalance"_s;
    }

    void escapeCancels()
    {
        QFETCH(QString, focus);
        add(u"payment"_s, QDate(2026, 2, 9), -1234, false);
        open();
        QWidget *target = focus.isEmpty() ? table() : m_screen->findChild<QWidget *>(focus);
        target->setFocus();
        QSignalSpy cancelled(&*m_screen, &ReconciliationScreen::cancelled);
        QTest::keyClick(target, Qt::Key_Escape);
        QCOMPARE(cancelled.size(), 1);
    }

    void historyListsNewestFirstOrSaysThereIsNone()
    {
        ReconciliationHistoryScreen history(s());
        history.setAccount(u"a"_s);
        QVERIFY(history.table()->isHidden());
        QVERIFY(!child<QLabel>(&history, "emptyLabel")->isHidden());
        addStatement("jan", QDate(2026, 1, 31), -1250);
        addStatement("mar", QDate(2026, 3, 31), 300000);
        addStatement("feb", QDate(2026, 2, 28), 0);
        history.setAccount(u"a"_s);
        QCOMPARE(child<QLabel>(&history, "titleLabel")->text(), u"Reconciliation History — Checking"_s);
        QVERIFY(!history.table()->isHidden());
        QCOMPARE(history.table()->rowCount(), 3);
        QCOMPARE(history.table()->item(0, 0)->text(), u"Mar 31, 2026"_s);
        QCOMPARE(history.table()->item(0, 1)->text(), u"$3,000.00"_s);
        QCOMPARE(history.table()->item(2, 0)->text(), u"Jan 31, 2026"_s);
        QCOMPARE(history.table()->item(2, 2)->text(), u"-$12.50"_s);
    }
};

OMBREL_GUI_TEST_MAIN(TstReconciliationScreen)
#include "tst_reconciliationscreen.moc"
