#include "services/BackupService.h"

#include "HouseholdGenerator.h"
#include "services/ZipArchiveWriter.h"
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

#include <memory>

namespace {

const char *const kSyncedTables[] = {"accounts", "categories", "transactions", "recurring_transactions",
                                     "reconciliations"};

// Every row of a table by id, with all columns but the three sync fields a restore resets.
QMap<QString, QStringList> rowsOf(TempDatabase &db, const char *table)
{
    QMap<QString, QStringList> rows;
    QSqlQuery q(db.database()->connection());
    q.exec(QStringLiteral("SELECT * FROM %1").arg(QLatin1String(table)));
    const QSqlRecord record = q.record();
    while (q.next()) {
        QStringList values;
        for (int i = 0; i < record.count(); ++i) {
            const QString column = record.fieldName(i);
            if (column == QLatin1String("version") || column == QLatin1String("sync_status") ||
                column == QLatin1String("server_id"))
                continue;
            values << (q.isNull(i) ? QStringLiteral("<null>") : q.value(i).toString());
        }
        rows.insert(q.value(0).toString(), values);
    }
    return rows;
}

QStringList columnsOf(TempDatabase &db, const char *table)
{
    QSqlQuery q(db.database()->connection());
    q.exec(QStringLiteral("SELECT * FROM %1 LIMIT 0").arg(QLatin1String(table)));
    QStringList names;
    for (int i = 0; i < q.record().count(); ++i)
        names << q.record().fieldName(i);
    return names;
}

// What another ZIP reader finds: names in order, and contents.
QList<QPair<QString, QByteArray>> entriesOf(const QByteArray &archive)
{
    QByteArray copy = archive;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    QZipReader reader(&buffer);
    QList<QPair<QString, QByteArray>> entries;
    for (const QZipReader::FileInfo &info : reader.fileInfoList())
        entries.append({info.filePath, reader.fileData(info.filePath)});
    return entries;
}

QByteArray manifest(int version = 1)
{
    return QStringLiteral("{\n    \"version\": %1\n}\n").arg(version).toUtf8();
}

QByteArray accountRow(const QString &id, const QString &name,
                      const QString &updatedAt = "2025-03-01T00:00:00Z")
{
    QJsonObject row{
        {"id",           id                    },
        {"name",         name                  },
        {"account_type", "checking"            },
        {"currency",     "USD"                 },
        {"created_at",   "2025-01-01T00:00:00Z"},
        {"updated_at",   updatedAt             },
        {"deleted_at",   QJsonValue::Null      },
    };
    if (updatedAt.isNull())
        row.remove("updated_at");
    return QJsonDocument(row).toJson();
}

QByteArray archiveOf(const QList<QPair<QString, QByteArray>> &entries)
{
    ZipArchiveWriter writer;
    for (const auto &[name, data] : entries)
        writer.addFile(name, data);
    return writer.finish();
}

HouseholdGenerator::Options smallHousehold()
{
    HouseholdGenerator::Options options;
    options.accounts = 3;
    options.years = 2;
    options.transactions = 2000;
    options.recurringRules = 12;
    options.reconciliations = 6;
    return options;
}

} // namespace

class TstBackupService : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();

    void emptyDatabaseExportsOnlyTheManifest();
    void exportWritesEveryRowInColumnOrder();
    void householdComesBackAsNewUnsentRows();
    void skipExistingTwiceSkipsEverythingTheSecondTime();
    void existingRow_data();
    void existingRow();
    void refusedArchivesImportNothing_data();
    void refusedArchivesImportNothing();
    void oddlyNamedEntriesAreIgnored();
    void badRowIsSkippedAndNothingElseTouched_data();
    void badRowIsSkippedAndNothingElseTouched();

private:
    QSqlQuery query(const QString &sql);
    std::unique_ptr<TempDatabase> m_db;
    std::unique_ptr<BackupService> m_service;

    // The household as exported, and what its tables held.
    QByteArray m_householdArchive;
    QMap<QString, QMap<QString, QStringList>> m_householdRows;
    int m_householdSplitLines = 0;
};

