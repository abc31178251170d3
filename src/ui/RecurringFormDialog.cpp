#include "ui/RecurringFormDialog.h"

#include "core/Dates.h"
#include "core/Identifiers.h"
#include "core/ThemeManager.h"

#include <QButtonGroup>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDebug>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {
// No rule can start before this; an earlier date is a broken seed, not a real schedule.
const QDate kFloorDate(2000, 1, 1);

// The spin box holds the nearest double to a two-decimal value, so a few ulps either side of a whole
// number of cents: rounding, never truncating, recovers exactly what it shows.
qint64 centsOf(double value)
{
    return std::llround(value * 100.0);
}

QDateEdit *newDateEdit(const QString &objectName)
{
    auto *edit = new QDateEdit(QDate::currentDate());
    edit->setObjectName(objectName);
    edit->setCalendarPopup(true);
    edit->setDisplayFormat(QStringLiteral("M/d/yyyy"));
    edit->calendarWidget()->setFirstDayOfWeek(ThemeManager::firstDayOfWeek());
    return edit;
}

bool isUsableDate(const QDate &date)
{
    return date.isValid() && date >= kFloorDate;
}
} // namespace

RecurringFormDialog::RecurringFormDialog(const QList<Account> &accounts, const QList<Category> &categories,
                                         QWidget *parent)
    : RecurringFormDialog(Mode::New, RecurringTransaction(), accounts, categories, parent)
{
}

RecurringFormDialog::RecurringFormDialog(const RecurringTransaction &recurring,
                                         const QList<Account> &accounts, const QList<Category> &categories,
                                         QWidget *parent)
    : RecurringFormDialog(Mode::Edit, recurring, accounts, categories, parent)
{
}

RecurringFormDialog *RecurringFormDialog::createFromSeed(const RecurringTransaction &seed,
                                                         const QList<Account> &accounts,
                                                         const QList<Category> &categories, QWidget *parent)
{
    return new RecurringFormDialog(Mode::FromSeed, seed, accounts, categories, parent);
}

RecurringFormDialog::RecurringFormDialog(Mode mode, const RecurringTransaction &record,
                                         const QList<Account> &accounts, const QList<Category> &categories,
                                         QWidget *parent)
    : QDialog(parent)
    , m_original(record)
    , m_editMode(mode == Mode::Edit)
    , m_fromSeed(mode == Mode::FromSeed)
{
    setupUi(accounts, categories);
    switch (mode) {
    case Mode::New: setWindowTitle(tr("New Recurring Transaction")); break;
    case Mode::Edit: setWindowTitle(tr("Edit Recurring Transaction")); break;
    case Mode::FromSeed: setWindowTitle(tr("Memorize Transaction")); break;
    }
    fill(record);
}

