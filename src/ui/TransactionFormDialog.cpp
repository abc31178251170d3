#include "ui/TransactionFormDialog.h"

#include "core/AppState.h"
#include "core/Dates.h"
#include "core/Identifiers.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "ui/Prompt.h"
#include "ui/SplitEditorDialog.h"
#include "ui/register/DateField.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <cmath>

namespace {
// The spin box holds the nearest double to a two-decimal value; rounding recovers what it shows.
qint64 centsOf(double value)
{
    return std::llround(value * 100.0);
}
} // namespace

QDate TransactionFormDialog::s_lastDate;

TransactionFormDialog::TransactionFormDialog(AppState *appState, const Transaction &transaction,
                                             QWidget *parent)
    : QDialog(parent)
    , m_state(appState)
    , m_accountId(transaction.accountId)
    , m_original(transaction)
    , m_editMode(true)
{
    if (transaction.isSplit)
        m_lines = m_state->splitLines()->getForTransaction(transaction.id);
    setupUi();
    setWindowTitle(tr("Edit Transaction"));
    fill(transaction);
    refreshSplitState();
}

TransactionFormDialog::TransactionFormDialog(AppState *appState, const QString &accountId, QWidget *parent)
    : QDialog(parent)
    , m_state(appState)
    , m_accountId(accountId)
{
    setupUi();
    setWindowTitle(tr("New Transaction"));
    m_dateField->setDate(s_lastDate.isValid() ? s_lastDate : QDate::currentDate());
    refreshSplitState();
}

