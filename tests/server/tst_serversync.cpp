#include "support/TestServer.h"

#include <QJsonDocument>
#include <QTest>

namespace {

QJsonObject account(const QString &name)
{
    return {
        {"name",             name                  },
        {"account_type",     "checking"            },
        {"currency",         "USD"                 },
        {"is_shared",        0                     },
        {"starting_balance", 0                     },
        {"updated_at",       "2025-01-01T00:00:00Z"}
    };
}

QJsonObject transaction(const QString &accountId, qint64 amount, const QString &categoryId = QString())
{
    return {
        {"account_id",  accountId             },
        {"date",        "2025-01-02"          },
        {"payee",       "Grocer"              },
        {"amount",      amount                },
        {"category_id", categoryId            },
        {"cleared",     0                     },
        {"updated_at",  "2025-01-02T10:00:00Z"}
    };
}

} // namespace

class TstServerSync : public QObject {
    Q_OBJECT

private slots:
    void init();
    void versionRule_data();
    void versionRule();
    void repeatedPushIsStoredOnce();
    void rowsAreKeptPerUser();
    void manyRowsInOneInstant();
    void pagesKeepParentsAheadOfChildren();
    void badBodies_data();
    void badBodies();
    void badChanges_data();
    void badChanges();

private:
    std::unique_ptr<TestServer> m_server;
    TestUser m_ann;
};

void TstServerSync::init()
{
    m_server = std::make_unique<TestServer>();
    QVERIFY(m_server->start());
    m_ann = m_server->signUp(QStringLiteral("ann@example.org"));
    QVERIFY(!m_ann.id.isEmpty());
}

void TstServerSync::versionRule_data()
{
    QTest::addColumn<qint64>("pushed");
    QTest::addColumn<bool>("stored");
    QTest::newRow("older") << qint64(2) << false;
    QTest::newRow("same") << qint64(3) << true;
    QTest::newRow("newer") << qint64(4) << true;
}

void TstServerSync::versionRule()
{
    QFETCH(qint64, pushed);
    QFETCH(bool, stored);
    QCOMPARE(m_server->push(m_ann, {TestServer::change("account", "a-1", 3, account("First"))})
                 .at(0)
                 .toObject()
                 .value("status")
                 .toString(),
             QStringLiteral("ok"));
    const QJsonObject result =
        m_server->push(m_ann, {TestServer::change("account", "a-1", pushed, account("Second"))})
            .at(0)
            .toObject();
    QCOMPARE(result.value("status").toString() == QLatin1String("ok"), stored);
    QCOMPARE(result.value("entity_id").toString(), QStringLiteral("a-1"));
    if (!stored)
        QVERIFY(!result.value("message").toString().isEmpty());
    const QJsonObject row = m_server->pullAll(m_ann).rows.value("accounts/a-1");
    QCOMPARE(row.value("name").toString(), stored ? QStringLiteral("Second") : QStringLiteral("First"));
    QCOMPARE(row.value("version").toInteger(), stored ? pushed : 3);
}

void TstServerSync::repeatedPushIsStoredOnce()
{
    const QJsonArray changes{TestServer::change("account", "a-1", 1, account("Cash")),
                             TestServer::change("transaction", "t-1", 1, transaction("a-1", -500))};
    const QJsonArray first = m_server->push(m_ann, changes);
    const PulledRows before = m_server->pullAll(m_ann);
    // The network stack sends the same request again after a dropped connection.
    const QJsonArray second = m_server->push(m_ann, changes);
    QCOMPARE(second, first);
    const PulledRows after = m_server->pullAll(m_ann, 200, &before);
    QVERIFY(after.ok);
    QVERIFY2(after.rows.isEmpty(), "a repeated push must not look like a new change");
}

