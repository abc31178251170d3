#pragma once

#include "core/CategoryType.h"
#include "core/SyncStatus.h"

#include <QDateTime>
#include <QString>

#include <optional>

struct Category {
    QString id;
    QString name;
    CategoryType categoryType = CategoryType::Expense;
    QString parentId; // empty at the top level; stored as NULL
    bool isTaxRelevant = false;
    QString taxCategory; // tax line code
    QString icon;
    QString color;
    bool isDefault = false; // seeded
    QString accountId;
    qint32 version = 1;
    SyncStatus syncStatus = SyncStatus::Pending;
    QString serverId;
    QDateTime createdAt;
    QDateTime updatedAt;
    std::optional<QDateTime> deletedAt;
};
