#include "account/AccountClient.h"
#include "account/ApiClient.h"
#include "account/AuthClient.h"
#include "account/DeviceIdentity.h"
#include "account/TokenManager.h"
#include "support/Jwt.h"
#include "support/MemoryTokenStore.h"
#include "support/ScriptedServer.h"

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
    void init();
    void registerDevice();
    void fingerprintOfHostName();
    void profile_data();
    void profile();
    void membership_data();
    void membership();

private:
    QHash<QString, QString> m_stored;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<TokenManager> m_tokens;
    std::unique_ptr<ApiClient> m_authApi;
    std::unique_ptr<ApiClient> m_accountApi;
    std::unique_ptr<AuthClient> m_auth;
    std::unique_ptr<AccountClient> m_account;
};

void TstAccountClient::init()
{
    m_stored = {
        {kAccessTokenKey,  jwt(600)            },
        {kRefreshTokenKey, QStringLiteral("r1")}
    };
    m_server = std::make_unique<ScriptedServer>();
    QVERIFY(m_server->listen());
    m_tokens = std::make_unique<TokenManager>(std::make_unique<MemoryTokenStore>(&m_stored));
    m_authApi = std::make_unique<ApiClient>(m_tokens.get());
    m_authApi->setBaseUrl(QUrl(m_server->baseUrl().toString() + "/auth"));
    m_accountApi = std::make_unique<ApiClient>(m_tokens.get());
    m_accountApi->setBaseUrl(QUrl(m_server->baseUrl().toString() + "/account/v1"));
    m_auth = std::make_unique<AuthClient>(QString(), QString(), QString(), m_authApi.get(), m_tokens.get());
    ClientConfig config;
    config.applicationId = QStringLiteral("com.halcyra.ombrel");
    config.applicationVersion = QStringLiteral("1.0.9");
    m_account = std::make_unique<AccountClient>(m_accountApi.get(), m_auth.get(), config);
    m_auth->initialize();
}

void TstAccountClient::registerDevice()
{
    m_account->registerDevice();
    QTRY_COMPARE_WITH_TIMEOUT(m_server->requests().size(), 1, 5000);
    const RecordedRequest r = m_server->requests().first();
    QCOMPARE(r.verb, QByteArray("POST"));
    QCOMPARE(r.path, QStringLiteral("/account/v1/devices/register"));
    const QJsonObject body = QJsonDocument::fromJson(r.body).object();
    QCOMPARE(body.value("platform").toString(), QStringLiteral("Linux"));
    QCOMPARE(body.value("device_name").toString(), QSysInfo::machineHostName());
    QCOMPARE(body.value("app_id").toString(), QStringLiteral("com.halcyra.ombrel"));
    QCOMPARE(body.value("app_version").toString(), QStringLiteral("1.0.9"));
    QCOMPARE(body.value("device_fingerprint").toString(), DeviceIdentity::fingerprint());
    QFile machineId(QStringLiteral("/etc/machine-id"));
    if (machineId.open(QIODevice::ReadOnly) && !machineId.peek(64).trimmed().isEmpty())
        QCOMPARE(DeviceIdentity::fingerprint(), QString::fromLatin1(machineId.readAll().trimmed()));
    QVERIFY(!DeviceIdentity::fingerprint().isEmpty());
}

void TstAccountClient::fingerprintOfHostName()
{
    const QString a = DeviceIdentity::fingerprintOfHostName(QStringLiteral("kitchen-pc"));
    QVERIFY(QRegularExpression(QStringLiteral("^[0-9a-f]{32}$")).match(a).hasMatch());
    QCOMPARE(DeviceIdentity::fingerprintOfHostName(QStringLiteral("kitchen-pc")), a);
    QVERIFY(DeviceIdentity::fingerprintOfHostName(QStringLiteral("kitchen-pc2")) != a);
}

void TstAccountClient::profile_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("email");
    QTest::addColumn<QString>("groupName");
    QTest::addColumn<int>("memberCount");
    QTest::newRow("with group")
        << 200 << QByteArray(R"({"email":"a@b.c","group":{"id":"g","name":"Home","member_count":3}})")
        << "a@b.c"
        << "Home" << 3;
    QTest::newRow("no group") << 200 << QByteArray(R"({"email":"a@b.c"})") << "a@b.c"
                              << "" << 0;
    QTest::newRow("failed") << 500 << QByteArray(R"({"email":"a@b.c"})") << ""
                            << "" << 0;
}

void TstAccountClient::profile()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    m_server->enqueue(QStringLiteral("/account/v1/profile"), {status, body});
    std::optional<Profile> profile;
    m_account->getProfile([&profile](const Profile &p) { profile = p; });
    QTRY_VERIFY_WITH_TIMEOUT(profile.has_value(), 5000);
    QTEST(profile->email, "email");
    QTEST(profile->group.name, "groupName");
    QTEST(profile->group.memberCount, "memberCount");
}

void TstAccountClient::membership_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("groupChanges");
    QTest::addColumn<QStringList>("paths");
    QTest::newRow("joined") << 200 << 1
                            << QStringList{"/account/v1/group/join/XY 12", "/auth/auth/token/refresh"};
    QTest::newRow("refused") << 404 << 0 << QStringList{"/account/v1/group/join/XY 12"};
}

void TstAccountClient::membership()
{
    QFETCH(int, status);
    QFETCH(int, groupChanges);
    QFETCH(QStringList, paths);
    const QString newToken = jwt(900, QStringLiteral("g1"), QStringLiteral("member"));
    m_server->enqueue(QStringLiteral("/account/v1/group/join/XY 12"), {status, "{}"});
    m_server->enqueue(
        QStringLiteral("/auth/auth/token/refresh"),
        {
            200, QJsonDocument(QJsonObject{{"access_token", newToken}, {"refresh_token", "r2"}}
             ).toJson()
    });
    QSignalSpy changed(m_account.get(), &AccountClient::groupChanged);
    std::optional<bool> joined;
    m_account->joinGroup(QStringLiteral("XY 12"), [&joined](bool ok) { joined = ok; });
    QTRY_VERIFY_WITH_TIMEOUT(joined.has_value(), 5000);
    QTRY_COMPARE_WITH_TIMEOUT(m_server->requests().size(), paths.size(), 5000);
    QCOMPARE(*joined, status == 200);
    QCOMPARE(changed.size(), groupChanges);
    QStringList seen;
    for (const RecordedRequest &r : m_server->requests())
        seen << r.path;
    QCOMPARE(seen, paths);
    // The new token brings the new group's claims.
    if (groupChanges)
        QTRY_COMPARE_WITH_TIMEOUT(decodeClaims(m_tokens->accessToken()).group_id, QStringLiteral("g1"), 5000);
}

QTEST_GUILESS_MAIN(TstAccountClient)
#include "tst_accountclient.moc"
