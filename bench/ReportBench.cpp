#include "ReportBench.h"

#include "SqliteReportReads.h"

#include "core/AppState.h"
#include "services/ReportService.h"
#include "ui/ReportsScreen.h"
#include "ui/SearchScreen.h"
#include "ui/register/RegisterModel.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <QTableWidget>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr double kMaxRatio = 1.5;
constexpr double kRunReportMaxMs = 400.0;
constexpr double kSearchMaxMs = 30.0;
constexpr int kAllTimePreset = 9;

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

template <typename F>
double timeMs(F &&work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

// Field by field: a baseline that builds other rows measures other work.
bool same(const ReportService::CategorySpendingRow &a, const ReportService::CategorySpendingRow &b)
{
    return a.category == b.category && a.total == b.total;
}
bool same(const ReportService::PayeeSummaryRow &a, const ReportService::PayeeSummaryRow &b)
{
    return a.payee == b.payee && a.total == b.total && a.count == b.count;
}
bool same(const ReportService::TaxReportRow &a, const ReportService::TaxReportRow &b)
{
    return a.category == b.category && a.taxCategory == b.taxCategory && a.total == b.total;
}
bool same(const ReportService::IncomeExpenseRow &a, const ReportService::IncomeExpenseRow &b)
{
    return a.month == b.month && a.income == b.income && a.expenses == b.expenses && a.net == b.net;
}
bool same(const ReportService::CashFlowRow &a, const ReportService::CashFlowRow &b)
{
    return a.month == b.month && a.inflows == b.inflows && a.outflows == b.outflows && a.net == b.net;
}
bool same(const ReportService::YearOverYearRow &a, const ReportService::YearOverYearRow &b)
{
    return a.category == b.category && a.period1 == b.period1 && a.period2 == b.period2 &&
           a.difference == b.difference;
}
bool same(const ReportService::AccountSummaryRow &a, const ReportService::AccountSummaryRow &b)
{
    return a.name == b.name && a.accountType == b.accountType && a.cleared == b.cleared &&
           a.uncleared == b.uncleared && a.total == b.total;
}
bool same(const ReportService::TransactionReportRow &a, const ReportService::TransactionReportRow &b)
{
    return a.date == b.date && a.account == b.account && a.payee == b.payee && a.category == b.category &&
           a.memo == b.memo && a.amount == b.amount;
}

void printRow(const QString &name, double ms, double baselineMs, const QString &target, const QString &met)
{
    const QString ratio = baselineMs > 0 ? QString::number(ms / baselineMs, 'f', 2) : QStringLiteral("-");
    std::printf("%-44s %10.1f %12s %6s  %-30s %s\n", qPrintable(name), ms,
                baselineMs > 0 ? qPrintable(QString::number(baselineMs, 'f', 1)) : "-", qPrintable(ratio),
                qPrintable(target), qPrintable(met));
}

QString verdict(bool met)
{
    return met ? QStringLiteral("yes") : QStringLiteral("NO");
}

// Ours and the baseline take turns after one untimed round each, so that drift on a busy machine
// falls on both alike; the rows of that round are compared.
template <typename Ours, typename Baseline>
bool measureReport(const char *name, int runs, Ours &&ours, Baseline &&baseline)
{
    const auto mine = ours();
    const auto theirs = baseline();
    const bool equal =
        mine.size() == theirs.size() && std::equal(mine.begin(), mine.end(), theirs.begin(),
                                                   [](const auto &a, const auto &b) { return same(a, b); });
    if (!equal)
        std::fprintf(stderr, "ombrel_bench: %s: the baseline's rows differ from the service's\n", name);
    std::vector<double> a, b;
    for (int i = 0; i < runs; ++i) {
        a.push_back(timeMs(ours));
        b.push_back(timeMs(baseline));
    }
    const double ms = medianOf(a), baselineMs = medianOf(b);
    printRow(QStringLiteral("%1 (%2 rows)").arg(QLatin1String(name)).arg(mine.size()), ms, baselineMs,
             QStringLiteral("<= %1x baseline").arg(kMaxRatio), verdict(ms <= kMaxRatio * baselineMs));
    return equal;
}

} // namespace

