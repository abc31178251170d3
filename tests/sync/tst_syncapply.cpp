#include "support/SyncDevice.h"
#include "sync/SyncApply.h"
#include "sync/SyncPayloads.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

class TstSyncApply : public QObject {
    Q_OBJECT
private slots:
    void init();
    void conflict_data();
    void conflict();
    void page_data();
    void page();

private:
    std::unique_ptr<SyncDevice> m_device;
};

namespace {

// Row "x" of a kind as the server sends it; its marker column says whose copy is stored.
struct Kind {
    QString table, marker, json, local, server;
};

Kind kindOf(const QString &entity)
{
    if (entity == SyncEntity::Account)
        return {"accounts", "name", R"({"accounts":[{"client_id":"x","name":"%1"}]})", "local", "server"};
    if (entity == SyncEntity::Category)
        return {"categories", "name", R"({"categories":[{"client_id":"x","name":"%1"}]})", "local", "server"};
    if (entity == SyncEntity::Recurring)
        return {"recurring_transactions", "payee",
                R"({"recurring_transactions":[{"client_id":"x","account_id":"a1","payee":"%1",
                    "start_date":"2024-05-01","next_due_date":"2024-05-01"}]})",
                "local", "server"};
    if (entity == SyncEntity::Transaction)
        return {"transactions", "payee",
                R"({"transactions":[{"client_id":"x","account_id":"a1","payee":"%1","date":"2024-05-01"}]})",
                "local", "server"};
    return {"reconciliations", "statement_balance",
            R"({"reconciliations":[{"client_id":"x","account_id":"a1","statement_date":"2024-04-30",
                "statement_balance":%1,"reconciled_balance":0,"completed_at":"2024-04-01T08:00:00Z"}]})",
            "100", "200"};
}

// The page with the row's only element changed by the given keys.
QJsonObject pageOf(const Kind &kind, const QString &mark, const QJsonObject &changes)
{
    QJsonObject page = QJsonDocument::fromJson(kind.json.arg(mark).toUtf8()).object();
    const QString key = page.keys().first();
    QJsonObject row = page[key].toArray().first().toObject();
    for (auto it = changes.begin(); it != changes.end(); ++it)
        row.insert(it.key(), it.value());
    page[key] = QJsonArray{row};
    return page;
}

} // namespace

void TstSyncApply::init()
{
    m_device = std::make_unique<SyncDevice>();
    QVERIFY(m_device->activate());
    QVERIFY(m_device->exec(QStringLiteral(
        "INSERT INTO accounts (id, name, version, sync_status, server_id, created_at, updated_at) VALUES "
        "('a1', 'Parent', 1, 'synced', 'sa1', '2024-01-01T00:00:00Z', '2024-01-01T00:00:00Z')")));
    QVERIFY(m_device->exec(QStringLiteral(
        "INSERT INTO transactions (id, account_id, date, payee, memo, amount, version, sync_status, "
        "server_id, "
        "created_at, updated_at) VALUES ('t0', 'a1', '2024-01-02', 'Known', '', -100, 1, 'synced', 's0', "
        "'2024-01-02T00:00:00Z', '2024-01-02T00:00:00Z')")));
    QVERIFY(m_device->preferences->set(QStringLiteral("lastSyncTimestamp"),
                                       QStringLiteral("2024-01-01T00:00:00Z")));
}

