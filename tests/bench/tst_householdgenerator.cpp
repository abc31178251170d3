#include "HouseholdGenerator.h"
#include "support/TempDatabase.h"

#include <QCryptographicHash>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

#include <memory>

namespace {

HouseholdGenerator::Options smallHousehold()
{
    HouseholdGenerator::Options options;
    options.accounts = 3;
    options.years = 2;
    options.transactions = 2000;
    // More rules than templates, so some payees have an ended rule and its successor.
    options.recurringRules = 40;
    options.reconciliations = 6;
    return options;
}

// Every generated table, row by row in id order: equal hashes mean equal households.
QByteArray checksum(TempDatabase &db)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const char *table :
         {"accounts", "recurring_transactions", "transactions", "split_lines", "reconciliations"}) {
        QSqlQuery q(db.database()->connection());
        if (!q.exec(QStringLiteral("SELECT * FROM %1 ORDER BY id").arg(QLatin1String(table))))
            return {};
        while (q.next()) {
            for (int i = 0; i < q.record().count(); ++i)
                hash.addData(q.value(i).toString().toUtf8() + '\x1f');
        }
    }
    return hash.result();
}

QByteArray generateAndHash(const HouseholdGenerator::Options &options)
{
    TempDatabase db;
    if (!db.open() || !HouseholdGenerator::generate(db.database(), options).ok)
        return {};
    return checksum(db);
}

} // namespace

class TstHouseholdGenerator : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        m_db = std::make_unique<TempDatabase>();
        QVERIFY(m_db->open());
        m_summary = HouseholdGenerator::generate(m_db->database(), smallHousehold());
        QVERIFY(m_summary.ok);
        m_checksum = checksum(*m_db);
        QVERIFY(!m_checksum.isEmpty());
    }

    void summaryMatchesTables()
    {
        const auto count = [this](const QString &sql) { return m_db->scalar(sql).toInt(); };
        const int rows = count(QStringLiteral("SELECT COUNT(*) FROM transactions"));
        QCOMPARE(rows, m_summary.transactions);
        // A transfer pair may carry the last day one row past the target.
        QVERIFY2(rows >= 2000 && rows <= 2001, qPrintable(QString::number(rows)));

        QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM transactions WHERE account_id = '%1'")
                           .arg(m_summary.bigAccountId)),
                 m_summary.bigAccountRows);
        QVERIFY2(qAbs(m_summary.bigAccountRows * 1000 / rows - 333) <= 20,
                 qPrintable(QString::number(m_summary.bigAccountRows)));

        QVERIFY(m_summary.transferPairs > 0);
        QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM transactions WHERE transfer_link_id != ''")),
                 2 * m_summary.transferPairs);
        QVERIFY(m_summary.splitTransactions > 0);
        QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM transactions WHERE is_split = 1")),
                 m_summary.splitTransactions);
        QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM split_lines")), m_summary.splitLines);
        QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM transactions WHERE recurring_id != ''")),
                 m_summary.recurringRows);
        QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM recurring_transactions")), 40);
        QCOMPARE(count(QStringLiteral("SELECT COUNT(*) FROM reconciliations")), 6);
        QCOMPARE(count(QStringLiteral("SELECT COUNT(DISTINCT payee) FROM transactions")), m_summary.payees);
        QVERIFY(
            count(QStringLiteral("SELECT COUNT(*) FROM transactions_fts WHERE transactions_fts MATCH '%1'")
                      .arg(m_summary.searchWord)) > 0);
    }

    // Each statement counts the rows that break one promise of the generator.
    void invariants_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::newRow("transfer legs name each other")
            << "SELECT COUNT(*) FROM transactions a LEFT JOIN transactions b ON b.id = a.transfer_link_id "
               "WHERE a.transfer_link_id != '' AND (b.id IS NULL OR b.transfer_link_id != a.id "
               "OR b.account_id != a.transfer_dest_account_id OR a.account_id != b.transfer_dest_account_id "
               "OR a.account_id = b.account_id OR b.amount != -a.amount OR b.date != a.date)";
        QTest::newRow("split lines sum to the parent")
            << "SELECT COUNT(*) FROM transactions t WHERE t.is_split = 1 AND t.amount != "
               "(SELECT COALESCE(SUM(s.amount), 0) FROM split_lines s WHERE s.transaction_id = t.id)";
        QTest::newRow("split lines only under splits, with its sign")
            << "SELECT COUNT(*) FROM split_lines s JOIN transactions t ON t.id = s.transaction_id "
               "WHERE t.is_split = 0 OR t.category_id IS NOT NULL OR s.amount * t.amount <= 0";
        QTest::newRow("spending negative, income positive")
            << "SELECT COUNT(*) FROM transactions t JOIN categories c ON c.id = t.category_id "
               "WHERE (c.category_type = 'expense') != (t.amount < 0) OR t.amount = 0";
        QTest::newRow("statement balance is the balance on its date")
            << "SELECT COUNT(*) FROM reconciliations r JOIN accounts a ON a.id = r.account_id "
               "WHERE r.statement_balance != r.reconciled_balance OR r.statement_balance != "
               "a.starting_balance + "
               "(SELECT COALESCE(SUM(t.amount), 0) FROM transactions t WHERE t.account_id = r.account_id "
               "AND t.date <= r.statement_date)";
        QTest::newRow("reconciled rows are cleared and on a statement")
            << "SELECT COUNT(*) FROM transactions t WHERE t.reconciled = 1 AND (t.cleared = 0 OR t.date > "
               "(SELECT COALESCE(MAX(r.statement_date), '') FROM reconciliations r WHERE r.account_id = "
               "t.account_id))";
        QTest::newRow("rows before the newest statement are reconciled")
            << "SELECT COUNT(*) FROM transactions t WHERE t.reconciled = 0 AND t.date <= "
               "(SELECT MAX(r.statement_date) FROM reconciliations r WHERE r.account_id = t.account_id)";
        QTest::newRow("posted rows lie in their rule's schedule")
            << "SELECT COUNT(*) FROM transactions t LEFT JOIN recurring_transactions r ON r.id = "
               "t.recurring_id "
               "WHERE t.recurring_id != '' AND (r.id IS NULL OR t.date < r.start_date "
               "OR t.date > COALESCE(r.end_date, '9999') OR t.date >= r.next_due_date)";
        QTest::newRow("dates and stamps in storage form")
            << "SELECT COUNT(*) FROM transactions WHERE date NOT GLOB "
               "'[12][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9]' "
               "OR created_at NOT GLOB "
               "'[12][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9]T[0-2][0-9]:[0-5][0-9]:[0-5][0-9]Z' "
               "OR updated_at != created_at OR substr(created_at, 1, 10) != date";
    }

    void invariants()
    {
        QFETCH(QString, sql);
        const QVariant broken = m_db->scalar(sql);
        QVERIFY(broken.isValid());
        QCOMPARE(broken.toInt(), 0);
    }

    // Last: it closes the shared database, since one Database may be open at a time.
    void sameSeedGivesSameRows()
    {
        m_db.reset();
        QCOMPARE(generateAndHash(smallHousehold()), m_checksum);
        HouseholdGenerator::Options other = smallHousehold();
        ++other.seed;
        const QByteArray otherHash = generateAndHash(other);
        QVERIFY(!otherHash.isEmpty());
        QVERIFY(otherHash != m_checksum);
    }

private:
    std::unique_ptr<TempDatabase> m_db;
    HouseholdGenerator::Summary m_summary;
    QByteArray m_checksum;
};

QTEST_GUILESS_MAIN(TstHouseholdGenerator)
#include "tst_householdgenerator.moc"
