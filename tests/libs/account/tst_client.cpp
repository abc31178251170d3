#include "account/AuthClient.h"
#include "account/Client.h"
#include "account/SecretServiceTokenStore.h"
#include "account/TokenManager.h"
#include "support/Jwt.h"
#include "support/ScriptedServer.h"

#include <QDesktopServices>
#include <QSignalSpy>
#include <QTest>

using namespace HalcAccount;

// Runs on a private session bus with an unlocked keyring (run-with-keyring.sh): the session a start
// finds is the one the keyring holds.
class TstClient : public QObject {
    Q_OBJECT
public slots:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private slots:
    void initTestCase()
    {
        if (qgetenv("DBUS_SESSION_BUS_ADDRESS").startsWith("unix:path=/nonexistent"))
            QSKIP("needs a session bus with a Secret Service: run through run-with-keyring.sh");
        QVERIFY(m_server.listen());
        QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "openUrl");
    }

    void init()
    {
        m_server.clear();
        m_opened.clear();
        SecretServiceTokenStore(QStringLiteral("com.halcyra.ombrel")).clear();
    }

    void platformName_data()
    {
        QTest::addColumn<QString>("configured");
        QTest::addColumn<QString>("expected");
        QTest::newRow("configured") << "Windows"
                                    << "Windows";
        QTest::newRow("this system") << ""
                                     << "linux";
    }

    void platformName()
    {
        QFETCH(QString, configured);
        QFETCH(QString, expected);
        QCOMPARE(Client::platformName(configured), expected);
    }

    void startWithStoredSession()
    {
        SecretServiceTokenStore store(QStringLiteral("com.halcyra.ombrel"));
        QVERIFY(store.store(kAccessTokenKey, jwt(600, QStringLiteral("g1"), QStringLiteral("owner"))));
        QVERIFY(store.store(kRefreshTokenKey, QStringLiteral("r1")));

        Client client(config());
        QSignalSpy states(&client, &Client::authStateChanged);
        QSignalSpy claims(&client, &Client::claimsUpdated);
        client.initialize();
        QVERIFY(client.isAuthenticated());
        QVERIFY(client.hasUsableToken());
        QCOMPARE(states.size(), 1);
        QCOMPARE(claims.size(), 1);
        QCOMPARE(claims.first().first().value<HlcClaims>().group_id, QStringLiteral("g1"));
        QCOMPARE(client.claims().role, QStringLiteral("owner"));
        QVERIFY(m_opened.isEmpty());
        QTest::qWait(50);
        QVERIFY(m_server.requests().isEmpty());

        // Signing out tells the server and empties the keyring.
        client.authClient()->logout();
        QTRY_COMPARE_WITH_TIMEOUT(m_server.requests().size(), 1, 5000);
        const RecordedRequest r = m_server.requests().first();
        QCOMPARE(r.path, QStringLiteral("/auth/api/v1/realms/halcyra/auth/logout"));
        QCOMPARE(r.header("x-platform"), QByteArray("linux"));
        QVERIFY(r.header("authorization").startsWith("Bearer "));
        QCOMPARE(store.load(kAccessTokenKey), std::nullopt);
        QCOMPARE(store.load(kRefreshTokenKey), std::nullopt);
        QVERIFY(!client.isAuthenticated());
    }

    void startWithStaleSession()
    {
        SecretServiceTokenStore store(QStringLiteral("com.halcyra.ombrel"));
        QVERIFY(store.store(kAccessTokenKey, jwt(-60, QStringLiteral("g1"), QStringLiteral("owner"))));
        Client client(config());
        client.initialize();
        QVERIFY(!client.isAuthenticated());
        QVERIFY(!client.hasUsableToken());
        QCOMPARE(client.claims().group_id, QString());
    }

private:
    ClientConfig config() const
    {
        const QString base = m_server.baseUrl().toString();
        return {
            base + "/auth", "halcyra", base + "/account/v1", "client", "com.halcyra.ombrel", "Halcyra Ombrel",
            "1.0.9",        "",        base + "/portal"};
    }

    ScriptedServer m_server;
    QList<QUrl> m_opened;
};

QTEST_MAIN(TstClient)
#include "tst_client.moc"
