#pragma once

#include "core/Frequency.h"
#include "core/SyncStatus.h"

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

struct RecurringTransaction {
    QString id;
    QString accountId;
    QString payee;
    QString memo;
    qint64 amount = 0;
    QString categoryId; // empty is stored as NULL
    Frequency frequency = Frequency::Monthly;
    QDate startDate;
    std::optional<QDate> endDate;
    QDate nextDueDate;
    bool autoPost = false;
    bool isActive = true;
    QString transferDestAccountId; // non-empty makes the rule a transfer
    qint32 version = 1;
    SyncStatus syncStatus = SyncStatus::Pending;
    QString serverId;
    QDateTime createdAt;
    QDateTime updatedAt;
    std::optional<QDateTime> deletedAt;
};
