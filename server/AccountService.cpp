#include "server/AccountService.h"

#include "server/ServerDatabase.h"
#include "server/SharingService.h"
#include "server/SyncStore.h"
#include "server/TokenService.h"

#include <QDateTime>
#include <QDebug>
#include <QJsonArray>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include <sodium.h>

namespace OmbrelServer {

namespace {

constexpr int kDeletionGraceDays = 30;
constexpr int kInvitationDays = 7;

QString newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

// Eight letters and digits without the ones people confuse (0/O, 1/I/L).
QString newInviteCode()
{
    static const char alphabet[] = "ABCDEFGHJKMNPQRSTUVWXYZ23456789";
    QString code;
    for (int i = 0; i < 8; ++i)
        code.append(QLatin1Char(alphabet[randombytes_uniform(sizeof(alphabet) - 1)]));
    return code;
}

QString textField(const QJsonObject &o, const char *key, int maxLength = 200)
{
    return o.value(QLatin1String(key)).toString().left(maxLength);
}

QJsonObject invitationJson(const QSqlQuery &q)
{
    // id, invited_email, invite_code, status, expires_at
    return QJsonObject{
        {QStringLiteral("id"),            q.value(0).toString()},
        {QStringLiteral("invited_email"), q.value(1).toString()},
        {QStringLiteral("invite_code"),   q.value(2).toString()},
        {QStringLiteral("status"),        q.value(3).toString()},
        {QStringLiteral("expires_at"),    q.value(4).toString()}
    };
}

} // namespace

AccountService::AccountService(ServerDatabase *db, TokenService *tokens, SharingService *sharing,
                               SyncStore *store)
    : m_db(db)
    , m_tokens(tokens)
    , m_sharing(sharing)
    , m_store(store)
{
}

std::optional<HttpResponse> AccountService::handle(const HttpRequest &request)
{
    const auto path = pathBelow(request.path, QStringLiteral("/account/v1"));
    if (!path)
        return std::nullopt;
    const std::optional<Caller> caller = m_tokens->authenticate(request);
    if (!caller)
        return errorResponse(401, QStringLiteral("Sign in again"));
    const QStringList &p = *path;
    const QByteArray &m = request.method;
    const QString head = p.value(0);
    if (head == QLatin1String("profile") && p.size() == 1) {
        if (m == "GET")
            return profile(*caller);
        if (m == "DELETE")
            return scheduleDeletion(*caller);
    }
    if (head == QLatin1String("devices")) {
        if (p.size() == 1 && m == "GET")
            return devices(*caller);
        if (p.size() == 2 && p[1] == QLatin1String("register") && m == "POST")
            return registerDevice(request, *caller);
        if (p.size() == 2 && m == "DELETE")
            return removeDevice(*caller, p[1]);
    }
    if (head == QLatin1String("group")) {
        if (p.size() == 1 && m == "GET")
            return group(*caller);
        if (p.size() == 2 && p[1] == QLatin1String("invite") && m == "POST")
            return invite(request, *caller);
        if (p.size() == 3 && p[1] == QLatin1String("invitations") && m == "DELETE")
            return cancelInvitation(*caller, p[2]);
        if (p.size() == 3 && p[1] == QLatin1String("join") && m == "POST")
            return join(*caller, p[2]);
        if (p.size() == 2 && p[1] == QLatin1String("leave") && m == "POST")
            return leave(*caller);
        if (p.size() == 3 && p[1] == QLatin1String("members") && m == "DELETE")
            return removeMember(*caller, p[2]);
    }
    return errorResponse(404, QStringLiteral("Not found"));
}

std::optional<AccountService::Membership> AccountService::membershipOf(const QString &userId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT group_id, role FROM group_members WHERE user_id = ?"));
    q.addBindValue(userId);
    if (!q.exec() || !q.next())
        return std::nullopt;
    return Membership{q.value(0).toString(), q.value(1).toString()};
}

HttpResponse AccountService::profile(const Caller &caller)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT id, email, display_name, language, timezone, status, created_at,"
                             " delete_after FROM users WHERE id = ?"));
    q.addBindValue(caller.userId);
    if (!q.exec() || !q.next())
        return errorResponse(404, QStringLiteral("No such user"));
    QJsonObject profile{
        {QStringLiteral("id"),           q.value(0).toString()},
        {QStringLiteral("email"),        q.value(1).toString()},
        {QStringLiteral("display_name"), q.value(2).toString()},
        {QStringLiteral("avatar_url"),   QString()            },
        {QStringLiteral("language"),     q.value(3).toString()},
        {QStringLiteral("timezone"),     q.value(4).toString()},
        {QStringLiteral("status"),       q.value(5).toString()},
        {QStringLiteral("created_at"),   q.value(6).toString()}
    };
    if (!q.value(7).isNull())
        profile.insert(QStringLiteral("deletion_scheduled_at"), q.value(7).toString());
    q.finish();
    if (const auto member = membershipOf(caller.userId)) {
        QSqlQuery g(m_db->connection());
        g.prepare(QStringLiteral("SELECT name, (SELECT COUNT(*) FROM group_members WHERE group_id = ?)"
                                 " FROM family_groups WHERE id = ?"));
        g.addBindValue(member->groupId);
        g.addBindValue(member->groupId);
        if (g.exec() && g.next()) {
            profile.insert(QStringLiteral("group"),
                           QJsonObject{
                               {QStringLiteral("id"),           member->groupId      },
                               {QStringLiteral("name"),         g.value(0).toString()},
                               {QStringLiteral("role"),         member->role         },
                               {QStringLiteral("member_count"), g.value(1).toInt()   }
            });
        }
    }
    return jsonResponse(200, profile);
}

