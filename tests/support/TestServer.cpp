#include "TestServer.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QSet>
#include <QUrlQuery>

#include <algorithm>

namespace {

const QString kRedirect = QStringLiteral("http://127.0.0.1:45678/callback");

} // namespace

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
    if (!m_server->start(&error)) {
        qWarning().noquote() << "TestServer:" << error;
        return false;
    }
    return true;
}

QUrl TestServer::url(const QString &pathAndQuery) const
{
    return QUrl(m_server->baseUrl().toString() + pathAndQuery);
}

HttpResult TestServer::request(const QByteArray &method, const QString &pathAndQuery, const QByteArray &body,
                               const QString &token, const QByteArray &contentType)
{
    QNetworkRequest request(url(pathAndQuery));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setHeader(QNetworkRequest::ContentTypeHeader, contentType);
    if (!token.isEmpty())
        request.setRawHeader("Authorization", "Bearer " + token.toLatin1());
    QNetworkReply *reply = m_network.sendCustomRequest(request, method, body);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(30000, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    HttpResult result;
    if (reply->isFinished()) {
        result.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        result.body = reply->readAll();
        result.json = QJsonDocument::fromJson(result.body).object();
        result.location = reply->rawHeader("Location");
    }
    reply->abort();
    reply->deleteLater();
    return result;
}

HttpResult TestServer::post(const QString &path, const QJsonObject &body, const QString &token)
{
    return request("POST", path, QJsonDocument(body).toJson(QJsonDocument::Compact), token);
}

HttpResult TestServer::postForm(const QString &page, const QList<QPair<QString, QString>> &fields)
{
    QUrlQuery form;
    auto has = [&](const QString &key) {
        return std::any_of(fields.begin(), fields.end(), [&](const auto &field) { return field.first == key; });
    };
    if (!has(QStringLiteral("client_id")))
        form.addQueryItem(QStringLiteral("client_id"), m_options.clientId);
    if (!has(QStringLiteral("redirect_uri")))
        form.addQueryItem(QStringLiteral("redirect_uri"), QString::fromLatin1(QUrl::toPercentEncoding(kRedirect)));
    for (const auto &[key, value] : fields)
        form.addQueryItem(key, QString::fromLatin1(QUrl::toPercentEncoding(value)));
    return request("POST", QStringLiteral("/%1/account/%2").arg(m_options.realm, page),
                   form.query(QUrl::FullyEncoded).toLatin1(), QString(), "application/x-www-form-urlencoded");
}

TestUser TestServer::userFrom(const HttpResult &result, const QString &email)
{
    if (result.status != 302)
        return {};
    const QUrlQuery query(QUrl::fromEncoded(result.location).query());
    TestUser user{QString(), email, query.queryItemValue(QStringLiteral("access_token")),
                  query.queryItemValue(QStringLiteral("refresh_token"))};
    user.id = claimsOf(user.accessToken).value(QLatin1String("sub")).toString();
    return user;
}

TestUser TestServer::signUp(const QString &email, const QString &password)
{
    return userFrom(postForm(QStringLiteral("signup"), {{QStringLiteral("email"), email},
                                                        {QStringLiteral("password"), password},
                                                        {QStringLiteral("display_name"), email.section('@', 0, 0)}}),
                    email);
}

TestUser TestServer::signIn(const QString &email, const QString &password)
{
    return userFrom(
        postForm(QStringLiteral("login"), {{QStringLiteral("email"), email}, {QStringLiteral("password"), password}}),
        email);
}

bool TestServer::joinGroup(const TestUser &owner, const TestUser &member)
{
    const HttpResult invite = post(QStringLiteral("/account/v1/group/invite"), {}, owner.accessToken);
    const QString code = invite.json.value(QLatin1String("invite_code")).toString();
    return invite.status == 201 && !code.isEmpty() &&
           post(QStringLiteral("/account/v1/group/join/") + code, {}, member.accessToken).status == 200;
}

bool TestServer::refresh(TestUser *user)
{
    const HttpResult r = post(QStringLiteral("/api/v1/realms/%1/auth/token/refresh").arg(m_options.realm),
                              {{QStringLiteral("refresh_token"), user->refreshToken}}, QString());
    if (r.status != 200)
        return false;
    user->accessToken = r.json.value(QLatin1String("access_token")).toString();
    user->refreshToken = r.json.value(QLatin1String("refresh_token")).toString();
    return true;
}

QJsonObject TestServer::claimsOf(const QString &accessToken)
{
    const QStringList parts = accessToken.split(QLatin1Char('.'));
    if (parts.size() != 3)
        return {};
    return QJsonDocument::fromJson(QByteArray::fromBase64(parts[1].toLatin1(), QByteArray::Base64UrlEncoding |
                                                                                   QByteArray::OmitTrailingEquals))
        .object();
}

QJsonObject TestServer::change(const QString &type, const QString &id, qint64 version, const QJsonObject &payload,
                               bool deleted)
{
    return QJsonObject{{QStringLiteral("entity_type"), type},
                       {QStringLiteral("entity_id"), id},
                       {QStringLiteral("action"), deleted ? QStringLiteral("delete") : QStringLiteral("upsert")},
                       {QStringLiteral("version"), version},
                       {QStringLiteral("payload"), payload}};
}

QJsonArray TestServer::push(const TestUser &user, const QJsonArray &changes)
{
    const HttpResult r = post(QStringLiteral("/ombrel/v1/sync/push"), {{QStringLiteral("changes"), changes}},
                              user.accessToken);
    return r.status == 200 ? r.json.value(QLatin1String("results")).toArray() : QJsonArray();
}

PulledRows TestServer::pullAll(const TestUser &user, int limit, const PulledRows *earlier)
{
    PulledRows pulled;
    QSet<QString> accounts;
    QSet<QString> categories;
    if (earlier) {
        pulled.cursor = earlier->cursor;
        for (auto it = earlier->rows.begin(); it != earlier->rows.end(); ++it) {
            if (it.key().startsWith(QLatin1String("accounts/")))
                accounts.insert(it.key().section(QLatin1Char('/'), 1));
            if (it.key().startsWith(QLatin1String("categories/")))
                categories.insert(it.key().section(QLatin1Char('/'), 1));
        }
    }
    for (int page = 0; page < 1000; ++page) {
        QUrlQuery query;
        if (!pulled.cursor.isEmpty())
            query.addQueryItem(QStringLiteral("since"), QString::fromLatin1(QUrl::toPercentEncoding(pulled.cursor)));
        query.addQueryItem(QStringLiteral("limit"), QString::number(limit));
        const HttpResult r = get(QStringLiteral("/ombrel/v1/sync/pull?") + query.query(QUrl::FullyEncoded),
                                 user.accessToken);
        if (r.status != 200)
            return pulled;
        ++pulled.pages;
        for (const char *key : {"accounts", "categories", "recurring_transactions", "transactions", "reconciliations"}) {
            const QString array = QString::fromLatin1(key);
            for (const QJsonValue &value : r.json.value(array).toArray()) {
                const QJsonObject row = value.toObject();
                const QString id = row.value(QLatin1String("client_id")).toString();
                const QString account = row.value(QLatin1String("account_id")).toString();
                const QString category = row.value(QLatin1String("category_id")).toString();
                const QString parent = row.value(QLatin1String("parent_id")).toString();
                const bool needsAccount = array != QLatin1String("accounts") && array != QLatin1String("categories");
                if ((needsAccount && !accounts.contains(account)) ||
                    (!category.isEmpty() && !categories.contains(category)) ||
                    (!parent.isEmpty() && !categories.contains(parent)))
                    pulled.orphans.append(array + QLatin1Char('/') + id);
                if (array == QLatin1String("accounts"))
                    accounts.insert(id);
                if (array == QLatin1String("categories"))
                    categories.insert(id);
                pulled.rows.insert(array + QLatin1Char('/') + id, row);
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
