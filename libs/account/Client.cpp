#include "account/Client.h"

#include "account/AccountClient.h"
#include "account/ApiClient.h"
#include "account/AuthClient.h"
#include "account/TokenManager.h"
#include "account/TokenStore.h"

#include <QSysInfo>

namespace HalcAccount {

Client::Client(const ClientConfig &config, QObject *parent)
    : Client(config, createTokenStore(config.applicationId), parent)
{
}

Client::Client(const ClientConfig &config, std::unique_ptr<TokenStore> store, QObject *parent)
    : QObject(parent)
    , m_config(config)
{
    m_config.platform = platformName(config.platform);
    const QString &platform = m_config.platform;

    m_tokens = new TokenManager(std::move(store), this);

    m_authApi = new ApiClient(m_tokens, this);
    m_authApi->setBaseUrl(
        QUrl(QStringLiteral("%1/api/v1/realms/%2").arg(m_config.authBaseUrl, m_config.realmSlug)));
    m_authApi->setAppInfo(m_config.applicationId, m_config.applicationVersion, platform);

    m_accountApi = new ApiClient(m_tokens, this);
    m_accountApi->setBaseUrl(QUrl(m_config.accountApiUrl));
    m_accountApi->setAppInfo(m_config.applicationId, m_config.applicationVersion, platform);

    // Its base URL comes from the application, which knows the sync service.
    m_syncApi = new ApiClient(m_tokens, this);
    m_syncApi->setAppInfo(m_config.applicationId, m_config.applicationVersion, platform);

    m_authClient = new AuthClient(m_config.authBaseUrl, m_config.realmSlug, m_config.clientId, m_authApi,
                                  m_tokens, this);
    connect(m_authClient, &AuthClient::stateChanged, this, &Client::onAuthStateChanged);

    m_accountClient = new AccountClient(m_accountApi, m_authClient, m_config, this);
}

Client::~Client() = default;

QString Client::platformName(const QString &configured)
{
    if (!configured.isEmpty())
        return configured;
    const QString kernel = QSysInfo::kernelType().toLower();
    if (kernel == QLatin1String("darwin"))
        return QStringLiteral("macos");
    if (kernel == QLatin1String("winnt"))
        return QStringLiteral("windows");
    return kernel;
}

void Client::initialize()
{
    m_authClient->initialize();
}

bool Client::isAuthenticated() const
{
    return m_authClient->isAuthenticated();
}

bool Client::hasUsableToken() const
{
    return !m_tokens->accessToken().isEmpty();
}

HlcClaims Client::claims() const
{
    const QString token = m_tokens->accessToken();
    return token.isEmpty() ? HlcClaims() : decodeClaims(token);
}

void Client::onAuthStateChanged(AuthState state)
{
    emit authStateChanged(state);
    if (state == AuthState::SignedIn)
        emit claimsUpdated(decodeClaims(m_tokens->accessToken()));
}

} // namespace HalcAccount
