#include "server/AuthService.h"

#include "server/LoginPage.h"
#include "server/PasswordHasher.h"
#include "server/ServerDatabase.h"
#include "server/ServerOptions.h"
#include "server/SignInLimiter.h"
#include "server/TokenService.h"

#include <QDebug>
#include <QJsonArray>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

namespace OmbrelServer {

namespace {

constexpr int kMinPasswordLength = 8;
constexpr int kMaxPasswordLength = 1024;

QString formValue(const QUrlQuery &form, const char *key)
{
    return form.queryItemValue(QString::fromLatin1(key), QUrl::FullyDecoded);
}

bool plausibleEmail(const QString &email)
{
    const qsizetype at = email.indexOf(QLatin1Char('@'));
    return at > 0 && at < email.size() - 1 && email.size() <= 254 && !email.contains(QLatin1Char(' '));
}

QJsonObject userJson(QSqlQuery &q)
{
    // id, email, display_name, created_at
    return QJsonObject{
        {QStringLiteral("id"),           q.value(0).toString()},
        {QStringLiteral("email"),        q.value(1).toString()},
        {QStringLiteral("display_name"), q.value(2).toString()},
        {QStringLiteral("username"),     q.value(1).toString()},
        {QStringLiteral("avatar_url"),   QString()            },
        {QStringLiteral("created_at"),   q.value(3).toString()}
    };
}

} // namespace

AuthService::AuthService(ServerDatabase *db, TokenService *tokens, SignInLimiter *limiter,
                         const ServerOptions &options)
    : m_db(db)
    , m_tokens(tokens)
    , m_limiter(limiter)
    , m_realm(options.realm)
    , m_clientId(options.clientId)
{
}

QUrl AuthService::checkedRedirect(const QString &clientId, const QString &redirectUri) const
{
    if (clientId != m_clientId)
        return {};
    const QUrl url(redirectUri, QUrl::StrictMode);
    // Tokens go only to a listener on this machine: a remote redirect would hand them to a stranger.
    const bool loopback =
        url.host() == QLatin1String("localhost") || url.host() == QLatin1String("127.0.0.1");
    if (!url.isValid() || url.scheme() != QLatin1String("http") || !loopback || url.port() <= 0 ||
        !url.userInfo().isEmpty() || url.hasFragment())
        return {};
    return url;
}

std::optional<HttpResponse> AuthService::handlePage(const HttpRequest &request)
{
    const auto parts = pathBelow(request.path, QLatin1Char('/') + m_realm + QStringLiteral("/account"));
    if (!parts || parts->size() != 1)
        return std::nullopt;
    const QString page = parts->at(0);
    const bool isLogin = page == QLatin1String("login");
    if (!isLogin && page != QLatin1String("signup"))
        return std::nullopt;
    if (request.method == "GET")
        return signInForm(request, !isLogin);
    if (request.method == "POST")
        return isLogin ? signIn(request) : signUp(request);
    return errorResponse(405, QStringLiteral("Method not allowed"));
}

HttpResponse AuthService::signInForm(const HttpRequest &request, bool signUp)
{
    const LoginPage::Link link{
        m_realm, request.query.queryItemValue(QStringLiteral("client_id"), QUrl::FullyDecoded),
        request.query.queryItemValue(QStringLiteral("redirect_uri"), QUrl::FullyDecoded)};
    if (!checkedRedirect(link.clientId, link.redirectUri).isValid())
        return htmlResponse(
            400, LoginPage::message(QStringLiteral("Sign-in link not valid"),
                                    QStringLiteral("This sign-in link was not made by the program. "
                                                   "Start the sign-in again from the program.")));
    return htmlResponse(200, signUp ? LoginPage::signUp(link, QString(), QString(), QString())
                                    : LoginPage::signIn(link, QString(), QString()));
}

HttpResponse AuthService::signIn(const HttpRequest &request)
{
    const QUrlQuery form = formBody(request);
    const LoginPage::Link link{m_realm, formValue(form, "client_id"), formValue(form, "redirect_uri")};
    const QUrl redirect = checkedRedirect(link.clientId, link.redirectUri);
    if (!redirect.isValid())
        return htmlResponse(400,
                            LoginPage::message(QStringLiteral("Sign-in link not valid"),
                                               QStringLiteral("Start the sign-in again from the program.")));
    const QString email = formValue(form, "email").trimmed();
    const QString password = formValue(form, "password");
    if (m_limiter->isBlocked(email, request.remoteAddress))
        return htmlResponse(429,
                            LoginPage::signIn(link, email,
                                              QStringLiteral("Too many failed sign-ins. Wait a few minutes "
                                                             "and try again.")));

    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT id, password_hash FROM users WHERE email = ?"));
    q.addBindValue(email);
    QString userId;
    if (q.exec() && q.next()) {
        if (PasswordHasher::verify(password, q.value(1).toString()))
            userId = q.value(0).toString();
    } else {
        PasswordHasher::burn(password); // the answer takes as long as for a known address
    }
    q.finish();
    if (userId.isEmpty()) {
        m_limiter->recordFailure(email, request.remoteAddress);
        qInfo().noquote() << "AuthService: failed sign-in from" << request.remoteAddress;
        return htmlResponse(
            401, LoginPage::signIn(link, email, QStringLiteral("Wrong e-mail address or password.")));
    }
    m_limiter->clear(email, request.remoteAddress);
    return finishSignIn(request, userId, redirect);
}

HttpResponse AuthService::signUp(const HttpRequest &request)
{
    const QUrlQuery form = formBody(request);
    const LoginPage::Link link{m_realm, formValue(form, "client_id"), formValue(form, "redirect_uri")};
    const QUrl redirect = checkedRedirect(link.clientId, link.redirectUri);
    if (!redirect.isValid())
        return htmlResponse(400,
                            LoginPage::message(QStringLiteral("Sign-in link not valid"),
                                               QStringLiteral("Start the sign-in again from the program.")));
    const QString email = formValue(form, "email").trimmed();
    QString displayName = formValue(form, "display_name").trimmed().left(100);
    const QString password = formValue(form, "password");
    auto again = [&](int status, const QString &error) {
        return htmlResponse(status, LoginPage::signUp(link, email, displayName, error));
    };
    if (!plausibleEmail(email))
        return again(400, QStringLiteral("Enter an e-mail address."));
    if (password.size() < kMinPasswordLength || password.size() > kMaxPasswordLength)
        return again(400, QStringLiteral("The password needs at least 8 characters."));
    if (displayName.isEmpty())
        displayName = email.left(email.indexOf(QLatin1Char('@')));

    const QString hash = PasswordHasher::hash(password);
    if (hash.isEmpty())
        return again(500, QStringLiteral("The account could not be made. Try again."));
    const QString userId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("INSERT INTO users (id, email, display_name, password_hash, created_at)"
                             " VALUES (?, ?, ?, ?, ?)"));
    q.addBindValue(userId);
    q.addBindValue(email);
    q.addBindValue(displayName);
    q.addBindValue(hash);
    q.addBindValue(ServerDatabase::now());
    if (!q.exec())
        return again(409,
                     QStringLiteral("An account with this e-mail address exists already. Sign in instead."));
    qInfo().noquote() << "AuthService: new account" << userId;
    return finishSignIn(request, userId, redirect);
}

