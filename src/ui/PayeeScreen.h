#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

class AppState;
class QLineEdit;
class QListWidget;
class QPushButton;

// Renames payees across all accounts, or merges several spellings of one payee into one name.
class PayeeScreen : public QWidget {
    Q_OBJECT
public:
    explicit PayeeScreen(AppState *state, QWidget *parent = nullptr);

    // Lists the payees of all live transactions again.
    void reload();

signals:
    void payeesChanged();

private slots:
    void onRename();
    void onMerge();

private:
    void setupUi();
    QStringList selectedPayees() const;
    // Gives every live row of the old name the new one; the number of rows changed.
    int renamePayee(const QString &oldName, const QString &newName);

    AppState *m_state = nullptr;
    QListWidget *m_list = nullptr;
    QLineEdit *m_nameEdit = nullptr;
    QPushButton *m_renameButton = nullptr;
    QPushButton *m_mergeButton = nullptr;
};
