#include "ui/ReconciliationScreen.h"

#include "core/AppState.h"
#include "core/Dates.h"
#include "core/Identifiers.h"
#include "core/Money.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "ui/Prompt.h"
#include "ui/TransactionFormDialog.h"
#include "ui/UiStyle.h"
#include "ui/register/DateField.h"

#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>

#include <cmath>

namespace {

constexpr double kBalanceLimit = 99999999.99;
constexpr int kPanelWidth = 310;

constexpr int kAmountFontRole = 7;

QLabel *figureLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    applyFontRole(label, kAmountFontRole);
    return label;
}

QTableWidgetItem *readOnlyItem(const QString &text)
{
    auto *item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

} // namespace

ReconciliationScreen::ReconciliationScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    setupUi();
    setupShortcuts();
    connect(m_statementBalance, &QDoubleSpinBox::valueChanged, this, &ReconciliationScreen::updateDifference);
    connect(m_finishButton, &QPushButton::clicked, this, &ReconciliationScreen::finish);
    connect(m_cancelButton, &QPushButton::clicked, this, &ReconciliationScreen::cancelled);
    connect(m_addButton, &QPushButton::clicked, this, &ReconciliationScreen::addTransaction);
    connect(m_editButton, &QPushButton::clicked, this, &ReconciliationScreen::editSelectedTransaction);
    connect(m_deleteButton, &QPushButton::clicked, this, &ReconciliationScreen::deleteSelectedTransaction);
    connect(m_table, &QTableWidget::itemChanged, this, [this](QTableWidgetItem *item) {
        if (item->column() == CheckColumn)
            onTransactionToggled(item->row());
    });
    connect(m_table, &QTableWidget::cellDoubleClicked, this, [this] { editSelectedTransaction(); });
    updateDifference();
}

void ReconciliationScreen::setupUi()
{
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(buildFiguresPanel());
    layout->addWidget(buildTablePanel(), 1);
}

QWidget *ReconciliationScreen::buildFiguresPanel()
{
    auto *panel = new QWidget(this);
    // 310 at the normal scale; the figures are text, so the panel grows with it rather than wrapping
    // "Cleared Withdrawals" under a large font.
    const auto fitPanel = [panel] {
        panel->setFixedWidth(kPanelWidth * ThemeManager::currentFontScale() / 100);
    };
    fitPanel();
    connect(m_state->themeManager(), &ThemeManager::fontScaleChanged, panel, fitPanel);
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 8, 0);

    auto *title = new QLabel(tr("Reconcile Account"), panel);
    applyFontRole(title, 4);
    layout->addWidget(title);
    layout->addSpacing(8);

    auto *form = new QFormLayout;
    // The panel's width is fixed; at a large font scale a field goes below its label rather than
    // cutting the label off.
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    m_statementDate = new DateField(panel);
    m_statementDate->setObjectName(QStringLiteral("statementDate"));
    form->addRow(tr("Statement Date:"), m_statementDate);
    m_statementBalance = new QDoubleSpinBox(panel);
    m_statementBalance->setObjectName(QStringLiteral("statementBalance"));
    m_statementBalance->setRange(-kBalanceLimit, kBalanceLimit);
    m_statementBalance->setDecimals(2);
    m_statementBalance->setPrefix(QStringLiteral("$ "));
    form->addRow(tr("Statement Balance:"), m_statementBalance);
    layout->addLayout(form);
    layout->addSpacing(12);

    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setColumnStretch(0, 1);
    const auto addFigure = [&](int row, const QString &label, const char *objectName) {
        QLabel *name = figureLabel(label, panel);
        // A long translated name wraps rather than hiding behind its figure.
        name->setWordWrap(true);
        grid->addWidget(name, row, 0);
        QLabel *value = figureLabel(QString(), panel);
        value->setObjectName(QLatin1String(objectName));
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(value, row, 1);
        return value;
    };
    m_previousValue = addFigure(0, tr("Previous Balance"), "previousValue");
    m_depositsValue = addFigure(1, tr("Cleared Deposits"), "depositsValue");
    m_withdrawalsValue = addFigure(2, tr("Cleared Withdrawals"), "withdrawalsValue");
    auto *line = new QFrame(panel);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    grid->addWidget(line, 3, 0, 1, 2);
    m_clearedValue = addFigure(4, tr("Cleared Balance"), "clearedValue");
    m_statementValue = addFigure(5, tr("Statement Balance"), "statementValue");
    layout->addLayout(grid);
    layout->addSpacing(16);

    auto *differenceRow = new QHBoxLayout;
    auto *differenceLabel = new QLabel(tr("Difference"), panel);
    applyBoldFontRole(differenceLabel, 0);
    differenceRow->addWidget(differenceLabel);
    differenceRow->addStretch();
    m_differenceValue = new QLabel(panel);
    m_differenceValue->setObjectName(QStringLiteral("differenceValue"));
    applyBoldFontRole(m_differenceValue, 0);
    differenceRow->addWidget(m_differenceValue);
    layout->addLayout(differenceRow);
    layout->addSpacing(12);

    m_finishButton = new QPushButton(tr("Finish Reconciliation"), panel);
    m_finishButton->setObjectName(QStringLiteral("finishButton"));
    applyPrimaryButtonStyle(m_finishButton);
    m_finishButton->setEnabled(false);
    layout->addWidget(m_finishButton);
    m_cancelButton = new QPushButton(tr("Cancel"), panel);
    m_cancelButton->setObjectName(QStringLiteral("cancelButton"));
    layout->addWidget(m_cancelButton);
    layout->addStretch();
    return panel;
}

