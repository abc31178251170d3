#include "data/CategoryRepository.h"

#include "core/Dates.h"
#include "data/Database.h"
#include "data/SqlValues.h"

#include <QSqlQuery>

using namespace SqlValues;

namespace {

const QString kColumns = QStringLiteral(
    "id, name, category_type, parent_id, is_tax_relevant, tax_category, icon, color, is_default, account_id, "
    "version, sync_status, server_id, created_at, updated_at, deleted_at");

Category readCategory(const QSqlQuery &q)
{
    Category c;
    c.id = q.value(0).toString();
    c.name = q.value(1).toString();
    c.categoryType = categoryTypeFromString(q.value(2).toString());
    c.parentId = q.value(3).toString();
    c.isTaxRelevant = q.value(4).toBool();
    c.taxCategory = q.value(5).toString();
    c.icon = q.value(6).toString();
    c.color = q.value(7).toString();
    c.isDefault = q.value(8).toBool();
    c.accountId = q.value(9).toString();
    c.version = q.value(10).toInt();
    c.syncStatus = syncStatusFromString(q.value(11).toString());
    c.serverId = q.value(12).toString();
    c.createdAt = timestampAt(q, 13);
    c.updatedAt = timestampAt(q, 14);
    c.deletedAt = optionalTimestampAt(q, 15);
    return c;
}

QList<Category> readAll(QSqlQuery &q)
{
    QList<Category> result;
    if (!q.exec())
        return result;
    while (q.next())
        result.append(readCategory(q));
    return result;
}

std::optional<Category> readOne(QSqlQuery &q)
{
    if (!q.exec() || !q.next())
        return std::nullopt;
    return readCategory(q);
}

} // namespace

CategoryRepository::CategoryRepository(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

int CategoryRepository::count() const
{
    QSqlQuery q(m_db->connection());
    if (!q.exec(QStringLiteral("SELECT COUNT(*) FROM categories WHERE deleted_at IS NULL")) || !q.next())
        return 0;
    return q.value(0).toInt();
}

QList<Category> CategoryRepository::getAll() const
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("SELECT %1 FROM categories WHERE deleted_at IS NULL ORDER BY name").arg(kColumns));
    return readAll(q);
}

std::optional<Category> CategoryRepository::getById(const QString &id) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM categories WHERE id = ?").arg(kColumns));
    q.addBindValue(id);
    return readOne(q);
}

std::optional<Category> CategoryRepository::getByName(const QString &name) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("SELECT %1 FROM categories WHERE name = ? AND deleted_at IS NULL").arg(kColumns));
    q.addBindValue(name);
    return readOne(q);
}

QList<Category> CategoryRepository::getPending() const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM categories WHERE sync_status = 'pending'").arg(kColumns));
    return readAll(q);
}

bool CategoryRepository::insert(const Category &category)
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("INSERT INTO categories (id, name, category_type, parent_id, is_tax_relevant, "
                       "tax_category, icon, color, "
                       "is_default, account_id, version, sync_status, server_id, created_at, updated_at) "
                       "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    q.addBindValue(category.id);
    q.addBindValue(text(category.name));
    q.addBindValue(categoryTypeToString(category.categoryType));
    q.addBindValue(nullIfEmpty(category.parentId));
    q.addBindValue(category.isTaxRelevant ? 1 : 0);
    q.addBindValue(text(category.taxCategory));
    q.addBindValue(text(category.icon));
    q.addBindValue(text(category.color));
    q.addBindValue(category.isDefault ? 1 : 0);
    q.addBindValue(nullIfEmpty(category.accountId));
    q.addBindValue(category.version);
    q.addBindValue(syncStatusToString(category.syncStatus));
    q.addBindValue(text(category.serverId));
    q.addBindValue(timestamp(category.createdAt));
    q.addBindValue(timestamp(category.updatedAt));
    if (!execLogged(q, "CategoryRepository::insert"))
        return false;
    emit categoriesChanged();
    return true;
}

bool CategoryRepository::update(const Category &category)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE categories SET name=?, category_type=?, parent_id=?, is_tax_relevant=?, "
                             "tax_category=?, icon=?, "
                             "color=?, is_default=?, account_id=?, version=?, sync_status=?, server_id=?, "
                             "updated_at=? WHERE id=?"));
    q.addBindValue(text(category.name));
    q.addBindValue(categoryTypeToString(category.categoryType));
    q.addBindValue(nullIfEmpty(category.parentId));
    q.addBindValue(category.isTaxRelevant ? 1 : 0);
    q.addBindValue(text(category.taxCategory));
    q.addBindValue(text(category.icon));
    q.addBindValue(text(category.color));
    q.addBindValue(category.isDefault ? 1 : 0);
    q.addBindValue(nullIfEmpty(category.accountId));
    q.addBindValue(category.version);
    q.addBindValue(syncStatusToString(category.syncStatus));
    q.addBindValue(text(category.serverId));
    q.addBindValue(timestamp(category.updatedAt));
    q.addBindValue(category.id);
    if (!execLogged(q, "CategoryRepository::update"))
        return false;
    emit categoriesChanged();
    return true;
}

bool CategoryRepository::softDelete(const QString &id)
{
    const QString now = timestampText(utcNow());
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE categories SET deleted_at=?, sync_status='pending', updated_at=? WHERE id=?"));
    q.addBindValue(now);
    q.addBindValue(now);
    q.addBindValue(id);
    if (!execLogged(q, "CategoryRepository::softDelete"))
        return false;
    emit categoriesChanged();
    return true;
}

int CategoryRepository::markAllPendingForResync()
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE categories SET sync_status = 'pending' WHERE deleted_at IS NULL AND "
                             "sync_status != 'pending'"));
    const int count = execCount(q, "CategoryRepository::markAllPendingForResync");
    if (count > 0)
        emit categoriesChanged();
    return count;
}

bool CategoryRepository::markSynced(const QString &id, const QString &serverId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE categories SET sync_status='synced', server_id=? WHERE id=?"));
    q.addBindValue(serverId);
    q.addBindValue(id);
    return q.exec();
}