HttpResponse AuthService::finishSignIn(const HttpRequest &request, const QString &userId,
                                       const QUrl &redirect)
{
    // Signing in during the grace period of a deletion keeps the account.
    QSqlQuery keep(m_db->connection());
    keep.prepare(QStringLiteral("UPDATE users SET status = 'active', delete_after = NULL"
                                " WHERE id = ? AND status <> 'active'"));
    keep.addBindValue(userId);
    keep.exec();

    const auto pair = m_tokens->startSession(userId, QString::fromUtf8(headerValue(request, "User-Agent")),
                                             request.remoteAddress);
    if (!pair)
        return htmlResponse(
            500, LoginPage::message(QStringLiteral("Sign-in failed"),
                                    QStringLiteral("The session could not be started. Try again.")));
    // In the query, not the fragment: a browser never sends a fragment to the listener.
    QUrl target = redirect;
    QUrlQuery query(target.query());
    query.addQueryItem(QStringLiteral("access_token"), pair->accessToken);
    query.addQueryItem(QStringLiteral("refresh_token"), pair->refreshToken);
    target.setQuery(query);
    return redirectResponse(target);
}

std::optional<HttpResponse> AuthService::handleApi(const HttpRequest &request)
{
    const auto parts = pathBelow(request.path, QStringLiteral("/api/v1/realms/") + m_realm);
    if (!parts)
        return std::nullopt;
    const QStringList &p = *parts;
    const QByteArray &m = request.method;
    if (p == QStringList{QStringLiteral("auth"), QStringLiteral("token"), QStringLiteral("refresh")} &&
        m == "POST")
        return refresh(request);

    const std::optional<Caller> caller = m_tokens->authenticate(request);
    if (!caller)
        return errorResponse(401, QStringLiteral("Sign in again"));
    if (p == QStringList{QStringLiteral("auth"), QStringLiteral("logout")} && m == "POST") {
        m_tokens->endSession(caller->sessionId);
        return emptyResponse(204);
    }
    if (p.value(0) != QLatin1String("users") || p.value(1) != QLatin1String("me"))
        return errorResponse(404, QStringLiteral("Not found"));
    if (p.size() == 2 && m == "GET")
        return currentUser(*caller);
    if (p.size() == 2 && m == "PATCH")
        return updateUser(request, *caller);
    if (p.size() == 3 && p[2] == QLatin1String("password") && m == "POST")
        return changePassword(request, *caller);
    if (p.size() == 3 && p[2] == QLatin1String("sessions") && m == "GET")
        return sessions(*caller);
    if (p.size() == 4 && p[2] == QLatin1String("sessions") && m == "DELETE")
        return revokeSession(*caller, p[3]);
    return errorResponse(404, QStringLiteral("Not found"));
}

