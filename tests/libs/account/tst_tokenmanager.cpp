#include "account/TokenManager.h"
#include "support/Jwt.h"
#include "support/MemoryTokenStore.h"

#include <QTest>

using namespace HalcAccount;

class TstTokenManager : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_stored.clear();
        m_manager = std::make_unique<TokenManager>(std::make_unique<MemoryTokenStore>(&m_stored));
        m_refreshCalls = 0;
        // The server's answer is held back until the test gives it.
        m_manager->setRefreshCallback([this](const QString &, auto onSuccess, auto onFailure) {
            ++m_refreshCalls;
            m_succeed = onSuccess;
            m_fail = onFailure;
        });
    }

    void usability_data()
    {
        QTest::addColumn<QByteArray>("payload"); // NOW: the current second
        QTest::addColumn<QString>("refreshToken");
        QTest::addColumn<bool>("usable");
        QTest::addColumn<bool>("needsRefresh");
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

    void usability()
    {
        QFETCH(QByteArray, payload);
        QFETCH(QString, refreshToken);
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
            m_manager->setTokens(token, refreshToken);
        } while (QDateTime::currentSecsSinceEpoch() != now);
        QFETCH(bool, usable);
        QCOMPARE(m_manager->accessToken(), usable ? token : QString());
        QTEST(m_manager->needsRefresh(), "needsRefresh");
    }

    void claims_data()
    {
        QTest::addColumn<QString>("token");
        QTest::addColumn<QString>("groupId");
        QTest::addColumn<QString>("role");
        // clang-format off
        QTest::newRow("claims")                      << jwt(600, "g1", "owner")   << "g1" << "owner";
        QTest::newRow("expired token still decodes") << jwt(-600, "g2", "member") << "g2" << "member";
        QTest::newRow("no custom")                   << jwt(600)                  << ""   << "";
        QTest::newRow("hlc not an object") << jwtWithPayload(R"({"custom":{"hlc":"g1"}})") << "" << "";
        QTest::newRow("garbage")                     << "a.%%%.b"                 << ""   << "";
        // clang-format on
    }

    void claims()
    {
        QFETCH(QString, token);
        const HlcClaims claims = decodeClaims(token);
        QTEST(claims.group_id, "groupId");
        QTEST(claims.role, "role");
    }

    void refreshHandOut_data()
    {
        QTest::addColumn<bool>("serverAgrees");
        QTest::addColumn<bool>("signOutMeanwhile");
        QTest::newRow("success") << true << false;
        QTest::newRow("failure") << false << false;
        // A sign-out during the refresh cannot stop it: the new pair is stored again.
        QTest::newRow("cleared meanwhile") << true << true;
    }

    void refreshHandOut()
    {
        QFETCH(bool, serverAgrees);
        QFETCH(bool, signOutMeanwhile);
        const QString stale = jwt(-10);
        m_manager->setTokens(stale, QStringLiteral("r1"));
        QList<int> order;
        QList<bool> results;
        for (int i = 1; i <= 3; ++i)
            m_manager->refresh([&order, &results, i](bool ok) { order.append(i), results.append(ok); });
        QCOMPARE(m_refreshCalls, 1);
        QVERIFY(order.isEmpty());
        if (signOutMeanwhile)
            m_manager->clearTokens();
        const QString fresh = jwt(600);
        if (serverAgrees)
            m_succeed(fresh, QStringLiteral("r2"));
        else
            m_fail();
        QCOMPARE(order, (QList<int>{1, 2, 3}));
        QCOMPARE(results, QList<bool>(3, serverAgrees));
        QCOMPARE(m_stored.value(kAccessTokenKey), serverAgrees ? fresh : stale);
        QCOMPARE(m_manager->refreshToken(), serverAgrees ? QStringLiteral("r2") : QStringLiteral("r1"));
        // The hand-out is over: the next refresh asks the server again.
        m_manager->refresh({});
        QCOMPARE(m_refreshCalls, 2);
    }

    void waitersAndRefreshes()
    {
        // Without a refresh token every waiter hears "no" at once, and the server is not asked.
        m_manager->setTokens(jwt(-10), QString());
        QStringList log;
        m_manager->refresh([&log](bool ok) { log.append(QStringLiteral("none %1").arg(ok)); });
        QCOMPARE(m_refreshCalls, 0);
        m_manager->setTokens(jwt(-10), QStringLiteral("r1"));
        m_manager->refresh([this, &log](bool ok) {
            log.append(QStringLiteral("first %1").arg(ok));
            m_manager->refresh([&log](bool again) { log.append(QStringLiteral("third %1").arg(again)); });
        });
        m_manager->refresh([&log](bool ok) { log.append(QStringLiteral("second %1").arg(ok)); });
        m_fail();
        // The first waiter's refresh is a new one: the second waiter still hears the old result, and the
        // third waits for the new one.
        QCOMPARE(m_refreshCalls, 2);
        QCOMPARE(log, (QStringList{"none 0", "first 0", "second 0"}));
        m_succeed(jwt(600), QStringLiteral("r2"));
        QCOMPARE(log, (QStringList{"none 0", "first 0", "second 0", "third 1"}));
    }

private:
    QHash<QString, QString> m_stored;
    std::unique_ptr<TokenManager> m_manager;
    int m_refreshCalls = 0;
    TokenManager::SuccessContinuation m_succeed;
    TokenManager::FailureContinuation m_fail;
};

QTEST_GUILESS_MAIN(TstTokenManager)
#include "tst_tokenmanager.moc"