HttpResponse AccountService::scheduleDeletion(const Caller &caller)
{
    const QString when = QDateTime::currentDateTimeUtc().addDays(kDeletionGraceDays).toString(Qt::ISODate);
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE users SET status = 'pending_deletion', delete_after = ? WHERE id = ?"));
    q.addBindValue(when);
    q.addBindValue(caller.userId);
    if (!q.exec())
        return errorResponse(500, QStringLiteral("The deletion could not be scheduled"));
    qInfo().noquote() << "AccountService: deletion of" << caller.userId << "scheduled for" << when;
    return jsonResponse(200, QJsonObject{
                                 {QStringLiteral("status"),                QStringLiteral("pending_deletion")},
                                 {QStringLiteral("deletion_scheduled_at"), when                              }
    });
}

void AccountService::purgeDueDeletions()
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT id FROM users WHERE status = 'pending_deletion' AND delete_after <= ?"));
    q.addBindValue(ServerDatabase::now());
    QStringList due;
    if (q.exec()) {
        while (q.next())
            due.append(q.value(0).toString());
    }
    for (const QString &userId : std::as_const(due)) {
        QSqlDatabase db = m_db->connection();
        db.transaction();
        leaveGroup(userId);
        m_store->removeOwner(userId);
        QSqlQuery shares(db);
        shares.prepare(QStringLiteral("DELETE FROM shares WHERE owner_id = ? OR member_id = ?"));
        shares.addBindValue(userId);
        shares.addBindValue(userId);
        QSqlQuery user(db);
        user.prepare(QStringLiteral("DELETE FROM users WHERE id = ?"));
        user.addBindValue(userId);
        if (!shares.exec() || !user.exec() || !db.commit()) {
            db.rollback();
            qWarning().noquote() << "AccountService::purgeDueDeletions failed:" << user.lastError().text();
            continue;
        }
        qInfo().noquote() << "AccountService: deleted account" << userId;
    }
}

HttpResponse AccountService::devices(const Caller &caller)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "SELECT id, device_name, platform, app_id, app_version, last_sync_at,"
        " device_fingerprint, created_at FROM devices WHERE user_id = ? ORDER BY created_at, rowid"));
    q.addBindValue(caller.userId);
    QJsonArray list;
    if (q.exec()) {
        while (q.next()) {
            list.append(QJsonObject{
                {QStringLiteral("id"),                 q.value(0).toString()},
                {QStringLiteral("device_name"),        q.value(1).toString()},
                {QStringLiteral("platform"),           q.value(2).toString()},
                {QStringLiteral("app_id"),             q.value(3).toString()},
                {QStringLiteral("app_version"),        q.value(4).toString()},
                {QStringLiteral("last_sync_at"),       q.value(5).toString()},
                {QStringLiteral("device_fingerprint"), q.value(6).toString()},
                {QStringLiteral("created_at"),         q.value(7).toString()}
            });
        }
    }
    return jsonResponse(200, QJsonObject{
                                 {QStringLiteral("devices"), list}
    });
}

