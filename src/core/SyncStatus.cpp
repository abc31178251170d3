#include "core/SyncStatus.h"

#include "core/WordTable.h"

namespace {
constexpr WordEntry<SyncStatus> kWords[] = {
    {SyncStatus::Pending,  "pending" },
    {SyncStatus::Synced,   "synced"  },
    {SyncStatus::Conflict, "conflict"},
};
} // namespace

QString syncStatusToString(SyncStatus value)
{
    return wordOf(kWords, value, SyncStatus::Pending);
}

SyncStatus syncStatusFromString(const QString &text)
{
    return valueOf(kWords, text, SyncStatus::Pending);
}
