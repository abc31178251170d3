#pragma once

#include "core/Category.h"

#include <QList>
#include <QObject>

#include <optional>

class Database;

// The category tree, flat: callers build the tree by parentId.
class CategoryRepository : public QObject {
    Q_OBJECT
public:
    explicit CategoryRepository(Database *db, QObject *parent = nullptr);

    int count() const;
    QList<Category> getAll() const;
    std::optional<Category> getById(const QString &id) const;
    // Exact match; with one name under two parents, either may come back.
    std::optional<Category> getByName(const QString &name) const;
    QList<Category> getPending() const;

    bool insert(const Category &category);
    bool update(const Category &category);
    bool softDelete(const QString &id);
    int markAllPendingForResync();
    bool markSynced(const QString &id, const QString &serverId);

signals:
    void categoriesChanged();

private:
    Database *m_db = nullptr;
};