void TstBackupService::initTestCase()
{
    TempDatabase source;
    QVERIFY(source.open());
    QVERIFY(HouseholdGenerator::generate(source.database(), smallHousehold()).ok);
    // Rows the server has seen, and rows deleted, so that the reset and the tombstones show.
    QVERIFY(source.exec("UPDATE accounts SET sync_status = 'synced', server_id = 'srv-' || id, version = 4"));
    QVERIFY(
        source.exec("UPDATE transactions SET sync_status = 'synced', server_id = 'srv-' || id, version = 7 "
                    "WHERE rowid % 3 = 0"));
    QVERIFY(source.exec("UPDATE transactions SET deleted_at = '2025-02-01T10:00:00Z' WHERE rowid % 40 = 0"));
    QVERIFY(
        source.exec("UPDATE recurring_transactions SET deleted_at = '2025-02-01T10:00:00Z' WHERE rowid = 2"));
    for (const char *table : kSyncedTables) {
        m_householdRows.insert(QLatin1String(table), rowsOf(source, table));
        QVERIFY(!m_householdRows.value(QLatin1String(table)).isEmpty());
    }
    m_householdSplitLines = source.scalar("SELECT COUNT(*) FROM split_lines").toInt();
    QVERIFY(m_householdSplitLines > 0);
    m_householdArchive = BackupService(source.database()).exportToZip();
    QVERIFY(!m_householdArchive.isEmpty());
}

void TstBackupService::init()
{
    m_db = std::make_unique<TempDatabase>();
    QVERIFY(m_db->open());
    m_service = std::make_unique<BackupService>(m_db->database());
}

void TstBackupService::cleanup()
{
    m_service.reset();
    m_db.reset();
}

QSqlQuery TstBackupService::query(const QString &sql)
{
    QSqlQuery q(m_db->database()->connection());
    q.exec(sql);
    q.next();
    return q;
}

void TstBackupService::emptyDatabaseExportsOnlyTheManifest()
{
    const auto entries = entriesOf(m_service->exportToZip());
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first().first, QStringLiteral("manifest.json"));
    const QJsonObject manifest = QJsonDocument::fromJson(entries.first().second).object();
    QCOMPARE(manifest.value("version").toInt(), 1);
    for (const char *key : {"accountCount", "categoryCount", "transactionCount", "splitLineCount",
                            "recurringCount", "reconciliationCount"}) {
        QVERIFY2(manifest.value(key).isDouble(), key);
        QCOMPARE(manifest.value(key).toInt(-1), 0);
    }
    const QString exportedAt = manifest.value("exportedAt").toString();
    QVERIFY2(QDateTime::fromString(exportedAt, Qt::ISODate).timeSpec() == Qt::UTC, qPrintable(exportedAt));
}

