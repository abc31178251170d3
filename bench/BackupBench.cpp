#include "BackupBench.h"

#include "data/Database.h"
#include "services/BackupService.h"
#include "support/TempDatabase.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr double kMaxMs = 5000.0;

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

void printRow(const QString &name, double ms, bool hasTarget)
{
    std::printf("%-44s %10.1f %12s %6s  %-30s %s\n", qPrintable(name), ms, "-", "",
                hasTarget ? qPrintable(QStringLiteral("< %1 ms").arg(kMaxMs)) : "-",
                hasTarget ? (ms < kMaxMs ? "yes" : "NO") : "-");
}

} // namespace

bool runBackupBench(const QString &databasePath, int runs)
{
    QByteArray archive;
    BackupImportResult reimport;
    std::vector<double> exports, reimports;
    {
        Database db;
        if (!db.open(databasePath))
            return false;
        BackupService service(&db);
        for (int i = 0; i < runs; ++i) {
            exports.push_back(timeMs([&] { archive = service.exportToZip(); }));
            reimports.push_back(
                timeMs([&] { reimport = service.importFromZip(archive, BackupImportMode::KeepNewer); }));
        }
    }
    BackupImportResult restore;
    double restoreMs = 0;
    {
        TempDatabase empty;
        if (!empty.open())
            return false;
        BackupService service(empty.database());
        restoreMs = timeMs([&] { restore = service.importFromZip(archive, BackupImportMode::KeepNewer); });
    }
    const qint64 rows = reimport.totalImported() + reimport.totalSkipped();

    std::printf("\n%-44s %10s %12s %6s  %-30s %s\n", "backup (medians of runs)", "median ms", "", "",
                "target", "met");
    printRow(QStringLiteral("export to ZIP (%1 rows, %2 MiB)")
                 .arg(rows)
                 .arg(double(archive.size()) / 1048576.0, 0, 'f', 1),
             medianOf(exports), true);
    printRow(
        QStringLiteral("re-import keep newer (%1 read, %2 written)").arg(rows).arg(reimport.totalImported()),
        medianOf(reimports), true);
    printRow(QStringLiteral("restore into an empty file (%1 written)").arg(restore.totalImported()),
             restoreMs, false);
    return reimport.errors.isEmpty() && restore.errors.isEmpty() && reimport.totalImported() == 0 &&
           restore.totalImported() + restore.splitLinesSkipped == rows;
}
