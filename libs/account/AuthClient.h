#pragma once

#include "account/AuthState.h"
#include "account/Session.h"
#include "account/User.h"

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

namespace HalcAccount {

class ApiClient;
class TokenManager;
class WebAuthHandler;

// Owns the sign-in state and the signed-in user: browser sign-in through the loopback listener,
// sign-out, the token refresh, and the auth service's calls about the user.
class AuthClient : public QObject {
    Q_OBJECT
    Q_PROPERTY(HalcAccount::AuthState state READ state NOTIFY stateChanged)
    Q_PROPERTY(bool isAuthenticated READ isAuthenticated NOTIFY stateChanged)
public:
    AuthClient(const QString &authBaseUrl, const QString &realmSlug, const QString &clientId, ApiClient *api,
               TokenManager *tokens, QObject *parent = nullptr);
    ~AuthClient() override;

    AuthState state() const { return m_state; }
    bool isAuthenticated() const { return m_state == AuthState::SignedIn; }
    User currentUser() const { return m_currentUser; }

    // Restores a stored session; with only a refresh token the state is known when the server answers.
    void initialize();
    // Opens the login page in the browser; the result comes as loginSucceeded or loginFailed.
    void login();
    void logout();
    // The one path on which a failed refresh signs the user out.
    void refreshToken(std::function<void(bool)> callback);

    void fetchCurrentUser(std::function<void(User)> callback);
    void updateProfile(const QString &displayName, std::function<void(User)> callback);
    void changePassword(const QString &currentPassword, const QString &newPassword,
                        std::function<void(bool)> callback);
    void listSessions(std::function<void(QList<Session>)> callback);
    void revokeSession(const QString &id);

signals:
    void stateChanged(HalcAccount::AuthState state);
    void loginSucceeded();
    void loginFailed(const QString &error);
    void logoutCompleted();

private:
    void setupRefreshCallback();
    void setState(AuthState state);
    void handleCallback(WebAuthHandler *handler, const QUrl &url);
    void signOutLocally();

    QString m_authBaseUrl;
    QString m_realmSlug;
    QString m_clientId;
    ApiClient *m_api = nullptr;
    TokenManager *m_tokens = nullptr;
    AuthState m_state = AuthState::Unknown;
    User m_currentUser;
};

} // namespace HalcAccount
