#include "account/TokenManager.h"
#include "support/Fixtures.h"
#include "support/Jwt.h"
#include "support/ScriptedServer.h"
#include "support/SyncDevice.h"
#include "sync/ChangeWriter.h"
#include "sync/SyncApply.h"
#include "sync/SyncEntity.h"
#include "sync/SyncPush.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

// A sync cycle: its two halves without the network (the pages the server sends applied to the tables,
// the pending rows pushed as change objects with the verdicts on them written back), and the engine's
// scheduling against the scripted server (how many cycles, how many requests).
class TstSyncEngine : public QObject {
    Q_OBJECT
private slots:
    void init();
    void conflict_data();
    void conflict();
    void page_data();
    void page();
    void payloads();
    void storedTexts_data();
    void storedTexts();
    void results_data();
    void results();
    void manyPendingRowsTakeOneBatchACycle();
    void triggersDuringACycleGiveOneMore();
    void anErrorDropsTheWantedResync();
    void signedOutInErrorGoesIdleWithoutTraffic();
    void pageCounterCarriesOverPushFreeCycles();
    void authenticationLostFailsTheCycle();

private:
    int requestsTo(const QString &path) const;

    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<SyncDevice> m_device;
};

namespace {

const QByteArray kEmptyPage = R"({"server_time":"2024-06-01T00:00:00Z","has_more":false})";
const QString kPull = QStringLiteral("/sync/pull"), kPush = QStringLiteral("/sync/push");

// Row "x" of a kind as the server sends it, with its marker column, which says whose copy is stored:
// 100 for the local one, 200 for the server's.
struct Kind {
    QString table, marker, fields;
};

Kind kindOf(const QString &entity)
{
    if (entity == SyncEntity::Account)
        return {"accounts", "name", R"("name":"%1")"};
    if (entity == SyncEntity::Category)
        return {"categories", "name", R"("name":"%1")"};
    if (entity == SyncEntity::Recurring)
        return {"recurring_transactions", "payee",
                R"("account_id":"a1","payee":"%1","start_date":"2024-05-01","next_due_date":"2024-05-01")"};
    if (entity == SyncEntity::Transaction)
        return {"transactions", "payee", R"("account_id":"a1","payee":"%1","date":"2024-05-01")"};
    return {"reconciliations", "statement_balance",
            R"("account_id":"a1","statement_date":"2024-04-30","statement_balance":%1,"reconciled_balance":0,
               "completed_at":"2024-04-01T08:00:00Z")"};
}

QJsonObject pageOf(const Kind &kind, int mark, const QString &more)
{
    return QJsonDocument::fromJson(QStringLiteral(R"({"%1":[{"client_id":"x",%2%3}]})")
                                       .arg(kind.table, kind.fields.arg(mark), more)
                                       .toUtf8())
        .object();
}

void row(const char *name, const QStringList &cells)
{
    QTestData &data = QTest::newRow(name);
    for (const QString &cell : cells)
        data << cell;
}

QByteArray compact(const QJsonArray &array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}
} // namespace

void TstSyncEngine::init()
{
    m_device.reset();
    m_server = std::make_unique<ScriptedServer>();
    QVERIFY(m_server->listen());
    m_device = std::make_unique<SyncDevice>(m_server->baseUrl(), ServerUser{{}, jwt(3600), "refresh"});
    QVERIFY(m_device->activate());
    QVERIFY(m_device->exec(QStringLiteral(
        "INSERT INTO accounts (id, name, version, sync_status, server_id, created_at, updated_at) VALUES "
        "('a1', 'Parent', 1, 'synced', 'sa1', '2024-01-01T00:00:00Z', '2024-01-01T00:00:00Z')")));
    QVERIFY(m_device->exec(QStringLiteral(
        "INSERT INTO transactions (id, account_id, date, payee, amount, version, sync_status, server_id, "
        "created_at, updated_at) VALUES ('t0', 'a1', '2024-01-02', 'Known', -100, 1, 'synced', 's0', "
        "'2024-01-02T00:00:00Z', '2024-01-02T00:00:00Z')")));
    QVERIFY(m_device->preferences->set(QStringLiteral("lastSyncTimestamp"),
                                       QStringLiteral("2024-01-01T00:00:00Z")));
}