bool runReportBench(const QString &dataDirectory, const QString &databasePath, const QString &searchWord,
                    int runs)
{
    qputenv("OMBREL_DATA_DIR", dataDirectory.toUtf8());
    AppState state;
    if (!state.initialize())
        return false;
    const SqliteReportReads baseline(databasePath);
    if (!baseline.isOpen())
        return false;
    const ReportService *reports = state.reportService();

    // "All Time" over all accounts, as the screen asks; the comparison is of two whole years.
    const QDate from(2000, 1, 1), to = QDate::currentDate();
    const QDate from1(2023, 1, 1), to1(2023, 12, 31), from2(2024, 1, 1), to2(2024, 12, 31);
    const QString all;

    std::printf("\n%-44s %10s %12s %6s  %-30s %s\n", "reports, all time, all accounts", "median ms",
                "baseline ms", "ratio", "target", "met");
    bool same = true;
    same = measureReport(
               "categorySpending", runs, [&] { return reports->categorySpending(from, to, all); },
               [&] { return baseline.categorySpending(from, to, all); }) &&
           same;
    same = measureReport(
               "payeeSummary", runs, [&] { return reports->payeeSummary(from, to, all); },
               [&] { return baseline.payeeSummary(from, to, all); }) &&
           same;
    same = measureReport(
               "taxReport", runs, [&] { return reports->taxReport(from, to); },
               [&] { return baseline.taxReport(from, to); }) &&
           same;
    same = measureReport(
               "incomeVsExpenses", runs, [&] { return reports->incomeVsExpenses(from, to, all); },
               [&] { return baseline.incomeVsExpenses(from, to, all); }) &&
           same;
    same = measureReport(
               "cashFlow", runs, [&] { return reports->cashFlow(from, to, all); },
               [&] { return baseline.cashFlow(from, to, all); }) &&
           same;
    same = measureReport(
               "yearOverYear, 2023 vs 2024", runs,
               [&] { return reports->yearOverYear(from1, to1, from2, to2, all); },
               [&] { return baseline.yearOverYear(from1, to1, from2, to2, all); }) &&
           same;
    same = measureReport(
               "accountSummary", runs, [&] { return reports->accountSummary(); },
               [&] { return baseline.accountSummary(); }) &&
           same;
    same = measureReport(
               "transactions", runs, [&] { return reports->transactions(from, to, all, QString()); },
               [&] { return baseline.transactions(from, to, all, QString()); }) &&
           same;

    std::printf("\n%-44s %10s %12s %6s  %-30s %s\n", "screens", "median ms", "baseline ms", "ratio", "target",
                "met");
    {
        ReportsScreen screen(&state);
        screen.resize(1000, 700);
        screen.show();
        QCoreApplication::processEvents();
        // Choosing the preset runs the reports once, untimed.
        screen.findChild<QComboBox *>(QStringLiteral("periodCombo"))->setCurrentIndex(kAllTimePreset);
        QTableWidget *shown = screen.table(ReportsScreen::CategorySpending);
        // The floor: the eight statements the run makes, with its own dates, on the C API.
        const QDate today = QDate::currentDate();
        const QDate lastYear(today.year() - 1, 1, 1), lastYearEnd(today.year() - 1, 12, 31),
            thisYear(today.year(), 1, 1);
        const auto statements = [&] {
            baseline.categorySpending(from, to, all);
            baseline.payeeSummary(from, to, all);
            baseline.taxReport(from, to);
            baseline.incomeVsExpenses(from, to, all);
            baseline.cashFlow(from, to, all);
            baseline.yearOverYear(lastYear, lastYearEnd, thisYear, today, all);
            baseline.accountSummary();
            baseline.transactions(from, to, all, QString());
        };
        std::vector<double> times, floor;
        for (int i = 0; i < runs; ++i) {
            times.push_back(timeMs([&] {
                QMetaObject::invokeMethod(&screen, "runReport");
                shown->viewport()->repaint();
            }));
            floor.push_back(timeMs(statements));
        }
        const double ms = medianOf(times), floorMs = medianOf(floor);
        const bool met = ms < kRunReportMaxMs;
        printRow(QStringLiteral("runReport, all eight tabs (%1 transactions)")
                     .arg(screen.table(ReportsScreen::Transactions)->rowCount()),
                 ms, floorMs, QStringLiteral("< %1 ms").arg(kRunReportMaxMs),
                 met ? QStringLiteral("yes")
                     : (floorMs < kRunReportMaxMs ? QStringLiteral("NO")
                                                  : QStringLiteral("NO, nor the baseline")));
    }
    {
        SearchScreen screen(&state);
        screen.resize(1000, 600);
        screen.show();
        QCoreApplication::processEvents();
        screen.findChild<QLineEdit *>(QStringLiteral("searchEdit"))->setText(searchWord);
        std::vector<double> times;
        for (int i = 0; i < runs + 1; ++i) {
            const double ms = timeMs([&] {
                QMetaObject::invokeMethod(&screen, "performSearch");
                screen.view()->viewport()->repaint();
            });
            if (i > 0)
                times.push_back(ms);
        }
        const double ms = medianOf(times);
        printRow(QStringLiteral("search screen \"%1\" (%2 rows)")
                     .arg(searchWord)
                     .arg(screen.model()->rowCount() - 1),
                 ms, 0, QStringLiteral("< %1 ms").arg(kSearchMaxMs), verdict(ms < kSearchMaxMs));
    }
    return same;
}
