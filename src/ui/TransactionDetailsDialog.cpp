#include "ui/TransactionDetailsDialog.h"

#include "core/AppState.h"
#include "core/Dates.h"
#include "core/Money.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "ui/Prompt.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr char kMuted[] = "#6E8A7E";

QString mutedStyle()
{
    return QStringLiteral("color: %1;").arg(QLatin1String(kMuted));
}

QLabel *rowLabel(const QString &text)
{
    auto *label = new QLabel(text);
    label->setStyleSheet(mutedStyle());
    return label;
}

// An empty value still holds its row, in the muted colour, so the rows keep their places.
QLabel *valueLabel(const QString &text, const char *objectName)
{
    auto *label = new QLabel(text.isEmpty() ? QStringLiteral("—") : text);
    label->setObjectName(QLatin1String(objectName));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    if (text.isEmpty())
        label->setStyleSheet(mutedStyle());
    return label;
}

QString timestampShown(const QDateTime &timestamp)
{
    return QLocale().toString(timestamp.toLocalTime(), QLocale::ShortFormat);
}
} // namespace

TransactionDetailsDialog::TransactionDetailsDialog(AppState *appState, const Transaction &transaction,
                                                   QWidget *parent)
    : QDialog(parent)
    , m_state(appState)
    , m_transaction(transaction)
{
    setupUi();
    refreshClearedTexts();
}

