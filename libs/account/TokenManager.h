#pragma once

#include "account/HlcClaims.h"
#include "account/TokenStore.h"

#include <QList>
#include <QMutex>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace HalcAccount {

// The claims of a token's payload; malformed input gives an empty record.
HlcClaims decodeClaims(const QString &token);

// The signed-in session: the access token (a JWT, stale 30 seconds before its expiry) and the refresh
// token. However many callers ask for a refresh at once, the server is asked once and every caller
// hears the result, in the order it asked.
class TokenManager : public QObject {
    Q_OBJECT
public:
    using SuccessContinuation = std::function<void(QString accessToken, QString refreshToken)>;
    using FailureContinuation = std::function<void()>;
    // Does the network work; must call exactly one of the continuations, once.
    using RefreshCallback = std::function<void(QString refreshToken, SuccessContinuation onSuccess,
                                               FailureContinuation onFailure)>;

    explicit TokenManager(std::unique_ptr<TokenStore> store, QObject *parent = nullptr);
    ~TokenManager() override;

    void loadTokens();
    void setTokens(const QString &accessToken, const QString &refreshToken);
    void clearTokens();

    // Empty unless the access token is usable now.
    QString accessToken() const;
    QString refreshToken() const { return m_refreshToken; }
    bool needsRefresh() const;

    void setRefreshCallback(RefreshCallback callback);
    void refresh(std::function<void(bool)> callback);

private:
    void finishRefresh(bool success);

    std::unique_ptr<TokenStore> m_store;
    QString m_accessToken;
    QString m_refreshToken;
    RefreshCallback m_refreshCallback;
    QMutex m_mutex;
    bool m_refreshing = false;
    QList<std::function<void(bool)>> m_waiting;
};

} // namespace HalcAccount
