#pragma once

#include "services/ReportService.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QWidget>

class AppState;
class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;
class QTabWidget;
class QTableWidget;
class QTimer;

// The eight reports, one tab each, under one filter bar; the shown tab exports to CSV. Every run
// rebuilds all tabs, so a tab is never stale when the user turns to it.
class ReportsScreen : public QWidget {
    Q_OBJECT
public:
    enum Tab {
        CategorySpending,
        PayeeSummary,
        TaxReport,
        IncomeVsExpenses,
        CashFlow,
        YearOverYear,
        AccountSummary,
        Transactions,
        TabCount
    };

    struct DatePreset {
        QString label;
        QDate from; // invalid for "Custom"
        QDate to;
    };

    struct ComparisonPreset {
        QString label;
        QDate from1; // all invalid for "Custom"
        QDate to1;
        QDate from2;
        QDate to2;
    };

    explicit ReportsScreen(AppState *state, QWidget *parent = nullptr);

    // Built from the given day on every use, so that a screen left open over a month's end gets the
    // right ranges. "Custom", last, has no dates.
    static QList<DatePreset> datePresets(const QDate &today);
    static QList<ComparisonPreset> comparisonPresets(const QDate &today);

    // Reloads the account list, keeping the chosen account while it exists, and runs the reports.
    void refresh();
    QTableWidget *table(Tab tab) const { return m_tables[tab]; }
    // A cell's text as shown, also for a row of transactions that has not been painted yet.
    QString cellText(Tab tab, int row, int column) const;

private slots:
    void onDatePresetChanged(int index);
    void onFilterChanged();
    void runReport();
    void exportCurrentTab();

private:
    void setupUi();
    QWidget *buildComparisonBar();
    void connectSignals();
    void reloadAccounts();
    void onComparisonPresetChanged(int index);
    void applyComparisonPreset(int index);
    void onRepositoryChanged();
    void setRangeLabel(const QDate &from, const QDate &to);
    void makeTransactionItems(int first, int last);

    AppState *m_state = nullptr;
    // Set while the screen moves its own widgets, so that each move does not run every report.
    bool m_updating = false;

    QComboBox *m_accountCombo = nullptr;
    QComboBox *m_periodCombo = nullptr;
    QLabel *m_rangeLabel = nullptr;
    QDateEdit *m_fromEdit = nullptr;
    QDateEdit *m_toEdit = nullptr;
    QPushButton *m_exportButton = nullptr;
    QTabWidget *m_tabs = nullptr;
    QTableWidget *m_tables[TabCount] = {};
    // What the transactions tab shows; its items are made from these when painted.
    QList<ReportService::TransactionReportRow> m_transactionRows;

    QComboBox *m_compareCombo = nullptr;
    QLabel *m_compareLabel = nullptr;
    QWidget *m_compareEdits = nullptr;
    QDateEdit *m_from1Edit = nullptr;
    QDateEdit *m_to1Edit = nullptr;
    QDateEdit *m_from2Edit = nullptr;
    QDateEdit *m_to2Edit = nullptr;

    // Bursts of changes (an import, a sync) run the reports once, after the burst.
    QTimer *m_changeTimer = nullptr;
};
