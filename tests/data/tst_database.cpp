#include "support/TempDatabase.h"

#include "data/Database.h"

#include <QFile>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTest>

namespace {

QString migrationText(const char *resource)
{
    QFile file(QString::fromLatin1(resource));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll());
}

const char kInitial[] = ":/sql/sql/migrations/001_initial.sql";
const char kReconSync[] = ":/sql/sql/migrations/002_recon_sync.sql";

QStringList schemaRows(TempDatabase &db)
{
    QStringList rows;
    QSqlQuery q(db.database()->connection());
    q.exec(QStringLiteral("SELECT version, name FROM schema_version ORDER BY version"));
    while (q.next())
        rows << q.value(0).toString() + QLatin1Char(' ') + q.value(1).toString();
    return rows;
}

bool tableExists(TempDatabase &db, const QString &name)
{
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = '%1'").arg(name))
               .toInt() == 1;
}

} // namespace

class TstDatabase : public QObject {
    Q_OBJECT
private slots:
    void splitStatements_data();
    void splitStatements();
    void splitsInitialMigrationWithTriggersWhole();
    void splitsReconSyncWithTwoLineUpdateWhole();
    void migratesNewFile();
    void secondRunAppliesNothing();
    void migratesVersionOneAndBackfillsReconciliations();
    void leavesNewerFileAlone();
    void brokenMigrationLeavesNothingBehind();
    void fullTextIndexFollowsUpdates();
    void openFailsOnUnreachablePath();
};

void TstDatabase::splitStatements_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("two on two lines") << "SELECT 1;\nSELECT 2;" << QStringList{"SELECT 1", "SELECT 2"};
    QTest::newRow("last without semicolon") << "SELECT 1;\nSELECT 2" << QStringList{"SELECT 1", "SELECT 2"};
    QTest::newRow("whole-line comment dropped")
        << "-- note\n  -- indented note\nSELECT 1;" << QStringList{"SELECT 1"};
    QTest::newRow("trailing comment kept")
        << "SELECT 1; -- why\nSELECT 2;" << QStringList{"SELECT 1; -- why\nSELECT 2"};
    QTest::newRow("lone semicolons skipped") << ";\n\n;\nSELECT 1;" << QStringList{"SELECT 1"};
    QTest::newRow("crlf") << "SELECT 1;\r\nSELECT 2;\r\n" << QStringList{"SELECT 1", "SELECT 2"};
    QTest::newRow("nothing") << "\n\n-- only a comment\n" << QStringList{};
    QTest::newRow("trigger body kept whole")
        << "CREATE TRIGGER t AFTER INSERT ON a BEGIN\n  INSERT INTO b VALUES (1);\n  DELETE FROM "
           "c;\nEND;\nSELECT 1;"
        << QStringList{
               "CREATE TRIGGER t AFTER INSERT ON a BEGIN\n  INSERT INTO b VALUES (1);\n  DELETE FROM c;\nEND",
               "SELECT 1"};
}

void TstDatabase::splitStatements()
{
    QFETCH(QString, sql);
    QFETCH(QStringList, expected);
    QCOMPARE(Database::splitStatements(sql), expected);
}

void TstDatabase::splitsInitialMigrationWithTriggersWhole()
{
    const QStringList statements = Database::splitStatements(migrationText(kInitial));
    // 3 tables, 5 indexes, the index table, 3 triggers, split_lines and its index, 5 more tables.
    QCOMPARE(statements.size(), 19);
    int triggers = 0;
    for (const QString &s : statements) {
        QVERIFY2(!s.startsWith(QLatin1String("--")), qPrintable(s));
        QVERIFY2(!s.endsWith(QLatin1Char(';')), qPrintable(s));
        if (s.startsWith(QLatin1String("CREATE TRIGGER"))) {
            ++triggers;
            QVERIFY2(s.endsWith(QLatin1String("END")), qPrintable(s));
            QVERIFY(s.count(QLatin1Char(';')) >= 1);
        }
    }
    QCOMPARE(triggers, 3);
}

void TstDatabase::splitsReconSyncWithTwoLineUpdateWhole()
{
    const QStringList statements = Database::splitStatements(migrationText(kReconSync));
    QCOMPARE(statements.size(), 7);
    QCOMPARE(statements.last(), QStringLiteral("UPDATE reconciliations SET created_at = completed_at, "
                                               "updated_at = completed_at\nWHERE created_at = ''"));
}

