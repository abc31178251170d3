#include "data/Database.h"
#include "support/Line.h"
#include "support/SpyText.h"
#include "support/TempDatabase.h"

#include <QFile>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTest>

#include <optional>

namespace {

QString migrationText(const char *resource)
{
    QFile file(QString::fromLatin1(resource));
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll()) : QString();
}

const char kInitial[] = ":/sql/sql/migrations/001_initial.sql";

QString schemaRows(TempDatabase &db)
{
    return db
        .scalar("SELECT group_concat(version || ' ' || name, ', ') FROM "
                "(SELECT * FROM schema_version ORDER BY version)")
        .toString();
}

bool tableExists(TempDatabase &db, const QString &name)
{
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = '%1'").arg(name))
               .toInt() == 1;
}

const QString kSchemaVersion =
    QStringLiteral("CREATE TABLE schema_version (version INTEGER PRIMARY KEY, name TEXT NOT NULL, "
                   "applied_at TEXT NOT NULL DEFAULT (datetime('now')))");

const QString kAccount =
    QStringLiteral("INSERT INTO accounts (id, name, created_at, updated_at) "
                   "VALUES ('a1', 'Checking', '2020-01-01T00:00:00Z', '2020-01-01T00:00:00Z')");

} // namespace

class TstDatabase : public QObject {
    Q_OBJECT
    // Opened but not migrated: each case brings the file to the state it starts from.
    std::optional<TempDatabase> m_db;

private slots:
    void init()
    {
        m_db.emplace();
        QVERIFY(m_db->open(false));
    }