void RecurringFormDialog::setupUi(const QList<Account> &accounts, const QList<Category> &categories)
{
    setMinimumWidth(480);
    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);

    m_accountCombo = new QComboBox;
    m_accountCombo->setObjectName(QStringLiteral("accountCombo"));
    for (const Account &a : accounts) {
        if (!a.deletedAt)
            m_accountCombo->addItem(a.name, a.id);
    }
    form->addRow(tr("Account:"), m_accountCombo);

    m_paymentRadio = new QRadioButton(tr("Payment"));
    m_paymentRadio->setObjectName(QStringLiteral("paymentRadio"));
    m_depositRadio = new QRadioButton(tr("Deposit"));
    m_depositRadio->setObjectName(QStringLiteral("depositRadio"));
    auto *typeGroup = new QButtonGroup(this);
    typeGroup->addButton(m_paymentRadio);
    typeGroup->addButton(m_depositRadio);
    m_paymentRadio->setChecked(true);
    auto *typeRow = new QHBoxLayout;
    typeRow->addWidget(m_paymentRadio);
    typeRow->addWidget(m_depositRadio);
    typeRow->addStretch();
    form->addRow(tr("Type:"), typeRow);

    m_payeeEdit = new QLineEdit;
    m_payeeEdit->setObjectName(QStringLiteral("payeeEdit"));
    m_payeeEdit->setPlaceholderText(tr("Start typing to search payees..."));
    form->addRow(tr("Payee:"), m_payeeEdit);

    m_amountSpin = new QDoubleSpinBox;
    m_amountSpin->setObjectName(QStringLiteral("amountSpin"));
    m_amountSpin->setDecimals(2);
    m_amountSpin->setRange(0.0, 99999999.99);
    m_amountSpin->setPrefix(QStringLiteral("$ "));
    form->addRow(tr("Amount:"), m_amountSpin);

    m_categoryCombo = new QComboBox;
    m_categoryCombo->setObjectName(QStringLiteral("categoryCombo"));
    m_categoryCombo->addItem(tr("(none)"), QString());
    QHash<QString, QString> namesById;
    for (const Category &c : categories)
        namesById.insert(c.id, c.name);
    for (const Category &c : categories) {
        if (c.deletedAt)
            continue;
        const QString parentName = namesById.value(c.parentId);
        const QString label =
            parentName.isEmpty() ? c.name : QStringLiteral("%1 > %2").arg(parentName, c.name);
        m_categoryCombo->addItem(label, c.id);
    }
    form->addRow(tr("Category:"), m_categoryCombo);

    m_memoEdit = new QLineEdit;
    m_memoEdit->setObjectName(QStringLiteral("memoEdit"));
    m_memoEdit->setPlaceholderText(tr("Optional"));
    form->addRow(tr("Memo:"), m_memoEdit);

    m_frequencyCombo = new QComboBox;
    m_frequencyCombo->setObjectName(QStringLiteral("frequencyCombo"));
    m_frequencyCombo->addItem(tr("Daily"), QStringLiteral("daily"));
    m_frequencyCombo->addItem(tr("Weekly"), QStringLiteral("weekly"));
    m_frequencyCombo->addItem(tr("Bi-weekly"), QStringLiteral("biweekly"));
    m_frequencyCombo->addItem(tr("Monthly"), QStringLiteral("monthly"));
    m_frequencyCombo->addItem(tr("Quarterly"), QStringLiteral("quarterly"));
    m_frequencyCombo->addItem(tr("Semi-annual"), QStringLiteral("semi_annual"));
    m_frequencyCombo->addItem(tr("Annual"), QStringLiteral("annual"));
    m_frequencyCombo->setCurrentIndex(m_frequencyCombo->findData(QStringLiteral("monthly")));
    form->addRow(tr("Frequency:"), m_frequencyCombo);

    m_startDateEdit = newDateEdit(QStringLiteral("startDateEdit"));
    form->addRow(tr("Start Date:"), m_startDateEdit);

    m_endDateCheck = new QCheckBox(tr("Has end date"));
    m_endDateCheck->setObjectName(QStringLiteral("endDateCheck"));
    form->addRow(m_endDateCheck);

    m_endDateEdit = newDateEdit(QStringLiteral("endDateEdit"));
    m_endDateEdit->setEnabled(false);
    form->addRow(tr("End Date:"), m_endDateEdit);

    m_autoPostCheck = new QCheckBox(tr("Auto-post when due"));
    m_autoPostCheck->setObjectName(QStringLiteral("autoPostCheck"));
    form->addRow(m_autoPostCheck);

    m_activeCheck = new QCheckBox(tr("Active"));
    m_activeCheck->setObjectName(QStringLiteral("activeCheck"));
    m_activeCheck->setChecked(true);
    form->addRow(m_activeCheck);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->setObjectName(QStringLiteral("buttonBox"));

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    connect(m_endDateCheck, &QCheckBox::toggled, m_endDateEdit, &QWidget::setEnabled);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void RecurringFormDialog::fill(const RecurringTransaction &record)
{
    // A rule whose account is not offered keeps it: recurring() falls back to the record's own id.
    if (!record.accountId.isEmpty())
        m_accountCombo->setCurrentIndex(m_accountCombo->findData(record.accountId));
    m_depositRadio->setChecked(record.amount > 0);
    m_paymentRadio->setChecked(record.amount <= 0);
    m_payeeEdit->setText(record.payee);
    m_amountSpin->setValue(static_cast<double>(std::abs(record.amount)) / 100.0);
    m_categoryCombo->setCurrentIndex(std::max(0, m_categoryCombo->findData(record.categoryId)));
    m_memoEdit->setText(record.memo);
    m_frequencyCombo->setCurrentIndex(m_frequencyCombo->findData(frequencyToString(record.frequency)));
    if (record.startDate.isValid())
        m_startDateEdit->setDate(record.startDate);
    if (record.endDate && record.endDate->isValid()) {
        m_endDateCheck->setChecked(true);
        m_endDateEdit->setDate(*record.endDate);
    }
    m_autoPostCheck->setChecked(record.autoPost);
    m_activeCheck->setChecked(record.isActive);
}

RecurringTransaction RecurringFormDialog::recurring() const
{
    RecurringTransaction r = m_original;
    const QDateTime now = utcNow();
    if (!m_editMode) {
        r.id = newId();
        r.createdAt = now;
    }

    const QString accountId = m_accountCombo->currentData().toString();
    if (!accountId.isEmpty())
        r.accountId = accountId;
    r.payee = m_payeeEdit->text().trimmed();
    const qint64 cents = centsOf(m_amountSpin->value());
    r.amount = m_paymentRadio->isChecked() ? -cents : cents;
    r.categoryId = m_categoryCombo->currentData().toString();
    r.memo = m_memoEdit->text().trimmed();
    r.frequency = frequencyFromString(m_frequencyCombo->currentData().toString());

    const QDate widgetDate = m_startDateEdit->date();
    qInfo() << "RecurringFormDialog::recurring() — m_editMode=" << m_editMode
            << "isCreateFromSeed=" << m_fromSeed << "widget.date=" << widgetDate
            << "m_original.startDate=" << m_original.startDate
            << "m_original.nextDueDate=" << m_original.nextDueDate;

    r.endDate = m_endDateCheck->isChecked() ? std::optional<QDate>(m_endDateEdit->date()) : std::nullopt;

    // Leaving the start date alone keeps the schedule where it is; changing it restarts the schedule.
    if (m_editMode && widgetDate == m_original.startDate) {
        r.startDate = m_original.startDate;
        r.nextDueDate = m_original.nextDueDate;
    } else {
        r.startDate = widgetDate;
        r.nextDueDate = widgetDate;
    }

    if (!isUsableDate(r.startDate)) {
        qWarning() << "RecurringFormDialog: rejecting invalid startDate" << r.startDate
                   << "— falling back to today";
        r.startDate = QDate::currentDate();
    }
    if (!isUsableDate(r.nextDueDate)) {
        qWarning() << "RecurringFormDialog: rejecting invalid nextDueDate" << r.nextDueDate
                   << "— falling back to startDate" << r.startDate;
        r.nextDueDate = r.startDate;
    }

    r.autoPost = m_autoPostCheck->isChecked();
    r.isActive = m_activeCheck->isChecked();
    r.syncStatus = SyncStatus::Pending;
    if (m_editMode)
        r.version = m_original.version + 1;
    r.updatedAt = now;
    return r;
}
