#include "support/ReferenceServer.h"

#include "account/TokenManager.h"

#include <QJsonArray>
#include <QJsonDocument>

QJsonObject ReferenceServer::call(const QByteArray &verb, const QString &path, const ServerUser &user,
                                  const QJsonObject &body)
{
    return m_server.request(verb, path, QJsonDocument(body).toJson(QJsonDocument::Compact), user.accessToken)
        .json;
}

bool ReferenceServer::makeGroup(const QList<ServerUser> &users)
{
    const TestUser owner{{}, users.first().email, users.first().accessToken, {}};
    for (const ServerUser &user : users.mid(1)) {
        if (!m_server.joinGroup(owner, {{}, user.email, user.accessToken, {}}))
            return false;
    }
    return call("GET", QStringLiteral("/account/v1/group"), users.first())["members"].toArray().size() ==
           users.size();
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
    auto client = std::make_unique<HalcAccount::Client>(
        config, std::make_unique<MemoryTokenStore>(&m_tokenEntries.emplace_back()));
    client->tokenManager()->setTokens(user.accessToken, user.refreshToken);
    return m_clients.emplace_back(std::move(client)).get();
}
