#include "ui/ReportsScreen.h"

#include "core/AppState.h"
#include "core/Money.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/TransactionRepository.h"
#include "services/ReportService.h"
#include "ui/Prompt.h"
#include "ui/UiStyle.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QFile>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPaintEvent>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>

namespace {

constexpr char kMuted[] = "#6E8A7E";
const QDate kAllTimeFloor(2000, 1, 1);

struct TabSpec {
    const char *title;
    QList<const char *> columns;
    const char *fileName;
};

// clang-format off
const TabSpec kTabs[ReportsScreen::TabCount] = {
    {QT_TRANSLATE_NOOP("ReportsScreen", "Category Spending"),  {QT_TRANSLATE_NOOP("ReportsScreen", "Category"), QT_TRANSLATE_NOOP("ReportsScreen", "Total")}, "category_spending.csv"},
    {QT_TRANSLATE_NOOP("ReportsScreen", "Payee Summary"),      {QT_TRANSLATE_NOOP("ReportsScreen", "Payee"), QT_TRANSLATE_NOOP("ReportsScreen", "Total"), QT_TRANSLATE_NOOP("ReportsScreen", "Count")}, "payee_summary.csv"},
    {QT_TRANSLATE_NOOP("ReportsScreen", "Tax Report"),         {QT_TRANSLATE_NOOP("ReportsScreen", "Category"), QT_TRANSLATE_NOOP("ReportsScreen", "Tax Code"), QT_TRANSLATE_NOOP("ReportsScreen", "Total")}, "tax_report.csv"},
    {QT_TRANSLATE_NOOP("ReportsScreen", "Income vs Expenses"), {QT_TRANSLATE_NOOP("ReportsScreen", "Month"), QT_TRANSLATE_NOOP("ReportsScreen", "Income"), QT_TRANSLATE_NOOP("ReportsScreen", "Expenses"), QT_TRANSLATE_NOOP("ReportsScreen", "Net")}, "income_vs_expenses.csv"},
    {QT_TRANSLATE_NOOP("ReportsScreen", "Cash Flow"),          {QT_TRANSLATE_NOOP("ReportsScreen", "Month"), QT_TRANSLATE_NOOP("ReportsScreen", "Inflows"), QT_TRANSLATE_NOOP("ReportsScreen", "Outflows"), QT_TRANSLATE_NOOP("ReportsScreen", "Net")}, "cash_flow.csv"},
    {QT_TRANSLATE_NOOP("ReportsScreen", "Year-over-Year"),     {QT_TRANSLATE_NOOP("ReportsScreen", "Category"), QT_TRANSLATE_NOOP("ReportsScreen", "Period 1"), QT_TRANSLATE_NOOP("ReportsScreen", "Period 2"), QT_TRANSLATE_NOOP("ReportsScreen", "Difference")}, "year_over_year.csv"},
    {QT_TRANSLATE_NOOP("ReportsScreen", "Account Summary"),    {QT_TRANSLATE_NOOP("ReportsScreen", "Account"), QT_TRANSLATE_NOOP("ReportsScreen", "Type"), QT_TRANSLATE_NOOP("ReportsScreen", "Cleared"), QT_TRANSLATE_NOOP("ReportsScreen", "Uncleared"), QT_TRANSLATE_NOOP("ReportsScreen", "Total")}, "account_summary.csv"},
    {QT_TRANSLATE_NOOP("ReportsScreen", "Transactions"),       {QT_TRANSLATE_NOOP("ReportsScreen", "Date"), QT_TRANSLATE_NOOP("ReportsScreen", "Account"), QT_TRANSLATE_NOOP("ReportsScreen", "Payee"), QT_TRANSLATE_NOOP("ReportsScreen", "Category"), QT_TRANSLATE_NOOP("ReportsScreen", "Memo"), QT_TRANSLATE_NOOP("ReportsScreen", "Amount")}, "transactions.csv"},
};
// clang-format on

constexpr int kCustomPreset = 10;
constexpr int kCustomComparison = 3;

QString shortDate(const QDate &date)
{
    return QLocale().toString(date, QLocale::ShortFormat);
}

QDateEdit *makeDateEdit(QWidget *parent)
{
    auto *edit = new QDateEdit(parent);
    edit->setCalendarPopup(true);
    edit->setDisplayFormat(QLocale().dateFormat(QLocale::ShortFormat));
    edit->calendarWidget()->setFirstDayOfWeek(QLocale().firstDayOfWeek());
    return edit;
}

QLabel *mutedLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(kMuted)));
    return label;
}

