#pragma once

#include "core/Transaction.h"

#include <QDialog>

class AppState;
class QLabel;
class QPushButton;

// A read-only summary of one transaction. Marking it cleared and deleting it are done here; editing is
// left to the caller, which reads editRequested() and deleted() after the dialog closes.
class TransactionDetailsDialog : public QDialog {
    Q_OBJECT
public:
    TransactionDetailsDialog(AppState *appState, const Transaction &transaction, QWidget *parent = nullptr);

    bool editRequested() const { return m_editRequested; }
    bool deleted() const { return m_deleted; }
    // The record as it now stands, with any change of its cleared flag.
    Transaction transaction() const { return m_transaction; }

public slots:
    void onEditClicked();
    void onToggleCleared();
    void onDeleteClicked();

private:
    void setupUi();
    QWidget *splitSection() const;
    void refreshClearedTexts();

    AppState *m_state = nullptr;
    Transaction m_transaction;
    bool m_editRequested = false;
    bool m_deleted = false;

    QLabel *m_statusValue = nullptr;
    QLabel *m_modifiedLabel = nullptr;
    QPushButton *m_clearedButton = nullptr;
};