void TstBackupService::exportWritesEveryRowInColumnOrder()
{
    QVERIFY(m_db->exec("INSERT INTO accounts (id, name, created_at, updated_at) VALUES "
                       "('acc', 'Checking', '2025-01-01T00:00:00Z', '2025-01-01T00:00:00Z')"));
    QVERIFY(m_db->exec("INSERT INTO accounts (id, name, created_at, updated_at, deleted_at) VALUES "
                       "('old', 'Closed', '2025-01-01T00:00:00Z', '2025-01-02T00:00:00Z', "
                       "'2025-01-02T00:00:00Z')"));
    const QString memo = QStringLiteral("say \"hi\"\\ back\n\ttab \x01 é 😀");
    QSqlQuery insert(m_db->database()->connection());
    insert.prepare(
        "INSERT INTO transactions (id, account_id, date, payee, memo, amount, created_at, updated_at) "
        "VALUES ('t', 'acc', '2025-01-05', 'Grocer', ?, 9007199254740993, '2025-01-05T00:00:00Z', "
        "'2025-01-05T00:00:00Z')");
    insert.addBindValue(memo);
    QVERIFY(insert.exec());

    const auto entries = entriesOf(m_service->exportToZip());
    QStringList names;
    for (const auto &entry : entries)
        names << entry.first;
    QCOMPARE(names,
             (QStringList{"accounts/acc.json", "accounts/old.json", "transactions/t.json", "manifest.json"}));

    // Keys in the order of the table's columns, four spaces in, as QJsonDocument indents.
    const QByteArray account = entries.at(0).second;
    QVERIFY(account.startsWith("{\n    \"id\": \"acc\",\n"));
    QVERIFY(account.endsWith("\n}\n"));
    QStringList keys;
    const QRegularExpression key(QStringLiteral("^    \"([^\"]+)\": "), QRegularExpression::MultilineOption);
    for (auto it = key.globalMatch(QString::fromUtf8(account)); it.hasNext();)
        keys << it.next().captured(1);
    QCOMPARE(keys, columnsOf(*m_db, "accounts"));

    const QJsonObject deleted = QJsonDocument::fromJson(entries.at(1).second).object();
    QCOMPARE(deleted.value("deleted_at").toString(), QStringLiteral("2025-01-02T00:00:00Z"));
    QVERIFY(deleted.value("server_id").isNull());
    QCOMPARE(deleted.value("version").toInteger(), 1);

    const QJsonObject row = QJsonDocument::fromJson(entries.at(2).second).object();
    QCOMPARE(row.value("memo").toString(), memo);
    QCOMPARE(row.value("amount").toInteger(), Q_INT64_C(9007199254740993));
    QVERIFY(row.value("check_number").isNull());

    const QJsonObject manifest = QJsonDocument::fromJson(entries.at(3).second).object();
    QCOMPARE(manifest.value("accountCount").toInt(), 2);
    QCOMPARE(manifest.value("transactionCount").toInt(), 1);
    QCOMPARE(manifest.value("categoryCount").toInt(), 0);
}

void TstBackupService::householdComesBackAsNewUnsentRows()
{
    const BackupImportResult result = m_service->importFromZip(m_householdArchive, BackupImportMode::Replace);
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.accountsImported, int(m_householdRows.value("accounts").size()));
    QCOMPARE(result.categoriesImported, int(m_householdRows.value("categories").size()));
    QCOMPARE(result.transactionsImported, int(m_householdRows.value("transactions").size()));
    QCOMPARE(result.recurringImported, int(m_householdRows.value("recurring_transactions").size()));
    QCOMPARE(result.reconciliationsImported, int(m_householdRows.value("reconciliations").size()));
    // Split lines have no sync columns, so the keys the restore gives them fail every row.
    QCOMPARE(result.splitLinesImported, 0);
    QCOMPARE(result.splitLinesSkipped, m_householdSplitLines);
    QCOMPARE(result.totalSkipped(), qint64(m_householdSplitLines));

    for (const char *table : kSyncedTables) {
        QCOMPARE(rowsOf(*m_db, table), m_householdRows.value(QLatin1String(table)));
        QCOMPARE(
            query(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE version != 1 OR sync_status != 'pending' "
                                 "OR server_id IS NOT NULL")
                      .arg(QLatin1String(table)))
                .value(0)
                .toInt(),
            0);
    }
    QCOMPARE(query("SELECT COUNT(*) FROM split_lines").value(0).toInt(), 0);
    QVERIFY(query("SELECT COUNT(*) FROM transactions WHERE deleted_at IS NOT NULL").value(0).toInt() > 0);
}

void TstBackupService::skipExistingTwiceSkipsEverythingTheSecondTime()
{
    const BackupImportResult first =
        m_service->importFromZip(m_householdArchive, BackupImportMode::SkipExisting);
    QVERIFY(first.transactionsImported > 0);
    const BackupImportResult second =
        m_service->importFromZip(m_householdArchive, BackupImportMode::SkipExisting);
    QCOMPARE(second.errors, QStringList());
    QCOMPARE(second.totalImported(), qint64(0));
    QCOMPARE(second.totalSkipped(), first.totalImported() + first.totalSkipped());
    QCOMPARE(second.transactionsSkipped, first.transactionsImported);
}

