#include "support/SyncFixture.h"
#include "sync/SyncApply.h"
#include "sync/SyncPayloads.h"

#include <QJsonArray>
#include <QTest>

class TstSyncApply : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void conflict_data();
    void conflict();
    void page_data();
    void page();

private:
    std::unique_ptr<SyncFixture> m_device;
};

namespace {

struct Kind {
    QString table;
    QString marker; // a column whose value says whose copy of the row is stored
    QString arrayKey;
};

Kind kindOf(const QString &entity)
{
    if (entity == SyncEntity::Account)
        return {QStringLiteral("accounts"), QStringLiteral("name"), QStringLiteral("accounts")};
    if (entity == SyncEntity::Category)
        return {QStringLiteral("categories"), QStringLiteral("name"), QStringLiteral("categories")};
    if (entity == SyncEntity::Recurring)
        return {QStringLiteral("recurring_transactions"), QStringLiteral("payee"),
                QStringLiteral("recurring_transactions")};
    if (entity == SyncEntity::Transaction)
        return {QStringLiteral("transactions"), QStringLiteral("payee"), QStringLiteral("transactions")};
    return {QStringLiteral("reconciliations"), QStringLiteral("statement_balance"),
            QStringLiteral("reconciliations")};
}

// Row "x" of the kind, its marker saying whose copy it is ("local"/"server", or 100/200 for a balance).
QJsonObject payloadOf(const QString &entity, bool server)
{
    const QString mark = server ? QStringLiteral("server") : QStringLiteral("local");
    const QDateTime stamp(QDate(2024, 4, 1), QTime(8, 0), Qt::UTC);
    if (entity == SyncEntity::Account) {
        Account a;
        a.id = QStringLiteral("x");
        a.name = mark;
        a.createdAt = a.updatedAt = stamp;
        return accountPayload(a);
    }
    if (entity == SyncEntity::Category) {
        Category c;
        c.id = QStringLiteral("x");
        c.name = mark;
        c.createdAt = c.updatedAt = stamp;
        return categoryPayload(c);
    }
    if (entity == SyncEntity::Recurring) {
        RecurringTransaction r;
        r.id = QStringLiteral("x");
        r.accountId = QStringLiteral("a1");
        r.payee = mark;
        r.startDate = r.nextDueDate = QDate(2024, 5, 1);
        r.createdAt = r.updatedAt = stamp;
        return recurringPayload(r);
    }
    if (entity == SyncEntity::Transaction) {
        Transaction t;
        t.id = QStringLiteral("x");
        t.accountId = QStringLiteral("a1");
        t.payee = mark;
        t.date = QDate(2024, 5, 1);
        t.createdAt = t.updatedAt = stamp;
        return transactionPayload(t);
    }
    Reconciliation r;
    r.id = QStringLiteral("x");
    r.accountId = QStringLiteral("a1");
    r.statementDate = QDate(2024, 4, 30);
    r.statementBalance = server ? 200 : 100;
    r.createdAt = r.updatedAt = r.completedAt = stamp;
    return reconciliationPayload(r);
}

QString localMarker(const QString &entity, bool server)
{
    if (entity == SyncEntity::Reconciliation)
        return server ? QStringLiteral("200") : QStringLiteral("100");
    return server ? QStringLiteral("server") : QStringLiteral("local");
}

// The local copy goes in through a page of its own, then gets the version and state the case wants.
bool insertLocal(SyncFixture &device, const QString &entity, int version, const QString &status, bool deleted)
{
    QJsonObject row = payloadOf(entity, false);
    row.insert(QStringLiteral("version"), 1);
    QJsonObject page;
    page.insert(kindOf(entity).arrayKey, QJsonArray{row});
    SyncApply(device.repositories()).applyPage(page);
    return device.db().exec(
        QStringLiteral("UPDATE %1 SET version=%2, sync_status='%3', deleted_at=%4 WHERE id='x'")
            .arg(kindOf(entity).table)
            .arg(version)
            .arg(status, deleted ? QStringLiteral("'2024-04-02T00:00:00Z'") : QStringLiteral("NULL")));
}

} // namespace

void TstSyncApply::init()
{
    m_device = std::make_unique<SyncFixture>();
    QVERIFY(m_device->open());
    QVERIFY(m_device->db().exec(QStringLiteral(
        "INSERT INTO accounts (id, name, account_type, currency, version, sync_status, server_id, "
        "created_at, "
        "updated_at) VALUES ('a1', 'Parent', 'checking', 'USD', 1, 'synced', 'sa1', '2024-01-01T00:00:00Z', "
        "'2024-01-01T00:00:00Z')")));
    QVERIFY(m_device->db().exec(QStringLiteral(
        "INSERT INTO transactions (id, account_id, date, payee, memo, amount, version, sync_status, "
        "server_id, "
        "created_at, updated_at) VALUES ('t0', 'a1', '2024-01-02', 'Known', '', -100, 1, 'synced', 's0', "
        "'2024-01-02T00:00:00Z', '2024-01-02T00:00:00Z')")));
    QVERIFY(m_device->preferences->set(QStringLiteral("lastSyncTimestamp"),
                                       QStringLiteral("2024-01-01T00:00:00Z")));
}