void TstSyncEngine::conflict_data()
{
    QTest::addColumn<QString>("entity");
    QTest::addColumn<QString>("local");    // "version status [deleted]", or empty: the row isn't here
    QTest::addColumn<QString>("server");   // "version [deleted]"
    QTest::addColumn<QString>("expected"); // "marker version status deleted" of the stored row
    const QString t = SyncEntity::Transaction, r = SyncEntity::Reconciliation;
    row("new row", {t, "", "1", "200 1 synced 0"});
    row("new deleted row dropped", {t, "", "1 deleted", ""});
    row("lower vs pending", {t, "3 pending", "2", "100 3 pending 0"});
    row("lower vs synced", {t, "3 synced", "2", "100 3 synced 0"});
    row("higher vs pending", {t, "2 pending", "5", "200 5 synced 0"});
    row("higher vs synced", {t, "2 synced", "3", "200 3 synced 0"});
    row("lower deletion dropped", {t, "3 synced", "2 deleted", "100 3 synced 0"});
    row("no undelete", {t, "1 pending deleted", "2", "200 2 synced 1"});
    row("deleted on both", {t, "1 synced deleted", "1 deleted", "200 1 synced 1"});
    row("reconciliation deletion not applied", {r, "1 synced", "1 deleted", "200 1 synced 0"});
    row("reconciliation lower vs pending", {r, "2 pending", "1", "100 2 pending 0"});
    for (const QString &entity :
         {SyncEntity::Account, SyncEntity::Category, SyncEntity::Recurring, SyncEntity::Transaction}) {
        row(qPrintable(entity + " deletion goes back pending"),
            {entity, "1 synced", "1 deleted", "200 1 pending 1"});
        row(qPrintable(entity + " equal vs pending"), {entity, "1 pending", "1", "200 1 synced 0"});
    }
}

void TstSyncEngine::conflict()
{
    QFETCH(QString, entity);
    QFETCH(QString, local);
    QFETCH(QString, server);
    QFETCH(QString, expected);
    const Kind kind = kindOf(entity);
    SyncApply apply(m_device->repositories());
    if (!local.isEmpty()) {
        const QStringList l = local.split(u' ');
        apply.applyPage(pageOf(kind, 100, QStringLiteral(R"(,"version":1)")));
        QVERIFY(m_device->exec(
            QStringLiteral("UPDATE %1 SET version=%2, sync_status='%3', deleted_at=%4 WHERE id='x'")
                .arg(kind.table, l[0], l[1], l.size() > 2 ? "'2024-04-02T00:00:00Z'" : "NULL")));
    }
    const QStringList s = server.split(u' ');
    apply.applyPage(pageOf(kind, 200,
                           QStringLiteral(R"(,"id":"srv-x","version":%1%2)")
                               .arg(s[0], s.size() > 1 ? R"(,"deleted_at":"2024-04-03T00:00:00Z")" : "")));
    QCOMPARE(m_device
                 ->scalar(QStringLiteral("SELECT %1 || ' ' || version || ' ' || sync_status || ' ' || "
                                         "(deleted_at IS NOT NULL) FROM %2 WHERE id='x'")
                              .arg(kind.marker, kind.table))
                 .toString(),
             expected);
}

