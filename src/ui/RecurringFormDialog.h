#pragma once

#include "core/Account.h"
#include "core/Category.h"
#include "core/RecurringTransaction.h"

#include <QDialog>
#include <QList>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QDoubleSpinBox;
class QLineEdit;
class QRadioButton;

// The form for a recurring rule: a new one, an edit, or one memorised from a register row. It writes
// nothing: the caller stores recurring(). The accounts and categories fill its combo boxes.
class RecurringFormDialog : public QDialog {
    Q_OBJECT
public:
    RecurringFormDialog(const QList<Account> &accounts, const QList<Category> &categories,
                        QWidget *parent = nullptr);
    RecurringFormDialog(const RecurringTransaction &recurring, const QList<Account> &accounts,
                        const QList<Category> &categories, QWidget *parent = nullptr);

    // "Memorize Transaction": the seed prefills the form and the result is a new rule.
    static RecurringFormDialog *createFromSeed(const RecurringTransaction &seed,
                                               const QList<Account> &accounts,
                                               const QList<Category> &categories, QWidget *parent = nullptr);

    RecurringTransaction recurring() const;

private:
    enum class Mode { New, Edit, FromSeed };

    RecurringFormDialog(Mode mode, const RecurringTransaction &record, const QList<Account> &accounts,
                        const QList<Category> &categories, QWidget *parent);

    void setupUi(const QList<Account> &accounts, const QList<Category> &categories);
    void fill(const RecurringTransaction &record);

    RecurringTransaction m_original;
    bool m_editMode = false;
    bool m_fromSeed = false;

    QComboBox *m_accountCombo = nullptr;
    QRadioButton *m_paymentRadio = nullptr;
    QRadioButton *m_depositRadio = nullptr;
    QLineEdit *m_payeeEdit = nullptr;
    QDoubleSpinBox *m_amountSpin = nullptr;
    QComboBox *m_categoryCombo = nullptr;
    QLineEdit *m_memoEdit = nullptr;
    QComboBox *m_frequencyCombo = nullptr;
    QDateEdit *m_startDateEdit = nullptr;
    QCheckBox *m_endDateCheck = nullptr;
    QDateEdit *m_endDateEdit = nullptr;
    QCheckBox *m_autoPostCheck = nullptr;
    QCheckBox *m_activeCheck = nullptr;
};
