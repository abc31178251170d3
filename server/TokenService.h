#pragma once

#include "server/HttpExchange.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace OmbrelServer {

class ServerDatabase;

// Who made a request: the user and the session of the access token.
struct Caller {
    QString userId;
    QString sessionId;
};

struct TokenPair {
    QString accessToken;
    QString refreshToken;
};

// Sessions and their tokens. An access token is a signed JWT naming its session, so that logging out
// ends it at once; a refresh token is random, kept only as its SHA-256, and good for one use: its
// second use means it was copied, and ends the session for both holders.
class TokenService {
public:
    TokenService(ServerDatabase *db, QByteArray key, QString realm, QString clientId, int accessTokenSeconds);

    std::optional<TokenPair> startSession(const QString &userId, const QString &userAgent,
                                          const QString &address);
    // nullopt for an unknown, reused or expired token or an ended session.
    std::optional<TokenPair> refresh(const QString &refreshToken);
    // The caller of a request with a good, unexpired access token of a live session.
    std::optional<Caller> authenticate(const HttpRequest &request) const;
    void endSession(const QString &sessionId);
    void endSessionsOf(const QString &userId, const QString &exceptSessionId = QString());

private:
    QString accessTokenFor(const QString &userId, const QString &sessionId) const;
    QString newRefreshToken(const QString &sessionId);

    ServerDatabase *m_db;
    QByteArray m_key;
    QString m_realm;
    QString m_clientId;
    int m_accessTokenSeconds;
};

} // namespace OmbrelServer
