#include "services/SampleDataService.h"

#include "data/CategoryRepository.h"
#include "services/CategoryService.h"
#include "support/TempDatabase.h"

#include <QDate>
#include <QTest>

#include <optional>

class TstSampleDataService : public QObject {
    Q_OBJECT
    std::optional<TempDatabase> m_db;
    std::optional<SampleDataService> m_service;

    QString value(const QString &sql) { return m_db->scalar(sql).toString(); }
    int count(const QString &sql) { return m_db->scalar("SELECT COUNT(*) FROM " + sql).toInt(); }
    static QString day(int offset) { return QDate::currentDate().addDays(offset).toString(Qt::ISODate); }

private slots:
    // The default categories, and the user's own account and row, which nothing here may touch.
    void init()
    {
        m_service.reset();
        m_db.emplace();
        QVERIFY(m_db->open());
        CategoryRepository categories(m_db->database());
        CategoryService(&categories).seedDefaultsIfEmpty();
        m_service.emplace(m_db->database());
        QVERIFY(m_db->exec("INSERT INTO accounts (id, name, created_at, updated_at) VALUES "
                           "('mine', 'Mine', '2025-01-01T00:00:00Z', '2025-01-01T00:00:00Z')"));
        QVERIFY(m_db->exec(
            "INSERT INTO transactions (id, account_id, date, payee, amount, created_at, updated_at) "
            "VALUES ('my-row', 'mine', '2025-01-02', 'Baker', -500, '2025-01-02T00:00:00Z', "
            "'2025-01-02T00:00:00Z')"));
        QVERIFY(!m_service->hasSampleData() && m_service->loadSampleData() && m_service->hasSampleData());
    }

    void loadsThreeAccountsAndTheirRows()
    {
        QCOMPARE(
            value(
                "SELECT group_concat(id || ':' || name || ':' || account_type || ':' || starting_balance || "
                "':' || sort_order, ' ') FROM (SELECT * FROM accounts WHERE id LIKE 'sample-%' ORDER BY "
                "sort_order)"),
            QStringLiteral("sample-acct-checking:Main Checking:checking:250000:0 "
                           "sample-acct-savings:Savings:savings:1000000:1 "
                           "sample-acct-visa:Visa Rewards:credit_card:0:2"));
        // Every row new, unsent, and keyed as the sample's own.
        QCOMPARE(
            count("(SELECT DISTINCT id FROM transactions WHERE id LIKE 'sample-txn-%' AND version = 1 AND "
                  "sync_status = 'pending' AND length(id) = length('sample-txn-') + 8)"),
            49);
        // Spans in days back from today, per account.
        QCOMPARE(
            value(QStringLiteral("SELECT group_concat(span, ' ') FROM (SELECT account_id || ':' || "
                                 "CAST(MIN(julianday(date) - julianday('%1')) AS INTEGER) || ':' || "
                                 "CAST(MAX(julianday(date) - julianday('%1')) AS INTEGER) || ':' || COUNT(*) "
                                 "AS span FROM transactions WHERE id LIKE 'sample-%' GROUP BY account_id "
                                 "ORDER BY account_id)")
                      .arg(day(0))),
            QStringLiteral(
                "sample-acct-checking:-60:0:27 sample-acct-savings:-45:0:4 sample-acct-visa:-55:-2:18"));
        // Only the transfers and the card payments stand without a category: the default tree was found.
        QCOMPARE(count("transactions WHERE id LIKE 'sample-%' AND category_id IS NULL"), 6);
        QCOMPARE(
            count("transactions t JOIN categories c ON c.id = t.category_id WHERE t.payee = 'Brightpath Inc' "
                  "AND c.name = 'Salary / Wages'"),
            5);
        QCOMPARE(count("transactions t JOIN categories c ON c.id = t.category_id JOIN categories p ON p.id = "
                       "c.parent_id WHERE t.payee = 'Pinecrest Apartments' AND p.name = 'Housing' AND "
                       "t.check_number IN ('1041', '1042')"),
                 2);
        // Empty texts are stored as NULL.
        QCOMPARE(count("transactions WHERE id LIKE 'sample-%' AND (memo = '' OR check_number = '')"), 0);
        QCOMPARE(
            value(
                "SELECT group_concat(payee || ':' || amount || ':' || frequency || ':' || next_due_date || "
                "':' || start_date, '|') FROM (SELECT * FROM recurring_transactions WHERE id LIKE "
                "'sample-rec-%' AND account_id = 'sample-acct-checking' AND is_active = 1 AND auto_post = 0 "
                "ORDER BY payee)"),
            QStringLiteral("Brightpath Inc:285000:biweekly:%2:%1|Pinecrest Apartments:-145000:monthly:%3:%1|"
                           "Transfer to Savings:-50000:monthly:%3:%1")
                .arg(day(-60), day(8), day(1)));
    }