void TstBackupService::existingRow_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("backupUpdatedAt");
    QTest::addColumn<bool>("replaced");
    // Ours was last changed at 2025-03-01T00:00:00Z.
    QTest::newRow("skip existing, backup newer")
        << int(BackupImportMode::SkipExisting) << "2025-06-01T00:00:00Z" << false;
    QTest::newRow("replace, backup older")
        << int(BackupImportMode::Replace) << "2024-01-01T00:00:00Z" << true;
    QTest::newRow("keep newer, equal") << int(BackupImportMode::KeepNewer) << "2025-03-01T00:00:00Z" << false;
    QTest::newRow("keep newer, a second older")
        << int(BackupImportMode::KeepNewer) << "2025-02-28T23:59:59Z" << false;
    QTest::newRow("keep newer, a second newer")
        << int(BackupImportMode::KeepNewer) << "2025-03-01T00:00:01Z" << true;
    QTest::newRow("keep newer, backup without stamp")
        << int(BackupImportMode::KeepNewer) << QString() << false;
}

void TstBackupService::existingRow()
{
    QFETCH(int, mode);
    QFETCH(QString, backupUpdatedAt);
    QFETCH(bool, replaced);
    QVERIFY(
        m_db->exec("INSERT INTO accounts (id, name, version, sync_status, server_id, created_at, updated_at) "
                   "VALUES ('a', 'Ours', 3, 'synced', 'srv-a', '2025-01-01T00:00:00Z', "
                   "'2025-03-01T00:00:00Z')"));
    const BackupImportResult result = m_service->importFromZip(
        archiveOf({
            {"accounts/a.json", accountRow("a", "Theirs", backupUpdatedAt)},
            {"manifest.json", manifest()              }
    }),
        BackupImportMode(mode));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.accountsImported, replaced ? 1 : 0);
    QCOMPARE(result.accountsSkipped, replaced ? 0 : 1);

    const QSqlQuery row = query("SELECT name, version, sync_status, server_id FROM accounts WHERE id = 'a'");
    QCOMPARE(row.value(0).toString(), replaced ? QStringLiteral("Theirs") : QStringLiteral("Ours"));
    QCOMPARE(row.value(1).toInt(), replaced ? 1 : 3);
    QCOMPARE(row.value(2).toString(), replaced ? QStringLiteral("pending") : QStringLiteral("synced"));
    QCOMPARE(row.isNull(3), replaced);
}

void TstBackupService::refusedArchivesImportNothing_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<QString>("error");
    const QPair<QString, QByteArray> row{"accounts/a.json", accountRow("a", "A")};
    const QString notZip = QStringLiteral("Failed to open ZIP archive");
    QTest::newRow("not a ZIP") << QByteArray("PK but no more than a few words") << notZip;
    QTest::newRow("empty file") << QByteArray() << notZip;
    QTest::newRow("entry over the size limit")
        << archiveOf({
               row, {"notes/big.bin", QByteArray(17 * 1024 * 1024, 'x')},
                {"manifest.json",               manifest()                           }
    })
        << notZip;
    QTest::newRow("no manifest") << archiveOf({row})
                                 << QStringLiteral("Invalid backup: missing manifest.json");
    QTest::newRow("no entries at all")
        << archiveOf({}) << QStringLiteral("Invalid backup: missing manifest.json");
    QTest::newRow("empty manifest") << archiveOf({
                                           row, {"manifest.json", QByteArray()}
    })
                                    << QStringLiteral("Invalid backup: missing manifest.json");
    QTest::newRow("version 2") << archiveOf({
                                      row, {"manifest.json", manifest(2)}
    })
                               << QStringLiteral("Unsupported backup version: 2");
    QTest::newRow("version as text") << archiveOf({
                                            row, {"manifest.json", "{\"version\": \"1\"}"}
    })
                                     << QStringLiteral("Unsupported backup version: 0");
}

void TstBackupService::refusedArchivesImportNothing()
{
    QFETCH(QByteArray, archive);
    QFETCH(QString, error);
    const BackupImportResult result = m_service->importFromZip(archive, BackupImportMode::Replace);
    QCOMPARE(result.errors, QStringList{error});
    QCOMPARE(result.totalImported(), qint64(0));
    QCOMPARE(result.totalSkipped(), qint64(0));
    QCOMPARE(query("SELECT COUNT(*) FROM accounts").value(0).toInt(), 0);
}

