#include "account/ApiClient.h"
#include "account/TokenManager.h"
#include "support/Jwt.h"
#include "support/MemoryTokenStore.h"
#include "support/ScriptedServer.h"

#include <QJsonDocument>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>

using namespace HalcAccount;

struct Result {
    bool done = false;
    bool success = false;
    int status = -1;
    QJsonObject json;
};

class TstApiClient : public QObject {
    Q_OBJECT
private slots:
    void init();
    void replies_data();
    void replies();
    void requestShape_data();
    void requestShape();
    void refreshAndRetry_data();
    void refreshAndRetry();
    void tenRequestsShareOneRefresh();
    void transportFailure();

private:
    ResponseCallback into(Result *result);
    QByteArray refreshReply() const;
    // "path token" for each request the server saw; the token is "old", "new" or "-".
    QStringList seen() const;

    QHash<QString, QString> m_stored;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<TokenManager> m_tokens;
    std::unique_ptr<ApiClient> m_api;
    QString m_old = jwt(600);
    QString m_new = jwt(900);
};

void TstApiClient::init()
{
    m_stored.clear();
    m_old = jwt(600);
    m_server = std::make_unique<ScriptedServer>();
    QVERIFY(m_server->listen());
    m_tokens = std::make_unique<TokenManager>(std::make_unique<MemoryTokenStore>(&m_stored));
    m_api = std::make_unique<ApiClient>(m_tokens.get());
    m_api->setBaseUrl(m_server->baseUrl());
    m_api->setAppInfo(QStringLiteral("com.halcyra.ombrel"), QStringLiteral("1.0.9"), QStringLiteral("linux"));
    // As the sign-in client does it: the refresh is a public call on the same gateway.
    m_tokens->setRefreshCallback([this](const QString &token, auto onSuccess, auto onFailure) {
        m_api->postPublic(QStringLiteral("/auth/token/refresh"),
                          {
                              {"refresh_token", token}
        },
                          [onSuccess, onFailure](bool ok, int, const QJsonObject &json) {
                              if (ok)
                                  onSuccess(json.value("access_token").toString(),
                                            json.value("refresh_token").toString());
                              else
                                  onFailure();
                          });
    });
    m_tokens->setTokens(m_old, QStringLiteral("r1"));
}

ResponseCallback TstApiClient::into(Result *result)
{
    return [result](bool success, int status, const QJsonObject &json) {
        QVERIFY(!result->done); // exactly once
        *result = {true, success, status, json};
    };
}

QByteArray TstApiClient::refreshReply() const
{
    return QJsonDocument(QJsonObject{
                             {"access_token",  m_new},
                             {"refresh_token", "r2" }
    })
        .toJson();
}

QStringList TstApiClient::seen() const
{
    QStringList lines;
    for (const RecordedRequest &r : m_server->requests()) {
        const QByteArray auth = r.header("authorization");
        const QString who = auth.isEmpty()                       ? QStringLiteral("-")
                            : auth == "Bearer " + m_old.toUtf8() ? QStringLiteral("old")
                            : auth == "Bearer " + m_new.toUtf8() ? QStringLiteral("new")
                                                                 : QStringLiteral("?");
        lines << r.path + u' ' + who;
    }
    return lines;
}

void TstApiClient::replies_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("success");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("204 without body") << 204 << QByteArray() << true << QByteArray("{}");
    QTest::newRow("top-level array") << 200 << QByteArray("[1,2]") << true << QByteArray("{}");
    QTest::newRow("unparsable") << 200 << QByteArray("<html>") << true << QByteArray("{}");
    QTest::newRow("299") << 299 << QByteArray(R"({"a":1})") << true << QByteArray(R"({"a":1})");
    QTest::newRow("error keeps its body")
        << 409 << QByteArray(R"({"error":"x"})") << false << QByteArray(R"({"error":"x"})");
    QTest::newRow("403 is not retried") << 403 << QByteArray() << false << QByteArray("{}");
    QTest::newRow("server error") << 503 << QByteArray() << false << QByteArray("{}");
}

