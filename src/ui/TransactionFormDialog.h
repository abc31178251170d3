#pragma once

#include "core/SplitLine.h"
#include "core/Transaction.h"

#include <QDate>
#include <QDialog>
#include <QList>

class AppState;
class DateField;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

// The full form for one transaction, with its split lines. It writes nothing: the caller stores
// transaction() and replaces the record's lines with splitLines().
class TransactionFormDialog : public QDialog {
    Q_OBJECT
public:
    TransactionFormDialog(AppState *appState, const Transaction &transaction, QWidget *parent = nullptr);
    TransactionFormDialog(AppState *appState, const QString &accountId, QWidget *parent = nullptr);

    Transaction transaction() const;
    // Signed as the transaction is: negative for a payment.
    QList<SplitLine> splitLines() const;

public slots:
    void onPayeeSelected(const QString &payee);
    void onOpenSplitEditor();
    void onClearSplit();

private:
    void setupUi();
    void fill(const Transaction &transaction);
    void refreshSplitState();
    qint64 signedAmount() const;

    // The date of the last accepted form, so that a run of new entries keeps its date.
    static QDate s_lastDate;

    AppState *m_state = nullptr;
    QString m_accountId;
    Transaction m_original;
    bool m_editMode = false;
    QList<SplitLine> m_lines;

    QRadioButton *m_paymentRadio = nullptr;
    QRadioButton *m_depositRadio = nullptr;
    DateField *m_dateField = nullptr;
    QLineEdit *m_payeeEdit = nullptr;
    QDoubleSpinBox *m_amountSpin = nullptr;
    QPushButton *m_splitButton = nullptr;
    QPushButton *m_clearSplitButton = nullptr;
    QComboBox *m_categoryCombo = nullptr;
    QLineEdit *m_memoEdit = nullptr;
    QLineEdit *m_checkEdit = nullptr;
    QCheckBox *m_clearedCheck = nullptr;
};