void TstServerSync::rowsAreKeptPerUser()
{
    // The seeded categories have one id on every device of every user.
    const TestUser bob = m_server->signUp(QStringLiteral("bob@example.org"));
    const QJsonObject groceries{
        {"name",          "Groceries"},
        {"category_type", "expense"  },
        {"is_default",    1          }
    };
    QCOMPARE(m_server->push(m_ann, {TestServer::change("category", "seeded-1", 1, groceries)})
                 .at(0)["status"]
                 .toString(),
             QStringLiteral("ok"));
    QJsonObject renamed = groceries;
    renamed.insert("name", "Food");
    QCOMPARE(m_server->push(bob, {TestServer::change("category", "seeded-1", 1, renamed)})
                 .at(0)["status"]
                 .toString(),
             QStringLiteral("ok"));
    QCOMPARE(m_server->pullAll(m_ann).rows.value("categories/seeded-1").value("name").toString(),
             QStringLiteral("Groceries"));
    QCOMPARE(m_server->pullAll(bob).rows.value("categories/seeded-1").value("name").toString(),
             QStringLiteral("Food"));
}

void TstServerSync::manyRowsInOneInstant()
{
    QJsonArray changes{TestServer::change("account", "a-1", 1, account("Cash"))};
    for (int i = 0; i < 250; ++i)
        changes.append(
            TestServer::change("transaction", QStringLiteral("t-%1").arg(i), 1, transaction("a-1", -i)));
    QCOMPARE(m_server->push(m_ann, changes).size(), 251);
    const PulledRows pulled = m_server->pullAll(m_ann, 100);
    QVERIFY(pulled.ok);
    QCOMPARE(pulled.pages, 3);
    QCOMPARE(pulled.rows.size(), 251);
    QCOMPARE(pulled.orphans, QStringList());
    // The cursor reads as a date-time, for the program's "Last synced".
    QVERIFY(QDateTime::fromString(pulled.cursor, Qt::ISODate).isValid());
}

void TstServerSync::pagesKeepParentsAheadOfChildren()
{
    // Children first written, then their parents edited: by change number every parent now stands
    // behind its children, which is what page boundaries must survive.
    QJsonArray parents;
    for (int a = 0; a < 10; ++a)
        parents.append(TestServer::change("account", QStringLiteral("a-%1").arg(a), 1, account("Account")));
    for (int c = 0; c < 20; ++c) {
        const QString parent = c < 5 ? QString() : QStringLiteral("c-%1").arg(c % 5);
        parents.append(TestServer::change(
            "category", QStringLiteral("c-%1").arg(c), 1,
            {
                {"name",          "Category"},
                {"category_type", "expense" },
                {"parent_id",     parent    }
        }));
    }
    QCOMPARE(m_server->push(m_ann, parents).size(), 30);
    for (int batch = 0; batch < 2; ++batch) {
        QJsonArray children;
        for (int i = 0; i < 485; ++i) {
            const int n = batch * 485 + i;
            children.append(TestServer::change(
                "transaction", QStringLiteral("t-%1").arg(n), 1,
                transaction(QStringLiteral("a-%1").arg(n % 10), -n, QStringLiteral("c-%1").arg(n % 20))));
        }
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
        QCOMPARE(pulled.rows.value("accounts/a-3").value("version").toInteger(), 2);
    }

    // A device that is up to date gets only what changed since, and still no orphan.
    const PulledRows upToDate = m_server->pullAll(m_ann);
    m_server->push(m_ann, {TestServer::change("transaction", "t-new", 1, transaction("a-1", -1, "c-7"))});
    const PulledRows next = m_server->pullAll(m_ann, 200, &upToDate);
    QCOMPARE(next.rows.keys(), QStringList{"transactions/t-new"});
}