void TransactionDetailsDialog::setupUi()
{
    setWindowTitle(tr("Transaction Details"));
    setMinimumSize(480, 420);
    const Transaction &t = m_transaction;

    auto *form = new QFormLayout;
    form->addRow(rowLabel(tr("Date:")),
                 valueLabel(QLocale().toString(t.date, QLocale::LongFormat), "dateValue"));
    form->addRow(rowLabel(tr("Payee:")), valueLabel(t.payee, "payeeValue"));

    const QString amountText = t.amount < 0 ? tr("- %1").arg(formatAmount(-t.amount, Currency::USD))
                                            : formatAmount(t.amount, Currency::USD);
    auto *amount = valueLabel(amountText, "amountValue");
    const QColor amountColor = t.amount < 0 ? ThemeManager::negativeColor() : ThemeManager::positiveColor();
    amount->setStyleSheet(QStringLiteral("color: %1; font-weight: 600;").arg(amountColor.name()));
    form->addRow(rowLabel(tr("Amount:")), amount);

    QString category;
    if (t.isSplit) {
        category = QStringLiteral("—Split—");
    } else if (!t.categoryId.isEmpty()) {
        if (const std::optional<Category> c = m_state->categories()->getById(t.categoryId))
            category = c->name;
    }
    form->addRow(rowLabel(tr("Category:")), valueLabel(category, "categoryValue"));
    form->addRow(rowLabel(tr("Memo:")), valueLabel(t.memo, "memoValue"));
    form->addRow(rowLabel(tr("Check #:")), valueLabel(t.checkNumber, "checkValue"));
    if (!t.transferLinkId.isEmpty()) {
        const std::optional<Account> other = m_state->accounts()->getById(t.transferDestAccountId);
        form->addRow(rowLabel(tr("Transfer to:")),
                     valueLabel(other ? other->name : QString(), "transferValue"));
    }
    m_statusValue = valueLabel(QString(), "statusValue");
    m_statusValue->setStyleSheet(QString());
    form->addRow(rowLabel(tr("Status:")), m_statusValue);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    if (t.isSplit)
        layout->addWidget(splitSection());
    layout->addStretch();

    auto *entered = new QLabel(tr("Entered: %1").arg(timestampShown(t.createdAt)));
    entered->setObjectName(QStringLiteral("enteredLabel"));
    entered->setStyleSheet(mutedStyle());
    m_modifiedLabel = new QLabel;
    m_modifiedLabel->setObjectName(QStringLiteral("modifiedLabel"));
    m_modifiedLabel->setStyleSheet(mutedStyle());
    layout->addWidget(entered);
    layout->addWidget(m_modifiedLabel);

    auto *buttons = new QDialogButtonBox;
    buttons->setObjectName(QStringLiteral("buttonBox"));
    auto *editButton = buttons->addButton(tr("Edit..."), QDialogButtonBox::ActionRole);
    editButton->setObjectName(QStringLiteral("editButton"));
    m_clearedButton = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    m_clearedButton->setObjectName(QStringLiteral("clearedButton"));
    auto *deleteButton = buttons->addButton(tr("Delete..."), QDialogButtonBox::DestructiveRole);
    deleteButton->setObjectName(QStringLiteral("deleteButton"));
    buttons->addButton(QDialogButtonBox::Close);
    layout->addWidget(buttons);

    connect(editButton, &QPushButton::clicked, this, &TransactionDetailsDialog::onEditClicked);
    connect(m_clearedButton, &QPushButton::clicked, this, &TransactionDetailsDialog::onToggleCleared);
    connect(deleteButton, &QPushButton::clicked, this, &TransactionDetailsDialog::onDeleteClicked);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QWidget *TransactionDetailsDialog::splitSection() const
{
    auto *box = new QGroupBox(tr("Split lines"));
    box->setObjectName(QStringLiteral("splitSection"));
    auto *grid = new QGridLayout(box);
    const QList<SplitLine> lines = m_state->splitLines()->getForTransaction(m_transaction.id);
    if (lines.isEmpty()) {
        auto *none = new QLabel(tr("(no split lines on record)"));
        none->setStyleSheet(mutedStyle());
        grid->addWidget(none, 0, 0);
        return box;
    }
    QFont mono(QStringLiteral("monospace"));
    mono.setStyleHint(QFont::Monospace);
    qint64 total = 0;
    int row = 0;
    for (const SplitLine &line : lines) {
        QString name;
        if (!line.categoryId.isEmpty()) {
            if (const std::optional<Category> c = m_state->categories()->getById(line.categoryId))
                name = c->name;
        }
        auto *category = new QLabel(name.isEmpty() ? tr("(uncategorized)") : name);
        if (name.isEmpty())
            category->setStyleSheet(mutedStyle());
        auto *amount = new QLabel(formatAmount(line.amount, Currency::USD));
        amount->setFont(mono);
        amount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(category, row, 0);
        grid->addWidget(amount, row, 1);
        grid->addWidget(new QLabel(line.memo), row, 2);
        total += line.amount;
        ++row;
    }
    auto *totalLabel = new QLabel(tr("Total"));
    totalLabel->setStyleSheet(QStringLiteral("font-weight: 600;"));
    auto *totalAmount = new QLabel(formatAmount(total, Currency::USD));
    totalAmount->setObjectName(QStringLiteral("splitTotal"));
    totalAmount->setFont(mono);
    totalAmount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(totalLabel, row, 0);
    grid->addWidget(totalAmount, row, 1);
    grid->setColumnStretch(2, 1);
    return box;
}

void TransactionDetailsDialog::refreshClearedTexts()
{
    const Transaction &t = m_transaction;
    m_statusValue->setText(t.reconciled ? tr("Reconciled") : t.cleared ? tr("Cleared") : tr("Uncleared"));
    m_clearedButton->setText(t.cleared ? tr("Mark Uncleared") : tr("Mark Cleared"));
    m_modifiedLabel->setText(tr("Last modified: %1").arg(timestampShown(t.updatedAt)));
}

void TransactionDetailsDialog::onEditClicked()
{
    m_editRequested = true;
    accept();
}

void TransactionDetailsDialog::onToggleCleared()
{
    m_transaction.cleared = !m_transaction.cleared;
    m_transaction.updatedAt = utcNow();
    m_transaction.syncStatus = SyncStatus::Pending;
    m_state->transactions()->update(m_transaction);
    refreshClearedTexts();
}

void TransactionDetailsDialog::onDeleteClicked()
{
    const Transaction &t = m_transaction;
    const QString amount = formatAmount(t.amount < 0 ? -t.amount : t.amount, Currency::USD);
    const QString text =
        t.transferLinkId.isEmpty()
            ? tr("Delete \"%1\" for %2?").arg(t.payee, amount)
            : tr("Delete transfer \"%1\" for %2?\n\nBoth sides of the transfer will be deleted.")
                  .arg(t.payee, amount);
    if (Prompt::question(this, tr("Delete Transaction"), text, QMessageBox::Yes | QMessageBox::No,
                         QMessageBox::No) != QMessageBox::Yes)
        return;
    if (!t.transferLinkId.isEmpty())
        m_state->transactions()->softDelete(t.transferLinkId);
    m_state->transactions()->softDelete(t.id);
    m_deleted = true;
    accept();
}
