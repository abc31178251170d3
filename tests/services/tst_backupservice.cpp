#include "services/BackupService.h"

#include "HouseholdGenerator.h"
#include "services/ZipArchiveWriter.h"
#include "support/Line.h"
#include "support/TempDatabase.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>
#include <QtGui/private/qzipreader_p.h>

#include <optional>

namespace {

const char *const kSyncedTables[] = {"accounts", "categories", "transactions", "recurring_transactions",
                                     "reconciliations"};

// Every row of a table by id, with all columns but the three sync fields a restore resets.
QMap<QString, QStringList> rowsOf(TempDatabase &db, const char *table)
{
    QMap<QString, QStringList> rows;
    QSqlQuery q(db.database()->connection());
    q.exec(QStringLiteral("SELECT * FROM %1").arg(QLatin1String(table)));
    while (q.next()) {
        QStringList values;
        for (int i = 0; i < q.record().count(); ++i) {
            if (!QStringList{"version", "sync_status", "server_id"}.contains(q.record().fieldName(i)))
                values << (q.isNull(i) ? QStringLiteral("<null>") : q.value(i).toString());
        }
        rows.insert(q.value(0).toString(), values);
    }
    return rows;
}

QJsonObject json(const QByteArray &bytes)
{
    return QJsonDocument::fromJson(bytes).object();
}

QByteArray manifest(int version = 1)
{
    return QStringLiteral("{\n    \"version\": %1\n}\n").arg(version).toUtf8();
}

QByteArray accountRow(const QString &id, const QString &name,
                      const QString &updatedAt = "2025-03-01T00:00:00Z")
{
    QJsonObject row =
        json(QStringLiteral(R"({"id": "%1", "name": "%2", "account_type": "checking", "currency":
        "USD", "created_at": "2025-01-01T00:00:00Z", "deleted_at": null})")
                 .arg(id, name)
                 .toUtf8());
    if (!updatedAt.isNull())
        row.insert("updated_at", updatedAt);
    return QJsonDocument(row).toJson();
}

// Imported/skipped for accounts, categories, transactions, split lines, rules and reconciliations, then
// the errors, so that a whole result compares at once.
QString counts(const BackupImportResult &r)
{
    return line(r.accountsImported, r.accountsSkipped, r.categoriesImported, r.categoriesSkipped,
                r.transactionsImported, r.transactionsSkipped, r.splitLinesImported, r.splitLinesSkipped,
                r.recurringImported, r.recurringSkipped, r.reconciliationsImported, r.reconciliationsSkipped,
                r.errors.join('|'))
        .trimmed();
}

// Name, contents, name, contents...; a manifest of version 1 at the end unless told otherwise.
QByteArray archiveOf(QList<QByteArray> entries, bool withManifest = true)
{
    if (withManifest)
        entries << "manifest.json" << manifest();
    ZipArchiveWriter writer;
    for (qsizetype i = 0; i + 1 < entries.size(); i += 2)
        writer.addFile(QString::fromUtf8(entries.at(i)), entries.at(i + 1));
    return writer.finish();
}

} // namespace

class TstBackupService : public QObject {
    Q_OBJECT
    std::optional<TempDatabase> m_db;
    std::optional<BackupService> m_service;
    // The household as exported, and what its tables held.
    QByteArray m_householdArchive;
    QMap<QString, QMap<QString, QStringList>> m_householdRows;
    int m_householdSplitLines = 0;

    QVariant value(const QString &sql) { return m_db->scalar(sql); }
    BackupImportResult import(const QByteArray &archive, BackupImportMode mode = BackupImportMode::Replace)
    {
        return m_service->importFromZip(archive, mode);
    }

private slots:
    void initTestCase()
    {
        TempDatabase source;
        QVERIFY(source.open());
        QVERIFY(
            HouseholdGenerator::generate(
                source.database(),
                {.accounts = 3, .years = 2, .transactions = 2000, .recurringRules = 12, .reconciliations = 6})
                .ok);
        // Rows the server has seen, and rows deleted, so that the reset and the tombstones show.
        QVERIFY(
            source.exec("UPDATE accounts SET sync_status = 'synced', server_id = 'srv-' || id, version = 4"));
        QVERIFY(source.exec("UPDATE transactions SET sync_status = 'synced', server_id = 'srv-' || id, "
                            "version = 7 WHERE rowid % 3 = 0"));
        QVERIFY(
            source.exec("UPDATE transactions SET deleted_at = '2025-02-01T10:00:00Z' WHERE rowid % 40 = 0"));
        QVERIFY(source.exec(
            "UPDATE recurring_transactions SET deleted_at = '2025-02-01T10:00:00Z' WHERE rowid = 2"));
        for (const char *table : kSyncedTables) {
            m_householdRows.insert(QLatin1String(table), rowsOf(source, table));
            QVERIFY(!m_householdRows.value(QLatin1String(table)).isEmpty());
        }
        m_householdSplitLines = source.scalar("SELECT COUNT(*) FROM split_lines").toInt();
        QVERIFY(m_householdSplitLines > 0);
        m_householdArchive = BackupService(source.database()).exportToZip();
    }

