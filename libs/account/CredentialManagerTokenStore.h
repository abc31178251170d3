#pragma once

#include "account/TokenStore.h"

namespace HalcAccount {

// Each token is one generic credential of the Windows Credential Manager, named
// "Halcyra/<service>/<key>", its blob the token's UTF-8 bytes, kept for the local machine.
class CredentialManagerTokenStore : public TokenStore {
public:
    explicit CredentialManagerTokenStore(const QString &serviceName);

    std::optional<QString> load(const QString &key) override;
    bool store(const QString &key, const QString &value) override;
    bool remove(const QString &key) override;
    void clear() override;

private:
    QString targetName(const QString &key) const;

    QString m_serviceName;
};

} // namespace HalcAccount