    void statusesFollowTheAgeOfEachRow_data()
    {
        QTest::addColumn<QString>("account");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<bool>("cleared");
        QTest::addColumn<bool>("reconciled");
        // clang-format off
        QTest::newRow("checking, first month")  << "sample-acct-checking" << -60 << -30 << true  << true;
        QTest::newRow("checking, second month") << "sample-acct-checking" << -29 << -11 << true  << false;
        QTest::newRow("checking, last days")    << "sample-acct-checking" << -10 << 0   << false << false;
        QTest::newRow("savings, before today")  << "sample-acct-savings"  << -45 << -1  << true  << false;
        QTest::newRow("savings, today")         << "sample-acct-savings"  << 0   << 0   << false << false;
        QTest::newRow("card, older")            << "sample-acct-visa"     << -55 << -25 << true  << false;
        QTest::newRow("card, recent")           << "sample-acct-visa"     << -24 << -2  << false << false;
        // clang-format on
    }

    void statusesFollowTheAgeOfEachRow()
    {
        QFETCH(QString, account);
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(bool, cleared);
        QFETCH(bool, reconciled);
        const QString range =
            QStringLiteral("transactions WHERE account_id = '%1' AND date BETWEEN '%2' AND '%3'")
                .arg(account, day(from), day(to));
        QVERIFY(count(range) > 0);
        QCOMPARE(count(range + QStringLiteral(" AND (cleared != %1 OR reconciled != %2)")
                                   .arg(int(cleared))
                                   .arg(int(reconciled))),
                 0);
    }

    // Each token: a checking leg and a savings leg on one day, opposite amounts, each pointing at the other
    // account, and neither row's own id.
    void transfersShareOneTokenThatIsNeitherRow()
    {
        QCOMPARE(count("transactions WHERE transfer_link_id IS NOT NULL"), 4);
        QCOMPARE(
            count("transactions a JOIN transactions b ON a.transfer_link_id = b.transfer_link_id AND "
                  "a.id < b.id WHERE a.date = b.date AND a.amount = -b.amount AND "
                  "a.transfer_dest_account_id = b.account_id AND b.transfer_dest_account_id = a.account_id "
                  "AND a.transfer_link_id LIKE 'sample-xfer-%' AND a.transfer_link_id NOT IN (a.id, b.id)"),
            2);
        QCOMPARE(
            count("transactions WHERE payee = 'Payment - Thank You' AND transfer_link_id IS NULL AND memo = "
                  "'Credit card payment'"),
            2);
    }

    void clearLeavesNothingOfItsOwnBehind()
    {
        QVERIFY(m_db->exec(
            "INSERT INTO sync_queue (entity_type, entity_id, action, created_at) VALUES "
            "('transaction', 'sample-txn-12345678', 'insert', 'x'), ('transaction', 'my-row', 'insert', "
            "'x')"));
        m_service->clearSampleData();
        QVERIFY(!m_service->hasSampleData());
        for (const char *table :
             {"accounts", "transactions", "recurring_transactions", "reconciliations", "split_lines"})
            QCOMPARE(count(QStringLiteral("%1 WHERE id LIKE 'sample-%'").arg(QLatin1String(table))), 0);
        QCOMPARE(count("transactions WHERE transfer_link_id IS NOT NULL"), 0);
        QCOMPARE(value("SELECT group_concat(entity_id) FROM sync_queue"), QStringLiteral("my-row"));
        QCOMPARE(value("SELECT group_concat(id) FROM transactions"), QStringLiteral("my-row"));
        QCOMPARE(count("categories"), 56);
        // Loading again after a clear works as the first time.
        QVERIFY(m_service->loadSampleData());
        QCOMPARE(count("transactions WHERE id LIKE 'sample-%'"), 49);
    }

    void clearKeepsSampleAccountsTheUserWroteInto()
    {
        QVERIFY(m_db->exec(
            "INSERT INTO transactions (id, account_id, date, payee, amount, created_at, updated_at) "
            "VALUES ('typed', 'sample-acct-visa', '2025-01-02', 'Bakery', -700, "
            "'2025-01-02T00:00:00Z', '2025-01-02T00:00:00Z')"));
        m_service->clearSampleData();
        // The accounts go in one statement, which the foreign key refuses as a whole.
        QCOMPARE(count("accounts WHERE id LIKE 'sample-%'"), 3);
        QCOMPARE(value("SELECT group_concat(id) FROM (SELECT id FROM transactions ORDER BY id)"),
                 QStringLiteral("my-row,typed"));
        QCOMPARE(count("recurring_transactions"), 0);
    }
};

QTEST_GUILESS_MAIN(TstSampleDataService)
#include "tst_sampledataservice.moc"