void TransactionFormDialog::setupUi()
{
    auto *form = new QFormLayout;

    m_paymentRadio = new QRadioButton(tr("Payment"));
    m_paymentRadio->setObjectName(QStringLiteral("paymentRadio"));
    m_paymentRadio->setChecked(true);
    m_depositRadio = new QRadioButton(tr("Deposit"));
    m_depositRadio->setObjectName(QStringLiteral("depositRadio"));
    auto *typeGroup = new QButtonGroup(this);
    typeGroup->addButton(m_paymentRadio);
    typeGroup->addButton(m_depositRadio);
    auto *typeRow = new QHBoxLayout;
    typeRow->addWidget(m_paymentRadio);
    typeRow->addWidget(m_depositRadio);
    typeRow->addStretch();
    form->addRow(tr("Type:"), typeRow);

    m_dateField = new DateField;
    m_dateField->setObjectName(QStringLiteral("dateField"));
    form->addRow(tr("Date:"), m_dateField);

    m_payeeEdit = new QLineEdit;
    m_payeeEdit->setObjectName(QStringLiteral("payeeEdit"));
    m_payeeEdit->setPlaceholderText(tr("Start typing to search payees..."));
    QStringList payees;
    for (const Transaction &t : m_state->transactions()->getByAccount(m_accountId)) {
        if (!t.payee.isEmpty() && !payees.contains(t.payee))
            payees.append(t.payee);
    }
    payees.sort(Qt::CaseInsensitive);
    auto *completer = new QCompleter(payees, m_payeeEdit);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setMaxVisibleItems(10);
    m_payeeEdit->setCompleter(completer);
    form->addRow(tr("Payee:"), m_payeeEdit);

    m_amountSpin = new QDoubleSpinBox;
    m_amountSpin->setObjectName(QStringLiteral("amountSpin"));
    m_amountSpin->setRange(0.0, 99999999.99);
    m_amountSpin->setDecimals(2);
    m_amountSpin->setPrefix(QStringLiteral("$ "));
    m_splitButton = new QPushButton;
    m_splitButton->setObjectName(QStringLiteral("splitButton"));
    m_splitButton->setToolTip(tr("Split this transaction across multiple categories with their own amounts "
                                 "and memos."));
    m_clearSplitButton = new QPushButton(tr("Clear split"));
    m_clearSplitButton->setObjectName(QStringLiteral("clearSplitButton"));
    m_clearSplitButton->setToolTip(tr("Drop the split and return to a single-category transaction."));
    auto *amountRow = new QHBoxLayout;
    amountRow->addWidget(m_amountSpin, 1);
    amountRow->addWidget(m_splitButton);
    amountRow->addWidget(m_clearSplitButton);
    form->addRow(tr("Amount:"), amountRow);

    m_categoryCombo = new QComboBox;
    m_categoryCombo->setObjectName(QStringLiteral("categoryCombo"));
    m_categoryCombo->addItem(tr("(none)"), QString());
    const QList<Category> categories = m_state->categories()->getAll();
    QHash<QString, QString> namesById;
    for (const Category &c : categories)
        namesById.insert(c.id, c.name);
    for (const Category &c : categories) {
        if (c.deletedAt)
            continue;
        const QString parentName = namesById.value(c.parentId);
        m_categoryCombo->addItem(
            parentName.isEmpty() ? c.name : QStringLiteral("%1 > %2").arg(parentName, c.name), c.id);
    }
    form->addRow(tr("Category:"), m_categoryCombo);

    m_memoEdit = new QLineEdit;
    m_memoEdit->setObjectName(QStringLiteral("memoEdit"));
    m_memoEdit->setPlaceholderText(tr("Optional"));
    form->addRow(tr("Memo:"), m_memoEdit);

    m_checkEdit = new QLineEdit;
    m_checkEdit->setObjectName(QStringLiteral("checkEdit"));
    m_checkEdit->setPlaceholderText(tr("Optional"));
    form->addRow(tr("Check #:"), m_checkEdit);

    m_clearedCheck = new QCheckBox(tr("Cleared"));
    m_clearedCheck->setObjectName(QStringLiteral("clearedCheck"));
    form->addRow(QString(), m_clearedCheck);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->setObjectName(QStringLiteral("buttonBox"));

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    m_payeeEdit->setFocus();

    connect(completer, qOverload<const QString &>(&QCompleter::activated), this,
            &TransactionFormDialog::onPayeeSelected);
    connect(m_splitButton, &QPushButton::clicked, this, &TransactionFormDialog::onOpenSplitEditor);
    connect(m_clearSplitButton, &QPushButton::clicked, this, &TransactionFormDialog::onClearSplit);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void TransactionFormDialog::fill(const Transaction &transaction)
{
    (transaction.amount < 0 ? m_paymentRadio : m_depositRadio)->setChecked(true);
    m_dateField->setDate(transaction.date);
    m_payeeEdit->setText(transaction.payee);
    const qint64 magnitude = transaction.amount < 0 ? -transaction.amount : transaction.amount;
    m_amountSpin->setValue(static_cast<double>(magnitude) / 100.0);
    m_categoryCombo->setCurrentIndex(qMax(0, m_categoryCombo->findData(transaction.categoryId)));
    m_memoEdit->setText(transaction.memo);
    m_checkEdit->setText(transaction.checkNumber);
    m_clearedCheck->setChecked(transaction.cleared);
}

void TransactionFormDialog::refreshSplitState()
{
    const bool split = !m_lines.isEmpty();
    // Only an editable combo can show a text that is none of its items.
    m_categoryCombo->setEditable(split);
    m_categoryCombo->setEnabled(!split);
    if (split)
        m_categoryCombo->setEditText(QStringLiteral("—Split—"));
    m_clearSplitButton->setVisible(split);
    m_splitButton->setText(split ? tr("Edit splits...") : tr("Split..."));
}

void TransactionFormDialog::onPayeeSelected(const QString &payee)
{
    const std::optional<Transaction> last = m_state->transactions()->getLastForPayee(payee, m_accountId);
    if (!last)
        return;
    // Replaces whatever was typed, as the register's fill-in does.
    (last->amount < 0 ? m_paymentRadio : m_depositRadio)->setChecked(true);
    const qint64 magnitude = last->amount < 0 ? -last->amount : last->amount;
    m_amountSpin->setValue(static_cast<double>(magnitude) / 100.0);
    if (!last->memo.isEmpty())
        m_memoEdit->setText(last->memo);
    if (const int found = m_categoryCombo->findData(last->categoryId);
        !last->categoryId.isEmpty() && found >= 0)
        m_categoryCombo->setCurrentIndex(found);
    refreshSplitState();
}

qint64 TransactionFormDialog::signedAmount() const
{
    const qint64 cents = centsOf(m_amountSpin->value());
    return m_paymentRadio->isChecked() ? -cents : cents;
}

void TransactionFormDialog::onOpenSplitEditor()
{
    if (centsOf(m_amountSpin->value()) == 0 && m_lines.isEmpty()) {
        m_amountSpin->setFocus();
        m_amountSpin->selectAll();
        return;
    }
    QList<QPair<QString, QString>> categories;
    for (int i = 1; i < m_categoryCombo->count(); ++i)
        categories.append({m_categoryCombo->itemData(i).toString(), m_categoryCombo->itemText(i)});
    SplitEditorDialog dialog(signedAmount(), categories, m_lines, this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    m_lines = dialog.lines();
    refreshSplitState();
}

void TransactionFormDialog::onClearSplit()
{
    m_lines.clear();
    refreshSplitState();
}

QList<SplitLine> TransactionFormDialog::splitLines() const
{
    // The radio buttons may have changed since the lines were made; they alone decide the sign.
    const bool payment = m_paymentRadio->isChecked();
    QList<SplitLine> lines = m_lines;
    for (SplitLine &line : lines) {
        const qint64 magnitude = line.amount < 0 ? -line.amount : line.amount;
        line.amount = payment ? -magnitude : magnitude;
    }
    return lines;
}

Transaction TransactionFormDialog::transaction() const
{
    Transaction t = m_original;
    const QDateTime now = utcNow();
    if (!m_editMode) {
        t.id = newId();
        t.accountId = m_accountId;
        t.createdAt = now;
    }
    t.date = m_dateField->date();
    t.payee = m_payeeEdit->text().trimmed();
    t.amount = signedAmount();
    t.isSplit = !m_lines.isEmpty();
    t.categoryId = t.isSplit ? QString() : m_categoryCombo->currentData().toString();
    t.memo = m_memoEdit->text().trimmed();
    t.checkNumber = m_checkEdit->text().trimmed();
    t.cleared = m_clearedCheck->isChecked();
    t.updatedAt = now;
    t.syncStatus = SyncStatus::Pending;
    s_lastDate = t.date;
    return t;
}
