#pragma once

#include "server/Server.h"
#include "server/ServerOptions.h"

#include <QByteArray>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

// What one request to the test server brought back.
struct HttpResult {
    int status = 0; // 0: no answer within the wait
    QByteArray body;
    QJsonObject json; // empty unless the body is a JSON object
    QByteArray location;
};

// Everything a device got from a run of pulls, applied the way the program applies it.
struct PulledRows {
    bool ok = false;
    int pages = 0;
    QString cursor;
    // The last copy of each row by array and client id, such as "transactions/t-1".
    QHash<QString, QJsonObject> rows;
    // Rows that came before the parent their foreign key needs, as "array/client id".
    QStringList orphans;
};

// A signed-in user of the test server.
struct TestUser {
    QString id;
    QString email;
    QString accessToken;
    QString refreshToken;
};

// The real reference server on 127.0.0.1 and a port of the system's choosing, on a fresh data
// folder, with a blocking HTTP client for tests. Every wait is bounded.
class TestServer {
public:
    TestServer();
    ~TestServer();

    // Options are read at start: change them before.
    OmbrelServer::ServerOptions &options() { return m_options; }
    bool start();
    QString dataDir() const { return m_dir.path(); }
    QUrl url(const QString &pathAndQuery) const
    {
        return QUrl(m_server->baseUrl().toString() + pathAndQuery);
    }

    HttpResult request(const QByteArray &method, const QString &pathAndQuery, const QByteArray &body = {},
                       const QString &token = {}, const QByteArray &contentType = "application/json");
    HttpResult get(const QString &path, const QString &token = {}) { return request("GET", path, {}, token); }
    HttpResult post(const QString &path, const QJsonObject &body, const QString &token = {});
    HttpResult del(const QString &path, const QString &token) { return request("DELETE", path, {}, token); }

    // Posts the sign-up or sign-in form as a browser would; client_id and redirect_uri (a loopback
    // URI) are added unless fields name them.
    HttpResult postForm(const QString &page, const QList<QPair<QString, QString>> &fields);
    // A new user through the sign-up page; an empty id when that failed.
    TestUser signUp(const QString &email, const QString &password = QStringLiteral("correct horse"));
    TestUser signIn(const QString &email, const QString &password = QStringLiteral("correct horse"));
    // Makes owner's family group (if needed) and brings member into it through an invitation code.
    bool joinGroup(const TestUser &owner, const TestUser &member);
    // Fresh tokens after a change of group, whose claims travel in the access token.
    bool refresh(TestUser *user);

    static QJsonObject claimsOf(const QString &accessToken);
    static QJsonObject json(const QString &text); // a JSON object written as text

    // A change object of a push.
    static QJsonObject change(const QString &type, const QString &id, qint64 version,
                              const QJsonObject &payload, bool deleted = false);
    // The results of one push; empty when the push itself failed.
    QJsonArray push(const TestUser &user, const QJsonArray &changes);
    // Pulls page after page until has_more is false, as a device with foreign keys would; with
    // earlier, from its cursor and with the rows it has.
    PulledRows pullAll(const TestUser &user, int limit = 200, const PulledRows *earlier = nullptr);

private:
    TestUser userFrom(const HttpResult &result, const QString &email);

    QTemporaryDir m_dir;
    OmbrelServer::ServerOptions m_options;
    std::unique_ptr<OmbrelServer::Server> m_server;
    QNetworkAccessManager m_network;
};
