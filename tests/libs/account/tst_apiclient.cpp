#include "support/AccountStack.h"
#include "support/Jwt.h"

#include <QJsonDocument>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>

using namespace HalcAccount;

namespace {

struct Result {
    bool done = false;
    bool success = false;
    int status = -1;
    QJsonObject json;
};

ResponseCallback into(Result *result)
{
    return [result](bool success, int status, const QJsonObject &json) {
        QVERIFY(!result->done); // exactly once
        *result = {true, success, status, json};
    };
}

} // namespace

class TstApiClient : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m = std::make_unique<AccountStack>();
        m->api.setAppInfo(QStringLiteral("com.halcyra.ombrel"), QStringLiteral("1.0.9"),
                          QStringLiteral("linux"));
        // As the sign-in client does it: the refresh is a public call on the same gateway.
        m->tokens.setRefreshCallback([this](const QString &token, auto onSuccess, auto onFailure) {
            m->api.postPublic("/auth/token/refresh",
                              {
                                  {"refresh_token", token}
            },
                              [onSuccess, onFailure](bool ok, int, const QJsonObject &json) {
                                  if (ok)
                                      onSuccess(json["access_token"].toString(),
                                                json["refresh_token"].toString());
                                  else
                                      onFailure();
                              });
        });
        m_old = jwt(600);
        m->tokens.setTokens(m_old, QStringLiteral("r1"));
    }

    void replies_data()
    {
        QTest::addColumn<int>("status"); // 0: nothing listens
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<bool>("success");
        QTest::addColumn<QByteArray>("json");
        // clang-format off
        QTest::newRow("204 without body")     << 204 << QByteArray()               << true  << QByteArray("{}");
        QTest::newRow("top-level array")      << 200 << QByteArray("[1,2]")        << true  << QByteArray("{}");
        QTest::newRow("unparsable")           << 200 << QByteArray("<html>")       << true  << QByteArray("{}");
        QTest::newRow("299")                  << 299 << QByteArray(R"({"a":1})")   << true  << QByteArray(R"({"a":1})");
        QTest::newRow("error keeps its body") << 409 << QByteArray(R"({"e":"x"})") << false << QByteArray(R"({"e":"x"})");
        QTest::newRow("403 is not retried")   << 403 << QByteArray()               << false << QByteArray("{}");
        QTest::newRow("server error")         << 503 << QByteArray()               << false << QByteArray("{}");
        QTest::newRow("connection refused")   << 0   << QByteArray()               << false << QByteArray("{}");
        // clang-format on
    }

    void replies()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QTcpServer closed;
        if (status == 0) {
            QVERIFY(closed.listen(QHostAddress::LocalHost));
            m->api.setBaseUrl(QUrl(QStringLiteral("http://127.0.0.1:%1").arg(closed.serverPort())));
            closed.close();
        }
        m->server.enqueue({status, body});
        QSignalSpy errors(&m->api, &ApiClient::networkError);
        QSignalSpy authSpy(&m->api, &ApiClient::authenticationRequired);
        Result result;
        m->api.post(QStringLiteral("/x"),
                    {
                        {"a", 1}
        },
                    into(&result));
        QTRY_VERIFY_WITH_TIMEOUT(result.done, 5000);
        QTEST(result.success, "success");
        QCOMPARE(result.status, status);
        QTEST(QJsonDocument(result.json).toJson(QJsonDocument::Compact), "json");
        QCOMPARE(m->server.requests().size(), status ? 1 : 0);
        QCOMPARE(errors.size(), status ? 0 : 1);
        QVERIFY(status || !errors.first().first().toString().isEmpty());
        QCOMPARE(authSpy.size(), 0);
    }

    void requestShape_data()
    {
        QTest::addColumn<QString>("basePath");
        QTest::addColumn<QString>("verb");
        QTest::addColumn<QJsonObject>("body");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("sentBody");
        const QJsonObject name{
            {"display_name", "Zo\u00eb"}
        };
        // clang-format off
        QTest::newRow("get under a base path") << "/ombrel/v1" << "GET" << QJsonObject() << "/ombrel/v1/sync/pull" << QByteArray();
        QTest::newRow("post, empty object") << "/account/v1" << "POST" << QJsonObject() << "/account/v1/sync/pull" << QByteArray();
        QTest::newRow("patch") << "" << "PATCH" << name << "/sync/pull" << QByteArray("{\"display_name\":\"Zo\xc3\xab\"}");
        QTest::newRow("delete") << "/a b" << "DELETE" << QJsonObject() << "/a b/sync/pull" << QByteArray();
        // clang-format on
    }

    void requestShape()
    {
        QFETCH(QString, basePath);
        QFETCH(QString, verb);
        QFETCH(QJsonObject, body);
        QUrl base = m->server.baseUrl();
        base.setPath(basePath);
        m->api.setBaseUrl(base);
        m->server.enqueue({200, "{}"});
        Result result;
        const QString call = QStringLiteral("/sync/pull");
        if (verb == "GET")
            m->api.get(call, into(&result),
                       QUrlQuery{
                           {"since", "2024-01-01T00:00:00Z"}
            });
        else if (verb == "POST")
            m->api.post(call, body, into(&result));
        else if (verb == "PATCH")
            m->api.patch(call, body, into(&result));
        else
            m->api.del(call, into(&result));
        QTRY_VERIFY_WITH_TIMEOUT(result.done, 5000);
        QVERIFY(result.success);
        const RecordedRequest r = m->server.requests().value(0);
        QCOMPARE(r.verb, verb.toLatin1());
        QTEST(r.path, "path");
        QTEST(r.body, "sentBody");
        QCOMPARE(r.query.queryItemValue("since"),
                 verb == "GET" ? QStringLiteral("2024-01-01T00:00:00Z") : QString());
        const QByteArray json = "application/json";
        QCOMPARE(
            QByteArrayList({r.header("content-type"), r.header("accept"), r.header("x-app-id"),
                            r.header("x-app-version"), r.header("x-platform"), r.header("authorization")}),
            QByteArrayList({json, json, "com.halcyra.ombrel", "1.0.9", "linux", "Bearer " + m_old.toUtf8()}));
    }

    void refreshAndRetry_data()
    {
        QTest::addColumn<bool>("stale");
        QTest::addColumn<QString>("refreshToken");
        QTest::addColumn<QList<int>>("statuses"); // what /items answers, in turn
        QTest::addColumn<int>("refreshStatus");   // 0: the refresh is never asked for
        QTest::addColumn<int>("status");
        QTest::addColumn<int>("authRequired");
        QTest::addColumn<QStringList>("requests"); // path and token: "old", "new" or "-"
        const QString items = QStringLiteral("/items ");
        const QString refresh = QStringLiteral("/auth/token/refresh -");
        // clang-format off
        QTest::newRow("retry after 401") << false << "r1" << QList<int>{401, 200} << 200 << 200 << 0
                                         << QStringList{items + "old", refresh, items + "new"};
        QTest::newRow("401 after the retry") << false << "r1" << QList<int>{401, 401} << 200 << 401 << 0
                                             << QStringList{items + "old", refresh, items + "new"};
        QTest::newRow("401, refresh fails") << false << "r1" << QList<int>{401} << 400 << 401 << 1
                                            << QStringList{items + "old", refresh};
        QTest::newRow("refresh before") << true << "r1" << QList<int>{200} << 200 << 200 << 0
                                        << QStringList{refresh, items + "new"};
        QTest::newRow("refresh before fails") << true << "r1" << QList<int>{} << 500 << 401 << 1
                                              << QStringList{refresh};
        QTest::newRow("stale, no refresh token") << true << "" << QList<int>{401} << 0 << 401 << 1
                                                 << QStringList{items + "-"};
        // clang-format on
    }

    void refreshAndRetry()
    {
        QFETCH(bool, stale);
        QFETCH(QString, refreshToken);
        QFETCH(QList<int>, statuses);
        QFETCH(int, refreshStatus);
        QFETCH(int, status);
        QFETCH(int, authRequired);
        if (stale)
            m_old = jwt(-60);
        m->tokens.setTokens(m_old, refreshToken);
        for (const int s : statuses)
            m->server.enqueue("/items", {s, QByteArray(R"({"s":)") + QByteArray::number(s) + '}'});
        if (refreshStatus) {
            ScriptedReply reply = AccountStack::tokenReply(m_new);
            reply.status = refreshStatus;
            m->server.enqueue("/auth/token/refresh", reply);
        }
        QSignalSpy authSpy(&m->api, &ApiClient::authenticationRequired);
        Result result;
        m->api.get(QStringLiteral("/items"), into(&result));
        QTRY_VERIFY_WITH_TIMEOUT(result.done, 5000);
        QCOMPARE(result.status, status);
        QCOMPARE(result.success, status == 200);
        // The JSON of a 401 that led to a refresh is dropped; a final 401 keeps its body.
        QCOMPARE(result.json["s"].toInt(), authRequired ? 0 : status);
        QCOMPARE(authSpy.size(), authRequired);
        QTEST(seen(), "requests");
    }

    void tenRequestsShareOneRefresh()
    {
        m_old = jwt(-60);
        m->tokens.setTokens(m_old, QStringLiteral("r1"));
        ScriptedReply refresh = AccountStack::tokenReply(m_new);
        refresh.delayMs = 100;
        m->server.enqueue("/auth/token/refresh", refresh);
        QList<Result> results(10);
        for (int i = 0; i < 10; ++i) {
            const QString path = QStringLiteral("/items/%1").arg(i);
            m->server.enqueue(path, {200, QByteArray(R"({"n":)") + QByteArray::number(i) + '}'});
            m->api.get(path, into(&results[i]));
        }
        QTRY_VERIFY_WITH_TIMEOUT(
            std::all_of(results.cbegin(), results.cend(), [](const Result &r) { return r.done; }), 5000);
        QStringList requests = seen();
        QCOMPARE(requests.size(), 11);
        QCOMPARE(requests.takeFirst(), QStringLiteral("/auth/token/refresh -"));
        // The ten go out in the order they were made, but over parallel connections, so the server may see
        // them in another order; each must carry the new token and get its own reply.
        requests.sort();
        for (int i = 0; i < 10; ++i) {
            QCOMPARE(requests[i], QStringLiteral("/items/%1 new").arg(i));
            QVERIFY(results[i].success);
            QCOMPARE(results[i].json["n"].toInt(), i);
        }
        QCOMPARE(m->stored.value(kRefreshTokenKey), QStringLiteral("r2"));
    }

private:
    QStringList seen() const
    {
        QStringList lines;
        for (const RecordedRequest &r : m->server.requests()) {
            const QByteArray auth = r.header("authorization");
            lines << r.path + (auth.isEmpty()                       ? " -"
                               : auth == "Bearer " + m_old.toUtf8() ? " old"
                               : auth == "Bearer " + m_new.toUtf8() ? " new"
                                                                    : " ?");
        }
        return lines;
    }

    std::unique_ptr<AccountStack> m;
    QString m_old;
    const QString m_new = jwt(900);
};

QTEST_GUILESS_MAIN(TstApiClient)
#include "tst_apiclient.moc"
