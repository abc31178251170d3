#include "account/TokenManager.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>

namespace HalcAccount {

namespace {

constexpr qint64 kExpiryMarginSeconds = 30;

// The token's payload as JSON. The signature is not checked: the client only reads the claims, and
// the server checks the token on every call anyway.
QJsonObject payload(const QString &token)
{
    const QStringList parts = token.split(u'.', Qt::KeepEmptyParts);
    if (parts.size() < 2)
        return {};
    const QByteArray json = QByteArray::fromBase64(parts[1].toLatin1(), QByteArray::Base64UrlEncoding |
                                                                            QByteArray::OmitTrailingEquals);
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isObject() ? document.object() : QJsonObject();
}

// Seconds since the epoch; 0, which counts as expired, when the token has no readable integer "exp".
qint64 expiry(const QString &token)
{
    return payload(token).value(QStringLiteral("exp")).toInt(0);
}

bool usable(const QString &token)
{
    if (token.isEmpty())
        return false;
    const qint64 exp = expiry(token);
    return exp != 0 && QDateTime::currentSecsSinceEpoch() < exp - kExpiryMarginSeconds;
}

} // namespace

HlcClaims decodeClaims(const QString &token)
{
    const QJsonObject hlc =
        payload(token).value(QStringLiteral("custom")).toObject().value(QStringLiteral("hlc")).toObject();
    HlcClaims claims;
    if (hlc.isEmpty())
        return claims;
    claims.group_id = hlc.value(QStringLiteral("group_id")).toString();
    claims.role = hlc.value(QStringLiteral("role")).toString();
    return claims;
}

TokenManager::TokenManager(std::unique_ptr<TokenStore> store, QObject *parent)
    : QObject(parent)
    , m_store(std::move(store))
{
}

TokenManager::~TokenManager() = default;

void TokenManager::loadTokens()
{
    m_accessToken = m_store->load(kAccessTokenKey).value_or(QString());
    m_refreshToken = m_store->load(kRefreshTokenKey).value_or(QString());
}

void TokenManager::setTokens(const QString &accessToken, const QString &refreshToken)
{
    m_accessToken = accessToken;
    m_refreshToken = refreshToken;
    // A failed write leaves the session in memory only, which is all that can be done about it.
    m_store->store(kAccessTokenKey, accessToken);
    m_store->store(kRefreshTokenKey, refreshToken);
}

void TokenManager::clearTokens()
{
    m_accessToken.clear();
    m_refreshToken.clear();
    m_store->clear();
}

QString TokenManager::accessToken() const
{
    return usable(m_accessToken) ? m_accessToken : QString();
}

bool TokenManager::needsRefresh() const
{
    if (usable(m_accessToken))
        return false;
    return !m_refreshToken.isEmpty();
}

void TokenManager::setRefreshCallback(RefreshCallback callback)
{
    m_refreshCallback = std::move(callback);
}

void TokenManager::refresh(std::function<void(bool)> callback)
{
    QMutexLocker locker(&m_mutex);
    if (callback)
        m_waiting.append(std::move(callback));
    if (m_refreshing)
        return;
    if (!m_refreshToken.isEmpty() && m_refreshCallback) {
        m_refreshing = true;
        const QString token = m_refreshToken;
        const RefreshCallback refreshCallback = m_refreshCallback;
        locker.unlock();
        refreshCallback(
            token,
            [this](const QString &accessToken, const QString &refreshToken) {
                setTokens(accessToken, refreshToken);
                finishRefresh(true);
            },
            [this] { finishRefresh(false); });
        return;
    }
    const QList<std::function<void(bool)>> waiting = std::exchange(m_waiting, {});
    locker.unlock();
    for (const auto &waiter : waiting)
        waiter(false);
}

// Callbacks run outside the lock, so that one of them may start the next refresh.
void TokenManager::finishRefresh(bool success)
{
    QMutexLocker locker(&m_mutex);
    m_refreshing = false;
    const QList<std::function<void(bool)>> waiting = std::exchange(m_waiting, {});
    locker.unlock();
    for (const auto &waiter : waiting)
        waiter(success);
}

} // namespace HalcAccount