HttpResponse AuthService::refresh(const HttpRequest &request)
{
    HttpResponse refusal;
    const auto body = jsonObjectBody(request, &refusal);
    if (!body)
        return refusal;
    const QJsonValue token = body->value(QLatin1String("refresh_token"));
    if (!token.isString())
        return errorResponse(400, QStringLiteral("refresh_token must be a string"));
    const auto pair = m_tokens->refresh(token.toString());
    if (!pair)
        return errorResponse(401, QStringLiteral("The session has ended; sign in again"));
    return jsonResponse(200, QJsonObject{
                                 {QStringLiteral("access_token"),  pair->accessToken       },
                                 {QStringLiteral("refresh_token"), pair->refreshToken      },
                                 {QStringLiteral("token_type"),    QStringLiteral("Bearer")}
    });
}

HttpResponse AuthService::currentUser(const Caller &caller)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT id, email, display_name, created_at FROM users WHERE id = ?"));
    q.addBindValue(caller.userId);
    if (!q.exec() || !q.next())
        return errorResponse(404, QStringLiteral("No such user"));
    return jsonResponse(200, userJson(q));
}

HttpResponse AuthService::updateUser(const HttpRequest &request, const Caller &caller)
{
    HttpResponse refusal;
    const auto body = jsonObjectBody(request, &refusal);
    if (!body)
        return refusal;
    const QJsonValue name = body->value(QLatin1String("display_name"));
    if (!name.isString() || name.toString().trimmed().isEmpty() || name.toString().size() > 100)
        return errorResponse(400, QStringLiteral("display_name must be a text of 1 to 100 characters"));
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("UPDATE users SET display_name = ? WHERE id = ?"));
    q.addBindValue(name.toString().trimmed());
    q.addBindValue(caller.userId);
    if (!q.exec())
        return errorResponse(500, QStringLiteral("The name could not be saved"));
    return currentUser(caller);
}

