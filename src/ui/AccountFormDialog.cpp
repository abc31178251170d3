#include "ui/AccountFormDialog.h"

#include "core/Dates.h"
#include "core/Identifiers.h"
#include "core/ThemeManager.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <cmath>

namespace {
// The spin box holds the nearest double to a two-decimal value, so a few ulps either side of a whole
// number of cents: rounding, never truncating, recovers exactly what it shows.
qint64 centsOf(double value)
{
    return std::llround(value * 100.0);
}
} // namespace

AccountFormDialog::AccountFormDialog(QWidget *parent)
    : QDialog(parent)
{
    setupUi();
    setWindowTitle(tr("New Account"));
}

AccountFormDialog::AccountFormDialog(const Account &account, QWidget *parent)
    : QDialog(parent)
    , m_original(account)
    , m_editMode(true)
{
    setupUi();
    setWindowTitle(tr("Edit Account"));
    fill(account);
}

void AccountFormDialog::setupUi()
{
    setMinimumWidth(400);
    auto *form = new QFormLayout;

    m_nameEdit = new QLineEdit;
    m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
    m_nameEdit->setPlaceholderText(tr("Account name"));
    form->addRow(tr("&Name:"), m_nameEdit);

    m_typeCombo = new QComboBox;
    m_typeCombo->setObjectName(QStringLiteral("typeCombo"));
    m_typeCombo->addItem(tr("Checking"), QStringLiteral("checking"));
    m_typeCombo->addItem(tr("Savings"), QStringLiteral("savings"));
    m_typeCombo->addItem(tr("Credit Card"), QStringLiteral("credit_card"));
    m_typeCombo->addItem(tr("Cash"), QStringLiteral("cash"));
    m_typeCombo->addItem(tr("Investment"), QStringLiteral("investment"));
    m_typeCombo->addItem(tr("Other"), QStringLiteral("other"));
    form->addRow(tr("&Type:"), m_typeCombo);

    m_currencyCombo = new QComboBox;
    m_currencyCombo->setObjectName(QStringLiteral("currencyCombo"));
    m_currencyCombo->addItem(tr("USD ($)"), QStringLiteral("USD"));
    m_currencyCombo->addItem(tr("EUR (€)"), QStringLiteral("EUR"));
    m_currencyCombo->addItem(tr("GBP (£)"), QStringLiteral("GBP"));
    m_currencyCombo->addItem(tr("CAD ($)"), QStringLiteral("CAD"));
    m_currencyCombo->addItem(tr("AUD ($)"), QStringLiteral("AUD"));
    m_currencyCombo->addItem(tr("JPY (¥)"), QStringLiteral("JPY"));
    form->addRow(tr("&Currency:"), m_currencyCombo);

    m_balanceSpin = new QDoubleSpinBox;
    m_balanceSpin->setObjectName(QStringLiteral("balanceSpin"));
    m_balanceSpin->setDecimals(2);
    m_balanceSpin->setRange(-99999999.99, 99999999.99);
    m_balanceSpin->setPrefix(QStringLiteral("$ "));
    form->addRow(tr("Starting &Balance:"), m_balanceSpin);

    m_dateEdit = new QDateEdit(QDate::currentDate());
    m_dateEdit->setObjectName(QStringLiteral("dateEdit"));
    m_dateEdit->setCalendarPopup(true);
    m_dateEdit->setDisplayFormat(QStringLiteral("M/d/yyyy"));
    m_dateEdit->calendarWidget()->setFirstDayOfWeek(ThemeManager::firstDayOfWeek());
    form->addRow(tr("&As of:"), m_dateEdit);

    m_institutionEdit = new QLineEdit;
    m_institutionEdit->setObjectName(QStringLiteral("institutionEdit"));
    m_institutionEdit->setPlaceholderText(tr("Bank name (optional)"));
    form->addRow(tr("&Institution:"), m_institutionEdit);

    m_numberEdit = new QLineEdit;
    m_numberEdit->setObjectName(QStringLiteral("numberEdit"));
    m_numberEdit->setMaxLength(4);
    m_numberEdit->setPlaceholderText(tr("Last 4 digits (optional)"));
    form->addRow(tr("Account &Number:"), m_numberEdit);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->setObjectName(QStringLiteral("buttonBox"));

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void AccountFormDialog::fill(const Account &account)
{
    m_nameEdit->setText(account.name);
    // A value outside the known set prints as the fallback word, so the combo always finds an item.
    m_typeCombo->setCurrentIndex(m_typeCombo->findData(accountTypeToString(account.accountType)));
    m_currencyCombo->setCurrentIndex(m_currencyCombo->findData(currencyToString(account.currency)));
    m_balanceSpin->setValue(static_cast<double>(account.startingBalance) / 100.0);
    m_institutionEdit->setText(account.institution);
    m_numberEdit->setText(account.accountNumberLast4);
}

Account AccountFormDialog::account() const
{
    Account a = m_original;
    const QDateTime now = utcNow();
    if (!m_editMode) {
        a.id = newId();
        a.createdAt = now;
    }
    a.name = m_nameEdit->text().trimmed();
    a.accountType = accountTypeFromString(m_typeCombo->currentData().toString());
    a.currency = currencyFromString(m_currencyCombo->currentData().toString());
    a.startingBalance = centsOf(m_balanceSpin->value());
    a.institution = m_institutionEdit->text().trimmed();
    a.accountNumberLast4 = m_numberEdit->text().trimmed();
    a.updatedAt = now;
    a.syncStatus = SyncStatus::Pending;
    return a;
}

QDate AccountFormDialog::openingDate() const
{
    return m_dateEdit->date();
}
