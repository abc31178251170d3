#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace OmbrelServer {

// Compact HS256 JSON web tokens.
class Jwt {
public:
    static QString sign(const QJsonObject &claims, const QByteArray &key);
    // The claims when the token is well formed, says HS256 and carries a good signature; expiry is
    // the caller's business.
    static std::optional<QJsonObject> verify(const QString &token, const QByteArray &key);
};

} // namespace OmbrelServer
