#pragma once

#include <QtGlobal>

// What a restore does with a row the database already holds.
enum class BackupImportMode : qint32 {
    SkipExisting = 0, // keep ours
    Replace = 1,      // take the backup's
    KeepNewer = 2,    // take the backup's when its updated_at is later
};