void TstApiClient::replies()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(bool, success);
    QFETCH(QByteArray, json);
    m_server->enqueue({status, body});
    Result result;
    m_api->get(QStringLiteral("/x"), into(&result));
    QTRY_VERIFY_WITH_TIMEOUT(result.done, 5000);
    QCOMPARE(result.success, success);
    QCOMPARE(result.status, status);
    QCOMPARE(QJsonDocument(result.json).toJson(QJsonDocument::Compact), json);
    QCOMPARE(m_server->requests().size(), 1);
}

void TstApiClient::requestShape_data()
{
    QTest::addColumn<QString>("basePath");
    QTest::addColumn<QString>("verb");
    QTest::addColumn<QJsonObject>("body");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("sentBody");
    QTest::newRow("get under a base path")
        << "/ombrel/v1"
        << "GET" << QJsonObject() << "/ombrel/v1/sync/pull" << QByteArray();
    QTest::newRow("post, empty object") << "/account/v1"
                                        << "POST" << QJsonObject() << "/account/v1/sync/pull" << QByteArray();
    QTest::newRow("patch") << "" << "PATCH" << QJsonObject{{"display_name", "Zo\u00eb"}} << "/sync/pull"
                           << QByteArray("{\"display_name\":\"Zo\xc3\xab\"}");
    QTest::newRow("delete") << "/a b"
                            << "DELETE" << QJsonObject() << "/a b/sync/pull" << QByteArray();
}

void TstApiClient::requestShape()
{
    QFETCH(QString, basePath);
    QFETCH(QString, verb);
    QFETCH(QJsonObject, body);
    QFETCH(QString, path);
    QFETCH(QByteArray, sentBody);
    QUrl base = m_server->baseUrl();
    base.setPath(basePath);
    m_api->setBaseUrl(base);
    m_server->enqueue({200, "{}"});
    Result result;
    const QString call = QStringLiteral("/sync/pull");
    if (verb == "GET")
        m_api->get(call, into(&result),
                   QUrlQuery{
                       {"since", "2024-01-01T00:00:00Z"}
        });
    else if (verb == "POST")
        m_api->post(call, body, into(&result));
    else if (verb == "PATCH")
        m_api->patch(call, body, into(&result));
    else
        m_api->del(call, into(&result));
    QTRY_VERIFY_WITH_TIMEOUT(result.done, 5000);
    QVERIFY(result.success);

    const RecordedRequest r = m_server->requests().value(0);
    QCOMPARE(r.verb, verb.toLatin1());
    QCOMPARE(r.path, path);
    QCOMPARE(r.body, sentBody);
    QCOMPARE(r.query.queryItemValue("since"),
             verb == "GET" ? QStringLiteral("2024-01-01T00:00:00Z") : QString());
    QCOMPARE(r.header("content-type"), QByteArray("application/json"));
    QCOMPARE(r.header("accept"), QByteArray("application/json"));
    QCOMPARE(r.header("x-app-id"), QByteArray("com.halcyra.ombrel"));
    QCOMPARE(r.header("x-app-version"), QByteArray("1.0.9"));
    QCOMPARE(r.header("x-platform"), QByteArray("linux"));
    QCOMPARE(r.header("authorization"), "Bearer " + m_old.toUtf8());
}

void TstApiClient::refreshAndRetry_data()
{
    QTest::addColumn<bool>("stale");
    QTest::addColumn<QString>("refreshToken");
    QTest::addColumn<QList<int>>("statuses"); // what /items answers, in turn
    QTest::addColumn<int>("refreshStatus");   // 0: the refresh is never asked for
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("authRequired");
    QTest::addColumn<QStringList>("requests");
    const QString items = QStringLiteral("/items ");
    const QString refresh = QStringLiteral("/auth/token/refresh -");
    QTest::newRow("retry after 401") << false << "r1" << QList<int>{401, 200} << 200 << 200 << 0
                                     << QStringList{items + "old", refresh, items + "new"};
    QTest::newRow("401 after the retry") << false << "r1" << QList<int>{401, 401} << 200 << 401 << 0
                                         << QStringList{items + "old", refresh, items + "new"};
    QTest::newRow("401, refresh fails")
        << false << "r1" << QList<int>{401} << 400 << 401 << 1 << QStringList{items + "old", refresh};
    QTest::newRow("refresh before") << true << "r1" << QList<int>{200} << 200 << 200 << 0
                                    << QStringList{refresh, items + "new"};
    QTest::newRow("refresh before fails")
        << true << "r1" << QList<int>{} << 500 << 401 << 1 << QStringList{refresh};
    QTest::newRow("stale, no refresh token")
        << true << "" << QList<int>{401} << 0 << 401 << 1 << QStringList{items + "-"};
}

