#include "account/TokenStore.h"

#ifdef Q_OS_WIN
#include "account/CredentialManagerTokenStore.h"
#else
#include "account/SecretServiceTokenStore.h"
#endif

namespace HalcAccount {

std::unique_ptr<TokenStore> createTokenStore(const QString &serviceName)
{
#ifdef Q_OS_WIN
    return std::make_unique<CredentialManagerTokenStore>(serviceName);
#else
    return std::make_unique<SecretServiceTokenStore>(serviceName);
#endif
}

} // namespace HalcAccount