void TstSyncEngine::page_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("expected");
    const QString ids = "SELECT group_concat(id, ',') FROM (SELECT id FROM %1 ORDER BY id)",
                  lastSync = "SELECT value FROM preferences WHERE key='lastSyncTimestamp'";
    row("1999 skipped, the page goes on",
        {R"({"transactions": [{"id":"s1","client_id":"t1","account_id":"a1","date":"1999-12-31","payee":"Old"},
                              {"id":"s2","client_id":"t2","account_id":"a1","date":"2000-01-01","payee":"New"}]})",
         ids.arg("transactions"), "t0,t2"});
    row("date-time cut to its date, not moved by its offset",
        {R"({"transactions": [{"client_id":"t1","account_id":"a1","date":"2024-03-05T23:30:00-05:00"}]})",
         "SELECT date FROM transactions WHERE id='t1'", "2024-03-05"});
    row("recurring_transactions before recurring",
        {R"({"recurring_transactions": [{"client_id":"r1","account_id":"a1","next_due_date":"2024-06-01"}],
             "recurring": [{"client_id":"r2","account_id":"a1","next_due_date":"2024-06-01"}]})",
         ids.arg("recurring_transactions"), "r1"});
    row("recurring when recurring_transactions is absent",
        {R"({"recurring": [{"client_id":"r2","account_id":"a1","next_due_date":"2024-06-01",
                            "end_date":"2025-01-01T00:00:00Z","frequency":"fortnightly"}]})",
         "SELECT id || end_date || frequency FROM recurring_transactions", "r22025-01-01monthly"});
    row("recurring without a due date skipped",
        {R"({"recurring_transactions": [{"client_id":"r1","account_id":"a1","next_due_date":""}]})",
         "SELECT count(*) FROM recurring_transactions", "0"});
    row("reconciliation from 1999 skipped",
        {R"({"reconciliations": [{"client_id":"c1","account_id":"a1","statement_date":"1999-06-30"},
                                 {"client_id":"c2","account_id":"a1","statement_date":"2024-06-30"}]})",
         ids.arg("reconciliations"), "c2"});
    row("unknown client id folds into the row with that server id",
        {R"({"transactions": [{"id":"s0","client_id":"elsewhere","account_id":"a1","date":"2024-01-02",
                               "payee":"Renamed","version":1}]})",
         "SELECT group_concat(id || payee) FROM transactions", "t0Renamed"});
    row("a row known nowhere gets a fresh id",
        {R"({"transactions": [{"id":"s9","account_id":"a1","date":"2024-01-02","version":1}]})",
         "SELECT length(id) || server_id || sync_status FROM transactions WHERE id <> 't0'", "36s9synced"});
    row("booleans as JSON booleans or numbers",
        {R"({"transactions": [{"client_id":"t1","account_id":"a1","date":"2024-01-02",
                               "cleared":true,"reconciled":2,"is_split":false}]})",
         "SELECT cleared || reconciled || is_split FROM transactions WHERE id='t1'", "110"});
    row("amounts beyond 32 bits",
        {R"({"accounts": [{"client_id":"a2","starting_balance":-9007199254740993,"sort_order":7}]})",
         "SELECT starting_balance || '/' || sort_order FROM accounts WHERE id='a2'", "-9007199254740993/7"});
    row("unknown words fall back",
        {R"({"accounts": [{"client_id":"a2","account_type":"loan","currency":"CHF"}],
             "categories": [{"client_id":"c1","category_type":"gift"}]})",
         "SELECT a.account_type || a.currency || c.category_type FROM accounts a, categories c WHERE "
         "a.id='a2'",
         "otherUSDexpense"});
    row("server_time stored",
        {R"({"server_time":"2024-06-01T10:00:00Z","has_more":true})", lastSync, "2024-06-01T10:00:00Z"});
    row("empty server_time keeps the last", {R"({"server_time":""})", lastSync, "2024-01-01T00:00:00Z"});
}

void TstSyncEngine::page()
{
    QFETCH(QString, page);
    QFETCH(QString, query);
    QFETCH(QString, expected);
    SyncApply(m_device->repositories()).applyPage(QJsonDocument::fromJson(page.toUtf8()).object());
    QCOMPARE(m_device->scalar(query).toString(), expected);
}

