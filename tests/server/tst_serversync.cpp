#include "support/TestServer.h"

#include <QJsonDocument>
#include <QTest>

namespace {

QJsonObject account(const QString &id, qint64 version = 1, const QString &name = QStringLiteral("Cash"))
{
    const QString row = R"({"name":"%1","account_type":"checking","currency":"USD","is_shared":0,)"
                        R"("starting_balance":0,"updated_at":"2025-01-01T00:00:00Z"})";
    return TestServer::change("account", id, version, TestServer::json(row.arg(name)));
}

QJsonObject transaction(const QString &id, const QString &accountId, qint64 amount,
                        const QString &category = {})
{
    const QString row = R"({"account_id":"%1","date":"2025-01-02","payee":"Grocer","amount":%2,)"
                        R"("category_id":"%3","cleared":0,"updated_at":"2025-01-02T10:00:00Z"})";
    return TestServer::change("transaction", id, 1,
                              TestServer::json(row.arg(accountId).arg(amount).arg(category)));
}

} // namespace

class TstServerSync : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_server = std::make_unique<TestServer>();
        QVERIFY(m_server->start());
        m_ann = m_server->signUp(QStringLiteral("ann@example.org"));
        QVERIFY(!m_ann.id.isEmpty());
    }

    void versionRule_data()
    {
        QTest::addColumn<qint64>("pushed");
        QTest::addColumn<bool>("stored");
        QTest::newRow("older") << qint64(2) << false;
        QTest::newRow("same") << qint64(3) << true;
        QTest::newRow("newer") << qint64(4) << true;
    }

    void versionRule()
    {
        QFETCH(qint64, pushed);
        QFETCH(bool, stored);
        QCOMPARE(m_server->push(m_ann, {account("a-1", 3, "First")}).at(0)["status"].toString(),
                 QStringLiteral("ok"));
        const QJsonValue result = m_server->push(m_ann, {account("a-1", pushed, "Second")}).at(0);
        QCOMPARE(result["status"].toString() == "ok", stored);
        QCOMPARE(result["entity_id"].toString(), QStringLiteral("a-1"));
        QVERIFY(stored || !result["message"].toString().isEmpty());
        const QJsonObject row = m_server->pullAll(m_ann).rows["accounts/a-1"];
        QCOMPARE(row["name"].toString(), stored ? QStringLiteral("Second") : QStringLiteral("First"));
        QCOMPARE(row["version"].toInteger(), stored ? pushed : 3);
    }

    void repeatedPushIsStoredOnce()
    {
        const QJsonArray changes{account("a-1"), transaction("t-1", "a-1", -500)};
        const QJsonArray first = m_server->push(m_ann, changes);
        const PulledRows before = m_server->pullAll(m_ann);
        // The network stack sends the same request again after a dropped connection.
        QCOMPARE(m_server->push(m_ann, changes), first);
        const PulledRows after = m_server->pullAll(m_ann, 200, &before);
        QVERIFY(after.ok);
        QVERIFY2(after.rows.isEmpty(), "a repeated push must not look like a new change");
    }

    void rowsAreKeptPerUser()
    {
        // The seeded categories have one id on every device of every user.
        const TestUser bob = m_server->signUp(QStringLiteral("bob@example.org"));
        const QString groceries = R"({"name":"%1","category_type":"expense","is_default":1})";
        for (const auto &[user, name] : {
                 std::pair{m_ann, "Groceries"},
                 std::pair{bob,   "Food"     }
        }) {
            const QJsonObject row =
                TestServer::change("category", "seeded-1", 1, TestServer::json(groceries.arg(name)));
            QCOMPARE(m_server->push(user, {row}).at(0)["status"].toString(), QStringLiteral("ok"));
        }
        QCOMPARE(m_server->pullAll(m_ann).rows["categories/seeded-1"]["name"].toString(),
                 QStringLiteral("Groceries"));
        QCOMPARE(m_server->pullAll(bob).rows["categories/seeded-1"]["name"].toString(),
                 QStringLiteral("Food"));
    }

    void manyRowsInOneInstant()
    {
        QJsonArray changes{account("a-1")};
        for (int i = 0; i < 250; ++i)
            changes.append(transaction(QStringLiteral("t-%1").arg(i), "a-1", -i));
        QCOMPARE(m_server->push(m_ann, changes).size(), 251);
        const PulledRows pulled = m_server->pullAll(m_ann, 100);
        QVERIFY(pulled.ok);
        QCOMPARE(pulled.pages, 3);
        QCOMPARE(pulled.rows.size(), 251);
        QCOMPARE(pulled.orphans, QStringList());
        // The cursor reads as a date-time, for the program's "Last synced".
        QVERIFY(QDateTime::fromString(pulled.cursor, Qt::ISODate).isValid());
    }

    void pagesKeepParentsAheadOfChildren()
    {
        // Children first written, then their parents edited: by change number every parent now stands
        // behind its children, which is what page boundaries must survive.
        QJsonArray parents;
        for (int a = 0; a < 10; ++a)
            parents.append(account(QStringLiteral("a-%1").arg(a)));
        for (int c = 0; c < 20; ++c) {
            const QString parent = c < 5 ? QString() : QStringLiteral("c-%1").arg(c % 5);
            const QString row = R"({"name":"Category","category_type":"expense","parent_id":"%1"})";
            parents.append(TestServer::change("category", QStringLiteral("c-%1").arg(c), 1,
                                              TestServer::json(row.arg(parent))));
        }
        QCOMPARE(m_server->push(m_ann, parents).size(), 30);
        for (int batch = 0; batch < 2; ++batch) {
            QJsonArray children;
            for (int n = batch * 485; n < (batch + 1) * 485; ++n)
                children.append(transaction(QStringLiteral("t-%1").arg(n), QStringLiteral("a-%1").arg(n % 10),
                                            -n, QStringLiteral("c-%1").arg(n % 20)));
            QCOMPARE(m_server->push(m_ann, children).size(), 485);
        }
        QJsonArray edits;
        for (const QJsonValue &p : std::as_const(parents)) {
            QJsonObject edit = p.toObject();
            edit.insert("version", 2);
            edits.append(edit);
        }
        m_server->push(m_ann, edits);

        for (int limit : {7, 200}) {
            const PulledRows pulled = m_server->pullAll(m_ann, limit);
            QVERIFY(pulled.ok);
            QCOMPARE(pulled.rows.size(), 1000);
            QCOMPARE(pulled.orphans, QStringList());
            QCOMPARE(pulled.rows["accounts/a-3"]["version"].toInteger(), 2);
        }
        // A device that is up to date gets only what changed since, and still no orphan.
        const PulledRows upToDate = m_server->pullAll(m_ann);
        m_server->push(m_ann, {transaction("t-new", "a-1", -1, "c-7")});
        const PulledRows next = m_server->pullAll(m_ann, 200, &upToDate);
        QCOMPARE(next.rows.keys(), QStringList{"transactions/t-new"});
        QCOMPARE(next.orphans, QStringList());
    }

    void badBodies_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("status");
        const QString push = QStringLiteral("/ombrel/v1/sync/push");
        const QString realm = QStringLiteral("/api/v1/realms/halcyra");
        const QByteArray big = "{\"changes\": [\"" + QByteArray(10 * 1024 * 1024, 'x') + "\"]}";
        // clang-format off
        QTest::newRow("not JSON")       << QByteArray("POST") << push << QByteArray("{\"changes\": [") << 400;
        QTest::newRow("array")          << QByteArray("POST") << push << QByteArray("[]") << 400;
        QTest::newRow("no body")        << QByteArray("POST") << push << QByteArray() << 400;
        QTest::newRow("changes object") << QByteArray("POST") << push << QByteArray(R"({"changes": {}})") << 400;
        QTest::newRow("changes text")   << QByteArray("POST") << push << QByteArray(R"({"changes": "x"})") << 400;
        QTest::newRow("10 MiB")         << QByteArray("POST") << push << big << 413;
        QTest::newRow("share array")    << QByteArray("POST") << "/ombrel/v1/accounts/a-1/share" << QByteArray("[1]") << 400;
        QTest::newRow("refresh number") << QByteArray("POST") << realm + "/auth/token/refresh"
                                        << QByteArray(R"({"refresh_token": 5})") << 400;
        QTest::newRow("device without fingerprint") << QByteArray("POST") << "/account/v1/devices/register"
                                                    << QByteArray(R"({"device_name": []})") << 400;
        QTest::newRow("name number")    << QByteArray("PATCH") << realm + "/users/me" << QByteArray(R"({"display_name": 3})") << 400;
        QTest::newRow("invite email array") << QByteArray("POST") << "/account/v1/group/invite"
                                            << QByteArray(R"({"email": ["x@y.z"]})") << 400;
        // clang-format on
    }

    void badBodies()
    {
        QFETCH(QByteArray, method);
        QFETCH(QString, path);
        QFETCH(QByteArray, body);
        m_server->push(m_ann, {account("a-1")});
        const HttpResult r = m_server->request(method, path, body, m_ann.accessToken);
        QTEST(r.status, "status");
        QVERIFY(!r.json["error"].toString().isEmpty());
        // Still serving, and nothing was lost.
        QCOMPARE(m_server->pullAll(m_ann).rows.keys(), QStringList{"accounts/a-1"});
    }

    void badChanges_data()
    {
        QTest::addColumn<QByteArray>("change");
        // clang-format off
        QTest::newRow("not an object")    << QByteArray("17");
        QTest::newRow("unknown type")     << QByteArray(R"({"entity_type":"split","entity_id":"x","action":"upsert","version":1,"payload":{}})");
        QTest::newRow("id number")        << QByteArray(R"({"entity_type":"account","entity_id":5,"action":"upsert","version":1,"payload":{}})");
        QTest::newRow("version text")     << QByteArray(R"({"entity_type":"account","entity_id":"x","action":"upsert","version":"1","payload":{}})");
        QTest::newRow("version fraction") << QByteArray(R"({"entity_type":"account","entity_id":"x","action":"upsert","version":1.5,"payload":{}})");
        QTest::newRow("unknown action")   << QByteArray(R"({"entity_type":"account","entity_id":"x","action":"merge","version":1,"payload":{}})");
        QTest::newRow("payload array")    << QByteArray(R"({"entity_type":"account","entity_id":"x","action":"upsert","version":1,"payload":[]})");
        QTest::newRow("no account")       << QByteArray(R"({"entity_type":"transaction","entity_id":"x","action":"upsert","version":1,"payload":{"amount":1}})");
        // clang-format on
    }

    void badChanges()
    {
        QFETCH(QByteArray, change);
        const QByteArray good = QJsonDocument(account("a-1")).toJson();
        const HttpResult r =
            m_server->request("POST", "/ombrel/v1/sync/push", "{\"changes\": [" + change + "," + good + "]}",
                              m_ann.accessToken);
        QCOMPARE(r.status, 200);
        const QJsonArray results = r.json["results"].toArray();
        QCOMPARE(results.size(), 2);
        QVERIFY(results[0]["status"].toString() != "ok");
        QVERIFY(!results[0]["message"].toString().isEmpty());
        QCOMPARE(results[1]["status"].toString(), QStringLiteral("ok"));
        QCOMPARE(m_server->pullAll(m_ann).rows.keys(), QStringList{"accounts/a-1"});
    }

private:
    std::unique_ptr<TestServer> m_server;
    TestUser m_ann;
};

QTEST_GUILESS_MAIN(TstServerSync)
#include "tst_serversync.moc"
