#pragma once

#include "core/Reconciliation.h"

#include <QList>
#include <QObject>

#include <optional>

class Database;

// The history of balanced statements. A reconciliation is never deleted on its own, only with its account.
class ReconciliationRepository : public QObject {
    Q_OBJECT
public:
    explicit ReconciliationRepository(Database *db, QObject *parent = nullptr);

    QList<Reconciliation> getByAccount(const QString &accountId) const;
    std::optional<Reconciliation> getById(const QString &id) const;
    std::optional<Reconciliation> getLatest(const QString &accountId) const;
    QList<Reconciliation> getPending() const;

    // Fills in the current time for a missing createdAt or updatedAt.
    bool insert(const Reconciliation &record);
    // May move the record to another account: applying a server row does.
    bool update(const Reconciliation &record);
    int softDeleteByAccount(const QString &accountId);
    int restoreByAccount(const QString &accountId, const QString &since);
    int markAllPendingForResync();
    bool markSynced(const QString &id, const QString &serverId);

signals:
    void reconciliationsChanged();

private:
    Database *m_db = nullptr;
};
