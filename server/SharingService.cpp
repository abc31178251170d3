#include "server/SharingService.h"

#include "server/ServerDatabase.h"
#include "server/SyncStore.h"
#include "server/TokenService.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

namespace OmbrelServer {

namespace {

const QString kShareColumns =
    QStringLiteral("id, owner_id, account_id, member_id, role, active, granted_seq");

Share readShare(const QSqlQuery &q)
{
    return Share{q.value(0).toString(),  q.value(1).toString(), q.value(2).toString(),
                 q.value(3).toString(),  q.value(4).toString(), q.value(5).toInt() != 0,
                 q.value(6).toLongLong()};
}

QJsonObject personJson(ServerDatabase *db, const QString &id, const QString &userId, const QString &role,
                       const QString &createdAt)
{
    QSqlQuery q(db->connection());
    q.prepare(QStringLiteral("SELECT email, display_name FROM users WHERE id = ?"));
    q.addBindValue(userId);
    const bool found = q.exec() && q.next();
    return QJsonObject{
        {QStringLiteral("id"),           id                                       },
        {QStringLiteral("user_id"),      userId                                   },
        {QStringLiteral("email"),        found ? q.value(0).toString() : QString()},
        {QStringLiteral("display_name"), found ? q.value(1).toString() : QString()},
        {QStringLiteral("role"),         role                                     },
        {QStringLiteral("created_at"),   createdAt                                }
    };
}

} // namespace

SharingService::SharingService(ServerDatabase *db, SyncStore *store)
    : m_db(db)
    , m_store(store)
{
}

std::optional<HttpResponse> SharingService::handle(const HttpRequest &request, const QStringList &path,
                                                   const Caller &caller)
{
    if (path.value(0) != QLatin1String("accounts") || path.size() < 3 || path.value(1).isEmpty())
        return std::nullopt;
    const QString accountId = path[1];
    if (path.size() == 3 && path[2] == QLatin1String("members") && request.method == "GET")
        return members(caller, accountId);
    if (path.size() == 3 && path[2] == QLatin1String("share") && request.method == "POST")
        return share(request, caller, accountId);
    if (path.size() == 4 && path[2] == QLatin1String("share") && request.method == "DELETE")
        return unshare(caller, accountId, path[3]);
    return std::nullopt;
}

bool SharingService::ownsLiveAccount(const QString &userId, const QString &accountId) const
{
    const auto row = m_store->find(userId, QStringLiteral("account"), accountId);
    return row && !row->deleted;
}

QList<Share> SharingService::sharesOfAccount(const QString &ownerId, const QString &accountId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
                  "SELECT %1 FROM shares WHERE owner_id = ? AND account_id = ? ORDER BY created_at, rowid")
                  .arg(kShareColumns));
    q.addBindValue(ownerId);
    q.addBindValue(accountId);
    QList<Share> shares;
    if (q.exec()) {
        while (q.next())
            shares.append(readShare(q));
    }
    return shares;
}

QList<Share> SharingService::activeSharesFor(const QString &memberId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM shares WHERE member_id = ? AND active = 1").arg(kShareColumns));
    q.addBindValue(memberId);
    QList<Share> shares;
    if (q.exec()) {
        while (q.next())
            shares.append(readShare(q));
    }
    return shares;
}

std::optional<Share> SharingService::shareOf(const QString &accountId, const QString &memberId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM shares WHERE account_id = ? AND member_id = ?"
                             " ORDER BY active DESC, created_at LIMIT 1")
                  .arg(kShareColumns));
    q.addBindValue(accountId);
    q.addBindValue(memberId);
    if (!q.exec() || !q.next())
        return std::nullopt;
    return readShare(q);
}

bool SharingService::isShared(const QString &ownerId, const QString &accountId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("SELECT 1 FROM shares WHERE owner_id = ? AND account_id = ? AND active = 1 LIMIT 1"));
    q.addBindValue(ownerId);
    q.addBindValue(accountId);
    return q.exec() && q.next();
}

HttpResponse SharingService::members(const Caller &caller, const QString &accountId)
{
    QString ownerId;
    if (ownsLiveAccount(caller.userId, accountId)) {
        ownerId = caller.userId;
    } else if (const auto s = shareOf(accountId, caller.userId); s && s->active) {
        ownerId = s->ownerId;
    } else {
        // The same answer for an account that does not exist and one that is not the caller's.
        return errorResponse(404, QStringLiteral("No such account"));
    }
    QJsonArray list;
    list.append(personJson(m_db, ownerId, ownerId, QStringLiteral("owner"), QString()));
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("SELECT id, member_id, role, created_at FROM shares"
                       " WHERE owner_id = ? AND account_id = ? AND active = 1 ORDER BY created_at, rowid"));
    q.addBindValue(ownerId);
    q.addBindValue(accountId);
    if (q.exec()) {
        while (q.next())
            list.append(personJson(m_db, q.value(0).toString(), q.value(1).toString(), q.value(2).toString(),
                                   q.value(3).toString()));
    }
    return jsonResponse(200, QJsonObject{
                                 {QStringLiteral("members"), list}
    });
}

