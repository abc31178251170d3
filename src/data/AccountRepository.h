#pragma once

#include "core/Account.h"

#include <QList>
#include <QObject>
#include <QPair>

#include <optional>

class Database;

class AccountRepository : public QObject {
    Q_OBJECT
public:
    explicit AccountRepository(Database *db, QObject *parent = nullptr);

    QList<Account> getAll() const;
    // Finds soft-deleted accounts too.
    std::optional<Account> getById(const QString &id) const;
    QList<Account> getDeleted() const;
    // Soft-deleted rows included: that is how a deletion reaches the server.
    QList<Account> getPending() const;

    // version, sync_status and the time stamps are written as the record has them.
    bool insert(const Account &account);
    bool update(const Account &account);
    bool softDelete(const QString &id);
    bool restore(const QString &id);
    int markAllPendingForResync();
    bool markSynced(const QString &id, const QString &serverId);
    // (account id, new sort position) pairs, all or none.
    bool reorder(const QList<QPair<QString, int>> &positions);

signals:
    void accountsChanged();

private:
    Database *m_db = nullptr;
};
