#pragma once

#include "account/TokenStore.h"

namespace HalcAccount {

// The desktop keyring through the freedesktop Secret Service: one item per token in the default
// collection, found by its attributes "service" (the application id) and "key". Its calls block, as
// the store's callers expect. With no session bus, or no Secret Service on it, every call fails at once
// and the session lives in memory only; there is no other place the tokens could go.
class SecretServiceTokenStore : public TokenStore {
public:
    explicit SecretServiceTokenStore(const QString &serviceName);

    std::optional<QString> load(const QString &key) override;
    bool store(const QString &key, const QString &value) override;
    bool remove(const QString &key) override;
    void clear() override;

private:
    bool available();
    void giveUp(const char *operation, const QString &reason);

    QString m_serviceName;
    bool m_unavailable = false;
};

} // namespace HalcAccount
