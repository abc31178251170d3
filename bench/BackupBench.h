#pragma once

#include <QString>

// The backup of a large household: exporting it to a ZIP archive, restoring that archive over the
// same file with KeepNewer (every row found and equal, so each is read and compared, none written),
// and restoring it into a new, empty file. Prints its own table; false when a step failed.
bool runBackupBench(const QString &databasePath, int runs);
