#include "support/TestServer.h"

#include <QDir>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

class TstServerAccount : public QObject {
    Q_OBJECT

private slots:
    void init();
    void inviterBecomesOwner();
    void joining_data();
    void joining();
    void ownerRemovesAndLeaves();
    void devicesOnePerFingerprint();
    void deletionIsScheduled();

private:
    // Runs one statement on the server's own file, for states a test cannot wait for.
    void execOnServerFile(const QString &sql);

    std::unique_ptr<TestServer> m_server;
    TestUser m_ann, m_bob, m_cleo;
};

void TstServerAccount::init()
{
    m_server = std::make_unique<TestServer>();
    QVERIFY(m_server->start());
    m_ann = m_server->signUp("ann@example.org");
    m_bob = m_server->signUp("bob@example.org");
    m_cleo = m_server->signUp("cleo@example.org");
    QVERIFY(!m_cleo.id.isEmpty());
}

void TstServerAccount::execOnServerFile(const QString &sql)
{
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "direct");
        db.setDatabaseName(QDir(m_server->dataDir()).filePath("server.db"));
        QVERIFY(db.open());
        QSqlQuery q(db);
        QVERIFY(q.exec(sql));
    }
    QSqlDatabase::removeDatabase("direct");
}

void TstServerAccount::inviterBecomesOwner()
{
    QCOMPARE(m_server->get("/account/v1/group", m_ann.accessToken).status, 404);
    QVERIFY(!m_server->get("/account/v1/profile", m_ann.accessToken).json.contains("group"));
    QVERIFY(m_server->joinGroup(m_ann, m_bob));
    const QJsonObject annGroup =
        m_server->get("/account/v1/profile", m_ann.accessToken).json.value("group").toObject();
    QCOMPARE(annGroup.value("role").toString(), QStringLiteral("owner"));
    QCOMPARE(annGroup.value("member_count").toInt(), 2);
    const QJsonObject group = m_server->get("/account/v1/group", m_bob.accessToken).json;
    QCOMPARE(group.value("id").toString(), annGroup.value("id").toString());
    QCOMPARE(group.value("members").toArray().size(), 2);
    QCOMPARE(group.value("members").toArray().at(1)["role"].toString(), QStringLiteral("member"));
    // A member can neither invite nor see the owner's codes.
    QCOMPARE(m_server->post("/account/v1/group/invite", {}, m_bob.accessToken).status, 403);
    m_server->post("/account/v1/group/invite", {}, m_ann.accessToken);
    QCOMPARE(m_server->get("/account/v1/group", m_bob.accessToken)
                 .json.value("pending_invitations")
                 .toArray()
                 .size(),
             0);
    QCOMPARE(m_server->get("/account/v1/group", m_ann.accessToken)
                 .json.value("pending_invitations")
                 .toArray()
                 .size(),
             1);
}

void TstServerAccount::joining_data()
{
    QTest::addColumn<QString>("invitedEmail");
    QTest::addColumn<QString>("tamper"); // a statement run on the invitation before joining
    QTest::addColumn<int>("status");
    QTest::newRow("code") << QString() << QString() << 200;
    QTest::newRow("e-mail of the joiner") << "CLEO@example.org" << QString() << 200;
    QTest::newRow("e-mail of someone else") << "bob@example.org" << QString() << 403;
    QTest::newRow("expired") << QString() << "UPDATE invitations SET expires_at = '2020-01-01T00:00:00Z'"
                             << 404;
    QTest::newRow("used") << QString() << "UPDATE invitations SET status = 'accepted'" << 404;
    QTest::newRow("cancelled") << QString() << "cancel" << 404;
}

void TstServerAccount::joining()
{
    QFETCH(QString, invitedEmail);
    QFETCH(QString, tamper);
    QFETCH(int, status);
    QJsonObject body;
    if (!invitedEmail.isEmpty())
        body.insert("email", invitedEmail);
    const HttpResult invitation = m_server->post("/account/v1/group/invite", body, m_ann.accessToken);
    QCOMPARE(invitation.status, 201);
    if (tamper == QLatin1String("cancel"))
        QCOMPARE(m_server
                     ->del("/account/v1/group/invitations/" + invitation.json.value("id").toString(),
                           m_ann.accessToken)
                     .status,
                 204);
    else if (!tamper.isEmpty())
        execOnServerFile(tamper);
    const QString code = invitation.json.value("invite_code").toString();
    QCOMPARE(m_server->post("/account/v1/group/join/" + code.toLower(), {}, m_cleo.accessToken).status,
             status);
    QCOMPARE(m_server->get("/account/v1/group", m_cleo.accessToken).status, status == 200 ? 200 : 404);
}