QString accountTypeLabel(const QString &stored)
{
    if (stored == QLatin1String("checking"))
        return ReportsScreen::tr("Checking");
    if (stored == QLatin1String("savings"))
        return ReportsScreen::tr("Savings");
    if (stored == QLatin1String("credit_card"))
        return ReportsScreen::tr("Credit Card");
    if (stored == QLatin1String("cash"))
        return ReportsScreen::tr("Cash");
    if (stored == QLatin1String("investment"))
        return ReportsScreen::tr("Investment");
    return ReportsScreen::tr("Other");
}

QTableWidgetItem *textItem(const QString &text)
{
    return new QTableWidgetItem(text);
}

QTableWidgetItem *rightItem(const QString &text)
{
    auto *item = new QTableWidgetItem(text);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

QTableWidgetItem *moneyItem(qint64 cents)
{
    return rightItem(formatAmount(cents, Currency::USD));
}

// Empties the table and gives it rows empty rows. The model's per-cell signals are held back while
// the caller fills it; the view learns of the whole table at once when the fill ends.
class TableFill {
public:
    TableFill(QTableWidget *table, int rows)
        : m_table(table)
    {
        m_table->setUpdatesEnabled(false);
        m_table->setRowCount(0);
        m_table->setRowCount(rows);
        m_table->model()->blockSignals(true);
    }
    ~TableFill()
    {
        QAbstractItemModel *model = m_table->model();
        model->blockSignals(false);
        if (model->rowCount() > 0)
            emit model->dataChanged(model->index(0, 0),
                                    model->index(model->rowCount() - 1, model->columnCount() - 1));
        m_table->setUpdatesEnabled(true);
    }
    TableFill(const TableFill &) = delete;
    TableFill &operator=(const TableFill &) = delete;

    void set(int row, int column, QTableWidgetItem *item) { m_table->setItem(row, column, item); }
    void setBold(int row)
    {
        for (int column = 0; column < m_table->columnCount(); ++column) {
            if (QTableWidgetItem *item = m_table->item(row, column)) {
                QFont font = item->font();
                font.setBold(true);
                item->setFont(font);
            }
        }
    }

private:
    QTableWidget *m_table;
};

// A report table that can leave the items of its rows to be made when they are first painted: a
// table of a hundred thousand transactions then costs what its visible rows cost, not six items a
// row up front.
class ReportTable : public QTableWidget {
public:
    using RowSource = std::function<void(int first, int last)>;

    explicit ReportTable(QWidget *parent)
        : QTableWidget(parent)
    {
    }

    void setRowSource(RowSource source) { m_rowSource = std::move(source); }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        if (m_rowSource && rowCount() > 0) {
            const int first = rowAt(event->rect().top());
            const int last = rowAt(event->rect().bottom());
            if (first >= 0)
                m_rowSource(first, last < 0 ? rowCount() - 1 : last);
        }
        QTableWidget::paintEvent(event);
    }

private:
    RowSource m_rowSource;
};

QString transactionCell(const ReportService::TransactionReportRow &row, int column)
{
    switch (column) {
    case 0: return shortDate(row.date);
    case 1: return row.account;
    case 2: return row.payee;
    case 3: return row.category;
    case 4: return row.memo;
    case 5: return formatAmount(row.amount, Currency::USD);
    default: return {};
    }
}

} // namespace

