#pragma once

#include "account/Client.h"
#include "support/MemoryTokenStore.h"
#include "support/SyncDevice.h"
#include "support/TestServer.h"

#include <QHash>
#include <QJsonObject>

#include <list>
#include <memory>

// The reference server in the test process, on 127.0.0.1, with users made through its sign-up form
// and account clients signed in as them.
class ReferenceServer {
public:
    // Starts a fresh server; false (and the test fails) when it cannot listen.
    bool start() { return m_server.start(); }

    QUrl baseUrl() const { return m_server.url({}); }
    QUrl syncBase() const { return m_server.url(QStringLiteral("/ombrel/v1")); }
    // Signs up e-mail; the display name is the part before the '@'.
    ServerUser signUp(const QString &email) { return signUpUser(baseUrl(), email); }
    // One call of the REST surface as the user; the reply's object, empty on failure.
    QJsonObject call(const QByteArray &verb, const QString &path, const ServerUser &user,
                     const QJsonObject &body = {});
    // Puts the users into one family group owned by the first.
    bool makeGroup(const QList<ServerUser> &users);

    // An account client signed in as the user, its tokens in memory; owned by the server fixture.
    HalcAccount::Client *clientFor(const ServerUser &user);

private:
    TestServer m_server;
    std::list<QHash<QString, QString>> m_tokenEntries;
    std::list<std::unique_ptr<HalcAccount::Client>> m_clients;
};
