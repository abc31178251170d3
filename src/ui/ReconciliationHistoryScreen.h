#pragma once

#include <QString>
#include <QWidget>

class AppState;
class QLabel;
class QTableWidget;

// The statements an account has been balanced against, newest first. It only reads.
class ReconciliationHistoryScreen : public QWidget {
    Q_OBJECT
public:
    explicit ReconciliationHistoryScreen(AppState *state, QWidget *parent = nullptr);

    // Reads the account's history anew.
    void setAccount(const QString &accountId);

    QTableWidget *table() const { return m_table; }

private:
    void setupUi();

    AppState *m_state = nullptr;
    QLabel *m_titleLabel = nullptr;
    QTableWidget *m_table = nullptr;
    QLabel *m_emptyLabel = nullptr;
};
