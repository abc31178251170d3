#pragma once

#include <QString>
#include <QWidget>

class AppState;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;
class QModelIndex;
class QTableView;
class QTimer;
class RegisterModel;

// Finds transactions across all accounts by full-text search, narrowed by account, category, dates
// and the cleared mark. Typing searches once the user pauses; every other filter searches at once.
class SearchScreen : public QWidget {
    Q_OBJECT
public:
    explicit SearchScreen(AppState *state, QWidget *parent = nullptr);

    // Reloads the account and category lists, keeping each choice while it exists, and searches again.
    void reloadFilters();
    // Puts the cursor in the search field with its text selected, ready to type over.
    void focusSearchField();

    RegisterModel *model() const { return m_model; }
    QTableView *view() const { return m_view; }

signals:
    void editTransactionRequested(const QString &transactionId);

private slots:
    void performSearch();

private:
    void setupUi();
    void connectSignals();
    void onDoubleClicked(const QModelIndex &index);

    AppState *m_state = nullptr;
    QLineEdit *m_searchEdit = nullptr;
    QComboBox *m_accountCombo = nullptr;
    QComboBox *m_categoryCombo = nullptr;
    QCheckBox *m_dateCheck = nullptr;
    QDateEdit *m_fromEdit = nullptr;
    QDateEdit *m_toEdit = nullptr;
    QCheckBox *m_clearedCheck = nullptr;
    QTableView *m_view = nullptr;
    RegisterModel *m_model = nullptr;
    QTimer *m_typingTimer = nullptr;
};
