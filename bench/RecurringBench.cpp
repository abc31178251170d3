#include "RecurringBench.h"

#include "HouseholdCopy.h"

#include "core/AppState.h"
#include "data/Database.h"
#include "services/RecurringService.h"

#include <QElapsedTimer>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

struct Run {
    double ms = 0;
    int posted = 0;
    int dueRules = 0;
};

// The household's rules stop at its last day; moved forward so that they are a year behind today,
// whatever day the benchmark runs, they give the same backlog each time.
bool makeRulesLate(Database *db, const QDate &lastDate)
{
    const qint64 shift = lastDate.daysTo(QDate::currentDate()) - 365;
    QSqlQuery q(db->connection());
    q.prepare(QStringLiteral("UPDATE recurring_transactions SET next_due_date = date(next_due_date, ?) "
                             "WHERE deleted_at IS NULL AND is_active = 1"));
    q.addBindValue(QStringLiteral("%1%2 days").arg(shift >= 0 ? QStringLiteral("+") : QString()).arg(shift));
    return q.exec();
}

bool runOnce(const QString &householdPath, const QDate &lastDate, Run &run)
{
    QTemporaryDir dir;
    if (!dir.isValid() || !copyHousehold(householdPath, dir.path()))
        return false;
    qputenv("OMBREL_DATA_DIR", dir.path().toUtf8());
    AppState state;
    if (!state.initialize() || !makeRulesLate(state.database(), lastDate))
        return false;
    run.dueRules = state.recurringService()->pendingCount();
    QElapsedTimer timer;
    timer.start();
    run.posted = state.recurringService()->processAutoPost();
    run.ms = double(timer.nsecsElapsed()) / 1e6;
    return true;
}

} // namespace

bool benchAutoPost(const QString &householdPath, const QDate &householdLastDate, int runs)
{
    std::vector<Run> results;
    for (int i = 0; i < runs; ++i) {
        Run run;
        if (!runOnce(householdPath, householdLastDate, run))
            return false;
        results.push_back(run);
    }
    std::sort(results.begin(), results.end(), [](const Run &a, const Run &b) { return a.ms < b.ms; });
    const Run &median = results[results.size() / 2];
    std::printf("\n%-44s %10s %12s %6s  %-30s %s\n", "recurring posting at start", "median ms", "per post ms",
                "", "target", "met");
    const QString name =
        QStringLiteral("processAutoPost (%1 due rules, %2 posted)").arg(median.dueRules).arg(median.posted);
    std::printf("%-44s %10.1f %12.3f %6s  %-30s %s\n", qPrintable(name), median.ms,
                median.posted > 0 ? median.ms / median.posted : 0.0, "", "-", "-");
    return true;
}