QWidget *ReconciliationScreen::buildTablePanel()
{
    auto *panel = new QWidget(this);
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);

    m_table = new QTableWidget(0, ColumnCount, panel);
    m_table->setObjectName(QStringLiteral("transactionTable"));
    m_table->setHorizontalHeaderLabels({QString(), tr("Date"), tr("Payee"), tr("Amount"), tr("Clr")});
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    // Fixed widths: sizing to contents would measure every row of a long list on each rebuild.
    QHeaderView *header = m_table->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(PayeeColumn, QHeaderView::Stretch);
    const QFontMetrics metrics(m_table->font());
    m_table->setColumnWidth(CheckColumn, 30);
    m_table->setColumnWidth(DateColumn, metrics.horizontalAdvance(QStringLiteral("00/00/0000")) + 24);
    m_table->setColumnWidth(AmountColumn, 100);
    m_table->setColumnWidth(ClearedColumn, metrics.horizontalAdvance(tr("Clr")) + 24);
    m_table->installEventFilter(this);
    layout->addWidget(m_table, 1);

    auto *buttons = new QHBoxLayout;
    m_addButton = new QPushButton(tr("Add Transaction"), panel);
    m_addButton->setObjectName(QStringLiteral("addButton"));
    m_addButton->setToolTip(
        tr("Add a transaction (%1)").arg(QKeySequence(QKeySequence::New).toString(QKeySequence::NativeText)));
    m_editButton = new QPushButton(tr("Edit"), panel);
    m_editButton->setObjectName(QStringLiteral("editButton"));
    m_editButton->setToolTip(tr("Edit selected transaction (F2)"));
    m_deleteButton = new QPushButton(tr("Delete"), panel);
    m_deleteButton->setObjectName(QStringLiteral("deleteButton"));
    m_deleteButton->setToolTip(tr("Delete selected transaction (Del)"));
    buttons->addWidget(m_addButton);
    buttons->addWidget(m_editButton);
    buttons->addWidget(m_deleteButton);
    buttons->addStretch();
    layout->addLayout(buttons);
    return panel;
}

void ReconciliationScreen::setupShortcuts()
{
    // On some platforms the standard key is the plain one; two shortcuts on one key would cancel each
    // other out as ambiguous, so each key is bound once.
    QList<QKeySequence> bound;
    const auto bind = [&](const QList<QKeySequence> &keys, void (ReconciliationScreen::*slot)()) {
        for (const QKeySequence &key : keys) {
            if (key.isEmpty() || bound.contains(key))
                continue;
            bound.append(key);
            auto *shortcut = new QShortcut(key, m_table);
            shortcut->setContext(Qt::WidgetWithChildrenShortcut);
            connect(shortcut, &QShortcut::activated, this, slot);
        }
    };
    bind(QKeySequence::keyBindings(QKeySequence::New) << QKeySequence(Qt::Key_Insert),
         &ReconciliationScreen::addTransaction);
    bind({QKeySequence(Qt::Key_F2)}, &ReconciliationScreen::editSelectedTransaction);
    bind(QKeySequence::keyBindings(QKeySequence::Delete) << QKeySequence(Qt::Key_Delete),
         &ReconciliationScreen::deleteSelectedTransaction);

    // A window of its own, so Esc leaves it as Cancel does, from whichever field has the focus.
    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WindowShortcut);
    connect(escape, &QShortcut::activated, this, &ReconciliationScreen::cancelled);
}

