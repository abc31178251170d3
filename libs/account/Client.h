#pragma once

#include "account/AuthState.h"
#include "account/ClientConfig.h"
#include "account/HlcClaims.h"

#include <QObject>

#include <memory>

namespace HalcAccount {

class AccountClient;
class ApiClient;
class AuthClient;
class TokenManager;
class TokenStore;

// The one object the application holds of this library: it builds the token store and manager, the
// three API gateways (auth, account, sync), sign-in and the account calls, and forwards the sign-in
// state with the claims of the new token.
class Client : public QObject {
    Q_OBJECT
public:
    explicit Client(const ClientConfig &config, QObject *parent = nullptr);
    // With a token store of the caller's, for a test that must not touch the desktop's keyring.
    Client(const ClientConfig &config, std::unique_ptr<TokenStore> store, QObject *parent = nullptr);
    ~Client() override;

    // Restores a stored session.
    void initialize();
    bool isAuthenticated() const;
    // Whether requests would go out with a token now; the sync engine's signed-in check.
    bool hasUsableToken() const;
    // Empty unless the access token is usable.
    HlcClaims claims() const;

    AuthClient *authClient() const { return m_authClient; }
    AccountClient *accountClient() const { return m_accountClient; }
    ApiClient *syncApiClient() const { return m_syncApi; }
    TokenManager *tokenManager() const { return m_tokens; }

    // The X-Platform word: the configured one, else this system's ("windows", "linux", "macos").
    static QString platformName(const QString &configured);

signals:
    void authStateChanged(HalcAccount::AuthState state);
    void claimsUpdated(const HalcAccount::HlcClaims &claims);

private:
    void onAuthStateChanged(AuthState state);

    ClientConfig m_config;
    TokenManager *m_tokens = nullptr;
    ApiClient *m_authApi = nullptr;
    ApiClient *m_accountApi = nullptr;
    ApiClient *m_syncApi = nullptr;
    AuthClient *m_authClient = nullptr;
    AccountClient *m_accountClient = nullptr;
};

} // namespace HalcAccount
