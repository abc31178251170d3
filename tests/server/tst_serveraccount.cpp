#include "support/TestServer.h"

#include <QDir>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

class TstServerAccount : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_server = std::make_unique<TestServer>();
        QVERIFY(m_server->start());
        m_ann = m_server->signUp("ann@example.org");
        m_bob = m_server->signUp("bob@example.org");
        m_cleo = m_server->signUp("cleo@example.org");
        QVERIFY(!m_cleo.id.isEmpty());
    }

    void inviterBecomesOwner()
    {
        QCOMPARE(m_server->get("/account/v1/group", m_ann.accessToken).status, 404);
        QVERIFY(!profile(m_ann).contains("group"));
        QVERIFY(m_server->joinGroup(m_ann, m_bob));
        const QJsonObject annGroup = profile(m_ann)["group"].toObject();
        QCOMPARE(annGroup["role"].toString(), QStringLiteral("owner"));
        QCOMPARE(annGroup["member_count"].toInt(), 2);
        const QJsonObject group = m_server->get("/account/v1/group", m_bob.accessToken).json;
        QCOMPARE(group["id"], annGroup["id"]);
        QCOMPARE(group["members"].toArray().size(), 2);
        QCOMPARE(group["members"][1]["role"].toString(), QStringLiteral("member"));
        // A member can neither invite nor see the owner's codes.
        QCOMPARE(m_server->post("/account/v1/group/invite", {}, m_bob.accessToken).status, 403);
        m_server->post("/account/v1/group/invite", {}, m_ann.accessToken);
        QCOMPARE(m_server->get("/account/v1/group", m_bob.accessToken)
                     .json["pending_invitations"]
                     .toArray()
                     .size(),
                 0);
        QCOMPARE(m_server->get("/account/v1/group", m_ann.accessToken)
                     .json["pending_invitations"]
                     .toArray()
                     .size(),
                 1);
    }

    void joining_data()
    {
        QTest::addColumn<QString>("invitedEmail");
        QTest::addColumn<QString>("tamper"); // a statement run on the invitation before joining
        QTest::addColumn<int>("status");
        // clang-format off
        QTest::newRow("code")                   << QString()          << QString() << 200;
        QTest::newRow("e-mail of the joiner")   << "CLEO@example.org" << QString() << 200;
        QTest::newRow("e-mail of someone else") << "bob@example.org"  << QString() << 403;
        QTest::newRow("expired") << QString() << "UPDATE invitations SET expires_at = '2020-01-01T00:00:00Z'" << 404;
        QTest::newRow("used")    << QString() << "UPDATE invitations SET status = 'accepted'" << 404;
        QTest::newRow("cancelled") << QString() << "cancel" << 404;
        // clang-format on
    }

    void joining()
    {
        QFETCH(QString, invitedEmail);
        QFETCH(QString, tamper);
        QFETCH(int, status);
        const QJsonObject body = invitedEmail.isEmpty() ? QJsonObject()
                                                        : QJsonObject{
                                                              {"email", invitedEmail}
        };
        const HttpResult invitation = m_server->post("/account/v1/group/invite", body, m_ann.accessToken);
        QCOMPARE(invitation.status, 201);
        if (tamper == "cancel") {
            const QString path = "/account/v1/group/invitations/" + invitation.json["id"].toString();
            QCOMPARE(m_server->del(path, m_ann.accessToken).status, 204);
        } else if (!tamper.isEmpty()) {
            // Straight on the server's file, for states a test cannot wait for.
            {
                QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "direct");
                db.setDatabaseName(QDir(m_server->dataDir()).filePath("server.db"));
                QVERIFY(db.open());
                QVERIFY(QSqlQuery(db).exec(tamper));
            }
            QSqlDatabase::removeDatabase("direct");
        }
        const QString code = invitation.json["invite_code"].toString().toLower();
        QCOMPARE(m_server->post("/account/v1/group/join/" + code, {}, m_cleo.accessToken).status, status);
        QCOMPARE(m_server->get("/account/v1/group", m_cleo.accessToken).status, status == 200 ? 200 : 404);
    }

    void ownerRemovesAndLeaves()
    {
        QVERIFY(m_server->joinGroup(m_ann, m_bob));
        QVERIFY(m_server->joinGroup(m_ann, m_cleo));
        QCOMPARE(m_server->del("/account/v1/group/members/" + m_cleo.id, m_bob.accessToken).status, 403);
        m_server->push(m_ann, {
                                  TestServer::change("account", "joint", 1, {{"name", "Joint"}}
                                     )
        });
        const QJsonObject share{
            {"user_id", "cleo@example.org"}
        };
        QCOMPARE(m_server->post("/ombrel/v1/accounts/joint/share", share, m_ann.accessToken).status, 200);
        QCOMPARE(m_server->del("/account/v1/group/members/" + m_cleo.id, m_ann.accessToken).status, 204);
        QCOMPARE(m_server->get("/account/v1/group", m_cleo.accessToken).status, 404);
        // Out of the group, out of its shares.
        QCOMPARE(m_server->get("/ombrel/v1/accounts/joint/members", m_cleo.accessToken).status, 404);
        QCOMPARE(m_server->pullAll(m_ann).rows["accounts/joint"]["is_shared"].toInt(), 0);

        QCOMPARE(m_server->post("/account/v1/group/leave", {}, m_ann.accessToken).status, 204);
        const QJsonObject bobGroup = profile(m_bob)["group"].toObject();
        QCOMPARE(bobGroup["role"].toString(), QStringLiteral("owner"));
        QCOMPARE(bobGroup["member_count"].toInt(), 1);
    }

    void devicesOnePerFingerprint()
    {
        const QString path = "/account/v1/devices";
        for (const char *device : {R"({"device_fingerprint":"f-1","device_name":"Laptop"})",
                                   R"({"device_fingerprint":"f-1","device_name":"Laptop renamed"})",
                                   R"({"device_fingerprint":"f-2","device_name":"Desk"})"})
            m_server->post(path + "/register", TestServer::json(device), m_ann.accessToken);
        const QJsonArray devices = m_server->get(path, m_ann.accessToken).json["devices"].toArray();
        QCOMPARE(devices.size(), 2);
        QCOMPARE(devices[0]["device_name"].toString(), QStringLiteral("Laptop renamed"));
        const QString id = devices[0]["id"].toString();
        QCOMPARE(m_server->del(path + "/" + id, m_bob.accessToken).status, 404);
        QCOMPARE(m_server->del(path + "/" + id, m_ann.accessToken).status, 204);
        QCOMPARE(m_server->get(path, m_ann.accessToken).json["devices"].toArray().size(), 1);
    }

    void deletionIsScheduled()
    {
        const HttpResult r = m_server->del("/account/v1/profile", m_ann.accessToken);
        QCOMPARE(r.status, 200);
        const QDateTime when = QDateTime::fromString(r.json["deletion_scheduled_at"].toString(), Qt::ISODate);
        QCOMPARE(when.date(), QDateTime::currentDateTimeUtc().addDays(30).date());
        QCOMPARE(profile(m_ann)["status"].toString(), QStringLiteral("pending_deletion"));
        // Signing in during the grace period keeps the account.
        QCOMPARE(profile(m_server->signIn("ann@example.org"))["status"].toString(), QStringLiteral("active"));
    }

private:
    QJsonObject profile(const TestUser &user)
    {
        return m_server->get("/account/v1/profile", user.accessToken).json;
    }

    std::unique_ptr<TestServer> m_server;
    TestUser m_ann, m_bob, m_cleo;
};

QTEST_GUILESS_MAIN(TstServerAccount)
#include "tst_serveraccount.moc"
