#pragma once

#include "core/AccountType.h"
#include "core/Currency.h"
#include "core/SyncStatus.h"

#include <QDateTime>
#include <QString>

#include <optional>

struct Account {
    QString id;
    QString name;
    AccountType accountType = AccountType::Checking;
    Currency currency = Currency::USD;
    QString institution;
    QString accountNumberLast4;
    qint64 startingBalance = 0;
    qint32 sortOrder = 0;
    bool isShared = false;
    qint32 version = 1;
    SyncStatus syncStatus = SyncStatus::Pending;
    QString serverId;
    QDateTime createdAt;
    QDateTime updatedAt;
    std::optional<QDateTime> deletedAt;
};
