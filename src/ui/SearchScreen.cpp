#include "ui/SearchScreen.h"

#include "core/AppState.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/TransactionRepository.h"
#include "ui/register/RegisterModel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kTypingPauseMs = 300;

void reloadCombo(QComboBox *combo, const QString &allLabel, const QList<std::pair<QString, QString>> &items)
{
    const QString current = combo->currentData().toString();
    const QSignalBlocker blocker(combo);
    combo->clear();
    combo->addItem(allLabel, QString());
    for (const auto &[label, id] : items)
        combo->addItem(label, id);
    const int index = combo->findData(current);
    combo->setCurrentIndex(index < 0 ? 0 : index);
}

} // namespace

SearchScreen::SearchScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    setupUi();
    reloadFilters();
    connectSignals();
}

void SearchScreen::setupUi()
{
    auto *layout = new QVBoxLayout(this);

    // Two rows, so that both fit the window's default width at a large font scale: the text, the
    // dates and the mark, then the two lists.
    auto *top = new QHBoxLayout;
    m_searchEdit = new QLineEdit(this);
    m_searchEdit->setObjectName(QStringLiteral("searchEdit"));
    m_searchEdit->setPlaceholderText(tr("Search payee, memo, check number..."));
    m_searchEdit->setClearButtonEnabled(true);
    top->addWidget(m_searchEdit, 1);
    top->addSpacing(8);
    m_dateCheck = new QCheckBox(tr("Date range:"), this);
    m_dateCheck->setObjectName(QStringLiteral("dateCheck"));
    top->addWidget(m_dateCheck);
    const QDate today = QDate::currentDate();
    m_fromEdit = new QDateEdit(today.addMonths(-1), this);
    m_fromEdit->setObjectName(QStringLiteral("fromEdit"));
    m_toEdit = new QDateEdit(today, this);
    m_toEdit->setObjectName(QStringLiteral("toEdit"));
    for (QDateEdit *edit : {m_fromEdit, m_toEdit}) {
        edit->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
        edit->setCalendarPopup(true);
    }
    top->addWidget(m_fromEdit);
    top->addWidget(new QLabel(tr("to"), this));
    top->addWidget(m_toEdit);
    top->addSpacing(8);
    m_clearedCheck = new QCheckBox(tr("Cleared only"), this);
    m_clearedCheck->setObjectName(QStringLiteral("clearedCheck"));
    top->addWidget(m_clearedCheck);
    layout->addLayout(top);

    auto *filters = new QHBoxLayout;
    filters->addWidget(new QLabel(tr("Account:"), this));
    m_accountCombo = new QComboBox(this);
    m_accountCombo->setObjectName(QStringLiteral("accountCombo"));
    filters->addWidget(m_accountCombo, 1);
    filters->addSpacing(8);
    filters->addWidget(new QLabel(tr("Category:"), this));
    m_categoryCombo = new QComboBox(this);
    m_categoryCombo->setObjectName(QStringLiteral("categoryCombo"));
    filters->addWidget(m_categoryCombo, 1);
    // Sized for a usual name rather than the longest; the rest of the row's room goes to them.
    for (QComboBox *combo : {m_accountCombo, m_categoryCombo}) {
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(12);
    }
    layout->addLayout(filters);

    m_model = new RegisterModel(this);
    // Newest first, which also puts the model's row for a new entry at the top, where it is hidden.
    m_model->sort(RegisterModel::Date, Qt::DescendingOrder);
    m_view = new QTableView(this);
    m_view->setObjectName(QStringLiteral("resultsView"));
    m_view->setModel(m_model);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setAlternatingRowColors(true);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->verticalHeader()->setDefaultSectionSize(28);
    QHeaderView *header = m_view->horizontalHeader();
    // At most 200 rows: fitting the narrow columns to their contents costs nothing, and follows the
    // font scale.
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(RegisterModel::Payee, QHeaderView::Stretch);
    header->setSectionResizeMode(RegisterModel::Memo, QHeaderView::Stretch);
    // Search results carry no running balance.
    m_view->setColumnHidden(RegisterModel::Balance, true);
    m_view->setRowHidden(m_model->newRowIndex(), true);
    layout->addWidget(m_view, 1);

    m_typingTimer = new QTimer(this);
    m_typingTimer->setSingleShot(true);
    m_typingTimer->setInterval(kTypingPauseMs);
}

void SearchScreen::connectSignals()
{
    connect(m_searchEdit, &QLineEdit::textChanged, m_typingTimer, qOverload<>(&QTimer::start));
    connect(m_typingTimer, &QTimer::timeout, this, &SearchScreen::performSearch);
    connect(m_accountCombo, &QComboBox::currentIndexChanged, this, &SearchScreen::performSearch);
    connect(m_categoryCombo, &QComboBox::currentIndexChanged, this, &SearchScreen::performSearch);
    connect(m_dateCheck, &QCheckBox::toggled, this, &SearchScreen::performSearch);
    connect(m_clearedCheck, &QCheckBox::toggled, this, &SearchScreen::performSearch);
    for (QDateEdit *edit : {m_fromEdit, m_toEdit}) {
        connect(edit, &QDateEdit::dateChanged, this, [this] {
            if (m_dateCheck->isChecked())
                performSearch();
        });
    }
    connect(m_view, &QTableView::doubleClicked, this, &SearchScreen::onDoubleClicked);
}

void SearchScreen::reloadFilters()
{
    QList<std::pair<QString, QString>> accounts;
    for (const Account &account : m_state->accounts()->getAll())
        accounts.append({account.name, account.id});
    reloadCombo(m_accountCombo, tr("All Accounts"), accounts);
    QList<std::pair<QString, QString>> categories;
    for (const Category &category : m_state->categories()->getAll())
        categories.append({category.name, category.id});
    reloadCombo(m_categoryCombo, tr("All Categories"), categories);
    // What was found before may have changed while the screen was hidden.
    performSearch();
}

void SearchScreen::focusSearchField()
{
    m_searchEdit->setFocus(Qt::OtherFocusReason);
    m_searchEdit->selectAll();
}

void SearchScreen::performSearch()
{
    m_typingTimer->stop();
    TransactionSearchFilter filter;
    filter.accountId = m_accountCombo->currentData().toString();
    filter.categoryId = m_categoryCombo->currentData().toString();
    if (m_dateCheck->isChecked()) {
        filter.dateFrom = m_fromEdit->date();
        filter.dateTo = m_toEdit->date();
    }
    // Checked asks for cleared rows; unchecked asks nothing, so it can't ask for uncleared ones.
    if (m_clearedCheck->isChecked())
        filter.cleared = true;
    m_model->setTransactions(m_state->transactions()->search(m_searchEdit->text().trimmed(), filter));
    m_view->setRowHidden(m_model->newRowIndex(), true);
}

void SearchScreen::onDoubleClicked(const QModelIndex &index)
{
    if (const RegisterRow *row = m_model->recordAt(index.row()))
        emit editTransactionRequested(row->id);
}