// One row of each kind, with values that tell a narrowed integer, a boolean sent as true, or a key sent
// empty instead of left out. The account was deleted before it was ever pushed; the synced parent
// category stays behind; parents go first. Compact JSON keeps the types apart (true is not 1).
void TstSyncEngine::payloads()
{
    SyncDevice &device = *m_device;
    for (const char *sql :
         {"INSERT INTO accounts VALUES ('acc-1', 'Everyday', 'credit_card', 'JPY', 'Harbor Bank', '0042', "
          "1234567890123, 3, 1, 4, 'pending', NULL, '2024-01-02T03:04:05Z', '2024-01-03T03:04:05Z', "
          "'2024-03-04T05:06:07Z')",
          "INSERT INTO categories (id, name, category_type, sync_status, created_at, updated_at) VALUES "
          "('cat-0', 'Income', 'income', 'synced', '2024-01-01T01:04:05Z', '2024-01-01T01:04:05Z')",
          "INSERT INTO categories VALUES ('cat-1', 'Salary', 'income', 'cat-0', 1, 'W-2', 'work', '#2E7D32', "
          "0, "
          "'acc-1', 2, 'pending', 'srv-cat-1', '2024-01-01T01:04:05Z', '2024-01-01T01:04:05Z', NULL)",
          "INSERT INTO recurring_transactions VALUES ('rule-1', 'acc-1', 'Rent', '', -150000, NULL, "
          "'semi_annual', '2024-01-01', NULL, '2024-07-01', 1, 0, NULL, 5, 'pending', NULL, "
          "'2024-01-01T02:04:05Z', '2024-01-01T02:04:05Z', NULL)",
          "INSERT INTO transactions VALUES ('txn-1', 'acc-1', '2024-02-29', 'Café', '', -4295, 'cat-1', '', "
          "1, "
          "0, 'txn-2', 'acc-1', 1, 'rule-1', 2, 'pending', 'srv-txn-1', '2024-02-29T12:04:05Z', "
          "'2024-03-01T08:04:05Z', NULL)",
          "INSERT INTO reconciliations VALUES ('rec-1', 'acc-1', '2024-01-31', -250075, -250075, "
          "'2024-02-01T09:04:05Z', 3, 'pending', 'srv-rec-1', '2024-02-01T09:04:05Z', "
          "'2024-02-01T09:04:05Z', NULL)"})
        QVERIFY(device.exec(QString::fromUtf8(sql)));
    const QByteArrayList changes = SyncPush(device.repositories()).collectPending();
    QCOMPARE(compact(SyncPush::toJsonArray(changes)), compact(QJsonDocument::fromJson(R"([
      {"entity_type": "account", "entity_id": "acc-1", "action": "delete", "version": 4,
       "payload": {"client_id": "acc-1", "name": "Everyday", "account_type": "credit_card", "currency": "JPY",
         "is_shared": 1, "institution": "Harbor Bank", "account_number_last4": "0042",
         "starting_balance": 1234567890123, "sort_order": 3, "version": 4, "created_at": "2024-01-02T03:04:05Z",
         "updated_at": "2024-01-03T03:04:05Z", "deleted_at": "2024-03-04T05:06:07Z"}},
      {"entity_type": "category", "entity_id": "cat-1", "action": "upsert", "version": 2,
       "payload": {"client_id": "cat-1", "server_id": "srv-cat-1", "name": "Salary", "category_type": "income",
         "parent_id": "cat-0", "is_tax_relevant": 1, "tax_category": "W-2", "icon": "work", "color": "#2E7D32",
         "is_default": 0, "account_id": "acc-1", "version": 2, "created_at": "2024-01-01T01:04:05Z",
         "updated_at": "2024-01-01T01:04:05Z"}},
      {"entity_type": "recurring", "entity_id": "rule-1", "action": "upsert", "version": 5,
       "payload": {"client_id": "rule-1", "account_id": "acc-1", "payee": "Rent", "memo": "", "amount": -150000,
         "category_id": "", "transfer_dest_account_id": "", "frequency": "semi_annual",
         "start_date": "2024-01-01", "next_due_date": "2024-07-01", "auto_post": 1, "is_active": 0,
         "created_at": "2024-01-01T02:04:05Z", "updated_at": "2024-01-01T02:04:05Z"}},
      {"entity_type": "transaction", "entity_id": "txn-1", "action": "upsert", "version": 2,
       "payload": {"client_id": "txn-1", "server_id": "srv-txn-1", "account_id": "acc-1", "date": "2024-02-29",
         "payee": "Café", "memo": "", "amount": -4295, "category_id": "cat-1", "check_number": "",
         "cleared": 1, "reconciled": 0, "transfer_link_id": "txn-2", "transfer_dest_account_id": "acc-1",
         "is_split": 1, "recurring_id": "rule-1", "version": 2, "created_at": "2024-02-29T12:04:05Z",
         "updated_at": "2024-03-01T08:04:05Z"}},
      {"entity_type": "reconciliation", "entity_id": "rec-1", "action": "upsert", "version": 3,
       "payload": {"client_id": "rec-1", "server_id": "srv-rec-1", "account_id": "acc-1",
         "statement_date": "2024-01-31", "statement_balance": -250075, "reconciled_balance": -250075,
         "completed_at": "2024-02-01T09:04:05Z", "version": 3, "created_at": "2024-02-01T09:04:05Z",
         "updated_at": "2024-02-01T09:04:05Z"}}])")
                                                                  .array()));
    // The driver's reader is the fallback where the fast one cannot open the file; both write the same.
    QCOMPARE(ChangeWriter(device.database->connection(), ChangeWriter::Reader::Driver).pendingChanges(),
             changes);
}