void ReconciliationScreen::setAccount(const QString &accountId)
{
    m_accountId = accountId;
    const std::optional<Account> account = m_state->accounts()->getById(accountId);
    if (!account)
        return;
    m_currency = account->currency;
    m_previousBalance = account->startingBalance;

    const TransactionRepository::ReconciledTotal reconciledRows =
        m_state->transactions()->getReconciledTotal(accountId);
    m_previousBalance += reconciledRows.amount;
    const QDate latestReconciled = reconciledRows.latestDate;

    // The next statement is most likely a month after the last one balanced; rows reconciled past
    // that statement mean the history is not the whole story, and their date is the better guide.
    const std::optional<Reconciliation> latest = m_state->reconciliations()->getLatest(accountId);
    if (latest && (!latestReconciled.isValid() || latestReconciled <= latest->statementDate))
        m_statementDate->setDate(latest->statementDate.addMonths(1));
    else if (latestReconciled.isValid())
        m_statementDate->setDate(latestReconciled.addMonths(1));

    refreshList();
}

void ReconciliationScreen::refreshList()
{
    QHash<QString, bool> ticks;
    for (int row = 0; row < m_transactions.size(); ++row)
        ticks.insert(m_transactions[row].id, m_checked.at(row) != 0);

    m_transactions = m_state->transactions()->getUnreconciled(m_accountId);
    m_checked = QByteArray(m_transactions.size(), 0);

    const QColor negative = ThemeManager::negativeColor();
    const QSignalBlocker blocker(m_table);
    m_table->setUpdatesEnabled(false);
    m_table->setRowCount(0);
    m_table->setRowCount(int(m_transactions.size()));
    for (int row = 0; row < m_transactions.size(); ++row) {
        const Transaction &t = m_transactions[row];
        // A row cleared in the register is taken as on the statement until the user says otherwise.
        const bool checked = ticks.value(t.id, t.cleared);
        m_checked[row] = checked ? 1 : 0;

        auto *check = new QTableWidgetItem;
        check->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        check->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
        m_table->setItem(row, CheckColumn, check);
        m_table->setItem(row, DateColumn, readOnlyItem(t.date.toString(QStringLiteral("MM/dd/yyyy"))));
        m_table->setItem(row, PayeeColumn, readOnlyItem(t.payee));
        QTableWidgetItem *amount = readOnlyItem(formatAmount(t.amount, m_currency));
        amount->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (t.amount < 0)
            amount->setForeground(negative);
        m_table->setItem(row, AmountColumn, amount);
        QTableWidgetItem *cleared = readOnlyItem(t.cleared ? QStringLiteral("C") : QString());
        cleared->setTextAlignment(Qt::AlignCenter);
        m_table->setItem(row, ClearedColumn, cleared);
    }
    m_table->setUpdatesEnabled(true);
    updateDifference();
}

void ReconciliationScreen::onTransactionToggled(int row)
{
    if (row < 0 || row >= m_checked.size())
        return;
    const QTableWidgetItem *check = m_table->item(row, CheckColumn);
    m_checked[row] = check && check->checkState() == Qt::Checked ? 1 : 0;
    updateDifference();
}