HttpResponse AccountService::registerDevice(const HttpRequest &request, const Caller &caller)
{
    HttpResponse refusal;
    const auto body = jsonObjectBody(request, &refusal);
    if (!body)
        return refusal;
    const QString fingerprint = textField(*body, "device_fingerprint");
    if (fingerprint.isEmpty())
        return errorResponse(400, QStringLiteral("device_fingerprint must be a non-empty text"));
    // One row per machine: signing in again on it updates the row it has.
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "INSERT INTO devices (id, user_id, device_fingerprint, device_name, platform, app_id, app_version, "
        "created_at)"
        " VALUES (?, ?, ?, COALESCE(?, ''), COALESCE(?, ''), COALESCE(?, ''), COALESCE(?, ''), ?) ON "
        "CONFLICT (user_id, device_fingerprint) DO UPDATE SET"
        " device_name = excluded.device_name, platform = excluded.platform, app_id = excluded.app_id,"
        " app_version = excluded.app_version"));
    q.addBindValue(newId());
    q.addBindValue(caller.userId);
    q.addBindValue(fingerprint);
    q.addBindValue(textField(*body, "device_name"));
    q.addBindValue(textField(*body, "platform"));
    q.addBindValue(textField(*body, "app_id"));
    q.addBindValue(textField(*body, "app_version"));
    q.addBindValue(ServerDatabase::now());
    if (!q.exec())
        return errorResponse(500, QStringLiteral("The device could not be registered"));
    return devices(caller);
}

HttpResponse AccountService::removeDevice(const Caller &caller, const QString &deviceId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("DELETE FROM devices WHERE id = ? AND user_id = ?"));
    q.addBindValue(deviceId);
    q.addBindValue(caller.userId);
    if (!q.exec() || q.numRowsAffected() != 1)
        return errorResponse(404, QStringLiteral("No such device"));
    return emptyResponse(204);
}

HttpResponse AccountService::group(const Caller &caller)
{
    const auto member = membershipOf(caller.userId);
    if (!member)
        return errorResponse(404, QStringLiteral("You are not in a family group"));
    QSqlQuery g(m_db->connection());
    g.prepare(QStringLiteral("SELECT name FROM family_groups WHERE id = ?"));
    g.addBindValue(member->groupId);
    const QString name = g.exec() && g.next() ? g.value(0).toString() : QString();

    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "SELECT u.id, u.display_name, u.email, m.role, m.joined_at FROM group_members m"
        " JOIN users u ON u.id = m.user_id WHERE m.group_id = ? ORDER BY m.joined_at, m.rowid"));
    q.addBindValue(member->groupId);
    QJsonArray members;
    if (q.exec()) {
        while (q.next()) {
            members.append(QJsonObject{
                {QStringLiteral("account_id"),   q.value(0).toString()},
                {QStringLiteral("auth_user_id"), q.value(0).toString()},
                {QStringLiteral("display_name"), q.value(1).toString()},
                {QStringLiteral("email"),        q.value(2).toString()},
                {QStringLiteral("role"),         q.value(3).toString()},
                {QStringLiteral("joined_at"),    q.value(4).toString()}
            });
        }
    }
    QJsonArray invitations;
    // Only the owner sees the codes: a member could otherwise bring in anyone.
    if (member->role == QLatin1String("owner")) {
        QSqlQuery i(m_db->connection());
        i.prepare(QStringLiteral(
            "SELECT id, invited_email, invite_code, status, expires_at FROM invitations"
            " WHERE group_id = ? AND status = 'pending' AND expires_at > ? ORDER BY created_at"));
        i.addBindValue(member->groupId);
        i.addBindValue(ServerDatabase::now());
        if (i.exec()) {
            while (i.next())
                invitations.append(invitationJson(i));
        }
    }
    return jsonResponse(200, QJsonObject{
                                 {QStringLiteral("id"),                  member->groupId},
                                 {QStringLiteral("name"),                name           },
                                 {QStringLiteral("members"),             members        },
                                 {QStringLiteral("pending_invitations"), invitations    }
    });
}

