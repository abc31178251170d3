#include "support/SyncDevice.h"
#include "sync/ChangeWriter.h"
#include "sync/SyncPush.h"

#include <QJsonDocument>
#include <QTest>

class TstSyncPush : public QObject {
    Q_OBJECT
private slots:
    void payloads();
    void results_data();
    void results();
};

namespace {
QByteArray compact(const QJsonArray &array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}
} // namespace

// One row of each kind, with values that tell a narrowed integer, a boolean sent as true, or a key sent
// empty instead of left out. The account was deleted before it was ever pushed; the synced parent
// category stays behind; parents go first. Compact JSON keeps the types apart (true is not 1).
void TstSyncPush::payloads()
{
    SyncDevice device;
    QVERIFY(device.activate());
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

void TstSyncPush::results_data()
{
    QTest::addColumn<QByteArray>("results");
    QTest::addColumn<QString>("statusAndServerId");
    const QByteArray ok = R"([{"status":"ok","entity_id":"t","server_id":"s9","entity_type":"transaction"}])";
    QTest::newRow("ok") << ok << "synced s9";
    QTest::newRow("ok with empty server_id clears it") << QByteArray(ok).replace("s9", "") << "synced ";
    QTest::newRow("rejected") << QByteArray(ok).replace("ok", "error") << "pending old";
    QTest::newRow("unknown type") << QByteArray(ok).replace("transaction", "txn") << "pending old";
    QTest::newRow("no result") << QByteArray("[]") << "pending old";
    QTest::newRow("other row's result") << QByteArray(ok).replace("\"t\"", "\"u\"") << "pending old";
}

void TstSyncPush::results()
{
    QFETCH(QByteArray, results);
    QFETCH(QString, statusAndServerId);
    SyncDevice device;
    QVERIFY(device.activate());
    QVERIFY(device.exec(QStringLiteral("INSERT INTO accounts (id, name, created_at, updated_at) VALUES "
                                       "('a', 'A', '2024-05-01T00:00:00Z', '2024-05-01T00:00:00Z')")));
    QVERIFY(device.exec(QStringLiteral(
        "INSERT INTO transactions (id, account_id, date, payee, amount, server_id, created_at, updated_at) "
        "VALUES ('t', 'a', '2024-05-01', 'P', 0, 'old', '2024-05-01T00:00:00Z', '2024-05-01T00:00:00Z')")));
    SyncPush(device.repositories()).applyResults(QJsonDocument::fromJson(results).array());
    QCOMPARE(
        device
            .scalar(QStringLiteral("SELECT sync_status || ' ' || coalesce(server_id, '') FROM transactions"))
            .toString(),
        statusAndServerId);
}

QTEST_GUILESS_MAIN(TstSyncPush)
#include "tst_syncpush.moc"