// Texts a table can hold that the program would not write itself: both readers give the same bytes,
// and the payload carries each the way JSON and the date types want it.
void TstSyncEngine::storedTexts_data()
{
    QTest::addColumn<QString>("assignment");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("sent");
    QTest::newRow("quote, backslash") << R"(payee = 'say "hi" \ now')"
                                      << "payee" << QJsonValue(R"(say "hi" \ now)");
    QTest::newRow("control characters") << "payee = char(9, 97, 1, 10)"
                                        << "payee" << QJsonValue("\ta\x01\n");
    QTest::newRow("not ASCII") << "payee = 'Café – 東京'"
                               << "payee" << QJsonValue(QStringLiteral("Café – 東京"));
    QTest::newRow("NULL") << "memo = NULL"
                          << "memo" << QJsonValue("");
    QTest::newRow("no such day") << "date = '2023-02-29'"
                                 << "date" << QJsonValue("");
    QTest::newRow("milliseconds") << "created_at = '2024-03-01T10:00:00.123Z'"
                                  << "created_at" << QJsonValue("2024-03-01T10:00:00Z");
    QTest::newRow("offset") << "created_at = '2024-03-01T10:00:00+02:00'"
                            << "created_at" << QJsonValue("2024-03-01T10:00:00+02:00");
    QTest::newRow("flag as text") << "cleared = 'true'"
                                  << "cleared" << QJsonValue(1);
    QTest::newRow("flag as '0'") << "cleared = '0'"
                                 << "cleared" << QJsonValue(0);
    QTest::newRow("empty deleted_at") << "deleted_at = ''"
                                      << "deleted_at" << QJsonValue(QJsonValue::Undefined);
}

void TstSyncEngine::storedTexts()
{
    QFETCH(QString, assignment);
    QFETCH(QString, key);
    QFETCH(QJsonValue, sent);
    for (const char *sql :
         {"INSERT INTO accounts (id, name, sync_status, created_at, updated_at) VALUES "
          "('a', 'A', 'synced', '2024-01-02T03:04:05Z', '2024-01-02T03:04:05Z')",
          "INSERT INTO transactions (id, account_id, date, payee, amount, created_at, updated_at) "
          "VALUES ('t', 'a', '2024-01-02', '', 0, '2024-01-02T03:04:05Z', "
          "'2024-01-02T03:04:05Z')"})
        QVERIFY(m_device->exec(QString::fromUtf8(sql)));
    QVERIFY(m_device->exec(QStringLiteral("UPDATE transactions SET ") + assignment));
    const QByteArrayList changes = ChangeWriter(m_device->database->connection()).pendingChanges();
    QCOMPARE(changes,
             ChangeWriter(m_device->database->connection(), ChangeWriter::Reader::Driver).pendingChanges());
    QCOMPARE(changes.size(), 1);
    const QJsonObject change = QJsonDocument::fromJson(changes.first()).object();
    QCOMPARE(change.value(QLatin1String("action")).toString(), QStringLiteral("upsert"));
    QCOMPARE(change.value(QLatin1String("payload")).toObject().value(key), sent);
}

