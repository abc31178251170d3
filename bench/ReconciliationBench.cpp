#include "ReconciliationBench.h"

#include "HouseholdCopy.h"

#include "core/AppState.h"
#include "data/Database.h"
#include "data/TransactionRepository.h"
#include "ui/MainWindow.h"
#include "ui/Prompt.h"
#include "ui/ReconciliationScreen.h"

#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr double kOpenMaxMs = 150.0;

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

// Every row of the account ticked and finished, on a copy of the household, with the main window
// listening to each write as it does in the program. Gives the time, or a negative one on failure.
double measureFinish(const QString &householdPath, const QString &accountId, int &ticked)
{
    QTemporaryDir dir;
    if (!dir.isValid() || !copyHousehold(householdPath, dir.path()))
        return -1;
    qputenv("OMBREL_DATA_DIR", dir.path().toUtf8());
    AppState state;
    if (!state.initialize())
        return -1;
    // The household's rules are behind today; the window's start-up pass would post into the account.
    QSqlQuery(QStringLiteral("UPDATE recurring_transactions SET is_active = 0"),
              state.database()->connection());
    MainWindow window(&state);
    ReconciliationScreen screen(&state);
    screen.setAccount(accountId);
    QTableWidget *table = screen.table();
    for (int row = 0; row < table->rowCount(); ++row)
        table->item(row, 0)->setCheckState(Qt::Checked);
    ticked = table->rowCount();
    // The statement agrees with the ticks: the difference against a zero statement is minus the balance.
    screen.findChild<QDoubleSpinBox *>(QStringLiteral("statementBalance"))
        ->setValue(double(-screen.difference()) / 100.0);
    auto *finish = screen.findChild<QPushButton *>(QStringLiteral("finishButton"));
    if (!finish->isEnabled())
        return -1;
    Prompt::setNextAnswer(QMessageBox::Ok);
    return timeMs([&] { finish->click(); });
}

} // namespace

bool benchReconciliationScreen(const QString &dataDirectory, const QString &householdPath,
                               const QString &accountId, int runs)
{
    std::vector<double> open, total, unreconciled;
    int rows = 0;
    {
        // One program at a time: its connection has one name, so this one closes before the copy opens.
        qputenv("OMBREL_DATA_DIR", dataDirectory.toUtf8());
        AppState state;
        if (!state.initialize())
            return false;
        for (int i = 0; i < runs; ++i) {
            // As the main window does it: a new window, loaded, then shown and painted.
            open.push_back(timeMs([&] {
                ReconciliationScreen screen(&state);
                screen.resize(1100, 720);
                screen.setAccount(accountId);
                screen.show();
                screen.repaint();
                rows = screen.table()->rowCount();
            }));
            QCoreApplication::processEvents();
            total.push_back(timeMs([&] { state.transactions()->getReconciledTotal(accountId); }));
            unreconciled.push_back(timeMs([&] { state.transactions()->getUnreconciled(accountId); }));
        }
    }
    int ticked = 0;
    const double finishMs = measureFinish(householdPath, accountId, ticked);
    if (finishMs < 0)
        return false;

    const double openMs = medianOf(open);
    std::printf("\n%-44s %10s %12s %6s  %-30s %s\n", "reconciliation screen", "median ms", "", "", "target",
                "met");
    std::printf("%-44s %10.1f %12s %6s  %-30s %s\n",
                qPrintable(QStringLiteral("open the largest account (%1 rows to tick)").arg(rows)), openMs,
                "", "", qPrintable(QStringLiteral("< %1 ms").arg(kOpenMaxMs)),
                openMs < kOpenMaxMs ? "yes" : "NO");
    std::printf("%-44s %10.1f\n", "  of which: the reconciled rows summed", medianOf(total));
    std::printf("%-44s %10.1f\n", "  of which: the unreconciled rows read", medianOf(unreconciled));
    std::printf("%-44s %10.1f %12s %6s  %-30s %s\n",
                qPrintable(QStringLiteral("finish with all %1 ticked, window open").arg(ticked)), finishMs,
                "", "", "-", "-");
    return true;
}