HttpResponse AuthService::changePassword(const HttpRequest &request, const Caller &caller)
{
    HttpResponse refusal;
    const auto body = jsonObjectBody(request, &refusal);
    if (!body)
        return refusal;
    const QJsonValue current = body->value(QLatin1String("current_password"));
    const QJsonValue next = body->value(QLatin1String("new_password"));
    if (!current.isString() || !next.isString())
        return errorResponse(400, QStringLiteral("current_password and new_password must be texts"));
    if (next.toString().size() < kMinPasswordLength || next.toString().size() > kMaxPasswordLength)
        return errorResponse(400, QStringLiteral("The new password needs at least 8 characters"));
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT email, password_hash FROM users WHERE id = ?"));
    q.addBindValue(caller.userId);
    if (!q.exec() || !q.next())
        return errorResponse(404, QStringLiteral("No such user"));
    const QString email = q.value(0).toString();
    const QString stored = q.value(1).toString();
    q.finish();
    // The same limit as the sign-in page: a stolen token must not become a way to guess the password.
    if (m_limiter->isBlocked(email, request.remoteAddress))
        return errorResponse(429, QStringLiteral("Too many wrong passwords; wait a few minutes"));
    if (!PasswordHasher::verify(current.toString(), stored)) {
        m_limiter->recordFailure(email, request.remoteAddress);
        return errorResponse(403, QStringLiteral("The current password is wrong"));
    }
    const QString hash = PasswordHasher::hash(next.toString());
    QSqlQuery u(m_db->connection());
    u.prepare(QStringLiteral("UPDATE users SET password_hash = ? WHERE id = ?"));
    u.addBindValue(hash);
    u.addBindValue(caller.userId);
    if (hash.isEmpty() || !u.exec())
        return errorResponse(500, QStringLiteral("The password could not be changed"));
    // Whoever knew the old password is signed out everywhere but here.
    m_tokens->endSessionsOf(caller.userId, caller.sessionId);
    return emptyResponse(204);
}

HttpResponse AuthService::sessions(const Caller &caller)
{
    QSqlQuery q(m_db->connection());
    q.prepare(QStringLiteral("SELECT id, user_agent, ip_address, created_at, last_active_at FROM sessions"
                             " WHERE user_id = ? AND ended_at IS NULL ORDER BY last_active_at DESC"));
    q.addBindValue(caller.userId);
    QJsonArray list;
    if (q.exec()) {
        while (q.next()) {
            list.append(QJsonObject{
                {QStringLiteral("id"),             q.value(0).toString()                    },
                {QStringLiteral("user_agent"),     q.value(1).toString()                    },
                {QStringLiteral("ip_address"),     q.value(2).toString()                    },
                {QStringLiteral("created_at"),     q.value(3).toString()                    },
                {QStringLiteral("last_active_at"), q.value(4).toString()                    },
                {QStringLiteral("is_current"),     q.value(0).toString() == caller.sessionId}
            });
        }
    }
    return jsonResponse(200, QJsonObject{
                                 {QStringLiteral("sessions"), list}
    });
}

HttpResponse AuthService::revokeSession(const Caller &caller, const QString &sessionId)
{
    QSqlQuery q(m_db->connection());
    q.prepare(
        QStringLiteral("UPDATE sessions SET ended_at = ? WHERE id = ? AND user_id = ? AND ended_at IS NULL"));
    q.addBindValue(ServerDatabase::now());
    q.addBindValue(sessionId);
    q.addBindValue(caller.userId);
    if (!q.exec() || q.numRowsAffected() != 1)
        return errorResponse(404, QStringLiteral("No such session"));
    return emptyResponse(204);
}

} // namespace OmbrelServer