ReportsScreen::ReportsScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    // The reports first run when the screen is refreshed for showing.
    m_updating = true;
    setupUi();
    reloadAccounts();
    onDatePresetChanged(0);
    applyComparisonPreset(0);
    connectSignals();
    m_updating = false;
}

QList<ReportsScreen::DatePreset> ReportsScreen::datePresets(const QDate &today)
{
    const QDate monthStart(today.year(), today.month(), 1);
    // The month is taken from the first of the month, so "Last Month" on 31 March ends on the last
    // day of February.
    const QDate quarterStart(today.year(), ((today.month() - 1) / 3) * 3 + 1, 1);
    return {
        {tr("This Month"),   monthStart,                 today                   },
        {tr("Last Month"),   monthStart.addMonths(-1),   monthStart.addDays(-1)  },
        {tr("This Quarter"), quarterStart,               today                   },
        {tr("Last Quarter"), quarterStart.addMonths(-3), quarterStart.addDays(-1)},
        {tr("This Year"),    QDate(today.year(),         1,                        1), today},
        {tr("Last Year"),             QDate(today.year() - 1,                                       1,                                                 1), QDate(today.year() - 1, 12, 31)},
        {tr("Last 30 Days"),                 today.addDays(-30),   today},
        {tr("Last 90 Days"),               today.addDays(-90),                                         today                                               },
        {tr("Last 12 Months"),             today.addYears(-1),                                     today                                                                                       },
        {tr("All Time"),             kAllTimeFloor,today},
        {tr("Custom"),             QDate(),   QDate()},
    };
}

QList<ReportsScreen::ComparisonPreset> ReportsScreen::comparisonPresets(const QDate &today)
{
    const int year = today.year();
    const QDate quarterStart(year, ((today.month() - 1) / 3) * 3 + 1, 1);
    return {
        {tr("This Year vs Last Year"),   QDate(year - 1,                           1,                                                         1),                                                                                                                 QDate(year - 1,                                                                                                                                                                                                                                 12, 31), QDate(year, 1, 1),
         today},
        {tr("Last Year vs Year Before"),                           QDate(year - 2,                                                         1,                                                                                                                 1),                                                                                                                                                                                                                                 QDate(year - 2,                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                   12, 31),
         QDate(year - 1, 1, 1), QDate(year - 1, 12, 31)},
        {tr("This Quarter vs Last Quarter"), quarterStart.addMonths(-3), quarterStart.addDays(-1),
         quarterStart, today},
        {tr("Custom"),                           QDate(),                                                           QDate(),                                                                                                                   QDate(),                                                                                                                                                                                                                                   QDate()                                                                                                                                                                                                                                                                                                                                                                                                                                                                  },
    };
}

