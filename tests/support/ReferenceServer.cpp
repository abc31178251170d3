#include "support/ReferenceServer.h"

#include "account/Client.h"
#include "account/TokenManager.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTest>

bool ReferenceServer::start()
{
    OmbrelServer::ServerOptions options;
    options.dataDir = m_dir.path();
    options.port = 0;
    m_server = std::make_unique<OmbrelServer::Server>(options);
    QString error;
    if (!m_server->start(&error)) {
        qWarning().noquote() << "reference server:" << error;
        return false;
    }
    return true;
}

QUrl ReferenceServer::syncBase() const
{
    QUrl url = baseUrl();
    url.setPath(QStringLiteral("/ombrel/v1"));
    return url;
}

ServerUser ReferenceServer::signUp(const QString &email)
{
    return signUpUser(baseUrl(), email);
}

QJsonObject ReferenceServer::call(const QByteArray &verb, const QString &path, const ServerUser &user,
                                  const QJsonObject &body)
{
    QNetworkAccessManager network;
    QUrl url = baseUrl();
    url.setPath(path);
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    request.setRawHeader("Authorization", "Bearer " + user.accessToken.toUtf8());
    QNetworkReply *reply = network.sendCustomRequest(request, verb, QJsonDocument(body).toJson());
    QSignalSpy finished(reply, &QNetworkReply::finished);
    if (!finished.wait(10000)) {
        reply->abort();
        return {};
    }
    reply->deleteLater();
    return QJsonDocument::fromJson(reply->readAll()).object();
}

bool ReferenceServer::makeGroup(const QList<ServerUser> &users)
{
    for (qsizetype i = 1; i < users.size(); ++i) {
        const QString code = call("POST", QStringLiteral("/account/v1/group/invite"), users.first())
                                 .value(QLatin1String("invite_code"))
                                 .toString();
        if (code.isEmpty())
            return false;
        call("POST", QStringLiteral("/account/v1/group/join/%1").arg(code), users.at(i));
    }
    const QJsonObject group = call("GET", QStringLiteral("/account/v1/group"), users.first());
    return group.value(QLatin1String("members")).toArray().size() == users.size();
}

HalcAccount::Client *ReferenceServer::clientFor(const ServerUser &user)
{
    const QString base = baseUrl().toString();
    const HalcAccount::ClientConfig config{base,
                                           QStringLiteral("halcyra"),
                                           base + QStringLiteral("/account/v1"),
                                           QStringLiteral("0123456789abcdef0123456789abcdef"),
                                           QStringLiteral("com.halcyra.ombrel"),
                                           QStringLiteral("Halcyra Ombrel"),
                                           QStringLiteral("1.0.0"),
                                           QStringLiteral("linux"),
                                           base};
    auto &entries = m_tokenEntries.emplace_back();
    auto client = std::make_unique<HalcAccount::Client>(config, std::make_unique<MemoryTokenStore>(&entries));
    client->tokenManager()->setTokens(user.accessToken, user.refreshToken);
    m_clients.push_back(std::move(client));
    return m_clients.back().get();
}