void TstSyncApply::cleanup()
{
    m_device.reset();
}

void TstSyncApply::conflict_data()
{
    QTest::addColumn<QString>("entity");
    QTest::addColumn<int>("localVersion"); // 0: the row isn't here
    QTest::addColumn<QString>("localStatus");
    QTest::addColumn<bool>("localDeleted");
    QTest::addColumn<int>("serverVersion");
    QTest::addColumn<bool>("serverDeleted");
    QTest::addColumn<QString>("winner"); // "local", "server" or "none"
    QTest::addColumn<QString>("status");
    QTest::addColumn<bool>("deleted");

    const QString t = SyncEntity::Transaction, pending = QStringLiteral("pending"),
                  synced = QStringLiteral("synced");
    QTest::newRow("new row") << t << 0 << "" << false << 1 << false << "server" << synced << false;
    QTest::newRow("new deleted row dropped") << t << 0 << "" << false << 1 << true << "none"
                                             << "" << false;
    QTest::newRow("lower vs pending")
        << t << 3 << pending << false << 2 << false << "local" << pending << false;
    QTest::newRow("lower vs synced") << t << 3 << synced << false << 2 << false << "local" << synced << false;
    QTest::newRow("equal vs pending")
        << t << 2 << pending << false << 2 << false << "server" << synced << false;
    QTest::newRow("higher vs pending")
        << t << 2 << pending << false << 5 << false << "server" << synced << false;
    QTest::newRow("higher vs synced")
        << t << 2 << synced << false << 3 << false << "server" << synced << false;
    QTest::newRow("lower deletion dropped")
        << t << 3 << synced << false << 2 << true << "local" << synced << false;
    QTest::newRow("no undelete") << t << 1 << pending << true << 2 << false << "server" << synced << true;
    QTest::newRow("deleted on both") << t << 1 << synced << true << 1 << true << "server" << synced << true;
    for (const QString &entity :
         {SyncEntity::Account, SyncEntity::Category, SyncEntity::Recurring, SyncEntity::Transaction}) {
        QTest::addRow("%s deletion goes back pending", qPrintable(entity))
            << entity << 1 << synced << false << 1 << true << "server" << pending << true;
        QTest::addRow("%s equal vs pending", qPrintable(entity))
            << entity << 1 << pending << false << 1 << false << "server" << synced << false;
    }
    QTest::newRow("reconciliation deletion not applied")
        << SyncEntity::Reconciliation << 1 << synced << false << 1 << true << "server" << synced << false;
    QTest::newRow("reconciliation lower vs pending")
        << SyncEntity::Reconciliation << 2 << pending << false << 1 << false << "local" << pending << false;
}

void TstSyncApply::conflict()
{
    QFETCH(QString, entity);
    QFETCH(int, localVersion);
    QFETCH(QString, localStatus);
    QFETCH(bool, localDeleted);
    QFETCH(int, serverVersion);
    QFETCH(bool, serverDeleted);
    QFETCH(QString, winner);
    QFETCH(QString, status);
    QFETCH(bool, deleted);

    SyncFixture &device = *m_device;
    if (localVersion > 0)
        QVERIFY(insertLocal(device, entity, localVersion, localStatus, localDeleted));

    QJsonObject row = payloadOf(entity, true);
    row.insert(QStringLiteral("id"), QStringLiteral("srv-x"));
    row.insert(QStringLiteral("version"), serverVersion);
    if (serverDeleted)
        row.insert(QStringLiteral("deleted_at"), QStringLiteral("2024-04-03T00:00:00Z"));
    const Kind kind = kindOf(entity);
    QJsonObject page;
    page.insert(kind.arrayKey, QJsonArray{row});
    SyncApply(device.repositories()).applyPage(page);

    const QVariant marker =
        device.db().scalar(QStringLiteral("SELECT %1 FROM %2 WHERE id='x'").arg(kind.marker, kind.table));
    if (winner == QLatin1String("none")) {
        QVERIFY(!marker.isValid());
        return;
    }
    QCOMPARE(marker.toString(), localMarker(entity, winner == QLatin1String("server")));
    const QString where = QStringLiteral(" FROM %1 WHERE id='x'").arg(kind.table);
    QCOMPARE(device.db().scalar(QStringLiteral("SELECT sync_status") + where).toString(), status);
    QCOMPARE(device.db().scalar(QStringLiteral("SELECT deleted_at IS NOT NULL") + where).toBool(), deleted);
    QCOMPARE(device.db().scalar(QStringLiteral("SELECT version") + where).toInt(),
             winner == QLatin1String("server") ? serverVersion : localVersion);
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
    SyncApply(m_device->repositories()).applyPage(JsonCompare::parse(page.toUtf8().constData()));
    QCOMPARE(m_device->db().scalar(query).toString(), expected);
}

QTEST_GUILESS_MAIN(TstSyncApply)
#include "tst_syncapply.moc"