    void init()
    {
        m_service.reset();
        m_db.emplace();
        QVERIFY(m_db->open());
        m_service.emplace(m_db->database());
    }

    void exportWritesEveryRowInColumnOrder()
    {
        QVERIFY(m_db->exec(
            "INSERT INTO accounts (id, name, created_at, updated_at, deleted_at) VALUES "
            "('acc', 'Checking', '2025-01-01T00:00:00Z', '2025-01-01T00:00:00Z', NULL), "
            "('old', 'Closed', '2025-01-01T00:00:00Z', '2025-01-02T00:00:00Z', '2025-01-02T00:00:00Z')"));
        const QString memo = QStringLiteral("say \"hi\"\\ back\n\ttab \x01 é 😀");
        QSqlQuery insert(m_db->database()->connection());
        insert.prepare(
            "INSERT INTO transactions (id, account_id, date, payee, memo, amount, created_at, updated_at) "
            "VALUES ('t', 'acc', '2025-01-05', 'Grocer', ?, 9007199254740993, '2025-01-05T00:00:00Z', "
            "'2025-01-05T00:00:00Z')");
        insert.addBindValue(memo);
        QVERIFY(insert.exec());

        // What another ZIP reader finds.
        QByteArray archive = m_service->exportToZip();
        QBuffer buffer(&archive);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QZipReader reader(&buffer);
        QStringList names;
        for (const QZipReader::FileInfo &info : reader.fileInfoList())
            names << info.filePath;
        QCOMPARE(names, (QStringList{"accounts/acc.json", "accounts/old.json", "transactions/t.json",
                                     "manifest.json"}));
        // Keys in the order of the table's columns, four spaces in, as QJsonDocument indents.
        const QByteArray account = reader.fileData(names.at(0));
        QVERIFY(account.startsWith("{\n    \"id\": \"acc\",\n") && account.endsWith("\n}\n"));
        QStringList keys, columns;
        const QRegularExpression key(QStringLiteral("^    \"([^\"]+)\": "),
                                     QRegularExpression::MultilineOption);
        for (auto it = key.globalMatch(QString::fromUtf8(account)); it.hasNext();)
            keys << it.next().captured(1);
        QSqlQuery q(m_db->database()->connection());
        QVERIFY(q.exec(QStringLiteral("SELECT * FROM accounts LIMIT 0")));
        for (int i = 0; i < q.record().count(); ++i)
            columns << q.record().fieldName(i);
        QCOMPARE(keys, columns);

        const QJsonObject deleted = json(reader.fileData(names.at(1)));
        const QJsonObject row = json(reader.fileData(names.at(2)));
        QCOMPARE(line(deleted.value("deleted_at").toString(), deleted.value("server_id").isNull(),
                      deleted.value("version").toInteger(), row.value("amount").toInteger(),
                      row.value("check_number").isNull()),
                 "2025-01-02T00:00:00Z 1 1 9007199254740993 1");
        QCOMPARE(row.value("memo").toString(), memo);
        const QJsonObject m = json(reader.fileData(names.at(3)));
        // Numbers, not texts.
        const auto n = [&m](const char *key) { return m.value(key).isDouble() ? m.value(key).toInt() : -1; };
        QCOMPARE(line(n("version"), n("accountCount"), n("categoryCount"), n("transactionCount"),
                      n("splitLineCount"), n("recurringCount"), n("reconciliationCount")),
                 "1 2 0 1 0 0 0");
        const QString exportedAt = m.value("exportedAt").toString();
        QVERIFY2(QDateTime::fromString(exportedAt, Qt::ISODate).timeSpec() == Qt::UTC,
                 qPrintable(exportedAt));
    }

