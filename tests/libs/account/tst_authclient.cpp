#include "account/AuthClient.h"
#include "support/AccountStack.h"
#include "support/Jwt.h"

#include <QDesktopServices>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

using namespace HalcAccount;

// Stands in for the system browser: the login page "signs in" at once and sends the browser back to
// the redirect URI with the request target the test chose.
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
        socket->write("GET " + target + " HTTP/1.1\r\nHost: localhost\r\n\r\n");
    }
};

class TstAuthClient : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m = std::make_unique<AccountStack>();
        m_auth = std::make_unique<AuthClient>("http://127.0.0.1:9/auth", "halcyra", "client&1", &m->api,
                                              &m->tokens);
        QDesktopServices::setUrlHandler("http", &m_browser, "open");
    }

    void cleanup()
    {
        QDesktopServices::unsetUrlHandler("http");
        m_auth.reset();
    }

    void login_data()
    {
        const QByteArray access = jwt(600).toUtf8();
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("storedAccess");
        // clang-format off
        QTest::newRow("tokens in the query")    << "/callback?access_token=" + access + "&refresh_token=r1" << "" << QString(access);
        QTest::newRow("tokens in the fragment") << "/callback#access_token=" + access + "&refresh_token=r1" << "" << QString(access);
        QTest::newRow("favicon first")          << QByteArray("/favicon.ico")          << "No tokens received" << "";
        QTest::newRow("no refresh token")       << "/callback?access_token=" + access  << "No tokens received" << "";
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
        QTRY_COMPARE_WITH_TIMEOUT(succeeded.size() + failed.size(), 1, 5000);
        // The page is the same whatever came back.
        QTRY_VERIFY_WITH_TIMEOUT(m_browser.page.contains("Authentication complete!"), 5000);
        const QString redirect =
            QUrlQuery(m_browser.opened).queryItemValue("redirect_uri", QUrl::FullyDecoded);
        QCOMPARE(m_browser.opened.toString(QUrl::FullyEncoded),
                 "http://127.0.0.1:9/auth/halcyra/account/login?client_id=client%261&redirect_uri=" +
                     QString::fromLatin1(QUrl::toPercentEncoding(redirect)));
        QVERIFY(redirect.startsWith("http://localhost:") && redirect.endsWith("/callback"));
        QCOMPARE(failed.isEmpty() ? QString() : failed.first().first().toString(), error);
        QCOMPARE(m_auth->state(), error.isEmpty() ? AuthState::SignedIn : AuthState::SignedOut);
        QTEST(m->stored.value(kAccessTokenKey), "storedAccess");
        QVERIFY(m->server.requests().isEmpty());
    }

    void initialize_data()
    {
        QTest::addColumn<int>("accessExpiresIn"); // 0: no access token stored
        QTest::addColumn<QString>("refreshToken");
        QTest::addColumn<int>("refreshStatus"); // 0: the server is not asked
        QTest::addColumn<AuthState>("state");
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
        QCOMPARE(m->server.requests().size(), refreshStatus ? 1 : 0);
        if (refreshStatus) {
            const RecordedRequest r = m->server.requests().first();
            QCOMPARE(r.path, QStringLiteral("/auth/token/refresh"));
            QCOMPARE(r.header("authorization"), QByteArray());
            QCOMPARE(r.body, QByteArray(R"({"refresh_token":"r1"})"));
        }
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
            QTcpServer closed;
            QVERIFY(closed.listen(QHostAddress::LocalHost));
            m->api.setBaseUrl(QUrl(QStringLiteral("http://127.0.0.1:%1").arg(closed.serverPort())));
            closed.close();
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
        m->server.enqueue("/users/me", {200, R"({"id":"u1","email":"a@b.c","display_name":"Ann",)"
                                             R"("created_at":"2024-05-01T10:00:00Z"})"});
        m->server.enqueue("/users/me", {500, "{}"});
        m->server.enqueue(
            "/users/me/sessions",
            {200, R"({"sessions":[{"id":"s1","is_current":true},{"id":"s2","ip_address":"10.0.0.1"}]})"});
        QList<User> users;
        QList<Session> sessions;
        m_auth->fetchCurrentUser([&users](const User &user) { users.append(user); });
        QTRY_COMPARE_WITH_TIMEOUT(users.size(), 1, 5000);
        m_auth->fetchCurrentUser([&users](const User &user) { users.append(user); });
        m_auth->listSessions([&sessions](const QList<Session> &list) { sessions = list; });
        QTRY_VERIFY_WITH_TIMEOUT(users.size() == 2 && !sessions.isEmpty(), 5000);
        QCOMPARE(users[0].displayName, QStringLiteral("Ann"));
        QCOMPARE(users[0].createdAt, QDateTime(QDate(2024, 5, 1), QTime(10, 0), Qt::UTC));
        // A failed call hands on the user as last known.
        QCOMPARE(users[1].email, QStringLiteral("a@b.c"));
        QCOMPARE(sessions.size(), 2);
        QVERIFY(sessions[0].isCurrent && !sessions[1].isCurrent);
        QCOMPARE(sessions[1].ipAddress, QStringLiteral("10.0.0.1"));
    }

private:
    std::unique_ptr<AccountStack> m;
    std::unique_ptr<AuthClient> m_auth;
    Browser m_browser;
};

QTEST_MAIN(TstAuthClient)
#include "tst_authclient.moc"
