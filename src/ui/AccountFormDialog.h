#pragma once

#include "core/Account.h"

#include <QDate>
#include <QDialog>

class QComboBox;
class QDateEdit;
class QDoubleSpinBox;
class QLineEdit;

// The form for a new account or for editing one. It writes nothing: the caller stores account(), and
// for a new account books the starting balance as an opening transaction dated openingDate().
class AccountFormDialog : public QDialog {
    Q_OBJECT
public:
    explicit AccountFormDialog(QWidget *parent = nullptr);
    explicit AccountFormDialog(const Account &account, QWidget *parent = nullptr);

    Account account() const;
    QDate openingDate() const;

private:
    void setupUi();
    void fill(const Account &account);

    Account m_original;
    bool m_editMode = false;

    QLineEdit *m_nameEdit = nullptr;
    QComboBox *m_typeCombo = nullptr;
    QComboBox *m_currencyCombo = nullptr;
    QDoubleSpinBox *m_balanceSpin = nullptr;
    QDateEdit *m_dateEdit = nullptr;
    QLineEdit *m_institutionEdit = nullptr;
    QLineEdit *m_numberEdit = nullptr;
};
