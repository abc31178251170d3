#pragma once

#include "core/SyncStatus.h"

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

struct Reconciliation {
    QString id;
    QString accountId;
    QDate statementDate;
    qint64 statementBalance = 0;
    qint64 reconciledBalance = 0;
    QDateTime completedAt;
    qint32 version = 1;
    SyncStatus syncStatus = SyncStatus::Pending;
    QString serverId;
    QDateTime createdAt;
    QDateTime updatedAt;
    std::optional<QDateTime> deletedAt;
};
