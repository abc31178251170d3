#include "account/AccountClient.h"
#include "account/AuthClient.h"
#include "account/DeviceIdentity.h"
#include "account/WebAuthHandler.h"
#include "support/AccountStack.h"
#include "support/Columns.h"
#include "support/Jwt.h"

#include <QDesktopServices>
#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSysInfo>
#include <QTcpServer>
#include <QTcpSocket>
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

// A base URL on 127.0.0.1 where nothing listens.
QUrl closedPort()
{
    QTcpServer closed;
    closed.listen(QHostAddress::LocalHost);
    return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(closed.serverPort()));
}

} // namespace

// Stands in for the system browser: the login page "signs in" at once and sends the browser back to
// the redirect URI with the request target the test chose, or with bytes of its own.
class Browser : public QObject {
    Q_OBJECT
public:
    QByteArray target;
    QUrl opened;
    QByteArray page;

public slots:
    void open(const QUrl &url)
    {
        opened = url;
        const QUrl redirect(QUrlQuery(url).queryItemValue("redirect_uri", QUrl::FullyDecoded));
        auto *socket = new QTcpSocket(this);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { page += socket->readAll(); });
        socket->connectToHost(QHostAddress::LocalHost, quint16(redirect.port()));
        socket->write(target.startsWith('/') ? "GET " + target + " HTTP/1.1\r\nHost: localhost\r\n\r\n"
                                             : target);
    }
};