void TstBackupService::oddlyNamedEntriesAreIgnored()
{
    const QByteArray other = accountRow("x", "Not to be read");
    const BackupImportResult result =
        m_service->importFromZip(archiveOf({
                                     {"notes/readme.txt",  "hello"       },
                                     {"accounts/x.txt",    other         },
                                     {"accountsx/y.json",  other         },
                                     {"Accounts/z.json",   other         },
                                     {"accounts.json",     other         },
                                     {"./accounts/w.json", other         },
                                     {"recurring.json",    other         },
                                     {"accounts/a.json",   accountRow("a", "Real")},
                                     {"manifest.json",                   manifest()                  },
                                     {"manifest.json.bak",                   manifest(2)},
    }),
                                 BackupImportMode::Replace);
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.totalImported(), qint64(1));
    QCOMPARE(result.totalSkipped(), qint64(0));
    QCOMPARE(query("SELECT group_concat(name) FROM accounts").value(0).toString(), QStringLiteral("Real"));
}

void TstBackupService::badRowIsSkippedAndNothingElseTouched_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QString>("error");

    const auto withKey = [](const QString &key, const QJsonValue &value) {
        QJsonObject row = QJsonDocument::fromJson(accountRow("bad", "Bad")).object();
        row.insert(key, value);
        return QJsonDocument(row).toJson();
    };
    QTest::newRow("unknown column") << withKey("nickname", "B") << QString();
    QTest::newRow("key smuggling a statement")
        << withKey("name) VALUES ('p', 'q', 'r', 's'); DROP TABLE accounts; --", "x") << QString();
    QTest::newRow("key closing the insert early")
        << withKey("id, name, account_type, currency, created_at, updated_at) SELECT id, name, account_type, "
                   "currency, created_at, updated_at FROM accounts; --",
                   "x")
        << QString();
    QTest::newRow("key with a quote") << withKey("na\"me", "x") << QString();
    QTest::newRow("column of another table") << withKey("transaction_id", "t") << QString();
    QTest::newRow("array value") << withKey("institution", QJsonArray{1, 2}) << QString();
    QTest::newRow("numeric id") << withKey("id", 5) << QString();
    QTest::newRow("no id") << QByteArray(
                                  "{\"name\": \"Nameless\", \"created_at\": \"x\", \"updated_at\": \"x\"}")
                           << QString();
    QTest::newRow("missing required column") << QByteArray("{\"id\": \"bad\"}") << QString();
    QTest::newRow("not JSON") << QByteArray("{ \"id\": ")
                              << QStringLiteral("accounts/bad.json: invalid JSON");
    QTest::newRow("empty object") << QByteArray("{}") << QStringLiteral("accounts/bad.json: invalid JSON");
    QTest::newRow("array") << QByteArray("[1, 2]") << QStringLiteral("accounts/bad.json: invalid JSON");
}

void TstBackupService::badRowIsSkippedAndNothingElseTouched()
{
    QFETCH(QByteArray, row);
    QFETCH(QString, error);
    QVERIFY(m_db->exec("INSERT INTO accounts (id, name, created_at, updated_at) VALUES "
                       "('mine', 'Mine', '2025-01-01T00:00:00Z', '2025-01-01T00:00:00Z')"));
    const QString schema = query("SELECT group_concat(name) FROM sqlite_master").value(0).toString();

    const BackupImportResult result =
        m_service->importFromZip(archiveOf({
                                     {"accounts/bad.json",  row              },
                                     {"accounts/good.json", accountRow("good", "Good")},
                                     {"manifest.json",                    manifest()                      }
    }),
                                 BackupImportMode::Replace);
    QCOMPARE(result.errors, error.isEmpty() ? QStringList() : QStringList{error});
    QCOMPARE(result.accountsImported, 1);
    QCOMPARE(result.accountsSkipped, error.isEmpty() ? 1 : 0);
    QCOMPARE(query("SELECT group_concat(id || ':' || name, ' ') FROM (SELECT * FROM accounts ORDER BY id)")
                 .value(0)
                 .toString(),
             QStringLiteral("good:Good mine:Mine"));
    QCOMPARE(query("SELECT group_concat(name) FROM sqlite_master").value(0).toString(), schema);
}

QTEST_GUILESS_MAIN(TstBackupService)
#include "tst_backupservice.moc"
