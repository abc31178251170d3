#include "services/SampleDataService.h"

#include "data/CategoryRepository.h"
#include "services/CategoryService.h"
#include "support/TempDatabase.h"

#include <QDate>
#include <QTest>

#include <memory>

class TstSampleDataService : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_service.reset();
        m_db.reset();
        m_db = std::make_unique<TempDatabase>();
        QVERIFY(m_db->open());
        CategoryRepository categories(m_db->database());
        CategoryService(&categories).seedDefaultsIfEmpty();
        m_service = std::make_unique<SampleDataService>(m_db->database());
        // The user's own data, which nothing here may touch.
        QVERIFY(m_db->exec("INSERT INTO accounts (id, name, created_at, updated_at) VALUES "
                           "('mine', 'Mine', '2025-01-01T00:00:00Z', '2025-01-01T00:00:00Z')"));
        QVERIFY(m_db->exec(
            "INSERT INTO transactions (id, account_id, date, payee, amount, created_at, updated_at) "
            "VALUES ('my-row', 'mine', '2025-01-02', 'Baker', -500, '2025-01-02T00:00:00Z', "
            "'2025-01-02T00:00:00Z')"));
    }

    void loadsThreeAccountsAndTheirRows()
    {
        QVERIFY(!m_service->hasSampleData());
        QVERIFY(m_service->loadSampleData());
        QVERIFY(m_service->hasSampleData());

        QCOMPARE(
            m_db->scalar("SELECT group_concat(id || ':' || name || ':' || account_type || ':' || "
                         "starting_balance || ':' || sort_order, ' ') FROM (SELECT * FROM accounts WHERE id "
                         "LIKE 'sample-%' ORDER BY sort_order)")
                .toString(),
            QStringLiteral("sample-acct-checking:Main Checking:checking:250000:0 "
                           "sample-acct-savings:Savings:savings:1000000:1 "
                           "sample-acct-visa:Visa Rewards:credit_card:0:2"));
        // Every row new, unsent, and keyed as the sample's own.
        QCOMPARE(count("SELECT COUNT(DISTINCT id) FROM transactions WHERE id LIKE 'sample-txn-%' AND version "
                       "= 1 AND "
                       "sync_status = 'pending' AND length(id) = length('sample-txn-') + 8"),
                 49);
        // Spans in days back from today, per account.
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        QCOMPARE(
            m_db->scalar(QStringLiteral("SELECT group_concat(span, ' ') FROM (SELECT account_id || ':' || "
                                        "CAST(MIN(julianday(date) - julianday('%1')) AS INTEGER) || ':' || "
                                        "CAST(MAX(julianday(date) - julianday('%1')) AS INTEGER) || ':' || "
                                        "COUNT(*) AS span FROM transactions WHERE id LIKE 'sample-%' "
                                        "GROUP BY account_id ORDER BY account_id)")
                             .arg(today))
                .toString(),
            QStringLiteral("sample-acct-checking:-60:0:27 sample-acct-savings:-45:0:4 "
                           "sample-acct-visa:-55:-2:18"));
        // Only the transfers and the card payments stand without a category: the default tree was found.
        // Empty texts are stored as NULL.
        QCOMPARE(m_db->scalar("SELECT (SELECT COUNT(*) FROM transactions WHERE id LIKE 'sample-%' AND "
                              "category_id IS NULL)"
                              " || ' ' || (SELECT COUNT(*) FROM transactions t JOIN categories c ON c.id = "
                              "t.category_id "
                              "WHERE t.payee = 'Brightpath Inc' AND c.name = 'Salary / Wages') || ' ' || "
                              "(SELECT COUNT(*) "
                              "FROM transactions t JOIN categories c ON c.id = t.category_id JOIN categories "
                              "p ON p.id = "
                              "c.parent_id WHERE t.payee = 'Pinecrest Apartments' AND p.name = 'Housing' AND "
                              "t.check_number IN ('1041', '1042')) || ' ' || (SELECT COUNT(*) FROM "
                              "transactions WHERE id "
                              "LIKE 'sample-%' AND (memo = '' OR check_number = ''))")
                     .toString(),
                 QStringLiteral("6 5 2 0"));
    }

    void statusesFollowTheAgeOfEachRow_data()
    {
        QTest::addColumn<QString>("account");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<bool>("cleared");
        QTest::addColumn<bool>("reconciled");
        QTest::newRow("checking, first month") << "sample-acct-checking" << -60 << -30 << true << true;
        QTest::newRow("checking, second month") << "sample-acct-checking" << -29 << -11 << true << false;
        QTest::newRow("checking, last days") << "sample-acct-checking" << -10 << 0 << false << false;
        QTest::newRow("savings, before today") << "sample-acct-savings" << -45 << -1 << true << false;
        QTest::newRow("savings, today") << "sample-acct-savings" << 0 << 0 << false << false;
        QTest::newRow("card, older") << "sample-acct-visa" << -55 << -25 << true << false;
        QTest::newRow("card, recent") << "sample-acct-visa" << -24 << -2 << false << false;
    }

    void statusesFollowTheAgeOfEachRow()
    {
        QFETCH(QString, account);
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(bool, cleared);
        QFETCH(bool, reconciled);
        QVERIFY(m_service->loadSampleData());
        const QDate today = QDate::currentDate();
        const QString range = QStringLiteral("account_id = '%1' AND date BETWEEN '%2' AND '%3'")
                                  .arg(account, today.addDays(from).toString(Qt::ISODate),
                                       today.addDays(to).toString(Qt::ISODate));
        QVERIFY(count(QStringLiteral("SELECT COUNT(*) FROM transactions WHERE %1").arg(range)) > 0);
        QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM transactions WHERE %1 AND (cleared != %2 OR "
                                      "reconciled != %3)")
                           .arg(range)
                           .arg(int(cleared))
                           .arg(int(reconciled))),
                 0);
    }

    void transfersShareOneTokenThatIsNeitherRow()
    {
        QVERIFY(m_service->loadSampleData());
        QCOMPARE(count("SELECT COUNT(DISTINCT transfer_link_id) FROM transactions WHERE transfer_link_id IS "
                       "NOT NULL"),
                 2);
        // Each token: a checking leg and a savings leg on one day, opposite amounts, each pointing at the
        // other account, and neither row's own id.
        QCOMPARE(
            count("SELECT COUNT(*) FROM transactions a JOIN transactions b ON a.transfer_link_id = "
                  "b.transfer_link_id AND a.id < b.id WHERE a.date = b.date AND a.amount = -b.amount AND "
                  "a.transfer_dest_account_id = b.account_id AND b.transfer_dest_account_id = a.account_id "
                  "AND a.transfer_link_id LIKE 'sample-xfer-%' AND a.transfer_link_id NOT IN (a.id, b.id)"),
            2);
        QCOMPARE(count("SELECT COUNT(*) FROM transactions WHERE transfer_link_id IS NOT NULL"), 4);
        QCOMPARE(count("SELECT COUNT(*) FROM transactions WHERE payee = 'Payment - Thank You' AND "
                       "transfer_link_id IS NULL AND memo = 'Credit card payment'"),
                 2);
    }

    void recurringRulesFallDueSoon()
    {
        QVERIFY(m_service->loadSampleData());
        const QDate today = QDate::currentDate();
        QCOMPARE(
            m_db->scalar(
                    "SELECT group_concat(payee || ':' || amount || ':' || frequency || ':' || "
                    "next_due_date || ':' || start_date, '|') FROM (SELECT * FROM recurring_transactions "
                    "WHERE id LIKE 'sample-rec-%' AND account_id = 'sample-acct-checking' AND is_active = 1 "
                    "AND auto_post = 0 ORDER BY payee)")
                .toString(),
            QStringLiteral("Brightpath Inc:285000:biweekly:%2:%1|Pinecrest Apartments:-145000:monthly:%3:%1|"
                           "Transfer to Savings:-50000:monthly:%3:%1")
                .arg(today.addDays(-60).toString(Qt::ISODate), today.addDays(8).toString(Qt::ISODate),
                     today.addDays(1).toString(Qt::ISODate)));
    }

    void clearLeavesNothingOfItsOwnBehind()
    {
        QVERIFY(m_service->loadSampleData());
        QVERIFY(m_db->exec(
            "INSERT INTO sync_queue (entity_type, entity_id, action, created_at) VALUES "
            "('transaction', 'sample-txn-12345678', 'insert', 'x'), ('transaction', 'my-row', 'insert', "
            "'x')"));
        m_service->clearSampleData();
        QVERIFY(!m_service->hasSampleData());
        for (const char *table :
             {"accounts", "transactions", "recurring_transactions", "reconciliations", "split_lines"}) {
            QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE id LIKE 'sample-%'")
                               .arg(QLatin1String(table))),
                     0);
        }
        QCOMPARE(count("SELECT COUNT(*) FROM transactions WHERE transfer_link_id IS NOT NULL"), 0);
        QCOMPARE(m_db->scalar("SELECT group_concat(entity_id) FROM sync_queue").toString(),
                 QStringLiteral("my-row"));
        QCOMPARE(m_db->scalar("SELECT group_concat(id) FROM transactions").toString(),
                 QStringLiteral("my-row"));
        QCOMPARE(count("SELECT COUNT(*) FROM categories"), 56);
        // Loading again after a clear works as the first time.
        QVERIFY(m_service->loadSampleData());
        QCOMPARE(count("SELECT COUNT(*) FROM transactions WHERE id LIKE 'sample-%'"), 49);
    }

    void clearKeepsSampleAccountsTheUserWroteInto()
    {
        QVERIFY(m_service->loadSampleData());
        QVERIFY(m_db->exec(
            "INSERT INTO transactions (id, account_id, date, payee, amount, created_at, updated_at) "
            "VALUES ('typed', 'sample-acct-visa', '2025-01-02', 'Bakery', -700, '2025-01-02T00:00:00Z', "
            "'2025-01-02T00:00:00Z')"));
        m_service->clearSampleData();
        // The accounts go in one statement, which the foreign key refuses as a whole.
        QCOMPARE(count("SELECT COUNT(*) FROM accounts WHERE id LIKE 'sample-%'"), 3);
        QCOMPARE(
            m_db->scalar("SELECT group_concat(id) FROM (SELECT id FROM transactions ORDER BY id)").toString(),
            QStringLiteral("my-row,typed"));
        QCOMPARE(count("SELECT COUNT(*) FROM recurring_transactions"), 0);
    }

private:
    int count(const QString &sql) { return m_db->scalar(sql).toInt(); }

    std::unique_ptr<TempDatabase> m_db;
    std::unique_ptr<SampleDataService> m_service;
};

QTEST_GUILESS_MAIN(TstSampleDataService)
#include "tst_sampledataservice.moc"