void TstSyncEngine::results_data()
{
    QTest::addColumn<QByteArray>("results");
    QTest::addColumn<QString>("statusAndServerId");
    const QByteArray ok =
        R"([{"status":"ok","entity_id":"t0","server_id":"s9","entity_type":"transaction"}])";
    QTest::newRow("ok") << ok << "synced s9";
    QTest::newRow("ok with empty server_id clears it") << QByteArray(ok).replace("s9", "") << "synced ";
    QTest::newRow("rejected") << QByteArray(ok).replace("ok", "error") << "pending s0";
    QTest::newRow("unknown type") << QByteArray(ok).replace("transaction", "txn") << "pending s0";
    QTest::newRow("no result") << QByteArray("[]") << "pending s0";
    QTest::newRow("other row's result") << QByteArray(ok).replace("\"t0\"", "\"u\"") << "pending s0";
}

void TstSyncEngine::results()
{
    QFETCH(QByteArray, results);
    QFETCH(QString, statusAndServerId);
    QVERIFY(m_device->exec(QStringLiteral("UPDATE transactions SET sync_status = 'pending'")));
    SyncPush(m_device->repositories()).applyResults(QJsonDocument::fromJson(results).array());
    QCOMPARE(
        m_device
            ->scalar(QStringLiteral("SELECT sync_status || ' ' || coalesce(server_id, '') FROM transactions"))
            .toString(),
        statusAndServerId);
}

int TstSyncEngine::requestsTo(const QString &path) const
{
    const QList<RecordedRequest> requests = m_server->requests();
    return int(std::count_if(requests.begin(), requests.end(), [&](auto &r) { return r.path == path; }));
}

void TstSyncEngine::manyPendingRowsTakeOneBatchACycle()
{
    QVERIFY(m_device->accounts->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    QVERIFY(m_device->exec(
        QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 1198) "
                       "INSERT INTO transactions "
                       "(id, account_id, date, payee, amount, created_at, updated_at) SELECT 'p' || i, 'a', "
                       "date('2024-01-01', '+' || (i % 300) || ' days'), 'P', -i, '2024-01-01T00:00:00Z', "
                       "'2024-01-01T00:00:00Z' FROM n")));
    for (int batch : {500, 500, 200}) {
        // The server accepts the first 500 pending rows, in collection order.
        QStringList results;
        for (const QByteArray &change :
             SyncPush(m_device->repositories()).collectPending().mid(0, SyncEngine::kPushBatchSize)) {
            const QJsonObject c = QJsonDocument::fromJson(change).object();
            results << QStringLiteral(R"({"status":"ok","entity_id":"%1","entity_type":"%2"})")
                           .arg(c["entity_id"].toString(), c["entity_type"].toString());
        }
        m_server->enqueue(kPush, ScriptedReply(200, ("{\"results\":[" + results.join(u',') + "]}").toUtf8()));
        m_server->enqueue(kPull, ScriptedReply(200, kEmptyPage));
        QVERIFY(m_device->sync(10000));
        const QByteArray push = m_server->requests().at(m_server->requests().size() - 2).body;
        QCOMPARE(QJsonDocument::fromJson(push)["changes"].toArray().size(), batch);
    }
    QCOMPARE(m_device->transactions->getPending().size() + m_device->accounts->getPending().size(), 0);
    m_server->enqueue(kPull, ScriptedReply(200, kEmptyPage));
    QVERIFY(m_device->sync(10000));
    QCOMPARE(requestsTo(kPush), 3);
    QCOMPARE(requestsTo(kPull), 4);
    QCOMPARE(m_server->requests().last().query.queryItemValue(QStringLiteral("since")),
             QStringLiteral("2024-06-01T00:00:00Z"));
}