void ReportsScreen::setupUi()
{
    auto *layout = new QVBoxLayout(this);

    // The title and the export button on a row of their own, so that the filters fit a window of the
    // default width at any font scale.
    auto *head = new QHBoxLayout;
    auto *title = new QLabel(tr("Reports"), this);
    applyFontRole(title, 4);
    head->addWidget(title);
    head->addStretch(1);
    m_exportButton = new QPushButton(tr("Export CSV"), this);
    m_exportButton->setObjectName(QStringLiteral("exportButton"));
    head->addWidget(m_exportButton);
    layout->addLayout(head);

    auto *bar = new QHBoxLayout;
    bar->addWidget(new QLabel(tr("Account:"), this));
    m_accountCombo = new QComboBox(this);
    m_accountCombo->setObjectName(QStringLiteral("accountCombo"));
    m_accountCombo->setMinimumWidth(140);
    // A long account name is elided in the box rather than widening the bar; the list shows it whole.
    m_accountCombo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_accountCombo->setMinimumContentsLength(16);
    bar->addWidget(m_accountCombo);
    bar->addSpacing(8);
    bar->addWidget(new QLabel(tr("Period:"), this));
    m_periodCombo = new QComboBox(this);
    m_periodCombo->setObjectName(QStringLiteral("periodCombo"));
    m_periodCombo->setMinimumWidth(130);
    for (const DatePreset &preset : datePresets(QDate::currentDate()))
        m_periodCombo->addItem(preset.label);
    bar->addWidget(m_periodCombo);
    bar->addSpacing(8);
    m_rangeLabel = mutedLabel(this);
    m_rangeLabel->setObjectName(QStringLiteral("rangeLabel"));
    bar->addWidget(m_rangeLabel);
    m_fromEdit = makeDateEdit(this);
    m_fromEdit->setObjectName(QStringLiteral("fromEdit"));
    m_toEdit = makeDateEdit(this);
    m_toEdit->setObjectName(QStringLiteral("toEdit"));
    bar->addWidget(m_fromEdit);
    bar->addWidget(m_toEdit);
    bar->addStretch(1);
    layout->addLayout(bar);

    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("reportTabs"));
    for (int tab = 0; tab < TabCount; ++tab) {
        auto *table = new ReportTable(this);
        if (tab == Transactions)
            table->setRowSource([this](int first, int last) { makeTransactionItems(first, last); });
        QStringList headers;
        for (const char *column : kTabs[tab].columns)
            headers.append(tr(column));
        table->setColumnCount(int(headers.size()));
        table->setHorizontalHeaderLabels(headers);
        table->setEditTriggers(QAbstractItemView::NoEditTriggers);
        table->setSelectionBehavior(QAbstractItemView::SelectRows);
        table->setAlternatingRowColors(true);
        table->setShowGrid(false);
        table->verticalHeader()->hide();
        // Fixed rows: a table of a hundred thousand transactions must not measure each one.
        table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        table->verticalHeader()->setDefaultSectionSize(36);
        table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        m_tables[tab] = table;

        if (tab == YearOverYear) {
            auto *page = new QWidget(this);
            auto *pageLayout = new QVBoxLayout(page);
            pageLayout->setContentsMargins(0, 6, 0, 0);
            pageLayout->addWidget(buildComparisonBar());
            pageLayout->addWidget(table, 1);
            m_tabs->addTab(page, tr(kTabs[tab].title));
        } else {
            m_tabs->addTab(table, tr(kTabs[tab].title));
        }
    }
    layout->addWidget(m_tabs, 1);
}

QWidget *ReportsScreen::buildComparisonBar()
{
    // The custom dates go on a line of their own below the choice: four date edits beside it would
    // not fit the window's default width.
    auto *bar = new QWidget(this);
    auto *rows = new QVBoxLayout(bar);
    rows->setContentsMargins(6, 0, 6, 0);
    auto *layout = new QHBoxLayout;
    rows->addLayout(layout);
    layout->addWidget(new QLabel(tr("Compare:"), bar));
    m_compareCombo = new QComboBox(bar);
    m_compareCombo->setObjectName(QStringLiteral("compareCombo"));
    for (const ComparisonPreset &preset : comparisonPresets(QDate::currentDate()))
        m_compareCombo->addItem(preset.label);
    layout->addWidget(m_compareCombo);
    m_compareLabel = mutedLabel(bar);
    m_compareLabel->setObjectName(QStringLiteral("compareLabel"));
    layout->addWidget(m_compareLabel);

    m_compareEdits = new QWidget(bar);
    auto *edits = new QHBoxLayout(m_compareEdits);
    edits->setContentsMargins(0, 0, 0, 0);
    m_from1Edit = makeDateEdit(m_compareEdits);
    m_to1Edit = makeDateEdit(m_compareEdits);
    m_from2Edit = makeDateEdit(m_compareEdits);
    m_to2Edit = makeDateEdit(m_compareEdits);
    m_from1Edit->setObjectName(QStringLiteral("from1Edit"));
    m_to1Edit->setObjectName(QStringLiteral("to1Edit"));
    m_from2Edit->setObjectName(QStringLiteral("from2Edit"));
    m_to2Edit->setObjectName(QStringLiteral("to2Edit"));
    edits->addWidget(new QLabel(tr("P1:"), m_compareEdits));
    edits->addWidget(m_from1Edit);
    edits->addWidget(m_to1Edit);
    edits->addWidget(new QLabel(QStringLiteral("–"), m_compareEdits));
    edits->addWidget(new QLabel(tr("P2:"), m_compareEdits));
    edits->addWidget(m_from2Edit);
    edits->addWidget(m_to2Edit);
    edits->addStretch(1);
    layout->addStretch(1);
    rows->addWidget(m_compareEdits);
    return bar;
}