void TstServerAccount::ownerRemovesAndLeaves()
{
    QVERIFY(m_server->joinGroup(m_ann, m_bob));
    QVERIFY(m_server->joinGroup(m_ann, m_cleo));
    QCOMPARE(m_server->del("/account/v1/group/members/" + m_cleo.id, m_bob.accessToken).status, 403);
    m_server->push(m_ann, {
                              TestServer::change("account", "joint", 1, {{"name", "Joint"}}
                                 )
    });
    QCOMPARE(m_server
                 ->post("/ombrel/v1/accounts/joint/share",
                        {
                            {"user_id", "cleo@example.org"}
    },
                        m_ann.accessToken)
                 .status,
             200);
    QCOMPARE(m_server->del("/account/v1/group/members/" + m_cleo.id, m_ann.accessToken).status, 204);
    QCOMPARE(m_server->get("/account/v1/group", m_cleo.accessToken).status, 404);
    // Out of the group, out of its shares.
    QCOMPARE(m_server->get("/ombrel/v1/accounts/joint/members", m_cleo.accessToken).status, 404);
    QCOMPARE(m_server->pullAll(m_ann).rows.value("accounts/joint").value("is_shared").toInt(), 0);

    QCOMPARE(m_server->post("/account/v1/group/leave", {}, m_ann.accessToken).status, 204);
    const QJsonObject bobGroup =
        m_server->get("/account/v1/profile", m_bob.accessToken).json.value("group").toObject();
    QCOMPARE(bobGroup.value("role").toString(), QStringLiteral("owner"));
    QCOMPARE(bobGroup.value("member_count").toInt(), 1);
}

void TstServerAccount::devicesOnePerFingerprint()
{
    const QString path = "/account/v1/devices";
    for (const char *name : {"Laptop", "Laptop renamed"})
        m_server->post(path + "/register",
                       {
                           {"device_fingerprint", "f-1"},
                           {"device_name",        name }
        },
                       m_ann.accessToken);
    m_server->post(path + "/register",
                   {
                       {"device_fingerprint", "f-2" },
                       {"device_name",        "Desk"}
    },
                   m_ann.accessToken);
    const QJsonArray devices = m_server->get(path, m_ann.accessToken).json.value("devices").toArray();
    QCOMPARE(devices.size(), 2);
    QCOMPARE(devices.at(0)["device_name"].toString(), QStringLiteral("Laptop renamed"));
    const QString id = devices.at(0)["id"].toString();
    QCOMPARE(m_server->del(path + "/" + id, m_bob.accessToken).status, 404);
    QCOMPARE(m_server->del(path + "/" + id, m_ann.accessToken).status, 204);
    QCOMPARE(m_server->get(path, m_ann.accessToken).json.value("devices").toArray().size(), 1);
}

void TstServerAccount::deletionIsScheduled()
{
    const HttpResult r = m_server->del("/account/v1/profile", m_ann.accessToken);
    QCOMPARE(r.status, 200);
    const QDateTime when =
        QDateTime::fromString(r.json.value("deletion_scheduled_at").toString(), Qt::ISODate);
    QCOMPARE(when.date(), QDateTime::currentDateTimeUtc().addDays(30).date());
    QCOMPARE(m_server->get("/account/v1/profile", m_ann.accessToken).json.value("status").toString(),
             QStringLiteral("pending_deletion"));
    // Signing in during the grace period keeps the account.
    const TestUser again = m_server->signIn("ann@example.org");
    QCOMPARE(m_server->get("/account/v1/profile", again.accessToken).json.value("status").toString(),
             QStringLiteral("active"));
}

QTEST_GUILESS_MAIN(TstServerAccount)
#include "tst_serveraccount.moc"