HttpResponse SharingService::share(const HttpRequest &request, const Caller &caller, const QString &accountId)
{
    HttpResponse refusal;
    const auto body = jsonObjectBody(request, &refusal);
    if (!body)
        return refusal;
    if (!ownsLiveAccount(caller.userId, accountId))
        return errorResponse(404, QStringLiteral("No such account"));
    const QJsonValue who = body->contains(QLatin1String("user_id")) ? body->value(QLatin1String("user_id"))
                                                                    : body->value(QLatin1String("email"));
    const QJsonValue roleValue = body->value(QLatin1String("role"));
    if (!who.isString() || who.toString().isEmpty())
        return errorResponse(400, QStringLiteral("user_id must be a user id or an e-mail address"));
    if (!roleValue.isUndefined() && !roleValue.isString())
        return errorResponse(400, QStringLiteral("role must be a text"));
    const QString role = roleValue.toString().isEmpty() ? QStringLiteral("member") : roleValue.toString();
    if (role != QLatin1String("member"))
        return errorResponse(400, QStringLiteral("The only role an account can be shared in is \"member\""));

    // Only someone of the owner's own family group can be given an account.
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT u.id FROM users u JOIN group_members them ON them.user_id = u.id"
                             " JOIN group_members me ON me.group_id = them.group_id AND me.user_id = ?"
                             " WHERE (u.id = ? OR u.email = ?) AND u.id <> ?"));
    q.addBindValue(caller.userId);
    q.addBindValue(who.toString());
    q.addBindValue(who.toString());
    q.addBindValue(caller.userId);
    if (!q.exec() || !q.next())
        return errorResponse(
            400, QStringLiteral("%1 is not another member of your family group").arg(who.toString()));
    const QString memberId = q.value(0).toString();
    q.finish();

    QSqlDatabase db = m_db->connection();
    db.transaction();
    std::optional<Share> existing;
    for (const Share &s : sharesOfAccount(caller.userId, accountId)) {
        if (s.memberId == memberId)
            existing = s;
    }
    bool ok = true;
    if (!existing) {
        QSqlQuery insert(db);
        insert.prepare(QStringLiteral("INSERT INTO shares (id, owner_id, account_id, member_id, role, active,"
                                      " granted_seq, created_at) VALUES (?, ?, ?, ?, ?, 0, 0, ?)"));
        existing = Share{QUuid::createUuid().toString(QUuid::WithoutBraces), caller.userId, accountId,
                         memberId, role};
        insert.addBindValue(existing->id);
        insert.addBindValue(caller.userId);
        insert.addBindValue(accountId);
        insert.addBindValue(memberId);
        insert.addBindValue(role);
        insert.addBindValue(ServerDatabase::now());
        ok = insert.exec();
    }
    if (ok && !existing->active)
        ok = setActive(*existing, true);
    if (!ok || !db.commit()) {
        db.rollback();
        return errorResponse(500, QStringLiteral("The account could not be shared"));
    }
    qInfo().noquote() << "SharingService: account shared by" << caller.userId << "with" << memberId;
    return jsonResponse(200, QJsonObject{
                                 {QStringLiteral("member"),
                                  personJson(m_db, existing->id, memberId, role, ServerDatabase::now())}
    });
}

HttpResponse SharingService::unshare(const Caller &caller, const QString &accountId,
                                     const QString &memberOrShareId)
{
    if (!ownsLiveAccount(caller.userId, accountId))
        return errorResponse(404, QStringLiteral("No such account"));
    for (const Share &s : sharesOfAccount(caller.userId, accountId)) {
        if (s.active && (s.id == memberOrShareId || s.memberId == memberOrShareId)) {
            QSqlDatabase db = m_db->connection();
            db.transaction();
            if (!setActive(s, false) || !db.commit()) {
                db.rollback();
                return errorResponse(500, QStringLiteral("The share could not be withdrawn"));
            }
            qInfo().noquote() << "SharingService: share withdrawn by" << caller.userId << "from"
                              << s.memberId;
            return emptyResponse(204);
        }
    }
    return errorResponse(404, QStringLiteral("The account is not shared with that member"));
}

bool SharingService::setActive(const Share &share, bool active)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE shares SET active = ? WHERE id = ?"));
    q.addBindValue(active ? 1 : 0);
    q.addBindValue(share.id);
    if (!q.exec()) {
        qWarning().noquote() << "SharingService::setActive failed:" << q.lastError().text();
        return false;
    }
    updateSharedFlag(share.ownerId, share.accountId);
    if (!active)
        return true;
    // The grant takes its number after the account's new version, so that the account row falls among
    // the rows the grant brings, and reaches the member ahead of its children.
    QSqlQuery grant(m_db->connection());
    grant.prepare(QStringLiteral("UPDATE shares SET granted_seq = ? WHERE id = ?"));
    grant.addBindValue(m_store->nextSeq());
    grant.addBindValue(share.id);
    if (!grant.exec()) {
        qWarning().noquote() << "SharingService::setActive failed:" << grant.lastError().text();
        return false;
    }
    return true;
}

void SharingService::updateSharedFlag(const QString &ownerId, const QString &accountId)
{
    std::optional<StoredRow> row = m_store->find(ownerId, QStringLiteral("account"), accountId);
    if (!row)
        return;
    QJsonObject payload = QJsonDocument::fromJson(row->payload).object();
    const int shared = isShared(ownerId, accountId) ? 1 : 0;
    if (payload.value(QLatin1String("is_shared")).toInt() == shared)
        return;
    // A change of the server's own: a new version, so that the owner's devices take it.
    payload.insert(QStringLiteral("is_shared"), shared);
    row->version += 1;
    payload.insert(QStringLiteral("version"), row->version);
    row->payload = QJsonDocument(payload).toJson(QJsonDocument::Compact);
    row->seq = m_store->nextSeq();
    m_store->write(*row);
}

void SharingService::endSharesInvolving(const QString &userId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT %1 FROM shares WHERE (owner_id = ? OR member_id = ?) AND active = 1")
                  .arg(kShareColumns));
    q.addBindValue(userId);
    q.addBindValue(userId);
    QList<Share> shares;
    if (q.exec()) {
        while (q.next())
            shares.append(readShare(q));
    }
    for (const Share &s : shares)
        setActive(s, false);
}

} // namespace OmbrelServer