    void splitStatements_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QStringList>("expected");
        const QStringList two{"SELECT 1", "SELECT 2"};
        QTest::newRow("two on two lines") << "SELECT 1;\nSELECT 2;" << two;
        QTest::newRow("last without semicolon") << "SELECT 1;\nSELECT 2" << two;
        QTest::newRow("crlf") << "SELECT 1;\r\nSELECT 2;\r\n" << two;
        QTest::newRow("whole-line comment dropped")
            << "-- note\n  -- indented note\nSELECT 1;" << QStringList{"SELECT 1"};
        QTest::newRow("trailing comment kept")
            << "SELECT 1; -- why\nSELECT 2;" << QStringList{"SELECT 1; -- why\nSELECT 2"};
        QTest::newRow("lone semicolons skipped") << ";\n\n;\nSELECT 1;" << QStringList{"SELECT 1"};
        QTest::newRow("nothing") << "\n\n-- only a comment\n" << QStringList{};
        const QString trigger =
            "CREATE TRIGGER t AFTER INSERT ON a BEGIN\n  INSERT INTO b VALUES (1);\n  DELETE FROM c;\nEND";
        QTest::newRow("trigger body kept whole")
            << trigger + ";\nSELECT 1;" << QStringList{trigger, "SELECT 1"};
    }

    void splitStatements()
    {
        QFETCH(QString, sql);
        QFETCH(QStringList, expected);
        QCOMPARE(Database::splitStatements(sql), expected);
    }

    void migratesNewFileOnce()
    {
        TempDatabase &db = *m_db;
        QSignalSpy applied(db.database(), &Database::migrationApplied);
        QSignalSpy failed(db.database(), &Database::migrationError);
        QVERIFY(db.database()->runMigrations());
        QCOMPARE(line(applied.size(), schemaRows(db)), "2 1 initial, 2 recon_sync");
        for (const char *table : {"accounts", "categories", "transactions", "transactions_fts", "split_lines",
                                  "recurring_transactions", "reconciliations", "transaction_templates",
                                  "sync_queue", "preferences"})
            QVERIFY2(tableExists(db, QString::fromLatin1(table)), table);
        QVERIFY(db.database()->runMigrations());
        QCOMPARE(line(db.scalar(QStringLiteral("PRAGMA journal_mode")).toString(),
                      db.scalar(QStringLiteral("PRAGMA foreign_keys")).toInt(), applied.size(),
                      failed.size()),
                 "wal 1 2 0");
    }

    void registerIndexMadeAtOpen()
    {
        TempDatabase &db = *m_db;
        QVERIFY(db.database()->runMigrations());
        // A file from before the register's index gets it on the next open, under no new version.
        QVERIFY(db.exec(QStringLiteral("DROP INDEX idx_transactions_account_date")));
        QSignalSpy applied(db.database(), &Database::migrationApplied);
        QVERIFY(db.database()->runMigrations());
        QCOMPARE(applied.size(), 0);
        QVERIFY(tableExists(db, QStringLiteral("idx_transactions_account_date")));

        // The register's read walks the index in order instead of sorting the account's rows.
        QSqlQuery plan(db.database()->connection());
        QVERIFY(plan.exec(QStringLiteral(
            "EXPLAIN QUERY PLAN SELECT t.id FROM transactions t LEFT JOIN categories c ON t.category_id = "
            "c.id "
            "WHERE t.account_id = 'a' AND t.deleted_at IS NULL ORDER BY t.date ASC, t.created_at ASC")));
        QString steps;
        while (plan.next())
            steps += plan.value(3).toString() + QLatin1Char('\n');
        QVERIFY2(steps.contains(QLatin1String("idx_transactions_account_date")), qPrintable(steps));
        QVERIFY2(!steps.contains(QLatin1String("TEMP B-TREE")), qPrintable(steps));

        // A pull finds a row by its server id without reading the table.
        for (const QString table : QStringList{"accounts", "categories", "recurring_transactions",
                                               "transactions", "reconciliations"}) {
            QVERIFY(plan.exec(
                QStringLiteral("EXPLAIN QUERY PLAN SELECT id FROM %1 WHERE server_id = 'x'").arg(table)));
            QVERIFY(plan.next());
            QVERIFY2(plan.value(3).toString().contains(QStringLiteral("idx_%1_server_id").arg(table)),
                     qPrintable(plan.value(3).toString()));
        }
    }

    void migratesVersionOneAndBackfillsReconciliations()
    {
        // A file as version 1 left it, built from version 1's own SQL.
        TempDatabase &db = *m_db;
        QVERIFY(db.exec(kSchemaVersion));
        QVERIFY(db.database()->applyMigration(1, QStringLiteral("initial"), migrationText(kInitial)));
        QVERIFY(db.exec(kAccount));
        QVERIFY(db.exec(QStringLiteral("INSERT INTO reconciliations VALUES "
                                       "('r1', 'a1', '2020-02-01', 1000, 1000, '2020-02-03T10:00:00Z'), "
                                       "('r2', 'a1', '2020-03-01', -50, -50, '2020-03-02T09:30:00Z')")));
        QSignalSpy applied(db.database(), &Database::migrationApplied);
        QVERIFY(db.database()->runMigrations());
        QCOMPARE(spyText(applied), "2,recon_sync");
        QCOMPARE(
            db.scalar("SELECT group_concat(created_at || ' ' || updated_at || ' ' || version || ' ' || "
                      "sync_status || ' ' || IFNULL(server_id, '-') || ' ' || IFNULL(deleted_at, '-'), ', ') "
                      "FROM (SELECT * FROM reconciliations ORDER BY id)")
                .toString(),
            QStringLiteral("2020-02-03T10:00:00Z 2020-02-03T10:00:00Z 1 pending - -, "
                           "2020-03-02T09:30:00Z 2020-03-02T09:30:00Z 1 pending - -"));
    }

    void leavesNewerFileAlone()
    {
        TempDatabase &db = *m_db;
        QVERIFY(db.exec(kSchemaVersion));
        QVERIFY(db.exec(QStringLiteral("INSERT INTO schema_version (version, name) VALUES (3, 'future')")));
        QSignalSpy applied(db.database(), &Database::migrationApplied);
        QVERIFY(db.database()->runMigrations());
        QCOMPARE(applied.size(), 0);
        QVERIFY(!tableExists(db, QStringLiteral("accounts")));
    }

    void brokenMigrationLeavesNothingBehind()
    {
        TempDatabase &db = *m_db;
        QVERIFY(db.database()->runMigrations());
        QSignalSpy failed(db.database(), &Database::migrationError);
        QTest::ignoreMessage(QtCriticalMsg,
                             QRegularExpression(QStringLiteral("^Migration 3 failed: .*\nStatement: ")));
        QVERIFY(
            !db.database()->applyMigration(3, QStringLiteral("broken"),
                                           QStringLiteral("CREATE TABLE first_half (x INTEGER);\n"
                                                          "ALTER TABLE accounts ADD COLUMN flag INTEGER;\n"
                                                          "CREATE TABLE second_half (;\n")));
        QCOMPARE(
            line(failed.size(), failed.first().at(0).toInt(), tableExists(db, QStringLiteral("first_half")),
                 db.scalar("SELECT COUNT(*) FROM pragma_table_info('accounts') WHERE name = 'flag'").toInt(),
                 schemaRows(db)),
            "1 3 0 0 1 initial, 2 recon_sync");
    }

    void fullTextIndexFollowsUpdates()
    {
        TempDatabase &db = *m_db;
        QVERIFY(db.database()->runMigrations());
        QVERIFY(db.exec(kAccount));
        QVERIFY(db.exec(
            QStringLiteral("INSERT INTO transactions (id, account_id, date, payee, memo, amount, "
                           "created_at, updated_at) VALUES ('t1', 'a1', '2020-01-02', 'Corner Bakery', "
                           "'rye loaf', -450, '2020-01-02T00:00:00Z', '2020-01-02T00:00:00Z')")));
        const auto matches = [&db](const char *word) {
            return db
                .scalar(
                    QStringLiteral("SELECT COUNT(*) FROM transactions_fts WHERE transactions_fts MATCH '%1'")
                        .arg(QLatin1String(word)))
                .toInt();
        };
        const int before = matches("bakery");
        QVERIFY(db.exec(QStringLiteral("UPDATE transactions SET payee = 'Harbour Fish' WHERE id = 't1'")));
        const QString updated = line(before, matches("bakery"), matches("harbour"));
        QVERIFY(db.exec(QStringLiteral("DELETE FROM transactions WHERE id = 't1'")));
        QCOMPARE(line(updated, matches("harbour")), "1 0 1 0");
    }

    void openFailsOnUnreachablePath()
    {
        QTemporaryDir dir;
        Database database;
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("^Failed to open database: ")));
        QVERIFY(!database.open(dir.filePath(QStringLiteral("missing/sub/ombrel.db"))));
    }
};

QTEST_GUILESS_MAIN(TstDatabase)
#include "tst_database.moc"