// The account library in memory against a scripted server on 127.0.0.1.
class TstAccount : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m = std::make_unique<AccountStack>();
        m_auth = std::make_unique<AuthClient>("http://127.0.0.1:9/auth", "halcyra", "client&1", &m->api,
                                              &m->tokens);
        m_old = jwt(600);
        QDesktopServices::setUrlHandler("http", &m_browser, "open");
    }

    void cleanup()
    {
        QDesktopServices::unsetUrlHandler("http");
        m_auth.reset();
    }

    void tokenUsability_data()
    {
        // payload: NOW: the current second
        addColumns<QByteArray, QString, bool, bool>({"payload", "refreshToken", "usable", "needsRefresh"});
        // clang-format off
        QTest::newRow("31 s left")          << QByteArray(R"({"exp":NOW+31})")      << "r" << true  << false;
        QTest::newRow("30 s left")          << QByteArray(R"({"exp":NOW+30})")      << "r" << false << true;
        QTest::newRow("expired, no refresh token") << QByteArray(R"({"exp":NOW-100})") << "" << false << false;
        QTest::newRow("no exp")             << QByteArray(R"({"sub":"x"})")         << "r" << false << true;
        QTest::newRow("exp as text")        << QByteArray(R"({"exp":"NOW+999"})")   << "r" << false << true;
        QTest::newRow("exp beyond 32 bits") << QByteArray(R"({"exp":99999999999})") << "r" << false << true;
        QTest::newRow("payload not JSON")   << QByteArray("garbage")                << "r" << false << true;
        QTest::newRow("top-level array")    << QByteArray("[1]")                    << "r" << false << true;
        QTest::newRow("no dot")             << QByteArray()                         << "r" << false << true;
        // clang-format on
    }

    void tokenUsability()
    {
        QFETCH(QByteArray, payload);
        QFETCH(QString, refreshToken);
        QFETCH(bool, usable);
        qint64 now = 0;
        QString token;
        // Repeat if a second boundary passed in between, which would move the margin under the test.
        do {
            now = QDateTime::currentSecsSinceEpoch();
            QByteArray json = payload;
            for (const int delta : {31, 30, -100, 999})
                json.replace("NOW" + QByteArray(delta < 0 ? "" : "+") + QByteArray::number(delta),
                             QByteArray::number(now + delta));
            token = payload.isEmpty() ? QStringLiteral("nodotatall") : jwtWithPayload(json);
            m->tokens.setTokens(token, refreshToken);
        } while (QDateTime::currentSecsSinceEpoch() != now);
        QCOMPARE(m->tokens.accessToken(), usable ? token : QString());
        QTEST(m->tokens.needsRefresh(), "needsRefresh");
    }

    void claims_data()
    {
        addColumns<QString, QString>({"token", "claims"});
        // clang-format off
        QTest::newRow("claims")                      << jwt(600, "g1", "owner")   << "g1 owner";
        QTest::newRow("expired token still decodes") << jwt(-600, "g2", "member") << "g2 member";
        QTest::newRow("no custom")                   << jwt(600)                  << " ";
        QTest::newRow("hlc not an object") << jwtWithPayload(R"({"custom":{"hlc":"g1"}})") << " ";
        QTest::newRow("garbage")                     << "a.%%%.b"                 << " ";
        // clang-format on
    }

    void claims()
    {
        QFETCH(QString, token);
        QTEST(decodeClaims(token).group_id + ' ' + decodeClaims(token).role, "claims");
    }

    void refreshHandOut_data()
    {
        addColumns<bool, bool>({"serverAgrees", "signOutMeanwhile"});
        // Success for many waiters is the ten requests' test.
        QTest::newRow("failure") << false << false;
        // A sign-out during the refresh cannot stop it: the new pair is stored again.
        QTest::newRow("cleared meanwhile") << true << true;
    }

    void refreshHandOut()
    {
        QFETCH(bool, serverAgrees);
        QFETCH(bool, signOutMeanwhile);
        holdRefreshes();
        const QString stale = jwt(-10);
        m->tokens.setTokens(stale, QStringLiteral("r1"));
        QStringList heard;
        for (int i = 1; i <= 3; ++i)
            m->tokens.refresh([&heard, i](bool ok) { heard << QStringLiteral("%1 %2").arg(i).arg(ok); });
        QCOMPARE(m_refreshCalls, 1);
        QVERIFY(heard.isEmpty());
        if (signOutMeanwhile)
            m->tokens.clearTokens();
        const QString fresh = jwt(600);
        if (serverAgrees)
            m_succeed(fresh, QStringLiteral("r2"));
        else
            m_fail();
        QCOMPARE(heard,
                 QStringList({"1 %1", "2 %1", "3 %1"}).replaceInStrings("%1", QString::number(serverAgrees)));
        QCOMPARE(m->stored.value(kAccessTokenKey), serverAgrees ? fresh : stale);
        QCOMPARE(m->tokens.refreshToken(), serverAgrees ? QStringLiteral("r2") : QStringLiteral("r1"));
        // The hand-out is over: the next refresh asks the server again.
        m->tokens.refresh({});
        QCOMPARE(m_refreshCalls, 2);
    }

    void waitersAndRefreshes()
    {
        holdRefreshes();
        // Without a refresh token every waiter hears "no" at once, and the server is not asked.
        m->tokens.setTokens(jwt(-10), QString());
        QStringList log;
        m->tokens.refresh([&log](bool ok) { log.append(QStringLiteral("none %1").arg(ok)); });
        QCOMPARE(m_refreshCalls, 0);
        m->tokens.setTokens(jwt(-10), QStringLiteral("r1"));
        m->tokens.refresh([this, &log](bool ok) {
            log.append(QStringLiteral("first %1").arg(ok));
            m->tokens.refresh([&log](bool again) { log.append(QStringLiteral("third %1").arg(again)); });
        });
        m->tokens.refresh([&log](bool ok) { log.append(QStringLiteral("second %1").arg(ok)); });
        m_fail();
        // The first waiter's refresh is a new one: the second waiter still hears the old result, and the
        // third waits for the new one.
        QCOMPARE(m_refreshCalls, 2);
        QCOMPARE(log, (QStringList{"none 0", "first 0", "second 0"}));
        m_succeed(jwt(600), QStringLiteral("r2"));
        QCOMPARE(log, (QStringList{"none 0", "first 0", "second 0", "third 1"}));
    }

    void replies_data()
    {
        // status: 0: nothing listens
        addColumns<int, QByteArray, bool, QByteArray>({"status", "body", "success", "json"});
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
        refreshThroughApi();
        if (status == 0)
            m->api.setBaseUrl(closedPort());
        m->server.enqueue({status, body});
        QSignalSpy errors(&m->api, &ApiClient::networkError);
        QSignalSpy authSpy(&m->api, &ApiClient::authenticationRequired);
        Result result;
        // clang-format off
        m->api.post(QStringLiteral("/x"), {{"a", 1}}, into(&result));
        // clang-format on
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
        addColumns<QString, QString, QJsonObject, QString, QByteArray>(
            {"basePath", "verb", "body", "path", "sentBody"});
        const QJsonObject name = QJsonDocument::fromJson(R"({"display_name":"Zo\u00eb"})").object();
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
        refreshThroughApi();
        QUrl base = m->server.baseUrl();
        base.setPath(basePath);
        m->api.setBaseUrl(base);
        m->server.enqueue({200, "{}"});
        Result result;
        const QString call = QStringLiteral("/sync/pull");
        if (verb == "GET")
            m->api.get(call, into(&result), QUrlQuery(QStringLiteral("since=2024-01-01T00:00:00Z")));
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
        // statuses: what /items answers, in turn
        // refreshStatus: 0: the refresh is never asked for
        // requests: path and token: "old", "new" or "-"
        addColumns<bool, QString, QList<int>, int, int, int, QStringList>(
            {"stale", "refreshToken", "statuses", "refreshStatus", "status", "authRequired", "requests"});
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
        refreshThroughApi();
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
        refreshThroughApi();
        m_old = jwt(-60);
        m->tokens.setTokens(m_old, QStringLiteral("r1"));
        m->server.enqueue("/auth/token/refresh",
                          ScriptedReply::delayed(100, 200, AccountStack::tokenReply(m_new).body));
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

    void preferredPortTaken()
    {
        // Another test process may hold the port already; either way this handler cannot have it.
        QTcpServer squatter;
        squatter.listen(QHostAddress::LocalHost, WebAuthHandler::kPreferredPort);
        WebAuthHandler first, second;
        const QUrl a(first.start());
        const QUrl b(second.start());
        QVERIFY(a.port() > 0 && a.port() != WebAuthHandler::kPreferredPort);
        QVERIFY(b.port() > 0 && b.port() != a.port());
        QCOMPARE(a.path(), QStringLiteral("/callback"));
        QCOMPARE(first.redirectUri(), a.toString());
    }

    void login_data()
    {
        const QByteArray access = jwt(600).toUtf8();
        addColumns<QByteArray, QString, QString>({"target", "error", "storedAccess"});
        // clang-format off
        QTest::newRow("tokens in the query")    << "/callback?access_token=" + QByteArray(access).replace('.', "%2E") + "&refresh_token=r1" << "" << QString(access);
        QTest::newRow("tokens in the fragment") << "/callback#access_token=" + access + "&refresh_token=r1" << "" << QString(access);
        QTest::newRow("favicon first")          << QByteArray("/favicon.ico")          << "No tokens received" << "";
        QTest::newRow("no refresh token")       << "/callback?access_token=" + access  << "No tokens received" << "";
        QTest::newRow("request line only")      << QByteArray("GET /callback")         << "No tokens received" << "";
        QTest::newRow("garbage")                << QByteArray("\x01\x02")              << "No tokens received" << "";
        // clang-format on
    }

    void login()
    {
        QFETCH(QByteArray, target);
        QFETCH(QString, error);
        m_browser.target = target;
        m_browser.page.clear();
        m_auth->initialize();
        QSignalSpy succeeded(m_auth.get(), &AuthClient::loginSucceeded);
        QSignalSpy failed(m_auth.get(), &AuthClient::loginFailed);
        m_auth->login();
        // The browser has not answered yet: it does in the event loop.
        QSignalSpy callbacks(m_auth->findChild<WebAuthHandler *>(), &WebAuthHandler::callbackReceived);
        QTRY_COMPARE_WITH_TIMEOUT(succeeded.size() + failed.size(), 1, 5000);
        // The page is the same whatever came back.
        QTRY_COMPARE_WITH_TIMEOUT(
            m_browser.page,
            QByteArray("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n"
                       "<html><body style='font-family: sans-serif; text-align: center; padding: 40px;'>"
                       "<h2>Authentication complete!</h2><p>You can close this tab and return to the "
                       "application.</p></body></html>"),
            5000);
        const QUrl redirect(QUrlQuery(m_browser.opened).queryItemValue("redirect_uri", QUrl::FullyDecoded));
        QCOMPARE(m_browser.opened.toString(QUrl::FullyEncoded),
                 "http://127.0.0.1:9/auth/halcyra/account/login?client_id=client%261&redirect_uri=" +
                     QString::fromLatin1(QUrl::toPercentEncoding(redirect.toString())));
        QVERIFY(redirect.toString().startsWith("http://localhost:") && redirect.path() == "/callback");
        QCOMPARE(failed.isEmpty() ? QString() : failed.first().first().toString(), error);
        QCOMPARE(m_auth->state(), error.isEmpty() ? AuthState::SignedIn : AuthState::SignedOut);
        QTEST(m->stored.value(kAccessTokenKey), "storedAccess");
        QVERIFY(m->server.requests().isEmpty());
        // One callback only, to the listener's own port; then the listener is gone.
        const QByteArray sent = target.startsWith("GET ") ? target.mid(4) : target;
        QCOMPARE(callbacks.size(), 1);
        const QUrl received = callbacks[0][0].toUrl();
        QCOMPARE(received.port(), redirect.port());
        QCOMPARE(received.path(),
                 sent.startsWith('/') ? QUrl::fromEncoded("http://h" + sent).path() : QString());
        QTcpSocket late;
        late.connectToHost(QHostAddress::LocalHost, quint16(redirect.port()));
        QVERIFY(!late.waitForConnected(2000));
    }

    void initialize_data()
    {
        // accessExpiresIn: 0: no access token stored
        // refreshStatus: 0: the server is not asked
        addColumns<int, QString, int, AuthState>(
            {"accessExpiresIn", "refreshToken", "refreshStatus", "state"});
        QTest::newRow("usable token") << 600 << "r1" << 0 << AuthState::SignedIn;
        QTest::newRow("stale, refresh works") << -60 << "r1" << 200 << AuthState::SignedIn;
        QTest::newRow("stale, refresh fails") << -60 << "r1" << 401 << AuthState::SignedOut;
        QTest::newRow("refresh token only") << 0 << "r1" << 200 << AuthState::SignedIn;
        QTest::newRow("nothing stored") << 0 << "" << 0 << AuthState::SignedOut;
    }

    void initialize()
    {
        QFETCH(int, accessExpiresIn);
        QFETCH(QString, refreshToken);
        QFETCH(int, refreshStatus);
        if (accessExpiresIn)
            m->stored.insert(kAccessTokenKey, jwt(accessExpiresIn));
        if (!refreshToken.isEmpty())
            m->stored.insert(kRefreshTokenKey, refreshToken);
        ScriptedReply reply = AccountStack::tokenReply(jwt(900));
        reply.status = refreshStatus;
        if (refreshStatus)
            m->server.enqueue(reply);
        QSignalSpy changed(m_auth.get(), &AuthClient::stateChanged);
        m_auth->initialize();
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, 5000);
        QTEST(m_auth->state(), "state");
        // The refresh goes without an access token.
        QStringList asked;
        for (const RecordedRequest &r : m->server.requests())
            asked << r.path + ' ' + r.header("authorization") + r.body;
        QCOMPARE(asked, refreshStatus ? QStringList{R"(/auth/token/refresh {"refresh_token":"r1"})"}
                                      : QStringList());
        // A failed refresh at start does not throw the stored session away.
        QCOMPARE(m->stored.value(kRefreshTokenKey),
                 refreshStatus == 200 ? QStringLiteral("r2") : refreshToken);
    }

    // Signing out, and a refresh the server refuses, both forget the session here, with or without
    // the network.
    void signOut_data()
    {
        QTest::addColumn<bool>("logout");
        QTest::newRow("logout, network down") << true;
        QTest::newRow("refresh refused") << false;
    }

    void signOut()
    {
        QFETCH(bool, logout);
        m->storeSession(jwt(600));
        m_auth->initialize();
        QCOMPARE(m_auth->state(), AuthState::SignedIn);
        QSignalSpy completed(m_auth.get(), &AuthClient::logoutCompleted);
        std::optional<bool> refreshed;
        if (logout) {
            m->api.setBaseUrl(closedPort());
            m_auth->logout();
            QCOMPARE(completed.size(), 1);
        } else {
            m->server.enqueue({400, "{}"});
            m_auth->refreshToken([&](bool ok) { refreshed = ok; });
            QTRY_VERIFY_WITH_TIMEOUT(refreshed.has_value(), 5000);
            QVERIFY(!*refreshed);
        }
        QCOMPARE(m_auth->state(), AuthState::SignedOut);
        QVERIFY(m->stored.isEmpty());
    }

    void userCalls()
    {
        m->storeSession(jwt(600));
        m_auth->initialize();
        m->server.enqueue(
            "/users/me",
            {200, R"({"email":"a@b.c","display_name":"Ann","created_at":"2024-05-01T10:00:00Z"})"});
        m->server.enqueue("/users/me", {500, "{}"});
        m->server.enqueue(
            "/users/me/sessions",
            {200, R"({"sessions":[{"id":"s1","is_current":true},{"id":"s2","ip_address":"10.0.0.1"}]})"});
        QStringList seen;
        const auto onUser = [&seen](const User &u) {
            seen << u.email + ' ' + u.displayName + ' ' + u.createdAt.toUTC().toString(Qt::ISODate);
        };
        m_auth->fetchCurrentUser(onUser);
        QTRY_COMPARE_WITH_TIMEOUT(seen.size(), 1, 5000);
        m_auth->fetchCurrentUser(onUser);
        m_auth->listSessions([&seen](const QList<Session> &list) {
            for (const Session &s : list)
                seen << s.id + ' ' + QString::number(s.isCurrent) + ' ' + s.ipAddress;
        });
        QTRY_COMPARE_WITH_TIMEOUT(seen.size(), 4, 5000);
        seen.sort();
        // A failed call hands on the user as last known.
        QCOMPARE(seen, (QStringList{"a@b.c Ann 2024-05-01T10:00:00Z", "a@b.c Ann 2024-05-01T10:00:00Z",
                                    "s1 1 ", "s2 0 10.0.0.1"}));
    }

    // The account calls go under /account/v1; a failed one hands on what is known, and a joined group
    // brings fresh tokens with its claims.
    void accountCalls()
    {
        // The account calls on their own gateway under /account/v1, the sign-in calls under /auth.
        m->storeSession(jwt(600));
        m->api.setBaseUrl(QUrl(m->server.baseUrl().toString() + "/auth"));
        ApiClient accountApi(&m->tokens);
        accountApi.setBaseUrl(QUrl(m->server.baseUrl().toString() + "/account/v1"));
        ClientConfig config;
        config.applicationId = QStringLiteral("com.halcyra.ombrel");
        config.applicationVersion = QStringLiteral("1.0.9");
        AccountClient account(&accountApi, m_auth.get(), config);
        m_auth->initialize();
        const QString join = QStringLiteral("/account/v1/group/join/XY 12");
        m->server.enqueue("/account/v1/profile",
                          {200, R"({"email":"a@b.c","group":{"name":"Home","member_count":3}})"});
        m->server.enqueue("/account/v1/profile", {200, R"({"email":"a@b.c"})"});
        m->server.enqueue("/account/v1/profile", {500, R"({"email":"a@b.c","group":{"name":"Home"}})"});
        m->server.enqueue(join, {404, "{}"});
        m->server.enqueue(join, {200, "{}"});
        m->server.enqueue("/auth/auth/token/refresh", AccountStack::tokenReply(jwt(900, "g1", "member")));
        QStringList profiles;
        for (int i = 0; i < 3; ++i) {
            account.getProfile([&](const Profile &p) {
                profiles << p.email + '/' + p.group.name + '/' + QString::number(p.group.memberCount);
            });
            QTRY_COMPARE_WITH_TIMEOUT(profiles.size(), i + 1, 5000);
        }
        QCOMPARE(profiles, (QStringList{"a@b.c/Home/3", "a@b.c//0", "//0"}));
        QSignalSpy changed(&account, &AccountClient::groupChanged);
        QList<bool> joined;
        for (int i = 0; i < 2; ++i) {
            account.joinGroup(QStringLiteral("XY 12"), [&joined](bool ok) { joined << ok; });
            QTRY_COMPARE_WITH_TIMEOUT(joined.size(), i + 1, 5000);
        }
        QCOMPARE(joined, (QList<bool>{false, true}));
        QCOMPARE(changed.size(), 1);
        // The new token brings the new group's claims.
        QTRY_COMPARE_WITH_TIMEOUT(decodeClaims(m->tokens.accessToken()).group_id, QStringLiteral("g1"), 5000);
        QCOMPARE(m->paths().mid(3), (QStringList{join, join, "/auth/auth/token/refresh"}));

        m->server.clear();
        account.registerDevice();
        QTRY_COMPARE_WITH_TIMEOUT(m->server.requests().size(), 1, 5000);
        const RecordedRequest r = m->server.requests().first();
        QCOMPARE(r.verb + ' ' + r.path.toUtf8(), QByteArray("POST /account/v1/devices/register"));
        const QJsonObject body = QJsonDocument::fromJson(r.body).object();
        QCOMPARE(QStringList({body["platform"].toString(), body["device_name"].toString(),
                              body["app_id"].toString(), body["app_version"].toString(),
                              body["device_fingerprint"].toString()}),
                 QStringList({"Linux", QSysInfo::machineHostName(), "com.halcyra.ombrel", "1.0.9",
                              DeviceIdentity::fingerprint()}));
        QFile machineId(QStringLiteral("/etc/machine-id"));
        if (machineId.open(QIODevice::ReadOnly) && !machineId.peek(64).trimmed().isEmpty())
            QCOMPARE(DeviceIdentity::fingerprint(), QString::fromLatin1(machineId.readAll().trimmed()));
        QVERIFY(!DeviceIdentity::fingerprint().isEmpty());
        const QString a = DeviceIdentity::fingerprintOfHostName(QStringLiteral("kitchen-pc"));
        QVERIFY(QRegularExpression(QStringLiteral("^[0-9a-f]{32}$")).match(a).hasMatch());
        QCOMPARE(DeviceIdentity::fingerprintOfHostName(QStringLiteral("kitchen-pc")), a);
        QVERIFY(DeviceIdentity::fingerprintOfHostName(QStringLiteral("kitchen-pc2")) != a);
    }

private:
    // The server's answer to a refresh is held back until the test gives it.
    void holdRefreshes()
    {
        m_refreshCalls = 0;
        m->tokens.setRefreshCallback([this](const QString &, auto onSuccess, auto onFailure) {
            ++m_refreshCalls;
            m_succeed = onSuccess;
            m_fail = onFailure;
        });
    }

    // A signed-in gateway; the sign-in client made in init refreshes through it, as in the program.
    void refreshThroughApi()
    {
        m->api.setAppInfo(QStringLiteral("com.halcyra.ombrel"), QStringLiteral("1.0.9"),
                          QStringLiteral("linux"));
        m->tokens.setTokens(m_old, QStringLiteral("r1"));
    }

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
    std::unique_ptr<AuthClient> m_auth;
    Browser m_browser;
    QString m_old;
    const QString m_new = jwt(900);
    int m_refreshCalls = 0;
    TokenManager::SuccessContinuation m_succeed;
    TokenManager::FailureContinuation m_fail;
};

QTEST_MAIN(TstAccount)
#include "tst_account.moc"
