#include "core/Dates.h"
#include "support/SyncFixture.h"
#include "sync/SyncPush.h"

#include <QJsonArray>
#include <QTest>

class TstSyncPush : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void payloads_data();
    void payloads();
    void parentsGoFirst();
    void results_data();
    void results();

private:
    QJsonArray m_changes;
};

namespace {

QDateTime at(int month, int day, int hour)
{
    return QDateTime(QDate(2024, month, day), QTime(hour, 4, 5), Qt::UTC);
}

} // namespace

// One row of each kind, with values that tell a narrowed integer, a
// boolean sent as true, or a key sent empty instead of left out.
void TstSyncPush::initTestCase()
{
    SyncFixture device;
    QVERIFY(device.open());
    Reconciliation rec;
    rec.id = QStringLiteral("rec-1");
    rec.accountId = QStringLiteral("acc-1");
    rec.statementDate = QDate(2024, 1, 31);
    rec.statementBalance = -250075;
    rec.reconciledBalance = -250075;
    rec.completedAt = at(2, 1, 9);
    rec.serverId = QStringLiteral("srv-rec-1");
    rec.version = 3;
    rec.createdAt = at(2, 1, 9);
    rec.updatedAt = at(2, 1, 9);

    Account acc;
    acc.id = QStringLiteral("acc-1");
    acc.name = QStringLiteral("Everyday");
    acc.accountType = AccountType::CreditCard;
    acc.currency = Currency::JPY;
    acc.institution = QStringLiteral("Harbor Bank");
    acc.accountNumberLast4 = QStringLiteral("0042");
    acc.startingBalance = 1234567890123;
    acc.sortOrder = 3;
    acc.isShared = true;
    acc.version = 4;
    acc.createdAt = at(1, 2, 3);
    acc.updatedAt = at(1, 3, 3);

    Category parent;
    parent.id = QStringLiteral("cat-0");
    parent.name = QStringLiteral("Income");
    parent.categoryType = CategoryType::Income;
    parent.createdAt = parent.updatedAt = at(1, 1, 1);
    Category cat = parent;
    cat.id = QStringLiteral("cat-1");
    cat.name = QStringLiteral("Salary");
    cat.parentId = parent.id;
    cat.isTaxRelevant = true;
    cat.taxCategory = QStringLiteral("W-2");
    cat.icon = QStringLiteral("work");
    cat.color = QStringLiteral("#2E7D32");
    cat.isDefault = false;
    cat.accountId = QStringLiteral("acc-1");
    cat.version = 2;
    cat.serverId = QStringLiteral("srv-cat-1");

    RecurringTransaction rule;
    rule.id = QStringLiteral("rule-1");
    rule.accountId = QStringLiteral("acc-1");
    rule.payee = QStringLiteral("Rent");
    rule.amount = -150000;
    rule.frequency = Frequency::SemiAnnual;
    rule.startDate = QDate(2024, 1, 1);
    rule.nextDueDate = QDate(2024, 7, 1);
    rule.autoPost = true;
    rule.isActive = false;
    rule.version = 5;
    rule.createdAt = rule.updatedAt = at(1, 1, 2);

    Transaction t;
    t.id = QStringLiteral("txn-1");
    t.accountId = QStringLiteral("acc-1");
    t.date = QDate(2024, 2, 29);
    t.payee = QStringLiteral("Café");
    t.amount = -4295;
    t.categoryId = QStringLiteral("cat-1");
    t.cleared = true;
    t.isSplit = true;
    t.recurringId = QStringLiteral("rule-1");
    t.transferLinkId = QStringLiteral("txn-2");
    t.transferDestAccountId = QStringLiteral("acc-1");
    t.version = 2;
    t.serverId = QStringLiteral("srv-txn-1");
    t.createdAt = at(2, 29, 12);
    t.updatedAt = at(3, 1, 8);

    QVERIFY(device.accounts->insert(acc));
    QVERIFY(device.reconciliations->insert(rec));
    QVERIFY(device.categories->insert(parent));
    QVERIFY(device.categories->insert(cat));
    QVERIFY(device.recurring->insert(rule));
    QVERIFY(device.transactions->insert(t));
    // The account was deleted before it was ever pushed.
    QVERIFY(device.db().exec(QStringLiteral("UPDATE accounts SET deleted_at='2024-03-04T05:06:07Z'")));
    QVERIFY(device.db().exec(QStringLiteral("UPDATE categories SET sync_status='synced' WHERE id='cat-0'")));
    m_changes = SyncPush::toJsonArray(SyncPush(device.repositories()).collectPending());
}