void TstDatabase::migratesNewFile()
{
    TempDatabase db;
    QVERIFY(db.open(false));
    QSignalSpy applied(db.database(), &Database::migrationApplied);
    QVERIFY(db.database()->runMigrations());

    QCOMPARE(applied.size(), 2);
    QCOMPARE(schemaRows(db), (QStringList{"1 initial", "2 recon_sync"}));
    for (const char *table :
         {"accounts", "categories", "transactions", "transactions_fts", "split_lines",
          "recurring_transactions", "reconciliations", "transaction_templates", "sync_queue", "preferences"})
        QVERIFY2(tableExists(db, QString::fromLatin1(table)), table);
    QCOMPARE(db.scalar(QStringLiteral("PRAGMA journal_mode")).toString(), QStringLiteral("wal"));
    QCOMPARE(db.scalar(QStringLiteral("PRAGMA foreign_keys")).toInt(), 1);
}

void TstDatabase::secondRunAppliesNothing()
{
    TempDatabase db;
    QVERIFY(db.open());
    // A file from before the register's index gets it on the next open, under no new version.
    QVERIFY(db.exec(QStringLiteral("DROP INDEX idx_transactions_account_date")));
    QSignalSpy applied(db.database(), &Database::migrationApplied);
    QSignalSpy failed(db.database(), &Database::migrationError);
    QVERIFY(db.database()->runMigrations());
    QCOMPARE(applied.size(), 0);
    QCOMPARE(failed.size(), 0);
    QCOMPARE(schemaRows(db).size(), 2);
    QVERIFY(tableExists(db, QStringLiteral("idx_transactions_account_date")));

    // The register's read walks the index in order instead of sorting the account's rows.
    QSqlQuery plan(db.database()->connection());
    QVERIFY(plan.exec(QStringLiteral(
        "EXPLAIN QUERY PLAN SELECT t.id FROM transactions t LEFT JOIN categories c ON t.category_id = c.id "
        "WHERE t.account_id = 'a' AND t.deleted_at IS NULL ORDER BY t.date ASC, t.created_at ASC")));
    QString steps;
    while (plan.next())
        steps += plan.value(3).toString() + QLatin1Char('\n');
    QVERIFY2(steps.contains(QLatin1String("idx_transactions_account_date")), qPrintable(steps));
    QVERIFY2(!steps.contains(QLatin1String("TEMP B-TREE")), qPrintable(steps));
}

void TstDatabase::migratesVersionOneAndBackfillsReconciliations()
{
    // A file as version 1 left it, built from version 1's own SQL.
    TempDatabase db;
    QVERIFY(db.open(false));
    QVERIFY(db.exec(
        QStringLiteral("CREATE TABLE IF NOT EXISTS schema_version (  version INTEGER PRIMARY KEY,  "
                       "name    TEXT NOT NULL,  applied_at TEXT NOT NULL DEFAULT (datetime('now')))")));
    QVERIFY(db.database()->applyMigration(1, QStringLiteral("initial"), migrationText(kInitial)));
    QVERIFY(
        db.exec(QStringLiteral("INSERT INTO accounts (id, name, created_at, updated_at) "
                               "VALUES ('a1', 'Checking', '2020-01-01T00:00:00Z', '2020-01-01T00:00:00Z')")));
    QVERIFY(db.exec(QStringLiteral("INSERT INTO reconciliations VALUES "
                                   "('r1', 'a1', '2020-02-01', 1000, 1000, '2020-02-03T10:00:00Z'), "
                                   "('r2', 'a1', '2020-03-01', -50, -50, '2020-03-02T09:30:00Z')")));

    QSignalSpy applied(db.database(), &Database::migrationApplied);
    QVERIFY(db.database()->runMigrations());
    QCOMPARE(applied.size(), 1);
    QCOMPARE(applied.first().at(0).toInt(), 2);

    QSqlQuery q(db.database()->connection());
    QVERIFY(q.exec(
        QStringLiteral("SELECT id, created_at, updated_at, version, sync_status, server_id, deleted_at "
                       "FROM reconciliations ORDER BY id")));
    QVERIFY(q.next());
    QCOMPARE(q.value(1).toString(), QStringLiteral("2020-02-03T10:00:00Z"));
    QCOMPARE(q.value(2).toString(), QStringLiteral("2020-02-03T10:00:00Z"));
    QCOMPARE(q.value(3).toInt(), 1);
    QCOMPARE(q.value(4).toString(), QStringLiteral("pending"));
    QVERIFY(q.value(5).isNull());
    QVERIFY(q.value(6).isNull());
    QVERIFY(q.next());
    QCOMPARE(q.value(1).toString(), QStringLiteral("2020-03-02T09:30:00Z"));
    QVERIFY(!q.next());
}

