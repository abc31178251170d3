#include "account/AuthClient.h"
#include "account/Client.h"
#include "account/SecretServiceTokenStore.h"
#include "account/TokenManager.h"
#include "support/Columns.h"
#include "support/Jwt.h"
#include "support/ScriptedServer.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using namespace HalcAccount;

// Runs on a private session bus with an unlocked keyring (run-with-keyring.sh), but for the last case:
// the session a start finds is the one the keyring holds.
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

    void platformName()
    {
        QCOMPARE(Client::platformName("Windows"), QStringLiteral("Windows"));
        QCOMPARE(Client::platformName(QString()), QStringLiteral("linux"));
    }

    void start_data()
    {
        QTest::addColumn<int>("expiresIn");
        QTest::newRow("stored session") << 600;
        QTest::newRow("stale, no refresh token") << -60;
    }

    // A start reads the session from the keyring and asks nothing of the server or the browser.
    void start()
    {
        QFETCH(int, expiresIn);
        const bool usable = expiresIn > 0;
        SecretServiceTokenStore store(QStringLiteral("com.halcyra.ombrel"));
        QVERIFY(store.store(kAccessTokenKey, jwt(expiresIn, QStringLiteral("g1"), QStringLiteral("owner"))));
        QVERIFY(!usable || store.store(kRefreshTokenKey, QStringLiteral("r1")));
        Client client(config());
        QSignalSpy states(&client, &Client::authStateChanged);
        QSignalSpy claims(&client, &Client::claimsUpdated);
        client.initialize();
        QCOMPARE(client.isAuthenticated(), usable);
        QCOMPARE(client.hasUsableToken(), usable);
        QCOMPARE(client.claims().group_id + client.claims().role,
                 usable ? QStringLiteral("g1owner") : QString());
        QTest::qWait(50);
        QVERIFY(m_opened.isEmpty() && m_server.requests().isEmpty());
        if (!usable)
            return;
        QCOMPARE(states.size(), 1);
        QCOMPARE(claims.size(), 1);
        QCOMPARE(claims.first().first().value<HlcClaims>().group_id, QStringLiteral("g1"));
        // Signing out tells the server and empties the keyring.
        client.authClient()->logout();
        QTRY_COMPARE_WITH_TIMEOUT(m_server.requests().size(), 1, 5000);
        const RecordedRequest r = m_server.requests().first();
        QCOMPARE(r.path, QStringLiteral("/auth/api/v1/realms/halcyra/auth/logout"));
        QCOMPARE(r.header("x-platform"), QByteArray("linux"));
        QVERIFY(r.header("authorization").startsWith("Bearer "));
        QVERIFY(!store.load(kAccessTokenKey) && !store.load(kRefreshTokenKey));
        QVERIFY(!client.isAuthenticated());
    }

    void roundTrip_data()
    {
        addColumns<QString, QString>({"first", "second"});
        // clang-format off
        QTest::newRow("jwt")       << QStringLiteral("eyJhbGciOiJIUzI1NiJ9.eyJleHAiOjF9.c2ln") << QStringLiteral("b.c.d");
        QTest::newRow("non-ascii") << QStringLiteral("t\u00f6k\u20acn \U0001F511") << QStringLiteral("\u65e5\u672c");
        QTest::newRow("long")      << QString(4096, u'x') << QString(5000, u'y');
        // clang-format on
    }

    void roundTrip()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        SecretServiceTokenStore store(QStringLiteral("com.halcyra.test"));
        SecretServiceTokenStore other(QStringLiteral("com.halcyra.other"));
        QVERIFY(store.store(kAccessTokenKey, first) && store.store(kRefreshTokenKey, QStringLiteral("r")));
        QVERIFY(other.store(kAccessTokenKey, QStringLiteral("not ours")));
        QCOMPARE(store.load(kAccessTokenKey), std::optional<QString>(first));
        // A second write replaces the item instead of adding one beside it.
        QVERIFY(store.store(kAccessTokenKey, second));
        QCOMPARE(SecretServiceTokenStore(QStringLiteral("com.halcyra.test")).load(kAccessTokenKey),
                 std::optional<QString>(second));
        // Another program sees the same item by its attributes.
        QProcess tool;
        tool.start("secret-tool", {"lookup", "service", "com.halcyra.test", "key", kAccessTokenKey});
        QVERIFY(tool.waitForFinished(10000));
        QCOMPARE(QString::fromUtf8(tool.readAllStandardOutput()), second);

        QVERIFY(store.remove(kAccessTokenKey) && !store.remove(kAccessTokenKey));
        QCOMPARE(store.load(kAccessTokenKey), std::nullopt);
        QCOMPARE(store.load(kRefreshTokenKey), std::optional<QString>(QStringLiteral("r")));
        store.clear();
        QCOMPARE(store.load(kRefreshTokenKey), std::nullopt);
        QCOMPARE(other.load(kAccessTokenKey), std::optional<QString>(QStringLiteral("not ours")));
    }

    void noSessionBusFailsFast()
    {
        const QByteArray bus = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", QByteArrayLiteral("/nonexistent"));
        SecretServiceTokenStore store(QStringLiteral("com.halcyra.test"));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!store.store(kAccessTokenKey, QStringLiteral("secret")) && !store.load(kAccessTokenKey));
        QVERIFY(!store.remove(kAccessTokenKey));
        store.clear();
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus);
        qputenv("XDG_RUNTIME_DIR", runtime);
        QVERIFY2(timer.elapsed() < 100, qPrintable(QString::number(timer.elapsed())));
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
