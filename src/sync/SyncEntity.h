#pragma once

#include <QString>

// The entity types of the sync wire format, as change objects and result objects name them.
namespace SyncEntity {
inline const QString Account = QStringLiteral("account");
inline const QString Category = QStringLiteral("category");
inline const QString Recurring = QStringLiteral("recurring");
inline const QString Transaction = QStringLiteral("transaction");
inline const QString Reconciliation = QStringLiteral("reconciliation");
} // namespace SyncEntity
