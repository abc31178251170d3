#include "account/AccountClient.h"
#include "account/AuthClient.h"
#include "account/DeviceIdentity.h"
#include "support/AccountStack.h"
#include "support/Jwt.h"

#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSysInfo>
#include <QTest>

using namespace HalcAccount;

class TstAccountClient : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m = std::make_unique<AccountStack>();
        m->storeSession(jwt(600));
        m->api.setBaseUrl(QUrl(m->server.baseUrl().toString() + "/auth"));
        m_accountApi = std::make_unique<ApiClient>(&m->tokens);
        m_accountApi->setBaseUrl(QUrl(m->server.baseUrl().toString() + "/account/v1"));
        m_auth = std::make_unique<AuthClient>(QString(), QString(), QString(), &m->api, &m->tokens);
        ClientConfig config;
        config.applicationId = QStringLiteral("com.halcyra.ombrel");
        config.applicationVersion = QStringLiteral("1.0.9");
        m_account = std::make_unique<AccountClient>(m_accountApi.get(), m_auth.get(), config);
        m_auth->initialize();
    }

    void registerDevice()
    {
        m_account->registerDevice();
        QTRY_COMPARE_WITH_TIMEOUT(m->server.requests().size(), 1, 5000);
        const RecordedRequest r = m->server.requests().first();
        QCOMPARE(r.verb + ' ' + r.path.toUtf8(), QByteArray("POST /account/v1/devices/register"));
        const QJsonObject body = QJsonDocument::fromJson(r.body).object();
        QCOMPARE(body["platform"].toString(), QStringLiteral("Linux"));
        QCOMPARE(body["device_name"].toString(), QSysInfo::machineHostName());
        QCOMPARE(body["app_id"].toString(), QStringLiteral("com.halcyra.ombrel"));
        QCOMPARE(body["app_version"].toString(), QStringLiteral("1.0.9"));
        QCOMPARE(body["device_fingerprint"].toString(), DeviceIdentity::fingerprint());
        QFile machineId(QStringLiteral("/etc/machine-id"));
        if (machineId.open(QIODevice::ReadOnly) && !machineId.peek(64).trimmed().isEmpty())
            QCOMPARE(DeviceIdentity::fingerprint(), QString::fromLatin1(machineId.readAll().trimmed()));
        QVERIFY(!DeviceIdentity::fingerprint().isEmpty());

        const QString a = DeviceIdentity::fingerprintOfHostName(QStringLiteral("kitchen-pc"));
        QVERIFY(QRegularExpression(QStringLiteral("^[0-9a-f]{32}$")).match(a).hasMatch());
        QCOMPARE(DeviceIdentity::fingerprintOfHostName(QStringLiteral("kitchen-pc")), a);
        QVERIFY(DeviceIdentity::fingerprintOfHostName(QStringLiteral("kitchen-pc2")) != a);
    }

    void profile_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("email");
        QTest::addColumn<QString>("groupName");
        QTest::addColumn<int>("memberCount");
        const QByteArray full = R"({"email":"a@b.c","group":{"id":"g","name":"Home","member_count":3}})";
        // clang-format off
        QTest::newRow("with group") << 200 << full                            << "a@b.c" << "Home" << 3;
        QTest::newRow("no group")   << 200 << QByteArray(R"({"email":"a@b.c"})") << "a@b.c" << ""  << 0;
        QTest::newRow("failed")     << 500 << full                            << ""      << ""     << 0;
        // clang-format on
    }

    void profile()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        m->server.enqueue(QStringLiteral("/account/v1/profile"), {status, body});
        std::optional<Profile> profile;
        m_account->getProfile([&profile](const Profile &p) { profile = p; });
        QTRY_VERIFY_WITH_TIMEOUT(profile.has_value(), 5000);
        QTEST(profile->email, "email");
        QTEST(profile->group.name, "groupName");
        QTEST(profile->group.memberCount, "memberCount");
    }

    void membership_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QStringList>("paths");
        const QString join = QStringLiteral("/account/v1/group/join/XY 12");
        QTest::newRow("joined") << 200 << QStringList{join, "/auth/auth/token/refresh"};
        QTest::newRow("refused") << 404 << QStringList{join};
    }

    void membership()
    {
        QFETCH(int, status);
        QFETCH(QStringList, paths);
        m->server.enqueue(QStringLiteral("/account/v1/group/join/XY 12"), {status, "{}"});
        m->server.enqueue("/auth/auth/token/refresh", AccountStack::tokenReply(jwt(900, "g1", "member")));
        QSignalSpy changed(m_account.get(), &AccountClient::groupChanged);
        std::optional<bool> joined;
        m_account->joinGroup(QStringLiteral("XY 12"), [&joined](bool ok) { joined = ok; });
        QTRY_VERIFY_WITH_TIMEOUT(joined.has_value(), 5000);
        QTRY_COMPARE_WITH_TIMEOUT(m->server.requests().size(), paths.size(), 5000);
        QCOMPARE(*joined, status == 200);
        QCOMPARE(changed.size(), status == 200 ? 1 : 0);
        QCOMPARE(m->paths(), paths);
        // The new token brings the new group's claims.
        if (status == 200)
            QTRY_COMPARE_WITH_TIMEOUT(decodeClaims(m->tokens.accessToken()).group_id, QStringLiteral("g1"),
                                      5000);
    }

private:
    std::unique_ptr<AccountStack> m;
    std::unique_ptr<ApiClient> m_accountApi;
    std::unique_ptr<AuthClient> m_auth;
    std::unique_ptr<AccountClient> m_account;
};

QTEST_GUILESS_MAIN(TstAccountClient)
#include "tst_accountclient.moc"
