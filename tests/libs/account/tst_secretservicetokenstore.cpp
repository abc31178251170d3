#include "account/SecretServiceTokenStore.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

using HalcAccount::kAccessTokenKey;
using HalcAccount::kRefreshTokenKey;
using HalcAccount::SecretServiceTokenStore;

// Runs on a private session bus with an unlocked keyring (run-with-keyring.sh), except the last case.
class TstSecretServiceTokenStore : public QObject {
    Q_OBJECT
private slots:
    void roundTrip_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::newRow("jwt") << QStringLiteral("eyJhbGciOiJIUzI1NiJ9.eyJleHAiOjF9.c2ln")
                             << QStringLiteral("b.c.d");
        QTest::newRow("non-ascii") << QStringLiteral("t\u00f6k\u20acn \U0001F511")
                                   << QStringLiteral("\u65e5\u672c");
        QTest::newRow("long") << QString(4096, u'x') << QString(5000, u'y');
    }

    void roundTrip()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
            QSKIP("needs a session bus with a Secret Service: run through run-with-keyring.sh");
        SecretServiceTokenStore store(QStringLiteral("com.halcyra.test"));
        SecretServiceTokenStore other(QStringLiteral("com.halcyra.other"));
        QVERIFY(store.store(kAccessTokenKey, first));
        QVERIFY(store.store(kRefreshTokenKey, QStringLiteral("r")));
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

        QVERIFY(store.remove(kAccessTokenKey));
        QVERIFY(!store.remove(kAccessTokenKey));
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
        QVERIFY(!store.store(kAccessTokenKey, QStringLiteral("secret")));
        QCOMPARE(store.load(kAccessTokenKey), std::nullopt);
        QVERIFY(!store.remove(kAccessTokenKey));
        store.clear();
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus);
        qputenv("XDG_RUNTIME_DIR", runtime);
        QVERIFY2(timer.elapsed() < 100, qPrintable(QString::number(timer.elapsed())));
    }
};

QTEST_GUILESS_MAIN(TstSecretServiceTokenStore)
#include "tst_secretservicetokenstore.moc"