void ReportsScreen::connectSignals()
{
    connect(m_periodCombo, &QComboBox::currentIndexChanged, this, &ReportsScreen::onDatePresetChanged);
    connect(m_accountCombo, &QComboBox::currentIndexChanged, this, &ReportsScreen::onFilterChanged);
    for (QDateEdit *edit : {m_fromEdit, m_toEdit, m_from1Edit, m_to1Edit, m_from2Edit, m_to2Edit})
        connect(edit, &QDateEdit::dateChanged, this, &ReportsScreen::onFilterChanged);
    connect(m_tabs, &QTabWidget::currentChanged, this, &ReportsScreen::onFilterChanged);
    connect(m_compareCombo, &QComboBox::currentIndexChanged, this, &ReportsScreen::onComparisonPresetChanged);
    connect(m_exportButton, &QPushButton::clicked, this, &ReportsScreen::exportCurrentTab);

    m_changeTimer = new QTimer(this);
    m_changeTimer->setSingleShot(true);
    m_changeTimer->setInterval(0);
    connect(m_changeTimer, &QTimer::timeout, this, [this] {
        if (isVisible())
            refresh();
    });
    connect(m_state->accounts(), &AccountRepository::accountsChanged, this,
            &ReportsScreen::onRepositoryChanged);
    connect(m_state->transactions(), &TransactionRepository::transactionsChanged, this,
            &ReportsScreen::onRepositoryChanged);
    connect(m_state->categories(), &CategoryRepository::categoriesChanged, this,
            &ReportsScreen::onRepositoryChanged);
}

void ReportsScreen::onRepositoryChanged()
{
    if (isVisible())
        m_changeTimer->start();
}

void ReportsScreen::refresh()
{
    m_updating = true;
    reloadAccounts();
    m_updating = false;
    runReport();
}

void ReportsScreen::reloadAccounts()
{
    const QString current = m_accountCombo->currentData().toString();
    m_accountCombo->clear();
    m_accountCombo->addItem(tr("All Accounts"), QString());
    for (const Account &account : m_state->accounts()->getAll())
        m_accountCombo->addItem(account.name, account.id);
    const int index = m_accountCombo->findData(current);
    m_accountCombo->setCurrentIndex(index < 0 ? 0 : index);
}

void ReportsScreen::setRangeLabel(const QDate &from, const QDate &to)
{
    m_rangeLabel->setText(QStringLiteral("%1 – %2").arg(shortDate(from), shortDate(to)));
}

void ReportsScreen::onDatePresetChanged(int index)
{
    const QList<DatePreset> presets = datePresets(QDate::currentDate());
    if (index >= 0 && index < presets.size()) {
        const bool custom = index == kCustomPreset;
        m_fromEdit->setVisible(custom);
        m_toEdit->setVisible(custom);
        m_rangeLabel->setVisible(!custom);
        if (!custom) {
            const bool wasUpdating = m_updating;
            m_updating = true;
            m_fromEdit->setDate(presets[index].from);
            m_toEdit->setDate(presets[index].to);
            m_updating = wasUpdating;
            setRangeLabel(presets[index].from, presets[index].to);
        }
    }
    if (!m_updating)
        runReport();
}