void TstDatabase::leavesNewerFileAlone()
{
    TempDatabase db;
    QVERIFY(db.open(false));
    QVERIFY(db.exec(
        QStringLiteral("CREATE TABLE schema_version (version INTEGER PRIMARY KEY, name TEXT NOT NULL, "
                       "applied_at TEXT NOT NULL DEFAULT (datetime('now')))")));
    QVERIFY(db.exec(QStringLiteral("INSERT INTO schema_version (version, name) VALUES (3, 'future')")));
    QSignalSpy applied(db.database(), &Database::migrationApplied);
    QVERIFY(db.database()->runMigrations());
    QCOMPARE(applied.size(), 0);
    QVERIFY(!tableExists(db, QStringLiteral("accounts")));
}

void TstDatabase::brokenMigrationLeavesNothingBehind()
{
    TempDatabase db;
    QVERIFY(db.open());
    QSignalSpy failed(db.database(), &Database::migrationError);
    QTest::ignoreMessage(QtCriticalMsg,
                         QRegularExpression(QStringLiteral("^Migration 3 failed: .*\nStatement: ")));
    QVERIFY(!db.database()->applyMigration(3, QStringLiteral("broken"),
                                           QStringLiteral("CREATE TABLE first_half (x INTEGER);\n"
                                                          "ALTER TABLE accounts ADD COLUMN flag INTEGER;\n"
                                                          "CREATE TABLE second_half (;\n")));
    QCOMPARE(failed.size(), 1);
    QCOMPARE(failed.first().at(0).toInt(), 3);
    QVERIFY(!tableExists(db, QStringLiteral("first_half")));
    QCOMPARE(
        db.scalar(QStringLiteral("SELECT COUNT(*) FROM pragma_table_info('accounts') WHERE name = 'flag'"))
            .toInt(),
        0);
    QCOMPARE(schemaRows(db), (QStringList{"1 initial", "2 recon_sync"}));
}

void TstDatabase::fullTextIndexFollowsUpdates()
{
    TempDatabase db;
    QVERIFY(db.open());
    QVERIFY(
        db.exec(QStringLiteral("INSERT INTO accounts (id, name, created_at, updated_at) "
                               "VALUES ('a1', 'Checking', '2020-01-01T00:00:00Z', '2020-01-01T00:00:00Z')")));
    QVERIFY(db.exec(
        QStringLiteral("INSERT INTO transactions (id, account_id, date, payee, memo, amount, created_at, "
                       "updated_at) VALUES ('t1', 'a1', '2020-01-02', 'Corner Bakery', 'rye loaf', "
                       "-450, '2020-01-02T00:00:00Z', '2020-01-02T00:00:00Z')")));
    const QString match =
        QStringLiteral("SELECT COUNT(*) FROM transactions_fts WHERE transactions_fts MATCH '%1'");
    QCOMPARE(db.scalar(match.arg(QStringLiteral("bakery"))).toInt(), 1);

    QVERIFY(db.exec(QStringLiteral("UPDATE transactions SET payee = 'Harbour Fish' WHERE id = 't1'")));
    QCOMPARE(db.scalar(match.arg(QStringLiteral("bakery"))).toInt(), 0);
    QCOMPARE(db.scalar(match.arg(QStringLiteral("harbour"))).toInt(), 1);

    QVERIFY(db.exec(QStringLiteral("DELETE FROM transactions WHERE id = 't1'")));
    QCOMPARE(db.scalar(match.arg(QStringLiteral("harbour"))).toInt(), 0);
}

void TstDatabase::openFailsOnUnreachablePath()
{
    QTemporaryDir dir;
    Database database;
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("^Failed to open database: ")));
    QVERIFY(!database.open(dir.filePath(QStringLiteral("missing/sub/ombrel.db"))));
}

QTEST_GUILESS_MAIN(TstDatabase)
#include "tst_database.moc"