HttpResponse AccountService::invite(const HttpRequest &request, const Caller &caller)
{
    QJsonObject body;
    if (!request.body.isEmpty()) {
        HttpResponse refusal;
        const auto parsed = jsonObjectBody(request, &refusal);
        if (!parsed)
            return refusal;
        body = *parsed;
    }
    const QJsonValue emailValue = body.value(QLatin1String("email"));
    if (!emailValue.isUndefined() && !emailValue.isString())
        return errorResponse(400, QStringLiteral("email must be a text"));
    const QString email = emailValue.toString().trimmed();
    if (!email.isEmpty() && (!email.contains(QLatin1Char('@')) || email.size() > 254))
        return errorResponse(400, QStringLiteral("That is not an e-mail address"));

    QSqlDatabase db = m_db->connection();
    db.transaction();
    auto member = membershipOf(caller.userId);
    if (!member) {
        // Inviting is how a group begins: the first one to invite owns it.
        member = Membership{newId(), QStringLiteral("owner")};
        QSqlQuery g(db);
        g.prepare(QStringLiteral("INSERT INTO family_groups (id, name, created_at) VALUES (?, ?, ?)"));
        g.addBindValue(member->groupId);
        g.addBindValue(QStringLiteral("Family"));
        g.addBindValue(ServerDatabase::now());
        QSqlQuery m(db);
        m.prepare(QStringLiteral(
            "INSERT INTO group_members (user_id, group_id, role, joined_at) VALUES (?, ?, ?, ?)"));
        m.addBindValue(caller.userId);
        m.addBindValue(member->groupId);
        m.addBindValue(member->role);
        m.addBindValue(ServerDatabase::now());
        if (!g.exec() || !m.exec()) {
            db.rollback();
            return errorResponse(500, QStringLiteral("The group could not be made"));
        }
    }
    if (member->role != QLatin1String("owner")) {
        db.rollback();
        return errorResponse(403, QStringLiteral("Only the owner of the group can invite"));
    }
    const QString id = newId();
    QSqlQuery i(db);
    i.prepare(QStringLiteral(
        "INSERT INTO invitations (id, group_id, invited_email, invite_code, status, expires_at,"
        " created_at) VALUES (?, ?, COALESCE(?, ''), ?, 'pending', ?, ?)"));
    i.addBindValue(id);
    i.addBindValue(member->groupId);
    // An invitation by code has no address; a null would break the column's NOT NULL.
    i.addBindValue(email.isEmpty() ? QStringLiteral("") : email);
    i.addBindValue(newInviteCode());
    i.addBindValue(QDateTime::currentDateTimeUtc().addDays(kInvitationDays).toString(Qt::ISODate));
    i.addBindValue(ServerDatabase::now());
    if (!i.exec() || !db.commit()) {
        qWarning().noquote() << "AccountService::invite failed:" << i.lastError().text();
        db.rollback();
        return errorResponse(500, QStringLiteral("The invitation could not be made"));
    }
    QSqlQuery r(m_db->connection());
    r.prepare(QStringLiteral(
        "SELECT id, invited_email, invite_code, status, expires_at FROM invitations WHERE id = ?"));
    r.addBindValue(id);
    if (!r.exec() || !r.next())
        return errorResponse(500, QStringLiteral("The invitation could not be read"));
    return jsonResponse(201, invitationJson(r));
}

HttpResponse AccountService::cancelInvitation(const Caller &caller, const QString &invitationId)
{
    const auto member = membershipOf(caller.userId);
    if (!member || member->role != QLatin1String("owner"))
        return errorResponse(404, QStringLiteral("No such invitation"));
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE invitations SET status = 'cancelled' WHERE id = ? AND group_id = ?"
                             " AND status = 'pending'"));
    q.addBindValue(invitationId);
    q.addBindValue(member->groupId);
    if (!q.exec() || q.numRowsAffected() != 1)
        return errorResponse(404, QStringLiteral("No such invitation"));
    return emptyResponse(204);
}

