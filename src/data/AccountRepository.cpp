#include "data/AccountRepository.h"

#include "core/Dates.h"
#include "data/Database.h"
#include "data/SqlValues.h"

#include <QSqlQuery>

using namespace SqlValues;

namespace {

const QString kColumns = QStringLiteral(
    "id, name, account_type, currency, institution, account_number_last4, starting_balance, sort_order, "
    "is_shared, version, sync_status, server_id, created_at, updated_at, deleted_at");

Account readAccount(const QSqlQuery &q)
{
    Account a;
    a.id = q.value(0).toString();
    a.name = q.value(1).toString();
    a.accountType = accountTypeFromString(q.value(2).toString());
    a.currency = currencyFromString(q.value(3).toString());
    a.institution = q.value(4).toString();
    a.accountNumberLast4 = q.value(5).toString();
    a.startingBalance = q.value(6).toLongLong();
    a.sortOrder = q.value(7).toInt();
    a.isShared = q.value(8).toBool();
    a.version = q.value(9).toInt();
    a.syncStatus = syncStatusFromString(q.value(10).toString());
    a.serverId = q.value(11).toString();
    a.createdAt = timestampAt(q, 12);
    a.updatedAt = timestampAt(q, 13);
    a.deletedAt = optionalTimestampAt(q, 14);
    return a;
}

QList<Account> readAll(QSqlQuery &q)
{
    QList<Account> result;
    if (!q.exec())
        return result;
    while (q.next())
        result.append(readAccount(q));
    return result;
}

} // namespace

AccountRepository::AccountRepository(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

QList<Account> AccountRepository::getAll() const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM accounts WHERE deleted_at IS NULL ORDER BY sort_order, name")
                  .arg(kColumns));
    return readAll(q);
}

std::optional<Account> AccountRepository::getById(const QString &id) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM accounts WHERE id = ?").arg(kColumns));
    q.addBindValue(id);
    if (!q.exec() || !q.next())
        return std::nullopt;
    return readAccount(q);
}

QList<Account> AccountRepository::getDeleted() const
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("SELECT %1 FROM accounts WHERE deleted_at IS NOT NULL ORDER BY name").arg(kColumns));
    return readAll(q);
}

QList<Account> AccountRepository::getPending() const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM accounts WHERE sync_status = 'pending'").arg(kColumns));
    return readAll(q);
}

bool AccountRepository::insert(const Account &account)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "INSERT INTO accounts (id, name, account_type, currency, institution, account_number_last4, "
        "starting_balance, sort_order, is_shared, version, sync_status, server_id, created_at, updated_at) "
        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    q.addBindValue(account.id);
    q.addBindValue(text(account.name));
    q.addBindValue(accountTypeToString(account.accountType));
    q.addBindValue(currencyToString(account.currency));
    q.addBindValue(text(account.institution));
    q.addBindValue(text(account.accountNumberLast4));
    q.addBindValue(account.startingBalance);
    q.addBindValue(account.sortOrder);
    q.addBindValue(account.isShared ? 1 : 0);
    q.addBindValue(account.version);
    q.addBindValue(syncStatusToString(account.syncStatus));
    q.addBindValue(text(account.serverId));
    q.addBindValue(timestamp(account.createdAt));
    q.addBindValue(timestamp(account.updatedAt));
    if (!execLogged(q, "AccountRepository::insert"))
        return false;
    emit accountsChanged();
    return true;
}

bool AccountRepository::update(const Account &account)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "UPDATE accounts SET name=?, account_type=?, currency=?, institution=?, account_number_last4=?, "
        "starting_balance=?, sort_order=?, is_shared=?, version=?, sync_status=?, server_id=?, updated_at=? "
        "WHERE id=?"));
    q.addBindValue(text(account.name));
    q.addBindValue(accountTypeToString(account.accountType));
    q.addBindValue(currencyToString(account.currency));
    q.addBindValue(text(account.institution));
    q.addBindValue(text(account.accountNumberLast4));
    q.addBindValue(account.startingBalance);
    q.addBindValue(account.sortOrder);
    q.addBindValue(account.isShared ? 1 : 0);
    q.addBindValue(account.version);
    q.addBindValue(syncStatusToString(account.syncStatus));
    q.addBindValue(text(account.serverId));
    q.addBindValue(timestamp(account.updatedAt));
    q.addBindValue(account.id);
    if (!execLogged(q, "AccountRepository::update"))
        return false;
    emit accountsChanged();
    return true;
}

bool AccountRepository::softDelete(const QString &id)
{
    const QString now = timestampText(utcNow());
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE accounts SET deleted_at=?, sync_status='pending', updated_at=? WHERE id=?"));
    q.addBindValue(now);
    q.addBindValue(now);
    q.addBindValue(id);
    if (!execLogged(q, "AccountRepository::softDelete"))
        return false;
    emit accountsChanged();
    return true;
}

bool AccountRepository::restore(const QString &id)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "UPDATE accounts SET deleted_at=NULL, sync_status='pending', updated_at=? WHERE id=?"));
    q.addBindValue(timestampText(utcNow()));
    q.addBindValue(id);
    if (!execLogged(q, "AccountRepository::restore"))
        return false;
    emit accountsChanged();
    return true;
}

int AccountRepository::markAllPendingForResync()
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "UPDATE accounts SET sync_status = 'pending' WHERE deleted_at IS NULL AND sync_status != 'pending'"));
    if (!execLogged(q, "AccountRepository::markAllPendingForResync"))
        return 0;
    const int count = q.numRowsAffected();
    if (count > 0)
        emit accountsChanged();
    return count;
}

bool AccountRepository::markSynced(const QString &id, const QString &serverId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE accounts SET sync_status='synced', server_id=? WHERE id=?"));
    q.addBindValue(serverId);
    q.addBindValue(id);
    return q.exec();
}

bool AccountRepository::reorder(const QList<QPair<QString, int>> &positions)
{
    QSqlDatabase &db = m_db->connection();
    const QString now = timestampText(utcNow());
    db.transaction();
    for (const auto &[id, position] : positions) {
        QSqlQuery q(db);
        q.prepare(QStringLiteral("UPDATE accounts SET sort_order=?, updated_at=? WHERE id=?"));
        q.addBindValue(position);
        q.addBindValue(now);
        q.addBindValue(id);
        if (!q.exec()) {
            db.rollback();
            return false;
        }
    }
    db.commit();
    emit accountsChanged();
    return true;
}
