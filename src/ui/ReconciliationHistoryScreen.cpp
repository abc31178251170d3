#include "ui/ReconciliationHistoryScreen.h"

#include "core/AppState.h"
#include "core/Money.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/ReconciliationRepository.h"
#include "ui/UiStyle.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr char kMuted[] = "#6E8A7E";

QTableWidgetItem *item(const QString &text)
{
    auto *cell = new QTableWidgetItem(text);
    cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return cell;
}

QTableWidgetItem *amountItem(qint64 cents, Currency currency)
{
    QTableWidgetItem *cell = item(formatAmount(cents, currency));
    cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (cents < 0)
        cell->setForeground(ThemeManager::negativeColor());
    return cell;
}

} // namespace

ReconciliationHistoryScreen::ReconciliationHistoryScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    setupUi();
}

void ReconciliationHistoryScreen::setupUi()
{
    auto *layout = new QVBoxLayout(this);
    m_titleLabel = new QLabel(tr("Reconciliation History"), this);
    m_titleLabel->setObjectName(QStringLiteral("titleLabel"));
    applyFontRole(m_titleLabel, 4);
    layout->addWidget(m_titleLabel);
    auto *subtitle = new QLabel(tr("Past reconciliations for this account."), this);
    subtitle->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(kMuted)));
    layout->addWidget(subtitle);

    m_table = new QTableWidget(0, 4, this);
    m_table->setObjectName(QStringLiteral("historyTable"));
    m_table->setHorizontalHeaderLabels(
        {tr("Statement Date"), tr("Statement Balance"), tr("Reconciled Balance"), tr("Completed")});
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    // The completion time is the longest text; it takes the room the figures leave.
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setStretchLastSection(true);
    layout->addWidget(m_table, 1);

    m_emptyLabel = new QLabel(
        tr("No reconciliations yet. Reconcile your account from the register to see the history here."),
        this);
    m_emptyLabel->setObjectName(QStringLiteral("emptyLabel"));
    m_emptyLabel->setWordWrap(true);
    m_emptyLabel->setAlignment(Qt::AlignCenter);
    m_emptyLabel->setStyleSheet(QStringLiteral("color: %1; padding: 32px;").arg(QLatin1String(kMuted)));
    layout->addWidget(m_emptyLabel, 1);
    m_emptyLabel->hide();
}

void ReconciliationHistoryScreen::setAccount(const QString &accountId)
{
    const std::optional<Account> account = m_state->accounts()->getById(accountId);
    const Currency currency = account ? account->currency : Currency::USD;
    m_titleLabel->setText(tr("Reconciliation History — %1").arg(account ? account->name : QString()));

    const QList<Reconciliation> records = m_state->reconciliations()->getByAccount(accountId);
    m_table->setRowCount(int(records.size()));
    for (int row = 0; row < records.size(); ++row) {
        const Reconciliation &r = records[row];
        m_table->setItem(row, 0, item(r.statementDate.toString(QStringLiteral("MMM d, yyyy"))));
        m_table->setItem(row, 1, amountItem(r.statementBalance, currency));
        m_table->setItem(row, 2, amountItem(r.reconciledBalance, currency));
        m_table->setItem(row, 3,
                         item(r.completedAt.toLocalTime().toString(QStringLiteral("MMM d, yyyy h:mm ap"))));
    }
    m_table->setVisible(!records.isEmpty());
    m_emptyLabel->setVisible(records.isEmpty());
}