void TstSyncEngine::triggersDuringACycleGiveOneMore()
{
    m_server->enqueue(ScriptedReply::delayed(200, 200, kEmptyPage));
    m_server->enqueue(ScriptedReply(200, kEmptyPage));
    QSignalSpy completed(m_device->engine, &SyncEngine::syncCompleted);
    m_device->engine->syncNow();
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Syncing);
    for (int i = 0; i < 10; ++i)
        m_device->engine->syncNow();
    QTRY_COMPARE_WITH_TIMEOUT(completed.size(), 2, 5000);
    QTest::qWait(300);
    QCOMPARE(completed.size(), 2);
    QCOMPARE(requestsTo(kPull), 2);
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Idle);
}

void TstSyncEngine::anErrorDropsTheWantedResync()
{
    m_server->enqueue(ScriptedReply::delayed(200, 500, R"({"error":"down"})"));
    QSignalSpy failed(m_device->engine, &SyncEngine::syncFailed);
    m_device->engine->syncNow();
    m_device->engine->syncNow();
    QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 1, 5000);
    QCOMPARE(failed.first().first().toString(), QStringLiteral("Pull failed (HTTP 500)"));
    QTest::qWait(300);
    QCOMPARE(m_server->requests().size(), 1);
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Error);
}

void TstSyncEngine::signedOutInErrorGoesIdleWithoutTraffic()
{
    QVERIFY(m_device->accounts->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("A"))));
    m_server->enqueue(ScriptedReply(503, {}));
    QVERIFY(!m_device->sync(10000));
    QCOMPARE(m_device->engine->lastError(), QStringLiteral("Push failed (HTTP 503)"));
    QCOMPARE(requestsTo(kPull), 0); // a failed push skips the pull
    QSignalSpy states(m_device->engine, &SyncEngine::stateChanged);
    m_device->engine->setSignedInCheck([] { return false; });
    m_device->engine->syncNow();
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Idle);
    QCOMPARE(states.size(), 1);
    QTest::qWait(100);
    QCOMPARE(m_server->requests().size(), 1);
    QCOMPARE(m_device->accounts->getPending().size(), 1);
}

// Only a push resets the page counter: push-free cycles go on counting, so once 50 pages have been
// read, each such cycle reads one page.
void TstSyncEngine::pageCounterCarriesOverPushFreeCycles()
{
    for (int i = 0; i < SyncEngine::kMaxPagesPerCycle + 1; ++i)
        m_server->enqueue(ScriptedReply(200, R"({"server_time":"2024-06-01T00:00:00Z","has_more":true})"));
    QVERIFY(m_device->sync(20000));
    QCOMPARE(requestsTo(kPull), SyncEngine::kMaxPagesPerCycle);
    QVERIFY(m_device->sync(10000));
    QCOMPARE(requestsTo(kPull), SyncEngine::kMaxPagesPerCycle + 1);
}

void TstSyncEngine::authenticationLostFailsTheCycle()
{
    m_device->tokens->setRefreshCallback(
        [](QString, auto, HalcAccount::TokenManager::FailureContinuation fail) { fail(); });
    m_server->enqueue(ScriptedReply(401, R"({"error":"expired"})"));
    QSignalSpy states(m_device->engine, &SyncEngine::stateChanged);
    QVERIFY(!m_device->sync(10000));
    QCOMPARE(m_device->engine->lastError(), QStringLiteral("Pull failed (HTTP 401)"));
    QCOMPARE(m_device->engine->state(), SyncEngine::SyncState::Error);
    QCOMPARE(states.size(), 2); // Syncing, then Error once although both paths set it
}

QTEST_GUILESS_MAIN(TstSyncEngine)
#include "tst_syncengine.moc"