void TstServerSync::badBodies_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");
    const QString push = QStringLiteral("/ombrel/v1/sync/push");
    QTest::newRow("not JSON") << QByteArray("POST") << push << QByteArray("{\"changes\": [") << 400;
    QTest::newRow("array") << QByteArray("POST") << push << QByteArray("[]") << 400;
    QTest::newRow("no body") << QByteArray("POST") << push << QByteArray() << 400;
    QTest::newRow("changes object") << QByteArray("POST") << push << QByteArray(R"({"changes": {}})") << 400;
    QTest::newRow("changes text") << QByteArray("POST") << push << QByteArray(R"({"changes": "x"})") << 400;
    QTest::newRow("10 MiB") << QByteArray("POST") << push
                            << QByteArray(R"({"changes": [")") + QByteArray(10 * 1024 * 1024, 'x') + "\"]}"
                            << 413;
    QTest::newRow("share array") << QByteArray("POST") << QStringLiteral("/ombrel/v1/accounts/a-1/share")
                                 << QByteArray("[1]") << 400;
    QTest::newRow("refresh number") << QByteArray("POST")
                                    << QStringLiteral("/api/v1/realms/halcyra/auth/token/refresh")
                                    << QByteArray(R"({"refresh_token": 5})") << 400;
    QTest::newRow("device without fingerprint")
        << QByteArray("POST") << QStringLiteral("/account/v1/devices/register")
        << QByteArray(R"({"device_name": []})") << 400;
    QTest::newRow("name number") << QByteArray("PATCH") << QStringLiteral("/api/v1/realms/halcyra/users/me")
                                 << QByteArray(R"({"display_name": 3})") << 400;
    QTest::newRow("invite email array") << QByteArray("POST") << QStringLiteral("/account/v1/group/invite")
                                        << QByteArray(R"({"email": ["x@y.z"]})") << 400;
}

void TstServerSync::badBodies()
{
    QFETCH(QByteArray, method);
    QFETCH(QString, path);
    QFETCH(QByteArray, body);
    QFETCH(int, status);
    m_server->push(m_ann, {TestServer::change("account", "a-1", 1, account("Cash"))});
    const HttpResult r = m_server->request(method, path, body, m_ann.accessToken);
    QCOMPARE(r.status, status);
    QVERIFY(!r.json.value("error").toString().isEmpty());
    // Still serving, and nothing was lost.
    QCOMPARE(m_server->pullAll(m_ann).rows.keys(), QStringList{"accounts/a-1"});
}

void TstServerSync::badChanges_data()
{
    QTest::addColumn<QByteArray>("change");
    QTest::newRow("not an object") << QByteArray("17");
    QTest::newRow("unknown type") << QByteArray(
        R"({"entity_type":"split","entity_id":"x","action":"upsert","version":1,"payload":{}})");
    QTest::newRow("id number") << QByteArray(
        R"({"entity_type":"account","entity_id":5,"action":"upsert","version":1,"payload":{}})");
    QTest::newRow("version text") << QByteArray(
        R"({"entity_type":"account","entity_id":"x","action":"upsert","version":"1","payload":{}})");
    QTest::newRow("version fraction") << QByteArray(
        R"({"entity_type":"account","entity_id":"x","action":"upsert","version":1.5,"payload":{}})");
    QTest::newRow("unknown action") << QByteArray(
        R"({"entity_type":"account","entity_id":"x","action":"merge","version":1,"payload":{}})");
    QTest::newRow("payload array") << QByteArray(
        R"({"entity_type":"account","entity_id":"x","action":"upsert","version":1,"payload":[]})");
    QTest::newRow("no account") << QByteArray(
        R"({"entity_type":"transaction","entity_id":"x","action":"upsert","version":1,"payload":{"amount":1}})");
}

void TstServerSync::badChanges()
{
    QFETCH(QByteArray, change);
    const QByteArray good = QJsonDocument(TestServer::change("account", "a-1", 1, account("Cash"))).toJson();
    const HttpResult r = m_server->request("POST", "/ombrel/v1/sync/push",
                                           "{\"changes\": [" + change + "," + good + "]}", m_ann.accessToken);
    QCOMPARE(r.status, 200);
    const QJsonArray results = r.json.value("results").toArray();
    QCOMPARE(results.size(), 2);
    QVERIFY(results.at(0)["status"].toString() != QLatin1String("ok"));
    QVERIFY(!results.at(0)["message"].toString().isEmpty());
    QCOMPARE(results.at(1)["status"].toString(), QStringLiteral("ok"));
    QCOMPARE(m_server->pullAll(m_ann).rows.keys(), QStringList{"accounts/a-1"});
}

QTEST_GUILESS_MAIN(TstServerSync)
#include "tst_serversync.moc"
