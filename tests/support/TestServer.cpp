#include "TestServer.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QSet>
#include <QUrlQuery>

#include <algorithm>

TestServer::TestServer()
{
    m_options.dataDir = m_dir.path();
    m_options.port = 0;
}

TestServer::~TestServer() = default;

bool TestServer::start()
{
    m_server = std::make_unique<OmbrelServer::Server>(m_options);
    QString error;
    if (!m_server->start(&error))
        qWarning().noquote() << "TestServer:" << error;
    return error.isEmpty();
}

HttpResult TestServer::request(const QByteArray &method, const QString &pathAndQuery, const QByteArray &body,
                               const QString &token, const QByteArray &contentType)
{
    QNetworkRequest request(url(pathAndQuery));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setHeader(QNetworkRequest::ContentTypeHeader, contentType);
    if (!token.isEmpty())
        request.setRawHeader("Authorization", "Bearer " + token.toLatin1());
    std::unique_ptr<QNetworkReply> reply(m_network.sendCustomRequest(request, method, body));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(30000, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    if (!reply->isFinished())
        return {};
    const QByteArray data = reply->readAll();
    return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), data,
            QJsonDocument::fromJson(data).object(), reply->rawHeader("Location")};
}

HttpResult TestServer::post(const QString &path, const QJsonObject &body, const QString &token)
{
    return request("POST", path, QJsonDocument(body).toJson(QJsonDocument::Compact), token);
}

HttpResult TestServer::postForm(const QString &page, const QList<QPair<QString, QString>> &fields)
{
    QList<QPair<QString, QString>> all{{"client_id", m_options.clientId},
                                       {"redirect_uri", "http://127.0.0.1:45678/callback"}};
    all.removeIf([&](const auto &d) { return std::any_of(fields.begin(), fields.end(), [&](const auto &f) { return f.first == d.first; }); });
    QUrlQuery form;
    for (const auto &[key, value] : all + fields)
        form.addQueryItem(key, QString::fromLatin1(QUrl::toPercentEncoding(value)));
    return request("POST", QStringLiteral("/%1/account/%2").arg(m_options.realm, page),
                   form.query(QUrl::FullyEncoded).toLatin1(), QString(), "application/x-www-form-urlencoded");
}

TestUser TestServer::userFrom(const HttpResult &result, const QString &email)
{
    if (result.status != 302)
        return {};
    const QUrlQuery query(QUrl::fromEncoded(result.location).query());
    const QString access = query.queryItemValue(QStringLiteral("access_token"));
    return {claimsOf(access).value(QLatin1String("sub")).toString(), email, access,
            query.queryItemValue(QStringLiteral("refresh_token"))};
}

TestUser TestServer::signUp(const QString &email, const QString &password)
{
    return userFrom(postForm("signup", {{"email", email}, {"password", password}, {"display_name", email.section('@', 0, 0)}}), email);
}

TestUser TestServer::signIn(const QString &email, const QString &password)
{
    return userFrom(postForm("login", {{"email", email}, {"password", password}}), email);
}

bool TestServer::joinGroup(const TestUser &owner, const TestUser &member)
{
    const HttpResult invite = post("/account/v1/group/invite", {}, owner.accessToken);
    const QString code = invite.json.value(QLatin1String("invite_code")).toString();
    return invite.status == 201 && !code.isEmpty() &&
           post("/account/v1/group/join/" + code, {}, member.accessToken).status == 200;
}

bool TestServer::refresh(TestUser *user)
{
    const HttpResult r = post(QStringLiteral("/api/v1/realms/%1/auth/token/refresh").arg(m_options.realm),
                              {{"refresh_token", user->refreshToken}});
    if (r.status != 200)
        return false;
    user->accessToken = r.json.value(QLatin1String("access_token")).toString();
    user->refreshToken = r.json.value(QLatin1String("refresh_token")).toString();
    return true;
}

QJsonObject TestServer::claimsOf(const QString &accessToken)
{
    const QByteArray payload = accessToken.section(QLatin1Char('.'), 1, 1).toLatin1();
    return QJsonDocument::fromJson(QByteArray::fromBase64(payload, QByteArray::Base64UrlEncoding)).object();
}

QJsonObject TestServer::json(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

QJsonObject TestServer::change(const QString &type, const QString &id, qint64 version, const QJsonObject &payload,
                               bool deleted)
{
    return {{"entity_type", type}, {"entity_id", id}, {"action", deleted ? "delete" : "upsert"},
            {"version", version}, {"payload", payload}};
}

QJsonArray TestServer::push(const TestUser &user, const QJsonArray &changes)
{
    const HttpResult r = post("/ombrel/v1/sync/push", {{"changes", changes}}, user.accessToken);
    return r.status == 200 ? r.json.value(QLatin1String("results")).toArray() : QJsonArray();
}

PulledRows TestServer::pullAll(const TestUser &user, int limit, const PulledRows *earlier)
{
    PulledRows pulled;
    QSet<QString> known; // "array/client id" of every row the device holds
    if (earlier) {
        pulled.cursor = earlier->cursor;
        known = QSet<QString>(earlier->rows.keyBegin(), earlier->rows.keyEnd());
    }
    for (int page = 0; page < 1000; ++page) {
        QUrlQuery query{{"limit", QString::number(limit)}};
        if (!pulled.cursor.isEmpty())
            query.addQueryItem("since", QString::fromLatin1(QUrl::toPercentEncoding(pulled.cursor)));
        const HttpResult r = get("/ombrel/v1/sync/pull?" + query.query(QUrl::FullyEncoded), user.accessToken);
        if (r.status != 200)
            return pulled;
        ++pulled.pages;
        for (const QString array : {"accounts", "categories", "recurring_transactions", "transactions", "reconciliations"}) {
            for (const QJsonValue &value : r.json.value(array).toArray()) {
                const QJsonObject row = value.toObject();
                const auto lacks = [&](const QString &parents, const char *key) {
                    const QString id = row.value(QLatin1String(key)).toString();
                    return !id.isEmpty() && !known.contains(parents + '/' + id);
                };
                const bool needsAccount = array != "accounts" && array != "categories";
                const QString key = array + '/' + row.value("client_id").toString();
                if ((needsAccount && !known.contains("accounts/" + row.value("account_id").toString())) ||
                    lacks("categories", "category_id") || lacks("categories", "parent_id"))
                    pulled.orphans.append(key);
                known.insert(key);
                pulled.rows.insert(key, row);
            }
        }
        pulled.cursor = r.json.value(QLatin1String("server_time")).toString();
        if (!r.json.value(QLatin1String("has_more")).toBool()) {
            pulled.ok = true;
            return pulled;
        }
    }
    return pulled;
}