void ReconciliationScreen::toggleRow(int row)
{
    QTableWidgetItem *check = m_table->item(row, CheckColumn);
    if (check)
        check->setCheckState(check->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

qint64 ReconciliationScreen::statementCents() const
{
    // Rounding, not truncating: the spin box holds the nearest double to a two-decimal value.
    return std::llround(m_statementBalance->value() * 100.0);
}

void ReconciliationScreen::updateDifference()
{
    qint64 deposits = 0;
    qint64 withdrawals = 0;
    for (int row = 0; row < m_transactions.size(); ++row) {
        if (!m_checked.at(row))
            continue;
        const qint64 amount = m_transactions[row].amount;
        (amount >= 0 ? deposits : withdrawals) += amount;
    }
    const qint64 cleared = m_previousBalance + deposits + withdrawals;
    const qint64 statement = statementCents();
    m_difference = statement - cleared;

    m_previousValue->setText(formatAmount(m_previousBalance, m_currency));
    m_depositsValue->setText(formatAmount(deposits, m_currency));
    m_withdrawalsValue->setText(formatAmount(withdrawals, m_currency));
    m_clearedValue->setText(formatAmount(cleared, m_currency));
    m_statementValue->setText(formatAmount(statement, m_currency));
    m_differenceValue->setText(formatAmount(m_difference, m_currency));
    const QColor color = m_difference == 0 ? ThemeManager::positiveColor() : ThemeManager::negativeColor();
    m_differenceValue->setStyleSheet(QStringLiteral("color: %1;").arg(color.name()));
    m_finishButton->setEnabled(m_difference == 0);
}

void ReconciliationScreen::finish()
{
    const qint64 statement = statementCents();
    qint64 reconciled = m_previousBalance;
    int written = 0;
    {
        // A statement's worth of rows would otherwise rebuild every listener (the account list with its
        // balances) once per row; they hear of the change once, after the last row.
        const QSignalBlocker quiet(m_state->transactions());
        for (int row = 0; row < m_transactions.size(); ++row) {
            if (!m_checked.at(row))
                continue;
            Transaction t = m_transactions[row];
            t.cleared = true;
            t.reconciled = true;
            t.updatedAt = utcNow();
            t.syncStatus = SyncStatus::Pending;
            m_state->transactions()->update(t);
            reconciled += t.amount;
            ++written;
        }
    }
    if (written > 0)
        emit m_state->transactions()->transactionsChanged(m_accountId);

    Reconciliation record;
    record.id = newId();
    record.accountId = m_accountId;
    record.statementDate = m_statementDate->date();
    record.statementBalance = statement;
    record.reconciledBalance = reconciled;
    record.completedAt = utcNow();
    record.createdAt = record.completedAt;
    record.updatedAt = record.completedAt;
    m_state->reconciliations()->insert(record);

    Prompt::information(this, tr("Reconciliation Complete"), tr("Account reconciled successfully."));
    emit reconciliationCompleted();
}

int ReconciliationScreen::currentRow() const
{
    const int row = m_table->currentRow();
    return row >= 0 && row < m_transactions.size() ? row : -1;
}

void ReconciliationScreen::addTransaction()
{
    if (m_accountId.isEmpty())
        return;
    TransactionFormDialog dialog(m_state, m_accountId, this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    const Transaction t = dialog.transaction();
    m_state->transactions()->insert(t);
    if (!dialog.splitLines().isEmpty())
        m_state->splitLines()->replaceForTransaction(t.id, dialog.splitLines());
    refreshList();
}

void ReconciliationScreen::editSelectedTransaction()
{
    const int row = currentRow();
    if (row < 0)
        return;
    TransactionFormDialog dialog(m_state, m_transactions[row], this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    const Transaction t = dialog.transaction();
    m_state->transactions()->update(t);
    m_state->splitLines()->replaceForTransaction(t.id, dialog.splitLines());
    refreshList();
}

void ReconciliationScreen::deleteSelectedTransaction()
{
    const int row = currentRow();
    if (row < 0)
        return;
    const Transaction t = m_transactions[row];
    if (Prompt::question(this, tr("Delete Transaction"), tr("Delete the transaction for %1?").arg(t.payee),
                         QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    // As in the register: half a transfer would leave the other account's balance wrong.
    if (!t.transferLinkId.isEmpty())
        m_state->transactions()->softDelete(t.transferLinkId);
    m_state->transactions()->softDelete(t.id);
    refreshList();
}

bool ReconciliationScreen::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_table && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool plain = !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
        if (plain && (key->key() == Qt::Key_Space || key->key() == Qt::Key_C || key->key() == Qt::Key_R)) {
            // Swallowed even with no current row, so the table neither scrolls nor jumps to a payee.
            if (const int row = currentRow(); row >= 0)
                toggleRow(row);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
