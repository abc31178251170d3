#pragma once

#include <QString>

#include <memory>
#include <optional>

namespace HalcAccount {

inline const QString kAccessTokenKey = QStringLiteral("halcyra_access_token");
inline const QString kRefreshTokenKey = QStringLiteral("halcyra_refresh_token");

// Where the session's tokens outlive the process: the desktop's credential store. A failed read looks
// like a missing token; a failed write leaves the session in memory only.
class TokenStore {
public:
    virtual ~TokenStore() = default;
    virtual std::optional<QString> load(const QString &key) = 0;
    virtual bool store(const QString &key, const QString &value) = 0;
    virtual bool remove(const QString &key) = 0;
    virtual void clear() = 0;
};

// The credential store of this system, its entries named after serviceName (the application id).
std::unique_ptr<TokenStore> createTokenStore(const QString &serviceName);

} // namespace HalcAccount
