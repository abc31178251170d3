#pragma once

#include <QWidget>

class AppState;
class QLabel;
class QPushButton;
class QTableView;
class RecurringModel;

// Every recurring rule, how many are due, and the means to confirm, skip, edit, delete and add them.
class RecurringScreen : public QWidget {
    Q_OBJECT
public:
    explicit RecurringScreen(AppState *state, QWidget *parent = nullptr);

    // Reloads the rules and the due count, keeping the current rule current.
    void refresh();

    QTableView *view() const { return m_view; }
    RecurringModel *model() const { return m_model; }

signals:
    // Something was posted: the account list and the register are out of date.
    void transactionsChanged();

private slots:
    void onContextMenu(const QPoint &pos);
    void showNewForm();
    void showEditForm(int row);
    void confirmSelected();
    void skipSelected();
    void deleteSelected();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setupUi();
    void fitAccountColumn();
    void confirmAllDue();
    int currentRow() const;

    AppState *m_state = nullptr;
    RecurringModel *m_model = nullptr;
    QTableView *m_view = nullptr;
    QLabel *m_dueLabel = nullptr;
    QPushButton *m_confirmAllButton = nullptr;
    QPushButton *m_newButton = nullptr;
};