void TstSyncPush::payloads_data()
{
    QTest::addColumn<QString>("entityId");
    QTest::addColumn<QString>("expected");
    QTest::newRow("deleted account never synced") << "acc-1"
                                                  << R"({
        "entity_type": "account", "entity_id": "acc-1", "action": "delete", "version": 4,
        "payload": {"client_id": "acc-1", "name": "Everyday", "account_type": "credit_card",
            "currency": "JPY", "is_shared": 1, "institution": "Harbor Bank", "account_number_last4": "0042",
            "starting_balance": 1234567890123, "sort_order": 3, "version": 4,
            "created_at": "2024-01-02T03:04:05Z", "updated_at": "2024-01-03T03:04:05Z",
            "deleted_at": "2024-03-04T05:06:07Z"}})";
    QTest::newRow("category") << "cat-1"
                              << R"({
        "entity_type": "category", "entity_id": "cat-1", "action": "upsert", "version": 2,
        "payload": {"client_id": "cat-1", "server_id": "srv-cat-1", "name": "Salary", "category_type": "income",
            "parent_id": "cat-0", "is_tax_relevant": 1, "tax_category": "W-2", "icon": "work",
            "color": "#2E7D32", "is_default": 0, "account_id": "acc-1", "version": 2,
            "created_at": "2024-01-01T01:04:05Z", "updated_at": "2024-01-01T01:04:05Z"}})";
    QTest::newRow("recurring, no end date, no version in payload") << "rule-1"
                                                                   << R"({
        "entity_type": "recurring", "entity_id": "rule-1", "action": "upsert", "version": 5,
        "payload": {"client_id": "rule-1", "account_id": "acc-1", "payee": "Rent", "memo": "",
            "amount": -150000, "category_id": "", "transfer_dest_account_id": "", "frequency": "semi_annual",
            "start_date": "2024-01-01", "next_due_date": "2024-07-01", "auto_post": 1, "is_active": 0,
            "created_at": "2024-01-01T02:04:05Z", "updated_at": "2024-01-01T02:04:05Z"}})";
    QTest::newRow("transaction") << "txn-1"
                                 << R"({
        "entity_type": "transaction", "entity_id": "txn-1", "action": "upsert", "version": 2,
        "payload": {"client_id": "txn-1", "server_id": "srv-txn-1", "account_id": "acc-1",
            "date": "2024-02-29", "payee": "Café", "memo": "", "amount": -4295, "category_id": "cat-1",
            "check_number": "", "cleared": 1, "reconciled": 0, "transfer_link_id": "txn-2",
            "transfer_dest_account_id": "acc-1", "is_split": 1, "recurring_id": "rule-1", "version": 2,
            "created_at": "2024-02-29T12:04:05Z", "updated_at": "2024-03-01T08:04:05Z"}})";
    QTest::newRow("reconciliation") << "rec-1"
                                    << R"({
        "entity_type": "reconciliation", "entity_id": "rec-1", "action": "upsert", "version": 3,
        "payload": {"client_id": "rec-1", "server_id": "srv-rec-1", "account_id": "acc-1",
            "statement_date": "2024-01-31", "statement_balance": -250075, "reconciled_balance": -250075,
            "completed_at": "2024-02-01T09:04:05Z", "version": 3,
            "created_at": "2024-02-01T09:04:05Z", "updated_at": "2024-02-01T09:04:05Z"}})";
}

void TstSyncPush::payloads()
{
    QFETCH(QString, entityId);
    QFETCH(QString, expected);
    for (const QJsonValue &change : std::as_const(m_changes)) {
        if (change[QLatin1String("entity_id")].toString() == entityId) {
            JsonCompare::sameObject(change.toObject(), JsonCompare::parse(expected.toUtf8().constData()));
            return;
        }
    }
    QFAIL("no change object for the row");
}

void TstSyncPush::parentsGoFirst()
{
    const QStringList order{QStringLiteral("account"), QStringLiteral("category"),
                            QStringLiteral("recurring"), QStringLiteral("transaction"),
                            QStringLiteral("reconciliation")};
    QStringList types;
    for (const QJsonValue &change : std::as_const(m_changes))
        types << change[QLatin1String("entity_type")].toString();
    QCOMPARE(types, order); // the synced parent category stays behind
}

void TstSyncPush::results_data()
{
    QTest::addColumn<QString>("results");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("serverId");
    QTest::newRow("ok") << R"([{"status":"ok","entity_id":"t","server_id":"s9","entity_type":"transaction"}])"
                        << "synced"
                        << "s9";
    QTest::newRow("ok with empty server_id clears it")
        << R"([{"status":"ok","entity_id":"t","server_id":"","entity_type":"transaction"}])"
        << "synced"
        << "";
    QTest::newRow("rejected") << R"([{"status":"error","entity_id":"t","server_id":"s9",
                                      "entity_type":"transaction","message":"bad"}])"
                              << "pending"
                              << "old";
    QTest::newRow("unknown type")
        << R"([{"status":"ok","entity_id":"t","server_id":"s9","entity_type":"txn"}])"
        << "pending"
        << "old";
    QTest::newRow("no result") << "[]"
                               << "pending"
                               << "old";
    QTest::newRow("other row's result")
        << R"([{"status":"ok","entity_id":"u","server_id":"s9","entity_type":"transaction"}])"
        << "pending"
        << "old";
}

void TstSyncPush::results()
{
    QFETCH(QString, results);
    QFETCH(QString, status);
    QFETCH(QString, serverId);
    SyncFixture device;
    QVERIFY(device.open());
    Account a;
    a.id = QStringLiteral("a");
    QVERIFY(device.accounts->insert(a));
    Transaction t;
    t.id = QStringLiteral("t");
    t.accountId = a.id;
    t.date = QDate(2024, 5, 1);
    t.serverId = QStringLiteral("old");
    QVERIFY(device.transactions->insert(t));

    const QJsonObject reply = JsonCompare::parse(("{\"results\":" + results + "}").toUtf8().constData());
    SyncPush(device.repositories()).applyResults(reply[QLatin1String("results")].toArray());
    const auto read = device.transactions->getById(t.id);
    QCOMPARE(syncStatusToString(read->syncStatus), status);
    QCOMPARE(read->serverId, serverId);
}

QTEST_GUILESS_MAIN(TstSyncPush)
#include "tst_syncpush.moc"
