#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QUrlQuery>

#include <optional>

namespace OmbrelServer {

// One request as the services see it: the transport is the front end's business.
struct HttpRequest {
    QByteArray method; // "GET", "POST", ...
    QString path;      // decoded, without the query
    QUrlQuery query;
    QByteArray body;
    QString remoteAddress;
    QList<QPair<QByteArray, QByteArray>> headers;
};

struct HttpResponse {
    int status = 200;
    QByteArray contentType;
    QByteArray body;
    QList<QPair<QByteArray, QByteArray>> headers;
};

// The value of a header, by case-insensitive name; empty when absent.
QByteArray headerValue(const HttpRequest &request, const QByteArray &name);
// The token of an "Authorization: Bearer" header; empty when absent.
QString bearerToken(const HttpRequest &request);
// The path below prefix split at '/', or nullopt when the path is not under prefix.
std::optional<QStringList> pathBelow(const QString &path, const QString &prefix);

HttpResponse jsonResponse(int status, const QJsonObject &object);
// {"error": message}: the one shape of every refusal, which the clients show as it stands.
HttpResponse errorResponse(int status, const QString &message);
HttpResponse emptyResponse(int status = 204);
HttpResponse htmlResponse(int status, const QString &html);
HttpResponse redirectResponse(const QUrl &location);

// The body as a JSON object. Anything else (no body, not JSON, an array) gives nullopt and a 400
// with a message in refusal.
std::optional<QJsonObject> jsonObjectBody(const HttpRequest &request, HttpResponse *refusal);
// A form posted by a browser (application/x-www-form-urlencoded).
QUrlQuery formBody(const HttpRequest &request);

} // namespace OmbrelServer
