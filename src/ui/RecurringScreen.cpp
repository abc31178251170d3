#include "ui/RecurringScreen.h"

#include "core/AppState.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/RecurringRepository.h"
#include "services/RecurringService.h"
#include "ui/Prompt.h"
#include "ui/RecurringFormDialog.h"
#include "ui/RecurringModel.h"
#include "ui/UiStyle.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {
constexpr int kAccountColumnMinWidth = 80;
}

RecurringScreen::RecurringScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    setupUi();
    connect(m_confirmAllButton, &QPushButton::clicked, this, &RecurringScreen::confirmAllDue);
    connect(m_newButton, &QPushButton::clicked, this, &RecurringScreen::showNewForm);
    connect(m_view, &QTableView::customContextMenuRequested, this, &RecurringScreen::onContextMenu);
    connect(m_view, &QTableView::doubleClicked, this, [this](const QModelIndex &index) {
        if (index.isValid())
            showEditForm(index.row());
    });
    refresh();
}

void RecurringScreen::setupUi()
{
    auto *layout = new QVBoxLayout(this);

    auto *top = new QHBoxLayout;
    auto *title = new QLabel(tr("Recurring Transactions"), this);
    // A font of its own would stay at the size it was made with when the scale changes.
    applyBoldFontRole(title, 0);
    top->addWidget(title);
    m_dueLabel = new QLabel(this);
    m_dueLabel->setObjectName(QStringLiteral("dueLabel"));
    top->addWidget(m_dueLabel);
    top->addStretch();
    m_confirmAllButton = new QPushButton(tr("Confirm All Due"), this);
    m_confirmAllButton->setObjectName(QStringLiteral("confirmAllButton"));
    top->addWidget(m_confirmAllButton);
    m_newButton = new QPushButton(tr("New Recurring"), this);
    m_newButton->setObjectName(QStringLiteral("newButton"));
    top->addWidget(m_newButton);
    layout->addLayout(top);

    m_model = new RecurringModel(this);
    m_view = new QTableView(this);
    m_view->setModel(m_model);
    m_view->setAlternatingRowColors(true);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    m_view->verticalHeader()->hide();
    m_view->setWordWrap(false);
    QHeaderView *header = m_view->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(RecurringModel::PayeeColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(RecurringModel::AccountColumn, QHeaderView::Interactive);
    m_view->viewport()->installEventFilter(this);
    layout->addWidget(m_view, 1);
}

void RecurringScreen::refresh()
{
    const RecurringTransaction *current = m_model->recordAt(currentRow());
    const QString currentId = current ? current->id : QString();

    const QList<RecurringTransaction> rules = m_state->recurringService()->getAllRecurring();
    QHash<QString, QString> names;
    for (const Account &account : m_state->accounts()->getAll())
        names.insert(account.id, account.name);
    // A rule can outlive its account on another device until sync deletes it; its name is still known.
    for (const RecurringTransaction &rule : rules) {
        if (!names.contains(rule.accountId)) {
            const std::optional<Account> account = m_state->accounts()->getById(rule.accountId);
            names.insert(rule.accountId, account ? account->name : QString());
        }
    }
    m_model->setRecurring(rules, names);
    fitAccountColumn();

    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (m_model->recordAt(row)->id == currentId)
            m_view->selectRow(row);
    }

    const int due = m_state->recurringService()->pendingCount();
    if (due >= 1) {
        m_dueLabel->setText(tr("(%1 due)").arg(due));
        m_dueLabel->setStyleSheet(QStringLiteral("color: #008800;"));
    } else {
        m_dueLabel->clear();
    }
}

