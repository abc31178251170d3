#include "account/AuthClient.h"

#include "account/ApiClient.h"
#include "account/TokenManager.h"
#include "account/WebAuthHandler.h"

#include <QDesktopServices>
#include <QJsonArray>
#include <QUrl>
#include <QUrlQuery>

namespace HalcAccount {

namespace {

QDateTime isoDate(const QJsonObject &json, const char *key)
{
    return QDateTime::fromString(json.value(QLatin1String(key)).toString(), Qt::ISODate);
}

User parseUser(const QJsonObject &json)
{
    User user;
    user.id = json.value("id").toString();
    user.email = json.value("email").toString();
    user.displayName = json.value("display_name").toString();
    user.username = json.value("username").toString();
    user.avatarUrl = json.value("avatar_url").toString();
    user.createdAt = isoDate(json, "created_at");
    return user;
}

Session parseSession(const QJsonObject &json)
{
    Session session;
    session.id = json.value("id").toString();
    session.userAgent = json.value("user_agent").toString();
    session.ipAddress = json.value("ip_address").toString();
    session.createdAt = isoDate(json, "created_at");
    session.lastActiveAt = isoDate(json, "last_active_at");
    session.isCurrent = json.value("is_current").toBool();
    return session;
}

} // namespace

AuthClient::AuthClient(const QString &authBaseUrl, const QString &realmSlug, const QString &clientId,
                       ApiClient *api, TokenManager *tokens, QObject *parent)
    : QObject(parent)
    , m_authBaseUrl(authBaseUrl)
    , m_realmSlug(realmSlug)
    , m_clientId(clientId)
    , m_api(api)
    , m_tokens(tokens)
{
    setupRefreshCallback();
}

AuthClient::~AuthClient() = default;

void AuthClient::setupRefreshCallback()
{
    m_tokens->setRefreshCallback([this](const QString &refreshToken,
                                        TokenManager::SuccessContinuation onSuccess,
                                        TokenManager::FailureContinuation onFailure) {
        m_api->postPublic(QStringLiteral("/auth/token/refresh"),
                          {
                              {"refresh_token", refreshToken}
        },
                          [onSuccess, onFailure](bool success, int, const QJsonObject &json) {
                              if (success)
                                  onSuccess(json.value("access_token").toString(),
                                            json.value("refresh_token").toString());
                              else
                                  onFailure();
                          });
    });
}

void AuthClient::setState(AuthState state)
{
    if (state == m_state)
        return;
    m_state = state;
    emit stateChanged(state);
}

void AuthClient::initialize()
{
    m_tokens->loadTokens();
    if (!m_tokens->accessToken().isEmpty()) {
        setState(AuthState::SignedIn);
    } else if (!m_tokens->refreshToken().isEmpty()) {
        m_tokens->refresh([this](bool ok) { setState(ok ? AuthState::SignedIn : AuthState::SignedOut); });
    } else {
        setState(AuthState::SignedOut);
    }
}

void AuthClient::login()
{
    auto *handler = new WebAuthHandler(this);
    const QString redirectUri = handler->start();
    if (redirectUri.isEmpty()) {
        emit loginFailed(QStringLiteral("Failed to start local auth server"));
        handler->deleteLater();
        return;
    }
    connect(handler, &WebAuthHandler::callbackReceived, this,
            [this, handler](const QUrl &url) { handleCallback(handler, url); });

    // No state or PKCE: the listener on the loopback interface is what protects the flow.
    const QString url =
        QStringLiteral("%1/%2/account/login?client_id=%3&redirect_uri=%4")
            .arg(m_authBaseUrl, m_realmSlug, QString::fromLatin1(QUrl::toPercentEncoding(m_clientId)),
                 QString::fromLatin1(QUrl::toPercentEncoding(redirectUri)));
    QDesktopServices::openUrl(QUrl::fromEncoded(url.toUtf8()));
}

void AuthClient::handleCallback(WebAuthHandler *handler, const QUrl &url)
{
    // Browsers keep a fragment to themselves, so the tokens may come in the query instead.
    const QUrlQuery fragment(url.fragment());
    QString accessToken = fragment.queryItemValue("access_token", QUrl::FullyDecoded);
    QString refreshToken = fragment.queryItemValue("refresh_token", QUrl::FullyDecoded);
    if (accessToken.isEmpty()) {
        const QUrlQuery query(url);
        accessToken = query.queryItemValue("access_token", QUrl::FullyDecoded);
        refreshToken = query.queryItemValue("refresh_token", QUrl::FullyDecoded);
    }
    if (!accessToken.isEmpty() && !refreshToken.isEmpty()) {
        m_tokens->setTokens(accessToken, refreshToken);
        setState(AuthState::SignedIn);
        emit loginSucceeded();
    } else {
        emit loginFailed(QStringLiteral("No tokens received"));
    }
    handler->deleteLater();
}

void AuthClient::signOutLocally()
{
    m_tokens->clearTokens();
    m_currentUser = User();
    setState(AuthState::SignedOut);
}

void AuthClient::logout()
{
    // The request reads the token before it is cleared below; its outcome does not matter, the local
    // sign-out happens whatever the server says.
    m_api->post(QStringLiteral("/auth/logout"), {}, {});
    signOutLocally();
    emit logoutCompleted();
}

void AuthClient::refreshToken(std::function<void(bool)> callback)
{
    m_tokens->refresh([this, callback](bool ok) {
        if (!ok)
            signOutLocally();
        if (callback)
            callback(ok);
    });
}

void AuthClient::fetchCurrentUser(std::function<void(User)> callback)
{
    m_api->get(QStringLiteral("/users/me"), [this, callback](bool success, int, const QJsonObject &json) {
        if (success)
            m_currentUser = parseUser(json);
        if (callback)
            callback(m_currentUser);
    });
}

void AuthClient::updateProfile(const QString &displayName, std::function<void(User)> callback)
{
    m_api->patch(QStringLiteral("/users/me"),
                 {
                     {"display_name", displayName}
    },
                 [this, callback](bool success, int, const QJsonObject &json) {
                     if (success)
                         m_currentUser = parseUser(json);
                     if (callback)
                         callback(m_currentUser);
                 });
}

void AuthClient::changePassword(const QString &currentPassword, const QString &newPassword,
                                std::function<void(bool)> callback)
{
    m_api->post(QStringLiteral("/users/me/password"),
                {
                    {"current_password", currentPassword},
                    {"new_password",     newPassword    }
    },
                [callback](bool success, int, const QJsonObject &) {
                    if (callback)
                        callback(success);
                });
}

void AuthClient::listSessions(std::function<void(QList<Session>)> callback)
{
    m_api->get(QStringLiteral("/users/me/sessions"), [callback](bool success, int, const QJsonObject &json) {
        QList<Session> sessions;
        if (success) {
            for (const QJsonValue &value : json.value("sessions").toArray())
                sessions.append(parseSession(value.toObject()));
        }
        if (callback)
            callback(sessions);
    });
}

void AuthClient::revokeSession(const QString &id)
{
    m_api->del(QStringLiteral("/users/me/sessions/%1").arg(id), {});
}

} // namespace HalcAccount
