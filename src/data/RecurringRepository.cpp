#include "data/RecurringRepository.h"

#include "core/Dates.h"
#include "data/Database.h"
#include "data/SqlValues.h"

#include <QDebug>
#include <QSqlQuery>

using namespace SqlValues;

namespace {

const QString kColumns = QStringLiteral("id, account_id, payee, memo, amount, category_id, frequency, "
                                        "start_date, end_date, next_due_date, auto_post, "
                                        "is_active, transfer_dest_account_id, version, sync_status, "
                                        "server_id, created_at, updated_at, deleted_at");

RecurringTransaction readRule(const QSqlQuery &q)
{
    RecurringTransaction r;
    r.id = q.value(0).toString();
    r.accountId = q.value(1).toString();
    r.payee = q.value(2).toString();
    r.memo = q.value(3).toString();
    r.amount = q.value(4).toLongLong();
    r.categoryId = q.value(5).toString();
    r.frequency = frequencyFromString(q.value(6).toString());
    r.startDate = dateAt(q, 7);
    if (const QDate end = dateAt(q, 8); end.isValid())
        r.endDate = end;
    r.nextDueDate = dateAt(q, 9);
    r.autoPost = q.value(10).toBool();
    r.isActive = q.value(11).toBool();
    r.transferDestAccountId = q.value(12).toString();
    r.version = q.value(13).toInt();
    r.syncStatus = syncStatusFromString(q.value(14).toString());
    r.serverId = q.value(15).toString();
    r.createdAt = timestampAt(q, 16);
    r.updatedAt = timestampAt(q, 17);
    r.deletedAt = optionalTimestampAt(q, 18);
    return r;
}

QList<RecurringTransaction> readAll(QSqlQuery &q)
{
    QList<RecurringTransaction> result;
    if (!q.exec())
        return result;
    while (q.next())
        result.append(readRule(q));
    return result;
}

// Saved all the same: this is a trace for finding where a broken date came from. Posting refuses it.
void warnIfBrokenDueDate(const RecurringTransaction &rule, const char *method)
{
    if (rule.nextDueDate.isValid() && rule.nextDueDate >= QDate(2000, 1, 1))
        return;
    qWarning().noquote() << "RecurringRepository::" + QLatin1String(method)
                         << "saving recurring with broken nextDueDate:"
                         << "id=" + rule.id << "payee=" + rule.payee
                         << "nextDueDate=" + rule.nextDueDate.toString(Qt::ISODate)
                         << "startDate=" + rule.startDate.toString(Qt::ISODate)
                         << "frequency=" + QString::number(int(rule.frequency));
}

QVariant endDate(const RecurringTransaction &rule)
{
    return rule.endDate ? date(*rule.endDate) : QVariant(QMetaType::fromType<QString>());
}

} // namespace

RecurringRepository::RecurringRepository(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

QList<RecurringTransaction> RecurringRepository::getAll() const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
                  "SELECT %1 FROM recurring_transactions WHERE deleted_at IS NULL ORDER BY next_due_date")
                  .arg(kColumns));
    return readAll(q);
}

std::optional<RecurringTransaction> RecurringRepository::getById(const QString &id) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM recurring_transactions WHERE id = ?").arg(kColumns));
    q.addBindValue(id);
    if (!q.exec() || !q.next())
        return std::nullopt;
    return readRule(q);
}

QList<RecurringTransaction> RecurringRepository::getDue() const
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("SELECT %1 FROM recurring_transactions WHERE deleted_at IS NULL AND is_active = 1 "
                       "AND next_due_date <= ?")
            .arg(kColumns));
    q.addBindValue(dateText(QDate::currentDate()));
    return readAll(q);
}

QList<RecurringTransaction> RecurringRepository::getPending() const
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("SELECT %1 FROM recurring_transactions WHERE sync_status = 'pending'").arg(kColumns));
    return readAll(q);
}

