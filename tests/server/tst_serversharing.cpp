#include "support/TestServer.h"

#include <QTest>

namespace {

QJsonObject change(const char *type, const char *id, qint64 version, const char *payload)
{
    return TestServer::change(type, id, version, TestServer::json(payload));
}

} // namespace

// Ann owns the account "joint" and shares it with Bob; Cleo is in the group without the share; Dan
// had the share and lost it; Eve is in no group.
class TstServerSharing : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_server = std::make_unique<TestServer>();
        QVERIFY(m_server->start());
        for (const char *name : {"ann", "bob", "cleo", "dan", "eve"})
            m_users[name] = m_server->signUp(name + QStringLiteral("@example.org"));
        for (const char *member : {"bob", "cleo", "dan"})
            QVERIFY(m_server->joinGroup(m_users["ann"], m_users[member]));
        const QJsonArray rows{
            change("account", "joint", 4, R"({"name":"Joint","is_shared":0})"),
            change("account", "private", 1, R"({"name":"Private"})"),
            change("category", "pets", 1, R"({"name":"Pets","category_type":"expense"})"),
            change("recurring", "rent", 1, R"({"account_id":"joint","amount":-90000})"),
            change("transaction", "vet", 1, R"({"account_id":"joint","amount":-4000,"category_id":"pets"})"),
            change("transaction", "secret", 1, R"({"account_id":"private","amount":-1})"),
            change("reconciliation", "march", 1, R"({"account_id":"joint","statement_date":"2025-03-31"})"),
        };
        QCOMPARE(m_server->push(m_users["ann"], rows).size(), rows.size());
        const QString token = m_users["ann"].accessToken;
        for (const char *member : {"bob", "dan"})
            QCOMPARE(m_server
                         ->post("/ombrel/v1/accounts/joint/share",
                                {
                                    {"user_id", m_users[member].id}
            },
                                token)
                         .status,
                     200);
        QCOMPARE(m_server->del("/ombrel/v1/accounts/joint/share/" + m_users["dan"].id, token).status, 204);
    }

    void memberReceivesTheSharedAccount()
    {
        const PulledRows bob = m_server->pullAll(m_users["bob"]);
        QVERIFY(bob.ok);
        QCOMPARE(bob.orphans, QStringList());
        QStringList keys = bob.rows.keys();
        keys.sort();
        QCOMPARE(keys, (QStringList{"accounts/joint", "categories/pets", "reconciliations/march",
                                    "recurring_transactions/rent", "transactions/vet"}));
        QCOMPARE(bob.rows["accounts/joint"]["is_shared"].toInt(), 1);
        // The owner's devices take the flag: the server raised the version.
        const PulledRows annFirst = m_server->pullAll(m_users["ann"]);
        const QJsonObject joint = annFirst.rows["accounts/joint"];
        QCOMPARE(joint["is_shared"].toInt(), 1);
        QVERIFY(joint["version"].toInteger() > 4);
        const QJsonArray members =
            m_server->get("/ombrel/v1/accounts/joint/members", m_users["bob"].accessToken)
                .json["members"]
                .toArray();
        QCOMPARE(members.size(), 2);
        QCOMPARE(members[0]["role"].toString(), QStringLiteral("owner"));
        QCOMPARE(members[1]["email"].toString(), QStringLiteral("bob@example.org"));

        // Bob adds and edits in the shared account; Ann's devices get both.
        const QJsonArray results = m_server->push(
            m_users["bob"], {change("transaction", "bob-new", 1, R"({"account_id":"joint","amount":-250})"),
                             change("transaction", "vet", 1,
                                    R"({"account_id":"joint","amount":-4500,"category_id":"pets"})")});
        QCOMPARE(results[0]["status"].toString() + results[1]["status"].toString(), QStringLiteral("okok"));
        PulledRows ann = m_server->pullAll(m_users["ann"], 200, &annFirst);
        QCOMPARE(ann.rows["transactions/bob-new"]["amount"].toInt(), -250);
        QCOMPARE(ann.rows["transactions/vet"]["amount"].toInt(), -4500);
        QVERIFY(!m_server->pullAll(m_users["bob"]).rows.contains("accounts/private"));
    }

    void withdrawalStopsBothWays()
    {
        const TestUser &ann = m_users["ann"], &bob = m_users["bob"];
        const PulledRows bobBefore = m_server->pullAll(bob);
        QCOMPARE(m_server->del("/ombrel/v1/accounts/joint/share/" + bob.id, ann.accessToken).status, 204);
        m_server->push(ann, {change("transaction", "after", 1, R"({"account_id":"joint"})")});
        const PulledRows seen = m_server->pullAll(bob, 200, &bobBefore);
        QVERIFY(seen.ok);
        QCOMPARE(seen.rows.keys(), QStringList());
        const QJsonArray refused =
            m_server->push(bob, {change("transaction", "vet", 9, R"({"account_id":"joint","amount":0})")});
        QCOMPARE(refused[0]["status"].toString(), QStringLiteral("forbidden"));
        const PulledRows annRows = m_server->pullAll(ann);
        QCOMPARE(annRows.rows["accounts/joint"]["is_shared"].toInt(), 0);
        QCOMPARE(annRows.rows["transactions/vet"]["amount"].toInt(), -4000);
    }

    void nobodyElseReadsOrChanges_data()
    {
        QTest::addColumn<QString>("who");
        QTest::newRow("outsider") << "eve";
        QTest::newRow("group member without the share") << "cleo";
        QTest::newRow("member after withdrawal") << "dan";
    }

    void nobodyElseReadsOrChanges()
    {
        QFETCH(QString, who);
        const TestUser &actor = m_users[who];
        const PulledRows annBefore = m_server->pullAll(m_users["ann"]);
        const PulledRows seen = m_server->pullAll(actor);
        QVERIFY(seen.ok);
        QCOMPARE(seen.rows.keys(), QStringList());
        for (const QString account : {"joint", "private"}) {
            const QString path = "/ombrel/v1/accounts/" + account;
            QCOMPARE(m_server->get(path + "/members", actor.accessToken).status, 404);
            QCOMPARE(m_server
                         ->post(path + "/share",
                                {
                                    {"user_id", actor.id}
            },
                                actor.accessToken)
                         .status,
                     404);
            QCOMPARE(m_server->del(path + "/share/" + m_users["bob"].id, actor.accessToken).status, 404);
        }
        // Guessed ids in every kind of change: refused, or kept as the actor's own rows; never Ann's.
        m_server->push(actor, {change("account", "joint", 99, R"({"name":"Mine"})"),
                               change("transaction", "vet", 99, R"({"account_id":"joint","amount":1})"),
                               change("transaction", "secret", 99, R"({"account_id":"joint","amount":1})"),
                               change("transaction", "new", 1, R"({"account_id":"joint"})"),
                               change("reconciliation", "march", 99, R"({"account_id":"joint"})"),
                               change("category", "pets", 99, R"({"name":"Mine"})")});
        QCOMPARE(m_server->pullAll(m_users["ann"], 200, &annBefore).rows.keys(), QStringList());
        QCOMPARE(m_server->pullAll(m_users["ann"]).rows, annBefore.rows);
        QCOMPARE(m_server->pullAll(m_users["bob"]).rows["transactions/vet"]["amount"].toInt(), -4000);
    }

private:
    std::unique_ptr<TestServer> m_server;
    QHash<QString, TestUser> m_users;
};

QTEST_GUILESS_MAIN(TstServerSharing)
#include "tst_serversharing.moc"
