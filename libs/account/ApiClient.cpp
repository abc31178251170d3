#include "account/ApiClient.h"

#include "account/TokenManager.h"

#include <QDebug>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace HalcAccount {

namespace {

void deliver(const ResponseCallback &callback, bool success, int status, const QJsonObject &json = {})
{
    if (callback)
        callback(success, status, json);
}

} // namespace

ApiClient::ApiClient(TokenManager *tokens, QObject *parent)
    : QObject(parent)
    , m_network(new QNetworkAccessManager(this))
    , m_tokens(tokens)
{
}

ApiClient::~ApiClient() = default;

void ApiClient::setBaseUrl(const QUrl &url)
{
    m_baseUrl = url;
}

void ApiClient::setAppInfo(const QString &appId, const QString &appVersion, const QString &platform)
{
    m_appId = appId;
    m_appVersion = appVersion;
    m_platform = platform;
}

void ApiClient::get(const QString &path, ResponseCallback callback, const QUrlQuery &query)
{
    sendRequest(QStringLiteral("GET"), path, {}, std::move(callback), query, true);
}

void ApiClient::getPublic(const QString &path, ResponseCallback callback, const QUrlQuery &query)
{
    sendRequest(QStringLiteral("GET"), path, {}, std::move(callback), query, false);
}

void ApiClient::post(const QString &path, const QJsonObject &body, ResponseCallback callback)
{
    sendRequest(QStringLiteral("POST"), path, body, std::move(callback), {}, true);
}

void ApiClient::postPublic(const QString &path, const QJsonObject &body, ResponseCallback callback)
{
    sendRequest(QStringLiteral("POST"), path, body, std::move(callback), {}, false);
}

void ApiClient::patch(const QString &path, const QJsonObject &body, ResponseCallback callback)
{
    sendRequest(QStringLiteral("PATCH"), path, body, std::move(callback), {}, true);
}

void ApiClient::del(const QString &path, ResponseCallback callback)
{
    sendRequest(QStringLiteral("DELETE"), path, {}, std::move(callback), {}, true);
}

void ApiClient::sendRequest(const QString &method, const QString &path, const QJsonObject &body,
                            ResponseCallback callback, const QUrlQuery &query, bool requireAuth)
{
    QUrl url = m_baseUrl;
    url.setPath(m_baseUrl.path(QUrl::FullyDecoded) + path, QUrl::DecodedMode);
    if (!query.isEmpty())
        url.setQuery(query);
    // An object without fields sends no body at all rather than "{}".
    const QByteArray data =
        body.isEmpty() ? QByteArray() : QJsonDocument(body).toJson(QJsonDocument::Compact);

    if (!requireAuth) {
        executeRequest(method, url, data, QString(), std::move(callback), false);
        return;
    }
    if (!m_tokens->needsRefresh()) {
        executeRequest(method, url, data, m_tokens->accessToken(), std::move(callback), true);
        return;
    }
    qDebug().noquote() << "ApiClient: token needs refresh before" << method << url.path();
    m_tokens->refresh([this, method, url, data, callback](bool ok) {
        if (ok) {
            executeRequest(method, url, data, m_tokens->accessToken(), callback, true);
            return;
        }
        qWarning().noquote() << "ApiClient: token refresh failed for" << method << url.path();
        emit authenticationRequired();
        deliver(callback, false, 401);
    });
}

void ApiClient::executeRequest(const QString &method, const QUrl &url, const QByteArray &data,
                               const QString &token, ResponseCallback callback, bool allowRetry)
{
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    request.setRawHeader("Accept", "application/json");
    if (!m_appId.isEmpty())
        request.setRawHeader("X-App-Id", m_appId.toUtf8());
    if (!m_appVersion.isEmpty())
        request.setRawHeader("X-App-Version", m_appVersion.toUtf8());
    if (!m_platform.isEmpty())
        request.setRawHeader("X-Platform", m_platform.toUtf8());
    if (!token.isEmpty())
        request.setRawHeader("Authorization", QStringLiteral("Bearer %1").arg(token).toUtf8());

    QNetworkReply *reply = nullptr;
    if (method == QLatin1String("GET"))
        reply = m_network->get(request);
    else if (method == QLatin1String("POST"))
        reply = m_network->post(request, data);
    else if (method == QLatin1String("PUT"))
        reply = m_network->put(request, data);
    else if (method == QLatin1String("PATCH"))
        reply = m_network->sendCustomRequest(request, "PATCH", data);
    else if (method == QLatin1String("DELETE"))
        reply = m_network->deleteResource(request);
    if (!reply) {
        deliver(callback, false, 0);
        return;
    }

    connect(reply, &QNetworkReply::finished, this, [this, reply, method, url, data, callback, allowRetry] {
        reply->deleteLater();
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        const QByteArray body = reply->readAll();
        // A body that is not a JSON object (an array, an error page) leaves the result empty; the
        // status still decides.
        QJsonObject json;
        if (!body.isEmpty()) {
            const QJsonDocument document = QJsonDocument::fromJson(body);
            if (document.isObject())
                json = document.object();
        }

        if (status == 401 && allowRetry) {
            m_tokens->refresh([this, method, url, data, callback](bool ok) {
                if (ok) {
                    executeRequest(method, url, data, m_tokens->accessToken(), callback, false);
                    return;
                }
                emit authenticationRequired();
                deliver(callback, false, 401);
            });
            return;
        }
        if (reply->error() != QNetworkReply::NoError && status == 0) {
            emit networkError(reply->errorString());
            deliver(callback, false, 0);
            return;
        }
        deliver(callback, status >= 200 && status <= 299, status, json);
    });
}

} // namespace HalcAccount
