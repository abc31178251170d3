#pragma once

#include <QJsonObject>
#include <QString>

struct Account;
struct Category;
struct Reconciliation;
struct RecurringTransaction;
struct Transaction;

// The push wire format: one payload per row and the change object that carries it. Booleans travel
// as 0 and 1, and server_id and deleted_at are left out when they have no value, because the server
// reads a present key as a value to store.
namespace SyncEntity {
inline const QString Account = QStringLiteral("account");
inline const QString Category = QStringLiteral("category");
inline const QString Recurring = QStringLiteral("recurring");
inline const QString Transaction = QStringLiteral("transaction");
inline const QString Reconciliation = QStringLiteral("reconciliation");
} // namespace SyncEntity

QJsonObject accountPayload(const Account &account);
QJsonObject categoryPayload(const Category &category);
QJsonObject recurringPayload(const RecurringTransaction &rule);
QJsonObject transactionPayload(const Transaction &transaction);
QJsonObject reconciliationPayload(const Reconciliation &record);

// A deletion carries the full payload too, so the server can keep a tombstone of what it was.
QJsonObject changeObject(const QString &entityType, const QString &id, qint32 version, bool deleted,
                         const QJsonObject &payload);
