#include "server/TokenService.h"

#include "server/Jwt.h"
#include "server/ServerDatabase.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include <limits>

#include <sodium.h>

namespace OmbrelServer {

namespace {

constexpr int kRefreshTokenDays = 60;

QString hashOf(const QString &token)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(token.toLatin1(), QCryptographicHash::Sha256).toHex());
}

QString newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

} // namespace

TokenService::TokenService(ServerDatabase *db, QByteArray key, QString realm, QString clientId,
                           int accessTokenSeconds)
    : m_db(db)
    , m_key(std::move(key))
    , m_realm(std::move(realm))
    , m_clientId(std::move(clientId))
    , m_accessTokenSeconds(accessTokenSeconds)
{
}

QString TokenService::accessTokenFor(const QString &userId, const QString &sessionId) const
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT u.email, COALESCE(m.group_id, ''), COALESCE(m.role, '') FROM users u"
                             " LEFT JOIN group_members m ON m.user_id = u.id WHERE u.id = ?"));
    q.addBindValue(userId);
    if (!q.exec() || !q.next())
        return {};
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    // The program reads exp as a 32-bit integer; past 2038 it gets the last second it can read.
    const qint64 exp = qMin<qint64>(now + m_accessTokenSeconds, std::numeric_limits<qint32>::max());
    const QJsonObject hlc{
        {QStringLiteral("group_id"), q.value(1).toString()},
        {QStringLiteral("role"),     q.value(2).toString()}
    };
    const QJsonObject claims{
        {QStringLiteral("iss"),    m_realm                                  },
        {QStringLiteral("aud"),    m_clientId                               },
        {QStringLiteral("sub"),    userId                                   },
        {QStringLiteral("sid"),    sessionId                                },
        {QStringLiteral("email"),  q.value(0).toString()                    },
        {QStringLiteral("iat"),    now                                      },
        {QStringLiteral("exp"),    exp                                      },
        {QStringLiteral("custom"), QJsonObject{{QStringLiteral("hlc"), hlc}}},
    };
    return Jwt::sign(claims, m_key);
}

QString TokenService::newRefreshToken(const QString &sessionId)
{
    QByteArray raw(32, Qt::Uninitialized);
    randombytes_buf(raw.data(), size_t(raw.size()));
    const QString token =
        QString::fromLatin1(raw.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("INSERT INTO refresh_tokens (token_hash, session_id, replaced, created_at)"
                             " VALUES (?, ?, 0, ?)"));
    q.addBindValue(hashOf(token));
    q.addBindValue(sessionId);
    q.addBindValue(ServerDatabase::now());
    if (!q.exec()) {
        qWarning().noquote() << "TokenService::newRefreshToken failed:" << q.lastError().text();
        return {};
    }
    return token;
}

std::optional<TokenPair> TokenService::startSession(const QString &userId, const QString &userAgent,
                                                    const QString &address)
{
    const QString sessionId = newId();
    const QString now = ServerDatabase::now();
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "INSERT INTO sessions (id, user_id, user_agent, ip_address, created_at, last_active_at)"
        " VALUES (?, ?, COALESCE(?, ''), ?, ?, ?)"));
    q.addBindValue(sessionId);
    q.addBindValue(userId);
    q.addBindValue(userAgent.left(300));
    q.addBindValue(address);
    q.addBindValue(now);
    q.addBindValue(now);
    if (!q.exec()) {
        qWarning().noquote() << "TokenService::startSession failed:" << q.lastError().text();
        return std::nullopt;
    }
    TokenPair pair{accessTokenFor(userId, sessionId), newRefreshToken(sessionId)};
    if (pair.accessToken.isEmpty() || pair.refreshToken.isEmpty())
        return std::nullopt;
    return pair;
}

std::optional<TokenPair> TokenService::refresh(const QString &refreshToken)
{
    if (refreshToken.isEmpty() || refreshToken.size() > 200)
        return std::nullopt;
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT t.session_id, t.replaced, t.created_at, s.user_id, s.ended_at"
                             " FROM refresh_tokens t JOIN sessions s ON s.id = t.session_id"
                             " WHERE t.token_hash = ?"));
    q.addBindValue(hashOf(refreshToken));
    if (!q.exec() || !q.next())
        return std::nullopt;
    const QString sessionId = q.value(0).toString();
    const bool replaced = q.value(1).toInt() != 0;
    const QDateTime created = QDateTime::fromString(q.value(2).toString(), Qt::ISODate);
    const QString userId = q.value(3).toString();
    const bool ended = !q.value(4).isNull();
    q.finish();
    if (ended)
        return std::nullopt;
    if (replaced) {
        qInfo().noquote() << "TokenService: a replaced refresh token came back; ending its session";
        endSession(sessionId);
        return std::nullopt;
    }
    if (created.addDays(kRefreshTokenDays) < QDateTime::currentDateTimeUtc())
        return std::nullopt;

    QSqlDatabase db = m_db->connection();
    db.transaction();
    QSqlQuery mark(db);
    mark.prepare(
        QStringLiteral("UPDATE refresh_tokens SET replaced = 1 WHERE token_hash = ? AND replaced = 0"));
    mark.addBindValue(hashOf(refreshToken));
    QSqlQuery touch(db);
    touch.prepare(QStringLiteral("UPDATE sessions SET last_active_at = ? WHERE id = ?"));
    touch.addBindValue(ServerDatabase::now());
    touch.addBindValue(sessionId);
    if (!mark.exec() || mark.numRowsAffected() != 1 || !touch.exec()) {
        db.rollback();
        return std::nullopt;
    }
    TokenPair pair{accessTokenFor(userId, sessionId), newRefreshToken(sessionId)};
    if (pair.accessToken.isEmpty() || pair.refreshToken.isEmpty() || !db.commit()) {
        db.rollback();
        return std::nullopt;
    }
    return pair;
}

std::optional<Caller> TokenService::authenticate(const HttpRequest &request) const
{
    const QString token = bearerToken(request);
    if (token.isEmpty())
        return std::nullopt;
    const std::optional<QJsonObject> claims = Jwt::verify(token, m_key);
    if (!claims)
        return std::nullopt;
    const qint64 exp = claims->value(QLatin1String("exp")).toInteger();
    if (exp <= QDateTime::currentSecsSinceEpoch())
        return std::nullopt;
    Caller caller{claims->value(QLatin1String("sub")).toString(),
                  claims->value(QLatin1String("sid")).toString()};
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT 1 FROM sessions WHERE id = ? AND user_id = ? AND ended_at IS NULL"));
    q.addBindValue(caller.sessionId);
    q.addBindValue(caller.userId);
    if (!q.exec() || !q.next())
        return std::nullopt;
    return caller;
}

void TokenService::endSession(const QString &sessionId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE sessions SET ended_at = ? WHERE id = ? AND ended_at IS NULL"));
    q.addBindValue(ServerDatabase::now());
    q.addBindValue(sessionId);
    if (!q.exec())
        qWarning().noquote() << "TokenService::endSession failed:" << q.lastError().text();
}

void TokenService::endSessionsOf(const QString &userId, const QString &exceptSessionId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral(
        "UPDATE sessions SET ended_at = ? WHERE user_id = ? AND id <> ? AND ended_at IS NULL"));
    q.addBindValue(ServerDatabase::now());
    q.addBindValue(userId);
    q.addBindValue(exceptSessionId);
    if (!q.exec())
        qWarning().noquote() << "TokenService::endSessionsOf failed:" << q.lastError().text();
}

} // namespace OmbrelServer