void TstSyncApply::conflict_data()
{
    QTest::addColumn<QString>("entity");
    QTest::addColumn<QString>("local");    // "version status [deleted]", or empty: the row isn't here
    QTest::addColumn<QString>("server");   // "version [deleted]"
    QTest::addColumn<QString>("expected"); // "marker version status deleted" of the stored row
    const QString t = SyncEntity::Transaction;
    QTest::newRow("new row") << t << ""
                             << "1"
                             << "server 1 synced 0";
    QTest::newRow("new deleted row dropped") << t << ""
                                             << "1 deleted"
                                             << "";
    QTest::newRow("lower vs pending") << t << "3 pending"
                                      << "2"
                                      << "local 3 pending 0";
    QTest::newRow("lower vs synced") << t << "3 synced"
                                     << "2"
                                     << "local 3 synced 0";
    QTest::newRow("higher vs pending") << t << "2 pending"
                                       << "5"
                                       << "server 5 synced 0";
    QTest::newRow("higher vs synced") << t << "2 synced"
                                      << "3"
                                      << "server 3 synced 0";
    QTest::newRow("lower deletion dropped") << t << "3 synced"
                                            << "2 deleted"
                                            << "local 3 synced 0";
    QTest::newRow("no undelete") << t << "1 pending deleted"
                                 << "2"
                                 << "server 2 synced 1";
    QTest::newRow("deleted on both") << t << "1 synced deleted"
                                     << "1 deleted"
                                     << "server 1 synced 1";
    for (const QString &entity :
         {SyncEntity::Account, SyncEntity::Category, SyncEntity::Recurring, SyncEntity::Transaction}) {
        QTest::addRow("%s deletion goes back pending", qPrintable(entity)) << entity << "1 synced"
                                                                           << "1 deleted"
                                                                           << "server 1 pending 1";
        QTest::addRow("%s equal vs pending", qPrintable(entity)) << entity << "1 pending"
                                                                 << "1"
                                                                 << "server 1 synced 0";
    }
    QTest::newRow("reconciliation deletion not applied") << SyncEntity::Reconciliation << "1 synced"
                                                         << "1 deleted"
                                                         << "200 1 synced 0";
    QTest::newRow("reconciliation lower vs pending") << SyncEntity::Reconciliation << "2 pending"
                                                     << "1"
                                                     << "100 2 pending 0";
}

void TstSyncApply::conflict()
{
    QFETCH(QString, entity);
    QFETCH(QString, local);
    QFETCH(QString, server);
    QFETCH(QString, expected);
    const Kind kind = kindOf(entity);
    SyncApply apply(m_device->repositories());
    if (!local.isEmpty()) {
        const QStringList l = local.split(u' ');
        apply.applyPage(pageOf(kind, kind.local,
                               {
                                   {"version", 1}
        }));
        QVERIFY(m_device->exec(
            QStringLiteral("UPDATE %1 SET version=%2, sync_status='%3', deleted_at=%4 WHERE id='x'")
                .arg(kind.table, l[0], l[1],
                     l.size() > 2 ? QStringLiteral("'2024-04-02T00:00:00Z'") : QStringLiteral("NULL"))));
    }
    const QStringList s = server.split(u' ');
    QJsonObject changes{
        {"id",      "srv-x"     },
        {"version", s[0].toInt()}
    };
    if (s.size() > 1)
        changes.insert(QStringLiteral("deleted_at"), QStringLiteral("2024-04-03T00:00:00Z"));
    apply.applyPage(pageOf(kind, kind.server, changes));
    QCOMPARE(m_device
                 ->scalar(QStringLiteral("SELECT %1 || ' ' || version || ' ' || sync_status || ' ' || "
                                         "(deleted_at IS NOT NULL) FROM %2 WHERE id='x'")
                              .arg(kind.marker, kind.table))
                 .toString(),
             expected);
}

