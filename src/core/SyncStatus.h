#pragma once

#include <QString>

// Pending: local changes the server has not acknowledged. Conflict is stored and read faithfully but
// nothing sets it on its own.
enum class SyncStatus { Pending = 0, Synced = 1, Conflict = 2 };

QString syncStatusToString(SyncStatus value);
SyncStatus syncStatusFromString(const QString &text);
