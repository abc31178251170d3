#pragma once

#include "core/RecurringTransaction.h"

#include <QList>
#include <QObject>

#include <optional>

class Database;

class RecurringRepository : public QObject {
    Q_OBJECT
public:
    explicit RecurringRepository(Database *db, QObject *parent = nullptr);

    QList<RecurringTransaction> getAll() const;
    std::optional<RecurringTransaction> getById(const QString &id) const;
    // Active rules due today or earlier, by the local date; start and end dates are not looked at.
    QList<RecurringTransaction> getDue() const;
    QList<RecurringTransaction> getPending() const;

    bool insert(const RecurringTransaction &rule);
    bool update(const RecurringTransaction &rule);
    bool softDelete(const QString &id);
    int softDeleteByAccount(const QString &accountId);
    int restoreByAccount(const QString &accountId, const QString &since);
    int markAllPendingForResync();
    bool markSynced(const QString &id, const QString &serverId);

signals:
    void recurringChanged();

private:
    Database *m_db = nullptr;
};
