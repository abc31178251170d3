#pragma once

#include "core/SyncStatus.h"

#include <QDate>
#include <QDateTime>
#include <QMetaType>
#include <QString>

#include <optional>

struct Transaction {
    QString id;
    QString accountId;
    QDate date;
    QString payee;
    QString memo;
    qint64 amount = 0;  // negative is money out
    QString categoryId; // empty is stored as NULL
    QString checkNumber;
    bool cleared = false;
    bool reconciled = false;
    QString transferLinkId;        // the id of the other leg of a transfer
    QString transferDestAccountId; // the account of the other leg
    bool isSplit = false;
    QString recurringId; // the rule that posted it
    qint32 version = 1;
    SyncStatus syncStatus = SyncStatus::Pending;
    QString serverId;
    QDateTime createdAt;
    QDateTime updatedAt;
    std::optional<QDateTime> deletedAt;
};

// Every member moves as plain bytes, so a growing list of a whole account is moved with memcpy
// rather than element by element.
Q_DECLARE_TYPEINFO(Transaction, Q_RELOCATABLE_TYPE);