void ReportsScreen::onComparisonPresetChanged(int index)
{
    m_updating = true;
    applyComparisonPreset(index);
    m_updating = false;
    runReport();
}

// "Custom" keeps the dates that stand, so the user edits from the last preset's.
void ReportsScreen::applyComparisonPreset(int index)
{
    const QList<ComparisonPreset> presets = comparisonPresets(QDate::currentDate());
    const bool custom = index == kCustomComparison;
    m_compareEdits->setVisible(custom);
    m_compareLabel->setVisible(!custom);
    if (index >= 0 && index < kCustomComparison) {
        const ComparisonPreset &preset = presets[index];
        m_from1Edit->setDate(preset.from1);
        m_to1Edit->setDate(preset.to1);
        m_from2Edit->setDate(preset.from2);
        m_to2Edit->setDate(preset.to2);
        m_compareLabel->setText(tr("P1: %1 – %2    P2: %3 – %4")
                                    .arg(shortDate(preset.from1), shortDate(preset.to1),
                                         shortDate(preset.from2), shortDate(preset.to2)));
    }
}

void ReportsScreen::onFilterChanged()
{
    if (!m_updating)
        runReport();
}

void ReportsScreen::runReport()
{
    const QString accountId = m_accountCombo->currentData().toString();
    const QDate from = m_fromEdit->date();
    const QDate to = m_toEdit->date();
    const ReportService *reports = m_state->reportService();

    {
        const auto rows = reports->categorySpending(from, to, accountId);
        TableFill fill(m_tables[CategorySpending], int(rows.size()));
        for (int r = 0; r < rows.size(); ++r) {
            fill.set(r, 0, textItem(rows[r].category));
            fill.set(r, 1, moneyItem(rows[r].total));
        }
    }
    {
        const auto rows = reports->payeeSummary(from, to, accountId);
        TableFill fill(m_tables[PayeeSummary], int(rows.size()));
        for (int r = 0; r < rows.size(); ++r) {
            fill.set(r, 0, textItem(rows[r].payee));
            fill.set(r, 1, moneyItem(rows[r].total));
            fill.set(r, 2, rightItem(QString::number(rows[r].count)));
        }
    }
    {
        // The tax report is over all accounts, whatever the filter says.
        const auto rows = reports->taxReport(from, to);
        TableFill fill(m_tables[TaxReport], int(rows.size()));
        for (int r = 0; r < rows.size(); ++r) {
            fill.set(r, 0, textItem(rows[r].category));
            fill.set(r, 1, textItem(rows[r].taxCategory));
            fill.set(r, 2, moneyItem(rows[r].total));
        }
    }
    {
        const auto rows = reports->incomeVsExpenses(from, to, accountId);
        TableFill fill(m_tables[IncomeVsExpenses], int(rows.size()) + 1);
        qint64 income = 0, expenses = 0, net = 0;
        for (int r = 0; r < rows.size(); ++r) {
            fill.set(r, 0, textItem(rows[r].month));
            fill.set(r, 1, moneyItem(rows[r].income));
            fill.set(r, 2, moneyItem(rows[r].expenses));
            fill.set(r, 3, moneyItem(rows[r].net));
            income += rows[r].income;
            expenses += rows[r].expenses;
            net += rows[r].net;
        }
        const int total = int(rows.size());
        fill.set(total, 0, textItem(tr("Total")));
        fill.set(total, 1, moneyItem(income));
        fill.set(total, 2, moneyItem(expenses));
        fill.set(total, 3, moneyItem(net));
        fill.setBold(total);
    }
    {
        const auto rows = reports->cashFlow(from, to, accountId);
        TableFill fill(m_tables[CashFlow], int(rows.size()) + 1);
        qint64 inflows = 0, outflows = 0, net = 0;
        for (int r = 0; r < rows.size(); ++r) {
            fill.set(r, 0, textItem(rows[r].month));
            fill.set(r, 1, moneyItem(rows[r].inflows));
            fill.set(r, 2, moneyItem(rows[r].outflows));
            fill.set(r, 3, moneyItem(rows[r].net));
            inflows += rows[r].inflows;
            outflows += rows[r].outflows;
            net += rows[r].net;
        }
        const int total = int(rows.size());
        fill.set(total, 0, textItem(tr("Total")));
        fill.set(total, 1, moneyItem(inflows));
        fill.set(total, 2, moneyItem(outflows));
        fill.set(total, 3, moneyItem(net));
        fill.setBold(total);
    }
    {
        const auto rows = reports->yearOverYear(m_from1Edit->date(), m_to1Edit->date(), m_from2Edit->date(),
                                                m_to2Edit->date(), accountId);
        TableFill fill(m_tables[YearOverYear], int(rows.size()));
        for (int r = 0; r < rows.size(); ++r) {
            fill.set(r, 0, textItem(rows[r].category));
            fill.set(r, 1, moneyItem(rows[r].period1));
            fill.set(r, 2, moneyItem(rows[r].period2));
            fill.set(r, 3, moneyItem(rows[r].difference));
        }
    }
    {
        const auto rows = reports->accountSummary();
        TableFill fill(m_tables[AccountSummary], int(rows.size()));
        for (int r = 0; r < rows.size(); ++r) {
            fill.set(r, 0, textItem(rows[r].name));
            fill.set(r, 1, textItem(accountTypeLabel(rows[r].accountType)));
            fill.set(r, 2, moneyItem(rows[r].cleared));
            fill.set(r, 3, moneyItem(rows[r].uncleared));
            fill.set(r, 4, moneyItem(rows[r].total));
        }
    }
    {
        // Its items are made as rows come into view.
        m_transactionRows = reports->transactions(from, to, accountId, QString());
        TableFill fill(m_tables[Transactions], int(m_transactionRows.size()));
    }
}