    void householdComesBackAsNewUnsentRows()
    {
        const BackupImportResult result = import(m_householdArchive);
        const auto rows = [this](const char *table) { return m_householdRows.value(table).size(); };
        // Split lines have no sync columns, so the keys the restore gives them fail every row.
        QCOMPARE(counts(result),
                 line(rows("accounts"), 0, rows("categories"), 0, rows("transactions"), 0, 0,
                      m_householdSplitLines, rows("recurring_transactions"), 0, rows("reconciliations"), 0));
        for (const char *table : kSyncedTables) {
            QCOMPARE(rowsOf(*m_db, table), m_householdRows.value(QLatin1String(table)));
            QCOMPARE(
                value(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE version != 1 OR sync_status != 'pending' "
                                     "OR server_id IS NOT NULL")
                          .arg(QLatin1String(table)))
                    .toInt(),
                0);
        }
        QCOMPARE(value("SELECT COUNT(*) FROM split_lines").toInt(), 0);
        QVERIFY(value("SELECT COUNT(*) FROM transactions WHERE deleted_at IS NOT NULL").toInt() > 0);

        // Skipping what is there skips everything the second time.
        const BackupImportResult again = import(m_householdArchive, BackupImportMode::SkipExisting);
        QCOMPARE(counts(again),
                 line(0, rows("accounts"), 0, rows("categories"), 0, rows("transactions"), 0,
                      m_householdSplitLines, 0, rows("recurring_transactions"), 0, rows("reconciliations")));
        // The totals the restore screen shows add up every kind.
        QCOMPARE(line(result.totalSkipped(), again.totalImported(), again.totalSkipped()),
                 line(m_householdSplitLines, 0, result.totalImported() + result.totalSkipped()));
    }

    void existingRow_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("backupUpdatedAt");
        QTest::addColumn<bool>("replaced");
        // Ours was last changed at 2025-03-01T00:00:00Z.
        const int skip = int(BackupImportMode::SkipExisting), replace = int(BackupImportMode::Replace),
                  newer = int(BackupImportMode::KeepNewer);
        // clang-format off
        QTest::newRow("skip existing, backup newer")     << skip    << "2025-06-01T00:00:00Z" << false;
        QTest::newRow("replace, backup older")           << replace << "2024-01-01T00:00:00Z" << true;
        QTest::newRow("keep newer, equal")               << newer   << "2025-03-01T00:00:00Z" << false;
        QTest::newRow("keep newer, a second older")      << newer   << "2025-02-28T23:59:59Z" << false;
        QTest::newRow("keep newer, a second newer")      << newer   << "2025-03-01T00:00:01Z" << true;
        QTest::newRow("keep newer, backup without stamp") << newer  << QString()              << false;
        // clang-format on
    }

    void existingRow()
    {
        QFETCH(int, mode);
        QFETCH(QString, backupUpdatedAt);
        QFETCH(bool, replaced);
        QVERIFY(m_db->exec(
            "INSERT INTO accounts (id, name, version, sync_status, server_id, created_at, updated_at) "
            "VALUES ('a', 'Ours', 3, 'synced', 'srv-a', '2025-01-01T00:00:00Z', '2025-03-01T00:00:00Z')"));
        const BackupImportResult result =
            import(archiveOf({"accounts/a.json", accountRow("a", "Theirs", backupUpdatedAt)}),
                   BackupImportMode(mode));
        QCOMPARE(counts(result), replaced ? "1 0 0 0 0 0 0 0 0 0 0 0" : "0 1 0 0 0 0 0 0 0 0 0 0");
        QCOMPARE(value("SELECT name || ' ' || version || ' ' || sync_status || ' ' || IFNULL(server_id, '-') "
                       "FROM accounts")
                     .toString(),
                 replaced ? QStringLiteral("Theirs 1 pending -") : QStringLiteral("Ours 3 synced srv-a"));
    }

    void refusedArchivesImportNothing_data()
    {
        QTest::addColumn<QByteArray>("archive");
        QTest::addColumn<QString>("error");
        const QByteArray name = "accounts/a.json", row = accountRow("a", "A");
        const QString notZip = QStringLiteral("Failed to open ZIP archive");
        const QString noManifest = QStringLiteral("Invalid backup: missing manifest.json");
        const QByteArray named = "manifest.json";
        // clang-format off
        QTest::newRow("not a ZIP")                << QByteArray("PK but no more than a few words") << notZip;
        QTest::newRow("empty file")               << QByteArray() << notZip;
        QTest::newRow("entry over the size limit") << archiveOf({name, row, "notes/big.bin", QByteArray(17 * 1024 * 1024, 'x')}) << notZip;
        QTest::newRow("no manifest")              << archiveOf({name, row}, false) << noManifest;
        QTest::newRow("no entries at all")        << archiveOf({}, false) << noManifest;
        QTest::newRow("empty manifest")           << archiveOf({name, row, named, ""}, false) << noManifest;
        QTest::newRow("version 2")                << archiveOf({name, row, named, manifest(2)}, false) << "Unsupported backup version: 2";
        QTest::newRow("version as text")          << archiveOf({name, row, named, "{\"version\": \"1\"}"}, false) << "Unsupported backup version: 0";
        // clang-format on
    }

    void refusedArchivesImportNothing()
    {
        QFETCH(QByteArray, archive);
        QFETCH(QString, error);
        QCOMPARE(counts(import(archive)), "0 0 0 0 0 0 0 0 0 0 0 0 " + error);
        QCOMPARE(value("SELECT COUNT(*) FROM accounts").toInt(), 0);
    }

    void oddlyNamedEntriesAreIgnored()
    {
        QList<QByteArray> entries;
        for (const char *name : {"notes/readme.txt", "accounts/x.txt", "accountsx/y.json", "Accounts/z.json",
                                 "accounts.json", "./accounts/w.json", "recurring.json"})
            entries << name << accountRow("x", "Not to be read");
        entries << "accounts/a.json" << accountRow("a", "Real") << "manifest.json" << manifest()
                << "manifest.json.bak" << manifest(2);
        QCOMPARE(counts(import(archiveOf(entries, false))), "1 0 0 0 0 0 0 0 0 0 0 0");
        QCOMPARE(value("SELECT group_concat(name) FROM accounts").toString(), QStringLiteral("Real"));
    }

    void badRowIsSkippedAndNothingElseTouched_data()
    {
        QTest::addColumn<QByteArray>("row");
        QTest::addColumn<QString>("error");
        const auto withKey = [](const QString &key, const QJsonValue &value) {
            QJsonObject row = json(accountRow("bad", "Bad"));
            row.insert(key, value);
            return QJsonDocument(row).toJson();
        };
        const QString invalid = QStringLiteral("accounts/bad.json: invalid JSON");
        QTest::newRow("unknown column") << withKey("nickname", "B") << QString();
        QTest::newRow("key smuggling a statement")
            << withKey("name) VALUES ('p', 'q', 'r', 's'); DROP TABLE accounts; --", "x") << QString();
        QTest::newRow("key with a quote") << withKey("na\"me", "x") << QString();
        QTest::newRow("column of another table") << withKey("transaction_id", "t") << QString();
        QTest::newRow("array value") << withKey("institution", QJsonArray{1, 2}) << QString();
        QTest::newRow("numeric id") << withKey("id", 5) << QString();
        QTest::newRow("no id")
            << QByteArray("{\"name\": \"Nameless\", \"created_at\": \"x\", \"updated_at\": \"x\"}")
            << QString();
        QTest::newRow("missing required column") << QByteArray("{\"id\": \"bad\"}") << QString();
        QTest::newRow("not JSON") << QByteArray("{ \"id\": ") << invalid;
        QTest::newRow("empty object") << QByteArray("{}") << invalid;
        QTest::newRow("array") << QByteArray("[1, 2]") << invalid;
    }

    void badRowIsSkippedAndNothingElseTouched()
    {
        QFETCH(QByteArray, row);
        QFETCH(QString, error);
        QVERIFY(m_db->exec("INSERT INTO accounts (id, name, created_at, updated_at) VALUES "
                           "('mine', 'Mine', '2025-01-01T00:00:00Z', '2025-01-01T00:00:00Z')"));
        const QString schema = value("SELECT group_concat(name) FROM sqlite_master").toString();
        QCOMPARE(counts(import(archiveOf(
                     {"accounts/bad.json", row, "accounts/good.json", accountRow("good", "Good")}))),
                 line(1, error.isEmpty() ? 1 : 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, error).trimmed());
        QCOMPARE(
            value("SELECT group_concat(id || ':' || name, ' ') FROM (SELECT * FROM accounts ORDER BY id)")
                .toString(),
            QStringLiteral("good:Good mine:Mine"));
        QCOMPARE(value("SELECT group_concat(name) FROM sqlite_master").toString(), schema);
    }
};

QTEST_GUILESS_MAIN(TstBackupService)
#include "tst_backupservice.moc"