void TstSyncApply::page_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("expected");

    const QString ids = QStringLiteral("SELECT group_concat(id, ',') FROM (SELECT id FROM %1 ORDER BY id)");
    QTest::newRow("1999 skipped, the page goes on") << R"({"transactions": [
                {"id":"s1","client_id":"t1","account_id":"a1","date":"1999-12-31","payee":"Old","version":1},
                {"id":"s2","client_id":"t2","account_id":"a1","date":"2000-01-01","payee":"New","version":1}]})"
                                                    << ids.arg(QStringLiteral("transactions")) << "t0,t2";
    QTest::newRow("date-time cut to its date, not moved by its offset")
        << R"({"transactions": [{"id":"s1","client_id":"t1","account_id":"a1",
                                 "date":"2024-03-05T23:30:00-05:00","version":1}]})"
        << "SELECT date FROM transactions WHERE id='t1'"
        << "2024-03-05";
    QTest::newRow("recurring_transactions before recurring")
        << R"({"recurring_transactions": [{"client_id":"r1","account_id":"a1","next_due_date":"2024-06-01"}],
              "recurring": [{"client_id":"r2","account_id":"a1","next_due_date":"2024-06-01"}]})"
        << ids.arg(QStringLiteral("recurring_transactions")) << "r1";
    QTest::newRow("recurring when recurring_transactions is absent")
        << R"({"recurring": [{"client_id":"r2","account_id":"a1","next_due_date":"2024-06-01",
                              "end_date":"2025-01-01T00:00:00Z","frequency":"fortnightly"}]})"
        << "SELECT id || end_date || frequency FROM recurring_transactions"
        << "r22025-01-01monthly";
    QTest::newRow("recurring without a due date skipped")
        << R"({"recurring_transactions": [{"client_id":"r1","account_id":"a1","next_due_date":""}]})"
        << "SELECT count(*) FROM recurring_transactions"
        << "0";
    QTest::newRow("reconciliation from 1999 skipped")
        << R"({"reconciliations": [{"client_id":"c1","account_id":"a1","statement_date":"1999-06-30"},
                                   {"client_id":"c2","account_id":"a1","statement_date":"2024-06-30"}]})"
        << ids.arg(QStringLiteral("reconciliations")) << "c2";
    QTest::newRow("unknown client id folds into the row with that server id")
        << R"({"transactions": [{"id":"s0","client_id":"elsewhere","account_id":"a1","date":"2024-01-02",
                                 "payee":"Renamed","version":1}]})"
        << "SELECT group_concat(id || payee) FROM transactions"
        << "t0Renamed";
    QTest::newRow("a row known nowhere gets a fresh id")
        << R"({"transactions": [{"id":"s9","account_id":"a1","date":"2024-01-02","version":1}]})"
        << "SELECT length(id) || server_id || sync_status FROM transactions WHERE id <> 't0'"
        << "36s9synced";
    QTest::newRow("booleans as JSON booleans or numbers")
        << R"({"transactions": [{"client_id":"t1","account_id":"a1","date":"2024-01-02",
                                 "cleared":true,"reconciled":2,"is_split":false}]})"
        << "SELECT cleared || reconciled || is_split FROM transactions WHERE id='t1'"
        << "110";
    QTest::newRow("amounts beyond 32 bits")
        << R"({"accounts": [{"client_id":"a2","starting_balance":-9007199254740993,"sort_order":7}]})"
        << "SELECT starting_balance || '/' || sort_order FROM accounts WHERE id='a2'"
        << "-9007199254740993/7";
    QTest::newRow("unknown words fall back")
        << R"({"accounts": [{"client_id":"a2","account_type":"loan","currency":"CHF"}],
              "categories": [{"client_id":"c1","category_type":"gift"}]})"
        << "SELECT a.account_type || a.currency || c.category_type FROM accounts a, categories c WHERE "
           "a.id='a2'"
        << "otherUSDexpense";
    QTest::newRow("server_time stored") << R"({"server_time":"2024-06-01T10:00:00Z","has_more":true})"
                                        << "SELECT value FROM preferences WHERE key='lastSyncTimestamp'"
                                        << "2024-06-01T10:00:00Z";
    QTest::newRow("empty server_time keeps the last")
        << R"({"server_time":""})"
        << "SELECT value FROM preferences WHERE key='lastSyncTimestamp'"
        << "2024-01-01T00:00:00Z";
}

void TstSyncApply::page()
{
    QFETCH(QString, page);
    QFETCH(QString, query);
    QFETCH(QString, expected);
    SyncApply(m_device->repositories()).applyPage(QJsonDocument::fromJson(page.toUtf8()).object());
    QCOMPARE(m_device->scalar(query).toString(), expected);
}

QTEST_GUILESS_MAIN(TstSyncApply)
#include "tst_syncapply.moc"