void ReportsScreen::makeTransactionItems(int first, int last)
{
    QTableWidget *table = m_tables[Transactions];
    last = qMin(last, int(m_transactionRows.size()) - 1);
    const QSignalBlocker blocker(table->model());
    for (int row = first; row <= last; ++row) {
        if (table->item(row, 0))
            continue;
        const ReportService::TransactionReportRow &record = m_transactionRows[row];
        for (int column = 0; column < 5; ++column)
            table->setItem(row, column, textItem(transactionCell(record, column)));
        table->setItem(row, 5, rightItem(transactionCell(record, 5)));
    }
}

QString ReportsScreen::cellText(Tab tab, int row, int column) const
{
    if (const QTableWidgetItem *item = m_tables[tab]->item(row, column))
        return item->text();
    if (tab == Transactions && row >= 0 && row < m_transactionRows.size())
        return transactionCell(m_transactionRows[row], column);
    return {};
}

void ReportsScreen::exportCurrentTab()
{
    const int tab = m_tabs->currentIndex();
    if (tab < 0 || tab >= TabCount)
        return;
    QTableWidget *table = m_tables[tab];
    if (table->rowCount() == 0)
        return;
    const QString path = Prompt::saveFileName(
        this, tr("Export CSV"), QString::fromLatin1(kTabs[tab].fileName), tr("CSV Files (*.csv)"));
    if (path.isEmpty())
        return;

    // The cells as shown: formatted money and the "Total" rows go along.
    QStringList headers;
    for (int column = 0; column < table->columnCount(); ++column)
        headers.append(table->horizontalHeaderItem(column)->text());
    QList<QStringList> rows;
    rows.reserve(table->rowCount());
    for (int row = 0; row < table->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column)
            cells.append(cellText(Tab(tab), row, column));
        rows.append(cells);
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return;
    file.write(ReportService::toCsv(headers, rows).toUtf8());
}
