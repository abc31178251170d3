#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include <array>

class AppState;
class QLabel;
class QPushButton;
class RegisterDelegate;
class RegisterModel;
class RegisterTableView;
struct RegisterRow;

// The ledger page of one account: rows are entered and changed in place, field by field, and written
// only by an explicit commit. Validation, both sides of a transfer and deletion are decided here.
class RegisterScreen : public QWidget {
    Q_OBJECT
public:
    explicit RegisterScreen(AppState *state, QWidget *parent = nullptr);
    ~RegisterScreen() override;

    void setAccount(const QString &accountId);
    QString accountId() const { return m_accountId; }
    // Reloads rows and balances; does nothing while an editor is open, so typing is never lost.
    void refresh();

    RegisterTableView *view() const { return m_view; }
    RegisterModel *model() const { return m_model; }
    QString statusHint() const;
    // Used by the view: moves focus inside the two-line payee editor or on to the next field.
    bool focusNextPrevChild(bool next) override;

signals:
    void newTransactionRequested(const QString &accountId);
    void editTransactionRequested(const QString &transactionId);
    void reconcileRequested(const QString &accountId);
    void errorMessage(const QString &text);

public slots:
    void onContextMenu(const QPoint &pos);
    void commitCurrentRow();
    void deleteCurrentRow();
    void copyFromAbove();
    void advanceToNextField();
    void advanceToPreviousField();
    void startEditingRow(int row);
    void newTransactionDialog();
    void showHeaderContextMenu(const QPoint &pos);
    void resetColumnLayout();
    void insertNewRow();
    void memorizeCurrentRow();
    void toggleClearedCurrentRow();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setupUi();
    void restoreColumns();
    void applyTwoLineMode(bool on);
    void measureFigures(const QList<RegisterRow> &rows);
    void fitColumns();
    void goToNewRow();
    void syncEditor();
    void enterAdvanceOrSave();
    int nextVisibleField(int column, int step) const;
    void showStatusHint(const QString &text, int msec);
    bool isLockedSplitCell(const QModelIndex &index) const;
    void openEditDialog(int row);
    void showDetails(int row);

    QString m_accountId;
    AppState *m_state = nullptr;
    QLabel *m_titleLabel = nullptr;
    QLabel *m_balanceLabel = nullptr;
    QLabel *m_metaLabel = nullptr;
    QLabel *m_statusHint = nullptr;
    QPushButton *m_reconcileButton = nullptr;
    RegisterTableView *m_view = nullptr;
    RegisterModel *m_model = nullptr;
    RegisterDelegate *m_delegate = nullptr;
    bool m_restoringColumns = false;
    int m_columnBeforeReset = 0;
    bool m_fitting = false;
    // The widest payment, deposit and balance of the account, as the cells show them.
    std::array<QString, 3> m_widestFigures;
};