// The account column takes its contents' width, but at most half of what the fixed columns leave, so
// that one long account name or a large font does not squeeze the stretching payees to nothing.
void RecurringScreen::fitAccountColumn()
{
    const QHeaderView *header = m_view->horizontalHeader();
    // The table view hides the item view's public measure; it is the same function.
    const QAbstractItemView *view = m_view;
    const auto contentsWidth = [&](int column) {
        return qMax(view->sizeHintForColumn(column), header->sectionSizeHint(column));
    };
    int fixed = 0;
    for (int column = 0; column < RecurringModel::ColumnCount; ++column) {
        if (column != RecurringModel::AccountColumn && column != RecurringModel::PayeeColumn)
            fixed += contentsWidth(column);
    }
    const int share = qMax(kAccountColumnMinWidth, (m_view->viewport()->width() - fixed) / 2);
    m_view->setColumnWidth(RecurringModel::AccountColumn,
                           qMin(contentsWidth(RecurringModel::AccountColumn), share));
}

bool RecurringScreen::eventFilter(QObject *watched, QEvent *event)
{
    // The viewport's size, not the screen's: it is set last, after the layout and the scroll bars.
    if (watched == m_view->viewport() && event->type() == QEvent::Resize)
        fitAccountColumn();
    return QWidget::eventFilter(watched, event);
}

int RecurringScreen::currentRow() const
{
    const QModelIndex index = m_view->currentIndex();
    return index.isValid() ? index.row() : -1;
}

void RecurringScreen::confirmAllDue()
{
    if (m_state->recurringService()->confirmAllDue() > 0)
        emit transactionsChanged();
    // Even with nothing posted a rule may have been deactivated for a broken date.
    refresh();
}

void RecurringScreen::confirmSelected()
{
    const RecurringTransaction *rule = m_model->recordAt(currentRow());
    if (!rule)
        return;
    // A copy: the write refreshes this screen, and with it the row the pointer points into.
    const QString id = rule->id;
    m_state->recurringService()->confirm(id);
    emit transactionsChanged();
    refresh();
}

void RecurringScreen::skipSelected()
{
    const RecurringTransaction *rule = m_model->recordAt(currentRow());
    if (!rule)
        return;
    const QString id = rule->id;
    m_state->recurringService()->skip(id);
    refresh();
}

void RecurringScreen::deleteSelected()
{
    const RecurringTransaction *rule = m_model->recordAt(currentRow());
    if (!rule)
        return;
    const QString id = rule->id;
    if (Prompt::question(this, tr("Delete"), tr("Delete recurring \"%1\"?").arg(rule->payee),
                         QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    m_state->recurring()->softDelete(id);
    refresh();
}

void RecurringScreen::showNewForm()
{
    RecurringFormDialog dialog(m_state->accounts()->getAll(), m_state->categories()->getAll(), this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    m_state->recurring()->insert(dialog.recurring());
    refresh();
}

void RecurringScreen::showEditForm(int row)
{
    const RecurringTransaction *rule = m_model->recordAt(row);
    if (!rule)
        return;
    RecurringFormDialog dialog(*rule, m_state->accounts()->getAll(), m_state->categories()->getAll(), this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    m_state->recurring()->update(dialog.recurring());
    refresh();
}

void RecurringScreen::onContextMenu(const QPoint &pos)
{
    const QModelIndex index = m_view->indexAt(pos);
    const RecurringTransaction *rule = index.isValid() ? m_model->recordAt(index.row()) : nullptr;
    if (!rule)
        return;
    const int row = index.row();
    m_view->selectRow(row);
    const bool due = RecurringModel::isDue(*rule);

    QMenu menu(this);
    menu.addAction(tr("&Edit"), this, [this, row] { showEditForm(row); });
    menu.addAction(tr("&Confirm"), this, &RecurringScreen::confirmSelected)->setEnabled(due);
    menu.addAction(tr("&Skip"), this, &RecurringScreen::skipSelected)->setEnabled(due);
    menu.addSeparator();
    menu.addAction(tr("&Delete"), this, &RecurringScreen::deleteSelected);
    menu.exec(m_view->viewport()->mapToGlobal(pos));
}