void TstApiClient::refreshAndRetry()
{
    QFETCH(bool, stale);
    QFETCH(QString, refreshToken);
    QFETCH(QList<int>, statuses);
    QFETCH(int, refreshStatus);
    QFETCH(int, status);
    QFETCH(int, authRequired);
    QFETCH(QStringList, requests);
    if (stale)
        m_old = jwt(-60);
    m_tokens->setTokens(m_old, refreshToken);
    for (const int s : statuses)
        m_server->enqueue(QStringLiteral("/items"), {
                                                        s, QJsonDocument(QJsonObject{{"s", s}}
                                                         ).toJson()
        });
    if (refreshStatus)
        m_server->enqueue(QStringLiteral("/auth/token/refresh"), {refreshStatus, refreshReply()});
    QSignalSpy authSpy(m_api.get(), &ApiClient::authenticationRequired);

    Result result;
    m_api->get(QStringLiteral("/items"), into(&result));
    QTRY_VERIFY_WITH_TIMEOUT(result.done, 5000);
    QCOMPARE(result.status, status);
    QCOMPARE(result.success, status == 200);
    // The JSON of a 401 that led to a refresh is dropped; a final 401 keeps its body.
    QCOMPARE(result.json.value("s").toInt(), authRequired ? 0 : status);
    QCOMPARE(authSpy.size(), authRequired);
    QCOMPARE(seen(), requests);
}

void TstApiClient::tenRequestsShareOneRefresh()
{
    m_old = jwt(-60);
    m_tokens->setTokens(m_old, QStringLiteral("r1"));
    m_server->enqueue(QStringLiteral("/auth/token/refresh"),
                      ScriptedReply::delayed(100, 200, refreshReply()));
    QList<Result> results(10);
    for (int i = 0; i < 10; ++i) {
        const QString path = QStringLiteral("/items/%1").arg(i);
        m_server->enqueue(path, {
                                    200, QJsonDocument(QJsonObject{{"n", i}}
                                     ).toJson()
        });
        m_api->get(path, into(&results[i]));
    }
    QTRY_VERIFY_WITH_TIMEOUT(
        std::all_of(results.cbegin(), results.cend(), [](const Result &r) { return r.done; }), 5000);
    const QStringList requests = seen();
    QCOMPARE(requests.size(), 11);
    QCOMPARE(requests.first(), QStringLiteral("/auth/token/refresh -"));
    // The ten go out in the order they were made, but over parallel connections, so the server may see
    // them in another order; each must carry the new token and get its own reply.
    QStringList items = requests.mid(1);
    items.sort();
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(items[i], QStringLiteral("/items/%1 new").arg(i));
        QVERIFY(results[i].success);
        QCOMPARE(results[i].json.value("n").toInt(), i);
    }
    QCOMPARE(m_stored.value(kRefreshTokenKey), QStringLiteral("r2"));
}

void TstApiClient::transportFailure()
{
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const quint16 port = closed.serverPort();
    closed.close();
    m_api->setBaseUrl(QUrl(QStringLiteral("http://127.0.0.1:%1").arg(port)));
    QSignalSpy errorSpy(m_api.get(), &ApiClient::networkError);
    QSignalSpy authSpy(m_api.get(), &ApiClient::authenticationRequired);
    Result result;
    m_api->post(QStringLiteral("/x"),
                {
                    {"a", 1}
    },
                into(&result));
    QTRY_VERIFY_WITH_TIMEOUT(result.done, 5000);
    QCOMPARE(result.success, false);
    QCOMPARE(result.status, 0);
    QCOMPARE(errorSpy.size(), 1);
    QVERIFY(!errorSpy.first().first().toString().isEmpty());
    QCOMPARE(authSpy.size(), 0);
}

QTEST_GUILESS_MAIN(TstApiClient)
#include "tst_apiclient.moc"