bool RecurringRepository::insert(const RecurringTransaction &rule)
{
    warnIfBrokenDueDate(rule, "insert");
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "INSERT INTO recurring_transactions (id, account_id, payee, memo, amount, category_id, frequency, "
        "start_date, "
        "end_date, next_due_date, auto_post, is_active, transfer_dest_account_id, version, sync_status, "
        "server_id, "
        "created_at, updated_at) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    q.addBindValue(rule.id);
    q.addBindValue(rule.accountId);
    q.addBindValue(text(rule.payee));
    q.addBindValue(text(rule.memo));
    q.addBindValue(rule.amount);
    q.addBindValue(nullIfEmpty(rule.categoryId));
    q.addBindValue(frequencyToString(rule.frequency));
    q.addBindValue(date(rule.startDate));
    q.addBindValue(endDate(rule));
    q.addBindValue(date(rule.nextDueDate));
    q.addBindValue(rule.autoPost ? 1 : 0);
    q.addBindValue(rule.isActive ? 1 : 0);
    q.addBindValue(rule.transferDestAccountId);
    q.addBindValue(rule.version);
    q.addBindValue(syncStatusToString(rule.syncStatus));
    q.addBindValue(text(rule.serverId));
    q.addBindValue(timestamp(rule.createdAt));
    q.addBindValue(timestamp(rule.updatedAt));
    if (!execLogged(q, "RecurringRepository::insert"))
        return false;
    emit recurringChanged();
    return true;
}

bool RecurringRepository::update(const RecurringTransaction &rule)
{
    warnIfBrokenDueDate(rule, "update");
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "UPDATE recurring_transactions SET payee=?, memo=?, amount=?, category_id=?, frequency=?, "
        "start_date=?, "
        "end_date=?, next_due_date=?, auto_post=?, is_active=?, transfer_dest_account_id=?, version=?, "
        "sync_status=?, server_id=?, updated_at=? WHERE id=?"));
    q.addBindValue(text(rule.payee));
    q.addBindValue(text(rule.memo));
    q.addBindValue(rule.amount);
    q.addBindValue(nullIfEmpty(rule.categoryId));
    q.addBindValue(frequencyToString(rule.frequency));
    q.addBindValue(date(rule.startDate));
    q.addBindValue(endDate(rule));
    q.addBindValue(date(rule.nextDueDate));
    q.addBindValue(rule.autoPost ? 1 : 0);
    q.addBindValue(rule.isActive ? 1 : 0);
    q.addBindValue(rule.transferDestAccountId);
    q.addBindValue(rule.version);
    q.addBindValue(syncStatusToString(rule.syncStatus));
    q.addBindValue(text(rule.serverId));
    q.addBindValue(timestamp(rule.updatedAt));
    q.addBindValue(rule.id);
    if (!execLogged(q, "RecurringRepository::update"))
        return false;
    emit recurringChanged();
    return true;
}

bool RecurringRepository::softDelete(const QString &id)
{
    const QString now = timestampText(utcNow());
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "UPDATE recurring_transactions SET deleted_at=?, sync_status='pending', updated_at=? WHERE id=?"));
    q.addBindValue(now);
    q.addBindValue(now);
    q.addBindValue(id);
    if (!q.exec())
        return false;
    emit recurringChanged();
    return true;
}

int RecurringRepository::softDeleteByAccount(const QString &accountId)
{
    const QString now = timestampText(utcNow());
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE recurring_transactions SET deleted_at = ?, updated_at = ?, sync_status = "
                       "'pending' WHERE account_id = ? AND deleted_at IS NULL"));
    q.addBindValue(now);
    q.addBindValue(now);
    q.addBindValue(accountId);
    const int count = execCount(q, "RecurringRepository::softDeleteByAccount");
    if (count > 0)
        emit recurringChanged();
    return count;
}

int RecurringRepository::restoreByAccount(const QString &accountId, const QString &since)
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE recurring_transactions SET deleted_at = NULL, updated_at = ?, sync_status = "
                       "'pending' WHERE account_id = ? AND deleted_at >= ?"));
    q.addBindValue(timestampText(utcNow()));
    q.addBindValue(accountId);
    q.addBindValue(since);
    const int count = execCount(q, "RecurringRepository::restoreByAccount");
    if (count > 0)
        emit recurringChanged();
    return count;
}

int RecurringRepository::markAllPendingForResync()
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE recurring_transactions SET sync_status = 'pending' WHERE deleted_at IS NULL "
                       "AND sync_status != 'pending'"));
    const int count = execCount(q, "RecurringRepository::markAllPendingForResync");
    if (count > 0)
        emit recurringChanged();
    return count;
}

bool RecurringRepository::markSynced(const QString &id, const QString &serverId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE recurring_transactions SET sync_status='synced', server_id=? WHERE id=?"));
    q.addBindValue(serverId);
    q.addBindValue(id);
    return q.exec();
}