HttpResponse AccountService::join(const Caller &caller, const QString &code)
{
    if (membershipOf(caller.userId))
        return errorResponse(409, QStringLiteral("Leave your family group before joining another"));
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "SELECT i.id, i.group_id, i.invited_email, u.email FROM invitations i, users u"
        " WHERE i.invite_code = ? AND i.status = 'pending' AND i.expires_at > ? AND u.id = ?"));
    q.addBindValue(code.trimmed().toUpper());
    q.addBindValue(ServerDatabase::now());
    q.addBindValue(caller.userId);
    if (!q.exec() || !q.next())
        return errorResponse(404, QStringLiteral("This invitation code is not valid or has expired"));
    const QString invitationId = q.value(0).toString();
    const QString groupId = q.value(1).toString();
    const QString invited = q.value(2).toString();
    const QString email = q.value(3).toString();
    q.finish();
    // An invitation by e-mail is for that address only; a code alone is for whoever has it.
    if (!invited.isEmpty() && invited.compare(email, Qt::CaseInsensitive) != 0)
        return errorResponse(403, QStringLiteral("This invitation is for another e-mail address"));

    QSqlDatabase db = m_db->connection();
    db.transaction();
    QSqlQuery m(db);
    m.prepare(QStringLiteral(
        "INSERT INTO group_members (user_id, group_id, role, joined_at) VALUES (?, ?, 'member', ?)"));
    m.addBindValue(caller.userId);
    m.addBindValue(groupId);
    m.addBindValue(ServerDatabase::now());
    QSqlQuery used(db);
    used.prepare(QStringLiteral("UPDATE invitations SET status = 'accepted' WHERE id = ?"));
    used.addBindValue(invitationId);
    if (!m.exec() || !used.exec() || !db.commit()) {
        db.rollback();
        return errorResponse(500, QStringLiteral("Could not join the group"));
    }
    return jsonResponse(200, QJsonObject{
                                 {QStringLiteral("group_id"), groupId}
    });
}

bool AccountService::leaveGroup(const QString &userId)
{
    const auto member = membershipOf(userId);
    if (!member)
        return false;
    m_sharing->endSharesInvolving(userId);
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("DELETE FROM group_members WHERE user_id = ?"));
    q.addBindValue(userId);
    if (!q.exec())
        return false;
    if (member->role == QLatin1String("owner")) {
        QSqlQuery next(m_db->connection());
        next.prepare(QStringLiteral(
            "UPDATE group_members SET role = 'owner' WHERE user_id ="
            " (SELECT user_id FROM group_members WHERE group_id = ? ORDER BY joined_at, rowid LIMIT 1)"));
        next.addBindValue(member->groupId);
        next.exec();
    }
    QSqlQuery empty(m_db->connection());
    empty.prepare(QStringLiteral("DELETE FROM family_groups WHERE id = ? AND NOT EXISTS"
                                 " (SELECT 1 FROM group_members WHERE group_id = ?)"));
    empty.addBindValue(member->groupId);
    empty.addBindValue(member->groupId);
    empty.exec();
    return true;
}

HttpResponse AccountService::leave(const Caller &caller)
{
    QSqlDatabase db = m_db->connection();
    db.transaction();
    if (!leaveGroup(caller.userId)) {
        db.rollback();
        return errorResponse(404, QStringLiteral("You are not in a family group"));
    }
    if (!db.commit())
        return errorResponse(500, QStringLiteral("Could not leave the group"));
    return emptyResponse(204);
}

HttpResponse AccountService::removeMember(const Caller &caller, const QString &memberId)
{
    const auto member = membershipOf(caller.userId);
    if (!member || member->role != QLatin1String("owner"))
        return errorResponse(403, QStringLiteral("Only the owner of the group can remove members"));
    if (memberId == caller.userId)
        return errorResponse(409, QStringLiteral("The owner leaves the group instead"));
    const auto theirs = membershipOf(memberId);
    if (!theirs || theirs->groupId != member->groupId)
        return errorResponse(404, QStringLiteral("No such member"));
    QSqlDatabase db = m_db->connection();
    db.transaction();
    if (!leaveGroup(memberId) || !db.commit()) {
        db.rollback();
        return errorResponse(500, QStringLiteral("Could not remove the member"));
    }
    return emptyResponse(204);
}

} // namespace OmbrelServer
