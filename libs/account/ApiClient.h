#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QUrlQuery>

#include <functional>

class QNetworkAccessManager;

namespace HalcAccount {

class TokenManager;

// The result of every REST call, delivered exactly once on the event loop's thread.
using ResponseCallback = std::function<void(bool success, int httpStatus, QJsonObject json)>;

// The one HTTP gateway: builds the request with the fixed headers and the bearer token, keeps the token
// fresh, retries once after a 401, and hands back the JSON object of the reply. It knows nothing of
// what the calls mean, and sets no time-out: a request lasts as long as the transport lets it.
class ApiClient : public QObject {
    Q_OBJECT
public:
    explicit ApiClient(TokenManager *tokens, QObject *parent = nullptr);
    ~ApiClient() override;

    void setBaseUrl(const QUrl &url);
    QUrl baseUrl() const { return m_baseUrl; }
    void setAppInfo(const QString &appId, const QString &appVersion, const QString &platform);

    // path is relative to the base URL and begins with "/".
    void get(const QString &path, ResponseCallback callback, const QUrlQuery &query = {});
    void getPublic(const QString &path, ResponseCallback callback, const QUrlQuery &query = {});
    void post(const QString &path, const QJsonObject &body, ResponseCallback callback);
    void postPublic(const QString &path, const QJsonObject &body, ResponseCallback callback);
    void patch(const QString &path, const QJsonObject &body, ResponseCallback callback);
    void del(const QString &path, ResponseCallback callback);

signals:
    // A refresh that a request needed has failed: the user has to sign in again.
    void authenticationRequired();
    // A transport failure with no HTTP status.
    void networkError(const QString &message);

private:
    void sendRequest(const QString &method, const QString &path, const QJsonObject &body,
                     ResponseCallback callback, const QUrlQuery &query, bool requireAuth);
    void executeRequest(const QString &method, const QUrl &url, const QByteArray &data, const QString &token,
                        ResponseCallback callback, bool allowRetry);

    QNetworkAccessManager *m_network = nullptr;
    TokenManager *m_tokens = nullptr;
    QUrl m_baseUrl;
    QString m_appId;
    QString m_appVersion;
    QString m_platform;
};

} // namespace HalcAccount
