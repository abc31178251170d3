#pragma once

#include "core/Currency.h"
#include "core/Transaction.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QWidget>

class AppState;
class DateField;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;

// Balancing one account against a bank statement: the user gives the statement's date and balance and
// ticks the rows the statement shows; the ticks live in this window until Finish marks them reconciled.
class ReconciliationScreen : public QWidget {
    Q_OBJECT
public:
    explicit ReconciliationScreen(AppState *state, QWidget *parent = nullptr);

    void setAccount(const QString &accountId);

    QTableWidget *table() const { return m_table; }
    qint64 previousBalance() const { return m_previousBalance; }
    // The difference as last shown: statement balance minus cleared balance, in cents.
    qint64 difference() const { return m_difference; }

signals:
    void reconciliationCompleted();
    void cancelled();

private slots:
    void onTransactionToggled(int row);
    void updateDifference();
    void finish();
    void addTransaction();
    void editSelectedTransaction();
    void deleteSelectedTransaction();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum Column { CheckColumn = 0, DateColumn, PayeeColumn, AmountColumn, ClearedColumn, ColumnCount };

    void setupUi();
    QWidget *buildFiguresPanel();
    QWidget *buildTablePanel();
    void setupShortcuts();
    void refreshList();
    void toggleRow(int row);
    qint64 statementCents() const;
    int currentRow() const;

    AppState *m_state = nullptr;
    QString m_accountId;
    Currency m_currency = Currency::USD;
    qint64 m_previousBalance = 0;
    qint64 m_difference = 0;
    QList<Transaction> m_transactions;
    QByteArray m_checked; // one flag a row of m_transactions

    DateField *m_statementDate = nullptr;
    QDoubleSpinBox *m_statementBalance = nullptr;
    QLabel *m_previousValue = nullptr;
    QLabel *m_depositsValue = nullptr;
    QLabel *m_withdrawalsValue = nullptr;
    QLabel *m_clearedValue = nullptr;
    QLabel *m_statementValue = nullptr;
    QLabel *m_differenceValue = nullptr;
    QPushButton *m_finishButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
    QTableWidget *m_table = nullptr;
    QPushButton *m_addButton = nullptr;
    QPushButton *m_editButton = nullptr;
    QPushButton *m_deleteButton = nullptr;
};
