#include "server/HttpExchange.h"

#include <QJsonDocument>
#include <QJsonParseError>

namespace OmbrelServer {

QByteArray headerValue(const HttpRequest &request, const QByteArray &name)
{
    for (const auto &[key, value] : request.headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

QString bearerToken(const HttpRequest &request)
{
    const QByteArray value = headerValue(request, "Authorization").trimmed();
    if (value.size() < 8 || value.left(7).compare("Bearer ", Qt::CaseInsensitive) != 0)
        return {};
    return QString::fromLatin1(value.mid(7).trimmed());
}

std::optional<QStringList> pathBelow(const QString &path, const QString &prefix)
{
    if (path == prefix)
        return QStringList();
    if (!path.startsWith(prefix) || path.at(prefix.size()) != QLatin1Char('/'))
        return std::nullopt;
    return path.mid(prefix.size() + 1).split(QLatin1Char('/'));
}

HttpResponse jsonResponse(int status, const QJsonObject &object)
{
    return HttpResponse{status, "application/json", QJsonDocument(object).toJson(QJsonDocument::Compact), {}};
}

HttpResponse errorResponse(int status, const QString &message)
{
    return jsonResponse(status, QJsonObject{
                                    {QStringLiteral("error"), message}
    });
}

HttpResponse emptyResponse(int status)
{
    return HttpResponse{status, {}, {}, {}};
}

HttpResponse htmlResponse(int status, const QString &html)
{
    return HttpResponse{status, "text/html; charset=utf-8", html.toUtf8(), {}};
}

HttpResponse redirectResponse(const QUrl &location)
{
    HttpResponse response{302, "text/plain", {}, {}};
    response.headers.append(qMakePair(QByteArray("Location"), QByteArray(location.toEncoded())));
    response.headers.append(qMakePair(QByteArray("Cache-Control"), QByteArray("no-store")));
    return response;
}

std::optional<QJsonObject> jsonObjectBody(const HttpRequest &request, HttpResponse *refusal)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(request.body, &error);
    if (error.error != QJsonParseError::NoError) {
        *refusal = errorResponse(400, QStringLiteral("The body is not JSON: %1").arg(error.errorString()));
        return std::nullopt;
    }
    if (!doc.isObject()) {
        *refusal = errorResponse(400, QStringLiteral("The body must be a JSON object"));
        return std::nullopt;
    }
    return doc.object();
}

QUrlQuery formBody(const HttpRequest &request)
{
    QByteArray body = request.body;
    body.replace('+', ' ');
    return QUrlQuery(QString::fromUtf8(body));
}

} // namespace OmbrelServer
